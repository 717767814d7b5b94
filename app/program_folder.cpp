// Finds the program's folder. Every failure leads on to the folder of the executable, where the start-up will
// say what is missing.
#include "program_folder.h"

#include "platform/files.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t LargestFile = 16 << 20;

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

bool HoldsCollection(const fs::path& folder) {
    return HoldsSomething(folder / "QUILLET.qui");
}

bool IsData(const fs::path& file) {
    const fs::path ending = file.extension();
    return ending == ".qui" || ending == ".cfg" || ending == ".wav" || ending == ".htm" || ending == ".png";
}

/// Tells one version of a shipped file from another (FNV-1a), the same on every machine.
std::string Sum(const std::string& content) {
    std::uint64_t sum = 0xcbf29ce484222325U;
    for (const char c : content) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    return std::to_string(sum);
}

bool HasSum(const fs::path& path, const std::string& sum) {
    std::string content;
    return ReadFile(path, LargestFile, content).empty() && Sum(content) == sum;
}

/// What was last laid in the player's folder: the sum of each file by its name, or "none" for one that has
/// always been the player's.
using Record = std::map<std::string, std::string>;

Record ReadRecord(const fs::path& path) {
    std::string text, name, sum;
    ReadFile(path, LargestFile, text);
    Record record;
    for (std::istringstream lines(text); lines >> sum >> name;) record[name] = sum;
    return record;
}

void WriteRecord(const fs::path& path, const Record& record) {
    std::ostringstream text;
    for (const auto& [name, sum] : record) text << sum << ' ' << name << '\n';
    ReplaceFile(path, text.str());
}

/// Lays a file that is missing, or that was shipped anew while the player has left it as it was laid.
void LayFile(const fs::path& shipped, const fs::path& target, std::string& recorded) {
    std::string content;
    if (!ReadFile(shipped, LargestFile, content).empty()) return;
    const std::string sum = Sum(content);
    std::error_code error;
    const bool missing = !fs::exists(target, error) && !error;
    if (recorded == sum && !missing) return;
    if (missing || HasSum(target, recorded)) {
        fs::create_directories(target.parent_path(), error);
        if (!ReplaceFile(target, content).empty()) return;
    } else if (!HasSum(target, sum)) {
        return;
    }
    recorded = sum;
}

void LayShippedFiles(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to, error);
    const fs::path path = to / ".shipped";
    const Record before = ReadRecord(path);
    Record record = before;
    fs::recursive_directory_iterator entry(from, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        const fs::path name = entry->path().lexically_relative(from);
        if (IsData(name)) LayFile(entry->path(), to / name, record.try_emplace(name, "none").first->second);
    }
    if (record != before) WriteRecord(path, record);
}

} // namespace

std::string ProgramFolder() {
    const fs::path beside = ExecutableFolder(), shared = (beside / SHARED_FOLDER).lexically_normal();
    const bool installed = !HoldsCollection(beside) && HoldsCollection(shared);
    fs::path folder = installed ? shared : beside;
    if (installed || !CanWrite(beside)) {
        LayShippedFiles(folder, PlayersFolder());
        if (CanWrite(PlayersFolder())) folder = PlayersFolder();
    }
    std::error_code error;
    fs::current_path(folder, error);
    return folder.string();
}
