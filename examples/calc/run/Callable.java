package calc.run;

/** The body of a function, written in the language or built in. */
public interface Callable {
    Value call(Machine m, Value[] args) throws CalcException;
}
