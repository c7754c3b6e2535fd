#pragma once
// The graph box's picture as a Windows bitmap: uncompressed, 24 bits a pixel, rows bottom-up and
// padded to four bytes, 96 dots per inch.

#include <string>

#include "base/Surface.h"

namespace vt {

// The bytes of a .bmp file of the picture. A picture with no pixels, or with fewer pixels than
// its size says, gives the empty string.
std::string EncodeBitmap(const PixelImage& picture);

} // namespace vt
