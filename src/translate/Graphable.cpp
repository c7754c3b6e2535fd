#include "translate/Graphable.h"

#include <algorithm>
#include <utility>

#include "entry/Entry.h"
#include "entry/TokenText.h"

namespace vt {

namespace {

// One run of the builder over a row. The working grids BuildSource and BuildTokens hold token
// number k at cell 4k; the three cells behind a token are its gaps, where group closers go.
// BuildPos is the next free token cell and equals the read position throughout the scan.
// Every cell is reached through the checked grids: a row too long for them, or parentheses
// deeper than TermStart holds, ends the run with SubscriptError for the key handler to deal with.
struct BuilderRun {
    Session& s;
    const int slot;

    int level = 0;    // parenthesis depth
    int barDepth = 0; // second index of TermStart
    bool inBar = false;
    int fractionLevel = 0;
    int exponentLevel = 0;
    int rootLevel = 0;
    bool bracketSeen = false;
    bool fractionWasClosed = false;
    int lastFractionClose = 0;

    BuilderRun(Session& session, int activeSlot) : s(session), slot(activeSlot) {}

    std::string& Cell(int k) { return s.BuildTokens(k); }
    // Cells only read: reading leaves the grid's highest used cell where it is.
    const std::string& Read(int k) const { return std::as_const(s.BuildTokens)(k); }
    const std::string& Source(int k) const { return std::as_const(s.BuildSource)(k); }

    bool FractionHere() const { return s.FractionOpen(slot) && fractionLevel == level; }
    bool ExponentHere() const { return s.ExponentOpen(slot) && exponentLevel == level; }
    bool RootHere() const { return s.RootOpen(slot) && rootLevel == level; }

    void CopyToken(int i) {
        if (Source(i).empty()) return;
        Cell(s.BuildPos) = Source(i);
        s.BuildPos += 4;
    }

    // Which open groups a scan is to close; each closes once, at its marker nearest the token.
    struct Closing {
        bool fraction, root, exponent;
        bool Any() const { return fraction || root || exponent; }
    };

    // Closes the group whose marker the cell holds, when the scan is to close it: its closer
    // joins closers, and the slot's flag for the group goes off. A fraction may be kept open.
    void CloseAtMarker(const std::string& cell, Closing& want, std::string& closers,
                       bool fractionMayClose = true) {
        if (cell == '^'_tok && want.exponent) {
            closers += "^";
            s.ExponentOpen(slot) = false;
            want.exponent = false;
        } else if (cell == '#'_tok && want.fraction && fractionMayClose) {
            closers += "#";
            s.FractionOpen(slot) = false;
            want.fraction = false;
        } else if (cell == '~'_tok && want.root) {
            closers += "~";
            s.RootOpen(slot) = false;
            want.root = false;
        }
    }

    // Closes the groups asked for at token i, walking back to their markers. Inside an open
    // bar the walk may not pass the bar, so a group opened before the bar stays open. The
    // closers, innermost first, go into the free gap cells in front of token i.
    void CloseGroups(int i, bool closeFraction, bool closeRoot, bool closeExponent) {
        Closing want{closeFraction, closeRoot, closeExponent};
        bool allowed = true;
        std::string closers;
        // Once every group asked for is closed the rest of the walk changes nothing.
        for (int k = i; k >= 1 && want.Any(); --k) {
            const std::string& cell = Cell(k);
            if (allowed) CloseAtMarker(cell, want, closers);
            if (cell == '|'_tok && inBar) allowed = false;
        }
        for (int a = 1; a <= 3; ++a) {
            if (a > static_cast<int>(closers.size())) break;
            for (int b = a; b <= 3; ++b) {
                std::string& gap = Cell(i - 4 + b);
                if (gap.empty()) {
                    gap = closers.substr(static_cast<std::size_t>(a - 1), 1);
                    break;
                }
            }
        }
        CopyToken(i);
    }

    // A closing bar ends the groups opened inside it. The closers share the one gap cell in
    // front of the bar.
    void CloseGroupsAtBar(int i, bool closeFraction, bool closeRoot, bool closeExponent) {
        Closing want{closeFraction, closeRoot, closeExponent};
        std::string closers;
        for (int k = i; k >= 1 && want.Any(); --k) {
            const std::string& cell = Cell(k);
            if (cell == '|'_tok) break;
            CloseAtMarker(cell, want, closers);
        }
        Cell(s.BuildPos - 3) = closers;
        CopyToken(i);
    }

