#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "entry/TokenText.h"
#include "translate/breakdown/Breakdown.h"

namespace vt {

namespace {

using Tokens = std::vector<std::string>;

// Runs the breakdown on tokens written with blanks between them, in the given session.
BreakdownRun RunTokens(Session& s, const std::string& spaced) {
    EXPECT_EQ(SetBreakdownTokens(s, SplitBreakdownTokens(spaced)), BreakdownError::None);
    return RunBreakdown(s);
}
BreakdownRun RunTokens(const std::string& spaced) {
    return RunTokens(*std::make_unique<Session>(), spaced);
}

// n copies of a piece, joined with blanks.
std::string Repeat(const std::string& piece, int n) {
    return n > 0 ? piece + " " + Repeat(piece, n - 1) : "";
}

} // namespace

TEST(Breakdown, TypedEquationGoesThroughEveryStage) {
    auto s = std::make_unique<Session>();
    SetKeyMask(*s);
    ReplaySlotKeys(*s, 0, "2x^2+S(x)");
    ASSERT_EQ(CopySlotToBreakdown(*s, 0), BreakdownError::None);
    const BreakdownRun run = RunBreakdown(*s);
    ASSERT_EQ(run.Error, BreakdownError::None);
    EXPECT_EQ(std::tuple(run.Merged, run.Normalised, run.Text),
              std::tuple(Tokens{"2", "x", "^", "2", "+", "S", "(", "x", ")"},
                         Tokens{"+", "2", "x", "^", "2", "+", "S", "(", "+", "x", ")"},
                         "+2/1x^+2+1/1S"));
    ASSERT_EQ(run.Terms.size(), 2u);
    EXPECT_EQ(std::tuple(run.Terms[0].Num, run.Terms[0].Letters, run.Terms[1].Letters),
              std::tuple(2.0f, "x^2", "S"));
    // The parenthesis opened group 1, whose one part holds the term x.
    EXPECT_EQ(
        std::tuple(s->MaxBreakdownGroup, s->TermCount(1, 0), s->BreakdownTerm(0, 1, 0, 1).Factor(1),
                   s->BreakdownTerm(0, 0, 0, 1).Power(1), s->BreakdownTerm(0, 0, 0, 1).TopText),
        std::tuple(1, 1, "x", 2.0f, "x^2"));
    // char2str_graph gives the same text from the same tokens.
    ASSERT_EQ(CopySlotToBreakdown(*s, 0), BreakdownError::None);
    std::string text;
    EXPECT_EQ((std::tuple{char2str_graph(*s, text), text}),
              std::tuple(BreakdownError::None, run.Text));
}

TEST(Breakdown, StagesJoinNumbersAndMakeSignsExplicit) {
    // {tokens; after the joining; after the signs}.
    // clang-format off
    const std::tuple<std::string, Tokens, Tokens> cases[] = {
        {"", {}, {"+"}}, {"1 2 . 5 x", {"12.5", "x"}, {"+", "12.5", "x"}},
        // A "/" joins only when a plain number and then an end of the number follow.
        {"3 / 4", {"3/4"}, {"+", "3/4"}},
        {"3 / 4 x", {"3", "/", "4", "x"}, {"+", "3", "/", "4", "x"}},
        {"x ^ 2 / 3", {"x", "^", "2", "/", "3"}, {"+", "x", "^", "2", "/", "3"}},
        {"1 E - 5 x", {"1E-5", "x"}, {"+", "1E-5", "x"}}, {"- x", {"-", "x"}, {"-", "x"}},
        // "*" before a parenthesis goes, unless it stands behind a fraction.
        {"2 * ( x )", {"2", "*", "(", "x", ")"}, {"+", "2", "(", "+", "x", ")"}},
        {"a / 2 * ( x )", {"a", "/", "2", "*", "(", "x", ")"},
         {"+", "a", "/", "2", "*", "(", "+", "x", ")"}},
        // A closing bar is followed by a sign too.
        {"| x | y", {"|", "x", "|", "y"}, {"+", "|", "+", "x", "|", "+", "y"}},
        // Of two operators the second cell keeps what stood there before: "y" twice.
        {"x + - y", {"x", "+", "-", "y"}, {"+", "x", "+", "y", "y"}},
        // The second "=" shifts from the cells as they were before the first shift: z is lost.
        {"x = y = z", {"x", "=", "y", "=", "z"}, {"+", "x", "=", "+", "y", "=", "+"}}};
    // clang-format on
    for (const auto& [tokens, merged, normalised] : cases) {
        const BreakdownRun run = RunTokens(tokens);
        EXPECT_EQ(std::tuple(run.Merged, run.Normalised), std::tuple(merged, normalised)) << tokens;
    }
}

TEST(Breakdown, TermsCarryTheirRationalCoefficients) {
    // {tokens; text of the left side}.
    // The left side ends at the relation sign, the "=" of "<=" included, and "<" reads as the
    // number 0. A number before a parenthesis keeps its value: the group's first term resets it.
    // clang-format off
    const std::pair<std::string, std::string> cases[] = {
        {"+ 2 x ^ 2", "+2/1x^+2"}, {"- x + 3", "-1/1x+3/1"}, {"3 / 4", "+3/4"}, {"x / 4", "+1/4x/"},
        {"x ^ - 2", "+1/1x^+-2"}, {"0 . 5 x", "+0.5/1x"}, {"2 ~ 3 x", "+2/1~3x"},
        {"1 E + 2 x", "+100/1x"}, {"2 x = 3", "+2/1x"}, {"x < = 1", "+0/1x"}, {"2 ( x )", "+2/1"}};
    // clang-format on
    for (const auto& [tokens, text] : cases) {
        const BreakdownRun run = RunTokens(tokens);
        EXPECT_EQ(std::tuple(run.Error, run.Text), std::tuple(BreakdownError::None, text))
            << tokens;
    }
}

TEST(Breakdown, ClearingReachesOnlyNearTheLastRun) {
    // A fresh table has four clean terms per part; the fifth on were never cleared and hold
    // zeros. Once a run has used six, the next clearing reaches them.
    auto s = std::make_unique<Session>();
    const std::string six = "x + x + x + x + x + x";
    EXPECT_EQ(RunTokens(*s, six).Text, "+1/1x+1/1x+1/1x+1/1x+0/0x+0/0x");
    EXPECT_EQ(RunTokens(*s, six).Text, "+1/1x+1/1x+1/1x+1/1x+1/1x+1/1x");
}

TEST(Breakdown, ErrorsStopTheRunAndAreReported) {
    // {tokens; the error}: 11 letters in a term, group 21, term 101, a 52nd part in group 1, a
    // closing with nothing open; beyond a single-precision number; no exponent digits after the
    // sign's place.
    constexpr auto Subscript = BreakdownError::Subscript, Overflow = BreakdownError::Overflow;
    // clang-format off
    const std::pair<std::string, BreakdownError> cases[] = {
        {Repeat("x", 11), Subscript}, {Repeat("(", 21) + "x" + Repeat(")", 21), Subscript},
        {Repeat("+ x", 101), Subscript}, {Repeat("( x )", 52), Subscript}, {"x ) + y", Subscript},
        {"x / 0", BreakdownError::DivisionByZero}, {"0 x / 0", Overflow}, {"1 E + 3 9 x", Overflow},
        {"1 E 5", BreakdownError::TypeMismatch}};
    // clang-format on
    for (const auto& [tokens, error] : cases) {
        const BreakdownRun run = RunTokens(tokens);
        EXPECT_EQ(std::tuple(run.Error, run.Text, run.Terms.size()), std::tuple(error, "", 0u))
            << tokens.substr(0, 60);
    }
    // More tokens than cells, and a joining that runs past the last cell.
    auto s = std::make_unique<Session>();
    EXPECT_EQ(SetBreakdownTokens(*s, Tokens(2002, "x")), BreakdownError::Subscript);
    EXPECT_EQ(SetBreakdownTokens(*s, Tokens(2001, "1")), BreakdownError::None);
    EXPECT_EQ(RunBreakdown(*s).Error, BreakdownError::Subscript);
    EXPECT_STREQ(BreakdownErrorName(BreakdownError::Subscript), "Subscript out of range");
}

TEST(Breakdown, NumberTools) {
    // {text; ExpandENotation; FractionValue; FractionValue rounded}. "!" stands for the
    // error named in the last column.
    constexpr auto None = BreakdownError::None, Mismatch = BreakdownError::TypeMismatch,
                   Overflow = BreakdownError::Overflow;
    // clang-format off
    const std::tuple<std::string, std::string, std::string, std::string, BreakdownError> cases[] = {
        {"12", "12", "12", "12", None}, {"1E-5", "100000", "1E-5", "1E-5", None},
        {"2.5E+2", "250", "2.5E+2", "2.5E+2", None}, {"7/2", "7/2", "3.5", "4", None},
        {"5/2", "5/2", "2.5", "2", None}, {"3/0", "3/0", "", "", None},
        {"1/2/4", "1/2/4", "0.5", "0", None}, {"1E5", "!", "1E5", "1E5", Mismatch},
        {"E+2", "!", "E+2", "E+2", Mismatch},
        {"1E+400", "!", "1E+400", "1E+400", Overflow}, {"/4", "/4", "!", "!", Mismatch}};
    // clang-format on
    BreakdownState b;
    for (const auto& [in, expanded, fraction, rounded, error] : cases) {
        SCOPED_TRACE(in);
        // Each result as its text, or "!" and the error.
        const auto result = [&](BreakdownError e, const std::string& out) {
            return e == BreakdownError::None ? std::tuple(out, e) : std::tuple(std::string("!"), e);
        };
        const auto expected = [&](const std::string& want) {
            return std::tuple(want, want == "!" ? error : BreakdownError::None);
        };
        std::string out;
        EXPECT_EQ(result(ExpandENotation(in, out), out), expected(expanded));
        for (const bool roundIt : {false, true})
            EXPECT_EQ(result(FractionValue(b, in, roundIt, out), out),
                      expected(roundIt ? rounded : fraction));
    }
    const std::pair<float, std::string> singles[] = {
        {2, "2"},        {-2.5f, "-2.5"},      {0.1f, "0.1"},       {1 / 3.0f, "0.3333333"},
        {1e7f, "1E+07"}, {1234567, "1234567"}, {0.00001f, "1E-05"}, {1 / 70.0f, "0.01428571"},
        {0, "0"},        {1e-7f, "1E-07"},
    };
    for (const auto& [value, text] : singles)
        EXPECT_EQ(SingleText(value), text) << value;
}

TEST(Breakdown, RelationAndTrim) {
    // {tokens; FindRelation}.
    const std::pair<std::string, int> cases[] = {
        {"x = y", 1}, {"x < = y", 2}, {"x > y", 1}, {"x y", 2}, {"= =", 1}};
    BreakdownState b;
    for (const auto& [tokens, relation] : cases) {
        ASSERT_EQ(SetBreakdownTokens(b, SplitBreakdownTokens(tokens)), BreakdownError::None);
        int at = -1;
        EXPECT_EQ((std::tuple{FindRelation(b, at), at}), std::tuple(BreakdownError::None, relation))
            << tokens;
    }
    b.BreakdownTokens(1) = "";
    b.BreakdownCount = 9;
    EXPECT_EQ((std::tuple{TrimBreakdownCount(b), b.BreakdownCount}),
              std::tuple(BreakdownError::None, 1));
}

TEST(Breakdown, AnyTokenListEndsInTextOrAnError) {
    // Random lists, in one session so that each run also meets what the last one left in the
    // tables; a few run past the last cell. Whatever the list, the run ends, a completed sign
    // stage starts with a sign, and terms come only from a run that finished.
    const Tokens alphabet = {"0", "1", "2", "9",  ".",   "+",   "-",    "*",    "/",    "^",
                             "~", "|", "(", ")",  "x",   "S",   "E",    "=",    "<",    ">",
                             "[", "",  "P", "12", "3/4", "2~3", "1E-5", "1E+2", "abs(", ";"};
    std::mt19937 random(14);
    auto s = std::make_unique<Session>();
    int outcomes[5] = {};
    for (int run = 0; run < 1500; ++run) {
        const int length = run % 100 == 99 ? 1990 + run % 20 : static_cast<int>(random() % 60);
        Tokens tokens;
        for (int k = 0; k < length; ++k)
            tokens.push_back(alphabet[random() % alphabet.size()]);
        if (SetBreakdownTokens(*s, tokens) != BreakdownError::None) continue;
        const BreakdownRun result = RunBreakdown(*s);
        EXPECT_TRUE(result.Normalised.empty() || IsSign(result.Normalised.front()));
        ++outcomes[static_cast<int>(result.Error)];
        EXPECT_TRUE(result.Error == BreakdownError::None
                        ? static_cast<int>(result.Terms.size()) == s->TermCount(0, 0)
                        : result.Terms.empty() && result.Text.empty());
    }
    // The lists reach both finished runs and every kind of error.
    for (int outcome : outcomes)
        EXPECT_GT(outcome, 0);
}

} // namespace vt
