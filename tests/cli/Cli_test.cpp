// veritrace-cli run as a program: the text commands, their exit statuses and messages, the graph
// data file, and the pictures of export and equation in each format and at each scale. The
// rules beneath each command have their own tests in the core.

#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>
#include <QRegularExpression>
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

TEST(CliFormulas, ShowsWhatTheRowsMakeOfTheKeys) {
    EXPECT_EQ(Json(RunCli({"formulas", "--json", "-k", "2x^2+S(x)"}).Out)["slots"][0].toObject(),
              Json(R"j({"slot":0,"keys":"2x^2+S(x)","entry":"2x^2+S(x)","display":"2x^2^+S(x)",)j"
                   R"j("graphable":"2x^(2)+S(x)","script":"2*x^(2)+sin(x)","incomplete":false})j"));
    // {arguments, pieces of the output}. A trailing operator closes the graph command; the
    // companion starts from cleared rows as a load does, so an empty row 0 counts as complete
    // but nothing typed anywhere leaves the command closed. Each -k fills the next row.
    const std::pair<QStringList, std::vector<std::string>> cases[] = {
        {{"--json", "-k", "x", "-k", "~(x+1)"}, {R"j("keys":"~(x+1)")j", R"j("((x+1)^.5)")j"}},
        {{"--json", "-k", "x+"}, {R"j("incomplete":true)j", R"j("can_graph":false)j"}},
        {{"-k", "1/x"}, {"  graphable:  (1)/(x)\n", "graph command: open\n"}},
        {{"-k", "", "-k", "", "-k", "S(x)"},
         {"f1 (row 0)\n  keys:       \n", "  script:     sin(x)\n", "graph command: open\n"}},
        {{"--json", "-k", ""}, {R"j("can_graph":false)j"}}};
    for (const auto& [arguments, pieces] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CliRun run = RunCli(QStringList{"formulas"} + arguments);
        EXPECT_EQ(run.Exit, 0) << run.Err;
        for (const std::string& piece : pieces)
            EXPECT_NE(run.Out.find(piece), std::string::npos) << piece << "\n" << run.Out;
    }
}

