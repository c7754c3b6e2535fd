#pragma once
// The commands that set the look of the graph: the swatch colours, the grid and background
// colours, the default colours, the line width, and RoundUp. They keep no state of their own:
// each writes the session and redraws.

#include "base/Surface.h"
#include "session/Session.h"

namespace vt {

// The colours that Default Colors sets.
struct DefaultColourTable {
    Colour Grid = 16766596;       // light blue
    Colour Shade = 14737632;      // light grey
    Colour Background = 0xFFFFFF; // white
    // Picture1(0..4) the five rows (red, blue, green, magenta, orange), Picture1(5) the
    // regression line (red), Picture1(6) the points (blue).
    Colour Swatches[7] = {255, 0xFF0000, 49152, 0xFF00FF, 33023, 255, 0xFF0000};
};
inline constexpr DefaultColourTable DefaultColours{};

// The range of the line width (the main Slider1).
constexpr int LineWidthMin = 1;
constexpr int LineWidthMax = 10;

// The redraw after a change of look with the view unchanged: the regression redraw in
// regression mode, otherwise the paint.
void RepaintForLook(Session& s);

// A click on swatch Picture1(index), 0..6: the colour dialog starts from the swatch's colour,
// the swatch takes the answer (a cancelled dialog answers the start), and the graph redraws.
void ChangeSwatchColour(Session& s, int index);
// Grid Color: the dialog starts from GridColor, which takes the answer.
void mnuGraphGridColor_Click(Session& s);
// Background Color: the dialog starts from the grid colour, not from the background, and the
// graph box's background takes the answer. A cancel therefore gives the grid colour.
void mnuBackColor_Click(Session& s);
// Default Colors: every colour of the table. The line width stays.
void mnuGraphDefault_Click(Session& s);

// A new value of the main Slider1, clamped to 1..10. A change redraws (the regression redraw in
// regression mode, otherwise the full redraw); the same value does nothing, as a slider only
// reports a change.
void SetLineWidth(Session& s, int width);

// Adds 0.00001 to value in place, then returns it rounded to digits decimals, half to even. The
// caller's variable stays grown; callers rely on that.
double RoundUp(double& value, int digits);

} // namespace vt
