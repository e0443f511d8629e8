#pragma once

#include <cstddef>
#include <string_view>

namespace tarn::classlib {

/// The length of the type that `text` begins with, 0 if it begins with none. "V" counts only if `voidToo`.
[[nodiscard]] constexpr std::size_t typeLength(std::string_view text, bool voidToo = false) {
    std::size_t at = text.find_first_not_of('[');
    if (at == std::string_view::npos || at > 255) return 0;
    if (text[at] == 'L') {
        std::size_t end = text.find(';', at);
        return end == std::string_view::npos || end == at + 1 ? 0 : end + 1;
    }
    bool primitive = std::string_view("BCDFIJSZ").find(text[at]) != std::string_view::npos;
    return primitive || (voidToo && at == 0 && text[at] == 'V') ? at + 1 : 0;
}

[[nodiscard]] constexpr bool isFieldDescriptor(std::string_view text) {
    return !text.empty() && typeLength(text) == text.size();
}

[[nodiscard]] constexpr bool isMethodDescriptor(std::string_view text) {
    if (!text.starts_with('(')) return false;
    text.remove_prefix(1);
    while (!text.starts_with(')')) {
        std::size_t length = typeLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    text.remove_prefix(1);
    return !text.empty() && typeLength(text, true) == text.size();
}

/// Calls `visit` with the name of each class in a field's or method's descriptor; as long as that gives true.
/// Whether it always did.
template <typename Visit>
[[nodiscard]] bool allClassesOf(std::string_view descriptor, Visit visit) {
    for (std::size_t at = descriptor.find('L'); at != std::string_view::npos; at = descriptor.find('L', at)) {
        std::size_t end = descriptor.find(';', at);
        if (!visit(descriptor.substr(at + 1, end - at - 1))) return false;
        at = end;
    }
    return true;
}

} // namespace tarn::classlib
