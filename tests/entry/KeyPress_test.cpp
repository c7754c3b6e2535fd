#include <gtest/gtest.h>

#include "entry/EntryTesting.h"
#include "support/RecordingShell.h"
#include "translate/Graphable.h"

namespace vt {

using test::NewEntrySession;
using test::Type;
using test::TypeFromMenu;

TEST(Backspace, RemovesFromTheEndAndLeavesTheRowReadyForWhatWasRemoved) {
    // {keys, "\b" being Backspace; the row; the last key taken}. A function goes with its
    // parenthesis. An exponent mark never stays behind alone. Parentheses and bars are counted
    // back: a closing bar taken away leaves the bar open.
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"x+2\b", "x+", true},         {"x+2\b\b\b", "", true}, {"\b", "", false},
        {"x\b\b", "", false},          {"S(\b", "", true},      {"2S(\b", "2", true},
        {"xT(\b", "x", true},          {"S(\b)", "", false},    {"x^2\b", "x", true},
        {"x^23\b", "x^2", true},       {"x^-\b", "x", true},    {"x^S(\b", "x", true},
        {"x^(\b", "x", true},          {"(x)\b)", "(x)", true}, {"(x\b\b)", "", false},
        {"((x+(\b(", "((x+(", true},   {"|x|\b|", "|x|", true}, {"|x\b\b|x|", "|x|", true},
        {"(|x|)\b\b|)", "(|x|)", true}};
    for (const auto& [keys, text, lastAccepted] : cases) {
        auto s = NewEntrySession();
        TypeFromMenu(*s, keys);
        EXPECT_EQ(std::tuple(EntryText(*s, 0), s->TokenCount(0), s->KeyAccepted),
                  std::tuple(text, static_cast<int>(std::string(text).size()), lastAccepted))
            << keys;
    }
    // Over a slash the fraction ends.
    auto s = NewEntrySession();
    Type(*s, "x/");
    ASSERT_EQ(std::tuple(s->InFraction(0), s->FractionSide), std::tuple(true, 1));
    Paper_KeyPress(*s, 0, BackspaceKey);
    EXPECT_EQ(std::tuple(s->InFraction(0), s->FractionSide), std::tuple(false, 0));
}

TEST(InsertCommands, TrigonometryRefusalsDifferBetweenSineAndTheOthers) {
    // {the active row, the command, the row after it}. The function itself refused: sine leaves
    // the row alone, cosine and tangent cost it its last token. The function taken and its
    // parenthesis refused: all three take the function out.
    using Command = void (*)(Session&);
    const Command sine = mnuSin_Click, cosine = mnuCos_Click, tangent = mnuTan_Click;
    // clang-format off
    const std::tuple<const char*, Command, const char*> cases[] = {
        {"", sine, "S("}, {"", cosine, "C("}, {"", tangent, "T("}, {"x", sine, "xS("},
        {"2", tangent, "2T("}, {"(x)", sine, "(x)"}, {"(x)", cosine, "(x"}, {"(x)", tangent, "(x"},
        {"2.", sine, "2."}, {"2.", cosine, "2"}, {"((x+(x+", sine, "((x+(x+"},
        {"((x+(x+", cosine, "((x+(x+"}, {"((x+(x+", tangent, "((x+(x+"}};
    // clang-format on
    for (const auto& [row, command, text] : cases) {
        auto s = NewEntrySession();
        s->ActiveSlot = 3; // the commands act on the active row
        Type(*s, row);
        ASSERT_EQ(EntryText(*s, 3), row);
        command(*s);
        EXPECT_EQ(std::tuple(EntryText(*s, 3), s->TrigFromMenu), std::tuple(text, false)) << row;
    }
}

TEST(ReplayRows, ClearsEveryRowThenReplaysEachSlotAsALoadDoes) {
    // {slot texts; the entry texts of rows 0..4, "|" between; last used slot; graph open}.
    // The start state counts row 0 unfinished; the clearing first makes an empty row 0
    // complete, so a function in row 1 alone opens the graph command. A file text goes through
    // the rules: what they refuse in its place disappears.
    const std::tuple<std::vector<std::string>, const char*, int, bool> cases[] = {
        {{"", "x"}, "|x|||", 1, true},
        {{"S(x)", "", "xx2"}, "S(x)||x||", 2, true},
        {{"2xS(x)", "x2+a)P"}, "2xS(x)|x+P|||", 1, true},
        {{"x", "", "", "x+"}, "x|||x+|", 3, false},
        {{}, "||||", -1, false},
        {{"", "", "", "", "", "x"}, "||||", -1, false}};
    for (const auto& [texts, rows, lastUsed, canGraph] : cases) {
        SCOPED_TRACE(rows);
        auto s = NewEntrySession();
        s->SlotIncomplete(0) = true;
        s->ActiveSlot = 4;
        TypeFromMenu(*s, "2x^(");
        s->ShownRows = 4;

        EXPECT_EQ(ReplayRows(*s, texts), lastUsed);

        std::string joined;
        for (int slot = 0; slot < UsableSlots; ++slot)
            joined += (slot ? "|" : "") + EntryText(*s, slot);
        EXPECT_EQ(std::tuple(joined, CanGraph(*s), s->ActiveSlot, s->ShownRows, s->TrigFromMenu),
                  std::tuple(rows, canGraph, 0, 0, false));
    }
}

