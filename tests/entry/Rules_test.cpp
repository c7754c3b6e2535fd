#include <gtest/gtest.h>

#include "entry/EntryTesting.h"

namespace vt {

using test::NewEntrySession;
using test::TypeFromMenu;

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
                EXPECT_EQ(s->KeyAccepted, taken);
                const std::string stored(1, *key == 'X' ? 'x' : *key);
                EXPECT_EQ(EntryText(*s, 0), taken ? row + stored : std::string(row));
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
        ASSERT_EQ(EntryText(*s, 0), row);
        EXPECT_EQ(s->InExponent(0), inExponent) << row;
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
        std::string made;
        for (int i = 1; i <= s->DisplayCount; ++i)
            made += (i > 1 ? " " : "") + s->DisplayTokens(i, 0);
        EXPECT_EQ(made, groups);
        EXPECT_EQ(s->DisplayTokens(0, 0) + s->DisplayTokens(1500, 0), "");
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
        SCOPED_TRACE(std::string("key '") + key + "' mask " + std::to_string(mask));
        auto s = NewEntrySession();
        s->AllowedKeys = mask;
        Paper_KeyPress(*s, 0, static_cast<unsigned char>(key));
        EXPECT_EQ(s->KeyAccepted, accepted);
        EXPECT_EQ(s->TokenCount(0), accepted ? 1 : 0);
    }
}

} // namespace vt
