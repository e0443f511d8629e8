package calc.tree;

/** Who wants to do something with a tree without being a part of it. */
public interface Visitor {
    void visit(Program p);

    void visit(Block b);

    void visit(Let l);

    void visit(Assign a);

    void visit(If i);

    void visit(While w);

    void visit(For f);

    void visit(Function f);

    void visit(Return r);

    void visit(Print p);

    void visit(Evaluate e);

    /** Expressions are shown by their texts. */
    void visit(Expression e);
}
