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

#include "base/Checked.h"

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

// Twips of the rows' pitch and of the Blinker's place under the first row.
constexpr int PaperRowPitch = 840;
// Twips of a row's paper.
constexpr int PaperWidth = 4335;
constexpr int PaperHeight = 615;
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

    WindowState();
};

} // namespace vt
