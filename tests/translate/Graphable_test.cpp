#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "entry/Entry.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

// Puts grouped tokens into a row as the entry handler leaves them (cell 0 empty, tokens from
// cell 1, DisplayCount the last cell) and runs the builder on it.
std::string Build(Session& s, const std::vector<std::string>& tokens, int slot = 0) {
    s.ActiveSlot = slot;
    for (int c = 0; c <= CellUpper; ++c)
        s.DisplayTokens(c, slot) = "";
    for (std::size_t k = 0; k < tokens.size(); ++k)
        s.DisplayTokens(static_cast<int>(k) + 1, slot) = tokens[k];
    s.DisplayCount = static_cast<int>(tokens.size());
    s.TokenCount(slot) = static_cast<int>(tokens.size());
    return BuildGraphable(s);
}

struct BuildCase {
    std::vector<std::string> tokens;
    std::string text;    // GraphableText
    std::string display; // returned display text
};

} // namespace

TEST(GraphableBuilder, MakesEvaluatorTextAndMarkedUpDisplay) {
    const BuildCase cases[] = {
        {{"2", "x", "^", "2", "+", "S", "(", "x", ")"}, "2x^(2)+S(x)", "2x^2^+S(x)"},
        {{"1", "/", "x", "+", "2"}, "(1)/(x)+2", "#1/x#+2"},
        {{"2", "~", "x"}, "2(x)^(.5)", "2~x~"},
        {{"~", "(", "x", "+", "1", ")"}, "((x+1)^.5)", "~(x+1)~"},
        {{"|", "x", "|", "+", "1"}, "abs(x)+1", "|x|+1"},
        {{"2", "|", "x", "|"}, "2*abs(x)", "2|x|"},
        {{"2", "P"}, "2*3.14159265388", "2`"},
        {{"x", "P"}, "x3.1415926538", "x`"},
        {{"x", "^", "(", "3/4", ")"}, "x^(3)/(4)", "x^(3/4)^"},
        {{"3/4", "x"}, "(3)/(4x)", "#3/4x#"},
        {{"3/4", "+", "x"}, "(3)/(4)+x", "#3/4#+x"},
        // One root flag: the inner root closes at ")", its opener then reads as the outer's closer.
        {{"~", "(", "2", "+", "~", "x", ")"}, "((2+^.5)x()", "~(2+~x~)"},
        {{"(", "(", "x", ")", ")"}, "(x)", "((x))"},
        // A minus right after "^" is the exponent's sign; the "+" ends the exponent.
        {{"x", "^", "-", "2", "+", "1"}, "x^(-2)+1", "x^-2^+1"},
        {{"x", "^", "-", "~", "2"}, "x^(-(2)^(.5))", "x^-~2~^"},
        {{"x", "^", "2", "S", "(", "x", ")"}, "x^(2*S(x))", "x^2S(x)^"},
        {{"x", "^", "2", "x"}, "x^(2)*x", "x^2^x"},
        {{"x", "^", "2", "*", "x"}, "x^(2)*x", "x^2^*x"},
        {{"x", "^"}, "x^(?)", "x^?^"},
        {{}, "", ""},
        // Fractions: the numerator is the term since the last boundary.
        {{"x", "+", "2", "x", "/", "3"}, "x+(2x)/(3)", "x+#2x/3#"},
        {{"1", "/", "x", "/", "2"}, "(1)/(x)/(2)", "#1/x/2#"},
        {{"3/4", "/", "x"}, "(3)/(4)/(x)", "#3/4/x#"},
        {{"(", "x", "/", "2", ")", "+", "1"}, "((x)/(2))+1", "(#x/2#)+1"},
        {{"(", "2", "/", "x", "^", "2", ")"}, "((2)/(x^(2)))", "(#2/x^2^#)"},
        // A fraction after a number fraction keeps the level it had: "+" inside the parentheses
        // does not end it, the ")" does.
        {{"(", "3/4", "/", "x", "+", "1", ")"}, "((3)/(4)/(x+1))", "(#3/4/x+1#)"},
        {{"(", "x", "/", "2", "+", "1", ")"}, "((x)/(2)+1)", "(#x/2#+1)"},
        // Bars: a group opened before an open bar is not closed from inside it.
        {{"|", "x", "^", "2", "|"}, "abs(x^(2))", "|x^2^|"},
        {{"x", "^", "|", "x", "|"}, "x^(abs(x))", "x^|x|^"},
        {{"x", "/", "|", "x", "|"}, "(x)/(abs(x))", "#x/|x|#"},
        {{"x", "^", "2", "|", "x", "|"}, "x^(2)*abs(x)", "x^2^|x|"},
        // Two groups ending at one closing bar share one cell.
        {{"|", "2", "/", "x", "^", "2", "|"}, "abs((2)/(x^(2^#)", "|#2/x^2^#|"},
        // Trigonometric functions: the product sign comes after a value or ")".
        {{"2", "S", "(", "x", ")"}, "2*S(x)", "2S(x)"},
        {{"(", "x", ")", "C", "(", "x", ")"}, "(x)*C(x)", "(x)C(x)"},
        {{"2", "~", "3", "T", "(", "x", ")"}, "2(3)^(.5)*T(x)", "2~3~T(x)"},
        {{"(", "x", "+", "1", ")", "^", "2"}, "(x+1)^(2)", "(x+1)^2^"},
        {{"x", "^", "(", "x", "+", "1", ")"}, "x^(x+1)", "x^(x+1)^"},
        {{"(", "x", ")", "|", "x", "|"}, "(x)*abs(x)", "(x)|x|"},
        {{"(", "x", ")", "~", "x"}, "(x)*(x)^(.5)", "(x)~x~"},
        // Doubled parentheses lose the first ")" ")" pair further on, matching or not.
        {{"(", "(", "x", ")", ")", "+", "(", "(", "x", ")", ")"}, "(x)+(x)", "((x))+((x))"},
        {{"(", "(", "x", ")", "+", "1", ")", "*", "(", "x", "+", "(", "x", ")", ")"},
         "(x)+1)*(x+(x)",
         "((x)+1)*(x+(x))"},
        {{"(", "(", "x", "^", "2", ")", ")"}, "(x^(2))", "((x^2^))"},
    };
    for (const auto& c : cases) {
        Session s;
        std::string joined;
        for (const auto& t : c.tokens)
            joined += t + " ";
        SCOPED_TRACE(joined);
        EXPECT_EQ(Build(s, c.tokens), c.display);
        EXPECT_EQ(GraphableText(s, 0), c.text);
        EXPECT_EQ(DisplayText(s, 0), c.display);
    }
}

