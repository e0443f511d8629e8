#include "codegen/emitter.h"

#include "codegen/item.h"
#include "driver/reporter.h"
#include "semantic/context.h"
#include "semantic/resolve.h"
#include "syntax/position.h"

#include <algorithm>

namespace tarn {

namespace detail {

Emitter* theEmitter = nullptr;

Emitter& openEmitter() {
    static Emitter instance;
    theEmitter = &instance;
    return instance;
}

} // namespace detail

int zero(int code) {
    switch (code) {
    case typecode::INT: return op::ICONST_0;
    case typecode::LONG: return op::LCONST_0;
    case typecode::FLOAT: return op::FCONST_0;
    case typecode::DOUBLE: return op::DCONST_0;
    default: throw InternalError("zero");
    }
}

int one(int code) {
    return zero(code) + 1;
}

void Emitter::startClass(ClassSymbol* c, ConstantPool* toPool) {
    currentClass = c;
    pool = toPool;
    foreignMembers_.clear();
    valueOf_.fill(nullptr);
    concat_ = nullptr;
    this_ = nullptr;
    blankFinals.clear();
    releaseItems();
}

void Emitter::endClass() {
    Code::recycle();
    code = nullptr;
    pool = nullptr;
    currentClass = nullptr;
}

void Emitter::startCode(MethodSymbol* method, bool fatcode) {
    if (method->code == nullptr)
        method->code = Code::take(method, fatcode);
    else
        method->code->start(method, fatcode);
    code = method->code;
    debugInfo_ = context().options.debugInfo;
    maybeUnset.clear();
    maybeSet.clear();
    loopFinals = nullptr;
    alive = true;
    fixedPc = false;
    stackSize = 0;
    chains_.release();
    spareChains_ = nullptr;
    copies_.release();
    leavingJumps_.clear();
    gaps_.clear();
    subroutineDepth = 0;
}

// Bytes and instructions.

void Emitter::put2(int pc, int value) {
    std::uint8_t* at = code->bytes.data() + pc;
    at[0] = static_cast<std::uint8_t>(value >> 8);
    at[1] = static_cast<std::uint8_t>(value);
}

void Emitter::put4(int pc, int value) {
    put2(pc, value >> 16);
    put2(pc + 2, value);
}

int Emitter::get4(int pc) const {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; i++) value = value << 8 | static_cast<std::uint32_t>(get1(pc + i));
    return static_cast<int>(value);
}

void Emitter::align(int n) {
    if (!alive) return;
    while (code->cp % n != 0) emit1(0);
}

void Emitter::endFlow(int delta) {
    require(stackSize - (op::ENDS(0) - delta) == 0, "assertion failed");
    markDead();
}

void Emitter::emitop1w(int opcode, int value) {
    if (value < 0x100) {
        emitop1(opcode, value);
        return;
    }
    emit1(op::WIDE);
    emitop2(opcode, value);
}

void Emitter::emitInt(std::int32_t value) {
    if (value >= -1 && value <= 5)
        emitop(op::ICONST_0 + value);
    else if (value >= -128 && value <= 127)
        emitop1(op::BIPUSH, value);
    else if (value >= -32768 && value <= 32767)
        emitop2(op::SIPUSH, value);
    else
        emitConstant(context().intConstant(typetag::INT, value), false);
}

void Emitter::emitConstant(PoolEntry* value, bool wideEntry) {
    int index = poolPut(value);
    if (wideEntry)
        emitop2(op::LDC2_W, index);
    else if (index <= 0xff)
        emitop1(op::LDC, index);
    else
        emitop2(op::LDC_W, index);
}

void Emitter::emitMinusOne(int code_) {
    if (code_ == typecode::INT) {
        emitop(op::ICONST_M1);
        return;
    }
    require(code_ == typecode::LONG, "minus one");
    emitop(op::LCONST_0);
    emitop(op::LCONST_1);
    emitop(op::LSUB);
}

int Emitter::poolClass(Type* type) {
    if (type->tag == typetag::CLASS) return poolPut(type->tsym);
    return poolPut(type);
}

