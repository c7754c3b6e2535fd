// veritrace-cli save, load, print and -f run as a program, on files it writes itself.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>

#include "support/CliRun.h"

namespace vt::test {
namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// The page count a PDF's page tree declares; -1 without one.
int PdfPages(const QByteArray& pdf) {
    const auto match = QRegularExpression(R"(/Type\s*/Pages\b[^>]*?/Count\s+(\d+))")
                           .match(QString::fromLatin1(pdf));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

TEST(CliDataFile, SaveWritesTheWindowsLineAndLoadRestoresIt) {
    QTemporaryDir dir;
    const QString a = dir.filePath("a.vtx");
    CliRun save =
        RunCli({"save", "-k", "2x+1", "-p", "1,2", "-p", "3,4.5", "--order", "3", "-o", a});
    ASSERT_EQ(save.Exit, 0) << save.Err;
    EXPECT_EQ(Bytes(a), QByteArray("2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n"));

    CliRun load = RunCli({"load", a, "--json"});
    EXPECT_EQ(load.Exit, 0) << load.Err;
    EXPECT_EQ(load.Out, "{\"message\":null,\"slots\":[\"2x+1\",\"\",\"\",\"\",\"\"],\"graphable\":"
                        "[\"2x+1\",\"\",\"\",\"\",\"\"],\"count\":2,\"points\":[[1,2],[3,4.5]],"
                        "\"linear\":false,\"order_index\":1,\"degree\":3}\n");

    // What a load restores saves to the same bytes: keys typed as a load replays them.
    const QString b = dir.filePath("b.vtx");
    ASSERT_EQ(
        RunCli({"save", "-k", "2x+1", "-m", "1,2", "-p", "3,4.5", "--order", "3", "-o", b}).Exit,
        0);
    EXPECT_EQ(Bytes(b), Bytes(a));

    // The file stands in for -k in the other commands.
    CliRun eval = RunCli({"eval", "-f", a, "--at", "2"});
    EXPECT_EQ(eval.Exit, 0) << eval.Err;
    EXPECT_NE(eval.Out.find("= 5"), std::string::npos) << eval.Out;
    CliRun breakdown = RunCli({"breakdown", "-f", a, "--json"});
    EXPECT_EQ(breakdown.Exit, 0) << breakdown.Err;
    EXPECT_NE(breakdown.Out.find("\"merged\""), std::string::npos) << breakdown.Out;
}

TEST(CliDataFile, RefusedInputAndPartialState) {
    QTemporaryDir dir;
    const QString bad = dir.filePath("bad.vtx");
    Write(bad, "x+1BB2xBB");
    const QString binary = dir.filePath("binary.vtx");
    Write(binary, QByteArray("\0\x01\xff\x1a"
                             "BB\x80",
                             7));
    const QString linear = dir.filePath("linear.vtx");
    Write(linear, "xBBBBBBBBBBTrueBB4BB\r\n");
    struct Case {
        QStringList arguments;
        int exit;
        std::string inOut, inErr;
    } cases[] = {
        // A load that stops keeps what it replayed, and says so.
        {{"load", bad, "--json"},
         1,
         "{\"message\":\"Veritrace could not open the specified file.\",\"slots\":[\"x+1\","
         "\"2x\"",
         ""},
        {{"load", binary, "--json"}, 1, "\"count\":0,\"points\":[]", ""},
        {{"load", linear}, 0, "trend: Linear, order 4, degree 1", ""},
        {{"load", dir.filePath("missing.vtx")}, 1, "points: 0", "could not open"},
        {{"load"}, 2, "", "one graph data file"},
        {{"eval", "-f", bad, "-k", "x", "--at", "1"}, 2, "", "give no -k"},
        {{"print", "-f", bad, "-p", "1,1", "-o", dir.filePath("p.pdf")}, 2, "", "give no -p"},
        {{"formulas", "-f", bad}, 1, "", "could not open"},
        {{"breakdown", "-f", linear, "-k", "x"}, 2, "", "give no -k"},
        {{"save", "-f", linear, "-o", dir.filePath("b.vtx")}, 2, "", "not -f"},
        {{"save", "-k", "x", "--order", "11", "-o", dir.filePath("b.vtx")}, 2, "", "--order"},
        {{"save", "-k", "x", "-p", "a,1", "-o", dir.filePath("c.vtx")}, 1, "", "must be numbers"},
        {{"save", "-k", "x", "-o", dir.filePath("no folder/d.vtx")}, 1, "", "could not write"},
        {{"save", "-k", "x"}, 2, "", "-o FILE.vtx"},
        {{"print", "-k", "x", "-o", dir.filePath("page.png")}, 2, "", "-o PAGE.pdf"},
        {{"print", "-k", "x", "-o", dir.filePath("no folder/page.pdf")}, 1, "", "could not write"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const CliRun run = RunCli(c.arguments);
        EXPECT_EQ(run.Exit, c.exit) << run.Err;
        EXPECT_NE(run.Out.find(c.inOut), std::string::npos) << run.Out;
        EXPECT_NE(run.Err.find(c.inErr), std::string::npos) << run.Err;
    }
}

TEST(CliDataFile, PrintWritesThePageAsAPdf) {
    QTemporaryDir dir;
    const QString a = dir.filePath("a.vtx");
    ASSERT_EQ(RunCli({"save", "-k", "2x+1", "-o", a}).Exit, 0);
    struct Case {
        QStringList input;
        int pages;
    } cases[] = {
        {{"-f", a}, 1},
        {{}, 1}, // the heading and the graph only
        {{"-p", "1,2", "-p", "2,3"}, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input.join(' ').toStdString());
        const QString page = dir.filePath("page.pdf");
        QFile::remove(page);
        const CliRun run =
            RunCli(QStringList{"print", "-o", page, "--heading2", "Period 3"} + c.input);
        ASSERT_EQ(run.Exit, 0) << run.Err;
        const QByteArray pdf = Bytes(page);
        ASSERT_TRUE(pdf.startsWith("%PDF")) << pdf.left(16).toStdString();
        EXPECT_EQ(PdfPages(pdf), c.pages);
    }
}

} // namespace
} // namespace vt::test