TEST(GraphableBuilder, WorkedExampleLeavesTheGrids) {
    Session s;
    s.BuildSource(8) = "stale";
    Build(s, {"2", "x", "^", "2", "+", "S", "(", "x", ")"});
    // The display cells keep the working grid's positions: the exponent closer in the gap cell
    // behind its "2".
    EXPECT_EQ(s.DisplayTokens(12, 0), "^");
    EXPECT_EQ(s.DisplayTokens(16, 0), "2");
    EXPECT_EQ(s.DisplayTokens(17, 0), "^");
    EXPECT_EQ(s.DisplayTokens(20, 0), "+");
    EXPECT_EQ(s.DisplayCount, 40);
    EXPECT_EQ(s.TermStart(0, 0), 20);
    EXPECT_EQ(s.BuildSource(8), "x");
    EXPECT_EQ(s.BuildTokens(4), "");
    EXPECT_EQ(s.GraphableCells(0, 0), "2");
    EXPECT_EQ(s.GraphableCells(10, 0), ")");
    EXPECT_EQ(s.GraphableCells(11, 0), "");
}

TEST(GraphableBuilder, WorksOnTheActiveSlotOnly) {
    Session s;
    Build(s, {"x", "+", "1"}, 0);
    Build(s, {"2", "~", "x"}, 3);
    EXPECT_EQ(GraphableText(s, 0), "x+1");
    EXPECT_EQ(DisplayText(s, 0), "x+1");
    EXPECT_EQ(GraphableText(s, 3), "2(x)^(.5)");
    EXPECT_EQ(DisplayText(s, 3), "2~x~");
}

TEST(GraphableBuilder, ReportsUnfinishedRowsAndOpenGroups) {
    struct FlagCase {
        std::vector<std::string> tokens;
        int openBars;
        bool incomplete;
        bool inRoot;
        bool inExponent;
    };
    const FlagCase cases[] = {
        {{}, 0, false, false, false},
        {{"2"}, 0, false, false, false},
        {{"x", "+"}, 0, true, false, false},
        {{"x", "/"}, 0, true, false, false},
        {{"(", "x"}, 0, true, false, false},
        {{"x", "^"}, 0, true, false, true},
        {{"x", "^", "2"}, 0, false, false, true},
        {{"x", "^", "2", "+", "1"}, 0, false, false, false},
        {{"~"}, 0, true, true, false},
        {{"2", "~", "x"}, 0, false, true, false},
        {{"~", "(", "x", ")"}, 0, false, true, false},
        {{"x", "."}, 0, true, false, false},
        {{"|", "x"}, 1, true, false, false},
        {{"|", "x", "|"}, 0, false, false, false},
    };
    for (const auto& c : cases) {
        Session s;
        std::string joined;
        for (const auto& t : c.tokens)
            joined += t + " ";
        SCOPED_TRACE(joined);
        s.OpenBars(0) = c.openBars;
        s.InRoot(0) = !c.inRoot;
        s.InExponent(0) = !c.inExponent;
        Build(s, c.tokens);
        EXPECT_EQ(s.SlotIncomplete(0), c.incomplete);
        EXPECT_EQ(s.InRoot(0), c.inRoot);
        EXPECT_EQ(s.InExponent(0), c.inExponent);
        // The groups are all closed again for the next run.
        EXPECT_FALSE(s.FractionOpen(0) || s.RootOpen(0) || s.ExponentOpen(0));
    }
}

