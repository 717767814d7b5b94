// Files of text over the system's own calls, each of them checked.
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

/// A number of errno; 0 when all went well. Those named here have words of our own.
using Errno = int;
constexpr Errno Done = 0;
constexpr Errno InUse = EWOULDBLOCK;
constexpr Errno NoFile = EINVAL;
constexpr Errno TooLarge = EFBIG;

constexpr int MostTries = 200;

FileError InWords(Errno error) {
    if (error == Done) return {};
    if (error == InUse || error == EEXIST) return "another program is using it";
    if (error == NoFile) return "it is not a file";
    return error == TooLarge ? "the file is too large" : std::strerror(error);
}

/// The result of a system call that answers 0 when all went well.
Errno Outcome(int answer) {
    return answer == 0 ? Done : errno;
}

/// Owns an open file for the length of a block.
class OpenFile {
  public:
    OpenFile(const std::string& path, int flags)
        : Handle_(::open(path.c_str(), flags | O_CLOEXEC, 0666)), Error_(Handle_ < 0 ? errno : Done) {}
    OpenFile(OpenFile&& other) noexcept : Handle_(other.Release()), Error_(other.Error_) {}
    OpenFile& operator=(OpenFile&&) = delete;
    ~OpenFile() {
        if (Handle_ >= 0) ::close(Handle_);
    }
    Errno Error() const { return Error_; }
    int Handle() const { return Handle_; }
    int Release() { return std::exchange(Handle_, -1); }

