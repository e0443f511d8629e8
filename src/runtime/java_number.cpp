#include "runtime/java_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

namespace tarn {

namespace {

/// Whether a number that is out of range is too large rather than too small: its first nonzero digit has a positive
/// exponent.
bool isLarge(std::string_view text) {
    std::size_t mantissaEnd = std::min(text.find_first_of("eE"), text.size());
    std::size_t point = std::min(text.find('.'), mantissaEnd);
    std::size_t first = text.find_first_of("123456789");
    auto exponent = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    if (mantissaEnd == text.size()) return exponent > 0;
    std::string_view written = text.substr(mantissaEnd + 1);
    if (written.starts_with('+')) written.remove_prefix(1);
    std::int64_t value = 0;
    std::from_chars_result result = std::from_chars(written.data(), written.data() + written.size(), value);
    if (result.ec == std::errc::result_out_of_range) return !written.starts_with('-');
    // No text is so long that the sum leaves 64 bits unless the written exponent alone decides.
    constexpr std::int64_t decisive = std::int64_t{1} << 60;
    return exponent + std::clamp(value, -decisive, decisive) > 0;
}

template <class Float>
ParsedFloat<Float> parse(std::string_view text) {
    using Result = ParsedFloat<Float>;
    constexpr Result malformed{0, Result::MALFORMED};
    // What the library's function reads beyond Java's literals: signs, names of infinities, exponents that it leaves
    // over.
    if (text.empty() || !(text[0] == '.' || (text[0] >= '0' && text[0] <= '9'))) return malformed;
    Float value = 0;
    const char* end = text.data() + text.size();
    std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec == std::errc::invalid_argument || result.ptr != end) return malformed;
    if (result.ec == std::errc()) return {value, Result::FINE};
    if (isLarge(text)) return {std::numeric_limits<Float>::infinity(), Result::OVERFLOWN};
    return {0, Result::UNDERFLOWN};
}

/// Decimal digits d and an exponent e, for d[0].d[1]d[2]... times 10^e.
struct Decimal {
    std::string digits;
    int exponent;
};

Decimal readScientific(const char* begin, const char* end) {
    Decimal decimal;
    const char* at = begin;
    for (; *at != 'e'; at++) {
        if (*at != '.') decimal.digits += *at;
    }
    at += at[1] == '+' ? 2 : 1;
    std::from_chars(at, end, decimal.exponent);
    while (decimal.digits.size() > 1 && decimal.digits.back() == '0') decimal.digits.pop_back();
    return decimal;
}

/// The shortest digits that read back as the positive finite value, and of those the nearest to it. Where one digit is
/// enough, two are looked at as well, since two are shown in any case (4.9E-324 and not 5.0E-324).
template <class Float>
Decimal shortest(Float value) {
    char buffer[40];
    char* end = std::to_chars(buffer, std::end(buffer), value, std::chars_format::scientific).ptr;
    if (buffer[1] == 'e') {
        char twoDigits[40];
        char* twoEnd = std::to_chars(twoDigits, std::end(twoDigits), value, std::chars_format::scientific, 1).ptr;
        Float back = 0;
        std::from_chars(twoDigits, twoEnd, back);
        if (back == value) return readScientific(twoDigits, twoEnd);
    }
    return readScientific(buffer, end);
}

std::string plainText(const Decimal& decimal) {
    std::string text = decimal.digits;
    if (decimal.exponent < 0) return "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + text;
    auto whole = static_cast<std::size_t>(decimal.exponent) + 1;
    if (text.size() <= whole) text.append(whole + 1 - text.size(), '0');
    return text.insert(whole, ".");
}

std::string scientificText(const Decimal& decimal) {
    std::string text = decimal.digits;
    if (text.size() == 1) text += '0';
    return text.insert(1, ".") + 'E' + std::to_string(decimal.exponent);
}

template <class Float>
std::string floatText(Float value) {
    if (std::isnan(value)) return "NaN";
    std::string sign = std::signbit(value) ? "-" : "";
    if (std::isinf(value)) return sign + "Infinity";
    if (value == 0) return sign + "0.0";
    Decimal decimal = shortest(std::fabs(value));
    return sign + (decimal.exponent >= -3 && decimal.exponent < 7 ? plainText(decimal) : scientificText(decimal));
}

template <class Integer>
Integer truncate(double value) {
    using Limits = std::numeric_limits<Integer>;
    if (std::isnan(value)) return 0;
    // The least integer is a double; the greatest of 64 bits is not, and -min is the double above it.
    constexpr auto least = static_cast<double>(Limits::min());
    if (value <= least) return Limits::min();
    if (value >= -least) return Limits::max();
    return static_cast<Integer>(value);
}

} // namespace

ParsedFloat<float> parseFloat(std::string_view text) {
    return parse<float>(text);
}
ParsedFloat<double> parseDouble(std::string_view text) {
    return parse<double>(text);
}

std::string toJavaText(float value) {
    return floatText(value);
}
std::string toJavaText(double value) {
    return floatText(value);
}
std::string toJavaText(std::int32_t value) {
    return std::to_string(value);
}
std::string toJavaText(std::int64_t value) {
    return std::to_string(value);
}

std::int32_t toJavaInt(double value) {
    return truncate<std::int32_t>(value);
}
std::int64_t toJavaLong(double value) {
    return truncate<std::int64_t>(value);
}

} // namespace tarn
