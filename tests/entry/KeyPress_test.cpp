#include <gtest/gtest.h>

#include <string>

#include "entry/EntryTesting.h"
#include "translate/Graphable.h"

namespace vt {

using test::NewEntrySession;
using test::Type;
using test::TypeFromMenu;

namespace {

void Backspaces(Session& s, int n) {
    for (int i = 0; i < n; ++i) Paper_KeyPress(s, s.ActiveSlot, BackspaceKey);
}

} // namespace

TEST(Backspace, RemovesFromTheEndAndKeepsTheCounts) {
    struct Case {
        const char* row;
        int backspaces;
        const char* text;
        bool accepted; // KeyAccepted after the last Backspace
        int openParens;
        int openBars;
        bool barOpen;
    };
    const Case cases[] = {
        {"x+2", 1, "x+", true, 0, 0, false},
        {"x+2", 3, "", true, 0, 0, false},
        {"", 1, "", false, 0, 0, false},
        {"x", 2, "", false, 0, 0, false},
        // A function goes with its parenthesis.
        {"S(", 1, "", true, 0, 0, false},
        {"2S(", 1, "2", true, 0, 0, false},
        {"xT(", 1, "x", true, 0, 0, false},
        // An exponent mark never stays behind alone.
        {"x^2", 1, "x", true, 0, 0, false},
        {"x^23", 1, "x^2", true, 0, 0, false},
        {"x^-", 1, "x", true, 0, 0, false},
        {"x^S(", 1, "x", true, 0, 0, false},
        {"x^(", 1, "x", true, 0, 0, false},
        // Parentheses and bars are counted back.
        {"(x)", 1, "(x", true, 1, 0, false},
        {"(x", 2, "", true, 0, 0, false},
        {"((x+(", 1, "((x+", true, 2, 0, false},
        {"|x|", 1, "|x", true, 0, 1, true},
        {"|x", 2, "", true, 0, 0, false},
        {"(|x|)", 2, "(|x", true, 1, 1, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.row) + " with " + std::to_string(c.backspaces) + " Backspace");
        auto s = NewEntrySession();
        TypeFromMenu(*s, c.row);
        ASSERT_EQ(EntryText(*s, 0), c.row);
        Backspaces(*s, c.backspaces);
        EXPECT_EQ(EntryText(*s, 0), c.text);
        EXPECT_EQ(s->TokenCount(0), static_cast<int>(std::string(c.text).size()));
        EXPECT_EQ(s->KeyAccepted, c.accepted);
        EXPECT_EQ(s->OpenParens(0), c.openParens);
        EXPECT_EQ(s->OpenBars(0), c.openBars);
        EXPECT_EQ(s->BarOpen(0), c.barOpen);
    }
}

TEST(Backspace, LeavesTheRowReadyForWhatWasRemoved) {
    struct Case {
        const char* row;
        int backspaces;
        const char* then; // typed after the Backspace
        const char* text;
    };
    const Case cases[] = {
        // A closing bar taken away leaves the bar open: the next "|" closes it again.
        {"|x|", 1, "|", "|x|"},
        {"(x)", 1, ")", "(x)"},
        {"(x", 2, ")", ""},
        {"S(", 1, ")", ""},
        // The third parenthesis can be opened again once one is taken back.
        {"((x+(", 1, "(", "((x+("},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.row);
        auto s = NewEntrySession();
        TypeFromMenu(*s, c.row);
        ASSERT_EQ(EntryText(*s, 0), c.row);
        Backspaces(*s, c.backspaces);
        TypeFromMenu(*s, c.then);
        EXPECT_EQ(EntryText(*s, 0), c.text);
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
    EXPECT_EQ(s->EntryTokens(1, 0), "x");
}

