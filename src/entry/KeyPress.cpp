// Keys into a row: the class test against the key mask, the entry rules, Backspace, the rescan
// of the row's flags, and the finish that regroups, rebuilds and repaints the rows.

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "display/Papers.h"
#include "entry/Entry.h"
#include "entry/TokenText.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

// Bits of the key-class mask.
enum KeyClassBit : int {
    DigitBit = 0,
    SignBit = 1,
    TimesBit = 2,
    SlashBit = 3,
    CaretBit = 4,
    ParenBit = 5,
    EqualsBit = 6,
    LetterBit = 7,
    RootBit = 8,
    BarBit = 9,
    PointBit = 10,
    CommaBit = 11,
    ColonBit = 12,
    PercentBit = 13,
};

bool IsTrigToken(const std::string& t) {
    return t == "S" || t == "C" || t == "T";
}

// The key's text. Codes outside 0..255 have no character and so fall in no class.
std::string KeyText(int keyAscii) {
    if (keyAscii < 0 || keyAscii > 255) return {};
    return std::string(1, static_cast<char>(static_cast<unsigned char>(keyAscii)));
}

// The class test: the first class that fits decides, and the key passes if its bit is on.
bool PassesKeyMask(int mask, const std::string& key) {
    auto on = [mask](int bit) { return (mask & (1 << bit)) != 0; };
    if (IsNumeric(key)) return on(DigitBit);
    if (IsSign(key)) return on(SignBit);
    if (key == "*") return on(TimesBit);
    if (key == "/") return on(SlashBit);
    if (key == "^") return on(CaretBit);
    if (key == ")" || key == "(") return on(ParenBit);
    if (key == "=") return on(EqualsBit);
    if (IsLetter(key)) {
        // Of the letters only the variable, pi and the three functions are keys.
        return on(LetterBit) &&
               (key == "x" || key == "X" || key == "S" || key == "C" || key == "T" || key == "P");
    }
    if (key == "~") return on(RootBit);
    if (key == "|") return on(BarBit);
    if (key == ".") return on(PointBit);
    if (key == ",") return on(CommaBit);
    if (key == ":") return on(ColonBit);
    if (key == "%") return on(PercentBit);
    return false;
}

void RemoveLastToken(Session& s, int slot) {
    int& count = s.TokenCount(slot);
    count -= 1;
    s.EntryTokens(count, slot).clear();
}

// Backspace on a row with at least one token.
void Backspace(Session& s) {
    const int slot = s.ActiveSlot;
    const std::string last = ActiveToken(s, s.TokenCount(slot) - 1);
    s.KeyAccepted = true;
    if (last == "~" && s.InRoot(slot)) s.InRoot(slot) = false;
    if (last == "=") s.EqualsEntered = false;
    if (last == "^" || last == "?") s.InExponent(slot) = false;
    if (last == "|") {
        // A closing bar goes and the bar is open again; an opening bar goes with its bar.
        if (!s.BarOpen(slot)) {
            s.BarOpen(slot) = true;
            s.OpenBars(slot) += 1;
        } else {
            s.BarOpen(slot) = false;
            s.OpenBars(slot) -= 1;
        }
    }
    if (last == ")") s.OpenParens(slot) += 1;
    if (last == "(") {
        s.OpenParens(slot) -= 1;
        // A function and its parenthesis always go together: the "(" goes now, the name below.
        if (s.TokenCount(slot) >= 2 && IsTrigToken(ActiveToken(s, s.TokenCount(slot) - 2)))
            RemoveLastToken(s, slot);
    }
    if (ActiveToken(s, s.TokenCount(slot) - 1) == "/") {
        s.InFraction(slot) = false;
        s.FractionSide = 0;
    }
    RemoveLastToken(s, slot);
    // An exponent mark never stays behind with nothing after it.
    if (s.TokenCount(slot) > 0) {
        const std::string& now = ActiveToken(s, s.TokenCount(slot) - 1);
        if (now == "^" || now == "?") {
            s.InExponent(slot) = false;
            RemoveLastToken(s, slot);
        }
    }
}

