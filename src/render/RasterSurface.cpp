#include "render/RasterSurface.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

#include "render/Fonts.h"

namespace vt::render {

namespace {

// 96 dots per inch, so that Qt measures point sizes as the program's screen does.
constexpr int DotsPerMetre = 3780;
// Device positions are clamped to this before they become integers.
constexpr double FarAway = 1e9;
// The widest pen drawn; wider asks are drawn at this width.
constexpr int MaxBrush = 64;

long long RoundPixel(double v) {
    return static_cast<long long>(std::floor(std::clamp(v, -FarAway, FarAway) + 0.5));
}

long long FloorDiv(long long a, long long b) {
    long long q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
    return q;
}

// Half the width of row dy of a digital disc of radius r about a pixel: the largest k with
// k^2 + dy^2 < (r + 0.5)^2, or -1 when the row misses the disc. The half pixel makes small
// circles round rather than diamond-shaped.
long long DiscHalfWidth(long long dy, double r) {
    if (r < 0.0) return -1;
    const double limit = (r + 0.5) * (r + 0.5);
    const double rest = limit - static_cast<double>(dy) * static_cast<double>(dy);
    if (rest <= 0.0) return -1;
    auto k = static_cast<long long>(std::floor(std::sqrt(rest)));
    while (k >= 0 && static_cast<double>(k) * k + static_cast<double>(dy) * dy >= limit)
        --k;
    return k;
}

bool HatchCovers(int style, int x, int y) {
    const int diagonalUp = (x + y) % 8;
    const int diagonalDown = ((x - y) % 8 + 8) % 8;
    switch (style) {
    case FillSolid:
        return true;
    case FillHorizontalLine:
        return y % 8 == 0;
    case FillVerticalLine:
        return x % 8 == 0;
    case FillUpwardDiagonal:
        return diagonalUp == 0;
    case FillDownwardDiagonal:
        return diagonalDown == 0;
    case FillCross:
        return y % 8 == 0 || x % 8 == 0;
    case FillDiagonalCross:
        return diagonalUp == 0 || diagonalDown == 0;
    default: // transparent, or a style the surface doesn't know
        return false;
    }
}

} // namespace

// Liang-Barsky.
bool ClipSegment(double& x0, double& y0, double& x1, double& y1, double xMin, double yMin,
                 double xMax, double yMax) {
    const double dx = x1 - x0;
    const double dy = y1 - y0;
    double t0 = 0.0;
    double t1 = 1.0;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x0 - xMin, xMax - x0, y0 - yMin, yMax - y0};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0) {
            if (t > t1) return false;
            t0 = std::max(t0, t);
        } else {
            if (t < t0) return false;
            t1 = std::min(t1, t);
        }
    }
    const double sx = x0;
    const double sy = y0;
    x0 = sx + t0 * dx;
    y0 = sy + t0 * dy;
    x1 = sx + t1 * dx;
    y1 = sy + t1 * dy;
    return true;
}

QRgb QRgbFromColour(Colour colour) {
    return qRgb(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                static_cast<int>((colour >> 16) & 0xFF));
}

Colour ColourFromQRgb(QRgb rgb) {
    return static_cast<Colour>(qRed(rgb)) | (static_cast<Colour>(qGreen(rgb)) << 8) |
           (static_cast<Colour>(qBlue(rgb)) << 16);
}

RasterSurface::RasterSurface(int pixelWidth, int pixelHeight)
    : image_(std::max(pixelWidth, 1), std::max(pixelHeight, 1), QImage::Format_RGB32) {
    image_.setDotsPerMeterX(DotsPerMetre);
    image_.setDotsPerMeterY(DotsPerMetre);
    ScaleWidth = static_cast<float>(image_.width());
    ScaleHeight = static_cast<float>(image_.height());
    image_.fill(QRgbFromColour(BackColor));
}

