#include "runtime/utf8.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(Utf8Test, EncodesAtTheBoundariesOfEachLength) {
    const std::pair<char32_t, std::string> rows[] = {
        {0, std::string(1, '\0')},
        {0x7F, "\x7F"},
        {0x80, "\xC2\x80"},
        {0x7FF, "\xDF\xBF"},
        {0x800, "\xE0\xA0\x80"},
        {0xFFFF, "\xEF\xBF\xBF"},
        {0x10000, "\xF0\x90\x80\x80"},
        {0x10FFFF, "\xF4\x8F\xBF\xBF"},
        {0xD800, "\xEF\xBF\xBD"},
        {0xDFFF, "\xEF\xBF\xBD"},
        {0xE000, "\xEE\x80\x80"},
        {0x110000, "\xEF\xBF\xBD"},
    };
    for (const auto& [character, bytes] : rows) {
        std::string text;
        appendUtf8(text, character);
        EXPECT_EQ(text, bytes) << static_cast<unsigned>(character);
    }
}

} // namespace
} // namespace tarn
