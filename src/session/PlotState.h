#pragma once
// The state of evaluation and plotting.

#include <cstdint>
#include <string>
#include <vector>

#include "base/Checked.h"
#include "plot/Expression.h"

namespace vt {

// One line of the coordinates list: whole-number x of a curve inside the view.
struct CoordinateItem {
    int Key = 0;            // code of the item's one-character key, 0..255
    std::string Text;       // "x=3  y=9"
    std::uint32_t Colour{}; // the slot's swatch colour, 0xBBGGRR
};

// Where the coordinates list lies inside the graph box, in view units. The list keeps its width
// in pixels; its height is half the box, and it sits in the upper right corner.
struct ListPlacement {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
};

struct PlotState {
    // The evaluator text of each slot after PreCalcFX, x still free. Five entries only: an index
    // of 5 is an error, unlike the per-slot arrays.
    Array1<std::string, 0, 4> ScriptText;
    // ScriptText of each slot compiled once by PreCalcFX, for the values at many x.
    Array1<CompiledScript, 0, 4> CompiledScripts;

    // The coordinates list as the last paint left it; the window mirrors it.
    std::vector<CoordinateItem> ListView1;
    ListPlacement ListView1Rect;

    // The painter normally reads values through CalculateYValue; set, it reads them as the text
    // of CalculateY on the text route. Both must draw the same picture.
    bool PaintTextValues = false;
};

} // namespace vt
