package bank;

import bank.accounts.*;
import bank.audit.Auditor;
import java.util.Vector;

public class Bank {
    public static final String MOTTO = "limit " + Limits.HIGHEST;
    private final String name;
    private Vector all = new Vector();
    private Log log = new Log();

    public Bank(String name) {
        this.name = name;
    }

    public Account open(String owner, long balance) {
        Account a = new Account(owner, balance);
        all.addElement(a);
        log.add("opened " + a);
        return a;
    }

    public Savings openSavings(String owner, long balance, int rate) {
        Savings s = new Savings(owner, balance, rate);
        all.addElement(s);
        log.add("opened " + s);
        return s;
    }

    public void transfer(Account from, Account to, long amount) {
        try {
            from.withdraw(amount);
            to.deposit(amount);
            log.add(amount + " from " + from.owner() + " to " + to.owner());
        } catch (InsufficientFunds e) {
            log.add("refused: " + e.getMessage() + ", missing " + e.missing());
        }
    }

    public void audit() {
        Auditor auditor = new Auditor(name);
        for (int i = 0; i < all.size(); i++) auditor.visit((Account) all.elementAt(i));
        log.print();
        auditor.report();
    }

    public String name() {
        return name;
    }
}

/** Not visible outside of the package. */
class Log {
    private StringBuffer lines = new StringBuffer();

    void add(String line) {
        lines.append(line).append('\n');
    }

    void print() {
        System.out.print(lines);
    }
}
