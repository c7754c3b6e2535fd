#include "cli/PointEntry.h"

#include "base/NumberText.h"
#include "plot/PointSeries.h"
#include "plot/View.h"

namespace vt::cli {

namespace {

// "X,Y" split at its first comma; false without one.
bool SplitPair(const std::string& value, std::string& x, std::string& y) {
    const std::size_t comma = value.find(',');
    if (comma == std::string::npos) return false;
    x = value.substr(0, comma);
    y = value.substr(comma + 1);
    return true;
}

} // namespace

void AddPointOptions(QCommandLineParser& parser) {
    parser.addOption(QCommandLineOption("linear", "A straight line (the start-up trend)."));
    parser.addOption(QCommandLineOption("order", "A polynomial of order N, 2 to 10.", "N"));
    parser.addOption(
        QCommandLineOption("p", "A point as typed into the X and Y boxes (repeatable).", "X,Y"));
    parser.addOption(
        QCommandLineOption("m", "A point clicked on the graph at X,Y (repeatable).", "X,Y"));
}

std::optional<PointEntry> ReadPointEntry(const QCommandLineParser& parser, const char* command,
                                         Output& out) {
    const std::string name = std::string("veritrace-cli ") + command + ": ";
    PointEntry entry;
    entry.Linear = parser.isSet("linear");
    if (entry.Linear && parser.isSet("order")) {
        BadArgument(out, name + "give either --linear or --order N");
        return std::nullopt;
    }
    if (parser.isSet("order")) {
        const std::string order = parser.value("order").toStdString();
        const double n = PrefixNumber(order);
        if (!IsNumericText(order) || n != static_cast<int>(n) || n < 2 || n > 10) {
            BadArgument(out, name + "--order takes a whole number from 2 to 10");
            return std::nullopt;
        }
        entry.Order = order;
    }

    // The points in the order given: the parser lists every option it met, repeats included.
    const QStringList typed = parser.values("p"), clicked = parser.values("m");
    int nextTyped = 0, nextClicked = 0;
    for (const QString& option : parser.optionNames()) {
        if (option != "p" && option != "m") continue;
        FitPoint point;
        point.ByMouse = option == "m";
        const QString value = point.ByMouse ? clicked.at(nextClicked++) : typed.at(nextTyped++);
        if (!SplitPair(value.toStdString(), point.X, point.Y)) {
            BadArgument(out, name + "-" + option.toStdString() + " takes X,Y");
            return std::nullopt;
        }
        if (point.ByMouse && (!IsNumericText(point.X) || !IsNumericText(point.Y))) {
            BadArgument(out, name + "-m takes two numbers X,Y");
            return std::nullopt;
        }
        entry.Points.push_back(point);
    }
    return entry;
}

void EnterPoints(Session& s, const PointEntry& entry) {
    if (!InRegressionMode(s)) mnuPtSeries_Click(s);
    if (entry.Linear) {
        Command1_Click(s);
    } else if (entry.Order) {
        s.Panel.Combo1 = NumberText(PrefixNumber(*entry.Order));
        Command3_Click(s);
    }
    for (const FitPoint& point : entry.Points) {
        if (point.ByMouse) {
            frmGraph_MouseDown(s, LeftButton, 0, static_cast<float>(PrefixNumber(point.X)),
                               static_cast<float>(PrefixNumber(point.Y)));
        } else {
            s.Panel.Text2 = point.X;
            s.Panel.Text3 = point.Y;
            Command4_Click(s);
        }
    }
}

} // namespace vt::cli
