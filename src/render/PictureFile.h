#pragma once
// A picture written to a file: PNG or BMP pixels, or an SVG or PDF that keeps lines and text as
// vectors. The caller asks for one or more surfaces on rectangles of the picture, draws on them
// with the program's own routines, and finishes the file. A scale above 1 makes the pixel
// formats that many times larger with the same geometry (and sets the size a vector picture
// asks to be shown at), so that a picture stays sharp on paper.
//
// At scale 1 a PNG or BMP is drawn on RasterSurfaces, pixel for pixel the window's picture.
// Everything else is drawn on PainterSurfaces.

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Surface.h"

class QPaintDevice;
class QPainter;
class QImage;

namespace vt::render {

enum class PictureFormat { Png, Bmp, Svg, Pdf };

inline constexpr int MaxPictureScale = 8;

// A whole number of times from 1 to MaxPictureScale, or nothing.
std::optional<int> PictureScaleFrom(const QString& text);

// The format named by formatName ("png", "bmp", "svg", "pdf", any case) or, when that is empty,
// by the file name's extension among those in `allowed`; nothing when neither names one of them.
std::optional<PictureFormat> PictureFormatFor(const QString& fileName, const QString& formatName,
                                              const std::vector<PictureFormat>& allowed);

// The extensions of some formats for a message: "png, bmp, svg or pdf".
std::string PictureFormatList(const std::vector<PictureFormat>& formats);

class PictureFile {
  public:
    // A picture of width by height pixels (at least 1 by 1), scale clamped to 1..MaxPictureScale.
    PictureFile(const QString& fileName, PictureFormat format, int width, int height, int scale);
    ~PictureFile();
    PictureFile(const PictureFile&) = delete;
    PictureFile& operator=(const PictureFile&) = delete;

    // A surface on the rectangle of the picture with its top left corner at (x, y), width by
    // height pixels, its scale in pixels and blank (white) until drawn. smoothText asks for
    // antialiased text on the pixel surfaces, as the equation rows have it. The surface lives
    // until Finish.
    Surface& SurfaceAt(int x, int y, int width, int height, bool smoothText = false);

    // Writes the file. False, with the reason in `error`, when it could not be written.
    bool Finish(std::string& error);

  private:
    struct Placed;
    QString fileName_;
    PictureFormat format_;
    int width_;
    int height_;
    int scale_;
    bool finished_ = false;
    std::unique_ptr<QPaintDevice> device_;
    std::unique_ptr<QPainter> painter_;
    std::vector<Placed> surfaces_;
};

} // namespace vt::render
