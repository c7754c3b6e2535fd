#include "plot/Tracing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "base/NumberText.h"
#include "base/Platform.h"
#include "plot/Evaluate.h"
#include "plot/Painter.h"
#include "plot/View.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

// Distances of the look-around at a failed sample, and the limits of the pole logic.
constexpr double NearProbe = 0.01;
constexpr double FarProbe = 0.02;
constexpr double SideProbe = 0.001;
constexpr double JumpLimit = 1;
// The jump test works on y itself, not on the view: a segment from below -5 to above 5 (or
// back) is taken for a pole between two samples at every zoom.
constexpr double NearAxisLow = -5;
constexpr double NearAxisHigh = 5;
constexpr int ScanLimit = 500;
constexpr int LastListKey = 255; // keys are one character, codes 0..255
constexpr int IntegerMax = 32767;

// One slot's sampling. The order of the statements matters: each may fail and move the flags
// that the later ones read.
class SlotTracer {
  public:
    SlotTracer(Session& s, Surface& box, PaintRun& run)
        : s_(s), box_(box), run_(run), t_(run.Trap) {}

    void TraceSlot() {
        const double step = s_.SampleStep;
        // A step that is not a positive number would never finish the loop; such a view has no
        // width and nothing to sample.
        if (!(step > 0) || !std::isfinite(step)) return;
        const double first = s_.ViewXMin - step;
        const double last = s_.ViewXMax + step;
        int goodSamples = 0;
        // The samples are reached by repeated addition, so the last one is there only as far as
        // the additions reach it.
        ValueSweep samples(s_, s_.PlotSlot, step, SampleAt);
        for (double x = first; x <= last; x += step) {
            if (!Sample(x, step, samples, goodSamples)) break;
        }
    }

  private:
    static double SampleAt(double x) { return RoundHalfEven(x, 2); }

    std::optional<double> Value(double x) { return PaintValue(s_, x, s_.PlotSlot); }

    // One sample; false ends the slot's loop.
    bool Sample(double x, double step, ValueSweep& samples, int& goodSamples) {
        const double sampleX = SampleAt(x);

        // The value; "NA" fails, and SampleY keeps its last value.
        t_.Run([&] {
            const std::optional<double> v = samples.At(x).Known();
            if (!v) return false;
            run_.SampleY = *v;
            return true;
        });

        // A slot with no function ends here, after its first sample.
        if (s_.ScriptText(s_.PlotSlot).empty()) return false;

        if (t_.SampleFailed && !Surroundings(sampleX, step)) {
            UpdatePrevious(sampleX);
            return true;
        }

        t_.ProbeFailed = false;
        if (t_.SampleFailed) {
            // No trace of the failed sample: the previous point stays, and SkipSegment, still
            // set, drops the next segment.
            t_.SampleFailed = false;
            return true;
        }

        ++goodSamples;
        ListSample(sampleX);
        Segment(sampleX, goodSamples);
        UpdatePrevious(sampleX);
        return true;
    }

