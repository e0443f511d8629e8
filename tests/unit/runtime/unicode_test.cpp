#include "runtime/unicode.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(Unicode, ClassesOfSingleCharacters) {
    struct {
        std::u16string_view characters;
        bool start;
        bool part;
    } const rows[] = {
        {u"AZaz$_\u00A2\u00AA\u00E9\u00FF\u03B1\u203F\u20AC\u3007\u4E00\uAC00", true, true},
        {u"09\u0000\u0008\u000E\u001B\u007F\u009F\u00AD\u0301\u0660\u200C\uFEFF", false, true},
        {u"@[`{/:\u0009\u000D\u001C\u0020\u00A0\u00D7\u00F7\u2028\u3000\uFFFF", false, false},
        {u"\xD800\xDFFF", false, false},
    };
    for (const auto& row : rows) {
        for (char16_t unit : row.characters) {
            EXPECT_EQ(isJavaIdentifierStart(unit), row.start) << std::hex << static_cast<int>(unit);
            EXPECT_EQ(isJavaIdentifierPart(unit), row.part) << std::hex << static_cast<int>(unit);
        }
    }
}

TEST(Unicode, EveryStartIsAPart) {
    for (int unit = 0; unit <= 0xFFFF; unit++) {
        auto character = static_cast<char16_t>(unit);
        EXPECT_TRUE(!isJavaIdentifierStart(character) || isJavaIdentifierPart(character)) << std::hex << unit;
    }
}

} // namespace
} // namespace tarn
