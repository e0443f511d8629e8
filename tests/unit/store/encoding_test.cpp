#include "store/encoding.h"

#include "runtime/failure.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <zlib.h>

namespace tarn {
namespace {

std::string decoded(std::string_view source, const std::string& encoding) {
    try {
        Bytes result = *decodeSource({reinterpret_cast<const std::uint8_t*>(source.data()), source.size()}, encoding);
        return {result.begin(), result.end()};
    } catch (const MalformedInput&) {
        return "malformed";
    } catch (const UnsupportedEncoding& failure) {
        return std::string("unsupported ") + failure.what();
    }
}

/// The bytes that two hexadecimal digits each stand for; blanks part them at will.
std::string bytes(std::string_view digits) {
    std::string result;
    std::string rest;
    for (char digit : digits)
        if (digit != ' ') rest += digit;
    for (std::size_t i = 0; i + 1 < rest.size(); i += 2)
        result += static_cast<char>(std::stoi(rest.substr(i, 2), nullptr, 16));
    return result;
}

struct Row {
    const char* source; ///< in hexadecimal
    const char* result;
};

void expectAll(const std::string& encoding, const std::vector<Row>& rows) {
    for (const Row& row : rows) EXPECT_EQ(row.result, decoded(bytes(row.source), encoding)) << row.source;
}

TEST(Encoding, WithoutOneTheBytesAreTakenAsTheyAre) {
    const std::uint8_t source[] = {'a', 0xE9};
    EXPECT_EQ(std::nullopt, decodeSource(source, std::nullopt));
    EXPECT_EQ("a\\u00e9", decoded("a\xE9", "8859_1"));
}

TEST(Encoding, AsciiComesThroughUntouched) {
    std::string ascii;
    for (char c = 0; c < 127; ++c) ascii += c;
    ascii += "\\u00e9 \\\\ and the end\x1A";
    for (const char* name :
         {"8859_1", "8859_7", "Cp1252", "MacRoman", "SJIS", "EUCJIS", "GB2312", "KSC5601", "Big5", "CNS11643", "UTF8"})
        EXPECT_EQ(ascii, decoded(ascii, name)) << name;
}

TEST(Encoding, NamesCountWithTheirCase) {
    EXPECT_EQ("\\u20ac", decoded("\x80", "windows-1252"));
    EXPECT_EQ("\\u00e9", decoded("\xE9", "latin1"));
    EXPECT_EQ("\\u0431", decoded("\xD1", "cyrillic"));
    EXPECT_EQ("\\uff71", decoded("\xB1", "Windows-31J"));
    for (const char* name : {"Latin1", "utf8", "UTF-8", "cp855", "855", "864", "", "8859_10", "default", "cp-is cp861"})
        EXPECT_EQ(std::string("unsupported ") + name, decoded("x", name));
}

TEST(Encoding, ResolvesTheNamesWithAMeaningOfTheirOwn) {
    EXPECT_EQ(std::nullopt, resolveEncoding(std::nullopt));
    EXPECT_EQ(std::nullopt, resolveEncoding("null"));
    EXPECT_EQ("8859_1", resolveEncoding("8859_1"));
    EXPECT_EQ("no such name", resolveEncoding("no such name"));

    ::setenv("LC_ALL", "C", 1);
    EXPECT_EQ(std::nullopt, resolveEncoding("default"));
    ::setenv("LC_ALL", "pl_PL", 1);
    EXPECT_EQ("Cp1250", resolveEncoding("default"));
    ::unsetenv("LC_ALL");
}

TEST(Encoding, Utf8) {
    expectAll("UTF8", {{"C3A9 7A", "\\u00e9z"},
                       {"E282AC", "\\u20ac"},
                       {"F09D849E", "\\ud834\\udd1e"},
                       {"F48FBFBF", "\\udbff\\udfff"},
                       {"EFBFBD", "\\ufffd"},
                       {"EDA080", "\\ud800"},
                       {"C1A1 E081A1 F08081A1", "aaa"}, // overlong
                       {"C280 C081", "\\u0080\x01"},
                       {"80", "malformed"},
                       {"BF", "malformed"},
                       {"C341", "malformed"},
                       {"E2821A", "malformed"},
                       {"C31A", "malformed"},
                       {"F09D84C0", "malformed"},
                       {"F4908080", "malformed"},
                       {"F8888080 80", "malformed"},
                       {"FF", "malformed"},
                       {"41E282", "A"}});
}

TEST(Encoding, Utf16GoesByItsMark) {
    expectAll("Unicode", {{"FEFF 0041 20AC 1A", "A\\u20ac"},
                          {"FFFE 4100 AC20 1A", "A\\u20ac"},
                          {"FEFF FEFF", "\\ufeff"},
                          {"FEFF FFFE", "malformed"},
                          {"FFFE FEFF", "malformed"},
                          {"0041 0042", "malformed"},
                          {"1A", ""},
                          {"FEFF D834 DD1E", "\\ud834\\udd1e"}});
    expectAll("UnicodeBig",
              {{"FEFF 0041", "A"}, {"0041 1A", "A"}, {"FFFE 4100", "malformed"}, {"0041 FFFE", "malformed"}});
    expectAll("UnicodeLittle",
              {{"FFFE 4100", "A"}, {"4100 1A", "A"}, {"FEFF 0041", "malformed"}, {"4100 FEFF", "malformed"}});
}

TEST(Encoding, AByteWithoutACharacterIsReplaced) {
    expectAll("Cp1252", {{"80 81 41", "\\u20ac\\ufffdA"}});
    expectAll("Cp864", {{"25", "\\u066a"}});
    expectAll("MacSymbol", {{"61", "\\u03b1"}});
}

TEST(Encoding, OfSeveralBytesWhatTheStructureExcludesIsMalformed) {
    expectAll("SJIS", {{"889F 5C 815C B1", "\\u4e9c\\\\u2014\\uff71"},
                       {"8740 F040 FCFC", "\\ufffd\\ufffd\\ufffd"},
                       {"80", "malformed"},
                       {"A0", "malformed"},
                       {"FD40", "malformed"},
                       {"817F", "malformed"},
                       {"81FD", "malformed"},
                       {"811A", "malformed"},
                       {"4181", "A"}});
    expectAll("EUCJIS", {{"B0A1 8EB1 8FB0A1", "\\u4e9c\\uff71\\u4e02"},
                         {"A9A1 8FA1A1", "\\ufffd\\ufffd"},
                         {"8EE0", "malformed"},
                         {"8FB020", "malformed"},
                         {"B01A", "malformed"},
                         {"85A1", "malformed"}});
    expectAll("GB2312", {{"B0A1", "\\u554a"}, {"FEFE", "\\ufffd"}, {"B080", "malformed"}, {"80A1", "malformed"}});
    expectAll("KSC5601", {{"B0A1", "\\uac00"}, {"C9A1", "\\ufffd"}, {"8141", "malformed"}, {"B01A", "malformed"}});
    expectAll("Big5", {{"A440 A145", "\\u4e00\\u2022"},
                       {"8140 C8FE F9D6", "\\ufffd\\ufffd\\ufffd"},
                       {"A47F", "malformed"},
                       {"A4A0", "malformed"},
                       {"80", "malformed"},
                       {"FFA1", "malformed"}});
    expectAll("CNS11643", {{"C4A1 8EA1C4A1", "\\u4e00\\u4e00"},
                           {"8EA2A1A1", "\\u4e42"},
                           {"8EA8A1A1", "\\ufffd"},
                           {"8EB1A1A1", "malformed"},
                           {"8EA0A1A1", "malformed"},
                           {"8EA2A11A", "malformed"},
                           {"8EA2", ""}});
}

TEST(Encoding, Iso2022JapanShiftsBetweenItsSets) {
    expectAll("JIS", {{"1B2442 3021 1B2842 41 1A", "\\u4e9cA\x1A"},
                      {"1B2440 3021 213D 1B284A 5C 7E 41", "\\u4e9c\\u2014\\u00a5\\u203eA"},
                      {"1B2849 31 0A", "\\uff71\n"},
                      {"1B2442 2921", "\\ufffd"},
                      {"1B2442 3021 1A", "malformed"},
                      {"1B2442 300A", "malformed"},
                      {"1B2443", "malformed"},
                      {"1B2841", "malformed"},
                      {"1B2849 60", "malformed"},
                      {"B1", "malformed"},
                      {"0E", "malformed"},
                      {"411B24", "A"}});
}

// --- Every sequence of every set, against digests of what the Java runtime makes of it ----------------------------

struct Range {
    int first;
    int last;
};

/// All sequences with one byte from each place, in ascending order; a place is a list of ranges.
std::string product(const std::vector<std::vector<Range>>& places, std::size_t from = 0,
                    const std::string& start = {}) {
    if (from == places.size()) return start;
    std::string all;
    for (Range range : places[from])
        for (int byte = range.first; byte <= range.last; ++byte)
            all += product(places, from + 1, start + static_cast<char>(byte));
    return all;
}

std::map<std::string, std::string> multiByteSources() {
    const std::vector<Range> row = {{0xA1, 0xFE}};
    const std::vector<Range> single = {{0x8E, 0x8E}};
    return {
        {"SJIS", product({{{0x81, 0x9F}, {0xE0, 0xFC}}, {{0x40, 0x7E}, {0x80, 0xFC}}}) + product({{{0xA1, 0xDF}}})},
        {"EUCJIS", product({row, row}) + product({single, {{0xA1, 0xDF}}}) + product({{{0x8F, 0x8F}}, row, row})},
        {"GB2312", product({row, row})},
        {"KSC5601", product({row, row})},
        {"Big5", product({{{0x81, 0xFE}}, {{0x40, 0x7E}, {0xA1, 0xFE}}})},
        {"CNS11643", product({row, row}) + product({single, {{0xA2, 0xB0}}, row, row})},
        {"JIS", product({{{0x1B, 0x1B}}, {{'(', '('}}, {{'I', 'I'}}, {{0x21, 0x5F}}}) +
                    product({{{0x1B, 0x1B}}, {{'(', '('}}, {{'J', 'J'}}, {{0x21, 0x7E}}}) +
                    product({{{0x1B, 0x1B}}, {{'$', '$'}}, {{'B', 'B'}}, {{0x21, 0x7E}}, {{0x21, 0x7E}}})},
    };
}

/// CRC-32 of the UTF-16 units that a rendered text stands for.
std::uint32_t digestOf(const std::string& rendered) {
    std::string units;
    for (std::size_t i = 0; i < rendered.size();) {
        bool escape = rendered.compare(i, 2, "\\u") == 0;
        int unit = escape ? std::stoi(rendered.substr(i + 2, 4), nullptr, 16) : rendered[i];
        units += static_cast<char>(unit >> 8);
        units += static_cast<char>(unit);
        i += escape ? 6 : 1;
    }
    return static_cast<std::uint32_t>(
        ::crc32(0, reinterpret_cast<const Bytef*>(units.data()), static_cast<uInt>(units.size())));
}

struct Digest {
    const char* name;
    std::uint32_t crc;
};

constexpr Digest DIGESTS[] = {
#include "unit/store/encoding_digests.inc"
};

TEST(Encoding, EverySequenceMeansWhatTheJavaRuntimeSays) {
    const std::map<std::string, std::string> sources = multiByteSources();
    const std::string allBytes = product({{{0, 0xFF}}});
    for (const Digest& digest : DIGESTS) {
        auto source = sources.find(digest.name);
        EXPECT_EQ(digest.crc, digestOf(decoded(source == sources.end() ? allBytes : source->second, digest.name)))
            << digest.name;
    }
}

} // namespace
} // namespace tarn
