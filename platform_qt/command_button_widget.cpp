// Push buttons on screen.
#include "platform_qt/command_button_widget.h"

#include "platform_qt/event_delivery.h"
#include "platform_qt/qt_values.h"

#include <QKeyEvent>

CommandButtonWidget::CommandButtonWidget(CommandButton& record, QWidget* parent)
    : QPushButton(parent), Record(record) {
    setObjectName(QString::fromStdString(record.Name));
    setFont(QtFont(record.Font));
    connect(this, &QPushButton::clicked, this, [this] {
        if (Record.Click) DeliverCommand(*this, Record.Click);
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
