import model.*;
import view.*;

/** Model and views that know each other by interfaces only: events, adapters, bound properties with veto. */
public class Main implements ChangeListener {
    private int heard;

    public void changed(ChangeEvent e) {
        heard++;
        System.out.println("main heard " + e);
    }

    public static void main(String[] args) {
        Thermometer t = new Thermometer("kitchen");
        Main main = new Main();
        Bar bar = new Bar(10);
        Log log = new Log(System.out, "log: ");
        t.addChangeListener(main);
        t.addChangeListener(bar);
        t.addChangeListener(log);
        t.addVetoer(new Range(-20, 50));
        t.set(20);
        t.set(20);
        System.out.println(bar);
        t.set(60);
        t.removeChangeListener(main);
        t.set(35);
        System.out.println(bar + " " + main.heard + " heard");
        Thermometer cellar = new Thermometer("cellar");
        new Link(t, cellar);
        cellar.addChangeListener(new Once(cellar, log));
        t.set(40);
        t.set(-10);
        System.out.println(t.get() + " " + cellar.get() + " " + bar);
        Alarm alarm = new Alarm(30);
        t.addChangeListener(alarm);
        int[] values = { 29, 31, 35, 12, 49, 51 };
        for (int i = 0; i < values.length; i++) t.set(values[i]);
        System.out.println(alarm.rings() + " alarms, " + ChangeEvent.made() + " events");
        t.addVetoer(new Stubborn());
        t.set(0);
        t.set(1);
        System.out.println(t);
    }
}
