package bank.accounts;

public class Account implements Limits {
    private static int next = 1;
    private final String owner;
    protected long balance;
    protected final int number = next++;
    int uses;

    public Account(String owner, long balance) {
        this.owner = owner;
        deposit(balance);
    }

    public String owner() {
        return owner;
    }

    public void deposit(long amount) {
        uses++;
        balance = Math.min(balance + amount, HIGHEST);
    }

    public void withdraw(long amount) throws InsufficientFunds {
        if (amount > balance) throw new InsufficientFunds(this, amount - balance);
        balance -= amount;
        uses++;
    }

    protected String label() {
        return "account";
    }

    protected static String currency() {
        return "EUR";
    }

    /** Package access: a class of the same name and signature elsewhere does not override it. */
    String internal() {
        return "Account.internal";
    }

    public final String reveal() {
        return internal();
    }

    public String toString() {
        return label() + " " + number + " of " + owner + ": " + balance + " " + currency();
    }
}
