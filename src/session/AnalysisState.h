#pragma once
// The state of the analysis tools that outlives their dialogs: why the area dialog closed, and
// what it keeps while it is closed so that it comes back where it stood.

#include <string>

namespace vt {

// Why the area dialog closed, read by mnuShade_Click.
enum AreaActions : int {
    AreaClosed = 0, // closed for good
    AreaShade = 1,  // "Shade Area" was pressed
    AreaZoom = 2,   // a zoom button was pressed
};

struct AnalysisState {
    int AreaAction = AreaClosed;

    // Members of frmFillRange that survive its unloading, written when it unloads. The range
    // boxes are not among them: they come back from ShadeFrom and ShadeTo.
    int SavedLeft = 0; // the dialog's position on the screen, in pixels
    int SavedTop = 0;
    std::string SavedArea; // the text of the result box
    double SavedStep = 0;  // the number in the step box
    int SavedSlider = 0;   // the value of the function slider
};

} // namespace vt
