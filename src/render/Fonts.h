#pragma once
// The program's fonts: OrlentisFont for equations and free stand-ins for the other faces it
// names, all bundled in the resources so that every machine draws the same pictures.
//
//   face name the program uses         bundled family
//   "OrlentisFont"                     "OrlentisFont"     (equations: rows, labels, printout)
//   "MS Sans Serif"                    "Veritrace Sans"   (the graph's numbers)
//   "Courier", "Courier New"           "Veritrace Mono"   (the quadrant numerals, bold)
//   "Book Antiqua"                     "Veritrace Serif"  (the regression equation window)
//
// Any other name is passed on to the system's font matching unchanged.

#include <QFont>
#include <QString>
#include <string>

namespace vt::render {

inline constexpr const char* EquationFamily = "OrlentisFont";
inline constexpr const char* SansFamily = "Veritrace Sans";
inline constexpr const char* MonoFamily = "Veritrace Mono";
inline constexpr const char* SerifFamily = "Veritrace Serif";

// Registers the bundled fonts once; safe to call again. Needs a QGuiApplication: without one
// it does nothing (and tries again on the next call).
void LoadBundledFonts();

// The family that stands for a face name as the program names it (the table above); letter
// case is ignored.
QString FamilyFor(const std::string& name);

// A size in points as whole pixels at 96 dots per inch, rounded as the screen does it:
// 12 pt is 16 px, 8.25 pt is 11 px, 8 pt is 11 px. At least 1.
int PixelSizeFor(float points);

// The font for a face name as the program names it ("OrlentisFont", "MS Sans Serif", "Courier",
// "Book Antiqua", ...) at a size in points, measured at 96 dots per inch. The size is set in
// whole pixels and hinting is off, so that text measures and draws the same on every machine.
// The font is antialiased; RasterSurface turns that off for the pictures it draws.
QFont FontFor(const std::string& name, float points, bool bold = false, bool italic = false);

} // namespace vt::render
