#pragma once

#include "syntax/name.h"

#include <cstddef>
#include <vector>

namespace tarn {

/// Numbers the local and anonymous classes of a unit in the order in which their bodies begin, each kind from 1 on.
///
/// All that parses a unit counts by this, so that the classes have the same names wherever they are asked for. A local
/// class L of number 1 is called Outer$1$L, and so is a member L of the first anonymous class: a number that would give
/// a local class the name of such a member is passed over. Members may follow later, so the numbers of local classes
/// are settled when the outermost class ends.
class ClassNumbers {
public:
    struct Class {
        int outer;    ///< index of the class around it; -1 for an outermost class
        Name* name;   ///< null for an anonymous class
        bool isLocal; ///< set for anonymous classes too
        int number;   ///< 0 for a member and an outermost class, and until it is settled
    };

    /// The body of a class begins. An anonymous class has no name.
    void enter(Name* name, bool isLocal);
    /// The innermost class that is open ends. Returns its index. If no class is open any more, all numbers are settled.
    std::size_t leave();
    [[nodiscard]] bool isOutside() const { return open_.empty(); }

    /// The outermost class that was entered last and the classes in it, in the order of their bodies.
    [[nodiscard]] const std::vector<Class>& classes() const { return classes_; }
    /// What the next classes get.
    [[nodiscard]] int nextLocal() const { return nextLocal_; }
    [[nodiscard]] int nextAnonymous() const { return nextAnonymous_; }

private:
    [[nodiscard]] bool isMemberOfAnonymous(int number, const Name* name) const;

    std::vector<Class> classes_;
    std::vector<int> open_; ///< indices
    int nextLocal_ = 1;
    int nextAnonymous_ = 1;
};

} // namespace tarn
