#pragma once

#include "driver/options.h"
#include "semantic/universe.h"
#include "semantic/use_log.h"
#include "store/store.h"
#include "syntax/name.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace tarn {

class ClassFile;

/// What an `InnerClasses` entry says of a class: who encloses it, what it is called there, and its declared modifiers.
struct InnerClassRecord {
    ClassSymbol* outer = nullptr;
    Name* name = nullptr;
    std::uint32_t flags = 0;
};

/// Names hash by their identity, which is a small integer already.
struct NameHash {
    std::size_t operator()(const Name* name) const { return name->index * std::size_t{0x9E3779B97F4A7C15}; }
};
template <class Value>
using NameTableOf = std::unordered_map<Name*, Value, NameHash>;

/// The one compiler context of a run: the universe, the options, and every class known. It owns symbols and types. The
/// current context is one process-wide value that the compiler reaches without a parameter; outside of a make there is
/// none.
class Context final : public Universe {
public:
    /// Becomes the current context, with a plain ClassFile as reader.
    Context();
    ~Context() override;

    /// Makes this the current context, with its universe and options.
    void makeCurrent();

    /// The class or package of that flat name, or null.
    [[nodiscard]] ClassSymbol* findClass(Name* flatName) const {
        auto found = classes.find(flatName);
        return found == classes.end() ? nullptr : found->second;
    }
    /// The record of that flat name, or null.
    [[nodiscard]] const InnerClassRecord* innerClass(Name* flatName) const {
        auto found = innerClasses.find(flatName);
        return found == innerClasses.end() ? nullptr : &found->second;
    }

    Options options;
    std::optional<std::string> encoding; ///< name of a converter; absent for plain bytes
    PathList classPath;
    StoreRef outputDirectory;                   ///< a directory store on "."; `-d` does not change it
    NameTableOf<ClassSymbol*> classes;          ///< every class and package known to this run, by flat name
    NameTableOf<ClassSymbol*> sourceClasses;    ///< those entered from source in the current compile
    std::unique_ptr<ClassFile> classReader;     ///< never null
    NameTableOf<InnerClassRecord> innerClasses; ///< by the flat name of the inner class

    UseLog uses; ///< kept if dependencies are tracked

    static Context* current; ///< null outside of a make
};

inline Context& context() {
    return *Context::current;
}

} // namespace tarn
