#include "eval/tree_search.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

namespace tarn::eval {

namespace {

/// Whether element `i` may hold the position. The position of a binary operation is that of its operator, so the
/// elements of a list need not stand in order; each holds what lies between it and its neighbours.
bool mayHold(Trees list, std::size_t i, int position) {
    int here = list[i]->pos;
    if (here <= position) {
        if (i + 1 == list.size()) return true;
        int next = list[i + 1]->pos;
        return next > position || here >= next;
    }
    if (i == 0) return true;
    int previous = list[i - 1]->pos;
    return previous < position || here <= previous;
}

Symbol* findIn(Trees list, int position) {
    for (std::size_t i = 0; i < list.size(); i++)
        if (mayHold(list, i, position))
            if (Symbol* found = find(list[i], position)) return found;
    return nullptr;
}

Symbol* findIn(Tree* tree, int position) {
    return find(tree, position);
}

/// What the first of the children gives that gives anything.
template <class... Children>
Symbol* firstOf(int position, Children... children) {
    Symbol* found = nullptr;
    ((found = found != nullptr ? found : findIn(children, position)), ...);
    return found;
}

/// `late` are children that stand behind the position of the tree, `early` the one that may begin before it.
template <class... Late>
Symbol* lateThenEarly(const Tree* tree, int position, Tree* early, Late... late) {
    Symbol* found = tree->pos <= position ? firstOf(position, late...) : nullptr;
    return found != nullptr ? found : find(early, position);
}

Symbol* findName(const NamedTree* tree, int position) {
    bool isAt = tree->pos <= position && position <= tree->pos + static_cast<int>(tree->name->length);
    return isAt ? tree->sym : nullptr;
}

/// Whether the block has a closing brace. What the parser puts around a statement alone ends where that begins.
bool hasEnd(const Block* block) {
    return block->stats.empty() || block->endPos != block->stats.back()->pos;
}

/// In a construct whose children all stand behind its position.
Symbol* findInside(Tree* tree, int p) {
    if (tree->pos > p) return nullptr;
    switch (tree->tag) {
    case treetag::NEWCLASS: {
        auto* t = static_cast<NewClass*>(tree);
        return firstOf(p, t->args, t->clazz);
    }
    case treetag::NEWARRAY: {
        auto* t = static_cast<NewArray*>(tree);
        return firstOf(p, t->dims, t->elemtype);
    }
    case treetag::DOLOOP: {
        auto* t = static_cast<DoLoop*>(tree);
        return firstOf(p, t->body, t->cond);
    }
    case treetag::WHILELOOP: {
        auto* t = static_cast<WhileLoop*>(tree);
        return firstOf(p, t->body, t->cond);
    }
    case treetag::ARRAYINIT: return findIn(static_cast<ArrayInit*>(tree)->elems, p);
    case treetag::FORLOOP: {
        auto* t = static_cast<ForLoop*>(tree);
        return firstOf(p, t->body, t->step, t->cond, t->init);
    }
    case treetag::RETURN: return find(static_cast<Return*>(tree)->expr, p);
    case treetag::THROW: return find(static_cast<Throw*>(tree)->expr, p);
    case treetag::LABELLED: return find(static_cast<Labelled*>(tree)->body, p);
    case treetag::CLASSDEF: {
        auto* t = static_cast<ClassDef*>(tree);
        return firstOf(p, static_cast<Tree*>(t->body), t->implementing, t->extending);
    }
    case treetag::BLOCK: {
        auto* t = static_cast<Block*>(tree);
        return hasEnd(t) && t->endPos < p ? nullptr : findIn(t->stats, p);
    }
    case treetag::TRY: {
        auto* t = static_cast<Try*>(tree);
        return firstOf(p, t->finalizer, t->catchers, t->body);
    }
    case treetag::CASE: {
        auto* t = static_cast<Case*>(tree);
        return firstOf(p, t->stats, t->pat);
    }
    case treetag::SYNCHRONIZED: {
        auto* t = static_cast<Synchronized*>(tree);
        return firstOf(p, t->body, t->lock);
    }
    case treetag::SWITCH: {
        auto* t = static_cast<Switch*>(tree);
        return firstOf(p, t->cases, t->selector);
    }
    case treetag::EXEC: return find(static_cast<Exec*>(tree)->expr, p);
    case treetag::METHODDEF:
    case treetag::CATCH: {
        auto* t = static_cast<MethodDef*>(tree);
        return firstOf(p, static_cast<Tree*>(t->body), t->thrown, t->params, t->restype);
    }
    default: return nullptr;
    }
}

bool isOneOf(int tag, int first, int last) {
    return tag >= first && tag <= last;
}

} // namespace

Symbol* find(Tree* tree, int p) {
    if (tree == nullptr) return nullptr;
    if (isOneOf(tree->tag, treetag::POS, treetag::POSTDEC)) return find(static_cast<Unary*>(tree)->arg, p);
    if (isOneOf(tree->tag, treetag::OR_OR, treetag::MOD)) {
        auto* t = static_cast<Binary*>(tree);
        return firstOf(p, t->rhs, t->lhs); // its position is that of an operator behind, if that binds tighter
    }
    if (isOneOf(tree->tag, treetag::ASSIGN, treetag::MOD_ASG)) {
        auto* t = static_cast<Assignop*>(tree);
        return lateThenEarly(t, p, t->lhs, t->rhs);
    }
    switch (tree->tag) {
    case treetag::IDENT: return findName(static_cast<Ident*>(tree), p);
    case treetag::SELECT: {
        auto* t = static_cast<Select*>(tree);
        Symbol* found = findName(t, p);
        return found != nullptr ? found : find(t->selected, p);
    }
    case treetag::VARDEF: {
        auto* t = static_cast<VarDef*>(tree);
        return firstOf(p, t->init, t->vartype);
    }
    case treetag::CONDITIONAL:
    case treetag::IF: {
        auto* t = static_cast<Conditional*>(tree);
        return lateThenEarly(t, p, t->cond, t->elsepart, t->thenpart);
    }
    case treetag::APPLY: {
        auto* t = static_cast<Apply*>(tree);
        return lateThenEarly(t, p, t->meth, t->args);
    }
    case treetag::INDEXED: {
        auto* t = static_cast<Indexed*>(tree);
        return lateThenEarly(t, p, t->indexed, t->index);
    }
    case treetag::TYPEARRAY: return find(static_cast<TypeArray*>(tree)->elemtype, p);
    case treetag::TYPETEST:
    case treetag::TYPECAST: {
        auto* t = static_cast<TypeOp*>(tree);
        return firstOf(p, t->clazz, t->expr);
    }
    case treetag::TOPLEVEL: return findIn(static_cast<CompilationUnit*>(tree)->defs, p);
    default: return findInside(tree, p);
    }
}

} // namespace tarn::eval
