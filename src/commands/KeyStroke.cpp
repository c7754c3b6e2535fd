// A keystroke in a row from start to finish: the key into the row, then the regrouping, the
// rebuilt display and evaluator texts and the repainted rows; and the rollback that puts a row
// back whole when a key would overflow its fixed cells.

#include "commands/KeyStroke.h"

#include <string>
#include <vector>

#include "display/Papers.h"
#include "entry/Entry.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

// Regroups the row, rebuilds its display and evaluator texts, and repaints the rows.
void FinishKey(Session& s) {
    GroupTokens(s);
    StoreDisplayText(s, BuildGraphable(s));
    RedrawPapers(s);
}

// The active row as it stood before a key: its tokens and every flag a key, the rescan or the
// builder's pass may change, with the builder's TermStart table (a pass leaves most of it as
// the previous passes left it). The builder's working grid is not kept: every pass that runs to
// its end leaves it empty, so between keys it is always empty, and emptying it restores it.
struct RowSnapshot {
    int slot = 0;
    std::vector<std::string> tokens;
    bool inExponent = false, inRoot = false, inFraction = false, barOpen = false;
    bool barInExponent = false, slotIncomplete = false;
    int openParens = 0, openBars = 0, barParenDepth = 0;
    bool numberHasPoint = false, equalsEntered = false, lastBarClosed = false;
    bool savedFractionSide = false;
    int fractionSide = 0, fractionParenDepth = 0, displayCount = 0, letterCount = 0;
    int lastFilledSlot = 0;
    Array2<int, 20, 2> parenSide;
    Array1<std::string, 0, 25> letterList;
    int buildPos = 0;
    bool fractionOpen = false, rootOpen = false, exponentOpen = false;
    Array2<int, 10, 4> termStart;
};

RowSnapshot TakeSnapshot(const Session& s) {
    RowSnapshot r;
    const int slot = s.ActiveSlot;
    r.slot = slot;
    const int count = s.TokenCount(slot);
    r.tokens.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        r.tokens.push_back(ActiveToken(s, i));
    r.inExponent = s.InExponent(slot);
    r.inRoot = s.InRoot(slot);
    r.inFraction = s.InFraction(slot);
    r.barOpen = s.BarOpen(slot);
    r.barInExponent = s.BarInExponent(slot);
    r.slotIncomplete = s.SlotIncomplete(slot);
    r.openParens = s.OpenParens(slot);
    r.openBars = s.OpenBars(slot);
    r.barParenDepth = s.BarParenDepth(slot);
    r.numberHasPoint = s.NumberHasPoint;
    r.equalsEntered = s.EqualsEntered;
    r.lastBarClosed = s.LastBarClosed;
    r.savedFractionSide = s.SavedFractionSide;
    r.fractionSide = s.FractionSide;
    r.fractionParenDepth = s.FractionParenDepth;
    r.displayCount = s.DisplayCount;
    r.letterCount = s.LetterCount;
    r.lastFilledSlot = s.LastFilledSlot;
    r.parenSide = s.ParenSide;
    r.letterList = s.LetterList;
    r.buildPos = s.BuildPos;
    r.fractionOpen = s.FractionOpen(slot);
    r.rootOpen = s.RootOpen(slot);
    r.exponentOpen = s.ExponentOpen(slot);
    r.termStart = s.TermStart;
    return r;
}