namespace {

Symbol* copyOf(Symbol* member) {
    Arena& arena = context().arena;
    Symbol* copy = member->kind == VAR ? static_cast<Symbol*>(arena.make<VarSymbol>(*static_cast<VarSymbol*>(member)))
                                       : arena.make<MethodSymbol>(*static_cast<MethodSymbol*>(member));
    copy->poolIndex = 0;
    return copy;
}

} // namespace

Symbol* Emitter::poolMember(Symbol* member, ClassSymbol* site) {
    const Symbol* owner = member->owner;
    if ((owner->flags & (flag::PUBLIC | flag::PROTECTED)) != 0) return member;
    if (site == nullptr) site = currentClass;
    if (owner == site || owner == currentClass || owner->package() == currentClass->package()) return member;
    for (const ForeignMember& known : foreignMembers_)
        if (known.member == member && known.site == site) return known.copy;
    Symbol* copy = copyOf(member);
    copy->owner = site;
    foreignMembers_.push_back({member, site, copy});
    return copy;
}

/// Whether what was found is the method that the library promises; a class file may hold anything.
static bool givesString(const Symbol* found, std::uint32_t staticFlag) {
    return found->kind == MTH && (found->flags & flag::STATIC) == staticFlag &&
           found->type->resType() == context().stringType;
}

Symbol* Emitter::stringValueOf(const Type* type) {
    Context& current = context();
    // All references go the same way, also null and arrays of char, which have a text like any other object.
    bool reference = typeCode(type) == typecode::OBJECT;
    Symbol*& method = valueOf_[reference ? +typetag::CLASS : type->tag];
    if (method == nullptr) {
        Type* argument = reference ? current.objectType : current.typeOfTag[type->tag];
        Symbol* found = resolve::resolveMethod(current.stringClass, Name::fromBytes("valueOf"), argument);
        if (givesString(found, flag::STATIC)) method = found;
    }
    return method;
}

Symbol* Emitter::stringConcat() {
    Context& current = context();
    if (concat_ == nullptr) {
        Symbol* found = resolve::resolveMethod(current.stringClass, Name::fromBytes("concat"), current.stringType);
        if (givesString(found, 0)) concat_ = found;
    }
    return concat_;
}

void Emitter::checkNotNull() {
    Context& current = context();
    Symbol* getClass = resolve::findMethod(nullptr, current.objectClass, Name::fromBytes("getClass"), {});
    if (getClass->kind == MTH) items::stackItem()->member(statementPos, getClass, current.objectClass)->invoke();
    emitop(op::POP);
}

// Flow.

void Emitter::markDead() {
    alive = false;
    if (debugInfo_) maybeUnset.eachMember([this](int index) { leavesUnset(index); });
    maybeUnset.clear();
    maybeSet.clear();
}

void Emitter::entryPoint(int stack) {
    require(!alive || stack == stackSize, "assertion failed");
    stackSize = stack;
    alive = true;
    code->maxStack = std::max(code->maxStack, stack);
}

template <class Change>
void Emitter::changeUnset(Change change) {
    if (!debugInfo_) return change();
    Bits before = maybeUnset;
    change();
    trackUnset(before);
}

void Emitter::entryPoint(int stack, const Bits& unset, const Bits& set) {
    entryPoint(stack);
    changeUnset([&] { maybeUnset = unset; });
    maybeSet = set;
}

Chain* Emitter::newChain(int stack) {
    Chain* chain = spareChains_;
    if (chain != nullptr)
        spareChains_ = chain->next;
    else
        chain = chains_.take();
    chain->pc = code->cp;
    chain->next = nullptr;
    chain->stack = stack;
    chain->cut = false;
    if (code->fits()) {
        chain->unset = maybeUnset;
        chain->set = maybeSet;
    } else { // refused in any case, and there is no end to what a hostile source could make us copy
        chain->unset.clear();
        chain->set.clear();
    }
    return chain;
}

Chain* Emitter::branch(int opcode) {
    if (opcode == NEVER || !alive) return nullptr;
    Chain* chain = newChain(stackSize + stackEffect[static_cast<std::size_t>(opcode)]);
    emitJump(chain, opcode);
    fixedPc = code->fatcode;
    if (opcode == ALWAYS) markDead();
    return chain;
}

