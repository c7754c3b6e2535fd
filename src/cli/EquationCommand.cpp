// veritrace-cli equation: the typeset function rows, as the window shows them, in one image.

#include <QFileInfo>
#include <algorithm>
#include <memory>

#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "display/Papers.h"
#include "render/EquationPaper.h"
#include "render/PictureFile.h"
#include "render/RasterSurface.h"
#include "translate/Graphable.h"

namespace vt::cli {

Parsed<EquationJob> ParseEquation(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Typesets each function row that holds a function as the window shows it (unfocused,\n"
        "289 by 41 pixels a row) and writes the rows stacked top to bottom as one PNG or BMP\n"
        "image, or as SVG or PDF with the text in the equation font.");
    AddKeysOption(parser);
    parser.addOption(QCommandLineOption(
        {"o", "output"}, "The picture to write (.png, .bmp, .svg or .pdf).", "FILE"));
    AddPictureOptions(parser);
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    EquationJob job;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    job.Keys = std::move(*keys);
    job.File = ReadFileOption(parser);
    const QString output = parser.value("output");
    if (output.isEmpty())
        return BadArgument(out, "veritrace-cli equation: give the picture to write with -o "
                                "FILE.png, .bmp, .svg or .pdf");
    const auto picture = PictureOptions(parser, "equation", AllPictureFormats, out);
    if (!picture) return ExitUsage;
    job.ImagePath = output.toStdString();
    job.Picture = *picture;
    return job;
}

int RunEquation(const EquationJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    if (!headless.LoadFunctions(job.Keys, job.File, out)) return ExitRefused;
    std::vector<int> filled;
    for (int i = 0; i < UsableSlots; ++i)
        if (!DisplayText(s, i).empty()) filled.push_back(i);
    if (filled.empty()) {
        out.Error("veritrace-cli equation: no row holds a function");
        return ExitRefused;
    }

    // Each row that holds a function gets its place on the sheet; the rows are drawn as the
    // window draws them, all five, so the typesetter sees what it always sees.
    constexpr int width = render::RowPaperWidth, height = render::RowPaperHeight;
    render::PictureFile picture(QString::fromStdString(job.ImagePath), job.Picture.Format, width,
                                height * static_cast<int>(filled.size()), job.Picture.Scale);
    std::vector<std::unique_ptr<render::RasterSurface>> unused;
    for (int i = 0; i < UsableSlots; ++i) {
        const auto place = std::find(filled.begin(), filled.end(), i);
        Surface* row = nullptr;
        if (place != filled.end()) {
            row = &picture.SurfaceAt(0, height * static_cast<int>(place - filled.begin()), width,
                                     height, true);
            render::SetUpRowPaper(*row);
        } else {
            unused.push_back(render::NewRowPaper());
            row = unused.back().get();
        }
        headless.LendRow(i, *row);
    }
    RedrawPapers(s);
    if (std::string error; !picture.Finish(error)) {
        out.Error("veritrace-cli equation: " + error);
        return ExitRefused;
    }
    for (const auto& message : headless.Messages())
        out.Error(message);
    return ExitDone;
}

} // namespace vt::cli
