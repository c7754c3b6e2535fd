// veritrace-cli print: the page Print Graph prints, written as a PDF: the heading, the
// functions typeset in their colours (or, with points, the fitted equation in black) and the
// graph box below them, running on to further pages when the equations do.

#include <QDate>
#include <QFileInfo>
#include <QLocale>
#include <QPageLayout>
#include <QPdfWriter>

#include "cli/Headless.h"
#include "cli/Jobs.h"
#include "cli/PointEntry.h"
#include "output/PrintGraph.h"
#include "plot/Painter.h"
#include "plot/View.h"
#include "render/PrinterPage.h"

namespace vt::cli {

namespace {

// The page's resolution in the file, fine enough for positions to keep their fractions.
constexpr int PdfResolution = 1200;
// A printer's unprintable edge, which the page's layout leaves blank.
constexpr double PageMarginMillimetres = 6.35;

} // namespace

Parsed<PrintJob> ParsePrint(const QStringList& arguments, Output& out) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Writes the page that Print Graph prints, as a PDF: the two heading lines, the\n"
        "functions typeset in their colours and the graph below them. With points (-p, -m)\n"
        "regression mode is on and the fitted equation is printed in black instead.");
    AddKeysOption(parser);
    AddPointOptions(parser);
    parser.addOption(QCommandLineOption({"o", "output"}, "The PDF file to write.", "PAGE.pdf"));
    parser.addOption(QCommandLineOption(
        "heading1", "The first heading line (default \"Orlentis Veritrace\").", "TEXT"));
    parser.addOption(
        QCommandLineOption("heading2", "The second heading line (default today's date).", "TEXT"));
    if (const auto code = ReadArguments(parser, arguments, out)) return *code;
    auto keys = ReadKeys(parser, out);
    if (!keys) return ExitUsage;
    const auto entry = ReadPointEntry(parser, "print", out);
    if (!entry) return ExitUsage;
    const QString output = parser.value("output");
    if (output.isEmpty() || QFileInfo(output).suffix().toLower() != QLatin1String("pdf"))
        return BadArgument(out, "veritrace-cli print: give the PDF to write with -o PAGE.pdf");
    PrintJob job;
    job.Keys = std::move(*keys);
    job.File = ReadFileOption(parser);
    job.Order = entry->Order;
    job.Linear = entry->Linear;
    job.Points = entry->Points;
    job.PdfPath = output.toStdString();
    job.Heading1 = parser.isSet("heading1") ? parser.value("heading1").toStdString()
                                            : std::string(DefaultPrintHeading);
    job.Heading2 =
        parser.isSet("heading2")
            ? parser.value("heading2").toStdString()
            : QLocale().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString();
    return job;
}

int RunPrint(const PrintJob& job, Output& out) {
    HeadlessSession headless;
    Session& s = headless.S();
    // The page shows the graph box as the window would: painted once at the start, then with
    // the functions (or the points and their curve) drawn.
    headless.AttachGraphBox(400, 400);
    RedrawGraph(s);
    if (!headless.LoadFunctions(job.Keys, job.File, out)) return ExitRefused;
    const PointEntry entry{job.Order, job.Linear, job.Points};
    if (!entry.Empty()) EnterPoints(s, entry);
    RedrawByMode(s);

    QPdfWriter pdf(QString::fromStdString(job.PdfPath));
    pdf.setResolution(PdfResolution);
    pdf.setCreator(QStringLiteral("Veritrace"));
    pdf.setPageMargins(QMarginsF(PageMarginMillimetres, PageMarginMillimetres,
                                 PageMarginMillimetres, PageMarginMillimetres),
                       QPageLayout::Millimeter);
    render::PagedPrinterJob printer(pdf);
    if (!printer.Started()) {
        out.Error("veritrace-cli print: could not write " + job.PdfPath);
        return ExitRefused;
    }
    const bool printed = PrintAndFinish(s, printer, {job.Heading1, job.Heading2});
    // The messages of the drawing and of the printing itself (an equation too long for the
    // typesetter's cells) are told, whether or not the page was finished.
    for (const std::string& message : headless.Messages())
        out.Error(message);
    if (!printed) {
        out.Error("veritrace-cli print: the page could not be drawn");
        return ExitRefused;
    }
    return headless.Messages().empty() ? ExitDone : ExitRefused;
}

} // namespace vt::cli
