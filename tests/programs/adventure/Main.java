import java.util.*;

/** Directions as numbers with names: what one wrote before there was anything better. */
interface Directions {
    int NORTH = 0, EAST = 1, SOUTH = 2, WEST = 3, UP = 4, DOWN = 5;
    String[] NAME = { "north", "east", "south", "west", "up", "down" };
    int[] BACK = { SOUTH, WEST, NORTH, EAST, DOWN, UP };
}

class Thing {
    final String name, look;
    boolean portable = true;

    Thing(String name, String look) {
        this.name = name;
        this.look = look;
    }

    String use(Game g) {
        return "Nothing happens.";
    }
}

class Lamp extends Thing {
    boolean lit;
    private int oil = 12;

    Lamp() {
        super("lamp", "a brass lamp");
    }

    String use(Game g) {
        if (oil <= 0) return "There is no oil left.";
        lit = !lit;
        return lit ? "The lamp burns." : "The lamp goes out.";
    }

    String burn() {
        if (!lit || --oil > 0) return "";
        lit = false;
        return " The lamp flickers and goes out.";
    }
}

class Key extends Thing {
    private final Door door;

    Key(Door door) {
        super("key", "a rusty key");
        this.door = door;
    }

    String use(Game g) {
        if (g.here() != door.a && g.here() != door.b) return super.use(g);
        door.locked ^= true;
        return door.locked ? "Locked." : "The door is open.";
    }
}

class Room implements Directions {
    final String name;
    final boolean dark;
    private final Object[] exits = new Object[NAME.length];
    final Vector things = new Vector();
    int visits;

    Room(String name, boolean dark) {
        this.name = name;
        this.dark = dark;
    }

    Room(String name) {
        this(name, false);
    }

    void connect(int direction, Room other) {
        exits[direction] = other;
        other.exits[BACK[direction]] = this;
    }

    void connect(int direction, Door d) {
        Room other = d.a == this ? d.b : d.a;
        exits[direction] = d;
        other.exits[BACK[direction]] = d;
    }

    Room go(int direction) throws Blocked {
        Object e = exits[direction];
        if (e == null) throw new Blocked("You can't go " + NAME[direction] + ".");
        return e instanceof Door ? ((Door) e).through(this) : (Room) e;
    }

    String exits() {
        String s = "";
        for (int i = 0, n = 0; i < exits.length; i++) if (exits[i] != null) s += (n++ > 0 ? ", " : "") + NAME[i] + (exits[i] instanceof Door ? " (door)" : "");
        return s;
    }
}

class Door {
    final Room a, b;
    boolean locked = true;

    Door(Room a, Room b) {
        this.a = a;
        this.b = b;
    }

    Room through(Room from) throws Blocked {
        if (locked) throw new Blocked("The door is locked.");
        return from == a ? b : a;
    }
}

class Blocked extends Exception {
    Blocked(String why) {
        super(why);
    }
}

class Over extends RuntimeException {
    final int score;

    Over(String s, int score) {
        super(s);
        this.score = score;
    }
}

class Game implements Directions {
    private static final byte WAITING = 0, AWAKE = 1, ANGRY = 2, GONE = 3;
    private Room here;
    private final Vector carried = new Vector();
    private final Room hall = new Room("hall"), garden = new Room("garden"), cellar = new Room("cellar", true), vault = new Room("vault", true), tower = new Room("tower");
    private final Lamp lamp = new Lamp();
    private byte dragon = WAITING;
    private int turns;

    Game() {
        Door door = new Door(cellar, vault);
        hall.connect(SOUTH, garden);
        hall.connect(DOWN, cellar);
        hall.connect(UP, tower);
        cellar.connect(EAST, door);
        garden.things.addElement(new Key(door));
        hall.things.addElement(lamp);
        Thing table = new Thing("table", "a heavy table");
        table.portable = false;
        hall.things.addElement(table);
        vault.things.addElement(new Thing("gold", "a heap of gold"));
        tower.things.addElement(new Thing("flute", "a flute of bone"));
        here = hall;
    }

    Room here() {
        return here;
    }

    private static Thing find(Vector v, String name) {
        for (Enumeration e = v.elements(); e.hasMoreElements(); ) {
            Thing t = (Thing) e.nextElement();
            if (t.name.equals(name)) return t;
        }
        return null;
    }

    private boolean seeing() {
        return !here.dark || lamp.lit && (carried.contains(lamp) || here.things.contains(lamp));
    }

