#include "plot/Appearance.h"

#include <algorithm>
#include <string>

#include "base/NumberText.h"
#include "base/Platform.h"
#include "plot/Painter.h"
#include "plot/Tracing.h"
#include "plot/View.h"

namespace vt {

namespace {

// The colour dialog started from `start`. Without a window there is no one to choose, which is
// what a cancel is: the start colour.
Colour AskColour(Session& s, Colour start) {
    return s.Host().Dialogs().ChooseColour(start);
}

// A colour kept as decimal text, as the program applies it: text that is no colour gives black.
Colour ColourOfText(const std::string& text) {
    return ColourValue(text).value_or(0);
}

} // namespace

void RepaintForLook(Session& s) {
    if (s.Check1 == 1)
        RedrawRegression(s);
    else
        formPaint(s);
}

void ChangeSwatchColour(Session& s, int index) {
    if (index < 0 || index > 6) return;
    s.Picture1(index) = AskColour(s, s.Picture1(index));
    RepaintForLook(s);
}

void mnuGraphGridColor_Click(Session& s) {
    s.GridColor = std::to_string(AskColour(s, ColourOfText(s.GridColor)));
    RepaintForLook(s);
}

void mnuBackColor_Click(Session& s) {
    // Started from the grid colour on purpose: a cancel turns the background into the grid
    // colour, and users know it that way.
    s.GraphBackColor = AskColour(s, ColourOfText(s.GridColor));
    if (Surface* box = s.Host().GraphBox()) box->BackColor = s.GraphBackColor;
    RepaintForLook(s);
}

void mnuGraphDefault_Click(Session& s) {
    s.GridColor = std::to_string(DefaultColours.Grid);
    s.ShadeColor = std::to_string(DefaultColours.Shade);
    s.GraphBackColor = DefaultColours.Background;
    if (Surface* box = s.Host().GraphBox()) box->BackColor = s.GraphBackColor;
    for (int i = 0; i <= 6; ++i)
        s.Picture1(i) = DefaultColours.Swatches[i];
    RepaintForLook(s);
}

void SetLineWidth(Session& s, int width) {
    width = std::clamp(width, LineWidthMin, LineWidthMax);
    if (width == s.Slider1) return;
    s.Slider1 = width;
    if (s.Check1 == 1)
        RedrawRegression(s);
    else
        RedrawGraph(s);
}

double RoundUp(double& value, int digits) {
    value += 0.00001;
    return RoundHalfEven(value, digits);
}

} // namespace vt
