package util;

class Invisible {
    public int field = 3;

    public void show() {
        System.out.println("shown " + field++ + " " + this.field);
    }
}
