// The surfaces of the render layer: the bitmap, the painter beside it (screen, printer, PDF,
// SVG), the picture files and the bundled fonts.

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFontInfo>
#include <QPdfWriter>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <set>

#include "render/Fonts.h"
#include "render/PainterSurface.h"
#include "render/PictureFile.h"
#include "render/RasterSurface.h"
#include "support/QtApp.h"

namespace vt::render {

namespace {

constexpr Colour White = 0xFFFFFF, Black = 0x000000, Red = 0x0000FF, Blue = 0xFF0000;

using Ink = std::set<std::pair<int, int>>;

// The default graph box: 400 px square, -20..20 both ways, y up.
void SetScale(Surface& s, float left = -20, float top = 20, float width = 40, float height = -40) {
    s.ScaleLeft = left, s.ScaleTop = top, s.ScaleWidth = width, s.ScaleHeight = height;
}

// Flood fills in red from a pixel over the white region around it.
void FillFrom(RasterSurface& s, int x, int y, int style = FillSolid) {
    s.FillColor = Red;
    s.FillStyle = style;
    s.ExtFloodFill(x, y, White);
}

// The pixels of a colour, or with `other` of every other colour.
Ink PixelsOf(const QImage& image, Colour colour, bool other = false) {
    Ink out;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((ColourFromQRgb(image.pixel(x, y)) == colour) != other) out.insert({x, y});
    return out;
}
Ink PixelsOf(const RasterSurface& s, Colour colour, bool other = false) {
    return PixelsOf(s.QtImage(), colour, other);
}

// How many pixels of `a` have none of `b` within `reach` pixels.
int StrayPixels(const Ink& a, const Ink& b, int reach) {
    int stray = 0;
    for (const auto& [x, y] : a) {
        bool near = false;
        for (int dy = -reach; dy <= reach; ++dy)
            for (int dx = -reach; dx <= reach; ++dx)
                near = near || b.count({x + dx, y + dy});
        stray += !near;
    }
    return stray;
}

// Prints texts one after another, each at its pixel position, on an entry row in OrlentisFont
// 12 (16 px), and returns every pixel drawn.
Ink PrintOnRow(const std::vector<std::tuple<std::string, float, float>>& prints,
               const char* face = "OrlentisFont") {
    vt::test::QtApp();
    RasterSurface s(289, 41);
    s.FontName = face;
    s.FontSize = 12;
    for (const auto& [text, x, y] : prints) {
        s.CurrentX = x;
        s.CurrentY = y;
        s.Print(text, true);
    }
    return PixelsOf(s, White, true);
}

// Whether the pixels make one piece, touching sideways or at corners.
bool OnePiece(const Ink& ink) {
    if (ink.empty()) return false;
    Ink reached{*ink.begin()};
    std::vector<std::pair<int, int>> pending{*ink.begin()};
    while (!pending.empty()) {
        const auto [x, y] = pending.back();
        pending.pop_back();
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx)
                if (ink.count({x + dx, y + dy}) && reached.insert({x + dx, y + dy}).second)
                    pending.push_back({x + dx, y + dy});
    }
    return reached.size() == ink.size();
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
    // clang-format off
    const std::pair<const char*, std::function<void(RasterSurface&)>> cases[] = {
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

// The same drawing on the bitmap and, through a painter, on an image of the same size: every
// pixel either one inks lies within a pixel of one the other inks, and the pixel picture kept
// beside the painter is the bitmap exactly.
TEST(PainterSurface, DrawsWhereTheBitmapDraws) {
    test::QtApp();
    // clang-format off
    const std::pair<const char*, std::function<void(Surface&)>> cases[] = {
        {"lines", [](Surface& s) {
             s.Line(-20, 0, 20, 0), s.Line(-15, -18, 17, 9), s.DrawWidth = 3;
             s.LineColour(5, 19, 5, -19, Red); }},
        {"far-off line", [](Surface& s) { s.Line(-1e6f, -1e5f, 1e6f, 1e5f); }},
        {"box", [](Surface& s) { s.Line(-10, 10, 12, -7, true); }},
        {"filled boxes", [](Surface& s) {
             s.FillColor = Blue;
             for (int style = FillSolid; style <= FillDiagonalCross; ++style)
                 s.FillStyle = style, s.Line(-20 + 5 * style, 10, -16 + 5 * style, -10, true, true); }},
        {"circle", [](Surface& s) { s.FillStyle = FillCross, s.FillColor = Red, s.Circle(3, -4, 9, Blue); }},
        {"flood fill", [](Surface& s) {
             s.Line(-10, 10, 10, -10, true), s.FillStyle = FillSolid, s.FillColor = Red;
             s.ExtFloodFill(200, 200, White); }},
        {"hatched flood fill", [](Surface& s) {
             s.Circle(0, 0, 8, 0), s.FillStyle = FillDiagonalCross, s.FillColor = Blue;
             s.ExtFloodFill(200, 200, White); }},
        {"text", [](Surface& s) {
             s.CurrentX = -18, s.CurrentY = 15, s.Print("f(x) = 2x + 1");
             s.FontName = "OrlentisFont", s.FontSize = 12, s.Print("y = 3", true), s.Print("0.5"); }}};
    // clang-format on
    for (const auto& [name, draw] : cases) {
        RasterSurface bitmap(400, 400);
        SetScale(bitmap);
        draw(bitmap);

        QImage image(400, 400, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PainterSurface vector(painter, 400, 400, QRectF(0, 0, 400, 400));
        vector.SmoothText = false;
        SetScale(vector);
        draw(vector);
        painter.end();

        EXPECT_EQ(vector.Pixels().QtImage(), bitmap.QtImage()) << name;
        EXPECT_EQ(vector.CurrentX, bitmap.CurrentX) << name;
        EXPECT_EQ(vector.CurrentY, bitmap.CurrentY) << name;
        // Text glyphs are rasterised differently at their edges; shapes agree to the pixel.
        const int reach = std::string(name) == "text" ? 2 : 1;
        const Ink painted = PixelsOf(image, White, true), drawn = PixelsOf(bitmap, White, true);
        EXPECT_EQ(StrayPixels(painted, drawn, reach), 0) << name << ": painter only";
        EXPECT_EQ(StrayPixels(drawn, painted, reach), 0) << name << ": bitmap only";
    }
}

// A printer or PDF gets a page per NewPage, and each page starts blank.
TEST(PainterSurface, NewPageStartsABlankPage) {
    test::QtApp();
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    QPainter painter(&writer);
    PainterSurface page(painter, 400, 400, QRectF(0, 0, writer.width(), writer.width()));
    SetScale(page);
    page.Line(-5, -5, 5, 5, true, false);
    page.CurrentX = 3;
    page.NewPage();
    EXPECT_EQ(page.Pixels().QtImage(), RasterSurface(400, 400).QtImage());
    page.Line(-5, -5, 5, 5);
    painter.end();
    const QByteArray bytes = pdf.data();
    EXPECT_EQ(bytes.count("/Type /Page\n") + bytes.count("/Type /Page\r"), 2);
}

TEST(PictureFile, ChoosesTheFormat) {
    using F = PictureFormat;
    const std::vector<F> all = {F::Png, F::Bmp, F::Svg, F::Pdf};
    const std::tuple<const char*, const char*, std::optional<F>> cases[] = {
        {"g.BMP", "", F::Bmp}, {"a.b/g.svg", "", F::Svg}, {"g.pdf", "svg", F::Svg},
        {"g", "PNG", F::Png},  {"g.jpg", "", {}},         {"g.png", "gif", {}}};
    for (const auto& [file, format, expected] : cases)
        EXPECT_EQ(PictureFormatFor(file, format, all), expected) << file << " " << format;
    EXPECT_EQ(PictureFormatFor("g.svg", "", {F::Png, F::Bmp}), std::nullopt);
    EXPECT_EQ(PictureFormatList({F::Png, F::Svg, F::Pdf}), "png, svg or pdf");

    for (const auto& [text, scale] : std::initializer_list<std::pair<const char*, int>>{
             {"1", 1}, {"8", 8}, {"3", 3}, {"0", 0}, {"9", 0}, {"2.5", 0}, {"x", 0}, {"", 0}})
        EXPECT_EQ(PictureScaleFrom(text).value_or(0), scale) << text;
}

// A file that can't be opened is reported, for every format, and drawing on it is harmless.
TEST(PictureFile, ReportsAFileItCannotWrite) {
    test::QtApp();
    using F = PictureFormat;
    for (const auto& [format, scale] :
         {std::pair(F::Png, 1), {F::Bmp, 2}, {F::Svg, 1}, {F::Pdf, 1}}) {
        PictureFile picture("/nonexistent-folder/g.out", format, 50, 40, scale);
        Surface& s = picture.SurfaceAt(0, 0, 50, 40);
        s.Line(0, 0, 49, 39);
        s.Print("text");
        std::string error;
        EXPECT_FALSE(picture.Finish(error));
        EXPECT_NE(error.find("could not write"), std::string::npos);
    }
}

TEST(BundledFonts, StandForTheFacesTheProgramNames) {
    vt::test::QtApp();
    LoadBundledFonts();
    // {face as the program names it, bold, the bundled family that must draw it}
    // clang-format off
    const std::tuple<const char*, bool, const char*> cases[] = {
        {"OrlentisFont", false, "OrlentisFont"}, {"ms sans serif", false, "Veritrace Sans"},
        {"Courier", true, "Veritrace Mono"}, {"Courier", false, "Veritrace Mono"},
        {"Book Antiqua", false, "Veritrace Serif"}};
    // clang-format on
    for (auto [name, bold, family] : cases) {
        const QFontInfo info(FontFor(name, 12, bold));
        EXPECT_EQ(info.family().toStdString(), family) << name;
        EXPECT_EQ(info.bold(), bold) << name;
    }
    // Points at 96 dots per inch, whole pixels.
    for (auto [points, pixels] : {std::pair{12.0f, 16}, {8.25f, 11}, {16.0f, 21}, {0.0f, 1}})
        EXPECT_EQ(FontFor("Courier", points).pixelSize(), pixels) << points;
}

TEST(OrlentisFont, DrawsItsEquationGlyphsAndOtherwiseTheBaseFont) {
    // "Book Antiqua" stands in as the unchanged serif that the equation font is made from.
    const std::pair<const char*, bool> cases[] = {{"~", true}, {"&", true},  {"_", true},
                                                  {"`", true}, {"x", false}, {"(", false}};
    for (auto [text, own] : cases) {
        const Ink equation = PrintOnRow({{text, 10, 10}});
        EXPECT_FALSE(equation.empty()) << text;
        EXPECT_EQ(equation != PrintOnRow({{text, 10, 10}}, "Book Antiqua"), own) << text;
    }
}

TEST(OrlentisFont, PiecesJoinAtTheTypesettersOffsets) {
    // A root whose text starts at (30, 11): overbar of rules 18 higher from 36; the plain sign
    // 2 left and 2 up; the tall sign ("&" 9 up and 2 right, then "~" 16 lower at the pen less
    // 14) under an overbar 25 higher. The rule is 0.5 em, "&" 0.625 em: 8 and 10 px.
    const Ink bar = PrintOnRow({{"_", 36, -7}, {"_", 44, -7}, {"_", 52, -7}});
    EXPECT_TRUE(OnePiece(bar));
    EXPECT_EQ(bar.size(), 24u);
    EXPECT_TRUE(OnePiece(PrintOnRow({{"_", 36, -7}, {"_", 44, -7}, {"~", 28, 9}})));
    const Ink tall = PrintOnRow({{"_", 36, -14}, {"_", 44, -14}, {"&", 32, 2}, {"~", 28, 18}});
    EXPECT_TRUE(OnePiece(tall));
    const auto [top, bottom] = std::minmax_element(
        tall.begin(), tall.end(), [](auto a, auto b) { return a.second < b.second; });
    EXPECT_LE(top->second, 6);
    EXPECT_GE(bottom->second, 11 + 19); // down to the text line under the fraction

    // At 12 pt a space is 5 px: the typesetter pads a fraction's narrower side with one space
    // for each 10 px of difference, so half of it stands on either side.
    RasterSurface row(289, 41);
    row.FontName = "OrlentisFont";
    row.FontSize = 12;
    EXPECT_EQ(std::tuple(row.TextWidth(" "), row.TextWidth("_"), row.TextWidth("&")),
              std::tuple(5.0f, 8.0f, 10.0f));
}

} // namespace vt::render
