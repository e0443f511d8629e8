#include "store/encoding.h"

#include "driver/properties.h"
#include "runtime/failure.h"
#include "store/escape_writer.h"
#include "store/multi_byte.h"
#include "store/single_byte.h"

#include <string_view>

namespace tarn {

namespace {

using Source = std::span<const std::uint8_t>;

constexpr std::string_view LATIN_1 = "8859_1";

/// A canonical name and its other names, parted by blanks.
struct Aliases {
    std::string_view canonical;
    std::string_view others;
};

constexpr Aliases ALIASES[] = {
    {"8859_1", "ISO_8859-1:1978 iso-ir-100 ISO_8859-1 ISO-8859-1 latin1 l1 IBM819 CP819 csISOLatin1"},
    {"8859_2", "ISO_8859-2:1987 iso-ir-101 ISO_8859-2 ISO-8859-2 latin2 l2 csISOLatin2"},
    {"8859_3", "ISO_8859-3:1988 iso-ir-109 ISO_8859-3 ISO-8859-3 latin3 l3 csISOLatin3"},
    {"8859_4", "ISO_8859-4:1988 iso-ir-110 ISO_8859-4 ISO-8859-4 latin4 l4 csISOLatin4"},
    {"8859_5", "ISO_8859-5:1988 iso-ir-144 ISO_8859-5 ISO-8859-5 cyrillic csISOLatinCyrillic"},
    {"8859_6", "ISO_8859-6:1987 iso-ir-127 ISO_8859-6 ISO-8859-6 ECMA-114 ASMO-708 arabic csISOLatinArabic"},
    {"8859_7", "ISO_8859-7:1987 iso-ir-126 ISO_8859-7 ISO-8859-7 ELOT_928 ECMA-118 greek greek8 csISOLatinGreek"},
    {"8859_8", "ISO_8859-8:1988 iso-ir-138 ISO_8859-8 ISO-8859-8 hebrew csISOLatinHebrew"},
    {"8859_9", "ISO_8859-9:1989 iso-ir-148 ISO_8859-9 ISO-8859-9 latin5 l5 csISOLatin5"},
    {"Cp437", "IBM437 cp437 437 csPC8CodePage437"},
    {"Cp737", "IBM737 cp737 737"},
    {"Cp775", "IBM775 cp775 775"},
    {"Cp850", "IBM850 cp850 850 csPC850Multilingual"},
    {"Cp852", "IBM852 cp852 852 csPCp852"},
    {"Cp855", "IBM855"},
    {"Cp857", "IBM857 cp857 857 csIBM857"},
    {"Cp860", "IBM860 cp860 860 csIBM860"},
    {"Cp861", "IBM861 cp861 cp-is 861 csIBM861"},
    {"Cp862", "IBM862 cp862 862 csPC862LatinHebrew"},
    {"Cp863", "IBM863 cp863 863 csIBM863"},
    {"Cp864", "IBM864 cp864 csIBM864"},
    {"Cp865", "IBM865 cp865 865 csIBM865"},
    {"Cp866", "IBM866 cp866 866"},
    {"Cp869", "IBM869 cp869 869 cp-gr csIBM869"},
    {"Cp874", "IBM874 cp874 874"},
    {"JIS", "ISO-2022-JP csISO2022JP JIS_Encoding csJISEncoding"},
    {"SJIS", "Shift_JIS MS_Kanji csShiftJIS Windows-31J csWindows31J"},
    {"EUCJIS", "Extended_UNIX_Code_Packed_Format_for_Japanese csEUCPkdFmtJapanese"},
    {"Cp1250", "windows-1250"},
    {"Cp1251", "windows-1251"},
    {"Cp1252", "windows-1252"},
    {"Cp1253", "windows-1253"},
    {"Cp1254", "windows-1254"},
    {"Cp1255", "windows-1255"},
    {"Cp1256", "windows-1256"},
    {"Cp1257", "windows-1257"},
    {"Cp1258", "windows-1258"},
};

bool isOneOf(std::string_view name, std::string_view list) {
    while (!list.empty()) {
        std::size_t end = list.find(' ');
        if (list.substr(0, end) == name) return true;
        list = end == std::string_view::npos ? std::string_view() : list.substr(end + 1);
    }
    return false;
}

std::string_view canonicalName(std::string_view name) {
    for (const Aliases& aliases : ALIASES)
        if (isOneOf(name, aliases.others)) return aliases.canonical;
    return name;
}

void decodeLatin1(Source source, EscapeWriter& out) {
    for (source = putAsciiRun(source, out); !source.empty(); source = putAsciiRun(source, out)) {
        out.putUnit(source[0]);
        source = source.subspan(1);
    }
}

void decodeSingleByte(SingleByteSet set, Source source, EscapeWriter& out) {
    if (set.low != nullptr) {
        for (std::uint8_t byte : source) out.putUnit(byte < 0x80 ? set.low[byte] : set.high[byte - 0x80]);
        return;
    }
    for (source = putAsciiRun(source, out); !source.empty(); source = putAsciiRun(source, out)) {
        out.putUnit(set.high[source[0] - 0x80]);
        source = source.subspan(1);
    }
}

/// Overlong forms count for the character that they spell. What the end of the source cuts off is left out.
void decodeUtf8(Source source, EscapeWriter& out) {
    for (source = putAsciiRun(source, out); !source.empty(); source = putAsciiRun(source, out)) {
        std::uint8_t first = source[0];
        std::size_t length = first >> 5 == 0b110 ? 2 : first >> 4 == 0b1110 ? 3 : first >> 3 == 0b11110 ? 4 : 0;
        if (length == 0) throw MalformedInput("Malformed character");
        char32_t character = first & (0x7Fu >> length);
        for (std::size_t i = 1; i < length; ++i) {
            if (i == source.size()) return;
            if ((source[i] & 0xC0) != 0x80) throw MalformedInput("Malformed character");
            character = character << 6 | (source[i] & 0x3F);
        }
        if (character > 0x10FFFF) throw MalformedInput("Character out of range");
        out.putCharacter(character);
        source = source.subspan(length);
    }
}

enum class ByteOrder { UNKNOWN, BIG, LITTLE };

char16_t unitAt(Source source, std::size_t at, ByteOrder order) {
    int first = source[at];
    int second = source[at + 1];
    return static_cast<char16_t>(order == ByteOrder::LITTLE ? second << 8 | first : first << 8 | second);
}

/// UTF-16. An odd last byte is left out.
void decodeUnicode(ByteOrder order, Source source, EscapeWriter& out) {
    constexpr char16_t MARK = 0xFEFF;
    constexpr char16_t REVERSED_MARK = 0xFFFE;
    if (source.size() < 2) return;

    char16_t first = unitAt(source, 0, ByteOrder::BIG);
    ByteOrder marked = first == MARK ? ByteOrder::BIG : first == REVERSED_MARK ? ByteOrder::LITTLE : ByteOrder::UNKNOWN;
    std::size_t at = 0;
    if (marked != ByteOrder::UNKNOWN) {
        if (order != ByteOrder::UNKNOWN && order != marked) throw MalformedInput("Incorrect byte-order mark");
        order = marked;
        at = 2;
    }
    if (order == ByteOrder::UNKNOWN) throw MalformedInput("Missing byte-order mark");
    for (; at + 1 < source.size(); at += 2) {
        char16_t unit = unitAt(source, at, order);
        if (unit == REVERSED_MARK) throw MalformedInput("Reversed byte-order mark");
        out.putUnit(unit);
    }
}

/// False if no converter has the name.
bool decode(std::string_view name, Source source, EscapeWriter& out) {
    if (name == LATIN_1) {
        decodeLatin1(source, out);
    } else if (name == "UTF8") {
        decodeUtf8(source, out);
    } else if (name == "Unicode") {
        decodeUnicode(ByteOrder::UNKNOWN, source, out);
    } else if (name == "UnicodeBig") {
        decodeUnicode(ByteOrder::BIG, source, out);
    } else if (name == "UnicodeLittle") {
        decodeUnicode(ByteOrder::LITTLE, source, out);
    } else if (SingleByteSet set = findSingleByteSet(name); set.high != nullptr) {
        decodeSingleByte(set, source, out);
    } else {
        return decodeMultiByte(name, source, out);
    }
    return true;
}

} // namespace

std::optional<std::string> resolveEncoding(const std::optional<std::string>& name) {
    if (!name || *name == "null") return std::nullopt;
    if (*name != "default") return name;
    std::optional<std::string> chosen = systemProperty("file.encoding");
    if (!chosen || *chosen == LATIN_1) return std::nullopt;
    return chosen;
}

std::optional<Bytes> decodeSource(std::span<const std::uint8_t> bytes, const std::optional<std::string>& encoding) {
    if (!encoding) return std::nullopt;
    EscapeWriter out(bytes.size());
    if (!decode(canonicalName(*encoding), bytes, out)) throw UnsupportedEncoding(*encoding);
    return out.take();
}

} // namespace tarn
