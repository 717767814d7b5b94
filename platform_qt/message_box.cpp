// Boxes with a message or a question.
#include "platform/desktop.h"
#include "platform_qt/event_delivery.h"
#include "platform_qt/form_window.h"
#include "platform_qt/qt_values.h"
#include "platform_qt/window_icon.h"
#include "platform_qt/window_places.h"

#include <QApplication>
#include <QMessageBox>

namespace {

QMessageBox::StandardButtons QtButtons(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon QtIcon(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Warning:
        return QMessageBox::Warning;
    default:
        return QMessageBox::NoIcon;
    }
}

BoxAnswer AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    default:
        return BoxAnswer::Ok;
    }
}

/// What a box must leave in view: the pictures of all windows, and the windows that are pictures themselves.
QList<QRect> Figures() {
    QList<QRect> figures;
    for (const auto& window : AllWindows())
        if (window->isVisible()) figures += window->Figures();
    return figures;
}

/// A box beside the figures that it asks about. Its size is known when it is shown, and not before.
class BesideFigures : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    void showEvent(QShowEvent* event) override {
        QMessageBox::showEvent(event);
        if (const QWidget* owner = parentWidget())
            SetFrameCorner(*this, PlaceBeside(size() + FrameRoom, owner->frameGeometry(), Figures(),
                                              owner->screen()->availableGeometry()));
    }
};

} // namespace

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title,
                 BoxDefault preset) {
    PrepareForModal();
    BesideFigures box(AskingWindow());
    box.setWindowIcon(WindowIcon());
    box.setWindowTitle(title.empty() ? QApplication::applicationName() : QtText(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QtText(text));
    box.setIcon(QtIcon(icon));
    box.setStandardButtons(QtButtons(buttons));
    if (preset == BoxDefault::Second)
        box.setDefaultButton(buttons == BoxButtons::YesNo ? QMessageBox::No : QMessageBox::Cancel);
    if (buttons == BoxButtons::YesNo) box.setEscapeButton(QMessageBox::No);
    return AnswerOf(box.exec());
}
