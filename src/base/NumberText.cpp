#include "base/NumberText.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace vt {

namespace {

// Powers of ten that a Double holds exactly.
using number_text_detail::ExactPow10;
using number_text_detail::TwoTo52;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// The 15 significant digits of a finite, non-zero value, rounded half to even on its exact
// binary value, and the decimal exponent of the first digit.
struct Digits {
    char digit[15];
    int count;    // without trailing zeros, at least 1
    int exponent; // value = 0.d1d2... * 10^(exponent + 1)
    bool negative;
};

Digits SignificantDigits(double value) {
    char buf[40];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, 14);
    Digits d{};
    const char* p = buf;
    d.negative = *p == '-';
    if (d.negative) ++p;
    int n = 0;
    for (; p < res.ptr && *p != 'e'; ++p)
        if (IsDigit(*p)) d.digit[n++] = *p;
    d.count = n;
    while (d.count > 1 && d.digit[d.count - 1] == '0')
        --d.count;
    ++p; // past the 'e'
    const bool expNegative = *p == '-';
    ++p;
    int e = 0;
    for (; p < res.ptr; ++p)
        e = e * 10 + (*p - '0');
    d.exponent = expNegative ? -e : e;
    return d;
}

// For a decimal number that does not fit a Double: whether it is too large (rather than too
// small), judged by the decimal exponent of its first non-zero digit.
bool IsTooLarge(std::string_view number) {
    long long lead = 0; // decimal exponent of the first non-zero digit, plus one
    bool seenPoint = false, seenNonZero = false;
    std::size_t i = 0;
    for (; i < number.size() && (IsDigit(number[i]) || number[i] == '.'); ++i) {
        const char c = number[i];
        if (c == '.') {
            seenPoint = true;
        } else if (!seenNonZero) {
            if (c != '0') {
                seenNonZero = true;
                if (!seenPoint) lead = 1;
            } else if (seenPoint) {
                --lead;
            }
        } else if (!seenPoint) {
            ++lead;
        }
    }
    long long exponent = 0;
    bool expNegative = false;
    if (i < number.size()) { // 'e' or 'E', then the exponent with its sign
        ++i;
        if (i < number.size() && (number[i] == '+' || number[i] == '-'))
            expNegative = number[i++] == '-';
        for (; i < number.size(); ++i)
            if (exponent < 100000000) exponent = exponent * 10 + (number[i] - '0');
    }
    return lead + (expNegative ? -exponent : exponent) > 0;
}

} // namespace

std::string NumberText(double value) {
    if (std::isnan(value)) return "NAN";
    if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
    if (value == 0) return "0";
    const Digits d = SignificantDigits(value);
    std::string out;
    if (d.negative) out += '-';
    // Plain while at most 15 decimals are needed, so 1/3 is plain with its 15 and 1/70, whose
    // 15 digits start at the second decimal, takes the exponent form.
    const int decimals = d.count - 1 - d.exponent;
    if (decimals > 15 || d.exponent >= 15) {
        out += d.digit[0];
        if (d.count > 1) {
            out += '.';
            out.append(d.digit + 1, static_cast<std::size_t>(d.count - 1));
        }
        out += 'E';
        out += d.exponent < 0 ? '-' : '+';
        const int e = std::abs(d.exponent);
        if (e < 10) out += '0';
        out += std::to_string(e);
    } else if (d.exponent >= 0) {
        const int whole = d.exponent + 1;
        for (int i = 0; i < whole; ++i)
            out += i < d.count ? d.digit[i] : '0';
        if (d.count > whole) {
            out += '.';
            out.append(d.digit + whole, static_cast<std::size_t>(d.count - whole));
        }
    } else {
        out += "0.";
        out.append(static_cast<std::size_t>(-d.exponent - 1), '0');
        out.append(d.digit, static_cast<std::size_t>(d.count));
    }
    return out;
}

