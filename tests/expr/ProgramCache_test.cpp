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

TEST(CompiledScript, NegativeXBareOrInBrackets) {
    // x is given as the Double its text reads back as; a negative one spliced bare puts its
    // minus in front of the power.
    // clang-format off
    const std::tuple<const char*, double, bool, double> cases[] = {
        {"x^2", -3, false, -9}, {"x^2", -3, true, 9}, {"-x^2", -3, false, 9},
        {"-x^2", -3, true, -9}, {"2^x", -1, false, 0.5}, {"2^x", -1, true, 0.5},
        {"x^2", 3, true, 9}, {"5-x", -2, false, 7}, {"5-x", -2, true, 7}
    };
    // clang-format on
    for (const auto& [text, x, bracket, expected] : cases) {
        const CompiledScript script(text);
        ASSERT_TRUE(script.Applies()) << text;
        const EvalResult one = script.Evaluate(x, bracket);
        EvalResult many[3];
        const double xs[3] = {x, 1, x};
        script.EvaluateMany(xs, 3, bracket, many);
        EXPECT_EQ(one.value, expected) << text << (bracket ? " bracketed" : "");
        EXPECT_EQ(many[0].value, expected) << text << " in a batch";
        EXPECT_EQ(many[2].value, expected) << text << " in a batch";
    }
    EXPECT_EQ(CompiledScript("x^.5").Evaluate(-4, true).kind, EvalResult::Failure);
    EXPECT_FALSE(CompiledScript("x3.1415926538").Applies());
}

} // namespace vt