    // An opening bar ends the groups before it, unless it is the first thing in an exponent or
    // root (or follows only a sign there); a fraction whose "/" stands right before the bar
    // keeps the bar as its denominator.
    void CloseGroupsBeforeBar(int i, bool closeFraction, bool closeRoot, bool closeExponent) {
        const std::string& before = Cell(i - 4);
        const std::string& before2 = Cell(i < 8 ? 0 : i - 8);
        const bool keepOpen = before == '^'_tok || before == '~'_tok ||
                              (before == '-'_tok && (before2 == '^'_tok || before2 == '~'_tok));
        std::string closers;
        if (!keepOpen) {
            Closing want{closeFraction, closeRoot, closeExponent};
            for (int k = i; k >= 1 && want.Any(); --k)
                CloseAtMarker(Cell(k), want, closers, before != '/'_tok);
        }
        Cell(s.BuildPos - 3) = closers;
        CopyToken(i);
    }

    // At ")" every group opened since the matching "(" ends, whatever its level.
    void CloseAtParen() {
        int depth = level;
        int offset = 3;
        for (int k = s.BuildPos; k >= 1; --k) {
            const std::string& cell = Cell(k);
            if (cell == '^'_tok && s.ExponentOpen(slot)) {
                Cell(s.BuildPos - offset) = "^";
                --offset;
                s.ExponentOpen(slot) = false;
            } else if (cell == '#'_tok && s.FractionOpen(slot)) {
                Cell(s.BuildPos - offset) = "#";
                --offset;
                fractionWasClosed = true;
                s.FractionOpen(slot) = false;
            } else if (cell == '~'_tok && s.RootOpen(slot)) {
                Cell(s.BuildPos - offset) = "~";
                --offset;
                s.RootOpen(slot) = false;
            } else if (const bool moveEarlierClose =
                           Cell(lastFractionClose) == '#'_tok && fractionWasClosed;
                       moveEarlierClose ||
                       (cell == '/'_tok && !s.ExponentOpen(slot) && s.FractionOpen(slot))) {
                if (!moveEarlierClose) {
                    Cell(s.BuildPos - offset) = "#";
                    lastFractionClose = s.BuildPos - offset;
                    fractionWasClosed = false;
                    s.FractionOpen(slot) = false;
                } else {
                    Cell(lastFractionClose) = "";
                    s.FractionOpen(slot) = true;
                }
            } else if (cell == ')'_tok) {
                ++depth;
            } else if (cell == '('_tok) {
                if (depth == level) break;
                --depth;
            }
        }
    }

    // A "/" makes the whole term since the last boundary the numerator; fraction markers inside
    // that term are dropped, so a/b/c is one group with two slashes.
    void Slash(int i, const std::string& prev) {
        const bool guard = prev != '^'_tok && prev != '~'_tok;
        CloseGroups(i, FractionHere() && guard, RootHere() && guard, ExponentHere() && guard);
        const int p = s.TermStart(level, barDepth);
        if (!s.ExponentOpen(slot) && !s.FractionOpen(slot)) {
            if (IsNumberFraction(prev)) {
                // The fraction's level stays what it was.
                Cell(p + 1) = "#";
            } else {
                fractionLevel = level;
                if (Cell(p + 1) != '#'_tok && Cell(p + 2) != '#'_tok && Cell(p + 3) != '#'_tok)
                    Cell(p + 1) = "#";
            }
            s.FractionOpen(slot) = true;
        }
        for (int k = s.BuildPos; k >= p + 4; --k)
            if (Cell(k) == '#'_tok) Cell(k) = "";
    }

