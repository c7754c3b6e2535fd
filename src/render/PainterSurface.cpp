#include "render/PainterSurface.h"

#include <QPagedPaintDevice>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>

#include "render/Fonts.h"

namespace vt::render {

namespace {

// Device positions are clamped to this, as the bitmap clamps them.
constexpr double FarAway = 1e9;
// The widest pen drawn, as in the bitmap.
constexpr int MaxPen = 64;
// The hatch pattern's period in pixels.
constexpr int HatchPeriod = 8;

double Clamp(double v) {
    return std::clamp(v, -FarAway, FarAway);
}

} // namespace

PainterSurface::PainterSurface(QPainter& painter, int pixelWidth, int pixelHeight,
                               const QRectF& target)
    : painter_(painter), pixels_(pixelWidth, pixelHeight), target_(target) {
    ScaleWidth = static_cast<float>(pixels_.PixelWidth());
    ScaleHeight = static_cast<float>(pixels_.PixelHeight());
    toDevice_ = QTransform::fromTranslate(target.left(), target.top());
    toDevice_.scale(target.width() / pixels_.PixelWidth(), target.height() / pixels_.PixelHeight());
}

template <class Operation> void PainterSurface::OnPixels(Operation operation) {
    Sync();
    operation(pixels_);
    CurrentX = pixels_.CurrentX;
    CurrentY = pixels_.CurrentY;
}

void PainterSurface::Sync() {
    static_cast<Surface&>(pixels_) = static_cast<const Surface&>(*this);
}

bool PainterSurface::PointOf(double x, double y, QPointF& point) {
    Sync();
    const RasterSurface::DevicePoint p = pixels_.ToDevice(x, y);
    if (std::isnan(p.X) || std::isnan(p.Y)) return false;
    point = QPointF(Clamp(p.X) + 0.5, Clamp(p.Y) + 0.5);
    return true;
}

void PainterSurface::Begin() {
    // Only what changed is set: a vector device writes out every change of state.
    if (painter_.transform() != toDevice_ || !painter_.hasClipping()) {
        painter_.setTransform(toDevice_);
        painter_.setClipRect(QRectF(0, 0, PixelWidth(), PixelHeight()));
    }
    if (!painter_.testRenderHint(QPainter::Antialiasing))
        painter_.setRenderHint(QPainter::Antialiasing, true);
    if (painter_.compositionMode() != QPainter::CompositionMode_SourceOver)
        painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (painter_.brush().style() != Qt::NoBrush) painter_.setBrush(Qt::NoBrush);
}

QColor PainterSurface::PenColour(Colour colour) const {
    if (DrawMode != DrawXorPen) return QColor::fromRgb(QRgbFromColour(colour));
    if (painter_.paintEngine() != nullptr &&
        painter_.paintEngine()->hasFeature(QPaintEngine::RasterOpModes)) {
        painter_.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        // Blended edges would leave traces when the same line is drawn again to take it away.
        painter_.setRenderHint(QPainter::Antialiasing, false);
        return QColor::fromRgb(QRgbFromColour(colour));
    }
    return QColor::fromRgb(QRgbFromColour((colour ^ BackColor) & 0xFFFFFF));
}

void PainterSurface::StrokeLine(QPointF from, QPointF to, Colour colour) {
    // A line whose ends fall on one pixel draws nothing, as on the bitmap.
    if (std::floor(from.x()) == std::floor(to.x()) && std::floor(from.y()) == std::floor(to.y()))
        return;
    // Far ends are cut off a little outside the picture, so that the device never sees them.
    const double margin = 2.0 + MaxPen;
    double x0 = from.x(), y0 = from.y(), x1 = to.x(), y1 = to.y();
    if (!ClipSegment(x0, y0, x1, y1, -margin, -margin, PixelWidth() + margin,
                     PixelHeight() + margin))
        return;
    Begin();
    painter_.setPen(QPen(PenColour(colour), std::clamp(DrawWidth, 1, MaxPen), Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    painter_.drawLine(QPointF(x0, y0), QPointF(x1, y1));
}

void PainterSurface::FillShape(const QPainterPath& shape) {
    if (FillStyle == FillTransparent || FillStyle < FillSolid || FillStyle > FillDiagonalCross)
        return;
    Begin();
    const QColor colour = PenColour(FillColor);
    if (FillStyle == FillSolid) {
        painter_.fillPath(shape, colour);
        return;
    }
    // Hatch lines through the centres of the pixels the bitmap's pattern covers, cut to the
    // shape as a path of their own (not by clipping, which not every vector device keeps).
    const QRectF box = shape.boundingRect() & QRectF(0, 0, PixelWidth(), PixelHeight());
    if (box.isEmpty()) return;
    const int left = static_cast<int>(std::floor(box.left() / HatchPeriod)) * HatchPeriod;
    const int top = static_cast<int>(std::floor(box.top() / HatchPeriod)) * HatchPeriod;
    const double right = box.right() + 1;
    const double bottom = box.bottom() + 1;
    const bool horizontal = FillStyle == FillHorizontalLine || FillStyle == FillCross;
    const bool vertical = FillStyle == FillVerticalLine || FillStyle == FillCross;
    const bool upward = FillStyle == FillUpwardDiagonal || FillStyle == FillDiagonalCross;
    const bool downward = FillStyle == FillDownwardDiagonal || FillStyle == FillDiagonalCross;
    QPainterPath lines;
    auto add = [&](double x1, double y1, double x2, double y2) {
        lines.moveTo(x1, y1);
        lines.lineTo(x2, y2);
    };
    if (horizontal)
        for (int y = top; y <= bottom; y += HatchPeriod)
            add(left, y + 0.5, right, y + 0.5);
    if (vertical)
        for (int x = left; x <= right; x += HatchPeriod)
            add(x + 0.5, top, x + 0.5, bottom);
    // Pixel (x, y) lies on an upward line when x + y is a multiple of the period: its centre
    // is on x + y = k + 1. A downward one when x - y is: its centre is on x - y = k.
    const double height = bottom - top;
    if (upward)
        for (int k = left + top - HatchPeriod; k <= right + bottom + HatchPeriod; k += HatchPeriod)
            add(k + 1 - top, top, k + 1 - bottom, bottom);
    if (downward)
        for (int k = left - top - (static_cast<int>(height) / HatchPeriod + 2) * HatchPeriod;
             k <= right - top + HatchPeriod; k += HatchPeriod)
            add(k + top, top, k + top + height, bottom);
    QPainterPathStroker stroker;
    stroker.setWidth(1);
    stroker.setCapStyle(Qt::FlatCap);
    painter_.fillPath(stroker.createStroke(lines).intersected(shape), colour);
}

void PainterSurface::Cls() {
    OnPixels([](RasterSurface& p) { p.Cls(); });
    Begin();
    painter_.fillRect(QRectF(0, 0, PixelWidth(), PixelHeight()),
                      QColor::fromRgb(QRgbFromColour(BackColor)));
}

void PainterSurface::Line(float x1, float y1, float x2, float y2, bool box, bool boxFilled) {
    QPointF a, b;
    const bool visible = PointOf(x1, y1, a) && PointOf(x2, y2, b);
    OnPixels([&](RasterSurface& p) { p.Line(x1, y1, x2, y2, box, boxFilled); });
    if (!visible) return;
    if (!box) {
        StrokeLine(a, b, ForeColor);
        return;
    }
    // The bitmap's box covers the pixels of both corners: the outline runs through their
    // centres, the fill is what lies inside it.
    const QRectF rect = QRectF(a, b).normalized();
    if (boxFilled) {
        QPainterPath inside;
        inside.addRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
        FillShape(inside);
    }
    Begin();
    painter_.setPen(QPen(PenColour(ForeColor), std::clamp(DrawWidth, 1, MaxPen), Qt::SolidLine,
                         Qt::SquareCap, Qt::MiterJoin));
    painter_.drawRect(rect);
}

void PainterSurface::LineColour(float x1, float y1, float x2, float y2, Colour colour) {
    QPointF a, b;
    const bool visible = PointOf(x1, y1, a) && PointOf(x2, y2, b);
    OnPixels([&](RasterSurface& p) { p.LineColour(x1, y1, x2, y2, colour); });
    if (visible) StrokeLine(a, b, colour);
}

void PainterSurface::Circle(float x, float y, float radius, Colour colour) {
    QPointF centre;
    const bool visible = PointOf(x, y, centre);
    OnPixels([&](RasterSurface& p) { p.Circle(x, y, radius, colour); });
    if (!visible || ScaleWidth == 0.0f) return;
    const double r =
        std::min(std::fabs(static_cast<double>(radius) * PixelWidth() / ScaleWidth), FarAway);
    if (std::isnan(r)) return;
    QPainterPath disc;
    disc.addEllipse(centre, r, r);
    FillShape(disc);
    Begin();
    painter_.setPen(QPen(PenColour(colour), std::clamp(DrawWidth, 1, MaxPen)));
    painter_.drawEllipse(centre, r, r);
}

void PainterSurface::Print(const std::string& text, bool keepLine) {
    long long column = 0;
    long long row = 0;
    bool draw = false;
    int ascent = 0;
    QFont font;
    OnPixels([&](RasterSurface& p) {
        // Where the bitmap puts the text cell, in the font the bitmap measures.
        const long long far = 1LL << 20;
        draw = !text.empty() && p.PixelOf(CurrentX, CurrentY, column, row) && column > -far &&
               column < far && row > -far && row < far;
        font = p.CurrentFont();
        ascent = p.CurrentMetrics().ascent();
        p.Print(text, keepLine);
    });
    if (!draw) return;
    Begin();
    font.setStyleStrategy(SmoothText ? QFont::PreferDefault : QFont::NoAntialias);
    painter_.setRenderHint(QPainter::TextAntialiasing, SmoothText);
    painter_.setFont(font);
    painter_.setPen(QColor::fromRgb(QRgbFromColour(ForeColor)));
    painter_.drawText(QPointF(static_cast<double>(column), static_cast<double>(row) + ascent),
                      QString::fromStdString(text));
}

float PainterSurface::TextWidth(const std::string& text) {
    float width = 0;
    OnPixels([&](RasterSurface& p) { width = p.TextWidth(text); });
    return width;
}

float PainterSurface::TextHeight(const std::string& text) {
    float height = 0;
    OnPixels([&](RasterSurface& p) { height = p.TextHeight(text); });
    return height;
}

void PainterSurface::PaintPicture(const PixelImage& picture, float x, float y, float width,
                                  float height) {
    OnPixels([&](RasterSurface& p) { p.PaintPicture(picture, x, y, width, height); });
    if (picture.Width <= 0 || picture.Height <= 0 ||
        picture.Pixels.size() != static_cast<std::size_t>(picture.Width) * picture.Height)
        return;
    QPointF a, b;
    if (!PointOf(x, y, a) ||
        !PointOf(static_cast<double>(x) + width, static_cast<double>(y) + height, b))
        return;
    // The bitmap places the picture between the pixel edges of its corners, never mirrored.
    const QRectF rect = QRectF(QPointF(std::floor(a.x()), std::floor(a.y())),
                               QPointF(std::floor(b.x()), std::floor(b.y())))
                            .normalized();
    if (rect.isEmpty()) return;
    QImage image(picture.Width, picture.Height, QImage::Format_RGB32);
    for (int row = 0; row < picture.Height; ++row) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(row));
        for (int column = 0; column < picture.Width; ++column)
            line[column] = QRgbFromColour(picture.At(column, row));
    }
    Begin();
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter_.drawImage(rect, image);
}

void PainterSurface::ExtFloodFill(int px, int py, Colour colour) {
    const QImage& before = pixels_.QtImage();
    if (px < 0 || px >= before.width() || py < 0 || py >= before.height()) return;
    if ((before.pixel(px, py) & 0xFFFFFFu) != (QRgbFromColour(colour) & 0xFFFFFFu)) return;
    const QImage old = before.copy();
    OnPixels([&](RasterSurface& p) { p.ExtFloodFill(px, py, colour); });
    // The pixels the fill changed, over a transparent picture.
    const QImage& after = pixels_.QtImage();
    QImage changed(after.size(), QImage::Format_ARGB32);
    changed.fill(Qt::transparent);
    bool any = false;
    for (int row = 0; row < after.height(); ++row) {
        const auto* was = reinterpret_cast<const QRgb*>(old.constScanLine(row));
        const auto* now = reinterpret_cast<const QRgb*>(after.constScanLine(row));
        auto* out = reinterpret_cast<QRgb*>(changed.scanLine(row));
        for (int column = 0; column < after.width(); ++column) {
            if (was[column] == now[column]) continue;
            out[column] = now[column] | 0xFF000000u;
            any = true;
        }
    }
    if (!any) return;
    Begin();
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter_.drawImage(QRectF(0, 0, PixelWidth(), PixelHeight()), changed);
}

void PainterSurface::NewPage() {
    if (auto* paged = dynamic_cast<QPagedPaintDevice*>(painter_.device())) paged->newPage();
    const Colour back = BackColor;
    // The next page starts blank, whatever the last one held.
    OnPixels([&](RasterSurface& p) {
        p.BackColor = 0xFFFFFF;
        p.Cls();
        p.BackColor = back;
    });
}

} // namespace vt::render