TEST(CliCommands, PrintWhatTheWindowsShow) {
    // {arguments; exit status; the whole output}
    // clang-format off
    const std::tuple<QStringList, int, std::string> cases[] = {
        {{"eval", "--json", "--at", "-3", "-k", "x^2"}, 0, R"j({"x":"-3","values":["-9","","","",""]})j"},
        {{"eval", "--json", "--at", "-3", "-k", "x^2", "--bracket-negative-x"}, 0,
         R"j({"x":"-3","values":["9","","","",""]})j"},
        {{"eval", "--json", "--at", "0", "-k", "1/x", "-k", "x+1"}, 0, R"j({"x":"0","values":["NA","1","","",""]})j"},
        {{"eval", "--json", "--at", "1e2", "-k", "x"}, 0, R"j({"x":"1e2","values":["100","","","",""]})j"},
        {{"eval", "--at", "2", "-k", "2x+1"}, 0, "f1(2) = 5    [2x+1]\n"},
        {{"area", "--from", "0", "--to", "2", "--step", "1", "--slot", "1", "-k", "x", "-k", "3"}, 0, "9.00\n"},
        {{"area", "--from", "0", "--to", "4", "--step", "1", "-k", "2.5", "--json"}, 0, R"j({"area":"12.50"})j"},
        // Samples at -2, -1 and 0, each at full weight.
        {{"area", "--from", "-2", "--to", "0", "--step", "1", "-k", "x^2", "--bracket-negative-x"}, 0,
         "5.00\n"},
        // A breakdown error still prints the stages reached.
        {{"breakdown", "--json", "-k", "2x^2+S(x)"}, 0,
         R"j({"merged":["2","x","^","2","+","S","(","x",")"],)j"
         R"j("normalised":["+","2","x","^","2","+","S","(","+","x",")"],"text":"+2/1x^+2+1/1S",)j"
         R"j("terms":[{"num":2,"den":1,"letters":"x^2"},{"num":1,"den":1,"letters":"S"}],"error":null})j"},
        {{"breakdown", "--json", "--tokens", "1 E 5"}, 2,
         R"j({"merged":["1E5"],"normalised":["+","1E5"],"text":"","terms":[],"error":"Type mismatch"})j"},
        {{"breakdown", "--tokens", "- x / 2"}, 0,
         "merged:     - x / 2\nnormalised: - x / 2\ntext:       -1/2x/\nterm:       -1/2 x/\n"},
        {{"breakdown", "--tokens", "x / 0"}, 2,
         "merged:     x / 0\nnormalised: + x / 0\ntext:       \nerror:      Division by zero\n"},
        {{"fit", "--json", "--order", "2", "-p", "0,0", "-p", "1,1", "-p", "2,4", "--at", "1E200"}, 0,
         R"j({"count":3,"degree":2,"coefficients":[0,0,1],"equation":"f(x) =  x^2^","values":{"1E200":null}})j"},
        {{"fit", "--json", "--linear", "-p", "1,3", "-p", "2,1", "--at", "1e2"}, 0,
         R"j({"count":2,"degree":1,"coefficients":[5,-2],"equation":"f(x) = - 2x + 5",)j"
         R"j("values":{"1e2":"-195"}})j"},
        // The text point gets the message and the rest go on; a click is rounded half to even.
        {{"fit", "--json", "-p", "abc,1", "-m", "2.5,-3.5", "-p", "1,", "-m", "-0.5,2.5"}, 1,
         R"j({"count":2,"degree":1,"coefficients":[2,-3],"equation":"f(x) = - 3x + 2","values":{},)j"
         R"j("messages":["X and Y must be numbers.","X and Y must be numbers."]})j"},
        // The start-up trend is Linear.
        {{"fit", "--json", "-p", "0,1", "-p", "1,2", "-p", "2,5"}, 0,
         R"j({"count":3,"degree":1,"coefficients":[0.666666666666667,2],)j"
         R"j("equation":"f(x) =  2x + 0.6666666667","values":{}})j"},
        {{"fit", "-p", "1,2", "-p", "3,5", "--at", "2"}, 0,
         "points: 2\nf(x) =  1.5x + 0.5\nf(2) = 3.5\n"}};
    // clang-format on
    for (const auto& [arguments, exit, output] : cases) {
        SCOPED_TRACE(arguments.mid(0, 12).join(' ').toStdString());
        const CliRun run = RunCli(arguments);
        EXPECT_EQ(run.Exit, exit) << run.Err;
        // JSON is compared as objects: the companion writes the keys in its own order.
        if (output.front() == '{')
            EXPECT_EQ(Json(run.Out), Json(output)) << run.Out;
        else
            EXPECT_EQ(run.Out, output);
    }
}

