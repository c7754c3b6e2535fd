#include "cli/Headless.h"

#include "commands/KeyStroke.h"
#include "entry/Entry.h"
#include "render/EquationPaper.h"
#include "render/Fonts.h"
#include "commands/Startup.h"

namespace vt::cli {

HeadlessSession::HeadlessSession() : session_(std::make_unique<Session>()) {
    host_.Messages = &dialogs_;
    session_->BindHost(&host_);
    StartSession(*session_);
}

void HeadlessSession::AttachRows() {
    rows_.clear();
    for (int i = 0; i < UsableSlots; ++i) {
        rows_.push_back(render::NewRowPaper());
        host_.Papers[static_cast<std::size_t>(i)] = rows_.back().get();
    }
}

const render::RasterSurface& HeadlessSession::Row(int slot) const {
    return *rows_.at(static_cast<std::size_t>(slot));
}

render::RasterSurface& HeadlessSession::AttachGraphBox(int pixelWidth, int pixelHeight) {
    render::LoadBundledFonts();
    graphBox_ = std::make_unique<render::RasterSurface>(pixelWidth, pixelHeight);
    host_.Graph = graphBox_.get();
    return *graphBox_;
}

void HeadlessSession::LendGraphBox(Surface& box) {
    render::LoadBundledFonts();
    host_.Graph = &box;
}

void HeadlessSession::LendRow(int slot, Surface& row) {
    host_.Papers[static_cast<std::size_t>(slot)] = &row;
}

void HeadlessSession::LoadRows(const std::vector<std::string>& keys) {
    ReplayRows(*session_, keys);
}

} // namespace vt::cli
