package quillon.compiler.loader;

/**
 * What an expression is compiled to: a public class with a default constructor that implements this interface.
 */
public interface IExpression {
    /**
     * The value of the expression in the frame that `$context` stands for: a wrapper of a primitive value, or what
     * `getObjectValue` and object creation gave.
     */
    Object eval(IEvaluatorContext $context);
}
