// veritrace-cli export: the graph box painted as the window paints it, written to an image.

#include <QJsonArray>

#include "analysis/Area.h"
#include "base/NumberText.h"
#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/Json.h"
#include "cli/Limits.h"
#include "cli/PointEntry.h"
#include "plot/Painter.h"
#include "plot/Tracing.h"
#include "plot/View.h"
#include "render/PictureFile.h"

namespace vt::cli {

namespace {

// The graph box, 400 by 400 pixels.
constexpr int GraphBoxPixels = 400;

// The numbers of a comma-separated list, each numeric text; none when one is not.
std::optional<std::vector<double>> NumberList(const std::string& text) {
    std::vector<double> numbers;
    std::size_t start = 0;
    for (;;) {
        const std::size_t comma = text.find(',', start);
        const std::string part = text.substr(start, comma - start);
        if (!IsNumericText(part)) return std::nullopt;
        numbers.push_back(PrefixNumber(part));
        if (comma == std::string::npos) return numbers;
        start = comma + 1;
    }
}

// "XMIN,XMAX,YMIN,YMAX": four numbers, the minimum of each pair below its maximum.
std::optional<ViewBounds> ParseView(const std::string& text) {
    const auto numbers = NumberList(text);
    if (!numbers || numbers->size() != 4) return std::nullopt;
    const ViewBounds view{(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]};
    if (!(view.XMin < view.XMax && view.YMin < view.YMax)) return std::nullopt;
    return view;
}

// "FROM,TO[,STYLE]": two numbers and a fill style 0..7 (solid when left out).
std::optional<ShadeBand> ParseShade(const std::string& text) {
    const auto numbers = NumberList(text);
    if (!numbers || numbers->size() < 2 || numbers->size() > 3) return std::nullopt;
    const double fill = numbers->size() == 3 ? (*numbers)[2] : 0;
    if (!(fill >= 0 && fill <= 7) || fill != static_cast<int>(fill)) return std::nullopt;
    return ShadeBand{(*numbers)[0], (*numbers)[1], static_cast<int>(fill)};
}

} // namespace

Parsed<ExportJob> ParseExport(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Paints the graph box of the functions as the window does (400 by 400 pixels) and\n"
        "writes it as a PNG or BMP image, or as SVG or PDF with lines and text as vectors.\n"
        "With --auto the view is first scaled as the toolbar's Graph button scales it. A view\n"
        "too large or too narrow to paint is refused. With -p, -m, --linear or --order it\n"
        "paints regression mode instead: the grid, the curve fitted to the points, and the\n"
        "points, entered as veritrace-cli fit enters them.");
    AddKeysOption(parser);
    parser.addOption(QCommandLineOption(
        {"o", "output"}, "The picture to write (.png, .bmp, .svg or .pdf).", "FILE"));
    AddPictureOptions(parser);
    parser.addOption(QCommandLineOption("view", "The view before painting (default -20,20,-20,20).",
                                        "XMIN,XMAX,YMIN,YMAX"));
    parser.addOption(QCommandLineOption("auto", "Scale the view as the Graph button does."));
    parser.addOption(QCommandLineOption("hide-grid", "Leave out the grid (Hide Grid)."));
    parser.addOption(QCommandLineOption("quadrants", "Show the quadrant numerals."));
    parser.addOption(QCommandLineOption(
        "shade",
        "Shade the area under the function between two x, as Shade Area does; STYLE is "
        "the fill style 0..7 (0 solid, 1 transparent, 2..7 hatches).",
        "FROM,TO[,STYLE]"));
    AddBracketNegativeXOption(parser);
    AddPointOptions(parser);
    AddJsonOption(parser);
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    ExportJob job;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    job.Keys = std::move(*keys);
    job.File = ReadFileOption(parser);

