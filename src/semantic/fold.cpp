#include "semantic/fold.h"

#include "driver/reporter.h"
#include "semantic/context.h"

#include <cmath>
#include <cstdint>
#include <limits>

// Folding goes by the opcode of the operator that resolution picked, not by its source form: the operand conversions
// that the operator implies happen by reading each operand as an int, long, float or double, whatever kind of constant
// it is.

namespace tarn {

using namespace typetag;

namespace {

// JVM opcodes that operators carry.
enum : int {
    IADD = 0x60,
    LADD,
    FADD,
    DADD,
    ISUB,
    LSUB,
    FSUB,
    DSUB,
    IMUL,
    LMUL,
    FMUL,
    DMUL,
    IDIV,
    LDIV,
    FDIV,
    DDIV,
    IREM,
    LREM,
    FREM,
    DREM,
    INEG,
    LNEG,
    FNEG,
    DNEG,
    ISHL,
    LSHL,
    ISHR,
    LSHR,
    IUSHR,
    LUSHR,
    IAND,
    LAND,
    IOR,
    LOR,
    IXOR,
    LXOR,
    LCMP = 0x94,
    FCMPL,
    FCMPG,
    DCMPL,
    DCMPG,
    IFEQ,
    IFNE,
    IFLT,
    IFGE,
    IFGT,
    IFLE,
    IF_ICMPEQ,
    IF_ICMPNE,
    IF_ICMPLT,
    IF_ICMPGE,
    IF_ICMPGT,
    IF_ICMPLE,
    IF_ACMPEQ,
    IF_ACMPNE,
};
static_assert(LXOR == 0x83 && IF_ACMPNE == 0xa6);

Type* makeInt(Type* result, std::int64_t value) {
    return context().intConstant(result->tag, static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}
Type* makeLong(Type* result, std::uint64_t value) {
    return context().longConstant(result->tag, static_cast<std::int64_t>(value));
}
Type* makeBoolean(bool value) {
    return context().intConstant(BOOLEAN, value ? 1 : 0);
}

Type* divisionByZero(int pos, Type* result) {
    reportWarning(pos, messages::cannotComputeValue, "/ by zero");
    return result;
}

/// -1, 0 or 1; `unordered` if one is NaN.
template <class Number>
int compare(Number a, Number b, int unordered) {
    if (a < b) return -1;
    if (a > b) return 1;
    return a == b ? 0 : unordered;
}

Type* foldInt(int pos, const ConstantType* left, const ConstantType* right, int opcode, Type* result) {
    std::int64_t a = left->intValue();
    std::int64_t b = right->intValue();
    auto ua = static_cast<std::uint32_t>(a);
    switch (opcode) {
    case IADD: return makeInt(result, a + b);
    case ISUB: return makeInt(result, a - b);
    case IMUL: return makeInt(result, a * b);
    case IDIV: return b == 0 ? divisionByZero(pos, result) : makeInt(result, a / b);
    case IREM: return b == 0 ? divisionByZero(pos, result) : makeInt(result, a % b);
    case IAND:
    case vop::AND_AND: return makeInt(result, a & b);
    case IOR:
    case vop::OR_OR: return makeInt(result, a | b);
    case IXOR: return makeInt(result, a ^ b);
    case ISHL: return makeInt(result, ua << (b & 31));
    case ISHR: return makeInt(result, a >> (b & 31));
    case IUSHR: return makeInt(result, ua >> (b & 31));
    case IF_ICMPEQ: return makeBoolean(a == b);
    case IF_ICMPNE: return makeBoolean(a != b);
    case IF_ICMPLT: return makeBoolean(a < b);
    case IF_ICMPGE: return makeBoolean(a >= b);
    case IF_ICMPGT: return makeBoolean(a > b);
    case IF_ICMPLE: return makeBoolean(a <= b);
    default: return result;
    }
}

Type* foldLongDivision(int pos, std::int64_t a, std::int64_t b, bool remainder, Type* result) {
    if (b == 0) return divisionByZero(pos, result);
    // The most negative number has no counterpart: divided by -1 it gives itself.
    if (b == -1) return makeLong(result, remainder ? 0 : std::uint64_t{0} - static_cast<std::uint64_t>(a));
    return makeLong(result, static_cast<std::uint64_t>(remainder ? a % b : a / b));
}

Type* foldLong(int pos, const ConstantType* left, const ConstantType* right, int opcode, Type* result) {
    std::int64_t a = left->longValue();
    std::int64_t b = right->longValue();
    auto ua = static_cast<std::uint64_t>(a);
    auto ub = static_cast<std::uint64_t>(b);
    switch (opcode) {
    case LADD: return makeLong(result, ua + ub);
    case LSUB: return makeLong(result, ua - ub);
    case LMUL: return makeLong(result, ua * ub);
    case LDIV: return foldLongDivision(pos, a, b, false, result);
    case LREM: return foldLongDivision(pos, a, b, true, result);
    case LAND: return makeLong(result, ua & ub);
    case LOR: return makeLong(result, ua | ub);
    case LXOR: return makeLong(result, ua ^ ub);
    case LCMP: return context().intConstant(INT, compare(a, b, 0));
    default: return result;
    }
}

Type* foldLongShift(const ConstantType* left, const ConstantType* right, int opcode, Type* result) {
    std::int64_t a = left->longValue();
    int count = right->intValue() & 63;
    if (opcode == LSHL) return makeLong(result, static_cast<std::uint64_t>(a) << count);
    if (opcode == LSHR) return makeLong(result, static_cast<std::uint64_t>(a >> count));
    return makeLong(result, static_cast<std::uint64_t>(a) >> count);
}

Type* foldFloat(float a, float b, int opcode, Type* result) {
    switch (opcode) {
    case FADD: return context().floatConstant(result->tag, a + b);
    case FSUB: return context().floatConstant(result->tag, a - b);
    case FMUL: return context().floatConstant(result->tag, a * b);
    case FDIV: return context().floatConstant(result->tag, a / b);
    case FREM: return context().floatConstant(result->tag, std::fmod(a, b));
    case FCMPL: return context().intConstant(INT, compare(a, b, -1));
    default: return context().intConstant(INT, compare(a, b, 1));
    }
}

Type* foldDouble(double a, double b, int opcode, Type* result) {
    switch (opcode) {
    case DADD: return context().doubleConstant(result->tag, a + b);
    case DSUB: return context().doubleConstant(result->tag, a - b);
    case DMUL: return context().doubleConstant(result->tag, a * b);
    case DDIV: return context().doubleConstant(result->tag, a / b);
    case DREM: return context().doubleConstant(result->tag, std::fmod(a, b));
    case DCMPL: return context().intConstant(INT, compare(a, b, -1));
    default: return context().intConstant(INT, compare(a, b, 1));
    }
}

bool comparesToZero(int opcode, std::int32_t a) {
    switch (opcode) {
    case IFEQ: return a == 0;
    case IFNE: return a != 0;
    case IFLT: return a < 0;
    case IFGE: return a >= 0;
    case IFGT: return a > 0;
    default: return a <= 0;
    }
}

} // namespace

Type* fold1(int, Type* operand, int opcode, Type* result) {
    const ConstantType* a = operand->constValue();
    switch (opcode) {
    case 0: return result->tag <= INT ? makeInt(result, a->intValue()) : operand->coerce(result->tag);
    case INEG: return makeInt(result, -static_cast<std::int64_t>(a->intValue()));
    case IXOR: return makeInt(result, ~a->intValue());
    case vop::NOT: return makeInt(result, a->intValue() ^ 1);
    case IFEQ:
    case IFNE:
    case IFLT:
    case IFGE:
    case IFGT:
    case IFLE: return makeBoolean(comparesToZero(opcode, a->intValue()));
    case LNEG: return makeLong(result, std::uint64_t{0} - static_cast<std::uint64_t>(a->longValue()));
    case LXOR: return makeLong(result, ~static_cast<std::uint64_t>(a->longValue()));
    case FNEG: return context().floatConstant(result->tag, -a->floatValue());
    case DNEG: return context().doubleConstant(result->tag, -a->doubleValue());
    default: return result;
    }
}

Type* fold2(int pos, Type* left, Type* right, int opcode, Type* result) {
    if (opcode >= 0x200) {
        Type* compared = fold2(pos, left, right, opcode >> 9, context().intType);
        return compared->isConstant() ? fold1(pos, compared, opcode & 0x1ff, result) : compared;
    }
    const ConstantType* a = left->constValue();
    const ConstantType* b = right->constValue();
    switch (opcode) {
    case LADD:
    case LSUB:
    case LMUL:
    case LDIV:
    case LREM:
    case LAND:
    case LOR:
    case LXOR:
    case LCMP: return foldLong(pos, a, b, opcode, result);
    case LSHL:
    case LSHR:
    case LUSHR: return foldLongShift(a, b, opcode, result);
    case FADD:
    case FSUB:
    case FMUL:
    case FDIV:
    case FREM:
    case FCMPL:
    case FCMPG: return foldFloat(a->floatValue(), b->floatValue(), opcode, result);
    case DADD:
    case DSUB:
    case DMUL:
    case DDIV:
    case DREM:
    case DCMPL:
    case DCMPG: return foldDouble(a->doubleValue(), b->doubleValue(), opcode, result);
    case IF_ACMPEQ: return makeBoolean(a->equals(b));
    case IF_ACMPNE: return makeBoolean(!a->equals(b));
    case vop::STRING_CONCAT: return context().joinedString(a, b);
    default: return foldInt(pos, a, b, opcode, result);
    }
}

Type* coerceConstant(Type* value, Type* target) {
    if (target->tag == value->tag)
        return value->tag != CLASS || target == context().stringType || target->isConstant() ? value : target;
    const ConstantType* constant = value->constValue();
    std::int32_t narrow = 0;
    switch (target->tag) {
    case INT: return context().intConstant(INT, constant->intValue());
    case LONG: return context().longConstant(LONG, constant->longValue());
    case FLOAT: return context().floatConstant(FLOAT, constant->floatValue());
    case DOUBLE: return context().doubleConstant(DOUBLE, constant->doubleValue());
    case BYTE: narrow = static_cast<std::int8_t>(constant->intValue()); break;
    case CHAR: narrow = static_cast<std::uint16_t>(constant->intValue()); break;
    case SHORT: narrow = static_cast<std::int16_t>(constant->intValue()); break;
    default: return value;
    }
    return context().intConstant(target->tag, narrow);
}

} // namespace tarn
