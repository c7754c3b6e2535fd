#pragma once
// Equation entry: keys into a row's token list under the entry rules.

#include <span>
#include <string>
#include <string_view>

#include "session/Session.h"

namespace vt {

// Key codes with a meaning of their own in a row.
constexpr int BackspaceKey = 8;
constexpr int EnterKey = 13;

// The key-class mask text read as a binary number, leftmost character highest, any character
// other than "1" counting as 0. "00011110111111" gives 1983.
int BitsToMask(std::string_view bits);
// Sets AllowedKeys as the program does at start.
void SetKeyMask(Session& s);

// A key for the active row (Index is not used). Appends a token, carries out Backspace (8), or
// refuses silently; then regroups, rebuilds and repaints the rows.
void Paper_KeyPress(Session& s, int index, int keyAscii);

// Whether key may follow what stands at the end of the active row; updates the row's flags.
bool CheckKey(Session& s, const std::string& key);
// Merges numbers into groups in DisplayTokens of the active row; sets DisplayCount.
void GroupTokens(Session& s);
// Rebuilds LetterList from the active row.
void CollectLetters(Session& s);
// Index of s in LetterList, 0 if absent.
int LetterPosition(const Session& s, const std::string& letter);

// Token i of the active row; the empty string for a cell outside the row (before cell 0 or past
// cell 2000), which is what an empty cell reads as.
const std::string& ActiveToken(const Session& s, int i);

// The row's tokens joined.
std::string EntryText(const Session& s, int slot);
// The active row's tokens joined.
std::string EntryText(const Session& s);
// Stores a display text into the active row, one character per cell.
void StoreDisplayText(Session& s, const std::string& text);

// Whether the graph commands may run: no row incomplete, and some row up to LastFilledSlot has
// tokens.
bool CanGraph(const Session& s);
// Returns all entry variables to their start.
void ResetEntryState(Session& s);
// The reset of everything that a file load runs first.
void ClearAllRows(Session& s);

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
