#include "cli/Headless.h"

#include "commands/KeyStroke.h"
#include "commands/SaveLoad.h"
#include "commands/Startup.h"
#include "entry/Entry.h"
#include "render/EquationPaper.h"
#include "render/Fonts.h"

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

std::optional<std::vector<std::string>>
HeadlessSession::LoadFunctions(const std::vector<std::string>& keys, const std::string& file,
                               Output& out) {
    if (file.empty()) {
        LoadRows(keys);
        return keys;
    }
    const std::size_t before = Messages().size();
    LoadCommandFile(*session_, file);
    if (Messages().size() > before) {
        out.Error(Messages().back());
        return std::nullopt;
    }
    std::vector<std::string> rows;
    for (int slot = 0; slot < UsableSlots; ++slot)
        rows.push_back(EntryText(*session_, slot));
    // Empty rows at the end are no functions, as if no -k had been given for them.
    while (!rows.empty() && rows.back().empty())
        rows.pop_back();
    return rows;
}

} // namespace vt::cli
