// veritrace-cli export in regression mode: the fitted curve and the points, entered as fit
// enters them.

#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace vt::test {
namespace {

constexpr QRgb LineRed = 0xFF0000;   // the regression line's start colour, as 0xRRGGBB
constexpr QRgb PointBlue = 0x0000FF; // the points' start colour

int RunExport(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(VERITRACE_CLI), QStringList{"export"} + arguments);
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return -1;
    }
    return process.exitCode();
}

// Whether a colour lies within two pixels of (x, y).
bool Near(const QImage& image, int x, int y, QRgb colour) {
    for (int dy = -2; dy <= 2; ++dy)
        for (int dx = -2; dx <= 2; ++dx)
            if (image.valid(x + dx, y + dy) && (image.pixel(x + dx, y + dy) & 0xFFFFFF) == colour)
                return true;
    return false;
}

int Count(const QImage& image, QRgb colour) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            n += (image.pixel(x, y) & 0xFFFFFF) == colour;
    return n;
}

TEST(CliExportRegression, PaintsTheFittedCurveAndThePointsInsteadOfTheFunctions) {
    QTemporaryDir dir;
    const QString typed = dir.filePath("typed.png"), clicked = dir.filePath("clicked.png"),
                  plain = dir.filePath("plain.png");
    // The parabola through (1,1), (3,5), (-2,6); the row's own curve is not drawn.
    ASSERT_EQ(RunExport({"-k", "x^3", "--order", "2", "-p", "1,1", "-p", "3,5", "-p", "-2,6", "-o",
                         typed}),
              0);
    ASSERT_EQ(RunExport({"-k", "x^3", "--order", "2", "-m", "1.2,0.6", "-m", "3,5", "-m", "-2,6",
                         "-o", clicked}),
              0);
    ASSERT_EQ(RunExport({"-k", "x^3", "-o", plain}), 0);
    const QImage image(typed);
    ASSERT_EQ(image.size(), QSize(400, 400));
    // Ten pixels a unit: each point's circle, and the curve at x = 0 (1.2) and x = 5 (16).
    for (const auto& [x, y] : {std::pair(210, 190), {230, 150}, {180, 140}})
        EXPECT_TRUE(Near(image, x, y, PointBlue)) << x << "," << y;
    EXPECT_TRUE(Near(image, 200, 188, LineRed));
    EXPECT_TRUE(Near(image, 250, 40, LineRed));
    // x^3 would pass (2, 8) in red; the fitted curve is at 3.53 there.
    EXPECT_FALSE(Near(image, 220, 120, LineRed));
    // Clicks are rounded to whole numbers, so both roads give the same picture.
    EXPECT_EQ(QImage(clicked), image);
    EXPECT_EQ(Count(QImage(plain), PointBlue), 0);
}

TEST(CliExportRegression, RefusesBadSeriesOptions) {
    QTemporaryDir dir;
    const QString out = dir.filePath("g.png");
    for (const QStringList& bad :
         {QStringList{"--order", "11"}, {"--order", "2", "--linear"}, {"-p", "1"}, {"-m", "a,1"}})
        EXPECT_EQ(RunExport(bad + QStringList{"-o", out}), 2) << bad.join(' ').toStdString();
}

} // namespace
} // namespace vt::test
