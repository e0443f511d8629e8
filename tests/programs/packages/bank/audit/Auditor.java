package bank.audit;

import bank.accounts.Account;

public class Auditor {
    private final String bank;
    private long total;
    private StringBuffer notes = new StringBuffer();

    public Auditor(String bank) {
        this.bank = bank;
    }

    public void visit(Account a) {
        Probe probe = new Probe(a);
        total += probe.worth();
        notes.append(probe.reveal()).append(", ").append(a.reveal()).append('\n');
    }

    public void report() {
        System.out.println(bank + " holds " + total + " " + Probe.money());
        System.out.print(notes);
    }
}

/** A subclass in another package: it may use what is protected, on itself. */
class Probe extends Account {
    private final Account target;

    Probe(Account target) {
        super("probe of " + target.owner(), 1);
        this.target = target;
    }

    long worth() {
        String text = target.toString();
        int colon = text.indexOf(": ");
        balance = Long.parseLong(text.substring(colon + 2, text.lastIndexOf(' ')));
        this.balance += super.balance - new Probe(target).balance;
        return (balance + 1) / 2;
    }

    static String money() {
        return currency() + "/" + Account.currency();
    }

    /** Not the method of the superclass, which has package access elsewhere. */
    public String internal() {
        return "Probe.internal";
    }

    protected String label() {
        return super.label() + number;
    }
}