TEST(CliArguments, RefusesWhatItCannotDo) {
    QTemporaryDir dir;
    const QString file = dir.filePath("a.vtx");
    ASSERT_EQ(RunCli({"save", "-k", "x", "-o", file}).Exit, 0);
    const QString png = dir.filePath("g.png"), vtx = dir.filePath("b.vtx");
    // {arguments, exit status, a piece of stderr}: 2 for a wrong command line, 1 for input the
    // windows refuse too, and for an area step too small ever to move x. Nothing on stdout.
    // clang-format off
    const std::tuple<QStringList, int, std::string> cases[] = {
        {{"draw"}, 2, "unknown command 'draw'"}, {{"eval", "-k", "x"}, 2, "--at"},
        {{"formulas", "-k", "1", "-k", "2", "-k", "3", "-k", "4", "-k", "5", "-k", "6"}, 2,
         "at most five"},
        {{"formulas", "-k", "x", "-k", QString(4097, 'x')}, 2, "at most 4096 keys"},
        {{"eval", "--at", "1,5", "-k", "x"}, 1, "x must be a number."},
        {{"area", "--from", "1e20", "--to", "2e20", "--step", "1", "-k", "x"}, 1,
         "The value of dx must move x"},
        // Work that would not end in useful time: 10^15 samples, and one more than 10^8.
        {{"area", "--from", "0", "--to", "1e12", "--step", "0.001", "-k", "x"}, 2, "samples"},
        {{"area", "--from", "0", "--to", "1e8", "--step", "1", "-k", "x"}, 2, "takes 100000001 samples"},
        {{"export", "-k", "x", "--view=-1e308,1e308,-20,20", "-o", png}, 2, "too large"},
        {{"export", "-k", "x", "--view=-20,20,-1e308,1e308", "-o", png}, 2, "too large"},
        {{"export", "-k", "x", "--view=0,1e-321,-20,20", "-o", png}, 2, "does not move x"},
        {{"export", "-k", "x", "-o", dir.filePath("g.jpg")}, 2, "png, bmp, svg or pdf"},
        {{"equation", "-k", "x", "--scale", "9", "-o", png}, 2, "1 to 8"},
        {{"equation", "-k", "", "-o", png}, 1, ""},
        {{"breakdown"}, 2, "give the equation once"},
        {{"breakdown", "-k", "x", "--tokens", "x"}, 2, "give the equation once"},
        {{"fit", "--linear", "--order", "2"}, 2, "give either --linear or --order N"},
        {{"fit", "--order", "1"}, 2, "--order takes a whole number from 2 to 10"},
        {{"fit", "-p", "5"}, 2, ""}, {{"fit", "-m", "a,1"}, 2, ""},
        {{"fit", "--at", "x"}, 1, ""}, {{"export", "--order", "11", "-o", png}, 2, "--order"},
        // Only the commands that evaluate take the bracket option.
        {{"fit", "--bracket-negative-x", "-p", "0,0", "-p", "1,1"}, 2, ""},
        {{"load"}, 2, "one graph data file"},
        {{"eval", "-f", file, "-k", "x", "--at", "1"}, 2, "give no -k"},
        {{"print", "-f", file, "-p", "1,1", "-o", dir.filePath("p.pdf")}, 2, "give no -p"},
        {{"breakdown", "-f", file, "-k", "x"}, 2, "give no -k"},
        {{"save", "-f", file, "-o", vtx}, 2, "not -f"},
        {{"save", "-k", "x", "--order", "11", "-o", vtx}, 2, "--order"},
        {{"save", "-k", "x", "-p", "a,1", "-o", vtx}, 1, "must be numbers"},
        {{"save", "-k", "x", "-o", dir.filePath("no folder/d.vtx")}, 1, "could not write"},
        {{"save", "-k", "x"}, 2, "-o FILE.vtx"},
        {{"print", "-k", "x", "-o", dir.filePath("page.png")}, 2, "-o PAGE.pdf"},
        {{"print", "-k", "x", "-o", dir.filePath("no folder/page.pdf")}, 1, "could not write"},
        // An equation longer than the printer's typesetting cells: the page, and the message.
        {{"print", "-k", QString("x^2+").repeated(300), "-o", dir.filePath("long.pdf")}, 1,
         "An error occurred while displaying information."},
        {{"formulas", "-f", VERITRACE_TEST_DATA "/bad/too-few-fields.vtx"}, 1, "could not open"}};
    // clang-format on
    for (const auto& [arguments, exit, err] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CliRun run = RunCli(arguments);
        EXPECT_EQ(run.Exit, exit);
        EXPECT_NE(run.Err.find(err), std::string::npos) << run.Err;
        EXPECT_EQ(run.Out, "");
    }
    EXPECT_FALSE(QFile::exists(png));
    EXPECT_EQ(RunCli({"--version"}).Exit, 0);
    EXPECT_NE(RunCli({"eval", "--help"}).Out.find("--at"), std::string::npos);
}

