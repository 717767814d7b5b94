// Pictures, labels and frames on screen.
#include "platform_qt/control_widgets.h"

#include "platform_qt/key_codes.h"
#include "platform_qt/qt_desktop.h"
#include "platform_qt/qt_text.h"
#include "platform_qt/show_surface.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace {

QRect PlaceOf(const Control& control) {
    return {PixelsOf(control.Left), PixelsOf(control.Top), PixelsOf(control.Width), PixelsOf(control.Height)};
}

/// 1 left, 2 right, 4 middle; 0 for buttons that the game doesn't know.
std::int16_t ButtonCode(Qt::MouseButton button) {
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

} // namespace

PictureWidget::PictureWidget(Picture& record, QWidget* parent) : QWidget(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    if (record.KeyDown) setFocusPolicy(Qt::StrongFocus);
    ShowRecord(ShownRows::Changed);
}

void PictureWidget::ShowRecord(ShownRows rows) {
    setGeometry(PlaceOf(Record));
    setVisible(Record.Visible);
    const RowRange range =
        rows == ShownRows::Due ? Record.Image.TakeDueRows() : Record.Image.TakeChangedRows();
    if (!range.Empty()) update(0, range.First, width(), range.Last - range.First);
}

void PictureWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    ShowSurface(painter, Record.Image, event->rect());
}

void PictureWidget::Mouse(MouseHandler handler, const QMouseEvent& event) {
    if (!handler || !Record.Enabled) return;
    // The pixel under the pointer, also where a scaled display puts the pointer between two of ours.
    const auto x = static_cast<float>(std::floor(event.position().x()));
    const auto y = static_cast<float>(std::floor(event.position().y()));
    Deliver([&] { handler(ButtonCode(event.button()), ShiftState(event.modifiers()), x, y); });
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    if (ButtonCode(event->button()) == 0) return;
    Pressed = true;
    Mouse(Record.MouseDown, *event);
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    // No button is down although we saw no release: it went to somebody else.
    if (Pressed && event->buttons() == Qt::NoButton) LoseMouse();
    Mouse(Record.MouseMove, *event);
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (ButtonCode(event->button()) == 0) return;
    Pressed = event->buttons() != Qt::NoButton;
    Mouse(Record.MouseUp, *event);
}

void PictureWidget::LoseMouse() {
    if (!Pressed) return;
    Pressed = false;
    if (Record.MouseLost) Deliver(Record.MouseLost);
}

void PictureWidget::keyPressEvent(QKeyEvent* event) {
    if (!Record.KeyDown || !Record.Enabled) return;
    std::int16_t keyCode = VirtualKeyCode(*event);
    Deliver([&] { Record.KeyDown(keyCode, ShiftState(event->modifiers())); });
}

LabelWidget::LabelWidget(Label& record, QWidget* parent) : QLabel(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setTextFormat(Qt::PlainText);
    setFont(QtFont(record.Font));
    setAlignment(record.Centred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignTop);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, QtColour(record.ForeColor));
    colours.setColor(QPalette::Window, QtColour(record.BackColor));
    setPalette(colours);
    setAutoFillBackground(true);
    ShowRecord();
}

void LabelWidget::ShowRecord() {
    setGeometry(PlaceOf(Record));
    setVisible(Record.Visible);
    setText(QtText(Record.Caption));
}

FrameWidget::FrameWidget(Frame& record, QWidget* parent) : QWidget(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setFont(QtFont(record.Font));
    ShowRecord();
}

void FrameWidget::ShowRecord() {
    setGeometry(PlaceOf(Record));
    setVisible(Record.Visible);
    const QString caption = QtText(Record.Caption);
    if (accessibleName() == caption) return;
    setAccessibleName(caption);
    update();
}

void FrameWidget::paintEvent(QPaintEvent*) {
    constexpr int CaptionLeft = 9, CaptionGap = 2;
    QPainter painter(this);
    const QFontMetrics metrics(font());
    const QString caption = accessibleName();
    const QRect line = rect().adjusted(0, metrics.height() / 2, -1, -1);
    painter.setPen(QtColour(Rgb(255, 255, 255)));
    painter.drawRect(line.adjusted(1, 1, 0, 0));
    painter.setPen(QtColour(Rgb(160, 160, 160)));
    painter.drawRect(line.adjusted(0, 0, -1, -1));
    const QRect text(CaptionLeft, 0, metrics.horizontalAdvance(caption), metrics.height());
    painter.fillRect(text.adjusted(-CaptionGap, 0, CaptionGap, 0), QtColour(ButtonFace));
    painter.setPen(Qt::black);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, caption);
}
