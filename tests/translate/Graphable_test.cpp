#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "translate/Graphable.h"

namespace vt {

namespace {

std::vector<std::string> Split(const std::string& spaced) {
    std::istringstream in(spaced);
    return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

// Puts grouped tokens into a row as the entry handler leaves them (cell 0 empty, tokens from
// cell 1, DisplayCount the last cell) and runs the builder on it.
GraphableRow Build(Session& s, const std::vector<std::string>& tokens, int slot = 0) {
    s.ActiveSlot = slot;
    for (int c = 0; c <= CellUpper; ++c)
        s.DisplayTokens(c, slot) = "";
    for (std::size_t k = 0; k < tokens.size(); ++k)
        s.DisplayTokens(static_cast<int>(k) + 1, slot) = tokens[k];
    s.DisplayCount = s.TokenCount(slot) = static_cast<int>(tokens.size());
    return BuildGraphable(s);
}
GraphableRow Build(Session& s, const char* spaced, int slot = 0) {
    return Build(s, Split(spaced), slot);
}

} // namespace

TEST(GraphableBuilder, MakesEvaluatorTextAndMarkedUpDisplay) {
    // {the groups, written apart; GraphableText; the display text returned and kept}. By
    // row: one root flag, so the inner root closes at ")" and its opener then reads as the
    // outer's closer; a minus right after "^" is the exponent's sign, and "+" ends the
    // exponent. Fractions take as numerator the term since the last boundary; a fraction after
    // a number fraction keeps its level, so "+" inside the parentheses does not end it and the
    // ")" does. A group opened before an open bar is not closed from inside it; two groups
    // ending at one closing bar share one cell. The product sign of a function, bar or root
    // comes after a value or ")". Doubled parentheses lose the first ")" ")" pair further on,
    // matching or not.
    // clang-format off
    const char* cases[][3] = {
        {"2 x ^ 2 + S ( x )", "2x^(2)+S(x)", "2x^2^+S(x)"}, {"1 / x + 2", "(1)/(x)+2", "#1/x#+2"},
        {"2 ~ x", "2(x)^(.5)", "2~x~"}, {"~ ( x + 1 )", "((x+1)^.5)", "~(x+1)~"},
        {"| x | + 1", "abs(x)+1", "|x|+1"}, {"2 | x |", "2*abs(x)", "2|x|"},
        {"2 P", "2*3.14159265388", "2`"}, {"x P", "x3.1415926538", "x`"},
        {"x ^ ( 3/4 )", "x^(3)/(4)", "x^(3/4)^"}, {"3/4 x", "(3)/(4x)", "#3/4x#"},
        {"3/4 + x", "(3)/(4)+x", "#3/4#+x"}, {"~ ( 2 + ~ x )", "((2+^.5)x()", "~(2+~x~)"},
        {"( ( x ) )", "(x)", "((x))"}, {"x ^ - 2 + 1", "x^(-2)+1", "x^-2^+1"},
        {"x ^ - ~ 2", "x^(-(2)^(.5))", "x^-~2~^"}, {"x ^ 2 S ( x )", "x^(2*S(x))", "x^2S(x)^"},
        {"x ^ 2 x", "x^(2)*x", "x^2^x"}, {"x ^ 2 * x", "x^(2)*x", "x^2^*x"},
        {"x ^", "x^(?)", "x^?^"}, {"x + 2 x / 3", "x+(2x)/(3)", "x+#2x/3#"},
        {"1 / x / 2", "(1)/(x)/(2)", "#1/x/2#"}, {"3/4 / x", "(3)/(4)/(x)", "#3/4/x#"},
        {"( x / 2 ) + 1", "((x)/(2))+1", "(#x/2#)+1"},
        {"( 2 / x ^ 2 )", "((2)/(x^(2)))", "(#2/x^2^#)"},
        {"( 3/4 / x + 1 )", "((3)/(4)/(x+1))", "(#3/4/x+1#)"},
        {"( x / 2 + 1 )", "((x)/(2)+1)", "(#x/2#+1)"}, {"| x ^ 2 |", "abs(x^(2))", "|x^2^|"},
        {"x ^ | x |", "x^(abs(x))", "x^|x|^"}, {"x / | x |", "(x)/(abs(x))", "#x/|x|#"},
        {"x ^ 2 | x |", "x^(2)*abs(x)", "x^2^|x|"},
        {"| 2 / x ^ 2 |", "abs((2)/(x^(2^#)", "|#2/x^2^#|"}, {"2 S ( x )", "2*S(x)", "2S(x)"},
        {"( x ) C ( x )", "(x)*C(x)", "(x)C(x)"}, {"2 ~ 3 T ( x )", "2(3)^(.5)*T(x)", "2~3~T(x)"},
        {"( x + 1 ) ^ 2", "(x+1)^(2)", "(x+1)^2^"}, {"x ^ ( x + 1 )", "x^(x+1)", "x^(x+1)^"},
        {"( x ) | x |", "(x)*abs(x)", "(x)|x|"}, {"( x ) ~ x", "(x)*(x)^(.5)", "(x)~x~"},
        {"( ( x ) ) + ( ( x ) )", "(x)+(x)", "((x))+((x))"},
        {"( ( x ) + 1 ) * ( x + ( x ) )", "(x)+1)*(x+(x)", "((x)+1)*(x+(x))"},
        {"( ( x ^ 2 ) )", "(x^(2))", "((x^2^))"}, {"", "", ""}};
    // clang-format on
    for (const auto& [tokens, text, display] : cases) {
        SCOPED_TRACE(tokens);
        Session s;
        const GraphableRow row = Build(s, tokens);
        EXPECT_EQ(std::tuple(row.Display, row.Evaluator, DisplayText(s, 0), GraphableText(s, 0)),
                  std::tuple(display, text, display, text));
    }
}

TEST(GraphableBuilder, WorkedExampleLeavesTheGrids) {
    Session s;
    s.BuildSource(8) = "stale";
    Build(s, "2 x ^ 2 + S ( x )");
    // The display cells keep the working grid's positions: the exponent closer in the gap cell
    // behind its "2".
    std::string cells;
    for (int c : {12, 16, 17, 20})
        cells += s.DisplayTokens(c, 0);
    EXPECT_EQ(
        std::tuple(cells, s.DisplayCount, s.TermStart(0, 0), s.BuildSource(8), s.BuildTokens(4)),
        std::tuple("^2^+", 40, 20, "x", ""));
    EXPECT_EQ(s.GraphableCells(0, 0) + "|" + s.GraphableCells(10, 0) + "|" +
                  s.GraphableCells(11, 0),
              "2|)|");
    // Only the active row is built.
    Build(s, "2 ~ x", 3);
    EXPECT_EQ(GraphableText(s, 0) + " " + DisplayText(s, 0) + " | " + GraphableText(s, 3) + " " +
                  DisplayText(s, 3),
              "2x^(2)+S(x) 2x^2^+S(x) | 2(x)^(.5) 2~x~");
}

TEST(GraphableBuilder, ReportsUnfinishedRowsAndOpenGroups) {
    // {groups, open bars going in, incomplete, in a root, in an exponent}
    // clang-format off
    const std::tuple<const char*, int, bool, bool, bool> cases[] = {
        {"", 0, false, false, false}, {"2", 0, false, false, false}, {"x +", 0, true, false, false},
        {"x /", 0, true, false, false}, {"( x", 0, true, false, false},
        {"x ^", 0, true, false, true}, {"x ^ 2", 0, false, false, true},
        {"x ^ 2 + 1", 0, false, false, false}, {"~", 0, true, true, false},
        {"2 ~ x", 0, false, true, false}, {"~ ( x )", 0, false, true, false},
        {"x .", 0, true, false, false}, {"| x", 1, true, false, false},
        {"| x |", 0, false, false, false}};
    // clang-format on
    for (const auto& [tokens, openBars, incomplete, inRoot, inExponent] : cases) {
        SCOPED_TRACE(tokens);
        Session s;
        s.OpenBars(0) = openBars;
        s.InRoot(0) = !inRoot;
        s.InExponent(0) = !inExponent;
        // The groups are all closed again for the next run.
        const bool built = Build(s, tokens).Incomplete;
        EXPECT_EQ(std::tuple(built, s.SlotIncomplete(0), s.InRoot(0), s.InExponent(0),
                             s.FractionOpen(0) || s.RootOpen(0) || s.ExponentOpen(0)),
                  std::tuple(incomplete, incomplete, inRoot, inExponent, false));
    }
}

TEST(GraphableBuilder, LongRowsStopTheDisplayAtCell1000AndOverflowTheGridsAsSubscriptErrors) {
    // 130 numbers and 129 plus signs: the working grid reaches cell 1036; the display stops at
    // cell 1000 while the text goes on.
    std::string spaced;
    for (int k = 0; k < 499; ++k)
        spaced += k % 2 == 0 ? "2 " : "+ ";
    const std::vector<std::string> numbers = Split(spaced);
    Session display;
    const std::size_t built =
        Build(display, {numbers.begin(), numbers.begin() + 259}).Display.size();
    EXPECT_EQ(std::tuple(built, DisplayText(display, 0).size(), GraphableText(display, 0).size(),
                         display.DisplayCount),
              std::tuple(250u, 250u, 259u, 1040));
    std::vector<std::string> longRow = numbers;
    for (std::size_t k = 0; k < longRow.size(); k += 2)
        longRow[k] = "x";
    // Longer than the grids, deeper than TermStart holds, a level below 0.
    for (const auto& tokens : {longRow, std::vector<std::string>(11, "("), Split("x ) + 1")}) {
        SCOPED_TRACE(tokens.size());
        Session s;
        EXPECT_THROW(Build(s, tokens), SubscriptError);
        // After the failure, the next run starts from a clean grid.
        EXPECT_EQ((std::tuple{Build(s, "x ^ 2").Display, GraphableText(s, 0)}),
                  std::tuple("x^2^", "x^(2)"));
    }
    // The text stage reads 20 cells past the last token: 494 tokens fit, 495 do not.
    Session s;
    EXPECT_NO_THROW(Build(s, {longRow.begin(), longRow.begin() + 494}));
    EXPECT_EQ(GraphableText(s, 0).size(), 494u);
    EXPECT_THROW(Build(s, {longRow.begin(), longRow.begin() + 495}), SubscriptError);
}

} // namespace vt