    // The look-around at a failed sample: records a break next to a value, and carries the two
    // sides of a pole to the edge of the view. False when the sample lies in a region without
    // values: the sample then only becomes the previous point.
    bool Surroundings(double sampleX, double step) {
        if (Value(sampleX + step) || Value(sampleX - step)) RecordBreak(s_, t_, sampleX);
        t_.ProbeFailed = false;

        const bool steep = t_.If([&]() -> std::optional<bool> {
            const std::optional<double> left1 = Value(sampleX - NearProbe);
            if (!left1) return std::nullopt;
            const std::optional<double> left2 = Value(sampleX - FarProbe);
            if (!left2) return std::nullopt;
            const std::optional<double> right1 = Value(sampleX + NearProbe);
            if (!right1) return std::nullopt;
            const std::optional<double> right2 = Value(sampleX + FarProbe);
            if (!right2) return std::nullopt;
            const double a = std::fabs(std::fabs(*left1) - std::fabs(*left2));
            const double b = std::fabs(std::fabs(*right1) - std::fabs(*right2));
            return a > JumpLimit || b > JumpLimit;
        });
        if (!steep) return true;

        // A failure among the look-around values (which also turned SampleFailed back) means
        // the sample is part of a region without values, not a pole.
        if (t_.ProbeFailed) return false;
        t_.ProbeFailed = false;
        box_.DrawWidth = s_.Slider1;

        // The left side, from the last point straight to the edge its values run to.
        if (Positive(sampleX - SideProbe))
            t_.Run([&] {
                return LineStatement(box_, run_.PrevX, run_.PrevY, run_.PrevX, s_.ViewYMax);
            });
        else
            t_.Run([&] {
                return LineStatement(box_, run_.PrevX, run_.PrevY, run_.PrevX, s_.ViewYMin);
            });

        // The right side comes back into view somewhere after the pole: scan for it.
        double scanX = sampleX + step;
        while (t_.If([&]() -> std::optional<bool> {
            const std::optional<double> v = Value(scanX);
            if (!v) return std::nullopt;
            return *v > s_.ViewYMax || *v < s_.ViewYMin;
        })) {
            ++run_.ScanCount;
            if (run_.ScanCount > ScanLimit) break;
            scanX += step;
        }
        run_.ScanCount = 0;
        scanX += step;

        const double edge = Positive(sampleX + SideProbe) ? s_.ViewYMax : s_.ViewYMin;
        t_.Run([&] {
            const std::optional<double> v = Value(scanX);
            if (!v) return false;
            return LineStatement(box_, scanX, *v, scanX, edge);
        });
        return true;
    }

    // "value > 0" as an If condition: "NA" fails the condition, which counts as true.
    bool Positive(double x) {
        return t_.If([&]() -> std::optional<bool> {
            const std::optional<double> v = Value(x);
            if (!v) return std::nullopt;
            return *v > 0;
        });
    }

    // A whole-number x with its value inside the view goes into the coordinates list.
    void ListSample(double sampleX) {
        const double sampleY = run_.SampleY;
        const bool listed = t_.If([&]() -> std::optional<bool> {
            const bool inView = sampleY >= s_.ViewYMin && sampleY <= s_.ViewYMax;
            // The remainder works on a 32-bit whole number, which a far-off x overflows.
            const std::optional<long> hundredths = ToLong(sampleX * 100);
            if (!hundredths) return std::nullopt;
            return inView && *hundredths % 100 == 0;
        });
        if (!listed) return;
        // The key, the text and the colour make one item: past key 255 the item fails whole.
        t_.Run([&] {
            if (run_.ListIndex < 0 || run_.ListIndex > LastListKey) return false;
            s_.ListView1.push_back(
                {run_.ListIndex,
                 "x=" + NumberText(sampleX) + "  y=" + NumberText(RoundHalfEven(sampleY, 2)),
                 s_.Picture1(s_.PlotSlot)});
            return true;
        });
        ++run_.ListIndex;
    }

    // The segment from the previous point to this sample.
    void Segment(double sampleX, int goodSamples) {
        const double prevY = run_.PrevY;
        const double sampleY = run_.SampleY;
        // The first sample has no previous point, except at x = 0, which lets the segment on to
        // the tests below; SkipSegment normally drops it there.
        if (goodSamples == 1 && RoundHalfEven(sampleX, 1) != 0) return;
        if ((prevY > s_.ViewYMax && sampleY > s_.ViewYMax) ||
            (prevY < s_.ViewYMin && sampleY < s_.ViewYMin))
            return;
        if (t_.SkipSegment) {
            t_.SkipSegment = false;
            return;
        }
        box_.DrawWidth = s_.Slider1;
        if ((sampleY >= NearAxisLow || prevY <= NearAxisHigh) &&
            (prevY >= NearAxisLow || sampleY <= NearAxisHigh)) {
            t_.Run([&] { return LineStatement(box_, run_.PrevX, prevY, sampleX, sampleY); });
            s_.CurveDrawn = true;
        } else {
            // From beyond one limit to beyond the other: a pole between two samples.
            RecordBreak(s_, t_, sampleX);
        }
        box_.DrawWidth = 1;
    }

