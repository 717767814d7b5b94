// Mouse and keys on the board: picking, dragging, dropping, turning, nudging, and a mouse that is taken away.
#include "game_on_script.h"

namespace {

class PlayTest : public RunningGame {
  protected:
    static Places Moved(Places places, int piece, double dx, double dy) {
        places[piece][0] += dx;
        places[piece][1] += dy;
        return places;
    }
};

TEST_F(PlayTest, ADragGoesFromItsFirstMoveToAnyReleaseWhateverComesBetween) {
    const Vertex from = InsideOf(Square);
    const auto at = [&](int dx, int dy) { return Vertex{from.X + dx, from.Y + dy}; };
    struct {
        Vertex Start;
        std::vector<Vertex> Moves;
        Vertex End;
        int Dx, Dy;
        std::string Cue;
    } const drags[] = {{{2, 2}, {from}, at(9, 9), 0, 0, ""},       // no piece there
                       {at(-24, -24), {from}, at(9, 9), 0, 0, ""}, // the edge is none
                       {from, {}, from, 0, 0, ""},                 // a click makes the piece the keyboard's
                       {from, {from, at(20, 10)}, at(9, 30), 9, 30, "cue Slide"},
                       {from, {at(7, 3)}, from, -7, -3, "cue Slide"}, // back at the press
                       {from, {}, at(40, 0), 0, 0, "cue Slide"},      // the grip is taken at the first move
                       {from, {from, at(-5000, 70000), at(90000, -3)}, at(1, 0), 1, 0, "cue Slide"},
                       {from, {from}, at(-5000, 0), 0, 0, "cue Error"}};
    for (const std::int16_t other : {std::int16_t{1}, std::int16_t{2}})
        for (const auto& [start, moves, end, dx, dy, cue] : drags) {
            Lay(HomePlaces());
            Game.LastPiece = 0;
            Press(4, from); // a third button takes nothing
            Press(1, start);
            for (const Vertex& pixel : moves) MoveTo(pixel);
            if (start == from) {
                const std::string inHand = Scene();
                Press(other, end);
                for (const int key : {9, 37, 65}) Key(key, 2);
                EXPECT_EQ(Scene(), inHand) << "a press and keys in the middle of a drag";
            }
            EXPECT_EQ(CallsOf([other, at = end] { Release(other, at); }), cue);
            MoveTo({9, 9});
            Release(1, {9, 9}); // the other button, later
            EXPECT_EQ(PlacesNow(), Moved(HomePlaces(), Square, dx, dy));
            EXPECT_EQ(Game.LastPiece, start == from ? Square : 0);
            ExpectCleanPicture();
        }
}

TEST_F(PlayTest, APieceInHandIsAWhiteOutlineThatFollowsThePointer) {
    const Vertex from = InsideOf(0), to = InsideOf(Square);
    const auto colourAt = [](Number x, Number y) { return Board.Image.Point(x, y); };
    Press(1, from);
    MoveTo(from);
    EXPECT_EQ(colourAt(from.X, from.Y), Game.BoardColor) << "the board is empty where it lay";
    EXPECT_EQ(PickedAt(from), 0) << "until the drop";
    MoveTo({from.X - 7, from.Y + 9});
    const long refreshes = Board.Image.RefreshCount();
    MoveTo(to);
    EXPECT_EQ(Board.Image.RefreshCount(), refreshes + 1) << "one picture for one move";
    EXPECT_EQ(colourAt(Game.DragX + to.X - from.X, Game.DragY + to.Y - from.Y), Game.WhiteColor);
    EXPECT_EQ(colourAt(Game.DragX, Game.DragY), Game.BoardColor) << "the outline moved on";
    Release(1, to);
    EXPECT_EQ(PickedAt(from), -1);
    EXPECT_EQ(PickedAt(to), 0) << "it lies on top";
    TurnByMouse(Square); // by a pixel that still shows
    EXPECT_EQ(PickedAt(InsideOf(Square)), Square) << "a turned piece comes to the top";
    Key(16, 1); // any key stacks the pieces by number again
    ExpectCleanPicture();
}

TEST_F(PlayTest, APieceGoesBackWhenTheMouseIsTakenAway) {
    const std::string scene = Scene();
    for (const bool moved : {false, true}) {
        Press(1, InsideOf(0));
        if (moved) MoveTo(InsideOf(0));
        if (moved) MoveTo(InsideOf(Square));
        LoseMouse();
        MoveTo({5, 5});
        EXPECT_EQ(CallsOf([] { Release(1, {5, 5}); }), "");
        EXPECT_EQ(Scene(), scene);
    }
}

TEST_F(PlayTest, KeysNudgeOrTurnTheLastPieceOrNudgeAllOfThemWithoutLimits) {
    struct {
        int Code, Shift, Dx, Dy;
        bool All;
    } const keys[] = {{37, 0, -1, 0, false}, {100, 0, -1, 0, false}, {37, 1, -5, 0, false},
                      {39, 0, 1, 0, false},  {102, 0, 1, 0, false},  {39, 2, 1, 0, true},
                      {38, 0, 0, -1, false}, {104, 0, 0, -1, false}, {104, 2, 0, -1, true},
                      {40, 0, 0, 1, false},  {98, 1, 0, 5, false},   {98, 0, 0, 1, false},
                      {40, 3, 0, 1, false},  {39, 6, 1, 0, false},   {65, 0, 0, 0, false}};
    for (const std::int16_t last : {std::int16_t{0}, std::int16_t{5}})
        for (const auto& [code, shift, dx, dy, all] : keys) {
            Places places = PlacesNow();
            for (int p = 0; p < PieceCount; ++p)
                if (all || p == last) places = Moved(places, p, dx, dy);
            Game.LastPiece = last;
            EXPECT_EQ(CallsOf([key = code, with = shift] { Key(key, with); }), "");
            EXPECT_EQ(PlacesNow(), places) << "key " << code << " with " << shift;
            EXPECT_EQ(Game.LastPiece, last);
            ExpectCleanPicture();
        }
    Game.PieceX[5] = -20; // beyond all limits
    const Places places = PlacesNow();
    for (int turn = 1; turn <= 8; ++turn) {
        EXPECT_EQ(CallsOf([=] { Key(9, turn % 3); }), "cue Click");
        EXPECT_EQ(Game.PieceTurn[5], turn % 8);
    }
    EXPECT_EQ(PlacesNow(), places) << "after a full circle";
}

} // namespace
