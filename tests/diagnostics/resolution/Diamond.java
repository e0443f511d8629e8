/** Thirty levels of interfaces, each inherited in two ways: no search doubles at each, and a fault is told once. */
interface A0 {
    int LIMIT = 1;
    int value();
    void take(String s);
}
interface L1 extends A0 { }  interface R1 extends A0 { }  interface A1 extends L1, R1 { }
interface L2 extends A1 { }  interface R2 extends A1 { }  interface A2 extends L2, R2 { }
interface L3 extends A2 { }  interface R3 extends A2 { }  interface A3 extends L3, R3 { }
interface L4 extends A3 { }  interface R4 extends A3 { }  interface A4 extends L4, R4 { }
interface L5 extends A4 { }  interface R5 extends A4 { }  interface A5 extends L5, R5 { }
interface L6 extends A5 { }  interface R6 extends A5 { }  interface A6 extends L6, R6 { }
interface L7 extends A6 { }  interface R7 extends A6 { }  interface A7 extends L7, R7 { }
interface L8 extends A7 { }  interface R8 extends A7 { }  interface A8 extends L8, R8 { }
interface L9 extends A8 { }  interface R9 extends A8 { }  interface A9 extends L9, R9 { }
interface L10 extends A9 { }  interface R10 extends A9 { }  interface A10 extends L10, R10 { }
interface L11 extends A10 { }  interface R11 extends A10 { }  interface A11 extends L11, R11 { }
interface L12 extends A11 { }  interface R12 extends A11 { }  interface A12 extends L12, R12 { }
interface L13 extends A12 { }  interface R13 extends A12 { }  interface A13 extends L13, R13 { }
interface L14 extends A13 { }  interface R14 extends A13 { }  interface A14 extends L14, R14 { }
interface L15 extends A14 { }  interface R15 extends A14 { }  interface A15 extends L15, R15 { }
interface L16 extends A15 { }  interface R16 extends A15 { }  interface A16 extends L16, R16 { }
interface L17 extends A16 { }  interface R17 extends A16 { }  interface A17 extends L17, R17 { }
interface L18 extends A17 { }  interface R18 extends A17 { }  interface A18 extends L18, R18 { }
interface L19 extends A18 { }  interface R19 extends A18 { }  interface A19 extends L19, R19 { }
interface L20 extends A19 { }  interface R20 extends A19 { }  interface A20 extends L20, R20 { }
interface L21 extends A20 { }  interface R21 extends A20 { }  interface A21 extends L21, R21 { }
interface L22 extends A21 { }  interface R22 extends A21 { }  interface A22 extends L22, R22 { }
interface L23 extends A22 { }  interface R23 extends A22 { }  interface A23 extends L23, R23 { }
interface L24 extends A23 { }  interface R24 extends A23 { }  interface A24 extends L24, R24 { }
interface L25 extends A24 { }  interface R25 extends A24 { }  interface A25 extends L25, R25 { }
interface L26 extends A25 { }  interface R26 extends A25 { }  interface A26 extends L26, R26 { }
interface L27 extends A26 { }  interface R27 extends A26 { }  interface A27 extends L27, R27 { }
interface L28 extends A27 { }  interface R28 extends A27 { }  interface A28 extends L28, R28 { }
interface L29 extends A28 { }  interface R29 extends A28 { }  interface A29 extends L29, R29 { }
interface L30 extends A29 { }  interface R30 extends A29 { }  interface A30 extends L30, R30 { }

  class Empty implements A30 { }
//^ error 454: class Empty should be declared abstract; it does not define method take(java.lang.String) in interface A0

  class Different implements A30 {
//^ error 461: method value() in class Different cannot implement method value() in interface A0 with different return type, was int
    public long value() { return missing() + MISSING + LIMIT; }
    //          ^ error 461: method value() in class Different cannot implement method value() in interface A0 with different return type, was int
    //                           ^ error 300: method missing() not found in class Different
    //                                       ^ error 300: variable MISSING not found in class Different
    public void take(String s) { }
    Missing field;
  //^ error 300: class Missing not found in class Different
}

abstract class Partial implements A30 {
    //   ^ error 461: method value() in class Partial cannot implement method value() in interface A0 with different return type, was int
    public abstract long value();
    //                   ^ error 461: method value() in class Partial cannot implement method value() in interface A0 with different return type, was int

    class Inner {
        void f(A30 a) { a.missing(); take(LIMIT); }
        //                ^ error 300: method missing() not found in interface A30
        //                           ^ error 300: method take(int) not found in class Partial.Inner
    }
}
