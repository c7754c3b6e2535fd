#include <gtest/gtest.h>

#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "plot/View.h"

namespace vt::test {
namespace {

TEST(Painter, GridAndAxesByTheViewsSize) {
    // {view, grid hidden, grid lines, axes}. -2.6..3.5 by -0.5..1.5 rounds, halves to even, to
    // -3..4 and 0..2. No grid from a half-width or half-height of 320; just below, one. Statements
    // that fail are skipped one by one: x bounds beyond a 16-bit whole number fail that loop of
    // the grid; beyond single precision the x axis fails. The axes are drawn also when 0 is out
    // of view.
    // clang-format off
    const std::tuple<View, bool, std::size_t, std::size_t> cases[] = {
        {{-20, 20, -20, 20}, false, 41 + 41, 2}, {{-2.6, 3.5, -0.5, 1.5}, false, 8 + 3, 2},
        {{-20, 20, -20, 20}, true, 0, 2}, {{-320, 320, -1, 1}, false, 0, 2},
        {{-1, 1, -10, 630}, false, 0, 2}, {{0, 639.5, -1, 1}, false, 641 + 3, 2},
        {{100000, 100010, -1, 1}, false, 3, 2}, {{-1e40, 1e40, -1, 1}, false, 0, 1},
        {{0, 0, 0, 0}, false, 2, 2}};
    // clang-format on
    for (const auto& [view, hidden, gridLines, axes] : cases) {
        SCOPED_TRACE(testing::Message() << view[0] << ".." << view[1] << " by " << view[2] << ".."
                                        << view[3] << (hidden ? " hidden" : ""));
        PlotSession g({"x"});
        g.SetView(view);
        g.s.HideGridChecked = hidden;
        RedrawGraph(g.s);
        EXPECT_EQ(g.box.StrokesIn(GridBlue, 1).size(), gridLines);
        EXPECT_EQ(g.box.StrokesIn(0x000000, 2).size(), axes);
        EXPECT_EQ(g.s.MousePointer, g.s.DefaultPointer);
    }
}

TEST(Painter, ShadingFollowsTheBracketingOfANegativeX) {
    // x^2 left of the y axis lies below it with x spliced bare, above it in brackets.
    for (const bool bracket : {false, true}) {
        PlotSession g({"x^2"});
        g.s.BracketNegativeX = bracket;
        g.s.ShadeOn = true;
        g.s.ShadeFrom = -3;
        g.s.ShadeTo = -2;
        RedrawGraph(g.s);
        std::size_t above = 0, below = 0;
        for (const auto& f : g.box.Fills)
            (f[1] == 199 ? above : below) += 1;
        EXPECT_EQ(above, bracket ? 19u : 0u) << bracket;
        EXPECT_EQ(below, bracket ? 0u : 19u) << bracket;
    }
}

TEST(Painter, ShadingPaintsTwiceAndFillsBetweenTheWalls) {
    // {keys, band, fills from just above and just below the x axis, walls at breaks}: x fills
    // at 2.05 .. 2.95; x/100 is too near the axis, |y| / 40 below 0.01; 1/x has none at 0 and
    // three walls at the break the first pass found; a band out of view fills nothing.
    // clang-format off
    const std::tuple<const char*, double, double, std::size_t, std::size_t, std::size_t> cases[] = {
        {"x", 2, 3, 19, 0, 0}, {"x/100", 2, 3, 0, 0, 0}, {"1/x", -1, 1, 19, 19, 3},
        {"x", -40, -30, 0, 0, 0}};
    // clang-format on
    for (const auto& [keys, from, to, fillsAbove, fillsBelow, breakWalls] : cases) {
        SCOPED_TRACE(keys);
        PlotSession g({keys});
        g.s.ShadeOn = true;
        g.s.ShadeFrom = from;
        g.s.ShadeTo = to;
        RedrawGraph(g.s);
        std::size_t above = 0, below = 0;
        for (const auto& f : g.box.Fills)
            (f[1] == 199 ? above : below) += 1;
        EXPECT_EQ(above, fillsAbove);
        EXPECT_EQ(below, fillsBelow);
        for (const std::string& line : g.box.Log)
            if (line.rfind("FloodFill", 0) == 0) {
                EXPECT_NE(line.find("surface=16777215 fill=14737632 style=0"), std::string::npos);
            }
        EXPECT_EQ(g.box.StrokesIn(BreakMarkColour, 1).size(), breakWalls);
        // The band's frame in the shade colour, erased in white.
        EXPECT_EQ(g.box.StrokesIn(ShadeGrey, 1).size(), 4u);
        EXPECT_EQ(g.box.StrokesIn(0xFFFFFF, 1).size(), 4u);
        // Two passes: the numbers twice, and the list holds the second pass's items, whose keys
        // go on from the first.
        EXPECT_EQ(g.box.Prints.size(), 10u);
        if (keys == std::string("x")) {
            EXPECT_EQ(g.s.ListView1.front().Key, 41);
        }
        EXPECT_EQ(g.s.BreakCount, 0); // erased at the end
    }
}

TEST(Painter, FirstPaintSetsDefaultsAndRegressionModeDrawsNoCurve) {
    PlotSession g({"x"});
    g.s.GridColor = "255";
    int pointerDuringPaint = -1;
    g.box.OnCls = [&] { pointerDuringPaint = g.s.MousePointer; };
    RedrawGraph(g.s);
    EXPECT_EQ(pointerDuringPaint, 11);
    EXPECT_EQ(g.s.GridColor, "16766596");
    EXPECT_EQ(g.s.CurveColor, "255");
    // A later paint keeps the colours; in regression mode it stops before the curves and
    // leaves the break list as it is.
    g.s.GridColor = "65280";
    g.s.Check1 = 1;
    g.s.BreakCount = 3;
    g.box.Strokes.clear();
    RedrawGraph(g.s);
    EXPECT_EQ(g.box.StrokesIn(65280, 1).size(), 82u);
    EXPECT_TRUE(g.box.StrokesIn(Red, 3).empty());
    EXPECT_EQ(g.s.BreakCount, 3);
    EXPECT_EQ(g.s.MousePointer, g.s.DefaultPointer);
}

} // namespace
} // namespace vt::test
