#pragma once
// A drawing surface on an image in memory: the graph box, the entry rows and the other picture
// boxes draw here, the window shows the image, and the bitmap export and the printer read it.
//
// Pixels. A point in the user scale goes to the device position
//     (x - ScaleLeft) * PixelWidth / ScaleWidth,  (y - ScaleTop) * PixelHeight / ScaleHeight
// and that position is rounded to the nearest pixel, halves upward (floor(v + 0.5)). So in the
// default graph box (-20..20 both ways, 400 px) x = 0 is column 200 and y = 0 is row 200, the
// left and top edges are column and row 0, and the right and bottom edges (column/row 400) lie
// just outside the image. Every operation maps its points the same way.
//
// Lines. A line covers the pixels of its rounded end points' digital line, one per step along
// the longer direction, and leaves out its last pixel, so that the segments of a traced curve
// meet without drawing a shared pixel twice (which matters to the exclusive-or pen). A line
// whose two ends fall on the same pixel draws nothing. A wider pen (DrawWidth w) stamps a round
// brush of w pixels on each of those pixels; for an even width the extra pixel lies to the left
// and above, so a DrawWidth 2 line at x = 0 covers columns 199 and 200. Each pixel of one
// operation is drawn once, also where the brush overlaps itself.
//
// Boxes (Line with box) cover both corners: the outline is every pixel of the rectangle's
// border, drawn once, so that an exclusive-or box drawn twice goes away. A filled box fills the
// inside with FillColor in FillStyle, as circles do.
//
// Draw modes: 7 sets each pixel to itself exclusive-or the colour, any other mode copies the
// colour. Text and flood fill always copy, as on the screen.
//
// Fill styles: 0 solid, 1 transparent (nothing), 2..7 hatches on an 8-pixel pattern tied to the
// image's corner, so that neighbouring fills line up: 2 horizontal (rows y % 8 == 0), 3 vertical
// (columns x % 8 == 0), 4 upward diagonal "/" ((x + y) % 8 == 0), 5 downward diagonal "\"
// ((x - y) % 8 == 0), 6 cross (2 and 3), 7 diagonal cross (4 and 5). Hatch lines are drawn in
// FillColor, the gaps keep what was there. Any other value counts as transparent.
//
// Text. Print draws at CurrentX/CurrentY as the top left corner of the text cell (rounded to a
// pixel as above), in ForeColor, with a transparent background and without antialiasing unless
// SmoothText is set. Fonts come from vt::render::FontFor, sizes are points at 96 dpi, and every
// measure is in whole pixels, as the screen measures text. Text needs a QGuiApplication (the
// app's or the command-line program's); everything else works without one.
//
// Nothing here fails: points that are not numbers draw nothing, far-off points are clipped, and
// a zero scale extent draws nothing.

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <functional>
#include <memory>
#include <optional>

#include "base/Surface.h"

namespace vt::render {

// 0xBBGGRR to Qt's 0xAARRGGBB (opaque) and back.
QRgb QRgbFromColour(Colour colour);
Colour ColourFromQRgb(QRgb rgb);

// Cuts a segment down to a rectangle. False when nothing of it is inside.
bool ClipSegment(double& x0, double& y0, double& x1, double& y1, double xMin, double yMin,
                 double xMax, double yMax);

class RasterSurface : public Surface {
  public:
    // The image (at least 1 by 1) starts filled with BackColor (white); the scale is pixels.
    RasterSurface(int pixelWidth, int pixelHeight);

    // Antialiased text for surfaces that only show text (the entry rows may want it); off by
    // default so that the graph's pictures are the same on every machine and hold only the
    // colours that were drawn.
    bool SmoothText = false;
    // Called by Refresh, for the window that shows the image.
    std::function<void()> OnRefresh;

    int PixelWidth() const override { return image_.width(); }
    int PixelHeight() const override { return image_.height(); }

    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, bool box = false,
              bool boxFilled = false) override;
    void LineColour(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius, Colour colour) override;
    void Print(const std::string& text, bool keepLine = false) override;
    float TextWidth(const std::string& text) override;
    float TextHeight(const std::string& text) override;
    void PaintPicture(const PixelImage& picture, float x, float y, float width,
                      float height) override;
    void ExtFloodFill(int px, int py, Colour colour) override;
    PixelImage Image() const override;
    void Refresh() override;

    // The image itself, for the window that shows it and for the export.
    const QImage& QtImage() const { return image_; }

    // Where a user point falls, in device pixels (rounded as described above). Values far
    // outside the image are clamped to +-1e9; not-a-number gives false.
    bool PixelOf(double x, double y, long long& column, long long& row) const;

    struct DevicePoint {
        double X;
        double Y;
    };
    // Where a user point falls in device pixels before rounding; a coordinate is NaN when its
    // scale extent is zero or the point is not a number. The vector surface shares this map.
    DevicePoint ToDevice(double x, double y) const;

    // The font of FontName/FontSize/FontBold/FontItalic, and its measures on this image, kept
    // until one of them changes.
    const QFont& CurrentFont();
    const QFontMetrics& CurrentMetrics();

  private:
    void DrawLine(double x1, double y1, double x2, double y2, Colour colour);
    void DrawBox(double x1, double y1, double x2, double y2, bool filled);
    // The pixels of a digital line between two device points, last one left out, clipped to
    // the image widened by the brush.
    void CollectLine(DevicePoint from, DevicePoint to, std::vector<int>& pixels) const;
    // Adds a pixel (or the brush around it) to a set of linear pixel indices.
    void Stamp(long long column, long long row, std::vector<int>& pixels) const;
    // Applies the pen to a set of pixels, each once.
    void Apply(std::vector<int>& pixels, Colour colour, bool exclusiveOr);
    // Fills a set of pixels in FillColor and FillStyle.
    void FillPixels(std::vector<int>& pixels, bool exclusiveOr);
    int BrushWidth() const;

    QImage image_;

    struct FontKey {
        std::string Name;
        float Size = 0;
        bool Bold = false;
        bool Italic = false;
        bool Smooth = false;
        bool operator==(const FontKey&) const = default;
    };
    std::optional<FontKey> fontKey_;
    QFont font_;
    std::optional<QFontMetrics> metrics_;
};

// A surface for typeset equations, as the rows and the function pictures are: the equation font
// at 12 points, its text smoothed.
std::unique_ptr<RasterSurface> MakeEquationPaper(int pixelWidth, int pixelHeight);

} // namespace vt::render
