package q;
import p.*;
import p.A.*;
import p.A.Pub.Inner;
public class B extends A {
    class MyIn extends In {
        MyIn() { super(5); }
        int t() { return y + m() + x + sx; }
    }
    class Oth {
        int t() {
            return new MyIn().t() + B.this.hook() + new In(3) {
                int q() {
                    return m() + y + x;
                }
            }.q() + sx++ + ++x;
        }
        int more(B o) {
            o.x += 5;
            A.sx *= 2;
            return o.x-- + o.hook() + B.super_(o);
        }
    }
    static int super_(B b) { return b.sup(); }
    int sup() { return super.hook() + super.x; }
    PCb pcb() {
        return new PCb() {
            public int pc() {
                return x + sx + hook();
            }
        };
    }
    public int run() {
        return new Oth().t() * 1000 + new Oth().more(new B()) + pcb().pc() + Inner.c + new Inner().i + new St() {
            int h() {
                return g();
            }
        }.h();
    }
    protected int hook() { return 20; }
    static class Nest {
        int a() { return sx + Pub.Inner.c; }
        class NN extends B {
            int b() { return x + sx + new B().x + hook(); }
        }
    }
}
