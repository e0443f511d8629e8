#pragma once

#include "classfile/constant_pool.h"
#include "codegen/code.h"
#include "codegen/opcodes.h"
#include "codegen/recycled.h"
#include "runtime/bits.h"
#include "runtime/failure.h"
#include "semantic/type.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tarn {

class ClassSymbol;
class Symbol;
class Try;

/// The jumps that wait for one target, newest first.
///
/// Each node keeps the operand stack's height and copies of both assignment sets as they stood at its jump, so that
/// resolving the chain joins the flow states by plain union. A node belongs to one chain only, which lets two chains be
/// joined by linking them. Nodes live until they are resolved.
struct Chain {
    int pc = 0;            ///< offset of the jump's opcode; of the `goto_w` of a wide conditional jump
    Chain* next = nullptr; ///< null at the end
    int stack = 0;         ///< height at the target, in words
    bool cut = false;      ///< the jump lies behind a subroutine that never returns: nobody comes here
    Bits unset;
    Bits set;
    Chain* link = nullptr; ///< see Recycled
};

/// A copy of an assignment set that lives until the next method.
struct BitsCopy {
    Bits bits;
    BitsCopy* link = nullptr; ///< see Recycled
};

/// Type codes: what the instruction set makes of types. The order of the first five is that of `iload` to `aload`.
namespace typecode {
enum : int { INT, LONG, FLOAT, DOUBLE, OBJECT, BYTE, CHAR, SHORT };
} // namespace typecode

namespace detail {
/// By the tag of a type; -1 if it has no code.
constexpr std::array<std::int8_t, TYPE_TAGS> typeCodes = [] {
    using namespace typetag;
    std::array<std::int8_t, TYPE_TAGS> codes{};
    codes.fill(-1);
    for (int tag : {INT, LONG, FLOAT, DOUBLE}) codes[tag] = static_cast<std::int8_t>(typecode::INT + tag - INT);
    for (int tag : {CLASS, ARRAY, NULLTYPE, ERROR}) codes[tag] = typecode::OBJECT;
    for (int tag : {BYTE, BOOLEAN}) codes[tag] = typecode::BYTE;
    codes[CHAR] = typecode::CHAR;
    codes[SHORT] = typecode::SHORT;
    return codes;
}();
} // namespace detail

/// The code of a type; void, method and package types have none (internal error "typecode").
inline int typeCode(const Type* type) {
    int code = detail::typeCodes[type->tag];
    require(code >= 0, "typecode");
    return code;
}
/// The code under which a value is on the operand stack and in registers: byte, char and short are ints there.
constexpr int truncate(int code) {
    return code >= typecode::BYTE ? typecode::INT : code;
}

/// In the opcode of a condition, "jump always" and "jump never"; `negate` turns one into the other.
constexpr int ALWAYS = op::GOTO;
constexpr int NEVER = op::JSR;

/// The conditional jump that is taken when `op` is not.
constexpr int negate(int opcode) {
    return ((opcode + 1) ^ 1) - 1;
}

/// The opcode of the constant 0, and of 1, of type code INT to DOUBLE; anything else is an internal error.
int zero(int code);
int one(int code);

/// The state of the method being generated, and the operations that emit its instructions.
///
/// Three things happen at once, in one walk over the trees: bytes are appended, the operand stack and reachability are
/// simulated, and the sets of variables that may be unassigned or already assigned are carried along. There is no other
/// flow analysis: the messages about unassigned variables and unreachable statements come from here.
///
/// The two sets are the complements of "definitely assigned" and "definitely unassigned", so that a join of control
/// flow is a union, and dead code has two empty sets: there every variable counts as assigned and as not yet assigned,
/// and nothing is reported twice. While `alive` is false nothing is emitted, though generation walks on.
///
/// There is one instance, valid from `startClass` to `endClass`; its buffers are kept for the next class. One method is
/// generated at a time.
class Emitter {
public:
    /// Begins a class whose constants go into `toPool`, which has to outlive it.
    void startClass(ClassSymbol* c, ConstantPool* toPool);
    /// Ends it and takes back the codes of its methods.
    void endClass();
    /// Begins a method's body, which is the symbol's `code` from now on. A second start of the same method is another
    /// generation of it.
    void startCode(MethodSymbol* method, bool fatcode);

