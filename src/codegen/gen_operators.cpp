#include "codegen/gen.h"

#include "driver/reporter.h"
#include "semantic/context.h"
#include "syntax/tree_expressions.h"

#include <algorithm>

namespace tarn {

namespace {

bool isShift(int tag) {
    return tag == treetag::SHL || tag == treetag::SHR || tag == treetag::USHR;
}

bool isComparison(int tag) {
    return tag >= treetag::EQ && tag <= treetag::GE;
}

// Strings. A concatenation is `String.valueOf(a).concat(String.valueOf(b))`; `valueOf` runs for a string too, since it
// turns null into the text "null".

/// Calls the method. False if there is none: an error was reported, the class gets no file, and only the height of the
/// stack counts.
bool invokeIfThere(Symbol* method) {
    if (method != nullptr)
        items::member(emitter().statementPos, method, nullptr)->invoke();
    else
        reportError(emitter().statementPos, messages::notFound, "String.valueOf or String.concat", "");
    return method != nullptr;
}

void invokeValueOf(const Type* type) {
    if (invokeIfThere(emitter().stringValueOf(type))) return;
    items::stackItem()->drop(type);
    emitter().emitop(op::ACONST_NULL);
}

/// Turns the value on the stack into its text. An object's `toString` may give null, which counts as "null", so that
/// result is a value to be turned into text itself.
void genStringValue(const Type* type) {
    invokeValueOf(type);
    if (type->tag == typetag::CLASS && !type->isConstant() && type != context().stringType)
        invokeValueOf(context().stringType);
}

Item* genConcatenation(Item* l, Tree* left, Tree* right) {
    l->load(left->type);
    genStringValue(left->type);
    right->genLoad();
    genStringValue(right->type);
    if (!invokeIfThere(emitter().stringConcat())) items::stackItem()->drop(context().stringType);
    return items::stackItem();
}

/// What is left of a binary operation, or the operation of a compound assignment, when its left operand was generated
/// as `l`. `tag` is that of the binary operator.
Item* completeBinary(int tag, const OperatorSymbol* operation, Item* l, Tree* left, Tree* right) {
    int opcode = operation->opcode;
    if (opcode == vop::STRING_CONCAT) return genConcatenation(l, left, right);

    Item* stack = items::stackItem();
    int leftCode = truncate(typeCode(left->type));
    int rightCode = truncate(typeCode(right->type));
    int common = std::max(leftCode, rightCode);
    l->load(left->type);
    if (!isShift(tag)) stack->coerce(left->type, leftCode, common);
    right->genLoad();
    if (!isShift(tag))
        stack->coerce(right->type, rightCode, common);
    else if (rightCode == typecode::LONG)
        stack->coerce(right->type, rightCode, typecode::INT);

    if (!isComparison(tag)) {
        emitter().emitop(opcode);
        return stack;
    }
    if (int compare = vop::compareOf(opcode)) emitter().emitop(compare);
    return items::cond(vop::branchOf(opcode));
}

Item* genOr(Tree* lhs, Tree* rhs) {
    Emitter& out = emitter();
    CondItem* l = codegen::genCondition(lhs);
    if (l->isTrue()) return l;
    Chain* trueJumps = l->jumpTrue();
    out.resolve(l->falseJumps);
    CondItem* r = codegen::genCondition(rhs);
    return items::cond(r->opcode, Emitter::mergeChains(trueJumps, r->trueJumps), r->falseJumps);
}

Item* genAnd(Tree* lhs, Tree* rhs) {
    Emitter& out = emitter();
    CondItem* l = codegen::genCondition(lhs);
    if (l->isFalse()) return l;
    Chain* falseJumps = l->jumpFalse();
    out.resolve(l->trueJumps);
    CondItem* r = codegen::genCondition(rhs);
    return items::cond(r->opcode, r->trueJumps, Emitter::mergeChains(falseJumps, r->falseJumps));
}

/// Whether the item is a variable that `iinc` can change.
bool isIntLocal(const Item* item, const Type* type) {
    return item->kind == Item::Kind::LOCAL && type->tag == typetag::INT;
}

/// The value of variable `v`, which is on the stack, one up or down.
void genStep(const OperatorSymbol* operation, Type* type) {
    emitter().emitop(one(truncate(typeCode(type))));
    emitter().emitop(operation->opcode);
    if (type->tag < typetag::INT) items::stackItem()->coerce(context().intType, type);
}

Item* genPrefixStep(Tree* arg, const OperatorSymbol* operation, int amount) {
    Type* type = arg->type;
    Item* v = arg->gen();
    if (isIntLocal(v, type)) {
        static_cast<VariableItem*>(v)->incr(amount);
        return v;
    }
    v->duplicate(type);
    v->load(type);
    genStep(operation, type);
    return items::assign(v);
}

Item* genPostfixStep(Tree* arg, const OperatorSymbol* operation, int amount) {
    Type* type = arg->type;
    Item* v = arg->gen();
    if (isIntLocal(v, type)) {
        v->load(type);
        static_cast<VariableItem*>(v)->incr(amount);
        return items::stackItem();
    }
    v->duplicate(type);
    v->load(type);
    v->stash(type, widthOf(type)); // the old value, below what `v` has on the stack
    genStep(operation, type);
    v->store(type);
    return items::stackItem();
}

/// Whether `v += rhs` (or -=) is one `iinc`; gives its amount.
bool isIncrement(const Assignop* tree, const Item* v, int& amount) {
    if (tree->tag != treetag::PLUS_ASG && tree->tag != treetag::MINUS_ASG) return false;
    Type* right = tree->rhs->type;
    if (!isIntLocal(v, tree->lhs->type) || !right->isConstant() || right->tag > typetag::INT) return false;
    std::int64_t value = right->constValue()->intValue();
    if (tree->tag == treetag::MINUS_ASG) value = -value;
    amount = static_cast<int>(value);
    return value >= -128 && value <= 127;
}

} // namespace

Item* Binary::gen() {
    if (type->isConstant()) return items::immediate(type->constValue());
    if (tag == treetag::OR_OR) return genOr(lhs, rhs);
    if (tag == treetag::AND_AND) return genAnd(lhs, rhs);
    return completeBinary(tag, operator_, lhs->gen(), lhs, rhs);
}

Item* Unary::gen() {
    if (type->isConstant()) return items::immediate(type->constValue());
    Emitter& out = emitter();
    switch (tag) {
    case treetag::NOT: return codegen::genCondition(arg)->negate();
    case treetag::PREINC: return genPrefixStep(arg, operator_, 1);
    case treetag::PREDEC: return genPrefixStep(arg, operator_, -1);
    case treetag::POSTINC: return genPostfixStep(arg, operator_, 1);
    case treetag::POSTDEC: return genPostfixStep(arg, operator_, -1);
    default: break;
    }
    arg->genLoad();
    if (tag == treetag::NONNULL) {
        out.emitop(op::DUP);
        out.checkNotNull();
        return items::stackItem();
    }
    if (tag == treetag::COMPL) out.emitMinusOne(truncate(typeCode(arg->type)));
    if (tag != treetag::POS) out.emitop(operator_->opcode);
    return items::stackItem();
}

Item* Assignop::gen() {
    Item* v = lhs->gen();
    if (setter != nullptr) static_cast<MemberItem*>(v)->setter = setter;
    if (tag == treetag::ASSIGN) {
        if (v->origin() != Origin::ORDINARY) return items::assign(v, codegen::genLoadAny(rhs, lhs->type));
        codegen::genLoadAs(rhs, lhs->type);
        return items::assign(v);
    }
    int amount = 0;
    if (isIncrement(this, v, amount)) {
        static_cast<VariableItem*>(v)->incr(amount);
        return v;
    }
    v->duplicate(lhs->type);
    int binaryTag = tag - treetag::BITOR_ASG + treetag::BITOR;
    completeBinary(binaryTag, operator_, v, lhs, rhs)->coerce(operator_->methodType()->result, lhs->type);
    return items::assign(v);
}

} // namespace tarn
