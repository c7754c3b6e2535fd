#include <gtest/gtest.h>

#include <string>

#include "expr/ProgramCache.h"

namespace vt {

TEST(ProgramCache, CompilesEachTextOnceAndDropsTheLeastRecentlyUsed) {
    ProgramCache cache;
    const auto first = cache.Get("x+1");
    EXPECT_EQ(cache.Get("x+1"), first);
    EXPECT_EQ(cache.Compilations(), 1);

    // "x+1" used last but one: the other texts push it out only after Capacity - 1 of them.
    const auto second = cache.Get("x*2");
    cache.Get("x+1");
    for (std::size_t i = 0; i + 2 < ProgramCache::Capacity; ++i)
        cache.Get("x-" + std::to_string(i));
    EXPECT_EQ(cache.Size(), ProgramCache::Capacity);
    cache.Get("x/7"); // one past the capacity: "x*2" goes, "x+1" stays
    EXPECT_EQ(cache.Size(), ProgramCache::Capacity);
    const long compiled = cache.Compilations();
    EXPECT_EQ(cache.Get("x+1"), first);
    EXPECT_EQ(cache.Compilations(), compiled);
    EXPECT_NE(cache.Get("x*2"), second);
    EXPECT_EQ(cache.Compilations(), compiled + 1);

    // A program handed out outlives its place in the cache.
    for (std::size_t i = 0; i < 2 * ProgramCache::Capacity; ++i)
        cache.Get(std::to_string(i));
    const EvalResult r = first->Evaluate(2, false);
    EXPECT_EQ(r.kind, EvalResult::Value);
    EXPECT_EQ(r.value, 3);
}

} // namespace vt