    void ScanToken(int i) {
        const std::string& tok = Source(i);
        const std::string& prev = Source(i - 4);
        const std::string& prev2 = Source(i < 8 ? 0 : i - 8);
        const bool guard = prev != '^'_tok && prev != '~'_tok;
        const bool afterSignedCaret = prev == '-'_tok && prev2 == '^'_tok;

        if (tok == '^'_tok || tok == '?'_tok) {
            Cell(s.BuildPos) = "^";
            s.BuildPos += 4;
            exponentLevel = level;
            s.ExponentOpen(slot) = true;
        } else if (IsNumberFraction(tok)) {
            if (s.ExponentOpen(slot) || s.FractionOpen(slot)) {
                CopyToken(i);
                return;
            }
            Cell(s.BuildPos - 3) = "#";
            CopyToken(i);
            const std::string& next = Source(i + 4);
            if (!next.empty() && !IsOperator(next)) {
                // The fraction stays open over the factors that follow.
                s.FractionOpen(slot) = true;
                fractionLevel = level;
            } else {
                Cell(s.BuildPos - 3) = "#";
            }
        } else if (tok == '-'_tok) {
            CloseGroups(i, FractionHere() && guard, RootHere() && guard, ExponentHere() && guard);
            if (prev != '~'_tok && !s.ExponentOpen(slot)) s.TermStart(level, barDepth) = i;
        } else if (tok == '+'_tok || tok == '='_tok) {
            CloseGroups(i, FractionHere(), RootHere(), ExponentHere());
            s.TermStart(level, barDepth) = i;
        } else if (tok == '~'_tok) {
            const bool keep = prev == '^'_tok || prev == '/'_tok || afterSignedCaret;
            CloseGroups(i, FractionHere() && !keep, RootHere() && !keep, ExponentHere() && !keep);
            s.RootOpen(slot) = true;
            rootLevel = level;
        } else if (tok == '('_tok) {
            if (IsTrigToken(prev) || prev == '/'_tok) {
                CopyToken(i);
            } else {
                bool closeFraction = FractionHere() && guard;
                bool closeRoot = RootHere() && guard;
                bool closeExponent = ExponentHere() && guard;
                if (prev == '-'_tok && prev2 == '~'_tok) closeRoot = false;
                if (afterSignedCaret) closeFraction = closeRoot = closeExponent = false;
                CloseGroups(i, closeFraction, closeRoot, closeExponent);
            }
            ++level;
            s.TermStart(level, barDepth) = i;
        } else if (tok == ')'_tok) {
            CloseAtParen();
            --level;
            CopyToken(i);
        } else if (tok == 'P'_tok) {
            Cell(s.BuildPos) = "`";
            s.BuildPos += 4;
        } else if (tok == '/'_tok) {
            Slash(i, prev);
        } else if (IsNumeric(tok) && tok != '1'_tok) {
            CopyToken(i);
        } else if (tok == '#'_tok) {
            CopyToken(i);
        } else if (tok == '*'_tok) {
            CloseGroups(i, FractionHere(), RootHere(), ExponentHere());
            s.TermStart(level, barDepth) = i;
        } else if (tok == '['_tok || tok == ']'_tok) {
            if (s.ExponentOpen(slot)) {
                Cell(s.BuildPos - 2) = "^";
                s.ExponentOpen(slot) = false;
            }
            if (prev == '/'_tok && tok == '['_tok) bracketSeen = true;
            if (s.FractionOpen(slot) && !bracketSeen) {
                Cell(s.BuildPos - 2) = "#";
                s.FractionOpen(slot) = false;
            }
            CopyToken(i);
        } else if (tok == '|'_tok) {
            const bool closeFraction = FractionHere();
            const bool closeRoot = RootHere();
            const bool closeExponent = ExponentHere();
            if (!closeFraction && !closeRoot && !closeExponent) {
                CopyToken(i);
                inBar = !inBar;
            } else if (inBar) {
                CloseGroupsAtBar(i, closeFraction, closeRoot, closeExponent);
                inBar = false;
            } else {
                CloseGroupsBeforeBar(i, closeFraction, closeRoot, closeExponent);
                inBar = true;
            }
            if (inBar) {
                ++barDepth;
                s.TermStart(level, barDepth) = i;
            } else {
                --barDepth;
            }
        } else if (tok.empty()) {
            // Past the last token.
        } else if (IsTrigToken(tok)) {
            // A function name ends a root whose digits it follows, and nothing else: an
            // exponent or fraction goes on over sin(...).
            if (RootHere() && prev != '~'_tok && !s.ExponentOpen(slot)) {
                Cell(s.BuildPos - 2) = "~";
                s.RootOpen(slot) = false;
            }
            CopyToken(i);
        } else if (IsLetter(tok)) {
            // A new letter ends a group (the y of x^2y, the letter after a root's digits),
            // where a digit would go on in it.
            bool closeFraction = FractionHere() && guard;
            bool closeRoot = RootHere() && guard;
            bool closeExponent = ExponentHere() && guard;
            if (prev == '/'_tok || afterSignedCaret)
                closeFraction = closeRoot = closeExponent = false;
            // Right after a number fraction the letter belongs to its denominator: 3/4x is three
            // over 4x, as the number fraction left its group open for the factors that follow.
            if (IsNumberFraction(prev)) closeFraction = false;
            CloseGroups(i, closeFraction, closeRoot, closeExponent);
        } else {
            CopyToken(i);
        }
    }

