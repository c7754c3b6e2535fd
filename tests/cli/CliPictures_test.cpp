// veritrace-cli export and equation: the graph box and the typeset rows as the windows paint
// them, in each format, at each scale, and nothing printed but the companion's own messages.

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <cmath>

#include "support/CliRun.h"

namespace vt::test {
namespace {

constexpr QRgb Red = 0xFF0000, Blue = 0x0000FF, Shade = 0xE0E0E0; // as 0xRRGGBB

// Every point of the SVG's lines drawn in a colour.
std::vector<QPointF> LinePoints(const QString& file, const QString& stroke) {
    QXmlStreamReader xml(Bytes(file));
    std::vector<QPointF> points;
    QString current;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("g")) current = xml.attributes().value("stroke").toString();
        if (xml.name() == QLatin1String("polyline") && current == stroke)
            for (const QString& pair :
                 xml.attributes().value("points").toString().split(' ', Qt::SkipEmptyParts)) {
                const QStringList xy = pair.split(',');
                if (xy.size() == 2) points.emplace_back(xy[0].toDouble(), xy[1].toDouble());
            }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return points;
}

// How many red pixels of `a` have no red within a pixel in `b`.
int Unmatched(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += (a.pixel(x, y) & 0xFFFFFF) == Red && !Near(b, x, y, Red, 1);
    return count;
}

// Runs an export or equation from a bare environment: it ends well and prints nothing.
void Draw(const QStringList& arguments) {
    const CliRun run = RunCli(arguments, true);
    ASSERT_EQ(run.Exit, 0) << arguments.join(' ').toStdString() << "\n" << run.Err;
    EXPECT_EQ(run.Out + run.Err, "");
}

} // namespace

TEST(CliExport, PaintsTheGraphBoxAsTheWindowDoes) {
    QTemporaryDir dir;
    const QString png = dir.filePath("a.png"), bmp = dir.filePath("a.bmp");
    const CliRun run = RunCli({"export", "-k", "x", "-o", png, "--json"});
    ASSERT_EQ(run.Exit, 0) << run.Err;
    const QJsonObject out = Json(run.Out);
    EXPECT_EQ(out["view"], QJsonArray({-20, 20, -20, 20}));
    EXPECT_EQ(out["curve_drawn"], true);
    EXPECT_TRUE(
        out["coordinates"].toArray().contains(Json(R"j({"text":"x=0  y=0","color":255})j")));
    const QImage image = QImage(png).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image.size(), QSize(400, 400));
    // y = x passes (300, 100) in the red of the first row; the y axis is black away from it.
    EXPECT_EQ(image.pixel(300, 100) & 0xFFFFFF, Red);
    for (int y : {20, 60, 150, 250, 340, 380})
        EXPECT_EQ(image.pixel(200, y) & 0xFFFFFF, 0u) << y;
    Draw({"export", "-k", "x", "-o", bmp});
    EXPECT_EQ(QImage(bmp).convertToFormat(QImage::Format_RGB32), image);
    // The shade stands between x = 0 and 2 (columns 200..220) and nowhere else.
    Draw({"export", "-k", "x^2", "--shade", "0,2", "-o", png});
    const QImage shaded(png);
    const int inside = Count(shaded, Shade, QRect(200, 0, 21, 400));
    EXPECT_GT(inside, 20);
    EXPECT_EQ(Count(shaded, Shade), inside);
    // x^2 at -3 is 9 (row 110) with a negative x in brackets, -9 (row 290) without.
    Draw({"export", "-k", "x^2", "--bracket-negative-x", "-o", png});
    EXPECT_TRUE(Near(QImage(png), 170, 110, Red));
    EXPECT_FALSE(Near(QImage(png), 170, 290, Red));
    // The widest view whose bounds still add up is painted, one step past each side.
    EXPECT_EQ(Json(RunCli({"export", "-k", "x", "--view=-8e307,8e307,-1,1", "-o", png, "--json"})
                       .Out)["view"],
              QJsonArray({-8e307, 8e307, -1, 1}));
}

