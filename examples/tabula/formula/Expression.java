package tabula.formula;

import tabula.cell.Address;
import tabula.cell.Area;
import tabula.cell.Value;
import tabula.util.Sequence;

/** A formula or a part of one. */
public abstract class Expression {
    public interface Visitor {
        Object literal(Literal literal);

        Object reference(Reference reference);

        Object range(Range range);

        Object name(Name name);

        Object unary(Unary unary);

        Object binary(Binary binary);

        Object call(Call call);
    }

    public abstract Object accept(Visitor visitor);

    public String toString() {
        return Printer.print(this);
    }

    public static final class Literal extends Expression {
        public final Value value;

        public Literal(Value value) {
            this.value = value;
        }

        public Object accept(Visitor visitor) {
            return visitor.literal(this);
        }
    }

    /** A cell. What is fixed by a $ stays when the formula moves. */
    public static final class Reference extends Expression {
        public final Address address;
        public final boolean isRowFixed, isColumnFixed;

        public Reference(Address address, boolean isRowFixed, boolean isColumnFixed) {
            this.address = address;
            this.isRowFixed = isRowFixed;
            this.isColumnFixed = isColumnFixed;
        }

        /** The reference in a formula that has moved so far; null if it would leave the sheet. */
        Reference moved(int rows, int columns) {
            Address there = address.offset(isRowFixed ? 0 : rows, isColumnFixed ? 0 : columns);
            return there == null ? null : new Reference(there, isRowFixed, isColumnFixed);
        }

        public Object accept(Visitor visitor) {
            return visitor.reference(this);
        }
    }

    public static final class Range extends Expression {
        public final Reference from, to;

        public Range(Reference from, Reference to) {
            this.from = from;
            this.to = to;
        }

        public Area area() {
            return new Area(from.address, to.address);
        }

        public Object accept(Visitor visitor) {
            return visitor.range(this);
        }
    }

    /** A name that the sheet knows, or not. */
    public static final class Name extends Expression {
        public final String name;

        public Name(String name) {
            this.name = name;
        }

        public Object accept(Visitor visitor) {
            return visitor.name(this);
        }
    }

    /** A minus in front of the operand, or a percent sign behind it. */
    public static final class Unary extends Expression {
        public final char sign;
        public final Expression operand;

        public Unary(char sign, Expression operand) {
            this.sign = sign;
            this.operand = operand;
        }

        public Object accept(Visitor visitor) {
            return visitor.unary(this);
        }
    }

    public static final class Binary extends Expression {
        public final Operator operator;
        public final Expression left, right;

        public Binary(Operator operator, Expression left, Expression right) {
            this.operator = operator;
            this.left = left;
            this.right = right;
        }

        public Object accept(Visitor visitor) {
            return visitor.binary(this);
        }
    }

    public static final class Call extends Expression {
        public final Function function;
        public final Sequence arguments;

        public Call(Function function, Sequence arguments) {
            this.function = function;
            this.arguments = arguments;
        }

        public Expression argument(int index) {
            return (Expression) arguments.at(index);
        }

        public Object accept(Visitor visitor) {
            return visitor.call(this);
        }
    }
}
