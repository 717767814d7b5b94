// Open, Save as and Remove.
#include "files/collection_files.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/solution_check.h"
#include "files/collection_format.h"
#include "files/collection_reader.h"
#include "files/open_save_dialog.h"
#include "files/sound_cues.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/random.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

constexpr const char* Pattern = "*.qui";

std::string UpperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

std::string Failure(const std::string& what, const std::string& path, const std::string& reason) {
    return what + Game.LineBreak + path + Game.LineBreak + reason + ".";
}

bool IsLoadedFile(const std::string& path) {
    return UpperCase(path) == UpperCase(Game.QuilletFile) || SameFile(path, Game.QuilletFile);
}

/// False when a file with the chosen name exists and stays. One that cannot be read exists as well.
bool MayWriteTo(const std::string& path) {
    if (FileLength(path) == Game.FlagOff && !HoldsSomething(path)) return true;
    if (IsLoadedFile(path)) {
        MsgBox("file:" + Game.QuilletFile + "\r\nalready loaded and saved, use another filename to save as");
        return false;
    }
    return MsgBox(path + Game.LineBreak + " file already exists, overwrite?", BoxButtons::YesNo,
                  BoxIcon::Warning, "Quillets", BoxDefault::Second)
           == BoxAnswer::Yes;
}

/// Copies the collection; answers the message that tells what came of it.
std::string CopyTo(const std::string& path) {
    std::string content;
    FileError error = ReadFile(Game.QuilletFile, LargestCollection, content);
    if (!error.empty()) return Failure("The file could not be read:", Game.QuilletFile, error);
    error = ReplaceFile(path, content);
    if (!error.empty()) return Failure("The file could not be written:", path, error);
    return Game.QuilletFile + Game.LineBreak + "copied as:" + Game.LineBreak + path;
}

FileError WriteTemporary(const std::string& text) {
    if (SameFile(TemporaryFile, Game.QuilletFile))
        return "it is the file that Remove itself writes; save it under another name first";
    const FileError error = ReplaceFile(TemporaryFile, text);
    return error.empty() ? error : TemporaryFile + (": " + error);
}

/// Takes the shown quillet out of the file. The whole new content is on the disk as QuiFile.tmp before the
/// collection is touched. Answers the message of a failure; empty when all went well.
std::string RemoveFromFile() {
    std::string hint;
    const FileError error = ChangeCollection([&hint](std::string& text) {
        text = WithoutRecord(text, Game.CurrentQuillet);
        FileError notWritten = WriteTemporary(text);
        if (notWritten.empty())
            hint =
                Game.LineBreak + "The new content is in the file:" + Game.LineBreak + FullPath(TemporaryFile);
        return notWritten;
    });
    if (error.empty()) return {};
    return Failure("The Quillet was not removed from the file:", Game.QuilletFile, error) + hint;
}

} // namespace

void OpenCollection() {
    PlayCue("click2");
    const std::string path =
        OpenSaveDialog::FileDialog(FormMain, 0, "Quillets", "Quillet files", Pattern, Game.AppPath);
    if (path.empty() || path == Pattern) return;
    FormMain.Picture1.Enabled = false;
    PlayCue("shsh-dot");
    const std::string before = std::exchange(Game.QuilletFile, path);
    if (LoadQuillets()) {
        Randomize(Timer());
        Game.CurrentQuillet = FloorNumber(Game.QuilletCount * Rnd() + 1);
        ShowQuillet();
        CheckAllTurns();
    } else {
        Game.QuilletFile = before;
    }
    FormMain.Picture1.Enabled = true;
}

void SaveCollectionAs() {
    PlayCue("click2");
    const std::string path =
        OpenSaveDialog::FileDialog(FormMain, 1, "Quillets", Pattern, Pattern, Game.AppPath);
    if (!path.empty() && MayWriteTo(path)) MsgBox(CopyTo(path));
}

void RemoveQuillet() {
    const std::string question =
        "Remove this Quillet ( " + std::to_string(NearestInt32(Game.CurrentQuillet)) + ") ?";
    if (MsgBox(question, BoxButtons::YesNo, BoxIcon::None, "Quillets") != BoxAnswer::Yes) return;
    if (const std::string failure = RemoveFromFile(); !failure.empty()) {
        MsgBox(failure);
        return;
    }
    if (Game.CurrentQuillet == Game.QuilletCount) Game.CurrentQuillet -= 1;
    LoadQuillets();
    // Another program may have changed the number of quillets. An empty collection shows 0 or 1.
    Game.CurrentQuillet = std::clamp<Number>(Game.CurrentQuillet, std::min<Number>(Game.QuilletCount, 1),
                                             std::max<Number>(Game.QuilletCount, 1));
    ShowQuillet();
    CheckAllTurns();
    DrawAllPieces();
}