TEST(CliDataFile, SaveWritesTheWindowsLineAndLoadRestoresIt) {
    QTemporaryDir dir;
    const QString a = dir.filePath("a.vtx");
    const CliRun save =
        RunCli({"save", "-k", "2x+1", "-p", "1,2", "-p", "3,4.5", "--order", "3", "-o", a});
    ASSERT_EQ(save.Exit, 0) << save.Err;
    EXPECT_EQ(Bytes(a), QByteArray("2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n"));
    const CliRun load = RunCli({"load", a, "--json"});
    EXPECT_EQ(load.Exit, 0) << load.Err;
    EXPECT_EQ(load.Out, R"j({"message":null,"slots":["2x+1","","","",""],"graphable":)j"
                        R"j(["2x+1","","","",""],"count":2,"points":[[1,2],[3,4.5]],)j"
                        "\"linear\":false,\"order_index\":1,\"degree\":3}\n");
    // The file stands in for -k in the other commands.
    EXPECT_EQ(RunCli({"eval", "-f", a, "--at", "2"}).Out, "f1(2) = 5    [2x+1]\n");
    EXPECT_NE(RunCli({"breakdown", "-f", a, "--json"}).Out.find("\"merged\""), std::string::npos);
    // Print writes the heading and the graph as a one-page PDF, with or without a file.
    const QString page = dir.filePath("page.pdf");
    for (const QStringList& input : {QStringList{"-f", a}, QStringList{"-p", "1,2", "-p", "2,3"}}) {
        QFile::remove(page);
        const CliRun run = RunCli(QStringList{"print", "-o", page, "--heading2", "P 3"} + input);
        ASSERT_EQ(run.Exit, 0) << run.Err;
        const QByteArray pdf = Bytes(page);
        EXPECT_TRUE(pdf.startsWith("%PDF")) << pdf.left(16).toStdString();
        EXPECT_EQ(QRegularExpression(R"j(/Type\s*/Pages\b[^>]*?/Count\s+(\d+))j")
                      .match(QString::fromLatin1(pdf))
                      .captured(1),
                  "1");
    }
}

TEST(CliDataFile, LoadGivesTheMessageAndPrintsWhatItReplayed) {
    QTemporaryDir dir;
    const QString bad = QDir(VERITRACE_TEST_DATA "/bad").filePath("%1");
    // {arguments, exit, a piece of stdout, a piece of stderr}: a load that stops keeps what it
    // replayed and says so; a missing file gives the load's message too.
    // clang-format off
    const std::tuple<QStringList, int, std::string, std::string> cases[] = {
        {{bad.arg("too-few-fields.vtx"), "--json"}, 1,
         R"j({"message":"Veritrace could not open the specified file.","slots":["x+1","2x")j", ""},
        {{bad.arg("truncated-points.vtx")}, 0, "points: 1\n  1, 2\ntrend: Linear, order 3, degree 1\n", ""},
        {{bad.arg("text-points.vtx")}, 0, "trend: Polynomial, order 2, degree 2", ""},
        {{dir.filePath("missing.vtx")}, 1, "points: 0", "could not open"}};
    // clang-format on
    for (const auto& [arguments, exit, out, err] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CliRun run = RunCli(QStringList{"load"} + arguments);
        EXPECT_EQ(run.Exit, exit) << run.Err;
        EXPECT_NE(run.Out.find(out), std::string::npos) << run.Out;
        EXPECT_NE(run.Err.find(err), std::string::npos) << run.Err;
    }
}

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
    const QString typed = dir.filePath("typed.png"), plain = dir.filePath("plain.png");
    // The parabola through (1,1), (3,5), (-2,6), the first clicked: rounded to whole numbers.
    Draw({"export", "-k", "x^3", "--order", "2", "-m", "1.2,0.6", "-p", "3,5", "-p", "-2,6", "-o",
          typed});
    Draw({"export", "-k", "x^3", "-o", plain});
    const QImage image(typed);
    // Ten pixels a unit: the point (1,1)'s circle and the curve at x = 0 (1.2); x^3 would pass
    // (2, 8) in red.
    EXPECT_TRUE(Near(image, 210, 190, Blue));
    EXPECT_TRUE(Near(image, 200, 188, Red));
    EXPECT_FALSE(Near(image, 220, 120, Red));
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

} // namespace
} // namespace vt::test
