// The frame around the token lists: the test that opens the graph commands, the row texts, and
// the resets of the entry state.

#include <algorithm>

#include "entry/Entry.h"

namespace vt {

bool CanGraph(const Session& s) {
    for (int i = 0; i <= 9; ++i)
        if (s.SlotIncomplete(i)) return false;
    if (s.LastFilledSlot < 0) return false;
    for (int i = 0; i <= s.LastFilledSlot; ++i)
        if (s.TokenCount(i) > 0) return true;
    return false;
}

std::string EntryText(const Session& s, int slot) {
    std::string out;
    for (int i = 0; i <= s.Rows(slot).EntryTokens.Top(); ++i)
        out += s.EntryTokens(i, slot);
    return out;
}

std::string EntryText(const Session& s) {
    return EntryText(s, s.ActiveSlot);
}

void StoreDisplayText(Session& s, const std::string& text) {
    const int slot = s.ActiveSlot;
    s.DisplayTokens.FillColumn(slot, "");
    // At most 2000 characters, from cell 0.
    const int n = std::min(static_cast<int>(text.size()), CellUpper);
    for (int i = 0; i < n; ++i)
        s.DisplayTokens(i, slot).assign(1, text[static_cast<std::size_t>(i)]);
}

void ResetEntryState(Session& s) {
    for (int slot = 0; slot <= SlotUpper; ++slot)
        s.Rows(slot).EntryTokens.Fill(std::string());
    s.DisplayTokens.Fill(std::string());
    s.BreakdownTokens.Fill(std::string());
    s.TokenCount(s.ActiveSlot) = 0;
    s.OpenParens(s.ActiveSlot) = 0;
    s.DisplayCount = 0;
    s.BreakdownCount = 0;
    s.BreakdownSide = 0;
    s.LetterCount = 0;
    s.EqualsEntered = false;
    s.LastBarClosed = false;
    for (int i = 0; i <= 9; ++i) {
        s.BarInExponent(i) = false;
        s.InExponent(i) = false;
        s.InFraction(i) = false;
        s.InRoot(i) = false;
        s.BarOpen(i) = false;
        s.BarParenDepth(i) = 0;
        s.OpenBars(i) = 0;
        s.TokenCount(i) = 0;
        s.OpenParens(i) = 0;
        s.SlotIncomplete(i) = false;
    }
    // Sides 0 and 1 of the parenthesis table; side 2 keeps what it holds.
    for (int depth = 0; depth <= 20; ++depth) {
        s.ParenSide(depth, 0) = 0;
        s.ParenSide(depth, 1) = 0;
        s.LetterList(depth).clear();
    }
    // FractionSide, SavedFractionSide, FractionParenDepth and NumberHasPoint carry on as they
    // are: the next keys in any row start from them.
}

void ClearAllRows(Session& s) {
    // The expression builder's working tables.
    s.BuildSource.Fill(std::string());
    s.BuildTokens.Fill(std::string());
    s.BuildPos = 4;
    for (int slot = 0; slot <= SlotUpper; ++slot)
        s.FractionOpen(slot) = s.RootOpen(slot) = s.ExponentOpen(slot) = false;
    s.TermStart.Fill(0);
    ResetEntryState(s);
    // The painter's break list.
    s.BreakX.Fill(0);
    s.BreakMark.Fill(false);
    s.BreakCount = 0;
    // The evaluator texts of the five rows.
    for (int slot = 0; slot < UsableSlots; ++slot)
        s.GraphableCells.FillColumn(slot, "");
}

} // namespace vt
