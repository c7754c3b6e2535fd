// A keystroke in a row from start to finish: the key into the row, then the regrouping, the
// rebuilt display and evaluator texts and the repainted rows; and the rollback that puts a row
// back whole when a key would overflow its fixed cells.

#include "commands/KeyStroke.h"

#include <algorithm>
#include <string>

#include "commands/MainCommands.h"
#include "display/Papers.h"
#include "entry/Entry.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

// Regroups the row, rebuilds its display and evaluator texts, opens or closes the graph commands
// as the rows now stand, and repaints the rows. The commands are set before the repaint, which
// moves LastFilledSlot.
void FinishKey(Session& s) {
    GroupTokens(s);
    const GraphableRow built = BuildGraphable(s);
    StoreDisplayText(s, built.Display);
    EnableGraphCommands(s, CanGraph(s));
    RedrawPapers(s);
}

// The active row as it stood before a key, and everything else a key, the rescan or the
// builder's run may change: the flags that carry over between keys, the builder's marks and
// LastFilledSlot. Each part is copied whole. The builder's working grids are not kept: every run
// that ends leaves them empty, so between keys they are always empty, and emptying them restores
// them.
struct RowSnapshot {
    int Slot = 0;
    RowState Row;
    KeyFlags Flags;
    BuilderMarks Marks;
    int LastFilledSlot = 0;
};

RowSnapshot TakeSnapshot(const Session& s) {
    return {s.ActiveSlot, s.Rows(s.ActiveSlot), s, s, s.LastFilledSlot};
}

void RestoreSnapshot(Session& s, const RowSnapshot& r) {
    s.ActiveSlot = r.Slot;
    s.Rows(r.Slot) = r.Row;
    static_cast<KeyFlags&>(s) = r.Flags;
    static_cast<BuilderMarks&>(s) = r.Marks;
    s.LastFilledSlot = r.LastFilledSlot;
    s.BuildTokens.Fill(std::string());
}

} // namespace

void Paper_KeyPress(Session& s, int /*index*/, int keyAscii) {
    // Enter on a complete row draws the graph, then goes on like any refused key, so the row
    // is repainted.
    if (keyAscii == EnterKey && CanGraph(s)) s.Host().GraphCommand();
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
        s.DisplayTokens.FillColumn(before.Slot, "");
        s.GraphableCells.FillColumn(before.Slot, "");
        s.SlotIncomplete(before.Slot) = true;
        EnableGraphCommands(s, CanGraph(s));
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

int ReplayRows(Session& s, std::span<const std::string> slotTexts) {
    ClearAllRows(s);
    // Left set for all the slots, so that the letters standing for sine, cosine and tangent
    // pass the entry rules.
    s.TrigFromMenu = true;
    int lastUsed = -1;
    const std::size_t slots = std::min(slotTexts.size(), static_cast<std::size_t>(UsableSlots));
    for (std::size_t i = 0; i < slots; ++i) {
        const int slot = static_cast<int>(i);
        s.ActiveSlot = slot;
        for (char c : slotTexts[i]) {
            Paper_KeyPress(s, slot, static_cast<unsigned char>(c));
            lastUsed = slot;
        }
    }
    s.TrigFromMenu = false;
    s.ActiveSlot = 0;
    s.ShownRows = 0;
    return lastUsed;
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
