#pragma once
// The state of equation entry: each row's token list and the flags that the entry rules keep.
// Flags kept per row live in the row's RowState; the single flags carry over from the row last
// typed in, which is how the rows behave.

#include <string>

#include "base/Checked.h"

namespace vt {

// One function row: its tokens and every flag that the entry rules and the expression builder
// keep for it. A keystroke that has to be taken back restores the row from a copy of this value,
// so a flag added here is restored with the rest.
struct RowState {
    HeapArray<std::string, CellUpper> EntryTokens; // token i of the row, no gaps
    int TokenCount = 0;                            // tokens of the row; also its next free cell

    bool InExponent = false;
    bool InRoot = false;
    bool InFraction = false;
    int OpenParens = 0;
    int OpenBars = 0;
    bool BarOpen = false;
    int BarParenDepth = 0;
    bool BarInExponent = false;

    // Kept by the expression builder: the groups open at the end of its run, and whether the
    // row can be graphed as it stands.
    bool FractionOpen = false;
    bool RootOpen = false;
    bool ExponentOpen = false;
    bool SlotIncomplete = false;
};

// The flags that a key leaves for the next key, in whichever row that comes. A keystroke that
// has to be taken back restores them together with its row.
struct KeyFlags {
    int DisplayCount = 0; // index the expression builder left behind
    bool NumberHasPoint = false;
    bool EqualsEntered = false; // stays false: "=" is masked off
    bool LastBarClosed = false;
    int FractionSide = 0;
    bool SavedFractionSide = false;
    int FractionParenDepth = 0;
    Array2<int, 20, 2> ParenSide{}; // (depth, side): -1 while a parenthesis of that depth is open
    Array1<std::string, 0, 25> LetterList;
    int LetterCount = 0;
};

struct EntryState : KeyFlags {
    SlotArray<RowState> Rows;
    CellGrid<std::string> DisplayTokens; // (i, slot): the row's display text, a character a cell

    int AllowedKeys = 0; // mask of key classes, set at start from "00011110111111"
    bool KeyAccepted = false;
    bool TrigFromMenu = false; // only while set are S, C and T taken

    // Rows revealed by Insert Function (0 at start) and the quiet reveal of a file load.
    int ShownRows = 0;
    bool QuietSlotReveal = false;

    // The row's fields by the names the routines use: s.EntryTokens(i, slot), s.InRoot(slot).
    std::string& EntryTokens(int i, int slot) { return Rows(slot).EntryTokens(i); }
    const std::string& EntryTokens(int i, int slot) const { return Rows(slot).EntryTokens(i); }
    int& TokenCount(int slot) { return Rows(slot).TokenCount; }
    int TokenCount(int slot) const { return Rows(slot).TokenCount; }
    bool& InExponent(int slot) { return Rows(slot).InExponent; }
    bool InExponent(int slot) const { return Rows(slot).InExponent; }
    bool& InRoot(int slot) { return Rows(slot).InRoot; }
    bool InRoot(int slot) const { return Rows(slot).InRoot; }
    bool& InFraction(int slot) { return Rows(slot).InFraction; }
    bool InFraction(int slot) const { return Rows(slot).InFraction; }
    int& OpenParens(int slot) { return Rows(slot).OpenParens; }
    int OpenParens(int slot) const { return Rows(slot).OpenParens; }
    int& OpenBars(int slot) { return Rows(slot).OpenBars; }
    int OpenBars(int slot) const { return Rows(slot).OpenBars; }
    bool& BarOpen(int slot) { return Rows(slot).BarOpen; }
    bool BarOpen(int slot) const { return Rows(slot).BarOpen; }
    int& BarParenDepth(int slot) { return Rows(slot).BarParenDepth; }
    int BarParenDepth(int slot) const { return Rows(slot).BarParenDepth; }
    bool& BarInExponent(int slot) { return Rows(slot).BarInExponent; }
    bool BarInExponent(int slot) const { return Rows(slot).BarInExponent; }
    bool& FractionOpen(int slot) { return Rows(slot).FractionOpen; }
    bool FractionOpen(int slot) const { return Rows(slot).FractionOpen; }
    bool& RootOpen(int slot) { return Rows(slot).RootOpen; }
    bool RootOpen(int slot) const { return Rows(slot).RootOpen; }
    bool& ExponentOpen(int slot) { return Rows(slot).ExponentOpen; }
    bool ExponentOpen(int slot) const { return Rows(slot).ExponentOpen; }
    bool& SlotIncomplete(int slot) { return Rows(slot).SlotIncomplete; }
    bool SlotIncomplete(int slot) const { return Rows(slot).SlotIncomplete; }
};

} // namespace vt
