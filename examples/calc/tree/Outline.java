package calc.tree;

/** Writes a program down, one statement in a line, with all parentheses. */
public class Outline implements Visitor {
    private final StringBuffer text = new StringBuffer();
    private int depth = -1;

    private Outline line(String s) {
        for (int i = 0; i <= depth; i++) text.append("  ");
        text.append(s);
        return this;
    }

    private void end() {
        text.append('\n');
    }

    public void visit(Program p) {
        depth++;
        for (int i = 0; i < p.body.statements.length; i++) p.body.statements[i].accept(this);
        depth--;
    }

    public void visit(Block b) {
        text.append(" {\n");
        depth++;
        for (int i = 0; i < b.statements.length; i++) b.statements[i].accept(this);
        depth--;
        line("}").end();
    }

    public void visit(Let l) {
        line("let " + l.name + " = ");
        l.value.accept(this);
        end();
    }

    public void visit(Assign a) {
        line(a.target + " = " + a.value).end();
    }

    public void visit(If i) {
        line("if ");
        i.condition.accept(this);
        i.then.accept(this);
        if (i.otherwise == null) return;
        line("else");
        i.otherwise.accept(this);
    }

    public void visit(While w) {
        line("while ");
        w.condition.accept(this);
        w.body.accept(this);
    }

    public void visit(For f) {
        line("for " + f.variable + " in " + f.list);
        f.body.accept(this);
    }

    public void visit(Function f) {
        line("function " + f.name + "(");
        for (int i = 0; i < f.parameters.length; i++) text.append(i == 0 ? "" : ", ").append(f.parameters[i]);
        text.append(")");
        f.body.accept(this);
    }

    public void visit(Return r) {
        line(r.value == null ? "return" : "return " + r.value).end();
    }

    public void visit(Print p) {
        line("print " + Expression.join(p.items)).end();
    }

    public void visit(Evaluate e) {
        line(e.expression.toString()).end();
    }

    public void visit(Expression e) {
        text.append(e);
    }

    public String toString() {
        return text.toString();
    }
}
