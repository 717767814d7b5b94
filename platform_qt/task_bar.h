// Windows that have no entry in the task bar.
#pragma once

class QWidget;

/// Takes the hidden window off the task bar, for its next time on the screen. Qt itself offers this only for
/// windows with an owner. Window systems other than X do not offer it.
void LeaveTaskBar(QWidget& window);
