#pragma once
// Evaluate f(x): the logic of the dialog frmEvalFX without its widgets. One x, the value of every
// function at it, each in its curve's colour. It changes no data: it reads the rows and shows
// text. Also the typeset picture of one row's function that this dialog and the area dialog show.

#include <array>
#include <string>

#include "base/Surface.h"
#include "session/Session.h"

namespace vt {

inline constexpr const char* EvalFXCaption = "Evaluate f(x)";
inline constexpr const char* XNotNumberText = "x must be a number.";
inline constexpr const char* FunctionSliderTip = "Slide to select function.";
// What a result row's left part shows until a value replaces it.
inline constexpr const char* ResultRowStart = "f(x) =";

// Key codes of the x box.
constexpr int EvalEnterKey = 13;
constexpr int EvalEscapeKey = 27;

// The dialog's controls as its logic sees them. The window mirrors this after each event.
struct EvalFXForm {
    std::string Text1; // the x as typed

    // The result rows: the left part, the value, whether the value shows, and its colour.
    std::array<std::string, 5> Label2{ResultRowStart, ResultRowStart, ResultRowStart,
                                      ResultRowStart, ResultRowStart};
    std::array<std::string, 5> Label3{};
    std::array<bool, 5> Label3Visible{};
    std::array<Colour, 5> Label3Colour{};

    // The function slider: value v selects slot v - 1.
    static constexpr int SliderMin = 1;
    int Slider1 = SliderMin;
    int SliderMax = 5;
    bool SliderVisible = true;

    // The typeset function: its slot and colour, and whether it takes the slider's room too
    // (Left 240 twips, Width 4215 twips) because the slider is hidden.
    int PictureSlot = 0;
    Colour PictureColour = 0;
    bool PictureWide = false;

    // Set by Escape in the x box; the window then closes.
    bool Unloaded = false;
};

// The load: the rows' colours, the slider at its minimum, the first row's function shown, and
// the slider's maximum from the rows filled (hidden when only the first one is).
void frmEvalFX_Load(Session& s, EvalFXForm& form);
// The slider moved to value. Returns true when the picture is to be drawn again; a slot with no
// text changes nothing. ActiveSlot is not touched.
bool frmEvalFX_Slider1_Change(Session& s, EvalFXForm& form, int value);
// Calculate: "x must be a number." through the session's host when the x box is no number;
// otherwise the value of each slot at x, "f(<x as typed>) =" on the rows that have one.
void frmEvalFX_Command1_Click(Session& s, EvalFXForm& form);
// A key in the x box: Enter calculates, Escape closes. Returns true when the key was one of them.
bool frmEvalFX_Text1_KeyPress(Session& s, EvalFXForm& form, int keyAscii);

// Typesets "f(x) = " and the display text of slot on surface, in colour, after clearing it.
// Used by both dialogs for their picture of the selected function.
void ShowSlotFunction(Session& s, Surface& surface, int slot, Colour colour);

} // namespace vt
