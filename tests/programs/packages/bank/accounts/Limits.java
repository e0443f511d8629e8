package bank.accounts;

public interface Limits {
    int HIGHEST = 1000000;
}
