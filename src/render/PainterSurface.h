#pragma once
// A drawing surface on a QPainter over any paint device: an SVG (QSvgGenerator), a PDF or the
// printer (QPdfWriter, QPrinter), or a larger image for a sharper picture.
//
// The surface has a size in picture pixels, the same as the RasterSurface it stands for (400 by
// 400 for the graph box), and those pixels are laid onto a target rectangle of the device, so
// that every measure, every position and every break of a line is the one the bitmap has;
// only the resolution changes. A user point goes where RasterSurface puts it, at the centre of
// its pixel: the device position plus half a pixel, unrounded. Lines, boxes and circles stay
// lines, boxes and circles on the device, with round pens DrawWidth pixels wide; text stays text
// in its font (embedded in a PDF), measured as the bitmap measures it.
//
// Beside the device the surface keeps a RasterSurface of its picture pixels and draws every
// operation on it too. That picture is the surface's persistent image (Image), it answers the
// text measures, and it is where a flood fill runs: a fill needs pixels to find its region, and
// a vector device has none. The pixels a fill changes are laid onto the device as an image
// with the rest transparent, so the shaded band of a graph is a picture inside the vector file,
// with exactly the bitmap's edges, while the curves and text over it stay vectors.
//
// Exclusive-or drawing is done as such where the device can (an image); on a vector device it
// draws the colour the pen would give over the background.
//
// Hatch fills are drawn as lines on the same 8-pixel pattern as the bitmap's, tied to the
// picture's corner.
//
// NewPage ends the device's page (a PDF or the printer) and starts a blank one.

#include <QPainter>
#include <QRectF>
#include <QTransform>

#include "render/RasterSurface.h"

namespace vt::render {

class PainterSurface : public Surface {
  public:
    // Draws with `painter` (active on its device, kept by the caller) the picture of
    // pixelWidth by pixelHeight pixels onto `target`, in the device's coordinates. The picture
    // starts blank: the caller decides whether to Cls, as with a RasterSurface.
    PainterSurface(QPainter& painter, int pixelWidth, int pixelHeight, const QRectF& target);

    // Text without antialiasing, as the bitmap draws it; on by default, since the text of a
    // vector or enlarged picture should look smooth.
    bool SmoothText = true;

    int PixelWidth() const override { return pixels_.PixelWidth(); }
    int PixelHeight() const override { return pixels_.PixelHeight(); }

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
    PixelImage Image() const override { return pixels_.Image(); }
    void NewPage() override;

    // The pixel picture kept beside the device.
    const RasterSurface& Pixels() const { return pixels_; }

  private:
    // Runs an operation on the pixel picture with this surface's settings, and takes back the
    // pen position it leaves.
    template <class Operation> void OnPixels(Operation operation);
    // Where a user point lies in picture pixels, at the centre of the bitmap's pixel; false for
    // points that are not numbers or a zero scale.
    bool PointOf(double x, double y, QPointF& point);
    // Gives the pixel picture this surface's settings.
    void Sync();
    // Prepares the painter for one operation: the picture's transform and clip.
    void Begin();
    QColor PenColour(Colour colour) const;
    void StrokeLine(QPointF from, QPointF to, Colour colour);
    // Fills a shape (in picture pixels) in FillColor and FillStyle.
    void FillShape(const QPainterPath& shape);

    QPainter& painter_;
    RasterSurface pixels_;
    QTransform toDevice_;
    QRectF target_;
};

} // namespace vt::render
