// Text files: their length, their content, and replacing a file so that no moment leaves it broken.
// Paths are full paths or relative to the current folder. No handle outlives a call.
#pragma once

#include <cstdint>
#include <string>

/// What stands between the folders of a path.
constexpr char PathSeparator = '/';

/// Bytes of a file; 0 when it is empty, missing or cannot be read for any reason. Never fails.
std::int32_t FileLength(const std::string& path);

/// What a file operation came to: an empty text when it was done, else the reason in words.
using FileError = std::string;

/// Reads a whole regular file of at most `limit` bytes into `content`. On failure `content` is empty.
FileError ReadFile(const std::string& path, std::size_t limit, std::string& content);

/// Puts `content` in the place of the file, made if missing. The new content is on the disk before the old
/// one goes; on failure the old file is untouched and nothing is left beside it.
FileError ReplaceFile(const std::string& path, const std::string& content);
