#pragma once

#include "runtime/bits.h"
#include "semantic/symbol.h"
#include "store/store.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarn {

class ClassWriter;

/// The one door to compiled classes, in both directions: how a name becomes a class symbol, how the symbol is filled
/// from a class file of version 45.3, how a package's members are listed, and how a generated class becomes a file. The
/// make engine derives from it and answers the same questions by making the class first.
///
/// Nothing is loaded member by member: `load` gives a filled class or throws. Reading one class names its superclass,
/// interfaces and member classes, which are read in turn before `load` returns; `todo` holds what was named.
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
    /// Parses `buffer` into the symbol.
    virtual void readClass(ClassSymbol* c);
    virtual void readInnerClasses(ClassSymbol* c);
    /// The first store's answer for that relative file name, or null.
    virtual StoreRef findFile(const PathList& stores, const std::string& name);
    /// A class known under this flat name, without loading anything; or null.
    virtual ClassSymbol* refClass(Name* name);
    /// `refClass`, else a new unfilled class put on `todo`; null for a null name.
    virtual ClassSymbol* loadClass(Name* name);
    /// Finds and reads the class's file.
    virtual void completeClass(ClassSymbol* c);
    /// The class of that flat name, filled. Throws ClassNotFound.
    virtual ClassSymbol* load(Name* name);
    /// The package of that name (null: the root package), known or made now. Throws ClassNotFound if a class has the
    /// name.
    virtual ClassSymbol* enterPackage(Name* name);
    /// Lists the classes of the package into its members; false if no place has the package.
    virtual bool fillPackage(ClassSymbol* package);
    /// Writes the generated class into `out`, with one write. Throws IoFailure.
    virtual void writeClass(ClassSymbol* c, const StoreRef& out);
    /// Told after a class file was written. Does nothing here.
    virtual void classWritten(const StoreRef& out, ClassSymbol* c, const StoreRef& source);
    /// Told that a class from source has got a lean clone. Does nothing here.
    virtual void classEntered(ClassSymbol* symbol, ClassSymbol* clone);

    /// The name under which a field or method goes into a file; differs from its own only for private members under
    /// `-obfuscate`.
    static Name* memberName(const Symbol* symbol);
    /// The text of a class entry with dots: the flat name of a class, the descriptor of an array.
    static Name* xClassName(Type* type);

protected:
    std::vector<ClassSymbol*> todo; ///< named and not yet read; the head is the back
    Bytes buffer;                   ///< the file being read; only grows
    std::size_t length = 0;         ///< of the file in `buffer`

private:
    friend class ClassReader;
    std::unique_ptr<ClassWriter> writer_; ///< made at the first write
};

} // namespace tarn