void Emitter::emitJump(Chain* chain, int opcode) {
    if (!code->fatcode) {
        emitop2(opcode, 0);
    } else if (opcode == op::GOTO || opcode == op::JSR) {
        emitop4(opcode + (op::GOTO_W - op::GOTO), 0);
    } else {
        constexpr int testAndGoto = 8; // 3 bytes of the test, 5 of the goto_w
        emitop2(negate(opcode), testAndGoto);
        emitop4(op::GOTO_W, 0);
        chain->pc += 3;
    }
}

void Emitter::patch(const Chain* chain, int target) {
    int offset = target - chain->pc;
    if (code->fatcode)
        put4(chain->pc + 1, offset);
    else if (offset >= -32768 && offset <= 32767)
        put2(chain->pc + 1, offset);
    else
        code->fatcode = true; // the body will be generated again
    require(!alive || chain->stack == stackSize, "assertion failed");
}

void Emitter::resolve(Chain* chain, int target) {
    if (chain == nullptr) return;
    for (const Chain* node = chain; node != nullptr; node = node->next) {
        if (node->cut) continue;
        require(target > node->pc || stackSize == 0, "assertion failed");
        target = std::min(target, code->cp);
        bool leadsToNext = get1(node->pc) == op::GOTO && node->pc + 3 == target && code->cp == target;
        if (leadsToNext && !fixedPc) {
            code->cp -= 3;
            target -= 3;
        } else {
            patch(node, target);
        }
        fixedPc = true;
    }
    Chain* last = chain;
    for (Chain* node = chain; node != nullptr; node = node->next) {
        if (code->cp == target && !node->cut) join(node);
        last = node;
    }
    last->next = spareChains_;
    spareChains_ = chain;
}

void Emitter::join(const Chain* chain) {
    alive = true;
    stackSize = chain->stack;
    changeUnset([&] { maybeUnset.orSet(chain->unset); });
    maybeSet.orSet(chain->set);
}

Chain* Emitter::mergeChains(Chain* a, Chain* b) {
    if (b == nullptr) return a;
    if (a == nullptr) return b;
    require(a->stack == b->stack, "assertion failed");
    Chain* last = b;
    while (last->next != nullptr) last = last->next;
    last->next = a;
    return b;
}

void Emitter::statBegin(int pos) {
    if (!alive) {
        reportWarning(pos, messages::statementNotReachable);
        return;
    }
    statementPos = pos;
    require(stackSize == 0, "assertion failed");
    code->markLine(code->cp, lineOf(pos));
}

void Emitter::cutLeavingJumps(const Try* statement) {
    for (const Leaving& leaving : leavingJumps_)
        if (leaving.statement == statement) leaving.jump->cut = true;
}

void Emitter::closeGaps() {
    if (gaps_.empty() || gaps_.back().end >= 0) return;
    int end = curPc();
    for (auto gap = gaps_.rbegin(); gap != gaps_.rend() && gap->end < 0; ++gap) gap->end = end;
}

void Emitter::addCatch(const Try* statement, int start, int end, int handler, int type) {
    for (const Gap& gap : gaps_) {
        if (gap.statement != statement || gap.start < start || gap.end > end || gap.start == gap.end) continue;
        addCatch(start, gap.start, handler, type);
        start = gap.end;
    }
    addCatch(start, end, handler, type);
}

// Variables.

void Emitter::growVars(int index) {
    std::size_t length = static_cast<std::size_t>(index) + 1;
    if (vars_.size() < length) {
        std::size_t room = std::max<std::size_t>(64, length * 2);
        vars_.resize(room);
        rangeStart_.resize(room);
        rangeEnd_.resize(room);
    }
    std::size_t at = static_cast<std::size_t>(index);
    vars_[at] = nullptr;
    rangeStart_[at] = rangeEnd_[at] = -1;
}

int Emitter::newLocal(const Type* type) {
    int index = code->nextVar++;
    int reg = code->nextReg;
    int width = widthOf(type);
    code->nextReg += width;
    code->maxLocals = std::max(code->maxLocals, code->nextReg);
    code->registers.resize(static_cast<std::size_t>(index) + 1);
    code->registers.back() = width == 2 ? -reg : reg;
    growVars(index);
    return index;
}

void Emitter::newVar(VarSymbol* symbol) {
    symbol->adr = code->nextVar++;
    // The register that follows, so that giving back the registers from here on gives back those of later variables.
    code->registers.resize(static_cast<std::size_t>(symbol->adr) + 1);
    code->registers.back() = code->nextReg;
    addVar(symbol);
}

