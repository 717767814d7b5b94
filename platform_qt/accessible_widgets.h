// What assistive programs are told of the widgets for which Qt has no kind.
#pragma once

#include <QAccessible>

/// A factory for QAccessible.
QAccessibleInterface* RoleOfWidget(const QString& className, QObject* object);
