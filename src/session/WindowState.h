#pragma once
// The state of the main window's controls that routines outside the window read or change: the
// rows' visibility and colours, the Blinker button, the toolbar's buttons, the enabled menu
// items. The window mirrors it into its widgets after every command; the logic never touches a
// widget. Positions are in twips, as the window is designed.

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "session/Checked.h"

namespace vt {

struct Session;

// One button of Toolbar1.
struct ToolButton {
    std::string Key;   // what a click runs
    std::string Image; // picture, by its image key
    std::string Tip;
    bool Enabled = true;
    bool Separator = false;
    std::vector<std::string> DropDown; // entries of the button's drop-down menu, if it has one
};

// Commands of other parts of the program that have windows or dialogs of their own, and the
// regression panel's routines. The window binds them to the routines as they come; an unbound
// command tells the user it is not available yet, an unbound panel routine does nothing.
struct WindowCommands {
    // Regression mode.
    std::function<void()> ResetPointTable;
    std::function<void()> ClearSeries;
    std::function<void()> mnuPtSeries_Click;
    // Commands with windows and dialogs of their own.
    std::function<void()> mnuGraphPrint_Click; // shows frmPrintSetup
    std::function<void()> mnuSave_Click;
    std::function<void()> mnuLoad_Click; // also loads CommandFile at start
    std::function<void()> mnuBitMap_Click;
    std::function<void()> mnuCopyGraph_Click; // the graph box to the clipboard
    std::function<void()> mnuEvaluate_Click;
    std::function<void()> mnuShade_Click;
    std::function<void()> mnuLineW_Click;
    std::function<void()> mnuGraphGridColor_Click;
    std::function<void()> mnuBackColor_Click;
    std::function<void()> mnuGraphDefault_Click;
    std::function<void(int index)> Picture1_Click;
    std::function<void()> mnuHelpTopics_Click;
    std::function<void()> mnuVeritrace_Click;
    std::function<void()> OpenHomePage; // mnuHomePage and the toolbar's web button
    std::function<void()> mnuOnlineSupport_Click;
    std::function<void()> mnuAbout_Click;
};

// Twips of the rows' pitch and of the Blinker's place under the first row.
constexpr int PaperRowPitch = 840;
constexpr int BlinkerHomeLeft = 4680;
constexpr int BlinkerHomeTop = 1700;
constexpr std::uint32_t PaperWhite = 0xFFFFFF;
constexpr std::uint32_t PaperPaleYellow = 0x80FFFF;

struct WindowState {
    // The rows Paper(i), Label1(i) and Picture1(i) show and hide together. Row 0 always shows.
    Array1<bool, 0, 4> RowVisible{};
    Array1<std::uint32_t, 0, 4> PaperBackColor{};

    int BlinkerLeft = BlinkerHomeLeft;
    int BlinkerTop = BlinkerHomeTop;
    bool BlinkerVisible = true;

    Array1<ToolButton, 1, 16> Toolbar1;
    // Enabled state of each menu item by name; every item of the menu tree has an entry.
    std::map<std::string, bool, std::less<>> MenuEnabled;
    bool PtSeriesChecked = false; // mnuPtSeries

    std::string Label2Caption = "x = 0    y = 0";
    std::string GraphTip = "Drag mouse to select display region.";

    // Where the program keeps its graph data files ("Saved Problems"), and its own folder.
    std::string ProgramDir;
    std::string SavedProblemsDir;

    WindowCommands Commands;

    // The window gives the focus to a row. Unbound (no window), the row's focus event runs at
    // once, so that the logic behaves the same without one.
    std::function<void(int row)> FocusRow;

    WindowState();
};

} // namespace vt