    // Bytes. In dead code nothing is emitted; `put` and `get` reach what is there.
    void emit1(int value) {
        if (!alive) return;
        if (static_cast<std::size_t>(code->cp) == code->bytes.size()) [[unlikely]]
            code->bytes.resize(code->bytes.size() * 2);
        code->bytes[static_cast<std::size_t>(code->cp++)] = static_cast<std::uint8_t>(value);
    }
    void emit2(int value) {
        emit1(value >> 8);
        emit1(value);
    }
    void emit4(int value) {
        emit2(value >> 16);
        emit2(value);
    }
    void put2(int pc, int value);
    void put4(int pc, int value);
    [[nodiscard]] int get1(int pc) const { return code->bytes[static_cast<std::size_t>(pc)]; }
    [[nodiscard]] int get4(int pc) const;
    /// Emits zeros up to a multiple of `n`.
    void align(int n);
    /// The current pc, which from now on somebody may hold: the jump before it stays.
    int curPc() {
        fixedPc = true;
        return code->cp;
    }

    // Instructions. `delta` is the change of the stack's height, or op::ENDS.
    void emitop(int opcode, int delta) {
        if (!alive) return;
        emit1(opcode);
        if (delta <= op::ENDS(0)) {
            endFlow(delta);
            return;
        }
        stackSize += delta;
        if (stackSize > code->maxStack) code->maxStack = stackSize;
        require(stackSize >= 0, "assertion failed");
    }
    void emitop(int opcode) { emitop(opcode, stackEffect[static_cast<std::size_t>(opcode)]); }
    void emitop1(int opcode, int value) {
        emitop(opcode);
        emit1(value);
    }
    /// With a one-byte operand, or the `wide` form with two.
    void emitop1w(int opcode, int value);
    void emitop2(int opcode, int value) {
        emitop(opcode);
        emit2(value);
    }
    void emitop4(int opcode, int value) {
        emitop(opcode);
        emit4(value);
    }
    /// The shortest instruction for an int constant.
    void emitInt(std::int32_t value);
    /// A load from the constant pool; `wideEntry` for long and double.
    void emitConstant(PoolEntry* value, bool wideEntry);
    /// Minus one, of type code INT or LONG.
    void emitMinusOne(int typeCode);

    // Flow.
    /// What follows cannot be reached.
    void markDead();
    /// Something that is no jump leads here, with that stack height.
    void entryPoint(int stack);
    /// The same, with these sets.
    void entryPoint(int stack, const Bits& unset, const Bits& set);
    /// A jump on `opcode` whose target is open; null if it is never taken or cannot be reached.
    Chain* branch(int opcode);
    /// Emits the instruction of a chain node that was made for the current place.
    void emitJump(Chain* chain, int opcode);
    /// A node for a jump from the current place, in no chain.
    Chain* newChain(int stack);
    /// Lets the jumps lead to the current place, and joins their states with the current one. That is the end of them.
    void resolve(Chain* chain) { resolve(chain, code->cp); }
    /// Lets the jumps lead to `target`, a pc behind them or, with an empty stack, before them.
    void resolve(Chain* chain, int target);
    /// One chain of both: first the nodes of `b`, then those of `a`. Neither is to be used by itself any more.
    static Chain* mergeChains(Chain* a, Chain* b);
    /// A statement begins: marks its line, or warns that it cannot be reached.
    void statBegin(int pos);

    // Variables. A variable has an index, unique within the method, and a register, which others may use after it.
    /// A new variable of that type; gives its index.
    int newLocal(const Type* type);
    /// Gives a blank final field an index without a register, so that it takes part in the analysis.
    void newVar(VarSymbol* symbol);
    /// Tells the symbol of an index that it has already.
    void addVar(VarSymbol* symbol);
    /// The same for a local, which if final belongs to the loop around it.
    void addVarChecked(VarSymbol* symbol);
    /// The receiver, as the first variable of an instance method.
    void newThis();
    /// The symbol of an index; null for a temporary.
    [[nodiscard]] VarSymbol* variable(int index) const { return vars_[static_cast<std::size_t>(index)]; }
    [[nodiscard]] int registerOf(int index) const { return code->registerOf(index); }
    /// The variables from `first` on go out of scope; their registers are free again.
    void endScopes(int first);
    /// From here on no register is used that any variable had so far.
    void resetRegisters() { code->nextReg = code->maxLocals; }
    void declared(int index);
    void assigned(int index);
    /// A read: reports a variable that may be unassigned, once on a path.
    void checkAssigned(int pos, int index) {
        if (alive && maybeUnset.isMember(index)) [[unlikely]]
            reportUnassigned(pos, index);
    }
    /// An assignment to a final variable: reports that it may have a value already.
    void checkUnassigned(int pos, int index);
    /// A loop begins; gives what `endLoop` wants back.
    Bits* beginLoop();
    void endLoop(Bits* saved) { loopFinals = saved; }
    /// Copies that live until the next method.
    Bits* dupUnset() { return dup(maybeUnset); }
    Bits* dupSet() { return dup(maybeSet); }
    /// What is not in `bits` counts as assigned.
    void restoreUnset(const Bits& bits);

