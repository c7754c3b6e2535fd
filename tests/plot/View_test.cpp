#include <gtest/gtest.h>

#include "plot/Painter.h"
#include "plot/PlotTesting.h"
#include "plot/View.h"

namespace vt::test {
namespace {

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

} // namespace
} // namespace vt::test
