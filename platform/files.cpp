// Text files over the system's own calls, each of them checked.
#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace {

FileError Reason() {
    return std::strerror(errno);
}

/// Owns an open file for the length of a block.
class OpenFile {
  public:
    OpenFile(const std::string& path, int flags) : Handle_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
    explicit OpenFile(int handle) : Handle_(handle) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (Handle_ >= 0) ::close(Handle_);
    }
    bool IsOpen() const { return Handle_ >= 0; }
    int Handle() const { return Handle_; }
    /// For writers, to whom close may still report a failure.
    bool Close() { return ::close(std::exchange(Handle_, -1)) == 0; }

  private:
    int Handle_;
};

bool WriteAll(int handle, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(handle, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Keeps other copies of the game from the file, or waits for one that is at it; none takes longer than an
/// instant. Where locks are unknown the work goes on without.
FileError Lock(int handle, int kind) {
    constexpr int Tries = 200;
    for (int tried = 0; ::flock(handle, kind | LOCK_NB) != 0; ++tried) {
        if (errno != EWOULDBLOCK && errno != EINTR) return {};
        if (tried == Tries) return "another program is using it";
        ::usleep(10'000);
    }
    return {};
}

FileError ReadAll(int handle, std::size_t limit, std::string& content) {
    content.clear();
    struct stat status{};
    if (::fstat(handle, &status) != 0) return Reason();
    if (!S_ISREG(status.st_mode)) return "it is not a file";
    if (static_cast<std::uintmax_t>(status.st_size) > limit) return "the file is too large";
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t length = 0;
    while (length < text.size()) {
        const ssize_t got =
            ::pread(handle, text.data() + length, text.size() - length, static_cast<off_t>(length));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return Reason();
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
    }
    text.resize(length);
    content = std::move(text);
    return {};
}

/// Writes, syncs and closes. A failing close after a sync loses nothing, so the length of the file decides
/// then.
FileError Finish(OpenFile& file, const std::string& path, const std::string& content) {
    if (!WriteAll(file.Handle(), content) || ::fsync(file.Handle()) != 0) return Reason();
    if (!file.Close() && static_cast<std::size_t>(FileLength(path)) != content.size()) return Reason();
    return {};
}

/// Keeps a file that is new under its name; where a folder can't be synced there is no more to be done.
void SyncFolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    OpenFile entry(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (entry.IsOpen()) ::fsync(entry.Handle());
}

int OpenToChange(const std::string& path, int flags) {
    return ::open(path.c_str(), O_RDWR | O_APPEND | O_NONBLOCK | O_CLOEXEC | flags, 0666);
}

/// Opens a file that is not there yet beside the given one; its name comes back in `fresh`.
int OpenBeside(const std::string& path, std::string& fresh) {
    for (int number = 1; number <= 100; ++number) {
        fresh = path + ".new" + std::to_string(number);
        const int handle = ::open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (handle >= 0 || errno != EEXIST) return handle;
    }
    return -1;
}

} // namespace

std::int32_t FileLength(const std::string& path) {
    OpenFile file(path, O_RDONLY | O_NONBLOCK);
    struct stat status{};
    if (!file.IsOpen() || ::fstat(file.Handle(), &status) != 0 || !S_ISREG(status.st_mode)) return 0;
    constexpr off_t Most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min<off_t>(status.st_size, Most));
}

bool HoldsSomething(const std::string& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0) return errno != ENOENT && errno != ENOTDIR;
    return !S_ISREG(status.st_mode) || status.st_size > 0;
}

FileError ReadFile(const std::string& path, std::size_t limit, std::string& content) {
    content.clear();
    // Without O_NONBLOCK the opening of a pipe would wait for its writer.
    OpenFile file(path, O_RDONLY | O_NONBLOCK);
    if (!file.IsOpen()) return Reason();
    const FileError error = Lock(file.Handle(), LOCK_SH);
    return error.empty() ? ReadAll(file.Handle(), limit, content) : error;
}

FileError ReplaceFile(const std::string& path, const std::string& content) {
    // A link stays a link; what it leads to is replaced.
    std::error_code none;
    const std::string target = fs::is_symlink(path, none) ? fs::weakly_canonical(path, none).string() : path;
    std::string fresh;
    OpenFile file(OpenBeside(target, fresh));
    if (!file.IsOpen()) return Reason();
    struct stat status{};
    if (::stat(target.c_str(), &status) == 0) ::fchmod(file.Handle(), status.st_mode & 07777);
    FileError error = Finish(file, fresh, content);
    if (error.empty() && ::rename(fresh.c_str(), target.c_str()) != 0) error = Reason();
    if (!error.empty()) {
        ::unlink(fresh.c_str());
        return error;
    }
    SyncFolderOf(target);
    return {};
}

FileError AppendToFile(const std::string& path, const std::string& text) {
    LockedFile file(path);
    return file.Error().empty() ? file.Append(text) : file.Error();
}

bool SameFile(const std::string& one, const std::string& other) {
    std::error_code error;
    return fs::equivalent(one, other, error);
}

LockedFile::LockedFile(const std::string& path, WhenMissing missing) : Handle_(OpenToChange(path, 0)) {
    if (Handle_ < 0 && errno == ENOENT && missing == WhenMissing::IsMade) {
        Handle_ = OpenToChange(path, O_CREAT);
        if (Handle_ >= 0) SyncFolderOf(path);
    }
    Error_ = Handle_ >= 0 ? Lock(Handle_, LOCK_EX) : Reason();
}

LockedFile::~LockedFile() {
    if (Handle_ >= 0) ::close(Handle_);
}

FileError LockedFile::Read(std::size_t limit, std::string& content) {
    return ReadAll(Handle_, limit, content);
}

FileError LockedFile::Overwrite(const std::string& content) {
    // Writes go where they are told, and no longer to the end.
    if (::fcntl(Handle_, F_SETFL, 0) != 0 || ::lseek(Handle_, 0, SEEK_SET) != 0) return Reason();
    if (!WriteAll(Handle_, content)) return Reason();
    if (::ftruncate(Handle_, static_cast<off_t>(content.size())) != 0) return Reason();
    return ::fsync(Handle_) == 0 ? FileError{} : Reason();
}

FileError LockedFile::Append(const std::string& text) {
    const off_t length = ::lseek(Handle_, 0, SEEK_END);
    char last = '\n';
    if (length < 0 || (length > 0 && ::pread(Handle_, &last, 1, length - 1) != 1)) return Reason();
    const std::string end = last == '\n' ? "" : last == '\r' ? "\n" : "\r\n";
    if (WriteAll(Handle_, end + text) && ::fsync(Handle_) == 0) return {};
    FileError error = Reason();
    if (::ftruncate(Handle_, length) != 0 || ::fsync(Handle_) != 0)
        error += "; part of the record may stand at the end of the file";
    return error;
}
