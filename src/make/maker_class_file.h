#pragma once

#include "classfile/class_file.h"

#include <span>
#include <vector>

namespace tarn {

class Maker;
class Scope;

/// The compiler's door to classes under a make: each class is brought up to date as it is named.
///
/// A class that is known is held against the files once per pass, and read again if it has changed. One that is asked
/// for the first time is made, which may compile its source as part of the running compile; then there is no file to
/// read, and the symbol is filled from the source.
class MakerClassFile final : public ClassFile {
public:
    explicit MakerClassFile(Maker& maker) : maker_(maker) {}

    ClassSymbol* refClass(Name* name) override;
    void completeClass(ClassSymbol* c) override;
    bool fillPackage(ClassSymbol* package) override;
    void classWritten(const StoreRef& out, ClassSymbol* c, const StoreRef& source) override;
    void classEntered(ClassSymbol* symbol, ClassSymbol* clone) override;

    /// Has the class of that name read again, if it is known.
    void redoClass(Name* name);
    /// Reads the file into a symbol of its own, for the make engine: the one that the compiler knows, and what is
    /// linked to it, stays as it is. Throws IoFailure.
    ClassSymbol* readApart(Name* flatName, Store& file, bool keepPool);
    /// The classes are about to be entered from source. What inherits from one of them as it was is outdated.
    void outdateInheritors(std::span<Name* const> classes);
    /// Has outdated classes read again, before they are used. Between compiles only.
    void forgetOutdated();
    /// A compile was broken off. Has those of its classes that were not generated read again, and all that inherits
    /// from one that was to be read.
    void forgetUnfinished(std::span<Name* const> classes);

private:
    void redo(ClassSymbol* c);

    Maker& maker_;
    std::vector<Scope*> replaced_; ///< members, as they were, of classes that are entered or read anew since then
};

} // namespace tarn