    // Jumps out of `try` statements, which are dead if a finally part on their way turns out not to come back.
    void noteLeaving(Try* statement, Chain* jump) { leavingJumps_.push_back({statement, jump}); }
    void cutLeavingJumps(const Try* statement);

    // Code that belongs to a jump out of a `try` statement within a finally part. It has left the statement, and is
    // kept out of its protected range: the verifier would take the handler for a part of whatever the jump leads to,
    // and with it the finally part around, which then could not return.
    /// Whether a finally part is being generated.
    [[nodiscard]] bool inSubroutine() const { return subroutineDepth > 0; }
    /// The statement is left from here on, until `closeGaps`.
    void openGap(const Try* statement) { gaps_.push_back({statement, curPc(), -1}); }
    void closeGaps();
    /// Enters the protected range of the statement into the exception table, less its gaps.
    void addCatch(const Try* statement, int start, int end, int handler, int type);

    // Constant pool.
    int poolPut(PoolEntry* entry) { return pool->put(entry); }
    int poolClass(Type* type);
    /// The member as code of this class refers to it when it is reached through `site` (null: through this class). That
    /// is the symbol itself, unless its class is not to be seen from here: then a copy of it that `site` owns.
    Symbol* poolMember(Symbol* member, ClassSymbol* site);

    // Methods that generated code calls for the language; null if the class library lacks them.
    /// `String.valueOf` for a value of that type.
    Symbol* stringValueOf(const Type* type);
    /// Takes a reference off the stack and throws NullPointerException if it is null.
    void checkNotNull();
    /// `String.concat`.
    Symbol* stringConcat();

    // Tables. An empty range is left out.
    void addCatch(int start, int end, int handler, int type) {
        if (start != end) code->addCatch(start, end, handler, type);
    }

    Code* code = nullptr;         ///< of the current method
    ConstantPool* pool = nullptr; ///< of the current class
    ClassSymbol* currentClass = nullptr;
    bool alive = false;                  ///< the current place can be reached
    bool fixedPc = false;                ///< somebody holds the current pc, so the jump before it must stay
    std::vector<VarSymbol*> blankFinals; ///< what the current initializer has to assign, in order of declaration
    int stackSize = 0;                   ///< height of the operand stack, in words
    int statementPos = 0;                ///< position of the current statement
    Bits maybeUnset;                     ///< variables that may have no value here
    Bits maybeSet;                       ///< variables that may already have a value here
    int subroutineDepth = 0;             ///< finally parts around the current place
    Bits* loopFinals = nullptr;          ///< the final variables declared in the innermost loop; null outside of loops

private:
    struct Leaving {
        Try* statement;
        Chain* jump;
    };
    struct Gap {
        const Try* statement;
        int start;
        int end; ///< -1 while it is open
    };
    /// A copy of a member for references through `site`.
    struct ForeignMember {
        Symbol* member;
        ClassSymbol* site;
        Symbol* copy;
    };

    void endFlow(int delta);
    void patch(const Chain* chain, int target);
    void join(const Chain* chain);
    void growVars(int index);
    Bits* dup(const Bits& bits);
    void reportUnassigned(int pos, int index);

    // Ranges for the local variable table; only with debug information.
    void entersUnset(int index);
    void leavesUnset(int index);
    void closeRange(int index);
    template <class Change>
    void changeUnset(Change change);
    void trackUnset(const Bits& before);
    [[nodiscard]] bool isTracked(int index) const;

    bool debugInfo_ = false;
    std::vector<VarSymbol*> vars_; ///< by variable index
    std::vector<int> rangeStart_;  ///< start of the open range by variable index, -1 for none
    std::vector<int> rangeEnd_;    ///< where its variable became unassigned, -1 if it has not
    Recycled<Chain> chains_;
    Chain* spareChains_ = nullptr; ///< resolved ones of this method, for its next jumps
    Recycled<BitsCopy> copies_;
    std::array<Symbol*, TYPE_TAGS> valueOf_{}; ///< found already in this class, by tag of the argument
    Symbol* concat_ = nullptr;
    VarSymbol* this_ = nullptr; ///< of this class; made at the first use
    std::vector<Leaving> leavingJumps_;
    std::vector<Gap> gaps_; ///< of the method, in the order of their starts
    std::vector<ForeignMember> foreignMembers_;
};

namespace detail {
extern Emitter* theEmitter;
Emitter& openEmitter();
} // namespace detail

/// The one emitter of the process, made at the first use.
inline Emitter& emitter() {
    if (detail::theEmitter == nullptr) [[unlikely]]
        return detail::openEmitter();
    return *detail::theEmitter;
}

} // namespace tarn
