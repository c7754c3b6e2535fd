// veritrace-cli breakdown run as a program.

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QProcess>
#include <QStringList>

#include "support/CliRun.h"

namespace vt::test {
namespace {

std::string Canonical(const std::string& json) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(json)).toJson().toStdString();
}

TEST(CliBreakdown, PrintsEachStageAsOneObject) {
    // {arguments; exit status; the whole output}.
    // clang-format off
    const std::tuple<QStringList, int, std::string> cases[] = {
        {{"--json", "-k", "2x^2+S(x)"}, 0,
         "{\"merged\":[\"2\",\"x\",\"^\",\"2\",\"+\",\"S\",\"(\",\"x\",\")\"],"
         "\"normalised\":[\"+\",\"2\",\"x\",\"^\",\"2\",\"+\",\"S\",\"(\",\"+\",\"x\",\")\"],"
         "\"text\":\"+2/1x^+2+1/1S\",\"terms\":[{\"num\":2,\"den\":1,\"letters\":\"x^2\"},"
         "{\"num\":1,\"den\":1,\"letters\":\"S\"}],\"error\":null}\n"},
        {{"--json", "--tokens", "+ 2 x ^ 2"}, 0,
         "{\"merged\":[\"+\",\"2\",\"x\",\"^\",\"2\"],\"normalised\":[\"+\",\"2\",\"x\",\"^\",\"2\"],"
         "\"text\":\"+2/1x^+2\",\"terms\":[{\"num\":2,\"den\":1,\"letters\":\"x^2\"}],"
         "\"error\":null}\n"},
        // An error still prints the object, with the stages that were reached.
        {{"--json", "--tokens", "1 E 5"}, 2,
         "{\"merged\":[\"1E5\"],\"normalised\":[\"+\",\"1E5\"],\"text\":\"\",\"terms\":[],"
         "\"error\":\"Type mismatch\"}\n"},
        {{"--tokens", "- x / 2"}, 0,
         "merged:     - x / 2\nnormalised: - x / 2\ntext:       -1/2x/\nterm:       -1/2 x/\n"},
        {{"--tokens", "x / 0"}, 2,
         "merged:     x / 0\nnormalised: + x / 0\ntext:       \nerror:      Division by zero\n"},
    };
    // clang-format on
    for (const auto& [arguments, exit, out] : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CliRun run = RunCli(QStringList{"breakdown"} + arguments);
        EXPECT_EQ(run.Exit, exit) << run.Err;
        // JSON is compared in one key order: the companion writes its keys in its own.
        if (arguments.first() == "--json")
            EXPECT_EQ(Canonical(run.Out), Canonical(out));
        else
            EXPECT_EQ(run.Out, out);
    }
}

TEST(CliBreakdown, WantsTheEquationOnce) {
    for (const QStringList& arguments : {QStringList{}, QStringList{"-k", "x", "--tokens", "x"},
                                         QStringList{"-k", "x", "-k", "1"}}) {
        const CliRun run = RunCli(QStringList{"breakdown"} + arguments);
        EXPECT_EQ(run.Exit, 2);
        EXPECT_NE(run.Err.find("give the equation once"), std::string::npos) << run.Err;
        EXPECT_EQ(run.Out, "");
    }
}

} // namespace
} // namespace vt::test
