#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "plot/Appearance.h"
#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "plot/PointSeries.h"

namespace vt::test {
namespace {

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
