// The cost of loading a graph data file: five rows of 300 keys each, replayed through the entry
// rules, and 500 points fed to the fit. Also the save's text of the same session.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "commands/SaveLoad.h"
#include "commands/Startup.h"
#include "output/DataFile.h"
#include "session/Session.h"

namespace {

using namespace vt;

std::string BigFile() {
    std::string row;
    while (row.size() < 300)
        row += "S(x)+3x-C(x)*2+T(x)-";
    row.resize(300);
    std::string text;
    for (int slot = 0; slot < 5; ++slot)
        text += row + "BB";
    for (int i = 0; i < 500; ++i)
        text += std::to_string(i * 0.25 - 60) + "BB" + std::to_string((i * 37) % 101) + "BB";
    return text + "FalseBB4BB\r\n";
}

void BM_LoadFile(benchmark::State& state) {
    const std::string text = BigFile();
    auto s = std::make_unique<Session>();
    StartSession(*s);
    int count = 0;
    for (auto _ : state) {
        const bool loaded = LoadGraphDataText(*s, text);
        count = s->FitObject.XYCount();
        benchmark::DoNotOptimize(loaded);
    }
    state.SetLabel(std::to_string(text.size()) + " bytes, " + std::to_string(count) + " points");
}

void BM_SaveText(benchmark::State& state) {
    auto s = std::make_unique<Session>();
    StartSession(*s);
    LoadGraphDataText(*s, BigFile());
    for (auto _ : state) {
        auto text = GraphDataText(*s);
        benchmark::DoNotOptimize(text);
    }
}

BENCHMARK(BM_LoadFile)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();
BENCHMARK(BM_SaveText)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly();

} // namespace
