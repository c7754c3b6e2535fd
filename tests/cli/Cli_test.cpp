// veritrace-cli run as a program: the formulas, eval, area, export and equation commands, and
// bad arguments.

#include <gtest/gtest.h>

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include "support/CliRun.h"

namespace vt::test {
namespace {

// Runs the command and checks its exit status and that stdout holds each piece.
void ExpectOut(const QStringList& arguments, const std::vector<std::string>& pieces, int exit = 0) {
    SCOPED_TRACE(arguments.join(' ').toStdString());
    const CliRun run = RunCli(arguments);
    EXPECT_EQ(run.Exit, exit) << run.Err;
    for (const std::string& piece : pieces)
        EXPECT_NE(run.Out.find(piece), std::string::npos) << piece << "\n" << run.Out;
}

QJsonObject ParseJson(const std::string& text) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
}

// Runs a command that prints JSON; its one line as an object (empty if the run failed).
QJsonObject JsonOut(const QStringList& arguments) {
    const CliRun run = RunCli(arguments);
    EXPECT_EQ(run.Exit, 0) << arguments.join(' ').toStdString() << "\n" << run.Err;
    EXPECT_EQ(run.Out.find('\n'), run.Out.size() - 1) << run.Out;
    return ParseJson(run.Out);
}

// How many pixels of a part of an image have a colour, as 0xRRGGBB.
int Count(const QImage& image, QRgb colour, const QRect& part) {
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            count += (image.pixel(x, y) & 0xFFFFFF) == colour;
    return count;
}

TEST(CliFormulas, ShowsWhatTheRowsMakeOfTheKeys) {
    QJsonObject out = JsonOut({"formulas", "--json", "-k", "2x^2+S(x)"});
    EXPECT_EQ(out["slots"].toArray()[0].toObject(),
              ParseJson("{\"slot\":0,\"keys\":\"2x^2+S(x)\",\"entry\":\"2x^2+S(x)\",\"display\":"
                        "\"2x^2^+S(x)\",\"graphable\":\"2x^(2)+S(x)\",\"script\":"
                        "\"2*x^(2)+sin(x)\",\"incomplete\":false}"));
    EXPECT_EQ(out["can_graph"], true);
    EXPECT_EQ(out["slots"].toArray().size(), 5);

    const QJsonObject row1 =
        JsonOut({"formulas", "--json", "-k", "x", "-k", "~(x+1)"})["slots"].toArray()[1].toObject();
    EXPECT_EQ(row1["keys"], "~(x+1)");
    EXPECT_EQ(row1["graphable"], "((x+1)^.5)");
    // A trailing operator leaves the row incomplete and closes the graph command.
    out = JsonOut({"formulas", "--json", "-k", "x+"});
    EXPECT_EQ(out["slots"].toArray()[0].toObject()["incomplete"], true);
    EXPECT_EQ(out["can_graph"], false);
    // Keys the entry rules refuse never reach the row.
    EXPECT_EQ(
        JsonOut({"formulas", "--json", "-k", "xx+*2"})["slots"].toArray()[0].toObject()["entry"],
        "x+2");
    ExpectOut({"formulas", "-k", "1/x"}, {"  graphable:  (1)/(x)\n", "graph command: open\n"});
}

TEST(CliFormulas, StartsFromClearedRowsAsALoadDoes) {
    // The load clears every row first, so an empty row 0 counts as complete.
    const QJsonObject out = JsonOut({"formulas", "--json", "-k", "", "-k", "x"});
    EXPECT_EQ(out["slots"].toArray()[0].toObject()["incomplete"], false);
    EXPECT_EQ(out["can_graph"], true);
    ExpectOut({"formulas", "-k", "", "-k", "", "-k", "S(x)"},
              {"f1 (row 0)\n  keys:       \n", "  script:     sin(x)\n", "graph command: open\n"});
    // Nothing typed anywhere still leaves the graph command closed.
    EXPECT_EQ(JsonOut({"formulas", "--json", "-k", ""})["can_graph"], false);
}

TEST(CliEvalAndArea, GiveTheValuesTheWindowsShow) {
    // clang-format off
    const std::pair<QStringList, std::string> cases[] = {
        {{"eval", "--json", "--at", "-3", "-k", "x^2"},
         "{\"x\":\"-3\",\"values\":[\"-9\",\"\",\"\",\"\",\"\"]}\n"},
        {{"eval", "--json", "--at", "0", "-k", "1/x", "-k", "x+1"},
         "{\"x\":\"0\",\"values\":[\"NA\",\"1\",\"\",\"\",\"\"]}\n"},
        {{"eval", "--json", "--at", "1e2", "-k", "x"},
         "{\"x\":\"1e2\",\"values\":[\"100\",\"\",\"\",\"\",\"\"]}\n"},
        {{"eval", "--at", "2", "-k", "2x+1"}, "f1(2) = 5    [2x+1]\n"},
        {{"area", "--from", "0", "--to", "2", "--step", "1", "--slot", "1", "-k", "x", "-k", "3"},
         "9.00\n"},
        {{"area", "--from", "0", "--to", "4", "--step", "1", "-k", "2.5", "--json"},
         "{\"area\":\"12.50\"}\n"}};
    // clang-format on
    for (const auto& [arguments, out] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CliRun run = RunCli(arguments);
        EXPECT_EQ(run.Exit, 0) << run.Err;
        if (out.front() == '{') // one JSON line, its members in any order
            EXPECT_EQ(ParseJson(run.Out), ParseJson(out)) << run.Out;
        else
            EXPECT_EQ(run.Out, out);
    }
}

TEST(CliArguments, RefusesWhatItCannotDo) {
    // {arguments, exit status, a piece of stderr}: 2 for a wrong command line, 1 for input the
    // windows refuse too, and for an area step too small ever to move x.
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
        {{"area", "--from", "0", "--to", "1e8", "--step", "1", "-k", "x"}, 2,
         "takes 100000001 samples"},
        {{"export", "-k", "x", "--view=-1e308,1e308,-20,20", "-o", "/nonexistent/a.png"}, 2, "too large"},
        {{"export", "-k", "x", "--view=-20,20,-1e308,1e308", "-o", "/nonexistent/a.png"}, 2, "too large"},
        {{"export", "-k", "x", "--view=0,1e-321,-20,20", "-o", "/nonexistent/a.png"}, 2, "does not move x"}};
    // clang-format on
    for (const auto& [arguments, exit, err] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CliRun run = RunCli(arguments);
        EXPECT_EQ(run.Exit, exit);
        EXPECT_NE(run.Err.find(err), std::string::npos) << run.Err;
        EXPECT_EQ(run.Out, "");
    }
    EXPECT_EQ(RunCli({"--version"}).Exit, 0);
    EXPECT_NE(RunCli({"eval", "--help"}).Out.find("--at"), std::string::npos);
}

