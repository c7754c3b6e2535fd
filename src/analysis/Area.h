#pragma once
// The area under a function and the shading of its band: the rectangle sum, the checks of the
// area dialog's input, the dialog's logic (frmFillRange, without widgets) and the cycle through
// mnuShade_Click that closes the modal dialog for each repaint and opens it again where it stood.

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "base/Surface.h"
#include "plot/Evaluate.h"
#include "session/Session.h"

namespace vt {

// The messages of Calculate Area, in the order the input is checked.
inline constexpr const char* MinRangeNotNumberText = "The minimum range of x must be a number.";
inline constexpr const char* MaxRangeNotNumberText = "The maximum range of x must be a number.";
inline constexpr const char* StepNotNumberText = "The value of dx must be a number.";
inline constexpr const char* MaxBelowMinText =
    "The maximum range of x must be greater than or equal to the minimum range.";

enum class AreaCheck { Ok, MinNotNumber, MaxNotNumber, StepNotNumber, MaxBelowMin };

// Checks the three texts of the dialog in order: the lower bound, the upper bound and the step
// must be numbers, and the lower bound not above the upper one. The first failure counts.
AreaCheck CheckAreaInput(std::string_view from, std::string_view to, std::string_view step);
// The message of a failed check; empty for Ok.
const char* AreaCheckMessage(AreaCheck check);

// The rectangle sum of slot's function: the samples at a, a + dx, a + 2dx, ... up to b, x
// growing by repeated addition, each at full weight, and one more at b when accumulated rounding
// stopped the loop short of it. A sample without a value counts 0. The result is signed.
// A step of 0 never ends, as in the window; callers that cannot wait refuse it first.
double AreaSum(Session& s, double a, double b, double dx, int slot);

// What Calculate Area gives: the failed check (its message not shown here), or the area as
// "0.00##" text.
struct AreaOutcome {
    AreaCheck Check = AreaCheck::Ok;
    std::string Text;
    double Value = 0;
};
// Calculate Area on three texts: the checks, then PreCalcFX and the sum of the slot's function
// under the hourglass pointer.
AreaOutcome CalculateArea(Session& s, std::string_view from, std::string_view to,
                          std::string_view step, int slot);

// The session as "Shade Area" and the repaint after it leave it: the band from..to shaded under
// the last filled row, in the fill style given (0..7, as the drawing surface numbers them).
void ApplyShade(Session& s, double from, double to, int fillStyle);

// The graph box's present fill style: the box's own when there is one, else the shading's.
int GraphFillStyle(const Session& s);

// The area dialog's controls as its logic sees them. The window mirrors this after each event.
struct FillRangeForm {
    // The dialog's place on the screen and its size, in pixels. The window sets Width and Height
    // before the load; the load sets Left and Top.
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    std::string Text1;         // lower bound
    std::string Text2;         // upper bound
    std::string Text3 = "0.1"; // dx
    std::string Text4;         // the area

    // The function slider: value v selects slot v - 1.
    static constexpr int SliderMin = 1;
    int Slider1 = SliderMin;
    int SliderMax = 5;
    bool SliderVisible = true;

    // The eight fill styles; Option1[i] on selects style i.
    std::array<bool, 8> Option1{};
    // The samples of the styles: the graph's background, filled in the shading colour.
    Colour ShapeFillColor = 0;
    Colour ShapeBackColor = 0xFFFFFF;

    // The typeset function: its slot and colour, and whether it takes the slider's room too
    // (Left 240 twips, Width 4335 twips) because the slider is hidden.
    int PictureSlot = 0;
    Colour PictureColour = 0;
    bool PictureWide = false;

    bool Command1Enabled = true;
    std::string Command1Tip;

    // Set when an action unloads the dialog; the window then closes.
    bool Unloaded = false;
};

// The designed texts and tips of the area dialog.
inline constexpr const char* FillRangeCaption = "Calculate Area";
inline constexpr const char* ShadeAreaTip =
    "Click here to shade the area of the function within the x range.";

// The main window's place on the screen, in pixels, for centring the dialog over it.
struct WindowBox {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
};

// Sets the slider's value as the control does: held within its minimum and maximum.
void SetSliderValue(FillRangeForm& form, int value);

// The dialog's load: back where it stood when AreaAction says it is coming back, centred on the
// main window otherwise; AreaAction to 0; the range from the shaded band (or the view); the
// styles and their samples; the slider and the Shade Area button by the number of rows filled;
// ActiveSlot to the slider's slot.
void frmFillRange_Load(Session& s, FillRangeForm& form, const WindowBox& mainWindow);
// The slider moved to value. Returns true when the typeset function is to be drawn again
// (ActiveSlot and the picture's slot and colour changed); a slot with no text changes nothing.
bool frmFillRange_Slider1_Change(Session& s, FillRangeForm& form, int value);
// Calculate Area: a failed check shows its message through the session's host and stops; otherwise
// Text4.
void frmFillRange_Command3_Click(Session& s, FillRangeForm& form);
// Shade Area: the band from the range boxes (no checks: text that is no number counts 0), the
// chosen style, AreaAction 1; unloads.
void frmFillRange_Command1_Click(Session& s, FillRangeForm& form);
// Zoom In and Zoom Out: the band as for shading, AreaAction 2, the view halved (while the width
// |ViewXMin| + |ViewXMax| is at least 2) or doubled (while it is at most 163840), the chosen
// style; unloads. The repaint is mnuShade_Click's.
void frmFillRange_Command5_Click(Session& s, FillRangeForm& form);
void frmFillRange_Command6_Click(Session& s, FillRangeForm& form);
// Shade Color: the colour dialog from ShadeColor; a cancel keeps it. The samples follow.
void frmFillRange_Command4_Click(Session& s, FillRangeForm& form);
// Close: unloads with AreaAction as it is (0).
void frmFillRange_Command2_Click(Session& s, FillRangeForm& form);
// Print Graph and Save Graph As Bitmap: the output commands of the main window.
void frmFillRange_Command7_Click(Session& s);
void frmFillRange_Command8_Click(Session& s);
// The dialog unloads (by an action or through its frame): keeps position, result, step and
// slider for the next load.
void frmFillRange_Unload(Session& s, const FillRangeForm& form);

// Calculate Area of the main window: shows the dialog (showDialog runs it modally, load to
// unload) and acts on AreaAction when it closes: after Shade Area, or a zoom while shading, the
// band is shaded under the last filled row; after a zoom the graph is repainted; either way the
// dialog comes back. Closed for good, the shading goes away and the graph is repainted.
void mnuShade_Click(Session& s, const std::function<void()>& showDialog);

} // namespace vt
