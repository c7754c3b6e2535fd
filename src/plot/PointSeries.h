#pragma once
// The point series of regression mode and the logic of its panel: inserting a point, choosing
// the trend, clearing the series and switching the mode. Each routine changes the session and
// the panel's state (RegressionPanelState); the window shows what they leave and gives the
// focus where they say.

#include <string>
#include <vector>

#include "session/Session.h"

namespace vt {

// The message of "Insert" when a box does not hold a number.
inline constexpr const char* PointsNotNumbersText = "X and Y must be numbers.";

inline bool InRegressionMode(const Session& s) {
    return s.Check1 == 1;
}

// Folds a point into FitObject and stores it in Points at the new count. False when the fit
// overflows or the count lies beyond Points (the 501st point): the fit has counted it all the
// same, and nothing further happens.
bool AddSeriesPoint(Session& s, double x, double y);

// What "Insert" (Command4) did.
enum class InsertOutcome {
    Added,   // stored and redrawn
    Refused, // a box is not numeric: the message was shown, nothing changed
    Failed,  // the fit overflowed or Points is full: no message, no redraw
};
// "Insert": the point in Text2 and Text3. The boxes keep their text.
InsertOutcome Command4_Click(Session& s);

// The trend: "Linear" (Command1), "Polynomial" (Command3) and the order list (Combo1), which
// acts only while "Polynomial" is on. Each empties the fit at the new degree and feeds every
// point again through its text, in order. False when the replay could not run to its end (a
// series beyond Points, a point that overflows): the redraw is then left out.
bool Command1_Click(Session& s);
bool Command3_Click(Session& s);
bool Combo1_Click(Session& s);
// The order that Combo1 shows, as a whole number.
int Combo1Order(const Session& s);
// The replay behind the three: the fit emptied at newDegree, the points fed again, a redraw.
bool ReplaySeries(Session& s, int newDegree);

// Empties the table and the fit, and redraws. Points keeps its old values; the count says none
// of them belong to the series.
void ClearSeries(Session& s);
// The table emptied, its row count kept, the headings "X" and "Y" in row 0.
void ResetPointTable(Session& s);

// The Regression Analysis command and the panel's "Exit": switches the mode and the controls
// that tell it. Returns the row that is to get the focus, or -1.
int mnuPtSeries_Click(Session& s);
// Shows or hides the panel, opens or closes the commands that do not apply to points, and
// redraws. Returns the row that is to get the focus, or -1.
int Check1_Click(Session& s);

// "Regression Function" (Command5): the text for frmExplain, which the window then shows.
void Command5_Click(Session& s);
// The button as a whole: the text, then frmExplain through the host, or the message that the
// command is not available where there is no window.
void ShowRegressionFunction(Session& s);

// Splits a text at every separator; an empty text gives no parts at all.
std::vector<std::string> SplitText(const std::string& text, const std::string& separator);

} // namespace vt
