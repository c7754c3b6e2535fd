// Nesting at its limits, through what a key runs and what the Graph command then asks of a row:
// the builder, the typesetter and both evaluation routes. The evaluator's recursion follows the
// nesting, so these cases also show that it stays within the stack (the suite runs under
// AddressSanitizer too).

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "base/NumberText.h"
#include "display/Typesetter.h"
#include "entry/EntryTesting.h"
#include "plot/Evaluate.h"
#include "plot/PlotTesting.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

int BracketDepth(const std::string& text) {
    int depth = 0, deepest = 0;
    for (char c : text) {
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

// CalculateY on the reference route; the session's evaluator then goes back to compiling.
std::string ByText(Session& s, double x) {
    return test::ByText(s, [&] { return CalculateY(s, x, 0); });
}

void ExpectRoutesAgree(Session& s, const std::string& expectedAtTwo) {
    EXPECT_EQ(CalculateY(s, 2, 0), expectedAtTwo);
    for (double x : {2.0, -0.5, 0.0, 1e10})
        EXPECT_EQ(CalculateY(s, x, 0), ByText(s, x)) << NumberText(x);
}

} // namespace

TEST(DeepNesting, DeepTypedRowsBuildTypesetAndEvaluate) {
    // The entry rules keep nesting shallow: at most three open parentheses, and a root, power,
    // bar or fraction each closes before most keys may follow. These rows, typed as a file load
    // sends them, nest about as deep as the rules allow. {keys, least bracket depth, value at 2}
    const std::tuple<const char*, int, const char*> cases[] = {
        {"~(1|(2/2/(-12^2))|+2)", 7, "1.41666666666667"},
        {"x+22~x^(|x-2(12)|-1)/(x|~(21^x+1)|)+11+2/~12", 6, "771.275985426636"},
        {"1^-1x-x/(1S~S^x+(1/~1(-1+|~1/S^~-", 7, "NA"}}; // the last unfinished
    for (const auto& [keys, depth, atTwo] : cases) {
        SCOPED_TRACE(keys);
        auto s = test::NewEntrySession();
        test::TypeFromMenu(*s, keys);
        PreCalcFX(*s);
        EXPECT_GE(BracketDepth(s->ScriptText(0)), depth);
        ExpectRoutesAgree(*s, atTwo);
        test::RecordingSurface paper(400, 40);
        std::string display = DisplayText(*s, 0);
        PrintEquation(*s, display, paper, false);
        EXPECT_FALSE(paper.Prints.empty());
    }
}

TEST(DeepNesting, EvaluatorTakesAsDeepAsItAllowsByBothRoutes) {
    // A row's cells hold at most 2001 characters, so no function from the rows or a file
    // nests deeper than 1000; the evaluator itself allows MaxNesting and refuses one more.
    // {depth, value at 2}
    const std::pair<int, const char*> cases[] = {
        {1000, "2"}, {MaxNesting, "2"}, {MaxNesting + 1, "NA"}};
    auto s = test::NewEntrySession();
    for (const auto& [depth, atTwo] : cases) {
        SCOPED_TRACE(depth);
        const std::string d(static_cast<std::size_t>(depth), '(');
        s->ScriptText(0) = d + "x" + std::string(d.size(), ')');
        ExpectRoutesAgree(*s, atTwo);
        s->ScriptText(0) = std::string(static_cast<std::size_t>(depth), '-') + "x";
        EXPECT_EQ(CalculateY(*s, 2, 0), ByText(*s, 2));
    }
}

} // namespace vt
