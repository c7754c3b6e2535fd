// Function values: the text route (splice x, parse, evaluate) against the compiled program, on
// five typed functions and x spread over the default view. One iteration is one evaluation.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "base/NumberText.h"
#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "plot/Evaluate.h"

namespace {

const char* const TypedFunctions[] = {"2x^2+S(x)", "1/x", "(x^2-1)/(x-1)", "|x|+1",
                                      "~(x+20)*C(3Px)"};

// A session with the function typed into row 0, ready for values.
std::unique_ptr<vt::Session> SessionWith(const char* keys) {
    auto s = std::make_unique<vt::Session>();
    vt::SetKeyMask(*s);
    vt::ReplaySlotKeys(*s, 0, keys);
    vt::PreCalcFX(*s);
    return s;
}

// x as the painter samples it: -20 to 20 in steps of 0.1, rounded to 2 decimals.
std::vector<double> SpreadOfX() {
    std::vector<double> xs;
    for (int i = 0; i <= 400; ++i)
        xs.push_back(vt::RoundHalfEven(-20 + i * 0.1, 2));
    return xs;
}

template <class Evaluate>
void Run(benchmark::State& state, Evaluate evaluate,
         vt::EvalStrategy strategy = vt::EvalStrategy::Compiled) {
    const char* keys = TypedFunctions[state.range(0)];
    auto s = SessionWith(keys);
    s->Evaluator.SetStrategy(strategy);
    const std::vector<double> xs = SpreadOfX();
    std::size_t i = 0;
    for (auto _ : state) {
        evaluate(*s, xs[i]);
        if (++i == xs.size()) i = 0;
    }
    state.SetLabel(s->ScriptText(0));
    state.SetItemsProcessed(state.iterations());
}

void TextRoute(benchmark::State& state) {
    Run(
        state, [](vt::Session& s, double x) { benchmark::DoNotOptimize(vt::CalculateY(s, x, 0)); },
        vt::EvalStrategy::Text);
}

// What the painter used to do with the text: CalculateY by the text route, read back.
void TextValue(benchmark::State& state) {
    Run(
        state,
        [](vt::Session& s, double x) { benchmark::DoNotOptimize(vt::CalculateYValue(s, x, 0)); },
        vt::EvalStrategy::Text);
}

void CompiledValue(benchmark::State& state) {
    Run(state,
        [](vt::Session& s, double x) { benchmark::DoNotOptimize(vt::CalculateYValue(s, x, 0)); });
}

void CompiledText(benchmark::State& state) {
    Run(state, [](vt::Session& s, double x) { benchmark::DoNotOptimize(vt::CalculateY(s, x, 0)); });
}

// The same x, all at once through the batch that the painter's and the area's sweeps use.
void CompiledBatch(benchmark::State& state) {
    auto s = SessionWith(TypedFunctions[state.range(0)]);
    const std::vector<double> xs = SpreadOfX();
    std::vector<vt::YValue> values(xs.size());
    for (auto _ : state) {
        s->Evaluator.Values(0, s->ScriptText(0), xs, values, false);
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
    state.SetLabel(s->ScriptText(0));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(xs.size()));
    // One iteration is the whole spread; this is the time of one value.
    state.counters["per_value"] = benchmark::Counter(static_cast<double>(xs.size()),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

} // namespace

BENCHMARK(CompiledBatch)->DenseRange(0, 4);
BENCHMARK(TextRoute)->DenseRange(0, 4);
BENCHMARK(CompiledText)->DenseRange(0, 4);
BENCHMARK(TextValue)->DenseRange(0, 4);
BENCHMARK(CompiledValue)->DenseRange(0, 4);
