// An evaluator text and an x through both evaluation routes. The input is
//   byte 0          how x is made: even, the next 8 bytes are its bits; odd, the byte after it
//                   picks one of the painter's sample points
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
    if (data[0] % 2 == 0) {
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
    const std::string& f = s.ScriptText(0);

    for (auto route : {CalculateYEval, CalculateY, CalculateYArea})
        if (route(s, x, 0, EvalPath::Auto) != route(s, x, 0, EvalPath::Text))
            Disagree("the texts differ", f, x);
    Same(CalculateYValue(s, x, 0, EvalPath::Auto), CalculateYValue(s, x, 0, EvalPath::Text),
         "the values differ", f, x);

    // A batch and a sweep from x, as the painter and the area sum take them.
    std::vector<double> xs;
    for (int i = 0; i < 12; ++i)
        xs.push_back(x + 0.1 * i);
    std::vector<YValue> batch(xs.size());
    CalculateYValues(s, xs, 0, batch);
    ValueSweep sweep(s, 0, 0.1);
    double loopX = x;
    for (std::size_t i = 0; i < xs.size(); ++i, loopX += 0.1) {
        const YValue ref = CalculateYValue(s, xs[i], 0, EvalPath::Text);
        Same(batch[i], ref, "a batch value differs", f, xs[i]);
        Same(sweep.At(loopX), CalculateYValue(s, loopX, 0, EvalPath::Text), "a swept value differs",
             f, loopX);
    }
    return 0;
}
