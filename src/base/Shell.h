#pragma once
// What the logic asks of whatever shows a session: the surfaces to draw on, the dialogs, the
// focus of a row, the regression panel and the commands that have windows of their own. The
// main window implements it; the command-line companion and the tests use the headless host
// below, or a recording one built on it. A session that nobody has bound uses the headless host,
// so what "no window" means is decided here and nowhere else.

#include <array>
#include <string>

#include "base/Checked.h"
#include "base/Platform.h"
#include "base/Surface.h"

namespace vt {

// The message of a command whose window or dialog the program does not have (yet).
inline constexpr const char* NotAvailableText = "This command is not available yet.";

// Commands that open a window or a dialog of the host, or act on one.
enum class HostCommand {
    PtSeries,   // regression mode on or off
    GraphPrint, // frmPrintSetup
    Save,
    Load, // also loads CommandFile at start
    BitMap,
    CopyGraph, // the graph box to the clipboard
    Evaluate,  // frmEvalFX
    Shade,     // frmFillRange
    LineWidth, // frmLineWidth
    GraphGridColor,
    BackColor,
    GraphDefault,
    Swatch, // a click on a row's colour swatch; the index is the row
    About,
    Explain, // frmExplain, the regression equation window
};

class Shell {
  public:
    virtual ~Shell() = default;

    // The modal dialogs: message boxes, colour chooser, files, printer, help, web pages.
    virtual Platform& Dialogs() = 0;

    // The graph box and the surface of row 0..4; null for what is not shown.
    virtual Surface* GraphBox() = 0;
    virtual Surface* RowSurface(int row) = 0;

    // Gives the keyboard focus to a visible row. True when the row's focus event has run or
    // will run through the host; false when the host has no rows to focus, and the caller runs
    // the focus event itself.
    virtual bool FocusRow(int row) = 0;

    // Enter on a complete row: the Graph! command.
    virtual void GraphCommand() = 0;

    // Runs a command that has a window or dialog of its own. False when this host has none for
    // it; the caller then says the command is not available.
    virtual bool RunCommand(HostCommand command, int index) = 0;
};

// The host of a session that no window shows. Nothing is drawn unless a surface is lent to it;
// messages go unread and are answered as dismissed ("No" to a question, "OK" otherwise) unless a
// platform is lent to it; the colour chooser keeps its start; no row takes the focus, so the
// logic runs the row's focus event at once; Enter draws nothing; the regression panel is absent;
// every command with a window of its own is unavailable.
class HeadlessShell : public Shell {
  public:
    // What may be lent to it; each stays null when not.
    Platform* Messages = nullptr;
    Surface* Graph = nullptr;
    std::array<Surface*, UsableSlots> Papers{};

    Platform& Dialogs() override;
    Surface* GraphBox() override { return Graph; }
    Surface* RowSurface(int row) override;
    bool FocusRow(int) override { return false; }
    void GraphCommand() override {}
    bool RunCommand(HostCommand, int) override { return false; }
};

// The headless host that unbound sessions share. It lends nothing and keeps no state.
Shell& UnboundShell();

} // namespace vt
