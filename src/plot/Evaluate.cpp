#include "plot/Evaluate.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "base/NumberText.h"
#include "plot/Expression.h"

namespace vt {

namespace {

// Every occurrence of from, left to right; a replacement is not searched again.
void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
    std::string out;
    std::size_t start = 0;
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, start)) {
        out.append(text, start, at - start);
        out.append(to);
        start = at + from.size();
    }
    if (start == 0) return;
    out.append(text, start, std::string::npos);
    text = std::move(out);
}

// Whether the slot runs on its compiled program. Normally PreCalcFX compiled it; a ScriptText
// written since is compiled here.
bool CompiledRoute(Session& s, int slot) {
    if (slot < 0 || slot >= UsableSlots) return false;
    const std::string& script = s.ScriptText(slot);
    CompiledScript& compiled = s.CompiledScripts(slot);
    if (!compiled.IsCompiledFrom(script)) compiled.Compile(script);
    return compiled.Applies();
}

// The x that go through the text even where the slot is compiled: the text of x reads back as
// 0 only for x = 0 and for x just below the largest Double, whose 15 digits overflow when the
// evaluator reads them; and no text of an x that is no number reads back as it.
bool XTakesText(double x, double xRead) {
    return !std::isfinite(x) || (xRead == 0 && x != 0);
}

// The compiled route, where it applies; false leaves the value to the text route.
bool EvaluateCompiled(Session& s, double x, int slot, EvalResult& result) {
    if (!CompiledRoute(s, slot)) return false;
    const double xRead = RoundToNumberText(x);
    if (XTakesText(x, xRead)) return false;
    result = s.CompiledScripts(slot).Evaluate(xRead);
    return true;
}

// What the text of CalculateY reads back as, given the value of the result read through its text.
YValue ValueOf(EvalResult::Kind kind, double valueRead) {
    switch (kind) {
    case EvalResult::Value:
        return {YValue::Number, valueRead};
    case EvalResult::Empty:
        return {YValue::Number, 0};
    default:
        return {YValue::NotAvailable, 0};
    }
}

YValue ValueOf(const EvalResult& r) {
    return ValueOf(r.kind, RoundToNumberText(r.value));
}

// The value of a slot at x by the text route. A slot outside 0..4 fails like any evaluation:
// ScriptText has five entries and its subscript error is caught here.
[[gnu::noinline]] EvalResult EvaluateByText(Session& s, double x, int slot) {
    try {
        // x goes in as its text, bare: a negative x brings its minus sign into the expression,
        // and digits beside x join its text ("x3.1415926538" reads 23.1415926538 at x = 2, and
        // is no number at 2.5).
        std::string spliced = s.ScriptText(slot);
        ReplaceAll(spliced, "x", NumberText(x));
        return EvaluateExpression(spliced);
    } catch (const SubscriptError&) {
        return {EvalResult::Failure, 0};
    }
}

EvalResult EvaluateAt(Session& s, double x, int slot, EvalPath path) {
    EvalResult result;
    if (path == EvalPath::Auto && EvaluateCompiled(s, x, slot, result)) return result;
    return EvaluateByText(s, x, slot);
}

} // namespace

void PreCalcFX(Session& s) {
    for (int slot = 0; slot < UsableSlots; ++slot) {
        std::string text;
        for (int i = 0; i <= CellUpper; ++i)
            text += s.GraphableCells(i, slot);
        // Implied products by x and the trigonometric names, in this order: "x(" is settled
        // before the digit rules, and the names are spelt out after the "*" went in front.
        ReplaceAll(text, "x(", "x*(");
        ReplaceAll(text, "xS", "x*S");
        ReplaceAll(text, "xT", "x*T");
        ReplaceAll(text, "xC", "x*C");
        ReplaceAll(text, "S", "sin");
        ReplaceAll(text, "T", "tan");
        ReplaceAll(text, "C", "cos");
        for (char d = '0'; d <= '9'; ++d) {
            const char digitParen[] = {d, '(', '\0'};
            const char digitTimesParen[] = {d, '*', '(', '\0'};
            ReplaceAll(text, digitParen, digitTimesParen);
            const char digitX[] = {d, 'x', '\0'};
            const char digitTimesX[] = {d, '*', 'x', '\0'};
            ReplaceAll(text, digitX, digitTimesX);
        }
        s.ScriptText(slot) = text;
        s.CompiledScripts(slot).Compile(text);
    }
}