    private String list(Vector v) {
        StringBuffer b = new StringBuffer();
        for (int i = 0; i < v.size(); i++) b.append(i == 0 ? "" : i == v.size() - 1 ? " and " : ", ").append(((Thing) v.elementAt(i)).look);
        return b.length() == 0 ? "nothing" : b.toString();
    }

    private String look() {
        if (!seeing()) return "It is dark.";
        return "You are in the " + here.name + (here.visits > 1 ? " again" : "") + ". You see " + list(here.things) + ". Exits: " + here.exits() + "."
            + (here == vault && dragon < GONE ? dragon == WAITING ? " A dragon sleeps here." : " A dragon looks at you." : "");
    }

    String command(String line) {
        StringTokenizer st = new StringTokenizer(line.toLowerCase());
        if (!st.hasMoreTokens()) return "Yes?";
        String verb = st.nextToken(), noun = st.hasMoreTokens() ? st.nextToken() : "";
        String answer;
        turns++;
        search: {
            for (int i = 0; i < NAME.length; i++) {
                if (!NAME[i].startsWith(verb)) continue;
                try {
                    here = here.go(i);
                    here.visits++;
                    answer = look();
                } catch (Blocked b) {
                    answer = b.getMessage();
                }
                break search;
            }
            if (verb.equals("look")) answer = look();
            else if (verb.equals("take")) answer = take(noun);
            else if (verb.equals("drop")) {
                Thing t = find(carried, noun);
                if (t == null) answer = "You don't have that.";
                else {
                    carried.removeElement(t);
                    here.things.addElement(t);
                    answer = "Dropped.";
                }
            } else if (verb.equals("use")) {
                Thing t = find(carried, noun);
                answer = t == null ? "You don't have that." : noun.equals("flute") ? play() : t.use(this);
            } else if (verb.equals("inventory")) answer = "You carry " + list(carried) + ".";
            else {
                turns--;
                return "What is \"" + verb + "\"?";
            }
        }
        return answer + lamp.burn() + dragon();
    }

    private String take(String noun) {
        if (!seeing()) return "You feel around in the dark.";
        Thing t = find(here.things, noun);
        if (t == null) return "There is no " + noun + ".";
        else if (!t.portable) return "Too heavy.";
        if (noun.equals("gold") && dragon != GONE) {
            dragon = ANGRY;
            return "The dragon wakes!";
        }
        here.things.removeElement(t);
        carried.addElement(t);
        return "Taken.";
    }

    private String play() {
        switch (dragon) {
            case WAITING:
                if (here == vault) { dragon = AWAKE; return "The dragon opens an eye."; }
                break;
            case AWAKE: case ANGRY:
                if (here != vault) break;
                dragon = GONE;
                return "The dragon listens, weeps and flies away.";
        }
        return "A sad tune.";
    }

    private String dragon() {
        boolean rich = find(carried, "gold") != null;
        switch (dragon) {
            case ANGRY:
                if (here != vault) { dragon = WAITING; return " Behind you the dragon falls asleep."; }
                dragon = AWAKE;
                return " It snorts.";
            case AWAKE:
                if (here == vault && turns > 30) throw new Over("The dragon loses patience.", 0);
            case WAITING:
                break;
            case GONE:
                if (rich && here == garden) throw new Over("You are rich!", 100 - turns);
        }
        return "";
    }
}

public class Main {
    static void play(String title, String script) {
        System.out.println("-- " + title);
        Game g = new Game();
        try {
            for (StringTokenizer st = new StringTokenizer(script, ","); st.hasMoreTokens(); ) {
                String c = st.nextToken().trim();
                System.out.println("> " + c);
                System.out.println(g.command(c));
            }
            System.out.println("You give up.");
        } catch (Over o) {
            System.out.println(o.getMessage() + " Score " + o.score);
        }
    }

    public static void main(String[] args) {
        play("to the gold", "look, take table, take lamp, s, take key, look, n, up, take flute, inventory, d, d, use lamp, e, use key, e, take gold, use flute, use flute, take gold, w, u, s");
        play("in the dark", "down, take key, look, up, take lamp, dance, use lamp, d, look, use lamp, look, use lamp, drop lamp, look, take lamp, w, look, look, look, look, look, look, look, use lamp");
        play("without music", "take lamp, use lamp, s, take key, n, d, use key, e, take gold, w, use key, e, use key, e, take gold, take gold, look, look, look, look, look, look, look, look, look, look, look, look, look, look");
    }
}
