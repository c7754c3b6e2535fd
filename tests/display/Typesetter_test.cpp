#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "display/Papers.h"
#include "display/RegressionWindow.h"
#include "display/Typesetter.h"
#include "plot/PlotTesting.h"

namespace vt::test {
namespace {

// The printed glyphs as "text@x,y" with six significant digits.
std::vector<std::string> Glyphs(const RecordingSurface& surface) {
    std::vector<std::string> out;
    for (const auto& p : surface.Prints) {
        char position[64];
        std::snprintf(position, sizeof position, "@%g,%g", p.X, p.Y);
        out.push_back(p.Text + position);
    }
    return out;
}
constexpr auto Screen = TypesetTarget::Screen;
constexpr auto Printer = TypesetTarget::Printer;
constexpr auto Regression = TypesetTarget::RegressionWindow;

// A row (289 by 41), the printed page (scaled 800 by 600) or the regression window, each in a
// pixel scale at size 12. With the recording surface's metrics a character is 8 pixels wide at
// size 12 and 16/3 at size 8.
RecordingSurface SurfaceFor(TypesetTarget target) {
    const bool page = target == Printer, row = target == Screen;
    RecordingSurface surface(page ? 800 : row ? 289 : 300, page ? 600 : row ? 41 : 200);
    surface.FontName = target == Regression ? "Book Antiqua" : "OrlentisFont";
    surface.FontSize = 12;
    return surface;
}

std::vector<std::string> Typeset(Session& s, RecordingSurface& out, std::string text,
                                 TypesetTarget target = Screen, bool wrap = false,
                                 bool useColour = false, const std::string& colour = {}) {
    PrintEquation(s, text, out, TypesetRequest{target, wrap, useColour, colour});
    return Glyphs(out);
}

TEST(Typesetter, PlacesEveryGlyphByTheFiguresOfItsSurface) {
    // Each glyph as "text@x,y", six significant digits, ended by "|".
    // clang-format off
    const std::tuple<TypesetTarget, const char*, const char*> cases[] = {
        // Rows: two blanks, the baseline 11 down; 1/2 has its numerator 7.2 up, the
        // denominator 20.4 below that and the bar on the numerator's line.
        {Screen, "", "  @0,0| @16,11|"},
        {Screen, "#1/2#", "  @0,0|1@16,3.8|2@16,24.2|_@16,3.8| @24,11|"},
        // Only the "/" outside parentheses divides.
        {Screen, "#(1/x)/2#", "  @0,0|(@16,3.8|1@24,3.8|/@32,3.8|x@40,3.8|)@48,3.8|   @16,24.2|"
                              "2@40,24.2|_@16,3.8|_@24,3.8|_@32,3.8|_@40,3.8|_@48,3.8| @56,11|"},
        // 2x^2+1/x as the builder marks it up: the exponent 1.6 up, at size 8.
        {Screen, "2x^2^+#1/x#", "  @0,0|2@16,11|x@24,11|2@32,9.4|+@37.3333,11|1@45.3333,3.8|"
                                "x@45.3333,24.2|_@45.3333,3.8| @53.3333,11|"},
        // Roots: overbar 18 up from X0 + 6, sign left 2 and up 2; over a fraction the overbar
        // is 7 higher and the sign comes in two pieces.
        {Screen, "~x~", "  @0,0|  @16,11|x@32,11|_@22,-7|_@30,-7|_@38,-7|~@14,9| @46,11|"},
        {Screen, "~#1/x#~", "  @0,0|  @16,11|1@32,3.8|x@32,24.2|_@32,3.8|_@22,-14|_@30,-14|"
                            "_@38,-14|&@18,2|~@12,18| @46,11|"},
        // Printer: no blanks, 12 down and right; exponent 1 up; numerator 5 up, denominator 14
        // down; overbar 12 up from X0 + 6; tall sign up 7, right 1, down 10, left 14.
        {Printer, "x^2^", "x@12,12|2@20,11| @25.3333,12|"},
        {Printer, "#1/2#", "1@12,7|2@12,21|_@12,7| @20,12|"},
        {Printer, "~#1/x#~", "  @12,12|1@28,7|x@28,21|_@28,7|_@18,0|_@26,0|_@34,0|&@13,5|~@7,15|"
                             " @42,12|"},
        // Regression window: 3 down, or a font size down when a "/" stands anywhere; the plain
        // sign moves only left; S, C, T stay single letters.
        {Regression, "x^2^", "x@0,3|2@8,1.4| @13.3333,3|"},
        {Regression, "~x~", "  @0,3|x@16,3|_@6,-15|_@14,-15|_@22,-15|~@-2,3| @30,3|"},
        {Regression, "~#1/x#~", "  @0,12|1@16,4.8|x@16,25.2|_@16,4.8|_@6,-6|_@14,-6|_@22,-6|"
                                "&@2,3|~@-4,19| @30,12|"},
        {Regression, "S", "S@0,3| @8,3|"}};
    // clang-format on
    for (const auto& [target, text, glyphs] : cases) {
        Session s;
        auto out = SurfaceFor(target);
        std::string joined;
        for (const std::string& glyph : Typeset(s, out, text, target))
            joined += glyph + "|";
        EXPECT_EQ(joined, glyphs) << text;
    }
    // The exponent is size 8 whatever the row's size.
    Session s;
    auto row = SurfaceFor(Screen);
    row.FontSize = 20;
    Typeset(s, row, "x^2^y");
    EXPECT_EQ(std::tuple(row.Prints.at(2).FontSize, row.Prints.at(3).FontSize), std::tuple(8, 20));
}

TEST(Typesetter, EndsLinesAndPagesByTheRulesOfItsSurface) {
    // {surface, wrap asked, the pen's start height, the index of the glyph to look at among 100
    // characters, that glyph, new pages}
    // clang-format off
    const std::tuple<TypesetTarget, bool, float, std::size_t, std::string, int> cases[] = {
        // A row asked to wrap breaks once the pen passes 289 - 20, after the 32nd character.
        {Screen, true, 0, 33, "...@272,11", 0}, {Screen, true, 0, 34, "7@29,25", 0},
        {Screen, false, 0, 96, "7@776,11", 0},
        // The printer always breaks past 765 and goes on 12 lower at 15; a baseline at 560 or
        // lower starts a new page before the next character. From 547 the wrap takes the pen
        // to 571, a page end.
        {Printer, false, 0, 95, "...@772,12", 0}, {Printer, false, 0, 96, "7@15,24", 0},
        {Printer, false, 540, 96, "7@12,24", 1}, {Printer, false, 548, 0, "7@12,24", 1},
        {Printer, false, 547, 0, "7@12,559", 1}, {Regression, true, 0, 95, "7@760,3", 0}};
    // clang-format on
    for (const auto& [target, wrap, startY, at, glyph, newPages] : cases) {
        Session s;
        auto out = SurfaceFor(target);
        out.CurrentY = startY;
        EXPECT_EQ(Typeset(s, out, std::string(100, '7'), target, wrap).at(at), glyph) << startY;
        EXPECT_EQ(std::count(out.Log.begin(), out.Log.end(), "NewPage"), newPages);
    }
}

TEST(Typesetter, ColoursByMarksAndBySurface) {
    // {surface, printing in the row's colour, text, the colour of each glyph but the opening
    // blanks}
    // clang-format off
    const std::tuple<TypesetTarget, bool, std::string, std::vector<Colour>> cases[] = {
        {Screen, false, "a[b]c", {0x00C000, 255, 0, 0}}, {Printer, false, "a[b]c", {0, 255, 0, 0}},
        {Screen, false, "[#1/2#]", {255, 255, 255, 0}},
        {Screen, false, "~[x]y~", {0x00C000, 255, 0, 0, 0, 0, 0, 0, 0}},
        {Printer, true, "a[b]c", {65280, 255, 0xFF0000, 0xFF0000}},
        {Regression, false, "a[b]c", {0xFF0000, 255, 0xFF0000, 0xFF0000}}};
    // clang-format on
    for (const auto& [target, useColour, text, expected] : cases) {
        Session s;
        auto out = SurfaceFor(target);
        out.ForeColor = 0x00C000;
        Typeset(s, out, text, target, false, useColour, "65280");
        std::vector<Colour> colours;
        for (auto p = out.Prints.begin() + (target == Screen); p != out.Prints.end(); ++p)
            colours.push_back(p->ForeColor);
        EXPECT_EQ(colours, expected) << text;
    }
}

TEST(Typesetter, FailureStopsTheTextShowsTheMessageAndResetsTheFontSize) {
    // {surface, text, fails}: 3000 characters fit and 3001 do not; nor do 251 in an exponent,
    // at size 8 and red, or in a numerator. A root that never closes runs past the last cell;
    // the printer's colour text "green" is no colour.
    // clang-format off
    const std::tuple<TypesetTarget, std::string, bool> cases[] = {
        {Screen, std::string(3000, '1'), false}, {Screen, std::string(3001, '1'), true},
        {Screen, "x^" + std::string(250, '2') + "^", false},
        {Screen, "[x^" + std::string(251, '2') + "^", true},
        {Screen, "#" + std::string(251, '1') + "/2#", true}, {Screen, "~x", true},
        {Printer, "x", true}, {Regression, "^2", true}};
    // clang-format on
    for (const auto& [target, text, fails] : cases) {
        PlotSession g;
        auto out = SurfaceFor(target);
        out.FontSize = 10;
        Typeset(g.s, out, text, target, false, true, "green");
        EXPECT_EQ(std::tuple(g.host.Messages(), out.FontSize,
                             !out.Prints.empty() && out.Prints.back().Text == " ", out.ForeColor),
                  std::tuple(fails ? Texts{DisplayFailureText} : Texts{}, fails ? 12 : 10, !fails,
                             text[0] == '['         ? 255u
                             : target == Regression ? 0xFF0000
                                                    : 0))
            << text.size();
    }
    Session s; // without a window nobody is told, and the drawing stops all the same
    auto row = SurfaceFor(Screen);
    EXPECT_EQ(Typeset(s, row, "^2"), Texts{"  @0,0"});
}

TEST(Typesetter, LeavesCaretValuesWhereTheSurfaceWritesThem) {
    // {surface, text, CaretX (-1: not written), CaretAfterFraction, FractionEndX}
    const std::tuple<TypesetTarget, std::string, double, bool, int> cases[] = {
        {Screen, "x", 20, false, -1},       {Screen, "x+#1/22#", 44, true, 48},
        {Screen, "#1/2#+x", 36, false, 24}, {Screen, "~#1/x#~", 42, true, 40},
        {Printer, "x+#1/2#", -1, true, 36}, {Regression, "x+#1/2#", -1, true, 24}};
    for (const auto& [target, text, caretX, afterFraction, fractionEndX] : cases) {
        SCOPED_TRACE(text);
        Session s;
        s.CaretX = s.CaretY = s.FractionEndX = -1;
        auto out = SurfaceFor(target);
        Typeset(s, out, text, target);
        EXPECT_EQ(std::tuple(s.CaretX, s.CaretY, s.CaretAfterFraction, s.FractionEndX),
                  std::tuple(caretX, target == Screen ? 11.0 : -1.0, afterFraction, fractionEndX));
    }
}

void SetRowText(Session& s, int slot, const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i)
        s.DisplayTokens(static_cast<int>(i), slot) = std::string(1, text[i]);
}

TEST(RedrawPapers, TypesetsEveryRowAfreshAndNotesTheLastRowWithText) {
    // {rows with text, LastFilledSlot before and after, a row whose text cannot be typeset or
    // -1}: with no text anywhere it is kept; it is the highest row with text, also when that is
    // lower; the failure stops only its own row.
    const std::tuple<std::vector<int>, int, int, int> cases[] = {
        {{}, 3, 3, -1}, {{0, 2}, 0, 2, -1}, {{0, 1}, 3, 1, -1}, {{1, 4}, 1, 4, 3}};
    for (const auto& [filledRows, lastFilledBefore, lastFilledAfter, failingRow] : cases) {
        PlotSession g;
        Session& s = g.s;
        std::vector<RecordingSurface> rows(UsableSlots, SurfaceFor(Screen));
        for (int i = 0; i < UsableSlots; ++i) {
            rows[i].CurrentX = 100; // where the last paint left the pen
            g.shell.Papers[i] = &rows[i];
        }
        for (int row : filledRows)
            SetRowText(s, row, "x^2^+S(x)");
        if (failingRow >= 0) SetRowText(s, failingRow, "^2");
        std::tie(s.ActiveSlot, s.LastFilledSlot) = std::tuple(2, lastFilledBefore);

        RedrawPapers(s);

        EXPECT_EQ(std::tuple(s.ActiveSlot, s.LastFilledSlot, g.host.Messages().size()),
                  std::tuple(2, lastFilledAfter, failingRow >= 0 ? 1u : 0u));
        for (int i = 0; i < UsableSlots; ++i) {
            const bool filled = std::count(filledRows.begin(), filledRows.end(), i) > 0;
            ASSERT_FALSE(rows[i].Log.empty());
            EXPECT_EQ(rows[i].Log.front() + Glyphs(rows[i]).at(0), "Cls  @0,0") << i;
            // Blanks, x, 2, +, s, i, n, (, x, ), blank; or the two blanks of an empty row.
            EXPECT_TRUE(i == failingRow || rows[i].Prints.size() == (filled ? 11u : 2u)) << i;
        }
    }
    Session bare; // no surfaces: the rows are still counted
    SetRowText(bare, 2, "x");
    RedrawPapers(bare);
    EXPECT_EQ(bare.LastFilledSlot, 2);
}

// The form at 12 points: a character is 8 pixels, 6 points, wide; a line 15 points high.
struct ExplainForm : PlotSession {
    RecordingSurface form;
    explicit ExplainForm(int pixelWidth) : form(pixelWidth, 1200) {
        std::tie(form.FontName, form.FontSize) = std::tuple(ExplainFontName, ExplainFontSize);
    }
    // The text of each typesetter call: its characters up to the line's closing blank.
    Texts Lines() const {
        Texts lines(1);
        for (const RecordingSurface::Printed& print : form.Prints)
            print.KeepLine ? void(lines.back() += print.Text) : void(lines.emplace_back());
        lines.pop_back();
        return lines;
    }
};

std::string Repeat(const std::string& part, int times) {
    return times > 0 ? part + Repeat(part, times - 1) : "";
}

TEST(RegressionWindow, BreaksAtBlanksOrWhereTheLineOverflowsAndSizesItsHeight) {
    // {form width in pixels, equation, lines, height in twips: 3.5 font sizes plus the pen's
    // height in points, 15 twips each; -1 not asked}. 360 pixels are 270 points: 45 characters
    // fit on a line. The break falls at the last blank before the overflow; a sign that
    // overflowed begins the next line. With no blank the character that overflowed goes on the
    // next line; a form narrower than one character still ends.
    // clang-format off
    const int oneLine = 630 + 18 * 15, twoLines = 630 + 36 * 15;
    const std::tuple<int, std::string, Texts, int> cases[] = {
        {360, "f(x) =", {"f(x) ="}, oneLine}, {4, "abc", {"a", "b", "c"}, -1},
        {360, "f(x) =  2x + 1", {"f(x) =  2x + 1"}, oneLine},
        {360, "f(x) =  " + Repeat("1234567890 + ", 5),
         {"f(x) =  1234567890 + 1234567890 + 1234567890", "+ 1234567890 + 1234567890 + "},
         twoLines},
        {360, "f(x) = " + Repeat("123456789 + ", 6),
         {"f(x) = 123456789 + 123456789 + 123456789 +", "123456789 + 123456789 + 123456789 + "},
         twoLines},
        {360, Repeat("a", 50), {Repeat("a", 45), "aaaaa"}, twoLines}};
    // clang-format on
    for (const auto& [width, equation, lines, height] : cases) {
        SCOPED_TRACE(equation);
        ExplainForm f(width);
        f.s.RegressionEquation = equation;
        const int shownHeight = ShowEquation(f.s, f.form);
        // Printed in points, left in pixels.
        EXPECT_EQ(std::tuple(height < 0 ? -1 : shownHeight, f.Lines(), f.host.Messages().size(),
                             f.form.ScaleWidth, f.form.ScaleHeight),
                  std::tuple(height, lines, 0u, float(width), 1200.0f));
    }
    // The title follows the trend.
    Session s;
    EXPECT_EQ(ExplainCaption(s), "Linear Regression Equation");
    std::tie(s.Panel.LinearOn, s.Panel.PolynomialOn) = std::tuple(false, true);
    EXPECT_EQ(ExplainCaption(s), "Polynomial Regression Equation");
}

} // namespace
} // namespace vt::test
