#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "plot/Appearance.h"
#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "plot/PointSeries.h"
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

TEST(View, ZoomIsAboutTheOriginAndGuardedByTheXBoundsOnly) {
    // {view, zoom in, view after; unchanged: refused, and nothing is painted}. The x bounds
    // summing to 1 refuse; a view away from 0 moves towards it; y plays no part.
    // clang-format off
    const std::tuple<View, bool, View> cases[] = {
        {{-1, 1, -1, 1}, true, {-0.5, 0.5, -0.5, 0.5}}, {{10, 30, -20, 20}, true, {5, 15, -10, 10}},
        {{-0.5, 0.5, -0.5, 0.5}, true, {-0.5, 0.5, -0.5, 0.5}},
        {{-20, 20, -0.5, 0.5}, true, {-10, 10, -0.25, 0.25}},
        {{-81920, 81920, -20, 20}, false, {-163840, 163840, -40, 40}},
        {{-163840, 163840, -1, 1}, false, {-163840, 163840, -1, 1}}};
    // clang-format on
    for (const auto& [start, in, end] : cases) {
        SCOPED_TRACE(testing::Message() << start[0] << (in ? " in" : " out"));
        PlotSession g;
        g.SetView(start);
        in ? ZoomIn(g.s) : ZoomOut(g.s);
        EXPECT_EQ(g.ViewNow(), end);
        EXPECT_EQ(g.box.Clears, end == start ? 0 : 1);
    }
}

TEST(View, KeysSlideTheViewByFixedAmounts) {
    // {key, x moved by, y moved by}: any other key only redraws.
    // clang-format off
    const std::vector<std::array<int, 3>> cases = {
        {KeyUp, 0, 1}, {KeyDown, 0, -1}, {KeyLeft, -1, 0}, {KeyRight, 1, 0}, {KeyPageUp, 0, 10},
        {KeyPageDown, 0, -10}, {KeyHome, -10, 0}, {KeyEnd, 10, 0}, {65, 0, 0}};
    // clang-format on
    for (const auto& [key, dx, dy] : cases) {
        PlotSession g;
        g.SetView({-2.5, 0.5, 100, 104}); // the amounts do not follow the zoom
        frmGraph_KeyDown(g.s, key, 0);
        EXPECT_EQ(g.ViewNow(), (View{-2.5 + dx, 0.5 + dx, 100.0 + dy, 104.0 + dy})) << key;
        EXPECT_EQ(g.box.Clears, 1);
    }
}

TEST(View, ApplyViewSetsScaleStepAndTheListsPlace) {
    // The step comes from the absolute bounds: 10..30 gets 20/400, not 10/400.
    for (const auto& [v, step] : std::vector<std::pair<View, double>>{
             {{-20, 20, -20, 20}, 0.05}, {{10, 30, -5, 15}, 0.05}, {{-3, 1, 2, 4}, 0.005}}) {
        PlotSession g;
        g.SetView(v);
        ApplyView(g.s);
        EXPECT_EQ(
            std::vector<float>(
                {g.box.ScaleLeft, g.box.ScaleTop, g.box.ScaleWidth, g.box.ScaleHeight}),
            std::vector<float>({float(v[0]), float(v[3]), float(v[1] - v[0]), float(v[2] - v[3])}));
        EXPECT_DOUBLE_EQ(g.s.SampleStep, step);
        // 129 pixels wide, half the box high, in the upper right corner.
        const ListPlacement& list = g.s.ListView1Rect;
        EXPECT_NEAR(list.Width, 129 * (v[1] - v[0]) / 400, 1e-6);
        EXPECT_NEAR(list.Height, (v[3] - v[2]) / 2, 1e-6);
        EXPECT_NEAR(list.Left + list.Width, v[1], 1e-6);
        EXPECT_EQ(list.Top, v[3]);
    }
    // A view of no width is refused by the box, which keeps its last width.
    PlotSession g;
    ApplyView(g.s);
    g.SetView({3, 3, -1, 1});
    ApplyView(g.s);
    EXPECT_EQ(g.box.ScaleWidth, 40);
    EXPECT_EQ(g.box.ScaleLeft, 3);
}

