#include "windows/LogoPicture.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <functional>

#include "render/Fonts.h"

namespace vt::windows {

namespace {

// The graph box of the picture and the piece of the plane it shows.
constexpr QRectF Box{24, 24, 192, 192};
constexpr double Span = 5; // -5..5 on both axes

QPointF ToBox(double x, double y) {
    return {Box.left() + (x + Span) / (2 * Span) * Box.width(),
            Box.top() + (Span - y) / (2 * Span) * Box.height()};
}

QPainterPath Curve(const std::function<double(double)>& f) {
    QPainterPath path;
    bool started = false;
    for (double x = -Span; x <= Span + 1e-9; x += 0.05) {
        const double y = f(x);
        if (std::abs(y) > Span + 1) {
            started = false;
            continue;
        }
        if (started)
            path.lineTo(ToBox(x, y));
        else
            path.moveTo(ToBox(x, y));
        started = true;
    }
    return path;
}

void DrawGraph(QPainter& painter) {
    painter.fillRect(Box, Qt::white);
    // The program's default grid colour, light blue.
    painter.setPen(QPen(QColor(0x84, 0xD6, 0xFF), 1));
    for (int i = -5; i <= 5; ++i) {
        painter.drawLine(ToBox(i, -Span), ToBox(i, Span));
        painter.drawLine(ToBox(-Span, i), ToBox(Span, i));
    }
    const auto parabola = [](double x) { return 0.25 * x * x - 2; };
    // The band under the parabola from 1 to 3, in the default shade.
    QPainterPath band;
    band.moveTo(ToBox(1, 0));
    for (double x = 1; x <= 3 + 1e-9; x += 0.05)
        band.lineTo(ToBox(x, parabola(x)));
    band.lineTo(ToBox(3, 0));
    band.closeSubpath();
    painter.fillPath(band, QColor(0xE0, 0xE0, 0xE0));
    painter.setPen(QPen(Qt::black, 2));
    painter.drawLine(ToBox(-Span, 0), ToBox(Span, 0));
    painter.drawLine(ToBox(0, -Span), ToBox(0, Span));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::red, 2.5));
    painter.drawPath(Curve(parabola));
    painter.setPen(QPen(Qt::blue, 2.5));
    painter.drawPath(Curve([](double x) { return 2 * std::sin(x); }));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(QColor(0x2C, 0x3E, 0x50), 1));
    painter.drawRect(Box);
}

} // namespace

QPixmap LogoPicture(QSize size) {
    render::LoadBundledFonts();
    QPixmap pixmap(size);
    QPainter painter(&pixmap);
    painter.scale(double(size.width()) / LogoDesignSize.width(),
                  double(size.height()) / LogoDesignSize.height());
    const QRectF whole(QPointF(0, 0), QSizeF(LogoDesignSize));
    QLinearGradient paper(0, 0, whole.width(), whole.height());
    paper.setColorAt(0, QColor(0xFB, 0xF8, 0xF1));
    paper.setColorAt(1, QColor(0xE6, 0xDF, 0xD0));
    painter.fillRect(whole, paper);
    DrawGraph(painter);

    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(QColor(0x2C, 0x3E, 0x50));
    QFont title(QString::fromLatin1(render::SerifFamily));
    title.setPixelSize(54);
    title.setBold(true);
    painter.setFont(title);
    painter.drawText(QRectF(240, 40, 290, 70), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Veritrace"));
    QFont line(QString::fromLatin1(render::SansFamily));
    line.setPixelSize(16);
    painter.setFont(line);
    painter.setPen(QColor(0x55, 0x60, 0x6B));
    painter.drawText(QRectF(244, 112, 290, 48), Qt::AlignLeft | Qt::TextWordWrap,
                     QStringLiteral("Graphs of functions for school mathematics"));
    QFont equation(QString::fromLatin1(render::SerifFamily));
    equation.setPixelSize(18);
    equation.setItalic(true);
    painter.setFont(equation);
    painter.setPen(Qt::red);
    painter.drawText(QPointF(244, 186), QStringLiteral("f(x) = x\u00B2/4 \u2212 2"));
    painter.setPen(Qt::blue);
    painter.drawText(QPointF(244, 210), QStringLiteral("f(x) = 2 sin(x)"));
    painter.setPen(QPen(QColor(0x2C, 0x3E, 0x50), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(whole.adjusted(1, 1, -1, -1));
    return pixmap;
}

} // namespace vt::windows
