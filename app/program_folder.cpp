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
    if (data && *data) return fs::path(data) / "quillets";
    const char* home = std::getenv("HOME");
    return fs::path(home && *home ? home : ".") / ".local/share/quillets";
}

bool CanWrite(const fs::path& folder) {
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

/// A program among other programs is no data file, and neither are things in folders below.
bool IsData(const fs::directory_entry& entry) {
    std::error_code error;
    return entry.is_regular_file(error) && ::access(entry.path().c_str(), X_OK) != 0;
}

void CopyMissing(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to, error);
    for (const fs::directory_entry& entry : fs::directory_iterator(from, error)) {
        if (!IsData(entry)) continue;
        const fs::path target = to / entry.path().filename();
        fs::copy_file(entry.path(), target, fs::copy_options::skip_existing, error);
        fs::permissions(target, fs::perms::owner_write, fs::perm_options::add, error);
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