std::string CalculateYEval(Session& s, double x, int slot, EvalPath path) {
    const EvalResult r = EvaluateAt(s, x, slot, path);
    switch (r.kind) {
    case EvalResult::Value:
        return NumberText(r.value);
    case EvalResult::Empty:
        return "";
    default:
        return "NA";
    }
}

std::string CalculateY(Session& s, double x, int slot, EvalPath path) {
    std::string text = CalculateYEval(s, x, slot, path);
    return text.empty() ? "0" : text;
}

std::string CalculateYArea(Session& s, double x, int slot, EvalPath path) {
    std::string text = CalculateYEval(s, x, slot, path);
    return text.empty() || text == "NA" ? "0" : text;
}

YValue CalculateYValue(Session& s, double x, int slot, EvalPath path) {
    if (path == EvalPath::Text) {
        const std::string text = CalculateY(s, x, slot, path);
        if (text == "NA") return {YValue::NotAvailable, 0};
        return {YValue::Number, PrefixNumber(text)};
    }
    return ValueOf(EvaluateAt(s, x, slot, path));
}

void CalculateYValues(Session& s, std::span<const double> xs, int slot, std::span<YValue> out,
                      EvalPath path) {
    if (path != EvalPath::Auto || !CompiledRoute(s, slot)) {
        for (std::size_t i = 0; i < xs.size(); ++i)
            out[i] = CalculateYValue(s, xs[i], slot, path);
        return;
    }
    const CompiledScript& compiled = s.CompiledScripts(slot);
    constexpr int Lanes = ExpressionProgram::Lanes;
    for (std::size_t start = 0; start < xs.size(); start += Lanes) {
        const int n = static_cast<int>(std::min<std::size_t>(Lanes, xs.size() - start));
        const double* x = xs.data() + start;
        double xRead[Lanes];
        RoundToNumberTextMany(x, n, xRead);
        EvalResult results[Lanes];
        compiled.EvaluateMany(xRead, n, results);
        double value[Lanes], valueRead[Lanes];
        for (int i = 0; i < n; ++i)
            value[i] = results[i].value;
        RoundToNumberTextMany(value, n, valueRead);
        for (int i = 0; i < n; ++i)
            out[start + static_cast<std::size_t>(i)] = XTakesText(x[i], xRead[i])
                                                           ? ValueOf(EvaluateByText(s, x[i], slot))
                                                           : ValueOf(results[i].kind, valueRead[i]);
    }
}

ValueSweep::ValueSweep(Session& s, int slot, double step, SampleOf sample, EvalPath path)
    : s_(s), slot_(slot), step_(step), sample_(sample), path_(path),
      compiled_(path == EvalPath::Auto && CompiledRoute(s, slot)) {}

YValue ValueSweep::At(double x) {
    if (!compiled_) return CalculateYValue(s_, sample_ ? sample_(x) : x, slot_, path_);
    // The loop's x is compared bit for bit: it is the sweep's own when both added the same.
    if (next_ == count_ ||
        std::bit_cast<std::uint64_t>(loopX_[next_]) != std::bit_cast<std::uint64_t>(x))
        Fill(x);
    return values_[next_++];
}

void ValueSweep::Fill(double x) {
    double sampleX[Lanes];
    for (int i = 0; i < Lanes; ++i) {
        loopX_[i] = x;
        sampleX[i] = sample_ ? sample_(x) : x;
        x += step_;
    }
    CalculateYValues(s_, sampleX, slot_, values_, path_);
    count_ = Lanes;
    next_ = 0;
}

} // namespace vt
