#pragma once

#include "classfile/class_file.h"

#include <span>

namespace tarn {

class Maker;

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
    /// Has classes read again, before they are used, that inherit from one that came from source, or is among those
    /// that are about to: the members that they have inherited may be those from before. Between compiles only.
    void forgetInheritors(std::span<Name* const> changing);

private:
    Maker& maker_;
};

} // namespace tarn
