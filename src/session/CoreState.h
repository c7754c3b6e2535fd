#pragma once
// The shared state of the main window and of plotting: the view, the colours, the paint flags,
// and the controls whose state other routines read directly.

#include <cstdint>
#include <string>

#include "base/Checked.h"

namespace vt {

struct CoreState {
    // The view rectangle and the distance between two samples.
    double ViewXMin = -20;
    double ViewXMax = 20;
    double ViewYMin = -20;
    double ViewYMax = 20;
    double SampleStep = 0;

    bool ViewDragged = false; // a drag chose the region: auto-scaling is off
    bool CurveDrawn = false;  // a curve segment was drawn since it was last cleared

    // Colours as decimal text of 0xBBGGRR. An empty CurveColor means no paint has run yet.
    std::string CurveColor;
    std::string GridColor = "16766596";
    std::string ShadeColor = "14737632";
    int ShadeFillStyle = 0;
    bool ShadeOn = false;
    double ShadeFrom = 0;
    double ShadeTo = 0;

    int RoundDigits = 0; // coordinates readout: 0 whole numbers, 1 tenths
    std::string CommandFile;
    int DefaultPointer = 0;
    int MousePointer = 0; // 11 is the hourglass while a paint runs

    int ActiveSlot = 0;     // row that receives keys; also the slot whose area is shaded
    int LastFilledSlot = 0; // highest row with text at the last repaint of the rows

    // Members of the main window used by plotting and view control.
    int PlotSlot = 0;
    Array1<double, 0, 1000> BreakX;
    Array1<bool, 0, 1000> BreakMark;
    int BreakCount = 0;
    bool Dragging = false;
    double DragX0 = 0, DragX1 = 0, DragY0 = 0, DragY1 = 0;

    // Controls whose state the logic reads.
    int Check1 = 0;                          // 1: regression mode
    bool HideGridChecked = false;            // mnuHideGrid
    bool GraphQuadrantChecked = false;       // mnuGraphQuadrant
    bool ToggleCoordinatesChecked = false;   // mnuToggleCoordinates, mirrors ListView1's visibility
    bool NearWholeChecked = true;            // mnuNearWhole
    bool NearTenChecked = false;             // mnuNearTen
    int Slider1 = 3;                         // pen width of curves, 1..10
    std::uint32_t GraphBackColor = 0xFFFFFF; // background of the graph box
    // Swatch colours: rows 0..4, the regression line, the points.
    Array1<std::uint32_t, 0, 6> Picture1{};

    CoreState() {
        const std::uint32_t swatches[7] = {0x0000FF, 0xFF0000, 0x00C000, 0xFF00FF,
                                           0x0080FF, 0x0000FF, 0xFF0000};
        for (int i = 0; i <= 6; ++i)
            Picture1(i) = swatches[i];
    }
};

} // namespace vt