    void EndChecks() {
        const std::string last = Cell(s.BuildPos - 4);
        const bool looksFinished = !IsOperator(last) && level <= 0;
        if (looksFinished && last != ','_tok && last != '.'_tok && last != '^'_tok &&
            !(last == '~'_tok && s.RootOpen(slot))) {
            s.SlotIncomplete(slot) = s.OpenBars(slot) >= 1;
        } else {
            s.SlotIncomplete(slot) = true;
        }
        s.InRoot(slot) = s.RootOpen(slot);
        s.InExponent(slot) = s.ExponentOpen(slot);
    }

    // Groups still open at the end close behind the last token; an exponent with nothing in it
    // gets "?" so that the display shows an empty box.
    void CloseAtEnd() {
        if (!s.FractionOpen(slot) && !s.RootOpen(slot) && !s.ExponentOpen(slot)) return;
        std::string closers;
        for (int k = s.BuildPos + 20; k >= 0; --k) {
            const std::string& cell = Cell(k);
            if (cell.empty()) continue;
            if (cell == '#'_tok && s.FractionOpen(slot)) {
                closers += "#";
                s.FractionOpen(slot) = false;
            } else if (cell == '~'_tok && s.RootOpen(slot)) {
                closers += "~";
                s.RootOpen(slot) = false;
            } else if (cell == '^'_tok && s.ExponentOpen(slot)) {
                closers += Cell(s.BuildPos - 4) == '^'_tok ? "?^" : "^";
                s.ExponentOpen(slot) = false;
            }
        }
        int start = 1;
        if (Cell(s.BuildPos - 3).empty())
            start = 3;
        else if (Cell(s.BuildPos - 2).empty())
            start = 2;
        for (std::size_t c = 0; c < closers.size(); ++c)
            Cell(s.BuildPos - start + static_cast<int>(c)) = closers.substr(c, 1);
    }

    // Turns the marked-up tokens into the evaluator text, a piece a cell, and writes the
    // display cells on the way. Returns the display text: the display cells 0..1000 joined.
    std::string TextStage() {
        std::string display;
        int o = 0;
        bool textBar = false, textFraction = false, textExponent = false;
        bool exponentHasParen = false, textRoot = false, rootHasParen = false, skipParen = false;
        auto put = [&](const std::string& piece) {
            s.GraphableCells(o, slot) = piece;
            ++o;
        };
        const int lastCell = s.BuildPos + 20;
        for (int i = 0; i <= lastCell; ++i) {
            const std::string& k = Read(i);
            if (k.empty()) continue;
            s.DisplayTokens(i, slot) = k;
            if (i <= 1000) display += k;
            const std::string& prevPiece =
                std::as_const(s.GraphableCells)(o == 0 ? 0 : o - 1, slot);
            const bool prevEndsInParen = !prevPiece.empty() && prevPiece.back() == ')';

            if (IsNumberFraction(k)) {
                std::string piece;
                for (char c : k)
                    piece += c == '/' ? std::string(")/(") : std::string(1, c);
                put(piece);
            } else if (k == '|'_tok && textBar) {
                put(")");
                textBar = false;
            } else if (k == '|'_tok) {
                if (o != 0 && (IsLetter(prevPiece) || IsNumeric(prevPiece) || prevEndsInParen))
                    put("*abs(");
                else
                    put("abs(");
                textBar = true;
            } else if (k == '#'_tok) {
                put(textFraction ? ")" : "(");
                textFraction = !textFraction;
            } else if (k == '~'_tok && !textRoot) {
                if (Read(i + 4) == '('_tok) {
                    put("(");
                    rootHasParen = true;
                } else {
                    put(o != 0 && prevPiece == ')'_tok ? "*(" : "(");
                    rootHasParen = false;
                }
                textRoot = true;
            } else if (k == '~'_tok) {
                put(rootHasParen ? "^.5)" : ")^(.5)");
                textRoot = false;
            } else if (k == '^'_tok && !textExponent) {
                exponentHasParen = Read(i + 4) != '('_tok;
                put(exponentHasParen ? "^(" : "^");
                textExponent = true;
            } else if (k == '^'_tok) {
                if (exponentHasParen) put(")");
                textExponent = false;
            } else if (k == '`'_tok) {
                // After a number the product with pi; elsewhere the bare constant, which has
                // one digit fewer.
                put(IsNumeric(prevPiece) ? "*3.14159265388" : "3.1415926538");
            } else if (IsTrigToken(k) &&
                       (prevEndsInParen || (!prevPiece.empty() && !IsOperator(prevPiece) &&
                                            prevPiece.find('(') == std::string::npos))) {
                put("*");
                put(k);
            } else if (k == '/'_tok && !textExponent) {
                put(")/(");
            } else if (k == '('_tok && Read(i + 4) == '('_tok) {
                // Of doubled parentheses one pair goes, as long as a ")" ")" pair follows.
                bool pairAhead = false;
                for (int j = i; j <= lastCell && !pairAhead; ++j)
                    pairAhead = Read(j) == ')'_tok && Read(j + 4) == ')'_tok;
                if (pairAhead)
                    skipParen = true;
                else
                    put("(");
            } else if (k == ')'_tok && Read(i + 4) == ')'_tok && skipParen) {
                skipParen = false;
            } else if (prevPiece == ')'_tok && IsLetter(k)) {
                put("*");
                put(k);
            } else {
                put(k);
            }
        }
        return display;
    }

