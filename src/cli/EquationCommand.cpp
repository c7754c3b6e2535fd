// veritrace-cli equation: the typeset function rows, as the window shows them, in one image.

#include <QFileInfo>
#include <QImage>
#include <QPainter>

#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "display/Papers.h"
#include "render/EquationPaper.h"
#include "translate/Graphable.h"

namespace vt::cli {

Parsed<EquationJob> ParseEquation(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Typesets each function row that holds a function as the window shows it (unfocused,\n"
        "289 by 41 pixels a row) and writes the rows stacked top to bottom as one PNG or BMP.");
    AddKeysOption(parser);
    parser.addOption(
        QCommandLineOption({"o", "output"}, "The image to write (.png or .bmp).", "FILE"));
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    EquationJob job;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    job.Keys = std::move(*keys);
    const QString output = parser.value("output");
    const QString suffix = QFileInfo(output).suffix().toLower();
    if (output.isEmpty() || (suffix != "png" && suffix != "bmp"))
        return BadArgument(
            out, "veritrace-cli equation: give the image to write with -o FILE.png or FILE.bmp");
    job.ImagePath = output.toStdString();
    return job;
}

int RunEquation(const EquationJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    headless.AttachRows();
    headless.LoadRows(job.Keys);
    RedrawPapers(s);

    std::vector<int> filled;
    for (int i = 0; i < UsableSlots; ++i)
        if (!DisplayText(s, i).empty()) filled.push_back(i);
    if (filled.empty()) {
        out.Error("veritrace-cli equation: no row holds a function");
        return ExitRefused;
    }
    constexpr int width = render::RowPaperWidth, height = render::RowPaperHeight;
    QImage sheet(width, height * static_cast<int>(filled.size()), QImage::Format_RGB32);
    sheet.setDotsPerMeterX(3780);
    sheet.setDotsPerMeterY(3780);
    QPainter painter(&sheet);
    for (std::size_t n = 0; n < filled.size(); ++n)
        painter.drawImage(0, height * static_cast<int>(n), headless.Row(filled[n]).QtImage());
    painter.end();

    const QString path = QString::fromStdString(job.ImagePath);
    const bool bitmap = QFileInfo(path).suffix().toLower() == "bmp";
    if (!sheet.save(path, bitmap ? "BMP" : "PNG")) {
        out.Error("veritrace-cli equation: could not write " + job.ImagePath);
        return ExitRefused;
    }
    for (const auto& message : headless.Messages())
        out.Error(message);
    return ExitDone;
}

} // namespace vt::cli
