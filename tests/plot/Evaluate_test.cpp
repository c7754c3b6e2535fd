#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "base/NumberText.h"
#include "plot/Evaluate.h"

namespace vt {

namespace {

// Writes an evaluator text into a slot's cells, a character a cell, as the builder leaves it.
void SetGraphable(Session& s, int slot, const std::string& text) {
    for (int i = 0; i <= CellUpper; ++i)
        s.GraphableCells(i, slot).clear();
    for (std::size_t i = 0; i < text.size(); ++i)
        s.GraphableCells(static_cast<int>(i), slot) = std::string(1, text[i]);
}

} // namespace

TEST(PreCalcFX, MakesImpliedProductsAndNamesExplicit) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"2x(x)", "2*x*(x)"}, // "x(" first, then the digit rule completes it
        {"2x^(2)+S(x)", "2*x^(2)+sin(x)"}, {"xS(x)", "x*sin(x)"},
        {"xC(x)+xT(x)", "x*cos(x)+x*tan(x)"}, {"3(x+1)", "3*(x+1)"}, {"(3)/(4x)", "(3)/(4*x)"},
        {"22x", "22*x"}, {"S(2x)", "sin(2*x)"},
        {"x3.1415926538", "x3.1415926538"}, // no product after x is made here
        {"2*3.14159265388", "2*3.14159265388"}, {"abs(x)+1", "abs(x)+1"},
        {"((x+1)^.5)", "((x+1)^.5)"}, {"", ""}
    };
    // clang-format on
    for (const auto& [graphable, script] : cases) {
        Session s;
        SetGraphable(s, 3, graphable);
        PreCalcFX(s);
        EXPECT_EQ(s.ScriptText(3), script) << graphable;
        EXPECT_EQ(s.ScriptText(2), "");
    }
}

TEST(CalculateY, ValuesTextsAndFailures) {
    // Each case through both routes: the text splice and the compiled program.
    const char* NA = "NA";
    // clang-format off
    const std::tuple<const char*, double, int, const char*> cases[] = {
        {"(1)/(x)", 0, 0, NA}, {"(1)/(x)", 2, 0, "0.5"}, {"", 1, 0, ""},
        {"2^(?)", 1, 0, NA}, // an empty exponent box
        {"x", 1, 5, NA},     // no slot 5: a failure like any other
        {"x", 1, -1, NA}, {"x", -0.0, 0, "0"}, {"x", 1e-7, 0, "0.0000001"}, {"xx", 1e-7, 0, NA},
        // a negative x is a minus sign in front of the power; more of it with the brackets below
        {"5-x^(2)", -3, 0, "14"}, {"2x", -3, 0, "-6"}, {"(x)^(2)", -3, 0, "9"},
        {"(x)^(.5)", -4, 0, NA},
        {"x3.1415926538", 2, 0, "23.1415926538"}, // x joins the digits behind it
        {"x3.1415926538", 2.5, 0, NA},
        {"(x)-0.3", 0.1 + 0.2, 0, "0"}, // x goes in as "0.3"
        {"(1)/(3)", 0, 0, "0.333333333333333"}, {"S(x)", 1, 4, "0.841470984807897"},
        {"x^(3)", 1e200, 0, NA}, {"2x^(2)+S(x)", -2.5, 0, "-13.098472144104"}
    };
    // clang-format on
    for (const auto& [graphable, x, slot, expected] : cases) {
        for (EvalStrategy strategy : {EvalStrategy::Text, EvalStrategy::Compiled}) {
            Session s;
            s.Evaluator.SetStrategy(strategy);
            SetGraphable(s, slot >= 0 && slot <= 4 ? slot : 0, graphable);
            PreCalcFX(s);
            const std::string eval = expected;
            const std::string y = eval.empty() ? "0" : eval;
            const std::string area = eval.empty() || eval == "NA" ? "0" : eval;
            const std::string where = std::string(graphable) + " at " + NumberText(x) +
                                      (strategy == EvalStrategy::Text ? " by text" : " compiled");
            EXPECT_EQ(CalculateYEval(s, x, slot), eval) << where;
            EXPECT_EQ(CalculateY(s, x, slot), y) << where;
            EXPECT_EQ(CalculateYArea(s, x, slot), area) << where;
            const YValue v = CalculateYValue(s, x, slot);
            EXPECT_EQ(v.kind, eval == "NA" ? YValue::NotAvailable : YValue::Number) << where;
            if (v.kind == YValue::Number) {
                EXPECT_EQ(v.value, PrefixNumber(y)) << where;
            }
        }
    }
}

TEST(CalculateY, NegativeXInBrackets) {
    // {text, x, value with x bare, value with a negative x in brackets}
    const char* NA = "NA";
    // clang-format off
    const std::tuple<const char*, double, const char*, const char*> cases[] = {
        {"x^(2)", -3, "-9", "9"}, {"-x^(2)", -3, "9", "-9"}, {"x^(2)", 3, "9", "9"},
        {"2^x", -1, "0.5", "0.5"}, {"x^(.5)", -4, "-2", NA}, {"5-x", -2, "7", "7"},
        {"x", -0.05, "-0.05", "-0.05"},
        {"x^(2)", -1.0 / 70, "-2.04081632653062E-04", "2.04081632653062E-04"},
        {"x3.1415926538", -2, "-23.1415926538", NA}, // spliced as text either way
        {"(1)/(x)", -0.0, NA, NA}
    };
    // clang-format on
    for (const auto& [graphable, x, bare, bracketed] : cases) {
        for (EvalStrategy strategy : {EvalStrategy::Text, EvalStrategy::Compiled}) {
            for (const bool bracket : {false, true}) {
                Session s;
                s.Evaluator.SetStrategy(strategy);
                s.BracketNegativeX = bracket;
                SetGraphable(s, 1, graphable);
                PreCalcFX(s);
                const std::string expected = bracket ? bracketed : bare;
                const std::string where = std::string(graphable) + " at " + NumberText(x) +
                                          (bracket ? " bracketed" : " bare") +
                                          (strategy == EvalStrategy::Text ? " by text" : "");
                EXPECT_EQ(CalculateYEval(s, x, 1), expected) << where;
                EXPECT_EQ(CalculateYValue(s, x, 1).Known().value_or(-1e300),
                          expected == "NA" ? -1e300 : PrefixNumber(expected))
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
    const long first = s.Evaluator.Cache().Compilations();
    EXPECT_EQ(first, 5);
    PreCalcFX(s);
    EXPECT_EQ(s.Evaluator.Cache().Compilations(), first);
    SetGraphable(s, 3, "x-2");
    PreCalcFX(s);
    EXPECT_EQ(s.Evaluator.Cache().Compilations(), first + 1);
    EXPECT_EQ(CalculateY(s, 5, 3), "3");
    SetGraphable(s, 3, "x-1"); // back to a text compiled before
    PreCalcFX(s);
    EXPECT_EQ(s.Evaluator.Cache().Compilations(), first + 1);
    EXPECT_EQ(CalculateY(s, 5, 3), "4");
}

TEST(CalculateY, FollowsAScriptTextChangedAfterPreCalcFX) {
    Session s;
    SetGraphable(s, 0, "2x");
    PreCalcFX(s);
    EXPECT_EQ(CalculateY(s, 3, 0), "6");
    s.ScriptText(0) = "x+1";
    EXPECT_EQ(CalculateY(s, 3, 0), "4");
    EXPECT_EQ(CalculateYValue(s, 3, 0).value, 4);
}

} // namespace vt
