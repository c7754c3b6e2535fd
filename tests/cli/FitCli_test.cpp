// veritrace-cli fit run as a program: points typed and clicked, the trend, values, bad input.

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

#include "support/CliRun.h"

namespace vt::test {
namespace {

TEST(CliFit, FitsAsRegressionModeDoes) {
    QStringList fiveHundredAndOne = {"--json"};
    for (int i = 1; i <= 501; ++i)
        fiveHundredAndOne << "-p" << QString("%1,%2").arg(i).arg(3 * i);
    // clang-format off
    const std::tuple<QStringList, std::string, int> cases[] = {
        {{"--json", "--order", "2", "-p", "0,0", "-p", "1,1", "-p", "2,4"},
         R"({"count":3,"degree":2,"coefficients":[0,0,1],"equation":"f(x) =  x^2^","values":{}})", 0},
        {{"--json", "--linear", "-p", "1,3", "-p", "2,1", "--at", "1e2"},
         R"({"count":2,"degree":1,"coefficients":[5,-2],"equation":"f(x) = - 2x + 5",)"
         R"("values":{"1e2":"-195"}})", 0},
        // The text point gets the message and the rest go on; a click is rounded half to even.
        {{"--json", "-p", "abc,1", "-m", "2.5,-3.5", "-p", "1,", "-m", "-0.5,2.5"},
         R"({"count":2,"degree":1,"coefficients":[2,-3],"equation":"f(x) = - 3x + 2","values":{},)"
         R"("messages":["X and Y must be numbers.","X and Y must be numbers."]})", 1},
        // The start-up trend is Linear; an order with no points only sets the degree.
        {{"--json", "-p", "0,1", "-p", "1,2", "-p", "2,5"},
         R"({"count":3,"degree":1,"coefficients":[0.666666666666667,2],)"
         R"("equation":"f(x) =  2x + 0.6666666667","values":{}})", 0},
        {{"--json", "--order", "10", "--at", "0"},
         R"({"count":0,"degree":10,"coefficients":[],"equation":"f(x) =","values":{"0":"0"}})", 0},
        // An overflowing point is counted with the sums as far as they got, and not stored; a
        // value that overflows is none.
        {{"--json", "-p", "1E200,1E200", "-p", "2,2", "--at", "1", "--at", "1E308"},
         R"({"count":2,"degree":1,"coefficients":[0,1],"equation":"f(x) =  x",)"
         R"("values":{"1":"1","1E308":"1E+308"}})", 0},
        {{"--json", "--order", "2", "-p", "0,0", "-p", "1,1", "-p", "2,4", "--at", "1E200"},
         R"({"count":3,"degree":2,"coefficients":[0,0,1],"equation":"f(x) =  x^2^","values":{"1E200":null}})", 0},
        {{"-p", "1,2", "-p", "3,5", "--at", "2"}, "points: 2\nf(x) =  1.5x + 0.5\nf(2) = 3.5", 0},
        // The 501st point is counted by the fit without a message.
        {fiveHundredAndOne, R"({"count":501,"degree":1,"coefficients":[0,3],"equation":"f(x) =  3x","values":{}})", 0},
    };
    // clang-format on
    for (const auto& [arguments, expected, exit] : cases) {
        SCOPED_TRACE(arguments.mid(0, 12).join(' ').toStdString());
        const CliRun run = RunCli(QStringList{"fit"} + arguments);
        EXPECT_EQ(run.Exit, exit);
        // JSON objects are compared as objects: the companion writes their keys in its own order.
        if (arguments.first() == "--json") {
            const auto canonical = [](const std::string& text) {
                return QJsonDocument::fromJson(QByteArray::fromStdString(text))
                    .toJson()
                    .toStdString();
            };
            EXPECT_EQ(canonical(run.Out), canonical(expected));
        } else {
            EXPECT_EQ(run.Out, expected + "\n");
        }
    }
}

TEST(CliFit, RefusesBadArguments) {
    // {arguments, exit}
    const std::pair<QStringList, int> cases[] = {
        {{"--linear", "--order", "2"}, 2},
        {{"--order", "1"}, 2},
        {{"--order", "2.5"}, 2},
        {{"-p", "5"}, 2},
        {{"-m", "a,1"}, 2},
        {{"--at", "x"}, 1},
    };
    for (const auto& [arguments, exit] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CliRun run = RunCli(QStringList{"fit"} + arguments);
        EXPECT_EQ(run.Exit, exit);
        EXPECT_TRUE(run.Out.empty()) << run.Out;
    }
}

} // namespace
} // namespace vt::test
