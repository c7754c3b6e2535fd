#include "cli/Limits.h"

#include <cmath>
#include <limits>

#include "base/NumberText.h"

namespace vt::cli {

double SweepSamples(double a, double b, double dx) {
    if (!(dx != 0)) return std::numeric_limits<double>::infinity();
    const double span = dx > 0 ? b - a : a - b;
    if (span < 0) return 0;
    return std::floor(span / std::fabs(dx)) + 1;
}

std::string ViewRefusal(const ViewBounds& view, int boxPixels) {
    const auto text = [](double v) { return NumberText(v); };
    // The paint takes the sample step from half the sum of the absolute x bounds, samples from
    // one step left of the view to one step right of it, and scales the box by the widths.
    const double absoluteSum = std::fabs(view.XMin) + std::fabs(view.XMax);
    const double step = absoluteSum / 2 / boxPixels;
    const double first = view.XMin - step, last = view.XMax + step;
    for (const double v : {view.XMax - view.XMin, view.YMax - view.YMin, absoluteSum,
                           std::fabs(view.YMin) + std::fabs(view.YMax), first, last}) {
        if (!std::isfinite(v))
            return "the view " + text(view.XMin) + ".." + text(view.XMax) + " by " +
                   text(view.YMin) + ".." + text(view.YMax) +
                   " is too large: its width overflows the numbers the graph is drawn with";
    }
    // The step is never small beside the bounds (a view is at most 2 * boxPixels steps
    // wide), so only a step that underflows fails to move x; the samples stay few.
    if (!(step > 0) || first + step == first || last + step == last)
        return "the view " + text(view.XMin) + ".." + text(view.XMax) +
               " is too narrow: its sample step " + text(step) + " does not move x";
    return "";
}

} // namespace vt::cli
