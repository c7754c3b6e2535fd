// The breakdown's token stages and small tools: clearing the tables, joining numbers, making the
// signs explicit, finding the relation sign, and the number conversions of the term parser.

#include <charconv>
#include <cmath>
#include <limits>

#include "base/NumberText.h"
#include "entry/TokenText.h"
#include "translate/breakdown/BreakdownDetail.h"

namespace vt {

namespace breakdown_detail {

namespace {

[[noreturn]] void Raise(BreakdownError error) {
    throw BreakdownFault{error};
}

bool IsRelation(const std::string& t) {
    return t == "<" || t == "=" || t == ">";
}

// A cell at or before the start of a list reads as cell 0.
int AtLeastZero(int i) {
    return i < 0 ? 0 : i;
}

void ResetTerm(BreakdownTermRecord& t) {
    t.Num = 1;
    t.Den = 1;
    t.Value = 1;
    // Only the first three letters and exponents: a run that used more leaves them behind.
    for (int k = 0; k <= 2; ++k) {
        t.Factor(k).clear();
        t.Power(k) = 1;
    }
    t.AfterSlash = false;
    t.SlashParen = false;
    t.FactorCount = 1;
    t.TopText.clear();
    t.Text.clear();
    t.BottomText.clear();
    t.RestText.clear();
    t.TermOperator.clear();
}

} // namespace

float ToSingle(double value) {
    // Values up to half a unit past the largest Single still round to it; beyond, an overflow.
    constexpr double limit = 340282356779733661637539395458142568448.0; // 2^128 - 2^103
    constexpr double largest = std::numeric_limits<float>::max();
    if (std::isnan(value)) Raise(BreakdownError::Overflow);
    if (std::fabs(value) >= limit) Raise(BreakdownError::Overflow);
    if (std::fabs(value) > largest)
        return value < 0 ? -std::numeric_limits<float>::max() : std::numeric_limits<float>::max();
    return static_cast<float>(value);
}

double Multiply(double a, double b) {
    const double product = a * b;
    if (!std::isfinite(product)) Raise(BreakdownError::Overflow);
    return product;
}

double Divide(double a, double b) {
    if (b == 0) Raise(a == 0 ? BreakdownError::Overflow : BreakdownError::DivisionByZero);
    const double quotient = a / b;
    if (!std::isfinite(quotient)) Raise(BreakdownError::Overflow);
    return quotient;
}

double TextToDouble(const std::string& text) {
    std::string_view t = text;
    while (!t.empty() && (t.front() == ' ' || t.front() == '\t'))
        t.remove_prefix(1);
    while (!t.empty() && (t.back() == ' ' || t.back() == '\t'))
        t.remove_suffix(1);
    bool negative = false;
    if (!t.empty() && (t.front() == '+' || t.front() == '-')) {
        negative = t.front() == '-';
        t.remove_prefix(1);
    }
    double value = 0;
    bool overflow = false;
    const std::size_t taken = ReadDecimal(t, value, overflow);
    if (taken == 0 || taken != t.size()) Raise(BreakdownError::TypeMismatch);
    if (overflow) Raise(BreakdownError::Overflow);
    return negative ? -value : value;
}

int TextToInteger(const std::string& text) {
    const double value = RoundHalfEven(TextToDouble(text), 0);
    if (value < -32768 || value > 32767) Raise(BreakdownError::Overflow);
    return static_cast<int>(value);
}

double LeadingValue(const std::string& text) {
    return PrefixNumber(text);
}

void Clear(BreakdownState& b, bool wide) {
    const int extra = wide ? 10 : 0;
    // The relation's place is the same for every part: nothing here moves a token.
    const int relation = Relation(b);
    b.MaxBreakdownGroup = 0;
    b.BreakdownGroup = 0;
    b.BreakdownPart = 0;
    for (int g = 0; g <= 5 + extra; ++g) {
        BreakdownGroupRecord& group = b.BreakdownExpr(g);
        const int lastPart = group.RowCount + 5 + extra;
        for (int p = 0; p <= lastPart; ++p) {
            b.PartIsProduct(g, p) = false;
            BreakdownRow& row = group.Rows(p);
            if (b.BreakdownSide != 0) {
                row.StartPos = relation;
                row.EndPos = b.BreakdownCount;
            } else {
                row.StartPos = 0;
                row.EndPos = relation;
            }
            row.Scale = 1;
            row.Kind = 1;
            row.ClosePos = b.BreakdownCount;
            row.PartText.Fill(std::string());
            row.RowPower = 1;
            row.RowRoot = 1;
            row.ParentPart = -1;
            row.IsBar = false;
            row.RowFlag1 = false;
            row.RowFlag2 = false;
            row.RowNum = 1;
            row.RowDen = 1;
            row.RowText.clear();
            const int lastTerm = b.TermCount(g, p) + 4 + extra;
            for (int t = 1; t <= lastTerm; ++t)
                ResetTerm(b.BreakdownTerm(b.BreakdownSide, g, p, t));
            b.TermCount(g, p) = 0;
        }
        group.RowCount = 0;
    }
}

int Relation(const BreakdownState& b) {
    for (int i = 0; i <= b.BreakdownCount; ++i) {
        if (IsRelation(b.BreakdownTokens(i))) return b.BreakdownTokens(i + 1) == "=" ? i + 1 : i;
    }
    return b.BreakdownCount;
}

void Trim(BreakdownState& b) {
    for (int i = 1; i <= b.BreakdownCount; ++i) {
        if (b.BreakdownTokens(i).empty()) {
            b.BreakdownCount = i;
            return;
        }
    }
}

void Merge(BreakdownState& b) {
    BreakdownTokenList out;
    int n = -1; // last used cell of out
    bool inNumber = false;
    const auto append = [&](const std::string& token) { out(++n) = token; };
    const int count = b.BreakdownCount;
    for (int i = 0; i <= count - 1; ++i) {
        const std::string cur = b.BreakdownTokens(i);
        const std::string& before = b.BreakdownTokens(AtLeastZero(i - 1));
        // Digits compare as whole strings, so "10" and "3/4" count and "9x" does not.
        const bool numberChar = (cur >= "0" && cur <= "9") || cur == "E" || cur == "/" ||
                                cur == "." || cur == "~" || (before == "E" && IsSign(cur));
        if (!numberChar) {
            if (!cur.empty()) {
                append(cur);
                inNumber = false;
            }
            continue;
        }
        if (!inNumber) {
            // Only a digit, a point or a root starts a number; "E", "/" and a sign stand alone.
            append(cur);
            inNumber = IsNumeric(cur) || cur == "." || cur == "~";
            continue;
        }
        const std::string& last = out(n);
        const std::string& out1 = out(AtLeastZero(n - 1));
        const std::string& out2 = out(AtLeastZero(n - 2));
        // A "/" stays apart in an exponent and after a cell that is already a fraction.
        const bool testA =
            cur != "/" || (out1 != "^" && !IsNumberFraction(last) && !(out1 == "-" && out2 == "^"));
        if (!testA) {
            append(cur);
            inNumber = false;
            continue;
        }
        // A "/" joins the number only when a plain number follows it: "3/4" is one number.
        const std::string& next = b.BreakdownTokens(i + 1);
        const std::string& afterNext = b.BreakdownTokens(i + 2);
        const bool endsNumber = afterNext == "." || IsOperator(afterNext) || afterNext == "(" ||
                                afterNext == "|" || afterNext.empty() || afterNext == ")" ||
                                IsNumeric(afterNext);
        const bool testB = endsNumber && IsNumeric(next) && before != ")";
        if (testB || cur != "/" || cur == ".") {
            out(n) += cur;
        } else {
            append(cur);
            inNumber = false;
        }
    }
    b.BreakdownTokens.EmptyFrom(n + 1);
    for (int i = 0; i <= n; ++i)
        b.BreakdownTokens(i) = out(i);
    b.BreakdownCount = n + 4;
}

void Normalise(BreakdownState& b) {
    BreakdownTokenList saved;
    BreakdownTokenList out;
    auto& cell = b.BreakdownTokens;

    for (int v = 0; v <= b.BreakdownCount + 1; ++v)
        saved(v) = cell(v);
    // A leading sign.
    if (!IsSign(cell(0))) {
        cell(0) = "+";
        for (int v = 1; v <= b.BreakdownCount; ++v)
            cell(v) = saved(v - 1);
        ++b.BreakdownCount;
    }
    for (int v = 0; v <= b.BreakdownCount; ++v)
        saved(v) = cell(v);

    // A sign after each "=". The copy is not taken again after a shift, so a second "=" moves
    // the tokens behind it from where they stood before the first shift.
    {
        const int last = b.BreakdownCount + 1;
        for (int v = 0; v <= last; ++v) {
            if (cell(v) != "=") continue;
            ++v;
            if (IsSign(cell(v))) continue;
            cell(v) = "+";
            for (int j = v + 1; j <= b.BreakdownCount + 1; ++j)
                cell(j) = saved(j - 1);
            ++b.BreakdownCount;
        }
    }

    // The rewrite: a sign after each opening, and no "*" in front of a parenthesis.
    int w = 1;
    {
        const int last = b.BreakdownCount + 1;
        for (int v = 0; v <= last; ++v) {
            const std::string cur = cell(v);
            const std::string& next = cell(v + 1);
            if (cur == "|" || cur == "(" || cur == "=") {
                out(w++) = cur;
                if (!IsSign(next) && !next.empty()) {
                    // A letter or a parenthesis reads as 0, so it gets a "+".
                    out(w++) = LeadingValue(next) >= 0 ? "+" : "-";
                }
                continue;
            }
            if (cur == "*" && next == "(") {
                const std::string& before1 = cell(AtLeastZero(v - 1));
                const std::string& before2 = cell(AtLeastZero(v - 2));
                const std::string& before3 = cell(AtLeastZero(v - 3));
                const bool behindFraction =
                    before2 == "/" && before3 != ")" &&
                    (IsLetter(before3) || IsLetter(cell(AtLeastZero(v - 4))) ||
                     IsLetter(cell(AtLeastZero(v - 5))));
                if (before2 != "^" && !IsNumberFraction(before1) && !behindFraction) continue;
            }
            out(w++) = cur;
        }
    }

    // Copy back from cell 0, which takes out's empty cell 0. Of two operators in a row the
    // second is not copied: its cell keeps the token that stood there before.
    for (int v = 0; v <= w; ++v) {
        if (v != 0 && IsOperator(out(v - 1)) && IsOperator(out(v))) continue;
        cell(v) = out(v);
    }
    b.BreakdownCount = w;
    cell.EmptyFrom(w);
}

std::string Expand(const std::string& s) {
    const std::size_t e = s.find('E');
    if (e == std::string::npos) return s;
    const double mantissa = TextToDouble(s.substr(0, e));
    // The character after the "E" is passed over as a sign, whatever it is.
    const int exponent = TextToInteger(e + 2 <= s.size() ? s.substr(e + 2) : std::string());
    const double power = std::pow(10.0, exponent);
    if (!std::isfinite(power)) Raise(BreakdownError::Overflow);
    return NumberText(Multiply(mantissa, power));
}

std::string Fraction(const BreakdownState& b, const std::string& s, bool roundIt) {
    bool found = false;
    double a = 0, divisor = 0;
    std::size_t start = 0;
    for (std::size_t slash = s.find('/'); slash != std::string::npos;
         start = slash + 1, slash = s.find('/', slash + 1)) {
        found = true;
        const std::size_t end = s.find('/', slash + 1);
        a = TextToDouble(s.substr(start, slash - start));
        divisor = TextToDouble(
            s.substr(slash + 1, end == std::string::npos ? std::string::npos : end - slash - 1));
    }
    if (!found) return s;
    if (divisor == 0) return std::string();
    const double quotient = Divide(a, divisor);
    return NumberText(roundIt ? RoundHalfEven(quotient, b.FractionDigits) : quotient);
}

} // namespace breakdown_detail

using namespace breakdown_detail;

const char* BreakdownErrorName(BreakdownError error) {
    switch (error) {
    case BreakdownError::None:
        return "";
    case BreakdownError::Subscript:
        return "Subscript out of range";
    case BreakdownError::TypeMismatch:
        return "Type mismatch";
    case BreakdownError::Overflow:
        return "Overflow";
    case BreakdownError::DivisionByZero:
        return "Division by zero";
    }
    return "";
}

BreakdownError ClearBreakdown(BreakdownState& b, bool wide) {
    return Guard([&] { Clear(b, wide); });
}

BreakdownError MergeBreakdownTokens(BreakdownState& b) {
    return Guard([&] { Merge(b); });
}

BreakdownError NormaliseBreakdownSigns(BreakdownState& b) {
    return Guard([&] { Normalise(b); });
}

BreakdownError TrimBreakdownCount(BreakdownState& b) {
    return Guard([&] { Trim(b); });
}

BreakdownError FindRelation(const BreakdownState& b, int& position) {
    return Guard([&] { position = Relation(b); });
}

BreakdownError ExpandENotation(const std::string& s, std::string& out) {
    return Guard([&] { out = Expand(s); });
}

BreakdownError FractionValue(const BreakdownState& b, const std::string& s, bool roundIt,
                             std::string& out) {
    return Guard([&] { out = Fraction(b, s, roundIt); });
}

std::string SingleText(float value) {
    if (value == 0) return "0";
    char buf[32];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, 6);
    // buf holds [-]d.dddddde[+-]xx
    std::string_view t(buf, static_cast<std::size_t>(res.ptr - buf));
    std::string out;
    if (t.front() == '-') {
        out = "-";
        t.remove_prefix(1);
    }
    const std::size_t e = t.find('e');
    std::string digits;
    for (char c : t.substr(0, e))
        if (c != '.') digits += c;
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();
    int exponent = 0;
    std::from_chars(t.data() + e + (t[e + 1] == '+' ? 2 : 1), t.data() + t.size(), exponent);
    // Plain from 0.0001 up to seven whole digits, as the general number text does up to fifteen.
    if (exponent >= -4 && exponent <= 6) {
        if (exponent < 0)
            return out + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
        const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() <= whole) return out + digits + std::string(whole - digits.size(), '0');
        return out + digits.substr(0, whole) + "." + digits.substr(whole);
    }
    out += digits.substr(0, 1);
    if (digits.size() > 1) out += "." + digits.substr(1);
    const int magnitude = exponent < 0 ? -exponent : exponent;
    out += exponent < 0 ? "E-" : "E+";
    if (magnitude < 10) out += "0";
    return out + std::to_string(magnitude);
}

BreakdownError CopySlotToBreakdown(Session& s, int slot) {
    return Guard([&] {
        const int count = s.TokenCount(slot);
        for (int i = 0; i < count; ++i)
            s.BreakdownTokens(i) = s.EntryTokens(i, slot);
        s.BreakdownCount = count;
    });
}

BreakdownError SetBreakdownTokens(BreakdownState& b, const std::vector<std::string>& tokens) {
    return Guard([&] {
        int i = 0;
        for (const std::string& token : tokens)
            b.BreakdownTokens(i++) = token;
        b.BreakdownCount = i;
    });
}

std::vector<std::string> SplitBreakdownTokens(std::string_view text) {
    std::vector<std::string> tokens;
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
            ++i;
        const std::size_t start = i;
        while (i < text.size() && text[i] != ' ' && text[i] != '\t')
            ++i;
        if (i > start) tokens.emplace_back(text.substr(start, i - start));
    }
    return tokens;
}

} // namespace vt
