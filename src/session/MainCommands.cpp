#include "session/MainCommands.h"

#include <functional>
#include <utility>

#include "display/Papers.h"
#include "entry/Entry.h"
#include "plot/Painter.h"
#include "plot/Tracing.h"
#include "plot/View.h"
#include "session/MainMenu.h"
#include "session/Platform.h"
#include "session/Startup.h"
#include "session/Surface.h"

namespace vt {

namespace {

constexpr int GraphButton = 1;
constexpr int RootButton = 9;
constexpr int TrigButton = 10;
constexpr int EvaluateButton = 12;
constexpr int AreaButton = 13;

void NotAvailable(Session& s) {
    if (s.Host) s.Host->MsgBox(NotAvailableText, MsgOkOnly | MsgInformation, "");
}

// A command that another part of the program provides: run it if it is bound, otherwise say so.
void Run(Session& s, const std::function<void()>& command) {
    if (command)
        command();
    else
        NotAvailable(s);
}

// A redraw that another part provides: nothing happens while it is unbound.
void Draw(const std::function<void()>& routine) {
    if (routine) routine();
}

void SendKey(Session& s, char key) {
    Paper_KeyPress(s, s.ActiveSlot, static_cast<unsigned char>(key));
}

void SetRowBackColor(Session& s, int row, std::uint32_t colour) {
    s.PaperBackColor(row) = colour;
    if (s.Paper[static_cast<std::size_t>(row)])
        s.Paper[static_cast<std::size_t>(row)]->BackColor = colour;
}

} // namespace

void EnableGraphCommands(Session& s, bool enabled) {
    for (int button : {GraphButton, EvaluateButton, AreaButton})
        s.Toolbar1(button).Enabled = enabled;
    for (const char* item : {"mnuGraphIt", "mnuEvaluate", "mnuShade"})
        s.MenuEnabled[item] = enabled;
}

void PrepareMainWindow(Session& s) {
    Draw(s.Commands.ResetPointTable);
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
    if (s.FocusRow)
        s.FocusRow(row);
    else
        Paper_GotFocus(s, row);
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
    if (!s.Host || s.Host->MsgBox(ClearDataQuestion, MsgYesNo, "") != MsgResultYes) return;
    s.ViewDragged = false;
    s.Toolbar1(GraphButton).Enabled = false;
    s.MenuEnabled["mnuGraphIt"] = false;
    if (s.Check1 == 1) {
        Draw(s.Commands.ClearSeries);
        mnuGraphReset_Click(s);
        return;
    }
    for (int i = 1; i <= 4; ++i)
        s.RowVisible(i) = false;
    for (int slot = 0; slot < UsableSlots; ++slot)
        for (int i = 0; i <= CellUpper; ++i)
            s.GraphableCells(i, slot).clear();
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

void mnuToggleCoordinates_Click(Session& s) {
    s.ToggleCoordinatesChecked = !s.ToggleCoordinatesChecked;
}

void mnuGraphIt_Click(Session& s) {
    RedrawByMode(s);
}

void mnuGraphPrintSetup_Click(Session& s) {
    // The dialog only changes the printer; a cancel is no failure worth telling.
    if (s.Host) s.Host->ChoosePrinter();
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
    if (s.Commands.Picture1_Click)
        s.Commands.Picture1_Click(index);
    else
        NotAvailable(s);
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
        {"web", [&] { Run(s, s.Commands.OpenHomePage); }},
        {"zoomout", [&] { ZoomOut(s); }},
        {"zoomin", [&] { ZoomIn(s); }},
        {"clear", [&] { mnuClearData_Click(s); }},
        {"print", [&] { Run(s, s.Commands.mnuGraphPrint_Click); }},
        {"save", [&] { Run(s, s.Commands.mnuSave_Click); }},
        {"open", [&] { Run(s, s.Commands.mnuLoad_Click); }},
        {"power", [&] { mnuExponent_Click(s); }},
        {"root", [&] { mnuRoot_Click(s); }},
        {"regress", [&] { Run(s, s.Commands.mnuPtSeries_Click); }},
        {"area", [&] { Run(s, s.Commands.mnuShade_Click); }},
        {"fx", [&] { Run(s, s.Commands.mnuEvaluate_Click); }},
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
        {"mnuGraphPrint", [](Session& x) { Run(x, x.Commands.mnuGraphPrint_Click); }},
        {"mnuGraphPrintSetup", mnuGraphPrintSetup_Click},
        {"mnuSave", [](Session& x) { Run(x, x.Commands.mnuSave_Click); }},
        {"mnuLoad", [](Session& x) { Run(x, x.Commands.mnuLoad_Click); }},
        {"mnuBitMap", [](Session& x) { Run(x, x.Commands.mnuBitMap_Click); }},
        {"mnuCopyGraph", [](Session& x) { Run(x, x.Commands.mnuCopyGraph_Click); }},
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
        {"mnuEvaluate", [](Session& x) { Run(x, x.Commands.mnuEvaluate_Click); }},
        {"mnuShade", [](Session& x) { Run(x, x.Commands.mnuShade_Click); }},
        {"mnuPtSeries", [](Session& x) { Run(x, x.Commands.mnuPtSeries_Click); }},
        {"mnuToggleCoordinates", mnuToggleCoordinates_Click},
        {"mnuGraphQuadrant", mnuGraphQuadrant_Click},
        {"mnuHideGrid", mnuHideGrid_Click},
        {"mnuGraphGridColor", [](Session& x) { Run(x, x.Commands.mnuGraphGridColor_Click); }},
        {"mnuBackColor", [](Session& x) { Run(x, x.Commands.mnuBackColor_Click); }},
        {"mnuGraphDefault", [](Session& x) { Run(x, x.Commands.mnuGraphDefault_Click); }},
        {"mnuLineW", [](Session& x) { Run(x, x.Commands.mnuLineW_Click); }},
        {"mnuGraphReset", mnuGraphReset_Click},
        {"mnuGraphZoomIn", ZoomIn},
        {"mnuGraphZoomOut", ZoomOut},
        {"mnuHelpTopics", [](Session& x) { Run(x, x.Commands.mnuHelpTopics_Click); }},
        {"mnuVeritrace", [](Session& x) { Run(x, x.Commands.mnuVeritrace_Click); }},
        {"mnuHomePage", [](Session& x) { Run(x, x.Commands.OpenHomePage); }},
        {"mnuOnlineSupport", [](Session& x) { Run(x, x.Commands.mnuOnlineSupport_Click); }},
        {"mnuAbout", [](Session& x) { Run(x, x.Commands.mnuAbout_Click); }},
        {"mnuNearWhole", mnuNearWhole_Click},
        {"mnuNearTen", mnuNearTen_Click},
    };
    const auto found = commands.find(name);
    if (found != commands.end()) found->second(s);
}

} // namespace vt
