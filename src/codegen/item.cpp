#include "codegen/item.h"

#include "codegen/emitter.h"
#include "driver/reporter.h"
#include "eval/eval_item.h"
#include "semantic/context.h"
#include "semantic/fold.h"
#include "syntax/position.h"

#include <array>
#include <bit>

namespace tarn {

namespace {

// Items are made per expression node, so they are pooled: once the lists have filled, a statement allocates nothing.
// Like the emitter they are used by one thread and one method at a time.
constinit Recycled<LocalItem> locals;
constinit Recycled<ImmediateItem> immediates;
constinit Recycled<AssignItem> assigns;
constinit Recycled<CondItem> conds;
constinit Recycled<MemberItem> members;

[[noreturn]] void fail(const char* operation, Item::Kind kind) {
    throw InternalError(std::string(operation) + " " + std::to_string(static_cast<int>(kind)));
}

/// Whether an expression of a stopped program is being generated.
bool isEvaluating() {
    return context().options.evaluating;
}

/// `TypeName.member`.
class StaticItem final : public Item {
public:
    constexpr StaticItem() : Item(Kind::STATIC) {}

    Item* member(int pos, Symbol* symbol, ClassSymbol* site) override {
        if (symbol->isStatic()) {
            if (isEvaluating() && eval::isRemoteStatic(symbol)) return eval::staticMember(pos, symbol);
            return items::member(pos, symbol, site, false, true);
        }
        // The class name of a superclass in front of an instance member.
        return items::superItem()->member(pos, symbol, site);
    }
};

class PlainItem final : public Item {
public:
    using Item::Item;
};

constinit PlainItem theVoidItem{Item::Kind::VOID};
constinit PlainItem theStackItem{Item::Kind::STACK};
constinit PlainItem theIndexedItem{Item::Kind::INDEXED};
constinit PlainItem theThisItem{Item::Kind::THIS};
constinit PlainItem theSuperItem{Item::Kind::SUPER};
constinit StaticItem theStaticItem;

} // namespace

namespace items {

Item* voidItem() {
    return &theVoidItem;
}
Item* stackItem() {
    return &theStackItem;
}
Item* indexedItem() {
    return &theIndexedItem;
}
Item* thisItem() {
    return isEvaluating() ? eval::frameVariable(NO_POSITION, names().this_) : &theThisItem;
}
Item* superItem() {
    return isEvaluating() ? eval::frameVariable(NO_POSITION, names().this_) : &theSuperItem;
}
Item* staticItem() {
    return &theStaticItem;
}

ImmediateItem* immediate(ConstantType* value) {
    ImmediateItem* item = immediates.take();
    item->value = value;
    return item;
}

LocalItem* local(int pos, int adr) {
    if (isEvaluating()) reportError(pos, messages::expressionNotEvaluable);
    LocalItem* item = locals.take();
    item->pos = pos;
    item->adr = adr;
    return item;
}

AssignItem* assign(Item* lhs, Origin valueOrigin) {
    AssignItem* item = assigns.take();
    item->lhs = lhs;
    item->valueOrigin = valueOrigin;
    return item;
}

CondItem* cond(int opcode, Chain* trueJumps, Chain* falseJumps) {
    CondItem* item = conds.take();
    item->opcode = opcode;
    item->trueJumps = trueJumps;
    item->falseJumps = falseJumps;
    return item;
}

MemberItem* member(int pos, Symbol* symbol, ClassSymbol* site, bool nonvirtual, bool selfQualified) {
    MemberItem* item = members.take();
    item->kind = symbol->kind == VAR ? Item::Kind::FIELD : Item::Kind::METHOD;
    item->pos = pos;
    item->symbol = symbol;
    item->site = site;
    item->nonvirtual = nonvirtual;
    item->selfQualified = selfQualified;
    item->setter = nullptr;
    return item;
}

} // namespace items

void releaseItems() {
    locals.release();
    immediates.release();
    assigns.release();
    conds.release();
    members.release();
    if (isEvaluating()) eval::releaseItems();
}

// Item

void Item::load(const Type* type) {
    switch (kind) {
    case Kind::VOID:
    case Kind::STACK: return;
    case Kind::INDEXED: emitter().emitop(op::IALOAD + typeCode(type)); return;
    case Kind::THIS:
    case Kind::SUPER: emitter().emitop(op::ALOAD_0); return;
    default: fail("load", kind);
    }
}

void Item::store(const Type* type) {
    if (kind != Kind::INDEXED) fail("store", kind);
    emitter().emitop(op::IASTORE + typeCode(type));
}

void Item::duplicate(const Type* type) {
    if (kind == Kind::STACK)
        emitter().emitop(widthOf(type) == 2 ? op::DUP2 : op::DUP);
    else if (kind == Kind::INDEXED)
        emitter().emitop(op::DUP2);
}

void Item::drop(const Type* type) {
    if (kind == Kind::STACK)
        emitter().emitop(widthOf(type) == 2 ? op::POP2 : op::POP);
    else if (kind == Kind::INDEXED)
        emitter().emitop(op::POP2);
}

void Item::discard(const Type* type) {
    if (kind == Kind::INDEXED) {
        load(type);
        theStackItem.drop(type);
    } else {
        drop(type);
    }
}

void Item::stash(const Type* type, int width) {
    int opcode = op::DUP;
    if (kind == Kind::STACK)
        opcode = widthOf(type) == 2 ? op::DUP_X2 : op::DUP_X1;
    else if (kind == Kind::INDEXED)
        opcode = op::DUP_X2;
    if (width == 2) opcode += op::DUP2 - op::DUP;
    emitter().emitop(opcode);
}

CondItem* Item::mkCond() {
    load(context().booleanType);
    return items::cond(op::IFNE);
}

Item* Item::coerce(const Type* type, int from, int to) {
    if (from == to) return this;
    load(type);
    int source = truncate(from);
    int target = truncate(to);
    if (source != target) emitter().emitop(op::I2L + 3 * source + target - (target > source ? 1 : 0));
    if (to != target) emitter().emitop(op::I2B + (to - typecode::BYTE));
    return items::stackItem();
}

Item* Item::coerce(Type* from, Type* to) {
    if (from == to) return this;
    int source = typeCode(from);
    int target = typeCode(to);
    bool reference = source == typecode::OBJECT;
    require(reference == (target == typecode::OBJECT), "assertion failed");
    if (!reference) return coerce(from, source, target);
    if (from->isSubType(to)) return this;
    load(from);
    emitter().emitop2(op::CHECKCAST, emitter().poolClass(to));
    return items::stackItem();
}

void Item::invoke() {
    throw InternalError("invoke");
}

Item* Item::member(int pos, Symbol* symbol, ClassSymbol* site) {
    const Type* ownerType = symbol->owner->type;
    if (symbol->isStatic())
        discard(ownerType);
    else
        load(ownerType);
    return items::member(pos, symbol, site, kind == Kind::SUPER, kind == Kind::THIS);
}

Item* Item::indexed() {
    return &theIndexedItem;
}

// LocalItem

/// `opcode` is the instruction for int, `firstShort` its form for register 0.
void LocalItem::emitAccess(int opcode, int firstShort, const Type* type) const {
    int reg = emitter().registerOf(adr);
    int code = truncate(typeCode(type));
    if (reg <= 3)
        emitter().emitop(firstShort + 4 * code + reg);
    else
        emitter().emitop1w(opcode + code, reg);
}

void LocalItem::load(const Type* type) {
    emitter().checkAssigned(pos, adr);
    emitAccess(op::ILOAD, op::ILOAD_0, type);
}

void LocalItem::checkFinal() const {
    const VarSymbol* variable = emitter().variable(adr);
    if (variable != nullptr && variable->isFinal()) emitter().checkUnassigned(pos, adr);
}

void LocalItem::store(const Type* type) {
    emitAccess(op::ISTORE, op::ISTORE_0, type);
    checkFinal();
    emitter().assigned(adr);
}

void LocalItem::incr(int amount) {
    emitter().checkAssigned(pos, adr);
    checkFinal();
    int reg = emitter().registerOf(adr);
    emitter().emitop1w(op::IINC, reg);
    if (reg > 0xff)
        emitter().emit2(amount);
    else
        emitter().emit1(amount);
}

// ImmediateItem

void ImmediateItem::load(const Type*) {
    Emitter& out = emitter();
    switch (value->tag) {
    case typetag::BYTE:
    case typetag::CHAR:
    case typetag::SHORT:
    case typetag::INT:
    case typetag::BOOLEAN: out.emitInt(value->intValue()); return;
    case typetag::LONG: {
        std::int64_t number = value->longValue();
        if (number == 0 || number == 1)
            out.emitop(op::LCONST_0 + static_cast<int>(number));
        else
            out.emitConstant(value, true);
        return;
    }
    case typetag::FLOAT: {
        float number = value->floatValue();
        bool positiveZero = std::bit_cast<std::uint32_t>(number) == 0;
        if (positiveZero || number == 1 || number == 2)
            out.emitop(op::FCONST_0 + static_cast<int>(number));
        else
            out.emitConstant(value, false);
        return;
    }
    case typetag::DOUBLE: {
        double number = value->doubleValue();
        bool positiveZero = std::bit_cast<std::uint64_t>(number) == 0;
        if (positiveZero || number == 1)
            out.emitop(op::DCONST_0 + static_cast<int>(number));
        else
            out.emitConstant(value, true);
        return;
    }
    case typetag::CLASS: out.emitConstant(value, false); return;
    default: throw InternalError("load");
    }
}

CondItem* ImmediateItem::mkCond() {
    return items::cond(value->intValue() != 0 ? ALWAYS : NEVER);
}

Item* ImmediateItem::coerce(const Type*, int from, int to) {
    if (from == to) return this;
    using namespace typetag;
    constexpr std::array<int, 8> tagOf = {INT, LONG, FLOAT, DOUBLE, CLASS, BYTE, CHAR, SHORT}; // by type code
    Type* target = context().typeOfTag[static_cast<std::size_t>(tagOf[static_cast<std::size_t>(to)])];
    return items::immediate(coerceConstant(value, target)->constValue());
}

// AssignItem

void AssignItem::load(const Type* type) {
    lhs->stash(type, widthOf(type));
    lhs->store(type);
}

void AssignItem::duplicate(const Type* type) {
    load(type);
    items::stackItem()->duplicate(type);
}

void AssignItem::drop(const Type* type) {
    lhs->store(type);
}

void AssignItem::stash(const Type*, int) {
    throw InternalError("stash");
}

Item* AssignItem::member(int pos, Symbol* symbol, ClassSymbol* site) {
    if (valueOrigin == Origin::ORDINARY) return Item::member(pos, symbol, site);
    load(symbol->owner->type);
    return eval::loadedObject(pos, valueOrigin)->member(pos, symbol, site);
}

Item* AssignItem::indexed() {
    return valueOrigin == Origin::ORDINARY ? Item::indexed() : eval::loadedObject(NO_POSITION, valueOrigin)->indexed();
}

// CondItem

bool CondItem::isTrue() const {
    return falseJumps == nullptr && opcode == ALWAYS;
}

bool CondItem::isFalse() const {
    return trueJumps == nullptr && opcode == NEVER;
}

Chain* CondItem::jumpTrue() {
    return Emitter::mergeChains(trueJumps, emitter().branch(opcode));
}

Chain* CondItem::jumpFalse() {
    return Emitter::mergeChains(falseJumps, emitter().branch(tarn::negate(opcode)));
}

CondItem* CondItem::negate() {
    return items::cond(tarn::negate(opcode), falseJumps, trueJumps);
}

void CondItem::load(const Type*) {
    Emitter& out = emitter();
    Chain* exit = nullptr;
    Chain* whenFalse = jumpFalse();
    if (!isFalse()) {
        out.resolve(trueJumps);
        out.emitop(op::ICONST_1);
        exit = out.branch(op::GOTO);
    }
    if (whenFalse != nullptr) {
        out.resolve(whenFalse);
        out.emitop(op::ICONST_0);
    }
    out.resolve(exit);
}

void CondItem::duplicate(const Type* type) {
    load(type);
    items::stackItem()->duplicate(type);
}

void CondItem::drop(const Type* type) {
    load(type);
    items::stackItem()->drop(type);
}

void CondItem::stash(const Type*, int) {
    throw InternalError("stash");
}

// MemberItem

/// The variable index under which the assignments of this field are followed; -1 for a field of which they are not.
int MemberItem::trackedField() const {
    if (!selfQualified || !symbol->isFinal()) return -1;
    return static_cast<const VarSymbol*>(symbol)->adr;
}

void MemberItem::emitAccess(int instanceOpcode, int staticOpcode, int delta) {
    Emitter& out = emitter();
    if (symbol->isStatic())
        out.emitop(staticOpcode, delta);
    else
        out.emitop(instanceOpcode, delta - 1);
    out.emit2(out.poolPut(out.poolMember(symbol, site)));
}

void MemberItem::load(const Type* type) {
    if (setter != nullptr) {
        invoke();
        return;
    }
    if (kind != Kind::FIELD) fail("load", kind);
    emitter().checkAssigned(pos, trackedField());
    emitAccess(op::GETFIELD, op::GETSTATIC, widthOf(type));
}

void MemberItem::store(const Type* type) {
    if (setter != nullptr) {
        items::member(pos, setter, site)->invoke();
        items::stackItem()->drop(type); // it gives the value back
        return;
    }
    if (kind != Kind::FIELD) fail("store", kind);
    int adr = trackedField();
    if (adr >= 0) {
        emitter().checkUnassigned(pos, adr);
        emitter().assigned(adr);
    }
    emitAccess(op::PUTFIELD, op::PUTSTATIC, -widthOf(type));
}

void MemberItem::duplicate(const Type*) {
    if (!symbol->isStatic()) emitter().emitop(op::DUP);
}

void MemberItem::drop(const Type*) {
    if (!symbol->isStatic()) emitter().emitop(op::POP);
}

void MemberItem::discard(const Type* type) {
    if (kind != Kind::FIELD) fail("load", kind);
    load(type);
    items::stackItem()->drop(type);
}

void MemberItem::stash(const Type* type, int width) {
    if (symbol->isStatic())
        Item::stash(type, width);
    else
        items::stackItem()->stash(context().intType, width);
}

void MemberItem::invoke() {
    Emitter& out = emitter();
    const auto* type = static_cast<const MethodType*>(symbol->type);
    int arguments = widthOf(type->args);
    int delta = widthOf(type->result) - arguments;
    Symbol* target = out.poolMember(symbol, site);
    if (target->isStatic()) {
        out.emitop(op::INVOKESTATIC, delta);
        out.emit2(out.poolPut(target));
    } else if (target->owner->isInterface()) {
        out.emitop(op::INVOKEINTERFACE, delta - 1);
        out.emit2(out.poolPut(target));
        out.emit1(arguments + 1);
        out.emit1(0);
    } else {
        bool special = nonvirtual || target->isPrivate() || target->name == names().init;
        out.emitop(special ? op::INVOKESPECIAL : op::INVOKEVIRTUAL, delta - 1);
        out.emit2(out.poolPut(target));
    }
}

} // namespace tarn
