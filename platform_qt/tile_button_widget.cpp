// The panel's icon button on screen: raised, sunken while pressed, sunken and framed while latched.
#include "platform_qt/tile_button_widget.h"

#include "platform_qt/event_delivery.h"
#include "platform_qt/qt_values.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

constexpr int IconSize = 32;

/// Under the pointer a button is lighter, and darker while it is latched.
constexpr Colour HoverFace = Rgb(255, 255, 255);
constexpr Colour LatchedFace = Rgb(208, 208, 208);
/// The frame of a latched button tells it from the others without any colour.
constexpr Colour LatchFrame = Rgb(64, 64, 64);
constexpr int LatchFrameWidth = 2;

/// The four borders, light from the top left; the other way round when sunken.
void DrawBorders(QPainter& painter, const TileButton& button, const QRect& box, bool sunken) {
    painter.fillRect(box.left(), box.top(), box.width(), 1,
                     QtColour(sunken ? button.BorderBottom : button.BorderTop));
    painter.fillRect(box.left(), box.top(), 1, box.height(),
                     QtColour(sunken ? button.BorderRight : button.BorderLeft));
    painter.fillRect(box.left(), box.bottom(), box.width(), 1,
                     QtColour(sunken ? button.BorderTop : button.BorderBottom));
    painter.fillRect(box.right(), box.top(), 1, box.height(),
                     QtColour(sunken ? button.BorderLeft : button.BorderRight));
}

void DrawLatchFrame(QPainter& painter, const QRect& box) {
    QPen pen(QtColour(LatchFrame), LatchFrameWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(box.adjusted(1, 1, -1, -1));
}

} // namespace

TileButtonWidget::TileButtonWidget(TileButton& record, QWidget* parent)
    : QAbstractButton(parent), Record(record) {
    const QString command = QString::fromStdString(record.ToolTipText);
    setObjectName(QString("%1_%2").arg(QString::fromStdString(record.Name)).arg(record.Index));
    setToolTip(command);
    setAccessibleName(command);
    setCheckable(record.Latches);
    // The keyboard belongs to the board.
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (Record.Pressed) DeliverCommand([this] { Record.Pressed(Record.Index); });
    });
    ShowRecord();
}

void TileButtonWidget::ShowRecord() {
    setGeometry(PlaceOf(Record));
    setVisible(Record.Visible);
    setChecked(Record.Latched);
}

void TileButtonWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool sunken = isDown() || isChecked();
    const Colour face = isChecked() ? LatchedFace : underMouse() ? HoverFace : Record.PicBack;
    painter.fillRect(rect(), QtColour(face));
    if (!Icon.isValid()) Icon.load(IconFile(Record.Picture));
    // A pressed icon gives way by one pixel.
    const QPoint corner((width() - IconSize) / 2 + isDown(), (height() - IconSize) / 2 + isDown());
    Icon.render(&painter, QRectF(corner, QSizeF(IconSize, IconSize)));
    DrawBorders(painter, Record, rect(), sunken);
    if (isChecked()) DrawLatchFrame(painter, rect());
}

void TileButtonWidget::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void TileButtonWidget::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}
