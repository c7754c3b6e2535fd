#pragma once
// The value of a slot's function at an x. Results are text, "NA" marking no value.

#include <optional>
#include <span>
#include <string>

#include "plot/Expression.h"
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
    // The number; none where there is no value.
    std::optional<double> Known() const {
        return kind == Number ? std::optional<double>(value) : std::nullopt;
    }
};
YValue CalculateYValue(Session& s, double x, int slot, EvalPath path = EvalPath::Auto);

// CalculateYValue at many x: out[i] is the value at xs[i]; out has room for as many as xs. On
// the compiled route the values are worked out a batch at a time, each step of the slot's
// program going through the whole batch.
void CalculateYValues(Session& s, std::span<const double> xs, int slot, std::span<YValue> out,
                      EvalPath path = EvalPath::Auto);

// The values of one slot along a sweep that a loop walks by repeated addition of step: x,
// x + step, (x + step) + step, ..., each taken at sample(x) (at x itself when sample is null).
// Each is the very value CalculateYValue gives there. On the compiled route the sweep works out
// a batch of the coming values at once; a slot on the text route is evaluated x by x as asked.
// A sweep serves one loop: the slot's text must not change while it is in use.
class ValueSweep {
  public:
    using SampleOf = double (*)(double);
    ValueSweep(Session& s, int slot, double step, SampleOf sample = nullptr,
               EvalPath path = EvalPath::Auto);
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
    EvalPath path_;
    bool compiled_ = false;
    double loopX_[Lanes] = {};
    YValue values_[Lanes];
    int count_ = 0, next_ = 0;
};

} // namespace vt
