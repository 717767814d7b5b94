// The panel's icon button on screen: raised, sunken while pressed, sunken and framed while latched.
#include "platform_qt/control_widgets.h"
#include "platform_qt/qt_desktop.h"
#include "platform_qt/qt_text.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

constexpr int IconSize = 32;

constexpr Colour HoverFace = Rgb(252, 252, 252);
constexpr Colour LatchedFace = Rgb(208, 208, 208);
constexpr Colour Highlight = Rgb(255, 255, 255);
constexpr Colour Shadow = Rgb(160, 160, 160);
constexpr Colour LatchFrame = Rgb(64, 64, 64);

/// One pixel of light from the top left, or of shadow when sunken.
void DrawBevel(QPainter& painter, const QRect& box, bool sunken) {
    const QColor topLeft = QtColour(sunken ? Shadow : Highlight);
    const QColor bottomRight = QtColour(sunken ? Highlight : Shadow);
    painter.fillRect(box.left(), box.top(), box.width(), 1, topLeft);
    painter.fillRect(box.left(), box.top(), 1, box.height(), topLeft);
    painter.fillRect(box.left(), box.bottom(), box.width(), 1, bottomRight);
    painter.fillRect(box.right(), box.top(), 1, box.height(), bottomRight);
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
    setGeometry(PixelsOf(Record.Left), PixelsOf(Record.Top), PixelsOf(Record.Width), PixelsOf(Record.Height));
    setVisible(Record.Visible);
    setChecked(Record.Latched);
}

void TileButtonWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool sunken = isDown() || isChecked();
    const Colour face = isChecked() ? LatchedFace : underMouse() ? HoverFace : ButtonFace;
    painter.fillRect(rect(), QtColour(face));
    const QPointF corner((width() - IconSize) / 2 + sunken, (height() - IconSize) / 2 + sunken);
    QSvgRenderer icon(QString(":/icons/%1.svg").arg(QString::fromStdString(Record.Icon)));
    painter.setRenderHint(QPainter::Antialiasing);
    icon.render(&painter, QRectF(corner, QSizeF(IconSize, IconSize)));
    painter.setRenderHint(QPainter::Antialiasing, false);
    DrawBevel(painter, rect(), sunken);
    if (!isChecked()) return;
    for (const QRect& side : {QRect(0, 0, width(), 2), QRect(0, height() - 2, width(), 2),
                              QRect(0, 0, 2, height()), QRect(width() - 2, 0, 2, height())})
        painter.fillRect(side, QtColour(LatchFrame));
}

void TileButtonWidget::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void TileButtonWidget::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}