    const QString output = parser.value("output");
    if (output.isEmpty())
        return BadArgument(out, "veritrace-cli export: give the picture to write with -o "
                                "FILE.png, .bmp, .svg or .pdf");
    const auto picture = PictureOptions(parser, "export", AllPictureFormats, out);
    if (!picture) return ExitUsage;
    job.ImagePath = output.toStdString();
    job.Picture = *picture;

    if (parser.isSet("view")) {
        const auto view = ParseView(parser.value("view").toStdString());
        if (!view)
            return BadArgument(out, "veritrace-cli export: --view takes four numbers "
                                    "XMIN,XMAX,YMIN,YMAX with each minimum below its maximum");
        job.View = *view;
    }
    // The paint's samples follow the box's pixels, so they stay few for any view it can paint;
    // only the bounds themselves need checking. --auto zooms out only from a view of small
    // bounds, and a reset goes back to the default view.
    if (const std::string refusal = ViewRefusal(job.View, GraphBoxPixels); !refusal.empty())
        return BadArgument(out, "veritrace-cli export: " + refusal);

    if (parser.isSet("shade")) {
        job.Shade = ParseShade(parser.value("shade").toStdString());
        if (!job.Shade)
            return BadArgument(
                out,
                "veritrace-cli export: --shade takes FROM,TO or FROM,TO,STYLE with STYLE 0 to 7");
    }
    job.Auto = parser.isSet("auto");
    job.HideGrid = parser.isSet("hide-grid");
    job.Quadrants = parser.isSet("quadrants");
    job.Json = parser.isSet("json");
    job.BracketNegativeX = parser.isSet("bracket-negative-x");
    const std::optional<PointEntry> series = ReadPointEntry(parser, "export", out);
    if (!series) return ExitUsage;
    job.Series = *series;
    return job;
}

int RunExport(const ExportJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    s.BracketNegativeX = job.BracketNegativeX;
    render::PictureFile picture(QString::fromStdString(job.ImagePath), job.Picture.Format,
                                GraphBoxPixels, GraphBoxPixels, job.Picture.Scale);
    Surface& box = picture.SurfaceAt(0, 0, GraphBoxPixels, GraphBoxPixels);
    headless.LendGraphBox(box);

    // As the window starts: the empty graph is painted once before anything is typed.
    RedrawGraph(s);
    if (!headless.LoadFunctions(job.Keys, job.File, out)) return ExitRefused;
    s.ViewXMin = job.View.XMin;
    s.ViewXMax = job.View.XMax;
    s.ViewYMin = job.View.YMin;
    s.ViewYMax = job.View.YMax;
    s.HideGridChecked = job.HideGrid;
    s.GraphQuadrantChecked = job.Quadrants;
    if (job.Shade) ApplyShade(s, job.Shade->From, job.Shade->To, job.Shade->Style);
    if (!job.Series.Empty()) {
        // Regression mode: every redraw, the Graph button's included, is the regression redraw.
        EnterPoints(s, job.Series);
        RedrawRegression(s);
    } else if (job.Auto) {
        AutoGraph(s);
    } else {
        RedrawGraph(s);
    }

    if (std::string error; !picture.Finish(error)) {
        out.Error("veritrace-cli export: " + error);
        return ExitRefused;
    }

    if (job.Json) {
        QJsonArray coordinates;
        for (const auto& item : s.ListView1)
            coordinates.append(QJsonObject{{"text", JsonText(item.Text)},
                                           {"color", static_cast<qint64>(item.Colour)}});
        const auto& messages = headless.Messages();
        PrintJson(out, {{"view", QJsonArray{s.ViewXMin, s.ViewXMax, s.ViewYMin, s.ViewYMax}},
                        {"sample_step", s.SampleStep},
                        {"curve_drawn", s.CurveDrawn},
                        {"message", messages.empty() ? QJsonValue() : JsonText(messages.back())},
                        {"coordinates", coordinates}});
    }
    return ExitDone;
}

} // namespace vt::cli
