// An evaluator text and an x through both evaluation routes. The input is
//   byte 0          bit 0: how x is made: 0, the next 8 bytes are its bits; 1, the byte after
//                   it picks one of the painter's sample points. Bit 1: a negative x goes in
//                   brackets (BracketNegativeX)
//   then            the function's evaluator text, one character a cell
// The compiled route must give what the text route gives, bit for bit and failure for failure,
// at x and along a short sweep from it; anything else aborts.

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "plot/Evaluate.h"

namespace {

using namespace vt;

[[noreturn]] void Disagree(const char* what, const std::string& text, double x) {
    std::fprintf(stderr, "value: %s for \"%s\" at %s (bits %016llx)\n", what, text.c_str(),
                 NumberText(x).c_str(),
                 static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(x)));
    std::abort();
}

// What f gives on the reference route; the session's evaluator then goes back to compiling.
template <class F> auto ByText(Session& s, F f) {
    s.Evaluator.SetStrategy(EvalStrategy::Text);
    const auto result = f();
    s.Evaluator.SetStrategy(EvalStrategy::Compiled);
    return result;
}

void Same(const YValue& compiled, const YValue& text, const char* what, const std::string& f,
          double x) {
    if (compiled.kind != text.kind ||
        std::bit_cast<std::uint64_t>(compiled.value) != std::bit_cast<std::uint64_t>(text.value))
        Disagree(what, f, x);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    double x = 0;
    std::size_t at = 0;
    if ((data[0] & 1) == 0) {
        if (size < 9) return 0;
        std::memcpy(&x, data + 1, sizeof x);
        at = 9;
    } else {
        // -20 .. 20 by 0.1, rounded to two places as the painter samples.
        x = RoundHalfEven(-20.0 + 0.1 * (data[1] % 201), 2);
        at = 2;
    }
    const std::string text(reinterpret_cast<const char*>(data + at),
                           std::min<std::size_t>(size - at, CellUpper + 1));

    static auto session = std::make_unique<Session>();
    Session& s = *session;
    for (int i = 0; i <= CellUpper; ++i)
        s.GraphableCells(i, 0).clear();
    for (std::size_t i = 0; i < text.size(); ++i)
        s.GraphableCells(static_cast<int>(i), 0).assign(1, text[i]);
    PreCalcFX(s);
    s.BracketNegativeX = (data[0] & 2) != 0;
    const std::string& f = s.ScriptText(0);

    for (auto route : {CalculateYEval, CalculateY, CalculateYArea})
        if (route(s, x, 0) != ByText(s, [&] { return route(s, x, 0); }))
            Disagree("the texts differ", f, x);
    Same(CalculateYValue(s, x, 0), ByText(s, [&] { return CalculateYValue(s, x, 0); }),
         "the values differ", f, x);

    // A batch and a sweep from x, as the painter and the area sum take them.
    std::vector<double> xs;
    for (int i = 0; i < 12; ++i)
        xs.push_back(x + 0.1 * i);
    std::vector<YValue> batch(xs.size());
    s.Evaluator.Values(0, f, xs, batch, s.BracketNegativeX);
    ValueSweep sweep(s, 0, 0.1);
    double loopX = x;
    for (std::size_t i = 0; i < xs.size(); ++i, loopX += 0.1) {
        const YValue ref = ByText(s, [&] { return CalculateYValue(s, xs[i], 0); });
        Same(batch[i], ref, "a batch value differs", f, xs[i]);
        Same(sweep.At(loopX), ByText(s, [&] { return CalculateYValue(s, loopX, 0); }),
             "a swept value differs", f, loopX);
    }
    return 0;
}
