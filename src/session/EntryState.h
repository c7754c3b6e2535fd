#pragma once
// The state of equation entry: each row's token list, its display cells and the flags that the
// entry rules keep. Flags with a slot index are per row; the single flags carry over from the
// row last typed in, which is how the rows behave.

#include <string>

#include "base/Checked.h"

namespace vt {

struct EntryState {
    CellGrid<std::string> EntryTokens;   // (i, slot): token i of the row, no gaps
    SlotArray<int> TokenCount{};         // tokens of the row; also its next free cell
    CellGrid<std::string> DisplayTokens; // (i, slot): the row's display text, a character a cell
    int DisplayCount = 0;                // index the expression builder left behind

    int AllowedKeys = 0; // mask of key classes, set at start from "00011110111111"
    bool KeyAccepted = false;
    bool TrigFromMenu = false; // only while set are S, C and T taken
    bool NumberHasPoint = false;

    SlotArray<bool> InExponent{};
    SlotArray<bool> InRoot{};
    SlotArray<bool> InFraction{};
    SlotArray<int> OpenParens{};
    SlotArray<int> OpenBars{};
    SlotArray<bool> BarOpen{};
    SlotArray<int> BarParenDepth{};
    SlotArray<bool> BarInExponent{};

    bool EqualsEntered = false; // stays false: "=" is masked off
    bool LastBarClosed = false;
    int FractionSide = 0;
    bool SavedFractionSide = false;
    int FractionParenDepth = 0;
    Array2<int, 20, 2> ParenSide{}; // (depth, side): -1 while a parenthesis of that depth is open

    Array1<std::string, 0, 25> LetterList;
    int LetterCount = 0;

    // Rows revealed by Insert Function (0 at start) and the quiet reveal of a file load.
    int ShownRows = 0;
    bool QuietSlotReveal = false;
};

} // namespace vt
