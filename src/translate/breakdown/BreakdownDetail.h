#pragma once
// Inside the breakdown: the routines raise a BreakdownFault (or the tables' SubscriptError) and
// the entry points of Breakdown.h catch it. Nothing here leaves the breakdown.

#include <string>

#include "translate/breakdown/Breakdown.h"

namespace vt::breakdown_detail {

struct BreakdownFault {
    BreakdownError Error;
};

// Runs body; the error that stopped it, or None.
template <class Body> BreakdownError Guard(Body&& body) {
    try {
        body();
        return BreakdownError::None;
    } catch (const BreakdownFault& fault) {
        return fault.Error;
    } catch (const SubscriptError&) {
        return BreakdownError::Subscript;
    }
}

// A Double stored into a single-precision field: rounded to single precision; beyond its range
// an overflow.
float ToSingle(double value);
// a * b, a / b with the run-time's checks: a division by zero (0 / 0 overflows), and an overflow
// for a result beyond a Double.
double Multiply(double a, double b);
double Divide(double a, double b);
// A text converted to a number as an assignment converts it: the whole text must be a number
// (blanks around it allowed), else a type mismatch; beyond a Double an overflow.
double TextToDouble(const std::string& text);
// The same to a 16-bit whole number, rounded half to even.
int TextToInteger(const std::string& text);
// The leading number of a text, 0 when there is none: how the term parser reads the value of a
// token. It never fails, so a number fraction "3/4" reads 3 and a letter reads 0.
double LeadingValue(const std::string& text);

void Clear(BreakdownState& b, bool wide);
void Merge(BreakdownState& b);
void Normalise(BreakdownState& b);
void Trim(BreakdownState& b);
int Relation(const BreakdownState& b);
std::string Expand(const std::string& s);
std::string Fraction(const BreakdownState& b, const std::string& s, bool roundIt);

// ParseBreakdown in its two halves: the preparation (letters, clearing, signs, the side's cells)
// and the walk over the side.
void PrepareParse(Session& s);
void WalkSide(Session& s);
// The normal-form text of the first part of group 0 of the current side.
std::string SideText(const BreakdownState& b);

} // namespace vt::breakdown_detail