void Emitter::addVar(VarSymbol* symbol) {
    growVars(symbol->adr);
    vars_[static_cast<std::size_t>(symbol->adr)] = symbol;
}

void Emitter::addVarChecked(VarSymbol* symbol) {
    addVar(symbol);
    if (symbol->isFinal() && loopFinals != nullptr) loopFinals->incl(symbol->adr);
}

void Emitter::newThis() {
    int index = newLocal(currentClass->type);
    if (debugInfo_) {
        if (this_ == nullptr) {
            this_ = context().arena.make<VarSymbol>();
            this_->init(flag::FINAL, VAR, names().this_, currentClass->type, code->method);
        }
        this_->adr = index;
        addVar(this_);
    }
    assigned(index);
}

void Emitter::endScopes(int first) {
    if (code->nextVar <= first) return;
    if (debugInfo_)
        for (int i = first; i < code->nextVar; i++) closeRange(i);
    code->nextReg = registerOf(first);
}

void Emitter::declared(int index) {
    if (!alive) return;
    maybeUnset.incl(index);
    if (debugInfo_) entersUnset(index);
    maybeSet.excl(index);
}

void Emitter::assigned(int index) {
    if (!alive) return;
    maybeUnset.excl(index);
    if (debugInfo_) leavesUnset(index);
    maybeSet.incl(index);
}

void Emitter::reportUnassigned(int pos, int index) {
    reportError(pos, messages::maybeUninitialized, variable(index));
    maybeUnset.excl(index);
    if (debugInfo_) leavesUnset(index);
}

void Emitter::checkUnassigned(int pos, int index) {
    if (!alive || index < 0) return;
    bool fromOutsideTheLoop = loopFinals != nullptr && !loopFinals->isMember(index);
    if (!maybeSet.isMember(index) && !fromOutsideTheLoop) return;
    reportError(pos, messages::maybeAssignedTwice, variable(index));
    maybeSet.excl(index);
}

Bits* Emitter::dup(const Bits& bits) {
    BitsCopy* copy = copies_.take();
    copy->bits = bits;
    return &copy->bits;
}

Bits* Emitter::beginLoop() {
    Bits* saved = loopFinals;
    loopFinals = dup(Bits());
    return saved;
}

void Emitter::restoreUnset(const Bits& bits) {
    changeUnset([&] { maybeUnset.andSet(bits); });
}

// Ranges of variables: one is open while its variable has a value. It gets its end when the variable loses its value,
// but is only entered in the table when the variable gets one again at a later place, or goes out of scope; so a gap
// of no length does not show.

bool Emitter::isTracked(int index) const {
    if (index < 0 || index >= code->nextVar) return false;
    const VarSymbol* symbol = vars_[static_cast<std::size_t>(index)];
    return symbol != nullptr && symbol->owner->kind != TYP;
}

void Emitter::trackUnset(const Bits& before) {
    maybeUnset.eachDifference(before, [&](int index) {
        if (before.isMember(index))
            leavesUnset(index);
        else
            entersUnset(index);
    });
}

void Emitter::entersUnset(int index) {
    if (!isTracked(index)) return;
    int& start = rangeStart_[static_cast<std::size_t>(index)];
    if (start < 0) return;
    int pc = curPc();
    if (pc != start)
        rangeEnd_[static_cast<std::size_t>(index)] = pc;
    else
        start = -1;
}

void Emitter::leavesUnset(int index) {
    if (!isTracked(index)) return;
    int& start = rangeStart_[static_cast<std::size_t>(index)];
    int& end = rangeEnd_[static_cast<std::size_t>(index)];
    if (end >= 0) {
        if (curPc() > end) {
            code->addLocalVar(variable(index), start, end);
            start = curPc();
        }
        end = -1;
    } else if (start < 0) {
        start = curPc();
    }
}

void Emitter::closeRange(int index) {
    if (!isTracked(index)) return;
    int& start = rangeStart_[static_cast<std::size_t>(index)];
    int& end = rangeEnd_[static_cast<std::size_t>(index)];
    if (start < 0) return;
    if (end < 0) end = curPc();
    code->addLocalVar(variable(index), start, end);
    start = end = -1;
}

} // namespace tarn
