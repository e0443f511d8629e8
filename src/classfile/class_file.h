#pragma once

#include "semantic/context.h"
#include "semantic/symbol.h"
#include "store/store.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarn {

class ClassReader;
class ClassWriter;
class ConstantPool;

/// The one door to compiled classes, in both directions: how a name becomes a class symbol, how the symbol is filled
/// from a class file of version 45.3, how a package's members are listed, and how a generated class becomes a file. The
/// make engine derives from it and answers the same questions by making the class first.
///
/// `load` gives a class whose file has been read, and those of its superclasses and interfaces with it, or it throws.
/// Nothing is loaded member by member. But the classes that a file only mentions, in descriptors, `throws` clauses and
/// as member classes, are not read with it, else one class would draw in half of the class library: they get a symbol
/// (of `Reading::NAMED`) that has a flat name, an owner and a type, and no flags, no supertypes and no members. Such a
/// class is read when somebody looks into it for the first time, which `ensureRead` stands for.
///
/// A class that comes from `load` needs no `ensureRead`, and neither do its supertypes. Wherever a class is taken from
/// a type or from the members of another class, `ensureRead` comes before a look at `flags`, `superclass`, `interfaces`
/// or `members`:
/// - subtyping (`isSubClass`, `Type::isSubType`, `isCastable`) does so for the class that it starts from; the other one
///   needs it only for its flags, since no class that has been read descends from one that has not;
/// - the search for members (`findField`, `findMethod`, `findMemberType`) and `checkCyclic`, for the class searched;
/// - `isAccessibleClass`, for the class, and `findMemberType`, for the class found.
///
/// A class that cannot be read that late is no reason to fail: it becomes an empty class that extends Object
/// (`Reading::FAILED`), and `failureOf` tells why, so that a search that found nothing in it can say so.
class ClassFile {
public:
    ClassFile();
    ClassFile(const ClassFile&) = delete;
    ClassFile& operator=(const ClassFile&) = delete;
    virtual ~ClassFile();

    /// Throws ClassNotFound with the text.
    [[noreturn]] virtual void error(const std::string& message);
    /// Throws ClassNotFound with `what` + " exceeded".
    [[noreturn]] virtual void limitExceeded(const std::string& what);
    /// Told the name of each attribute that is skipped.
    virtual void unknownAttribute(Name* name);
    /// Parses the file in `buffer` into the symbol. Throws ClassNotFound.
    virtual void readClass(ClassSymbol* c);
    /// Parses the body of an `InnerClasses` attribute, where the reader stands.
    virtual void readInnerClasses(ClassSymbol* c);
    /// The first store's answer for that relative file name, or null.
    virtual StoreRef findFile(const PathList& stores, const std::string& name);
    /// A class or package known under this flat name, be it read or not; or null.
    virtual ClassSymbol* refClass(Name* name);
    /// `refClass`, else a new class, put on `todo` if it has not been read; null for a null name. Throws ClassNotFound
    /// if a package has the name.
    virtual ClassSymbol* loadClass(Name* name);
    /// Finds and reads the class's file. Throws ClassNotFound.
    virtual void completeClass(ClassSymbol* c);
    /// The class of that flat name, read. Throws ClassNotFound if it, or a class that it inherits from, can't be read
    /// now.
    virtual ClassSymbol* load(Name* name);
    /// The package of that name (null: the root package), known or made now. Throws ClassNotFound if a class has the
    /// name, or if it is too long for a path: a name of very many parts would be looked up at each of its dots.
    virtual ClassSymbol* enterPackage(Name* name);
    /// Lists the classes of the package into its members; false if no place has the package.
    virtual bool fillPackage(ClassSymbol* package);
    /// Writes the generated class into `out`, with one write. Throws IoFailure; nothing was written then.
    virtual void writeClass(ClassSymbol* c, const StoreRef& out);
    /// Told after a class file was written. Does nothing here.
    virtual void classWritten(const StoreRef& out, ClassSymbol* c, const StoreRef& source);
    /// Told that a class from source has got a lean clone. Does nothing here.
    virtual void classEntered(ClassSymbol* symbol, ClassSymbol* clone);

    /// Puts a placeholder for the class of that simple name into the package's members, unless it has an entry already.
    void enterPlaceholder(ClassSymbol* package, Name* simpleName);
    /// The symbol of that flat name, which is made if there is none, without asking for its file. Throws ClassNotFound
    /// if a package has the name.
    ClassSymbol* nameClass(Name* flatName);
    /// What `ensureRead` does for a class that is not read yet.
    void readNamed(ClassSymbol* c);
    /// Why the class, or one that it inherits from, could not be read; null if all were.
    Name* failureOf(const ClassSymbol* c) const;

    /// An empty constant pool. It lives as long as this object, unless it is given back for the next class.
    ConstantPool* newPool();
    void freePool(ConstantPool* pool);

    /// The name under which a field or method goes into a file; differs from its own only for private members under
    /// `-obfuscate`.
    static Name* memberName(const Symbol* symbol);
    /// The text of a class entry with dots: the flat name of a class, the descriptor of an array.
    static Name* xClassName(Type* type);

protected:
    // For the make engine. Its `refClass` looks only after classes of `Reading::DONE`, since `load` asks for the files
    // of all others anyway. What answers to a name may be loaded and compiled while a class is being named, but not
    // while one is parsed: parsing names classes through `nameClass` alone.

    /// Reads the whole file into `buffer`.
    void readFile(Store& store);
    /// Gives the symbol back the state of a class that was named and not read, on `todo`; nothing if it is there
    /// already.
    void renew(ClassSymbol* c);
    /// Gives the symbol back the state of a class that was only mentioned; it is read again before it is used.
    void forget(ClassSymbol* c);
    /// Puts placeholders for all classes known so far that belong to the package.
    void enterKnownClasses(ClassSymbol* package);

    std::vector<ClassSymbol*> todo; ///< to be read by the running `load`, last named first; the head is the back
    Bytes buffer;                   ///< the file being read; only grows
    std::size_t length = 0;         ///< of the file in `buffer`

private:
    struct Failure {
        ClassSymbol* symbol;
        Name* cause;
    };

    void drain();
    void complete(ClassSymbol* c);
    void breakCycle(ClassSymbol* c);
    void fail(ClassSymbol* c, const std::string& cause);
    Name* failureAbove(const ClassSymbol* c, Walk walk) const;

    std::unique_ptr<ClassReader> reader_;
    const ClassSymbol* lastRead_ = nullptr; ///< whose file was parsed last; null at the start of each completion
    std::unique_ptr<ClassWriter> writer_;   ///< made at the first write
    NameTableOf<Failure> failures_;         ///< the classes of Reading::FAILED, which `classes` has no more
    std::vector<std::unique_ptr<ConstantPool>> pools_;
    std::vector<ConstantPool*> freePools_;
    std::string path_; ///< scratch for file names
};

/// Reads the file of a class that was only mentioned so far. Costs one comparison for all others. Never throws
/// ClassNotFound.
inline void ensureRead(ClassSymbol* c) {
    if (c->reading != Reading::DONE) [[unlikely]]
        context().classReader->readNamed(c);
}
inline void ensureRead(const ClassSymbol* c) {
    ensureRead(const_cast<ClassSymbol*>(c));
}

} // namespace tarn