namespace {

// The general case of RoundToNumberText: a in (0, inf), e its decimal exponent or a neighbour.
double RoundToNumberTextExactly(double value, double a, int e) {
    for (int attempt = 0; attempt < 3; ++attempt) {
        // Scale so that the 15 digits form the integer part: S = a * 10^(14 - e). p is S rounded;
        // where the rounding of p matters, the exact rest of S is worked out with a fused
        // multiply-add: err = S - p for the product, a remainder of the sign of S - p for the
        // quotient. Powers above 10^22 are not exact, so those magnitudes take the text route.
        const int k = 14 - e;
        if (k > 22 || k < -22) break;
        const double scale = ExactPow10[k >= 0 ? k : -k];
        const double p = k >= 0 ? a * scale : a / scale;
        const auto rest = [&] { return k >= 0 ? std::fma(a, scale, -p) : std::fma(-p, scale, a); };
        // Rounding is monotonic, so p beyond a bound means S beyond it; p on a bound needs the
        // rest.
        if (p < 1e14 || (p == 1e14 && rest() < 0)) {
            --e;
            continue;
        }
        if (p > 1e15 || (p == 1e15 && rest() >= 0)) {
            ++e;
            continue;
        }
        // Half to even on S: p's own tie is settled by the sign of the rest. Away from a tie the
        // rest is below half an ulp of p and cannot move S across the half.
        double n = (p + TwoTo52) - TwoTo52;
        const double frac = p - n;
        if (frac == 0.5 && rest() > 0) n += 1;
        if (frac == -0.5 && rest() < 0) n -= 1;
        // n has at most 16 digits and the power is exact, so one operation rounds correctly,
        // exactly as reading the digits back does.
        const double r = k >= 0 ? n / scale : n * scale;
        return value < 0 ? -r : r;
    }
    char buf[40];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, 14);
    double back = 0;
    const auto read = std::from_chars(buf, res.ptr, back);
    return read.ec == std::errc() ? back : 0; // beyond the largest Double reads as 0
}

} // namespace

double RoundToNumberTextSlowly(double value) {
    const double a = std::fabs(value);
    if (!(a < std::numeric_limits<double>::infinity())) return 0; // "INF", "NAN" read back as 0
    if (a == 0) return 0;
    const int e2 = static_cast<int>(std::bit_cast<std::uint64_t>(a) >> 52) - 1023;
    int e = (e2 * 78913) >> 18;
    if (e >= -8 && e <= 13 && a >= number_text_detail::DecadeBound[e + 10]) ++e;
    return RoundToNumberTextExactly(value, a, e);
}

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
// Where the processor has them, the wide registers take four values at a time.
[[gnu::target_clones("avx2", "default")]]
#endif
void RoundToNumberTextMany(const double* in, int n, double* out) {
    bool quick[64];
    for (int start = 0; start < n; start += 64) {
        const int count = std::min(64, n - start);
        for (int i = 0; i < count; ++i)
            quick[i] = RoundToNumberTextQuickly(in[start + i], out[start + i]);
        for (int i = 0; i < count; ++i)
            if (!quick[i]) out[start + i] = RoundToNumberTextSlowly(in[start + i]);
    }
}

namespace {

// ReadDecimal, and with exponentD "D" (or "d") marks an exponent as well as "E".
std::size_t ReadNumber(std::string_view text, double& value, bool& overflow, bool exponentD) {
    value = 0;
    overflow = false;
    std::size_t i = 0;
    const std::size_t n = text.size();
    bool digits = false;
    while (i < n && IsDigit(text[i]))
        ++i, digits = true;
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && IsDigit(text[i]))
            ++i, digits = true;
    }
    if (!digits) return 0;
    const auto exponentMark = [&](char c) {
        return c == 'e' || c == 'E' || (exponentD && (c == 'd' || c == 'D'));
    };
    std::size_t mark = n; // where an exponent starts, if there is one
    if (i < n && exponentMark(text[i])) {
        std::size_t j = i + 1;
        if (j < n && (text[j] == '+' || text[j] == '-')) ++j;
        if (j < n && IsDigit(text[j])) {
            while (j < n && IsDigit(text[j]))
                ++j;
            mark = i;
            i = j;
        }
    }
    std::string_view number = text.substr(0, i);
    std::string withE; // the number as the conversion reads it, a "D" mark made an "E"
    if (mark < n && (text[mark] == 'd' || text[mark] == 'D')) {
        withE.assign(number);
        withE[mark] = 'E';
        number = withE;
    }
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        value = 0;
        overflow = IsTooLarge(number);
    }
    return i;
}

} // namespace

