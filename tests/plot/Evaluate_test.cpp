#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "plot/Evaluate.h"
#include "plot/PlotTesting.h"

namespace vt::test {
namespace {

// Bit for bit: -0 is no 0 here.
void ExpectSameValue(const YValue& fast, const YValue& text, const std::string& where) {
    ASSERT_EQ(std::tuple(fast.kind, std::bit_cast<std::uint64_t>(fast.value)),
              std::tuple(text.kind, std::bit_cast<std::uint64_t>(text.value)))
        << where;
}

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
            ExpectSameValue(CalculateYValue(s, x, slot), text, where);
            if (slot < 0 || slot > 4) continue; // no batch for a slot that is not there
            std::vector<YValue> batch(3);
            s.Evaluator.Values(slot, s.ScriptText(slot), std::vector<double>(3, x), batch, bracket);
            ExpectSameValue(batch[2], text, where + " in a batch");
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
    PreCalcFX(s);
    EXPECT_EQ(std::tuple(first, s.Evaluator.Cache().Compilations()), std::tuple(5, 5));
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
    EXPECT_EQ(std::tuple(CalculateY(s, 3, 0), CalculateYValue(s, 3, 0).value),
              std::tuple("4", 4.0));
}

// The compiled route against the text route: random functions at random x must give the same
// texts and the same numbers, bit for bit and failure for failure.
int Pick(std::mt19937_64& rng, int n) {
    return static_cast<int>(rng() % static_cast<unsigned>(n));
}

// One line a choice in the random makers:
// clang-format off
// What the two makers of random functions share: their numbers, and terms joined by operators.
class RandomMaker {
  public:
    explicit RandomMaker(std::mt19937_64& rng) : rng_(rng) {}

  protected:
    int Pick(int n) { return test::Pick(rng_, n); }
    std::string Number() {
        static const char* numbers[] = {"2", "3.5", ".5", "12", "0", "1", "7", "0.25", "100"};
        return numbers[Pick(9)];
    }
    template <class Term> std::string Joined(int more, Term term) {
        std::string s = term();
        for (int i = 0; i < more; ++i) s += std::string(1, "+-*/"[Pick(4)]) + term();
        return s;
    }
    std::mt19937_64& rng_;
};

// Texts of the shapes the expression builder makes, now and then spoilt by a stray character so
// that failures and x next to digits, points and letters come up too.
class TextMaker : RandomMaker {
  public:
    using RandomMaker::RandomMaker;

    std::string Make() {
        std::string text = Sum(0);
        const int spoils = Pick(8) == 0 ? 1 + Pick(2) : 0;
        for (int i = 0; i < spoils && !text.empty(); ++i) {
            static const char stray[] = "0123456789.x+-*/^()?SCTx.x";
            const std::size_t at =
                static_cast<std::size_t>(Pick(static_cast<int>(text.size())));
            if (Pick(2) == 0)
                text.insert(at, 1, stray[Pick(sizeof stray - 1)]);
            else
                text.erase(at, 1);
        }
        return text;
    }

  private:
    std::string Atom(int depth) {
        // "x3.1415926538" (x before pi) takes the text route: keep it rare, or few functions
        // would run compiled at all.
        if (Pick(60) == 0) return "x3.1415926538";
        const bool simple = depth > 1 || (depth == 1 && Pick(3) > 0);
        const int choice = simple ? Pick(3) : Pick(12);
        switch (choice) {
        case 0: return Number();  case 1: case 7: return "x";  case 2: return Number() + "x";
        case 3: return "(" + Sum(depth + 1) + ")";  case 4: return "abs(" + Sum(depth + 1) + ")";
        case 5: return std::string(1, "SCT"[Pick(3)]) + "(" + Sum(depth + 1) + ")";
        case 6: return Pick(2) ? "3.1415926538" : Number() + "*3.14159265388";
        case 8: return "(" + Sum(depth + 1) + ")/(" + Sum(depth + 1) + ")";
        case 9: return "((" + Sum(depth + 1) + ")^.5)";
        case 10: return "x(" + Sum(depth + 1) + ")";
        default: return "-" + Atom(depth + 1);
        }
    }

    std::string Factor(int depth) {
        std::string f = Atom(depth);
        switch (Pick(6)) {
        case 0: return f + "^(" + (depth > 0 ? Number() : Sum(depth + 1)) + ")";
        case 1: return f + "^(" + Number() + ")";  case 2: return "(" + f + ")^(.5)";
        default: return f;
        }
    }

    std::string Sum(int depth) {
        return Joined(depth > 0 ? Pick(2) : Pick(3), [&] { return Factor(depth); });
    }
};

// Key strings as a user or a data file would type them: mostly well-formed functions, some
// keys at random.
class KeyMaker : RandomMaker {
  public:
    using RandomMaker::RandomMaker;

    std::string Make() {
        if (Pick(4) == 0) {
            static const char keys[] = "0123456789..xxxx++--*/^^()()PS(C(T(~||";
            std::string out;
            for (int i = 0, n = 1 + Pick(14); i < n; ++i) out += keys[Pick(sizeof keys - 1)];
            return out;
        }
        return Sum(0);
    }

  private:
    std::string Atom(int depth) {
        switch (depth > 2 ? Pick(3) : Pick(13)) {
        case 0: return Number();  case 2: return Number() + "x";  case 3: return "P";
        case 4: return "(" + Sum(depth + 1) + ")";  case 6: return "|" + Sum(depth + 1) + "|";
        case 5: return std::string(1, "SCT"[Pick(3)]) + "(" + Sum(depth + 1) + ")";
        case 7: return "~" + Atom(depth + 1);  case 8: return "-" + Atom(depth + 1);
        case 9: return std::to_string(1 + Pick(9)) + "/" + std::to_string(2 + Pick(8));
        case 10: return "xP";  default: return "x"; // 1, 11 and 12
        }
    }

