#pragma once

#include <array>

namespace tarn {

/// Opcodes by mnemonic: `op::ICONST_0`.
namespace op {
enum : int {
#define OPCODE(number, mnemonic, effect) mnemonic = number,
#include "codegen/opcodes.def"
#undef OPCODE
};

/// The stack effect depends on the operands; such an instruction is always emitted with an explicit one.
constexpr int BY_OPERANDS = -999;

/// The stack effect of an instruction that consumes `words` and lets nothing follow.
constexpr int ENDS(int words) {
    return -1000 - words;
}
} // namespace op

/// Change of the operand stack's height in words, by opcode.
constexpr std::array<short, 203> stackEffect = [] {
    using op::BY_OPERANDS;
    using op::ENDS;
    return std::array<short, 203>{
#define OPCODE(number, mnemonic, effect) effect,
#include "codegen/opcodes.def"
#undef OPCODE
    };
}();

} // namespace tarn