// Recomputes the row's exponent, root, bar and point state from the whole token list.
void Rescan(Session& s) {
    const int slot = s.ActiveSlot;
    const int count = s.TokenCount(slot);
    bool expNow = false;
    int expDepth = 0;
    int rootDepth = 0;
    int parenRun = 0;
    bool barRun = false;
    bool barAfterCaret = false;
    s.NumberHasPoint = false;
    s.BarInExponent(slot) = false;
    for (int i = 0; i < count; ++i) {
        const std::string& c = ActiveToken(s, i);
        // The first token is its own predecessor; the rules below depend on that.
        const std::string& p = ActiveToken(s, i == 0 ? 0 : i - 1);
        if (c == "^") {
            expNow = true;
            expDepth = parenRun;
            s.NumberHasPoint = false;
        } else if (c == ".") {
            s.NumberHasPoint = true;
        } else if (c == "(" && p == "^") {
            // The parenthesis belongs to the exponent.
            expDepth = parenRun;
            parenRun += 1;
            s.NumberHasPoint = false;
        } else if (c == "(") {
            if (!IsTrigToken(p) && expDepth == parenRun) expNow = false;
            parenRun += 1;
            s.NumberHasPoint = false;
        } else if (c == ")") {
            if (expDepth == parenRun) expNow = false;
            if (s.InRoot(slot) && rootDepth == parenRun) s.InRoot(slot) = false;
            parenRun -= 1;
            s.NumberHasPoint = false;
        } else if (c == "~") {
            rootDepth = parenRun;
            expNow = false;
            s.InRoot(slot) = true;
            s.NumberHasPoint = false;
        } else if (c == "|") {
            s.NumberHasPoint = false;
            if (barRun) {
                barRun = false;
                s.BarParenDepth(slot) = 0;
            } else {
                barRun = true;
                s.BarParenDepth(slot) = parenRun;
                if (parenRun > expDepth && expNow) {
                    s.BarInExponent(slot) = true;
                } else {
                    s.BarInExponent(slot) = false;
                    expNow = false;
                }
            }
            barAfterCaret = p == "^";
        } else {
            const bool a = !(IsOperator(c) && expNow && expDepth == parenRun && !barAfterCaret);
            if (!a && p != "^") {
                // An operator at the exponent's own level ends the exponent.
                expNow = false;
                s.NumberHasPoint = false;
                if (parenRun == rootDepth && !barRun) s.InRoot(slot) = false;
            } else {
                const bool b = !(IsOperator(c) && s.InRoot(slot) && rootDepth == parenRun);
                const bool cc = p == "^" || rootDepth != 0;
                if (cc && (p == "~" || b || p == "^")) {
                    if (IsOperator(c)) s.NumberHasPoint = false;
                } else if ((c != "-" || p != "~") && !IsLetter(c) && !IsNumeric(c)) {
                    s.NumberHasPoint = false;
                    if (rootDepth == parenRun) s.InRoot(slot) = false;
                }
            }
        }
    }
    s.InExponent(slot) = expNow;
}

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

// Steps 2 to 7 of a key: the class test, then Backspace or the entry rules, then the rescan.
void KeyIntoRow(Session& s, int keyAscii) {
    std::string key = KeyText(keyAscii);
    s.KeyAccepted = false;
    if (s.AllowedKeys <= 0) return;
    s.KeyAccepted = PassesKeyMask(s.AllowedKeys, key);
    const int slot = s.ActiveSlot;
    if (keyAscii != BackspaceKey && s.KeyAccepted) {
        CollectLetters(s);
        if (key == "X") key = "x";
        if (IsTrigToken(key) && !s.TrigFromMenu) {
            // Typed, these letters do nothing; only the Insert commands and a load send them.
            s.KeyAccepted = false;
        } else if (CheckKey(s, key) && s.KeyAccepted) {
            // Cell 2001 of a full row does not exist: the store fails and the key is refused.
            int& count = s.TokenCount(slot);
            s.EntryTokens(count, slot) = key;
            count += 1;
        } else {
            s.KeyAccepted = false;
        }
    } else if (keyAscii == BackspaceKey && s.TokenCount(slot) >= 1) {
        Backspace(s);
    }
    Rescan(s);
}

} // namespace

int BitsToMask(std::string_view bits) {
    // Kept to 16 bits as the mask is: a text of sixteen characters with a leading "1" reads as
    // a negative mask, which the key handler takes as "no key passes".
    std::uint32_t value = 0;
    for (char c : bits)
        value = ((value << 1) | (c == '1' ? 1u : 0u)) & 0xFFFFu;
    return static_cast<std::int16_t>(value);
}

void SetKeyMask(Session& s) {
    s.AllowedKeys = BitsToMask("00011110111111");
}

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
