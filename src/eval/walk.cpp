#include "eval/tree_search.h"
#include "syntax/position.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <ranges>

namespace tarn::eval {

namespace {

bool beginsAfter(const Tree* tree, int line) {
    return lineOf(tree->pos) > line;
}

Env* orElse(Env* own, Env* env) {
    return own != nullptr ? own : env;
}

/// Goes on with the last element that does not begin after the line.
Env* walkList(Trees list, Env* env, int line) {
    for (Tree* tree : list | std::views::reverse)
        if (!beginsAfter(tree, line)) return walk(tree, env, line);
    return env;
}

Env* walkChoice(const Conditional* tree, Env* env, int line) {
    bool inElse = tree->elsepart != nullptr && !beginsAfter(tree->elsepart, line);
    return walk(inElse ? tree->elsepart : tree->thenpart, env, line);
}

Env* walkTry(const Try* tree, Env* env, int line) {
    if (tree->finalizer != nullptr && !beginsAfter(tree->finalizer, line)) return walk(tree->finalizer, env, line);
    if (!tree->catchers.empty() && !beginsAfter(tree->catchers.front(), line))
        return walkList(tree->catchers, env, line);
    return walk(tree->body, env, line);
}

} // namespace

Env* walk(Tree* tree, Env* env, int line) {
    if (tree == nullptr) return nullptr;
    if (beginsAfter(tree, line)) return env;
    switch (tree->tag) {
    case treetag::CONDITIONAL:
    case treetag::IF: return walkChoice(static_cast<Conditional*>(tree), env, line);
    case treetag::DOLOOP: return walk(static_cast<DoLoop*>(tree)->body, env, line);
    case treetag::WHILELOOP: return walk(static_cast<WhileLoop*>(tree)->body, env, line);
    case treetag::FORLOOP: {
        auto* loop = static_cast<ForLoop*>(tree);
        return walk(loop->body, orElse(loop->env, env), line);
    }
    case treetag::LABELLED: return walk(static_cast<Labelled*>(tree)->body, env, line);
    case treetag::CLASSDEF: {
        auto* def = static_cast<ClassDef*>(tree);
        return walk(def->body, orElse(def->env, env), line);
    }
    case treetag::BLOCK: {
        auto* block = static_cast<Block*>(tree);
        return walkList(block->stats, orElse(block->env, env), line);
    }
    case treetag::TRY: return walkTry(static_cast<Try*>(tree), env, line);
    case treetag::CASE: return walkList(static_cast<Case*>(tree)->stats, env, line);
    case treetag::SYNCHRONIZED: return walk(static_cast<Synchronized*>(tree)->body, env, line);
    case treetag::SWITCH: {
        auto* choice = static_cast<Switch*>(tree);
        return walkList(choice->cases, orElse(choice->env, env), line); // what a case declares, the next ones see
    }
    case treetag::TOPLEVEL: return walkList(static_cast<CompilationUnit*>(tree)->defs, env, line);
    case treetag::METHODDEF:
    case treetag::CATCH: {
        auto* method = static_cast<MethodDef*>(tree);
        return walk(method->body, orElse(method->env, env), line);
    }
    default: return env;
    }
}

namespace {

/// The innermost anonymous class around the line; null if there is none.
ClassDef* anonymousAround(const CompilationUnit* unit, int line) {
    for (Tree* tree : unit->anonymousClasses) {
        auto* def = static_cast<ClassDef*>(tree);
        bool isAround = lineOf(def->body->pos) < line && line <= lineOf(def->body->endPos);
        if (isAround && def->env != nullptr) return def;
    }
    return nullptr;
}

} // namespace

Env* envAt(CompilationUnit* unit, int line) {
    Env* env = walk(unit, nullptr, line);
    ClassDef* anonymous = env == nullptr ? nullptr : anonymousAround(unit, line);
    return anonymous == nullptr ? env : walk(anonymous, env, line);
}

} // namespace tarn::eval
