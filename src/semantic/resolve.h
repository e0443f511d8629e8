#pragma once

#include "semantic/env.h"
#include "semantic/symbol.h"

namespace tarn {

/// What a name denotes at a place. The search functions return a symbol and never report: failure is a symbol too, a
/// ResolveError with a kind from AMBIGUOUS up, and a search that tries several places keeps the failure of the lowest
/// kind. `accessSym` at the end of a search reports what the failure stands for and gives `errSymbol` in its place.
///
/// `args` are the argument types of a call, null where no call is meant. `env` may be null where the comment says so.
namespace resolve {

Symbol* findField(Env* env, ClassSymbol* c, Name* name);
Symbol* findVar(Env* env, Name* name);
Symbol* findMethod(Env* env, ClassSymbol* site, Name* name, Types args);
Symbol* findFun(Env* env, Name* name, Types args);
Symbol* findMemberType(Env* env, ClassSymbol* c, Name* name);
Symbol* findType(Env* env, Name* name);
/// A class by flat name, with access check.
Symbol* loadClass(Env* env, Name* flatName);
Symbol* enterPackage(Env* env, Name* name);
/// A simple name; tries the kinds in the order variable, method, class, package. Reports.
Symbol* findIdent(int pos, Name* name, Env* env, const Types* args, int kinds);
/// A member of a class. Does not report.
Symbol* findIdentInType(ClassSymbol* site, Name* name, const Types* args, int kinds, Env* env);
/// A member of a package. Does not report, but for a package and a class of one name.
Symbol* findIdentInPackage(int pos, ClassSymbol* package, Name* name, int kinds, Env* env);

/// The operator of that name for the operands (`right` null for a unary one), or after a report `errSymbol`. `treeTag`
/// is the tag of the node, by which operators of primitive types are remembered.
Symbol* findOperator(int pos, int treeTag, Env* env, Type* left, Type* right);

/// The symbol, or after its report `errSymbol`.
Symbol* accessSym(Symbol* sym, int pos, ClassSymbol* site, const Types* args, Name* name);
Symbol* accessName(Symbol* sym, int pos, Name* name);
/// A constructor of `site` itself. Reports.
Symbol* resolveConstructor(int pos, ClassSymbol* site, Env* env, Types args);
Symbol* resolvePackage(int pos, Name* name, Env* env);
/// Members that generated code needs, without an environment and a position.
Symbol* resolveField(ClassSymbol* site, Name* name);
Symbol* resolveMethod(ClassSymbol* site, Name* name, Type* argType);

/// Whether the member is accessible through `site`; `env` may be null (nothing but public is, then).
bool isAccessible(Env* env, ClassSymbol* site, Symbol* sym);
bool isAccessibleClass(Env* env, ClassSymbol* c);
/// The first symbol of that name and kind among the members, inherited ones too; or null.
Symbol* lookupKind(ClassSymbol* c, int kind, Name* name);
/// Whether the class itself has the member, or inherits it: a private one is that of its own class alone.
inline bool isMemberOf(const ClassSymbol* c, const Symbol* sym) {
    return !sym->isPrivate() || sym->owner == c;
}
/// Of the classes around the place the innermost that has the member, by whose instance a simple name reaches it; null
/// if there is none.
ClassSymbol* siteOf(Env* env, const Symbol* member);
/// The class of an environment's enclosing class; the predefined class at top level.
ClassSymbol* classOf(Env* env);

} // namespace resolve
} // namespace tarn
