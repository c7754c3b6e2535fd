// The entry rules: what may follow what at the end of a row, the number groups that the
// expression builder takes, and the letter list.

#include <algorithm>
#include <string>
#include <vector>

#include "entry/Entry.h"
#include "entry/TokenText.h"

namespace vt {

namespace {

// Limits set on each call of CheckKey.
constexpr int MaxDigits = 5;
constexpr int MaxLetters = 1;

bool IsDigitKey(const std::string& key) {
    return key.size() == 1 && key[0] >= '0' && key[0] <= '9';
}

bool Holds(const std::string& text, char c) {
    return text.find(c) != std::string::npos;
}

int Length(const std::string& text) {
    return static_cast<int>(text.size());
}

// Splits as the program's text split does: an empty text gives no parts at all, otherwise one
// part more than there are separators.
std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    std::string::size_type from = 0;
    for (;;) {
        const auto at = text.find(separator, from);
        if (at == std::string::npos) {
            parts.push_back(text.substr(from));
            return parts;
        }
        parts.push_back(text.substr(from, at - from));
        from = at + 1;
    }
}

// A display cell of the active row; a cell outside the row reads as empty.
const std::string& DisplayCell(const Session& s, int i) {
    static const std::string empty;
    if (i < 0 || i > CellUpper) return empty;
    return s.DisplayTokens(i, s.ActiveSlot);
}

// What the rules look at: the last two tokens and two cells of the display text as the last
// keystroke left it. That text holds one character per cell while DisplayCount runs four cells
// to a group, so G and G4 usually hold one character or none, not the group they name; the digit
// limits follow what they hold, and long numbers are therefore not stopped at five digits.
struct RuleView {
    int slot;
    int count;
    std::string prev;
    std::string prev2;
    std::string g;
    std::string g4;
};

RuleView MakeView(const Session& s) {
    RuleView v;
    v.slot = s.ActiveSlot;
    v.count = s.TokenCount(v.slot);
    // With an empty row both read cell 0, and with one token Prev2 is that token again.
    v.prev = ActiveToken(s, v.count >= 1 ? v.count - 1 : 0);
    v.prev2 = ActiveToken(s, v.count >= 2 ? v.count - 2 : 0);
    const int at = std::max(s.DisplayCount, 0);
    v.g = DisplayCell(s, at);
    v.g4 = DisplayCell(s, std::max(s.DisplayCount - 4, 0));
    return v;
}

bool DigitRule(Session& s, const RuleView& v) {
    const std::string& g = v.g;
    const bool f = IsNumberFraction(g) || (g == '/'_tok && IsNumeric(v.g4));
    // Digits before the point (or of the whole number), after the point, of a denominator.
    int d1 = 0, d2 = 0, d3 = 0;
    if (!Holds(g, '.')) {
        d1 = IsNumeric(g) ? Length(g) + 1 : 1;
        if (f) {
            const auto parts = Split(g, '/');
            if (parts.size() >= 2) d1 = Length(parts[1]) + 1;
        }
    } else if (!f) {
        const auto parts = Split(g, '.');
        if (parts.size() >= 1) d1 = Length(parts[0]);
        if (parts.size() >= 2) d2 = Length(parts[1]) + 1;
    } else {
        const auto parts = Split(g, '/');
        if (parts.size() >= 1) {
            if (!Holds(parts[0], '.')) {
                d1 = Length(parts[0]) + 1;
            } else {
                const auto halves = Split(parts[0], '.');
                if (halves.size() >= 1) d1 = Length(halves[0]);
                if (halves.size() >= 2) d2 = Length(halves[1]);
            }
        }
        if (parts.size() >= 2) {
            if (!Holds(parts[1], '.')) {
                d3 = Length(parts[1]) + 1;
            } else {
                const auto halves = Split(parts[1], '.');
                if (halves.size() >= 1) d3 = Length(halves[0]);
                if (halves.size() >= 2) d2 = Length(halves[1]) + 1;
            }
        }
    }
    if (d1 >= MaxDigits || d2 >= 3 || d3 >= MaxDigits) return false;
    if (s.InExponent(v.slot) && d1 > 1) return false;
    // No digit follows a letter, ")" or a closing bar.
    if (IsLetter(v.prev) || v.prev == ')'_tok || (v.prev == '|'_tok && !s.BarOpen(v.slot)))
        return false;
    return true;
}

bool LetterRule(Session& s, const RuleView& v, const std::string& key) {
    // A letter ends a fraction's and an exponent's claim on what follows, even when refused.
    s.InFraction(v.slot) = false;
    s.InExponent(v.slot) = false;
    const int n = LetterPosition(s, key);
    const bool a = !(v.prev == key || (s.LetterCount > MaxLetters && n == 0));
    const bool b = !(!IsTrigToken(key) && IsLetter(v.prev) && MaxLetters < 3);
    if (a && b && v.prev != ')'_tok && v.prev != '.'_tok) {
        // Walk back through the current product: a letter may not stand twice in it.
        for (int j = std::max(v.count - 1, 0); j >= 0; --j) {
            const std::string& t = ActiveToken(s, j);
            if (j == 0 || IsOperator(t) || t == '('_tok || t == '='_tok || t == '~'_tok ||
                t == '^'_tok || t == '|'_tok) {
                s.NumberHasPoint = false;
                return true;
            }
            if (t == key) return false;
        }
        return false;
    }
    // x may follow pi; nothing else gets past the tests above.
    return v.prev == 'P'_tok;
}

bool FractionRule(Session& s, const RuleView& v) {
    if (v.count == 0) return false;
    if (IsOperator(v.prev) || v.prev == '('_tok || v.prev == '^'_tok || v.prev == '~'_tok ||
        v.prev == '.'_tok)
        return false;
    if (v.prev == '|'_tok && s.BarOpen(v.slot)) return false; // straight after an opening bar
    s.NumberHasPoint = false;
    s.InFraction(v.slot) = true;
    s.SavedFractionSide = s.FractionSide != 0;
    s.FractionSide = 1;
    s.FractionParenDepth = s.OpenParens(v.slot);
    s.InExponent(v.slot) = false;
    return true;
}

bool RootRule(Session& s, const RuleView& v) {
    if (s.InRoot(v.slot)) return false; // roots do not nest in a row
    if (v.count > 0) {
        const bool admitted = IsNumeric(v.prev) || IsOperator(v.prev) || IsLetter(v.prev) ||
                              v.prev == '('_tok || v.prev == '|'_tok || v.prev == '^'_tok;
        if (!admitted) return false;
    }
    s.InRoot(v.slot) = true;
    s.NumberHasPoint = false;
    return true;
}

bool OperatorRule(Session& s, const RuleView& v, const std::string& key) {
    // An operator ends the exponent, even if it is refused below; a minus straight after "^"
    // (or after "^-") is the exponent's sign.
    if (s.InExponent(v.slot) && v.prev != '^'_tok && !(v.prev2 == '^'_tok && v.prev == '-'_tok))
        s.InExponent(v.slot) = false;
    if (key != '-'_tok && v.prev == '~'_tok) return false; // only a minus may open a root
    if (key == '-'_tok && v.prev == '('_tok) {
        s.NumberHasPoint = false;
        s.InRoot(v.slot) = false;
        return true;
    }
    if (key == '+'_tok && (v.count == 0 || s.InExponent(v.slot))) return false;
    if (key == '*'_tok &&
        (s.InExponent(v.slot) || v.count == 0 || (v.prev == '|'_tok && s.BarOpen(v.slot))))
        return false;
    if (IsOperator(v.prev) || v.prev == '('_tok) return false;
    s.NumberHasPoint = false;
    s.InFraction(v.slot) = false;
    if (v.prev != '~'_tok) s.InRoot(v.slot) = false;
    return true;
}

bool ClosingParenRule(Session& s, const RuleView& v) {
    if (v.prev == '('_tok || v.prev == '^'_tok || v.prev == '?'_tok || v.prev == '.'_tok ||
        IsOperator(v.prev))
        return false;
    if (s.OpenParens(v.slot) == 0) return false;
    // A bar opened inside these parentheses has to close first.
    if (s.BarOpen(v.slot) && !(s.BarParenDepth(v.slot) < s.OpenParens(v.slot))) return false;
    s.NumberHasPoint = false;
    s.ParenSide(s.OpenParens(v.slot), s.FractionSide) = 0;
    s.OpenParens(v.slot) -= 1;
    s.InExponent(v.slot) = false;
    if (IsNumberFraction(v.g)) s.InFraction(v.slot) = false;
    return true;
}

bool ExponentRule(Session& s, const RuleView& v) {
    const bool c = !(v.prev == '|'_tok && s.LastBarClosed);
    if (s.InExponent(v.slot)) return false; // an exponent holds no exponent
    const bool accepted =
        IsLetter(v.prev) || (IsNumeric(v.prev) && v.prev2 != '?'_tok) || v.prev == ')'_tok ||
        (v.prev == '|'_tok && !c && !s.BarOpen(v.slot) && !s.BarInExponent(v.slot));
    if (!accepted) return false;
    s.NumberHasPoint = false;
    s.InExponent(v.slot) = true;
    return true;
}

bool OpeningParenRule(Session& s, const RuleView& v) {
    // The first two tokens of a row may always be "(".
    if (v.count >= 2) {
        if (s.BarParenDepth(v.slot) < s.OpenParens(v.slot) && s.BarInExponent(v.slot)) return false;
        if (v.prev == '('_tok && v.prev2 == '('_tok) return false;
        if (v.prev == '('_tok && s.InExponent(v.slot)) return false;
        if (v.prev == ')'_tok) return false; // no ")(" in a row
        // Three deep at most. The count never passes 3, so ">=" only guards the ParenSide table.
        if (s.OpenParens(v.slot) >= 3) return false;
    }
    s.NumberHasPoint = false;
    s.OpenParens(v.slot) += 1;
    s.ParenSide(s.OpenParens(v.slot), s.FractionSide) = -1;
    return true;
}

bool PointAndBarRule(Session& s, const RuleView& v, const std::string& key) {
    const bool p = key != '.'_tok || s.NumberHasPoint;
    if ((v.count > 0 && !IsNumeric(v.prev) && !IsOperator(v.prev)) || p) {
        if (key == '|'_tok && s.BarOpen(v.slot) &&
            s.BarParenDepth(v.slot) == s.OpenParens(v.slot) &&
            !(IsOperator(v.prev) || v.prev == '|'_tok || v.prev == '^'_tok || v.prev == '.'_tok)) {
            // The closing bar, at the depth where it opened.
            s.BarOpen(v.slot) = false;
            s.LastBarClosed = true;
            s.OpenBars(v.slot) -= 1;
            s.BarInExponent(v.slot) = false;
            s.NumberHasPoint = false;
            return true;
        }
        if (key == '|'_tok && !s.BarOpen(v.slot)) {
            const bool admitted = IsSign(v.prev) || IsNumeric(v.prev) || IsLetter(v.prev) ||
                                  v.prev == '('_tok || v.prev == '^'_tok || v.prev == '~'_tok ||
                                  v.prev == '/'_tok || v.prev == '*'_tok;
            if (v.count > 0 && !admitted) return false;
            s.BarOpen(v.slot) = true;
            s.LastBarClosed = false;
            s.BarParenDepth(v.slot) = s.OpenParens(v.slot);
            s.OpenBars(v.slot) += 1;
            s.NumberHasPoint = false;
            s.BarInExponent(v.slot) = s.InExponent(v.slot);
            return true;
        }
        if (key != '.'_tok) return false;
        if (s.NumberHasPoint) return false;
        if (!(v.prev == '|'_tok || v.prev == '~'_tok || v.prev == '('_tok || s.InExponent(v.slot)))
            return false;
        if (v.prev == '.'_tok || IsLetter(v.prev) || v.prev == ')'_tok) return false;
        if (v.prev == '|'_tok && !s.BarOpen(v.slot)) return false;
        s.NumberHasPoint = true;
        return true;
    }
    // A point that starts a number or follows a digit.
    if (!Holds(v.g, '.') || v.prev == '.'_tok) {
        s.NumberHasPoint = true;
        return true;
    }
    if (!Holds(v.g, '/')) return false;
    const auto parts = Split(v.g, '/');
    const bool afterSlashPlain = parts.size() < 2 || !Holds(parts[1], '.');
    if (v.g.find('.') < v.g.find('/') && afterSlashPlain) {
        s.NumberHasPoint = true;
        return true;
    }
    return false;
}

} // namespace