TEST(EntryReset, ResetEntryStateClearsRowsAndKeepsTheFractionState) {
    auto s = NewEntrySession();
    TypeFromMenu(*s, "(|x");
    s->ActiveSlot = 1;
    TypeFromMenu(*s, "x^2/3");
    s->NumberHasPoint = s->LastBarClosed = true;
    s->ParenSide(2, 1) = s->ParenSide(3, 2) = -1;
    std::tie(s->LetterList(4), s->SlotIncomplete(4)) = std::tuple("x", true);
    s->BreakdownTokens(0) = s->BreakdownTokens(2) = "x";
    s->BreakdownCount = s->BreakdownSide = 1;

    ResetEntryState(*s);

    for (int slot = 0; slot <= 4; ++slot)
        EXPECT_EQ(EntryText(*s, slot) + DisplayText(*s, slot) +
                      std::to_string(s->TokenCount(slot) + s->OpenParens(slot) + s->OpenBars(slot) +
                                     s->BarOpen(slot) + s->InExponent(slot) + s->InFraction(slot) +
                                     s->SlotIncomplete(slot)),
                  "0")
            << slot;
    EXPECT_EQ(std::tuple(s->DisplayCount, s->LetterList(4), s->ParenSide(2, 1), s->LastBarClosed,
                         s->BreakdownTokens(0) + s->BreakdownTokens(2), s->BreakdownCount,
                         s->BreakdownSide),
              std::tuple(0, "", 0, false, "", 0, 0));
    // The fraction state, the point flag and side 2 of the parenthesis table carry on.
    EXPECT_EQ(std::tuple(s->FractionSide, s->NumberHasPoint, s->ParenSide(3, 2)),
              std::tuple(1, true, -1));
    // The rows take keys from the start again.
    s->ActiveSlot = 0;
    Type(*s, "(x)");
    EXPECT_EQ(EntryText(*s, 0), "(x)");
}

TEST(EntryReset, ClearAllRowsEmptiesTheBuilderAndTheBreakList) {
    auto s = NewEntrySession();
    TypeFromMenu(*s, "x^2+S(x)");
    ASSERT_NE(GraphableText(*s, 0), "");
    std::tie(s->GraphableCells(0, 5), s->BreakMark(10), s->BreakCount, s->TermStart(3, 2),
             s->BuildTokens(100)) = std::tuple("k", true, 11, 40, "x");

    ClearAllRows(*s);

    EXPECT_EQ(EntryText(*s, 0) + GraphableText(*s, 0) + s->BuildTokens(100), "");
    // Only the five rows.
    EXPECT_EQ(
        std::tuple(s->GraphableCells(0, 5), s->BreakMark(10), s->BreakCount, s->TermStart(3, 2)),
        std::tuple("k", false, 0, 0));
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

// What a refused key must leave as it found it, as one text: row 0's texts, flags and counts,
// and the parenthesis and term tables.
std::string RowAsText(const Session& s) {
    std::string out = EntryText(s, 0) + "|" + DisplayText(s, 0) + "|" + GraphableText(s, 0);
    for (int v : std::initializer_list<int>{s.InExponent(0), s.InRoot(0), s.InFraction(0),
                                            s.BarOpen(0), s.SlotIncomplete(0), s.LastBarClosed,
                                            s.NumberHasPoint, s.OpenParens(0), s.OpenBars(0),
                                            s.BarParenDepth(0), s.DisplayCount})
        out += " " + std::to_string(v);
    for (int i = 0; i <= 20; ++i)
        for (int j = 0; j <= 4; ++j)
            out += " " + std::to_string(j <= 2 ? s.ParenSide(i, j) : 0) + "," +
                   std::to_string(i <= 10 ? s.TermStart(i, j) : 0);
    return out;
}

} // namespace

