#include "plot/Painter.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "base/NumberText.h"
#include "base/Surface.h"
#include "plot/Evaluate.h"
#include "plot/Tracing.h"
#include "plot/View.h"

namespace vt {

namespace {

constexpr int HourglassPointer = 11;
constexpr Colour Black = 0x000000;
constexpr Colour White = 0xFFFFFF;
// Beyond this half-width or half-height the grid of whole numbers would be too dense to draw.
constexpr double GridHalfExtentLimit = 320;
constexpr int AxisWidth = 2;

// Failing arithmetic of the paint: division by zero and results beyond the range of a Double.
std::optional<double> Checked(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<double> Divide(double a, double b) {
    if (b == 0) return std::nullopt;
    return Checked(a / b);
}

bool SetPosition(float& field, double value) {
    const std::optional<float> single = ToSingle(value);
    if (!single) return false;
    field = *single;
    return true;
}

bool SetPenColour(Surface& box, const std::string& text) {
    const std::optional<Colour> colour = ColourValue(text);
    if (!colour) return false;
    box.ForeColor = *colour;
    return true;
}

class Painter {
  public:
    Painter(Session& s, Surface& box) : s_(s), box_(box), t_(run_.Trap) {}

    void Paint() {
        s_.MousePointer = HourglassPointer;
        PreCalcFX(s_);
        shadeLeft_ = std::max(s_.ShadeFrom, s_.ViewXMin);
        shadeRight_ = std::min(s_.ShadeTo, s_.ViewXMax);
        // The box's background is the session's, which the colour commands set.
        box_.BackColor = s_.GraphBackColor;
        box_.Cls();

        int passes = 1;
        if (s_.ShadeOn) {
            passes = 2;
            t_.Run([&] { return SetPenColour(box_, s_.ShadeColor); });
            BandFrame();
        }
        for (int pass = 1; pass <= passes; ++pass) {
            // The first of two passes draws numbers and curves only, so that the curves stand
            // as walls when the second pass fills.
            if (!(passes == 2 && pass == 1)) {
                t_.Run([&] {
                    const std::optional<Colour> colour = ColourValue(s_.ShadeColor);
                    if (!colour) return false;
                    box_.FillColor = *colour;
                    return true;
                });
                if (s_.ShadeOn) Shade();
                GridAndAxes();
            }
            Numbers();
            if (s_.GraphQuadrantChecked) Quadrants();

            s_.CurveColor = std::to_string(s_.Picture1(0));
            t_.Run([&] {
                const std::optional<Colour> colour = ColourValue(s_.CurveColor);
                if (!colour) return false;
                box_.ForeColor = *colour;
                box_.FillColor = *colour;
                return true;
            });
            s_.ListView1.clear();

            // Regression mode draws no function curve; the regression redraw goes on from here.
            // The break list is empty then, and stays as it is.
            if (s_.Check1 == 1) {
                s_.MousePointer = s_.DefaultPointer;
                return;
            }
            TraceSlots(s_, box_, run_);
        }
        s_.MousePointer = s_.DefaultPointer;
        s_.BreakX.Fill(0);
        s_.BreakMark.Fill(false);
        s_.BreakCount = 0;
    }

  private:
    // Bottom edge, right edge up, top edge back, left edge down, in the pen of the moment.
    void BandFrame() {
        const double l = shadeLeft_, r = shadeRight_, b = s_.ViewYMin, top = s_.ViewYMax;
        t_.Run([&] { return LineStatement(box_, l, b, r, b); });
        t_.Run([&] { return LineStatement(box_, r, b, r, top); });
        t_.Run([&] { return LineStatement(box_, r, top, l, top); });
        t_.Run([&] { return LineStatement(box_, l, top, l, b); });
    }

    // The second pass's shading of the band under the active slot's curve. The curves of the
    // first pass, the axes and invisible walls at the breaks bound the flood fills.
    void Shade() {
        const double step = s_.SampleStep;
        box_.FillStyle = s_.ShadeFillStyle;
        box_.DrawWidth = 1;
        t_.Run([&] { return LineStatement(box_, s_.ViewXMin, 0, s_.ViewXMax + step, 0); });
        t_.Run([&] { return LineStatement(box_, 0, s_.ViewYMin, 0, s_.ViewYMax + step); });

        for (int i = 0; i <= 1000; ++i) {
            box_.ForeColor = BreakMarkColour;
            if (s_.BreakMark(i)) {
                const double x = s_.BreakX(i);
                for (const double wall : {x, x + step, x - step})
                    t_.Run([&] {
                        return LineStatement(box_, wall, s_.ViewYMin, wall, s_.ViewYMax + step);
                    });
            }
            t_.Run([&] { return SetPenColour(box_, s_.CurveColor); });
        }

        // Where the axes lie in the box's pixels. The pixel x of a sample below is right only
        // right of the y axis or in a view symmetric about it; that is how the band is shaded.
        const double width = box_.PixelWidth(), height = box_.PixelHeight();
        t_.Run([&] {
            const std::optional<double> v =
                Divide(-s_.ViewXMin * width, -s_.ViewXMin + s_.ViewXMax);
            if (!v) return false;
            axisPixelX_ = *v;
            return true;
        });
        t_.Run([&] {
            rightPixels_ = width - axisPixelX_;
            return true;
        });
        t_.Run([&] {
            const std::optional<double> v =
                Divide(-s_.ViewYMin * height, -s_.ViewYMin + s_.ViewYMax);
            if (!v) return false;
            axisPixelY_ = height - *v;
            return true;
        });

        if (step > 0 && std::isfinite(step)) {
            const double last = shadeRight_ - step;
            ValueSweep values(s_, s_.ActiveSlot, step);
            for (double x = shadeLeft_ + step; x <= last; x += step)
                ShadeAt(x, values);
        }

        box_.ForeColor = White;
        BandFrame();
    }

    void ShadeAt(double x, ValueSweep& values) {
        // The lenient reading: "NA" counts as 0, and so adds no fill.
        const double value = ShadeValue(x, values);
        const bool clear = t_.If([&]() -> std::optional<bool> {
            const std::optional<double> ratio = Divide(value, box_.ScaleHeight);
            if (!ratio) return std::nullopt;
            return std::fabs(*ratio) >= 0.01;
        });
        if (!clear) return;
        t_.Run([&] {
            const std::optional<double> fraction = Divide(x, s_.ViewXMax);
            if (!fraction) return false;
            const std::optional<double> px = Checked(*fraction * rightPixels_ + axisPixelX_);
            if (!px) return false;
            const std::optional<long> whole = ToLong(*px);
            if (!whole) return false;
            pixelX_ = *whole;
            return true;
        });
        if (value > 0) t_.Run([&] { return Fill(axisPixelY_ - 1); });
        if (value < 0) t_.Run([&] { return Fill(axisPixelY_ + 1); });
    }

    bool Fill(double pixelY) {
        const std::optional<long> py = ToLong(pixelY);
        if (!py) return false;
        box_.ExtFloodFill(static_cast<int>(pixelX_), static_cast<int>(*py), FillSurfaceColour);
        return true;
    }

    double ShadeValue(double x, ValueSweep& values) { return values.At(x).Known().value_or(0); }

    void GridAndAxes() {
        const double xMin = s_.ViewXMin, xMax = s_.ViewXMax;
        const double yMin = s_.ViewYMin, yMax = s_.ViewYMax;
        if (!s_.HideGridChecked && (xMax - xMin) / 2 < GridHalfExtentLimit &&
            (yMax - yMin) / 2 < GridHalfExtentLimit) {
            box_.DrawWidth = 1;
            t_.Run([&] { return SetPenColour(box_, s_.GridColor); });
            // The spacing is always 1, with no tick marks.
            WholeNumbers(xMin, xMax, [&](int n) {
                t_.Run([&] { return LineStatement(box_, n, yMin, n, yMax); });
            });
            WholeNumbers(yMin, yMax, [&](int n) {
                t_.Run([&] { return LineStatement(box_, xMin, n, xMax, n); });
            });
        }
        // Drawn also when 0 lies outside the view, where they do not show.
        box_.ForeColor = Black;
        box_.DrawWidth = AxisWidth;
        t_.Run([&] { return LineStatement(box_, xMin, 0, xMax, 0); });
        t_.Run([&] { return LineStatement(box_, 0, yMin, 0, yMax); });
    }

    // The loop over the 16-bit whole numbers between two bounds. A bound beyond that range
    // fails the loop statement, and then no line of the loop is drawn; a loop that ends at the
    // top of the range fails at its last step.
    template <class Body> void WholeNumbers(double from, double to, Body&& body) {
        const std::optional<int> first = ToInteger(from), last = ToInteger(to);
        if (!first || !last) {
            t_.Fail();
            return;
        }
        for (int n = *first; n <= *last; ++n) {
            body(n);
            if (n == 32767) {
                t_.Fail();
                break;
            }
        }
    }

    void PrintAt(double x, double y, const std::string& text) {
        t_.Run([&] { return SetPosition(box_.CurrentX, x); });
        t_.Run([&] { return SetPosition(box_.CurrentY, y); });
        box_.Print(text);
    }

    // The five numbers of the graph, in the pen colour of the moment.
    void Numbers() {
        const double xMin = s_.ViewXMin, xMax = s_.ViewXMax;
        const double yMin = s_.ViewYMin, yMax = s_.ViewYMax;
        PrintAt(xMin, 0, PrintedNumber(xMin));
        PrintAt(0, 0, PrintedNumber(0));
        PrintAt(0, yMax, PrintedNumber(yMax));
        // The box's scale runs downward, so the height is negative and lifts the text into
        // the box.
        PrintAt(0, yMin - box_.TextHeight(NumberText(yMin)), PrintedNumber(yMin));
        PrintAt(xMax - box_.TextWidth("  " + NumberText(xMax)), 0, PrintedNumber(xMax));
    }

    // The horizontal place of each numeral comes from the y bounds and the vertical from the x
    // bounds. In the square default view this does not show; in another view the numerals keep
    // that crossing.
    void Quadrants() {
        const double xMin = s_.ViewXMin, xMax = s_.ViewXMax;
        const double yMin = s_.ViewYMin, yMax = s_.ViewYMax;
        box_.FontSize = 16;
        box_.FontBold = true;
        box_.FontName = "Courier";
        PrintAt(yMax / 2, xMax / 2, "I");
        PrintAt(yMin / 2, xMax / 2, "II");
        PrintAt(yMin / 2, xMin / 2, "III");
        PrintAt(yMax / 2, xMin / 2, "IV");
        box_.FontBold = false;
        box_.FontName = "MS Sans Serif";
        box_.FontSize = 8.25f;
    }

    Session& s_;
    Surface& box_;
    PaintRun run_;
    PaintTrap& t_;
    double shadeLeft_ = 0;
    double shadeRight_ = 0;
    // Kept across the samples of the shading: a statement that fails leaves the last value.
    double axisPixelX_ = 0;
    double rightPixels_ = 0;
    double axisPixelY_ = 0;
    long pixelX_ = 0;
};

} // namespace

void RedrawGraph(Session& s) {
    if (s.CurveColor.empty()) {
        s.GridColor = "16766596";
        s.ShadeColor = "14737632";
        s.ShadeFillStyle = 0;
        if (Surface* box = s.Host().GraphBox()) box->FillStyle = FillSolid;
    }
    ApplyView(s);
    formPaint(s);
}

void formPaint(Session& s) {
    Surface* box = s.Host().GraphBox();
    if (!box) return;
    Painter(s, *box).Paint();
    // A finished paint is shown at once, not when the window next gets round to it: a modal
    // dialog reopened straight after (Calculate Area, Line Width) would otherwise sit over the
    // old picture.
    box->Refresh();
}

} // namespace vt
