// veritrace-cli fit: a point series entered as in regression mode, and the fitted polynomial.

#include <QJsonArray>
#include <optional>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "cli/PointEntry.h"
#include "plot/Painter.h"
#include "plot/PointSeries.h"
#include "plot/View.h"

namespace vt::cli {

namespace {

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
    AddPointOptions(parser);
    parser.addOption(
        QCommandLineOption("at", "An x to give the fitted value at (repeatable).", "X"));
    AddJsonOption(parser);
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;

    const std::optional<PointEntry> entry = ReadPointEntry(parser, "fit", out);
    if (!entry) return ExitUsage;
    FitJob job;
    job.Order = entry->Order;
    job.Linear = entry->Linear;
    job.Points = entry->Points;
    job.Json = parser.isSet("json");
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
    EnterPoints(s, {job.Order, job.Linear, job.Points});

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
