#pragma once
// A keystroke in a function row, and the commands that are made of keystrokes.

#include <string_view>

#include "session/Session.h"

namespace vt {

// A key for the active row (Index is not used). Appends a token, carries out Backspace (8), or
// refuses silently; then regroups, rebuilds and repaints the rows.
void Paper_KeyPress(Session& s, int index, int keyAscii);

// Feeds a slot's text as a file load does: TrigFromMenu set, the slot active, each character's
// code through Paper_KeyPress; then TrigFromMenu cleared and slot 0 active.
void ReplaySlotKeys(Session& s, int slot, std::string_view keys);

// The Insert commands for sine, cosine and tangent (mnuSin_Click, mnuCos_Click, mnuTan_Click).
void mnuSin_Click(Session& s);
void mnuCos_Click(Session& s);
void mnuTan_Click(Session& s);

} // namespace vt
