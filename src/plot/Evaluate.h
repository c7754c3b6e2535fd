#pragma once
// The value of a slot's function at an x. Results are text, "NA" marking no value. All of them
// come from the session's one SlotEvaluator, and honour BracketNegativeX.

#include <string>

#include "expr/SlotEvaluator.h"
#include "session/Session.h"

namespace vt {

// Rebuilds ScriptText of all five slots from their evaluator text, and has each slot's program
// ready for the values that follow (compiled only where the text is new).
void PreCalcFX(Session& s);

// The value as text; empty stays empty. Used by Evaluate f(x).
std::string CalculateYEval(Session& s, double x, int slot);
// The value as text; empty becomes "0", a failure "NA".
std::string CalculateY(Session& s, double x, int slot);
// The value as text; empty and failures become "0".
std::string CalculateYArea(Session& s, double x, int slot);

// CalculateY without making the text: what the result reads back as. Used by the painter and
// the area sum.
YValue CalculateYValue(Session& s, double x, int slot);

// The values of one slot along a sweep that a loop walks by repeated addition of step: x,
// x + step, (x + step) + step, ..., each taken at sample(x) (at x itself when sample is null).
// Each is the very value CalculateYValue gives there. On the compiled route the sweep works out
// a batch of the coming values at once; a slot on the text route is evaluated x by x as asked.
// A sweep serves one loop: the slot's text must not change while it is in use.
class ValueSweep {
  public:
    using SampleOf = double (*)(double);
    ValueSweep(Session& s, int slot, double step, SampleOf sample = nullptr);
    // The value at the loop's x: the sweep's next one, or, for any other x, the first of a new
    // batch that starts there.
    YValue At(double x);

  private:
    void Fill(double x);

    static constexpr int Lanes = ExpressionProgram::Lanes;
    Session& s_;
    int slot_;
    double step_;
    SampleOf sample_;
    bool compiled_ = false;
    double loopX_[Lanes] = {};
    YValue values_[Lanes];
    int count_ = 0, next_ = 0;
};

} // namespace vt
