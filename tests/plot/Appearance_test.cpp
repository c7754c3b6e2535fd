#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "plot/Appearance.h"
#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "support/ScriptedPlatform.h"

namespace vt::test {
namespace {

struct LookSession : PlotSession {
    ScriptedPlatform host;
    int regressionRedraws = 0;
    LookSession() {
        s.Host = &host;
        s.RedrawRegressionHook = [this](Session&) { ++regressionRedraws; };
        Type(0, "x");
        RedrawGraph(s);
        box.Forget();
    }
};

TEST(Appearance, ColourCommandsStartFromTheirColourAndTakeTheAnswer) {
    struct Case {
        const char* name;
        std::function<void(Session&)> command;
        Colour start;
        std::function<Colour(const Session&)> result;
    };
    const Case cases[] = {
        {"swatch 3", [](Session& s) { ChangeSwatchColour(s, 3); }, 0xFF00FF,
         [](const Session& s) { return s.Picture1(3); }},
        {"swatch 6", [](Session& s) { ChangeSwatchColour(s, 6); }, 0xFF0000,
         [](const Session& s) { return s.Picture1(6); }},
        {"grid", mnuGraphGridColor_Click, 16766596,
         [](const Session& s) { return static_cast<Colour>(std::stoul(s.GridColor)); }},
        // The background starts from the grid colour.
        {"background", mnuBackColor_Click, 16766596,
         [](const Session& s) { return s.GraphBackColor; }},
    };
    for (const Case& c : cases) {
        for (const bool cancelled : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.name << (cancelled ? " cancelled" : ""));
            LookSession g;
            if (!cancelled) g.host.ColourAnswers.push_back(0x204060);
            c.command(g.s);
            ASSERT_EQ(g.host.Calls.size(), 1u);
            EXPECT_EQ(static_cast<Colour>(g.host.Calls[0].Style), c.start);
            // A cancel answers the start: for the background that is the grid colour.
            EXPECT_EQ(c.result(g.s), cancelled ? c.start : 0x204060u);
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
    EXPECT_EQ(g.s.GridColor, "16766596");
    EXPECT_EQ(g.s.ShadeColor, "14737632");
    EXPECT_EQ(g.s.GraphBackColor, 0xFFFFFFu);
    const Colour expected[7] = {255, 0xFF0000, 49152, 0xFF00FF, 33023, 255, 0xFF0000};
    for (int i = 0; i <= 6; ++i)
        EXPECT_EQ(g.s.Picture1(i), expected[i]) << i;
    EXPECT_EQ(g.s.Slider1, 7);
    EXPECT_EQ(g.box.Clears, 1);
    // The start's colours are the same table.
    const Session fresh;
    for (int i = 0; i <= 6; ++i)
        EXPECT_EQ(fresh.Picture1(i), expected[i]) << i;
}

TEST(Appearance, RedrawsGoToTheRegressionRedrawInRegressionMode) {
    const std::function<void(Session&)> commands[] = {
        [](Session& s) { ChangeSwatchColour(s, 5); },
        mnuGraphGridColor_Click,
        mnuBackColor_Click,
        mnuGraphDefault_Click,
        [](Session& s) { SetLineWidth(s, 8); },
    };
    for (int mode : {0, 1}) {
        for (const auto& command : commands) {
            LookSession g;
            g.s.Check1 = mode;
            command(g.s);
            EXPECT_EQ(g.regressionRedraws, mode == 1 ? 1 : 0);
            EXPECT_EQ(g.box.Clears, mode == 1 ? 0 : 1);
        }
    }
}

TEST(Appearance, LineWidthRedrawsOnlyOnAChangeAndStaysInRange) {
    struct Case {
        int start, asked, width, paints;
    } cases[] = {{3, 5, 5, 1}, {3, 3, 3, 0}, {3, 0, 1, 1}, {10, 12, 10, 0}, {1, 10, 10, 1}};
    for (const Case& c : cases) {
        LookSession g;
        g.s.Slider1 = c.start;
        // The full redraw applies the view: a box scale left elsewhere comes back.
        g.box.ScaleLeft = 99;
        SetLineWidth(g.s, c.asked);
        EXPECT_EQ(g.s.Slider1, c.width);
        EXPECT_EQ(g.box.Clears, c.paints);
        EXPECT_EQ(g.box.ScaleLeft, c.paints ? -20 : 99);
    }
}

TEST(RoundUp, AddsALittleToTheArgumentFirst) {
    struct Case {
        double value;
        int digits;
        double result;
    } cases[] = {
        {2.5, 0, 3},                     // half to even alone would give 2
        {3.5, 0, 4},      {-2.5, 0, -2}, // -2.49999
        {0.125, 2, 0.13}, {7, 1, 7},
    };
    for (const Case& c : cases) {
        double argument = c.value;
        EXPECT_EQ(RoundUp(argument, c.digits), c.result) << c.value;
        EXPECT_EQ(argument, c.value + 0.00001) << c.value;
    }
}

} // namespace
} // namespace vt::test
