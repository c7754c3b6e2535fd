#pragma once
// Widgets of the main window that stand for the program's picture boxes and labels: a view that
// shows a surface's image one to one and hands mouse and keys on in the program's terms
// (buttons 1 left, 2 right, 4 middle; shift 1, ctrl 2, alt 4; the classic key codes; positions
// in the surface's user units), a colour swatch, and a label that can be clicked.

#include <QLabel>
#include <QWidget>
#include <functional>

#include "base/Surface.h"

namespace vt::render {
class RasterSurface;
}

namespace vt::app {

// The classic key code of a Qt key: letters and digits as they are, the navigation keys 33..40,
// F1..F12 as 112..123, and a few more; 0 for keys without one.
int ClassicKeyCode(int qtKey);
// The classic shift state of Qt's modifiers.
int ClassicShift(Qt::KeyboardModifiers modifiers);
// The classic mouse button of a Qt button.
int ClassicButton(Qt::MouseButton button);
// The character code a key press gives a row: Backspace 8, Enter 13, a character of the
// Latin-1 range its code; 0 for none.
int KeyAsciiOf(int qtKey, const QString& text);

class SurfaceView : public QWidget {
  public:
    explicit SurfaceView(QWidget* parent = nullptr);

    // The surface whose image is shown; the widget takes its size.
    void SetSurface(render::RasterSurface* surface);
    render::RasterSurface* ShownSurface() const { return surface_; }

    // A surface point of a widget pixel, through the surface's scale.
    void UserPoint(double px, double py, float& x, float& y) const;

    std::function<void(int button, int shift, float x, float y)> MouseDown;
    std::function<void(int button, int shift, float x, float y)> MouseMove;
    std::function<void(int button, int shift, float x, float y)> MouseUp;
    // Every key, by its classic code.
    std::function<void(int keyCode, int shift)> KeyDown;
    // Keys that give a character.
    std::function<void(int keyAscii)> KeyPress;
    std::function<void()> GotFocus;
    std::function<void()> LostFocus;

    // Drops every handler and the surface, for a window on its way out.
    void Disconnect();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void Mouse(QMouseEvent* event, const std::function<void(int, int, float, float)>& handler,
               int button);

    render::RasterSurface* surface_ = nullptr;
};

// A picture box that only shows its background colour.
class ColourSwatch : public QWidget {
  public:
    explicit ColourSwatch(QWidget* parent = nullptr);
    void SetColour(Colour colour);
    Colour ShownColour() const { return colour_; }
    std::function<void()> Clicked;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    Colour colour_ = 0xFFFFFF;
};

class ClickLabel : public QLabel {
  public:
    using QLabel::QLabel;
    std::function<void(QPoint globalPos)> Clicked;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

} // namespace vt::app
