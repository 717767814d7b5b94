// The roles and the actions of the game's own widgets.
#include "platform_qt/accessible_widgets.h"

#include "platform_qt/form_window.h"
#include "platform_qt/text_widgets.h"
#include "platform_qt/tile_button_widget.h"

#include <QAccessibleWidget>

namespace {

/// A button of the panel. Only the game sets its latch, so that the one action is a press.
class AccessibleTileButton : public QAccessibleWidget {
  public:
    explicit AccessibleTileButton(TileButtonWidget& button) : QAccessibleWidget(&button), Button(button) {}

    /// Asked each time, as a screen reader may ask before the button is finished. Several latches in one
    /// frame exclude each other. One alone is a check box: the toolkit knows no toggle button, and does not
    /// tell that a plain one is on.
    QAccessible::Role role() const override {
        if (!Button.isCheckable()) return QAccessible::Button;
        int latches = 0;
        for (const auto* other : Button.parentWidget()->findChildren<QAbstractButton*>())
            latches += other->isCheckable();
        return latches > 1 ? QAccessible::RadioButton : QAccessible::CheckBox;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = Button.isCheckable();
        state.checked = Button.isChecked();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != pressAction()) return QAccessibleWidget::doAction(name);
        // Later, as a press may open a box, and whoever asked would wait for its end.
        QMetaObject::invokeMethod(&Button, &QAbstractButton::click, Qt::QueuedConnection);
    }

  private:
    TileButtonWidget& Button;
};

} // namespace

QAccessibleInterface* RoleOfWidget(const QString&, QObject* object) {
    const auto roleOf = [&](QAccessible::Role role) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), role);
    };
    if (auto* button = dynamic_cast<TileButtonWidget*>(object)) return new AccessibleTileButton(*button);
    if (dynamic_cast<FormWindow*>(object)) return roleOf(QAccessible::Window);
    if (dynamic_cast<PictureWidget*>(object)) return roleOf(QAccessible::Graphic);
    if (dynamic_cast<FrameWidget*>(object)) return roleOf(QAccessible::Grouping);
    return nullptr;
}
