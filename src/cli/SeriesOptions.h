#pragma once
// The point series as the companion takes it (-p, -m, --linear, --order): read from the
// command line, and entered into a session as regression mode's panel and mouse enter it.
// fit and export share it.

#include <QCommandLineParser>
#include <optional>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "session/Session.h"

namespace vt::cli {

struct FitPoint {
    bool ByMouse = false; // -m: a click on the graph; -p: the texts of the X and Y boxes
    std::string X, Y;
};

struct SeriesJob {
    std::optional<std::string> Order; // --order N; none with --linear or no trend given
    bool Linear = false;
    std::vector<FitPoint> Points; // in the order given
    // Whether any of the options was given: export then paints regression mode.
    bool Given() const { return Linear || Order.has_value() || !Points.empty(); }
};

void AddSeriesOptions(QCommandLineParser& parser);
// Fills `job` from the options; an exit code (with the usage message written) when one is bad.
std::optional<int> ReadSeriesOptions(const QCommandLineParser& parser, const std::string& command,
                                     SeriesJob& job, Output& out);
// Switches the session to regression mode, chooses the trend (Linear when none is given) and
// enters the points in order: -p through "Insert", -m as a left click on the graph box.
void EnterSeries(Session& s, const SeriesJob& job);

} // namespace vt::cli
