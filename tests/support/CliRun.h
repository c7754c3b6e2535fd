#pragma once
// Runs veritrace-cli as a program and keeps what it printed and how it ended.

#include <QProcess>
#include <QStringList>
#include <string>

namespace vt::test {

struct CliRun {
    int Exit = -1; // -1: it did not end within a minute
    std::string Out, Err;
};

inline CliRun RunCli(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(VERITRACE_CLI), arguments);
    CliRun run;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        run.Err = "timed out";
        return run;
    }
    run.Exit = process.exitCode();
    run.Out = process.readAllStandardOutput().toStdString();
    run.Err = process.readAllStandardError().toStdString();
    return run;
}

} // namespace vt::test
