#include "analysis/EvalFX.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Platform.h"
#include "display/Typesetter.h"
#include "plot/Evaluate.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

void PictureFromSlider(const Session& s, EvalFXForm& form) {
    form.PictureSlot = form.Slider1 - 1;
    form.PictureColour = s.Picture1(form.PictureSlot);
}

} // namespace

void frmEvalFX_Load(Session& s, EvalFXForm& form) {
    for (int i = 0; i < UsableSlots; ++i)
        form.Label3Colour[static_cast<std::size_t>(i)] = s.Picture1(i);
    // 0 is below the slider's minimum, which it takes instead.
    form.Slider1 = std::clamp(0, EvalFXForm::SliderMin, form.SliderMax);
    PictureFromSlider(s, form);
    if (s.LastFilledSlot != 0) {
        form.SliderMax = s.LastFilledSlot + 1;
    } else {
        form.SliderVisible = false;
        form.PictureWide = true;
    }
}

bool frmEvalFX_Slider1_Change(Session& s, EvalFXForm& form, int value) {
    form.Slider1 = std::clamp(value, EvalFXForm::SliderMin, form.SliderMax);
    if (DisplayText(s, form.Slider1 - 1).empty()) return false;
    PictureFromSlider(s, form);
    return true;
}

void frmEvalFX_Command1_Click(Session& s, EvalFXForm& form) {
    if (!IsNumericText(form.Text1)) {
        s.Host().Dialogs().MsgBox(XNotNumberText, MsgOkOnly, "");
        return;
    }
    PreCalcFX(s);
    const double x = PrefixNumber(form.Text1);
    for (int i = 0; i < UsableSlots; ++i) {
        const auto row = static_cast<std::size_t>(i);
        form.Label3[row] = CalculateYEval(s, x, i);
        // An empty row keeps its left part and its visibility; only its value goes blank.
        if (form.Label3[row].empty()) continue;
        form.Label3Visible[row] = true;
        form.Label2[row] = "f(" + form.Text1 + ") =";
    }
}

bool frmEvalFX_Text1_KeyPress(Session& s, EvalFXForm& form, int keyAscii) {
    if (keyAscii == EvalEnterKey) {
        frmEvalFX_Command1_Click(s, form);
        return true;
    }
    if (keyAscii == EvalEscapeKey) {
        form.Unloaded = true;
        return true;
    }
    return false;
}

void ShowSlotFunction(Session& s, Surface& surface, int slot, Colour colour) {
    surface.ForeColor = colour;
    surface.Cls();
    std::string text = "f(x) = " + DisplayText(s, slot);
    // Unwrapped, as the rows are: the picture is as wide as a row.
    PrintEquation(s, text, surface, false);
}

} // namespace vt
