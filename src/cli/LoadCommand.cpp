// veritrace-cli load: a graph data file loaded as the window loads it, and the session it
// leaves, partial state included when the load stopped part way.

#include <algorithm>

#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "cli/Json.h"
#include "entry/Entry.h"
#include "session/NumberText.h"
#include "translate/Graphable.h"

namespace vt::cli {

namespace {

std::string JsonTexts(const std::vector<std::string>& texts) {
    std::string out = "[";
    for (std::size_t i = 0; i < texts.size(); ++i)
        out += (i ? "," : "") + JsonString(texts[i]);
    return out + "]";
}

} // namespace

int LoadCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Loads a graph data file as the window loads it: the rows' keys replayed through the\n"
        "entry rules, then the trend, the order and the points. Prints the session it leaves.");
    parser.addPositionalArgument("FILE", "The graph data file (.vtx).");
    AddJsonOption(parser);
    const QCommandLineOption help = parser.addHelpOption();
    if (!parser.parse(arguments)) {
        Err("veritrace-cli: " + parser.errorText().toStdString());
        Err(parser.helpText().toStdString());
        return ExitUsage;
    }
    if (parser.isSet(help)) {
        Out(parser.helpText().toStdString());
        return 0;
    }
    if (parser.positionalArguments().size() != 1) {
        Err("veritrace-cli load: give one graph data file");
        Err(parser.helpText().toStdString());
        return ExitUsage;
    }

    CliPlatform platform;
    Session s;
    s.Host = &platform;
    const std::string message =
        LoadFile(s, parser.positionalArguments().first().toLocal8Bit().toStdString());

    std::vector<std::string> rows, graphable;
    for (int slot = 0; slot < UsableSlots; ++slot) {
        rows.push_back(EntryText(s, slot));
        graphable.push_back(GraphableText(s, slot));
    }
    const int count = s.FitObject.XYCount();
    const int kept = std::clamp(count, 0, PointsCapacity);
    const int orderIndex = static_cast<int>(PrefixNumber(s.Panel.Combo1)) - 2;

    if (parser.isSet("json")) {
        std::string out = "{\"message\":" + (message.empty() ? "null" : JsonString(message));
        out += ",\"slots\":" + JsonTexts(rows);
        out += ",\"graphable\":" + JsonTexts(graphable);
        out += ",\"count\":" + std::to_string(count) + ",\"points\":[";
        for (int i = 0; i < kept; ++i)
            out += (i ? ",[" : "[") + NumberText(s.Points(i).X) + "," + NumberText(s.Points(i).Y) +
                   "]";
        out += std::string("],\"linear\":") + JsonBool(s.Panel.LinearOn);
        out += ",\"order_index\":" + std::to_string(orderIndex);
        out += ",\"degree\":" + std::to_string(s.FitObject.Degree()) + "}";
        Out(out);
    } else {
        if (!message.empty()) Err(message);
        for (int slot = 0; slot < UsableSlots; ++slot)
            if (!rows[slot].empty())
                Out("f" + std::to_string(slot) + ": " + rows[slot] + "    " + graphable[slot]);
        Out("points: " + std::to_string(count));
        for (int i = 0; i < kept; ++i)
            Out("  " + NumberText(s.Points(i).X) + ", " + NumberText(s.Points(i).Y));
        Out(std::string("trend: ") + (s.Panel.LinearOn ? "Linear" : "Polynomial") + ", order " +
            s.Panel.Combo1 + ", degree " + std::to_string(s.FitObject.Degree()));
    }
    return message.empty() ? 0 : ExitRefused;
}

} // namespace vt::cli