RasterSurface::DevicePoint RasterSurface::ToDevice(double x, double y) const {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double sw = ScaleWidth;
    const double sh = ScaleHeight;
    DevicePoint p{nan, nan};
    if (sw != 0.0) p.X = (x - ScaleLeft) * image_.width() / sw;
    if (sh != 0.0) p.Y = (y - ScaleTop) * image_.height() / sh;
    // An infinite coordinate stays on its side of the image without turning into NaN later.
    if (std::isinf(p.X)) p.X = std::copysign(1e300, p.X);
    if (std::isinf(p.Y)) p.Y = std::copysign(1e300, p.Y);
    return p;
}

bool RasterSurface::PixelOf(double x, double y, long long& column, long long& row) const {
    const DevicePoint p = ToDevice(x, y);
    if (std::isnan(p.X) || std::isnan(p.Y)) return false;
    column = RoundPixel(p.X);
    row = RoundPixel(p.Y);
    return true;
}

int RasterSurface::BrushWidth() const {
    return std::clamp(DrawWidth, 1, MaxBrush);
}

void RasterSurface::Stamp(long long column, long long row, std::vector<int>& pixels) const {
    const long long w = image_.width();
    const long long h = image_.height();
    const int brush = BrushWidth();
    if (brush == 1) {
        if (column >= 0 && column < w && row >= 0 && row < h)
            pixels.push_back(static_cast<int>(row * w + column));
        return;
    }
    // A round brush of `brush` pixels; for an even width the extra pixel lies left and above.
    const int low = -(brush / 2);
    const int high = low + brush - 1;
    const double centre = (low + high) / 2.0;
    const double limit = brush * brush / 4.0 + 1e-9;
    for (int dy = low; dy <= high; ++dy) {
        for (int dx = low; dx <= high; ++dx) {
            if ((dx - centre) * (dx - centre) + (dy - centre) * (dy - centre) > limit) continue;
            const long long c = column + dx;
            const long long r = row + dy;
            if (c >= 0 && c < w && r >= 0 && r < h) pixels.push_back(static_cast<int>(r * w + c));
        }
    }
}

void RasterSurface::CollectLine(DevicePoint from, DevicePoint to, std::vector<int>& pixels) const {
    if (std::isnan(from.X) || std::isnan(from.Y) || std::isnan(to.X) || std::isnan(to.Y)) return;
    // Far ends are cut off at a margin beyond the brush, so that the walk stays short; ends
    // inside the margin are kept exactly, so that clipping never moves a visible pixel.
    const double margin = 2.0 + BrushWidth();
    const double xMin = -margin;
    const double yMin = -margin;
    const double xMax = image_.width() - 1 + margin;
    const double yMax = image_.height() - 1 + margin;
    auto inside = [&](DevicePoint p) {
        return p.X >= xMin && p.X <= xMax && p.Y >= yMin && p.Y <= yMax;
    };
    if (!inside(from) || !inside(to)) {
        if (!ClipSegment(from.X, from.Y, to.X, to.Y, xMin, yMin, xMax, yMax)) return;
    }
    const long long x0 = RoundPixel(from.X);
    const long long y0 = RoundPixel(from.Y);
    const long long x1 = RoundPixel(to.X);
    const long long y1 = RoundPixel(to.Y);
    const long long dx = x1 - x0;
    const long long dy = y1 - y0;
    const long long adx = dx < 0 ? -dx : dx;
    const long long ady = dy < 0 ? -dy : dy;
    // One pixel per step along the longer direction; the other coordinate is the exact line's,
    // rounded halves upward, so that a line and its reverse cover the same pixels.
    if (adx >= ady) {
        const long long step = dx < 0 ? -1 : 1;
        for (long long i = 0; i < adx; ++i)
            Stamp(x0 + i * step, y0 + FloorDiv(2 * i * dy + adx, 2 * adx), pixels);
    } else {
        const long long step = dy < 0 ? -1 : 1;
        for (long long i = 0; i < ady; ++i)
            Stamp(x0 + FloorDiv(2 * i * dx + ady, 2 * ady), y0 + i * step, pixels);
    }
}

