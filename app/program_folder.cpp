// Finds the program's folder. After any failure that is the folder of the shipped files, where the game can
// at least be played.
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
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t LargestFile = 16 << 20;
constexpr const char* Collection = "QUILLET.qui";

fs::path ExecutableFolder() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path(error) : executable.parent_path();
}

fs::path PlayersFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    // By the rules of this variable a relative folder is ignored.
    if (data && fs::path(data).is_absolute()) return fs::path(data) / "quillets";
    const char* home = std::getenv("HOME");
    std::error_code error;
    return fs::absolute(home && *home ? home : ".", error) / ".local/share/quillets";
}

bool CanWrite(const fs::path& folder) {
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

bool HoldsCollection(const fs::path& folder) {
    return HoldsSomething(folder / Collection);
}

/// The names of the shipped files, as the build lists them.
std::vector<std::string> ShippedNames() {
    std::vector<std::string> names;
    std::istringstream list(SHIPPED_NAMES);
    for (std::string name; std::getline(list, name, ',');) names.push_back(name);
    return names;
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
    for (std::istringstream lines(text); lines >> sum && std::getline(lines >> std::ws, name);)
        record[name] = sum;
    return record;
}

void WriteRecord(const fs::path& path, const Record& record) {
    std::ostringstream text;
    for (const auto& [name, sum] : record)
        if (!sum.empty()) text << sum << ' ' << name << '\n';
    ReplaceFile(path, text.str());
}

/// Settings that the player has deleted stay away: the start makes new ones, with the defaults.
bool ComesBack(const fs::path& missing, const std::string& recorded) {
    return recorded.empty() || missing.filename() != "Quillets.cfg";
}

/// Lays a file that is missing, or that came in a newer version while the player has left it as it was laid.
/// `recorded` is empty for a file that was never looked at.
void LayFile(const fs::path& shipped, const fs::path& target, std::string& recorded) {
    std::string content;
    if (!ReadFile(shipped, LargestFile, content).empty()) return;
    const std::string sum = Sum(content);
    std::error_code error;
    const bool exists = fs::exists(target, error) || error;
    if (exists && recorded == sum) return;
    if (exists ? HasSum(target, recorded) : ComesBack(target, recorded)) {
        fs::create_directories(target.parent_path(), error);
        if (ReplaceFile(target, content).empty()) recorded = sum;
    } else if (HasSum(target, sum)) {
        recorded = sum;
    } else if (recorded.empty()) {
        recorded = "none";
    }
}

void LayShippedFiles(const fs::path& from, const fs::path& to) {
    const fs::path path = to / ".shipped";
    const Record before = ReadRecord(path);
    Record record = before;
    for (const std::string& name : ShippedNames()) LayFile(from / name, to / name, record[name]);
    if (record != before) WriteRecord(path, record);
}

} // namespace

std::string ProgramFolder() {
    std::error_code error;
    const fs::path beside = ExecutableFolder(), shared = (beside / SHARED_FOLDER).lexically_normal();
    const bool installed = !HoldsCollection(beside) && HoldsCollection(shared);
    fs::path folder = installed ? shared : beside;
    if (installed || !CanWrite(beside)) {
        const fs::path own = PlayersFolder();
        LayShippedFiles(folder, own);
        // Where no collection could be laid, as on a full disk, the shipped one can still be played.
        if (CanWrite(own) && fs::exists(own / Collection, error)) folder = own;
    }
    fs::current_path(folder, error);
    return folder.string();
}
