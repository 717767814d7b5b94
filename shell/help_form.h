// The help window.
#pragma once

#include "platform/forms.h"

struct HelpWindow : Form {
    std::string Address; ///< the page, set by whoever opens the window
    CommandButton Command1, Command2, Command3;
    ::WebBrowser WebBrowser1;
};

extern HelpWindow HelpForm;

/// Sets the window back to its design.
void DesignHelpForm();

/// The panel's menu item.
void Helpx_Click();
