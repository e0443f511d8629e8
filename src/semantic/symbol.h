#pragma once

#include "classfile/pool_entry.h"
#include "semantic/flags.h"
#include "semantic/type.h"

#include <cstdint>
#include <span>
#include <string>
#include <utility>

namespace tarn {

class ClassSymbol;
class Code;
class ConstantPool;
class Name;
class Scope;
class VarDef;

/// A declared entity, and at the same time the scope entry through which it is found. Symbols belong to the Context
/// (those of locals to their unit) and are handed around as plain pointers.
class Symbol : public PoolEntry {
public:
    [[nodiscard]] EntryKind entryKind() const final { return EntryKind::SYMBOL; }

    void init(std::uint32_t flags_, int kind_, Name* name_, Type* type_, Symbol* owner_) {
        flags = flags_;
        kind = kind_;
        name = name_;
        type = type_;
        owner = owner_;
        sym = this;
    }

    /// The form in which messages show the symbol ("method f(int)", "class a.B").
    [[nodiscard]] virtual std::string toString() const;
    /// Whether this is java.lang.Object.
    [[nodiscard]] virtual bool isRootClass() const { return false; }
    /// Whether this is declared in a method, or in a class that is.
    [[nodiscard]] bool isLocal() const;
    /// A new entry for the same symbol under another name.
    Symbol* alias(Name* otherName);
    [[nodiscard]] virtual bool isSubClass(const Symbol*) const { return false; }
    /// " in " and the owner, or nothing if the owner has no name.
    [[nodiscard]] std::string location() const;
    [[nodiscard]] virtual Name* fullName() const;
    /// This or the nearest owner that is a package or class; null if there is none.
    [[nodiscard]] ClassSymbol* enclClass() const;
    /// The last class met going from this up the owners to a package; null if there is none.
    [[nodiscard]] ClassSymbol* outermostClass() const;
    /// The package that this belongs to; null if there is none.
    [[nodiscard]] const Symbol* package() const;
    /// The next entry of the same name, behind this one in its bucket; the end mark (whose `scope` is null) if none.
    [[nodiscard]] Symbol* nextEntry() const;

    [[nodiscard]] bool isStatic() const { return (flags & flag::STATIC) != 0; }
    [[nodiscard]] bool isFinal() const { return (flags & flag::FINAL) != 0; }
    [[nodiscard]] bool isInterface() const { return (flags & flag::INTERFACE) != 0; }
    [[nodiscard]] bool isAbstract() const { return (flags & flag::ABSTRACT) != 0; }
    [[nodiscard]] bool isPrivate() const { return (flags & flag::PRIVATE) != 0; }
    /// Whether this is a found symbol and no failed search.
    [[nodiscard]] bool exists() const { return kind < AMBIGUOUS; }

    std::uint32_t flags = 0;
    int kind = NONE;
    int pos = 0; ///< of the declaration (see Position); 0 for none
    Name* name = nullptr;
    Type* type = nullptr;
    Symbol* owner = nullptr;    ///< enclosing package, class or method
    Symbol* sym = nullptr;      ///< what this entry stands for: itself, except for an alias
    Symbol* shadowed = nullptr; ///< next entry in the hash bucket
    Symbol* sibling = nullptr;  ///< the entry entered before this one into the same scope
    Scope* scope = nullptr;     ///< the scope that holds this entry; null if none
};

class MethodSymbol : public Symbol {
public:
    [[nodiscard]] std::string toString() const override;
    [[nodiscard]] bool isConstructor() const;
    /// Whether this overrides `other`, the names being known to be equal.
    [[nodiscard]] bool overrides(const Symbol* other) const;
    /// What this overrides among the members of its class and its superclasses; null if nothing.
    [[nodiscard]] MethodSymbol* overridden() const;
    [[nodiscard]] MethodType* methodType() const { return static_cast<MethodType*>(type); }

    Code* code = nullptr; ///< the body that was generated; null before, and again once it was written
};

/// An operator of the predefined class: found by overload resolution like any method.
class OperatorSymbol final : public MethodSymbol {
public:
    /// 0: no instruction. Below 0x100: a JVM opcode. From 0x200: a compare and the branch on its result, as
    /// `vop::compareAndBranch` puts them together. The values between are those of `vop`.
    int opcode = 0;
};

/// Operators that are no single JVM instruction.
namespace vop {
enum : int { STRING_CONCAT = 0x100, NOT = 0x101, AND_AND = 0x102, OR_OR = 0x103 };

constexpr int compareAndBranch(int compare, int branch) {
    return compare << 9 | branch;
}
/// 0 if the operator has no compare of its own.
constexpr int compareOf(int opcode) {
    return opcode >> 9;
}
constexpr int branchOf(int opcode) {
    return opcode & 0x1ff;
}
} // namespace vop

class VarSymbol final : public Symbol {
public:
    [[nodiscard]] std::string toString() const override;

