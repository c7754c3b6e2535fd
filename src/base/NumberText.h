#pragma once
// Number text: the one place where numbers become text and text becomes numbers.
// Everything here is independent of the locale: "." is the only decimal mark, in and out.

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace vt {

// The general text form of a Double: at most 15 significant digits (rounded half to even on the
// exact binary value), no trailing zeros, "-0" written "0". Plain decimals while they need at
// most 15 digits after the point and the value is below 1E15; the exponent form otherwise, with
// at least two exponent digits. So 0.00001 and 0.000000000000001 are plain, and so are
// 0.333333333333333 and 123456789012345; 1/70 is "1.42857142857143E-02" (its 15 digits would
// need 16 decimals), 1E-16 is "1E-16", 1E15 is "1E+15". Infinite and NaN values, which no
// evaluation yields, are written "INF", "-INF" and "NAN".
std::string NumberText(double value);

// The Double that NumberText(value) reads back as through PrefixNumber: value rounded to 15
// significant digits. Works without text for most magnitudes, so that hot loops can use it.
inline double RoundToNumberText(double value);

// The leading number of a text: blanks and tabs before it skipped, then an optional sign and a
// decimal number with "." as the only mark (".5", "5.", "1E-07", and "1D2" with the other
// exponent mark). An exponent is taken only with its digits: "1e" and "1D+" read as 1. 0 when the
// text does not start with a number ("NA", "",
// "&H10", "1,5" reads 1), and 0 too for a number beyond the range of a Double ("1E400").
double PrefixNumber(std::string_view text);

// Whether a text as a whole reads as a number: blanks and tabs around it, an optional sign, then
// exactly what PrefixNumber reads, within the range of a Double. So " -.5 ", "1e2" and "5." are
// numbers, and so is "1D2"; "", ".", "1e", "1,5", "1,5x", "&H10", "- 5" and "1E400" are not.
bool IsNumericText(std::string_view text);

// Reads an unsigned decimal number at the very start of text (digits with an optional "." and an
// optional "E" exponent, at least one digit before the exponent): the numbers of an expression.
// Returns how many characters it took, 0 when there is no number. value gets the nearest Double; a
// number too large for a Double sets overflow, one too small for it reads as 0.
std::size_t ReadDecimal(std::string_view text, double& value, bool& overflow);

// Rounding to digits decimals (0 to 22; fewer count as 0), half to even. The tie is judged on the
// exact binary value, so 0.125 gives 0.12 while 2.675, stored just below 2.675, gives 2.67. A zero
// result is +0.
double RoundHalfEven(double value, int digits);

// The "0.00##" format: at least two decimals, at most four. The format rounds the value's 15
// significant digits half away from zero at the fourth decimal (0.00005 gives "0.0001", 0.123456
// "0.1235"), and keeps the minus of a negative value that rounds to nothing ("-0.00").
std::string FormatArea(double value);

// How a number is printed on a surface: a blank where a minus sign would go, the number text,
// a blank (" 5 ", "-5 ", " 0.5 ").
std::string PrintedNumber(double value);

namespace number_text_detail {

// Adding and taking away 2^52 rounds a value from 0 to 2^52 to a whole number, half to even.
inline constexpr double TwoTo52 = 4503599627370496.0;

// Powers of ten that a Double holds exactly.
inline constexpr double ExactPow10[23] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Powers of ten from 10^-9 to 10^14, to place a magnitude between two of them. Those below 1 are
// not exact; a value right at such a bound is settled by the exact test that follows.
inline constexpr double DecadeBound[24] = {1e-9, 1e-8, 1e-7, 1e-6, 1e-5, 1e-4, 1e-3, 1e-2,
                                           1e-1, 1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                           1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14};

// Where the 15 digits of a magnitude with a given binary exponent lie. floor(e2 * log10(2)) from
// the binary exponent e2 is the decimal exponent e or one less; a magnitude at or above bound is
// in the upper of the two decades. The scale brings the 15 digits before the point:
// 10^(14 - e). Binary exponents whose decimal exponent may fall outside -8 to 14 have no entry
// (the last one, which no magnitude passes), and go the slow way.
struct Decade {
    double bound;
    double lowerScale; // 10^(14 - e) for the lower decade
    double upperScale; // for the upper one
};
// The scale of a missing entry leaves p far below 10^14, and is no zero to divide by.
inline constexpr double NoScale = 1e-300;
inline constexpr double InfiniteBound = std::numeric_limits<double>::infinity();
inline constexpr int FirstDecadeExponent = -30; // binary exponent of entry 0
inline constexpr int DecadeEntries = 80;
constexpr Decade MakeDecade(int e2) {
    const int e = (e2 * 78913) >> 18;
    if (e < -8 || e > 13) return {InfiniteBound, NoScale, NoScale};
    return {DecadeBound[e + 10], ExactPow10[14 - e], ExactPow10[13 - e]};
}
template <std::size_t... I>
constexpr std::array<Decade, sizeof...(I) + 1> MakeDecades(std::index_sequence<I...>) {
    return {MakeDecade(FirstDecadeExponent + static_cast<int>(I))...,
            Decade{InfiniteBound, NoScale, NoScale}};
}
inline constexpr std::array<Decade, DecadeEntries + 1> Decades =
    MakeDecades(std::make_index_sequence<DecadeEntries>());

} // namespace number_text_detail

// RoundToNumberText for what the quick arithmetic below leaves: zero, ties, exact powers of
// ten, magnitudes from 10^15 and below 10^-8, and the values that are no number.
double RoundToNumberTextSlowly(double value);

// The quick arithmetic of RoundToNumberText, without branches so that a batch of values runs
// side by side: false where it cannot tell, and the slow route must.
inline bool RoundToNumberTextQuickly(double value, double& rounded) {
    using namespace number_text_detail;
    const double a = std::fabs(value);
    const unsigned biased = static_cast<unsigned>(std::bit_cast<std::uint64_t>(a) >> 52);
    const unsigned entry = std::min(biased - static_cast<unsigned>(1023 + FirstDecadeExponent),
                                    static_cast<unsigned>(DecadeEntries));
    const Decade& decade = Decades[entry];
    // S = |value| * 10^(14 - e) rounds to p strictly between 10^14 and 10^15, so S lies between
    // them too; p is no tie, so p rounded to a whole number is S rounded half to even (what p
    // left out is below half an ulp of p). n has 15 digits and the power is exact, so the one
    // division rounds correctly, exactly as reading the digits back does. Zero, a value without
    // an entry and a value at an inexact bound give a p outside those limits.
    const double scale = a >= decade.bound ? decade.upperScale : decade.lowerScale;
    const double p = a * scale;
    const double n = (p + TwoTo52) - TwoTo52;
    const double frac = std::fabs(p - n);
    rounded = std::copysign(n / scale, value);
    return (p > 1e14) & (p < 1e15) & (frac != 0.5);
}

inline double RoundToNumberText(double value) {
    double rounded;
    return RoundToNumberTextQuickly(value, rounded) ? rounded : RoundToNumberTextSlowly(value);
}

// RoundToNumberText of n values: out[i] for in[i].
void RoundToNumberTextMany(const double* in, int n, double* out);

} // namespace vt
