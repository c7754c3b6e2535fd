#pragma once
// The plot painter: the whole picture of the graph box, from scratch, on every change: the
// shaded band, grid, axes, the five numbers, the quadrant numerals, then the curves.

#include "base/Surface.h"
#include "session/Session.h"

namespace vt {

// The colour of the invisible walls at breaks: one step off white, so that a fill stops at it.
constexpr Colour BreakMarkColour = 0xFFFFFE;
// The only colour a shading fill replaces.
constexpr Colour FillSurfaceColour = 0xFFFFFF;

// The full redraw: default colours on the first paint, the view applied, the paint.
void RedrawGraph(Session& s);

// The paint of the graph box in its current scale. Never fails to its caller; the hourglass
// pointer shows while it runs and the default pointer comes back at its end.
void formPaint(Session& s);

} // namespace vt
