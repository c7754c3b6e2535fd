#pragma once
// The windows are designed in twips and shown at a fixed 15 twips a pixel, so that they look the
// same on every screen.

#include <QRect>

namespace vt {

constexpr int TwipsPerScreenPixel = 15;

// Pixels of a length in twips.
constexpr int Pixels(int twips) { return twips / TwipsPerScreenPixel; }

inline QRect Twips(int left, int top, int width, int height) {
    return QRect(Pixels(left), Pixels(top), Pixels(width), Pixels(height));
}

} // namespace vt
