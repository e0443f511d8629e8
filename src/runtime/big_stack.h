#pragma once

#include <cstddef>
#include <cstdint>

namespace tarn {

/// A compiler recurses as deep as its input is nested, and the ordinary stack ends far too soon for generated sources.
/// The tool therefore does its work on a stack of its own: address space reserved for the worst case, of which the
/// system commits only what is touched. How deep a source may be nested goes by `stackLeft` (syntax/nesting.h).

namespace detail {
/// Lowest usable address of the stack that runs now; 0 as long as nobody has asked.
extern std::uintptr_t stackLimit;
std::uintptr_t findStackLimit();
} // namespace detail

/// Bytes left on the stack that runs now, be it the big one or the thread's own. Costs a comparison and a subtraction.
inline std::size_t stackLeft() {
    std::uintptr_t limit = detail::stackLimit;
    if (limit == 0) [[unlikely]]
        limit = detail::findStackLimit();
    auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    return here > limit ? here - limit : 0;
}

/// Calls `function(argument)` on a big stack and returns when it returns. What it throws comes out here. Falls back on
/// the ordinary stack if the system refuses the address space. Not to be nested.
void runOnBigStack(void (*function)(void*), void* argument);

template <class Function>
void runOnBigStack(Function&& function) {
    runOnBigStack([](void* argument) { (*static_cast<Function*>(argument))(); }, &function);
}

} // namespace tarn