    VarDef* initDef = nullptr; ///< set while a final variable's initializer has not been settled yet
    /// -2: a variable whose declaration is not attributed yet; -1: attributed; during generation its variable index.
    int adr = -2;
    const Scope* recordedIn = nullptr; ///< the `constantRefs` into which it was entered last
};

/// The number of a walk over supertypes. A walk leaves it on each class that it comes by, and so goes through each of
/// them once, also where class files (or sources that are not checked yet) lead in a circle.
using Walk = unsigned;

/// How far the file of a class has been read (see ClassFile).
enum class Reading : std::uint8_t {
    DONE,   ///< read; or nothing is to be read, as for a package or a class from source
    NAMED,  ///< only mentioned by another class file; read when it is first looked into
    QUEUED, ///< waits to be read by the running `load`, or by the next one
    FAILED, ///< could not be read: an empty class that extends Object
};

/// A class, or a package (kind PCK, without superclass).
///
/// A class that only a descriptor of another class file has mentioned has no flags, supertypes or members yet. Whoever
/// looks at them and did not get the class from `ClassFile::load` calls `ensureRead` (classfile/class_file.h) before.
class ClassSymbol : public Symbol {
public:
    [[nodiscard]] std::string toString() const override;
    [[nodiscard]] bool isRootClass() const override;
    [[nodiscard]] bool isSubClass(const Symbol* base) const override;
    [[nodiscard]] Name* fullName() const override { return flatName; }

    /// A lean copy for the make engine. It takes `pool` and `constantRefs` along; this symbol loses them.
    ClassSymbol* clone();
    /// Whether constructors take the enclosing instance as a hidden first parameter.
    [[nodiscard]] bool hasOuterInstance() const;
    /// Whether the search comes to this class for the first time. One that goes through the supertypes of a class for
    /// members asks this of each interface: a member is one however often it is inherited, and the ways to an interface
    /// can be as many as two to the power of the levels above it.
    bool isNewTo(Walk search) const { return std::exchange(searched, search) != search; }
    /// Records a variable of another class whose constant value was inlined here, once.
    void addConstantRef(VarSymbol* variable);

    Name* flatName = nullptr;          ///< `a.b.Outer$Inner`; null for the package without a name
    ClassSymbol* superclass = nullptr; ///< null for java.lang.Object, packages, and before completion
    std::span<ClassSymbol*> interfaces;
    Scope* members = nullptr;      ///< null for a class known by name only, and for a package that was not listed yet
    Name* sourceFile = nullptr;    ///< simple file name of the source
    Name* sourcePath = nullptr;    ///< full name of the source, the key of its compilation unit
    ConstantPool* pool = nullptr;  ///< while the class is generated; kept if dependencies are tracked
    Scope* constantRefs = nullptr; ///< variables of other classes whose value was inlined; null if none
    Reading reading = Reading::DONE;
    mutable Walk walked = 0;   ///< the last walk that looked for nothing but classes
    mutable Walk searched = 0; ///< the last search for members; it may start walks of the other kind on its way
    int makeStamp = 0;         ///< the make's stamp at which this symbol was looked at last
};

/// The number of a new walk over supertypes, never 0.
inline Walk newWalk() {
    static constinit Walk walks = 0;
    return ++walks;
}

/// The failed outcome of a search: a kind from AMBIGUOUS up.
class ResolveError : public Symbol {
public:
    /// Reports what the failure stands for. `args` is null if no arguments were given.
    virtual void report(int pos, ClassSymbol* site, const Types* args, Name* wantedName);
};

class LoadError final : public ResolveError {
public:
    void report(int pos, ClassSymbol* site, const Types* args, Name* wantedName) override;

    Name* cause = nullptr; ///< the text of the failure
    int wantedKinds = 0;
};

class AmbiguityError final : public ResolveError {
public:
    void report(int pos, ClassSymbol* site, const Types* args, Name* wantedName) override;

    Symbol* sym1 = nullptr;
    Symbol* sym2 = nullptr;
};

class AccessError final : public ResolveError {
public:
    void report(int pos, ClassSymbol* site, const Types* args, Name* wantedName) override;

    Symbol* inaccessible = nullptr;
};

/// `name` if `owner` has no name, else the owner's full name, ".", `name`.
Name* formFullName(Name* name, const Symbol* owner);
/// As `formFullName` in a package; in a class its flat name, "$", `name`.
Name* formFlatName(Name* name, const Symbol* owner);
/// The part after the last ".".
Name* shortName(Name* flat);
/// The part before the last "."; null if there is none.
Name* packagePart(Name* flat);
/// The flat name with "." between a class and its member, for messages.
std::string printName(Name* flat);

} // namespace tarn
