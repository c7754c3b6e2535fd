#include "analysis/Area.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/Platform.h"
#include "plot/Tracing.h"
#include "plot/View.h"
#include "translate/Graphable.h"

namespace vt {

namespace {

constexpr int HourglassPointer = 11;
// The dialog's own zoom limits on |ViewXMin| + |ViewXMax|.
constexpr double AreaZoomInLimit = 2;
constexpr double AreaZoomOutLimit = 163840;

// The height of one rectangle: the number in CalculateYArea's text, which is 0 for an empty
// result and for a point without a value. CalculateYValue gives that number without making the
// text (on the compiled route), bit for bit the same.
double AreaHeight(const YValue& y) {
    return y.Known().value_or(0.0);
}

void Message(Session& s, const char* text) {
    s.Host().Dialogs().MsgBox(text, MsgOkOnly, "");
}

// The style whose option is on; -1 when none is.
int ChosenStyle(const FillRangeForm& form) {
    for (int i = 0; i < static_cast<int>(form.Option1.size()); ++i)
        if (form.Option1[static_cast<std::size_t>(i)]) return i;
    return -1;
}

// The band from the range boxes, read with the prefix parser: no checks.
void TakeBand(Session& s, const FillRangeForm& form) {
    s.ShadeFrom = PrefixNumber(form.Text1);
    s.ShadeTo = PrefixNumber(form.Text2);
}

void Unload(Session& s, FillRangeForm& form) {
    frmFillRange_Unload(s, form);
    form.Unloaded = true;
}

void ZoomBy(Session& s, FillRangeForm& form, bool in) {
    TakeBand(s, form);
    s.AreaAction = AreaZoom;
    const double width = std::fabs(s.ViewXMin) + std::fabs(s.ViewXMax);
    const double factor = in ? 0.5 : 2.0;
    if (in ? width >= AreaZoomInLimit : width <= AreaZoomOutLimit) {
        s.ViewXMin *= factor;
        s.ViewYMin *= factor;
        s.ViewXMax *= factor;
        s.ViewYMax *= factor;
    }
    if (const int style = ChosenStyle(form); style >= 0) {
        s.ShadeFillStyle = style;
        if (Surface* box = s.Host().GraphBox()) box->FillStyle = style;
    }
    Unload(s, form);
}

void ShowStyles(const Session& s, FillRangeForm& form) {
    form.ShapeFillColor = ColourValue(s.ShadeColor).value_or(0);
    form.ShapeBackColor = s.GraphBackColor;
}

// The picture shows slot Slider1 - 1 in its row's colour.
void PictureFromSlider(const Session& s, FillRangeForm& form) {
    form.PictureSlot = form.Slider1 - 1;
    form.PictureColour = s.Picture1(form.PictureSlot);
}

} // namespace

AreaCheck CheckAreaInput(std::string_view from, std::string_view to, std::string_view step) {
    if (!IsNumericText(from)) return AreaCheck::MinNotNumber;
    if (!IsNumericText(to)) return AreaCheck::MaxNotNumber;
    if (!IsNumericText(step)) return AreaCheck::StepNotNumber;
    if (PrefixNumber(from) > PrefixNumber(to)) return AreaCheck::MaxBelowMin;
    return AreaCheck::Ok;
}

const char* AreaCheckMessage(AreaCheck check) {
    switch (check) {
    case AreaCheck::MinNotNumber:
        return MinRangeNotNumberText;
    case AreaCheck::MaxNotNumber:
        return MaxRangeNotNumberText;
    case AreaCheck::StepNotNumber:
        return StepNotNumberText;
    case AreaCheck::MaxBelowMin:
        return MaxBelowMinText;
    case AreaCheck::Ok:
        break;
    }
    return "";
}

double AreaSum(Session& s, double a, double b, double dx, int slot) {
    double area = 0;
    double x = a;
    // A counted loop with its step's sign deciding the end test: a negative step runs only
    // while x is not below b, so with a < b it does not run at all.
    ValueSweep heights(s, slot, dx);
    if (dx >= 0) {
        for (; x <= b; x += dx)
            area += AreaHeight(heights.At(x)) * dx;
    } else {
        for (; x >= b; x += dx)
            area += AreaHeight(heights.At(x)) * dx;
    }
    // x stands past b now. Read through its 15-digit text it may fall on b or short of it when
    // the additions drifted; then b itself is sampled once more.
    if (b >= RoundToNumberText(x)) area += AreaHeight(CalculateYValue(s, b, slot)) * dx;
    return area;
}

AreaOutcome CalculateArea(Session& s, std::string_view from, std::string_view to,
                          std::string_view step, int slot) {
    AreaOutcome out;
    out.Check = CheckAreaInput(from, to, step);
    if (out.Check != AreaCheck::Ok) return out;
    s.MousePointer = HourglassPointer;
    PreCalcFX(s);
    out.Value = AreaSum(s, PrefixNumber(from), PrefixNumber(to), PrefixNumber(step), slot);
    out.Text = FormatArea(out.Value);
    s.MousePointer = s.DefaultPointer;
    return out;
}

void ApplyShade(Session& s, double from, double to, int fillStyle) {
    s.ShadeFrom = from;
    s.ShadeTo = to;
    s.ShadeFillStyle = fillStyle;
    s.ShadeOn = true;
    s.ActiveSlot = s.LastFilledSlot;
}

int GraphFillStyle(const Session& s) {
    const Surface* box = s.Host().GraphBox();
    return box ? box->FillStyle : s.ShadeFillStyle;
}

void SetSliderValue(FillRangeForm& form, int value) {
    form.Slider1 = std::clamp(value, FillRangeForm::SliderMin, form.SliderMax);
}

void frmFillRange_Load(Session& s, FillRangeForm& form, const WindowBox& mainWindow) {
    if (s.AreaAction > 0) {
        form.Left = s.SavedLeft;
        form.Top = s.SavedTop;
        form.Text4 = s.SavedArea;
        SetSliderValue(form, s.SavedSlider);
        form.Text3 = NumberText(s.SavedStep);
    } else {
        form.Left = mainWindow.Left + mainWindow.Width / 2 - form.Width / 2;
        form.Top = mainWindow.Top + mainWindow.Height / 2 - form.Height / 2;
    }
    s.AreaAction = AreaClosed;

    // Exactly 0 both: no band was shaded yet, and the range offered is the view's.
    if (s.ShadeFrom == 0 && s.ShadeTo == 0) {
        form.Text1 = NumberText(s.ViewXMin);
        form.Text2 = NumberText(s.ViewXMax);
    } else {
        form.Text1 = NumberText(s.ShadeFrom);
        form.Text2 = NumberText(s.ShadeTo);
    }

    ShowStyles(s, form);
    form.Option1.fill(false);
    const int style = GraphFillStyle(s);
    if (style >= 0 && style < static_cast<int>(form.Option1.size()))
        form.Option1[static_cast<std::size_t>(style)] = true;

    PictureFromSlider(s, form);

    if (s.LastFilledSlot == 0) {
        form.SliderVisible = false;
        form.PictureWide = true;
        form.Command1Tip = ShadeAreaTip;
    } else {
        // Shading is offered only while a single function stands in the first row.
        form.SliderMax = s.LastFilledSlot + 1;
        SetSliderValue(form, form.Slider1);
        form.Command1Enabled = false;
    }
    s.ActiveSlot = form.Slider1 - 1;
}

bool frmFillRange_Slider1_Change(Session& s, FillRangeForm& form, int value) {
    SetSliderValue(form, value);
    const int slot = form.Slider1 - 1;
    if (DisplayText(s, slot).empty()) return false;
    s.ActiveSlot = slot;
    PictureFromSlider(s, form);
    return true;
}

void frmFillRange_Command3_Click(Session& s, FillRangeForm& form) {
    const AreaOutcome outcome =
        CalculateArea(s, form.Text1, form.Text2, form.Text3, form.Slider1 - 1);
    if (outcome.Check != AreaCheck::Ok) {
        Message(s, AreaCheckMessage(outcome.Check));
        return;
    }
    form.Text4 = outcome.Text;
}

void frmFillRange_Command1_Click(Session& s, FillRangeForm& form) {
    TakeBand(s, form);
    s.AreaAction = AreaShade;
    if (const int style = ChosenStyle(form); style >= 0) s.ShadeFillStyle = style;
    Unload(s, form);
}

void frmFillRange_Command5_Click(Session& s, FillRangeForm& form) {
    ZoomBy(s, form, true);
}

void frmFillRange_Command6_Click(Session& s, FillRangeForm& form) {
    ZoomBy(s, form, false);
}

void frmFillRange_Command4_Click(Session& s, FillRangeForm& form) {
    const Colour start = ColourValue(s.ShadeColor).value_or(0);
    const Colour chosen = s.Host().Dialogs().ChooseColour(start);
    s.ShadeColor = std::to_string(chosen);
    ShowStyles(s, form);
}

void frmFillRange_Command2_Click(Session& s, FillRangeForm& form) {
    Unload(s, form);
}

void frmFillRange_Command7_Click(Session& s) {
    if (!s.Host().RunCommand(HostCommand::GraphPrint, 0)) Message(s, NotAvailableText);
}

void frmFillRange_Command8_Click(Session& s) {
    if (!s.Host().RunCommand(HostCommand::BitMap, 0)) Message(s, NotAvailableText);
}

void frmFillRange_Unload(Session& s, const FillRangeForm& form) {
    s.SavedLeft = form.Left;
    s.SavedTop = form.Top;
    s.SavedArea = form.Text4;
    s.SavedStep = PrefixNumber(form.Text3);
    s.SavedSlider = form.Slider1;
}

void mnuShade_Click(Session& s, const std::function<void()>& showDialog) {
    // Each pass opens the dialog again; a loop in place of calling this routine anew, so that a
    // long session of shading and zooming does not deepen the stack.
    for (;;) {
        showDialog();
        const int action = s.AreaAction;
        if (action == AreaShade || (action == AreaZoom && s.ShadeOn)) {
            s.ShadeOn = true;
            s.ActiveSlot = s.LastFilledSlot;
            RedrawByMode(s);
            continue;
        }
        if (action == AreaZoom) {
            s.ActiveSlot = s.LastFilledSlot;
            RedrawByMode(s);
            continue;
        }
        s.ShadeOn = false;
        RedrawByMode(s);
        return;
    }
}

} // namespace vt
