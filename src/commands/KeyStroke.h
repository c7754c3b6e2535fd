#pragma once
// A keystroke in a function row, and the commands that are made of keystrokes.

#include <span>
#include <string>
#include <string_view>

#include "session/Session.h"

namespace vt {

// A key for the active row (Index is not used). Appends a token, carries out Backspace (8), or
// refuses silently; then regroups, rebuilds and repaints the rows.
void Paper_KeyPress(Session& s, int index, int keyAscii);

// Feeds a slot's text as a file load does: TrigFromMenu set, the slot active, each character's
// code through Paper_KeyPress; then TrigFromMenu cleared and slot 0 active.
void ReplaySlotKeys(Session& s, int slot, std::string_view keys);

// What loading a graph data file does to the rows: ClearAllRows, then with TrigFromMenu set the
// text of slot i (i = 0 .. 4, as many as are given) fed character by character through
// Paper_KeyPress with slot i active; then TrigFromMenu cleared, slot 0 active and ShownRows 0.
// Returns the last slot whose text was not empty, -1 if none: the loader reveals the rows up to
// it.
int ReplayRows(Session& s, std::span<const std::string> slotTexts);

// The Insert commands for sine, cosine and tangent (mnuSin_Click, mnuCos_Click, mnuTan_Click).
void mnuSin_Click(Session& s);
void mnuCos_Click(Session& s);
void mnuTan_Click(Session& s);

} // namespace vt
