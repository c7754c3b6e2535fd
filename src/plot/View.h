#pragma once
// View control: every way the user changes the view rectangle, and the routine that makes the
// graph box follow it. The box's own scale is the view, so drawing and mouse positions are in
// function units.

#include <string>

#include "session/Session.h"

namespace vt {

// Mouse buttons as the graph box reports them.
enum GraphMouseButton : int {
    LeftButton = 1,
    RightButton = 2,
    MiddleButton = 4,
};

// Keys that move the view.
enum ViewKey : int {
    KeyPageUp = 33,
    KeyPageDown = 34,
    KeyEnd = 35,
    KeyHome = 36,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
};

// What the window has to do after a mouse button went down on the graph.
enum class GraphMouseAction {
    None,
    ShowGraphWindowMenu, // the Graph Window menu as a pop-up
};

// The coordinates list's width, fixed in pixels (1935 twips).
constexpr double ListViewPixelWidth = 1935.0 / Surface::TwipsPerPixel;

// Sets the graph box's scale from the view, SampleStep from the absolute bounds, and the
// placing of the coordinates list.
void ApplyView(Session& s);

// The redraw that ends every change: the regression redraw in regression mode, otherwise the
// full redraw.
void RedrawByMode(Session& s);
// The same with the view unchanged: the regression redraw, otherwise the paint alone.
void PaintByMode(Session& s);
// The regression redraw, which the host's regression panel makes.
void RedrawRegression(Session& s);

// Halve or double all four bounds, about the origin; refused silently at the limits.
void ZoomIn(Session& s);
void ZoomOut(Session& s);
// The default view -20..20, and a drag selection forgotten.
void mnuGraphReset_Click(Session& s);

// Keys 33..40 slide the view by fixed amounts; every key redraws.
void frmGraph_KeyDown(Session& s, int keyCode, int shift);

// The drag selection and, in regression mode, the entering of points. Positions in view units.
GraphMouseAction frmGraph_MouseDown(Session& s, int button, int shift, float x, float y);
// Moves the rubber band while a drag runs. Returns the coordinates readout for Label2.
std::string frmGraph_MouseMove(Session& s, int button, int shift, float x, float y);
void frmGraph_MouseUp(Session& s, int button, int shift, float x, float y);

// "x = 1.5    y = -2", each rounded to RoundDigits decimals.
std::string CoordinatesReadout(const Session& s, double x, double y);

} // namespace vt
