#pragma once
// Points entered as in regression mode, for every command that takes them: -p types the two
// texts into the X and Y boxes of "Insert Point", -m clicks the graph at view coordinates, and
// --linear or --order N chooses the trend before any point goes in.

#include <QCommandLineParser>
#include <optional>

#include "cli/Command.h"
#include "cli/Jobs.h"
#include "session/Session.h"

namespace vt::cli {

// Adds --linear, --order, -p and -m.
void AddPointOptions(QCommandLineParser& parser);

// What those options ask for; none, after the usage message naming the command, when one is
// wrong.
std::optional<PointEntry> ReadPointEntry(const QCommandLineParser& parser, const char* command,
                                         Output& out);

// Regression mode switched on (the session needs a graph box, whose redraws solve the fit), the
// trend chosen, then each point entered as the panel takes it. A point the panel refuses shows
// its message on the session's host.
void EnterPoints(Session& s, const PointEntry& entry);

} // namespace vt::cli
