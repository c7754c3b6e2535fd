// The cost of regression mode at its largest series: 500 points at order 10. Feeding the points
// into the fit, the first solution after them, and the 400 values of a fitted curve across the
// view; then all three one after the other, as one inserted point followed by a redraw costs
// when the series is replayed for a change of trend.

#include <benchmark/benchmark.h>

#include <cmath>
#include <optional>

#include "fit/RegressionObject.h"

namespace {

using namespace vt;

constexpr int SeriesPoints = 500;
constexpr int Order = 10;
constexpr int CurveSamples = 400;

double PointX(int i) {
    return -20.0 + 40.0 * i / (SeriesPoints - 1);
}
double PointY(int i) {
    return 0.01 * PointX(i) * PointX(i) * PointX(i) + std::sin(i * 0.7);
}

void Feed(RegressionObject& fit) {
    fit.SetDegree(Order);
    for (int i = 0; i < SeriesPoints; ++i)
        fit.XYAdd(PointX(i), PointY(i));
}

double Curve(RegressionObject& fit) {
    double sum = 0;
    for (int i = 0; i < CurveSamples; ++i)
        sum += fit.RegVal(-20.0 + 0.1 * i).value_or(0);
    return sum;
}

void BM_RegressionFeed(benchmark::State& state) {
    RegressionObject fit;
    for (auto _ : state) {
        Feed(fit);
        benchmark::DoNotOptimize(fit);
    }
    state.SetItemsProcessed(state.iterations() * SeriesPoints);
}

void BM_RegressionFirstSolution(benchmark::State& state) {
    RegressionObject fed;
    Feed(fed);
    for (auto _ : state) {
        RegressionObject fit = fed; // unsolved: the first value solves
        benchmark::DoNotOptimize(fit.RegVal(0));
    }
}

void BM_RegressionCurve(benchmark::State& state) {
    RegressionObject fit;
    Feed(fit);
    fit.RegVal(0);
    for (auto _ : state)
        benchmark::DoNotOptimize(Curve(fit));
    state.SetItemsProcessed(state.iterations() * CurveSamples);
}

void BM_RegressionAll(benchmark::State& state) {
    RegressionObject fit;
    for (auto _ : state) {
        Feed(fit);
        benchmark::DoNotOptimize(Curve(fit));
    }
}

BENCHMARK(BM_RegressionFeed)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RegressionFirstSolution)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RegressionCurve)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RegressionAll)->Unit(benchmark::kMicrosecond);

} // namespace
