#include "semantic/operators.h"

#include "semantic/symbol.h"

#include <array>

namespace tarn {

using namespace typetag;

namespace {

constexpr int LCMP = 0x94;
constexpr int FCMPL = 0x95;
constexpr int FCMPG = 0x96;
constexpr int DCMPL = 0x97;
constexpr int DCMPG = 0x98;

constexpr int compareAndBranch(int compare, int branch) {
    return compare << 9 | branch;
}

// Opcodes: JVM specification, chapter "instruction set"; comparisons of int and references are conditional branches.
constexpr std::array OPERATORS = {
    OperatorRow{"+", INT, 0, INT, 0},
    OperatorRow{"+", LONG, 0, LONG, 0},
    OperatorRow{"+", FLOAT, 0, FLOAT, 0},
    OperatorRow{"+", DOUBLE, 0, DOUBLE, 0},
    OperatorRow{"-", INT, 0, INT, 0x74},
    OperatorRow{"-", LONG, 0, LONG, 0x75},
    OperatorRow{"-", FLOAT, 0, FLOAT, 0x76},
    OperatorRow{"-", DOUBLE, 0, DOUBLE, 0x77},
    OperatorRow{"~", INT, 0, INT, 0x82},
    OperatorRow{"~", LONG, 0, LONG, 0x83},
    OperatorRow{"++", BYTE, 0, BYTE, 0x60},
    OperatorRow{"++", SHORT, 0, SHORT, 0x60},
    OperatorRow{"++", CHAR, 0, CHAR, 0x60},
    OperatorRow{"++", INT, 0, INT, 0x60},
    OperatorRow{"++", LONG, 0, LONG, 0x61},
    OperatorRow{"++", FLOAT, 0, FLOAT, 0x62},
    OperatorRow{"++", DOUBLE, 0, DOUBLE, 0x63},
    OperatorRow{"--", BYTE, 0, BYTE, 0x64},
    OperatorRow{"--", SHORT, 0, SHORT, 0x64},
    OperatorRow{"--", CHAR, 0, CHAR, 0x64},
    OperatorRow{"--", INT, 0, INT, 0x64},
    OperatorRow{"--", LONG, 0, LONG, 0x65},
    OperatorRow{"--", FLOAT, 0, FLOAT, 0x66},
    OperatorRow{"--", DOUBLE, 0, DOUBLE, 0x67},
    OperatorRow{"!", BOOLEAN, 0, BOOLEAN, vop::NOT},
    OperatorRow{"+", INT, INT, INT, 0x60},
    OperatorRow{"+", LONG, LONG, LONG, 0x61},
    OperatorRow{"+", FLOAT, FLOAT, FLOAT, 0x62},
    OperatorRow{"+", DOUBLE, DOUBLE, DOUBLE, 0x63},
    OperatorRow{"+", OPERAND_STRING, OPERAND_STRING, OPERAND_STRING, vop::STRING_CONCAT},
    OperatorRow{"+", OPERAND_STRING, ANYTHING, OPERAND_STRING, vop::STRING_CONCAT},
    OperatorRow{"+", ANYTHING, OPERAND_STRING, OPERAND_STRING, vop::STRING_CONCAT},
    OperatorRow{"-", INT, INT, INT, 0x64},
    OperatorRow{"-", LONG, LONG, LONG, 0x65},
    OperatorRow{"-", FLOAT, FLOAT, FLOAT, 0x66},
    OperatorRow{"-", DOUBLE, DOUBLE, DOUBLE, 0x67},
    OperatorRow{"*", INT, INT, INT, 0x68},
    OperatorRow{"*", LONG, LONG, LONG, 0x69},
    OperatorRow{"*", FLOAT, FLOAT, FLOAT, 0x6a},
    OperatorRow{"*", DOUBLE, DOUBLE, DOUBLE, 0x6b},
    OperatorRow{"/", INT, INT, INT, 0x6c},
    OperatorRow{"/", LONG, LONG, LONG, 0x6d},
    OperatorRow{"/", FLOAT, FLOAT, FLOAT, 0x6e},
    OperatorRow{"/", DOUBLE, DOUBLE, DOUBLE, 0x6f},
    OperatorRow{"%", INT, INT, INT, 0x70},
    OperatorRow{"%", LONG, LONG, LONG, 0x71},
    OperatorRow{"%", FLOAT, FLOAT, FLOAT, 0x72},
    OperatorRow{"%", DOUBLE, DOUBLE, DOUBLE, 0x73},
    OperatorRow{"&", INT, INT, INT, 0x7e},
    OperatorRow{"&", LONG, LONG, LONG, 0x7f},
    OperatorRow{"|", INT, INT, INT, 0x80},
    OperatorRow{"|", LONG, LONG, LONG, 0x81},
    OperatorRow{"^", INT, INT, INT, 0x82},
    OperatorRow{"^", LONG, LONG, LONG, 0x83},
    OperatorRow{"<<", INT, INT, INT, 0x78},
    OperatorRow{"<<", INT, LONG, INT, 0x78},
    OperatorRow{"<<", LONG, INT, LONG, 0x79},
    OperatorRow{"<<", LONG, LONG, LONG, 0x79},
    OperatorRow{">>", INT, INT, INT, 0x7a},
    OperatorRow{">>", INT, LONG, INT, 0x7a},
    OperatorRow{">>", LONG, INT, LONG, 0x7b},
    OperatorRow{">>", LONG, LONG, LONG, 0x7b},
    OperatorRow{">>>", INT, INT, INT, 0x7c},
    OperatorRow{">>>", INT, LONG, INT, 0x7c},
    OperatorRow{">>>", LONG, INT, LONG, 0x7d},
    OperatorRow{">>>", LONG, LONG, LONG, 0x7d},
    OperatorRow{"<", INT, INT, BOOLEAN, 0xa1},
    OperatorRow{"<", LONG, LONG, BOOLEAN, compareAndBranch(LCMP, 0x9b)},
    OperatorRow{"<", FLOAT, FLOAT, BOOLEAN, compareAndBranch(FCMPG, 0x9b)},
    OperatorRow{"<", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(DCMPG, 0x9b)},
    OperatorRow{">", INT, INT, BOOLEAN, 0xa3},
    OperatorRow{">", LONG, LONG, BOOLEAN, compareAndBranch(LCMP, 0x9d)},
    OperatorRow{">", FLOAT, FLOAT, BOOLEAN, compareAndBranch(FCMPL, 0x9d)},
    OperatorRow{">", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(DCMPL, 0x9d)},
    OperatorRow{"<=", INT, INT, BOOLEAN, 0xa4},
    OperatorRow{"<=", LONG, LONG, BOOLEAN, compareAndBranch(LCMP, 0x9e)},
    OperatorRow{"<=", FLOAT, FLOAT, BOOLEAN, compareAndBranch(FCMPG, 0x9e)},
    OperatorRow{"<=", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(DCMPG, 0x9e)},
    OperatorRow{">=", INT, INT, BOOLEAN, 0xa2},
    OperatorRow{">=", LONG, LONG, BOOLEAN, compareAndBranch(LCMP, 0x9c)},
    OperatorRow{">=", FLOAT, FLOAT, BOOLEAN, compareAndBranch(FCMPL, 0x9c)},
    OperatorRow{">=", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(DCMPL, 0x9c)},
    OperatorRow{"==", INT, INT, BOOLEAN, 0x9f},
    OperatorRow{"==", LONG, LONG, BOOLEAN, compareAndBranch(LCMP, 0x99)},
    OperatorRow{"==", FLOAT, FLOAT, BOOLEAN, compareAndBranch(FCMPL, 0x99)},
    OperatorRow{"==", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(DCMPL, 0x99)},
    OperatorRow{"==", BOOLEAN, BOOLEAN, BOOLEAN, 0x9f},
    OperatorRow{"==", OPERAND_OBJECT, OPERAND_OBJECT, BOOLEAN, 0xa5},
    OperatorRow{"!=", INT, INT, BOOLEAN, 0xa0},
    OperatorRow{"!=", LONG, LONG, BOOLEAN, compareAndBranch(LCMP, 0x9a)},
    OperatorRow{"!=", FLOAT, FLOAT, BOOLEAN, compareAndBranch(FCMPL, 0x9a)},
    OperatorRow{"!=", DOUBLE, DOUBLE, BOOLEAN, compareAndBranch(DCMPL, 0x9a)},
    OperatorRow{"!=", BOOLEAN, BOOLEAN, BOOLEAN, 0xa0},
    OperatorRow{"!=", OPERAND_OBJECT, OPERAND_OBJECT, BOOLEAN, 0xa6},
    OperatorRow{"&", BOOLEAN, BOOLEAN, BOOLEAN, 0x7e},
    OperatorRow{"|", BOOLEAN, BOOLEAN, BOOLEAN, 0x80},
    OperatorRow{"^", BOOLEAN, BOOLEAN, BOOLEAN, 0x82},
    OperatorRow{"&&", BOOLEAN, BOOLEAN, BOOLEAN, vop::AND_AND},
    OperatorRow{"||", BOOLEAN, BOOLEAN, BOOLEAN, vop::OR_OR},
};

} // namespace

std::span<const OperatorRow> operatorTable() {
    return OPERATORS;
}

} // namespace tarn
