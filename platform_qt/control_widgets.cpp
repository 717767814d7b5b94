// Pictures, labels and frames on screen.
#include "platform_qt/control_widgets.h"

#include "platform_qt/key_codes.h"
#include "platform_qt/qt_desktop.h"
#include "platform_qt/qt_text.h"
#include "platform_qt/show_surface.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSvgRenderer>
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

/// The pixel under the pointer, also where a scaled display puts the pointer between two of ours.
QPoint PixelOf(const QMouseEvent& event) {
    return {static_cast<int>(std::floor(event.position().x())),
            static_cast<int>(std::floor(event.position().y()))};
}

RowRange TakeRows(Surface& image, ShownRows rows) {
    return rows == ShownRows::Due ? image.TakeDueRows() : image.TakeChangedRows();
}

/// With the rows beside them: where the scale is a fraction, the edges of a pixel go by its neighbours.
void UpdateRows(QWidget& widget, RowRange rows) {
    if (!rows.Empty()) widget.update(0, rows.First - 1, widget.width(), rows.Last - rows.First + 2);
}

/// Calls the handler with the pixel in its units.
void DeliverMouse(MouseHandler handler, const QMouseEvent& event, int unitsPerPixel) {
    // A press or release of a button that the game doesn't know is none.
    if (!handler || (event.type() != QEvent::MouseMove && ButtonCode(event.button()) == 0)) return;
    const QPoint pixel = PixelOf(event) * unitsPerPixel;
    const auto deliver = event.type() == QEvent::MouseMove ? DeliverMove : Deliver;
    deliver([&] {
        handler(ButtonCode(event.button()), ShiftState(event.modifiers()), static_cast<float>(pixel.x()),
                static_cast<float>(pixel.y()));
    });
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
    setText(QtText(Record.Caption));
    const QRect place = PlaceOf(Record);
    setGeometry(Record.AutoSize ? QRect(place.topLeft(), sizeHint()) : place);
    setVisible(Record.Visible && !(Record.AutoSize && Record.Caption.empty()));
}

void LabelWidget::mouseReleaseEvent(QMouseEvent* event) {
    DeliverMouse(Record.MouseUp, *event, 1);
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
    painter.setPen(QtColour(Highlight3D));
    painter.drawRect(line.adjusted(1, 1, 0, 0));
    painter.setPen(QtColour(Shadow3D));
    painter.drawRect(line.adjusted(0, 0, -1, -1));
    const QRect text(CaptionLeft, 0, metrics.horizontalAdvance(caption), metrics.height());
    painter.fillRect(text.adjusted(-CaptionGap, 0, CaptionGap, 0), QtColour(ButtonFace));
    painter.setPen(QtColour(WindowText));
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, caption);
}

ScrollBarWidget::ScrollBarWidget(ScrollBar& record, QWidget* parent)
    : QScrollBar(Qt::Vertical, parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setFocusPolicy(Qt::StrongFocus);
    ShowRecord();
    connect(this, &QScrollBar::valueChanged, this, [this](int value) {
        if (value == Record.Value) return;
        Record.Value = NearestInt16(value);
        if (Record.Change) Deliver(Record.Change);
    });
}

void ScrollBarWidget::ShowRecord() {
    setGeometry(PlaceOf(Record));
    setEnabled(Record.Enabled);
    setSingleStep(Record.SmallChange);
    setPageStep(Record.LargeChange);
    // The record is right, and its Change is not to be told of it.
    const QSignalBlocker quiet(this);
    setRange(0, Record.Enabled ? Record.Max : 0);
    setValue(Record.Value);
}

CommandButtonWidget::CommandButtonWidget(CommandButton& record, QWidget* parent)
    : QPushButton(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setFont(QtFont(record.Font));
    connect(this, &QPushButton::clicked, this, [this] {
        if (Record.Click) DeliverCommand(Record.Click);
    });
    ShowRecord();
}

void CommandButtonWidget::ShowRecord() {
    setGeometry(PlaceOf(Record));
    setText(QtText(Record.Caption));
}

void CommandButtonWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

TextBoxWidget::TextBoxWidget(TextBox& record, QWidget* parent) : QLabel(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setFont(QtFont(record.Font));
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setMargin(3);
    ShowRecord();
}

void TextBoxWidget::ShowRecord() {
    setGeometry(PlaceOf(Record));
    setText(QtText(Record.Text));
}

void TextBoxWidget::mousePressEvent(QMouseEvent* event) {
    DeliverMouse(Record.MouseDown, *event, 1);
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