TEST(CliExport, RegressionModePaintsTheFitAndThePointsInsteadOfTheFunctions) {
    QTemporaryDir dir;
    const QString typed = dir.filePath("typed.png"), clicked = dir.filePath("clicked.png"),
                  plain = dir.filePath("plain.png");
    // The parabola through (1,1), (3,5), (-2,6); clicks are rounded to whole numbers, so both
    // roads give the same picture.
    Draw({"export", "-k", "x^3", "--order", "2", "-p", "1,1", "-p", "3,5", "-p", "-2,6", "-o",
          typed});
    Draw({"export", "-k", "x^3", "--order", "2", "-m", "1.2,0.6", "-m", "3,5", "-m", "-2,6", "-o",
          clicked});
    Draw({"export", "-k", "x^3", "-o", plain});
    const QImage image(typed);
    // Ten pixels a unit: the point (1,1)'s circle and the curve at x = 0 (1.2); x^3 would pass
    // (2, 8) in red.
    EXPECT_TRUE(Near(image, 210, 190, Blue));
    EXPECT_TRUE(Near(image, 200, 188, Red));
    EXPECT_FALSE(Near(image, 220, 120, Red));
    EXPECT_EQ(QImage(clicked), image);
    EXPECT_EQ(Count(QImage(plain), Blue), 0);
}

TEST(CliPictures, SvgCurvesLieOnTheBitmapsPixelsAndScaleGivesTheSamePictureLarger) {
    QTemporaryDir dir;
    const QString png = dir.filePath("g.png"), svg = dir.filePath("g.svg");
    for (const QString& file : {png, svg})
        Draw({"export", "-k", "x^2", "--view", "-5,5,-3,30", "-o", file});
    const QImage bitmap(png);
    const std::vector<QPointF> points = LinePoints(svg, "#ff0000");
    ASSERT_GT(points.size(), 100u);
    int inside = 0, off = 0;
    for (const QPointF& p : points) {
        const int column = static_cast<int>(std::floor(p.x())), row = std::floor(p.y());
        if (!bitmap.valid(column, row)) continue;
        ++inside;
        off += (bitmap.pixel(column, row) & 0xFFFFFF) != Red;
    }
    EXPECT_GT(inside, 100);
    // The curve's last point is the one pixel the bitmap's last segment leaves out.
    EXPECT_LE(off, 1);

    const QString one = dir.filePath("one.png"), three = dir.filePath("three.png");
    Draw({"export", "-k", "T(x)", "-o", one});
    Draw({"export", "-k", "T(x)", "--scale", "3", "-o", three});
    const QImage small(one), large(three);
    ASSERT_EQ(large.size(), QSize(1200, 1200));
    const QImage shrunk = large.scaled(400, 400, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    EXPECT_EQ(Unmatched(shrunk, small), 0);
    EXPECT_EQ(Unmatched(small, shrunk), 0);
}

TEST(CliPictures, WritesEachFormatByExtensionOrOption) {
    QTemporaryDir dir;
    // {arguments, file, what its start holds}
    const std::tuple<QStringList, QString, QByteArray> cases[] = {
        {{"export", "-k", "x"}, "g.pdf", "%PDF-"},
        {{"export", "-k", "x", "--format", "svg"}, "g.out", "<?xml"},
        {{"equation", "-k", "2x+1"}, "e.svg", "<?xml"},
        {{"equation", "-k", "2x^2"}, "e.pdf", "%PDF-"}};
    for (const auto& [arguments, name, start] : cases) {
        Draw(QStringList(arguments) << "-o" << dir.filePath(name));
        EXPECT_TRUE(Bytes(dir.filePath(name)).startsWith(start)) << name.toStdString();
    }
    // The equation font goes into the PDF with its text.
    const QByteArray pdf = Bytes(dir.filePath("e.pdf"));
    EXPECT_TRUE(pdf.contains("OrlentisFont"));
    EXPECT_TRUE(pdf.contains("/FontFile2"));
}

TEST(CliEquation, StacksTheTypesetRows) {
    QTemporaryDir dir;
    const QString png = dir.filePath("eq.png");
    // Rows 0 and 2 hold functions, row 1 stays empty and is left out.
    Draw({"equation", "-k", "2x^2+1/x", "-k", "", "-k", "~(x+1)", "-o", png});
    const QImage image(png);
    ASSERT_EQ(image.size(), QSize(289, 82));
    for (int row = 0; row < 2; ++row)
        EXPECT_GT(289 * 41 - Count(image, 0xFFFFFF, QRect(0, row * 41, 289, 41)), 40) << row;
}

} // namespace vt::test