TEST(View, DragSelectsAWholeNumberView) {
    // {press, release, view after}: either direction; halves to even; 1 wide after rounding
    // is no selection, nor is no move.
    const View start{-20, 20, -20, 20};
    // clang-format off
    const std::tuple<float, float, float, float, View> cases[] = {
        {2.4f, 3.6f, 7.7f, -5.2f, {2, 8, -5, 4}}, {7.7f, -5.2f, 2.4f, 3.6f, {2, 8, -5, 4}},
        {2.5f, 0.5f, 4.5f, 3.5f, {2, 4, 0, 4}}, {1.2f, 1.2f, 2.4f, 9.0f, start},
        {1.2f, 1.2f, 1.2f, 1.2f, start}};
    // clang-format on
    for (const auto& [x0, y0, x1, y1, end] : cases) {
        SCOPED_TRACE(testing::Message() << x0 << "," << y0 << " to " << x1 << "," << y1);
        PlotSession g;
        EXPECT_EQ(frmGraph_MouseDown(g.s, LeftButton, 0, x0, y0), GraphMouseAction::None);
        frmGraph_MouseMove(g.s, LeftButton, 0, x1, y1);
        // The old box again to erase it, then the new one, both exclusive-or.
        ASSERT_EQ(g.box.Strokes.size(), 2u);
        EXPECT_TRUE(g.box.Strokes[1].Box && g.box.Strokes[1].Mode == DrawXorPen);
        EXPECT_EQ(g.box.Strokes[1].X2, x1);
        frmGraph_MouseUp(g.s, LeftButton, 0, x1, y1);
        EXPECT_EQ(g.box.DrawMode, DrawCopyPen);
        EXPECT_EQ(g.s.ViewDragged, end != start);
        EXPECT_EQ(g.ViewNow(), end);
        EXPECT_EQ(g.box.Clears, 1); // repainted either way
    }
}

TEST(View, ReadoutRoundsHalfToEven) {
    // clang-format off
    const std::tuple<float, float, int, const char*> cases[] = {
        {2.5f, -3.5f, 0, "x = 2    y = -4"}, {-0.25f, 12.75f, 1, "x = -0.2    y = 12.8"},
        {-0.3f, 0.4f, 0, "x = 0    y = 0"}};
    // clang-format on
    for (const auto& [x, y, digits, text] : cases) {
        PlotSession g;
        g.s.RoundDigits = digits;
        EXPECT_EQ(frmGraph_MouseMove(g.s, 0, 0, x, y), text);
    }
}

struct LookSession : PlotSession {
    LookSession() {
        Type(0, "x");
        RedrawGraph(s);
        box.Forget();
    }
};

TEST(Appearance, ColourCommandsStartFromTheirColourAndTakeTheAnswer) {
    // {the command, its colour afterwards, the dialog's start}; a cancel answers the start. The
    // background starts from the grid colour.
    using Command = std::function<void(Session&)>;
    using Result = std::function<Colour(const Session&)>;
    const std::tuple<Command, Result, Colour> cases[] = {
        {[](Session& s) { ChangeSwatchColour(s, 3); },
         [](const Session& s) { return s.Picture1(3); }, 0xFF00FF},
        {mnuGraphGridColor_Click,
         [](const Session& s) { return static_cast<Colour>(std::stoul(s.GridColor)); }, 16766596},
        {mnuBackColor_Click, [](const Session& s) { return s.GraphBackColor; }, 16766596}};
    for (const auto& [command, result, start] : cases) {
        for (const bool cancelled : {false, true}) {
            SCOPED_TRACE(testing::Message() << start << (cancelled ? " cancelled" : ""));
            LookSession g;
            if (!cancelled) g.host.ColourAnswers.push_back(0x204060);
            command(g.s);
            ASSERT_EQ(g.host.Calls.size(), 1u);
            EXPECT_EQ(static_cast<Colour>(g.host.Calls[0].Style), start);
            EXPECT_EQ(result(g.s), cancelled ? start : 0x204060u);
            EXPECT_EQ(g.box.Clears, 1);
        }
    }
}

