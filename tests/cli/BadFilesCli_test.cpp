// veritrace-cli load on the malformed graph data files: each gives the load's message (exit 1)
// or loads as the file says (exit 0), and the session is printed either way.

#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include "support/CliRun.h"

namespace vt::test {
namespace {

TEST(CliBadFiles, EachGivesTheMessageOrLoadsAsItSays) {
    // {file, the load's message shown, points counted}; the same outcomes as the window's load.
    // clang-format off
    const std::tuple<const char*, bool, int> cases[] = {
        {"binary.vtx", true, 0}, {"truncated-rows.vtx", true, 0}, {"truncated-points.vtx", false, 1},
        {"empty.vtx", false, 0}, {"line-ends-only.vtx", true, 0}, {"separators-only.vtx", true, 0},
        {"too-few-fields.vtx", true, 0}, {"too-many-fields.vtx", false, 2},
        {"text-points.vtx", false, 1}, {"order-11.vtx", true, 0}, {"order-1.vtx", true, 0},
        {"points-501.vtx", true, 501}, {"points-10000.vtx", true, 501}, {"utf8.vtx", false, 0},
        {"latin1-and-control.vtx", false, 0}, {"long-row.vtx", false, 0}};
    // clang-format on
    for (const auto& [file, message, points] : cases) {
        SCOPED_TRACE(file);
        const CliRun run =
            RunCli({"load", QDir(VERITRACE_TEST_DATA "/bad").filePath(file), "--json"});
        EXPECT_EQ(run.Exit, message ? 1 : 0) << run.Err;
        const QJsonObject session =
            QJsonDocument::fromJson(QByteArray::fromStdString(run.Out)).object();
        ASSERT_TRUE(session.contains("slots")) << run.Out;
        EXPECT_EQ(session["message"].isString(), message);
        EXPECT_EQ(session["count"].toInt(), points);
    }
    // A folder and a file that is not there give the message too.
    for (const QString& path : {QStringLiteral(VERITRACE_TEST_DATA "/bad"),
                                QStringLiteral(VERITRACE_TEST_DATA "/bad/none.vtx")}) {
        const CliRun run = RunCli({"load", path, "--json"});
        EXPECT_EQ(run.Exit, 1) << path.toStdString();
        EXPECT_NE(run.Out.find("could not open"), std::string::npos) << run.Out;
    }
}

} // namespace
} // namespace vt::test
