#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>

#include "plot/Appearance.h"
#include "plot/Evaluate.h"
#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "plot/PointSeries.h"
#include "plot/Tracing.h"
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
        PlotSession g({"x"});
        g.SetView(view);
        g.s.HideGridChecked = hidden;
        RedrawGraph(g.s);
        EXPECT_EQ(std::tuple(g.box.StrokesIn(GridBlue, 1).size(),
                             g.box.StrokesIn(0x000000, 2).size(), g.s.MousePointer),
                  std::tuple(gridLines, axes, g.s.DefaultPointer))
            << view[0] << ".." << view[1] << " by " << view[2] << ".." << view[3] << hidden;
    }
}

TEST(Painter, ShadingPaintsTwiceAndFillsBetweenTheWalls) {
    // {keys, band, fills from just above and just below the x axis, walls at breaks}: x fills
    // at 2.05 .. 2.95; x/100 is too near the axis, |y| / 40 below 0.01; 1/x has none at 0 and
    // three walls at the break the first pass found; a band out of view fills nothing. x^2 left
    // of the y axis lies below it with x spliced bare, above it in brackets.
    // clang-format off
    const std::tuple<const char*, double, double, std::size_t, std::size_t, std::size_t, bool>
        cases[] = {{"x", 2, 3, 19, 0, 0, false}, {"x/100", 2, 3, 0, 0, 0, false},
                   {"1/x", -1, 1, 19, 19, 3, false}, {"x", -40, -30, 0, 0, 0, false},
                   {"x^2", -3, -2, 0, 19, 0, false}, {"x^2", -3, -2, 19, 0, 0, true}};
    // clang-format on
    for (const auto& [keys, from, to, fillsAbove, fillsBelow, breakWalls, bracket] : cases) {
        SCOPED_TRACE(keys);
        PlotSession g({keys});
        std::tie(g.s.BracketNegativeX, g.s.ShadeOn, g.s.ShadeFrom, g.s.ShadeTo) =
            std::tuple(bracket, true, from, to);
        RedrawGraph(g.s);
        std::size_t above = 0, below = 0;
        for (const auto& f : g.box.Fills)
            (f[1] == 199 ? above : below) += 1;
        EXPECT_EQ(std::tuple(above, below), std::tuple(fillsAbove, fillsBelow));
        for (const std::string& line : g.box.Log)
            EXPECT_TRUE(line.rfind("FloodFill", 0) ||
                        line.find("surface=16777215 fill=14737632 style=0") != std::string::npos);
        // The band's frame in the shade colour, erased in white. Two passes: the numbers twice,
        // and the list holds the second pass's items, whose keys go on from the first. The
        // break list erased at the end.
        EXPECT_EQ(std::tuple(g.box.StrokesIn(BreakMarkColour, 1).size(),
                             g.box.StrokesIn(ShadeGrey, 1).size(),
                             g.box.StrokesIn(0xFFFFFF, 1).size(), g.box.Prints.size(),
                             g.s.BreakCount),
                  std::tuple(breakWalls, 4u, 4u, 10u, 0));
        EXPECT_TRUE(keys != std::string("x") || g.s.ListView1.front().Key == 41);
    }
}

TEST(Painter, FirstPaintSetsDefaultsAndRegressionModeDrawsNoCurve) {
    PlotSession g({"x"});
    g.s.GridColor = "255";
    int pointerDuringPaint = -1;
    g.box.OnCls = [&] { pointerDuringPaint = g.s.MousePointer; };
    RedrawGraph(g.s);
    EXPECT_EQ(std::tuple(pointerDuringPaint, g.s.GridColor, g.s.CurveColor),
              std::tuple(11, "16766596", "255"));
    // A later paint keeps the colours; in regression mode it stops before the curves and
    // leaves the break list as it is.
    std::tie(g.s.GridColor, g.s.Check1, g.s.BreakCount) = std::tuple("65280", 1, 3);
    g.box.Strokes.clear();
    RedrawGraph(g.s);
    EXPECT_EQ(std::tuple(g.box.StrokesIn(65280, 1).size(), g.box.StrokesIn(Red, 3).size(),
                         g.s.BreakCount, g.s.MousePointer),
              std::tuple(82u, 0u, 3, g.s.DefaultPointer));
}