bool CheckKey(Session& s, const std::string& key) {
    const RuleView v = MakeView(s);
    if (key == 'P'_tok && IsLetter(v.prev)) return false;
    if (IsDigitKey(key)) return DigitRule(s, v);
    if (IsLetter(key)) return LetterRule(s, v, key);
    if (key == '/'_tok) return FractionRule(s, v);
    if (key == '~'_tok) return RootRule(s, v);
    if (IsOperator(key) && v.prev != '.'_tok) return OperatorRule(s, v, key);
    if (key == ')'_tok) return ClosingParenRule(s, v);
    if (key == '^'_tok) return ExponentRule(s, v);
    if (key == '('_tok && v.prev != '.'_tok) return OpeningParenRule(s, v);
    // "." and "|", and an operator or "(" straight after ".", which this refuses.
    return PointAndBarRule(s, v, key);
}

void GroupTokens(Session& s) {
    const int slot = s.ActiveSlot;
    const int count = s.TokenCount(slot);
    s.DisplayTokens.FillColumn(slot, "");
    // The groups go straight into the emptied display cells from cell 1; cell 0 stays empty.
    // A group index past the last cell is a subscript error, as for any full list.
    auto group = [&](int g) -> std::string& { return s.DisplayTokens(g, slot); };
    int g = 0;
    bool inNumber = false;
    bool afterPower = false;
    // Up to TokenCount inclusive, so that the empty cell past the end is seen as well.
    for (int i = 0; i <= count; ++i) {
        const std::string& c = ActiveToken(s, i);
        const std::string& n = ActiveToken(s, i + 1);
        const std::string& b = ActiveToken(s, i - 1);
        if (IsNumeric(c) || c == '.'_tok) {
            if (!inNumber) {
                inNumber = true;
                group(++g) = c;
            } else {
                group(g) += c;
            }
        } else if (c == '^'_tok || c == '?'_tok) {
            afterPower = true;
            inNumber = false;
            group(++g) = c;
        } else if (c.empty()) {
            // nothing
        } else if (c == '/'_tok) {
            if (b == ')'_tok || n == '('_tok || afterPower || !inNumber) {
                group(++g) = c;
                inNumber = false;
            } else if (IsNumberFraction(group(g))) {
                group(++g) = c;
                inNumber = false;
            } else if (IsLetter(n)) {
                group(++g) = c;
            } else if (group(std::max(g - 2, 0)) == '^'_tok || !IsNumeric(n)) {
                group(++g) = c;
                inNumber = false;
            } else {
                // A numeric fraction such as 3/4 stays one group: a number, not a division of
                // terms.
                group(g) += "/";
            }
        } else {
            group(++g) = c;
            inNumber = false;
            afterPower = false;
        }
    }
    s.DisplayCount = g;
}

void CollectLetters(Session& s) {
    for (int i = 0; i <= 20; ++i)
        s.LetterList(i).clear();
    s.LetterCount = 1;
    const int count = s.TokenCount(s.ActiveSlot);
    for (int i = 0; i <= count; ++i) {
        const std::string& t = ActiveToken(s, i);
        if (IsLetter(t) && LetterPosition(s, t) == 0) {
            s.LetterList(s.LetterCount) = t;
            s.LetterCount += 1;
        }
    }
    s.LetterCount = 1;
}

int LetterPosition(const Session& s, const std::string& letter) {
    for (int i = 0; i <= s.LetterCount; ++i)
        if (s.LetterList(i) == letter) return i;
    return 0;
}

} // namespace vt
