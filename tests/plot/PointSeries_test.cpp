#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "plot/PlotTesting.h"
#include "plot/PointSeries.h"
#include "plot/RegressionOverlay.h"
#include "plot/View.h"

namespace vt::test {
namespace {

// A session in regression mode with its graph box, the panel bound.
struct RegressionSession : PlotSession {
    RegressionSession() {
        mnuPtSeries_Click(s);
        box.Forget();
    }
    InsertOutcome Insert(const std::string& x, const std::string& y) {
        s.Panel.Text2 = x;
        s.Panel.Text3 = y;
        return Command4_Click(s);
    }
    std::vector<std::pair<double, double>> Stored() const {
        std::vector<std::pair<double, double>> out;
        for (int i = 0; i < std::min(s.FitObject.XYCount(), PointsCapacity); ++i)
            out.emplace_back(s.Points(i).X, s.Points(i).Y);
        return out;
    }
    std::size_t Circles() const { return box.Logged("Circle"); }
};

TEST(PointSeries, InsertTakesNumericTextOnly) {
    // {X text, Y text, outcome, stored point}: x * y = 1E400 overflows in the fit's sums:
    // counted, not stored, no message.
    constexpr auto Added = InsertOutcome::Added, Refused = InsertOutcome::Refused;
    const std::tuple<const char*, const char*, InsertOutcome, double, double> cases[] = {
        {"1", "2", Added, 1, 2},     {"1e3", " -.5 ", Added, 1000, -0.5},
        {"1", "", Refused, 0, 0},    {"abc", "1", Refused, 0, 0},
        {"1,5", "1", Refused, 0, 0}, {"1E200", "1E200", InsertOutcome::Failed, 0, 0}};
    for (const auto& [x, y, outcome, storedX, storedY] : cases) {
        RegressionSession g;
        const InsertOutcome got = g.Insert(x, y);
        const bool refused = outcome == Refused;
        // Only an added point redraws; the boxes keep their text either way.
        EXPECT_EQ(std::tuple(got, g.host.Messages(), g.s.FitObject.XYCount(), g.s.Points(0).X,
                             g.s.Points(0).Y, g.box.Clears, g.s.Panel.Text2),
                  std::tuple(outcome, refused ? Texts{"X and Y must be numbers."} : Texts{},
                             refused ? 0 : 1, storedX, storedY, outcome == Added, x))
            << x << " , " << y;
    }
}

TEST(PointSeries, FiveHundredPointsFitTheSeriesAndTheNextIsOnlyCounted) {
    RegressionSession g;
    for (int i = 1; i <= PointsCapacity; ++i)
        ASSERT_EQ(g.Insert(std::to_string(i), std::to_string(2 * i)), InsertOutcome::Added);
    EXPECT_EQ(std::tuple(g.s.Panel.MSFlexGrid1.size(), g.s.Panel.MSFlexGrid1[500]),
              std::tuple(502u, PointTableRow{"500", "1000"}));

    g.box.Forget();
    EXPECT_EQ(g.Insert("0", "7"), InsertOutcome::Failed);
    EXPECT_EQ(std::tuple(g.box.Clears, g.s.FitObject.XYCount(), g.s.Points(PointsCapacity - 1).X),
              std::tuple(0, 501, 500.0));
    // The fit holds the point (its value at 0 is no longer 0); Points and the table do not.
    EXPECT_NE(*g.s.FitObject.RegVal(0), 0);
    RedrawRegression(g.s);
    EXPECT_EQ(std::tuple(g.Circles(), g.s.Panel.MSFlexGrid1.size(), g.s.Panel.MSFlexGrid1[501]),
              std::tuple(500u, 503u, PointTableRow{"", ""}));
    // Such a series cannot change its trend: nothing is emptied.
    g.s.Panel.Combo1 = "3";
    EXPECT_EQ((std::tuple{Command3_Click(g.s), g.s.FitObject.XYCount(), g.s.FitObject.Degree()}),
              std::tuple(false, 501, 1));
}

TEST(PointSeries, TrendChangeReplaysThePointsInOrderThroughTheirText) {
    RegressionSession g;
    // No points: the degree still changes, and nothing is fed.
    g.s.Panel.Combo1 = "10";
    EXPECT_EQ((std::tuple{Command3_Click(g.s), g.s.FitObject.Degree(), g.s.FitObject.XYCount()}),
              std::tuple(true, 10, 0));

    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(AddSeriesPoint(g.s, (i * 7 % 20) / 3.0, std::sqrt(i + 0.5)));
    const auto before = g.Stored();

    // {step, degree afterwards}: the order list acts only while Polynomial is on.
    const std::pair<bool (*)(Session&), int> steps[] = {
        {Command1_Click, 1}, {Combo1_Click, 1}, {Command3_Click, 10}, {Combo1_Click, 10}};
    for (const auto& [step, degree] : steps) {
        ASSERT_TRUE(step(g.s));
        EXPECT_EQ(std::tuple(g.s.FitObject.Degree(), g.s.FitObject.XYCount()),
                  std::tuple(degree, 20));
        // Fifteen significant digits survive; 1/3 comes back as 0.333333333333333.
        auto rounded = before;
        for (auto& [x, y] : rounded)
            std::tie(x, y) = std::tuple(RoundToNumberText(x), RoundToNumberText(y));
        EXPECT_EQ(g.Stored(), rounded);
    }
    EXPECT_EQ(g.s.Points(3).X, 0.333333333333333);
    g.s.Panel.Combo1 = "4";
    EXPECT_EQ((std::tuple{Combo1_Click(g.s), g.s.FitObject.Degree()}), std::tuple(true, 4));
}

TEST(RegressionOverlay, DrawsCurveCirclesAndTable) {
    RegressionSession g;
    // No points: the empty graph and only the headings.
    RedrawRegression(g.s);
    const std::vector<PointTableRow> headings = {{"X", "Y"}, {"", ""}};
    EXPECT_EQ(std::tuple(g.box.Clears, g.Circles(),
                         g.box.StrokesIn(g.s.Picture1(5), g.s.Slider1).size(),
                         g.s.Panel.MSFlexGrid1),
              std::tuple(1, 0u, 0u, headings));

    g.s.Panel.Combo1 = "2";
    Command3_Click(g.s);
    for (auto [x, y] : {std::pair{"0", "0"}, {"1", "1"}, {"-2", "4"}, {"0.5", "0.0000001"}})
        ASSERT_EQ(g.Insert(x, y), InsertOutcome::Added);
    std::tie(g.s.Picture1(5), g.s.Slider1) = std::tuple(0x123456u, 5);
    g.box.Forget();
    RedrawRegression(g.s);

    // One unbroken polyline over the view, in the line swatch's colour and the slider's width.
    const auto curve = g.box.StrokesIn(0x123456, 5);
    // -20..20 by 0.05, the step added up: the sum passes 20 just before the last sample.
    ASSERT_EQ(curve.size(), 800u);
    for (std::size_t i = 0; i < curve.size(); ++i) {
        EXPECT_TRUE(i == 0 || (curve[i].X1 == curve[i - 1].X2 && curve[i].Y1 == curve[i - 1].Y2))
            << i;
        EXPECT_NEAR(curve[i].Y2, *g.s.FitObject.RegVal(curve[i].X2),
                    1e-3 * (1 + std::fabs(curve[i].Y2)));
    }
    // Circles of radius 0.2 in the points' colour, filled with it.
    const std::vector<PointTableRow> table = {{"X", "Y"},  {"0", "0"},           {"1", "1"},
                                              {"-2", "4"}, {"0.5", "0.0000001"}, {"", ""}};
    EXPECT_EQ(std::tuple(curve.front().X1, g.Circles(),
                         g.box.Logged("Circle -2,4 r=0.2 color=16711680 fill=16711680"),
                         g.s.Panel.MSFlexGrid1, g.s.Panel.ScrollTableToEnd),
              std::tuple(-20.0f, 4u, 1u, table, true));

    // Clearing empties fit and table, keeps the degree, and leaves the empty graph.
    g.box.Forget();
    ClearSeries(g.s);
    EXPECT_EQ(std::tuple(g.s.FitObject.XYCount(), g.s.FitObject.Degree(), g.s.Panel.MSFlexGrid1,
                         g.Circles()),
              std::tuple(0, 2, headings, 0u));
}

TEST(RegressionOverlay, OutOfRangeValuesAreSkippedNotDrawn) {
    // {view, points}: a steep fit whose values leave single precision at the edges, and a
    // view of no width, whose step is 0 and draws no curve at all.
    RegressionSession g;
    Command3_Click(g.s); // order 2
    ASSERT_TRUE(AddSeriesPoint(g.s, 0, 0));
    ASSERT_TRUE(AddSeriesPoint(g.s, 1, 1e36));
    ASSERT_TRUE(AddSeriesPoint(g.s, -1, 1e36));
    RedrawRegression(g.s);
    const auto curve = g.box.StrokesIn(g.s.Picture1(5), g.s.Slider1);
    EXPECT_TRUE(curve.size() > 0u && curve.size() < 801u) << curve.size();
    EXPECT_TRUE(
        std::all_of(curve.begin(), curve.end(), [](auto& k) { return std::isfinite(k.Y2); }));
    EXPECT_EQ(g.Circles(), 3u);

    g.box.Forget();
    g.SetView({0, 0, 0, 0});
    RedrawRegression(g.s);
    EXPECT_TRUE(g.box.StrokesIn(g.s.Picture1(5), g.s.Slider1).empty());
}

TEST(PointSeries, ModeSwitchShowsThePanelAndKeepsTheSeries) {
    PlotSession g;
    g.s.MenuEnabled["mnuShade"] = true;
    // {Check1, panel, image and tip of button 14, graph tip, Insert Pi, button 12}
    const auto mode = [&] {
        return std::tuple(g.s.Check1, g.s.Panel.Visible, g.s.Toolbar1(14).Image,
                          g.s.Toolbar1(14).Tip, g.s.GraphTip, g.s.MenuEnabled["mnuInsertPi"],
                          g.s.Toolbar1(12).Enabled);
    };
    EXPECT_EQ(mnuPtSeries_Click(g.s), -1);
    EXPECT_EQ(mode(), std::tuple(1, true, "gra", "Graph Analysis", "Click on graph to enter point.",
                                 false, false));
    // Shade closes: no complete function.
    EXPECT_EQ(std::tuple(g.s.PtSeriesChecked, g.s.MenuEnabled["mnuShade"], g.s.Toolbar1(9).Enabled,
                         g.s.Toolbar1(10).Enabled, g.s.Toolbar1(13).Enabled),
              std::tuple(true, false, false, false, false));
    // A click enters a point rounded half to even and starts no drag; the right button enters
    // none and opens the menu.
    // Braces: the clicks in order.
    EXPECT_EQ((std::tuple{frmGraph_MouseDown(g.s, LeftButton, 0, 2.5f, -3.5f), g.s.Dragging,
                          frmGraph_MouseDown(g.s, RightButton, 0, 1, 1)}),
              std::tuple(GraphMouseAction::None, false, GraphMouseAction::ShowGraphWindowMenu));
    EXPECT_EQ(std::tuple(g.s.FitObject.XYCount(), g.s.Points(0).X, g.s.Points(0).Y,
                         g.s.Panel.MSFlexGrid1[1]),
              std::tuple(1, 2.0, -4.0, PointTableRow{"2", "-4"}));

    g.s.ShownRows = 0;
    EXPECT_EQ(mnuPtSeries_Click(g.s), 0);
    EXPECT_EQ(mode(), std::tuple(0, false, "regress", "Regression Analysis",
                                 "Drag mouse to select display region.", true, true));
    Command5_Click(g.s); // the series kept
    EXPECT_EQ(g.s.RegressionEquation, "f(x) = - 4");
}

TEST(PointSeries, RegressionFunctionHandsTheTextToTheWindowOrSaysItIsMissing) {
    for (const bool hasWindow : {true, false}) {
        RegressionSession g;
        g.shell.OnCommand = [&](HostCommand command, int) {
            return hasWindow && command == HostCommand::Explain;
        };
        g.Insert("1", "3");
        g.Insert("2", "1");
        ShowRegressionFunction(g.s);
        EXPECT_EQ(std::tuple(g.s.RegressionEquation, g.shell.Ran.back(), g.host.Messages()),
                  std::tuple(g.s.FitObject.ReturnRegEq(), HostCommand::Explain,
                             hasWindow ? Texts{} : Texts{NotAvailableText}));
    }
}

} // namespace
} // namespace vt::test
