// Picking, dragging, dropping and turning.
#include "play/mouse_play.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/piece_geometry.h"
#include "core/solution_check.h"
#include "files/sound_cues.h"
#include "play/win_flow.h"

namespace {

/// The playing area, in board pixels from BoardX0, BoardY0.
constexpr Number LeastX = 20;
constexpr Number LeastY = 20;
constexpr Number GreatestRight = 330;
constexpr Number GreatestBottom = 365;

constexpr int NoPiece = -1;

/// The piece whose key colour shows on the pick map there.
int PieceAt(float x, float y) {
    const Colour colour = FormMain.Image.Point(x, y);
    for (int p = 0; p < PieceCount; ++p)
        if (colour == Game.PieceRGB[p]) return p;
    return NoPiece;
}

void DrawOutline(Colour colour) {
    Surface& board = FormMain.Picture1.Image;
    board.FillColor = colour;
    board.ForeColor = colour;
    board.FillStyle = FillMode::None;
    Polygon(board, Drawn(Game.TargetPoly));
}

/// Builds TargetPoly where the drag began.
void BuildDragStart(int piece) {
    Game.CurTurn = NearestInt16(Game.PieceTurn[piece]);
    BuildPolygon(piece, Game.CurTurn, Game.DragX, Game.DragY, Game.TargetPoly);
}

/// Takes the grip, at the first move: from now on PieceX and PieceY count from the pointer.
void TakeUp(int piece, float x, float y) {
    Game.DragFromX[piece] = Game.PieceX[piece];
    Game.DragFromY[piece] = Game.PieceY[piece];
    Game.PieceX[piece] -= x;
    Game.PieceY[piece] -= y;
    Game.DragX = Game.BoardX0 + Game.DragFromX[piece];
    Game.DragY = Game.BoardY0 + Game.DragFromY[piece];
    BuildDragStart(piece);
    ErasePolygon(FormMain.Picture1.Image);
    Game.LastMouseX = x;
    Game.LastMouseY = NearestInt16(y);
    Game.DragButton = 0;
}

void ShiftOutline(float x, float y) {
    for (Vertex& vertex : Game.TargetPoly) {
        vertex.X = NearestInt32(vertex.X + (Number{x} - Game.LastMouseX));
        vertex.Y = NearestInt32(vertex.Y + (Number{y} - Game.LastMouseY));
    }
}

void PutBack(int piece) {
    Game.PieceX[piece] = Game.DragFromX[piece];
    Game.PieceY[piece] = Game.DragFromY[piece];
}

/// Repaints all seven pieces, the dropped one on top. Its old place is erased from the pick map, also after a
/// refusal.
void ShowDrop(int piece) {
    BuildDragStart(piece);
    ErasePolygon(FormMain.Image);
    FormMain.Picture1.Image.Cls();
    Game.LastPiece = NearestInt16(piece);
    DrawAllPieces();
    DrawPiece(Game.LastPiece);
}

void Drop(int piece, float x, float y) {
    Game.ActivePiece = NoPiece;
    Game.PieceX[piece] += x;
    Game.PieceY[piece] += y;
    const bool accepted = InPlayingArea(Game, piece, Game);
    if (!accepted) PutBack(piece);
    ShowDrop(piece);
    Game.SolvedFlag = Game.FlagOff;
    if (Game.SolutionShown == Game.FlagOff) CheckSolution();
    if (Game.SolvedFlag == Game.FlagOn)
        WinFlow();
    else
        PlayCue(accepted ? "Slide" : "Error");
}

/// Judges the board after a turn. TurnMatched may be older than the shown quillet, so the rule is asked too.
void CheckAfterTurn(int piece) {
    CheckPieceTurn(NearestInt16(piece));
    if (Game.SolvedFlag != Game.FlagOn && AllTurnsMatch(Game.PieceTurn, SolutionOf(Game, ShownQuillet())))
        CheckSolution();
}

} // namespace

bool InPlayingArea(const Arrangement& pieces, int piece, const PieceTable& table) {
    const int turn = NearestInt16(pieces.PieceTurn[piece]);
    return pieces.PieceX[piece] >= LeastX && pieces.PieceY[piece] >= LeastY
           && pieces.PieceX[piece] + table.PieceWidth[piece][turn] <= GreatestRight
           && pieces.PieceY[piece] + table.PieceHeight[piece][turn] <= GreatestBottom;
}

void Picture1_MouseDown(std::int16_t Button, std::int16_t, float X, float Y) {
    if (Game.ActivePiece != NoPiece) return;
    const int piece = PieceAt(X, Y);
    if (piece == NoPiece) return;
    if (Button == 1) {
        Game.ActivePiece = piece;
        Game.DragButton = 1;
        Game.MouseDownX = X;
        Game.MouseDownY = Y;
    }
    if (Button == 2) TurnPiece(piece);
}

void TurnPiece(int piece) {
    ErasePiece(piece, FormMain.Picture1.Image);
    FormMain.Picture1.Image.Refresh();
    ErasePolygon(FormMain.Image);
    StepTurn(piece);
    Game.SolvedFlag = Game.FlagOff;
    if (Game.SolutionShown != Game.FlagOn) CheckAfterTurn(piece);
    const bool solved = Game.SolvedFlag == Game.FlagOn;
    if (!solved) DrawPieceOnTop(piece);
    PlayCue("Click");
    if (solved) WinFlow();
}

void Picture1_MouseMove(std::int16_t, std::int16_t, float X, float Y) {
    if (Game.ActivePiece == NoPiece) return;
    if (Game.DragButton == 1)
        TakeUp(NearestInt16(Game.ActivePiece), X, Y);
    else
        DrawOutline(Game.BoardColor);
    ShiftOutline(X, Y);
    DrawAllPieces();
    Game.LastMouseX = X;
    Game.LastMouseY = NearestInt16(Y);
    DrawOutline(Game.WhiteColor);
    FormMain.Picture1.Image.Refresh();
}

void Picture1_MouseUp(std::int16_t Button, std::int16_t Shift, float X, float Y) {
    const bool dragging = Game.ActivePiece != NoPiece && Game.DragButton != 1;
    if (X == Game.MouseDownX && Y == Game.MouseDownY && !dragging) {
        const int piece = PieceAt(X, Y);
        Game.ActivePiece = NoPiece;
        if (piece != NoPiece) Game.LastPiece = NearestInt16(piece);
        return;
    }
    if (Game.ActivePiece == NoPiece) return;
    // A release can come without a move before it. The piece has not been taken up then.
    if (Game.DragButton == 1) Picture1_MouseMove(Button, Shift, X, Y);
    Drop(NearestInt16(Game.ActivePiece), X, Y);
}

void Picture1_MouseLost() {
    if (Game.ActivePiece == NoPiece) return;
    const int piece = NearestInt16(Game.ActivePiece);
    Game.ActivePiece = NoPiece;
    if (Game.DragButton == 1) return;
    PutBack(piece);
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
}
