#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "base/NumberText.h"
#include "plot/Evaluate.h"
#include "plot/PlotTesting.h"

namespace vt::test {

TEST(PreCalcFX, MakesImpliedProductsAndNamesExplicit) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"2x(x)", "2*x*(x)"}, // "x(" first, then the digit rule completes it
        {"2x^(2)+S(x)", "2*x^(2)+sin(x)"}, {"xS(x)", "x*sin(x)"},
        {"xC(x)+xT(x)", "x*cos(x)+x*tan(x)"}, {"3(x+1)", "3*(x+1)"}, {"(3)/(4x)", "(3)/(4*x)"},
        {"22x", "22*x"}, {"S(2x)", "sin(2*x)"},
        {"x3.1415926538", "x3.1415926538"}, // no product after x is made here
        {"2*3.14159265388", "2*3.14159265388"}, {"abs(x)+1", "abs(x)+1"},
        {"((x+1)^.5)", "((x+1)^.5)"}, {"", ""}};
    // clang-format on
    for (const auto& [graphable, script] : cases) {
        Session s;
        SetGraphable(s, 3, graphable);
        PreCalcFX(s);
        EXPECT_EQ(s.ScriptText(3) + "|" + s.ScriptText(2), script + std::string("|")) << graphable;
    }
}

TEST(CalculateY, ValuesTextsAndFailuresByBothRoutesAndInABatch) {
    // {evaluator text, x, slot, value with x bare, value with a negative x in brackets; nullptr:
    // not asked}. Each through the text splice and the compiled program, the compiled value the
    // text route's bit for bit, and the batch the same. The rows from "6^(2E+x)" on are where
    // the compiled route once parted from the text: x after "E+" or "E-" is a number's exponent
    // once spliced in, and a bracketed negative x gives a name before it its parenthesis.
    const char* NA = "NA";
    // clang-format off
    const std::tuple<const char*, double, int, const char*, const char*> cases[] = {
        {"(1)/(x)", 0, 0, NA, NA}, {"(1)/(x)", 2, 0, "0.5", nullptr}, {"", 1, 0, "", nullptr},
        {"2^(?)", 1, 0, NA, nullptr}, // an empty exponent box
        {"x", 1, 5, NA, nullptr}, {"x", 1, -1, NA, nullptr}, // no such slot: a failure like any
        {"x", -0.0, 0, "0", nullptr}, {"x", 1e-7, 0, "0.0000001", nullptr},
        {"xx", 1e-7, 0, NA, nullptr},
        // a negative x bare is a minus sign in front of the power
        {"5-x^(2)", -3, 0, "14", nullptr}, {"2x", -3, 0, "-6", nullptr},
        {"(x)^(2)", -3, 0, "9", nullptr}, {"(x)^(.5)", -4, 0, NA, nullptr},
        {"x^(2)", -3, 1, "-9", "9"}, {"-x^(2)", -3, 1, "9", "-9"}, {"x^(2)", 3, 1, "9", "9"},
        {"2^x", -1, 1, "0.5", "0.5"}, {"x^(.5)", -4, 1, "-2", NA}, {"5-x", -2, 1, "7", "7"},
        {"x", -0.05, 1, "-0.05", "-0.05"},
        {"x^(2)", -1.0 / 70, 1, "-2.04081632653062E-04", "2.04081632653062E-04"},
        // x joins the digits behind it, spliced as text either way
        {"x3.1415926538", 2, 0, "23.1415926538", nullptr}, {"x3.1415926538", 2.5, 0, NA, nullptr},
        {"x3.1415926538", -2, 1, "-23.1415926538", NA}, {"(1)/(x)", -0.0, 1, NA, NA},
        {"(x)-0.3", 0.1 + 0.2, 0, "0", nullptr}, // x goes in as "0.3"
        {"(1)/(3)", 0, 0, "0.333333333333333", nullptr}, {"S(x)", 1, 4, "0.841470984807897", nullptr},
        {"x^(3)", 1e200, 0, NA, nullptr}, {"2x^(2)+S(x)", -2.5, 0, "-13.098472144104", nullptr},
        {"6^(2E+x)", 1, 0, "3.65615844006298E+15", nullptr}, {"2e-x", 1, 0, "0.2", nullptr},
        {"(1E-x)*x", 3, 0, "0.003", nullptr},
        {"2E+x", -1, 0, NA, nullptr},  // "2E+-1": the E has no exponent digits
        {"2E+x", 0.5, 0, NA, nullptr}, // "2E+0.5": two numbers side by side
        {"x*(C x)", -15, 0, NA, "11.3953186928823"}, {"x*(C x)", 15, 0, NA, NA},
        {"2 x", -1, 0, nullptr, NA}};
    // clang-format on
    for (const auto& [graphable, x, slot, bare, bracketed] : cases) {
        for (const bool bracket : {false, true}) {
            const char* expected = bracket ? bracketed : bare;
            if (!expected) continue;
            const std::string where =
                std::string(graphable) + " at " + NumberText(x) + (bracket ? " bracketed" : "");
            Session s;
            s.BracketNegativeX = bracket;
            SetGraphable(s, slot >= 0 && slot <= 4 ? slot : 0, graphable);
            PreCalcFX(s);
            const std::string eval = expected, y = eval.empty() ? "0" : eval;
            const YValue text = ByText(s, [&] { return CalculateYValue(s, x, slot); });
            for (const bool compiled : {false, true}) {
                s.Evaluator.SetStrategy(compiled ? EvalStrategy::Compiled : EvalStrategy::Text);
                EXPECT_EQ(CalculateYEval(s, x, slot), eval) << where << compiled;
                EXPECT_EQ(CalculateY(s, x, slot), y) << where << compiled;
                EXPECT_EQ(CalculateYArea(s, x, slot), eval == NA ? "0" : y) << where << compiled;
            }
            EXPECT_EQ(text.Known(), eval == NA ? std::optional<double>() : PrefixNumber(y))
                << where;
            std::vector<YValue> batch(3);
            if (slot >= 0 && slot <= 4) {
                const std::vector<double> xs(3, x);
                s.Evaluator.Values(slot, s.ScriptText(slot), xs, batch, bracket);
            } else {
                batch.assign(3, CalculateYValue(s, x, slot));
            }
            for (const YValue& v : {CalculateYValue(s, x, slot), batch[2]}) {
                ASSERT_EQ(v.kind, text.kind) << where;
                EXPECT_EQ(std::bit_cast<std::uint64_t>(v.value),
                          std::bit_cast<std::uint64_t>(text.value))
                    << where;
            }
        }
    }
}

