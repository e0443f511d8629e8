#include "syntax/scanner.h"

#include "driver/reporter.h"
#include "runtime/failure.h"
#include "runtime/java_number.h"
#include "store/memory_store.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarn {
namespace {

using namespace std::string_literals;

std::string placeOf(Position position) {
    return std::to_string(lineOf(position)) + ":" + std::to_string(columnOf(position));
}

/// Keeps each error as "place text".
class RecordingReporter final : public Reporter {
public:
    RecordingReporter() { setReporter(this); }
    ~RecordingReporter() override { setReporter(nullptr); }
    void print(std::string_view) override {}
    void println(std::string_view) override {}
    void error(const StoreRef&, int position, const Message& message) override {
        errors.push_back(placeOf(position) + " " + message.text);
    }
    void warning(const StoreRef&, int, const Message&) override {}
    [[nodiscard]] int errorCount() const override { return 0; }
    [[nodiscard]] int warningCount() const override { return 0; }

    std::vector<std::string> errors;
};

StoreRef storeOf(std::string_view text) {
    auto store = ByteArrayStore::root("Test.java");
    store->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    return store;
}

/// The current token: a number's, character's or string's value with its kind's letter, an identifier as it is, any
/// other token in its spelling.
std::string tokenText(const Scanner& scanner) {
    switch (scanner.token) {
    case Token::IDENTIFIER: return scanner.name->toAscii();
    case Token::CHAR_LITERAL: return "c" + std::to_string(scanner.longValue);
    case Token::STRING_LITERAL: return '"' + scanner.stringValue->toAscii() + '"';
    case Token::INT_LITERAL: return "i" + std::to_string(scanner.longValue);
    case Token::LONG_LITERAL: return "l" + std::to_string(scanner.longValue);
    case Token::FLOAT_LITERAL: return "f" + toJavaText(static_cast<float>(scanner.doubleValue));
    case Token::DOUBLE_LITERAL: return "d" + toJavaText(scanner.doubleValue);
    case Token::BAD_SYMBOL: return "<bad>";
    case Token::END_OF_INPUT: return "<end>";
    default: {
        std::string text(tokenName(scanner.token));
        if (text[0] == '\'') return text.substr(1, 1);
        EXPECT_EQ(scanner.name, spellingOf(scanner.token));
        return text;
    }
    }
}

struct Scanned {
    std::string tokens; ///< texts with a blank between
    std::string places; ///< of the tokens
    std::string errors; ///< with a bar between
    bool deprecated;
};

/// Scans the text as the parser would: a `-` that is no binary operator sets the flag for a negative literal.
Scanned scan(std::string_view text) {
    RecordingReporter reporter;
    Scanned scanned{};
    Scanner scanner(*storeOf(text), std::nullopt);
    Token before = Token::BAD_SYMBOL;
    for (std::size_t count = 0; scanner.token != Token::END_OF_INPUT; count++) {
        if (count > text.size()) return {"endless", "", "", false};
        scanned.tokens += (scanned.tokens.empty() ? "" : " ") + tokenText(scanner);
        scanned.places += (scanned.places.empty() ? "" : " ") + placeOf(scanner.pos);
        if (scanner.token == Token::MINUS) scanner.negativeLiteral = before != Token::IDENTIFIER;
        before = scanner.token;
        scanner.nextToken();
    }
    for (const std::string& error : reporter.errors) scanned.errors += (scanned.errors.empty() ? "" : "|") + error;
    scanned.deprecated = scanner.deprecatedFlag;
    return scanned;
}

struct Row {
    std::string_view source;
    std::string_view tokens;
    std::string_view errors = "";
};

template <std::size_t count>
void expectTokens(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        Scanned scanned = scan(row.source);
        EXPECT_EQ(scanned.tokens, row.tokens) << row.source;
        EXPECT_EQ(scanned.errors, row.errors) << row.source;
    }
}