TEST(View, ZoomAndKeysMoveTheView) {
    // {view, a key or a zoom in or out, view after}. The zoom is about the origin: x bounds
    // summing to 1 refuse, and a refused zoom paints nothing; a view away from 0 moves towards
    // it; y plays no part. The keys slide by fixed amounts that do not follow the zoom, and
    // always repaint; any other key only repaints.
    constexpr int In = -1, Out = -2;
    const View k{-2.5, 0.5, 100, 104};
    // clang-format off
    const std::tuple<View, int, View> cases[] = {
        {{-1, 1, -1, 1}, In, {-0.5, 0.5, -0.5, 0.5}}, {{10, 30, -20, 20}, In, {5, 15, -10, 10}},
        {{-0.5, 0.5, -0.5, 0.5}, In, {-0.5, 0.5, -0.5, 0.5}},
        {{-20, 20, -0.5, 0.5}, In, {-10, 10, -0.25, 0.25}},
        {{-81920, 81920, -20, 20}, Out, {-163840, 163840, -40, 40}},
        {{-163840, 163840, -1, 1}, Out, {-163840, 163840, -1, 1}},
        {k, KeyUp, {-2.5, 0.5, 101, 105}}, {k, KeyDown, {-2.5, 0.5, 99, 103}},
        {k, KeyLeft, {-3.5, -0.5, 100, 104}}, {k, KeyRight, {-1.5, 1.5, 100, 104}},
        {k, KeyPageUp, {-2.5, 0.5, 110, 114}}, {k, KeyPageDown, {-2.5, 0.5, 90, 94}},
        {k, KeyHome, {-12.5, -9.5, 100, 104}}, {k, KeyEnd, {7.5, 10.5, 100, 104}}, {k, 65, k}};
    // clang-format on
    for (const auto& [start, action, end] : cases) {
        PlotSession g;
        g.SetView(start);
        action == In    ? ZoomIn(g.s)
        : action == Out ? ZoomOut(g.s)
                        : frmGraph_KeyDown(g.s, action, 0);
        EXPECT_EQ(std::tuple(g.ViewNow(), g.box.Clears),
                  std::tuple(end, action >= 0 || end != start ? 1 : 0))
            << start[0] << " " << action;
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
    EXPECT_EQ(std::tuple(g.box.ScaleWidth, g.box.ScaleLeft), std::tuple(40.0f, 3.0f));
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
        EXPECT_EQ(std::tuple(g.box.Strokes[1].Box, g.box.Strokes[1].Mode, g.box.Strokes[1].X2),
                  std::tuple(true, DrawXorPen, x1));
        frmGraph_MouseUp(g.s, LeftButton, 0, x1, y1);
        // Repainted either way.
        EXPECT_EQ(std::tuple(g.box.DrawMode, g.s.ViewDragged, g.ViewNow(), g.box.Clears),
                  std::tuple(DrawCopyPen, end != start, end, 1));
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
            EXPECT_EQ(
                std::tuple(static_cast<Colour>(g.host.Calls[0].Style), result(g.s), g.box.Clears),
                std::tuple(start, cancelled ? start : 0x204060u, 1));
        }
    }
}

TEST(Appearance, DefaultColoursSetTheWholeTableButNotTheLineWidth) {
    LookSession g;
    std::tie(g.s.GridColor, g.s.ShadeColor, g.s.GraphBackColor) = std::tuple("1", "2", 3u);
    for (int i = 0; i <= 6; ++i)
        g.s.Picture1(i) = 0x010101 * static_cast<Colour>(i + 1);
    g.s.Slider1 = 7;
    mnuGraphDefault_Click(g.s);
    EXPECT_EQ(
        std::tuple(g.s.GridColor, g.s.ShadeColor, g.s.GraphBackColor, g.s.Slider1, g.box.Clears),
        std::tuple("16766596", "14737632", 0xFFFFFFu, 7, 1));
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
            EXPECT_EQ(std::tuple(g.box.Logged("Circle 1,2"), g.box.Clears),
                      std::tuple(mode == 1 ? 1u : 0u, 1));
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
        EXPECT_EQ(std::tuple(g.s.Slider1, g.box.Clears, g.box.ScaleLeft),
                  std::tuple(width, paints, paints ? -20.0f : 99.0f));
    }
}

