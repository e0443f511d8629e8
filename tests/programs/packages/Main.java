import bank.*;
import bank.accounts.Account;
import bank.accounts.Savings;
import java.util.*;
import util.Stack;

/** Several packages: imports of both kinds, a class that hides another's name, and who may see what. */
public class Main {
    public static void main(String[] args) {
        Bank bank = new Bank("First");
        Account a = bank.open("ann", 100), b = bank.open("bob", 50);
        Savings s = bank.openSavings("sue", 1000, 5);
        bank.transfer(a, b, 30);
        s.endOfYear();
        bank.transfer(s, a, 2000);
        bank.audit();
        Stack stack = new Stack();
        java.util.Stack other = new java.util.Stack();
        stack.push("mine");
        other.push("library's");
        System.out.println(stack.pop() + " " + other.pop() + " " + stack.getClass().getName());
        Vector v = new Vector();
        v.addElement(a);
        v.addElement(s);
        for (Enumeration e = v.elements(); e.hasMoreElements(); ) System.out.println(e.nextElement());
        System.out.println(Bank.MOTTO + " " + Limits.highest() + " " + util.Depth.DEEPEST + " " + bank.name());
        new util.Visible().show();
    }
}
