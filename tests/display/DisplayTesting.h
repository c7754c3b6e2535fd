#pragma once
// Helpers for the typesetter's tests: a row-sized recording surface and the printed glyphs as
// "text@x,y" with six significant digits.

#include <cstdio>
#include <string>
#include <vector>

#include "support/RecordingSurface.h"

namespace vt::test {

// A function row: 289 by 41 pixels in a pixel scale, OrlentisFont 12. With the recording
// surface's metrics a character is 8 pixels wide at size 12 and 16/3 at size 8.
inline RecordingSurface MakeRow(int width = 289, int height = 41) {
    RecordingSurface row(width, height);
    row.FontName = "OrlentisFont";
    row.FontSize = 12;
    return row;
}

inline std::vector<std::string> Glyphs(const RecordingSurface& surface) {
    std::vector<std::string> out;
    for (const auto& p : surface.Prints) {
        char position[64];
        std::snprintf(position, sizeof position, "@%g,%g", p.X, p.Y);
        out.push_back(p.Text + position);
    }
    return out;
}

} // namespace vt::test
