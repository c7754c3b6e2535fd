// veritrace-cli save: the graph data file the window would write for a session given as keys,
// a trend and points.

#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/PointEntry.h"
#include "commands/SaveLoad.h"
#include "plot/Painter.h"
#include "plot/View.h"

namespace vt::cli {

Parsed<SaveJob> ParseSave(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Writes the graph data file the window would save for the session: the keys replayed\n"
        "into the rows as a load replays them, the trend chosen, then the points entered as in\n"
        "regression mode. Exit code 1 when a point was refused (the file is written without it).");
    AddKeysOption(parser);
    AddPointOptions(parser);
    parser.addOption(
        QCommandLineOption({"o", "output"}, "The graph data file to write.", "FILE.vtx"));
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    if (parser.isSet("file"))
        return BadArgument(out, "veritrace-cli save: the session is given with -k, -p, -m and "
                                "the trend, not -f");
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    const auto entry = ReadPointEntry(parser, "save", out);
    if (!entry) return ExitUsage;
    if (parser.value("output").isEmpty())
        return BadArgument(out, "veritrace-cli save: give the file to write with -o FILE.vtx");
    SaveJob job;
    job.Keys = std::move(*keys);
    job.Order = entry->Order;
    job.Linear = entry->Linear;
    job.Points = entry->Points;
    job.DataPath = parser.value("output").toStdString();
    return job;
}

int RunSave(const SaveJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    headless.LoadRows(job.Keys);
    const PointEntry entry{job.Order, job.Linear, job.Points};
    if (!entry.Empty()) {
        // The panel's fit is solved by its redraws: it needs the graph box the window has.
        headless.AttachGraphBox(400, 400);
        RedrawGraph(s);
        EnterPoints(s, entry);
    }
    for (const std::string& message : headless.Messages())
        out.Error(message);

    const std::optional<std::string> text = GraphDataText(s);
    if (!text) {
        out.Error(SaveFailedText);
        return ExitRefused;
    }
    if (!WriteGraphDataFile(job.DataPath, *text)) {
        out.Error("veritrace-cli save: could not write " + job.DataPath);
        return ExitRefused;
    }
    return headless.Messages().empty() ? ExitDone : ExitRefused;
}

} // namespace vt::cli
