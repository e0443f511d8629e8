#include "codegen/lowering.h"

#include "runtime/failure.h"
#include "semantic/context.h"
#include "semantic/resolve.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

// Access methods. To the virtual machine a private member is its own class's alone, so the other classes of the nest
// reach it by methods of that class: `access$` + a number that the member gets at its first use in the unit + the two
// digits of the operation's tag. They are final, and instance methods for an instance member.
//
// Those of a class and of its superclass could have one name, if the two come from different sources of one package,
// and the one would override the other. So a number gets a leading zero for each step from source to source on the way
// up from the class.

namespace tarn {

namespace {

bool isSameSource(const ClassSymbol* a, const ClassSymbol* b) {
    return a->sourceFile != nullptr && a->sourceFile == b->sourceFile;
}

/// How often the line of superclasses, as far as it lies in the package of `c`, goes over to another source.
std::size_t sourcesAbove(const ClassSymbol* c) {
    std::size_t count = 0;
    for (const ClassSymbol* super = c->superclass; super != nullptr; super = super->superclass) {
        if (super->package() != c->package()) continue;
        if (!isSameSource(super, c)) ++count;
        c = super;
    }
    return count;
}

Name* accessName(const ClassSymbol* host, int number, int op) {
    std::string text = "access$" + std::string(sourcesAbove(host), '0') + std::to_string(number);
    text += static_cast<char>('0' + op / 10);
    text += static_cast<char>('0' + op % 10);
    return Name::fromString(text);
}

bool takesOperand(int op) {
    return op >= treetag::ASSIGN && op <= treetag::MOD_ASG;
}

/// The type of the parameter for a value of type `operand`. If the value fits the field it is the field's, else it has
/// to come as it is: `outerInt += 1.5` is computed in double.
Type* parameterType(const Symbol* field, Type* operand) {
    return operand->isAssignable(field->type) ? field->type : declarableType(operand);
}

} // namespace

Lowering::Accessed& Lowering::accessed(Symbol* member, ClassSymbol* host) {
    for (Accessed& each : accessed_)
        if (each.member == member && each.host == host) return each;
    return accessed_.emplace_back(Accessed{member, host, static_cast<int>(accessed_.size()) + 1, {}});
}

MethodSymbol* Lowering::accessMethod(Symbol* member, ClassSymbol* host, int op, Type* operand) {
    Accessed& entry = accessed(member, host);
    operand = takesOperand(op) ? parameterType(member, operand) : nullptr;
    for (const AccessMethod& each : entry.methods)
        if (each.op == op && each.operand == operand) return each.symbol;
    auto* symbol = context().arena.make<MethodSymbol>();
    Type* type = member->type;
    if (member->kind == VAR) {
        Types operands = operand == nullptr ? Types{} : Types(&operand, 1);
        type = context().methodType(operands, declarableType(member->type), nullptr);
    }
    symbol->init(flag::SYNTHETIC | flag::FINAL | (member->flags & flag::STATIC), MTH,
                 accessName(host, entry.number, op), type, host);
    entry.methods.push_back({op, operand, symbol});
    return symbol;
}

MethodSymbol* Lowering::setterBeside(const Symbol* getter) {
    for (Accessed& each : accessed_)
        for (const AccessMethod& method : each.methods)
            if (method.symbol == getter)
                return accessMethod(each.member, each.host, treetag::ASSIGN, each.member->type);
    throw InternalError("no access method");
}

Tree* Lowering::access(Tree* qualifier, Symbol* member, ClassSymbol* host, int op, Type* operand) {
    if (member->kind == MTH) op = treetag::POS;
    Tree* callee = make_.select(qualifier, accessMethod(member, host, op, operand));
    return member->kind == MTH ? callee : make_.apply(callee, {});
}

namespace {

bool hasConstructor(const ClassSymbol* c, Types types) {
    for (Symbol* entry = c->members->lookup(names().init); entry->scope == c->members; entry = entry->nextEntry())
        if (sameTypes(*entry->sym->type->argTypes(), types)) return true;
    return false;
}

} // namespace

/// A constructor that other classes can call in place of a private one. It is set apart from the constructors of the
/// source by further parameters, of the class itself, for which null is passed.
MethodSymbol* Lowering::accessConstructor(MethodSymbol* constructor) {
    for (const AccessConstructor& each : accessConstructors_)
        if (each.target == constructor) return each.symbol;
    auto* c = static_cast<ClassSymbol*>(constructor->owner);
    MethodType* type = constructor->methodType();
    std::vector<Type*> types(type->args.begin(), type->args.end());
    do types.push_back(c->type);
    while (hasConstructor(c, types));
    auto* symbol = context().arena.make<MethodSymbol>();
    symbol->init(flag::SYNTHETIC, MTH, names().init, context().methodType(types, type->result, type->thrownTypes), c);
    c->members->enter(symbol); // at once, so that the next one differs from it
    accessConstructors_.push_back({constructor, symbol});
    return symbol;
}

/// The arguments of a call of `constructor` made those of a call of the access constructor for it.
Trees Lowering::accessArguments(Trees args, const Symbol* accessConstructor) {
    std::vector<Tree*> nulls(accessConstructor->type->argTypes()->size() - args.size(), make_.nullTree());
    return make_.concat(args, nulls);
}

// ---- definitions

void Lowering::addAccessMethods(ClassDef* tree) {
    ClassSymbol* c = tree->classSymbol();
    std::vector<Accessed*> own;
    for (Accessed& each : accessed_)
        if (each.host == c) own.push_back(&each);
    // The members of the class come first, the last of them in front; then those that it inherits.
    std::unordered_map<const Symbol*, std::size_t> ranks;
    if (own.size() > 1)
        for (const Symbol* entry = c->members->elems; entry != nullptr; entry = entry->sibling)
            ranks.emplace(entry->sym, ranks.size());
    auto rank = [&](const Accessed* each) {
        auto found = ranks.find(each->member);
        return found == ranks.end() ? ranks.size() : found->second;
    };
    std::stable_sort(own.begin(), own.end(), [&](const Accessed* a, const Accessed* b) { return rank(a) < rank(b); });
    std::vector<Tree*> defs;
    for (Accessed* each : own) {
        std::stable_sort(each->methods.begin(), each->methods.end(),
                         [](const AccessMethod& a, const AccessMethod& b) { return a.op < b.op; });
        for (const AccessMethod& method : each->methods) defs.push_back(makeAccessMethod(*each, method, tree));
    }
    for (const AccessConstructor& each : accessConstructors_)
        if (each.symbol->owner == c) defs.push_back(makeAccessConstructor(each.symbol, each.target, tree));
    if (!defs.empty()) tree->body->stats = make_.concat(tree->body->stats, defs);
}

Tree* Lowering::makeAccessMethod(const Accessed& accessed, const AccessMethod& method, ClassDef* tree) {
    enterMember(tree->classSymbol(), method.symbol);
    Trees params = make_.paramDefs(*method.symbol->type->argTypes(), method.symbol);
    MethodDef* def = make_.methodDef(method.symbol, params, tree->env);
    Tree* member = make_.ident(accessed.member);
    Trees args = make_.idents(params);
    Type* type = accessed.member->type;
    Tree* result = nullptr;
    if (accessed.member->kind == MTH) {
        result = make_.exprOrReturn(def, make_.apply(member, args));
    } else if (method.op == treetag::POS) {
        result = make_.returnTree(def, member);
    } else if (method.op == treetag::ASSIGN) {
        result = make_.returnTree(def, make_.assign(member, args.front()));
    } else {
        Symbol* op = resolve::findOperator(make_.pos, method.op, tree->env, type, method.operand);
        require(op->kind == MTH, "operator of an access method");
        auto* found = static_cast<OperatorSymbol*>(op);
        Tree* operation = takesOperand(method.op) ? make_.assignop(method.op, found, member, args.front())
                                                  : make_.unary(method.op, found, member, type);
        result = make_.returnTree(def, operation);
    }
    def->body = make_.block(make_.list({result}));
    return def;
}

Tree* Lowering::makeAccessConstructor(MethodSymbol* made, MethodSymbol* target, ClassDef* tree) {
    Trees params = make_.paramDefs(*made->type->argTypes(), made);
    MethodDef* def = make_.methodDef(made, params, tree->env);
    Trees args = make_.idents(params.first(target->type->argTypes()->size()));
    auto* callee = make_.arena().make<Self>(make_.pos, treetag::THIS, nullptr);
    callee->sym = target;
    callee->type = target->type;
    def->selfCall = target;
    def->body = make_.block(make_.list({make_.exec(make_.apply(callee, args))}));
    return def;
}

} // namespace tarn
