// The file dialog of Open and Save as.
#pragma once

#include "platform/forms.h"

#include <string>

namespace OpenSaveDialog {

/// Asks for a file: the chosen path, or nothing when the player cancels. A path to save under gets the
/// extension of the filter (the four characters from its first dot on) in the place of any other.
std::string FileDialog(Form& form, std::int16_t saving, const std::string& title, const std::string& filter,
                       const std::string& fileName, const std::string& folder);

} // namespace OpenSaveDialog