    // The pieces joined, a multiplication sign between two bracketed factors, and the text
    // stored back a character a cell. Returns that text.
    std::string FinalText() {
        const std::string joined = GraphableText(s, slot);
        std::string text;
        for (std::size_t c = 0; c < joined.size(); ++c) {
            text += joined[c];
            if (joined[c] == ')' && c + 1 < joined.size() && joined[c + 1] == '(') text += '*';
        }
        s.GraphableCells.FillColumn(slot, "");
        for (std::size_t c = 0; c < text.size(); ++c)
            s.GraphableCells(static_cast<int>(c), slot).assign(1, text[c]);
        return text;
    }
};

} // namespace

GraphableRow BuildGraphable(Session& s) {
    BuilderRun run(s, s.ActiveSlot);
    const int slot = run.slot;

    s.FractionOpen(slot) = false;
    s.RootOpen(slot) = false;
    s.ExponentOpen(slot) = false;
    s.BuildSource.Fill("");
    // A run cut short by a row too long for the grids leaves its work behind; start clean.
    s.BuildTokens.Fill("");

    int end = 4;
    for (int v = 1; v <= s.DisplayCount + 1; ++v) {
        const std::string& tok = s.DisplayTokens(v, slot);
        if (tok.empty()) continue;
        s.BuildSource(end) = tok;
        end += 4;
    }

    s.BuildPos = 4;
    s.TermStart(0, 0) = 0;
    s.TermStart(0, 1) = 0;
    for (int i = 4; i <= end; i += 4)
        run.ScanToken(i);

    run.EndChecks();
    run.CloseAtEnd();

    s.DisplayTokens.FillColumn(slot, "");
    s.GraphableCells.FillColumn(slot, "");
    GraphableRow built;
    built.Display = run.TextStage();
    built.Evaluator = run.FinalText();
    built.Incomplete = s.SlotIncomplete(slot);

    s.BuildTokens.Fill("");
    s.DisplayCount = s.BuildPos;
    return built;
}

std::string GraphableText(const Session& s, int slot) {
    std::string out;
    for (int i = 0; i <= s.GraphableCells.Top(slot); ++i)
        out += s.GraphableCells(i, slot);
    return out;
}

std::string DisplayText(const Session& s, int slot) {
    std::string out;
    for (int i = 0; i <= std::min(s.DisplayTokens.Top(slot), 1000); ++i)
        out += s.DisplayTokens(i, slot);
    return out;
}

bool HasDisplayText(const Session& s, int slot) {
    for (int i = 0; i <= std::min(s.DisplayTokens.Top(slot), 1000); ++i)
        if (!s.DisplayTokens(i, slot).empty()) return true;
    return false;
}

} // namespace vt
