// The cost of a paint of the graph box: five functions at the default view on the 400-pixel
// raster, by the compiled values and by the text values, the same without a raster (the
// tracing alone), and the Graph button's auto-scaling on a function that never shows.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <memory>
#include <string>
#include <vector>

#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "plot/Painter.h"
#include "plot/Tracing.h"
#include "render/RasterSurface.h"
#include "session/Session.h"

namespace {

using namespace vt;

void EnsureApplication() {
    if (QCoreApplication::instance()) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "veritrace_bench";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = new QGuiApplication(argc, argv);
    (void)app;
}

// A surface that draws nothing: what is left is the painter's and the tracing's own work.
class NullSurface : public Surface {
  public:
    int PixelWidth() const override { return 400; }
    int PixelHeight() const override { return 400; }
    void Cls() override {}
    void Line(float, float, float x2, float y2, bool, bool) override {
        CurrentX = x2;
        CurrentY = y2;
    }
    void LineColour(float, float, float, float, Colour) override {}
    void Circle(float, float, float, Colour) override {}
    void Print(const std::string&, bool) override {}
    float TextWidth(const std::string& text) override {
        return static_cast<float>(text.size()) * 5.5f * ScaleWidth / 400;
    }
    float TextHeight(const std::string&) override { return 13.75f * ScaleHeight / 400; }
    void PaintPicture(const PixelImage&, float, float, float, float) override {}
    void ExtFloodFill(int, int, Colour) override {}
    PixelImage Image() const override { return {}; }
};

const std::vector<std::string> FiveFunctions = {"2x^2+S(x)", "1/x", "(x^2-1)/(x-1)", "|x|+1",
                                                "~(x+20)*C(3Px)"};

std::unique_ptr<Session> Typed(const std::vector<std::string>& keys) {
    auto s = std::make_unique<Session>();
    SetKeyMask(*s);
    for (std::size_t slot = 0; slot < keys.size(); ++slot)
        ReplaySlotKeys(*s, static_cast<int>(slot), keys[slot]);
    return s;
}

void PaintFive(benchmark::State& state, bool raster, bool textValues) {
    EnsureApplication();
    std::unique_ptr<Session> s = Typed(FiveFunctions);
    if (s->LastFilledSlot != 4) {
        state.SkipWithError("the five functions did not reach the rows");
        return;
    }
    render::RasterSurface image(400, 400);
    NullSurface none;
    HeadlessShell host;
    host.Graph = raster ? static_cast<Surface*>(&image) : &none;
    s->BindHost(&host);
    if (textValues) s->Evaluator.SetStrategy(EvalStrategy::Text);
    RedrawGraph(*s);
    if (!s->CurveDrawn) {
        state.SkipWithError("no curve was drawn");
        return;
    }
    for (auto _ : state) {
        RedrawGraph(*s);
        benchmark::ClobberMemory();
    }
}

void BM_PaintFiveFunctions(benchmark::State& state) {
    PaintFive(state, true, false);
}
void BM_PaintFiveFunctionsTextValues(benchmark::State& state) {
    PaintFive(state, true, true);
}
void BM_PaintFiveFunctionsWithoutRaster(benchmark::State& state) {
    PaintFive(state, false, false);
}

void BM_AutoGraphNeverShows(benchmark::State& state) {
    EnsureApplication();
    std::unique_ptr<Session> s = Typed({"x-1000000"});
    render::RasterSurface image(400, 400);
    HeadlessShell host;
    host.Graph = &image;
    s->BindHost(&host);
    for (auto _ : state) {
        AutoGraph(*s); // fourteen tries, then the view back at -20..20
        benchmark::DoNotOptimize(s->CurveDrawn);
    }
    if (s->CurveDrawn || s->ViewXMax != 20) state.SkipWithError("the function showed");
}

BENCHMARK(BM_PaintFiveFunctions)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PaintFiveFunctionsTextValues)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PaintFiveFunctionsWithoutRaster)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AutoGraphNeverShows)->Unit(benchmark::kMillisecond);

} // namespace
