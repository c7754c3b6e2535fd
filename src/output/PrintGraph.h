#pragma once
// The printed page: a two-line heading, the functions typeset in their colours (or, in
// regression mode, the fitted equation in black), and the graph box's picture below them.
// The page is scaled 800 units across and 600 down whatever the paper, and runs on to further
// pages when the equations do.

#include <string>

#include "base/Surface.h"
#include "session/Session.h"

namespace vt {

// The heading lines of the Print Options dialog as it opens; the second is today's date in the
// short form of the user's locale, which the window fills in.
inline constexpr const char* DefaultPrintHeading = "Orlentis Veritrace";

struct PrintHeading {
    std::string Text1 = DefaultPrintHeading;
    std::string Text2;
};

// The printer as the page needs it: a surface to draw on, the size of what it can print (so
// that the graph keeps its natural size on paper), and the end or the abandoning of the job.
class PrinterJob {
  public:
    virtual ~PrinterJob() = default;
    virtual Surface& Page() = 0;
    // The printable width and height of a page, in inches.
    virtual double PageWidthInches() const = 0;
    virtual double PageHeightInches() const = 0;
    // Sends what was drawn to the printer.
    virtual void EndDoc() = 0;
    // Abandons whatever is not yet sent; after EndDoc there is nothing left and it does nothing.
    virtual void KillDoc() = 0;
};

// The user scale of the printed page.
inline constexpr float PrintPageWidth = 800;
inline constexpr float PrintPageHeight = 600;

// Draws the page and ends the document. The picture is the graph box's persistent image
// (s.frmGraph); without a graph box the page has no picture. In regression mode the fitted
// equation is printed in place of the functions.
void PrintTheGraph(Session& s, PrinterJob& printer, const PrintHeading& heading);

// The Print Options dialog's OK: the page, then the job killed whatever happened, with no
// message. Returns whether the page was drawn to its end.
bool PrintAndFinish(Session& s, PrinterJob& printer, const PrintHeading& heading);

} // namespace vt
