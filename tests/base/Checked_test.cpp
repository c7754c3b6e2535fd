#include <gtest/gtest.h>

#include "session/Session.h"

namespace vt {

TEST(CheckedArrays, BoundsAreThoseDeclared) {
    Session s;
    // Per-slot arrays reach 0..10; an index of 5 to 10 is an empty slot, 11 is an error.
    EXPECT_EQ(s.TokenCount(5), 0);
    EXPECT_EQ(s.EntryTokens(2000, 10), "");
    EXPECT_THROW(s.TokenCount(11), SubscriptError);
    EXPECT_THROW(s.EntryTokens(2001, 0), SubscriptError);
    EXPECT_THROW(s.EntryTokens(0, -1), SubscriptError);
    // ScriptText has five entries only.
    EXPECT_EQ(s.ScriptText(4), "");
    EXPECT_THROW(s.ScriptText(5), SubscriptError);
}

} // namespace vt
