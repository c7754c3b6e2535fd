#include <gtest/gtest.h>

#include <algorithm>

#include "display/DisplayTesting.h"
#include "display/Typesetter.h"
#include "support/ScriptedPlatform.h"

namespace vt {
namespace {

using test::Glyphs;
using test::RecordingSurface;
constexpr auto Screen = TypesetTarget::Screen;
constexpr auto Printer = TypesetTarget::Printer;
constexpr auto Regression = TypesetTarget::RegressionWindow;

// A row (289 wide), the printed page (scaled 800 by 600) or the regression window, each at size
// 12 with one unit a pixel, so that a character is 8 units wide.
RecordingSurface SurfaceFor(TypesetTarget target) {
    if (target == Printer) return test::MakeRow(800, 600);
    RecordingSurface surface = test::MakeRow(target == Screen ? 289 : 300, 200);
    if (target == Regression) surface.FontName = "Book Antiqua";
    return surface;
}

std::vector<std::string> Typeset(Session& s, RecordingSurface& out, std::string text,
                                 TypesetTarget target = Screen, bool wrap = false,
                                 bool useColour = false, const std::string& colour = {}) {
    PrintEquation(s, text, out, TypesetRequest{target, wrap, useColour, colour});
    return Glyphs(out);
}

TEST(Typesetter, PlacesEveryGlyphByTheFiguresOfItsSurface) {
    struct Case {
        TypesetTarget target;
        std::string text;
        std::vector<std::string> glyphs;
    } cases[] = {
        // Rows: two blanks, the baseline 11 down; 1/2 has its numerator 7.2 up, the
        // denominator 20.4 below that and the bar on the numerator's line.
        {Screen, "", {"  @0,0", " @16,11"}},
        {Screen, "#1/2#", {"  @0,0", "1@16,3.8", "2@16,24.2", "_@16,3.8", " @24,11"}},
        // Only the "/" outside parentheses divides.
        {Screen,
         "#(1/x)/2#",
         {"  @0,0", "(@16,3.8", "1@24,3.8", "/@32,3.8", "x@40,3.8", ")@48,3.8", "   @16,24.2",
          "2@40,24.2", "_@16,3.8", "_@24,3.8", "_@32,3.8", "_@40,3.8", "_@48,3.8", " @56,11"}},
        // 2x^2+1/x as the builder marks it up: the exponent 1.6 up, at size 8.
        {Screen,
         "2x^2^+#1/x#",
         {"  @0,0", "2@16,11", "x@24,11", "2@32,9.4", "+@37.3333,11", "1@45.3333,3.8",
          "x@45.3333,24.2", "_@45.3333,3.8", " @53.3333,11"}},
        // Roots: overbar 18 up from X0 + 6, sign left 2 and up 2; over a fraction the overbar
        // is 7 higher and the sign comes in two pieces.
        {Screen,
         "~x~",
         {"  @0,0", "  @16,11", "x@32,11", "_@22,-7", "_@30,-7", "_@38,-7", "~@14,9", " @46,11"}},
        {Screen,
         "~#1/x#~",
         {"  @0,0", "  @16,11", "1@32,3.8", "x@32,24.2", "_@32,3.8", "_@22,-14", "_@30,-14",
          "_@38,-14", "&@18,2", "~@12,18", " @46,11"}},
        // Printer: no blanks, 12 down and right; exponent 1 up; numerator 5 up, denominator 14
        // down; overbar 12 up from X0 + 6; tall sign up 7, right 1, down 10, left 14.
        {Printer, "x^2^", {"x@12,12", "2@20,11", " @25.3333,12"}},
        {Printer, "#1/2#", {"1@12,7", "2@12,21", "_@12,7", " @20,12"}},
        {Printer,
         "~#1/x#~",
         {"  @12,12", "1@28,7", "x@28,21", "_@28,7", "_@18,0", "_@26,0", "_@34,0", "&@13,5",
          "~@7,15", " @42,12"}},
        // Regression window: 3 down, or a font size down when a "/" stands anywhere; the plain
        // sign moves only left; S, C, T stay single letters.
        {Regression, "x^2^", {"x@0,3", "2@8,1.4", " @13.3333,3"}},
        {Regression,
         "~x~",
         {"  @0,3", "x@16,3", "_@6,-15", "_@14,-15", "_@22,-15", "~@-2,3", " @30,3"}},
        {Regression,
         "~#1/x#~",
         {"  @0,12", "1@16,4.8", "x@16,25.2", "_@16,4.8", "_@6,-6", "_@14,-6", "_@22,-6", "&@2,3",
          "~@-4,19", " @30,12"}},
        {Regression, "S", {"S@0,3", " @8,3"}},
    };
    for (const auto& c : cases) {
        Session s;
        auto out = SurfaceFor(c.target);
        EXPECT_EQ(Typeset(s, out, c.text, c.target), c.glyphs) << c.text;
    }
}

TEST(Typesetter, ExponentIsSizeEightWhateverTheRowAndPadsRoundHalfToEven) {
    for (float rowSize : {12.0f, 20.0f}) {
        Session s;
        auto row = SurfaceFor(Screen);
        row.FontSize = rowSize;
        Typeset(s, row, "x^2^y");
        EXPECT_EQ(row.Prints.at(2).FontSize, 8);
        EXPECT_EQ(row.Prints.at(3).FontSize, rowSize);
    }
    // At size 7.5 a character weighs 0.5, so a wider denominator makes ties.
    const std::pair<const char*, std::size_t> ties[] = {
        {"#1/22#", 0}, {"#1/222#", 1}, {"#1/2222#", 2}, {"#1/222222#", 2}};
    for (const auto& [text, padding] : ties) {
        Session s;
        auto row = SurfaceFor(Screen);
        row.FontSize = 7.5f;
        Typeset(s, row, text);
        const auto& first = row.Prints.at(1).Text; // the padding, or the numerator itself
        EXPECT_EQ(first == "1" ? 0 : first.size(), padding) << text;
    }
}

TEST(Typesetter, EndsLinesAndPagesByTheRulesOfItsSurface) {
    struct Case {
        TypesetTarget target;
        bool wrap;
        float startY;
        std::size_t at; // index of the glyph to look at, among 100 characters
        std::string glyph;
        int newPages;
    } cases[] = {
        // A row asked to wrap breaks once the pen passes 289 - 20, after the 32nd character.
        {Screen, true, 0, 33, "...@272,11", 0},
        {Screen, true, 0, 34, "7@29,25", 0},
        {Screen, false, 0, 96, "7@776,11", 0},
        // The printer always breaks past 765 and goes on 12 lower at 15; a baseline at 560 or
        // lower starts a new page before the next character.
        {Printer, false, 0, 95, "...@772,12", 0},
        {Printer, false, 0, 96, "7@15,24", 0},
        {Printer, false, 540, 96, "7@12,24", 1},
        {Printer, false, 548, 0, "7@12,24", 1},
        {Printer, false, 547, 0, "7@12,559", 1}, // its wrap takes it to 571, a page end
        {Regression, true, 0, 95, "7@760,3", 0},
    };
    for (const auto& c : cases) {
        Session s;
        auto out = SurfaceFor(c.target);
        out.CurrentY = c.startY;
        const auto glyphs = Typeset(s, out, std::string(100, '7'), c.target, c.wrap);
        EXPECT_EQ(glyphs.at(c.at), c.glyph) << c.startY;
        EXPECT_EQ(std::count(out.Log.begin(), out.Log.end(), "NewPage"), c.newPages);
    }
}

TEST(Typesetter, ColoursByMarksAndBySurface) {
    struct Case {
        TypesetTarget target;
        bool useColour;
        std::string text;
        std::vector<Colour> colours; // of each glyph but the opening blanks
    } cases[] = {
        {Screen, false, "a[b]c", {0x00C000, 255, 0, 0}},
        {Screen, false, "[#1/2#]", {255, 255, 255, 0}},
        {Screen, false, "~[x]y~", {0x00C000, 255, 0, 0, 0, 0, 0, 0, 0}},
        {Printer, false, "a[b]c", {0, 255, 0, 0}},
        {Printer, true, "a[b]c", {65280, 255, 0xFF0000, 0xFF0000}},
        {Regression, false, "a[b]c", {0xFF0000, 255, 0xFF0000, 0xFF0000}},
    };
    for (const auto& c : cases) {
        Session s;
        auto out = SurfaceFor(c.target);
        out.ForeColor = 0x00C000;
        Typeset(s, out, c.text, c.target, false, c.useColour, "65280");
        std::vector<Colour> colours;
        for (auto p = out.Prints.begin() + (c.target == Screen); p != out.Prints.end(); ++p)
            colours.push_back(p->ForeColor);
        EXPECT_EQ(colours, c.colours) << c.text;
    }
}

TEST(Typesetter, FailureStopsTheTextShowsTheMessageAndResetsTheFontSize) {
    struct Case {
        TypesetTarget target;
        std::string text;
        bool fails;
    } cases[] = {
        {Screen, std::string(3000, '1'), false},
        {Screen, std::string(3001, '1'), true},
        {Screen, "x^" + std::string(250, '2') + "^", false},
        {Screen, "[x^" + std::string(251, '2') + "^", true}, // at size 8 and red
        {Screen, "#" + std::string(251, '1') + "/2#", true},
        {Screen, "~x", true}, // a root that never closes runs past the last cell
        {Printer, "x", true}, // a colour text that is no colour
        {Regression, "^2", true},
    };
    for (const auto& c : cases) {
        test::ScriptedPlatform platform;
        Session s;
        s.Host = &platform;
        auto out = SurfaceFor(c.target);
        out.FontSize = 10;
        Typeset(s, out, c.text, c.target, false, true, "green");
        EXPECT_EQ(platform.Messages().size(), c.fails ? 1u : 0u) << c.text.size();
        if (c.fails) {
            EXPECT_EQ(platform.Messages()[0], DisplayFailureText);
        }
        EXPECT_EQ(out.FontSize, c.fails ? 12 : 10) << c.text.size();
        EXPECT_EQ(!out.Prints.empty() && out.Prints.back().Text == " ", !c.fails);
        EXPECT_EQ(out.ForeColor, c.text[0] == '[' ? 255u : c.target == Regression ? 0xFF0000 : 0);
    }
    Session s; // without a window nobody is told, and the drawing stops all the same
    auto row = SurfaceFor(Screen);
    EXPECT_EQ(Typeset(s, row, "^2"), std::vector<std::string>{"  @0,0"});
}

TEST(Typesetter, LeavesCaretValuesWhereTheSurfaceWritesThem) {
    struct Case {
        TypesetTarget target;
        std::string text;
        double caretX; // -1: not written
        bool afterFraction;
        int fractionEndX;
    } cases[] = {
        {Screen, "x", 20, false, -1},       {Screen, "x+#1/22#", 44, true, 48},
        {Screen, "#1/2#+x", 36, false, 24}, {Screen, "~#1/x#~", 42, true, 40},
        {Printer, "x+#1/2#", -1, true, 36}, {Regression, "x+#1/2#", -1, true, 24},
    };
    for (const auto& c : cases) {
        Session s;
        s.CaretX = s.CaretY = s.FractionEndX = -1;
        auto out = SurfaceFor(c.target);
        Typeset(s, out, c.text, c.target);
        EXPECT_EQ(s.CaretX, c.caretX) << c.text;
        EXPECT_EQ(s.CaretY, c.target == Screen ? 11 : -1) << c.text;
        EXPECT_EQ(s.CaretAfterFraction, c.afterFraction) << c.text;
        EXPECT_EQ(s.FractionEndX, c.fractionEndX) << c.text;
    }
}

TEST(Typesetter, RegressionWindowKeepsItsOwnPenAndFont) {
    // 0.6 x 12 is 7.2 in double precision and 7.2000003 in single: the window's numerator is
    // placed by single-precision arithmetic, the rows' by double.
    Session s;
    auto window = SurfaceFor(Regression);
    Typeset(s, window, "#1/2#", Regression);
    const float single = 12.0f - 0.6f * 12.0f;
    ASSERT_NE(single, static_cast<float>(12.0 - 0.6 * 12.0));
    EXPECT_EQ(window.Prints.at(0).Y, single);
    auto row = SurfaceFor(Screen);
    Typeset(s, row, "#1/2#", Screen);
    EXPECT_EQ(row.Prints.at(1).Y, static_cast<float>(11.0 - 0.6 * 12.0));

    // Only the plain root sign is borrowed from OrlentisFont; "Book Antiqua" comes back.
    window = SurfaceFor(Regression);
    Typeset(s, window, "~x~+~#1/x#~", Regression);
    std::vector<std::string> fonts;
    for (const auto& p : window.Prints)
        if (p.Text == "~") fonts.push_back(p.FontName);
    EXPECT_EQ(fonts, (std::vector<std::string>{"OrlentisFont", "Book Antiqua"}));
    EXPECT_EQ(window.FontName, "Book Antiqua");
}

} // namespace
} // namespace vt
