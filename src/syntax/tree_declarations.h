#pragma once

#include "semantic/symbol.h"
#include "store/store.h"
#include "syntax/tree.h"

#include <utility>

namespace tarn {

class Arena;
class Block;
class Try;

// The nodes of declarations, and of the unit that they stand in.

/// A declaration with modifiers.
class Def : public NamedTree {
public:
    Def(int pos_, int tag_, Name* name_, std::uint32_t flags_) : NamedTree(pos_, tag_, name_), flags(flags_) {}

    std::uint32_t flags;
    Env* env = nullptr; ///< of the declaration, set on entry
};

class VarDef final : public Def {
public:
    VarDef(int pos_, Name* name_, std::uint32_t flags_, Tree* vartype_, Tree* init_)
        : Def(pos_, treetag::VARDEF, name_, flags_), vartype(vartype_), init(init_) {}
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    [[nodiscard]] VarSymbol* variable() const { return static_cast<VarSymbol*>(sym); }

    Tree* vartype;
    Tree* init; ///< null if there is none
};

/// A method, a constructor (`restype` null), or a catch clause (tag CATCH, one parameter, no result type).
class MethodDef final : public Def {
public:
    /// A body that is no block is wrapped into one, which is made in `arena`.
    MethodDef(Arena& arena, int pos_, int tag_, Name* name_, std::uint32_t flags_, Tree* restype_, Trees params_,
              Trees thrown_, Tree* body_);
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    [[nodiscard]] MethodSymbol* method() const { return static_cast<MethodSymbol*>(sym); }

    /// Inserts the initializers of the class behind the super call of a constructor.
    void normalizeMethod(Tree* initializers);
    /// Generates the body, with wide jumps if `fatcode`.
    void genMethod(bool fatcode);
    /// Reports what of the final fields an initializer leaves unassigned here.
    void checkFinals();
    /// Generates a catch clause of that statement.
    void genCatch(const Try* statement);

    Tree* restype;
    Trees params; ///< VarDefs
    Trees thrown;
    Block* body;                      ///< null if there is none
    MethodSymbol* selfCall = nullptr; ///< the constructor that the first statement of a constructor calls

private:
    void attrBody(Env* env, Type* pt);
    void addSelfCall();
    void enterSignature(Env* outer, MethodSymbol* m);
    void enterCatchClause(Env* outer);
};

class ClassDef final : public Def {
public:
    ClassDef(int pos_, Name* name_, std::uint32_t flags_, Tree* extending_, Trees implementing_, Block* body_)
        : Def(pos_, treetag::CLASSDEF, name_, flags_)
        , extending(extending_)
        , implementing(implementing_)
        , body(body_) {}
    void enter(Env* env) override;
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    Item* gen() override;
    void print(int precedence) override;
    [[nodiscard]] ClassSymbol* classSymbol() const { return static_cast<ClassSymbol*>(sym); }

    /// Generates the class and writes its file; `outputDirectory` may be null (beside the source).
    void genClass(const StoreRef& outputDirectory);
    /// Sorts the members: initializers and field initializers become code of constructors and of `<clinit>`.
    void normalizeDefs();
    /// Completion, step by step: settles the supertypes; enters the members.
    void enterClauses(ClassSymbol* c);
    void enterMembers();
    void addDefaultConstructor();
    /// Whether this is the body of a creation; its name is a number then.
    [[nodiscard]] bool isAnonymous() const {
        return name == nullptr || (name->length > 0 && name->byteAt(0) >= '0' && name->byteAt(0) <= '9');
    }
    /// Where the class goes; null if the file cannot be made. Throws IoFailure.
    StoreRef outFile(const StoreRef& outputDirectory);
    /// Puts definitions in front of all others of the body.
    void prepend(Arena& arena, std::span<Tree* const> defs);

    Tree* extending; ///< null if there is no clause
    Trees implementing;
    Block* body;
    /// Of a local or anonymous class: its number among the local (or the anonymous) classes of the unit in the order in
    /// which their bodies begin, from 1 on. 0 for all others and for classes that were not parsed. It gives the class
    /// its name, so that the name does not depend on the order of attribution.
    int number = 0;
    Scope* localScope = nullptr; ///< set between the start of the completion and the end of the attribution
    MethodSymbol* clinit = nullptr;
    bool brokenCycle = false; ///< a cycle through its own clauses was found, and its supertypes replaced
};

class PackageDecl final : public Tree {
public:
    PackageDecl(int pos_, Tree* pid_) : Tree(pos_, treetag::PACKAGEDECL), pid(pid_) {}
    Type* attr(Env* env, int pkind, Type* pt) override;
    void print(int precedence) override;

    Tree* pid;
};

class Import final : public Tree {
public:
    Import(int pos_, Tree* tree_) : Tree(pos_, treetag::IMPORT), tree(tree_) {}
    void memberEnter(Env* env) override;
    Type* attr(Env* env, int pkind, Type* pt) override;
    void print(int precedence) override;

    Tree* tree; ///< a Select named "*" for an import on demand
};

/// Packages whose classes are imported on demand. Their members are searched where they stand: most units import whole
/// packages and use a few classes of them.
struct PackageList {
    ClassSymbol* head;
    PackageList* tail;
};

class CompilationUnit final : public Tree {
public:
    /// `arena` owns all trees of the unit, this node included.
    CompilationUnit(Arena& arena_, Trees defs_, StoreRef source_)
        : Tree(0, treetag::TOPLEVEL), arena(arena_), defs(defs_), source(std::move(source_)) {}
    void enter(Env* env) override;
    void memberEnter(Env* env) override;
    void print(int precedence) override;
    /// Enters the unit, which needs no environment.
    void enter() { enter(nullptr); }
    /// Resolves the imports, once.
    void enterImports();
    /// Attributes the definitions, with the unit's source as the reporter's.
    void attribute();
    /// The full name of the source, by which the unit is found.
    Name* sourcePath();

    /// The flat name of a local or anonymous class within `enclClass`: that of the outermost class, "$", and then the
    /// definition's name if it begins with a digit, else the number of the local class, "$" and its name.
    Name* localClassName(const ClassDef& def, ClassSymbol* enclClass);
    /// The name of an anonymous class: the decimal text of its number.
    Name* anonymousName(const ClassDef& def);

    Arena& arena;
    Trees defs;
    StoreRef source;
    ClassSymbol* package = nullptr;
    Scope* starImports = nullptr;        ///< the member classes that on-demand imports bring
    PackageList* starPackages = nullptr; ///< the packages that on-demand imports name, last first, and java.lang
    Scope* namedImports = nullptr;       ///< what single-type imports bring
    Env* env = nullptr;
    int localClassCount = 1;      ///< the number for the next local class that was not parsed
    int anonymousClassCount = 1;  ///< the same for anonymous classes
    Trees anonymousClasses;       ///< the ClassDefs of those that were parsed, an inner one before its outer one
    bool hasInnerClasses = false; ///< a member, local or anonymous class was attributed

private:
    Name* sourcePath_ = nullptr; ///< null until asked for
};

} // namespace tarn
