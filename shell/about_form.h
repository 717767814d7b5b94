// The box with the program's credit and version.
#pragma once

#include "platform/forms.h"

struct AboutWindow : Form {
    TextBox AboutText;
    ::Picture Picture1; ///< the program's icon
    CommandButton AboutOk;
    Label Label1; ///< the version
};

extern AboutWindow AboutForm;

/// Sets the window back to its design.
void DesignAboutForm();

/// The panel's menu item.
void Aboutx_Click();
