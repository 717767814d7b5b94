// The roles of the game's own widgets.
#include "platform_qt/accessible_widgets.h"

#include "platform_qt/form_window.h"
#include "platform_qt/surface_widgets.h"
#include "platform_qt/text_widgets.h"

#include <QAccessibleWidget>

QAccessibleInterface* RoleOfWidget(const QString&, QObject* object) {
    const auto roleOf = [&](QAccessible::Role role) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), role);
    };
    if (dynamic_cast<FormWindow*>(object)) return roleOf(QAccessible::Window);
    if (dynamic_cast<PictureWidget*>(object)) return roleOf(QAccessible::Graphic);
    if (dynamic_cast<FrameWidget*>(object)) return roleOf(QAccessible::Grouping);
    return nullptr;
}
