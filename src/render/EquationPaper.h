#pragma once
// The surfaces that equations are typeset on: the function rows and the function pictures of
// the Evaluate f(x) and Calculate Area dialogs. All of them draw in the equation font at 12
// points with smooth text, so they are made in one place.

#include <memory>

#include "render/RasterSurface.h"

namespace vt::render {

// A function row, 4335 by 615 twips, in pixels.
inline constexpr int RowPaperWidth = 4335 / 15;
inline constexpr int RowPaperHeight = 615 / 15;

// Gives a surface the equation font at 12 points.
void SetUpRowPaper(Surface& paper);

// A cleared white surface of the size given, in the equation font, ready for PrintEquation.
std::unique_ptr<RasterSurface> NewEquationPaper(int pixelWidth, int pixelHeight);

// A function row's surface.
inline std::unique_ptr<RasterSurface> NewRowPaper() {
    return NewEquationPaper(RowPaperWidth, RowPaperHeight);
}

} // namespace vt::render
