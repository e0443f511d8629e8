package bank.accounts;

public class Savings extends Account {
    private int rate;

    public Savings(String owner, long balance, int rate) {
        super(owner, balance);
        this.rate = rate;
    }

    public void endOfYear() {
        balance += balance * rate / 100;
        uses = uses + 1;
    }

    protected String label() {
        return rate + "% " + super.label();
    }

    String internal() {
        return "Savings.internal " + uses;
    }
}
