// Random keystrokes: whatever the keys, a row stays a list the rules could have made, its counts
// agree with it, and the builder always has a result for it.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string_view>

#include "entry/EntryTesting.h"
#include "entry/TokenText.h"
#include "support/RecordingShell.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

// Fewer sequences under AddressSanitizer, which makes each key many times slower.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VERITRACE_TEST_ASAN 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(VERITRACE_TEST_ASAN)
constexpr int Sequences = 500;
#else
constexpr int Sequences = 4000;
#endif

const std::string TokenAlphabet = "0123456789.+-*/^~|()xPSCT";
// Keys that mostly pass the class test, so that rows grow.
const std::string UsefulKeys = "0123456789.+-*/^~|()xXPSCT\b\r";

bool IsOp(char c) {
    return std::string_view("+-*/").find(c) != std::string_view::npos;
}

// Pairs that no sequence of keys can put side by side in a row: two operators; a digit or pi
// after a letter; x twice; only digits after a point; after ")" no digit, letter or "(";
// after "(", "~" and "^" none of the operators that need something before them.
bool ForbiddenPair(char a, char b) {
    const std::string digits = "0123456789", letters = "xPSCT";
    // clang-format off
    const std::pair<std::string, std::string> rules[] = {
        {"+-*/", "+-*/"}, {letters, digits + "P"}, {"x", "x"}, {".", ".+-*/^~|()xPSCT"},
        {")", digits + letters + "("}, {"(", "+*/)^"}, {"~", "+*/"}, {"^", "+*/^)"}};
    // clang-format on
    for (const auto& [before, after] : rules)
        if (before.find(a) != std::string::npos && after.find(b) != std::string::npos) return true;
    return false;
}

std::string Printable(const std::vector<int>& keys) {
    std::string out;
    for (int k : keys)
        out += k == BackspaceKey ? "<BS>" : k == EnterKey ? "<CR>" : std::string(1, char(k));
    return out;
}

// The row as the cells hold it, after checking that they hold a gapless list of tokens.
AssertionResult ReadRow(const Session& s, int slot, std::string& row, bool wholeRow) {
    const int count = s.TokenCount(slot);
    if (count < 0 || count > CellUpper + 1) return AssertionFailure() << "TokenCount " << count;
    row.clear();
    for (int i = 0; i < count; ++i) {
        const std::string& t = s.EntryTokens(i, slot);
        if (t.size() != 1 || TokenAlphabet.find(t[0]) == std::string::npos)
            return AssertionFailure() << "cell " << i << " holds \"" << t << "\"";
        row += t;
    }
    const int last = wholeRow ? CellUpper : std::min(count + 3, CellUpper);
    for (int i = count; i <= last; ++i)
        if (!s.EntryTokens(i, slot).empty())
            return AssertionFailure() << "cell " << i << " past TokenCount " << count << " holds \""
                                      << s.EntryTokens(i, slot) << "\"";
    return AssertionSuccess();
}

struct KeyOutcome {
    int key;
    bool trigFromMenu;
    bool couldGraph;
    int graphsBefore;
};

AssertionResult CheckKeyOutcome(const Session& s, const KeyOutcome& k, const std::string& before,
                                const std::string& now, int graphs) {
    const int slot = s.ActiveSlot;
    if (k.key == BackspaceKey) {
        if (s.KeyAccepted != !before.empty())
            return AssertionFailure() << "Backspace accepted " << s.KeyAccepted;
        const std::size_t removed = before.size() - now.size();
        if (!before.empty() &&
            (now.size() >= before.size() || removed > 3 || before.compare(0, now.size(), now) != 0))
            return AssertionFailure() << "Backspace made \"" << now << "\"";
    } else if (s.KeyAccepted) {
        const char stored = k.key == 'X' ? 'x' : static_cast<char>(k.key);
        if (now != before + stored)
            return AssertionFailure() << "accepted key gave \"" << now << "\"";
        if ((stored == 'S' || stored == 'C' || stored == 'T') && !k.trigFromMenu)
            return AssertionFailure() << "typed function letter taken";
        if (!before.empty() && ForbiddenPair(before.back(), stored))
            return AssertionFailure() << "pair " << before.back() << stored;
    } else if (now != before) {
        return AssertionFailure() << "refused key changed the row to \"" << now << "\"";
    }
    if (graphs != k.graphsBefore + ((k.key == EnterKey && k.couldGraph) ? 1 : 0))
        return AssertionFailure() << "graph command ran " << graphs - k.graphsBefore;

    // The counts kept key by key agree with the list.
    const auto count = [&](char c) {
        return static_cast<int>(std::count(now.begin(), now.end(), c));
    };
    const int open = count('('), closed = count(')'), bars = count('|');
    if (s.OpenParens(slot) != open - closed || open - closed < 0 || open - closed > 3)
        return AssertionFailure() << "OpenParens " << s.OpenParens(slot);
    if (s.OpenBars(slot) != bars % 2 || s.BarOpen(slot) != (bars % 2 == 1))
        return AssertionFailure() << "OpenBars " << s.OpenBars(slot) << " BarOpen "
                                  << s.BarOpen(slot);

    // The builder ran: its completeness flag fits the end of the row, and its texts are there.
    // Both texts start at cell 0 and have no gaps, so their first cells tell whether they exist;
    // the whole texts are read at the end of each sequence.
    const bool graphable = !s.GraphableCells(0, slot).empty();
    const bool display = !s.DisplayTokens(0, slot).empty();
    if (now.empty()) {
        if (s.SlotIncomplete(slot) || graphable || display)
            return AssertionFailure() << "empty row not built as empty";
    } else {
        const char last = now.back();
        const bool unfinished = IsOp(last) || last == '^' || last == '~' || last == '(' ||
                                open > closed || bars % 2 == 1;
        if (unfinished && !s.SlotIncomplete(slot))
            return AssertionFailure() << "unfinished row not marked incomplete";
        if (!graphable || !display) return AssertionFailure() << "no text built";
    }
    return AssertionSuccess();
}

} // namespace

