// Scroll bars on screen.
#include "platform_qt/scroll_bar_widget.h"

#include "platform_qt/event_delivery.h"
#include "platform_qt/qt_values.h"

ScrollBarWidget::ScrollBarWidget(ScrollBar& record, QWidget* parent)
    : QScrollBar(Qt::Vertical, parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setAccessibleName("Page");
    setFocusPolicy(Qt::StrongFocus);
    ShowRecord();
    connect(this, &QScrollBar::valueChanged, this, [this](int value) {
        if (value == Record.Value) return;
        Record.Value = NearestInt16(value);
        if (Record.Change) Deliver(*this, Record.Change);
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
