// veritrace-cli writing pictures: SVG and PDF beside the bitmap, --scale, and nothing printed
// but its own messages.

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <cmath>

namespace vt::test {
namespace {

constexpr QRgb CurveRed = 0xFF0000; // the first row's curve, as 0xRRGGBB

struct BareRun {
    int Exit = -1;
    QByteArray Out, Err;
};

// Runs veritrace-cli in a bare environment: no runtime folder, no display.
BareRun RunBare(const QStringList& arguments) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_RUNTIME_DIR", "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VERITRACE_CLI), arguments);
    BareRun run;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.Exit = process.exitCode();
    run.Out = process.readAllStandardOutput();
    run.Err = process.readAllStandardError();
    return run;
}

// Every point of the SVG's lines drawn in a colour.
std::vector<QPointF> LinePoints(const QString& file, const QString& stroke) {
    QFile in(file);
    std::vector<QPointF> points;
    if (!in.open(QIODevice::ReadOnly)) return points;
    QXmlStreamReader xml(&in);
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

// How many pixels of one colour in `a` have none of that colour within `reach` in `b`.
int Unmatched(const QImage& a, const QImage& b, QRgb colour, int reach) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            if ((a.pixel(x, y) & 0xFFFFFF) != colour) continue;
            bool found = false;
            for (int dy = -reach; dy <= reach && !found; ++dy)
                for (int dx = -reach; dx <= reach && !found; ++dx)
                    found =
                        b.valid(x + dx, y + dy) && (b.pixel(x + dx, y + dy) & 0xFFFFFF) == colour;
            count += !found;
        }
    return count;
}

} // namespace

TEST(CliPictures, SvgCurvesLieOnTheBitmapsPixels) {
    QTemporaryDir dir;
    const QString png = dir.filePath("g.png"), svg = dir.filePath("g.svg");
    for (const QString& file : {png, svg}) {
        const BareRun run = RunBare({"export", "-k", "x^2", "--view", "-5,5,-3,30", "-o", file});
        ASSERT_EQ(run.Exit, 0) << run.Err.toStdString();
        EXPECT_TRUE(run.Err.isEmpty()) << run.Err.toStdString();
    }
    const QImage bitmap(png);
    const std::vector<QPointF> points = LinePoints(svg, "#ff0000");
    ASSERT_GT(points.size(), 100u);
    int inside = 0, off = 0;
    for (const QPointF& p : points) {
        const int column = static_cast<int>(std::floor(p.x()));
        const int row = static_cast<int>(std::floor(p.y()));
        if (!bitmap.valid(column, row)) continue;
        ++inside;
        // Within half a pixel: the point lies in a pixel the bitmap's curve covers.
        off += (bitmap.pixel(column, row) & 0xFFFFFF) != CurveRed;
    }
    EXPECT_GT(inside, 100);
    // The curve's last point is the one pixel the bitmap's last segment leaves out.
    EXPECT_LE(off, 1);
}

TEST(CliPictures, ScaleGivesTheSamePictureLarger) {
    QTemporaryDir dir;
    const QString one = dir.filePath("one.png"), three = dir.filePath("three.png");
    ASSERT_EQ(RunBare({"export", "-k", "T(x)", "-o", one}).Exit, 0);
    const BareRun run = RunBare({"export", "-k", "T(x)", "--scale", "3", "-o", three});
    ASSERT_EQ(run.Exit, 0);
    EXPECT_TRUE(run.Err.isEmpty()) << run.Err.toStdString();
    EXPECT_TRUE(run.Out.isEmpty());
    const QImage small(one), large(three);
    ASSERT_EQ(large.size(), QSize(1200, 1200));
    const QImage shrunk = large.scaled(400, 400, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    EXPECT_EQ(Unmatched(shrunk, small, CurveRed, 1), 0);
    EXPECT_EQ(Unmatched(small, shrunk, CurveRed, 1), 0);
}

TEST(CliPictures, WritesEachFormatByExtensionOrOption) {
    QTemporaryDir dir;
    // {arguments, file, what its start holds}
    const std::tuple<QStringList, QString, QByteArray> cases[] = {
        {{"export", "-k", "x"}, "g.pdf", "%PDF-"},
        {{"export", "-k", "x", "--format", "svg"}, "g.out", "<?xml"},
        {{"export", "-k", "x", "--scale", "2"}, "g.bmp", "BM"},
        {{"equation", "-k", "2x+1"}, "e.svg", "<?xml"},
    };
    for (const auto& [arguments, name, start] : cases) {
        const QString file = dir.filePath(name);
        const BareRun run = RunBare(QStringList(arguments) << "-o" << file);
        EXPECT_EQ(run.Exit, 0) << name.toStdString() << run.Err.toStdString();
        EXPECT_TRUE(run.Err.isEmpty()) << run.Err.toStdString();
        QFile in(file);
        ASSERT_TRUE(in.open(QIODevice::ReadOnly)) << name.toStdString();
        EXPECT_TRUE(in.read(16).startsWith(start)) << name.toStdString();
    }
    // The equation font goes into the PDF with its text.
    const QString pdf = dir.filePath("e.pdf");
    ASSERT_EQ(RunBare({"equation", "-k", "2x^2", "-o", pdf}).Exit, 0);
    QFile in(pdf);
    ASSERT_TRUE(in.open(QIODevice::ReadOnly));
    const QByteArray bytes = in.readAll();
    EXPECT_TRUE(bytes.contains("OrlentisFont"));
    EXPECT_TRUE(bytes.contains("/FontFile2"));

    // {arguments, a piece of the message}: exit 2 each.
    const std::pair<QStringList, const char*> bad[] = {
        {{"export", "-k", "x", "-o", dir.filePath("g.jpg")}, "png, bmp, svg or pdf"},
        {{"equation", "-k", "x", "--scale", "9", "-o", dir.filePath("g.png")}, "1 to 8"},
    };
    for (const auto& [arguments, piece] : bad) {
        const BareRun run = RunBare(arguments);
        EXPECT_EQ(run.Exit, 2) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.Err.contains(piece)) << run.Err.toStdString();
    }
}

} // namespace vt::test
