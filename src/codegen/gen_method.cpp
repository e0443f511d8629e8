#include "codegen/gen.h"

#include "codegen/hidden_fields.h"
#include "driver/reporter.h"
#include "semantic/context.h"
#include "semantic/env.h"
#include "semantic/scope.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_expressions.h"
#include "syntax/tree_statements.h"

#include <algorithm>

namespace tarn {

namespace {

/// Whether the statement stores a captured variable or the enclosing instance, as lowered constructors do first of all.
bool storesHiddenField(const Tree* statement) {
    if (statement->tag != treetag::EXEC) return false;
    const Tree* expr = static_cast<const Exec*>(statement)->expr;
    if (expr->tag != treetag::ASSIGN) return false;
    const Tree* target = static_cast<const Assignop*>(expr)->lhs;
    if (target->tag != treetag::SELECT && target->tag != treetag::IDENT) return false;
    return hidden::isHidden(static_cast<const NamedTree*>(target)->sym);
}

bool callsSuperConstructor(const MethodDef* method) {
    return method->selfCall != nullptr && method->selfCall->owner != method->sym->owner;
}

/// Whether the method gives the fields their first values.
bool isInitializer(const MethodDef* method) {
    return method->name == names().clinit || callsSuperConstructor(method);
}

} // namespace

void MethodDef::normalizeMethod(Tree* initializers) {
    if (body == nullptr || body->stats.empty() || !callsSuperConstructor(this)) return;
    Trees old = body->stats;
    std::size_t first = 0;
    auto passStores = [&] {
        while (first < old.size() && storesHiddenField(old[first])) ++first;
    };
    passStores();
    ++first; // the call of the constructor
    passStores();
    Trees stats = env->toplevel->arena.makeArray<Tree*>(old.size() + 1);
    auto end = std::copy_n(old.begin(), first, stats.begin());
    *end++ = initializers;
    std::copy(old.begin() + static_cast<std::ptrdiff_t>(first), old.end(), end);
    body->stats = stats;
}

namespace {

void genParameters(const MethodDef* method) {
    Emitter& out = emitter();
    if (!method->sym->isStatic()) out.newThis();
    for (Tree* parameter : method->params) {
        VarSymbol* v = static_cast<VarDef*>(parameter)->variable();
        v->adr = out.newLocal(v->type);
        out.addVarChecked(v);
        out.assigned(v->adr);
    }
}

/// Makes the final fields that this method has to assign take part in the flow analysis.
void enterBlankFinals(const MethodDef* method) {
    Emitter& out = emitter();
    const auto* c = static_cast<const ClassSymbol*>(method->sym->owner);
    for (Symbol* member = c->members->elems; member != nullptr; member = member->sibling) {
        if (member->kind != VAR || !member->isFinal() || member->type->isConstant()) continue;
        if (member->isStatic() == method->sym->isStatic())
            out.blankFinals.push_back(static_cast<VarSymbol*>(member->sym));
    }
    std::reverse(out.blankFinals.begin(), out.blankFinals.end()); // into the order of declaration
    for (VarSymbol* field : out.blankFinals) {
        out.newVar(field);
        out.declared(field->adr);
    }
}

/// Reports a body that does not fit a class file. All else of such a class is still checked, but it gets no file.
void checkLimits(const MethodDef* method) {
    const Code& code = *method->method()->code;
    const MethodType* type = method->method()->methodType();
    int parameterWords = widthOf(type->args) + (method->sym->isStatic() ? 0 : 1);
    constexpr int limit = 0xffff;
    const char* excess = nullptr;
    if (parameterWords > 255) excess = "255 words of parameters";
    if (code.varCount > limit) excess = "65535 ranges of local variables";
    if (code.catchCount > limit) excess = "65535 exception handlers";
    if (code.maxStack > limit) excess = "65535 words on the operand stack";
    if (code.maxLocals > limit) excess = "65535 words of local variables";
    if (code.cp > limit) excess = "65535 bytes of code";
    if (excess != nullptr) reportError(method->pos, messages::tooLarge, method->sym, excess);
}

} // namespace

void MethodDef::checkFinals() {
    for (const VarSymbol* field : emitter().blankFinals) emitter().checkAssigned(body->endPos, field->adr);
}

void MethodDef::genMethod(bool fatcode) {
    Emitter& out = emitter();
    out.startCode(method(), fatcode);
    out.entryPoint(0, Bits(), Bits());
    genParameters(this);
    if (isInitializer(this)) enterBlankFinals(this);
    codegen::genStatements(body->stats);
    checkFinals();
    for (VarSymbol* field : out.blankFinals) field->adr = -1;
    out.blankFinals.clear();
    if (out.alive) {
        if (method()->methodType()->result->tag != typetag::VOID) {
            reportError(body->endPos, messages::methodReturnsNoValue);
            out.markDead();
        } else {
            out.statBegin(body->endPos);
            out.emitop(op::RETURN);
        }
    }
    out.endScopes(0);
    if (!fatcode && out.code->fatcode) {
        ScopedSuppress reportedAlready;
        genMethod(true);
    }
}

namespace {

/// The constructor of an expression's class is ordinary code.
class ScopedConstructor {
public:
    explicit ScopedConstructor(bool isConstructor) : evaluating_(context().options.evaluating) {
        if (isConstructor) context().options.evaluating = false;
    }
    ~ScopedConstructor() { context().options.evaluating = evaluating_; }
    ScopedConstructor(const ScopedConstructor&) = delete;
    ScopedConstructor& operator=(const ScopedConstructor&) = delete;

private:
    bool evaluating_;
};

} // namespace

Item* MethodDef::gen() {
    ScopedConstructor guard(name == names().init);
    if (body != nullptr) {
        genMethod(false);
        checkLimits(this);
    }
    return items::voidItem();
}

} // namespace tarn