TEST(KeyPress, EnterGraphsOnlyWhenEveryRowIsComplete) {
    struct Case {
        const char* row0;
        const char* row1;
        bool graphs;
    };
    const Case cases[] = {
        {"", "", false},      {"x", "", true},      {"2x^2+S(x)", "", true},
        {"x+", "", false},    {"(x", "", false},    {"|x", "", false},
        {"x^", "", false},    {"x", "x-", false}, // an unfinished row anywhere closes the command
        {"x", "|x|", true},
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
        ASSERT_EQ(EntryText(*s, 0), c.row0);
        ASSERT_EQ(EntryText(*s, 1), c.row1);
        Paper_KeyPress(*s, 0, EnterKey);
        EXPECT_EQ(graphs, c.graphs ? 1 : 0);
        EXPECT_FALSE(s->KeyAccepted);
        EXPECT_EQ(EntryText(*s, 0), c.row0);
    }
    // Unbound, the graph command is simply not there.
    auto s = NewEntrySession();
    Type(*s, "x");
    Paper_KeyPress(*s, 0, EnterKey);
    EXPECT_EQ(EntryText(*s, 0), "x");
}

TEST(InsertCommands, TrigonometryRefusalsDifferBetweenSineAndTheOthers) {
    enum Command { Sin, Cos, Tan };
    struct Case {
        const char* row;
        Command command;
        const char* text;
    };
    const Case cases[] = {
        {"", Sin, "S("},
        {"", Cos, "C("},
        {"", Tan, "T("},
        {"x", Sin, "xS("},
        {"2", Tan, "2T("},
        // The function itself refused: sine leaves the row alone, cosine and tangent cost it
        // its last token.
        {"(x)", Sin, "(x)"},
        {"(x)", Cos, "(x"},
        {"(x)", Tan, "(x"},
        {"2.", Sin, "2."},
        {"2.", Cos, "2"},
        // The function taken and its parenthesis refused: all three take the function out.
        {"((x+(x+", Sin, "((x+(x+"},
        {"((x+(x+", Cos, "((x+(x+"},
        {"((x+(x+", Tan, "((x+(x+"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.row) + " command " + std::to_string(c.command));
        auto s = NewEntrySession();
        Type(*s, c.row);
        ASSERT_EQ(EntryText(*s, 0), c.row);
        if (c.command == Sin) mnuSin_Click(*s);
        if (c.command == Cos) mnuCos_Click(*s);
        if (c.command == Tan) mnuTan_Click(*s);
        EXPECT_EQ(EntryText(*s, 0), c.text);
        EXPECT_FALSE(s->TrigFromMenu);
    }
}

