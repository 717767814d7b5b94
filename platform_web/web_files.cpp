// Files of the folder, in memory and in the browser's storage. A change is stored before it is made in
// memory, and the task that makes it waits for that: memory never knows more than the storage.
#include "platform/files.h"
#include "platform_web/description.h"
#include "platform_web/web_desktop.h"

#include <map>

namespace {

std::map<std::string, std::string> Folder;

std::string NameIn(const std::string& path) {
    return path.substr(path.rfind(PathSeparator) + 1);
}

const std::string* Find(const std::string& path) {
    const auto found = Folder.find(NameIn(path));
    return found == Folder.end() ? nullptr : &found->second;
}

FileError Store(const std::string& path, const std::string& content) {
    AskPage("store", Json(NameIn(path)) + ',' + Json(content.data()) + ',' + std::to_string(content.size()));
    if (Letter.empty()) Folder[NameIn(path)] = content;
    return Letter;
}

} // namespace

std::string& FileOfFolder(const std::string& name) {
    return Folder[name];
}

std::vector<std::string> NamesEndingIn(const std::string& ending) {
    std::vector<std::string> names;
    for (const auto& [name, content] : Folder)
        if (name.ends_with(ending)) names.push_back(name);
    return names;
}

std::int32_t FileLength(const std::string& path) {
    return Find(path) ? static_cast<std::int32_t>(Find(path)->size()) : 0;
}

bool HoldsSomething(const std::string& path) {
    return FileLength(path) > 0;
}

FileError ReadFile(const std::string& path, std::size_t limit, std::string& content) {
    const std::string* found = Find(path);
    content = found && found->size() <= limit ? *found : "";
    return !found ? "there is no such file" : found->size() > limit ? "the file is too large" : "";
}

FileError ReplaceFile(const std::string& path, const std::string& content) {
    return Store(path, content);
}

std::string FullPath(const std::string& path) {
    return std::string(FolderName) + PathSeparator + NameIn(path);
}

bool SameFile(const std::string& one, const std::string& other) {
    return Find(one) && Find(one) == Find(other);
}

// One tab at a time holds the folder, so a lock has nothing to do.
LockedFile::LockedFile(const std::string& path) : Path_(path), IsMissing_(!Find(path)) {
    if (IsMissing_) Error_ = "there is no such file";
}

LockedFile::~LockedFile() = default;

FileError LockedFile::Read(std::size_t limit, std::string& content) const {
    return ReadFile(Path_, limit, content);
}

FileError LockedFile::Replace(const std::string& content) const {
    return Store(Path_, content);
}
