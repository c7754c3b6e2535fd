#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>

#include "commands/KeyStroke.h"
#include "render/RasterSurface.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"
#include "windows/SurfaceView.h"
#include "windows/frmGraphMain.h"

namespace vt {

// Copy Graph in the File menu, beside Save Graph As Bitmap, puts the graph box as it stands on
// the clipboard.
TEST(CopyGraph, PutsTheGraphBoxOnTheClipboard) {
    test::QtApp();
    Session s;
    test::ScriptedPlatform platform;
    QTemporaryDir programDir;
    MainWindowOptions options;
    options.ShowSplash = false;
    options.ProgramDir = programDir.path().toStdString();
    frmGraphMain window(s, platform, options);
    window.Form_Load();
    for (char key : std::string("2x+1"))
        Paper_KeyPress(s, 0, key);
    window.MenuClick("mnuGraphIt");
    QApplication::clipboard()->clear();

    QAction* copy = window.MenuItem("mnuCopyGraph");
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->text(), QStringLiteral("&Copy Graph"));
    copy->trigger();
    const QImage copied = QApplication::clipboard()->image();
    const QImage shown = window.frmGraph()->ShownSurface()->QtImage();
    ASSERT_EQ(copied.size(), QSize(400, 400));
    EXPECT_EQ(copied.convertToFormat(shown.format()), shown);
    // The picture holds the curve, not just an empty grid.
    EXPECT_NE(shown.pixel(200, 200 - 10), shown.pixel(5, 5));
}

} // namespace vt
