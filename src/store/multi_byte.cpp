#include "store/multi_byte.h"

#include "runtime/failure.h"

#include <algorithm>
#include <iconv.h>
#include <iterator>

// What a sequence means comes from the system's conversion library, which is asked for one sequence at a time; where a
// sequence begins and ends, and what is malformed, is told here. Libraries differ in that, and in the meaning of a few
// sequences: those stand in tables of corrections, which hold the mapping of the Unicode consortium's files.

namespace tarn {

namespace {

using Source = std::span<const std::uint8_t>;

constexpr char16_t NO_CHARACTER = 0xFFFD;

constexpr bool within(std::uint8_t byte, int first, int last) {
    return byte >= first && byte <= last;
}

// --- Where sequences end ------------------------------------------------------------------------------------------

constexpr int MALFORMED = 0;
constexpr int CUT_OFF = -1;

/// Length of the sequence at the start of a source, which is not empty and begins with no ASCII; MALFORMED, or CUT_OFF
/// if the source ends before the sequence does.
using SequenceLength = int (*)(Source);

constexpr bool inRowOf94(std::uint8_t byte) {
    return within(byte, 0xA1, 0xFE);
}

/// `length` if all bytes of the sequence behind the first `checked` ones lie in rows of 94.
int rowsOf94(Source source, std::size_t checked, int length) {
    for (std::size_t i = checked; i < static_cast<std::size_t>(length); ++i) {
        if (i == source.size()) return CUT_OFF;
        if (!inRowOf94(source[i])) return MALFORMED;
    }
    return length;
}

int eucLength(Source source) {
    return rowsOf94(source, 0, 2);
}

constexpr std::uint8_t SINGLE_SHIFT_2 = 0x8E;
constexpr std::uint8_t SINGLE_SHIFT_3 = 0x8F;

int eucJapanLength(Source source) {
    if (source[0] == SINGLE_SHIFT_3) return rowsOf94(source, 1, 3);
    if (source[0] != SINGLE_SHIFT_2) return rowsOf94(source, 0, 2);
    if (source.size() < 2) return CUT_OFF;
    return within(source[1], 0xA1, 0xDF) ? 2 : MALFORMED;
}

int eucTaiwanLength(Source source) {
    if (source[0] != SINGLE_SHIFT_2) return rowsOf94(source, 0, 2);
    if (source.size() < 2) return CUT_OFF;
    bool plane = within(source[1], 0xA1, 0xB0);
    return plane ? rowsOf94(source, 2, 4) : MALFORMED;
}

int shiftJapanLength(Source source) {
    if (within(source[0], 0xA1, 0xDF)) return 1;
    if (!within(source[0], 0x81, 0x9F) && !within(source[0], 0xE0, 0xFC)) return MALFORMED;
    if (source.size() < 2) return CUT_OFF;
    return within(source[1], 0x40, 0x7E) || within(source[1], 0x80, 0xFC) ? 2 : MALFORMED;
}

int big5Length(Source source) {
    if (!within(source[0], 0x81, 0xFE)) return MALFORMED;
    if (source.size() < 2) return CUT_OFF;
    return within(source[1], 0x40, 0x7E) || within(source[1], 0xA1, 0xFE) ? 2 : MALFORMED;
}

// --- What they mean -----------------------------------------------------------------------------------------------

/// A run of sequences, as big-endian numbers, that mean consecutive characters from `unit` on, or all of them nothing.
struct Correction {
    std::uint32_t first;
    std::uint32_t last;
    char16_t unit;
};

constexpr Correction SHIFT_JAPAN_CORRECTIONS[] = {{0x815C, 0x815C, 0x2014}};
constexpr Correction EUC_JAPAN_CORRECTIONS[] = {{0xA1BD, 0xA1BD, 0x2014}};
constexpr Correction EUC_TAIWAN_CORRECTIONS[] = {{0x8EA6C2E7, 0x8EA6C2E7, NO_CHARACTER}};
constexpr Correction BIG5_CORRECTIONS[] = {
    {0xA145, 0xA145, 0x2022}, {0xA14E, 0xA14E, 0xFF64}, {0xA15A, 0xA15A, 0xFF3F}, {0xA1C2, 0xA1C2, 0x203E},
    {0xA1C3, 0xA1C3, 0xFFFD}, {0xA1C5, 0xA1C5, 0xFFFD}, {0xA1E3, 0xA1E3, 0x223C}, {0xA1F2, 0xA1F2, 0x2641},
    {0xA1F3, 0xA1F3, 0x2609}, {0xA1FE, 0xA1FE, 0x2571}, {0xA240, 0xA240, 0x2572}, {0xA241, 0xA241, 0xFF0F},
    {0xA242, 0xA242, 0xFF3C}, {0xA244, 0xA244, 0x00A5}, {0xA246, 0xA247, 0x00A2}, {0xA3E1, 0xA3E1, 0xFFFD},
    {0xC6A1, 0xC6A1, 0x30FE}, {0xC6A2, 0xC6A3, 0x309D}, {0xC6A4, 0xC6A4, 0x3005}, {0xC6A5, 0xC6F7, 0x3041},
    {0xC6F8, 0xC6FE, 0x30A1}, {0xC740, 0xC77E, 0x30A8}, {0xC7A1, 0xC7B0, 0x30E7}, {0xC7B1, 0xC7B2, 0x0414},
    {0xC7B3, 0xC7B3, 0x0401}, {0xC7B4, 0xC7BA, 0x0416}, {0xC7BB, 0xC7CD, 0x0423}, {0xC7CE, 0xC7CE, 0x0451},
    {0xC7CF, 0xC7E8, 0x0436}, {0xC7E9, 0xC7F2, 0x2460}, {0xC7F3, 0xC7FC, 0x2474}, {0xC7FD, 0xC7FE, 0xFFFD},
    {0xC840, 0xC87E, 0xFFFD}, {0xC8A1, 0xC8FE, 0xFFFD}, {0xF9D6, 0xF9FE, 0xFFFD},
};

struct MultiByteSet {
    std::string_view name;
    const char* libraryName;
    SequenceLength sequenceLength;
    std::span<const Correction> corrections; ///< ascending
};

constexpr MultiByteSet EUC_JAPAN = {"EUCJIS", "EUC-JP", eucJapanLength, EUC_JAPAN_CORRECTIONS};

constexpr MultiByteSet SETS[] = {
    EUC_JAPAN,
    {"SJIS", "SHIFT_JIS", shiftJapanLength, SHIFT_JAPAN_CORRECTIONS},
    {"GB2312", "EUC-CN", eucLength, {}},
    {"KSC5601", "EUC-KR", eucLength, {}},
    {"Big5", "BIG5", big5Length, BIG5_CORRECTIONS},
    {"CNS11643", "EUC-TW", eucTaiwanLength, EUC_TAIWAN_CORRECTIONS},
};

/// Writes what the sequences of one set mean.
class Meanings {
public:
    Meanings(const MultiByteSet& set, EscapeWriter& out)
        : set_(set), out_(out), library_(::iconv_open("UTF-16LE", set.libraryName)) {
        if (library_ == reinterpret_cast<iconv_t>(-1)) throw UnsupportedEncoding(std::string(set.name));
    }
    ~Meanings() { ::iconv_close(library_); }
    Meanings(const Meanings&) = delete;
    Meanings& operator=(const Meanings&) = delete;

