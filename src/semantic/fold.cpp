#include "semantic/fold.h"

#include "codegen/opcodes.h"
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
    case op::IADD: return makeInt(result, a + b);
    case op::ISUB: return makeInt(result, a - b);
    case op::IMUL: return makeInt(result, a * b);
    case op::IDIV: return b == 0 ? divisionByZero(pos, result) : makeInt(result, a / b);
    case op::IREM: return b == 0 ? divisionByZero(pos, result) : makeInt(result, a % b);
    case op::IAND:
    case vop::AND_AND: return makeInt(result, a & b);
    case op::IOR:
    case vop::OR_OR: return makeInt(result, a | b);
    case op::IXOR: return makeInt(result, a ^ b);
    case op::ISHL: return makeInt(result, ua << (b & 31));
    case op::ISHR: return makeInt(result, a >> (b & 31));
    case op::IUSHR: return makeInt(result, ua >> (b & 31));
    case op::IF_ICMPEQ: return makeBoolean(a == b);
    case op::IF_ICMPNE: return makeBoolean(a != b);
    case op::IF_ICMPLT: return makeBoolean(a < b);
    case op::IF_ICMPGE: return makeBoolean(a >= b);
    case op::IF_ICMPGT: return makeBoolean(a > b);
    case op::IF_ICMPLE: return makeBoolean(a <= b);
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
    case op::LADD: return makeLong(result, ua + ub);
    case op::LSUB: return makeLong(result, ua - ub);
    case op::LMUL: return makeLong(result, ua * ub);
    case op::LDIV: return foldLongDivision(pos, a, b, false, result);
    case op::LREM: return foldLongDivision(pos, a, b, true, result);
    case op::LAND: return makeLong(result, ua & ub);
    case op::LOR: return makeLong(result, ua | ub);
    case op::LXOR: return makeLong(result, ua ^ ub);
    case op::LCMP: return context().intConstant(INT, compare(a, b, 0));
    default: return result;
    }
}

Type* foldLongShift(const ConstantType* left, const ConstantType* right, int opcode, Type* result) {
    std::int64_t a = left->longValue();
    int count = right->intValue() & 63;
    if (opcode == op::LSHL) return makeLong(result, static_cast<std::uint64_t>(a) << count);
    if (opcode == op::LSHR) return makeLong(result, static_cast<std::uint64_t>(a >> count));
    return makeLong(result, static_cast<std::uint64_t>(a) >> count);
}

Type* foldFloat(float a, float b, int opcode, Type* result) {
    switch (opcode) {
    case op::FADD: return context().floatConstant(result->tag, a + b);
    case op::FSUB: return context().floatConstant(result->tag, a - b);
    case op::FMUL: return context().floatConstant(result->tag, a * b);
    case op::FDIV: return context().floatConstant(result->tag, a / b);
    case op::FREM: return context().floatConstant(result->tag, std::fmod(a, b));
    case op::FCMPL: return context().intConstant(INT, compare(a, b, -1));
    default: return context().intConstant(INT, compare(a, b, 1));
    }
}

Type* foldDouble(double a, double b, int opcode, Type* result) {
    switch (opcode) {
    case op::DADD: return context().doubleConstant(result->tag, a + b);
    case op::DSUB: return context().doubleConstant(result->tag, a - b);
    case op::DMUL: return context().doubleConstant(result->tag, a * b);
    case op::DDIV: return context().doubleConstant(result->tag, a / b);
    case op::DREM: return context().doubleConstant(result->tag, std::fmod(a, b));
    case op::DCMPL: return context().intConstant(INT, compare(a, b, -1));
    default: return context().intConstant(INT, compare(a, b, 1));
    }
}

bool comparesToZero(int opcode, std::int32_t a) {
    switch (opcode) {
    case op::IFEQ: return a == 0;
    case op::IFNE: return a != 0;
    case op::IFLT: return a < 0;
    case op::IFGE: return a >= 0;
    case op::IFGT: return a > 0;
    default: return a <= 0;
    }
}

} // namespace

Type* fold1(Type* operand, int opcode, Type* result) {
    const ConstantType* a = operand->constValue();
    switch (opcode) {
    case 0: return result->tag <= INT ? makeInt(result, a->intValue()) : operand->coerce(result->tag);
    case op::INEG: return makeInt(result, -static_cast<std::int64_t>(a->intValue()));
    case op::IXOR: return makeInt(result, ~a->intValue());
    case vop::NOT: return makeInt(result, a->intValue() ^ 1);
    case op::IFEQ:
    case op::IFNE:
    case op::IFLT:
    case op::IFGE:
    case op::IFGT:
    case op::IFLE: return makeBoolean(comparesToZero(opcode, a->intValue()));
    case op::LNEG: return makeLong(result, std::uint64_t{0} - static_cast<std::uint64_t>(a->longValue()));
    case op::LXOR: return makeLong(result, ~static_cast<std::uint64_t>(a->longValue()));
    case op::FNEG: return context().floatConstant(result->tag, -a->floatValue());
    case op::DNEG: return context().doubleConstant(result->tag, -a->doubleValue());
    default: return result;
    }
}

Type* fold2(int pos, Type* left, Type* right, int opcode, Type* result) {
    if (int compare = vop::compareOf(opcode)) {
        Type* compared = fold2(pos, left, right, compare, context().intType);
        return compared->isConstant() ? fold1(compared, vop::branchOf(opcode), result) : compared;
    }
    const ConstantType* a = left->constValue();
    const ConstantType* b = right->constValue();
    switch (opcode) {
    case op::LADD:
    case op::LSUB:
    case op::LMUL:
    case op::LDIV:
    case op::LREM:
    case op::LAND:
    case op::LOR:
    case op::LXOR:
    case op::LCMP: return foldLong(pos, a, b, opcode, result);
    case op::LSHL:
    case op::LSHR:
    case op::LUSHR: return foldLongShift(a, b, opcode, result);
    case op::FADD:
    case op::FSUB:
    case op::FMUL:
    case op::FDIV:
    case op::FREM:
    case op::FCMPL:
    case op::FCMPG: return foldFloat(a->floatValue(), b->floatValue(), opcode, result);
    case op::DADD:
    case op::DSUB:
    case op::DMUL:
    case op::DDIV:
    case op::DREM:
    case op::DCMPL:
    case op::DCMPG: return foldDouble(a->doubleValue(), b->doubleValue(), opcode, result);
    case op::IF_ACMPEQ: return makeBoolean(a->equals(b));
    case op::IF_ACMPNE: return makeBoolean(!a->equals(b));
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
