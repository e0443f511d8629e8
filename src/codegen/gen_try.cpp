#include "codegen/gen.h"

#include "semantic/context.h"
#include "syntax/tree_declarations.h"
#include "syntax/tree_statements.h"

// A finally block is one subroutine, which every way out of the statement calls by `jsr`: the end of the body and of
// each catch clause, the jumps that leave the statement, and a handler that catches what is left, calls the subroutine
// and throws it on. In the code the parts follow each other as body, catch clauses, that handler, subroutine. The
// handler's range ends where it begins itself, so neither it nor the subroutine is ever protected by it, and a finally
// block that throws does not run twice.
//
// For the flow state the calls are jumps to the subroutine's entry, where all callers' states join. What it has
// assigned at its end is assigned behind the statement. If it cannot end, nothing comes back from the calls: the jumps
// behind them are cut off, so that what they lead to counts as reached only if something else leads there too.

namespace tarn {

Item* Try::gen() {
    genTry();
    return items::voidItem();
}

void Try::genTry() {
    Emitter& out = emitter();
    jsrChain = nullptr;
    reachable = out.alive;
    startUnset = out.dupUnset();
    startPc = out.curPc();
    body->genDrop();
    endUnset = out.dupUnset();
    endSet = out.dupSet();
    endPc = out.curPc();
    genFinalizerCall();
    Chain* exit = genCatchers(out.branch(ALWAYS));
    if (!hasFinalizer()) {
        out.resolve(exit);
    } else if (reachable) {
        genCatchAll();
        genSubroutine(exit);
    } else {
        genFinalizerBody();
    }
}

/// The catch clauses; gives `exit` with the jumps at their ends.
Chain* Try::genCatchers(Chain* exit) {
    Emitter& out = emitter();
    for (Tree* catcher : catchers) {
        static_cast<MethodDef*>(catcher)->genCatch(this);
        endSet->orSet(out.maybeSet);
        genFinalizerCall();
        exit = Emitter::mergeChains(exit, out.branch(ALWAYS));
    }
    return exit;
}

void MethodDef::genCatch(const Try* statement) {
    Emitter& out = emitter();
    VarSymbol* v = static_cast<VarDef*>(params.front())->variable();
    if (statement->reachable) {
        out.addCatch(statement, statement->startPc, statement->endPc, out.curPc(), out.poolClass(v->type));
        out.entryPoint(1, *statement->startUnset, *statement->endSet);
    }
    int first = out.code->nextVar;
    v->adr = out.newLocal(v->type);
    out.addVarChecked(v);
    items::local(pos, v->adr)->store(v->type);
    body->genDrop();
    out.endScopes(first);
}

void Try::genCatchAll() {
    Emitter& out = emitter();
    // The temporaries of this handler and of the subroutine share no register with anything that is protected.
    out.resetRegisters();
    out.entryPoint(1, *startUnset, *endSet);
    out.addCatch(this, startPc, out.curPc(), out.curPc(), 0);
    int thrown = out.newLocal(context().objectType);
    items::local(pos, thrown)->store(context().throwableType);
    genFinalizerCall();
    items::local(pos, thrown)->load(context().throwableType);
    out.emitop(op::ATHROW);
}

void Try::genSubroutine(Chain* exit) {
    Emitter& out = emitter();
    out.entryPoint(1);
    out.resolve(jsrChain);
    int returnAddress = out.newLocal(context().objectType);
    items::local(pos, returnAddress)->store(context().objectType);
    ++out.subroutineDepth;
    genFinalizerBody();
    --out.subroutineDepth;
    const Bits* unsetAfter = out.dupUnset();
    const Bits* setAfter = out.dupSet();
    if (!out.alive) {
        out.cutLeavingJumps(this);
        return;
    }
    out.emitop1w(op::RET, out.registerOf(returnAddress));
    out.markDead();
    out.resolve(exit);
    out.restoreUnset(*unsetAfter);
    if (out.alive) out.maybeSet.orSet(*setAfter);
}

void Try::genFinalizerCall() {
    Emitter& out = emitter();
    if (!hasFinalizer() || !out.alive) return;
    Chain* call = out.newChain(1); // the return address
    call->next = jsrChain;
    jsrChain = call;
    out.emitJump(call, op::JSR);
}

void Try::genFinalizerBody() {
    finalizer->genDrop();
}

Item* Synchronized::gen() {
    Emitter& out = emitter();
    out.statBegin(pos);
    lockVar = out.newLocal(lock->type);
    Item* v = items::local(pos, lockVar);
    lock->genLoad();
    v->store(lock->type);
    v->load(lock->type);
    out.emitop(op::MONITORENTER);
    genTry();
    if (out.alive) out.entryPoint(out.stackSize, *endUnset, *endSet);
    return items::voidItem();
}

void Synchronized::genFinalizerBody() {
    items::local(pos, lockVar)->load(lock->type);
    emitter().emitop(op::MONITOREXIT);
}

} // namespace tarn
