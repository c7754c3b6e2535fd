// veritrace-cli export: the graph box painted as the window paints it, written to an image.

#include <QFileInfo>
#include <QImage>

#include "analysis/Area.h"
#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "cli/Json.h"
#include "plot/Painter.h"
#include "plot/Tracing.h"
#include "render/Fonts.h"
#include "render/RasterSurface.h"
#include "session/NumberText.h"

namespace vt::cli {

namespace {

// "XMIN,XMAX,YMIN,YMAX": four numbers, the minimum of each pair below its maximum.
bool ParseView(const std::string& text, double bounds[4]) {
    std::size_t start = 0;
    for (int i = 0; i < 4; ++i) {
        const std::size_t comma = text.find(',', start);
        if ((i < 3) != (comma != std::string::npos)) return false;
        const std::string part = text.substr(start, i < 3 ? comma - start : std::string::npos);
        if (!IsNumericText(part)) return false;
        bounds[i] = PrefixNumber(part);
        start = comma + 1;
    }
    return bounds[0] < bounds[1] && bounds[2] < bounds[3];
}

// "FROM,TO[,STYLE]": two numbers and a fill style 0..7 (solid when left out).
bool ParseShade(const std::string& text, double& from, double& to, int& style) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t comma = text.find(',', start);
        parts.push_back(text.substr(start, comma - start));
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    if (parts.size() < 2 || parts.size() > 3) return false;
    for (const auto& part : parts)
        if (!IsNumericText(part)) return false;
    from = PrefixNumber(parts[0]);
    to = PrefixNumber(parts[1]);
    const double fill = parts.size() == 3 ? PrefixNumber(parts[2]) : 0;
    if (fill != static_cast<int>(fill) || fill < 0 || fill > 7) return false;
    style = static_cast<int>(fill);
    return true;
}

std::string JsonNumber(double value) { return NumberText(value); }

} // namespace

int ExportCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Paints the graph box of the functions as the window does (400 by 400 pixels) and\n"
        "writes it as a BMP or PNG image. With --auto the view is first scaled as the toolbar's\n"
        "Graph button scales it.");
    AddKeysOption(parser);
    parser.addOption(QCommandLineOption({"o", "output"}, "The image to write (.bmp or .png).",
                                        "FILE"));
    parser.addOption(QCommandLineOption(
        "view", "The view before painting (default -20,20,-20,20).", "XMIN,XMAX,YMIN,YMAX"));
    parser.addOption(QCommandLineOption("auto", "Scale the view as the Graph button does."));
    parser.addOption(QCommandLineOption("hide-grid", "Leave out the grid (Hide Grid)."));
    parser.addOption(QCommandLineOption("quadrants", "Show the quadrant numerals."));
    parser.addOption(QCommandLineOption(
        "shade", "Shade the area under the function between two x, as Shade Area does; STYLE is "
                 "the fill style 0..7 (0 solid, 1 transparent, 2..7 hatches).",
        "FROM,TO[,STYLE]"));
    AddJsonOption(parser);
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;

    const QString output = parser.value("output");
    if (output.isEmpty()) {
        Err("veritrace-cli export: give the image to write with -o FILE.bmp or FILE.png");
        return ExitUsage;
    }
    const QString suffix = QFileInfo(output).suffix().toLower();
    if (suffix != "bmp" && suffix != "png") {
        Err("veritrace-cli export: the image must end in .bmp or .png: " + output.toStdString());
        return ExitUsage;
    }
    double view[4] = {-20, 20, -20, 20};
    if (parser.isSet("view") && !ParseView(parser.value("view").toStdString(), view)) {
        Err("veritrace-cli export: --view takes four numbers XMIN,XMAX,YMIN,YMAX with each "
            "minimum below its maximum");
        return ExitUsage;
    }

    double shadeFrom = 0, shadeTo = 0;
    int shadeStyle = 0;
    if (parser.isSet("shade") &&
        !ParseShade(parser.value("shade").toStdString(), shadeFrom, shadeTo, shadeStyle)) {
        Err("veritrace-cli export: --shade takes FROM,TO or FROM,TO,STYLE with STYLE 0 to 7");
        return ExitUsage;
    }

    render::LoadBundledFonts();
    CliPlatform platform;
    render::RasterSurface box(400, 400);
    Session s;
    s.Host = &platform;
    s.frmGraph = &box;

    // As the window starts: the empty graph is painted once before anything is typed.
    LoadKeys(s, {});
    RedrawGraph(s);
    if (const int code = LoadFunctions(s, parser, keys); code >= 0) return code;
    s.ViewXMin = view[0];
    s.ViewXMax = view[1];
    s.ViewYMin = view[2];
    s.ViewYMax = view[3];
    s.HideGridChecked = parser.isSet("hide-grid");
    s.GraphQuadrantChecked = parser.isSet("quadrants");
    if (parser.isSet("shade")) ApplyShade(s, shadeFrom, shadeTo, shadeStyle);
    if (parser.isSet("auto"))
        AutoGraph(s);
    else
        RedrawGraph(s);

    if (!box.QtImage().save(output, suffix == "bmp" ? "BMP" : "PNG")) {
        Err("veritrace-cli export: could not write " + output.toStdString());
        return ExitRefused;
    }

    if (parser.isSet("json")) {
        std::string out = "{\"view\":[" + JsonNumber(s.ViewXMin) + "," + JsonNumber(s.ViewXMax) +
                          "," + JsonNumber(s.ViewYMin) + "," + JsonNumber(s.ViewYMax) + "]";
        out += ",\"sample_step\":" + JsonNumber(s.SampleStep);
        out += std::string(",\"curve_drawn\":") + JsonBool(s.CurveDrawn);
        out += ",\"message\":" +
               (platform.Messages.empty() ? std::string("null")
                                          : JsonString(platform.Messages.back()));
        out += ",\"coordinates\":[";
        for (std::size_t i = 0; i < s.ListView1.size(); ++i) {
            const auto& item = s.ListView1[i];
            out += (i ? "," : "") + std::string("{\"text\":") + JsonString(item.Text) +
                   ",\"color\":" + std::to_string(item.Colour) + "}";
        }
        Out(out + "]}");
    }
    return 0;
}

} // namespace vt::cli
