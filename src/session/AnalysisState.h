#pragma once
// The state of the analysis tools that outlives their dialogs: why the area dialog closed, what
// it keeps while it is closed so that it comes back where it stood, and the point series of
// regression mode with what its panel shows.

#include <array>
#include <string>
#include <vector>

#include "base/Checked.h"
#include "fit/RegressionObject.h"

namespace vt {

// Why the area dialog closed, read by mnuShade_Click.
enum AreaActions : int {
    AreaClosed = 0, // closed for good
    AreaShade = 1,  // "Shade Area" was pressed
    AreaZoom = 2,   // a zoom button was pressed
};

// One point of the series.
struct PointRecord {
    double X = 0;
    double Y = 0;
};

// The series keeps at most this many points; the fit goes on counting past it.
constexpr int PointsCapacity = 500;

// One row of the table of points: the X and Y columns as the table shows them.
using PointTableRow = std::array<std::string, 2>;

// What the regression panel shows that the logic decides. The window mirrors it.
struct RegressionPanelState {
    bool LinearOn = true;      // Command1, the "Linear" option
    bool PolynomialOn = false; // Command3, the "Polynomial" option
    std::string Combo1 = "2";  // the order, one of "2" to "10"
    std::string Text2, Text3;  // the X and Y boxes of "Insert Point"
    bool Visible = false;      // MSFlexGrid1, Frame1, Frame2, Frame3, Command5 and Command7
    // MSFlexGrid1: row 0 holds the headings; the row count is the vector's size.
    std::vector<PointTableRow> MSFlexGrid1 = {{"X", "Y"}, {"", ""}};
    bool ScrollTableToEnd = false; // the last redraw asks the table to show its last row
};

// The fit as the main window's load leaves it: degree 1, the "Linear" option's.
inline RegressionObject LinearFit() {
    RegressionObject fit;
    fit.SetDegree(1);
    return fit;
}

struct AnalysisState {
    int AreaAction = AreaClosed;

    // Members of frmFillRange that survive its unloading, written when it unloads. The range
    // boxes are not among them: they come back from ShadeFrom and ShadeTo.
    int SavedLeft = 0; // the dialog's position on the screen, in pixels
    int SavedTop = 0;
    std::string SavedArea; // the text of the result box
    double SavedStep = 0;  // the number in the step box
    int SavedSlider = 0;   // the value of the function slider

    // Regression mode. The fit keeps only sums and the count; Points keeps the points in the
    // order entered, point i (from 1) in element i - 1. The series starts empty at degree 1.
    RegressionObject FitObject = LinearFit();
    Array1<PointRecord, 0, PointsCapacity - 1> Points;
    std::string RegressionEquation; // the text frmExplain shows
    RegressionPanelState Panel;
};

} // namespace vt