    void put(Source sequence) {
        if (!putCorrected(sequence)) putFromLibrary(sequence);
    }

private:
    bool putCorrected(Source sequence) {
        std::uint32_t number = 0;
        for (std::uint8_t byte : sequence) number = number << 8 | byte;
        auto at = std::lower_bound(set_.corrections.begin(), set_.corrections.end(), number,
                                   [](const Correction& run, std::uint32_t wanted) { return run.last < wanted; });
        if (at == set_.corrections.end() || number < at->first) return false;
        out_.putUnit(at->unit == NO_CHARACTER ? NO_CHARACTER : static_cast<char16_t>(at->unit + number - at->first));
        return true;
    }

    void putFromLibrary(Source sequence) {
        char bytes[4];
        std::copy(sequence.begin(), sequence.end(), bytes);
        char units[16];
        char* in = bytes;
        char* end = units;
        std::size_t left = sequence.size();
        std::size_t room = sizeof units;
        if (::iconv(library_, &in, &left, &end, &room) == static_cast<std::size_t>(-1) || left != 0) {
            ::iconv(library_, nullptr, nullptr, nullptr, nullptr);
            out_.putUnit(NO_CHARACTER);
            return;
        }
        for (const char* at = units; at < end; at += 2)
            out_.putUnit(
                static_cast<char16_t>(static_cast<std::uint8_t>(at[0]) | static_cast<std::uint8_t>(at[1]) << 8));
    }

