// The one shared record of the game. Every procedure reads and writes it directly.
// It is made of parts, so that a reader of files can fill one and install it, and a rule can be asked about
// one alone. Lengths are board pixels; tables are indexed (piece, turn) or (piece, quillet), pieces 0 to 6,
// turns 0 to 7, quillets 1 to 500. Piece -1 means none. Pieces 0 and 1 are twins, interchangeable in a
// solution, and so are 2 and 4.
#pragma once

#include "platform/surface.h"

#include <array>
#include <cstdint>
#include <string>

constexpr int PieceCount = 7;
constexpr int TurnCount = 8;
constexpr int MostQuillets = 500;

/// Levels of play; the higher number is the harder one.
constexpr std::int16_t NormalLevel = 3;
constexpr std::int16_t EasyLevel = 2;
constexpr std::int16_t VeryEasyLevel = 1;

/// The first five points are computed, the first four drawn.
using PolygonPoints = std::array<Vertex, 11>;
constexpr std::size_t ComputedPoints = 5;
constexpr std::size_t DrawnPoints = 4;

template <typename T>
using PerPiece = std::array<T, PieceCount>;
template <typename T>
using PerTurn = PerPiece<std::array<T, TurnCount>>;
template <typename T>
using PerQuillet = PerPiece<std::array<T, MostQuillets + 1>>;

/// Where the pieces lie. A reference point is the top left corner of the rectangle around the outline in the
/// present turn; on a surface it lies at (BoardX0 + PieceX, BoardY0 + PieceY).
struct Arrangement {
    PerPiece<Number> PieceX{};
    PerPiece<Number> PieceY{};
    PerPiece<Number> PieceTurn{};
};

/// The outlines of the pieces and their start places, from the head of a collection file.
struct PieceTable {
    PerPiece<Number> HomeX{};
    PerPiece<Number> HomeY{};
    PerPiece<std::int16_t> HomeTurn{};
    /// Outline: k = 1, 3, 5, 7, 9 the x, k = 2, 4, ... 10 the y of vertices 1 to 5 from the reference point;
    /// k = 0 stays 0.
    std::array<PerTurn<std::int16_t>, 11> PieceShape{};
    PerTurn<Number> PieceWidth{};
    PerTurn<Number> PieceHeight{};
    PerTurn<Number> TurnShiftX{}; ///< added to the reference point when the piece enters the turn
    PerTurn<std::int16_t> TurnShiftY{};
    Number UnitStraight = 24; ///< pixels per file unit in a straight row of the table
    Number UnitSlant = 34;    ///< the same in a slanted row: 24 times the square root of 2, rounded
};

/// The quillets: for each the solution, measured from the left and top edge of the figure. Slot 0 stays
/// empty.
struct Collection {
    Number QuilletCount = 0;
    PerQuillet<Number> SolTurn{};
    PerQuillet<Number> SolX{}; ///< reference point of the piece
    PerQuillet<std::int16_t> SolY{};
};

struct GameState : Collection, PieceTable, Arrangement {
    // Constants and paths, written by the start-up alone.
    Number FlagOn = 0;
    Flag FlagOff = 0;
    std::string AppPath;     ///< the program's folder, ends in a separator
    std::string LineBreak;   ///< in message texts: the characters 10 and 13
    std::string QuilletFile; ///< full path of the collection in memory
    float ScreenScaleX = 1;  ///< screen against one of 15 twips per pixel
    float ScreenScaleY = 1;

    // The board.
    Number BoardX0 = 0; ///< origin of piece coordinates on the surfaces
    Number BoardY0 = 0;
    PerPiece<std::int32_t> PieceQBColor{}; ///< entry of the 16-colour table
    PerPiece<Colour> PieceRGB{};           ///< the same as a pixel: the key colour of the pick map
    Colour BoardColor = 0;
    Colour WhiteColor = 0;
    Colour BlackColor = 0;

    // Play.
    Number CurrentQuillet = 0; ///< the one shown, from 1; 0 can be shown where the collection is empty
    std::int16_t PlayLevel = 0;
    Number SolutionShown = 0;     ///< flag: the pieces were laid into the solution
    PerPiece<Flag> TurnMatched{}; ///< the turn agrees with the solution
    Flag SolvedFlag = 0;
    Flag SoundOn = 0;
    Number ActivePiece = -1;    ///< in hand, or being redrawn on top
    std::int16_t LastPiece = 0; ///< of the last plain click or drop; the keyboard acts on it

    // The drag.
    std::int16_t DragButton = 0; ///< 1 from a left press on a piece until the first move
    Number MouseDownX = 0;
    Number MouseDownY = 0;
    Number LastMouseX = 0;
    std::int16_t LastMouseY = 0;
    PerPiece<Number> DragFromX{}; ///< reference point when the drag began
    PerPiece<Number> DragFromY{};
    Number DragX = 0; ///< the same on the surface
    Number DragY = 0;

    // Scratch, valid within one operation.
    PolygonPoints PiecePoly{};
    PolygonPoints TargetPoly{};
    Number DrawX = 0;
    Number DrawY = 0;
    std::int16_t CurTurn = 0;
    PerPiece<std::string> TouchList; ///< the pieces that touch each piece, each a blank and a digit
};

extern GameState Game;

/// The value of a flag that is set, or cleared.
Flag FlagOf(bool set);

/// The shown quillet as an index of the solution tables; slot 0 where an empty collection shows none.
std::size_t ShownQuillet();
