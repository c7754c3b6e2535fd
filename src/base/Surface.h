#pragma once
// The drawing surface: everything the typesetter, the painter and the output draw on.
// A surface has a user scale (float coordinates, a negative ScaleHeight makes y run upward),
// a pen position, colours as 0xBBGGRR, a fill style, a pen width, a draw mode and a font.
// Implementations: RasterSurface (a QImage, the graph box and the rows), the printer page,
// and a recording surface in the tests.

#include <cstdint>
#include <string>
#include <vector>

namespace vt {

using Colour = std::uint32_t; // 0xBBGGRR

// Fill styles of the platform's hatch brushes.
enum FillStyles : int {
    FillSolid = 0,
    FillTransparent = 1,
    FillHorizontalLine = 2,
    FillVerticalLine = 3,
    FillUpwardDiagonal = 4,
    FillDownwardDiagonal = 5,
    FillCross = 6,
    FillDiagonalCross = 7,
};

enum DrawModes : int {
    DrawXorPen = 7,
    DrawCopyPen = 13,
};

// A picture as pixels, row by row, each 0xBBGGRR.
struct PixelImage {
    int Width = 0;
    int Height = 0;
    std::vector<Colour> Pixels;

    Colour At(int x, int y) const { return Pixels[static_cast<std::size_t>(y) * Width + x]; }
};

class Surface {
  public:
    virtual ~Surface() = default;

    // User scale.
    float ScaleLeft = 0;
    float ScaleTop = 0;
    float ScaleWidth = 1;
    float ScaleHeight = 1;

    // Pen position for text and lines, in user units.
    float CurrentX = 0;
    float CurrentY = 0;

    Colour ForeColor = 0x000000;
    Colour BackColor = 0xFFFFFF;
    Colour FillColor = 0x000000;
    int FillStyle = FillTransparent;
    int DrawWidth = 1;
    int DrawMode = DrawCopyPen;

    std::string FontName = "MS Sans Serif";
    float FontSize = 8.25f;
    bool FontBold = false;
    bool FontItalic = false;

    // Size of the surface in device pixels.
    virtual int PixelWidth() const = 0;
    virtual int PixelHeight() const = 0;

    // Erase to BackColor; the pen goes to the scale's origin.
    virtual void Cls() = 0;
    // A line from (x1, y1) to (x2, y2), or with box set the outline of that rectangle (filled
    // with FillColor/FillStyle when boxFilled). Afterwards the pen stands at (x2, y2).
    virtual void Line(float x1, float y1, float x2, float y2, bool box = false,
                      bool boxFilled = false) = 0;
    // A line from the pen position to (x2, y2).
    void LineTo(float x2, float y2) { Line(CurrentX, CurrentY, x2, y2); }
    // A line in a colour of its own, as the form "Line (...)-(...), colour" does.
    virtual void LineColour(float x1, float y1, float x2, float y2, Colour colour) = 0;
    // Outline in the given colour, interior in FillColor and FillStyle; radius in x units.
    virtual void Circle(float x, float y, float radius, Colour colour) = 0;
    // Text at the pen position. With keepLine (a trailing ";") the pen moves to the end of the
    // text; without it, to the start of the next line.
    virtual void Print(const std::string& text, bool keepLine = false) = 0;
    virtual float TextWidth(const std::string& text) = 0;
    virtual float TextHeight(const std::string& text) = 0;
    // Stretch a picture onto the surface.
    virtual void PaintPicture(const PixelImage& picture, float x, float y, float width,
                              float height) = 0;
    // Fill the connected region of exactly the colour `colour` that holds pixel (px, py) with
    // FillColor in FillStyle (fill type 1: "surface" fill).
    virtual void ExtFloodFill(int px, int py, Colour colour) = 0;
    // The persistent image of what was drawn.
    virtual PixelImage Image() const = 0;
    virtual void Refresh() {}
    // Ends the page and starts the next one; the pen goes to the scale's origin. Only the
    // printer's page has pages: elsewhere it does nothing.
    virtual void NewPage() {}

    // Twips per pixel of the screen: fixed at 15 so that every machine draws alike.
    static constexpr int TwipsPerPixel = 15;
};

// Pixels of a length in twips on the screen.
constexpr int TwipsToPixels(int twips) {
    return twips / Surface::TwipsPerPixel;
}

} // namespace vt