TEST(Scanner, Words) {
    expectTokens({
        {"", ""},
        {"a Zz9 $_ _1", "a Zz9 $_ _1"},
        {"class classy Class", "class classy Class"},
        {"null true false goto const", "null true false goto const"},
        {R"(\u0063lass cl\u0061ss \u0063l\uuu0061s\u0073)", "class class class"},
        {"\xE9t\xE9 \\u00e9t\\u00E9", R"(\u00E9t\u00E9 \u00E9t\u00E9)"},
        {R"(a\u0301b a\u0030)", R"(a\u0301b a0)"},
        {R"(a\u002eb)", "a . b"},
        {R"(a\u000ab\u0020c)", "a b c"},
        {"a\xD7", R"(a\u00D7)"}, // inside a word any byte from 128 up counts
        {"\xD7 a", "<bad> a", "1:1 illegal character"},
        {R"(\u00d7a)", "<bad> a", "1:1 illegal character"},
        {R"(\u0301)", "<bad>", "1:1 illegal character"},
        {"# @", "<bad> <bad>", "1:1 illegal character|1:3 illegal character"},
        {R"(\u0023)", "<bad>", "1:1 illegal character"},
        {R"(\u005c)", "<bad>", "1:1 illegal character"},
    });
}

TEST(Scanner, BadEscapesBetweenAndInWords) {
    expectTokens({
        {R"(\ a)", "a", "1:1 invalid escape character"},
        // The look ahead from a word or an operator reports, and so does the next token.
        {R"(a\ b)", "a b", "1:2 invalid escape character|1:2 invalid escape character"},
        {R"(\\\;)", ";", "1:1 invalid escape character|1:2 invalid escape character|1:3 invalid escape character"},
        {R"(\u12;)", ";", "1:5 invalid escape character"},
        {R"(\u00g1)", "u00g1", "1:5 invalid escape character"},
        {R"(\u)", "", "1:3 invalid escape character"},
        {R"(\)", "", "1:1 invalid escape character"},
        {"\\u00\x1A", "", "1:5 invalid escape character"},
    });
}

TEST(Scanner, OperatorsTakeTheLongestMatch) {
    expectTokens({
        {"+ - ! % ^ & * | ~ / > < ? : =", "+ - ! % ^ & * | ~ / > < ? : ="},
        {"++ -- == <= >= != << >> >>>", "++ -- == <= >= != << >> >>>"},
        {"+= -= *= /= &= |= ^= %= <<= >>= >>>= || &&", "+= -= *= /= &= |= ^= %= <<= >>= >>>= || &&"},
        {">>>>=", ">>> >="},
        {"=-1", "= - i1"},
        {"+++++", "++ ++ +"},
        {"<<<", "<< <"},
        {"!~", "! ~"},
        {"===", "== ="},
        {R"(>\u003e>\u003d)", ">>>="},
        {R"(+\u0061)", "+ a"},
        {R"(/\u003d /\u0061)", "/= / a"},
        {".,;()[]{}", ". , ; ( ) [ ] { }"},
    });
}

TEST(Scanner, IntegerLiterals) {
    const std::string_view large = "1:1 integer number too large";
    const std::string_view malformed = "1:1 malformed integer number";
    expectTokens({
        {"0 7 1234567890 999999999 0L 12l", "i0 i7 i1234567890 i999999999 l0 l12"},
        {"2147483647", "i2147483647"},
        {"2147483648", "i214748364", large},
        {"-2147483648", "- i-2147483648"},
        {"-2147483649", "- i214748364", "1:2 integer number too large"},
        {"a - 2147483648", "a - i214748364", "1:5 integer number too large"},
        {"-(2147483648", "- ( i214748364", "1:3 integer number too large"},
        {"99999999999999999999", "i999999999", large},
        {"9223372036854775807L", "l9223372036854775807"},
        {"9223372036854775808L", "l922337203685477580", large},
        {"-9223372036854775808L", "- l-9223372036854775808"},
        {"-9223372036854775809L", "- l922337203685477580", "1:2 integer number too large"},
        {"0x7fffffff 0xFFFFFFFF 0X80000000", "i2147483647 i-1 i-2147483648"},
        {"0x100000000", "i268435456", large},
        {"0xFFFFFFFFFFFFFFFFL 0x8000000000000000L", "l-1 l-9223372036854775808"},
        {"0x10000000000000000L", "l1152921504606846976", large},
        {"017 037777777777 020000000000", "i15 i-1 i-2147483648"},
        {"040000000000", "i536870912", large},
        {"01777777777777777777777L", "l-1"},
        {"02000000000000000000000L", "l2305843009213693952", large},
        {"00000000000000000000000000000001", "i1"},
        {"0x 0xL 0xg", "i0 l0 i0 g"},
        {"09", "i0", malformed},
        {"0789", "i7", malformed},
        {"1a 0b1", "i1 a i0 b1"},
        {R"(1\u0032 0\u0078f \u0031\u004c \u0030)", "i12 i15 l1 i0"},
        {R"(1\u003b 0\u003b 0x\u003b)", "i1 ; i0 ; i0 ;"},
        {R"(1\u0660)", "i1 <bad>", "1:2 illegal character"},
        {"1\xE9", R"(i1 \u00E9)"},
    });
}

