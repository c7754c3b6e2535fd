#include "plot/Evaluate.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "base/NumberText.h"
#include "translate/Graphable.h"

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

// The slot's text, or none for a slot outside 0..4: ScriptText has five entries and its
// subscript error is a failure like any other of the evaluation.
const std::string* ScriptOf(Session& s, int slot) {
    try {
        return &s.ScriptText(slot);
    } catch (const SubscriptError&) {
        return nullptr;
    }
}

EvalResult EvaluateAt(Session& s, double x, int slot) {
    const std::string* script = ScriptOf(s, slot);
    if (!script) return {EvalResult::Failure, 0};
    return s.Evaluator.Evaluate(slot, *script, x, s.BracketNegativeX);
}

} // namespace

void PreCalcFX(Session& s) {
    for (int slot = 0; slot < UsableSlots; ++slot) {
        std::string text = GraphableText(s, slot);
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
        s.Evaluator.Prepare(slot, text);
    }
}

std::string CalculateYEval(Session& s, double x, int slot) {
    const EvalResult r = EvaluateAt(s, x, slot);
    switch (r.kind) {
    case EvalResult::Value:
        return NumberText(r.value);
    case EvalResult::Empty:
        return "";
    default:
        return "NA";
    }
}

std::string CalculateY(Session& s, double x, int slot) {
    std::string text = CalculateYEval(s, x, slot);
    return text.empty() ? "0" : text;
}

std::string CalculateYArea(Session& s, double x, int slot) {
    std::string text = CalculateYEval(s, x, slot);
    return text.empty() || text == "NA" ? "0" : text;
}

YValue CalculateYValue(Session& s, double x, int slot) {
    const std::string* script = ScriptOf(s, slot);
    if (!script) return {YValue::NotAvailable, 0};
    return s.Evaluator.Value(slot, *script, x, s.BracketNegativeX);
}

ValueSweep::ValueSweep(Session& s, int slot, double step, SampleOf sample)
    : s_(s), slot_(slot), step_(step), sample_(sample) {
    const std::string* script = ScriptOf(s, slot);
    compiled_ = script && s.Evaluator.RunsCompiled(slot, *script);
}

YValue ValueSweep::At(double x) {
    if (!compiled_) return CalculateYValue(s_, sample_ ? sample_(x) : x, slot_);
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
    s_.Evaluator.Values(slot_, s_.ScriptText(slot_), sampleX, values_, s_.BracketNegativeX);
    count_ = Lanes;
    next_ = 0;
}

} // namespace vt
