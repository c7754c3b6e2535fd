#include "expr/SlotEvaluator.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/NumberText.h"

namespace vt {

namespace {

// Every "x" of text replaced by with.
std::string Spliced(std::string_view text, std::string_view with) {
    std::string out;
    out.reserve(text.size() + with.size() * 2);
    for (const char c : text) {
        if (c == 'x')
            out.append(with);
        else
            out += c;
    }
    return out;
}

// The x that go through the text even where the function is compiled: the text of x reads back
// as 0 only for x = 0 and for x just below the largest Double, whose 15 digits overflow when the
// evaluator reads them; and no text of an x that is no number reads back as it.
bool XTakesText(double x, double xRead) {
    return !std::isfinite(x) || (xRead == 0 && x != 0);
}

// The text route. x goes in as its text: bare, a negative x brings its minus sign into the
// expression, and digits beside x join its text ("x3.1415926538" reads 23.1415926538 at x = 2,
// and is no number at 2.5).
[[gnu::noinline]] EvalResult EvaluateByText(std::string_view text, double x, bool bracket) {
    return EvaluateExpression(Spliced(text, SplicedX(x, bracket)));
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

} // namespace

std::string SplicedX(double x, bool bracketNegativeX) {
    std::string text = NumberText(x);
    if (bracketNegativeX && text[0] == '-') return "(" + text + ")";
    return text;
}

void SlotEvaluator::Prepare(int slot, std::string_view text) {
    if (slot < 0 || slot >= Slots) return;
    std::shared_ptr<const CompiledScript>& held = slots_[static_cast<std::size_t>(slot)];
    if (!held || held->Source() != text) held = cache_.Get(text);
}

const CompiledScript* SlotEvaluator::ProgramFor(int slot, std::string_view text) {
    if (strategy_ != EvalStrategy::Compiled || slot < 0 || slot >= Slots) return nullptr;
    Prepare(slot, text);
    const CompiledScript* program = slots_[static_cast<std::size_t>(slot)].get();
    return program->Applies() ? program : nullptr;
}

bool SlotEvaluator::RunsCompiled(int slot, std::string_view text) {
    return ProgramFor(slot, text) != nullptr;
}

EvalResult SlotEvaluator::Evaluate(int slot, std::string_view text, double x, bool bracket) {
    if (const CompiledScript* program = ProgramFor(slot, text)) {
        const double xRead = RoundToNumberText(x);
        if (!XTakesText(x, xRead)) return program->Evaluate(xRead, bracket);
    }
    return EvaluateByText(text, x, bracket);
}

YValue SlotEvaluator::Value(int slot, std::string_view text, double x, bool bracket) {
    const EvalResult r = Evaluate(slot, text, x, bracket);
    if (strategy_ == EvalStrategy::Text) {
        // The reference reads the number back from the text itself.
        if (r.kind != EvalResult::Value) return ValueOf(r.kind, 0);
        return {YValue::Number, PrefixNumber(NumberText(r.value))};
    }
    return ValueOf(r.kind, RoundToNumberText(r.value));
}

void SlotEvaluator::Values(int slot, std::string_view text, std::span<const double> xs,
                           std::span<YValue> out, bool bracket) {
    const CompiledScript* program = ProgramFor(slot, text);
    if (!program) {
        for (std::size_t i = 0; i < xs.size(); ++i)
            out[i] = Value(slot, text, xs[i], bracket);
        return;
    }
    constexpr int Lanes = ExpressionProgram::Lanes;
    for (std::size_t start = 0; start < xs.size(); start += Lanes) {
        const int n = static_cast<int>(std::min<std::size_t>(Lanes, xs.size() - start));
        const double* x = xs.data() + start;
        double xRead[Lanes];
        RoundToNumberTextMany(x, n, xRead);
        EvalResult results[Lanes];
        program->EvaluateMany(xRead, n, bracket, results);
        double value[Lanes], valueRead[Lanes];
        for (int i = 0; i < n; ++i)
            value[i] = results[i].value;
        RoundToNumberTextMany(value, n, valueRead);
        for (int i = 0; i < n; ++i) {
            const EvalResult r =
                XTakesText(x[i], xRead[i]) ? EvaluateByText(text, x[i], bracket) : results[i];
            const double read =
                XTakesText(x[i], xRead[i]) ? RoundToNumberText(r.value) : valueRead[i];
            out[start + static_cast<std::size_t>(i)] = ValueOf(r.kind, read);
        }
    }
}

} // namespace vt