TEST(FullRow, RefusesKeysOnceTheLastCellIsFilled) {
    // Digits make one long number: one group, so the builder takes the whole row.
    auto s = NewEntrySession();
    FillRow(*s, "1", 1990);
    ASSERT_EQ(TypeUntilRefused(*s, "1", 100), 0);
    ASSERT_EQ(s->TokenCount(0), CellUpper + 1);
    const std::string full = RowAsText(*s);
    for (char key : std::string("1x+(|.")) {
        Paper_KeyPress(*s, 0, key);
        EXPECT_EQ(std::tuple(s->KeyAccepted, RowAsText(*s)), std::tuple(false, full)) << key;
    }
    Paper_KeyPress(*s, 0, BackspaceKey);
    EXPECT_EQ(std::tuple(s->TokenCount(0), s->EntryTokens(CellUpper, 0)),
              std::tuple(CellUpper, ""));
}

TEST(FullRow, KeyThatOverflowsTheBuilderIsRefusedWithTheRowRestored) {
    // Patterns the rules always accept, typed on from a long row until the builder's grids run
    // out, well before the row's last cell; {pattern, groups that one repetition makes}.
    const std::pair<std::string, int> cases[] = {
        {"x+", 2}, {"(x+1)-", 6}, {"|x|*2-", 6}, {"x^2+", 4}, {".5+", 2}};
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
        ASSERT_EQ(TypeUntilRefused(*s, pattern, length - s->TokenCount(0)), -1);
        ASSERT_EQ(s->TokenCount(0), length);
        const std::string before = RowAsText(*s);
        Paper_KeyPress(*s, 0, pattern[static_cast<std::size_t>(refusedAt)]);
        EXPECT_EQ(std::tuple(s->KeyAccepted, RowAsText(*s)), std::tuple(false, before));
    }
}

TEST(EntryRules, DecideWhatMayFollowTheRow) {
    // {the row, typed first, every key of it taken; keys taken after it, each tried on its own;
    // keys refused after it; whether the keys come as the Insert commands send them, S, C and
    // T passing}
    // clang-format off
    const std::tuple<const char*, const char*, const char*, bool> cases[] = {
        // The first key; of the letters only x, X and P are typed, and the masked-off classes
        // and keys of no class are never taken.
        {"", "xXP5-(.|~", "+*/^)aySCT=,:% !", false}, {"", "SCT", "", true},
        // Letters and digits: no digit and no x or pi after a letter, except x after pi.
        {"2", "5xP(.^~+-*/|", ")", false}, {"x", "^+-*/|(~", "2xP.)", false}, {"x", "S", "", true},
        {"P", "x", "P2", false},
        // A letter does not stand twice in one product; the row's first cell never counts.
        {"2TS", "", "T", true}, {"TS", "T", "", true}, {"2T(x)+S", "T", "", true},
        {"(x)", "", "S", true}, {"S", "", "S", true},
        // After ")" no letter, digit or "("; an exponent is taken.
        {"(x)", "^+", "x2(.~", false},
        // Parentheses: the first two tokens may always be "(", three stay open at most.
        {"(", "(-.|~x2", "+*/^)", false}, {"((", "", "(", false}, {"((x+(x+", "", "(", false},
        {"((x+(x)+", "(", "", false}, {"(x", ")", "", false}, {"(x+", "", ")", false},
        {"(x^", "", ")", false},
        // Bars close at the depth where they opened and do not nest.
        {"|", ".x2(-~", "|*/^)", false}, {"|x", "|", "", false}, {"|(x", ")", "|", false},
        {"(|x", "", ")", false}, {"|x|", "^*/+(", "|.2", false}, {"x^(|(x+", "", "(", false},
        {"x^|(x+", "(", "", false},
        // Exponents: a minus straight after "^" is its sign; no exponent inside an exponent.
        {"x^", "(-~.2x|", "^+*/)", false}, {"x^2", "x-+*/", "^", false}, {"x^-", "2", "+", false},
        // The digit check reads the display cell at the builder's index: behind a long number
        // that cell holds a digit, and in an exponent a digit is then refused.
        {"1234x^", "2", "", false}, {"12345678901234567890x^", "", "2", false},
        {"12345678901234567890x+", "2", "", false},
        // Operators never stand side by side; after "(" only a minus, after "~" too.
        {"x+", "x2.|~(", "-+*/^)", false}, {"x/", "|", "*", false}, {"~", "-.2x(", "~+*/)", false},
        // Points: one to a number, and only digits follow one.
        {".", "5", ".~", false}, {".5", "", ".", false}, {"2.5", "", ".", false},
        {"2.", "5", "^/x+(|).~", false}};
    // clang-format on
    for (const auto& [row, takes, refuses, fromMenu] : cases) {
        for (const bool taken : {true, false}) {
            for (const char* key = taken ? takes : refuses; *key; ++key) {
                SCOPED_TRACE(std::string("row \"") + row + "\" key '" + *key + "'");
                auto s = NewEntrySession();
                TypeFromMenu(*s, row);
                ASSERT_EQ(EntryText(*s, 0), row) << "the row itself was not taken";
                s->TrigFromMenu = fromMenu;
                Paper_KeyPress(*s, 0, static_cast<unsigned char>(*key));
                const std::string stored(1, *key == 'X' ? 'x' : *key);
                EXPECT_EQ(std::tuple(s->KeyAccepted, EntryText(*s, 0)),
                          std::tuple(taken, taken ? row + stored : std::string(row)));
            }
        }
    }
}