TEST(RoundUp, AddsALittleToTheArgumentFirst) {
    // {value, digits, result}: half to even alone would round 2.5 to 2; -2.5 becomes -2.49999.
    const std::tuple<double, int, double> cases[] = {
        {2.5, 0, 3}, {3.5, 0, 4}, {-2.5, 0, -2}, {0.125, 2, 0.13}, {7, 1, 7}};
    for (const auto& [value, digits, result] : cases) {
        double argument = value;
        EXPECT_EQ(std::tuple(RoundUp(argument, digits), argument),
                  std::tuple(result, value + 0.00001))
            << value;
    }
}

using Stroke = PlotSurface::Stroke;
using Segment = std::array<double, 4>;

// Traces the rows as the paint does, without the painter around it, so that the break list is
// still there afterwards.
void Trace(PlotSession& g, PaintRun run = {}) {
    PreCalcFX(g.s);
    ApplyView(g.s);
    g.box.ForeColor = Red;
    TraceSlots(g.s, g.box, run);
}

bool HasStroke(const PlotSession& g, Segment l) {
    const auto near = [&](const Stroke& k) {
        return std::fabs(k.X1 - l[0]) + std::fabs(k.Y1 - l[1]) + std::fabs(k.X2 - l[2]) +
                   std::fabs(k.Y2 - l[3]) <
               1e-4;
    };
    return std::ranges::any_of(g.box.StrokesIn(Red, 3), near);
}

TEST(Tracing, BreaksPolesAndGapsAtTheDefaultView) {
    // What no curve segment may be like.
    using Rule = std::function<bool(const Stroke&)>;
    const auto spans = [](double x) {
        return Rule(
            [x](const Stroke& k) { return std::min(k.X1, k.X2) < x && std::max(k.X1, k.X2) > x; });
    };
    const Rule none = [](const Stroke&) { return false; };
    const Rule leftOfZero = [](const Stroke& k) { return k.X1 < -1e-9; };
    const Rule leap = [](const Stroke& k) { return k.Y1 > 5 && k.Y2 < -5; };
    const Rule pastTheTop = [](const Stroke& k) { return k.X1 > 4.49; };
    // {keys, breaks, the first break's x, segments that must be drawn, the rule}, row by row:
    // 1/x goes down to the bottom at -0.05 on the left, and on the right up to the top one step
    // after its first sample in view, the two not joined; a hole of two steps with no legs; no
    // value left of 0, where only the last failing sample, next to a value, records a break;
    // 300x sampled at x = 0, so the steep crossing is drawn and nothing breaks; twelve poles of
    // the tangent in view, each leap from beyond 5 to beyond -5 dropped; leaving the top, the
    // segment to the first sample outside is drawn, no later one.
    // clang-format off
    const std::tuple<const char*, int, double, std::vector<Segment>, Rule> cases[] = {
        {"1/x", 1, 0, {{-0.05, -20, -0.05, -20}, {0.1, 10, 0.1, 20}, {0.05, 20, 0.1, 10}},
         spans(0)},
        {"(x^2-1)/(x-1)", 1, 1, {{0.9, 1.9, 0.95, 1.95}, {1.05, 2.05, 1.1, 2.1}}, spans(1)},
        {"~x", 1, -0.05, {{0, 0, 0.05, std::sqrt(0.05)}}, leftOfZero},
        {"300x", 0, 0, {{-0.05, -15, 0, 0}, {0, 0, 0.05, 15}}, none},
        {"T(x)", 12, -17.25, {}, leap},
        {"x^2", 0, 0, {{4.45, 19.8025, 4.5, 20.25}}, pastTheTop}};
    // clang-format on
    for (const auto& [keys, breaks, firstBreak, drawn, forbidden] : cases) {
        SCOPED_TRACE(keys);
        PlotSession g({keys});
        Trace(g);
        ASSERT_EQ(g.s.BreakCount, breaks);
        EXPECT_NEAR(breaks ? g.s.BreakX(0) : firstBreak, firstBreak, 1e-9);
        for (const auto& d : drawn)
            EXPECT_TRUE(HasStroke(g, d)) << d[0] << "," << d[1];
        for (const Stroke& k : g.box.StrokesIn(Red, 3))
            EXPECT_FALSE(forbidden(k)) << k.X1 << "," << k.Y1 << "-" << k.X2 << "," << k.Y2;
        EXPECT_TRUE(g.s.CurveDrawn);
    }
}

