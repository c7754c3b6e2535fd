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

// A key into the active row: the class test against the key mask, then Backspace (8) or the
// entry rules, then the rescan of the row's flags. Sets KeyAccepted. A full row refuses the
// token with SubscriptError, which the keystroke's caller answers by rolling the row back.
void KeyIntoRow(Session& s, int keyAscii);

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
inline const std::string& ActiveToken(const Session& s, int i) {
    static const std::string empty;
    if (i < 0 || i > CellUpper) return empty;
    return s.EntryTokens(i, s.ActiveSlot);
}

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

} // namespace vt
