// Reads the file into a part of the record, and installs the part when all of it is right.
#include "files/collection_reader.h"

#include "core/game_state.h"
#include "files/collection_format.h"
#include "platform/desktop.h"

#include <memory>

namespace {

void ShowFault(const Fault& fault, const std::string& hint = "") {
    MsgBox("Quillet shapes file cannot be read:" + Game.LineBreak + Game.QuilletFile + Game.LineBreak + fault
           + "." + hint);
}

void TakePiecesHome() {
    Game.PieceX = Game.HomeX;
    Game.PieceY = Game.HomeY;
    for (int p = 0; p < PieceCount; ++p) Game.PieceTurn[p] = Game.HomeTurn[p];
}

} // namespace

std::string HintAtTemporary() {
    std::string text;
    if (!ReadFile(TemporaryFile, LargestCollection, text).empty() || !FaultOfCollection(text).empty())
        return {};
    return Game.LineBreak + "What the last Remove wrote is whole, in the file:" + Game.LineBreak
           + FullPath(TemporaryFile);
}

void LoadPieceTable() {
    std::string text;
    Fault fault = ReadFile(Game.QuilletFile, LargestCollection, text);
    if (fault.empty()) fault = FaultOfCollection(text);
    if (!fault.empty()) {
        ShowFault(fault, HintAtTemporary());
        EndProgram();
    }
    ReadPieceTable(text, Game);
    Game.BoardX0 = Game.BoardY0 = StartOrigin;
    TakePiecesHome();
}

bool LoadQuillets() {
    std::string text;
    const auto collection = std::make_unique<Collection>();
    Fault fault = ReadFile(Game.QuilletFile, LargestCollection, text);
    if (fault.empty()) fault = ReadCollection(text, *collection);
    if (collection->QuilletCount > MostQuillets) {
        MsgBox("Cannot handle more than 500 Quillets");
        EndProgram();
    }
    if (!fault.empty()) {
        ShowFault(fault);
        return false;
    }
    static_cast<Collection&>(Game) = *collection;
    return true;
}

FileError ChangeCollection(const std::function<FileError(std::string& text)>& change) {
    const LockedFile file(Game.QuilletFile);
    std::string text;
    FileError error = file.Read(LargestCollection, text);
    if (error.empty()) error = FaultOfCollection(text);
    if (error.empty()) error = change(text);
    return error.empty() ? file.Replace(text) : error;
}
