// veritrace-cli equation: the typeset function rows, as the window shows them, in one image.

#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <memory>

#include "cli/CliPlatform.h"
#include "cli/Command.h"
#include "display/Papers.h"
#include "render/Fonts.h"
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
        "289 by 41 pixels a row) and writes the rows stacked top to bottom as one PNG or BMP.");
    AddKeysOption(parser);
    parser.addOption(QCommandLineOption({"o", "output"}, "The image to write (.png or .bmp).",
                                        "FILE"));
    if (const int code = ParseOrExit(parser, arguments); code >= 0) return code;
    std::vector<std::string> keys;
    if (!KeyStrings(parser, keys)) return ExitUsage;
    const QString output = parser.value("output");
    const QString suffix = QFileInfo(output).suffix().toLower();
    if (output.isEmpty() || (suffix != "png" && suffix != "bmp")) {
        Err("veritrace-cli equation: give the image to write with -o FILE.png or FILE.bmp");
        return ExitUsage;
    }

    render::LoadBundledFonts();
    CliPlatform platform;
    Session s;
    s.Host = &platform;
    std::vector<std::unique_ptr<render::RasterSurface>> rows;
    for (int i = 0; i < UsableSlots; ++i) {
        auto row = std::make_unique<render::RasterSurface>(RowWidth, RowHeight);
        row->FontName = "OrlentisFont";
        row->FontSize = 12;
        row->SmoothText = true;
        row->Cls();
        s.Paper[static_cast<std::size_t>(i)] = row.get();
        rows.push_back(std::move(row));
    }
    if (const int code = LoadFunctions(s, parser, keys); code >= 0) return code;
    RedrawPapers(s);

    std::vector<int> filled;
    for (int i = 0; i < UsableSlots; ++i)
        if (!DisplayText(s, i).empty()) filled.push_back(i);
    if (filled.empty()) {
        Err("veritrace-cli equation: no row holds a function");
        return ExitRefused;
    }
    QImage sheet(RowWidth, RowHeight * static_cast<int>(filled.size()), QImage::Format_RGB32);
    sheet.setDotsPerMeterX(3780);
    sheet.setDotsPerMeterY(3780);
    QPainter painter(&sheet);
    for (std::size_t n = 0; n < filled.size(); ++n)
        painter.drawImage(0, RowHeight * static_cast<int>(n),
                          rows[static_cast<std::size_t>(filled[n])]->QtImage());
    painter.end();
    if (!sheet.save(output, suffix == "bmp" ? "BMP" : "PNG")) {
        Err("veritrace-cli equation: could not write " + output.toStdString());
        return ExitRefused;
    }
    for (const auto& message : platform.Messages) Err(message);
    return 0;
}

} // namespace vt::cli
