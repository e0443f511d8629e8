#pragma once

#include "semantic/type.h"

#include <span>

namespace tarn {

/// Operands that are classes, beside the type tags; they take numbers that no tag has.
enum : int { OPERAND_STRING = 100, OPERAND_OBJECT = 101 };

/// One operator: the types of its operands and its result, and what it does (see OperatorSymbol::opcode).
struct OperatorRow {
    const char* name;
    int left;  ///< a type tag or one of the above
    int right; ///< 0 for a unary operator
    int result;
    int opcode;
};

/// All operators, in the order in which they are entered. Since byte, short and char are subtypes of int, an operand of
/// such a type finds the int row, which is the numeric promotion of the language; `++` and `--` have rows of their own
/// for them, so that their result keeps the type.
std::span<const OperatorRow> operatorTable();

} // namespace tarn
