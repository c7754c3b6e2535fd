// veritrace-cli formulas: what the program makes of each typed function.

#include <QJsonArray>

#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "entry/Entry.h"
#include "plot/Evaluate.h"
#include "translate/Graphable.h"

namespace vt::cli {

Parsed<FormulasJob> ParseFormulas(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Replays the keys of each function row as loading a graph data file does, and shows\n"
        "the row's entry text, its display text, its evaluator text (as built and as evaluated)\n"
        "and whether it is complete; then whether the graph commands are open.");
    AddKeysOption(parser);
    AddJsonOption(parser);
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    FormulasJob job;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    if (keys->empty() && !parser.isSet("file"))
        return BadArgument(out, "veritrace-cli formulas: give at least one function with -k KEYS "
                                "or a graph data file with -f FILE.vtx");
    job.Keys = std::move(*keys);
    job.File = ReadFileOption(parser);
    job.Json = parser.isSet("json");
    return job;
}

int RunFormulas(const FormulasJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    const auto keys = headless.LoadFunctions(job.Keys, job.File, out);
    if (!keys) return ExitRefused;
    PreCalcFX(s);
    const bool canGraph = CanGraph(s);

    if (job.Json) {
        QJsonArray rows;
        for (int slot = 0; slot < UsableSlots; ++slot) {
            const auto i = static_cast<std::size_t>(slot);
            rows.append(QJsonObject{
                {"slot", slot},
                {"keys", JsonText(i < keys->size() ? (*keys)[i] : "")},
                {"entry", JsonText(EntryText(s, slot))},
                {"display", JsonText(DisplayText(s, slot))},
                {"graphable", JsonText(GraphableText(s, slot))},
                {"script", JsonText(s.ScriptText(slot))},
                {"incomplete", s.SlotIncomplete(slot)},
            });
        }
        PrintJson(out, {{"slots", rows}, {"can_graph", canGraph}});
        return ExitDone;
    }

    for (int slot = 0; slot < static_cast<int>(keys->size()); ++slot) {
        out.Line("f" + std::to_string(slot + 1) + " (row " + std::to_string(slot) + ")");
        out.Line("  keys:       " + (*keys)[static_cast<std::size_t>(slot)]);
        out.Line("  entry:      " + EntryText(s, slot));
        out.Line("  display:    " + DisplayText(s, slot));
        out.Line("  graphable:  " + GraphableText(s, slot));
        out.Line("  script:     " + s.ScriptText(slot));
        out.Line(std::string("  complete:   ") + (s.SlotIncomplete(slot) ? "no" : "yes"));
    }
    out.Line(std::string("graph command: ") + (canGraph ? "open" : "closed"));
    return ExitDone;
}

} // namespace vt::cli
