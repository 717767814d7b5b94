// Append: the checks in their order, each question with its way out, and the one record that is written.
#include "files/append_quillet.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/piece_geometry.h"
#include "files/collection_reader.h"
#include "files/quality_checks.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

constexpr Number GreatestExtent = 320;
constexpr double LeastFilledPercent = 20;

/// The box of all vertices, in board pixels.
Number AppendLeft, AppendTop, AppendRight;
std::int16_t AppendBottom;

void BuildPiecePoly(int piece) {
    BuildPolygon(piece, NearestInt16(Game.PieceTurn[piece]), Game.BoardX0 + Game.PieceX[piece],
                 Game.BoardY0 + Game.PieceY[piece], Game.PiecePoly);
}

void MeasureArrangement() {
    AppendLeft = AppendTop = 9999;
    AppendRight = AppendBottom = -1;
    for (int p = 0; p < PieceCount; ++p) {
        BuildPiecePoly(p);
        for (std::size_t j = 0; j < ComputedPoints; ++j) {
            const Vertex vertex = Game.PiecePoly[j];
            AppendLeft = std::min<Number>(AppendLeft, vertex.X);
            AppendTop = std::min<Number>(AppendTop, vertex.Y);
            AppendRight = std::max<Number>(AppendRight, vertex.X);
            AppendBottom = NearestInt16(std::max<Number>(AppendBottom, vertex.Y));
        }
    }
}

/// A question with OK and Cancel; true for OK.
bool Confirmed(const std::string& first, const std::string& second) {
    return MsgBox(first + Game.LineBreak + second, BoxButtons::OkCancel, BoxIcon::Information, "Quillets")
           == BoxAnswer::Ok;
}

bool SmallEnough() {
    if (AppendRight - AppendLeft <= GreatestExtent && AppendBottom - AppendTop <= GreatestExtent) return true;
    MsgBox("Quillet is too wide or too tall");
    return false;
}

/// Shows an isolated piece in its own colour while the question stands.
bool ConnectedOrConfirmed() {
    std::int16_t result = 0;
    CheckConnected(result);
    if (result >= 0) {
        const std::int16_t level = std::exchange(Game.PlayLevel, VeryEasyLevel);
        DrawPiece(result);
        const bool goOn = Confirmed("A block appears isolated !", "Proceed anyway ?");
        Game.PlayLevel = level;
        return goOn;
    }
    return result != -99 || Confirmed("A cluster of blocks appear isolated !", "Proceed anyway ?");
}

/// The figure as it will be stored, inside its box; on the board alone.
void PaintForQuestions() {
    Surface& board = FormMain.Picture1.Image;
    for (std::int16_t p = 0; p < PieceCount; ++p) {
        BuildPiecePoly(p);
        SetPieceBrush(p);
        board.ForeColor = Game.BlackColor;
        board.FillStyle = FillMode::Solid;
        Polygon(board, Drawn(Game.PiecePoly));
    }
    board.FillStyle = FillMode::None;
    board.Line(AppendLeft, AppendTop, AppendRight, AppendBottom, QBColor(14));
    board.Refresh();
}

bool DenseOrConfirmed() {
    return FilledPercent(AppendLeft, AppendTop, AppendRight, AppendBottom) >= LeastFilledPercent
           || Confirmed("Quillet appears sparse; may be too easy to solve !", "Append anyway ?");
}

std::string NewRecord() {
    const auto decimal = [](Number number) { return std::to_string(NearestInt32(number)); };
    const auto coordinate = [](Number number) { return std::to_string(NearestInt16(number)); };
    std::string record =
        decimal(Game.QuilletCount + 1) + "," + decimal(AppendLeft) + "," + decimal(AppendTop);
    for (int p = 0; p < PieceCount; ++p)
        record += "," + decimal(Game.PieceTurn[p]) + "," + coordinate(Game.BoardX0 + Game.PieceX[p]) + ","
                  + coordinate(Game.BoardY0 + Game.PieceY[p]);
    return record + "\r\n";
}

/// Adds the record and shows the new quillet, or tells why the file could not be written or read.
void Append() {
    const FileError error = AppendToFile(Game.QuilletFile, NewRecord());
    if (!error.empty()) {
        MsgBox("The Quillet was not appended to the file:" + Game.LineBreak + Game.QuilletFile
               + Game.LineBreak + error + ".");
    } else if (LoadQuillets()) {
        Game.CurrentQuillet = Game.QuilletCount;
        ShowQuillet();
    }
}

} // namespace

void AppendQuillet() {
    MeasureArrangement();
    if (SmallEnough() && ConnectedOrConfirmed()) {
        PaintForQuestions();
        if (DenseOrConfirmed() && Confirmed("Append this Quillet to file:", Game.QuilletFile + " ?"))
            Append();
    }
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
}