void RasterSurface::Apply(std::vector<int>& pixels, Colour colour, bool exclusiveOr) {
    std::sort(pixels.begin(), pixels.end());
    pixels.erase(std::unique(pixels.begin(), pixels.end()), pixels.end());
    const QRgb rgb = QRgbFromColour(colour);
    auto* bits = reinterpret_cast<QRgb*>(image_.bits());
    for (int index : pixels) {
        if (exclusiveOr)
            bits[index] = 0xFF000000u | ((bits[index] ^ rgb) & 0x00FFFFFFu);
        else
            bits[index] = rgb;
    }
}

void RasterSurface::FillPixels(std::vector<int>& pixels, bool exclusiveOr) {
    const int w = image_.width();
    std::erase_if(pixels, [&](int index) { return !HatchCovers(FillStyle, index % w, index / w); });
    Apply(pixels, FillColor, exclusiveOr);
}

void RasterSurface::DrawLine(double x1, double y1, double x2, double y2, Colour colour) {
    std::vector<int> pixels;
    CollectLine(ToDevice(x1, y1), ToDevice(x2, y2), pixels);
    Apply(pixels, colour, DrawMode == DrawXorPen);
}

void RasterSurface::DrawBox(double x1, double y1, double x2, double y2, bool filled) {
    const DevicePoint a = ToDevice(x1, y1);
    const DevicePoint b = ToDevice(x2, y2);
    if (std::isnan(a.X) || std::isnan(a.Y) || std::isnan(b.X) || std::isnan(b.Y)) return;
    const long long c0 = std::min(RoundPixel(a.X), RoundPixel(b.X));
    const long long c1 = std::max(RoundPixel(a.X), RoundPixel(b.X));
    const long long r0 = std::min(RoundPixel(a.Y), RoundPixel(b.Y));
    const long long r1 = std::max(RoundPixel(a.Y), RoundPixel(b.Y));
    const long long w = image_.width();
    const long long h = image_.height();
    const bool exclusiveOr = DrawMode == DrawXorPen;

    if (filled) {
        std::vector<int> inside;
        for (long long r = std::max(r0 + 1, 0LL); r <= std::min(r1 - 1, h - 1); ++r)
            for (long long c = std::max(c0 + 1, 0LL); c <= std::min(c1 - 1, w - 1); ++c)
                inside.push_back(static_cast<int>(r * w + c));
        FillPixels(inside, exclusiveOr);
    }

    // The border, each pixel once; only the stretch that can reach the image is walked.
    const long long reach = BrushWidth();
    std::vector<int> border;
    auto row = [&](long long r) {
        if (r < -reach || r > h - 1 + reach) return;
        for (long long c = std::max(c0, -reach); c <= std::min(c1, w - 1 + reach); ++c)
            Stamp(c, r, border);
    };
    auto column = [&](long long c) {
        if (c < -reach || c > w - 1 + reach) return;
        for (long long r = std::max(r0 + 1, -reach); r <= std::min(r1 - 1, h - 1 + reach); ++r)
            Stamp(c, r, border);
    };
    row(r0);
    if (r1 != r0) row(r1);
    column(c0);
    if (c1 != c0) column(c1);
    Apply(border, ForeColor, exclusiveOr);
}

void RasterSurface::Cls() {
    image_.fill(QRgbFromColour(BackColor));
    CurrentX = ScaleLeft;
    CurrentY = ScaleTop;
}

void RasterSurface::Line(float x1, float y1, float x2, float y2, bool box, bool boxFilled) {
    if (box)
        DrawBox(x1, y1, x2, y2, boxFilled);
    else
        DrawLine(x1, y1, x2, y2, ForeColor);
    CurrentX = x2;
    CurrentY = y2;
}

void RasterSurface::LineColour(float x1, float y1, float x2, float y2, Colour colour) {
    DrawLine(x1, y1, x2, y2, colour);
    CurrentX = x2;
    CurrentY = y2;
}

