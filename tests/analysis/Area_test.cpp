#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "analysis/Area.h"
#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "session/NumberText.h"
#include "support/ScriptedPlatform.h"

namespace vt::test {
namespace {

// A session with the graph box bound and a scripted host for the message boxes.
struct AreaSession : PlotSession {
    ScriptedPlatform host;
    AreaSession() { s.Host = &host; }
};

// The form as the window hands it to the load: its size set, the rest as designed.
FillRangeForm LoadedForm(Session& s, WindowBox main = {100, 50, 760, 540}) {
    FillRangeForm form;
    form.Width = 320;
    form.Height = 368;
    frmFillRange_Load(s, form, main);
    return form;
}

TEST(AreaSum, RectanglesAtFullWeightWithBothEnds) {
    struct Case {
        const char* keys;
        const char* from;
        const char* to;
        const char* step;
        const char* area;
    } cases[] = {
        {"1", "0", "1", "0.1", "1.10"},        // eleven samples, not ten
        {"x", "-1", "1", "0.5", "0.00"},       // signed: the halves cancel
        {"2x", "3", "3", "0.5", "3.00"},       // a = b: one sample, f(a) * dx
        {"1", "0", "1", "-0.5", "-0.50"},      // no loop; one rectangle at b with the step
        {"1", "0", "0.3", "0.1", "0.40"},      // x drifts to 0.30000000000000004: b once more
        {"1", "0", "2.3", "0.1", "2.40"},      // and at 2.3: 24 samples, not 23
        {"1", "0", "0.9", "0.1", "1.00"},      // 0.9 reached by the loop itself
        {"~x", "-1", "1", "0.5", "0.8536"},    // no value below 0: height 0, no message
        {"1/x", "-1", "1", "1", "0.00"},       // no value at 0
        {"2.5", "0", "4", "1", "12.50"},       // two decimals at least
        {"0.123456", "2", "2", "1", "0.1235"}, // four at most
        {"x", "0", "10", "1", "55.00"},        {"-1", "0", "2", "1", "-3.00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.keys << " on [" << c.from << ", " << c.to << "] dx " << c.step);
        AreaSession g;
        g.Type(0, c.keys);
        const AreaOutcome outcome = CalculateArea(g.s, c.from, c.to, c.step, 0);
        EXPECT_EQ(outcome.Check, AreaCheck::Ok);
        EXPECT_EQ(outcome.Text, c.area);
        EXPECT_TRUE(g.host.Calls.empty());
    }
}

TEST(AreaSum, CompiledRouteGivesWhatTheTextRouteGives) {
    // The reference: the number in CalculateYArea's text, summed exactly as the loop does.
    const auto reference = [](Session& s, double a, double b, double dx, int slot) {
        double area = 0;
        double x = a;
        for (; x <= b; x += dx)
            area += PrefixNumber(CalculateYArea(s, x, slot, EvalPath::Text)) * dx;
        if (b >= PrefixNumber(NumberText(x)))
            area += PrefixNumber(CalculateYArea(s, b, slot, EvalPath::Text)) * dx;
        return area;
    };
    struct Case {
        const char* keys;
        double a, b, dx;
    } cases[] = {
        {"2x^2+S(x)", -20, 20, 0.01},      {"1/x", -3, 3, 0.001},           {"~x", -2, 5, 0.003},
        {"|x-3|*C(x)", -7.5, 7.5, 0.0137}, {"x^3-2x/7", -1e-3, 1e-3, 1e-6}, {"T(x)", -10, 10, 0.01},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keys);
        AreaSession g;
        g.Type(1, c.keys);
        PreCalcFX(g.s);
        const double text = AreaSum(g.s, c.a, c.b, c.dx, 1, EvalPath::Text);
        const double compiled = AreaSum(g.s, c.a, c.b, c.dx, 1, EvalPath::Auto);
        EXPECT_EQ(text, reference(g.s, c.a, c.b, c.dx, 1));
        EXPECT_EQ(compiled, text); // bit for bit
        EXPECT_NE(text, 0.0);
    }
}

TEST(AreaDialog, ChecksTheInputInOrder) {
    struct Case {
        const char* from;
        const char* to;
        const char* step;
        const char* message; // null: the area shows
    } cases[] = {
        {"", "", "", MinRangeNotNumberText},
        {"a", "1", "0.1", MinRangeNotNumberText},
        {"0", "b", "x", MaxRangeNotNumberText},
        {"0", "1,5", "0.1", MaxRangeNotNumberText},
        {"2", "1", "dx", StepNotNumberText}, // the step before the order of the bounds
        {"2", "1", "0.1", MaxBelowMinText},
        {" -1 ", "1e0", ".5", nullptr},
        {"1", "1", "-1", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.from << " | " << c.to << " | " << c.step);
        AreaSession g;
        g.Type(0, "1");
        FillRangeForm form = LoadedForm(g.s);
        form.Text1 = c.from;
        form.Text2 = c.to;
        form.Text3 = c.step;
        form.Text4 = "before";
        frmFillRange_Command3_Click(g.s, form);
        if (c.message) {
            EXPECT_EQ(g.host.Messages(), std::vector<std::string>{c.message});
            EXPECT_EQ(form.Text4, "before");
        } else {
            EXPECT_TRUE(g.host.Messages().empty());
            EXPECT_NE(form.Text4, "before");
        }
        EXPECT_EQ(g.s.MousePointer, g.s.DefaultPointer);
    }
}

TEST(AreaDialog, LoadOffersTheViewOrTheLastBandAndShadingOnlyForOneRow) {
    struct Case {
        const char* second; // keys of row 1
        double shadeFrom, shadeTo;
        const char* text1;
        const char* text2;
        int graphStyle;
    } cases[] = {
        {"", 0, 0, "-20", "20", FillSolid},
        {"", 0, 3.5, "0", "3.5", FillCross},
        {"", -1e-7, 0, "-1E-07", "0", FillDiagonalCross},
        {"1", 0, 0, "-20", "20", FillTransparent},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text1);
        AreaSession g;
        g.Type(0, "x");
        const bool oneRow = *c.second == '\0';
        if (!oneRow) g.Type(1, c.second);
        g.s.ShadeFrom = c.shadeFrom;
        g.s.ShadeTo = c.shadeTo;
        g.s.ShadeColor = "4210752";
        g.s.ActiveSlot = 3;
        g.box.FillStyle = c.graphStyle;
        const FillRangeForm form = LoadedForm(g.s);
        EXPECT_EQ(form.Text1, c.text1);
        EXPECT_EQ(form.Text2, c.text2);
        EXPECT_EQ(form.Text3, "0.1");
        for (int i = 0; i <= 7; ++i)
            EXPECT_EQ(form.Option1[static_cast<std::size_t>(i)], i == c.graphStyle) << i;
        EXPECT_EQ(form.ShapeFillColor, 4210752u);
        // Shading only while one function stands in the first row.
        EXPECT_EQ(form.SliderVisible, !oneRow);
        EXPECT_EQ(form.PictureWide, oneRow);
        EXPECT_EQ(form.SliderMax, oneRow ? 5 : 2);
        EXPECT_EQ(form.Command1Enabled, oneRow);
        EXPECT_EQ(form.Command1Tip, oneRow ? ShadeAreaTip : "");
        EXPECT_EQ(g.s.ActiveSlot, 0);
        EXPECT_EQ(form.PictureColour, Red);
        // Centred on the main window.
        EXPECT_EQ(form.Left, 100 + 380 - 160);
        EXPECT_EQ(form.Top, 50 + 270 - 184);
    }
}

TEST(AreaDialog, SliderPicksAFilledRowOnly) {
    AreaSession g;
    g.Type(0, "x");
    g.Type(2, "1");
    FillRangeForm form = LoadedForm(g.s);
    ASSERT_EQ(form.SliderMax, 3);
    struct Step {
        int value;
        bool redraw;
        int activeSlot;
        Colour colour;
    } steps[] = {
        {2, false, 0, Red},     // row 1 is empty: nothing changes
        {3, true, 2, 0x00C000}, // row 2, in its swatch's colour
        {9, true, 2, 0x00C000}, // held at the maximum, row 2 again
        {1, true, 0, Red},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.value);
        EXPECT_EQ(frmFillRange_Slider1_Change(g.s, form, step.value), step.redraw);
        EXPECT_EQ(g.s.ActiveSlot, step.activeSlot);
        EXPECT_EQ(form.PictureColour, step.colour);
    }
}

