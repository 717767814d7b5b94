// What the player does on the board, piece by piece, and what the screen then shows.
#pragma once

#include "core/game_state.h"

#include <string>
#include <vector>

/// All that the mouse can change on the board.
struct Arrangement {
    PerPiece<Number> X{}, Y{}, Turn{};
    Number ActivePiece = -1;
    std::int16_t DragButton = 0, LastPiece = 0;
    std::vector<Surface::Pixel> Board, PickMap;
    bool operator==(const Arrangement&) const = default;
};
Arrangement Now();

/// A piece in hand: where it lay, and the pointer at the drag's first move.
struct Hold {
    int Piece = 0;
    double FromX = 0, FromY = 0;
    int PointerX = 0, PointerY = 0;
};

/// Presses the left button inside the piece and makes the first move.
Hold TakeInHand(int piece);

/// Moves the pointer, in two steps, so that the piece's reference point comes to (x, y).
void Carry(const Hold& hold, double x, double y);

/// Takes the piece in hand, carries it there and releases it.
void Drag(int piece, double x, double y);

/// Presses the right button inside the piece.
void PressRight(int piece);

/// Clicks with the right button inside the piece until it has the turn.
void TurnTo(int piece, double turn);

/// Waits until the screen shows the board's surface pixel by pixel, and nothing but the plain face of the
/// window around it and its label.
void AwaitBoardOnScreen();

/// Waits for a box with that text that has the keyboard.
void AwaitBox(const std::string& text);

/// Answers the box with Enter and waits until it is gone.
void CloseBox();