TEST(RandomKeys, RowsStayListsTheRulesCouldMake) {
    std::mt19937 rng(0x5EED2024u);
    auto session = test::NewEntrySession();
    Session& s = *session;
    test::RecordingShell host;
    s.BindHost(&host);
    const int& graphs = host.Graphs; // Enter on a complete row

    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::uniform_int_distribution<int> printable(32, 127); // 127 stands for Backspace or Enter
    std::uniform_int_distribution<std::size_t> useful(0, UsefulKeys.size() - 1);
    for (int seq = 0; seq < Sequences; ++seq) {
        ClearAllRows(s);
        s.ActiveSlot = 0;
        std::vector<std::string> rows(UsableSlots);
        const double kind = unit(rng);
        const int length = kind < 0.9    ? std::uniform_int_distribution<int>(1, 60)(rng)
                           : kind < 0.99 ? std::uniform_int_distribution<int>(61, 400)(rng)
                                         : std::uniform_int_distribution<int>(401, 3000)(rng);
        // Long sequences keep mostly to useful keys, so that rows get long enough to fill.
        const double usefulShare = length > 400 ? 0.95 : 0.5;
        const bool menuKeys = unit(rng) < 0.3;
        std::vector<int> keys;
        for (int n = 0; n < length; ++n) {
            if (unit(rng) < 0.02) s.ActiveSlot = std::uniform_int_distribution<int>(0, 4)(rng);
            int key;
            if (unit(rng) < usefulShare) {
                key = static_cast<unsigned char>(UsefulKeys[useful(rng)]);
            } else {
                key = printable(rng);
                if (key == 127) key = unit(rng) < 0.5 ? BackspaceKey : EnterKey;
            }
            keys.push_back(key);
            const int slot = s.ActiveSlot;
            s.TrigFromMenu = menuKeys && unit(rng) < 0.3;
            const KeyOutcome outcome{key, s.TrigFromMenu, CanGraph(s), graphs};
            const std::string before = rows[slot];

            Paper_KeyPress(s, slot, key);

            std::string now;
            AssertionResult ok = ReadRow(s, slot, now, false);
            if (ok) ok = CheckKeyOutcome(s, outcome, before, now, graphs);
            if (ok && s.ActiveSlot != slot) ok = AssertionFailure() << "row changed";
            for (int other = 0; ok && other < UsableSlots; ++other)
                if (other != slot && s.TokenCount(other) != static_cast<int>(rows[other].size()))
                    ok = AssertionFailure() << "row " << other << " changed";
            if (!ok) {
                FAIL() << ok.message() << "\n sequence " << seq << ", row " << slot
                       << ", keys: " << Printable(keys) << "\n before \"" << before << "\"";
            }
            rows[slot] = now;
        }
        s.TrigFromMenu = false;
        for (int slot = 0; slot < UsableSlots; ++slot) {
            std::string row;
            const auto whole = ReadRow(s, slot, row, true);
            ASSERT_TRUE(whole) << "sequence " << seq << ", row " << slot;
            ASSERT_EQ(row, rows[slot]);
            ASSERT_EQ(EntryText(s, slot), row);
            ASSERT_EQ(GraphableText(s, slot).empty(), row.empty());
            ASSERT_EQ(DisplayText(s, slot).empty(), row.empty());
        }
    }
}

} // namespace vt
