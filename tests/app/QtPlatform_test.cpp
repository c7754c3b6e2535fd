#include <gtest/gtest.h>

#include <QString>

#include "app/QtPlatform.h"
#include "support/QtApp.h"
#include "windows/SurfaceView.h"

namespace vt::app {

TEST(QtPlatform, FilterPairsBecomeQtFilters) {
    // A caption without its pattern counts for nothing.
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"Veritrace files (.vtx)|*.vtx", "Veritrace files (.vtx) (*.vtx)"},
        {"Pictures|*.bmp;*.dib|All Files (*.*)|*.*", "Pictures (*.bmp *.dib);;All Files (*.*)"},
        {"Bitmap (*.bmp)|*.bmp", "Bitmap (*.bmp)"}, {"", ""}, {"Lonely", ""}};
    // clang-format on
    for (const auto& [pairs, qt] : cases)
        EXPECT_EQ(QtFilterFromPairs(pairs), QString::fromUtf8(qt)) << pairs;
}

TEST(SurfaceView, KeysBecomeTheProgramsKeyCodes) {
    // {Qt key, its text, KeyCode, KeyAscii}
    // clang-format off
    const std::tuple<int, const char*, int, int> cases[] = {
        {Qt::Key_PageUp, "", 33, 0}, {Qt::Key_Down, "", 40, 0}, {Qt::Key_F1, "", 112, 0},
        {Qt::Key_Backspace, "\b", 8, 8}, {Qt::Key_Return, "\r", 13, 13}, {Qt::Key_Enter, "\r", 13, 13},
        {Qt::Key_X, "x", 88, 'x'}, {Qt::Key_AsciiCircum, "^", 0, '^'}, {Qt::Key_Bar, "|", 0, '|'},
        {Qt::Key_7, "7", 55, '7'}};
    // clang-format on
    for (const auto& [qtKey, text, keyCode, keyAscii] : cases) {
        EXPECT_EQ(ClassicKeyCode(qtKey), keyCode) << qtKey;
        EXPECT_EQ(KeyAsciiOf(qtKey, QString::fromLatin1(text)), keyAscii) << qtKey;
    }
    EXPECT_EQ(ClassicShift(Qt::ShiftModifier | Qt::AltModifier), 5);
    EXPECT_EQ(ClassicButton(Qt::RightButton), 2);
}

} // namespace vt::app
