#include "render/PictureFile.h"

#include <QFileInfo>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>

#include "render/PainterSurface.h"
#include "render/RasterSurface.h"

namespace vt::render {

namespace {

// A PDF is laid out at this many dots per inch, so that positions keep their fractions.
constexpr int PdfResolution = 1200;
// The pictures' pixels are 96 to the inch, as on the screen.
constexpr int PixelsPerInch = 96;
constexpr int DotsPerMetre = 3780;

struct FormatName {
    PictureFormat Format;
    const char* Name;
};
constexpr FormatName FormatNames[] = {{PictureFormat::Png, "png"},
                                      {PictureFormat::Bmp, "bmp"},
                                      {PictureFormat::Svg, "svg"},
                                      {PictureFormat::Pdf, "pdf"}};

const char* NameOf(PictureFormat format) {
    for (const auto& entry : FormatNames)
        if (entry.Format == format) return entry.Name;
    return "png";
}

bool IsPixels(PictureFormat format) {
    return format == PictureFormat::Png || format == PictureFormat::Bmp;
}

} // namespace

std::optional<PictureFormat> PictureFormatFor(const QString& fileName, const QString& formatName,
                                              const std::vector<PictureFormat>& allowed) {
    const QString name =
        (formatName.isEmpty() ? QFileInfo(fileName).suffix() : formatName).toLower();
    for (const PictureFormat format : allowed)
        if (name == QLatin1String(NameOf(format))) return format;
    return std::nullopt;
}

std::string PictureFormatList(const std::vector<PictureFormat>& formats) {
    std::string out;
    for (std::size_t i = 0; i < formats.size(); ++i) {
        if (i > 0) out += i + 1 == formats.size() ? " or " : ", ";
        out += NameOf(formats[i]);
    }
    return out;
}

struct PictureFile::Placed {
    std::unique_ptr<Surface> Drawn;
    RasterSurface* Pixels = nullptr; // set when Drawn is a pixel surface to copy in at the end
    int X = 0;
    int Y = 0;
};

PictureFile::PictureFile(const QString& fileName, PictureFormat format, int width, int height,
                         int scale)
    : fileName_(fileName), format_(format), width_(std::max(width, 1)),
      height_(std::max(height, 1)), scale_(std::clamp(scale, 1, MaxPictureScale)) {
    if (IsPixels(format_) && scale_ == 1) return; // drawn on RasterSurfaces, put together later
    if (IsPixels(format_)) {
        auto image =
            std::make_unique<QImage>(width_ * scale_, height_ * scale_, QImage::Format_RGB32);
        image->setDotsPerMeterX(DotsPerMetre * scale_);
        image->setDotsPerMeterY(DotsPerMetre * scale_);
        image->fill(Qt::white);
        device_ = std::move(image);
    } else if (format_ == PictureFormat::Svg) {
        auto svg = std::make_unique<QSvgGenerator>();
        svg->setFileName(fileName_);
        svg->setResolution(PixelsPerInch);
        svg->setSize(QSize(width_ * scale_, height_ * scale_));
        svg->setViewBox(QRect(0, 0, width_, height_));
        svg->setTitle(QStringLiteral("Veritrace"));
        device_ = std::move(svg);
    } else {
        auto pdf = std::make_unique<QPdfWriter>(fileName_);
        pdf->setResolution(PdfResolution);
        pdf->setCreator(QStringLiteral("Veritrace"));
        const QSizeF points(width_ * 72.0 / PixelsPerInch, height_ * 72.0 / PixelsPerInch);
        pdf->setPageLayout(QPageLayout(QPageSize(points, QPageSize::Point), QPageLayout::Portrait,
                                       QMarginsF(0, 0, 0, 0)));
        device_ = std::move(pdf);
    }
    painter_ = std::make_unique<QPainter>();
    // A file that can't be opened leaves the painter inactive; Finish says so.
    if (!painter_->begin(device_.get())) {
        painter_.reset();
        return;
    }
    // White paper under everything, as a new picture box has.
    if (format_ == PictureFormat::Svg)
        painter_->fillRect(QRect(0, 0, width_, height_), Qt::white);
    else if (format_ == PictureFormat::Pdf)
        painter_->fillRect(QRect(0, 0, device_->width(), device_->height()), Qt::white);
}

std::optional<int> PictureScaleFrom(const QString& text) {
    bool ok = false;
    const int scale = text.toInt(&ok);
    if (!ok || scale < 1 || scale > MaxPictureScale) return std::nullopt;
    return scale;
}

PictureFile::~PictureFile() {
    if (painter_ && painter_->isActive()) painter_->end();
}

Surface& PictureFile::SurfaceAt(int x, int y, int width, int height, bool smoothText) {
    Placed placed;
    placed.X = x;
    placed.Y = y;
    if (painter_ == nullptr || finished_) {
        auto raster = std::make_unique<RasterSurface>(width, height);
        raster->SmoothText = smoothText;
        placed.Pixels = raster.get();
        placed.Drawn = std::move(raster);
    } else {
        // The device's units per picture pixel: the viewBox of an SVG is the picture's pixels.
        const double unit =
            format_ == PictureFormat::Svg ? 1.0 : static_cast<double>(device_->width()) / width_;
        const double unitY =
            format_ == PictureFormat::Svg ? 1.0 : static_cast<double>(device_->height()) / height_;
        placed.Drawn = std::make_unique<PainterSurface>(
            *painter_, std::max(width, 1), std::max(height, 1),
            QRectF(x * unit, y * unitY, std::max(width, 1) * unit, std::max(height, 1) * unitY));
    }
    surfaces_.push_back(std::move(placed));
    return *surfaces_.back().Drawn;
}

bool PictureFile::Finish(std::string& error) {
    if (finished_) {
        error = "the picture was already written";
        return false;
    }
    finished_ = true;
    const std::string name = fileName_.toStdString();
    if (!IsPixels(format_) || scale_ > 1) {
        if (painter_ == nullptr) {
            error = "could not write " + name;
            return false;
        }
        painter_->end();
        if (!IsPixels(format_)) return true;
    }
    QImage sheet;
    if (IsPixels(format_) && scale_ == 1) {
        sheet = QImage(width_, height_, QImage::Format_RGB32);
        sheet.setDotsPerMeterX(DotsPerMetre);
        sheet.setDotsPerMeterY(DotsPerMetre);
        sheet.fill(Qt::white);
        QPainter painter(&sheet);
        for (const Placed& placed : surfaces_)
            if (placed.Pixels) painter.drawImage(placed.X, placed.Y, placed.Pixels->QtImage());
    } else {
        sheet = *static_cast<QImage*>(device_.get());
    }
    if (!sheet.save(fileName_, format_ == PictureFormat::Bmp ? "BMP" : "PNG")) {
        error = "could not write " + name;
        return false;
    }
    return true;
}

} // namespace vt::render
