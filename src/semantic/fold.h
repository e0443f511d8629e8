#pragma once

#include "semantic/type.h"

namespace tarn {

/// Folds a unary operator, given by its opcode, on a constant. Returns a constant, or `result` (the plain result type
/// of the operator) if it is not folded.
Type* fold1(Type* operand, int opcode, Type* result);
/// Folds a binary operator on constants; as `fold1`. Warns of a division by zero at `pos`; it gives `result`.
Type* fold2(int pos, Type* left, Type* right, int opcode, Type* result);
/// The constant that a cast of the constant `value` to `target` gives; `value` itself where the cast changes nothing.
Type* coerceConstant(Type* value, Type* target);

} // namespace tarn
