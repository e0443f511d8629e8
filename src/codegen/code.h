#pragma once

#include <cstdint>
#include <vector>

namespace tarn {

class MethodSymbol;
class VarSymbol;

/// The bytecode of one method body with its tables.
///
/// Lives from the start of the body's generation until the class file is written; the method symbol points to it in
/// between. Objects are lent out by `take` and go back by `recycle`, with all their buffers, so that a run allocates
/// only for the largest class that it has seen. Parallel vectors make a table; their sizes and the table's count agree.
/// Only `bytes` is longer than what is used, which ends at `cp`.
///
/// Pcs, registers and pool indices are kept in the 16 bits that a class file has for them. A body that outgrows those
/// is refused when it is complete, so what is wrapped round here is never written.
class Code {
public:
    /// A cleared object for that method. Stays the lender's.
    static Code* take(MethodSymbol* method, bool fatcode);
    /// Takes back all that were lent out, and clears `code` of their methods.
    static void recycle();

    /// Forgets everything, for a new generation.
    void start(MethodSymbol* forMethod, bool fat);

    void addCatch(int start, int end, int handler, int type);
    /// Notes that the code from `pc` on belongs to `line`; takes the place of a mark at the same pc.
    void markLine(int pc, int line);
    void addLocalVar(VarSymbol* symbol, int start, int end);

    /// Whether the class file has room for the instructions and the variables so far.
    [[nodiscard]] bool fits() const { return cp <= 0xffff && maxLocals <= 0xffff; }

    /// The register of a variable index.
    [[nodiscard]] int registerOf(int index) const {
        int entry = registers[static_cast<std::size_t>(index)];
        return entry < 0 ? -entry : entry;
    }

    MethodSymbol* method = nullptr;
    bool fatcode = false;            ///< uses wide jumps; set also when a 16-bit offset did not suffice
    int nextVar = 0;                 ///< next variable index; never goes down within a method
    int nextReg = 0;                 ///< next free register
    std::vector<int> registers;      ///< by variable index; negated for a variable of width 2
    int maxStack = 0;                ///< greatest height of the operand stack, in words
    int maxLocals = 0;               ///< greatest `nextReg`
    std::vector<std::uint8_t> bytes; ///< the instructions, and behind `cp` spare room
    int cp = 0;                      ///< bytes used

    // Exception table; `catchType` holds a pool index, 0 for any throwable.
    std::vector<std::uint16_t> catchStart, catchEnd, catchHandler, catchType;
    int catchCount = 0;

    // Line number table, ascending by pc.
    std::vector<std::uint16_t> lineStart, lineNumber;
    int lineCount = 0;

    // Local variable table; `varEnd` is the pc behind the range, not a length.
    std::vector<std::uint16_t> varRegister, varStart, varEnd;
    std::vector<VarSymbol*> varSymbols;
    int varCount = 0;
};

} // namespace tarn
