#include "render/PrinterPage.h"

#include <QPagedPaintDevice>
#include <QPrinter>
#include <algorithm>

#include "render/Fonts.h"

namespace vt::render {

namespace {

// The page's picture pixels, as on the screen.
constexpr double PixelsPerInch = 96;

} // namespace

PagedPrinterJob::PagedPrinterJob(QPagedPaintDevice& device) : device_(device) {
    LoadBundledFonts();
    started_ = painter_.begin(&device_);
    const double dpiX = std::max(1, device_.logicalDpiX());
    const double dpiY = std::max(1, device_.logicalDpiY());
    widthInches_ = std::max(1, device_.width()) / dpiX;
    heightInches_ = std::max(1, device_.height()) / dpiY;
    const int pixelWidth = std::max(1, static_cast<int>(widthInches_ * PixelsPerInch));
    const int pixelHeight = std::max(1, static_cast<int>(heightInches_ * PixelsPerInch));
    page_ = std::make_unique<PainterSurface>(painter_, pixelWidth, pixelHeight,
                                             QRectF(0, 0, device_.width(), device_.height()));
}

PagedPrinterJob::~PagedPrinterJob() {
    if (painter_.isActive()) painter_.end();
}

void PagedPrinterJob::EndDoc() {
    if (painter_.isActive()) painter_.end();
}

void PagedPrinterJob::KillDoc() {
    if (!painter_.isActive()) return;
    if (auto* printer = dynamic_cast<QPrinter*>(&device_)) printer->abort();
    if (painter_.isActive()) painter_.end();
}

} // namespace vt::render
