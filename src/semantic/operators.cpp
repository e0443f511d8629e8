#include "semantic/operators.h"

#include "codegen/opcodes.h"
#include "semantic/symbol.h"

#include <array>

namespace tarn {

using namespace typetag;

namespace {

using vop::compareAndBranch;

// Comparisons of int and references are conditional branches.
constexpr std::array OPERATORS = {
    OperatorRow{"+", INT, 0, INT, 0},
    OperatorRow{"+", LONG, 0, LONG, 0},
    OperatorRow{"+", FLOAT, 0, FLOAT, 0},
    OperatorRow{"+", DOUBLE, 0, DOUBLE, 0},
    OperatorRow{"-", INT, 0, INT, op::INEG},
    OperatorRow{"-", LONG, 0, LONG, op::LNEG},
    OperatorRow{"-", FLOAT, 0, FLOAT, op::FNEG},
    OperatorRow{"-", DOUBLE, 0, DOUBLE, op::DNEG},
    OperatorRow{"~", INT, 0, INT, op::IXOR},
    OperatorRow{"~", LONG, 0, LONG, op::LXOR},
    OperatorRow{"++", BYTE, 0, BYTE, op::IADD},
    OperatorRow{"++", SHORT, 0, SHORT, op::IADD},
    OperatorRow{"++", CHAR, 0, CHAR, op::IADD},
    OperatorRow{"++", INT, 0, INT, op::IADD},
    OperatorRow{"++", LONG, 0, LONG, op::LADD},
    OperatorRow{"++", FLOAT, 0, FLOAT, op::FADD},
    OperatorRow{"++", DOUBLE, 0, DOUBLE, op::DADD},
    OperatorRow{"--", BYTE, 0, BYTE, op::ISUB},
    OperatorRow{"--", SHORT, 0, SHORT, op::ISUB},
    OperatorRow{"--", CHAR, 0, CHAR, op::ISUB},
    OperatorRow{"--", INT, 0, INT, op::ISUB},
    OperatorRow{"--", LONG, 0, LONG, op::LSUB},
    OperatorRow{"--", FLOAT, 0, FLOAT, op::FSUB},
    OperatorRow{"--", DOUBLE, 0, DOUBLE, op::DSUB},
    OperatorRow{"!", BOOLEAN, 0, BOOLEAN, vop::NOT},
    OperatorRow{"+", INT, INT, INT, op::IADD},
    OperatorRow{"+", LONG, LONG, LONG, op::LADD},
    OperatorRow{"+", FLOAT, FLOAT, FLOAT, op::FADD},
    OperatorRow{"+", DOUBLE, DOUBLE, DOUBLE, op::DADD},
    OperatorRow{"+", OPERAND_STRING, OPERAND_STRING, OPERAND_STRING, vop::STRING_CONCAT},
    OperatorRow{"+", OPERAND_STRING, ANYTHING, OPERAND_STRING, vop::STRING_CONCAT},
    OperatorRow{"+", ANYTHING, OPERAND_STRING, OPERAND_STRING, vop::STRING_CONCAT},
    OperatorRow{"-", INT, INT, INT, op::ISUB},
    OperatorRow{"-", LONG, LONG, LONG, op::LSUB},
    OperatorRow{"-", FLOAT, FLOAT, FLOAT, op::FSUB},
    OperatorRow{"-", DOUBLE, DOUBLE, DOUBLE, op::DSUB},
    OperatorRow{"*", INT, INT, INT, op::IMUL},
    OperatorRow{"*", LONG, LONG, LONG, op::LMUL},
    OperatorRow{"*", FLOAT, FLOAT, FLOAT, op::FMUL},
    OperatorRow{"*", DOUBLE, DOUBLE, DOUBLE, op::DMUL},
    OperatorRow{"/", INT, INT, INT, op::IDIV},
    OperatorRow{"/", LONG, LONG, LONG, op::LDIV},
    OperatorRow{"/", FLOAT, FLOAT, FLOAT, op::FDIV},
    OperatorRow{"/", DOUBLE, DOUBLE, DOUBLE, op::DDIV},
    OperatorRow{"%", INT, INT, INT, op::IREM},
    OperatorRow{"%", LONG, LONG, LONG, op::LREM},
    OperatorRow{"%", FLOAT, FLOAT, FLOAT, op::FREM},
    OperatorRow{"%", DOUBLE, DOUBLE, DOUBLE, op::DREM},
    OperatorRow{"&", INT, INT, INT, op::IAND},
    OperatorRow{"&", LONG, LONG, LONG, op::LAND},
    OperatorRow{"|", INT, INT, INT, op::IOR},
    OperatorRow{"|", LONG, LONG, LONG, op::LOR},
    OperatorRow{"^", INT, INT, INT, op::IXOR},
    OperatorRow{"^", LONG, LONG, LONG, op::LXOR},
    OperatorRow{"<<", INT, INT, INT, op::ISHL},
    OperatorRow{"<<", INT, LONG, INT, op::ISHL},
    OperatorRow{"<<", LONG, INT, LONG, op::LSHL},
    OperatorRow{"<<", LONG, LONG, LONG, op::LSHL},
    OperatorRow{">>", INT, INT, INT, op::ISHR},
    OperatorRow{">>", INT, LONG, INT, op::ISHR},
    OperatorRow{">>", LONG, INT, LONG, op::LSHR},
    OperatorRow{">>", LONG, LONG, LONG, op::LSHR},
    OperatorRow{">>>", INT, INT, INT, op::IUSHR},
    OperatorRow{">>>", INT, LONG, INT, op::IUSHR},
    OperatorRow{">>>", LONG, INT, LONG, op::LUSHR},
    OperatorRow{">>>", LONG, LONG, LONG, op::LUSHR},
    OperatorRow{"<", INT, INT, BOOLEAN, op::IF_ICMPLT},
    OperatorRow{"<", LONG, LONG, BOOLEAN, compareAndBranch(op::LCMP, op::IFLT)},
    OperatorRow{"<", FLOAT, FLOAT, BOOLEAN, compareAndBranch(op::FCMPG, op::IFLT)},
    OperatorRow{"<", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(op::DCMPG, op::IFLT)},
    OperatorRow{">", INT, INT, BOOLEAN, op::IF_ICMPGT},
    OperatorRow{">", LONG, LONG, BOOLEAN, compareAndBranch(op::LCMP, op::IFGT)},
    OperatorRow{">", FLOAT, FLOAT, BOOLEAN, compareAndBranch(op::FCMPL, op::IFGT)},
    OperatorRow{">", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(op::DCMPL, op::IFGT)},
    OperatorRow{"<=", INT, INT, BOOLEAN, op::IF_ICMPLE},
    OperatorRow{"<=", LONG, LONG, BOOLEAN, compareAndBranch(op::LCMP, op::IFLE)},
    OperatorRow{"<=", FLOAT, FLOAT, BOOLEAN, compareAndBranch(op::FCMPG, op::IFLE)},
    OperatorRow{"<=", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(op::DCMPG, op::IFLE)},
    OperatorRow{">=", INT, INT, BOOLEAN, op::IF_ICMPGE},
    OperatorRow{">=", LONG, LONG, BOOLEAN, compareAndBranch(op::LCMP, op::IFGE)},
    OperatorRow{">=", FLOAT, FLOAT, BOOLEAN, compareAndBranch(op::FCMPL, op::IFGE)},
    OperatorRow{">=", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(op::DCMPL, op::IFGE)},
    OperatorRow{"==", INT, INT, BOOLEAN, op::IF_ICMPEQ},
    OperatorRow{"==", LONG, LONG, BOOLEAN, compareAndBranch(op::LCMP, op::IFEQ)},
    OperatorRow{"==", FLOAT, FLOAT, BOOLEAN, compareAndBranch(op::FCMPL, op::IFEQ)},
    OperatorRow{"==", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(op::DCMPL, op::IFEQ)},
    OperatorRow{"==", BOOLEAN, BOOLEAN, BOOLEAN, op::IF_ICMPEQ},
    OperatorRow{"==", OPERAND_OBJECT, OPERAND_OBJECT, BOOLEAN, op::IF_ACMPEQ},
    OperatorRow{"!=", INT, INT, BOOLEAN, op::IF_ICMPNE},
    OperatorRow{"!=", LONG, LONG, BOOLEAN, compareAndBranch(op::LCMP, op::IFNE)},
    OperatorRow{"!=", FLOAT, FLOAT, BOOLEAN, compareAndBranch(op::FCMPL, op::IFNE)},
    OperatorRow{"!=", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(op::DCMPL, op::IFNE)},
    OperatorRow{"!=", BOOLEAN, BOOLEAN, BOOLEAN, op::IF_ICMPNE},
    OperatorRow{"!=", OPERAND_OBJECT, OPERAND_OBJECT, BOOLEAN, op::IF_ACMPNE},
    OperatorRow{"&", BOOLEAN, BOOLEAN, BOOLEAN, op::IAND},
    OperatorRow{"|", BOOLEAN, BOOLEAN, BOOLEAN, op::IOR},
    OperatorRow{"^", BOOLEAN, BOOLEAN, BOOLEAN, op::IXOR},
    OperatorRow{"&&", BOOLEAN, BOOLEAN, BOOLEAN, vop::AND_AND},
    OperatorRow{"||", BOOLEAN, BOOLEAN, BOOLEAN, vop::OR_OR},
};

} // namespace

std::span<const OperatorRow> operatorTable() {
    return OPERATORS;
}

} // namespace tarn