std::size_t ReadDecimal(std::string_view text, double& value, bool& overflow) {
    return ReadNumber(text, value, overflow, false);
}

double PrefixNumber(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && IsBlank(text[i]))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
    double value = 0;
    bool overflow = false;
    if (ReadNumber(text.substr(i), value, overflow, true) == 0 || overflow || value == 0) return 0;
    return negative ? -value : value;
}

bool IsNumericText(std::string_view text) {
    std::size_t i = 0, n = text.size();
    while (i < n && IsBlank(text[i]))
        ++i;
    while (n > i && IsBlank(text[n - 1]))
        --n;
    if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
    double value = 0;
    bool overflow = false;
    const std::size_t taken = ReadNumber(text.substr(i, n - i), value, overflow, true);
    return taken > 0 && i + taken == n && !overflow;
}

double RoundHalfEven(double value, int digits) {
    if (digits < 0) digits = 0;
    if (digits > 22 || !std::isfinite(value)) return value;
    const double scale = ExactPow10[digits];
    const double a = std::fabs(value);
    const double p = a * scale;
    if (!(p < TwoTo52)) {
        // From 2^52 on a Double is a whole number: nothing to round. Below it, the product no
        // longer shows the fraction, and the exact decimal digits decide.
        if (!(a < TwoTo52)) return value;
        char buf[400];
        const auto res =
            std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed, digits);
        double r = 0;
        std::from_chars(buf, res.ptr, r);
        return r == 0 ? 0.0 : r;
    }
    double n = (p + TwoTo52) - TwoTo52;
    // p's own tie is settled by what the product left out: a * scale is exactly p + err.
    const double frac = p - n;
    if (frac == 0.5 && std::fma(a, scale, -p) > 0) n += 1;
    if (frac == -0.5 && std::fma(a, scale, -p) < 0) n -= 1;
    const double r = n / scale;
    return r == 0 ? 0.0 : value < 0 ? -r : r;
}

std::string FormatArea(double value) {
    if (!std::isfinite(value)) return NumberText(value);
    std::string whole = "0", fraction; // the magnitude in plain decimals
    bool negative = false;
    if (value != 0) {
        const Digits d = SignificantDigits(value);
        negative = d.negative;
        const std::string digits(d.digit, static_cast<std::size_t>(d.count));
        const int before = d.exponent + 1; // digits before the point
        if (before <= 0) {
            fraction = std::string(static_cast<std::size_t>(-before), '0') + digits;
        } else if (before >= d.count) {
            whole = digits + std::string(static_cast<std::size_t>(before - d.count), '0');
        } else {
            whole = digits.substr(0, static_cast<std::size_t>(before));
            fraction = digits.substr(static_cast<std::size_t>(before));
        }
    }
    const bool roundUp = fraction.size() > 4 && fraction[4] >= '5';
    fraction.resize(4, '0');
    std::string all = whole + fraction;
    if (roundUp) {
        int i = static_cast<int>(all.size()) - 1;
        while (i >= 0 && all[static_cast<std::size_t>(i)] == '9')
            all[static_cast<std::size_t>(i--)] = '0';
        if (i < 0)
            all.insert(all.begin(), '1');
        else
            ++all[static_cast<std::size_t>(i)];
    }
    std::string out = negative ? "-" : "";
    out += all.substr(0, all.size() - 4);
    out += '.';
    std::string decimals = all.substr(all.size() - 4);
    while (decimals.size() > 2 && decimals.back() == '0')
        decimals.pop_back();
    return out + decimals;
}

std::string PrintedNumber(double value) {
    const std::string text = NumberText(value);
    return (text[0] == '-' ? text : " " + text) + " ";
}

} // namespace vt
