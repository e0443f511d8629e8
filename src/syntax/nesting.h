#pragma once

#include "runtime/big_stack.h"

#include <algorithm>
#include <cstddef>

namespace tarn {

/// The parser recurses along the nesting of a source, and every later phase along the trees that it gives. So that none
/// of them ever runs out of stack, both the depth of the parser's recursion and the height of the trees are bounded
/// here, once, and what goes beyond is one error at its position. The height counts apart, since chains such as
/// `a + b + c` and `a.b.c` are parsed by a loop and yet give deep trees.

/// More than any code that fits into a method can need.
constexpr int MAX_NESTING = 50'000;

/// What the costliest phase may take of the stack for one level.
constexpr std::size_t STACK_PER_LEVEL = 8 * 1024;

/// How many levels a class body counts for: classes are nested in each other by few, and each takes its outer one's
/// name into its own.
constexpr int CLASS_NESTING = 100;

/// Levels that the stack which runs now has room for.
inline int nestingLimit() {
    return static_cast<int>(std::clamp<std::size_t>(stackLeft() / STACK_PER_LEVEL, 32, MAX_NESTING));
}

} // namespace tarn