void RasterSurface::Circle(float x, float y, float radius, Colour colour) {
    CurrentX = x;
    CurrentY = y;
    long long cx = 0;
    long long cy = 0;
    if (!PixelOf(x, y, cx, cy)) return;
    if (ScaleWidth == 0.0f) return;
    double r = std::fabs(static_cast<double>(radius) * image_.width() / ScaleWidth);
    if (std::isnan(r)) return;
    r = std::min(r, FarAway);

    // The outline is the ring of the pen's width around the radius; the inside is what lies
    // strictly within the ring's inner edge (every 4-neighbour inside too), so that the ring is
    // closed against a flood fill and the two never share a pixel.
    const double halfPen = (BrushWidth() - 1) / 2.0;
    const double outer = r + halfPen;
    const double inner = r - halfPen;
    const long long w = image_.width();
    const long long h = image_.height();
    const long long extent = static_cast<long long>(std::ceil(outer)) + 1;
    std::vector<int> ring;
    std::vector<int> inside;
    for (long long row = std::max(cy - extent, 0LL); row <= std::min(cy + extent, h - 1); ++row) {
        const long long dy = row - cy;
        const long long outerHalf = DiscHalfWidth(dy, outer);
        if (outerHalf < 0) continue;
        const long long innerHalf =
            std::min({DiscHalfWidth(dy, inner) - 1, DiscHalfWidth(dy - 1, inner),
                      DiscHalfWidth(dy + 1, inner)});
        for (long long col = std::max(cx - outerHalf, 0LL); col <= std::min(cx + outerHalf, w - 1);
             ++col) {
            const long long dx = col - cx < 0 ? cx - col : col - cx;
            const int index = static_cast<int>(row * w + col);
            if (dx <= innerHalf)
                inside.push_back(index);
            else
                ring.push_back(index);
        }
    }
    const bool exclusiveOr = DrawMode == DrawXorPen;
    FillPixels(inside, exclusiveOr);
    Apply(ring, colour, exclusiveOr);
}

const QFont& RasterSurface::CurrentFont() {
    FontKey key{FontName, FontSize, FontBold, FontItalic, SmoothText};
    if (!fontKey_ || !(*fontKey_ == key)) {
        font_ = FontFor(FontName, FontSize, FontBold, FontItalic);
        if (!SmoothText) font_.setStyleStrategy(QFont::NoAntialias);
        metrics_.emplace(font_, &image_);
        fontKey_ = key;
    }
    return font_;
}

const QFontMetrics& RasterSurface::CurrentMetrics() {
    CurrentFont();
    return *metrics_;
}

void RasterSurface::Print(const std::string& text, bool keepLine) {
    long long column = 0;
    long long row = 0;
    const QFontMetrics& metrics = CurrentMetrics();
    // Text that starts far off the image can't reach it: skip the drawing, keep the pen moving.
    const long long far = 1LL << 20;
    if (!text.empty() && PixelOf(CurrentX, CurrentY, column, row) && column > -far &&
        column < far && row > -far && row < far) {
        QPainter painter(&image_);
        painter.setRenderHint(QPainter::TextAntialiasing, SmoothText);
        painter.setFont(CurrentFont());
        painter.setPen(QColor::fromRgb(QRgbFromColour(ForeColor)));
        painter.drawText(QPoint(static_cast<int>(column), static_cast<int>(row) + metrics.ascent()),
                         QString::fromStdString(text));
    }
    if (keepLine) {
        CurrentX += TextWidth(text);
    } else {
        CurrentY += TextHeight(text);
        CurrentX = ScaleLeft;
    }
}

float RasterSurface::TextWidth(const std::string& text) {
    const int pixels = CurrentMetrics().horizontalAdvance(QString::fromStdString(text));
    return static_cast<float>(static_cast<double>(pixels) * ScaleWidth / image_.width());
}

float RasterSurface::TextHeight(const std::string&) {
    // The height of a line of the font, whatever the text, as the screen measures it.
    const int pixels = CurrentMetrics().height();
    return static_cast<float>(static_cast<double>(pixels) * ScaleHeight / image_.height());
}