TEST(Scanner, FloatingPointLiterals) {
    const std::string_view malformed = "1:1 malformed floating point number";
    expectTokens({
        {"1f 1d 1F 1D .5 1. 1.f 0f 0d 0.", "f1.0 d1.0 f1.0 d1.0 d0.5 d1.0 f1.0 f0.0 d0.0 d0.0"},
        {"09.5 08e1 00d", "d9.5 d80.0 d0.0"},
        {"1e3 1E+3 1e-3f 1.5e10d", "d1000.0 d1000.0 f0.001 d1.5E10"},
        {"1..5", "d1.0 d0.5"},
        {"1.e1", "d10.0"},
        {"1.x", "d1.0 x"},
        {"1e", "d0.0", malformed},
        {"1e+", "d0.0 +", malformed},
        {"1ef", "f0.0", malformed},
        {"1e-x", "d0.0 - x", malformed},
        {"1e999", "dInfinity", "1:1 numeric overflow"},
        {"1e-999", "d0.0", "1:1 numeric underflow"},
        {"0e-999 0.0e-999 0e999999999999999999999", "d0.0 d0.0 d0.0"},
        {"1.7976931348623157e308", "d1.7976931348623157E308"},
        {"1.7976931348623159e308", "dInfinity", "1:1 numeric overflow"},
        {"4.9e-324", "d4.9E-324"},
        {"2e-324", "d0.0", "1:1 numeric underflow"},
        {"3.4028235e38f 1.4e-45f", "f3.4028235E38 f1.4E-45"},
        {"3.4028236e38f", "fInfinity", "1:1 numeric overflow"},
        {"1e-46f", "f0.0", "1:1 numeric underflow"},
        {"1e39f", "fInfinity", "1:1 numeric overflow"},
        {"1.00000017881393432617187499f", "f1.0000001"}, // rounds wrongly by way of a double
        {".\\u0035", "d0.5"},
        {R"(\u002e5 1\u002e5 1\u00653 1\u0066)", "d0.5 d1.5 d1000.0 f1.0"},
        {R"(.\u0061 1.\u0061)", ". a d1.0 a"},
        {"0x1.8", "i1 d0.8"},
        {"0x1e1 0xfd", "i481 i253"},
    });
}

TEST(Scanner, CharacterLiterals) {
    expectTokens({
        {"'a' '\"' ' '", "c97 c34 c32"},
        {R"('\n' '\t' '\b' '\r' '\f' '\'' '\"' '\\')", "c10 c9 c8 c13 c12 c39 c34 c92"},
        {R"('\0' '\7' '\12' '\101' '\377' '\134' '\08')", "c0 c7 c10 c65 c255 c92 <bad> i8 <bad>",
         "1:38 unclosed character literal|1:42 unclosed character literal"},
        {"'\\400'", "<bad> i0 <bad>", "1:1 unclosed character literal|1:6 unclosed character literal"},
        {R"('\u0041' '\uffff' '\ud83d')", "c65 c65535 c55357"},
        {"'\xE9'", "c233"},
        {R"('\u005cn' '\u005c\u006e' '\u005c'' '\u005c\u005c' '\\')", "c10 c10 c39 c92 c92"},
        {R"(\u0027a\u0027)", "c97"},
        {"'\\u001a'", "c26"},
        {"'\t'", "c9"},
        {"''", "<bad>", "1:1 empty character literal"},
        {"'\\u0027 a", "<bad> a", "1:1 empty character literal"},
        {"'ab'", "<bad> b <bad>", "1:1 unclosed character literal|1:4 unclosed character literal"},
        {"'a", "<bad>", "1:1 unclosed character literal"},
        {"'", "<bad>", "1:1 unclosed character literal"},
        {"'\n'a'", "<bad> c97", "1:1 unclosed character literal"},
        {"'\\u000a'", "<bad> <bad>", "1:1 unclosed character literal|2:1 unclosed character literal"},
        {R"('\q')", "c113", "1:3 invalid escape character"},
        {R"('\u00g')", "c103", "1:6 invalid escape character"},
    });
}

