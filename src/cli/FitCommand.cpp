// veritrace-cli fit: a point series entered as in regression mode, and the fitted polynomial.

#include <QJsonArray>
#include <optional>
#include <string>
#include <vector>

#include "plot/PointSeries.h"
#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "plot/Painter.h"
#include "plot/View.h"
#include "base/NumberText.h"

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

// The coefficients the fit works with: up to its degree, or one less than the count when there
// are no more points than that.
int WorkingDegree(const RegressionObject& fit) {
    return fit.XYCount() <= fit.Degree() ? fit.XYCount() - 1 : fit.Degree();
}

} // namespace

Parsed<FitJob> ParseFit(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Fits a line or a polynomial to points entered as in regression mode. -p enters the two\n"
        "texts as typed into the X and Y boxes of \"Insert Point\"; -m clicks the graph at view\n"
        "coordinates (rounded to whole numbers). Points go in the order given, after the trend\n"
        "is chosen (Linear when none is given). Exit code 1 when a point was refused.");
    parser.addOption(QCommandLineOption("linear", "A straight line (the start-up trend)."));
    parser.addOption(QCommandLineOption("order", "A polynomial of order N, 2 to 10.", "N"));
    parser.addOption(
        QCommandLineOption("p", "A point as typed into the X and Y boxes (repeatable).", "X,Y"));
    parser.addOption(
        QCommandLineOption("m", "A point clicked on the graph at X,Y (repeatable).", "X,Y"));
    parser.addOption(
        QCommandLineOption("at", "An x to give the fitted value at (repeatable).", "X"));
    AddJsonOption(parser);
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;

    FitJob job;
    job.Linear = parser.isSet("linear");
    job.Json = parser.isSet("json");
    if (job.Linear && parser.isSet("order"))
        return BadArgument(out, "veritrace-cli fit: give either --linear or --order N");
    if (parser.isSet("order")) {
        const std::string order = parser.value("order").toStdString();
        const double n = PrefixNumber(order);
        if (!IsNumericText(order) || n != static_cast<int>(n) || n < 2 || n > 10)
            return BadArgument(out, "veritrace-cli fit: --order takes a whole number from 2 to 10");
        job.Order = order;
    }

    // The points in the order given: the parser lists every option it met, repeats included.
    const QStringList typed = parser.values("p"), clicked = parser.values("m");
    int nextTyped = 0, nextClicked = 0;
    for (const QString& name : parser.optionNames()) {
        if (name != "p" && name != "m") continue;
        FitPoint point;
        point.ByMouse = name == "m";
        const QString value = point.ByMouse ? clicked.at(nextClicked++) : typed.at(nextTyped++);
        if (!SplitPair(value.toStdString(), point.X, point.Y))
            return BadArgument(out, "veritrace-cli fit: -" + name.toStdString() + " takes X,Y");
        if (point.ByMouse && (!IsNumericText(point.X) || !IsNumericText(point.Y)))
            return BadArgument(out, "veritrace-cli fit: -m takes two numbers X,Y");
        job.Points.push_back(point);
    }
    for (const QString& at : parser.values("at"))
        job.At.push_back(at.toStdString());
    return job;
}

int RunFit(const FitJob& job, Output& out) {
    for (const std::string& at : job.At) {
        if (!IsNumericText(at)) {
            out.Error("x must be a number.");
            return ExitRefused;
        }
    }

    // The panel's fit is solved by its redraws, so the session gets a graph box as the window's.
    HeadlessSession headless;
    Session& s = headless.S();
    headless.AttachGraphBox(400, 400);
    RedrawGraph(s);
    mnuPtSeries_Click(s);

    if (job.Linear) {
        Command1_Click(s);
    } else if (job.Order) {
        s.Panel.Combo1 = NumberText(PrefixNumber(*job.Order));
        Command3_Click(s);
    }
    for (const FitPoint& point : job.Points) {
        if (point.ByMouse) {
            frmGraph_MouseDown(s, LeftButton, 0, static_cast<float>(PrefixNumber(point.X)),
                               static_cast<float>(PrefixNumber(point.Y)));
        } else {
            s.Panel.Text2 = point.X;
            s.Panel.Text3 = point.Y;
            Command4_Click(s);
        }
    }

    // The text "Regression Function" would show now, then the values asked for.
    Command5_Click(s);
    RegressionObject& fit = s.FitObject;
    std::vector<std::optional<double>> values;
    for (const std::string& at : job.At)
        values.push_back(fit.RegVal(PrefixNumber(at)));
    const std::vector<std::string>& messages = headless.Messages();
    const int exit = messages.empty() ? ExitDone : ExitRefused;

    if (job.Json) {
        // Each coefficient as the program writes a number (15 significant digits), so that a
        // line through 1,3 and 2,1 reads 5 and -2 rather than the sums' last binary digits.
        QJsonArray coefficients;
        for (int k = 0; k <= WorkingDegree(fit); ++k)
            coefficients.append(PrefixNumber(NumberText(fit.Coeff(k))));
        QJsonObject valueTable;
        for (std::size_t i = 0; i < job.At.size(); ++i)
            valueTable.insert(QString::fromStdString(job.At[i]),
                              values[i] ? JsonText(NumberText(*values[i])) : QJsonValue());
        QJsonObject object{{"count", fit.XYCount()},
                           {"degree", fit.Degree()},
                           {"coefficients", coefficients},
                           {"equation", JsonText(s.RegressionEquation)},
                           {"values", valueTable}};
        if (!messages.empty()) {
            QJsonArray shown;
            for (const std::string& message : messages)
                shown.append(JsonText(message));
            object.insert("messages", shown);
        }
        PrintJson(out, object);
        return exit;
    }
    for (const std::string& message : messages)
        out.Error(message);
    out.Line("points: " + std::to_string(fit.XYCount()));
    out.Line(s.RegressionEquation);
    for (std::size_t i = 0; i < job.At.size(); ++i)
        out.Line("f(" + job.At[i] + ") = " + (values[i] ? NumberText(*values[i]) : "none"));
    return exit;
}

} // namespace vt::cli
