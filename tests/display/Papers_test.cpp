#include <gtest/gtest.h>

#include <algorithm>

#include "display/DisplayTesting.h"
#include "display/Papers.h"
#include "display/Typesetter.h"
#include "support/ScriptedPlatform.h"

namespace vt {
namespace {

void SetRowText(Session& s, int slot, const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i)
        s.DisplayTokens(static_cast<int>(i), slot) = std::string(1, text[i]);
}

TEST(RedrawPapers, TypesetsEveryRowAfreshAndNotesTheLastRowWithText) {
    struct Case {
        std::vector<int> filledRows;
        int lastFilledBefore;
        int lastFilledAfter;
        int failingRow; // a row whose text cannot be typeset; -1 none
    } cases[] = {
        {{}, 3, 3, -1},     // no text anywhere: kept
        {{0, 2}, 0, 2, -1}, // the highest row with text
        {{0, 1}, 3, 1, -1}, // also when that is lower
        {{1, 4}, 1, 4, 3},  // the failure stops only its own row
    };
    for (const auto& c : cases) {
        test::ScriptedPlatform platform;
        Session s;
        s.Host = &platform;
        std::vector<test::RecordingSurface> rows(UsableSlots, test::MakeRow());
        for (int i = 0; i < UsableSlots; ++i) {
            rows[i].CurrentX = 100; // where the last paint left the pen
            s.Paper[i] = &rows[i];
        }
        for (int row : c.filledRows)
            SetRowText(s, row, "x^2^+S(x)");
        if (c.failingRow >= 0) SetRowText(s, c.failingRow, "^2");
        s.ActiveSlot = 2;
        s.LastFilledSlot = c.lastFilledBefore;

        RedrawPapers(s);

        EXPECT_EQ(s.ActiveSlot, 2);
        EXPECT_EQ(s.LastFilledSlot, c.lastFilledAfter);
        EXPECT_EQ(platform.Messages().size(), c.failingRow >= 0 ? 1u : 0u);
        for (int i = 0; i < UsableSlots; ++i) {
            const bool filled = std::count(c.filledRows.begin(), c.filledRows.end(), i) > 0;
            ASSERT_FALSE(rows[i].Log.empty());
            EXPECT_EQ(rows[i].Log.front(), "Cls") << i;
            EXPECT_EQ(test::Glyphs(rows[i]).at(0), "  @0,0") << i;
            // Blanks, x, 2, +, s, i, n, (, x, ), blank; or the two blanks of an empty row.
            if (i != c.failingRow) {
                EXPECT_EQ(rows[i].Prints.size(), filled ? 11u : 2u) << i;
            }
        }
    }
    Session bare; // no surfaces: the rows are still counted
    SetRowText(bare, 2, "x");
    RedrawPapers(bare);
    EXPECT_EQ(bare.LastFilledSlot, 2);
}

} // namespace
} // namespace vt