TEST(AreaDialog, ZoomButtonsHaveTheirOwnLimits) {
    struct Case {
        double xMin, xMax;
        bool in;
        double xMinAfter;
    } cases[] = {
        {-1, 1, true, -0.5},             // w = 2 still halves
        {-0.5, 0.5, true, -0.5},         // w = 1: nothing
        {0, 1.5, true, 0},               // w = 1.5: nothing, though the view is not tiny
        {-81920, 81920, false, -163840}, // w = 163840 still doubles
        {-81920, 81921, false, -81920},  // beyond: nothing
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.xMin << ".." << c.xMax << (c.in ? " in" : " out"));
        AreaSession g;
        g.Type(0, "x");
        g.s.ViewXMin = c.xMin;
        g.s.ViewXMax = c.xMax;
        g.s.ViewYMin = -4;
        g.s.ViewYMax = 4;
        FillRangeForm form = LoadedForm(g.s);
        form.Text1 = "-2";
        form.Text2 = "junk";
        form.Option1.fill(false);
        form.Option1[5] = true;
        if (c.in)
            frmFillRange_Command5_Click(g.s, form);
        else
            frmFillRange_Command6_Click(g.s, form);
        EXPECT_EQ(g.s.ViewXMin, c.xMinAfter);
        const double factor = c.xMinAfter == c.xMin ? 1 : (c.in ? 0.5 : 2);
        EXPECT_EQ(g.s.ViewYMax, 4 * factor);
        EXPECT_EQ(g.s.AreaAction, AreaZoom);
        EXPECT_EQ(g.s.ShadeFrom, -2);
        EXPECT_EQ(g.s.ShadeTo, 0); // no checks: no number counts 0
        EXPECT_EQ(g.s.ShadeFillStyle, 5);
        EXPECT_EQ(g.box.FillStyle, 5);
        EXPECT_TRUE(form.Unloaded);
        EXPECT_FALSE(g.s.ShadeOn); // the repaint and the shading are mnuShade_Click's
    }
}

