// Labels, text boxes and frames on screen.
#include "platform_qt/text_widgets.h"

#include "platform_qt/mouse_events.h"
#include "platform_qt/qt_values.h"

#include <QPainter>

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
    DeliverMouse(*this, Record.MouseUp, *event, 1);
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
    DeliverMouse(*this, Record.MouseDown, *event, 1);
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
