#include <gtest/gtest.h>

#include <string>

#include "entry/EntryTesting.h"
#include "translate/Graphable.h"

namespace vt {

using test::NewEntrySession;
using test::Type;
using test::TypeFromMenu;

TEST(Backspace, RemovesFromTheEndAndLeavesTheRowReadyForWhatWasRemoved) {
    struct Case {
        const char* keys; // "\b" is Backspace
        const char* text;
        bool lastAccepted;
    };
    const Case cases[] = {
        {"x+2\b", "x+", true},
        {"x+2\b\b\b", "", true},
        {"\b", "", false},
        {"x\b\b", "", false},
        // A function goes with its parenthesis.
        {"S(\b", "", true},
        {"2S(\b", "2", true},
        {"xT(\b", "x", true},
        {"S(\b)", "", false},
        // An exponent mark never stays behind alone.
        {"x^2\b", "x", true},
        {"x^23\b", "x^2", true},
        {"x^-\b", "x", true},
        {"x^S(\b", "x", true},
        {"x^(\b", "x", true},
        // Parentheses and bars are counted back: a closing bar taken away leaves the bar open.
        {"(x)\b)", "(x)", true},
        {"(x\b\b)", "", false},
        {"((x+(\b(", "((x+(", true},
        {"|x|\b|", "|x|", true},
        {"|x\b\b|x|", "|x|", true},
        {"(|x|)\b\b|)", "(|x|)", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keys);
        auto s = NewEntrySession();
        TypeFromMenu(*s, c.keys);
        EXPECT_EQ(EntryText(*s, 0), c.text);
        EXPECT_EQ(s->TokenCount(0), static_cast<int>(std::string(c.text).size()));
        EXPECT_EQ(s->KeyAccepted, c.lastAccepted);
    }
}

TEST(Backspace, OverASlashEndsTheFraction) {
    auto s = NewEntrySession();
    Type(*s, "x/");
    ASSERT_TRUE(s->InFraction(0));
    ASSERT_EQ(s->FractionSide, 1);
    Paper_KeyPress(*s, 0, BackspaceKey);
    EXPECT_FALSE(s->InFraction(0));
    EXPECT_EQ(s->FractionSide, 0);
}

TEST(KeyPress, UpperCaseXIsStoredAsTheVariable) {
    auto s = NewEntrySession();
    Type(*s, "2X+X");
    EXPECT_EQ(EntryText(*s, 0), "2x+x");
}

TEST(KeyPress, EnterGraphsOnlyWhenEveryRowIsComplete) {
    struct Case {
        const char* row0;
        const char* row1;
        bool graphs;
    };
    const Case cases[] = {
        {"", "", false},    {"x", "", true},   {"2x^2+S(x)", "", true}, {"x+", "", false},
        {"(x", "", false},  {"|x", "", false}, {"x^", "", false},       {"x", "|x|", true},
        {"x", "x-", false}, // an unfinished row anywhere closes the command
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.row0) + " / " + c.row1);
        auto s = NewEntrySession();
        int graphs = 0;
        s->GraphCommand = [&graphs] { ++graphs; };
        s->ActiveSlot = 1;
        TypeFromMenu(*s, c.row1);
        s->ActiveSlot = 0;
        TypeFromMenu(*s, c.row0);
        ASSERT_EQ(EntryText(*s, 0) + "/" + EntryText(*s, 1), std::string(c.row0) + "/" + c.row1);
        Paper_KeyPress(*s, 0, EnterKey);
        EXPECT_EQ(graphs, c.graphs ? 1 : 0);
        EXPECT_FALSE(s->KeyAccepted);
        EXPECT_EQ(EntryText(*s, 0), c.row0);
    }
}

TEST(InsertCommands, TrigonometryRefusalsDifferBetweenSineAndTheOthers) {
    using Command = void (*)(Session&);
    const Command sine = mnuSin_Click, cosine = mnuCos_Click, tangent = mnuTan_Click;
    struct Case {
        const char* row;
        Command command;
        const char* text;
    };
    const Case cases[] = {
        {"", sine, "S("},
        {"", cosine, "C("},
        {"", tangent, "T("},
        {"x", sine, "xS("},
        {"2", tangent, "2T("},
        // The function itself refused: sine leaves the row alone, cosine and tangent cost it
        // its last token.
        {"(x)", sine, "(x)"},
        {"(x)", cosine, "(x"},
        {"(x)", tangent, "(x"},
        {"2.", sine, "2."},
        {"2.", cosine, "2"},
        // The function taken and its parenthesis refused: all three take the function out.
        {"((x+(x+", sine, "((x+(x+"},
        {"((x+(x+", cosine, "((x+(x+"},
        {"((x+(x+", tangent, "((x+(x+"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.row);
        auto s = NewEntrySession();
        s->ActiveSlot = 3; // the commands act on the active row
        Type(*s, c.row);
        ASSERT_EQ(EntryText(*s, 3), c.row);
        c.command(*s);
        EXPECT_EQ(EntryText(*s, 3), c.text);
        EXPECT_FALSE(s->TrigFromMenu);
    }
}

