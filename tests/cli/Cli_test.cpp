// veritrace-cli run as a program: the text commands, their exit statuses and messages, and the
// graph data file. The rules beneath each command have their own tests in the core.

#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "support/CliRun.h"

namespace vt::test {
namespace {

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
    QStringList fiveHundredAndOne = {"fit", "--json"};
    for (int i = 1; i <= 501; ++i)
        fiveHundredAndOne << "-p" << QString("%1,%2").arg(i).arg(3 * i);
    const QStringList areaOfSquare = {"area",   "--from", "-2", "--to", "0",
                                      "--step", "1",      "-k", "x^2"};
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
        {areaOfSquare, 0, "-5.00\n"}, {areaOfSquare + QStringList{"--bracket-negative-x"}, 0, "5.00\n"},
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
        {{"fit", "-p", "1,2", "-p", "3,5", "--at", "2"}, 0, "points: 2\nf(x) =  1.5x + 0.5\nf(2) = 3.5\n"},
        // The 501st point is counted by the fit without a message.
        {fiveHundredAndOne, 0,
         R"j({"count":501,"degree":1,"coefficients":[0,3],"equation":"f(x) =  3x","values":{}})j"}};
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
    const QString a = dir.filePath("a.vtx"), b = dir.filePath("b.vtx");
    const CliRun save =
        RunCli({"save", "-k", "2x+1", "-p", "1,2", "-p", "3,4.5", "--order", "3", "-o", a});
    ASSERT_EQ(save.Exit, 0) << save.Err;
    EXPECT_EQ(Bytes(a), QByteArray("2x+1BBBBBBBBBB1BB2BB3BB4.5BBFalseBB3BB\r\n"));
    const CliRun load = RunCli({"load", a, "--json"});
    EXPECT_EQ(load.Exit, 0) << load.Err;
    EXPECT_EQ(load.Out, R"j({"message":null,"slots":["2x+1","","","",""],"graphable":)j"
                        R"j(["2x+1","","","",""],"count":2,"points":[[1,2],[3,4.5]],)j"
                        "\"linear\":false,\"order_index\":1,\"degree\":3}\n");
    // A click is entered as a load replays a point, so it saves to the same bytes.
    ASSERT_EQ(
        RunCli({"save", "-k", "2x+1", "-m", "1,2", "-p", "3,4.5", "--order", "3", "-o", b}).Exit,
        0);
    EXPECT_EQ(Bytes(b), Bytes(a));
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
    QFile linear(dir.filePath("linear.vtx"));
    ASSERT_TRUE(linear.open(QIODevice::WriteOnly));
    linear.write("xBBBBBBBBBBTrueBB4BB\r\n");
    linear.close();
    // {arguments, exit, a piece of stdout, a piece of stderr}: a load that stops keeps what it
    // replayed and says so; a folder or a missing file gives the load's message too.
    // clang-format off
    const std::tuple<QStringList, int, std::string, std::string> cases[] = {
        {{bad.arg("too-few-fields.vtx"), "--json"}, 1,
         R"j({"message":"Veritrace could not open the specified file.","slots":["x+1","2x")j", ""},
        {{bad.arg("truncated-points.vtx"), "--json"}, 0, R"j("message":null)j", ""},
        {{linear.fileName()}, 0, "trend: Linear, order 4, degree 1", ""},
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

} // namespace
} // namespace vt::test