TEST(PreCalcFX, ARepaintCompilesOnlyTheTextsThatChanged) {
    Session s;
    const char* texts[] = {"2x^(2)+S(x)", "(1)/(x)", "abs(x)+1", "x-1", "((x+20)^.5)"};
    for (int slot = 0; slot < 5; ++slot)
        SetGraphable(s, slot, texts[slot]);
    PreCalcFX(s);
    EXPECT_EQ(s.Evaluator.Cache().Compilations(), 5);
    PreCalcFX(s);
    EXPECT_EQ(s.Evaluator.Cache().Compilations(), 5);
    // {the text of row 3, compilations afterwards, its value at 5}: back to a text compiled
    // before costs nothing.
    for (const auto& [text, compilations, y] : {std::tuple{"x-2", 6, "3"}, {"x-1", 6, "4"}}) {
        SetGraphable(s, 3, text);
        PreCalcFX(s);
        EXPECT_EQ(s.Evaluator.Cache().Compilations(), compilations);
        EXPECT_EQ(CalculateY(s, 5, 3), y);
    }
    // A script text changed after PreCalcFX is followed.
    s.ScriptText(0) = "x+1";
    EXPECT_EQ(CalculateY(s, 3, 0), "4");
    EXPECT_EQ(CalculateYValue(s, 3, 0).value, 4);
}

} // namespace vt::test
