// veritrace-cli save: the graph data file the window would write for a session given as keys,
// points and a trend.

#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "entry/Entry.h"
#include "output/SaveLoad.h"
#include "session/NumberText.h"
#include "session/Startup.h"

namespace vt::cli {

namespace {

// "X,Y": the two texts as typed into the X and Y boxes; only the comma is needed here.
bool SplitPoint(const QString& value, std::string& x, std::string& y) {
    const qsizetype comma = value.indexOf(',');
    if (comma < 0) return false;
    x = value.left(comma).toStdString();
    y = value.mid(comma + 1).toStdString();
    return true;
}

} // namespace

int SaveCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Writes the graph data file the window would save for the session: the keys replayed\n"
        "into the rows as a load replays them, the trend chosen, then the points entered.");
    AddKeysOption(parser);
    parser.addOption(QCommandLineOption(
        {"p", "point"}, "A point as typed into Insert Point's X and Y boxes (repeatable).", "X,Y"));
    parser.addOption(QCommandLineOption("linear", "The Linear trend (the default)."));
    parser.addOption(
        QCommandLineOption("order", "The Polynomial trend of order N (2 to 10).", "N"));
    parser.addOption(
        QCommandLineOption({"o", "output"}, "The graph data file to write.", "FILE.vtx"));
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    if (parser.isSet("file")) {
        Err("veritrace-cli save: the session is given with -k, -p, -m and the trend, not -f");
        return ExitUsage;
    }
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;
    const QString output = parser.value("output");
    if (output.isEmpty()) {
        Err("veritrace-cli save: give the file to write with -o FILE.vtx");
        return ExitUsage;
    }
    if (parser.isSet("linear") && parser.isSet("order")) {
        Err("veritrace-cli save: choose --linear or --order N, not both");
        return ExitUsage;
    }
    int order = 0;
    if (parser.isSet("order")) {
        const std::string text = parser.value("order").toStdString();
        const double value = PrefixNumber(text);
        if (!IsNumericText(text) || value != static_cast<int>(value) || value < 2 || value > 10) {
            Err("veritrace-cli save: --order takes a whole number from 2 to 10");
            return ExitUsage;
        }
        order = static_cast<int>(value);
    }
    std::vector<std::pair<std::string, std::string>> typed;
    for (const QString& value : parser.values("point")) {
        std::string x, y;
        if (!SplitPoint(value, x, y)) {
            Err("veritrace-cli save: a point is given as X,Y: " + value.toStdString());
            return ExitUsage;
        }
        typed.push_back({x, y});
    }

    CliPlatform platform;
    Session s;
    s.Host = &platform;
    StartSession(s);
    // The rows as a load leaves them: cleared, then each row's keys replayed.
    ClearAllRows(s);
    for (std::size_t slot = 0; slot < keys.size(); ++slot)
        ReplaySlotKeys(s, static_cast<int>(slot), keys[slot]);

    // The trend as the panel chooses it, with no points yet: the fit's degree.
    if (order != 0) {
        s.Panel.Combo1 = std::to_string(order);
        s.Panel.LinearOn = false;
        s.Panel.PolynomialOn = true;
        s.FitObject.SetDegree(order);
    }
    // Each point as Insert Point takes it: both texts numbers, or the message and no point.
    for (const auto& [x, y] : typed) {
        if (!IsNumericText(x) || !IsNumericText(y)) {
            platform.MsgBox("X and Y must be numbers.", MsgOkOnly, "");
            continue;
        }
        if (s.FitObject.XYAdd(PrefixNumber(x), PrefixNumber(y))) continue;
        const int count = s.FitObject.XYCount();
        if (count <= PointsCapacity) s.Points(count - 1) = {PrefixNumber(x), PrefixNumber(y)};
    }
    for (const std::string& message : platform.Messages)
        Err(message);

    const std::optional<std::string> text = GraphDataText(s);
    if (!text) {
        Err(SaveFailedText);
        return ExitRefused;
    }
    if (!WriteGraphDataFile(output.toLocal8Bit().toStdString(), *text)) {
        Err("veritrace-cli save: could not write " + output.toStdString());
        return ExitRefused;
    }
    return platform.Messages.empty() ? 0 : ExitRefused;
}

} // namespace vt::cli
