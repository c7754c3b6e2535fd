#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <set>

#include "render/RasterSurface.h"
#include "support/QtApp.h"

namespace vt::render {

namespace {

constexpr Colour White = 0xFFFFFF;
constexpr Colour Black = 0x000000;
constexpr Colour Red = 0x0000FF;

// The default graph box: 400 px square, -20..20 both ways, y up.
void SetScale(Surface& s, float left = -20, float top = 20, float width = 40, float height = -40) {
    s.ScaleLeft = left;
    s.ScaleTop = top;
    s.ScaleWidth = width;
    s.ScaleHeight = height;
}

// Flood fills in red from a pixel over the white region around it.
void FillFrom(RasterSurface& s, int x, int y, int style = FillSolid) {
    s.FillColor = Red;
    s.FillStyle = style;
    s.ExtFloodFill(x, y, White);
}

std::set<std::pair<int, int>> PixelsOf(const RasterSurface& s, Colour colour) {
    std::set<std::pair<int, int>> out;
    const PixelImage image = s.Image();
    for (int y = 0; y < image.Height; ++y)
        for (int x = 0; x < image.Width; ++x)
            if (image.At(x, y) == colour) out.insert({x, y});
    return out;
}

} // namespace

TEST(RasterSurfaceScale, MapsUserPointsToPixels) {
    // {scale left, top, width, height; a point; its pixel}; the last in twips.
    // clang-format off
    using Pixel = std::pair<long long, long long>;
    const std::tuple<std::array<float, 4>, float, float, Pixel> cases[] = {
        {{-20, 20, 40, -40}, 0, 0, {200, 200}}, {{-20, 20, 40, -40}, -20, 20, {0, 0}},
        {{-20, 20, 40, -40}, 20, -20, {400, 400}}, {{-20, 20, 40, -40}, 0.05f, -0.05f, {201, 201}},
        {{-20, 20, 40, -40}, -0.06f, 0.06f, {199, 199}}, {{0, 0, 400, 400}, 10, 3.8f, {10, 4}},
        {{0, 0, 6000, 6000}, 150, 3000, {10, 200}}};
    // clang-format on
    for (const auto& [scale, x, y, pixel] : cases) {
        RasterSurface s(400, 400);
        SetScale(s, scale[0], scale[1], scale[2], scale[3]);
        long long column = -1, row = -1;
        ASSERT_TRUE(s.PixelOf(x, y, column, row));
        EXPECT_EQ(std::pair(column, row), pixel) << x << "," << y;
    }
}

TEST(RasterSurfaceLine, GraphAxesLandOnTheOriginPixels) {
    // {pen width, vertical, the columns (rows) it covers}
    // clang-format off
    const std::tuple<int, bool, std::set<int>> cases[] = {
        {1, true, {200}}, {2, true, {199, 200}}, {3, true, {199, 200, 201}},
        {2, false, {199, 200}}};
    // clang-format on
    for (const auto& [width, vertical, across] : cases) {
        RasterSurface s(400, 400);
        SetScale(s);
        s.DrawWidth = width;
        vertical ? s.Line(0, 10, 0, -10) : s.Line(-10, 0, 10, 0);
        std::set<int> seenAcross, along;
        for (auto [x, y] : PixelsOf(s, Black)) {
            seenAcross.insert(vertical ? x : y);
            along.insert(vertical ? y : x);
        }
        EXPECT_EQ(seenAcross, across) << width;
        // Pixels 100 to 300 less the last; a wide brush reaches a little beyond both ends.
        EXPECT_EQ(*along.begin(), 100 - width / 2);
        EXPECT_EQ(*along.rbegin(), 299 + (width - 1 - width / 2));
    }
}

TEST(RasterSurfaceLine, CoversOnePixelPerStepAndLeavesOutTheLast) {
    const int cases[][4] = {{2, 2, 9, 2},  {2, 2, 2, 9}, {2, 2, 9, 5}, {9, 5, 2, 2},
                            {3, 1, 5, 12}, {8, 8, 1, 1}, {1, 1, 5, 3}, {4, 4, 4, 4}};
    for (auto [x1, y1, x2, y2] : cases) {
        RasterSurface s(16, 16), back(16, 16);
        s.Line(x1, y1, x2, y2);
        back.Line(x2, y2, x1, y1);
        auto ink = PixelsOf(s, Black);
        auto backInk = PixelsOf(back, Black);
        const std::size_t steps = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
        EXPECT_EQ(ink.size(), steps) << x1 << "," << y1 << "-" << x2 << "," << y2;
        EXPECT_EQ(ink.count({x1, y1}), steps > 0 ? 1u : 0u);
        EXPECT_EQ(ink.count({x2, y2}), 0u);
        // A line and its reverse differ only in the end they leave out.
        if (steps > 0) ink.insert({x2, y2}), backInk.insert({x1, y1});
        EXPECT_EQ(ink, backInk);
    }
}

TEST(RasterSurfaceXor, DrawingTwiceRestoresTheImage) {
    using Draw = std::function<void(RasterSurface&)>;
    // clang-format off
    const std::pair<const char*, Draw> cases[] = {
        {"thin line", [](RasterSurface& s) { s.Line(-19, -15, 17, 12); }},
        {"wide line", [](RasterSurface& s) { s.DrawWidth = 4, s.Line(-19, 15, 17, -3); }},
        {"from far off", [](RasterSurface& s) { s.Line(-1e6f, -2e6f, 1e6f, 2e6f); }},
        {"wide box", [](RasterSurface& s) { s.DrawWidth = 3, s.Line(-5, -5, 8, 9, true); }},
        {"hatched box", [](RasterSurface& s) { s.FillStyle = FillDiagonalCross, s.Line(-5, -5, 8, 9, true, true); }},
        {"filled circle", [](RasterSurface& s) { s.FillStyle = FillSolid, s.Circle(2, 3, 6, Red); }},
        {"LineColour", [](RasterSurface& s) { s.LineColour(-20, 20, 20, -20, 0x123456); }}};
    // clang-format on
    for (const auto& [what, draw] : cases) {
        RasterSurface s(400, 400);
        SetScale(s);
        s.ForeColor = 0x8040C0;
        s.FillColor = 0x30A050;
        for (int n = -20; n <= 20; n += 3)
            s.LineColour(n, -20, n, 20, Red * (n & 1));
        const PixelImage before = s.Image();
        s.DrawMode = DrawXorPen;
        draw(s);
        EXPECT_NE(s.Image().Pixels, before.Pixels) << what << " drew nothing";
        draw(s);
        EXPECT_EQ(s.Image().Pixels, before.Pixels) << what;
    }
}

TEST(RasterSurfaceFloodFill, FillsExactlyTheConnectedRegionOfOneColour) {
    // {wall colour, start x, start y, pixels filled}; the box's inside is 9 by 14 pixels.
    // clang-format off
    const std::tuple<Colour, int, int, std::size_t> cases[] = {
        {0xFFFFFE, 15, 15, 9u * 14}, {Black, 15, 15, 9u * 14}, {0xFEFFFF, 15, 15, 9u * 14},
        {Black, 10, 10, 0}, {Black, -1, 15, 0}};
    // clang-format on
    for (auto [wall, x, y, count] : cases) {
        RasterSurface s(40, 40);
        s.ForeColor = wall;
        s.Line(10, 10, 20, 25, true);
        FillFrom(s, x, y);
        const auto filled = PixelsOf(s, Red);
        EXPECT_EQ(filled.size(), count) << std::hex << wall << " " << x << "," << y;
        for (auto [fx, fy] : filled)
            EXPECT_TRUE(fx > 10 && fx < 20 && fy > 10 && fy < 25);
    }
    // A diagonal wall holds: regions are 4-connected. The corner above it has 9 + 8 + ... + 1.
    RasterSurface s(40, 40);
    s.Line(30, 0, 40, 10);
    FillFrom(s, 39, 0);
    EXPECT_EQ(PixelsOf(s, Red).size(), 45u);
}

TEST(RasterSurfaceFloodFill, HatchStylesDrawTheirPatternsAlignedToTheImage) {
    // {style, hatch pixels in each 8 by 8 tile, a step along a hatch line (none for crosses)}
    const std::tuple<int, std::size_t, int, int> cases[] = {
        {FillSolid, 64, 1, 0},          {FillTransparent, 0, 0, 0},
        {FillHorizontalLine, 8, 1, 0},  {FillVerticalLine, 8, 0, 1},
        {FillUpwardDiagonal, 8, 1, -1}, {FillDownwardDiagonal, 8, 1, 1},
        {FillCross, 15, 0, 0},          {FillDiagonalCross, 14, 0, 0}};
    for (auto [style, perTile, stepX, stepY] : cases) {
        RasterSurface s(32, 32);
        FillFrom(s, 5, 7, style);
        const auto hatch = PixelsOf(s, Red);
        EXPECT_EQ(hatch.size(), perTile * 16) << "style " << style;
        EXPECT_EQ(PixelsOf(s, White).size(), 32u * 32 - hatch.size()) << "gaps keep their colour";
        for (auto [x, y] : hatch) {
            const int nx = x + stepX, ny = y + stepY;
            if ((stepX || stepY) && nx >= 0 && nx < 32 && ny >= 0 && ny < 32) {
                EXPECT_EQ(hatch.count({nx, ny}), 1u) << "style " << style;
            }
        }
        // A smaller region started elsewhere gets its lines where the whole image has them.
        RasterSurface part(32, 32);
        part.Line(9, 3, 22, 27, true);
        FillFrom(part, 15, 15, style);
        for (auto pixel : PixelsOf(part, Red))
            EXPECT_EQ(hatch.count(pixel), 1u);
    }
}

TEST(RasterSurfaceText, PrintMovesThePenAndMeasuresFollowTheScaleSign) {
    vt::test::QtApp();
    // {scale left, top, width, height, keep the line}; the pen starts at pixel 50, 25.
    // clang-format off
    const std::tuple<float, float, float, float, bool> cases[] = {
        {0, 0, 200, 100, true}, {0, 0, 200, 100, false}, {-20, 20, 40, -40, false},
        {-20, 20, 40, -40, true}, {10, 0, -20, 10, true}};
    // clang-format on
    for (auto [left, top, width, height, keepLine] : cases) {
        RasterSurface s(200, 100);
        SetScale(s, left, top, width, height);
        s.FontName = "MS Sans Serif";
        s.FontSize = 8.25f;
        s.ForeColor = Red;
        const float x0 = left + width / 4, y0 = top + height / 4;
        s.CurrentX = x0;
        s.CurrentY = y0;
        const float textWidth = s.TextWidth("-20"), textHeight = s.TextHeight("-20");
        EXPECT_GT(textWidth * width, 0.0f);
        EXPECT_GT(textHeight * height, 0.0f);
        s.Print("-20", keepLine);
        EXPECT_FLOAT_EQ(s.CurrentX, keepLine ? x0 + textWidth : left);
        EXPECT_FLOAT_EQ(s.CurrentY, keepLine ? y0 : y0 + textHeight);
        // The pen was the text cell's top left: the ink lies inside the cell, in the fore
        // colour only (no smoothing), on a transparent background.
        const auto ink = PixelsOf(s, Red);
        EXPECT_FALSE(ink.empty());
        EXPECT_EQ(ink.size() + PixelsOf(s, White).size(), 200u * 100);
        const float cellWidth = textWidth * 200 / width, cellHeight = textHeight * 100 / height;
        for (auto [x, y] : ink)
            EXPECT_TRUE(x >= 50 && x < 50 + cellWidth && y >= 25 && y < 25 + cellHeight);
    }
}

} // namespace vt::render