    std::string Term(int depth) {
        std::string t = Atom(depth);
        switch (Pick(5)) {
        case 0: return t + "^" + Number();  default: return t;
        case 1: return t + "^" + (Pick(2) ? "-" + Number() : "(" + Sum(depth + 1) + ")");
        }
    }

    std::string Sum(int depth) {
        return Joined(depth > 1 ? Pick(2) : Pick(4), [&] { return Term(depth); });
    }
};

double RandomX(std::mt19937_64& rng) {
    std::uniform_real_distribution<double> unit(-1, 1);
    switch (Pick(rng, 10)) {
    case 0: return static_cast<double>(Pick(rng, 41) - 20);
    case 1: return RoundHalfEven(20 * unit(rng), 2); // as the painter samples
    case 2: return Pick(rng, 2) ? 0.0 : -0.0;  case 3: return 20 * unit(rng); // 16, 17 digits
    case 4: return unit(rng) * std::pow(10.0, Pick(rng, 600) - 300);
    case 5: {
        static const double specials[] = {1e-7, -1e-7, 1e-5, 0.0001, -0.0001, 1e15, -1e15, 1e14,
            99999999999999.95, -0.05, 0.3, 1e300, -1e-300, 4.9e-324, 1.7976931348623157e308};
        return specials[Pick(rng, sizeof specials / sizeof specials[0])];
    }
    case 6: { const double v = std::bit_cast<double>(rng()); return std::isfinite(v) ? v : 2.5; }
    default: return 5 * unit(rng);
    }
}

// clang-format on

struct Tally {
    long cases = 0, numbers = 0, compiledFunctions = 0, functions = 0;
};

std::string Where(const Session& s, const char* how, double x) {
    return "\"" + s.ScriptText(0) + "\"" + (s.BracketNegativeX ? " bracketed" : "") + how +
           NumberText(x);
}

// All four results at each x through both routes, and the values of the batch at once.
void Compare(Session& s, const std::vector<double>& xs, Tally& tally) {
    std::vector<YValue> batch(xs.size());
    s.Evaluator.Values(0, s.ScriptText(0), xs, batch, s.BracketNegativeX);
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const double x = xs[i];
        const std::string where = Where(s, " at ", x);
        for (auto text : {CalculateYEval, CalculateY, CalculateYArea})
            ASSERT_EQ(text(s, x, 0), ByText(s, [&] { return text(s, x, 0); })) << where;
        const YValue text = ByText(s, [&] { return CalculateYValue(s, x, 0); });
        ExpectSameValue(CalculateYValue(s, x, 0), text, where);
        ExpectSameValue(batch[i], text, where + " in a batch");
        ++tally.cases;
        if (text.kind == YValue::Number) ++tally.numbers;
    }
}

// A sweep as the painter walks it, past the end of one batch and with a jump back that starts
// a new one, against the text route.
void CompareSweep(Session& s, std::mt19937_64& rng) {
    const double first = RoundHalfEven(RandomX(rng), 2);
    const double step = Pick(rng, 2) ? 0.1 : std::ldexp(1.0, Pick(rng, 8) - 6);
    ValueSweep sweep(s, 0, step, [](double x) { return RoundHalfEven(x, 2); });
    double x = first;
    for (int i = 0; i < 80 && !::testing::Test::HasFatalFailure(); ++i, x += step) {
        if (i == 70) x = first;
        const double sampleX = RoundHalfEven(x, 2);
        ExpectSameValue(sweep.At(x), ByText(s, [&] { return CalculateYValue(s, sampleX, 0); }),
                        Where(s, " swept at ", sampleX));
    }
}

// Functions made by enter(s) agree at eight random x each, and every 16th along a sweep; every
// third with a negative x in brackets.
template <class Maker, class Enter> Tally Differential(unsigned seed, int functions, Enter enter) {
    std::mt19937_64 rng(seed);
    Maker maker(rng);
    Session s;
    Tally tally;
    for (int f = 0; f < functions && !::testing::Test::HasFatalFailure(); ++f) {
        enter(s, maker.Make());
        PreCalcFX(s);
        s.BracketNegativeX = f % 3 == 1;
        ++tally.functions;
        if (s.Evaluator.RunsCompiled(0, s.ScriptText(0))) ++tally.compiledFunctions;
        std::vector<double> xs(8);
        for (double& x : xs)
            x = RandomX(rng);
        Compare(s, xs, tally);
        if (f % 16 == 0 && !::testing::Test::HasFatalFailure()) CompareSweep(s, rng);
    }
    // Not a vacuous agreement: most functions run compiled, and most values exist.
    EXPECT_GT(tally.compiledFunctions * 10, tally.functions * 7);
    EXPECT_GT(tally.numbers * 10, tally.cases * 3);
    return tally;
}

TEST(EvaluateDifferential, BuilderShapedTextsAgreeByBothRoutes) {
    const Tally tally = Differential<TextMaker>(
        20240611, 12000, [](Session& s, const std::string& text) { SetGraphable(s, 0, text); });
    EXPECT_GE(tally.cases, 96000);
}

TEST(EvaluateDifferential, TypedFunctionsAgreeByBothRoutes) {
    Differential<KeyMaker>(77, 1500, [](Session& s, const std::string& keys) {
        ClearAllRows(s);
        SetKeyMask(s);
        ReplaySlotKeys(s, 0, keys);
    });
}

} // namespace
} // namespace vt::test
