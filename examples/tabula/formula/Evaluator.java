package tabula.formula;

import java.util.Enumeration;
import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.util.Sequence;

/** Computes the values of formulas. */
public class Evaluator implements Expression.Visitor {
    /** Where the values of cells and the meaning of names come from. */
    public interface Source {
        Value valueOf(Address address);

        /** Null if there is no such name. */
        Area areaOf(String name);
    }

    private final Source source;

    public Evaluator(Source source) {
        this.source = source;
    }

    /** The value of the formula; if it has none, the fault. */
    public Value evaluate(Expression formula) {
        try {
            Value value = valueOf(formula);
            return value.isBlank() ? Value.of(0) : value;
        } catch (Failure failure) {
            return failure.fault;
        }
    }

    private Value valueOf(Expression expression) {
        return (Value) expression.accept(this);
    }

    public Object literal(Expression.Literal literal) {
        return literal.value;
    }

    public Object reference(Expression.Reference reference) {
        return source.valueOf(reference.address);
    }

    public Object range(Expression.Range range) {
        return single(range.area());
    }

    public Object name(Expression.Name name) {
        return single(areaOf(name));
    }

    private Area areaOf(Expression.Name name) {
        Area area = source.areaOf(name.name);
        if (area == null) throw new Failure("NAME", "there is no name " + name.name);
        return area;
    }

    private Value single(Area area) {
        if (area.rows() * area.columns() != 1) throw new Failure("TYPE", area + " is no single cell");
        return source.valueOf(area.first);
    }

    public Object unary(Expression.Unary unary) {
        double operand = Convert.toNumber(valueOf(unary.operand));
        return Value.of(unary.sign == '-' ? -operand : operand / 100);
    }

    public Object binary(Expression.Binary binary) {
        return binary.operator.apply(valueOf(binary.left), valueOf(binary.right));
    }

    public Object call(final Expression.Call call) {
        return call.function.call(new Actual(call));
    }

    /** Finds out which area an expression stands for; null if none. */
    private final Expression.Visitor areas = new Adapter() {
        public Object reference(Expression.Reference reference) {
            return new Area(reference.address, reference.address);
        }

        public Object range(Expression.Range range) {
            return range.area();
        }

        public Object name(Expression.Name name) {
            return areaOf(name);
        }
    };

    private class Actual implements Function.Arguments {
        private final Expression.Call call;

        Actual(Expression.Call call) {
            this.call = call;
        }

        public int count() {
            return call.arguments.size();
        }

        public Value value(int index) {
            return valueOf(call.argument(index));
        }

        public double number(int index) {
            return Convert.toNumber(value(index));
        }

        public boolean truth(int index) {
            return Convert.toTruth(value(index));
        }

        public String text(int index) {
            return Convert.faultless(value(index)).toString();
        }

        public Sequence values(int from, int to) {
            Sequence values = new Sequence();
            for (int i = from; i < to; i++) {
                Area area = (Area) call.argument(i).accept(areas);
                if (area == null)
                    values.add(value(i));
                else
                    addFilled(values, area);
            }
            return values;
        }

        private void addFilled(Sequence values, Area area) {
            for (Enumeration e = area.addresses(); e.hasMoreElements();) {
                Value value = source.valueOf((Address) e.nextElement());
                if (!value.isBlank()) values.add(value);
            }
        }

        public Area area(int index) {
            Area area = (Area) call.argument(index).accept(areas);
            if (area == null) throw new Failure("TYPE", call.argument(index) + " is no area");
            return area;
        }

        public Value at(Area area, int row, int column) {
            return source.valueOf(area.first.offset(row, column));
        }
    }
}