TEST(ReplaySlotKeys, FeedsAFileTextThroughTheRules) {
    auto s = NewEntrySession();
    ReplaySlotKeys(*s, 2, "2xS(x)");
    EXPECT_EQ(EntryText(*s, 2), "2xS(x)");
    EXPECT_FALSE(s->TrigFromMenu);
    EXPECT_EQ(s->ActiveSlot, 0);
    // What the rules refuse in its place disappears.
    ReplaySlotKeys(*s, 1, "x2+a)P");
    EXPECT_EQ(EntryText(*s, 1), "x+P");
}

TEST(EntryReset, ResetEntryStateClearsRowsAndKeepsTheFractionState) {
    auto s = NewEntrySession();
    TypeFromMenu(*s, "(|x");
    s->ActiveSlot = 1;
    TypeFromMenu(*s, "x^2/3");
    s->NumberHasPoint = true;
    s->LastBarClosed = true;
    s->ParenSide(2, 1) = -1;
    s->ParenSide(3, 2) = -1;
    s->LetterList(4) = "x";
    s->SlotIncomplete(4) = true;

    ResetEntryState(*s);

    for (int slot = 0; slot <= 4; ++slot) {
        SCOPED_TRACE(slot);
        EXPECT_EQ(EntryText(*s, slot) + DisplayText(*s, slot), "");
        EXPECT_EQ(s->TokenCount(slot) + s->OpenParens(slot) + s->OpenBars(slot), 0);
        EXPECT_FALSE(s->BarOpen(slot) || s->InExponent(slot) || s->InFraction(slot) ||
                     s->SlotIncomplete(slot));
    }
    EXPECT_EQ(s->DisplayCount, 0);
    EXPECT_EQ(s->LetterList(4), "");
    EXPECT_EQ(s->ParenSide(2, 1), 0);
    EXPECT_FALSE(s->LastBarClosed);
    // The fraction state, the point flag and side 2 of the parenthesis table carry on.
    EXPECT_EQ(s->FractionSide, 1);
    EXPECT_TRUE(s->NumberHasPoint);
    EXPECT_EQ(s->ParenSide(3, 2), -1);
    // The rows take keys from the start again.
    s->ActiveSlot = 0;
    Type(*s, "(x)");
    EXPECT_EQ(EntryText(*s, 0), "(x)");
}

TEST(EntryReset, ClearAllRowsEmptiesTheBuilderAndTheBreakList) {
    auto s = NewEntrySession();
    TypeFromMenu(*s, "x^2+S(x)");
    ASSERT_NE(GraphableText(*s, 0), "");
    s->GraphableCells(0, 5) = "k";
    s->BreakMark(10) = true;
    s->BreakCount = 11;
    s->TermStart(3, 2) = 40;
    s->BuildTokens(100) = "x";

    ClearAllRows(*s);

    EXPECT_EQ(EntryText(*s, 0) + GraphableText(*s, 0) + s->BuildTokens(100), "");
    EXPECT_EQ(s->GraphableCells(0, 5), "k"); // only the five rows
    EXPECT_FALSE(s->BreakMark(10));
    EXPECT_EQ(s->BreakCount, 0);
    EXPECT_EQ(s->TermStart(3, 2), 0);
}

namespace {

// Writes whole repetitions of a pattern straight into row 0, as keys would leave it, and runs
// one refused key so that the flags, the groups and the texts are rebuilt from it. This saves
// the hundreds of keys that would make the same long row. Every pattern used closes what it
// opens, so the counts that keys keep (parentheses, bars) are at rest, as a new session has
// them.
void FillRow(Session& s, const std::string& pattern, int repetitions) {
    int cell = 0;
    for (int r = 0; r < repetitions; ++r)
        for (char c : pattern)
            s.EntryTokens(cell++, 0).assign(1, c);
    s.TokenCount(0) = cell;
    Paper_KeyPress(s, 0, EnterKey);
}

// Types the pattern on from where the row stands until a key is refused; the index in the
// pattern of the refused key, or -1 if none was within the given number of keys.
int TypeUntilRefused(Session& s, const std::string& pattern, int maxKeys) {
    for (int k = 0; k < maxKeys; ++k) {
        const int at = s.TokenCount(0) % static_cast<int>(pattern.size());
        Paper_KeyPress(s, 0, pattern[static_cast<std::size_t>(at)]);
        if (!s.KeyAccepted) return at;
    }
    return -1;
}

// What a refused key must leave as it found it.
struct RowState {
    std::string tokens, display, graphable;
    bool inExponent, inRoot, inFraction, barOpen, incomplete, lastBarClosed, numberHasPoint;
    int openParens, openBars, barParenDepth, displayCount;
    Array2<int, 20, 2> parenSide;
    Array2<int, 10, 4> termStart;

