#include "codegen/gen.h"

#include "eval/eval_item.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>

namespace tarn {

namespace {

/// The branch that a constant condition leaves; null for a condition that is none.
Tree* chosenBranch(const Conditional* tree) {
    if (!tree->cond->type->isConstant()) return nullptr;
    return tree->cond->type->constValue()->intValue() != 0 ? tree->thenpart : tree->elsepart;
}

bool isEmpty(const Tree* statement) {
    return statement->tag == treetag::BLOCK &&
           std::ranges::all_of(static_cast<const Block*>(statement)->stats, isEmpty);
}

/// `a ? b : c` as a condition. No boolean is put on the stack in between, so that what `b` and `c` assign on either of
/// their outcomes is known on that outcome of the whole.
CondItem* genChoice(const Conditional* tree) {
    Emitter& out = emitter();
    CondItem* c = codegen::genCondition(tree->cond);
    Chain* elseChain = c->jumpFalse();
    if (c->isFalse()) {
        out.resolve(elseChain);
        return codegen::genCondition(tree->elsepart);
    }
    out.resolve(c->trueJumps);
    CondItem* whenTrue = codegen::genCondition(tree->thenpart);
    if (elseChain == nullptr) return whenTrue;
    Chain* trueJumps = whenTrue->jumpTrue();
    Chain* falseJumps = Emitter::mergeChains(whenTrue->falseJumps, out.branch(ALWAYS));
    out.resolve(elseChain);
    CondItem* whenFalse = codegen::genCondition(tree->elsepart);
    return items::cond(whenFalse->opcode, Emitter::mergeChains(trueJumps, whenFalse->trueJumps),
                       Emitter::mergeChains(falseJumps, whenFalse->falseJumps));
}

} // namespace

CondItem* codegen::genCondition(Tree* tree) {
    if (tree->tag != treetag::CONDITIONAL || tree->type->isConstant()) return tree->gen()->mkCond();
    auto* choice = static_cast<Conditional*>(tree);
    Tree* chosen = chosenBranch(choice);
    return chosen != nullptr ? genCondition(chosen) : genChoice(choice);
}

/// `c ? a : b` as a value; an `if` has the same shape with statements in place of the values.
Item* Conditional::gen() {
    if (tag == treetag::IF) return genIf();
    if (Tree* chosen = chosenBranch(this)) return chosen->gen()->coerce(chosen->type, type);

    Emitter& out = emitter();
    CondItem* c = codegen::genCondition(cond);
    Chain* elseChain = c->jumpFalse();
    Chain* exit = nullptr;
    Origin thenOrigin = Origin::NONE;
    Origin elseOrigin = Origin::NONE;
    if (!c->isFalse()) {
        out.resolve(c->trueJumps);
        thenOrigin = codegen::genLoadAny(thenpart, type);
        exit = out.branch(ALWAYS);
    }
    if (elseChain != nullptr) {
        out.resolve(elseChain);
        elseOrigin = codegen::genLoadAny(elsepart, type);
    }
    out.resolve(exit);
    return eval::choice(pos, type, thenOrigin, elseOrigin);
}

Item* Conditional::genIf() {
    Emitter& out = emitter();
    if (elsepart != nullptr) {
        if (Tree* chosen = chosenBranch(this)) {
            chosen->genDrop();
            return items::voidItem();
        }
    }
    out.statBegin(pos);
    bool hasElse = elsepart != nullptr && !isEmpty(elsepart);
    CondItem* c = codegen::genCondition(cond);
    Chain* elseChain = c->jumpFalse();
    Chain* exit = nullptr;
    if (!c->isFalse()) {
        out.resolve(c->trueJumps);
        thenpart->genDrop();
        // Without an else part the end of the then part is the end of the statement.
        if (hasElse) exit = out.branch(ALWAYS);
    }
    if (hasElse && elseChain != nullptr) {
        out.resolve(elseChain);
        elsepart->genDrop();
        elseChain = nullptr;
    }
    out.resolve(exit);
    out.resolve(elseChain);
    return items::voidItem();
}

} // namespace tarn