void RestoreSnapshot(Session& s, const RowSnapshot& r) {
    const int slot = r.slot;
    s.ActiveSlot = slot;
    const int count = static_cast<int>(r.tokens.size());
    for (int i = 0; i <= CellUpper; ++i) {
        if (i < count)
            s.EntryTokens(i, slot) = r.tokens[static_cast<std::size_t>(i)];
        else
            s.EntryTokens(i, slot).clear();
    }
    s.TokenCount(slot) = count;
    s.InExponent(slot) = r.inExponent;
    s.InRoot(slot) = r.inRoot;
    s.InFraction(slot) = r.inFraction;
    s.BarOpen(slot) = r.barOpen;
    s.BarInExponent(slot) = r.barInExponent;
    s.SlotIncomplete(slot) = r.slotIncomplete;
    s.OpenParens(slot) = r.openParens;
    s.OpenBars(slot) = r.openBars;
    s.BarParenDepth(slot) = r.barParenDepth;
    s.NumberHasPoint = r.numberHasPoint;
    s.EqualsEntered = r.equalsEntered;
    s.LastBarClosed = r.lastBarClosed;
    s.SavedFractionSide = r.savedFractionSide;
    s.FractionSide = r.fractionSide;
    s.FractionParenDepth = r.fractionParenDepth;
    s.DisplayCount = r.displayCount;
    s.LetterCount = r.letterCount;
    s.LastFilledSlot = r.lastFilledSlot;
    s.ParenSide = r.parenSide;
    s.LetterList = r.letterList;
    s.BuildTokens.Fill(std::string());
    s.BuildPos = r.buildPos;
    s.FractionOpen(slot) = r.fractionOpen;
    s.RootOpen(slot) = r.rootOpen;
    s.ExponentOpen(slot) = r.exponentOpen;
    s.TermStart = r.termStart;
}

} // namespace

void Paper_KeyPress(Session& s, int /*index*/, int keyAscii) {
    // Enter on a complete row draws the graph, then goes on like any refused key, so the row
    // is repainted.
    if (keyAscii == EnterKey && CanGraph(s) && s.GraphCommand) s.GraphCommand();
    if (s.ActiveSlot < 0 || s.ActiveSlot > SlotUpper) {
        s.KeyAccepted = false;
        return;
    }
    // A key must never leave a row half-changed. The fixed cells run out in two places: a full
    // row has no cell for one more token, and the expression builder's working grids overflow
    // when a row grows beyond about 495 groups. Either way the key is refused: the row is put
    // back exactly as it stood before the key (tokens, flags, the builder's tables) and the
    // finish runs again, so that the display and evaluator texts match the restored list.
    const RowSnapshot before = TakeSnapshot(s);
    try {
        KeyIntoRow(s, keyAscii);
        FinishKey(s);
        return;
    } catch (const SubscriptError&) {
        RestoreSnapshot(s, before);
    }
    s.KeyAccepted = false;
    try {
        FinishKey(s);
    } catch (const SubscriptError&) {
        // The restored row was built once before; should its rebuild still fail, no half-made
        // text is left for drawing or evaluation, and the row counts as unfinished.
        RestoreSnapshot(s, before);
        for (int i = 0; i <= CellUpper; ++i) {
            s.DisplayTokens(i, before.slot).clear();
            s.GraphableCells(i, before.slot).clear();
        }
        s.SlotIncomplete(before.slot) = true;
    }
}

void ReplaySlotKeys(Session& s, int slot, std::string_view keys) {
    s.TrigFromMenu = true;
    s.ActiveSlot = slot;
    for (char c : keys)
        Paper_KeyPress(s, slot, static_cast<unsigned char>(c));
    s.TrigFromMenu = false;
    s.ActiveSlot = 0;
}

namespace {

// Sends a function's letter as a key, and its "(" if the letter was taken. Returns whether the
// letter was taken.
bool SendTrigFunction(Session& s, char letter) {
    s.TrigFromMenu = true;
    Paper_KeyPress(s, s.ActiveSlot, letter);
    const bool accepted = s.KeyAccepted;
    s.TrigFromMenu = false;
    if (accepted) Paper_KeyPress(s, s.ActiveSlot, '(');
    return accepted;
}

} // namespace

void mnuSin_Click(Session& s) {
    // A sine whose parenthesis is refused is taken out again.
    const bool accepted = SendTrigFunction(s, 'S');
    if (accepted && !s.KeyAccepted) Paper_KeyPress(s, s.ActiveSlot, BackspaceKey);
}

// Cosine and tangent send the Backspace whenever the last key was refused, also when the
// function itself was: a refused cosine or tangent then costs the row its last token. Sine
// differs on purpose; the two behaviours are kept as they are.
void mnuCos_Click(Session& s) {
    SendTrigFunction(s, 'C');
    if (!s.KeyAccepted) Paper_KeyPress(s, s.ActiveSlot, BackspaceKey);
}

void mnuTan_Click(Session& s) {
    SendTrigFunction(s, 'T');
    if (!s.KeyAccepted) Paper_KeyPress(s, s.ActiveSlot, BackspaceKey);
}

} // namespace vt
