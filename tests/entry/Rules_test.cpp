#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "entry/EntryTesting.h"

namespace vt {

using test::NewEntrySession;
using test::TypeFromMenu;

namespace {

struct FollowCase {
    const char* row; // typed first; every key of it must be taken
    char key;        // then this key
    bool accepted;
    bool fromMenu = false; // sent as the Insert commands send it, so that S, C and T pass
};

} // namespace

TEST(EntryRules, DecideWhatMayFollowTheRow) {
    const FollowCase cases[] = {
        // The first token of a row.
        {"", 'x', true},
        {"", 'P', true},
        {"", '5', true},
        {"", '-', true},
        {"", '+', false},
        {"", '*', false},
        {"", '/', false},
        {"", '^', false},
        {"", ')', false},
        {"", '(', true},
        {"", '.', true},
        {"", '|', true},
        {"", '~', true},
        // Letters: only x, X and P are keys; S, C, T only from the Insert commands.
        {"", 'a', false},
        {"", 'y', false},
        {"", 'S', false},
        {"", 'T', false},
        {"", 'S', true, true},
        {"x", 'S', true, true},
        {"(x)", 'S', false, true},
        {"S", 'S', false, true},
        // A letter does not stand twice in one product; the first cell of the row never
        // counts against it.
        {"2TS", 'T', false, true},
        {"TS", 'T', true, true},
        {"2T(x)+S", 'T', true, true},
        // Keys whose classes are masked off, and keys of no class.
        {"2", '=', false},
        {"2", ',', false},
        {"2", ':', false},
        {"2", '%', false},
        {"2", ' ', false},
        {"2", '!', false},
        // Letters and digits next to each other.
        {"2", 'x', true},
        {"x", '2', false},
        {"x", 'x', false},
        {"P", 'x', true},
        {"x", 'P', false},
        {"P", 'P', false},
        {"x+", 'x', true},
        {"x^2", 'x', true},
        // After ")": no letter, digit or "("; an exponent is taken.
        {"(x)", 'x', false},
        {"(x)", '2', false},
        {"(x)", '(', false},
        {"(x)", '^', true},
        {"(x)", '+', true},
        // Parentheses: the first two tokens may always be "(", and three stay open at most.
        {"(", '(', true},
        {"((", '(', false},
        {"((x+(x+", '(', false},
        {"((x+(x)+", '(', true},
        {"2", '(', true},
        {"x^", '(', true},
        {"x", ')', false},
        {"(", ')', false},
        {"(x+", ')', false},
        {"(x", ')', true},
        {"(x^", ')', false},
        // A bar opened inside the parentheses closes first.
        {"(|x", ')', false},
        {"|(x", ')', true},
        // A parenthesis inside a bar that stands in an exponent's parentheses: one level only.
        {"x^(|(x+", '(', false},
        {"x^|(x+", '(', true},
        // Bars: a bar closes at the depth where it opened, and bars do not nest.
        {"|x", '|', true},
        {"|(x", '|', false},
        {"|x|", '|', false},
        {"|", '|', false},
        {"x", '|', true},
        {"x+", '|', true},
        {"x*", '|', true},
        {"x/", '|', true},
        {"|x+", '|', false},
        {"|", '*', false},
        {"|x|", '*', true},
        {"|", '/', false},
        {"|x|", '/', true},
        // An exponent after a bar only once the bar has closed.
        {"|", '^', false},
        {"|x|", '^', true},
        // Exponents: none inside an exponent, none after an operator or a point.
        {"2", '^', true},
        {"x+", '^', false},
        {"x^", '^', false},
        {"x^2", '^', false},
        {"2.", '^', false},
        {"(", '^', false},
        // A minus straight after "^" is the exponent's sign; a plus is refused there.
        {"x^", '-', true},
        {"x^", '+', false},
        {"x^", '*', false},
        {"x^2", '+', true},
        {"x^-", '2', true},
        // The digit check reads the display cell at the builder's index: behind a long number
        // that cell holds a digit, and in an exponent a digit is then refused.
        {"1234x^", '2', true},
        {"12345678901234567890x^", '2', false},
        {"12345678901234567890x+", '2', true},
        // Operators: never two side by side; after "(" only a minus.
        {"x+", '-', false},
        {"x-", '+', false},
        {"x/", '*', false},
        {"(", '-', true},
        {"(", '+', false},
        {"(", '*', false},
        // Fractions.
        {"x", '/', true},
        {"(", '/', false},
        {"x^", '/', false},
        {"~", '/', false},
        {"2.", '/', false},
        // Roots: no root in a root, and only a minus opens one.
        {"~", '~', false},
        {"~", '-', true},
        {"~", '+', false},
        {"~", '*', false},
        {"2", '~', true},
        {"x^", '~', true},
        {"x+", '~', true},
        {"(x)", '~', false},
        {".", '~', false},
        // Points: one to a number, only digits follow it.
        {".", '5', true},
        {".5", '.', false},
        {"2.5", '.', false},
        {"2", '.', true},
        {"x", '.', false},
        {"(x)", '.', false},
        {"(", '.', true},
        {"~", '.', true},
        {"|", '.', true},
        {"|x|", '.', false},
        {"x+", '.', true},
        {".", '.', false},
        {"2.", 'x', false},
        {"2.", '+', false},
        {"2.", '(', false},
        {"2.", '|', false},
        {"2.", ')', false},
    };
    for (const FollowCase& c : cases) {
        SCOPED_TRACE(std::string("row \"") + c.row + "\" key '" + c.key + "'");
        auto s = NewEntrySession();
        TypeFromMenu(*s, c.row);
        ASSERT_EQ(EntryText(*s, 0), c.row) << "the row itself was not taken";
        s->TrigFromMenu = c.fromMenu;
        Paper_KeyPress(*s, 0, static_cast<unsigned char>(c.key));
        s->TrigFromMenu = false;
        EXPECT_EQ(s->KeyAccepted, c.accepted);
        const std::string expected = c.accepted ? std::string(c.row) + c.key : std::string(c.row);
        EXPECT_EQ(EntryText(*s, 0), expected);
        EXPECT_EQ(s->TokenCount(0), static_cast<int>(expected.size()));
    }
}

TEST(EntryRules, OperatorEndsAnExponentButASignOpensANegativeOne) {
    struct Case {
        const char* row;
        bool inExponent;
    };
    const Case cases[] = {
        {"x^", true}, {"x^2", true}, {"x^-", true}, {"x^-2", true},
        {"x^2+", false}, {"x^2*", false}, {"x^2/", false}, {"x^2-", false},
        {"x^(2+", true}, // inside the exponent's own parentheses the exponent goes on
        {"x^2x", false}, // a letter ends it too
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.row);
        auto s = NewEntrySession();
        TypeFromMenu(*s, c.row);
        ASSERT_EQ(EntryText(*s, 0), c.row);
        EXPECT_EQ(s->InExponent(0), c.inExponent);
    }
}

