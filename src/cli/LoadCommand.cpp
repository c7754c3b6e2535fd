// veritrace-cli load: a graph data file loaded as the window loads it, and the session it
// leaves, what a failed load did before it stopped included.

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

#include "base/NumberText.h"
#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "commands/SaveLoad.h"
#include "entry/Entry.h"
#include "translate/Graphable.h"

namespace vt::cli {

namespace {

// One JSON value as text: wrapped in an array for the writer, and unwrapped again.
std::string JsonOf(const QJsonValue& value) {
    const std::string text =
        QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
    return text.substr(1, text.size() - 2);
}

std::string JsonTexts(const std::vector<std::string>& texts) {
    QJsonArray list;
    for (const std::string& text : texts)
        list.append(JsonText(text));
    return JsonOf(list);
}

} // namespace

Parsed<LoadJob> ParseLoad(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Loads a graph data file as the window loads it: the rows' keys replayed through the\n"
        "entry rules, then the trend, the order and the points. Prints the session it leaves,\n"
        "also when the load stopped with its message (exit code 1).");
    parser.addPositionalArgument("FILE", "The graph data file (.vtx).");
    AddJsonOption(parser);
    if (const auto code = ParseOrHelp(parser, arguments, out)) return *code;
    if (parser.positionalArguments().size() != 1) {
        out.Error("veritrace-cli load: give one graph data file");
        return BadArgument(out, parser.helpText().toStdString());
    }
    return LoadJob{parser.positionalArguments().first().toStdString(), parser.isSet("json")};
}

int RunLoad(const LoadJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    LoadCommandFile(s, job.DataPath);
    const std::vector<std::string>& messages = headless.Messages();
    const std::string message = messages.empty() ? std::string() : messages.back();

    std::vector<std::string> rows, graphable;
    for (int slot = 0; slot < UsableSlots; ++slot) {
        rows.push_back(EntryText(s, slot));
        graphable.push_back(GraphableText(s, slot));
    }
    const int count = s.FitObject.XYCount();
    const int kept = std::clamp(count, 0, PointsCapacity);
    const int orderIndex = static_cast<int>(PrefixNumber(s.Panel.Combo1)) - 2;

    if (job.Json) {
        // Written field by field, so that the fields keep this order.
        QJsonArray points;
        for (int i = 0; i < kept; ++i)
            points.append(QJsonArray{s.Points(i).X, s.Points(i).Y});
        std::string line = "{\"message\":" + JsonOf(message.empty() ? QJsonValue(QJsonValue::Null)
                                                                    : JsonText(message));
        line += ",\"slots\":" + JsonTexts(rows);
        line += ",\"graphable\":" + JsonTexts(graphable);
        line += ",\"count\":" + std::to_string(count);
        line += ",\"points\":" + JsonOf(points);
        line += std::string(",\"linear\":") + (s.Panel.LinearOn ? "true" : "false");
        line += ",\"order_index\":" + std::to_string(orderIndex);
        line += ",\"degree\":" + std::to_string(s.FitObject.Degree()) + "}";
        out.Line(line);
    } else {
        if (!message.empty()) out.Error(message);
        for (int slot = 0; slot < UsableSlots; ++slot) {
            const auto i = static_cast<std::size_t>(slot);
            if (!rows[i].empty())
                out.Line("f" + std::to_string(slot + 1) + ": " + rows[i] + "    " + graphable[i]);
        }
        out.Line("points: " + std::to_string(count));
        for (int i = 0; i < kept; ++i)
            out.Line("  " + NumberText(s.Points(i).X) + ", " + NumberText(s.Points(i).Y));
        out.Line(std::string("trend: ") + (s.Panel.LinearOn ? "Linear" : "Polynomial") +
                 ", order " + s.Panel.Combo1 + ", degree " + std::to_string(s.FitObject.Degree()));
    }
    return message.empty() ? ExitDone : ExitRefused;
}

} // namespace vt::cli