TEST(Scanner, StringLiterals) {
    expectTokens({
        {R"("" "abc" "it's")", R"("" "abc" "it's")"},
        {R"("\141\7\0601\400")", R"("a\u000701 0")"},
        {R"("a\tb\\u0041\u0041")", R"("a\tb\\u0041A")"},
        {R"("\\\u0041\\\\u0041")", R"("\\A\\\\u0041")"},
        {R"("\u005c\u005c\u005c"x\u0022 y)", R"("\\"x" y)"},
        {R"("\u005cu005a")", R"("u005a")", "1:8 invalid escape character"},
        {"\"\xE9\\u00e9\"", R"("\u00E9\u00E9")"},
        {R"("\ud83d\ude00\u20AC")", R"("\uD83D\uDE00\u20AC")"},
        {"\"a\0b\""s, R"("a\u0000b")"},
        {"\"a\tb\\u001a\"", R"("a\tb\u001A")"},
        {"\"abc", "<bad>", "1:1 unclosed character literal"},
        {"\"abc\ndef", "<bad> def", "1:1 unclosed character literal"},
        {"\"abc\\", "<bad>", "1:1 unclosed character literal"},
        {"\"abc\\\rdef\"", "<bad> def <bad>", "1:1 unclosed character literal|2:4 unclosed character literal"},
        {R"("ab\u000acd")", "<bad> cd <bad>", "1:1 unclosed character literal|2:3 unclosed character literal"},
        {"\"a\x1A\"", "<bad>", "1:1 unclosed character literal"},
        {R"("a\qb\u0q")", R"("aqbq")", "1:4 invalid escape character|1:9 invalid escape character"},
        {R"("\u)", "<bad>", "1:4 invalid escape character|1:1 unclosed character literal"},
    });
}

TEST(Scanner, CommentsAreBlank) {
    expectTokens({
        {"a// b\nc//", "a c"},
        {"a/* b */c/**/d/***/e/****/f", "a c d e f"},
        {"/*/ a */b", "b"},
        {"/* * / ** **/b", "b"},
        {"/* // */ a", "a"},
        {"// /*\na", "a"},
        {R"(// \u000a a)", "a"},
        {"// C:\\\\users \\\\\\\\u\na", "a"},
        {"// \\\\\\u000a a", "a"},
        {"// \\u001a b\na", "a"},
        {"// \x1A\na", ""},
        {R"(/* *\u002f a)", "a"},
        {R"(/* *\\\u002f b */ a)", "a"},
        {R"(/* \u002a/ a /*\u002a\u002f b /* *\u002a/ c)", "a b c"},
        {R"(\u002f\u002a \u002f*/ a /\u002f b)", "a"},
        {"/* \\u002a /* \\ */ a", "a"},
        {"/* C:\\\\users */ a", "a"},
        {"/* \\u001a */ a", "a"},
        {"/* C:\\users\n */ a", "a", "1:8 invalid escape character"},
        {"// C:\\users\na", "a", "1:8 invalid escape character"},
        {"// \\u12\na", "a", "1:8 invalid escape character"},
        {"/* a", "<bad>", "1:1 unclosed comment"},
        {"b /* a *", "b <bad>", "1:3 unclosed comment"},
        {"/*/", "<bad>", "1:1 unclosed comment"},
        {"/** \x1A */ a", "<bad>", "1:1 unclosed comment"},
        {"/* \\u002a", "<bad>", "1:1 unclosed comment"},
        {"/* \\u0", "<bad>", "1:7 invalid escape character|1:1 unclosed comment"},
    });
}

TEST(Scanner, EndOfInput) {
    expectTokens({
        {"a \x1A b", "a"},
        {R"(a \u001a)", "a"},
        {R"(a \u001a b)", "a <bad> b", "1:3 illegal character"},
    });
    Scanner scanner(*storeOf("a"), std::nullopt);
    for (int i = 0; i < 3; i++) {
        scanner.nextToken();
        EXPECT_EQ(scanner.token, Token::END_OF_INPUT);
        EXPECT_EQ(scanner.pos, makePosition(1, 2));
    }
}

