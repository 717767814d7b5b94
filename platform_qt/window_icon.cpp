// Draws the icon.
#include "platform_qt/window_icon.h"

#include "platform_qt/qt_values.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

/// Drawn here, as a QIcon of a file would load every picture format there is.
QIcon DrawnIcon() {
    QSvgRenderer drawing(IconFile("quillets"));
    QIcon icon;
    for (const int size : {16, 32, 64}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace

const QIcon& WindowIcon() {
    static const QIcon icon = DrawnIcon();
    return icon;
}
