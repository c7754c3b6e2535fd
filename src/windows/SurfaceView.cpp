#include "windows/SurfaceView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "render/RasterSurface.h"

namespace vt::app {

int ClassicKeyCode(int qtKey) {
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return qtKey; // 65..90 alike
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return qtKey; // 48..57 alike
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return 112 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    default:
        return 0;
    }
}

int ClassicShift(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers & Qt::ShiftModifier) shift |= 1;
    if (modifiers & Qt::ControlModifier) shift |= 2;
    if (modifiers & Qt::AltModifier) shift |= 4;
    return shift;
}

int ClassicButton(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

int KeyAsciiOf(int qtKey, const QString& text) {
    if (qtKey == Qt::Key_Backspace) return 8;
    if (qtKey == Qt::Key_Return || qtKey == Qt::Key_Enter) return 13;
    if (text.size() != 1) return 0;
    const char16_t c = text.at(0).unicode();
    return c >= 32 && c <= 255 ? static_cast<int>(c) : 0;
}

SurfaceView::SurfaceView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void SurfaceView::SetSurface(render::RasterSurface* surface) {
    surface_ = surface;
    if (surface_) setFixedSize(surface_->PixelWidth(), surface_->PixelHeight());
    update();
}

void SurfaceView::Disconnect() {
    MouseDown = MouseMove = MouseUp = nullptr;
    KeyDown = nullptr;
    KeyPress = nullptr;
    GotFocus = LostFocus = nullptr;
    surface_ = nullptr;
}

void SurfaceView::UserPoint(double px, double py, float& x, float& y) const {
    if (!surface_) {
        x = static_cast<float>(px);
        y = static_cast<float>(py);
        return;
    }
    x = static_cast<float>(surface_->ScaleLeft +
                           px * surface_->ScaleWidth / surface_->PixelWidth());
    y = static_cast<float>(surface_->ScaleTop +
                           py * surface_->ScaleHeight / surface_->PixelHeight());
}

void SurfaceView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (surface_)
        painter.drawImage(0, 0, surface_->QtImage());
    else
        painter.fillRect(rect(), Qt::white);
}

void SurfaceView::Mouse(QMouseEvent* event,
                        const std::function<void(int, int, float, float)>& handler, int button) {
    if (!handler) return;
    float x = 0;
    float y = 0;
    // Whole pixels, as the classic events count them.
    UserPoint(static_cast<int>(event->position().x()), static_cast<int>(event->position().y()), x,
              y);
    handler(button, ClassicShift(event->modifiers()), x, y);
}

void SurfaceView::mousePressEvent(QMouseEvent* event) {
    if (focusPolicy() & Qt::ClickFocus) setFocus(Qt::MouseFocusReason);
    Mouse(event, MouseDown, ClassicButton(event->button()));
}

void SurfaceView::mouseMoveEvent(QMouseEvent* event) {
    int buttons = 0;
    if (event->buttons() & Qt::LeftButton) buttons |= 1;
    if (event->buttons() & Qt::RightButton) buttons |= 2;
    if (event->buttons() & Qt::MiddleButton) buttons |= 4;
    Mouse(event, MouseMove, buttons);
}

void SurfaceView::mouseReleaseEvent(QMouseEvent* event) {
    Mouse(event, MouseUp, ClassicButton(event->button()));
}

void SurfaceView::keyPressEvent(QKeyEvent* event) {
    const int shift = ClassicShift(event->modifiers());
    if (KeyDown) KeyDown(ClassicKeyCode(event->key()), shift);
    // Keys held with Ctrl or Alt give no character to a row.
    const int ascii = (shift & 6) ? 0 : KeyAsciiOf(event->key(), event->text());
    if (ascii != 0 && KeyPress) KeyPress(ascii);
    event->accept();
}

void SurfaceView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (GotFocus) GotFocus();
}

void SurfaceView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    if (LostFocus) LostFocus();
}

ColourSwatch::ColourSwatch(QWidget* parent) : QWidget(parent) {}

void ColourSwatch::SetColour(Colour colour) {
    if (colour == colour_) return;
    colour_ = colour;
    update();
}

void ColourSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgb(render::QRgbFromColour(colour_)));
    // The sunken edge of a picture box.
    painter.setPen(QColor(128, 128, 128));
    painter.drawLine(0, 0, width() - 1, 0);
    painter.drawLine(0, 0, 0, height() - 1);
    painter.setPen(QColor(255, 255, 255));
    painter.drawLine(1, height() - 1, width() - 1, height() - 1);
    painter.drawLine(width() - 1, 1, width() - 1, height() - 1);
}

void ColourSwatch::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) &&
        Clicked)
        Clicked();
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && Clicked) Clicked(event->globalPosition().toPoint());
    QLabel::mouseReleaseEvent(event);
}

} // namespace vt::app