TEST(Scanner, Positions) {
    struct {
        std::string_view source;
        std::string_view places;
    } const rows[] = {
        {"a b\n c", "1:1 1:3 2:2"},
        {"a\r\nb\rc\nd\n\re", "1:1 2:1 3:1 4:1 6:1"},
        {"a\fb", "1:1 2:1"},
        {"\ta\t\tb", "1:2 1:5"},
        {"/* \r\n \r \n */ a", "4:5"},
        {"/* \f */ a", "1:9"},
        {"// x\r\na // y\rb", "2:1 3:1"},
        {"// \\u000a a", "1:11"},
        {"\\u000aa", "2:1"},
        {"/* \\u000a */ a", "2:5"},
        {"\\u00e9t\\u00e9 a", "1:1 1:15"},
        {"\xE9t\xE9 a", "1:1 1:5"},
        {"\"x\\n\"'a'1.5e3+", "1:1 1:6 1:9 1:14"},
        {"a\\u0020b", "1:1 1:8"},
    };
    for (const auto& row : rows) EXPECT_EQ(scan(row.source).places, row.places) << row.source;
}

TEST(Scanner, ColumnsRunOverIntoTheLine) {
    EXPECT_EQ(scan(std::string(1022, ' ') + "a b").places, "1:1023 2:1");
    EXPECT_EQ(scan(std::string(4096, ' ') + "a\nb").places, "5:1 2:1");
}

TEST(Scanner, DocCommentsDeprecate) {
    struct {
        std::string_view source;
        bool deprecated;
    } const rows[] = {
        {"/** @deprecated */", true},          {"/**\n * Text.\n *\t@deprecated use b\n */ a", true},
        {"/**\r@deprecatedly*/", true},        {"/**@deprecated*/", true},
        {"/** *** @deprecated */", true},      {"/**\n \\u002a\\u0020@deprecated */", true},
        {"/** a\\u000a @deprecated */", true}, {"/* @deprecated */", false},
        {"/** see @deprecated */", false},     {"/**\n * \xE9 @deprecated */", false},
        {"/** \\u0061 @deprecated */", false}, {"/** @ deprecated @deprecated */", false},
        {"/** @deprecate */", false},          {"/** {@deprecated} */", false},
        {"// /** @deprecated */", false},      {"/**/ /* @deprecated */", false},
    };
    for (const auto& row : rows) EXPECT_EQ(scan(row.source).deprecated, row.deprecated) << row.source;
}

TEST(Scanner, ReadsSourcesOfAnySize) {
    for (std::size_t size : {65534, 65535, 65536, 65537, 200000}) {
        std::string text(size - 3, ' ');
        text += "end";
        Scanner scanner(*storeOf(text), std::nullopt);
        EXPECT_EQ(scanner.name->view(), "end");
        scanner.nextToken();
        EXPECT_EQ(scanner.token, Token::END_OF_INPUT);
    }
    Scanner scanner(*storeOf("a"), std::nullopt);
    scanner.nextToken();
    EXPECT_EQ(scanner.token, Token::END_OF_INPUT);
}

TEST(Scanner, DecodesTheSource) {
    RecordingReporter reporter;
    Scanner utf16(*storeOf("\0a\0;"s), "UnicodeBig");
    EXPECT_EQ(utf16.name->view(), "a");
    utf16.nextToken();
    EXPECT_EQ(utf16.token, Token::SEMICOLON);
    utf16.nextToken();
    EXPECT_EQ(utf16.token, Token::END_OF_INPUT);
    EXPECT_THROW(Scanner(*storeOf("a"), "no such encoding"), UnsupportedEncoding);
}

/// Cuts and garbles texts that hold every construct; whatever comes out, it ends, within the text.
TEST(Scanner, SurvivesDamagedSources) {
    const std::string text =
        "class A { /** @deprecated */ int a\\u0041 = 0x1fL + 1.5e-3f - '\\u0041' + \"x\\141\\n\\u005cn\"; // c\\u000a\n"
        "/* d *\\u002f char b = '\\n' >>>= \\u0030 } \xE9 \\u001a .\\u0035";
    for (std::size_t length = 0; length <= text.size(); length++) {
        EXPECT_NE(scan(text.substr(0, length)).tokens, "endless");
    }
    for (std::size_t at = 0; at < text.size(); at++) {
        for (char byte : {'\\', '\'', '"', '/', '*', '\n', 'u', '\x1A', '\0', '\xFF', '0', 'e'}) {
            std::string damaged = text;
            damaged[at] = byte;
            EXPECT_NE(scan(damaged).tokens, "endless") << damaged;
        }
    }
}

} // namespace
} // namespace tarn
