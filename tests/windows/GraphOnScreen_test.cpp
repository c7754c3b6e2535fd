// What the main window's graph box shows on the screen while a modal dialog is open over it, and
// the Bracket Negative x item of the Graph Options menu.

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSlider>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <memory>
#include <vector>

#include "render/RasterSurface.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"
#include "windows/SurfaceView.h"
#include "windows/frmFillRange.h"
#include "windows/frmGraphMain.h"
#include "windows/frmLineWidth.h"

namespace vt {
namespace {

// The shading's default colour and the first row's curve colour.
constexpr Colour ShadeGrey = 14737632;
constexpr Colour CurveRed = 255;

// A started window without the splash, with x^2 typed into row 0 and graphed.
struct ParabolaWindow {
    Session s;
    test::ScriptedPlatform platform;
    QTemporaryDir programDir;
    std::unique_ptr<frmGraphMain> window;

    ParabolaWindow() {
        test::QtApp();
        MainWindowOptions options;
        options.ShowSplash = false;
        options.ProgramDir = programDir.path().toStdString();
        window = std::make_unique<frmGraphMain>(s, platform, options);
        window->Form_Load();
        for (char c : std::string("x^2")) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar::fromLatin1(c)));
            QApplication::sendEvent(window->Paper(0), &press);
        }
        window->MenuClick("mnuGraphIt");
        QApplication::processEvents();
    }

    // The graph box as the screen shows it: what the window last put there, not what the
    // widget would paint if asked now.
    QImage OnScreen() const {
        app::SurfaceView* box = window->frmGraph();
        const QPoint at = box->mapTo(window.get(), QPoint(0, 0));
        return box->screen()
            ->grabWindow(window->winId(), at.x(), at.y(), box->width(), box->height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    QImage Painted() const {
        return window->frmGraph()->ShownSurface()->QtImage().convertToFormat(QImage::Format_RGB32);
    }
};

int CountColour(const QImage& image, Colour colour, QRect part) {
    part &= image.rect();
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            count += (image.pixel(x, y) | 0xFF000000u) == render::QRgbFromColour(colour);
    return count;
}

// Runs each turn on the modal dialog that is up when the turn comes, while `open` runs the
// command that shows the dialogs. A dialog left open is closed after a while, failing the test.
template <class Dialog>
void WhileModal(const std::vector<std::function<void(Dialog&)>>& turns,
                const std::function<void()>& open) {
    std::size_t turn = 0;
    std::function<void()> next = [&] {
        auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog && dialog->isVisible() && turn < turns.size()) turns[turn++](*dialog);
        if (turn < turns.size()) QTimer::singleShot(10, next);
    };
    QTimer::singleShot(10, next);
    QObject guard;
    QTimer::singleShot(20000, &guard, [&] {
        if (turn == turns.size()) return;
        ADD_FAILURE() << "the dialog stayed open at turn " << turn;
        turn = turns.size();
        if (QWidget* up = QApplication::activeModalWidget()) up->close();
    });
    open();
    EXPECT_EQ(turn, turns.size());
}

TEST(GraphOnScreen, ShadeAreaShowsTheBandWhileTheDialogIsBack) {
    ParabolaWindow w;
    ASSERT_TRUE(w.OnScreen() == w.Painted());
    WhileModal<frmFillRange>(
        {[&](frmFillRange& d) {
             d.Text1()->setText("0");
             d.Text2()->setText("2");
             d.Command1()->click(); // Shade Area
         },
         [&](frmFillRange& d) {
             // Reopened: the band under x^2 from 0 to 2 (columns 200..220) is on the screen.
             const QImage screen = w.OnScreen();
             EXPECT_GT(CountColour(screen, ShadeGrey, QRect(200, 0, 21, 400)), 20);
             EXPECT_TRUE(screen == w.Painted()) << "the screen lags the paint";
             d.Command5()->click(); // Zoom In
         },
         [&](frmFillRange& d) {
             // Zoomed in with the band still on: the band is now columns 200..240.
             EXPECT_EQ(w.s.ViewXMax, 10);
             const QImage screen = w.OnScreen();
             EXPECT_GT(CountColour(screen, ShadeGrey, QRect(221, 0, 20, 400)), 20);
             EXPECT_TRUE(screen == w.Painted()) << "the screen lags the paint";
             d.Command2()->click(); // Close: the shading goes
         }},
        [&] { w.window->MenuClick("mnuShade"); });
    EXPECT_FALSE(w.s.ShadeOn);
    EXPECT_EQ(CountColour(w.OnScreen(), ShadeGrey, QRect(0, 0, 400, 400)), 0);
}

TEST(GraphOnScreen, LineWidthApplyThickensTheCurveWhileTheDialogStaysOpen) {
    ParabolaWindow w;
    // A row of the box crossed by the curve near x = 1.4 (y = 2): its red pixels grow.
    const QRect row(0, 180, 400, 1);
    const int before = CountColour(w.OnScreen(), CurveRed, row);
    ASSERT_GT(before, 0);
    WhileModal<frmLineWidth>({[&](frmLineWidth& d) {
                                 d.Slider1()->setValue(10);
                                 d.Command3()->click(); // Apply
                                 const QImage screen = w.OnScreen();
                                 EXPECT_GT(CountColour(screen, CurveRed, row), before);
                                 EXPECT_TRUE(screen == w.Painted()) << "the screen lags the paint";
                                 d.Command1()->click();
                             }},
                             [&] { w.window->MenuClick("mnuLineW"); });
}

TEST(GraphOnScreen, BracketNegativeXIsTheLastCheckableOptionAndRedraws) {
    ParabolaWindow w;
    QAction* item = w.window->MenuItem("mnuBracketNegativeX");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(w.window->MenuOf("mnuGraphOptions")->actions().back(), item);
    EXPECT_EQ(item->text(), QStringLiteral("Bracket Negative x"));
    EXPECT_TRUE(item->isCheckable());
    // Left of the y axis, bare x^2 runs below the x axis; bracketed, above it.
    const QRect upperLeft(0, 0, 195, 195), lowerLeft(0, 205, 195, 195);
    // {checked after the click, curve above on the left, curve below on the left}
    const std::tuple<bool, bool, bool> states[] = {
        {false, false, true}, {true, true, false}, {false, false, true}};
    for (std::size_t i = 0; i < std::size(states); ++i) {
        const auto [checked, above, below] = states[i];
        SCOPED_TRACE(i);
        if (i > 0) item->trigger();
        EXPECT_EQ(item->isChecked(), checked);
        EXPECT_EQ(w.s.BracketNegativeX, checked);
        const QImage screen = w.OnScreen();
        EXPECT_EQ(CountColour(screen, CurveRed, upperLeft) > 50, above);
        EXPECT_EQ(CountColour(screen, CurveRed, lowerLeft) > 50, below);
    }
}

} // namespace
} // namespace vt
