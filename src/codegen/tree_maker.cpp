#include "codegen/tree_maker.h"

#include "semantic/context.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tarn {

int TreeMaker::setPos(int newPos) {
    return std::exchange(pos, newPos);
}

ClassSymbol* TreeMaker::setCurrentClass(ClassSymbol* c) {
    return std::exchange(currentClass, c);
}

// ---- expressions

Tree* TreeMaker::ident(Symbol* sym) {
    return arena_->make<Ident>(pos, sym->name, sym);
}

Tree* TreeMaker::select(Tree* qualifier, Symbol* sym) {
    auto* tree = arena_->make<Select>(pos, sym->name, qualifier);
    tree->sym = sym;
    tree->type = sym->type;
    return tree;
}

Tree* TreeMaker::thisTree() {
    auto* tree = arena_->make<Self>(pos, treetag::THIS, nullptr);
    tree->type = currentClass->type;
    return tree;
}

Tree* TreeMaker::nullTree() {
    return ident(context().nullSym);
}

Tree* TreeMaker::apply(Tree* callee, Trees args) {
    return arena_->make<Apply>(pos, callee, args, callee->type->resType());
}

Tree* TreeMaker::assign(Tree* lhs, Tree* rhs) {
    return arena_->make<Assignop>(pos, treetag::ASSIGN, lhs, rhs, lhs->type);
}

Tree* TreeMaker::assignop(int tag, OperatorSymbol* op, Tree* lhs, Tree* rhs) {
    auto* tree = arena_->make<Assignop>(pos, tag, lhs, rhs, lhs->type);
    tree->operator_ = op;
    return tree;
}

Tree* TreeMaker::unary(int tag, OperatorSymbol* op, Tree* arg, Type* type) {
    auto* tree = arena_->make<Unary>(pos, tag, arg);
    tree->operator_ = op;
    tree->type = type;
    return tree;
}

// ---- statements

Tree* TreeMaker::exec(Tree* expr) {
    return arena_->make<Exec>(pos, expr, expr->type);
}

Tree* TreeMaker::returnTree(MethodDef* method, Tree* expr) {
    auto* tree = arena_->make<Return>(pos, expr, method->sym->type->resType());
    tree->method = method;
    return tree;
}

Tree* TreeMaker::exprOrReturn(MethodDef* method, Tree* call) {
    return call->type->tag == typetag::VOID ? exec(call) : returnTree(method, call);
}

Block* TreeMaker::block(Trees stats) {
    return arena_->make<Block>(pos, pos, 0U, stats);
}

// ---- definitions

VarSymbol* TreeMaker::variable(std::uint32_t flags, Name* name, Type* type, Symbol* owner, int pos) {
    auto* v = context().arena.make<VarSymbol>();
    v->init(flags, VAR, name, type, owner);
    v->pos = pos;
    v->adr = -1;
    return v;
}

VarDef* TreeMaker::varDef(VarSymbol* variable) {
    auto* def = arena_->make<VarDef>(pos, variable->name, variable->flags, typeTree(variable->type), nullptr);
    def->sym = variable;
    def->type = variable->type;
    return def;
}

Name* TreeMaker::numbered(const char* prefix, std::size_t number) {
    return Name::fromBytes(prefix + std::to_string(number));
}

Trees TreeMaker::paramDefs(Types types, MethodSymbol* method) {
    Trees defs = arena_->makeArray<Tree*>(types.size());
    for (std::size_t i = 0; i < types.size(); ++i)
        defs[i] = varDef(variable(flag::PARAMETER, numbered("x$", i), types[i], method, pos));
    return defs;
}

Trees TreeMaker::idents(Trees varDefs) {
    Trees trees = arena_->makeArray<Tree*>(varDefs.size());
    std::transform(varDefs.begin(), varDefs.end(), trees.begin(),
                   [this](Tree* def) { return ident(static_cast<VarDef*>(def)->sym); });
    return trees;
}

MethodDef* TreeMaker::methodDef(MethodSymbol* method, Trees params, Env* classEnv) {
    Type* result = method->type->resType();
    Tree* restype = method->isConstructor() ? nullptr : typeTree(result);
    auto* def = arena_->make<MethodDef>(*arena_, pos, treetag::METHODDEF, method->name, method->flags, restype, params,
                                        knownTypes(*arena_, pos, method->type->thrown()), block({}));
    def->sym = method;
    def->type = method->type;
    def->env = classEnv;
    return def;
}

Tree* TreeMaker::typeTree(Type* type) {
    return arena_->make<KnownType>(pos, type);
}

// ---- lists

Trees TreeMaker::list(std::initializer_list<Tree*> trees) {
    return arena_->copyArray<Tree*>(std::span<Tree* const>(trees.begin(), trees.size()));
}

Trees TreeMaker::concat(std::span<Tree* const> front, std::span<Tree* const> back) {
    Trees all = arena_->makeArray<Tree*>(front.size() + back.size());
    std::copy(back.begin(), back.end(), std::copy(front.begin(), front.end(), all.begin()));
    return all;
}

} // namespace tarn
