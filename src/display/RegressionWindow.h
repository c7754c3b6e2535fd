#pragma once
// What the regression equation window (frmExplain) shows: its title, and the fitted equation
// broken into lines that fit the window's width, each line typeset in the window's own variant.

#include <string>

#include "base/Surface.h"
#include "session/Session.h"

namespace vt {

inline constexpr const char* LinearEquationCaption = "Linear Regression Equation";
inline constexpr const char* PolynomialEquationCaption = "Polynomial Regression Equation";
// The window's font and its size in points.
inline constexpr const char* ExplainFontName = "Book Antiqua";
inline constexpr float ExplainFontSize = 12;

// The title, from the trend the panel has on.
std::string ExplainCaption(const Session& s);

// Splits RegressionEquation into lines no wider than the form and prints them, one typesetter
// call a line. Measures in points while it prints and leaves the form in pixels. Returns the
// height the window takes, in twips: three and a half font sizes plus the print position.
int ShowEquation(Session& s, Surface& form);

} // namespace vt
