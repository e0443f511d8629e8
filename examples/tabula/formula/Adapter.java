package tabula.formula;

/** A visitor that has nothing to say of what it is not made for. */
class Adapter implements Expression.Visitor {
    public Object literal(Expression.Literal literal) {
        return null;
    }

    public Object reference(Expression.Reference reference) {
        return null;
    }

    public Object range(Expression.Range range) {
        return null;
    }

    public Object name(Expression.Name name) {
        return null;
    }

    public Object unary(Expression.Unary unary) {
        return null;
    }

    public Object binary(Expression.Binary binary) {
        return null;
    }

    public Object call(Expression.Call call) {
        return null;
    }
}
