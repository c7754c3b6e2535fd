// veritrace-cli formulas: what the program makes of each typed function.

#include "cli/Command.h"
#include "cli/Json.h"
#include "entry/Entry.h"
#include "plot/Evaluate.h"
#include "translate/Graphable.h"

namespace vt::cli {

int FormulasCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Replays the keys of each function row as loading a graph data file does, and shows\n"
        "the row's entry text, its display text, its evaluator text (as built and as evaluated)\n"
        "and whether it is complete; then whether the graph commands are open.");
    AddKeysOption(parser);
    AddJsonOption(parser);
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;
    if (keys.empty() && !parser.isSet("file")) {
        Err("veritrace-cli formulas: give at least one function with -k KEYS");
        return ExitUsage;
    }

    Session s;
    if (const int code = LoadFunctions(s, parser, keys); code >= 0) return code;
    PreCalcFX(s);
    const bool canGraph = CanGraph(s);

    if (parser.isSet("json")) {
        std::string out = "{\"slots\":[";
        for (int slot = 0; slot < UsableSlots; ++slot) {
            const std::string given =
                slot < static_cast<int>(keys.size()) ? keys[static_cast<std::size_t>(slot)] : "";
            if (slot > 0) out += ",";
            out += "{\"slot\":" + std::to_string(slot) + ",\"keys\":" + JsonString(given) +
                   ",\"entry\":" + JsonString(EntryText(s, slot)) +
                   ",\"display\":" + JsonString(DisplayText(s, slot)) +
                   ",\"graphable\":" + JsonString(GraphableText(s, slot)) +
                   ",\"script\":" + JsonString(s.ScriptText(slot)) +
                   ",\"incomplete\":" + JsonBool(s.SlotIncomplete(slot)) + "}";
        }
        out += std::string("],\"can_graph\":") + JsonBool(canGraph) + "}";
        Out(out);
        return 0;
    }

    for (int slot = 0; slot < static_cast<int>(keys.size()); ++slot) {
        Out("f" + std::to_string(slot + 1) + " (row " + std::to_string(slot) + ")");
        Out("  keys:       " + keys[static_cast<std::size_t>(slot)]);
        Out("  entry:      " + EntryText(s, slot));
        Out("  display:    " + DisplayText(s, slot));
        Out("  graphable:  " + GraphableText(s, slot));
        Out("  script:     " + s.ScriptText(slot));
        Out(std::string("  complete:   ") + (s.SlotIncomplete(slot) ? "no" : "yes"));
    }
    Out(std::string("graph command: ") + (canGraph ? "open" : "closed"));
    return 0;
}

} // namespace vt::cli
