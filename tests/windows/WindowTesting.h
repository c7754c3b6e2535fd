#pragma once
// What the window tests share: a started main window, keys and mouse events sent to widgets,
// pixels counted by colour, and turns taken on the modal dialogs a command waits on.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <memory>

#include "render/RasterSurface.h"
#include "support/QtApp.h"
#include "support/ScriptedPlatform.h"
#include "windows/SurfaceView.h"
#include "windows/frmGraphMain.h"

namespace vt::test {

using Texts = std::vector<std::string>;

inline void Press(QWidget* target, int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &press);
}

inline void Mouse(QWidget* target, QEvent::Type type, QPointF at, Qt::MouseButton button,
                  Qt::MouseButtons held) {
    QMouseEvent event(type, at, at, button, held, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

// How many pixels of the image, within `part`, have exactly this colour.
inline int CountColour(const QImage& image, Colour colour, QRect part = {0, 0, 9999, 9999}) {
    part &= image.rect();
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            count += (image.pixel(x, y) | 0xFF000000u) == render::QRgbFromColour(colour);
    return count;
}

// The visible top-level window of this kind, if one is up.
template <class W> W* Shown() {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* found = dynamic_cast<W*>(top); found && found->isVisible()) return found;
    return nullptr;
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
    QObject guard; // its timer goes with the test
    QTimer::singleShot(20000, &guard, [&] {
        if (turn == turns.size()) return;
        ADD_FAILURE() << "the dialog stayed open at turn " << turn;
        turn = turns.size();
        if (QWidget* up = QApplication::activeModalWidget()) up->close();
    });
    open();
    EXPECT_EQ(turn, turns.size());
}

// A started main window without the splash; its program folder is a temporary one unless the
// options name one.
template <class P = ScriptedPlatform> struct StartedWindow {
    std::unique_ptr<Session> s = std::make_unique<Session>();
    P platform;
    QTemporaryDir programDir;
    std::unique_ptr<frmGraphMain> window;

    explicit StartedWindow(MainWindowOptions options = {}) {
        QtApp();
        options.ShowSplash = false;
        if (options.ProgramDir.empty()) options.ProgramDir = programDir.path().toStdString();
        window = std::make_unique<frmGraphMain>(*s, platform, options);
        window->Form_Load();
        window->activateWindow();
        for (int i = 0; i < 50 && !window->isActiveWindow(); ++i)
            QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    // Characters into a row as the keyboard delivers them.
    void Type(int row, const std::string& keys) {
        for (char c : keys)
            Press(window->Paper(row), 0, QString(QChar::fromLatin1(c)));
    }
    // Types the function into row 0 and graphs it.
    void GraphRow0(const std::string& keys) {
        Type(0, keys);
        window->MenuClick("mnuGraphIt");
        QApplication::processEvents();
    }
    std::string Path(const char* name) const { return programDir.filePath(name).toStdString(); }
    QImage Graph() const { return window->frmGraph()->ShownSurface()->QtImage(); }
    // How many pixels of the colour the screen shows in a part of the graph box: what the window
    // last put there, not what the widget would paint if asked now. It must be no older picture.
    int OnScreenCount(Colour colour, QRect part) const {
        app::SurfaceView* box = window->frmGraph();
        const QPoint at = box->mapTo(window.get(), QPoint(0, 0));
        const QImage screen =
            box->screen()
                ->grabWindow(window->winId(), at.x(), at.y(), box->width(), box->height())
                .toImage()
                .convertToFormat(QImage::Format_RGB32);
        EXPECT_TRUE(screen == Graph().convertToFormat(QImage::Format_RGB32))
            << "the screen lags the paint";
        return CountColour(screen, colour, part);
    }
    Colour Pixel(app::SurfaceView* view, int x = 1, int y = 1) const {
        return render::ColourFromQRgb(view->ShownSurface()->QtImage().pixel(x, y));
    }
};

} // namespace vt::test
