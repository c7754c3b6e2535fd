#include "output/Bitmap.h"

#include <cstdint>

namespace vt {

namespace {

void PutLittleEndian(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

} // namespace

std::string EncodeBitmap(const PixelImage& picture) {
    constexpr std::uint32_t HeaderBytes = 14 + 40;
    constexpr std::uint32_t PixelsPerMetre = 3780; // 96 dots per inch
    // Far beyond any graph box; keeps the sizes within the header's 32 bits.
    constexpr int MaxSide = 32768;
    if (picture.Width <= 0 || picture.Height <= 0 || picture.Width > MaxSide ||
        picture.Height > MaxSide ||
        picture.Pixels.size() <
            static_cast<std::size_t>(picture.Width) * static_cast<std::size_t>(picture.Height))
        return {};

    const std::uint32_t rowBytes = (static_cast<std::uint32_t>(picture.Width) * 3 + 3) & ~3u;
    const std::uint32_t imageBytes = rowBytes * static_cast<std::uint32_t>(picture.Height);
    std::string out;
    out.reserve(HeaderBytes + imageBytes);
    // File header.
    out += "BM";
    PutLittleEndian(out, HeaderBytes + imageBytes, 4);
    PutLittleEndian(out, 0, 4); // reserved
    PutLittleEndian(out, HeaderBytes, 4);
    // Info header.
    PutLittleEndian(out, 40, 4);
    PutLittleEndian(out, static_cast<std::uint32_t>(picture.Width), 4);
    PutLittleEndian(out, static_cast<std::uint32_t>(picture.Height), 4); // positive: bottom-up
    PutLittleEndian(out, 1, 2);                                          // planes
    PutLittleEndian(out, 24, 2);                                         // bits a pixel
    PutLittleEndian(out, 0, 4);                                          // no compression
    PutLittleEndian(out, imageBytes, 4);
    PutLittleEndian(out, PixelsPerMetre, 4);
    PutLittleEndian(out, PixelsPerMetre, 4);
    PutLittleEndian(out, 0, 4); // colours used
    PutLittleEndian(out, 0, 4); // important colours

    const std::size_t padding = rowBytes - static_cast<std::uint32_t>(picture.Width) * 3;
    for (int y = picture.Height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.Width; ++x) {
            // 0xBBGGRR: the file wants blue, green, red.
            const Colour c = picture.At(x, y);
            out += static_cast<char>((c >> 16) & 0xFF);
            out += static_cast<char>((c >> 8) & 0xFF);
            out += static_cast<char>(c & 0xFF);
        }
        out.append(padding, '\0');
    }
    return out;
}

} // namespace vt
