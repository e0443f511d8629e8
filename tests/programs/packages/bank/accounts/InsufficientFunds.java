package bank.accounts;

public class InsufficientFunds extends Exception {
    private long missing;

    InsufficientFunds(Account a, long missing) {
        super(a.toString());
        this.missing = missing;
    }

    public long missing() {
        return missing;
    }
}
