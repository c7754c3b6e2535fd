#include "commands/MainCommands.h"

#include <functional>
#include <utility>

#include "base/Platform.h"
#include "base/Surface.h"
#include "commands/KeyStroke.h"
#include "commands/Startup.h"
#include "display/Papers.h"
#include "entry/Entry.h"
#include "info/HelpAndWeb.h"
#include "plot/Painter.h"
#include "plot/PointSeries.h"
#include "plot/Tracing.h"
#include "plot/View.h"
#include "session/MainMenu.h"

namespace vt {

namespace {

constexpr int GraphButton = 1;
constexpr int RootButton = 9;
constexpr int TrigButton = 10;
constexpr int EvaluateButton = 12;
constexpr int AreaButton = 13;

void NotAvailable(Session& s) {
    s.Host().Dialogs().MsgBox(NotAvailableText, MsgOkOnly | MsgInformation, "");
}

// A command with a window of its own: the host runs it, or it is not available.
void Run(Session& s, HostCommand command, int index = 0) {
    if (!s.Host().RunCommand(command, index)) NotAvailable(s);
}

void SendKey(Session& s, char key) {
    Paper_KeyPress(s, s.ActiveSlot, static_cast<unsigned char>(key));
}

void SetRowBackColor(Session& s, int row, std::uint32_t colour) {
    s.PaperBackColor(row) = colour;
    if (Surface* paper = s.Host().RowSurface(row)) paper->BackColor = colour;
}

} // namespace

void EnableGraphCommands(Session& s, bool enabled) {
    for (int button : {GraphButton, EvaluateButton, AreaButton})
        s.Toolbar1(button).Enabled = enabled;
    for (const char* item : {"mnuGraphIt", "mnuEvaluate", "mnuShade"})
        s.MenuEnabled[item] = enabled;
}

void PrepareMainWindow(Session& s) {
    ResetPointTable(s);
    StartSession(s);
    EnableGraphCommands(s, false);
}

void Paper_GotFocus(Session& s, int index) {
    for (int i = 0; i < UsableSlots; ++i)
        SetRowBackColor(s, i, PaperWhite);
    SetRowBackColor(s, index, PaperPaleYellow);
    s.ActiveSlot = index;
    RedrawPapers(s);
}

void Paper_LostFocus(Session& s, int /*index*/) {
    // ActiveSlot stays, so that the menu commands still act on the row last used.
    for (int i = 0; i < UsableSlots; ++i)
        SetRowBackColor(s, i, PaperWhite);
    RedrawPapers(s);
}

void Paper_KeyDown(Session& s, int /*index*/, int keyCode, int shift) {
    if (keyCode < 33 || keyCode > 40) return;
    frmGraph_KeyDown(s, keyCode, shift);
}

void FocusRow(Session& s, int row) {
    // A hidden row cannot take the focus; asking for it changes nothing.
    if (row < 0 || row > 4 || !s.RowVisible(row)) return;
    if (!s.Host().FocusRow(row)) Paper_GotFocus(s, row);
}

void Blinker_Click(Session& s) {
    s.BlinkerTop += PaperRowPitch;
    int row = 1;
    while (row <= 4 && s.RowVisible(row))
        ++row;
    if (row <= 4) {
        s.RowVisible(row) = true;
        if (row == 4) s.BlinkerVisible = false;
    }
    // With all rows shown (only through the menu, the button is hidden then) this is 5: harmless.
    s.ShownRows = row;
    if (s.QuietSlotReveal) return;
    // The row after the active one, which is not always the row just revealed.
    FocusRow(s, s.ActiveSlot < 4 ? s.ActiveSlot + 1 : s.ActiveSlot);
}

void mnuInsertF_Click(Session& s) {
    Blinker_Click(s);
}

void mnuExponent_Click(Session& s) {
    SendKey(s, '^');
}
void mnuRoot_Click(Session& s) {
    SendKey(s, '~');
}
void mnuInsertPi_Click(Session& s) {
    SendKey(s, 'P');
}
void mnuInsertAbs_Click(Session& s) {
    SendKey(s, '|');
}

void mnuClearData_Click(Session& s) {
    if (s.Host().Dialogs().MsgBox(ClearDataQuestion, MsgYesNo, "") != MsgResultYes) return;
    s.ViewDragged = false;
    s.Toolbar1(GraphButton).Enabled = false;
    s.MenuEnabled["mnuGraphIt"] = false;
    if (s.Check1 == 1) {
        ClearSeries(s);
        mnuGraphReset_Click(s);
        return;
    }
    for (int i = 1; i <= 4; ++i)
        s.RowVisible(i) = false;
    for (int slot = 0; slot < UsableSlots; ++slot)
        s.GraphableCells.FillColumn(slot, "");
    // The break list is its two arrays; BreakCount is left to the painter, which sets it to 0 at
    // the end of every paint.
    s.BreakX.Fill(0);
    s.BreakMark.Fill(false);
    s.ShadeOn = false;
    s.LastFilledSlot = 0;
    s.ActiveSlot = 0;
    s.ShownRows = 0;
    ResetEntryState(s);
    RedrawPapers(s);
    mnuGraphReset_Click(s);
    s.BlinkerLeft = BlinkerHomeLeft;
    s.BlinkerTop = BlinkerHomeTop;
    s.BlinkerVisible = true;
    FocusRow(s, 0);
}

void mnuHideGrid_Click(Session& s) {
    s.HideGridChecked = !s.HideGridChecked;
    RedrawByMode(s);
}

void mnuGraphQuadrant_Click(Session& s) {
    s.GraphQuadrantChecked = !s.GraphQuadrantChecked;
    PaintByMode(s);
}

void mnuBracketNegativeX_Click(Session& s) {
    s.BracketNegativeX = !s.BracketNegativeX;
    RedrawByMode(s);
}

void mnuToggleCoordinates_Click(Session& s) {
    s.ToggleCoordinatesChecked = !s.ToggleCoordinatesChecked;
}

void mnuGraphIt_Click(Session& s) {
    RedrawByMode(s);
}

void mnuGraphPrintSetup_Click(Session& s) {
    // The dialog only changes the printer; a cancel is no failure worth telling.
    s.Host().Dialogs().ChoosePrinter();
}

void mnuNearWhole_Click(Session& s) {
    s.RoundDigits = 0;
    s.NearWholeChecked = true;
    s.NearTenChecked = false;
}

void mnuNearTen_Click(Session& s) {
    s.RoundDigits = 1;
    s.NearTenChecked = true;
    s.NearWholeChecked = false;
}

void Picture1_Click(Session& s, int index) {
    Run(s, HostCommand::Swatch, index);
}

void Command2_Click(Session& s) {
    ZoomIn(s);
    if (s.Check1 != 1) FocusRow(s, s.ActiveSlot);
}

void Command6_Click(Session& s) {
    ZoomOut(s);
    if (s.Check1 != 1) FocusRow(s, s.ActiveSlot);
}

void Toolbar1_ButtonClick(Session& s, const std::string& key) {
    // Tested in this order; the first key that matches runs.
    const std::pair<const char*, std::function<void()>> routes[] = {
        {"graph",
         [&] {
             if (s.Check1 == 1) {
                 RedrawRegression(s);
             } else {
                 AutoGraph(s);
             }
         }},
        {"web", [&] { OpenHomePage(s); }},
        {"zoomout", [&] { ZoomOut(s); }},
        {"zoomin", [&] { ZoomIn(s); }},
        {"clear", [&] { mnuClearData_Click(s); }},
        {"print", [&] { Run(s, HostCommand::GraphPrint); }},
        {"save", [&] { Run(s, HostCommand::Save); }},
        {"open", [&] { Run(s, HostCommand::Load); }},
        {"power", [&] { mnuExponent_Click(s); }},
        {"root", [&] { mnuRoot_Click(s); }},
        {"regress", [&] { Run(s, HostCommand::PtSeries); }},
        {"area", [&] { Run(s, HostCommand::Shade); }},
        {"fx", [&] { Run(s, HostCommand::Evaluate); }},
        {"sin", [&] { mnuSin_Click(s); }},
        {"cos", [&] { mnuCos_Click(s); }},
        {"tan", [&] { mnuTan_Click(s); }},
    };
    for (const auto& [routeKey, action] : routes) {
        if (key == routeKey) {
            action();
            return;
        }
    }
}

void Toolbar1_ButtonMenuClick(Session& s, const std::string& entryText) {
    struct Choice {
        const char* Entry;
        int Button;
        const char* Key;
    };
    static const Choice choices[] = {
        {"Insert Sine", TrigButton, "sin"},       {"Insert Cosine", TrigButton, "cos"},
        {"Insert Tangent", TrigButton, "tan"},    {"Insert Root", RootButton, "root"},
        {"Insert Exponent", RootButton, "power"},
    };
    for (const Choice& choice : choices) {
        if (entryText != choice.Entry) continue;
        ToolButton& button = s.Toolbar1(choice.Button);
        button.Key = choice.Key;
        button.Image = choice.Key;
        button.Tip = choice.Entry;
        return;
    }
}

void RunMenuCommand(Session& s, const std::string& name) {
    static const std::map<std::string, std::function<void(Session&)>, std::less<>> commands = {
        {"mnuGraphPrint", [](Session& x) { Run(x, HostCommand::GraphPrint); }},
        {"mnuGraphPrintSetup", mnuGraphPrintSetup_Click},
        {"mnuSave", [](Session& x) { Run(x, HostCommand::Save); }},
        {"mnuLoad", [](Session& x) { Run(x, HostCommand::Load); }},
        {"mnuBitMap", [](Session& x) { Run(x, HostCommand::BitMap); }},
        {"mnuCopyGraph", [](Session& x) { Run(x, HostCommand::CopyGraph); }},
        {"mnuGraphIt", mnuGraphIt_Click},
        {"mnuInsertF", mnuInsertF_Click},
        {"mnuClearData", mnuClearData_Click},
        {"mnuExponent", mnuExponent_Click},
        {"mnuRoot", mnuRoot_Click},
        {"mnuInsertPi", mnuInsertPi_Click},
        {"mnuInsertAbs", mnuInsertAbs_Click},
        {"mnuSin", mnuSin_Click},
        {"mnuCos", mnuCos_Click},
        {"mnuTan", mnuTan_Click},
        {"mnuEvaluate", [](Session& x) { Run(x, HostCommand::Evaluate); }},
        {"mnuShade", [](Session& x) { Run(x, HostCommand::Shade); }},
        {"mnuPtSeries", [](Session& x) { Run(x, HostCommand::PtSeries); }},
        {"mnuToggleCoordinates", mnuToggleCoordinates_Click},
        {"mnuGraphQuadrant", mnuGraphQuadrant_Click},
        {"mnuHideGrid", mnuHideGrid_Click},
        {"mnuGraphGridColor", [](Session& x) { Run(x, HostCommand::GraphGridColor); }},
        {"mnuBackColor", [](Session& x) { Run(x, HostCommand::BackColor); }},
        {"mnuGraphDefault", [](Session& x) { Run(x, HostCommand::GraphDefault); }},
        {"mnuLineW", [](Session& x) { Run(x, HostCommand::LineWidth); }},
        {"mnuBracketNegativeX", mnuBracketNegativeX_Click},
        {"mnuGraphReset", mnuGraphReset_Click},
        {"mnuGraphZoomIn", ZoomIn},
        {"mnuGraphZoomOut", ZoomOut},
        {"mnuHelpTopics", mnuHelpTopics_Click},
        {"mnuVeritrace", mnuVeritrace_Click},
        {"mnuHomePage", OpenHomePage},
        {"mnuOnlineSupport", mnuOnlineSupport_Click},
        {"mnuAbout", [](Session& x) { Run(x, HostCommand::About); }},
        {"mnuNearWhole", mnuNearWhole_Click},
        {"mnuNearTen", mnuNearTen_Click},
    };
    const auto found = commands.find(name);
    if (found != commands.end()) found->second(s);
}

} // namespace vt
