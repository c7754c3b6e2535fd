#include <gtest/gtest.h>

#include <functional>

#include "analysis/Area.h"
#include "analysis/EvalFX.h"
#include "base/NumberText.h"
#include "plot/Painter.h"
#include "plot/PlotTesting.h"

namespace vt::test {
namespace {

// The form as the window hands it to the load, from a main window at 100, 50 sized 760 by 540:
// its size set, the rest as designed.
FillRangeForm LoadedForm(Session& s) {
    FillRangeForm form;
    std::tie(form.Width, form.Height) = std::tuple(320, 368);
    frmFillRange_Load(s, form, {100, 50, 760, 540});
    return form;
}

// The range typed and, when given, the fill style chosen.
void Fill(FillRangeForm& form, const char* from, const char* to, const char* step, int style = -1) {
    std::tie(form.Text1, form.Text2, form.Text3) = std::tuple(from, to, step);
    if (style < 0) return;
    form.Option1.fill(false);
    form.Option1[static_cast<std::size_t>(style)] = true;
}

std::string FormTexts(const FillRangeForm& f) {
    return f.Text1 + "|" + f.Text2 + "|" + f.Text3 + "|" + f.Text4;
}

TEST(AreaSum, RectanglesAtFullWeightWithBothEnds) {
    // Eleven samples on 0..1, not ten. Signed: the halves of x cancel. a = b is one sample,
    // f(a) * dx. A negative step runs no loop: one rectangle at b with the step. x drifts to
    // 0.30000000000000004, so b counts once more, and at 2.3 makes 24 samples, not 23; 0.9 is
    // reached by the loop itself. No value (below 0, at 0) is height 0 and no message. Two
    // decimals at least, four at most.
    // clang-format off
    const char* cases[][5] = {
        {"1", "0", "1", "0.1", "1.10"}, {"x", "-1", "1", "0.5", "0.00"},
        {"2x", "3", "3", "0.5", "3.00"}, {"1", "0", "1", "-0.5", "-0.50"},
        {"1", "0", "0.3", "0.1", "0.40"}, {"1", "0", "2.3", "0.1", "2.40"},
        {"1", "0", "0.9", "0.1", "1.00"}, {"~x", "-1", "1", "0.5", "0.8536"},
        {"1/x", "-1", "1", "1", "0.00"}, {"2.5", "0", "4", "1", "12.50"},
        {"0.123456", "2", "2", "1", "0.1235"}};
    // clang-format on
    for (const auto& [keys, from, to, step, area] : cases) {
        SCOPED_TRACE(std::string(keys) + " from " + from + " to " + to + " by " + step);
        PlotSession g({keys});
        const AreaOutcome outcome = CalculateArea(g.s, from, to, step, 0);
        EXPECT_EQ(std::tuple(outcome.Check, outcome.Text, g.host.Calls.size()),
                  std::tuple(AreaCheck::Ok, area, 0u));
    }
}

TEST(AreaSum, CompiledRouteGivesWhatTheTextRouteGives) {
    // The reference: the number in CalculateYArea's text, summed exactly as the loop does.
    const auto reference = [](Session& s, double a, double b, double dx) {
        double area = 0, x = a;
        s.Evaluator.SetStrategy(EvalStrategy::Text);
        for (; x <= b; x += dx)
            area += PrefixNumber(CalculateYArea(s, x, 1)) * dx;
        if (b >= PrefixNumber(NumberText(x))) area += PrefixNumber(CalculateYArea(s, b, 1)) * dx;
        s.Evaluator.SetStrategy(EvalStrategy::Compiled);
        return area;
    };
    // clang-format off
    const std::tuple<const char*, double, double, double> cases[] = {
        {"2x^2+S(x)", -20, 20, 0.01}, {"1/x", -3, 3, 0.001}, {"~x", -2, 5, 0.003},
        {"T(x)", -10, 10, 0.01}, {"|x-3|*C(x)", -7.5, 7.5, 0.0137},
        {"x^3-2x/7", -1e-3, 1e-3, 1e-6}};
    // clang-format on
    for (const auto& [keys, a, b, dx] : cases) {
        SCOPED_TRACE(keys);
        PlotSession g({"", keys});
        PreCalcFX(g.s);
        const double text = ByText(g.s, [&] { return AreaSum(g.s, a, b, dx, 1); });
        EXPECT_EQ(text, reference(g.s, a, b, dx));
        EXPECT_EQ(AreaSum(g.s, a, b, dx, 1), text); // bit for bit
        EXPECT_NE(text, 0.0);
    }
}

TEST(AreaDialog, ChecksTheInputInOrder) {
    // The step is checked before the order of the bounds; a null message: the area shows.
    // clang-format off
    const char* cases[][4] = {
        {"", "", "", MinRangeNotNumberText}, {"a", "1", "0.1", MinRangeNotNumberText},
        {"0", "b", "x", MaxRangeNotNumberText}, {"0", "1,5", "0.1", MaxRangeNotNumberText},
        {"2", "1", "dx", StepNotNumberText}, {"2", "1", "0.1", MaxBelowMinText},
        {" -1 ", "1e0", ".5", nullptr}, {"1", "1", "-1", nullptr}};
    // clang-format on
    for (const auto& [from, to, step, message] : cases) {
        SCOPED_TRACE(std::string(from) + " | " + to + " | " + step);
        PlotSession g({"1"});
        FillRangeForm form = LoadedForm(g.s);
        Fill(form, from, to, step);
        form.Text4 = "before";
        frmFillRange_Command3_Click(g.s, form);
        EXPECT_EQ(
            std::tuple(g.host.Messages(), form.Text4 == "before", g.s.MousePointer),
            std::tuple(message ? Texts{message} : Texts{}, message != nullptr, g.s.DefaultPointer));
    }
}

TEST(AreaDialog, LoadOffersTheViewOrTheLastBandAndShadingOnlyForOneRow) {
    // {keys of row 1, the band, the range offered, the graph box's fill style}
    // clang-format off
    const std::tuple<const char*, double, double, std::string, int> cases[] = {
        {"", 0, 0, "-20|20", FillSolid}, {"", 0, 3.5, "0|3.5", FillCross},
        {"", -1e-7, 0, "-0.0000001|0", FillDiagonalCross}, {"1", 0, 0, "-20|20", FillTransparent}};
    // clang-format on
    for (const auto& [second, shadeFrom, shadeTo, range, graphStyle] : cases) {
        SCOPED_TRACE(range);
        PlotSession g({"x", second});
        const bool oneRow = *second == '\0';
        std::tie(g.s.ShadeFrom, g.s.ShadeTo, g.s.ShadeColor) =
            std::tuple(shadeFrom, shadeTo, "4210752");
        std::tie(g.s.ActiveSlot, g.box.FillStyle) = std::tuple(3, graphStyle);
        const FillRangeForm form = LoadedForm(g.s);
        EXPECT_EQ(FormTexts(form), range + "|0.1|");
        for (int i = 0; i <= 7; ++i)
            EXPECT_EQ(form.Option1[static_cast<std::size_t>(i)], i == graphStyle) << i;
        // Shading only while one function stands in the first row; centred on the main window.
        EXPECT_EQ(std::tuple(form.SliderVisible, form.PictureWide, form.Command1Enabled,
                             form.SliderMax, form.Command1Tip),
                  std::tuple(!oneRow, oneRow, oneRow, oneRow ? 5 : 2, oneRow ? ShadeAreaTip : ""));
        EXPECT_EQ(std::tuple(form.ShapeFillColor, g.s.ActiveSlot, form.PictureColour, form.Left,
                             form.Top),
                  std::tuple(4210752u, 0, Red, 100 + 380 - 160, 50 + 270 - 184));
    }
    // The slider passes over an empty row; a filled row shows in its swatch's colour, also when
    // the slider is held at the maximum. {slider value, redrawn, the active row, the colour}
    PlotSession g({"x", "", "1"});
    FillRangeForm form = LoadedForm(g.s);
    ASSERT_EQ(form.SliderMax, 3);
    const std::tuple<int, bool, int, Colour> steps[] = {
        {2, false, 0, Red}, {3, true, 2, 0x00C000}, {9, true, 2, 0x00C000}, {1, true, 0, Red}};
    for (const auto& [value, redraw, activeSlot, colour] : steps) {
        EXPECT_EQ(frmFillRange_Slider1_Change(g.s, form, value), redraw) << value;
        EXPECT_EQ(std::tuple(g.s.ActiveSlot, form.PictureColour), std::tuple(activeSlot, colour));
    }
}

TEST(AreaDialog, ZoomButtonsHaveTheirOwnLimits) {
    // {x min, x max, zoom in, x min after}. In: a width of 2 still halves; 1 does not, nor 1.5,
    // though the view is not tiny. Out: a width of 163840 still doubles; beyond, nothing.
    // clang-format off
    const std::tuple<double, double, bool, double> cases[] = {
        {-1, 1, true, -0.5}, {-0.5, 0.5, true, -0.5}, {0, 1.5, true, 0},
        {-81920, 81920, false, -163840}, {-81920, 81921, false, -81920}};
    // clang-format on
    for (const auto& [xMin, xMax, in, xMinAfter] : cases) {
        SCOPED_TRACE(testing::Message() << xMin << ".." << xMax << (in ? " in" : " out"));
        PlotSession g({"x"});
        g.SetView({xMin, xMax, -4, 4});
        FillRangeForm form = LoadedForm(g.s);
        Fill(form, "-2", "junk", "0.1", 5);
        (in ? frmFillRange_Command5_Click : frmFillRange_Command6_Click)(g.s, form);
        EXPECT_EQ(std::tuple(g.s.ViewXMin, g.s.ViewYMax, g.s.AreaAction),
                  std::tuple(xMinAfter,
                             xMinAfter == xMin ? 4
                             : in              ? 2
                                               : 8,
                             AreaZoom));
        // The band as typed, unchecked: no number counts 0. The repaint and the shading are
        // mnuShade_Click's.
        EXPECT_EQ(std::tuple(g.s.ShadeFrom, g.s.ShadeTo, g.s.ShadeFillStyle, g.box.FillStyle,
                             form.Unloaded, g.s.ShadeOn),
                  std::tuple(-2.0, 0.0, 5, 5, true, false));
    }
}

TEST(AreaDialog, ReopensWhereItStoodAndClosingForGoodTakesTheShadingAway) {
    PlotSession g({"x"});
    RedrawGraph(g.s);
    // What the user does at each showing: Zoom Out without shading; move the dialog,
    // Calculate and Shade Area; Zoom In, shaded; Close. The dialog comes back until Close.
    const std::function<void(FillRangeForm&)> user[] = {
        [&](FillRangeForm& f) { frmFillRange_Command6_Click(g.s, f); },
        [&](FillRangeForm& f) {
            std::tie(f.Left, f.Top) = std::tuple(333, 222);
            Fill(f, "1", "2", "0.5");
            frmFillRange_Command3_Click(g.s, f);
            Fill(f, "1", "2", "0.5", 6);
            frmFillRange_Command1_Click(g.s, f);
        },
        [&](FillRangeForm& f) { frmFillRange_Command5_Click(g.s, f); },
        [&](FillRangeForm& f) { frmFillRange_Command2_Click(g.s, f); }};
    std::vector<FillRangeForm> shown;
    std::vector<int> paintsAtLoad;
    std::string shadedAtLoad;
    mnuShade_Click(g.s, [&] {
        ASSERT_LT(shown.size(), 4u);
        paintsAtLoad.push_back(g.box.Clears);
        shadedAtLoad += g.s.ShadeOn ? 'y' : 'n';
        FillRangeForm form = LoadedForm(g.s);
        shown.push_back(form);
        user[shown.size() - 1](form);
        EXPECT_TRUE(form.Unloaded);
    });
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shadedAtLoad, "nnyy");
    // Before Shade Area the step is the default and there is no result; after it, position,
    // result and step are as they were, the range from the band: (1 + 1.5 + 2) * 0.5.
    EXPECT_EQ(shown[1].Text3 + "|" + shown[1].Text4, "0.1|");
    for (std::size_t i : {2u, 3u})
        EXPECT_EQ(std::tuple(shown[i].Left, shown[i].Top, FormTexts(shown[i]), shown[i].Option1[6]),
                  std::tuple(333, 222, "1|2|0.5|2.25", true));
    // A repaint before each return, and one after closing for good.
    for (std::size_t i = 1; i < paintsAtLoad.size(); ++i)
        EXPECT_GT(paintsAtLoad[i], paintsAtLoad[i - 1]);
    EXPECT_GT(g.box.Clears, paintsAtLoad.back());
    // The band stays for the next opening.
    EXPECT_EQ(std::tuple(g.s.ViewXMax, g.s.ShadeOn, g.s.AreaAction, g.s.ShadeFrom, g.s.ShadeTo),
              std::tuple(20.0, false, AreaClosed, 1.0, 2.0));
}

// A row's two labels as "left|value".
std::string Shown(const EvalFXForm& form, std::size_t row) {
    return form.Label2[row] + "|" + form.Label3[row];
}

TEST(EvalFX, CalculateFillsTheRowsThatHaveAValue) {
    // {rows 0 and 1, x as typed, rows 0 and 1 shown after Calculate, the message}. x is checked
    // as a number, evaluated as one and shown as typed; no value shows "NA" without a message.
    const char* cases[][6] = {{"2x+1", "", "2", "f(2) =|5", "f(x) =|", nullptr},
                              {"2x+1", "", "1e2", "f(1e2) =|201", "f(x) =|", nullptr},
                              {"1/x", "x", "0", "f(0) =|NA", "f(0) =|0", nullptr},
                              {"x", "", " -.5 ", "f( -.5 ) =|-0.5", "f(x) =|", nullptr},
                              {"2x+1", "", "", "f(x) =|", "f(x) =|", XNotNumberText},
                              {"2x+1", "", "2a", "f(x) =|", "f(x) =|", XNotNumberText}};
    for (const auto& [row0, row1, x, shown0, shown1, message] : cases) {
        SCOPED_TRACE(testing::Message() << row0 << " at '" << x << "'");
        PlotSession g({row0, row1});
        EvalFXForm form;
        frmEvalFX_Load(g.s, form);
        // The slider shows only with more than the first row filled.
        EXPECT_EQ(std::tuple(form.SliderVisible, form.PictureColour),
                  std::tuple(*row1 != '\0', Red));
        form.Text1 = x;
        frmEvalFX_Command1_Click(g.s, form);
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_EQ(std::tuple(Shown(form, i), form.Label3Visible[i]),
                      std::tuple(i == 0   ? shown0
                                 : i == 1 ? shown1
                                          : "f(x) =|",
                                 !form.Label3[i].empty()))
                << i;
        EXPECT_EQ(g.host.Messages(), message ? Texts{message} : Texts{});
    }
}

TEST(EvalFX, ARowThatLosesItsFunctionKeepsItsLabelAndShowsNoValue) {
    PlotSession g({"x", "3"});
    EvalFXForm form;
    frmEvalFX_Load(g.s, form);
    form.Text1 = "4";
    frmEvalFX_Command1_Click(g.s, form);
    ASSERT_EQ(form.Label3[1], "3");
    for (int i = 0; i <= CellUpper; ++i)
        g.s.GraphableCells(i, 1).clear();
    form.Text1 = "5";
    frmEvalFX_Command1_Click(g.s, form);
    EXPECT_EQ(std::tuple(Shown(form, 0), Shown(form, 1), form.Label3Visible[1]),
              std::tuple("f(5) =|5", "f(4) =|", true));
}

} // namespace
} // namespace vt::test
