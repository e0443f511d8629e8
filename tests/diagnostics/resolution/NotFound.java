import nowhere.Imported;
//             ^ error 302: cannot access class nowhere.Imported; file nowhere/Imported.class not found
class NotFound {
    Missing missingClass, saidOnce, inArray[];
  //^ error 300: class Missing not found in class NotFound
    int missingVariable = c;
    //                    ^ error 300: variable c not found in class NotFound
    int missingMethod = f(1, "x");
    //                  ^ error 300: method f(int, java.lang.String) not found in class NotFound
    int missingMember = this.g;
    //                       ^ error 300: variable g not found in class NotFound
    int missingInLibrary = "".size();
    //                        ^ error 300: method size() not found in class java.lang.String
    Object missingConstructor = new NotFound(5);
    //                              ^ error 300: constructor NotFound(int) not found in class NotFound
    boolean unary = !5;
    //              ^ error 300: method !(int) not found in class NotFound
    boolean binary = true + 1;
    //                    ^ error 300: method +(boolean, int) not found in class NotFound
    boolean mixed = "a" == 1;
    //                  ^ error 300: method ==(java.lang.String, int) not found in class NotFound
    java.util.Missing inPackage;
    //        ^ error 302: cannot access class java.util.Missing; file java/util/Missing.class not found
    nowhere.Other inNoPackage;
    //      ^ error 302: cannot access class nowhere.Other; file nowhere/Other.class not found
    int qualifier = nowhere.x;
    //              ^ error 300: variable nowhere not found in class NotFound
    int longQualifier = nowhere.inside.x;
    //                          ^ error 302: cannot access class nowhere.inside; file nowhere/inside.class not found
    int length = new int[1].size;
    //                      ^ error 300: variable size not found in class int__Array

    void f(boolean b) {
        b += 1;
        //^ error 300: method +(boolean, int) not found in class NotFound
        b++;
       //^ error 300: method ++(boolean) not found in class NotFound
        undefined(alsoUndefined);
      //^ error 300: method undefined(<any>) not found in class NotFound
        //        ^ error 300: variable alsoUndefined not found in class NotFound
        f(alsoUndefined);
        //^ error 300: variable alsoUndefined not found in class NotFound
        { int inner = 1; }
        inner = 2;
      //^ error 300: variable inner not found in class NotFound
        for (int i = 0; i < 1; i++) ;
        i = 2;
      //^ error 300: variable i not found in class NotFound
    }

    class Inner { }

    Object innerConstructor = new Inner(true);
    //                            ^ error 300: constructor (NotFound)Inner(boolean) not found in class NotFound.Inner
}

class Parent {
    Parent(int i) { }
}

class Child extends Parent {
    Child() { }
  //^ error 300: constructor Parent() not found in class Parent
    Child(int i) { super(i); }
    Child(String s) { super(s); }
    //                ^ error 300: constructor Parent(java.lang.String) not found in class Parent
}

class DefaultConstructor extends Parent {
// error 300 (69:1): constructor Parent() not found in class Parent
}
