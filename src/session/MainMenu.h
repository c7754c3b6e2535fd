#pragma once
// The main window's menu tree and toolbar as data: names, captions with their access keys,
// short-cuts and levels, in the order the window shows them. The window builds its menus from
// this table, and the enabled state of every item is kept by name in WindowState.

#include <string>
#include <vector>

#include "session/WindowState.h"

namespace vt {

struct MenuEntry {
    std::string Name;
    std::string Caption;  // "&" marks the access key; "-" is a separator
    std::string Shortcut; // "Ctrl+P", "F3", or empty
    int Level = 0;        // 0 for the menu bar's titles
};

// Every item in order, the menu bar's five titles and the Round Options pop-up included. The
// pop-up comes last and is never put on the menu bar.
const std::vector<MenuEntry>& MainMenuTree();

// The name of the pop-up of the coordinates readout.
inline constexpr const char* RoundOptionsMenu = "mnuRoundOptions";

// Toolbar1 as it starts: sixteen buttons counted from 1.
std::vector<ToolButton> StartToolbar();

// The seventeen picture keys the toolbar's image list holds.
const std::vector<std::string>& ToolbarImageKeys();

} // namespace vt
