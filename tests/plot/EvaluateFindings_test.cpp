// Functions on which the compiled route once parted from the text route. Each must give the
// expected text by both routes, and the same value bit for bit one x at a time and in a batch.

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "plot/Evaluate.h"

namespace vt {

namespace {

// What f gives on the reference route; the session's evaluator then goes back to compiling.
template <class F> auto ByText(Session& s, F f) {
    s.Evaluator.SetStrategy(EvalStrategy::Text);
    const auto result = f();
    s.Evaluator.SetStrategy(EvalStrategy::Compiled);
    return result;
}

} // namespace

TEST(EvaluateFindings, BothRoutesGiveTheTextRoutesValue) {
    struct Case {
        const char* graphable;
        double x;
        const char* expected;
        bool bracketNegativeX = false;
    };
    const Case cases[] = {
        // x after "E+" or "E-" is a number's exponent once spliced in.
        {"6^(2E+x)", 1, "3.65615844006298E+15"},
        {"2e-x", 1, "0.2"},
        {"(1E-x)*x", 3, "0.003"},
        {"2E+x", -1, "NA"},  // "2E+-1": the E has no exponent digits
        {"2E+x", 0.5, "NA"}, // "2E+0.5": two numbers side by side
        // A bracketed negative x gives a name before it its parenthesis.
        {"x*(C x)", -15, "11.3953186928823", true},
        {"x*(C x)", 15, "NA", true},
        {"x*(C x)", -15, "NA", false},
        {"2 x", -1, "NA", true},
    };
    auto s = std::make_unique<Session>();
    for (const Case& c : cases) {
        const std::string text = c.graphable;
        for (int i = 0; i <= CellUpper; ++i)
            s->GraphableCells(i, 0).clear();
        for (std::size_t i = 0; i < text.size(); ++i)
            s->GraphableCells(static_cast<int>(i), 0).assign(1, text[i]);
        PreCalcFX(*s);
        s->BracketNegativeX = c.bracketNegativeX;
        const std::string where = text + " at " + NumberText(c.x);
        EXPECT_EQ(ByText(*s, [&] { return CalculateY(*s, c.x, 0); }), c.expected) << where;
        EXPECT_EQ(CalculateY(*s, c.x, 0), c.expected) << where;
        const YValue reference = ByText(*s, [&] { return CalculateYValue(*s, c.x, 0); });
        std::vector<double> xs(3, c.x);
        std::vector<YValue> batch(xs.size());
        s->Evaluator.Values(0, s->ScriptText(0), xs, batch, c.bracketNegativeX);
        for (const YValue& v : {CalculateYValue(*s, c.x, 0), batch[2]}) {
            EXPECT_EQ(v.kind, reference.kind) << where;
            EXPECT_EQ(std::bit_cast<std::uint64_t>(v.value),
                      std::bit_cast<std::uint64_t>(reference.value))
                << where;
        }
    }
}

} // namespace vt
