#pragma once
// The value of a slot's function at an x. Results are text, "NA" marking no value.

#include <string>

#include "session/Session.h"

namespace vt {

// Rebuilds ScriptText of all five slots from their evaluator text, and compiles each for the
// values that follow.
void PreCalcFX(Session& s);

// How a value is worked out. Text splices the text of x into ScriptText and evaluates the string:
// the reference. Auto runs the slot's compiled program wherever the splice cannot join the text
// of x to its neighbours, with the same result bit for bit and failure for failure, and takes the
// text route elsewhere.
enum class EvalPath { Auto, Text };

// The value as text; empty stays empty. Used by Evaluate f(x).
std::string CalculateYEval(Session& s, double x, int slot, EvalPath path = EvalPath::Auto);
// The value as text; empty becomes "0", a failure "NA". Used by the painter.
std::string CalculateY(Session& s, double x, int slot, EvalPath path = EvalPath::Auto);
// The value as text; empty and failures become "0". Used by the area sum.
std::string CalculateYArea(Session& s, double x, int slot, EvalPath path = EvalPath::Auto);

// CalculateY without making the text: what the result reads back as.
struct YValue {
    enum Kind { Number, NotAvailable };
    Kind kind = NotAvailable;
    double value = 0; // the number the text of CalculateY reads back as ("0" for an empty result)
};
YValue CalculateYValue(Session& s, double x, int slot, EvalPath path = EvalPath::Auto);

} // namespace vt
