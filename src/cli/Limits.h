#pragma once
// What the companion refuses to start because it would not end, or not in any useful time. The
// window cannot reach such work (its zoom and its dialogs keep the numbers small); a script
// can ask for anything.

#include <string>

#include "cli/Jobs.h"

namespace vt::cli {

// The most samples a command takes: at about ten million a second, ten seconds of work.
inline constexpr double MaxSamples = 1e8;

// How many x the sweep a, a + dx, a + 2dx, ... takes while x has not passed b, both ends
// counted: 0 when it does not start, infinite when dx is 0 or the count overflows.
double SweepSamples(double a, double b, double dx);

// Why a view cannot be painted on a graph box so many pixels wide, or "" when it can: bounds
// whose width or whose sample step overflows, or a sample step too small to move x.
std::string ViewRefusal(const ViewBounds& view, int boxPixels);

} // namespace vt::cli