TEST(GraphableBuilder, EnablesTheGraphCommandsThroughCanGraph) {
    struct ReadyCase {
        std::vector<std::string> tokens;
        int otherIncompleteSlot; // -1: none
        bool ready;
    };
    const ReadyCase cases[] = {
        {{"x", "+", "1"}, -1, true},
        {{"x", "+"}, -1, false},
        {{}, -1, false},
        {{"x", "+", "1"}, 9, false},
    };
    for (const auto& c : cases) {
        Session s;
        std::vector<bool> calls;
        s.SetGraphCommandsEnabled = [&calls](bool on) { calls.push_back(on); };
        if (c.otherIncompleteSlot >= 0) s.SlotIncomplete(c.otherIncompleteSlot) = true;
        Build(s, c.tokens);
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0], c.ready);
    }
    Session unbound;
    EXPECT_EQ(Build(unbound, {"x"}), "x");
}

TEST(GraphableBuilder, DisplayStopsAtCell1000WhileTheTextGoesOn) {
    // 130 numbers and 129 plus signs: the working grid reaches cell 1036.
    std::vector<std::string> tokens;
    for (int k = 0; k < 259; ++k)
        tokens.push_back(k % 2 == 0 ? "2" : "+");
    Session s;
    const std::string display = Build(s, tokens);
    EXPECT_EQ(display.size(), 250u);
    EXPECT_EQ(DisplayText(s, 0), display);
    EXPECT_EQ(GraphableText(s, 0).size(), 259u);
    EXPECT_EQ(s.DisplayCount, 1040);
}

TEST(GraphableBuilder, RowsTooLongForTheGridsAreSubscriptErrors) {
    std::vector<std::string> longRow;
    for (int k = 0; k < 499; ++k)
        longRow.push_back(k % 2 == 0 ? "x" : "+");
    const std::vector<std::vector<std::string>> cases = {
        longRow,
        std::vector<std::string>(11, "("), // deeper than TermStart holds
        {"x", ")", "+", "1"},              // level below 0
    };
    for (const auto& tokens : cases) {
        SCOPED_TRACE(tokens.size());
        Session s;
        EXPECT_THROW(Build(s, tokens), SubscriptError);
        // After the failure, the next run starts from a clean grid.
        EXPECT_EQ(Build(s, {"x", "^", "2"}), "x^2^");
        EXPECT_EQ(GraphableText(s, 0), "x^(2)");
    }
    // The text stage reads 20 cells past the last token: 494 tokens fit, 495 do not.
    Session s;
    EXPECT_NO_THROW(Build(s, {longRow.begin(), longRow.begin() + 494}));
    EXPECT_EQ(GraphableText(s, 0).size(), 494u);
    EXPECT_THROW(Build(s, {longRow.begin(), longRow.begin() + 495}), SubscriptError);
}

} // namespace vt

namespace vt {

TEST(GraphableBuilder, KeysTypedEndToEnd) {
    struct KeyCase {
        const char* keys;
        std::string text;
        std::string display;
    };
    const KeyCase cases[] = {
        {"2x^2+S(x)", "2x^(2)+S(x)", "2x^2^+S(x)"},
        {"3/4x", "(3)/(4x)", "#3/4x#"},
        {"~(x+1)", "((x+1)^.5)", "~(x+1)~"},
        {"1/x+2", "(1)/(x)+2", "#1/x#+2"},
        {"|x|+1", "abs(x)+1", "|x|+1"},
        {"2|x|", "2*abs(x)", "2|x|"},
        {"2P", "2*3.14159265388", "2`"},
        {"3/4+x", "(3)/(4)+x", "#3/4#+x"},
        {"2~x", "2(x)^(.5)", "2~x~"},
        {"x^-2+1", "x^(-2)+1", "x^-2^+1"},
        {"x^", "x^(?)", "x^?^"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keys);
        Session s;
        SetKeyMask(s);
        ReplaySlotKeys(s, 0, c.keys);
        EXPECT_EQ(EntryText(s, 0), c.keys);
        EXPECT_EQ(GraphableText(s, 0), c.text);
        EXPECT_EQ(DisplayText(s, 0), c.display);
    }
}

} // namespace vt