    explicit RowState(const Session& s)
        : tokens(EntryText(s, 0)), display(DisplayText(s, 0)), graphable(GraphableText(s, 0)),
          inExponent(s.InExponent(0)), inRoot(s.InRoot(0)), inFraction(s.InFraction(0)),
          barOpen(s.BarOpen(0)), incomplete(s.SlotIncomplete(0)), lastBarClosed(s.LastBarClosed),
          numberHasPoint(s.NumberHasPoint), openParens(s.OpenParens(0)), openBars(s.OpenBars(0)),
          barParenDepth(s.BarParenDepth(0)), displayCount(s.DisplayCount), parenSide(s.ParenSide),
          termStart(s.TermStart) {}

    // The first field that differs, or "".
    std::string Differs(const RowState& o) const {
        if (tokens != o.tokens || display != o.display || graphable != o.graphable) return "texts";
        if (inExponent != o.inExponent || inRoot != o.inRoot || inFraction != o.inFraction ||
            barOpen != o.barOpen || incomplete != o.incomplete ||
            lastBarClosed != o.lastBarClosed || numberHasPoint != o.numberHasPoint)
            return "flags";
        if (openParens != o.openParens || openBars != o.openBars ||
            barParenDepth != o.barParenDepth || displayCount != o.displayCount)
            return "counts";
        for (int i = 0; i <= 20; ++i)
            for (int j = 0; j <= 2; ++j)
                if (parenSide(i, j) != o.parenSide(i, j)) return "ParenSide";
        for (int i = 0; i <= 10; ++i)
            for (int j = 0; j <= 4; ++j)
                if (termStart(i, j) != o.termStart(i, j)) return "TermStart";
        return "";
    }
};

} // namespace

TEST(FullRow, RefusesKeysOnceTheLastCellIsFilled) {
    // Digits make one long number: one group, so the builder takes the whole row.
    auto s = NewEntrySession();
    FillRow(*s, "1", 1990);
    ASSERT_EQ(TypeUntilRefused(*s, "1", 100), 0);
    ASSERT_EQ(s->TokenCount(0), CellUpper + 1);
    const RowState full(*s);
    for (char key : std::string("1x+(|.")) {
        Paper_KeyPress(*s, 0, key);
        EXPECT_FALSE(s->KeyAccepted) << key;
        EXPECT_EQ(RowState(*s).Differs(full), "") << key;
    }
    Paper_KeyPress(*s, 0, BackspaceKey);
    EXPECT_EQ(s->TokenCount(0), CellUpper);
    EXPECT_EQ(s->EntryTokens(CellUpper, 0), "");
}

TEST(FullRow, KeyThatOverflowsTheBuilderIsRefusedWithTheRowRestored) {
    // Patterns the rules always accept, typed on from a long row until the builder's grids run
    // out, well before the row's last cell.
    struct Case {
        std::string pattern;
        int groups; // groups that one repetition makes
    };
    const Case cases[] = {{"x+", 2}, {"(x+1)-", 6}, {"|x|*2-", 6}, {"x^2+", 4}, {".5+", 2}};
    for (const auto& [pattern, groups] : cases) {
        SCOPED_TRACE(pattern);
        auto s = NewEntrySession();
        FillRow(*s, pattern, 480 / groups);
        ASSERT_NE(GraphableText(*s, 0), "");
        const int refusedAt = TypeUntilRefused(*s, pattern, 100);
        ASSERT_GE(refusedAt, 0);
        const int length = s->TokenCount(0);
        EXPECT_LT(length, CellUpper / 2);
        // Back one key and on again to the same length, so that the refused key can be watched
        // from the state that a taken key left.
        Paper_KeyPress(*s, 0, BackspaceKey);
        while (s->TokenCount(0) < length) {
            const auto at = static_cast<std::size_t>(s->TokenCount(0)) % pattern.size();
            Paper_KeyPress(*s, 0, pattern[at]);
            ASSERT_TRUE(s->KeyAccepted);
        }
        const RowState before(*s);
        Paper_KeyPress(*s, 0, pattern[static_cast<std::size_t>(refusedAt)]);
        EXPECT_FALSE(s->KeyAccepted);
        EXPECT_EQ(RowState(*s).Differs(before), "");
    }
}

TEST(FullRow, RefusedKeyLeavesTheBuilderTermStartTableAsItWas) {
    // How many single-token groups the builder takes.
    auto probe = NewEntrySession();
    FillRow(*probe, "x+", 230);
    ASSERT_GE(TypeUntilRefused(*probe, "x+", 200), 0);
    const int n = probe->TokenCount(0);
    // A row that ends, at that length, with a parenthesis one level deeper than any before it:
    // only the pass that overflows writes the table at that level.
    const std::string tail = n % 2 == 1 ? "(x+(" : "((x+(";
    const int head = n + 1 - static_cast<int>(tail.size());
    auto s = NewEntrySession();
    FillRow(*s, "x+", head / 2);
    Type(*s, tail.substr(0, tail.size() - 1));
    ASSERT_EQ(s->TokenCount(0), n);
    const RowState before(*s);
    Paper_KeyPress(*s, 0, '(');
    EXPECT_FALSE(s->KeyAccepted);
    EXPECT_EQ(RowState(*s).Differs(before), "");
}

} // namespace vt
