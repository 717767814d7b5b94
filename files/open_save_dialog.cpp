// Fills the dialog's record, and takes the path out of it.
#include "files/open_save_dialog.h"

#include "core/game_state.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <algorithm>

namespace {

constexpr std::size_t BufferLength = 254;

/// The text over the start of a buffer of blanks.
std::string Padded(const std::string& text) {
    std::string buffer(std::max(BufferLength, text.size()), ' ');
    std::copy(text.begin(), text.end(), buffer.begin());
    return buffer;
}

std::string PathIn(const std::string& buffer) {
    const std::size_t first = buffer.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    const std::string trimmed = buffer.substr(first, buffer.find_last_not_of(' ') - first + 1);
    return trimmed.substr(0, trimmed.find('\0'));
}

/// Replaces everything from the last dot on, which may stand in the name of a folder.
std::string WithExtension(const std::string& path, const std::string& filter) {
    const std::string extension = filter.substr(filter.find('.'), 4);
    return path.substr(0, path.rfind('.')) + extension;
}

} // namespace

std::string OpenSaveDialog::FileDialog(Form& form, std::int16_t saving, const std::string& title,
                                       const std::string& filter, const std::string& fileName,
                                       const std::string& folder) {
    OpenFileName record;
    record.lStructSize = 76;
    record.hwndOwner = &form;
    record.hInstance = ProgramInstance();
    record.lpstrFilter = filter;
    record.lpstrFile = Padded(fileName);
    record.nMaxFile = BufferLength + 1;
    record.lpstrFileTitle = Padded("");
    record.nMaxFileTitle = BufferLength + 1;
    record.lpstrInitialDir = folder.ends_with(PathSeparator) ? folder : folder + PathSeparator;
    record.lpstrTitle = title;
    record.Flags = saving == Game.FlagOn ? OFN_HIDEREADONLY : OFN_FILEMUSTEXIST + OFN_HIDEREADONLY;
    const std::int32_t chosen = saving == Game.FlagOn ? GetSaveFileNameA(record) : GetOpenFileNameA(record);
    if (chosen == 0) return {};
    const std::string path = PathIn(record.lpstrFile);
    return saving == Game.FlagOn ? WithExtension(path, filter) : path;
}
