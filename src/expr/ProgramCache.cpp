#include "expr/ProgramCache.h"

#include <algorithm>

namespace vt {

namespace {

// Characters that would join the text of a number spliced in next to them.
bool JoinsNumber(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
           c == '_';
}

} // namespace

CompiledScript::CompiledScript(std::string_view text) : source_(text), applies_(true) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != 'x') continue;
        if ((i > 0 && JoinsNumber(text[i - 1])) ||
            (i + 1 < text.size() && JoinsNumber(text[i + 1])))
            applies_ = false;
        // After "E+" or "E-" the digits of x become a number's exponent: "2E+x" reads as 20 at
        // x = 1.
        if (i > 1 && (text[i - 1] == '+' || text[i - 1] == '-') &&
            (text[i - 2] == 'E' || text[i - 2] == 'e'))
            applies_ = false;
        // A name before blanks and x takes a bracketed negative x as its argument: "cos x" is
        // cos(-15) at x = -15, and no number at 15.
        std::size_t before = i;
        while (before > 0 && (text[before - 1] == ' ' || text[before - 1] == '\t'))
            --before;
        if (before < i && before > 0 && JoinsNumber(text[before - 1])) applies_ = false;
    }
    if (!applies_) return;
    plain_ = ExpressionProgram::Compile(text, XMode::Value);
    negated_ = ExpressionProgram::Compile(text, XMode::NegatedValue);
}

void CompiledScript::EvaluateMany(const double* xRead, int n, bool bracketNegativeX,
                                  EvalResult* out) const {
    // Each program takes its own lanes: gathered, run, and put back in their places.
    constexpr int Lanes = ExpressionProgram::Lanes;
    double plainX[Lanes], negatedX[Lanes];
    int plainAt[Lanes], negatedAt[Lanes];
    int plainCount = 0, negatedCount = 0;
    if (!bracketNegativeX) {
        for (int i = 0; i < n; ++i) {
            if (xRead[i] < 0) {
                negatedX[negatedCount] = -xRead[i];
                negatedAt[negatedCount++] = i;
            } else {
                plainX[plainCount] = xRead[i];
                plainAt[plainCount++] = i;
            }
        }
    }
    if (negatedCount == 0) { // a batch of one program runs in place
        plain_.RunMany(xRead, n, out);
        return;
    }
    EvalResult results[Lanes];
    plain_.RunMany(plainX, plainCount, results);
    for (int k = 0; k < plainCount; ++k)
        out[plainAt[k]] = results[k];
    negated_.RunMany(negatedX, negatedCount, results);
    for (int k = 0; k < negatedCount; ++k)
        out[negatedAt[k]] = results[k];
}

std::shared_ptr<const CompiledScript> ProgramCache::Get(std::string_view text) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const auto& entry) { return entry->Source() == text; });
    if (found != entries_.end()) {
        std::rotate(found, found + 1, entries_.end());
        return entries_.back();
    }
    if (entries_.size() >= Capacity) entries_.erase(entries_.begin());
    entries_.push_back(std::make_shared<const CompiledScript>(text));
    ++compilations_;
    return entries_.back();
}

} // namespace vt
