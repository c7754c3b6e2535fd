#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>

#include "render/PainterSurface.h"
#include "render/PictureFile.h"
#include "support/QtApp.h"

namespace vt::render {

namespace {

constexpr Colour White = 0xFFFFFF;
constexpr Colour Red = 0x0000FF;
constexpr Colour Blue = 0xFF0000;

void GraphScale(Surface& s) {
    s.ScaleLeft = -20;
    s.ScaleTop = 20;
    s.ScaleWidth = 40;
    s.ScaleHeight = -40;
}

// Not white: drawn on.
bool Inked(QRgb rgb) {
    return (rgb & 0xFFFFFFu) != 0xFFFFFFu;
}

// How many inked pixels of `a` have no inked pixel of `b` within `reach` pixels.
int StrayPixels(const QImage& a, const QImage& b, int reach) {
    int stray = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            if (!Inked(a.pixel(x, y))) continue;
            bool near = false;
            for (int dy = -reach; dy <= reach && !near; ++dy)
                for (int dx = -reach; dx <= reach && !near; ++dx) {
                    const int bx = x + dx, by = y + dy;
                    near = bx >= 0 && by >= 0 && bx < b.width() && by < b.height() &&
                           Inked(b.pixel(bx, by));
                }
            if (!near) ++stray;
        }
    return stray;
}

} // namespace

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
        GraphScale(bitmap);
        draw(bitmap);

        QImage image(400, 400, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PainterSurface vector(painter, 400, 400, QRectF(0, 0, 400, 400));
        vector.SmoothText = false;
        GraphScale(vector);
        draw(vector);
        painter.end();

        EXPECT_EQ(vector.Pixels().QtImage(), bitmap.QtImage()) << name;
        EXPECT_EQ(vector.CurrentX, bitmap.CurrentX) << name;
        EXPECT_EQ(vector.CurrentY, bitmap.CurrentY) << name;
        // Text glyphs are rasterised differently at their edges; shapes agree to the pixel.
        const int reach = std::string(name) == "text" ? 2 : 1;
        EXPECT_EQ(StrayPixels(image, bitmap.QtImage(), reach), 0) << name << ": painter only";
        EXPECT_EQ(StrayPixels(bitmap.QtImage(), image, reach), 0) << name << ": bitmap only";
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
    GraphScale(page);
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
    for (const auto& [format, scale] : {std::pair(PictureFormat::Png, 1),
                                        {PictureFormat::Bmp, 2},
                                        {PictureFormat::Svg, 1},
                                        {PictureFormat::Pdf, 1}}) {
        PictureFile picture("/nonexistent-folder/g.out", format, 50, 40, scale);
        Surface& s = picture.SurfaceAt(0, 0, 50, 40);
        s.Line(0, 0, 49, 39);
        s.Print("text");
        std::string error;
        EXPECT_FALSE(picture.Finish(error));
        EXPECT_NE(error.find("could not write"), std::string::npos);
    }
}

} // namespace vt::render
