#pragma once
// The program's fonts: OrlentisFont for equations and free stand-ins for the other faces it
// names, all bundled in the resources so that every machine draws the same pictures.

#include <QFont>
#include <string>

namespace vt::render {

// Registers the bundled fonts once; safe to call again.
void LoadBundledFonts();

// The font for a face name as the program names it ("OrlentisFont", "MS Sans Serif", "Courier",
// "Book Antiqua", ...) at a size in points, measured at 96 dots per inch.
QFont FontFor(const std::string& name, float points, bool bold = false, bool italic = false);

} // namespace vt::render
