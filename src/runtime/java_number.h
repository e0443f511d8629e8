#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarn {

/// What the text of a floating point literal says, rounded to the nearest value of the type.
template <class Float>
struct ParsedFloat {
    /// UNDERFLOW: a nonzero text below half the smallest value, which gives 0. OVERFLOWN: above all finite values,
    /// which gives infinity. MALFORMED: no number at all, which gives 0.
    enum Status { FINE, UNDERFLOWN, OVERFLOWN, MALFORMED };
    Float value;
    Status status;
};

/// Reads digits with at most one point, at least one digit, and optionally an exponent; no sign, blanks or suffix.
ParsedFloat<float> parseFloat(std::string_view text);
ParsedFloat<double> parseDouble(std::string_view text);

/// The text of the value as Float.toString and Double.toString have it since JDK 19: the fewest digits that read back
/// as the value, at least one of them behind the point; "1.0E10" from 10^7 up and "1.0E-4" below 10^-3.
std::string toJavaText(float value);
std::string toJavaText(double value);
/// Decimal.
std::string toJavaText(std::int32_t value);
std::string toJavaText(std::int64_t value);

/// The conversions d2i and d2l (f2i and f2l through the exact double): towards zero, to the nearest limit if the value
/// does not fit, and to 0 if it is no number.
std::int32_t toJavaInt(double value);
std::int64_t toJavaLong(double value);

} // namespace tarn
