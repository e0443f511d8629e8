#include "codegen/gen.h"

#include "driver/reporter.h"
#include "semantic/context.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_statements.h"

namespace tarn {

void codegen::genStatements(Trees statements) {
    for (Tree* statement : statements) {
        statement->genDrop();
        releaseItems();
    }
}

Item* Block::gen() {
    int first = emitter().code->nextVar;
    codegen::genStatements(stats);
    emitter().endScopes(first);
    return items::voidItem();
}

Item* Exec::gen() {
    emitter().statBegin(pos);
    expr->genDrop();
    return items::voidItem();
}

namespace {

/// Lets the make engine see the type of a local variable, of which the code may keep no trace.
void recordType(Type* type) {
    if (!context().options.trackDependencies) return;
    if (type->tag == typetag::CLASS || type->tag == typetag::ARRAY || type->tag == typetag::METHOD)
        emitter().poolClass(type);
}

} // namespace

Item* VarDef::gen() {
    VarSymbol* v = variable();
    if (v->owner->kind == TYP) return items::voidItem(); // a field; its initializer is code elsewhere
    Emitter& out = emitter();
    v->adr = out.newLocal(v->type);
    out.addVarChecked(v);
    out.declared(v->adr);
    if (init != nullptr && !v->type->isConstant()) {
        out.statBegin(pos);
        recordType(v->type);
        codegen::genLoadAs(init, v->type);
        items::local(pos, v->adr)->store(v->type);
    }
    return items::voidItem();
}

Item* Labelled::gen() {
    exit = cont = nullptr;
    body->genDrop();
    emitter().resolve(exit);
    return items::voidItem();
}

// Loops test at the top and jump back at the bottom. One pass over the body is enough for the flow state: on entry more
// variables are unassigned than on any later round, and a final variable from outside cannot be assigned in a loop.

namespace {

/// The statements of a `for` clause.
void genClause(Trees statements) {
    if (!statements.empty() && emitter().alive) emitter().statBegin(statements.front()->pos);
    codegen::genStatements(statements);
}

/// What is left of a loop that tests at the top, when its condition was generated.
void genRounds(LoopTree* loop, CondItem* c, Tree* body, Trees step, int start) {
    Emitter& out = emitter();
    Chain* whenFalse = c->jumpFalse();
    if (!c->isFalse()) {
        out.resolve(c->trueJumps);
        body->genDrop();
        out.resolve(loop->cont);
        genClause(step);
        out.resolve(out.branch(ALWAYS), start);
    }
    out.resolve(Emitter::mergeChains(whenFalse, loop->exit));
}

} // namespace

Item* WhileLoop::gen() {
    Emitter& out = emitter();
    exit = cont = nullptr;
    Bits* saved = out.beginLoop();
    out.statBegin(pos);
    int start = out.curPc();
    genRounds(this, codegen::genCondition(cond), body, {}, start);
    out.endLoop(saved);
    return items::voidItem();
}

Item* ForLoop::gen() {
    Emitter& out = emitter();
    exit = cont = nullptr;
    int first = out.code->nextVar;
    genClause(init); // runs once, so it may assign a final variable
    Bits* saved = out.beginLoop();
    for (int i = first; i < out.code->nextVar; i++) out.loopFinals->incl(i);
    int start = out.curPc();
    if (cond != nullptr) out.statBegin(cond->pos);
    genRounds(this, cond != nullptr ? codegen::genCondition(cond) : items::cond(ALWAYS), body, step, start);
    out.endLoop(saved);
    return items::voidItem();
}

Item* DoLoop::gen() {
    Emitter& out = emitter();
    exit = cont = nullptr;
    Bits* saved = out.beginLoop();
    int start = out.curPc();
    body->genDrop();
    out.resolve(cont);
    out.statBegin(cond->pos);
    CondItem* c = codegen::genCondition(cond);
    out.resolve(c->jumpTrue(), start);
    out.resolve(c->falseJumps);
    out.resolve(exit);
    out.endLoop(saved);
    return items::voidItem();
}

// Jumps

void Jump::genFinalizers() {
    struct Walk {
        bool withGaps;
        void innermostFirst(const TryList* list) const {
            if (list == nullptr) return;
            innermostFirst(list->tail);
            list->head->genFinalizerCall();
            if (withGaps) emitter().openGap(list->head);
        }
    };
    Walk{emitter().inSubroutine() && leavesFinalizer()}.innermostFirst(finalizers);
}

bool Jump::leavesFinalizer() const {
    for (const TryList* list = finalizers; list != nullptr; list = list->tail)
        if (list->head->hasFinalizer()) return true;
    return false;
}

Chain* Jump::genLeave() {
    Emitter& out = emitter();
    genFinalizers();
    Chain* jump = out.branch(ALWAYS);
    out.closeGaps();
    if (jump == nullptr) return nullptr;
    for (const TryList* list = finalizers; list != nullptr; list = list->tail)
        if (list->head->hasFinalizer()) out.noteLeaving(list->head, jump);
    return jump;
}

Item* Break::gen() {
    emitter().statBegin(pos);
    auto* left = static_cast<LoopTree*>(target);
    Chain* jump = genLeave();
    left->exit = Emitter::mergeChains(left->exit, jump);
    return items::voidItem();
}

Item* Continue::gen() {
    emitter().statBegin(pos);
    auto* loop = static_cast<LoopTree*>(target);
    Chain* jump = genLeave();
    loop->cont = Emitter::mergeChains(loop->cont, jump);
    return items::voidItem();
}

Item* Return::gen() {
    Emitter& out = emitter();
    out.statBegin(pos);
    method->checkFinals();
    if (expr == nullptr) {
        genFinalizers();
        out.emitop(op::RETURN);
        out.closeGaps();
        return items::voidItem();
    }
    Type* result = method->method()->methodType()->result;
    Item* value = expr->gen()->coerce(expr->type, result);
    if (leavesFinalizer()) {
        value->load(result);
        value = items::local(pos, out.newLocal(result));
        value->store(result);
    }
    genFinalizers();
    value->load(result);
    out.emitop(op::IRETURN + truncate(typeCode(result)));
    out.closeGaps();
    return items::voidItem();
}

Item* Throw::gen() {
    emitter().statBegin(pos);
    expr->genLoad();
    emitter().emitop(op::ATHROW);
    return items::voidItem();
}

} // namespace tarn
