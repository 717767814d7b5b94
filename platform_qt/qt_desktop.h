// The desktop of real windows. Each handler of the game runs to its end; then the windows show what changed.
#pragma once

#include "platform/forms.h"

#include <string>

/// Loads and shows the start-up form and delivers events until the game ends the process. `folder` is what
/// ApplicationFolder answers.
int RunDesktop(int argc, char** argv, Form& startForm, const std::string& folder);

/// The widget that shows the form's client area.
class QWidget* ClientAreaOf(Form& form);
