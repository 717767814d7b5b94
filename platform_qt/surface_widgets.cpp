// Pictures and client areas on screen.
#include "platform_qt/surface_widgets.h"

#include "platform_qt/event_delivery.h"
#include "platform_qt/key_codes.h"
#include "platform_qt/mouse_events.h"
#include "platform_qt/qt_values.h"
#include "platform_qt/show_surface.h"

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
    if (Record.InWords) setAccessibleDescription(QtText(Record.InWords()));
    UpdateRows(*this, WithoutSame(TakeRows(Record.Image, rows)));
}

/// Leaves out the rows at either end that look as they did: most of what a drag draws anew stays the same.
RowRange PictureWidget::WithoutSame(RowRange rows) const {
    if (!Pressed) return rows;
    const auto same = [&](int y) {
        return std::equal(Shown.Row(y), Shown.Row(y) + Shown.Width(), Record.Image.Row(y));
    };
    while (!rows.Empty() && same(rows.First)) ++rows.First;
    while (!rows.Empty() && same(rows.Last - 1)) --rows.Last;
    return rows;
}

void PictureWidget::paintEvent(QPaintEvent* event) {
    const QRect part = event->rect();
    if (Pressed)
        BitBlt(Shown, part.x(), part.y(), part.width(), part.height(), Record.Image, part.x(), part.y());
    QPainter painter(this);
    ShowSurface(painter, Record.Image, part);
    if (Record.Icon.empty()) return;
    const int size = std::min(width(), height());
    QSvgRenderer icon(IconFile(Record.Icon));
    const QPoint corner((width() - size) / 2, (height() - size) / 2);
    icon.render(&painter, QRectF(corner, QSizeF(size, size)));
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    if (ButtonCode(event->button()) == 0) return;
    if (!Pressed) {
        ShowRecord(ShownRows::Changed);
        Shown = Record.Image;
    }
    Pressed = true;
    LastPixel = PixelOf(*event);
    if (Record.Enabled) DeliverMouse(Record.MouseDown, *event, 1);
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    // No button is down although we saw no release: it went to somebody else.
    if (Pressed && event->buttons() == Qt::NoButton) LoseMouse();
    // On a scaled display the pointer can move within one of our pixels: no move to the game.
    if (PixelOf(*event) == LastPixel) return;
    LastPixel = PixelOf(*event);
    if (Record.Enabled) DeliverMouse(Record.MouseMove, *event, 1);
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (ButtonCode(event->button()) == 0) return;
    if (event->buttons() == Qt::NoButton) EndPress();
    if (Record.Enabled) DeliverMouse(Record.MouseUp, *event, 1);
}

void PictureWidget::EndPress() {
    Pressed = false;
    Shown = Surface();
}

void PictureWidget::LoseMouse() {
    if (!Pressed) return;
    EndPress();
    if (Record.MouseLost) Deliver(Record.MouseLost);
}

void PictureWidget::keyPressEvent(QKeyEvent* event) {
    if (!Record.KeyDown || !Record.Enabled) return;
    std::int16_t keyCode = VirtualKeyCode(*event);
    Deliver([&] { Record.KeyDown(keyCode, ShiftState(event->modifiers())); });
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
    DeliverMouse(Record.MouseMove, *event, TwipsPerPixelX());
}

void ClientWidget::mouseReleaseEvent(QMouseEvent* event) {
    DeliverMouse(Record.MouseUp, *event, TwipsPerPixelX());
}