TEST(InsertCommands, ActOnTheActiveRow) {
    auto s = NewEntrySession();
    s->ActiveSlot = 3;
    mnuCos_Click(*s);
    EXPECT_EQ(EntryText(*s, 3), "C(");
    EXPECT_EQ(EntryText(*s, 0), "");
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
    s->FractionSide = 1;
    s->SavedFractionSide = true;
    s->FractionParenDepth = 2;
    s->NumberHasPoint = true;
    s->EqualsEntered = true;
    s->LastBarClosed = true;
    s->ParenSide(2, 1) = -1;
    s->ParenSide(3, 2) = -1;
    s->LetterList(4) = "x";
    s->LetterCount = 3;
    s->SlotIncomplete(4) = true;
    s->InRoot(9) = true;
    s->TokenCount(10) = 7;

    ResetEntryState(*s);

    for (int slot = 0; slot <= 9; ++slot) {
        SCOPED_TRACE(slot);
        EXPECT_EQ(s->TokenCount(slot), 0);
        EXPECT_EQ(s->OpenParens(slot), 0);
        EXPECT_EQ(s->OpenBars(slot), 0);
        EXPECT_FALSE(s->BarOpen(slot));
        EXPECT_FALSE(s->InExponent(slot));
        EXPECT_FALSE(s->InRoot(slot));
        EXPECT_FALSE(s->InFraction(slot));
        EXPECT_FALSE(s->SlotIncomplete(slot));
        EXPECT_EQ(EntryText(*s, slot), "");
        EXPECT_EQ(DisplayText(*s, slot), "");
    }
    EXPECT_EQ(s->DisplayCount, 0);
    EXPECT_EQ(s->LetterCount, 0);
    EXPECT_EQ(s->LetterList(4), "");
    EXPECT_EQ(s->ParenSide(2, 1), 0);
    EXPECT_FALSE(s->EqualsEntered);
    EXPECT_FALSE(s->LastBarClosed);
    // Left as they were: the fraction state, the point flag, side 2 of the parenthesis table,
    // and the count of row 10, which no row reaches.
    EXPECT_EQ(s->FractionSide, 1);
    EXPECT_TRUE(s->SavedFractionSide);
    EXPECT_EQ(s->FractionParenDepth, 2);
    EXPECT_TRUE(s->NumberHasPoint);
    EXPECT_EQ(s->ParenSide(3, 2), -1);
    EXPECT_EQ(s->TokenCount(10), 7);
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
    s->BreakX(10) = 2.5;
    s->BreakMark(10) = true;
    s->BreakCount = 11;
    s->TermStart(3, 2) = 40;
    s->BuildTokens(100) = "x";
    s->RootOpen(2) = true;

    ClearAllRows(*s);

    EXPECT_EQ(EntryText(*s, 0), "");
    EXPECT_EQ(GraphableText(*s, 0), "");
    EXPECT_EQ(s->GraphableCells(0, 5), "k"); // only the five rows
    EXPECT_EQ(s->BreakX(10), 0);
    EXPECT_FALSE(s->BreakMark(10));
    EXPECT_EQ(s->BreakCount, 0);
    EXPECT_EQ(s->TermStart(3, 2), 0);
    EXPECT_EQ(s->BuildTokens(100), "");
    EXPECT_FALSE(s->RootOpen(2));
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
        for (char c : pattern) s.EntryTokens(cell++, 0).assign(1, c);
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

} // namespace