void RasterSurface::PaintPicture(const PixelImage& picture, float x, float y, float width,
                                 float height) {
    if (picture.Width <= 0 || picture.Height <= 0 ||
        picture.Pixels.size() != static_cast<std::size_t>(picture.Width) * picture.Height)
        return;
    const DevicePoint a = ToDevice(x, y);
    const DevicePoint b = ToDevice(static_cast<double>(x) + width, static_cast<double>(y) + height);
    if (std::isnan(a.X) || std::isnan(a.Y) || std::isnan(b.X) || std::isnan(b.Y)) return;
    // The rectangle between the two corners, whichever way the scale runs; the picture is
    // never mirrored.
    const long long c0 = std::min(RoundPixel(a.X), RoundPixel(b.X));
    const long long c1 = std::max(RoundPixel(a.X), RoundPixel(b.X));
    const long long r0 = std::min(RoundPixel(a.Y), RoundPixel(b.Y));
    const long long r1 = std::max(RoundPixel(a.Y), RoundPixel(b.Y));
    const long long dw = c1 - c0;
    const long long dh = r1 - r0;
    if (dw == 0 || dh == 0) return;
    const long long w = image_.width();
    const long long h = image_.height();
    // Nearest pixel: each target pixel takes the source pixel under its centre.
    for (long long r = std::max(r0, 0LL); r < std::min(r1, h); ++r) {
        const long long sy =
            std::min<long long>(((r - r0) * 2 + 1) * picture.Height / (2 * dh), picture.Height - 1);
        auto* line = reinterpret_cast<QRgb*>(image_.scanLine(static_cast<int>(r)));
        for (long long c = std::max(c0, 0LL); c < std::min(c1, w); ++c) {
            const long long sx = std::min<long long>(((c - c0) * 2 + 1) * picture.Width / (2 * dw),
                                                     picture.Width - 1);
            line[c] = QRgbFromColour(picture.At(static_cast<int>(sx), static_cast<int>(sy)));
        }
    }
}

void RasterSurface::ExtFloodFill(int px, int py, Colour colour) {
    const int w = image_.width();
    const int h = image_.height();
    if (px < 0 || px >= w || py < 0 || py >= h) return;
    const QRgb target = QRgbFromColour(colour) & 0x00FFFFFFu;
    const auto* bits = reinterpret_cast<const QRgb*>(image_.constBits());
    auto matches = [&](int index) { return (bits[index] & 0x00FFFFFFu) == target; };
    const int start = py * w + px;
    if (!matches(start)) return;

    // The whole region first, then the fill: a fill colour equal to the region's colour, or a
    // hatch that leaves gaps of it, can't make the search go round in circles.
    std::vector<unsigned char> seen(static_cast<std::size_t>(w) * h, 0);
    std::vector<int> region;
    std::vector<int> pending{start};
    seen[start] = 1;
    while (!pending.empty()) {
        const int index = pending.back();
        pending.pop_back();
        region.push_back(index);
        const int x = index % w;
        const int y = index / w;
        auto visit = [&](int next) {
            if (!seen[next] && matches(next)) {
                seen[next] = 1;
                pending.push_back(next);
            }
        };
        if (x > 0) visit(index - 1);
        if (x < w - 1) visit(index + 1);
        if (y > 0) visit(index - w);
        if (y < h - 1) visit(index + w);
    }
    FillPixels(region, false);
}

PixelImage RasterSurface::Image() const {
    PixelImage picture;
    picture.Width = image_.width();
    picture.Height = image_.height();
    picture.Pixels.reserve(static_cast<std::size_t>(picture.Width) * picture.Height);
    for (int y = 0; y < picture.Height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
        for (int x = 0; x < picture.Width; ++x)
            picture.Pixels.push_back(ColourFromQRgb(line[x]));
    }
    return picture;
}

void RasterSurface::Refresh() {
    if (OnRefresh) OnRefresh();
}

std::unique_ptr<RasterSurface> MakeEquationPaper(int pixelWidth, int pixelHeight) {
    auto paper = std::make_unique<RasterSurface>(pixelWidth, pixelHeight);
    paper->FontName = EquationFamily;
    paper->FontSize = 12;
    paper->SmoothText = true;
    return paper;
}

} // namespace vt::render
