#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarn {

class ClassSymbol;
class Name;
class Symbol;

/// A class or member that attribution came upon in the code of a class. Unlike what is in the class's constant pool,
/// this is also told of constants, of code that is never reached, and of the class through which a member was found.
struct NameUse {
    Name* by = nullptr;          ///< flat name of the class; for an import the path of its source
    Symbol* used = nullptr;      ///< a class, or a field or method of one
    ClassSymbol* site = nullptr; ///< the class in which a member was looked up; null for a class

    bool operator==(const NameUse&) const = default;
};

/// The uses that the running compile has come upon, for the make engine.
class UseLog {
public:
    void add(const NameUse& use) {
        auto mix = reinterpret_cast<std::uintptr_t>(use.used) / 16 * 31 + reinterpret_cast<std::uintptr_t>(use.by) / 16;
        NameUse& recent = recent_[mix % recent_.size()];
        if (recent == use) return;
        recent = use;
        uses_.push_back(use);
    }
    /// All since the last call, most of them once.
    std::vector<NameUse> take() {
        recent_.fill({});
        return std::exchange(uses_, {});
    }

private:
    std::vector<NameUse> uses_;
    std::array<NameUse, 256> recent_; ///< what was added lately, so that little is added twice
};

} // namespace tarn
