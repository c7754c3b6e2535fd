// veritrace-cli area, run as a program: what it prints and how it exits.

#include <gtest/gtest.h>

#include <string>

#include "support/CliRun.h"

namespace {

using vt::test::CliRun;

CliRun Area(const QStringList& arguments) { return vt::test::RunCli(QStringList{"area"} + arguments); }

TEST(AreaCommand, PrintsTheAreaAsTheWindowShowsIt) {
    struct Case {
        QStringList arguments;
        std::string out;
    } cases[] = {
        {{"--from", "0", "--to", "1", "--step", "0.1", "-k", "1"}, "1.10\n"},
        {{"--from", "0", "--to", "1", "--step", "-0.5", "-k", "1"}, "-0.50\n"}, // minus values
        {{"--from", "0", "--to", "2", "--step", "1", "--slot", "1", "-k", "x", "-k", "3"},
         "9.00\n"},
        {{"--from", "0", "--to", "4", "--step", "1", "-k", "2.5", "--json"},
         "{\"area\":\"12.50\"}\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const CliRun run = Area(c.arguments);
        EXPECT_EQ(run.Exit, 0) << run.Err;
        EXPECT_EQ(run.Out, c.out);
    }
}

TEST(AreaCommand, RefusesInputAsTheWindowDoesAndAStepThatNeverEnds) {
    struct Case {
        QStringList arguments;
        int exit;
        std::string err; // a line of stderr
    } cases[] = {
        {{"--from", "a", "--to", "b", "--step", "c", "-k", "x"},
         1,
         "The minimum range of x must be a number."},
        {{"--from", "2", "--to", "1", "--step", "1", "-k", "x"},
         1,
         "The maximum range of x must be greater than or equal to the minimum range."},
        {{"--from", "0", "--to", "1", "--step", "0", "-k", "x"}, 1, "The value of dx must move x"},
        {{"--from", "1e20", "--to", "2e20", "--step", "1", "-k", "x"},
         1,
         "The value of dx must move x"},
        {{"--from", "0", "--to", "1", "--step", "1", "--slot", "5", "-k", "x"},
         2,
         "veritrace-cli area: --slot"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const CliRun run = Area(c.arguments);
        EXPECT_EQ(run.Exit, c.exit);
        EXPECT_NE(run.Err.find(c.err), std::string::npos) << run.Err;
        EXPECT_EQ(run.Out, "");
    }
}

} // namespace
