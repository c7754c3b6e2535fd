#include "render/Fonts.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <cctype>
#include <cmath>

// The resources live in a static library: their initialiser has to be referenced by name, and
// Q_INIT_RESOURCE may only be used outside any namespace.
static void InitFontResources() {
    Q_INIT_RESOURCE(fonts);
}

namespace vt::render {

namespace {

const char* const BundledFiles[] = {
    ":/fonts/OrlentisFont.ttf",       ":/fonts/VeritraceSans.ttf",  ":/fonts/VeritraceMono.ttf",
    ":/fonts/VeritraceMono-Bold.ttf", ":/fonts/VeritraceSerif.ttf",
};

std::string Lower(const std::string& text) {
    std::string out = text;
    for (char& c : out)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

} // namespace

void LoadBundledFonts() {
    static bool loaded = false;
    if (loaded || QGuiApplication::instance() == nullptr) return;
    loaded = true;
    InitFontResources();
    for (const char* file : BundledFiles)
        QFontDatabase::addApplicationFont(QString::fromLatin1(file));
}

QString FamilyFor(const std::string& name) {
    const std::string key = Lower(name);
    if (key == "orlentisfont") return QString::fromLatin1(EquationFamily);
    if (key == "ms sans serif" || key == "microsoft sans serif")
        return QString::fromLatin1(SansFamily);
    if (key == "courier" || key == "courier new") return QString::fromLatin1(MonoFamily);
    if (key == "book antiqua") return QString::fromLatin1(SerifFamily);
    return QString::fromStdString(name);
}

int PixelSizeFor(float points) {
    if (!std::isfinite(points)) return 1;
    // Half a pixel up, as the screen rounds a point size to its pixel height; clamped so that
    // an absurd size neither overflows nor asks the font engine for a giant bitmap.
    const float pixels = std::floor(points * 96.0f / 72.0f + 0.5f);
    if (pixels < 1.0f) return 1;
    if (pixels > 2000.0f) return 2000;
    return static_cast<int>(pixels);
}

QFont FontFor(const std::string& name, float points, bool bold, bool italic) {
    LoadBundledFonts();
    QFont font(FamilyFor(name));
    font.setPixelSize(PixelSizeFor(points));
    font.setBold(bold);
    font.setItalic(italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace vt::render
