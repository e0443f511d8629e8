#pragma once

#include "classlib/class_model.h"
#include "classlib/runtime_image.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::classlib {

/// What a program of the 1.1 language can see of a runtime's class library.
///
/// In it are the public classes of `java.*`, `javax.*` and what is asked for besides, the public and protected classes
/// nested in them, and what any of these extends or implements, wherever that is and whether it is public or not; a
/// nested class brings the class around it along. Of each class it has the public and protected members that the old
/// language has a notion of. It is closed: no class is named by it that is not in it. A class whose supertypes are not
/// all there is left out, and so are the members that name a class left out.
class LegacyLibrary {
public:
    /// The library of `image`, which must outlive this. `packages` are further ones, as "com.sun.jdi", each with those
    /// below it. Throws BadInput, with the name, if a class file in the image is garbled or if it has no class of
    /// such a package.
    explicit LegacyLibrary(const RuntimeImage& image, const std::vector<std::string>& packages = {});

    LegacyLibrary(const LegacyLibrary&) = delete;
    LegacyLibrary& operator=(const LegacyLibrary&) = delete;

    /// The classes by name. Their flags and members are already those of the old format; `nestedClasses` holds
    /// the class's own entry if it is nested, and its member classes in the order of their declaration.
    [[nodiscard]] const std::map<std::string_view, ClassModel>& classes() const { return classes_; }

    [[nodiscard]] const ClassModel* find(std::string_view name) const {
        auto found = classes_.find(name);
        return found == classes_.end() ? nullptr : &found->second;
    }

    [[nodiscard]] std::size_t packageCount() const;

private:
    std::deque<std::vector<std::uint8_t>> decompressed_; ///< class files that the models point into
    std::map<std::string_view, ClassModel> classes_;
};

} // namespace tarn::classlib
