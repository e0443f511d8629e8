class Supertypes extends Runnable {
// error 300 (1:1): constructor Runnable() not found in interface java.lang.Runnable
//                       ^ error 452: no interface allowed here
    public void run() { }
}

class NotAnInterface implements Object {
//                              ^ error 453: not an interface
}

class Final extends String {
//                  ^ error 351: can't inherit from final class java.lang.String
}

abstract class Repeated implements Runnable, Cloneable, Runnable {
//                                                      ^ error 472: interface java.lang.Runnable repeated
}

class ItsOwn extends ItsOwn {
// error 362 (19:1): cyclic inheritance involving class ItsOwn
}

interface ExtendsClass extends Object {
//                             ^ error 453: not an interface
}

class Missing extends Nowhere {
//                    ^ error 300: class Nowhere not found in class Missing
    int unseen = "s";
}