TEST(Appearance, DefaultColoursSetTheWholeTableButNotTheLineWidth) {
    LookSession g;
    g.s.GridColor = "1";
    g.s.ShadeColor = "2";
    g.s.GraphBackColor = 3;
    for (int i = 0; i <= 6; ++i)
        g.s.Picture1(i) = 0x010101 * static_cast<Colour>(i + 1);
    g.s.Slider1 = 7;
    mnuGraphDefault_Click(g.s);
    EXPECT_EQ(g.s.GridColor + " " + g.s.ShadeColor, "16766596 14737632");
    EXPECT_EQ(g.s.GraphBackColor, 0xFFFFFFu);
    EXPECT_EQ(g.s.Slider1, 7);
    EXPECT_EQ(g.box.Clears, 1);
    // The swatches go back to the colours a new session starts with.
    const Session fresh;
    for (int i = 0; i <= 6; ++i)
        EXPECT_EQ(g.s.Picture1(i), fresh.Picture1(i)) << i;
}

TEST(Appearance, RedrawsGoToTheRegressionRedrawInRegressionMode) {
    // clang-format off
    const std::function<void(Session&)> commands[] = {
        [](Session& s) { ChangeSwatchColour(s, 5); }, mnuGraphGridColor_Click, mnuBackColor_Click,
        mnuGraphDefault_Click, [](Session& s) { SetLineWidth(s, 8); }};
    // clang-format on
    for (int mode : {0, 1}) {
        for (const auto& command : commands) {
            // One point in the series: only the regression redraw draws its circle.
            LookSession g;
            g.s.Check1 = mode;
            AddSeriesPoint(g.s, 1, 2);
            command(g.s);
            const bool circled =
                std::any_of(g.box.Log.begin(), g.box.Log.end(),
                            [](const auto& line) { return line.rfind("Circle 1,2", 0) == 0; });
            EXPECT_EQ(circled, mode == 1);
            EXPECT_EQ(g.box.Clears, 1);
        }
    }
}

TEST(Appearance, LineWidthRedrawsOnlyOnAChangeAndStaysInRange) {
    // {width, asked for, width after, paints}
    const std::array<int, 4> cases[] = {
        {3, 5, 5, 1}, {3, 3, 3, 0}, {3, 0, 1, 1}, {10, 12, 10, 0}, {1, 10, 10, 1}};
    for (const auto& [start, asked, width, paints] : cases) {
        LookSession g;
        g.s.Slider1 = start;
        // The full redraw applies the view: a box scale left elsewhere comes back.
        g.box.ScaleLeft = 99;
        SetLineWidth(g.s, asked);
        EXPECT_EQ(g.s.Slider1, width);
        EXPECT_EQ(g.box.Clears, paints);
        EXPECT_EQ(g.box.ScaleLeft, paints ? -20 : 99);
    }
}

TEST(RoundUp, AddsALittleToTheArgumentFirst) {
    // {value, digits, result}: half to even alone would round 2.5 to 2; -2.5 becomes -2.49999.
    const std::tuple<double, int, double> cases[] = {
        {2.5, 0, 3}, {3.5, 0, 4}, {-2.5, 0, -2}, {0.125, 2, 0.13}, {7, 1, 7}};
    for (const auto& [value, digits, result] : cases) {
        double argument = value;
        EXPECT_EQ(RoundUp(argument, digits), result) << value;
        EXPECT_EQ(argument, value + 0.00001) << value;
    }
}

} // namespace
} // namespace vt::test
