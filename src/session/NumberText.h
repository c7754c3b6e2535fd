#pragma once
// Number text: the one place where numbers become text and text becomes numbers.

#include <string>
#include <string_view>

namespace vt {

// The general text form of a Double: at most 15 significant digits, plain decimals where they
// fit, exponent form otherwise ("1E-07", "1.5E+20"), "-0" written "0".
std::string NumberText(double value);

// The leading number of a text, "." the only decimal mark, an exponent accepted; 0 when the text
// does not start with a number ("NA", "").
double PrefixNumber(std::string_view text);

// Whether a text as a whole reads as a number: blanks around it, a sign, ".5", "1e2".
bool IsNumericText(std::string_view text);

// Rounding to n decimals, half to even.
double RoundHalfEven(double value, int digits);

// The "0.00##" format: at least two decimals, at most four.
std::string FormatArea(double value);

// How a number is printed on a surface: a blank where a minus sign would go, the number, a blank.
std::string PrintedNumber(double value);

} // namespace vt