    void UpdatePrevious(double sampleX) {
        run_.PrevX = sampleX;
        run_.PrevY = run_.SampleY;
    }

    Session& s_;
    Surface& box_;
    PaintRun& run_;
    PaintTrap& t_;
};

} // namespace

std::optional<float> ToSingle(double value) {
    if (!(std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        return std::nullopt;
    return static_cast<float>(value);
}

std::optional<long> ToLong(double value) {
    if (!(std::fabs(value) < 2147483649.0)) return std::nullopt; // also NaN
    const double whole = RoundHalfEven(value, 0);
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) return std::nullopt;
    return static_cast<long>(whole);
}

std::optional<int> ToInteger(double value) {
    if (!(std::fabs(value) < 32769.0)) return std::nullopt; // also NaN
    const double whole = RoundHalfEven(value, 0);
    if (!(whole >= -32768.0 && whole <= 32767.0)) return std::nullopt;
    return static_cast<int>(whole);
}

std::optional<Colour> ColourValue(const std::string& text) {
    if (!IsNumericText(text)) return std::nullopt;
    const std::optional<long> value = ToLong(PrefixNumber(text));
    if (!value) return std::nullopt;
    return static_cast<Colour>(*value);
}

bool LineStatement(Surface& box, double x1, double y1, double x2, double y2, bool outline) {
    const std::optional<float> a = ToSingle(x1), b = ToSingle(y1), c = ToSingle(x2),
                               d = ToSingle(y2);
    if (!a || !b || !c || !d) return false;
    box.Line(*a, *b, *c, *d, outline);
    return true;
}

std::optional<double> PaintValue(Session& s, double x, int slot) {
    return CalculateYValue(s, x, slot).Known();
}

void RecordBreak(Session& s, PaintTrap& trap, double x) {
    const auto inList = [&] { return s.BreakCount >= 0 && s.BreakCount <= 1000; };
    trap.Run([&] {
        if (!inList()) return false;
        s.BreakX(s.BreakCount) = x;
        return true;
    });
    trap.Run([&] {
        if (!inList()) return false;
        s.BreakMark(s.BreakCount) = true;
        return true;
    });
    trap.Run([&] {
        if (s.BreakCount >= IntegerMax) return false;
        ++s.BreakCount;
        return true;
    });
}

void TraceSlots(Session& s, Surface& box, PaintRun& run) {
    SlotTracer tracer(s, box, run);
    // LastFilledSlot never passes the last row; the bound keeps ScriptText's index in range.
    const int lastSlot =
        std::min(s.LastFilledSlot, static_cast<int>(decltype(s.ScriptText)::Upper));
    for (s.PlotSlot = 0; s.PlotSlot <= lastSlot; ++s.PlotSlot) {
        // Slot 0 keeps the colour the painter set from CurveColor.
        if (s.PlotSlot != 0) box.ForeColor = s.Picture1(s.PlotSlot);
        run.Trap.SkipSegment = false;
        tracer.TraceSlot();
    }
}

void AutoGraph(Session& s) {
    // Slot 5 is always empty, but it is part of the scan.
    bool anyText = false;
    for (int slot = 0; slot <= UsableSlots; ++slot)
        if (!GraphableText(s, slot).empty()) anyText = true;
    if (!anyText || s.ViewDragged) return;

    const auto refresh = [&] {
        if (Surface* box = s.Host().GraphBox()) box->Refresh();
    };
    s.CurveDrawn = false;
    int tries = 0;
    // Each try paints the view that the last zoom already painted; the zoom is refused once the
    // view has passed its limit, so the last tries paint the same view again.
    while (!s.CurveDrawn && tries < 14) {
        RedrawGraph(s);
        refresh();
        if (!s.CurveDrawn) ZoomOut(s);
        ++tries;
        refresh();
    }
    if (!s.CurveDrawn) {
        mnuGraphReset_Click(s);
        RedrawGraph(s);
        refresh();
        s.Host().Dialogs().MsgBox("The function could not be graphed within the maximum limits.",
                                  MsgOkOnly, "");
    }
}

} // namespace vt
