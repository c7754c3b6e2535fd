#include "windows/SplashPlaceholder.h"

#include <QIcon>
#include <QPainter>
#include <QTimer>

namespace vt::app {

SplashPlaceholder::SplashPlaceholder(QWidget* parent, int milliseconds) : QDialog(parent) {
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setFixedSize(542, 240);
    setModal(true);
    QTimer::singleShot(milliseconds, this, &QDialog::accept);
}

void SplashPlaceholder::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, QColor(0xFB, 0xF8, 0xF1));
    sky.setColorAt(1, QColor(0xE6, 0xDF, 0xD0));
    painter.fillRect(rect(), sky);
    painter.setPen(QPen(QColor(0x2C, 0x3E, 0x50), 2));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
    QIcon(QStringLiteral(":/icons/veritrace.svg")).paint(&painter, QRect(40, 60, 120, 120));
    QFont title = font();
    title.setPixelSize(44);
    title.setBold(true);
    painter.setFont(title);
    painter.drawText(QRect(190, 70, 330, 60), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Veritrace"));
    QFont line = font();
    line.setPixelSize(15);
    painter.setFont(line);
    painter.setPen(QColor(0x55, 0x60, 0x6B));
    painter.drawText(QRect(192, 130, 330, 24), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Graphs of functions for school mathematics"));
    painter.drawText(QRect(192, 156, 330, 24), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Orlentis"));
}

} // namespace vt::app
