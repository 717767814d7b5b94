// The program's icon.
#pragma once

#include <QIcon>

/// Drawn at the first call.
const QIcon& WindowIcon();