    const MultiByteSet& set_;
    EscapeWriter& out_;
    iconv_t library_;
};

void decodeSet(const MultiByteSet& set, Source source, EscapeWriter& out) {
    Meanings meanings(set, out);
    for (source = putAsciiRun(source, out); !source.empty(); source = putAsciiRun(source, out)) {
        int length = set.sequenceLength(source);
        if (length == CUT_OFF) return;
        if (length == MALFORMED) throw MalformedInput("Malformed sequence");
        meanings.put(source.first(static_cast<std::size_t>(length)));
        source = source.subspan(static_cast<std::size_t>(length));
    }
}

// --- ISO-2022-JP --------------------------------------------------------------------------------------------------

/// What the bytes stand for until the next escape sequence; RFC 1468, and the Katakana of JIS X 0201.
enum class JapaneseMode { ASCII, ROMAN, KATAKANA, KANJI };

struct JapaneseEscape {
    std::uint8_t bytes[3];
    JapaneseMode mode;
};

constexpr std::uint8_t ESCAPE = 0x1B;
constexpr JapaneseEscape JAPANESE_ESCAPES[] = {
    {{ESCAPE, '(', 'B'}, JapaneseMode::ASCII},    {{ESCAPE, '(', 'J'}, JapaneseMode::ROMAN},
    {{ESCAPE, '(', 'I'}, JapaneseMode::KATAKANA}, {{ESCAPE, '$', '@'}, JapaneseMode::KANJI},
    {{ESCAPE, '$', 'B'}, JapaneseMode::KANJI},
};

/// Decodes ISO-2022-JP. Its two-byte set is that of EUC-JP, less the high bits.
class JapaneseDecoder {
public:
    explicit JapaneseDecoder(EscapeWriter& out) : out_(out), kanji_(EUC_JAPAN, out) {}

    void decode(Source source) {
        while (!source.empty()) {
            std::size_t length = source[0] == ESCAPE ? escape(source) : character(source);
            if (length == 0) return;
            source = source.subspan(length);
        }
    }

private:
    /// Both give the length of what they took, 0 if it is cut off.
    std::size_t escape(Source source) {
        constexpr std::size_t LENGTH = sizeof JapaneseEscape::bytes;
        Source given = source.first(std::min(source.size(), LENGTH));
        for (const JapaneseEscape& known : JAPANESE_ESCAPES) {
            if (!std::equal(given.begin(), given.end(), known.bytes)) continue;
            if (given.size() < LENGTH) return 0;
            mode_ = known.mode;
            return LENGTH;
        }
        throw MalformedInput("Unknown escape sequence");
    }

    std::size_t character(Source source) {
        if (mode_ == JapaneseMode::KANJI) return kanji(source);
        std::uint8_t byte = source[0];
        constexpr std::uint8_t SHIFT_OUT = 0x0E;
        constexpr std::uint8_t SHIFT_IN = 0x0F;
        if (byte >= 0x80 || byte == SHIFT_OUT || byte == SHIFT_IN) throw MalformedInput("Malformed character");
        out_.putUnit(mode_ == JapaneseMode::ROMAN      ? roman(byte)
                     : mode_ == JapaneseMode::KATAKANA ? katakana(byte)
                                                       : byte);
        return 1;
    }

    static char16_t roman(std::uint8_t byte) { return byte == '\\' ? 0x00A5 : byte == '~' ? 0x203E : byte; }

    static char16_t katakana(std::uint8_t byte) {
        if (byte <= 0x20 || byte == 0x7F) return byte;
        if (byte > 0x5F) throw MalformedInput("Malformed character");
        return static_cast<char16_t>(0xFF61 + byte - 0x21);
    }

    std::size_t kanji(Source source) {
        if (!within(source[0], 0x21, 0x7E)) throw MalformedInput("Malformed character");
        if (source.size() < 2) return 0;
        if (!within(source[1], 0x21, 0x7E)) throw MalformedInput("Malformed character");
        const std::uint8_t euc[] = {static_cast<std::uint8_t>(source[0] | 0x80),
                                    static_cast<std::uint8_t>(source[1] | 0x80)};
        kanji_.put(euc);
        return 2;
    }

    EscapeWriter& out_;
    Meanings kanji_;
    JapaneseMode mode_ = JapaneseMode::ASCII;
};

} // namespace

bool decodeMultiByte(std::string_view canonicalName, std::span<const std::uint8_t> bytes, EscapeWriter& out) {
    if (canonicalName == "JIS") {
        JapaneseDecoder(out).decode(bytes);
        return true;
    }
    auto set = std::find_if(std::begin(SETS), std::end(SETS), [&](const auto& s) { return s.name == canonicalName; });
    if (set == std::end(SETS)) return false;
    decodeSet(*set, bytes, out);
    return true;
}

} // namespace tarn