TEST(Tracing, AnItemPastKey255FailsAndTheFailureRuleBreaksTheCurve) {
    PlotSession g({"x"});
    PaintRun start;
    start.ListIndex = 250;
    Trace(g, start);
    // Whole x with y in view, in the row's colour: keys 250..255 for x = -20..-15; from x = -14
    // on each item fails.
    ASSERT_EQ(g.s.ListView1.size(), 6u);
    const CoordinateItem& last = g.s.ListView1.back();
    EXPECT_EQ(std::tuple(last.Key, last.Text, last.Colour), std::tuple(255, "x=-15  y=-15", Red));
    // The failure inverts SampleFailed, so the next sample counts as one without a value: a
    // break there, and the curve steps over it. The samples stop at x = 20, so the failure
    // there has no next sample.
    ASSERT_EQ(g.s.BreakCount, 34);
    EXPECT_NEAR(g.s.BreakX(0), -13.95, 1e-9);
    EXPECT_TRUE(HasStroke(g, {-14, -14, -13.9, -13.9}) && HasStroke(g, {-15.05, -15.05, -15, -15}));
    EXPECT_FALSE(HasStroke(g, {-14.05, -14.05, -14, -14}));
}

TEST(Tracing, TextAndCompiledValuesPaintTheSamePicture) {
    const std::vector<std::vector<std::string>> sets = {
        {"2x^2+S(x)", "1/x", "(x^2-1)/(x-1)", "|x|+1", "~(x+20)*C(3Px)"},
        {"T(x)", "~x", "1/(x-3)", "x^3/7-x"},
    };
    for (const auto& rows : sets) {
        for (bool shade : {false, true}) {
            std::vector<std::string> logs[2];
            for (int path = 0; path < 2; ++path) {
                PlotSession g(rows);
                if (path == 1) g.s.Evaluator.SetStrategy(EvalStrategy::Text);
                std::tie(g.s.ShadeOn, g.s.ShadeFrom, g.s.ShadeTo, g.s.ActiveSlot) =
                    std::tuple(shade, -7.3, 12.1, 1);
                RedrawGraph(g.s);
                logs[path] = g.box.Log;
                EXPECT_FALSE(g.box.StrokesIn(Blue, 3).empty()); // the second row's colour
            }
            EXPECT_GT(logs[0].size(), 1000u);
            EXPECT_EQ(logs[0], logs[1]) << rows[0] << (shade ? " shaded" : "");
        }
    }
}

TEST(AutoGraph, DoublesTheViewUntilACurveShows) {
    // {keys, view dragged, the view afterwards as -bound..bound, paints, message}. x + 1000
    // shows from a half-width of 500: five doublings, each try painting twice. x - 1000000
    // never does: fourteen tries, the last zoom refused; then Reset and one more redraw.
    // clang-format off
    const std::tuple<const char*, bool, double, int, bool> cases[] = {
        {"x", false, 20, 1, false}, {"x+1000", false, 640, 10, false},
        {"x-1000000", false, 20, 14 + 13 + 2, true}, {"x-1000000", true, 20, 0, false},
        {"", false, 20, 0, false}};
    // clang-format on
    for (const auto& [keys, dragged, bound, paints, message] : cases) {
        SCOPED_TRACE(keys);
        PlotSession g({keys});
        g.s.ViewDragged = dragged;
        AutoGraph(g.s);
        const Texts said = {"The function could not be graphed within the maximum limits."};
        EXPECT_EQ(std::tuple(g.ViewNow(), g.box.Clears, g.host.Messages(), g.host.Calls.size()),
                  std::tuple(View{-bound, bound, -bound, bound}, paints, message ? said : Texts{},
                             message ? 1u : 0u));
        EXPECT_TRUE(g.host.Calls.empty() || g.host.Calls[0].Style == MsgOkOnly);
    }
}

} // namespace
} // namespace vt::test
