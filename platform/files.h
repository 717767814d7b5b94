// Files of text: their length, their content, and changing them so that no moment leaves one broken.
// Paths are full paths or relative to the current folder. No handle outlives a call but that of a LockedFile.
//
// A change is prepared in a new file in the same folder, synced, and takes over the name in one step. A kill
// or a power cut leaves the whole old content or the whole new one, and at most the new file, FreshName,
// which the player's next change in that folder removes. Where the folder cannot be written, the file is
// changed in place, and a kill or a power cut may leave a mixture of both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// What stands between the folders of a path.
constexpr char PathSeparator = '/';

/// The name of the new file while a change is prepared. Each user has one: what another user's killed game
/// left in a shared folder may be beyond our rights. The name of the file has no part in it, since that may
/// already be as long as names can be.
std::string FreshName();

/// Bytes of a file; 0 when it is empty, missing or cannot be read for any reason. Never fails.
std::int32_t FileLength(const std::string& path);

/// True for a file that is not empty, and where nobody can tell. Folders and devices hold nothing.
bool HoldsSomething(const std::string& path);

/// What a file operation came to: an empty text when it was done, else the reason in words.
using FileError = std::string;

/// Reads a whole regular file of at most `limit` bytes into `content`, not in the middle of another program's
/// change. On failure `content` is empty.
FileError ReadFile(const std::string& path, std::size_t limit, std::string& content);

/// Puts `content` in the place of the file, made if missing; on the disk when it returns without an error. On
/// failure the file is as it was. A link stays, and the file that it leads to is replaced or made.
FileError ReplaceFile(const std::string& path, const std::string& content);

/// The path as messages tell it: from the root on.
std::string FullPath(const std::string& path);

/// True when both paths lead to the same existing file.
bool SameFile(const std::string& one, const std::string& other);

/// An existing file that no other copy of the game reads or changes meanwhile; set free with the object.
class LockedFile {
  public:
    explicit LockedFile(const std::string& path);
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile();

    bool IsMissing() const { return IsMissing_; }

    /// As ReadFile.
    FileError Read(std::size_t limit, std::string& content) const;

    /// As ReplaceFile. The object keeps the old file and can be used no more.
    FileError Replace(const std::string& content) const;

  private:
    std::string Path_; ///< at the end of all links
    int Handle_ = -1;
    bool IsMissing_ = false;
    FileError Error_; ///< why the file cannot be used
};
