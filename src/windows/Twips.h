#pragma once
// The windows are designed in twips and shown at a fixed number of twips a pixel
// (Surface::TwipsPerPixel), so that they look the same on every screen.

#include <QRect>

#include "base/Surface.h"

namespace vt {

// Pixels of a length in twips.
constexpr int Pixels(int twips) {
    return TwipsToPixels(twips);
}

inline QRect Twips(int left, int top, int width, int height) {
    return QRect(Pixels(left), Pixels(top), Pixels(width), Pixels(height));
}

} // namespace vt
