// Text files over the system's own calls, each of them checked.
#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

FileError Reason() {
    return std::strerror(errno);
}

/// Owns an open file for the length of a block.
class OpenFile {
  public:
    OpenFile(const std::string& path, int flags) : Handle_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
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

/// Makes a rename last: the entry of a folder reaches the disk with the folder.
bool SyncFolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    OpenFile file(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    return file.IsOpen() && ::fsync(file.Handle()) == 0;
}

FileError WriteNewFile(const std::string& path, const std::string& content) {
    OpenFile file(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file.IsOpen() || !WriteAll(file.Handle(), content) || ::fsync(file.Handle()) != 0 || !file.Close())
        return Reason();
    return {};
}

} // namespace

std::int32_t FileLength(const std::string& path) {
    OpenFile file(path, O_RDONLY | O_NONBLOCK);
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Handle(), &status) != 0 || !S_ISREG(status.st_mode)) return 0;
    constexpr off_t Most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min<off_t>(status.st_size, Most));
}

FileError ReadFile(const std::string& path, std::size_t limit, std::string& content) {
    content.clear();
    // Without O_NONBLOCK the opening of a pipe would wait for its writer.
    OpenFile file(path, O_RDONLY | O_NONBLOCK);
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Handle(), &status) != 0) return Reason();
    if (!S_ISREG(status.st_mode)) return "it is not a file";
    if (static_cast<std::uintmax_t>(status.st_size) > limit) return "the file is too large";
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t length = 0;
    while (length < text.size()) {
        const ssize_t got = ::read(file.Handle(), text.data() + length, text.size() - length);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return Reason();
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
    }
    text.resize(length);
    content = std::move(text);
    return {};
}

FileError ReplaceFile(const std::string& path, const std::string& content) {
    const std::string fresh = path + ".new";
    FileError error = WriteNewFile(fresh, content);
    if (error.empty() && ::rename(fresh.c_str(), path.c_str()) != 0) error = Reason();
    if (!error.empty()) {
        ::unlink(fresh.c_str());
        return error;
    }
    return SyncFolderOf(path) ? FileError{} : Reason();
}
