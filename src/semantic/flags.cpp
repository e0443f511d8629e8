#include "semantic/flags.h"

#include "runtime/failure.h"

#include <array>
#include <string>

namespace tarn {

namespace {

constexpr std::array<const char*, 11> FLAG_NAMES = {"public", "private",      "protected", "static",
                                                    "final",  "synchronized", "volatile",  "transient",
                                                    "native", "interface",    "abstract"};

} // namespace

const char* flagName(int bit) {
    if (bit < 0 || bit >= static_cast<int>(FLAG_NAMES.size())) throw InternalError("modName " + std::to_string(bit));
    return FLAG_NAMES[static_cast<std::size_t>(bit)];
}

std::string flagNames(std::uint32_t flags) {
    std::string text;
    for (int bit = 0; bit < static_cast<int>(FLAG_NAMES.size()); ++bit)
        if ((flags >> bit & 1) != 0) text.append(flagName(bit)).append(" ");
    return text;
}

int firstFlag(std::uint32_t mask) {
    int bit = 0;
    while (bit < static_cast<int>(FLAG_NAMES.size()) && (mask >> bit & 1) == 0) ++bit;
    return bit;
}

std::string kindNames(int mask) {
    if (mask == VAL) return "value";
    if (mask == CTOR) return "constructor";
    std::array<const char*, 4> words{};
    std::size_t count = 0;
    if ((mask & VAL) == VAL)
        words[count++] = "value";
    else if ((mask & VAR) != 0)
        words[count++] = "variable";
    if ((mask & MTH) != 0) words[count++] = "method";
    if ((mask & TYP) != 0) words[count++] = "class";
    if ((mask & PCK) != 0) words[count++] = "package";
    if (count == 0) return "identifier";
    std::string text = words[0];
    for (std::size_t i = 1; i < count; ++i) text.append(i + 1 == count ? " or " : ", ").append(words[i]);
    return text;
}

} // namespace tarn
