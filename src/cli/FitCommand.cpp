// veritrace-cli fit: a point series entered as in regression mode, and the fitted polynomial.

#include <optional>
#include <string>
#include <vector>

#include "analysis/PointSeries.h"
#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "cli/Json.h"
#include "plot/Painter.h"
#include "plot/View.h"
#include "render/Fonts.h"
#include "render/RasterSurface.h"
#include "session/NumberText.h"

namespace vt::cli {

namespace {

// One -p or -m, in the order given.
struct PointStep {
    bool ByMouse = false;
    std::string X, Y;
};

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

int FitCommand(const QStringList& arguments) {
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
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;

    if (parser.isSet("linear") && parser.isSet("order")) {
        Err("veritrace-cli fit: give either --linear or --order N");
        return ExitUsage;
    }
    const std::string order = parser.value("order").toStdString();
    if (parser.isSet("order")) {
        const double n = PrefixNumber(order);
        if (!IsNumericText(order) || n != static_cast<int>(n) || n < 2 || n > 10) {
            Err("veritrace-cli fit: --order takes a whole number from 2 to 10");
            return ExitUsage;
        }
    }

    // The points in the order given: the parser lists every option it met, repeats included.
    std::vector<PointStep> steps;
    const QStringList typed = parser.values("p"), clicked = parser.values("m");
    int nextTyped = 0, nextClicked = 0;
    for (const QString& name : parser.optionNames()) {
        if (name != "p" && name != "m") continue;
        PointStep step;
        step.ByMouse = name == "m";
        const QString value = step.ByMouse ? clicked.at(nextClicked++) : typed.at(nextTyped++);
        if (!SplitPair(value.toStdString(), step.X, step.Y)) {
            Err("veritrace-cli fit: -" + name.toStdString() + " takes X,Y");
            return ExitUsage;
        }
        if (step.ByMouse && (!IsNumericText(step.X) || !IsNumericText(step.Y))) {
            Err("veritrace-cli fit: -m takes two numbers X,Y");
            return ExitUsage;
        }
        steps.push_back(step);
    }
    const QStringList atTexts = parser.values("at");
    for (const QString& at : atTexts) {
        if (!IsNumericText(at.toStdString())) {
            Err("x must be a number.");
            return ExitRefused;
        }
    }

    render::LoadBundledFonts();
    CliPlatform platform;
    render::RasterSurface box(400, 400);
    Session s;
    s.Host = &platform;
    s.frmGraph = &box;
    LoadKeys(s, {});
    RedrawGraph(s);
    BindRegression(s);
    mnuPtSeries_Click(s);

    if (parser.isSet("linear")) {
        Command1_Click(s);
    } else if (parser.isSet("order")) {
        s.Panel.Combo1 = NumberText(PrefixNumber(order));
        Command3_Click(s);
    }
    for (const PointStep& step : steps) {
        if (step.ByMouse) {
            frmGraph_MouseDown(s, LeftButton, 0, static_cast<float>(PrefixNumber(step.X)),
                               static_cast<float>(PrefixNumber(step.Y)));
        } else {
            s.Panel.Text2 = step.X;
            s.Panel.Text3 = step.Y;
            Command4_Click(s);
        }
    }

    // The text "Regression Function" would show now, then the values asked for.
    Command5_Click(s);
    RegressionObject& fit = s.FitObject;
    std::vector<std::optional<double>> values;
    for (const QString& at : atTexts)
        values.push_back(fit.RegVal(PrefixNumber(at.toStdString())));
    std::vector<double> coefficients;
    for (int k = 0; k <= WorkingDegree(fit); ++k)
        coefficients.push_back(fit.Coeff(k));
    const int exit = platform.Messages.empty() ? 0 : ExitRefused;

    if (parser.isSet("json")) {
        std::string out = "{\"count\":" + std::to_string(fit.XYCount()) +
                          ",\"degree\":" + std::to_string(fit.Degree()) + ",\"coefficients\":[";
        for (std::size_t k = 0; k < coefficients.size(); ++k)
            out += (k ? "," : "") + NumberText(coefficients[k]);
        out += "],\"equation\":" + JsonString(s.RegressionEquation) + ",\"values\":{";
        for (int i = 0; i < atTexts.size(); ++i) {
            const auto& value = values[static_cast<std::size_t>(i)];
            out += (i ? "," : "") + JsonString(atTexts.at(i).toStdString()) + ":" +
                   (value ? JsonString(NumberText(*value)) : std::string("null"));
        }
        out += "}";
        if (!platform.Messages.empty()) {
            out += ",\"messages\":[";
            for (std::size_t i = 0; i < platform.Messages.size(); ++i)
                out += (i ? "," : "") + JsonString(platform.Messages[i]);
            out += "]";
        }
        Out(out + "}");
        return exit;
    }
    for (const std::string& message : platform.Messages)
        Err(message);
    Out("points: " + std::to_string(fit.XYCount()));
    Out(s.RegressionEquation);
    for (int i = 0; i < atTexts.size(); ++i) {
        const auto& value = values[static_cast<std::size_t>(i)];
        Out("f(" + atTexts.at(i).toStdString() + ") = " + (value ? NumberText(*value) : "none"));
    }
    return exit;
}

} // namespace vt::cli
