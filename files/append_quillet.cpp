// Append: the checks in their order, the questions, and the record that is written.
#include "files/append_quillet.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/piece_geometry.h"
#include "files/collection_format.h"
#include "files/collection_reader.h"
#include "files/quality_checks.h"
#include "platform/desktop.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

constexpr Number GreatestExtent = 320;
constexpr double LeastFilledPercent = 20;

/// The box of all vertices, in board pixels.
struct Box {
    Number AppendLeft = 9999;
    Number AppendTop = 9999;
    Number AppendRight = -1;
    std::int16_t AppendBottom = -1;
};

void BuildPiecePoly(int piece) {
    BuildPolygon(piece, NearestInt16(Game.PieceTurn[piece]), Game.BoardX0 + Game.PieceX[piece],
                 Game.BoardY0 + Game.PieceY[piece], Game.PiecePoly);
}

void Include(const Vertex& vertex, Box& box) {
    box.AppendLeft = std::min<Number>(box.AppendLeft, vertex.X);
    box.AppendTop = std::min<Number>(box.AppendTop, vertex.Y);
    box.AppendRight = std::max<Number>(box.AppendRight, vertex.X);
    box.AppendBottom = NearestInt16(std::max<Number>(box.AppendBottom, vertex.Y));
}

Box MeasureArrangement() {
    Box box;
    for (int p = 0; p < PieceCount; ++p) {
        BuildPiecePoly(p);
        for (std::size_t j = 0; j < ComputedPoints; ++j) Include(Game.PiecePoly[j], box);
    }
    return box;
}

/// A question with OK and Cancel; true for OK.
bool Confirmed(const std::string& first, const std::string& second) {
    return MsgBox(first + Game.LineBreak + second, BoxButtons::OkCancel, BoxIcon::Information, "Quillets")
           == BoxAnswer::Ok;
}

bool SmallEnough(const Box& box) {
    if (box.AppendRight - box.AppendLeft <= GreatestExtent
        && box.AppendBottom - box.AppendTop <= GreatestExtent)
        return true;
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

/// Shows the figure as it will be stored, inside its box, on the board alone.
void PaintForQuestions(const Box& box) {
    Surface& board = FormMain.Picture1.Image;
    for (std::int16_t p = 0; p < PieceCount; ++p) {
        BuildPiecePoly(p);
        SetPieceBrush(p);
        board.ForeColor = Game.BlackColor;
        board.FillStyle = FillMode::Solid;
        Polygon(board, Drawn(Game.PiecePoly));
    }
    board.FillStyle = FillMode::None;
    board.Line(box.AppendLeft, box.AppendTop, box.AppendRight, box.AppendBottom, QBColor(14));
    board.Refresh();
}

bool DenseOrConfirmed(const Box& box) {
    return FilledPercent(box.AppendLeft, box.AppendTop, box.AppendRight, box.AppendBottom)
               >= LeastFilledPercent
           || Confirmed("Quillet appears sparse; may be too easy to solve !", "Append anyway ?");
}

std::string NewRecord(const Box& box) {
    Figure figure{box.AppendLeft, box.AppendTop, Game};
    for (Number& x : figure.Pieces.PieceX) x += Game.BoardX0;
    for (Number& y : figure.Pieces.PieceY) y += Game.BoardY0;
    return RecordText(Game.QuilletCount + 1, figure);
}

/// Adds the record and shows the new quillet, or tells why the file could not be changed or read.
void Append(const std::string& record) {
    const FileError error = ChangeCollection([&record](std::string& text) {
        text = WithRecord(text, record);
        return FileError{};
    });
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
    const Box box = MeasureArrangement();
    if (SmallEnough(box) && ConnectedOrConfirmed()) {
        PaintForQuestions(box);
        if (DenseOrConfirmed(box) && Confirmed("Append this Quillet to file:", Game.QuilletFile + " ?"))
            Append(NewRecord(box));
    }
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
}
