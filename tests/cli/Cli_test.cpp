// veritrace-cli run as a program: the formulas, eval and export commands, and bad arguments.

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include "support/CliRun.h"

namespace vt::test {
namespace {

TEST(CliFormulas, ShowsWhatTheRowsMakeOfTheKeys) {
    struct Case {
        QStringList arguments;
        std::string expected; // a piece of the output
    } cases[] = {
        {{"--json", "-k", "2x^2+S(x)"},
         "{\"slot\":0,\"keys\":\"2x^2+S(x)\",\"entry\":\"2x^2+S(x)\",\"display\":\"2x^2^+S(x)\","
         "\"graphable\":\"2x^(2)+S(x)\",\"script\":\"2*x^(2)+sin(x)\",\"incomplete\":false}"},
        {{"--json", "-k", "2x^2+S(x)"}, "],\"can_graph\":true}\n"},
        {{"--json", "-k", "3/4x"}, "\"graphable\":\"(3)/(4x)\""},
        {{"--json", "-k", "x", "-k", "~(x+1)"}, "\"slot\":1,\"keys\":\"~(x+1)\""},
        {{"--json", "-k", "x", "-k", "~(x+1)"}, "\"graphable\":\"((x+1)^.5)\""},
        // A trailing operator leaves the row incomplete and closes the graph command.
        {{"--json", "-k", "x+"}, "\"incomplete\":true"},
        {{"--json", "-k", "x+"}, "\"can_graph\":false}"},
        // Keys the entry rules refuse never reach the row.
        {{"--json", "-k", "xx+*2"}, "\"entry\":\"x+2\""},
        {{"-k", "1/x"}, "  graphable:  (1)/(x)\n"},
        {{"-k", "1/x"}, "graph command: open\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const CliRun run = RunCli(QStringList{"formulas"} + c.arguments);
        EXPECT_EQ(run.Exit, 0) << run.Err;
        EXPECT_NE(run.Out.find(c.expected), std::string::npos) << run.Out;
    }
}

TEST(CliEval, GivesTheValuesEvaluateShows) {
    struct Case {
        QStringList arguments;
        std::string out;
    } cases[] = {
        {{"--json", "--at", "-3", "-k", "x^2"}, "{\"x\":\"-3\",\"values\":[\"-9\",\"\",\"\",\"\",\"\"]}\n"},
        {{"--json", "--at", "2", "-k", "2x+1"}, "{\"x\":\"2\",\"values\":[\"5\",\"\",\"\",\"\",\"\"]}\n"},
        {{"--json", "--at", "0", "-k", "1/x", "-k", "x+1"},
         "{\"x\":\"0\",\"values\":[\"NA\",\"1\",\"\",\"\",\"\"]}\n"},
        {{"--json", "--at", "1e2", "-k", "x"}, "{\"x\":\"1e2\",\"values\":[\"100\",\"\",\"\",\"\",\"\"]}\n"},
        {{"--at", "2", "-k", "2x+1"}, "f1(2) = 5    [2x+1]\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const CliRun run = RunCli(QStringList{"eval"} + c.arguments);
        EXPECT_EQ(run.Exit, 0) << run.Err;
        EXPECT_EQ(run.Out, c.out);
    }
}

TEST(CliArguments, RefusesWhatItCannotDo) {
    struct Case {
        QStringList arguments;
        int exit;
        std::string err; // a piece of stderr
    } cases[] = {
        {{}, 2, "Usage: veritrace-cli"},
        {{"draw"}, 2, "unknown command 'draw'"},
        {{"formulas"}, 2, "at least one function"},
        {{"formulas", "--bogus", "-k", "x"}, 2, "Unknown option"},
        {{"formulas", "-k", "1", "-k", "2", "-k", "3", "-k", "4", "-k", "5", "-k", "6"}, 2,
         "at most five"},
        {{"eval", "-k", "x"}, 2, "--at"},
        {{"eval", "--at", "1,5", "-k", "x"}, 1, "x must be a number."},
        {{"eval", "--at", "", "-k", "x"}, 1, "x must be a number."},
        {{"export", "-k", "x"}, 2, "-o"},
        {{"export", "-k", "x", "-o", "a.gif"}, 2, ".bmp or .png"},
        {{"export", "-k", "x", "-o", "a.png", "--view", "1,1,0,2"}, 2, "--view"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const CliRun run = RunCli(c.arguments);
        EXPECT_EQ(run.Exit, c.exit);
        EXPECT_NE(run.Err.find(c.err), std::string::npos) << run.Err;
    }
    EXPECT_EQ(RunCli({"--version"}).Exit, 0);
    EXPECT_NE(RunCli({"eval", "--help"}).Out.find("--at"), std::string::npos);
}

TEST(CliExport, PaintsTheGraphBoxAsTheWindowDoes) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString png = dir.filePath("a.png");
    const CliRun run = RunCli({"export", "-k", "x", "-o", png, "--json"});
    ASSERT_EQ(run.Exit, 0) << run.Err;
    QImage image(png);
    ASSERT_EQ(image.size(), QSize(400, 400));
    // y = x passes (300, 100) in the red of the first row; the y axis is black away from it.
    EXPECT_EQ(image.pixel(300, 100) & 0xFFFFFF, 0xFF0000u);
    for (int y : {20, 60, 150, 250, 340, 380}) EXPECT_EQ(image.pixel(200, y) & 0xFFFFFF, 0u) << y;
    EXPECT_NE(run.Out.find("\"view\":[-20,20,-20,20]"), std::string::npos) << run.Out;
    EXPECT_NE(run.Out.find("\"curve_drawn\":true"), std::string::npos);
    EXPECT_NE(run.Out.find("{\"text\":\"x=0  y=0\",\"color\":255}"), std::string::npos);

    // A bitmap is written too, the same picture.
    const QString bmp = dir.filePath("a.bmp");
    ASSERT_EQ(RunCli({"export", "-k", "x", "-o", bmp}).Exit, 0);
    EXPECT_EQ(QImage(bmp).convertToFormat(QImage::Format_RGB32),
              image.convertToFormat(QImage::Format_RGB32));
}

TEST(CliExport, ShadesTheBandAsShadeAreaDoes) {
    QTemporaryDir dir;
    const QString png = dir.filePath("s.png");
    ASSERT_EQ(RunCli({"export", "-k", "x^2", "--shade", "0,2", "-o", png}).Exit, 0);
    const QImage image(png);
    // The shade colour 0xE0E0E0 stands between x = 0 and 2 (columns 200..220) and nowhere else.
    int inside = 0, outside = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & 0xFFFFFF) == 0xE0E0E0u) ++(x >= 200 && x <= 220 ? inside : outside);
    EXPECT_GT(inside, 20);
    EXPECT_EQ(outside, 0);
    EXPECT_EQ(RunCli({"export", "-k", "x", "--shade", "0,2,9", "-o", png}).Exit, 2);
}

TEST(CliEquation, StacksTheTypesetRows) {
    QTemporaryDir dir;
    const QString png = dir.filePath("eq.png");
    // Rows 0 and 2 hold functions, row 1 stays empty and is left out.
    ASSERT_EQ(RunCli({"equation", "-k", "2x^2+1/x", "-k", "", "-k", "~(x+1)", "-o", png}).Exit, 0);
    const QImage image(png);
    ASSERT_EQ(image.size(), QSize(289, 82));
    for (int row = 0; row < 2; ++row) {
        int ink = 0;
        for (int y = row * 41; y < row * 41 + 41; ++y)
            for (int x = 0; x < 289; ++x) ink += (image.pixel(x, y) & 0xFFFFFF) != 0xFFFFFFu;
        EXPECT_GT(ink, 40) << row;
    }
    EXPECT_EQ(RunCli({"equation", "-k", "", "-o", png}).Exit, 1);
}

TEST(CliExport, AutoScalingReportsWhenNothingShows) {
    QTemporaryDir dir;
    const CliRun shown =
        RunCli({"export", "-k", "x+100", "--auto", "-o", dir.filePath("b.png"), "--json"});
    ASSERT_EQ(shown.Exit, 0) << shown.Err;
    // Visible first at -80..80, where y = x + 100 passes (-80, 20).
    EXPECT_NE(shown.Out.find("\"view\":[-80,80,-80,80]"), std::string::npos) << shown.Out;
    EXPECT_NE(shown.Out.find("\"message\":null"), std::string::npos);

    const CliRun never =
        RunCli({"export", "-k", "x+100000000", "--auto", "-o", dir.filePath("c.png"), "--json"});
    ASSERT_EQ(never.Exit, 0) << never.Err;
    EXPECT_NE(never.Out.find("\"curve_drawn\":false"), std::string::npos) << never.Out;
    EXPECT_NE(never.Out.find(
                  "\"message\":\"The function could not be graphed within the maximum limits.\""),
              std::string::npos);
}

} // namespace
} // namespace vt::test
