#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "expr/Expression.h"
#include "expr/ProgramCache.h"

namespace vt {

namespace {

constexpr double Fails = 1e300; // marker in the tables: the text has no value
constexpr double IsEmpty = -1e300;

void ExpectOutcome(const EvalResult& r, double expected, const std::string& text) {
    const auto kind = expected == Fails     ? EvalResult::Failure
                      : expected == IsEmpty ? EvalResult::Empty
                                            : EvalResult::Value;
    EXPECT_EQ(r.kind, kind) << text << " gave " << r.value;
    EXPECT_DOUBLE_EQ(r.kind == EvalResult::Value ? r.value : expected, expected) << text;
}

} // namespace

TEST(Expression, ValuesAndFailures) {
    const std::string deep =
        std::string(MaxNesting + 1, '(') + "1" + std::string(MaxNesting + 1, ')');
    const std::string deepSigns = std::string(MaxNesting + 1, '-') + "1";
    const std::string fine = std::string(200, '(') + "1" + std::string(200, ')');
    // clang-format off
    const std::pair<std::string, double> cases[] = {
        {"-3^2", -9}, // ^ binds tighter than the sign
        {"-3^(2)", -9}, {"5--3^(2)", 14}, {"2*-3^2", -18}, {"2--3", 5}, {"2*-3", -6},
        {"2^-2", 0.25}, {"2^+2", 4}, {"-2^-2", -0.25},
        {"2^-3^2", 0.015625}, // the sign on the right of ^ takes one operand only
        {"2^3^2", 64},        // left to right
        {"2+3*4", 14}, {"(2+3)*4", 20}, {"8/2/2", 2}, {"10-2-3", 5}, {"2*3/4", 1.5}, {"+3", 3},
        {"--3", 3}, {"2++3", 5}, {"-(2)^2", -4}, {"(-2)^2", 4}, {"(-2)^3", -8}, {"0^0", 1},
        {".5", 0.5}, {"5.", 5}, {"1E-07*1E+07", 1}, {"1e2", 100}, {"SIN(0)", 0}, {"Abs(-2)", 2},
        {"cos(0)", 1}, {"tan(0)", 0}, {"sin (0) + 1", 1}, {"abs(-3)+1", 4}, {"((3+1)^.5)", 2},
        {"(4)^(.5)", 2}, {"(3)/(4*2)", 0.375}, {"2*3.14159265388", 6.28318530776},
        {"23.1415926538", 23.1415926538}, {"1E-400+1", 1},
        // No value:
        {"1/0", Fails}, {"0/0", Fails}, {"1E308*10", Fails}, {"10^400", Fails},
        {"-1E308-1E308", Fails}, {"(-8)^(1/3)", Fails}, {"(-4)^(.5)", Fails}, {"0^-1", Fails},
        {"(0)^(-1)", Fails}, {"1E400", Fails}, {"2.53.1415926538", Fails}, {"2 3", Fails},
        {"x", Fails}, {"foo(1)", Fails}, {"sin", Fails}, {"sin 1", Fails}, {"?", Fails},
        {"2^(?)", Fails}, {"(1", Fails}, {"1)", Fails}, {"abs()", Fails}, {"2*", Fails},
        {"*2", Fails}, {".", Fails}, {"1e", Fails}, {"2=2", Fails}, {"1,5", Fails},
        {"sin2(1)", Fails}, {deep, Fails}, {deepSigns, Fails}, {"", IsEmpty}, {"   ", IsEmpty},
        {fine, 1}, {"1/0+", Fails}, {"1D2", Fails}
    };
    // clang-format on
    for (const auto& [text, value] : cases)
        ExpectOutcome(EvaluateExpression(text), value, text.substr(0, 40));
}

TEST(ProgramCache, CompilesEachTextOnceAndDropsTheLeastRecentlyUsed) {
    ProgramCache cache;
    const auto first = cache.Get("x+1");
    EXPECT_EQ((std::tuple{cache.Get("x+1"), cache.Compilations()}), std::tuple(first, 1));

    // "x+1" used last but one: the other texts push it out only after Capacity - 1 of them.
    const auto second = cache.Get("x*2");
    cache.Get("x+1");
    for (std::size_t i = 0; i + 2 < ProgramCache::Capacity; ++i)
        cache.Get("x-" + std::to_string(i));
    const std::size_t full = cache.Size();
    cache.Get("x/7"); // one past the capacity: "x*2" goes, "x+1" stays
    const long compiled = cache.Compilations();
    EXPECT_EQ((std::tuple{full, cache.Size(), cache.Get("x+1") == first, cache.Compilations()}),
              std::tuple(ProgramCache::Capacity, ProgramCache::Capacity, true, compiled));
    EXPECT_NE(cache.Get("x*2"), second);
    EXPECT_EQ(cache.Compilations(), compiled + 1);

    // A program handed out outlives its place in the cache.
    for (std::size_t i = 0; i < 2 * ProgramCache::Capacity; ++i)
        cache.Get(std::to_string(i));
    const EvalResult r = first->Evaluate(2, false);
    EXPECT_EQ(std::tuple(r.kind, r.value), std::tuple(EvalResult::Value, 3.0));
}

} // namespace vt
