#include "output/PrintGraph.h"

#include <exception>

#include "display/Typesetter.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

constexpr float PageFontSize = 12;
constexpr float PictureLeft = 12;
constexpr float PictureGap = 18;

// The graph box's picture at its size on the screen, in the page's units: a pixel is a
// fifteenth of a twip and 1440 twips make an inch.
void PrintGraphPicture(Session& s, PrinterJob& printer) {
    Surface& page = printer.Page();
    Surface* box = s.Host().GraphBox();
    if (box == nullptr) return;
    const PixelImage picture = box->Image();
    const double width = picture.Width * static_cast<double>(Surface::TwipsPerPixel) / 1440.0;
    const double height = picture.Height * static_cast<double>(Surface::TwipsPerPixel) / 1440.0;
    const double pageWidth = printer.PageWidthInches();
    const double pageHeight = printer.PageHeightInches();
    if (!(pageWidth > 0) || !(pageHeight > 0)) return;
    page.PaintPicture(picture, PictureLeft, page.CurrentY + PictureGap,
                      static_cast<float>(width * page.ScaleWidth / pageWidth),
                      static_cast<float>(height * page.ScaleHeight / pageHeight));
}

} // namespace

void PrintTheGraph(Session& s, PrinterJob& printer, const PrintHeading& heading) {
    Surface& page = printer.Page();
    page.ScaleLeft = 0;
    page.ScaleTop = 0;
    page.ScaleWidth = PrintPageWidth;
    page.ScaleHeight = PrintPageHeight;
    page.CurrentX = 0;
    page.CurrentY = 0;
    page.FontName = "OrlentisFont";
    page.FontSize = PageFontSize;

    for (int i = 0; i < 3; ++i)
        page.Print("");
    page.Print("   " + heading.Text1);
    page.Print("   " + heading.Text2);
    page.Print("");

    if (s.Check1 != 1) {
        for (int slot = 0; slot < UsableSlots; ++slot) {
            const std::string display = DisplayText(s, slot);
            if (display.empty()) continue;
            std::string text = "f(x)=" + display;
            PrintEquationOnPrinter(s, text, page, true, std::to_string(s.Picture1(slot)));
        }
    } else {
        std::string text = s.FitObject.ReturnRegEq();
        PrintEquationOnPrinter(s, text, page, false, "");
    }

    PrintGraphPicture(s, printer);
    printer.EndDoc();
}

bool PrintAndFinish(Session& s, PrinterJob& printer, const PrintHeading& heading) {
    bool finished = false;
    try {
        PrintTheGraph(s, printer, heading);
        finished = true;
    } catch (const std::exception&) {
        // Printing fails silently: the job is abandoned below.
    }
    printer.KillDoc();
    return finished;
}

} // namespace vt