TEST(AreaDialog, ReopensWhereItStoodAndClosingForGoodTakesTheShadingAway) {
    AreaSession g;
    g.Type(0, "x");
    RedrawGraph(g.s);
    // What the user does at each showing; the dialog comes back until Close.
    const std::function<void(FillRangeForm&)> user[] = {
        [&](FillRangeForm& f) { frmFillRange_Command6_Click(g.s, f); }, // Zoom Out, no shading
        [&](FillRangeForm& f) {
            f.Left = 333; // moved by the user
            f.Top = 222;
            f.Text1 = "1";
            f.Text2 = "2";
            f.Text3 = "0.5";
            frmFillRange_Command3_Click(g.s, f);
            f.Option1.fill(false);
            f.Option1[6] = true;
            frmFillRange_Command1_Click(g.s, f); // Shade Area
        },
        [&](FillRangeForm& f) { frmFillRange_Command5_Click(g.s, f); }, // Zoom In, shaded
        [&](FillRangeForm& f) { frmFillRange_Command2_Click(g.s, f); }, // Close
    };
    std::vector<FillRangeForm> shown;
    std::vector<bool> shadedAtLoad;
    std::vector<int> paintsAtLoad;
    mnuShade_Click(g.s, [&] {
        ASSERT_LT(shown.size(), std::size(user));
        paintsAtLoad.push_back(g.box.Clears);
        shadedAtLoad.push_back(g.s.ShadeOn);
        FillRangeForm form = LoadedForm(g.s);
        shown.push_back(form);
        user[shown.size() - 1](form);
        EXPECT_TRUE(form.Unloaded);
    });
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shadedAtLoad, (std::vector<bool>{false, false, true, true}));
    EXPECT_EQ(shown[1].Text3, "0.1");
    EXPECT_EQ(shown[1].Text4, "");
    // After Shade Area: position, result and step as they were, the range from the band.
    for (std::size_t i : {2u, 3u}) {
        EXPECT_EQ(shown[i].Left, 333);
        EXPECT_EQ(shown[i].Top, 222);
        EXPECT_EQ(shown[i].Text4, "2.25"); // (1 + 1.5 + 2) * 0.5
        EXPECT_EQ(shown[i].Text3, "0.5");
        EXPECT_EQ(shown[i].Text1, "1");
        EXPECT_EQ(shown[i].Text2, "2");
        EXPECT_TRUE(shown[i].Option1[6]);
    }
    // A repaint before each return, and one after closing for good.
    for (std::size_t i = 1; i < paintsAtLoad.size(); ++i)
        EXPECT_GT(paintsAtLoad[i], paintsAtLoad[i - 1]);
    EXPECT_GT(g.box.Clears, paintsAtLoad.back());
    EXPECT_EQ(g.s.ViewXMax, 20);
    EXPECT_FALSE(g.s.ShadeOn);
    EXPECT_EQ(g.s.AreaAction, AreaClosed);
    // The band stays for the next opening.
    EXPECT_EQ(g.s.ShadeFrom, 1);
    EXPECT_EQ(g.s.ShadeTo, 2);
}

} // namespace
} // namespace vt::test
