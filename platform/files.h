// Text files: their length, their content, and replacing a file so that no moment leaves it broken.
// Paths are full paths or relative to the current folder. No handle outlives a call but that of a LockedFile.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// What stands between the folders of a path.
constexpr char PathSeparator = '/';

/// Bytes of a file; 0 when it is empty, missing or cannot be read for any reason. Never fails.
std::int32_t FileLength(const std::string& path);

/// False only where the path is known to lead to nothing, or to an empty file.
bool HoldsSomething(const std::string& path);

/// What a file operation came to: an empty text when it was done, else the reason in words.
using FileError = std::string;

/// Reads a whole regular file of at most `limit` bytes into `content`, not in the middle of another program's
/// change. On failure `content` is empty.
FileError ReadFile(const std::string& path, std::size_t limit, std::string& content);

/// Puts `content` in the place of the file, made if missing. The new content is on the disk before the old
/// one goes; on failure the old file is untouched and nothing is left beside it.
FileError ReplaceFile(const std::string& path, const std::string& content);

/// Adds text at the end of an existing file in one write, after ending a last line that has no end; on the
/// disk when it returns without an error. On failure the file is as it was.
FileError AppendToFile(const std::string& path, const std::string& text);

/// True when both paths lead to the same existing file.
bool SameFile(const std::string& one, const std::string& other);

/// A file that no other copy of the game reads or changes meanwhile; set free with the object.
class LockedFile {
  public:
    enum class WhenMissing { Fails, IsMade };

    /// Opens a file to be read and written.
    explicit LockedFile(const std::string& path, WhenMissing missing = WhenMissing::Fails);
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile();

    /// Why the file can't be used; empty when it can.
    const FileError& Error() const { return Error_; }

    FileError Read(std::size_t limit, std::string& content);

    /// Writes over the old content in place, and cuts the file to the new length last; on the disk when it
    /// returns without an error. On failure the file may be neither the old nor the new one.
    FileError Overwrite(const std::string& content);

    /// As AppendToFile.
    FileError Append(const std::string& text);

  private:
    int Handle_;
    FileError Error_;
};
