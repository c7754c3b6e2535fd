#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "entry/EntryTesting.h"

namespace vt {

using test::NewEntrySession;
using test::TypeFromMenu;

namespace {

struct FollowCase {
    const char* row;       // typed first; every key of it must be taken
    const char* takes;     // keys taken after it, each tried on its own
    const char* refuses;   // keys refused after it
    bool fromMenu = false; // keys sent as the Insert commands send them: S, C and T pass
};

} // namespace

TEST(EntryRules, DecideWhatMayFollowTheRow) {
    const FollowCase cases[] = {
        // The first key; of the letters only x, X and P are typed, and the masked-off classes
        // and keys of no class are never taken.
        {"", "xXP5-(.|~", "+*/^)aySCT=,:% !"},
        {"", "SCT", "", true},
        // Letters and digits: no digit and no x or pi after a letter, except x after pi.
        {"2", "5xP(.^~+-*/|", ")"},
        {"x", "^+-*/|(~", "2xP.)"},
        {"x", "S", "", true},
        {"P", "x", "P2"},
        // A letter does not stand twice in one product; the row's first cell never counts.
        {"2TS", "", "T", true},
        {"TS", "T", "", true},
        {"2T(x)+S", "T", "", true},
        {"(x)", "", "S", true},
        {"S", "", "S", true},
        // After ")" no letter, digit or "("; an exponent is taken.
        {"(x)", "^+", "x2(.~"},
        // Parentheses: the first two tokens may always be "(", three stay open at most.
        {"(", "(-.|~x2", "+*/^)"},
        {"((", "", "("},
        {"((x+(x+", "", "("},
        {"((x+(x)+", "(", ""},
        {"(x", ")", ""},
        {"(x+", "", ")"},
        {"(x^", "", ")"},
        // Bars close at the depth where they opened and do not nest.
        {"|", ".x2(-~", "|*/^)"},
        {"|x", "|", ""},
        {"|(x", ")", "|"},
        {"(|x", "", ")"},
        {"|x|", "^*/+(", "|.2"},
        {"x^(|(x+", "", "("},
        {"x^|(x+", "(", ""},
        // Exponents: a minus straight after "^" is its sign; no exponent inside an exponent.
        {"x^", "(-~.2x|", "^+*/)"},
        {"x^2", "x-+*/", "^"},
        {"x^-", "2", "+"},
        // The digit check reads the display cell at the builder's index: behind a long number
        // that cell holds a digit, and in an exponent a digit is then refused.
        {"1234x^", "2", ""},
        {"12345678901234567890x^", "", "2"},
        {"12345678901234567890x+", "2", ""},
        // Operators never stand side by side; after "(" only a minus, after "~" too.
        {"x+", "x2.|~(", "-+*/^)"},
        {"x/", "|", "*"},
        {"~", "-.2x(", "~+*/)"},
        // Points: one to a number, and only digits follow one.
        {".", "5", ".~"},
        {".5", "", "."},
        {"2.5", "", "."},
        {"2.", "5", "^/x+(|).~"},
    };
    auto tryKey = [](const FollowCase& c, char key, bool expected) {
        SCOPED_TRACE(std::string("row \"") + c.row + "\" key '" + key + "'");
        auto s = NewEntrySession();
        TypeFromMenu(*s, c.row);
        ASSERT_EQ(EntryText(*s, 0), c.row) << "the row itself was not taken";
        s->TrigFromMenu = c.fromMenu;
        Paper_KeyPress(*s, 0, static_cast<unsigned char>(key));
        EXPECT_EQ(s->KeyAccepted, expected);
        const std::string stored(1, key == 'X' ? 'x' : key);
        EXPECT_EQ(EntryText(*s, 0), expected ? c.row + stored : std::string(c.row));
    };
    for (const FollowCase& c : cases) {
        for (const char* k = c.takes; *k; ++k)
            tryKey(c, *k, true);
        for (const char* k = c.refuses; *k; ++k)
            tryKey(c, *k, false);
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
        SCOPED_TRACE(row);
        auto s = NewEntrySession();
        TypeFromMenu(*s, row);
        ASSERT_EQ(EntryText(*s, 0), row);
        EXPECT_EQ(s->InExponent(0), inExponent);
    }
}

TEST(EntryRules, GroupTokensMergesNumbersAndNumericFractions) {
    // A token a character; the groups written apart.
    const std::pair<const char*, const char*> cases[] = {
        {"3/4", "3/4"},
        {"12.5/3", "12.5/3"},
        {"2+3/4", "2 + 3/4"},
        {"12x+34", "12 x + 34"},
        {"1/2x", "1/2 x"},
        // A letter on either side of the slash, or ")" before it: three groups.
        {"x/4", "x / 4"},
        {"3/x", "3 / x"},
        {"(3)/4", "( 3 ) / 4"},
        // After a power, before "(", and after a fraction, the slash stands alone.
        {"x^2/3", "x ^ 2 / 3"},
        {"3/(x)", "3 / ( x )"},
        {"3/4/5", "3/4 / 5"},
        {"", ""},
    };
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

TEST(EntryRules, LettersAreCollectedOnceEach) {
    auto s = NewEntrySession();
    TypeFromMenu(*s, "xS(x)+P-C(x)");
    ASSERT_EQ(EntryText(*s, 0), "xS(x)+P-C(x)");
    CollectLetters(*s);
    EXPECT_EQ(s->LetterCount, 1);
    const std::string expected[] = {"", "x", "S", "P", "C", ""};
    for (int i = 0; i <= 5; ++i)
        EXPECT_EQ(s->LetterList(i), expected[i]) << "cell " << i;
    // Looked for up to LetterCount only, so only the first letter is ever found between keys.
    EXPECT_EQ(LetterPosition(*s, "x"), 1);
    EXPECT_EQ(LetterPosition(*s, "S"), 0);
    s->LetterCount = 4;
    EXPECT_EQ(LetterPosition(*s, "P"), 3);
    EXPECT_EQ(LetterPosition(*s, "T"), 0);
}

TEST(KeyMask, ReadsTheMaskTextAsABinaryNumber) {
    // Sixteen characters with a leading "1" read as a negative 16-bit mask.
    const std::pair<const char*, int> cases[] = {
        {"00011110111111", 1983},
        {"", 0},
        {"1", 1},
        {"10", 2},
        {"1x1", 5},
        {"0", 0},
        {"11111111", 255},
        {"0111111111111111", 32767},
        {"1000000000000000", -32768},
    };
    for (const auto& [bits, value] : cases)
        EXPECT_EQ(BitsToMask(bits), value) << bits;
}

TEST(KeyMask, KeyClassesPassOnlyWithTheirBitOn) {
    struct Case {
        int mask;
        char key;
        bool accepted;
    };
    const Case cases[] = {
        {1983, '5', true},         {1983 & ~1, '5', false},    {1983 & ~2, '-', false},
        {1983 & ~128, 'x', false}, {1983 & ~1024, '.', false}, {1983 & ~32, '(', false},
        {1983 & ~512, '|', false}, {1983 & ~256, '~', false},  {0, '5', false},
        {-1, '5', false},          {1983 | 64, '=', false}, // passes the mask, no rule takes it
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string("key '") + c.key + "' mask " + std::to_string(c.mask));
        auto s = NewEntrySession();
        s->AllowedKeys = c.mask;
        Paper_KeyPress(*s, 0, static_cast<unsigned char>(c.key));
        EXPECT_EQ(s->KeyAccepted, c.accepted);
        EXPECT_EQ(s->TokenCount(0), c.accepted ? 1 : 0);
    }
}

} // namespace vt