TEST(CliExport, PaintsTheGraphBoxAsTheWindowDoes) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString png = dir.filePath("a.png");
    const QJsonObject out = JsonOut({"export", "-k", "x", "-o", png, "--json"});
    EXPECT_EQ(out["view"], QJsonArray({-20, 20, -20, 20}));
    EXPECT_EQ(out["curve_drawn"], true);
    EXPECT_TRUE(
        out["coordinates"].toArray().contains(ParseJson("{\"text\":\"x=0  y=0\",\"color\":255}")));
    QImage image(png);
    ASSERT_EQ(image.size(), QSize(400, 400));
    // y = x passes (300, 100) in the red of the first row; the y axis is black away from it.
    EXPECT_EQ(image.pixel(300, 100) & 0xFFFFFF, 0xFF0000u);
    for (int y : {20, 60, 150, 250, 340, 380})
        EXPECT_EQ(image.pixel(200, y) & 0xFFFFFF, 0u) << y;
    // A bitmap is written too, the same picture.
    const QString bmp = dir.filePath("a.bmp");
    ASSERT_EQ(RunCli({"export", "-k", "x", "-o", bmp}).Exit, 0);
    EXPECT_EQ(QImage(bmp).convertToFormat(QImage::Format_RGB32),
              image.convertToFormat(QImage::Format_RGB32));
    // The shade colour 0xE0E0E0 stands between x = 0 and 2 (columns 200..220) and nowhere else.
    ASSERT_EQ(RunCli({"export", "-k", "x^2", "--shade", "0,2", "-o", png}).Exit, 0);
    const QImage shaded(png);
    const int inside = Count(shaded, 0xE0E0E0, QRect(200, 0, 21, 400));
    EXPECT_GT(inside, 20);
    EXPECT_EQ(Count(shaded, 0xE0E0E0, shaded.rect()), inside);
    // The widest view whose bounds still add up is painted, one step past each side.
    EXPECT_EQ(
        JsonOut({"export", "-k", "x", "--view=-8e307,8e307,-1,1", "-o", png, "--json"})["view"],
        QJsonArray({-8e307, 8e307, -1, 1}));
}

TEST(CliEquation, StacksTheTypesetRows) {
    QTemporaryDir dir;
    const QString png = dir.filePath("eq.png");
    // Rows 0 and 2 hold functions, row 1 stays empty and is left out.
    ASSERT_EQ(RunCli({"equation", "-k", "2x^2+1/x", "-k", "", "-k", "~(x+1)", "-o", png}).Exit, 0);
    const QImage image(png);
    ASSERT_EQ(image.size(), QSize(289, 82));
    for (int row = 0; row < 2; ++row)
        EXPECT_GT(289 * 41 - Count(image, 0xFFFFFF, QRect(0, row * 41, 289, 41)), 40) << row;
    EXPECT_EQ(RunCli({"equation", "-k", "", "-o", png}).Exit, 1);
}

} // namespace
} // namespace vt::test