TEST(EntryRules, OperatorEndsAnExponentButASignOpensANegativeOne) {
    // Rows and whether the next key falls into an exponent. Inside the exponent's own
    // parentheses an operator does not end it; a letter does.
    const std::pair<const char*, bool> cases[] = {
        {"x^", true},    {"x^2", true},   {"x^-", true},   {"x^-2", true},  {"x^2+", false},
        {"x^2*", false}, {"x^2/", false}, {"x^2-", false}, {"x^(2+", true}, {"x^2x", false},
    };
    for (const auto& [row, inExponent] : cases) {
        auto s = NewEntrySession();
        TypeFromMenu(*s, row);
        EXPECT_EQ(std::tuple(EntryText(*s, 0), s->InExponent(0)), std::tuple(row, inExponent));
    }
}

TEST(EntryRules, GroupTokensMergesNumbersAndNumericFractions) {
    // A token a character; the groups written apart. A letter on either side of the slash, or
    // ")" before it, makes three groups; after a power, before "(", and after a fraction, the
    // slash stands alone.
    const std::pair<const char*, const char*> cases[] = {
        {"3/4", "3/4"},          {"12.5/3", "12.5/3"},   {"2+3/4", "2 + 3/4"},
        {"12x+34", "12 x + 34"}, {"1/2x", "1/2 x"},      {"x/4", "x / 4"},
        {"3/x", "3 / x"},        {"(3)/4", "( 3 ) / 4"}, {"x^2/3", "x ^ 2 / 3"},
        {"3/(x)", "3 / ( x )"},  {"3/4/5", "3/4 / 5"},   {"", ""}};
    for (const auto& [tokens, groups] : cases) {
        SCOPED_TRACE(tokens);
        auto s = NewEntrySession();
        const std::string row(tokens);
        for (std::size_t i = 0; i < row.size(); ++i)
            s->EntryTokens(static_cast<int>(i), 0).assign(1, row[i]);
        s->TokenCount(0) = static_cast<int>(row.size());
        s->DisplayTokens(1500, 0) = "stale";
        GroupTokens(*s);
        // Cell 0 and the stale cell emptied.
        std::string made = s->DisplayTokens(0, 0) + s->DisplayTokens(1500, 0);
        for (int i = 1; i <= s->DisplayCount; ++i)
            made += (i > 1 ? " " : "") + s->DisplayTokens(i, 0);
        EXPECT_EQ(made, groups);
    }
}

TEST(KeyMask, ReadsTheMaskTextAsABinaryNumberAndPassesOnlyTheClassesWithTheirBitOn) {
    // Sixteen characters with a leading "1" read as a negative 16-bit mask.
    // clang-format off
    const std::pair<const char*, int> masks[] = {
        {"00011110111111", 1983}, {"", 0}, {"1", 1}, {"10", 2}, {"1x1", 5}, {"0", 0},
        {"11111111", 255}, {"0111111111111111", 32767}, {"1000000000000000", -32768}};
    // clang-format on
    for (const auto& [bits, value] : masks)
        EXPECT_EQ(BitsToMask(bits), value) << bits;
    // "=" passes the mask with bit 64 on, but no rule takes it.
    const std::tuple<int, char, bool> keys[] = {
        {1983, '5', true},         {1983 & ~1, '5', false},    {1983 & ~2, '-', false},
        {1983 & ~128, 'x', false}, {1983 & ~1024, '.', false}, {1983 & ~32, '(', false},
        {1983 & ~512, '|', false}, {1983 & ~256, '~', false},  {0, '5', false},
        {-1, '5', false},          {1983 | 64, '=', false}};
    for (const auto& [mask, key, accepted] : keys) {
        auto s = NewEntrySession();
        s->AllowedKeys = mask;
        Paper_KeyPress(*s, 0, static_cast<unsigned char>(key));
        EXPECT_EQ(std::tuple(s->KeyAccepted, s->TokenCount(0)),
                  std::tuple(accepted, accepted ? 1 : 0))
            << "key '" << key << "' mask " << mask;
    }
}

} // namespace vt
