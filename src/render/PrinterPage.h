#pragma once
// The printer of the printed page on a Qt paged device: the system's printer, its print
// preview, or a PDF file. The page is a PainterSurface whose picture pixels are the printable
// area at 96 to the inch, laid over the whole printable area of the device, so the equations
// break where they would on paper of that size and stay text in the output.

#include <QPainter>
#include <memory>

#include "output/PrintGraph.h"
#include "render/PainterSurface.h"

class QPagedPaintDevice;

namespace vt::render {

class PagedPrinterJob : public PrinterJob {
  public:
    // Starts the document on the device (kept by the caller). When the device will not start
    // (no printer, a file that cannot be written) Started is false and the page draws nowhere.
    explicit PagedPrinterJob(QPagedPaintDevice& device);
    ~PagedPrinterJob() override;
    PagedPrinterJob(const PagedPrinterJob&) = delete;
    PagedPrinterJob& operator=(const PagedPrinterJob&) = delete;

    bool Started() const { return started_; }

    Surface& Page() override { return *page_; }
    double PageWidthInches() const override { return widthInches_; }
    double PageHeightInches() const override { return heightInches_; }
    // Finishes the document: the printer gets it, or the file is written.
    void EndDoc() override;
    // Abandons a document not yet ended: the printer's job is cancelled; a file keeps what was
    // drawn. Nothing after EndDoc.
    void KillDoc() override;

  private:
    QPagedPaintDevice& device_;
    QPainter painter_;
    std::unique_ptr<PainterSurface> page_;
    double widthInches_ = 0;
    double heightInches_ = 0;
    bool started_ = false;
};

} // namespace vt::render
