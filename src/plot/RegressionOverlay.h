#pragma once
// The redraw of regression mode: the empty graph, the fitted curve, the points as circles, and
// the table of points rebuilt with a blank row at its end.

#include "session/Session.h"

namespace vt {

// The radius of a point's circle, in view units, so that points grow and shrink with the zoom.
constexpr double PointRadius = 0.2;

// The most samples the fitted curve takes in one redraw, whatever the step says.
constexpr int MaxCurveSamples = 1000000;

// The regression redraw. Does nothing outside regression mode. A statement that fails (a value
// that overflows, a coordinate beyond single precision, a point beyond Points) is skipped and
// the next one runs; nothing is reported.
void DrawRegressionOverlay(Session& s);

} // namespace vt
