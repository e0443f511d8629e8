#include "syntax/class_numbers.h"

#include <algorithm>

namespace tarn {

void ClassNumbers::enter(Name* name, bool isLocal) {
    if (open_.empty()) classes_.clear();
    bool isAnonymous = name == nullptr;
    int outer = open_.empty() ? -1 : open_.back();
    open_.push_back(static_cast<int>(classes_.size()));
    classes_.push_back({outer, name, isLocal || isAnonymous, isAnonymous ? nextAnonymous_++ : 0});
}

std::size_t ClassNumbers::leave() {
    auto index = static_cast<std::size_t>(open_.back());
    open_.pop_back();
    if (!open_.empty()) return index;
    for (Class& c : classes_) {
        if (!c.isLocal || c.name == nullptr) continue;
        do c.number = nextLocal_++;
        while (isMemberOfAnonymous(c.number, c.name));
    }
    return index;
}

bool ClassNumbers::isMemberOfAnonymous(int number, const Name* name) const {
    return std::any_of(classes_.begin(), classes_.end(), [&](const Class& c) {
        if (c.name != name || c.isLocal || c.outer < 0) return false;
        const Class& outer = classes_[static_cast<std::size_t>(c.outer)];
        return outer.name == nullptr && outer.number == number;
    });
}

} // namespace tarn
