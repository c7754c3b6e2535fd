// Keys into a row: the class test against the key mask, the entry rules, Backspace and the rescan
// of the row's flags.

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "entry/Entry.h"
#include "entry/TokenText.h"

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
    if (key == '*'_tok) return on(TimesBit);
    if (key == '/'_tok) return on(SlashBit);
    if (key == '^'_tok) return on(CaretBit);
    if (key == ')'_tok || key == '('_tok) return on(ParenBit);
    if (key == '='_tok) return on(EqualsBit);
    if (IsLetter(key)) {
        // Of the letters only the variable, pi and the three functions are keys.
        return on(LetterBit) && (key == 'x'_tok || key == 'X'_tok || key == 'S'_tok ||
                                 key == 'C'_tok || key == 'T'_tok || key == 'P'_tok);
    }
    if (key == '~'_tok) return on(RootBit);
    if (key == '|'_tok) return on(BarBit);
    if (key == '.'_tok) return on(PointBit);
    if (key == ','_tok) return on(CommaBit);
    if (key == ':'_tok) return on(ColonBit);
    if (key == '%'_tok) return on(PercentBit);
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
    if (last == '~'_tok && s.InRoot(slot)) s.InRoot(slot) = false;
    if (last == '='_tok) s.EqualsEntered = false;
    if (last == '^'_tok || last == '?'_tok) s.InExponent(slot) = false;
    if (last == '|'_tok) {
        // A closing bar goes and the bar is open again; an opening bar goes with its bar.
        if (!s.BarOpen(slot)) {
            s.BarOpen(slot) = true;
            s.OpenBars(slot) += 1;
        } else {
            s.BarOpen(slot) = false;
            s.OpenBars(slot) -= 1;
        }
    }
    if (last == ')'_tok) s.OpenParens(slot) += 1;
    if (last == '('_tok) {
        s.OpenParens(slot) -= 1;
        // A function and its parenthesis always go together: the "(" goes now, the name below.
        if (s.TokenCount(slot) >= 2 && IsTrigToken(ActiveToken(s, s.TokenCount(slot) - 2)))
            RemoveLastToken(s, slot);
    }
    if (ActiveToken(s, s.TokenCount(slot) - 1) == '/'_tok) {
        s.InFraction(slot) = false;
        s.FractionSide = 0;
    }
    RemoveLastToken(s, slot);
    // An exponent mark never stays behind with nothing after it.
    if (s.TokenCount(slot) > 0) {
        const std::string& now = ActiveToken(s, s.TokenCount(slot) - 1);
        if (now == '^'_tok || now == '?'_tok) {
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
        if (c == '^'_tok) {
            expNow = true;
            expDepth = parenRun;
            s.NumberHasPoint = false;
        } else if (c == '.'_tok) {
            s.NumberHasPoint = true;
        } else if (c == '('_tok && p == '^'_tok) {
            // The parenthesis belongs to the exponent.
            expDepth = parenRun;
            parenRun += 1;
            s.NumberHasPoint = false;
        } else if (c == '('_tok) {
            if (!IsTrigToken(p) && expDepth == parenRun) expNow = false;
            parenRun += 1;
            s.NumberHasPoint = false;
        } else if (c == ')'_tok) {
            if (expDepth == parenRun) expNow = false;
            if (s.InRoot(slot) && rootDepth == parenRun) s.InRoot(slot) = false;
            parenRun -= 1;
            s.NumberHasPoint = false;
        } else if (c == '~'_tok) {
            rootDepth = parenRun;
            expNow = false;
            s.InRoot(slot) = true;
            s.NumberHasPoint = false;
        } else if (c == '|'_tok) {
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
            barAfterCaret = p == '^'_tok;
        } else {
            const bool a = !(IsOperator(c) && expNow && expDepth == parenRun && !barAfterCaret);
            if (!a && p != '^'_tok) {
                // An operator at the exponent's own level ends the exponent.
                expNow = false;
                s.NumberHasPoint = false;
                if (parenRun == rootDepth && !barRun) s.InRoot(slot) = false;
            } else {
                const bool b = !(IsOperator(c) && s.InRoot(slot) && rootDepth == parenRun);
                const bool cc = p == '^'_tok || rootDepth != 0;
                if (cc && (p == '~'_tok || b || p == '^'_tok)) {
                    if (IsOperator(c)) s.NumberHasPoint = false;
                } else if ((c != '-'_tok || p != '~'_tok) && !IsLetter(c) && !IsNumeric(c)) {
                    s.NumberHasPoint = false;
                    if (rootDepth == parenRun) s.InRoot(slot) = false;
                }
            }
        }
    }
    s.InExponent(slot) = expNow;
}

} // namespace

void KeyIntoRow(Session& s, int keyAscii) {
    std::string key = KeyText(keyAscii);
    s.KeyAccepted = false;
    if (s.AllowedKeys <= 0) return;
    s.KeyAccepted = PassesKeyMask(s.AllowedKeys, key);
    const int slot = s.ActiveSlot;
    if (keyAscii != BackspaceKey && s.KeyAccepted) {
        CollectLetters(s);
        if (key == 'X'_tok) key = "x";
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

} // namespace vt
