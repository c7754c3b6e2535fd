#pragma once
// The state of evaluation and plotting.

#include <cstdint>
#include <string>
#include <vector>

#include "base/Checked.h"
#include "expr/SlotEvaluator.h"

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
    // Works out the values of the slots' functions, keeping their compiled programs.
    SlotEvaluator Evaluator;
    // A negative x goes into a function in brackets, so that x^2 at -3 is 9; off, it goes in
    // bare and x^2 at -3 is -9.
    bool BracketNegativeX = false;

    // The coordinates list as the last paint left it; the window mirrors it.
    std::vector<CoordinateItem> ListView1;
    ListPlacement ListView1Rect;
};

} // namespace vt
