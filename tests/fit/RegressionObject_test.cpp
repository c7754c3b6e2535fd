#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fit/RegressionObject.h"

namespace vt::test {
namespace {

using Series = std::vector<std::pair<double, double>>;

RegressionObject Fit(int degree, const Series& points) {
    RegressionObject fit;
    EXPECT_FALSE(fit.SetDegree(degree));
    for (const auto& [x, y] : points)
        EXPECT_FALSE(fit.XYAdd(x, y));
    return fit;
}

TEST(RegressionObject, FitsAndWritesTheEquation) {
    // {degree, points, c0, c1, ... (the rest 0), the equation once a value was asked for,
    // solved}, row by row: no points; one point, working degree 0; a parabola, the leading 1
    // dropped before x^; a negative slope keeps its sign; 1 before x dropped; 10x is no 1x; all
    // coefficients zero; the same x three times, a zero pivot; the same x twice at degree 1,
    // slope 0 and the mean of y; two points at order 5, a line; a tiny constant shown
    // unrounded; rounded to ten decimals; a cubic through four points; least squares, not
    // interpolation.
    // clang-format off
    const std::tuple<int, Series, std::vector<double>, const char*, bool> cases[] = {
        {2, {}, {0, 0, 0}, "f(x) =", false}, {2, {{2, 3}}, {3, 0, 0}, "f(x) =  3", true},
        {2, {{0, 0}, {1, 1}, {2, 4}}, {0, 0, 1}, "f(x) =  x^2^", true},
        {1, {{0, 1}, {1, -1}}, {1, -2}, "f(x) = - 2x + 1", true},
        {2, {{0, 0}, {1, 2}, {2, 6}}, {0, 1, 1}, "f(x) =  x^2^ + x", true},
        {1, {{0, 0}, {1, 10}}, {0, 10}, "f(x) =  10x", true},
        {2, {{0, 0}, {1, 0}, {2, 0}}, {0, 0, 0}, "f(x) = 0", true},
        {2, {{1, 1}, {1, 2}, {1, 3}}, {0, 0, 0}, "f(x) = 0", false},
        {1, {{2, 1}, {2, 5}}, {3, 0}, "f(x) =  3", true},
        {5, {{0, 1}, {1, 3}}, {1, 2, 0, 0, 0, 0}, "f(x) =  2x + 1", true},
        {0, {{5, 1e-11}}, {1e-11}, "f(x) =  0.00000000001", true},
        {0, {{5, -2.00000000004}}, {-2.00000000004}, "f(x) = - 2", true},
        {3, {{-1, -1}, {0, 0}, {1, 1}, {2, 8}}, {0, 0, 0, 1}, "f(x) =  x^3^", true},
        {1, {{0, 0}, {1, 1}, {2, 1}}, {1.0 / 6, 0.5}, "f(x) =  0.5x + 0.1666666667", true}};
    // clang-format on
    for (const auto& [degree, points, coefficients, equation, solved] : cases) {
        SCOPED_TRACE(equation);
        RegressionObject fit = Fit(degree, points);
        EXPECT_EQ(fit.XYCount(), static_cast<int>(points.size()));
        // The text reads the coefficients as they stand: before any value, none are solved.
        EXPECT_EQ(fit.ReturnRegEq(), points.empty() ? "f(x) =" : "f(x) = 0");
        for (double x : {-3.0, 0.0, 0.5, 7.0}) {
            double expected = 0;
            for (std::size_t k = 0; k < coefficients.size(); ++k)
                expected += coefficients[k] * std::pow(x, static_cast<double>(k));
            ASSERT_TRUE(fit.RegVal(x));
            EXPECT_NEAR(*fit.RegVal(x), expected, 1e-9) << "at " << x;
        }
        for (std::size_t k = 0; k < coefficients.size(); ++k)
            EXPECT_NEAR(fit.Coeff(static_cast<int>(k)), coefficients[k], 1e-12) << "x^" << k;
        EXPECT_EQ((std::tuple{fit.Coeff(-1), fit.Coeff(static_cast<int>(coefficients.size())),
                              fit.ReturnRegEq(), fit.Solved()}),
                  std::tuple(fit.Coeff(1), 0.0, equation, solved));
    }
}

TEST(RegressionObject, FailedEliminationRetreatsOnceWithoutSolving) {
    // Two points with one x solve at working degree 1 (constant 1.5). The third makes the
    // second pivot an exact zero: the constant is cleared, nothing is solved again, and each
    // later value tries once more and gets the same.
    RegressionObject fit = Fit(2, {{1, 1}, {1, 2}});
    EXPECT_EQ(fit.RegVal(4), 1.5);
    ASSERT_FALSE(fit.XYAdd(1, 3));
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_TRUE(fit.RegVal(4) == 0.0 && !fit.Solved());
    EXPECT_EQ(fit.ReturnRegEq(), "f(x) = 0");
    // A point with a new x makes the system regular again.
    ASSERT_FALSE(fit.XYAdd(2, 4));
    EXPECT_TRUE(fit.RegVal(0) && fit.Solved());
}

TEST(RegressionObject, DegreeWriteChecksRangeAndEmpties) {
    // {value, accepted}
    // clang-format off
    const std::pair<int, bool> cases[] = {
        {0, true}, {1, true}, {25, true}, {26, false}, {-1, false}, {2147483647, false},
        {-2147483647 - 1, false}};
    // clang-format on
    for (const auto& [value, accepted] : cases) {
        SCOPED_TRACE(value);
        RegressionObject fit = Fit(3, {{1, 2}, {2, 3}});
        ASSERT_TRUE(fit.RegVal(0));
        const std::optional<RegressionFailure> failure = fit.SetDegree(value);
        ASSERT_EQ(!failure, accepted);
        // Refused, nothing changed: degree, count and the solved fit.
        EXPECT_EQ(std::tuple(fit.Degree(), fit.XYCount(), fit.Solved(), fit.ReturnRegEq()),
                  accepted ? std::tuple(value, 0, false, "f(x) =")
                           : std::tuple(3, 2, true, "f(x) =  x + 1"));
        if (!accepted) {
            EXPECT_EQ(std::tuple(failure->Number, failure->Source, failure->Description),
                      std::tuple(6000, "RegressionObject",
                                 std::to_string(value) +
                                     " is an invalid property value! Use 0<= Degree <= 25"));
        }
    }
    // Writing the same degree empties as well.
    RegressionObject fit = Fit(1, {{1, 2}});
    EXPECT_EQ((std::tuple{bool(fit.SetDegree(fit.Degree())), fit.XYCount()}), std::tuple(false, 0));
}

TEST(RegressionObject, OverflowReachesTheCallerWithSumsAsFarAsTheyGot) {
    // {degree, x, y, fails, the fit of the one point at x = 0}: with x and y 1E200 at degree 1,
    // y * x overflows in the first moment and the constant already holds y; at degree 2 x^2
    // overflows, count and the first sums are in, the constant is y; at degree 0 nothing
    // overflows. Then y infinite and x not a number.
    // clang-format off
    const std::tuple<int, double, double, bool, double> cases[] = {
        {1, 1e200, 1e200, true, 1e200}, {2, 1e200, 1, true, 1}, {0, 1e200, 7, false, 7},
        {1, 1, INFINITY, true, 0}, {2, NAN, 1, true, 1}};
    // clang-format on
    for (const auto& [degree, x, y, fails, valueAt0] : cases) {
        SCOPED_TRACE(testing::Message() << degree << " " << x << " " << y);
        RegressionObject fit;
        ASSERT_FALSE(fit.SetDegree(degree));
        const std::optional<RegressionFailure> failure = fit.XYAdd(x, y);
        EXPECT_EQ(failure ? failure->Number : 0, fails ? OverflowFailure : 0);
        EXPECT_EQ(std::tuple(fit.XYCount(), fit.RegVal(0)), std::tuple(1, valueAt0));
    }

    // A value whose power overflows is no value; one that only comes near is.
    // A value whose power overflows is no value; one that only comes near is. A fit whose value
    // is near the largest Double overflows when it is multiplied further.
    RegressionObject parabola = Fit(2, {{0, 0}, {1, 1}, {2, 4}}),
                     steep = Fit(1, {{0, 0}, {1, 1e300}});
    EXPECT_EQ(std::vector<bool>({bool(parabola.RegVal(1e200)), bool(parabola.RegVal(-1e155)),
                                 bool(parabola.RegVal(1e150)), bool(steep.RegVal(100)),
                                 bool(steep.RegVal(1e10))}),
              std::vector<bool>({false, false, true, true, false}));
}

} // namespace
} // namespace vt::test
