#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

#include "base/NumberText.h"

namespace vt {

namespace {

std::uint64_t Bits(double v) {
    return std::bit_cast<std::uint64_t>(v);
}

// Random doubles of every kind the program meets: whole numbers, decimals of a few digits,
// values with 16 and 17 digits, ties at the 15th digit, and raw bit patterns of any magnitude.
double RandomDouble(std::mt19937_64& rng) {
    switch (rng() % 6) {
    case 0:
        return static_cast<double>(static_cast<std::int64_t>(rng() % 2000001) - 1000000);
    case 1:
        return static_cast<double>(static_cast<std::int64_t>(rng() % 200001) - 100000) / 100;
    case 2: { // 16 digits ending in 5 after a scaling by a power of two: exact ties
        const double n =
            static_cast<double>(1000000000000000ull + (rng() % 900000000000000ull) * 10 + 5);
        return std::ldexp(n, -static_cast<int>(rng() % 8));
    }
    case 3:
        return std::pow(10.0, static_cast<double>(static_cast<int>(rng() % 80) - 40)) *
               (1 + static_cast<double>(rng() % 1000) * 1e-16);
    default: {
        const double v = std::bit_cast<double>(rng());
        return std::isfinite(v) ? v : 1.0;
    }
    }
}

// Each input's text or value by the given form.
template <class In, class Out, class F>
void ExpectForms(F form, std::initializer_list<std::pair<In, Out>> cases) {
    for (const auto& [in, out] : cases)
        EXPECT_EQ(form(in), out) << in;
}

} // namespace

TEST(NumberText, TextForms) {
    // NumberText is plain only while 15 decimals are enough; ties at the 15th digit go to even,
    // 999999999999999.5 to 1E+15. The prefix reading gives 0 for a number past the largest
    // Double ("1.79769313486232E+308").
    // clang-format off
    ExpectForms<double, const char*>(NumberText, {
        {0, "0"}, {-0.0, "0"}, {5, "5"}, {-5, "-5"}, {0.5, "0.5"}, {-0.05, "-0.05"},
        {1.0 / 3, "0.333333333333333"}, {2.0 / 3, "0.666666666666667"}, {0.1 + 0.2, "0.3"},
        {0.0001, "0.0001"}, {0.000123, "0.000123"}, {0.00001, "0.00001"}, {1e-7, "0.0000001"},
        {0.000123456789012345678, "1.23456789012346E-04"}, {1.0 / 70, "1.42857142857143E-02"},
        {0.0998334166468282, "9.98334166468282E-02"}, {1e-15, "0.000000000000001"},
        {-1.5e-15, "-1.5E-15"}, {1e-16, "1E-16"}, {0.123456789012345, "0.123456789012345"},
        {-1.5e-20, "-1.5E-20"}, {1.5e20, "1.5E+20"}, {1e100, "1E+100"}, {1e-100, "1E-100"},
        {123456789012345.0, "123456789012345"}, {999999999999999.4, "999999999999999"},
        {999999999999999.5, "1E+15"}, {1e15, "1E+15"},
        {123456789012345678.0, "1.23456789012346E+17"}, {12345678901234.25, "12345678901234.2"},
        {12345678901234.75, "12345678901234.8"}, {20, "20"}, {-163840, "-163840"},
        {std::numeric_limits<double>::infinity(), "INF"},
        {-std::numeric_limits<double>::infinity(), "-INF"}, {std::nan(""), "NAN"}});
    ExpectForms<const char*, double>(PrefixNumber, {
        {"12abc", 12}, {"  -3.5e2x", -350}, {"\t7", 7}, {"1e", 1}, {"1e+", 1}, {"1E-07", 1e-07},
        {"1e3", 1000}, {".5", 0.5}, {"5.", 5}, {"-.5", -0.5}, {"+5", 5}, {"1.5.3", 1.5}, {"1,5", 1},
        {"NA", 0}, {"", 0}, {".", 0}, {"-", 0}, {"- 5", 0}, {"&H10", 0}, {"x3", 0}, {"1E400", 0},
        {"-1E400", 0}, {"1E-400", 0}, {"1.79769313486232E+308", 0},
        {"4.94065645841247E-324", 4.94065645841247e-324}, {"0.1", 0.1}, {"1D2", 100},
        {"-2.5d-1", -0.25}, {"1D", 1}, {"1Dx", 1}, {"D2", 0}});
    ExpectForms<const char*, bool>(IsNumericText, {
        {" -.5 ", true}, {"1e2", true}, {"5.", true}, {"+0", true}, {"\t12\t", true},
        {"1E-07", true}, {"1E-400", true}, {"", false}, {" ", false}, {".", false}, {"-", false},
        {"1e", false}, {"1,5", false}, {"1,5x", false}, {"&H10", false}, {"- 5", false},
        {"1E400", false}, {"1 2", false}, {"NA", false}, {"5x", false}, {"1.5.3", false},
        {"e5", false}, {"1D2", true}, {"1d+2", true}, {"1D", false}, {"D2", false}, {"1D400", false}});
    ExpectForms<double, const char*>(FormatArea, {
        {12.5, "12.50"}, {0.123456, "0.1235"}, {0, "0.00"}, {-0.0, "0.00"}, {1.1, "1.10"},
        {1.2345, "1.2345"}, {1.23451, "1.2345"}, {0.00005, "0.0001"}, {0.00004999, "0.00"},
        {-0.00001, "-0.00"}, {-12.34567, "-12.3457"}, {0.99995, "1.00"}, {9.99996, "10.00"},
        {1.5e20, "150000000000000000000.00"}, {1e-7, "0.00"}, {2.675, "2.675"}, {0.125, "0.125"},
        {-0.00015, "-0.0002"}});
    ExpectForms<double, const char*>(PrintedNumber, {
        {5, " 5 "}, {-5, "-5 "}, {0, " 0 "}, {-0.0, " 0 "}, {0.5, " 0.5 "}, {-20, "-20 "},
        {1e-7, " 0.0000001 "}, {-1e-16, "-1E-16 "}});
    // clang-format on
    EXPECT_FALSE(std::signbit(PrefixNumber("-0")));
}

TEST(NumberText, AgreesWithTheFormatsOfTheCLibrary) {
    // The C library in the C locale gives the 15 digits ("%.14E"); the form is plain ("%.*f")
    // with as many decimals as those digits need, if at most 15 and below 1E15, and otherwise
    // the exponent form ("%.*E") with the digits that are not trailing zeros.
    std::mt19937_64 rng(7);
    for (int i = 0; i < 200000; ++i) {
        const double v = i == 0 ? 1.0 / 70 : RandomDouble(rng);
        if (v == 0) continue;
        char digits[64], expected[400];
        std::snprintf(digits, sizeof digits, "%.14E", v);
        const char* mark = std::strchr(digits, 'E');
        const int exponent = std::atoi(mark + 1);
        int significant = 15;
        while (significant > 1 && mark[-1 - (15 - significant)] == '0')
            --significant;
        const int decimals = significant - 1 - exponent;
        if (decimals <= 15 && exponent < 15)
            std::snprintf(expected, sizeof expected, "%.*f", decimals < 0 ? 0 : decimals, v);
        else
            std::snprintf(expected, sizeof expected, "%.*E", significant - 1, v);
        ASSERT_EQ(NumberText(v), expected) << digits;
    }
}

TEST(NumberText, ReadBackWithoutTextIsTheTextRoundTrip) {
    std::mt19937_64 rng(11);
    // The last four: the ends of the quick route's table.
    // clang-format off
    const double edges[] = {
        1e14, 1e15, 1e-8, 9.99999999999999e-9, 1e36, 1e37, 99999999999999.95, 999999999999999.5,
        0.025, 1e-310, 4.9e-324, std::numeric_limits<double>::max(), 1.79769313486231e308,
        std::ldexp(1.5, -27), std::ldexp(1.5, -26), std::ldexp(1.5, 46), std::ldexp(1.5, 49)};
    // clang-format on
    for (double edge : edges)
        for (double v : {edge, -edge})
            EXPECT_EQ(Bits(RoundToNumberText(v)), Bits(PrefixNumber(NumberText(v)))) << v;
    for (int i = 0; i < 1000000; ++i) {
        const double v = RandomDouble(rng);
        ASSERT_EQ(Bits(RoundToNumberText(v)), Bits(PrefixNumber(NumberText(v))))
            << NumberText(v) << " from " << v;
    }
}

TEST(NumberText, RoundHalfEven) {
    // From 0.025 on: stored just above and just below the half, though the scaled product lands
    // on it.
    // clang-format off
    const std::tuple<double, int, double> cases[] = {
        {2.5, 0, 2}, {3.5, 0, 4}, {-2.5, 0, -2}, {0.125, 2, 0.12}, {0.375, 2, 0.38},
        {2.675, 2, 2.67}, {1.005, 2, 1}, {1234.5678, 1, 1234.6}, {0.025, 2, 0.03}, {0.015, 2, 0.01},
        {1.115, 2, 1.11}, {-0.025, 2, -0.03}, {-20.045, 2, -20.05}, {7.4, -1, 7}, {1e300, 2, 1e300},
        {4503599627370497.0, 0, 4503599627370497.0}
    };
    // clang-format on
    for (const auto& [value, digits, rounded] : cases)
        EXPECT_EQ(RoundHalfEven(value, digits), rounded) << value << " to " << digits;
    EXPECT_FALSE(std::signbit(RoundHalfEven(-0.001, 2)));
}

TEST(NumberText, RoundHalfEvenAgreesWithTheExactDecimalRounding) {
    // The C library's "%.*f" rounds the exact binary value, half to even: the same rule.
    std::mt19937_64 rng(5);
    for (int i = 0; i < 200000; ++i) {
        double v = RandomDouble(rng);
        if (std::fabs(v) > 1e17) v = std::fmod(v, 1e6);
        const int digits = static_cast<int>(rng() % 6);
        char buf[400];
        std::snprintf(buf, sizeof buf, "%.*f", digits, v);
        double expected = PrefixNumber(buf);
        if (expected == 0) expected = 0; // no minus zero
        ASSERT_EQ(Bits(RoundHalfEven(v, digits)), Bits(expected)) << buf << " from " << v;
    }
}

} // namespace vt
