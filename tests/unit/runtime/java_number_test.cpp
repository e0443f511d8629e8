#include "runtime/java_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace tarn {
namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(JavaNumber, TextOfDoubles) {
    struct {
        double value;
        std::string_view text;
    } const rows[] = {
        {0.0, "0.0"},
        {-0.0, "-0.0"},
        {1, "1.0"},
        {-1.5, "-1.5"},
        {0.1, "0.1"},
        {0.002, "0.002"},
        {0.001, "0.001"},
        {0.00099, "9.9E-4"},
        {0.0001, "1.0E-4"},
        {100, "100.0"},
        {123456.75, "123456.75"},
        {1234567.0, "1234567.0"},
        {9999999.0, "9999999.0"},
        {9999999.999999998, "9999999.999999998"},
        {1e7, "1.0E7"},
        {1e10, "1.0E10"},
        {1.25e10, "1.25E10"},
        {2e23, "2.0E23"},
        {1.0e23, "1.0E23"},
        {1.7976931348623157e308, "1.7976931348623157E308"},
        {2.2250738585072014e-308, "2.2250738585072014E-308"},
        {4.9e-324, "4.9E-324"}, // one digit would do, but two are shown
        {9.9e-324, "9.9E-324"},
        {1.0 / 3, "0.3333333333333333"},
        {INFINITE, "Infinity"},
        {-INFINITE, "-Infinity"},
        {std::nan(""), "NaN"},
    };
    for (const auto& row : rows) EXPECT_EQ(toJavaText(row.value), row.text);
}

TEST(JavaNumber, TextOfFloats) {
    struct {
        float value;
        std::string_view text;
    } const rows[] = {
        {0.1f, "0.1"},         {16777216.0f, "1.6777216E7"},    {1e10f, "1.0E10"},
        {1.4e-45f, "1.4E-45"}, {3.4028235e38f, "3.4028235E38"}, {1.17549435e-38f, "1.1754944E-38"},
        {-0.0f, "-0.0"},       {1.0f / 3, "0.33333334"},        {0.001f, "0.001"},
    };
    for (const auto& row : rows) EXPECT_EQ(toJavaText(row.value), row.text);
}

TEST(JavaNumber, TextOfIntegers) {
    EXPECT_EQ(toJavaText(std::int32_t{0}), "0");
    EXPECT_EQ(toJavaText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(toJavaText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(toJavaText(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

/// Whatever the value: its text reads back as it, and has the form of Java's texts.
template <class Float, class Word>
void expectTextsToReadBack(ParsedFloat<Float> (*parse)(std::string_view)) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; i++) {
        Float value = std::fabs(std::bit_cast<Float>(static_cast<Word>(random() >> (i % 3 == 0 ? i % 64 : 0))));
        if (!std::isfinite(value) || value == 0) continue;
        std::string text = toJavaText(value);
        ParsedFloat<Float> parsed = parse(text);
        ASSERT_EQ(parsed.status, ParsedFloat<Float>::FINE) << text;
        ASSERT_EQ(parsed.value, value) << text;
        ASSERT_EQ(text.find('E') == std::string::npos, value >= Float(0.001) && value < Float(1e7)) << text;
        std::size_t point = text.find('.');
        ASSERT_TRUE(point != std::string::npos && point + 1 < text.size() && std::isdigit(text[point + 1])) << text;
    }
}

TEST(JavaNumber, DoublesReadBack) {
    expectTextsToReadBack<double, std::uint64_t>(parseDouble);
}
TEST(JavaNumber, FloatsReadBack) {
    expectTextsToReadBack<float, std::uint32_t>(parseFloat);
}

TEST(JavaNumber, ParsesAndClassifies) {
    using Parsed = ParsedFloat<double>;
    struct {
        std::string text;
        Parsed::Status status;
        double value;
    } const rows[] = {
        {"1", Parsed::FINE, 1},
        {"1.", Parsed::FINE, 1},
        {".5", Parsed::FINE, 0.5},
        {"1.5e+3", Parsed::FINE, 1500},
        {"00012.500", Parsed::FINE, 12.5},
        {"9007199254740993", Parsed::FINE, 9007199254740992.0},                                      // halfway: to even
        {"9007199254740993" + std::string(1000, '0') + "1e-1001", Parsed::FINE, 9007199254740994.0}, // just above
        {"2.4703282292062327e-324", Parsed::UNDERFLOWN, 0}, // below half of the smallest
        {"2.4703282292062328e-324", Parsed::FINE, std::numeric_limits<double>::denorm_min()},
        {"1.7976931348623158e308", Parsed::FINE, std::numeric_limits<double>::max()},
        {"1.797693134862315808e308", Parsed::OVERFLOWN, INFINITE},
        {"0." + std::string(400, '0') + "1", Parsed::UNDERFLOWN, 0},
        {"0." + std::string(400, '0') + "1e401", Parsed::FINE, 1},
        {"1" + std::string(400, '0'), Parsed::OVERFLOWN, INFINITE},
        {"1" + std::string(400, '0') + "e-400", Parsed::FINE, 1},
        {"1e99999999999999999999", Parsed::OVERFLOWN, INFINITE},
        {"1e-99999999999999999999", Parsed::UNDERFLOWN, 0},
        {"0e99999999999999999999", Parsed::FINE, 0},
        {"0.0e-99999999999999999999", Parsed::FINE, 0},
        {"", Parsed::MALFORMED, 0},
        {".", Parsed::MALFORMED, 0},
        {"1e", Parsed::MALFORMED, 0},
        {"1e+", Parsed::MALFORMED, 0},
        {"1e5x", Parsed::MALFORMED, 0},
        {"inf", Parsed::MALFORMED, 0},
        {"-1", Parsed::MALFORMED, 0},
    };
    for (const auto& row : rows) {
        Parsed parsed = parseDouble(row.text);
        EXPECT_EQ(parsed.status, row.status) << row.text;
        EXPECT_EQ(parsed.value, row.value) << row.text;
    }
}

TEST(JavaNumber, NarrowsToIntegersAtTheLimits) {
    struct {
        double value;
        std::int32_t asInt;
        std::int64_t asLong;
    } const rows[] = {
        {0.9, 0, 0},
        {-0.9, 0, 0},
        {-1.5, -1, -1},
        {2147483646.9, 2147483646, 2147483646},
        {2147483647.5, 2147483647, 2147483647},
        {2147483648.0, 2147483647, 2147483648},
        {-2147483648.5, INT32_MIN, -2147483648},
        {-2147483649.0, INT32_MIN, -2147483649},
        {9223372036854774784.0, INT32_MAX, 9223372036854774784}, // the double below 2^63
        {9223372036854775808.0, INT32_MAX, INT64_MAX},
        {-9223372036854775808.0, INT32_MIN, INT64_MIN},
        {-1e300, INT32_MIN, INT64_MIN},
        {INFINITE, INT32_MAX, INT64_MAX},
        {-INFINITE, INT32_MIN, INT64_MIN},
        {std::nan(""), 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(toJavaInt(row.value), row.asInt) << row.value;
        EXPECT_EQ(toJavaLong(row.value), row.asLong) << row.value;
    }
}

} // namespace
} // namespace tarn
