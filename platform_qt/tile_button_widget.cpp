// The panel's icon button on screen: raised, sunken while pressed, sunken and framed while latched.
#include "platform_qt/tile_button_widget.h"

#include "platform_qt/event_delivery.h"
#include "platform_qt/qt_values.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSvgRenderer>

namespace {

constexpr int IconSize = 32;

/// Under the pointer a button is lighter, and darker while it is latched.
constexpr Colour HoverFace = Rgb(224, 224, 224);
constexpr Colour LatchedFace = Rgb(160, 160, 160);
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

/// Dotted in black and white, so that it is seen on every face and icon.
void DrawFocusMark(QPainter& painter, const QRect& box) {
    const QRect mark = box.adjusted(3, 3, -4, -4);
    painter.setPen(Qt::white);
    painter.drawRect(mark);
    painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
    painter.drawRect(mark);
}

} // namespace

TileButtonWidget::TileButtonWidget(TileButton& record, QWidget* parent)
    : QAbstractButton(parent), Record(record) {
    const QString command = QString::fromStdString(record.ToolTipText);
    setObjectName(QString("%1_%2").arg(QString::fromStdString(record.Name)).arg(record.Index));
    setToolTip(command);
    setAccessibleName(command);
    setCheckable(record.Latches);
    setAccessibleDescription(QString::fromStdString(record.Description));
    // A click leaves the keyboard where it is.
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (Record.Pressed) DeliverCommand(*this, [this] { Record.Pressed(Record.Index); });
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
    if (hasFocus()) DrawFocusMark(painter, rect());
}

void TileButtonWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void TileButtonWidget::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void TileButtonWidget::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}
