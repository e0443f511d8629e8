#include "syntax/name.h"

#include "syntax/token.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace tarn {
namespace {

using namespace std::string_literals;

Name* fromSource(std::string_view text) {
    return Name::fromSource(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

TEST(Name, TextsOfEveryLengthThatDifferInOneByteAreDifferent) {
    for (std::size_t length = 1; length < 40; length++) {
        std::set<Name*> names;
        for (std::size_t at = 0; at < length; at++) {
            std::string text(length, 'q');
            text[at] = 'p';
            names.insert(Name::fromBytes(text));
            EXPECT_EQ(Name::fromBytes(text)->view(), text);
        }
        EXPECT_EQ(names.size(), length);
    }
}

TEST(Name, TextsOfOneHashAreDifferent) {
    Name* one = Name::fromBytes("joeuinmgr");
    Name* other = Name::fromBytes("icpsxascf");
    EXPECT_EQ(one->contentHash(), other->contentHash());
    EXPECT_NE(one, other);
    EXPECT_EQ(Name::fromBytes("joeuinmgr"), one);
}

TEST(Name, ContentHashIsTheStoredForm) {
    // h = h * 1664525 + b with signed bytes, by hand.
    EXPECT_EQ(Name::fromBytes("")->contentHash(), 0);
    EXPECT_EQ(Name::fromBytes("A")->contentHash(), 65);
    EXPECT_EQ(Name::fromBytes("AB")->contentHash(), 65 * 1664525 + 66);
    EXPECT_EQ(Name::fromBytes("\xC3")->contentHash(), -61);
    EXPECT_EQ(Name::fromBytes("\xC3\xA9")->contentHash(), -61 * 1664525 - 87);
}

TEST(Name, SourceTextIsTranslated) {
    struct Row {
        std::string_view source;
        std::string name;
    };
    const Row rows[] = {
        {"plain", "plain"},
        {R"(\n\t\b\r\f)", "\n\t\b\r\f"},
        {R"(\\\"\'\q)", "\\\"'q"},
        {R"(\u0041)", "A"},
        {R"(\uuuu0041)", "A"},
        {R"(\u00e9\u00E9)", "\xC3\xA9\xC3\xA9"},
        {R"(\u0000)", "\xC0\x80"},
        {R"(\u007f\u0080\u07ff\u0800\uffff)", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"},
        {R"(\ud83d\ude00)", "\xED\xA0\xBD\xED\xB8\x80"},
        {R"(\u00g1)", "u00g1"},
        {R"(\uuu00g1)", "uuu00g1"},
        {R"(\u004)", "u004"},
        {R"(\u)", "u"},
        {R"(\\u0041)", R"(\u0041)"},
        {"tail\\", "tail\\"},
        {"\\", "\\"},
        {"\xE9\xFF", "\xC3\xA9\xC3\xBF"},
        {"\\\xE9", "\xC3\xA9"},
        {std::string_view("a\0b", 3), "a\xC0\x80"s + "b"},
        {"", ""},
    };
    for (const Row& row : rows) EXPECT_EQ(fromSource(row.source)->view(), row.name) << row.source;
}

TEST(Name, OrdinaryTextGoesThereAndBack) {
    struct Row {
        std::string text;
        std::string utf;
        std::string ascii;
    };
    const Row rows[] = {
        {"", "", ""},
        {"\\a \x7F", "\\a \x7F", "\\\\a \x7F"},
        {"\n\t\b\r\f", "\n\t\b\r\f", R"(\n\t\b\r\f)"},
        {"\xC3\xA9", "\xC3\xA9", R"(\u00E9)"},
        {"\0"s, "\xC0\x80", R"(\u0000)"},
        {"\xE2\x82\xAC", "\xE2\x82\xAC", R"(\u20AC)"},
        {"\xF0\x9F\x98\x80", "\xED\xA0\xBD\xED\xB8\x80", R"(\uD83D\uDE00)"},
    };
    for (const Row& row : rows) {
        Name* name = Name::fromString(row.text);
        EXPECT_EQ(name->view(), row.utf);
        EXPECT_EQ(name->toString(), row.text);
        EXPECT_EQ(name->toAscii(), row.ascii);
        EXPECT_EQ(fromSource(row.ascii), name);
    }
}

TEST(Name, InvalidUtf8CountsAsLatin1) {
    const std::string_view rows[] = {"\xE9",    "a\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80",
                                     "\xE2\x82"};
    for (std::string_view row : rows) {
        std::string latin1;
        for (unsigned char byte : row) {
            if (byte < 0x80)
                latin1 += static_cast<char>(byte);
            else
                latin1 += {static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 0x3F))};
        }
        EXPECT_EQ(Name::fromString(row)->view(), latin1);
    }
}

TEST(Name, GarbledBytesDecodeWithoutReadingOn) {
    EXPECT_EQ(Name::fromBytes("\xE2\x82")->toAscii(), "\\u00E2\\u0082");
    EXPECT_EQ(Name::fromBytes("a\xC3")->toAscii(), "a\\u00C3");
    EXPECT_EQ(Name::fromBytes("\xED\xA0\xBD!")->toString(), "\xEF\xBF\xBD!");
    EXPECT_EQ(Name::fromBytes("\xED\xB8\x80\xED\xA0\xBD")->toString(), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Name::fromBytes("\xED\xA0\xBD\xED\xB8\x80")->toAscii(), "\\uD83D\\uDE00");
}

TEST(Name, PartsAndJoins) {
    Name* name = Name::fromBytes("java/lang/Object");
    EXPECT_EQ(name->indexOf('/'), 4);
    EXPECT_EQ(name->lastIndexOf('/'), 9);
    EXPECT_EQ(name->indexOf('!'), 16);
    EXPECT_EQ(name->lastIndexOf('!'), -1);
    EXPECT_EQ(name->subName(5, 9), Name::fromBytes("lang"));
    EXPECT_EQ(name->subName(0, 16), name);
    EXPECT_EQ(name->subName(3, 1), Name::fromBytes(""));
    EXPECT_EQ(name->byteAt(5), 'l');
    EXPECT_TRUE(name->startsWith(Name::fromBytes("java/")));
    EXPECT_FALSE(name->startsWith(Name::fromBytes("java/lang/Object/")));
    EXPECT_TRUE(name->endsWith(Name::fromBytes("Object")));
    EXPECT_TRUE(name->endsWith(Name::fromBytes("")));
    EXPECT_EQ(Name::fromBytes("java/")->append(Name::fromBytes("lang/Object")), name);
    std::vector<Name*> parts = {Name::fromBytes("java"), Name::fromBytes(""), Name::fromBytes("/lang/"),
                                Name::fromBytes("Object")};
    EXPECT_EQ(Name::concat(parts), name);
    EXPECT_EQ(Name::concat({}), Name::fromBytes(""));
}

TEST(Token, SpellingsLeadToTheirKinds) {
    struct Row {
        Token kind;
        std::string_view text;
    };
    const Row rows[] = {
#define TARN_TOKEN(number, constant, text) {Token::constant, text},
        TARN_TOKENS(TARN_TOKEN)
#undef TARN_TOKEN
    };
    Name* first = Name::fromBytes("while");
    EXPECT_EQ(tokenOf(first), Token::WHILE);
    for (const Row& row : rows) {
        EXPECT_EQ(tokenName(row.kind), row.text);
        bool spelled = row.kind >= Token::PLUS && row.kind <= Token::FALSE_LITERAL;
        EXPECT_EQ(tokenOf(Name::fromBytes(row.text)), spelled ? row.kind : Token::IDENTIFIER) << row.text;
        EXPECT_EQ(spellingOf(row.kind), spelled ? Name::fromBytes(row.text) : nullptr) << row.text;
    }
    for (std::string_view text : {"", "While", "whil", "whilex", "<<<"}) {
        EXPECT_EQ(tokenOf(Name::fromBytes(text)), Token::IDENTIFIER) << text;
    }
}

} // namespace
} // namespace tarn
