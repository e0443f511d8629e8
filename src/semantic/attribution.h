#pragma once

#include "semantic/env.h"
#include "semantic/symbol.h"
#include "semantic/type.h"

namespace tarn {

class Arena;

/// Checks that attribution shares. Attribution itself is the operation `attr` of the trees: it stores symbol and type
/// of each node and reports what does not fit. The expected kind is a mask of kinds; the expected type is what the
/// result must be assignable to, `anythingType` for no expectation.
namespace attribution {

namespace detail {
// The checks where they are not satisfied at first sight.
bool checkKind(int pos, int found, int expected);
Type* checkAssignable(int pos, Type* found, Type* required);
} // namespace detail

/// Whether `found` has no bits that `expected` has not; reports otherwise.
inline bool checkKind(int pos, int found, int expected) {
    return (found & ~expected) == 0 || detail::checkKind(pos, found, expected);
}
/// `found`, or the error type after a report. A constant keeps its identity through it.
inline Type* checkAssignable(int pos, Type* found, Type* required) {
    bool isPlain = found == required || required->tag == typetag::ANYTHING;
    return isPlain ? found : detail::checkAssignable(pos, found, required);
}
Type* checkNonVoid(int pos, Type* type);
/// The type of a variable, an element or a cast that the tree names; the error type for `void`. The variables of one
/// declaration share the tree, and what is wrong with it is said once.
Type* attrTypeTree(Tree* tree, Env* env);
Type* checkRefType(int pos, Type* type);
/// Reports the first exception of a method type that is neither handled nor unchecked.
void checkThrown(int pos, Type* type, TypeList* handled);
/// The first of `thrown` that is checked and not contained in `handled`; null if none.
Type* unhandled(TypeList* thrown, TypeList* handled);
/// The argument types of a constructor of `c`, with that of the outer instance in front if it takes one. `encl` is the
/// tree of a given outer instance and `outer` its type, both null if none is given; then `encl` becomes `q.this` of the
/// class around that serves. Reports if none does, and if one is given in vain.
Types outerArguments(int pos, Env* env, Tree*& encl, Type* outer, Types args, ClassSymbol* c);
/// The argument types with that of the outer instance in front.
Types withOuter(Arena& arena, Type* outer, Types args);
/// The attributed tree of an instance given by the source, tested for null before anything else is evaluated.
Tree* nonNull(Env* env, Tree* instance);
Symbol* checkNonStaticRef(int pos, Symbol* sym);
void checkAbstractRef(int pos, Symbol* sym);
/// Whether there is no instance of the enclosing class `c` at the place.
bool isStaticContext(Env* env, const ClassSymbol* c);
bool isBlankFinalRefused(Env* env, VarSymbol* v);
void warnDeprecated(int pos, Symbol* sym);
/// Gives a final variable the value of its initializer as its type, if that is constant and the variable's declared
/// type is primitive or String.
void settleConstant(VarSymbol* v, Type* value);
/// Settles the constant value of a final variable whose declaration may not be attributed yet.
void evalConst(VarSymbol* v);
/// The environment of a field's initializer or of an initializer block, with a scope of its own that the caller leaves.
/// `env` is that of the class.
Env* initializerEnv(Env* env, Tree* tree, bool isStatic);
/// Attributes the body of a statement, which can't be a lone declaration.
Type* attrBody(Tree* body, Env* env, Type* pt);

} // namespace attribution
} // namespace tarn
