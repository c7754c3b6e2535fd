// The cost of Calculate Area: 2x^2 + sin x over [-20, 20] with dx 0.0001 (400,001 samples), by
// the compiled values and by the text values. The two must give the same area.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "analysis/Area.h"
#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "session/Session.h"

namespace {

using namespace vt;

std::unique_ptr<Session> AreaSession() {
    auto s = std::make_unique<Session>();
    SetKeyMask(*s);
    ReplaySlotKeys(*s, 0, "2x^2+S(x)");
    return s;
}

void Area(benchmark::State& state, EvalStrategy strategy) {
    auto s = AreaSession();
    s->Evaluator.SetStrategy(strategy);
    std::string text;
    for (auto _ : state) {
        const AreaOutcome outcome = CalculateArea(*s, "-20", "20", "0.0001", 0);
        text = outcome.Text;
        benchmark::DoNotOptimize(text);
    }
    state.SetLabel(text);
    state.SetItemsProcessed(state.iterations() * 400001);
}

void BM_AreaCompiled(benchmark::State& state) {
    Area(state, EvalStrategy::Compiled);
}
void BM_AreaText(benchmark::State& state) {
    Area(state, EvalStrategy::Text);
}

BENCHMARK(BM_AreaCompiled)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(BM_AreaText)->Unit(benchmark::kMillisecond)->Repetitions(3)->ReportAggregatesOnly();

} // namespace
