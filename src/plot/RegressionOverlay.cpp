#include "plot/RegressionOverlay.h"

#include <cmath>
#include <optional>

#include "base/NumberText.h"
#include "base/Surface.h"
#include "plot/Painter.h"
#include "plot/PointSeries.h"
#include "plot/Tracing.h"

namespace vt {

namespace {

// The fit's value at x as a coordinate of the box: none where the value overflows or lies beyond
// single precision.
std::optional<float> CurveY(Session& s, double x) {
    const std::optional<double> value = s.FitObject.RegVal(x);
    if (!value) return std::nullopt;
    return ToSingle(*value);
}

// The fitted curve as one polyline from the left edge, each segment from the pen position. A
// sample without a value draws nothing and leaves the pen where it stood.
void DrawCurve(Session& s, Surface& box) {
    box.CurrentX = box.ScaleLeft;
    if (const std::optional<float> y = CurveY(s, box.ScaleLeft)) box.CurrentY = *y;
    box.DrawWidth = s.Slider1;
    const double step = s.SampleStep;
    // A step of no size would never reach the right edge.
    if (!(step > 0) || !std::isfinite(step)) return;
    const Colour colour = s.Picture1(5);
    int samples = 0;
    for (double x = s.ViewXMin; x <= s.ViewXMax && samples < MaxCurveSamples;
         x += step, ++samples) {
        const std::optional<float> sx = ToSingle(x);
        const std::optional<float> sy = CurveY(s, x);
        if (sx && sy) box.LineColour(box.CurrentX, box.CurrentY, *sx, *sy, colour);
    }
}

} // namespace

void DrawRegressionOverlay(Session& s) {
    if (!InRegressionMode(s)) return;
    ResetPointTable(s);
    RedrawGraph(s); // grid, axes and numbers; it stops before the curves in this mode
    const int count = s.FitObject.XYCount();
    if (count == 0) return;

    Surface* box = s.Host().GraphBox();
    if (box) {
        DrawCurve(s, *box);
        box->FillColor = s.Picture1(6);
    }
    std::vector<PointTableRow>& table = s.Panel.MSFlexGrid1;
    for (int i = 1; i <= count; ++i) {
        // Points past the end of Points have no circle and no text, but the table still grows.
        if (i <= PointsCapacity) {
            const PointRecord& point = s.Points(i - 1);
            const std::optional<float> x = ToSingle(point.X), y = ToSingle(point.Y);
            if (box && x && y) box->Circle(*x, *y, static_cast<float>(PointRadius), s.Picture1(6));
            if (static_cast<std::size_t>(i) < table.size())
                table[static_cast<std::size_t>(i)] = {NumberText(point.X), NumberText(point.Y)};
        }
        table.resize(static_cast<std::size_t>(i) + 2);
    }
    if (box) box->Refresh();
    s.Panel.ScrollTableToEnd = true;
}

} // namespace vt
