#include "windows/Icons.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace vt {

QIcon IconFor(const std::string& key) {
    QSvgRenderer svg(QStringLiteral(":/icons/%1.svg").arg(QString::fromStdString(key)));
    QIcon icon;
    if (!svg.isValid()) return icon;
    for (int size : {16, 24, 32, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        svg.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace vt