    /// Keeps other copies of the game from the file. Waits up to two seconds for another copy. File systems
    /// without locks are used unlocked.
    void Lock(int kind) {
        for (int tried = 0; Error_ == Done && ::flock(Handle_, kind | LOCK_NB) != 0; ++tried) {
            if (errno != EWOULDBLOCK && errno != EINTR) return;
            if (tried == MostTries) Error_ = InUse;
            ::usleep(10'000);
        }
    }

    /// Whether the name still leads to this file.
    bool IsAt(const std::string& path) const {
        struct stat named = {}, opened = {};
        return ::stat(path.c_str(), &named) == 0 && ::fstat(Handle_, &opened) == 0
               && named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
    }

  private:
    int Handle_;
    Errno Error_;
};

/// Opens and locks the file. While we waited for the lock, another file may have taken over the name; then
/// that one is opened.
OpenFile OpenLocked(const std::string& path, int flags, int kind) {
    for (int tried = 0;; ++tried) {
        OpenFile file(path, flags | O_NONBLOCK); // else a pipe would make us wait for its writer
        file.Lock(kind);
        if (file.Error() != Done || tried == MostTries || file.IsAt(path)) return file;
    }
}

/// What a chain of links leads to, whether or not it is there.
std::string EndOfLinks(const std::string& path) {
    constexpr int MostLinks = 40;
    fs::path end = path;
    std::error_code error;
    for (int links = 0; links < MostLinks && fs::is_symlink(end, error); ++links)
        end = end.parent_path() / fs::read_symlink(end, error);
    return end.string();
}

std::string FolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

Errno StatusOf(int handle, struct stat& status) {
    if (::fstat(handle, &status) != 0) return errno;
    return S_ISREG(status.st_mode) ? Done : NoFile;
}

/// Fills the text; shortens it where the file has become shorter.
Errno ReadBytes(int handle, std::string& text) {
    std::size_t length = 0;
    while (length < text.size()) {
        const ssize_t got =
            ::pread(handle, text.data() + length, text.size() - length, static_cast<off_t>(length));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
    }
    text.resize(length);
    return Done;
}

Errno ReadAll(int handle, std::size_t limit, std::string& content) {
    content.clear();
    struct stat status = {};
    Errno error = StatusOf(handle, status);
    if (error != Done) return error;
    if (static_cast<std::uintmax_t>(status.st_size) > limit) return TooLarge;
    std::string text(static_cast<std::size_t>(status.st_size), '\0');
    error = ReadBytes(handle, text);
    if (error == Done) content = std::move(text);
    return error;
}

Errno WriteBytes(int handle, std::string_view content) {
    std::size_t length = 0;
    while (length < content.size()) {
        const ssize_t written =
            ::pwrite(handle, content.data() + length, content.size() - length, static_cast<off_t>(length));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        length += static_cast<std::size_t>(written);
    }
    return Done;
}

/// Gives an old file this content and no more; on the disk when it returns without an error.
Errno WriteOver(int handle, std::string_view content) {
    Errno error = WriteBytes(handle, content);
    if (error == Done) error = Outcome(::ftruncate(handle, static_cast<off_t>(content.size())));
    return error == Done ? Outcome(::fsync(handle)) : error;
}

/// Keeps a changed name. Where a folder cannot be synced there is no more to be done.
void SyncFolder(const std::string& folder) {
    const OpenFile entry(folder, O_RDONLY | O_DIRECTORY);
    if (entry.Error() == Done) ::fsync(entry.Handle());
}

/// Removes the new file of a change that was cut short. While its change lives, it is locked.
Errno RemoveLeftover(const std::string& fresh) {
    OpenFile left(fresh, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
    left.Lock(LOCK_EX);
    if (left.Error() == ENOENT) return Done;
    if (left.Error() != Done || !left.IsAt(fresh)) return left.Error();
    return Outcome(::unlink(fresh.c_str()));
}

/// Makes the new file of a change. Before we have locked it, others may take it for a leftover; then we make
/// another one.
OpenFile MakeFresh(const std::string& fresh) {
    for (int tried = 0;; ++tried) {
        OpenFile file(fresh, O_RDWR | O_CREAT | O_EXCL);
        file.Lock(LOCK_EX);
        const bool exists = file.Error() == EEXIST;
        if (tried == MostTries || (exists ? RemoveLeftover(fresh) != Done : file.Error() != Done))
            return file;
        if (!exists && file.IsAt(fresh)) return file;
    }
}

/// Owner and mode pass on to the new file as far as the player may set them. The player can always read and
/// write what is the player's.
void PassOn(const struct stat& old, int handle) {
    const bool given = ::fchown(handle, old.st_uid, old.st_gid) == 0 || ::fchown(handle, -1, old.st_gid) == 0;
    static_cast<void>(given); // a new file of the player's own is the best we can do then
    ::fchmod(handle, (old.st_mode & 0777) | S_IRUSR | S_IWUSR);
}

/// Puts a new file in the place of `old`, which is null where the path leads to nothing.
Errno TakeOver(const std::string& path, const struct stat* old, const std::string& content) {
    const std::string folder = FolderOf(path), fresh = folder + PathSeparator + FreshName();
    const OpenFile file = MakeFresh(fresh);
    if (file.Error() != Done) return file.Error();
    if (old) PassOn(*old, file.Handle());
    Errno error = WriteBytes(file.Handle(), content);
    if (error == Done) error = Outcome(::fsync(file.Handle()));
    if (error == Done) error = Outcome(::rename(fresh.c_str(), path.c_str()));
    if (error == Done)
        SyncFolder(folder);
    else
        ::unlink(fresh.c_str());
    return error;
}

/// The file may be written, but its name cannot be given to another file.
bool NameIsFixed(Errno error) {
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

/// Where no other file can take over the name. A kill or a power cut may leave a mixture of both contents;
/// after any other failure the old content is put back.
FileError ChangeInPlace(int handle, const std::string& content) {
    std::string old;
    Errno error = ReadAll(handle, old.max_size(), old);
    if (error != Done) return InWords(error);
    error = WriteOver(handle, content);
    if (error == Done || WriteOver(handle, old) == Done) return InWords(error);
    return InWords(error) + ", and its old content could not be put back";
}

} // namespace

std::string FreshName() {
    return ".quillets-new-" + std::to_string(::geteuid());
}

std::int32_t FileLength(const std::string& path) {
    const OpenFile file(path, O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    if (file.Error() != Done || StatusOf(file.Handle(), status) != Done) return 0;
    constexpr off_t Most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min<off_t>(status.st_size, Most));
}

bool HoldsSomething(const std::string& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG;
    return S_ISREG(status.st_mode) && status.st_size > 0;
}

FileError ReadFile(const std::string& path, std::size_t limit, std::string& content) {
    content.clear();
    const OpenFile file = OpenLocked(path, O_RDONLY, LOCK_SH);
    return InWords(file.Error() == Done ? ReadAll(file.Handle(), limit, content) : file.Error());
}

FileError ReplaceFile(const std::string& path, const std::string& content) {
    const LockedFile old(path);
    return old.IsMissing() ? InWords(TakeOver(EndOfLinks(path), nullptr, content)) : old.Replace(content);
}

std::string FullPath(const std::string& path) {
    std::error_code none;
    return fs::absolute(path, none).string();
}

bool SameFile(const std::string& one, const std::string& other) {
    std::error_code error;
    return fs::equivalent(one, other, error);
}

LockedFile::LockedFile(const std::string& path) : Path_(EndOfLinks(path)) {
    OpenFile file = OpenLocked(Path_, O_RDWR, LOCK_EX);
    Error_ = InWords(file.Error());
    IsMissing_ = file.Error() == ENOENT;
    if (file.Error() == Done) Handle_ = file.Release();
}

LockedFile::~LockedFile() {
    if (Handle_ >= 0) ::close(Handle_);
}

FileError LockedFile::Read(std::size_t limit, std::string& content) const {
    return Error_.empty() ? InWords(ReadAll(Handle_, limit, content)) : Error_;
}

FileError LockedFile::Replace(const std::string& content) const {
    if (!Error_.empty()) return Error_;
    struct stat status = {};
    Errno error = StatusOf(Handle_, status);
    if (error == Done) error = TakeOver(Path_, &status, content);
    return NameIsFixed(error) ? ChangeInPlace(Handle_, content) : InWords(error);
}
