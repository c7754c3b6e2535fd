// veritrace-cli equation: the typeset function rows, as the window shows them, in one image.

#include <algorithm>
#include <memory>

#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "display/Papers.h"
#include "render/Fonts.h"
#include "render/PictureFile.h"
#include "render/RasterSurface.h"
#include "translate/Graphable.h"

namespace vt::cli {

namespace {

// A function row: 4335 by 615 twips.
constexpr int RowWidth = 4335 / 15;
constexpr int RowHeight = 615 / 15;

} // namespace

int EquationCommand(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Typesets each function row that holds a function as the window shows it (unfocused,\n"
        "289 by 41 pixels a row) and writes the rows stacked top to bottom as one PNG or BMP\n"
        "image, or as SVG or PDF with the text in the equation font.");
    AddKeysOption(parser);
    parser.addOption(QCommandLineOption(
        {"o", "output"}, "The picture to write (.png, .bmp, .svg or .pdf).", "FILE"));
    AddPictureOptions(parser);
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;
    const QString output = parser.value("output");
    if (output.isEmpty()) {
        Err("veritrace-cli equation: give the picture to write with -o FILE.png, .bmp, .svg or "
            ".pdf");
        return ExitUsage;
    }
    render::PictureFormat format{};
    int scale = 1;
    if (!PictureOptions(parser, "equation", AllPictureFormats, format, scale)) return ExitUsage;

    render::LoadBundledFonts();
    CliPlatform platform;
    Session s;
    s.Host = &platform;
    LoadKeys(s, keys);
    std::vector<int> filled;
    for (int i = 0; i < UsableSlots; ++i)
        if (!DisplayText(s, i).empty()) filled.push_back(i);
    if (filled.empty()) {
        Err("veritrace-cli equation: no row holds a function");
        return ExitRefused;
    }

    // Each row that holds a function gets its place on the sheet; the rows are drawn as the
    // window draws them, all five, so the typesetter sees what it always sees.
    render::PictureFile picture(output, format, RowWidth,
                                RowHeight * static_cast<int>(filled.size()), scale);
    std::vector<std::unique_ptr<render::RasterSurface>> unused;
    for (int i = 0; i < UsableSlots; ++i) {
        const auto place = std::find(filled.begin(), filled.end(), i);
        Surface* row = nullptr;
        if (place != filled.end()) {
            row = &picture.SurfaceAt(0, RowHeight * static_cast<int>(place - filled.begin()),
                                     RowWidth, RowHeight, true);
        } else {
            unused.push_back(std::make_unique<render::RasterSurface>(RowWidth, RowHeight));
            row = unused.back().get();
        }
        row->FontName = "OrlentisFont";
        row->FontSize = 12;
        s.Paper[static_cast<std::size_t>(i)] = row;
    }
    RedrawPapers(s);
    if (std::string error; !picture.Finish(error)) {
        Err("veritrace-cli equation: " + error);
        return ExitRefused;
    }
    for (const auto& message : platform.Messages)
        Err(message);
    return 0;
}

} // namespace vt::cli
