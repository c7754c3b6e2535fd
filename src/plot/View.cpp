#include "plot/View.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/NumberText.h"
#include "base/Surface.h"
#include "plot/Painter.h"
#include "plot/PointSeries.h"
#include "plot/RegressionOverlay.h"
#include "plot/Tracing.h"

namespace vt {

namespace {

// The graph box is 6000 twips square: 400 pixels.
constexpr int GraphBoxPixels = 6000 / Surface::TwipsPerPixel;

// Zoom in stops when the x bounds are this close to the origin, zoom out when this far.
constexpr double ZoomInLimit = 2;
constexpr double ZoomOutLimit = 163840;

// A scale extent of zero is refused by the box, as is one beyond single precision.
bool SetExtent(float& field, double value) {
    const std::optional<float> single = ToSingle(value);
    if (!single || *single == 0) return false;
    field = *single;
    return true;
}

bool SetOrigin(float& field, double value) {
    const std::optional<float> single = ToSingle(value);
    if (!single) return false;
    field = *single;
    return true;
}

void ShiftY(Session& s, double amount) {
    s.ViewYMax += amount;
    s.ViewYMin += amount;
}

void ShiftX(Session& s, double amount) {
    s.ViewXMax += amount;
    s.ViewXMin += amount;
}

} // namespace

void ApplyView(Session& s) {
    // Each statement that fails is skipped and the next one runs: a view of no width keeps the
    // box's last scale.
    Surface* box = s.Host().GraphBox();
    if (box) {
        SetOrigin(box->ScaleLeft, s.ViewXMin);
        SetOrigin(box->ScaleTop, s.ViewYMax);
        SetExtent(box->ScaleWidth, s.ViewXMax - s.ViewXMin);
        SetExtent(box->ScaleHeight, -(s.ViewYMax - s.ViewYMin));
    }

    // Built from the absolute bounds, not from the width: a view on one side of the origin gets
    // a coarser step than its width would ask for.
    const int pixels = box ? box->PixelWidth() : GraphBoxPixels;
    const double step = ((std::fabs(s.ViewXMax) + std::fabs(s.ViewXMin)) / 2) / pixels;
    if (std::isfinite(step)) s.SampleStep = step;

    // The coordinates list lies inside the box, so it is placed in view units: half the box
    // high, its pixel width kept, in the upper right corner at every zoom.
    const double scaleWidth = box ? box->ScaleWidth : s.ViewXMax - s.ViewXMin;
    const double scaleHeight = box ? box->ScaleHeight : -(s.ViewYMax - s.ViewYMin);
    ListPlacement& list = s.ListView1Rect;
    list.Width = ListViewPixelWidth * scaleWidth / pixels;
    list.Height = std::fabs(scaleHeight) / 2;
    list.Left = s.ViewXMax - list.Width;
    list.Top = s.ViewYMax;
}

void RedrawRegression(Session& s) {
    DrawRegressionOverlay(s);
}

void RedrawByMode(Session& s) {
    if (s.Check1 == 1)
        RedrawRegression(s);
    else
        RedrawGraph(s);
}

void PaintByMode(Session& s) {
    if (s.Check1 == 1)
        RedrawRegression(s);
    else
        formPaint(s);
}

void ZoomIn(Session& s) {
    // Only the x bounds guard the zoom.
    if (std::fabs(s.ViewXMin) + std::fabs(s.ViewXMax) < ZoomInLimit) return;
    s.ViewXMin /= 2;
    s.ViewXMax /= 2;
    s.ViewYMin /= 2;
    s.ViewYMax /= 2;
    RedrawByMode(s);
}

void ZoomOut(Session& s) {
    if (std::fabs(s.ViewXMin) + std::fabs(s.ViewXMax) > ZoomOutLimit) return;
    s.ViewXMin *= 2;
    s.ViewXMax *= 2;
    s.ViewYMin *= 2;
    s.ViewYMax *= 2;
    RedrawByMode(s);
}

void mnuGraphReset_Click(Session& s) {
    s.ViewXMin = -20;
    s.ViewXMax = 20;
    s.ViewYMin = -20;
    s.ViewYMax = 20;
    s.ViewDragged = false;
    RedrawByMode(s);
}

void frmGraph_KeyDown(Session& s, int keyCode, int /*shift*/) {
    // The amounts are fixed and do not follow the zoom; the view slides without changing size.
    switch (keyCode) {
    case KeyUp:
        ShiftY(s, 1);
        break;
    case KeyDown:
        ShiftY(s, -1);
        break;
    case KeyLeft:
        ShiftX(s, -1);
        break;
    case KeyRight:
        ShiftX(s, 1);
        break;
    case KeyPageUp:
        ShiftY(s, 10);
        break;
    case KeyPageDown:
        ShiftY(s, -10);
        break;
    case KeyHome:
        ShiftX(s, -10);
        break;
    case KeyEnd:
        ShiftX(s, 10);
        break;
    default:
        break;
    }
    RedrawByMode(s);
}

GraphMouseAction frmGraph_MouseDown(Session& s, int button, int /*shift*/, float x, float y) {
    if (button != LeftButton) return GraphMouseAction::ShowGraphWindowMenu;
    if (s.Check1 == 1) {
        // A click enters a point at whole-number coordinates; the regression overlay keeps it.
        AddSeriesPoint(s, RoundHalfEven(x, 0), RoundHalfEven(y, 0));
        RedrawByMode(s);
        return GraphMouseAction::None;
    }
    s.Dragging = true;
    s.DragX0 = s.DragX1 = x;
    s.DragY0 = s.DragY1 = y;
    if (Surface* box = s.Host().GraphBox()) box->DrawMode = DrawXorPen;
    return GraphMouseAction::None;
}

std::string frmGraph_MouseMove(Session& s, int /*button*/, int /*shift*/, float x, float y) {
    Surface* graphBox = s.Host().GraphBox();
    if (s.Dragging && graphBox) {
        // Exclusive-or: drawing the old box again erases it, which makes a rubber band.
        Surface& box = *graphBox;
        LineStatement(box, s.DragX0, s.DragY0, s.DragX1, s.DragY1, true);
        s.DragX1 = x;
        s.DragY1 = y;
        LineStatement(box, s.DragX0, s.DragY0, s.DragX1, s.DragY1, true);
    } else if (s.Dragging) {
        s.DragX1 = x;
        s.DragY1 = y;
    }
    return CoordinatesReadout(s, x, y);
}

void frmGraph_MouseUp(Session& s, int /*button*/, int /*shift*/, float /*x*/, float /*y*/) {
    if (!s.Dragging) return;
    s.Dragging = false;
    if (Surface* box = s.Host().GraphBox()) box->DrawMode = DrawCopyPen;
    const double x0 = RoundHalfEven(s.DragX0, 0), x1 = RoundHalfEven(s.DragX1, 0);
    const double y0 = RoundHalfEven(s.DragY0, 0), y1 = RoundHalfEven(s.DragY1, 0);
    // A region of 1 by 1 or less is no selection; a selected view has whole-number bounds.
    if (std::fabs(x0 - x1) > 1 && std::fabs(y0 - y1) > 1) {
        s.ViewDragged = true;
        s.ViewXMin = std::min(x0, x1);
        s.ViewXMax = std::max(x0, x1);
        s.ViewYMin = std::min(y0, y1);
        s.ViewYMax = std::max(y0, y1);
    }
    // Also wipes the rubber band.
    RedrawByMode(s);
}

std::string CoordinatesReadout(const Session& s, double x, double y) {
    return "x = " + NumberText(RoundHalfEven(x, s.RoundDigits)) +
           "    y = " + NumberText(RoundHalfEven(y, s.RoundDigits));
}

} // namespace vt
