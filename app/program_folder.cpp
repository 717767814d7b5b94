// Finds the program's folder. Every failure leads on to the folder of the executable, where the start-up will
// say what is missing.
#include "app/program_folder.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

fs::path ExecutableFolder() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path(error) : executable.parent_path();
}

fs::path PlayersFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    // A relative folder means nothing here, and is to be passed over.
    if (data && fs::path(data).is_absolute()) return fs::path(data) / "quillets";
    const char* home = std::getenv("HOME");
    std::error_code error;
    return fs::absolute(home && *home ? home : ".", error) / ".local/share/quillets";
}

bool CanWrite(const fs::path& folder) {
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

bool IsData(const fs::path& file) {
    const fs::path ending = file.extension();
    return ending == ".qui" || ending == ".cfg" || ending == ".wav" || ending == ".htm" || ending == ".png";
}

/// Copies the shipped files that are missing in the player's folder, with the folders that they stand in.
void CopyMissing(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to, error);
    fs::recursive_directory_iterator entry(from, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        if (!IsData(entry->path())) continue;
        const fs::path target = to / entry->path().lexically_relative(from);
        std::error_code failed;
        fs::create_directories(target.parent_path(), failed);
        if (fs::copy_file(entry->path(), target, fs::copy_options::skip_existing, failed))
            fs::permissions(target, fs::perms::owner_write, fs::perm_options::add, failed);
    }
}

} // namespace

std::string ProgramFolder() {
    const fs::path shipped = ExecutableFolder();
    fs::path folder = shipped;
    if (!CanWrite(shipped)) {
        CopyMissing(shipped, PlayersFolder());
        if (CanWrite(PlayersFolder())) folder = PlayersFolder();
    }
    std::error_code error;
    fs::current_path(folder, error);
    return folder.string();
}
