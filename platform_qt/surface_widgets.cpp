// Pictures and client areas on screen.
#include "platform_qt/surface_widgets.h"

#include "platform_qt/event_delivery.h"
#include "platform_qt/key_codes.h"
#include "platform_qt/mouse_events.h"
#include "platform_qt/qt_values.h"
#include "platform_qt/show_surface.h"
#include "platform_qt/window_keys.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSvgRenderer>

namespace {

RowRange TakeRows(Surface& image, ShownRows rows) {
    return rows == ShownRows::Due ? image.TakeDueRows() : image.TakeChangedRows();
}

/// With the rows beside them: where the scale is a fraction, the edges of a pixel go by its neighbours.
void UpdateRows(QWidget& widget, RowRange rows) {
    if (!rows.Empty()) widget.update(0, rows.First - 1, widget.width(), rows.Last - rows.First + 2);
}

} // namespace

PictureWidget::PictureWidget(Picture& record, QWidget* parent) : QWidget(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setAccessibleName(QtText(record.SpokenName));
    if (record.KeyDown) setFocusPolicy(Qt::StrongFocus);
    ShowRecord(ShownRows::Changed);
}

void PictureWidget::ShowRecord(ShownRows rows) {
    setGeometry(PlaceOf(Record));
    setVisible(Record.Visible);
    // Each setting is an event to a screen reader, which would read the same words again.
    const QString words = Record.InWords ? QtText(Record.InWords()) : QString();
    if (words != accessibleDescription()) setAccessibleDescription(words);
    UpdateRows(*this, TakeRows(Record.Image, rows));
}

void PictureWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    ShowSurface(painter, Record.Image, event->rect());
    if (Record.Icon.empty()) return;
    const int size = std::min(width(), height());
    QSvgRenderer icon(IconFile(Record.Icon));
    const QPoint corner((width() - size) / 2, (height() - size) / 2);
    icon.render(&painter, QRectF(corner, QSizeF(size, size)));
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    if (ButtonCode(event->button()) == 0) return;
    Pressed = true;
    LastPixel = PixelOf(*this, *event);
    if (Record.Enabled) DeliverMouse(*this, Record.MouseDown, *event, 1);
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    // No button is down: the release went to another window.
    if (Pressed && event->buttons() == Qt::NoButton) LoseMouse();
    // On a scaled display the pointer can move within one of our pixels: no move to the game.
    if (PixelOf(*this, *event) == LastPixel) return;
    LastPixel = PixelOf(*this, *event);
    if (Record.Enabled) DeliverMouse(*this, Record.MouseMove, *event, 1);
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (ButtonCode(event->button()) == 0) return;
    if (event->buttons() == Qt::NoButton) Pressed = false;
    if (Record.Enabled) DeliverMouse(*this, Record.MouseUp, *event, 1);
}

void PictureWidget::LoseMouse() {
    if (!Pressed) return;
    Pressed = false;
    if (Record.MouseLost) Deliver(*this, Record.MouseLost);
}

void PictureWidget::keyPressEvent(QKeyEvent* event) {
    // The game hears of these keys, but they are the window's.
    event->setAccepted(!IsWindowKey(event->key()));
    if (!Record.KeyDown || !Record.Enabled) return;
    std::int16_t keyCode = VirtualKeyCode(*event);
    Deliver(*this, [&] { Record.KeyDown(keyCode, ShiftState(event->modifiers())); });
}

ClientWidget::ClientWidget(Form& record, QWidget* parent) : QWidget(parent), Record(record) {
    setMouseTracking(true);
    setFont(QtFont(record.Font));
}

void ClientWidget::ShowRecord(ShownRows rows) {
    if (!Record.ShowsImage) return;
    UpdateRows(*this, TakeRows(Record.Image, rows));
}

void ClientWidget::paintEvent(QPaintEvent* event) {
    if (!Record.ShowsImage) return;
    QPainter painter(this);
    ShowSurface(painter, Record.Image, event->rect());
}

void ClientWidget::mouseMoveEvent(QMouseEvent* event) {
    DeliverMouse(*this, Record.MouseMove, *event, TwipsPerPixelX());
}

void ClientWidget::mouseReleaseEvent(QMouseEvent* event) {
    DeliverMouse(*this, Record.MouseUp, *event, TwipsPerPixelX());
}
