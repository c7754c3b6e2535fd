#include "render/Fonts.h"

namespace vt::render {

void LoadBundledFonts() {}

QFont FontFor(const std::string& name, float points, bool bold, bool italic) {
    QFont font(QString::fromStdString(name));
    font.setPixelSize(static_cast<int>(points * 96.0f / 72.0f + 0.5f));
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

} // namespace vt::render
