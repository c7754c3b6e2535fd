#pragma once
// The main window's commands: the menus, the toolbar, the zoom buttons, the function rows and
// the Blinker button. They act on the session only (WindowState holds the controls' state); the
// window runs them and then mirrors the session into its widgets.

#include <string>

#include "session/Session.h"

namespace vt {

// The text of Clear Data's question.
inline constexpr const char* ClearDataQuestion =
    "Are you sure you would like to erase all the data?";

// Opens or closes the graph commands: toolbar buttons 1, 12 and 13 and the items mnuGraphIt,
// mnuEvaluate and mnuShade. Every keystroke sets them from CanGraph.
void EnableGraphCommands(Session& s, bool enabled);

// What the window's load does to the session before anything shows: the session's start, the
// graph commands closed, the point table's headings.
void PrepareMainWindow(Session& s);

// The function rows.
void Paper_GotFocus(Session& s, int index);
void Paper_LostFocus(Session& s, int index);
// Only the eight navigation keys (codes 33 to 40) are handled: they move the graph's view.
void Paper_KeyDown(Session& s, int index, int keyCode, int shift);
// Gives the focus to a row, through the window when there is one.
void FocusRow(Session& s, int row);
void Blinker_Click(Session& s);
void mnuInsertF_Click(Session& s);

// Insert commands that are one key each, for the active row.
void mnuExponent_Click(Session& s);
void mnuRoot_Click(Session& s);
void mnuInsertPi_Click(Session& s);
void mnuInsertAbs_Click(Session& s);

void mnuClearData_Click(Session& s);
void mnuHideGrid_Click(Session& s);
void mnuGraphQuadrant_Click(Session& s);
void mnuToggleCoordinates_Click(Session& s);
// Bracket Negative x: a negative x goes into the functions in brackets, or bare (the default).
void mnuBracketNegativeX_Click(Session& s);
void mnuGraphIt_Click(Session& s);
void mnuGraphPrintSetup_Click(Session& s);
void mnuNearWhole_Click(Session& s);
void mnuNearTen_Click(Session& s);

// A click on a row's colour swatch.
void Picture1_Click(Session& s, int index);

// The zoom buttons beside the graph.
void Command2_Click(Session& s);
void Command6_Click(Session& s);

// A click on a toolbar button, by the button's present key. An unknown key does nothing.
void Toolbar1_ButtonClick(Session& s, const std::string& key);
// An entry chosen in a toolbar drop-down: it becomes the button's standing function.
void Toolbar1_ButtonMenuClick(Session& s, const std::string& entryText);

// Runs the command of a menu item by name. Items that are titles, separators or unknown names
// do nothing. The window's mnuGraphExit (hiding itself) is the window's own.
void RunMenuCommand(Session& s, const std::string& name);

} // namespace vt
