// veritrace-cli save, load and -f run as a program, on files it writes and on files under
// tests/data.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace vt::test {
namespace {

struct Outcome {
    int Exit = -1;
    std::string Out, Err;
};

Outcome Cli(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(VERITRACE_CLI), arguments);
    Outcome run;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.Exit = process.exitCode();
    run.Out = process.readAllStandardOutput().toStdString();
    run.Err = process.readAllStandardError().toStdString();
    return run;
}

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(CliDataFile, SaveWritesTheWindowsLineAndLoadRestoresIt) {
    QTemporaryDir dir;
    const QString a = dir.filePath("a.vtx");
    Outcome save = Cli({"save", "-k", "2x+1", "-p", "1,2", "-p", "3,4.5", "--order", "3", "-o", a});
    ASSERT_EQ(save.Exit, 0) << save.Err;
    EXPECT_EQ(Bytes(a), QByteArray("2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n"));

    Outcome load = Cli({"load", a, "--json"});
    EXPECT_EQ(load.Exit, 0) << load.Err;
    EXPECT_EQ(load.Out, "{\"message\":null,\"slots\":[\"2x+1\",\"\",\"\",\"\",\"\"],\"graphable\":"
                        "[\"2x+1\",\"\",\"\",\"\",\"\"],\"count\":2,\"points\":[[1,2],[3,4.5]],"
                        "\"linear\":false,\"order_index\":1,\"degree\":3}\n");

    // The file stands in for -k in the other commands.
    Outcome eval = Cli({"eval", "-f", a, "--at", "2"});
    EXPECT_EQ(eval.Exit, 0) << eval.Err;
    EXPECT_NE(eval.Out.find("= 5"), std::string::npos) << eval.Out;
}

TEST(CliDataFile, RefusedInputAndPartialState) {
    QTemporaryDir dir;
    const QString bad = dir.filePath("bad.vtx");
    {
        QFile file(bad);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("x+1BB2xBB");
    }
    struct Case {
        QStringList arguments;
        int exit;
        std::string inOut, inErr;
    } cases[] = {
        {{"load", bad, "--json"},
         1,
         "{\"message\":\"Veritrace could not open the specified file.\",\"slots\":[\"x+1\","
         "\"2x\"",
         ""},
        {{"load", dir.filePath("missing.vtx")}, 1, "", "could not open"},
        {{"eval", "-f", bad, "-k", "x", "--at", "1"}, 2, "", "give no -k"},
        {{"formulas", "-f", bad}, 1, "", "could not open"},
        {{"save", "-k", "x", "--order", "11", "-o", dir.filePath("b.vtx")}, 2, "", "--order"},
        {{"save", "-k", "x", "-p", "a,1", "-o", dir.filePath("c.vtx")}, 1, "", "must be numbers"},
        {{"save", "-k", "x", "-o", dir.filePath("no folder/d.vtx")}, 1, "", "could not write"},
        {{"load"}, 2, "", "one graph data file"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const Outcome run = Cli(c.arguments);
        EXPECT_EQ(run.Exit, c.exit) << run.Err;
        EXPECT_NE(run.Out.find(c.inOut), std::string::npos) << run.Out;
        EXPECT_NE(run.Err.find(c.inErr), std::string::npos) << run.Err;
    }
}

} // namespace
} // namespace vt::test