TEST(EntryRules, GroupTokensMergesNumbersAndNumericFractions) {
    struct Case {
        std::vector<std::string> tokens;
        std::vector<std::string> groups;
    };
    const Case cases[] = {
        {{"3", "/", "4"}, {"3/4"}},
        {{"1", "2", ".", "5", "/", "3"}, {"12.5/3"}},
        {{"2", "+", "3", "/", "4"}, {"2", "+", "3/4"}},
        // A letter on either side of the slash, or ")" before it: three groups.
        {{"x", "/", "4"}, {"x", "/", "4"}},
        {{"3", "/", "x"}, {"3", "/", "x"}},
        {{"(", "3", ")", "/", "4"}, {"(", "3", ")", "/", "4"}},
        // After a power, and before "(", the slash stands alone.
        {{"x", "^", "2", "/", "3"}, {"x", "^", "2", "/", "3"}},
        {{"3", "/", "(", "x", ")"}, {"3", "/", "(", "x", ")"}},
        // A fraction is not extended by a second slash.
        {{"3", "/", "4", "/", "5"}, {"3/4", "/", "5"}},
        {{"1", "/", "2", "x"}, {"1/2", "x"}},
        {{"1", "2", "x", "+", "3", "4"}, {"12", "x", "+", "34"}},
        {{}, {}},
    };
    for (const Case& c : cases) {
        auto s = NewEntrySession();
        std::string trace;
        for (std::size_t i = 0; i < c.tokens.size(); ++i) {
            s->EntryTokens(static_cast<int>(i), 0) = c.tokens[i];
            trace += c.tokens[i];
        }
        SCOPED_TRACE(trace);
        s->TokenCount(0) = static_cast<int>(c.tokens.size());
        s->DisplayTokens(1500, 0) = "stale";
        GroupTokens(*s);
        EXPECT_EQ(s->DisplayCount, static_cast<int>(c.groups.size()));
        EXPECT_EQ(s->DisplayTokens(0, 0), "");
        std::vector<std::string> groups;
        for (int i = 1; i <= s->DisplayCount; ++i) groups.push_back(s->DisplayTokens(i, 0));
        EXPECT_EQ(groups, c.groups);
        EXPECT_EQ(s->DisplayTokens(1500, 0), "");
    }
}

TEST(EntryRules, LettersAreCollectedOnceEach) {
    auto s = NewEntrySession();
    TypeFromMenu(*s, "xS(x)+P-C(x)");
    ASSERT_EQ(EntryText(*s, 0), "xS(x)+P-C(x)");
    CollectLetters(*s);
    EXPECT_EQ(s->LetterCount, 1);
    const std::string expected[] = {"", "x", "S", "P", "C", ""};
    for (int i = 0; i <= 5; ++i) EXPECT_EQ(s->LetterList(i), expected[i]) << "cell " << i;
    // Looked for up to LetterCount only, so only the first letter is ever found between keys.
    EXPECT_EQ(LetterPosition(*s, "x"), 1);
    EXPECT_EQ(LetterPosition(*s, "S"), 0);
    s->LetterCount = 4;
    EXPECT_EQ(LetterPosition(*s, "P"), 3);
    EXPECT_EQ(LetterPosition(*s, "T"), 0);
}

TEST(KeyMask, ReadsTheMaskTextAsABinaryNumber) {
    const std::pair<const char*, int> cases[] = {
        {"00011110111111", 1983}, {"", 0},   {"1", 1},          {"10", 2},
        {"1x1", 5},               {"0", 0},  {"11111111", 255}, {"0111111111111111", 32767},
        // Sixteen characters with a leading "1" read as a negative 16-bit mask.
        {"1000000000000000", -32768},
    };
    for (const auto& [bits, value] : cases) EXPECT_EQ(BitsToMask(bits), value) << bits;
}

TEST(KeyMask, KeyClassesPassOnlyWithTheirBitOn) {
    struct Case {
        int mask;
        char key;
        bool accepted;
    };
    const Case cases[] = {
        {1983, '5', true},         {1983 & ~1, '5', false},     {1983 & ~2, '-', false},
        {1983 & ~128, 'x', false}, {1983 & ~1024, '.', false},  {1983 & ~32, '(', false},
        {1983 & ~512, '|', false}, {1983 & ~256, '~', false},   {0, '5', false},
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
