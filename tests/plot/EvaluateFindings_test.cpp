// Functions on which the compiled route once parted from the text route. Each must give the
// expected text by both routes, and the same value bit for bit one x at a time and in a batch.

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "plot/Evaluate.h"
#include "base/NumberText.h"

namespace vt {

TEST(EvaluateFindings, BothRoutesGiveTheTextRoutesValue) {
    struct Case {
        const char* graphable;
        double x;
        const char* expected;
    };
    const Case cases[] = {
        // x after "E+" or "E-" is a number's exponent once spliced in.
        {"6^(2E+x)", 1, "3.65615844006298E+15"},
        {"2e-x", 1, "0.2"},
        {"(1E-x)*x", 3, "0.003"},
        {"2E+x", -1, "NA"},  // "2E+-1": the E has no exponent digits
        {"2E+x", 0.5, "NA"}, // "2E+0.5": two numbers side by side
    };
    auto s = std::make_unique<Session>();
    for (const Case& c : cases) {
        const std::string text = c.graphable;
        for (int i = 0; i <= CellUpper; ++i)
            s->GraphableCells(i, 0).clear();
        for (std::size_t i = 0; i < text.size(); ++i)
            s->GraphableCells(static_cast<int>(i), 0).assign(1, text[i]);
        PreCalcFX(*s);
        const std::string where = text + " at " + NumberText(c.x);
        EXPECT_EQ(CalculateY(*s, c.x, 0, EvalPath::Text), c.expected) << where;
        EXPECT_EQ(CalculateY(*s, c.x, 0, EvalPath::Auto), c.expected) << where;
        const YValue reference = CalculateYValue(*s, c.x, 0, EvalPath::Text);
        std::vector<double> xs(3, c.x);
        std::vector<YValue> batch(xs.size());
        CalculateYValues(*s, xs, 0, batch);
        for (const YValue& v : {CalculateYValue(*s, c.x, 0, EvalPath::Auto), batch[2]}) {
            EXPECT_EQ(v.kind, reference.kind) << where;
            EXPECT_EQ(std::bit_cast<std::uint64_t>(v.value),
                      std::bit_cast<std::uint64_t>(reference.value))
                << where;
        }
    }
}

} // namespace vt
