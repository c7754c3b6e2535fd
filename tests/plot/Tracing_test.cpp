#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "plot/Evaluate.h"
#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "plot/Tracing.h"
#include "plot/View.h"

namespace vt::test {
namespace {

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
    for (const Stroke& k : g.box.StrokesIn(Red, 3))
        if (std::fabs(k.X1 - l[0]) + std::fabs(k.Y1 - l[1]) + std::fabs(k.X2 - l[2]) +
                std::fabs(k.Y2 - l[3]) <
            1e-4)
            return true;
    return false;
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
        if (breaks) {
            EXPECT_NEAR(g.s.BreakX(0), firstBreak, 1e-9);
        }
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
    EXPECT_EQ(last.Key, 255);
    EXPECT_EQ(last.Text, "x=-15  y=-15");
    EXPECT_EQ(last.Colour, Red);
    // The failure inverts SampleFailed, so the next sample counts as one without a value: a
    // break there, and the curve steps over it. The samples stop at x = 20, so the failure
    // there has no next sample.
    ASSERT_EQ(g.s.BreakCount, 34);
    EXPECT_NEAR(g.s.BreakX(0), -13.95, 1e-9);
    EXPECT_TRUE(HasStroke(g, {-14, -14, -13.9, -13.9}));
    EXPECT_FALSE(HasStroke(g, {-14.05, -14.05, -14, -14}));
    EXPECT_TRUE(HasStroke(g, {-15.05, -15.05, -15, -15}));
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
                g.s.ShadeOn = shade;
                g.s.ShadeFrom = -7.3;
                g.s.ShadeTo = 12.1;
                g.s.ActiveSlot = 1;
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
        EXPECT_EQ(g.ViewNow(), (View{-bound, bound, -bound, bound}));
        EXPECT_EQ(g.box.Clears, paints);
        ASSERT_EQ(g.host.Calls.size(), message ? 1u : 0u);
        if (message) {
            EXPECT_EQ(g.host.Calls[0].Text,
                      "The function could not be graphed within the maximum limits.");
            EXPECT_EQ(g.host.Calls[0].Style, MsgOkOnly);
        }
    }
}

} // namespace
} // namespace vt::test
