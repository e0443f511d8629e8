#include "codegen/lowering.h"

#include "runtime/failure.h"
#include "semantic/context.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>

// The walk over statements and expressions, which are rebuilt in place. An expression with a constant value is left
// alone: its code is the value.

namespace tarn {

using namespace treetag;

Trees Lowering::translateStats(Trees stats, Place* place) {
    std::size_t kept = 0;
    for (Tree* stat : stats)
        if (Tree* translated = translateStat(stat, place)) stats[kept++] = translated;
    return stats.first(kept);
}

Tree* Lowering::translateSingleStat(Tree* tree, Place* place) {
    if (tree == nullptr) return nullptr;
    Tree* translated = translateStat(tree, place);
    return translated != nullptr ? translated : make_.block({});
}

Tree* Lowering::translateStat(Tree* tree, Place* place) {
    make_.setPos(tree->pos);
    switch (tree->tag) {
    case CLASSDEF: translateClass(static_cast<ClassDef*>(tree), place); return nullptr;
    case METHODDEF: translateMethod(static_cast<MethodDef*>(tree), place); break;
    case VARDEF: {
        auto* def = static_cast<VarDef*>(tree);
        if (def->init != nullptr) def->init = translateExpr(def->init, place);
        break;
    }
    case BLOCK: {
        auto* block = static_cast<Block*>(tree);
        block->stats = translateStats(block->stats, place);
        break;
    }
    case EXEC: {
        auto* exec = static_cast<Exec*>(tree);
        exec->expr = translateExpr(exec->expr, place);
        break;
    }
    case IF: {
        auto* choice = static_cast<Conditional*>(tree);
        choice->cond = translateExpr(choice->cond, place);
        choice->thenpart = translateSingleStat(choice->thenpart, place);
        choice->elsepart = translateSingleStat(choice->elsepart, place);
        break;
    }
    case WHILELOOP: {
        auto* loop = static_cast<WhileLoop*>(tree);
        loop->cond = translateExpr(loop->cond, place);
        loop->body = translateSingleStat(loop->body, place);
        break;
    }
    case DOLOOP: {
        auto* loop = static_cast<DoLoop*>(tree);
        loop->body = translateSingleStat(loop->body, place);
        loop->cond = translateExpr(loop->cond, place);
        break;
    }
    case FORLOOP: {
        auto* loop = static_cast<ForLoop*>(tree);
        loop->init = translateStats(loop->init, place);
        if (loop->cond != nullptr) loop->cond = translateExpr(loop->cond, place);
        loop->step = translateStats(loop->step, place);
        loop->body = translateSingleStat(loop->body, place);
        break;
    }
    case LABELLED: {
        auto* labelled = static_cast<Labelled*>(tree);
        labelled->body = translateSingleStat(labelled->body, place);
        break;
    }
    case SWITCH: {
        auto* choice = static_cast<Switch*>(tree);
        choice->selector = translateExpr(choice->selector, place);
        choice->cases = translateStats(choice->cases, place);
        break;
    }
    case CASE: {
        // The label is a constant, but the use of a variable in it counts.
        auto* branch = static_cast<Case*>(tree);
        if (branch->pat != nullptr) branch->pat = translateExpr(branch->pat, place);
        branch->stats = translateStats(branch->stats, place);
        break;
    }
    case TRY: translateTry(static_cast<Try*>(tree), place); break;
    case SYNCHRONIZED: {
        auto* guarded = static_cast<Synchronized*>(tree);
        guarded->lock = translateExpr(guarded->lock, place);
        translateTry(guarded, place);
        break;
    }
    case CATCH: {
        auto* clause = static_cast<MethodDef*>(tree);
        clause->body->stats = translateStats(clause->body->stats, place);
        break;
    }
    case RETURN: {
        auto* jump = static_cast<Return*>(tree);
        if (jump->expr != nullptr) jump->expr = translateExpr(jump->expr, place);
        break;
    }
    case THROW: {
        auto* jump = static_cast<Throw*>(tree);
        jump->expr = translateExpr(jump->expr, place);
        break;
    }
    case BREAK:
    case CONTINUE: break;
    default: return translateExpr(tree, place); // of a clause of a `for`
    }
    return tree;
}

void Lowering::translateTry(Try* tree, Place* place) {
    tree->body = translateSingleStat(tree->body, place);
    tree->catchers = translateStats(tree->catchers, place);
    tree->finalizer = translateSingleStat(tree->finalizer, place);
}

// ---- expressions

void Lowering::translateExprs(Trees exprs, Place* place) {
    for (Tree*& expr : exprs) expr = translateExpr(expr, place);
}

Tree* Lowering::translateExpr(Tree* tree, Place* place) {
    int tag = tree->tag;
    if (tag >= OR_OR && tag <= MOD) {
        auto* binary = static_cast<Binary*>(tree);
        binary->lhs = translateExpr(binary->lhs, place);
        binary->rhs = translateExpr(binary->rhs, place);
        return tree;
    }
    if (tag >= ASSIGN && tag <= MOD_ASG) return translateAssignment(static_cast<Assignop*>(tree), place);
    if (tag >= POS && tag <= NONNULL) return translateUnary(static_cast<Unary*>(tree), place);
    switch (tag) {
    case IDENT: return translateIdent(static_cast<Ident*>(tree), place, POS, nullptr);
    case SELECT: return translateSelect(static_cast<Select*>(tree), place, POS, nullptr);
    case THIS:
    case SUPER: return translateSelf(static_cast<Self*>(tree), place);
    case APPLY: return translateApply(static_cast<Apply*>(tree), place);
    case NEWCLASS: return translateNewClass(static_cast<NewClass*>(tree), place);
    case CONDITIONAL: {
        auto* choice = static_cast<Conditional*>(tree);
        choice->cond = translateExpr(choice->cond, place);
        choice->thenpart = translateExpr(choice->thenpart, place);
        choice->elsepart = translateExpr(choice->elsepart, place);
        break;
    }
    case INDEXED: {
        auto* element = static_cast<Indexed*>(tree);
        element->indexed = translateExpr(element->indexed, place);
        element->index = translateExpr(element->index, place);
        break;
    }
    case NEWARRAY: translateExprs(static_cast<NewArray*>(tree)->dims, place); break;
    case ARRAYINIT: translateExprs(static_cast<ArrayInit*>(tree)->elems, place); break;
    case TYPETEST:
    case TYPECAST: {
        auto* operation = static_cast<TypeOp*>(tree);
        operation->expr = translateExpr(operation->expr, place);
        break;
    }
    default:
        if (tag < INT_LITERAL || tag > STRING_LITERAL) throw InternalError("transExpr " + std::to_string(tag));
    }
    return tree;
}

// An assignment to a variable that only an access method reaches becomes a call of that method.

namespace {

bool isQuiet(const Tree* tree);

bool isQuietBinary(const Binary* tree) {
    bool joinsStrings = tree->operator_->opcode == vop::STRING_CONCAT; // which may call toString
    return !joinsStrings && isQuiet(tree->lhs) && isQuiet(tree->rhs);
}

/// Whether the evaluation of the expression changes no variable, as far as its form tells.
bool isQuiet(const Tree* tree) {
    if (tree->type == nullptr || tree->type->isConstant()) return true; // folded
    if (tree->tag >= OR_OR && tree->tag <= MOD) return isQuietBinary(static_cast<const Binary*>(tree));
    if (tree->tag >= POS && tree->tag < PREINC) return isQuiet(static_cast<const Unary*>(tree)->arg);
    switch (tree->tag) {
    case IDENT:
    case THIS:
    case SUPER: return true;
    case SELECT: return isQuiet(static_cast<const Select*>(tree)->selected);
    case TYPECAST:
    case TYPETEST: return isQuiet(static_cast<const TypeOp*>(tree)->expr);
    case INDEXED: {
        const auto* element = static_cast<const Indexed*>(tree);
        return isQuiet(element->indexed) && isQuiet(element->index);
    }
    case CONDITIONAL: {
        const auto* choice = static_cast<const Conditional*>(tree);
        return isQuiet(choice->cond) && isQuiet(choice->thenpart) && isQuiet(choice->elsepart);
    }
    default: return false;
    }
}

} // namespace

/// An access method does all of a compound assignment, unless the right side may change the field in the meantime: the
/// language takes the field's value first.
Tree* Lowering::translateAssignment(Assignop* tree, Place* place) {
    bool inSteps = tree->tag != ASSIGN && !isQuiet(tree->rhs);
    tree->lhs = translateVariable(tree->lhs, place, inSteps ? +POS : tree->tag, tree->rhs->type);
    tree->rhs = translateExpr(tree->rhs, place);
    if (tree->lhs->tag != APPLY) return tree;
    auto* call = static_cast<Apply*>(tree->lhs);
    if (inSteps) {
        auto* getter = static_cast<Select*>(call->meth);
        tree->setter = setterBeside(getter->sym);
        tree->lhs = getter;
        getter->type = call->type;
        return tree;
    }
    call->args = make_.list({tree->rhs});
    return call;
}

Tree* Lowering::translateUnary(Unary* tree, Place* place) {
    if (tree->tag < PREINC || tree->tag == NONNULL) {
        tree->arg = translateExpr(tree->arg, place);
        return tree;
    }
    tree->arg = translateVariable(tree->arg, place, tree->tag, nullptr);
    return tree->arg->tag == APPLY ? tree->arg : tree;
}

} // namespace tarn