TEST(FullRow, RefusesKeysOnceTheLastCellIsFilled) {
    // Digits make one long number: one group, so the builder takes the whole row.
    auto s = NewEntrySession();
    FillRow(*s, "1", 1990);
    ASSERT_EQ(GraphableText(*s, 0).size(), 1990u);
    ASSERT_EQ(TypeUntilRefused(*s, "1", 100), 0);
    ASSERT_EQ(s->TokenCount(0), CellUpper + 1);
    const std::string full = EntryText(*s, 0);
    for (char key : std::string("1x+(|.")) {
        Paper_KeyPress(*s, 0, key);
        EXPECT_FALSE(s->KeyAccepted) << key;
        EXPECT_EQ(s->TokenCount(0), CellUpper + 1);
    }
    EXPECT_EQ(EntryText(*s, 0), full);
    EXPECT_FALSE(s->SlotIncomplete(0));
    Paper_KeyPress(*s, 0, BackspaceKey);
    EXPECT_TRUE(s->KeyAccepted);
    EXPECT_EQ(s->TokenCount(0), CellUpper);
    EXPECT_EQ(s->EntryTokens(CellUpper, 0), "");
    Paper_KeyPress(*s, 0, '1');
    EXPECT_TRUE(s->KeyAccepted);
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
        // Back one key and on again to the same length, so that the refused key can be watched
        // from the state that a taken key left.
        const int length = s->TokenCount(0);
        Paper_KeyPress(*s, 0, BackspaceKey);
        while (s->TokenCount(0) < length) {
            Paper_KeyPress(*s, 0, pattern[static_cast<std::size_t>(s->TokenCount(0)) % pattern.size()]);
            ASSERT_TRUE(s->KeyAccepted);
        }
        const std::string text = EntryText(*s, 0);
        const std::string display = DisplayText(*s, 0);
        const std::string graphable = GraphableText(*s, 0);
        const Session& b = *s;
        const bool inExponent = b.InExponent(0), inRoot = b.InRoot(0),
                   inFraction = b.InFraction(0), barOpen = b.BarOpen(0),
                   incomplete = b.SlotIncomplete(0), lastBarClosed = b.LastBarClosed,
                   numberHasPoint = b.NumberHasPoint;
        const int openParens = b.OpenParens(0), openBars = b.OpenBars(0),
                  displayCount = b.DisplayCount, barParenDepth = b.BarParenDepth(0);
        const auto termStart = b.TermStart;

        Paper_KeyPress(*s, 0, pattern[static_cast<std::size_t>(refusedAt)]);

        EXPECT_FALSE(s->KeyAccepted);
        EXPECT_EQ(EntryText(*s, 0), text);
        EXPECT_EQ(s->TokenCount(0), static_cast<int>(text.size()));
        EXPECT_EQ(DisplayText(*s, 0), display);
        EXPECT_EQ(GraphableText(*s, 0), graphable);
        EXPECT_EQ(s->InExponent(0), inExponent);
        EXPECT_EQ(s->InRoot(0), inRoot);
        EXPECT_EQ(s->InFraction(0), inFraction);
        EXPECT_EQ(s->BarOpen(0), barOpen);
        EXPECT_EQ(s->SlotIncomplete(0), incomplete);
        EXPECT_EQ(s->LastBarClosed, lastBarClosed);
        EXPECT_EQ(s->NumberHasPoint, numberHasPoint);
        EXPECT_EQ(s->OpenParens(0), openParens);
        EXPECT_EQ(s->OpenBars(0), openBars);
        EXPECT_EQ(s->BarParenDepth(0), barParenDepth);
        EXPECT_EQ(s->DisplayCount, displayCount);
        for (int level = 0; level <= 10; ++level)
            for (int depth = 0; depth <= 4; ++depth)
                EXPECT_EQ(s->TermStart(level, depth), termStart(level, depth));
        // The row still works from its end.
        Paper_KeyPress(*s, 0, BackspaceKey);
        EXPECT_TRUE(s->KeyAccepted);
        EXPECT_LT(s->TokenCount(0), static_cast<int>(text.size()));
        // The builder ran out well before the row's last cell.
        EXPECT_LT(static_cast<int>(text.size()), CellUpper / 2);
    }
}

TEST(FullRow, RefusedKeyLeavesTheBuilderTermStartTableAsItWas) {
    // How many single-token groups the builder takes.
    auto probe = NewEntrySession();
    FillRow(*probe, "x+", 230);
    ASSERT_EQ(TypeUntilRefused(*probe, "x+", 200) >= 0, true);
    const int n = probe->TokenCount(0);
    // A row that ends, at that length, with a parenthesis one level deeper than any before it:
    // only the pass that overflows writes the table at that level.
    const std::string tail = n % 2 == 1 ? "(x+(" : "((x+(";
    auto s = NewEntrySession();
    const int head = n + 1 - static_cast<int>(tail.size());
    ASSERT_EQ(head % 2, 0);
    FillRow(*s, "x+", head / 2);
    test::Type(*s, tail.substr(0, tail.size() - 1));
    ASSERT_EQ(s->TokenCount(0), n);
    const auto termStart = s->TermStart;
    const auto parenSide = s->ParenSide;
    const int openParens = s->OpenParens(0);
    const std::string text = EntryText(*s, 0);
    Paper_KeyPress(*s, 0, '(');
    EXPECT_FALSE(s->KeyAccepted);
    EXPECT_EQ(EntryText(*s, 0), text);
    EXPECT_EQ(s->OpenParens(0), openParens);
    for (int depth = 0; depth <= 20; ++depth)
        for (int side = 0; side <= 2; ++side)
            EXPECT_EQ(s->ParenSide(depth, side), parenSide(depth, side));
    for (int level = 0; level <= 10; ++level)
        for (int depth = 0; depth <= 4; ++depth)
            EXPECT_EQ(s->TermStart(level, depth), termStart(level, depth))
                << "level " << level << " depth " << depth;
}

} // namespace vt
