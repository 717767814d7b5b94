// Mouse and keys on the board: picking, dragging, dropping, turning, nudging, and a mouse that is taken away.
#include "game_on_script.h"

namespace {

class PlayTest : public RunningGame {
  protected:
    static Places HomeBut(int piece, double dx, double dy) {
        Places places = HomePlaces();
        places[piece][0] += dx, places[piece][1] += dy;
        return places;
    }
};

TEST_F(PlayTest, ADragGoesFromItsFirstMoveToAnyReleaseWhateverComesBetween) {
    const Vertex from = InsideOf(Square);
    const auto at = [&](int dx, int dy) { return Vertex{from.X + dx, from.Y + dy}; };
    const std::tuple<Vertex, std::vector<Vertex>, Vertex, int, int, const char*> drags[] = {
        {{2, 2}, {from}, at(9, 9), 0, 0, ""},       // no piece there
        {at(-24, -24), {from}, at(9, 9), 0, 0, ""}, // the edge is none
        {from, {}, from, 0, 0, ""},                 // a plain click makes the piece the keyboard's
        {from, {from, at(20, 10)}, at(9, 30), 9, 30, "cue Slide"},
        {from, {at(7, 3)}, from, -7, -3, "cue Slide"}, // back at the press
        {from, {}, at(40, 0), 0, 0, "cue Slide"},
        {from, {from, at(-5000, 70000), at(90000, -3)}, at(1, 0), 1, 0, "cue Slide"}};
    for (const std::int16_t other : {std::int16_t{1}, std::int16_t{2}})
        for (const auto& [start, moves, end, dx, dy, calls] : drags) {
            Lay(HomePlaces());
            Game.LastPiece = 0;
            Press(4, from); // a third button takes nothing
            Press(1, start);
            const bool hit = start == from;
            EXPECT_EQ(Game.ActivePiece, hit ? Square : -1);
            for (const Vertex& pixel : moves) MoveTo(pixel);
            if (hit) {
                const std::string inHand = Scene();
                Press(other, end), Key(9, 2), Key(37, 2), Key(65);
                EXPECT_EQ(Scene(), inHand);
            }
            const auto letGo = [other, at = end] { Release(other, at), MoveTo({9, 9}), Release(1, {9, 9}); };
            EXPECT_EQ(CallsOf(letGo), calls);
            EXPECT_EQ(PlacesNow(), HomeBut(Square, dx, dy));
            EXPECT_EQ(std::pair(Game.ActivePiece, int{Game.LastPiece}), std::pair(-1., hit ? Square : 0));
            ExpectCleanPicture();
        }
}

TEST_F(PlayTest, APieceInHandIsAWhiteOutlineThatGoesBackWithoutAMouseOrDropsOnTop) {
    const Vertex from = InsideOf(0), to = InsideOf(Square);
    const std::string scene = Scene();
    Press(1, from);
    LoseMouse(Board);
    EXPECT_EQ(Scene(), scene);
    for (const bool lost : {true, false}) {
        Press(1, from);
        MoveTo({from.X - 1, from.Y});
        EXPECT_EQ(std::pair(Board.Image.Point(from.X, from.Y), PickedAt(from)),
                  std::pair(Game.BoardColor, 0));
        const long refreshes = Board.Image.RefreshCount();
        MoveTo({to.X - 1, to.Y});
        EXPECT_EQ(Board.Image.RefreshCount(), refreshes + 1);
        EXPECT_EQ(Board.Image.Point(Game.DragX + to.X - from.X, Game.DragY + to.Y - from.Y), Game.WhiteColor);
        EXPECT_EQ(Board.Image.Point(Game.DragX, Game.DragY), Game.BoardColor); // the outline moved on
        if (!lost) continue;
        EXPECT_EQ(CallsOf([] { LoseMouse(Board), MoveTo({5, 5}), Release(1, {5, 5}); }), "");
        EXPECT_EQ(Scene(), scene);
    }
    Release(1, {to.X - 1, to.Y});
    EXPECT_EQ(std::pair(PickedAt(from), PickedAt(to)), std::pair(-1, 0));
    TurnByMouse(Square); // by a pixel that still shows
    EXPECT_EQ(PickedAt(InsideOf(Square)), Square);
    Key(16, 1); // any key stacks the pieces by number again
    ExpectCleanPicture();
}

TEST_F(PlayTest, ADropIsJudgedByTheFourLimitsInThePresentTurn) {
    for (const int turn : {0, 1}) {
        const double limits[][2] = {{20, 330 - Game.PieceWidth[5][turn]},
                                    {20, 365 - Game.PieceHeight[5][turn]}};
        for (const std::size_t axis : {0u, 1u})
            for (const double beyond : {0, -1, 1, 4000})
                for (const double limit : limits[axis]) {
                    std::array<Number, 3> place = {100, 100, Number(turn)}, before = PlacesNow()[5];
                    place[axis] = limit + beyond;
                    const bool accepted = limits[axis][0] <= place[axis] && place[axis] <= limits[axis][1];
                    Game.LastPiece = 0;
                    EXPECT_EQ(CallsOf([&] { DragTo(5, place[0], place[1]); }),
                              accepted ? "cue Slide" : "cue Error");
                    EXPECT_EQ(PlacesNow()[5], accepted ? place : before);
                    EXPECT_EQ(Game.LastPiece, 5);
                }
        TurnByMouse(5);
    }
}

TEST_F(PlayTest, TurnsAreNeverRefusedAndAFullCircleComesBack) {
    for (int p = 0; p < PieceCount; ++p) {
        const Places start = HomeBut(p, 15 - Game.HomeX[p], 0); // beyond the limits
        Lay(start);
        for (int step = 0, turns = p == Square ? 2 : 8; step < turns; ++step) {
            auto [x, y, turn] = PlacesNow()[p];
            const int entered = (NearestInt32(turn) + 1) % turns;
            EXPECT_EQ(CallsOf([&] { TurnByMouse(p); }), "cue Click");
            EXPECT_EQ(PlacesNow()[p], (std::array{x + Game.TurnShiftX[p][entered],
                                                  y + Game.TurnShiftY[p][entered], Number(entered)}));
            EXPECT_EQ(PickedAt(InsideOf(p)), p);
        }
        EXPECT_EQ(PlacesNow(), start);
    }
}

TEST_F(PlayTest, KeysNudgeOrTurnTheLastPieceOrNudgeAllOfThemWithoutLimits) {
    const int cases[][5] = {// code, shift, dx, dy, all
                            {37, 0, -1, 0, 0},  {39, 0, 1, 0, 0},  {38, 0, 0, -1, 0},  {40, 0, 0, 1, 0},
                            {100, 0, -1, 0, 0}, {102, 0, 1, 0, 0}, {104, 0, 0, -1, 0}, {98, 0, 0, 1, 0},
                            {37, 1, -5, 0, 0},  {98, 1, 0, 5, 0},  {39, 2, 1, 0, 1},   {104, 2, 0, -1, 1},
                            {40, 3, 0, 1, 0},   {39, 6, 1, 0, 0},  {65, 0, 0, 0, 0}};
    for (const std::int16_t last : {std::int16_t{0}, std::int16_t{5}})
        for (const auto& [code, shift, dx, dy, all] : cases) {
            Places places = PlacesNow();
            for (int p = 0; p < PieceCount; ++p)
                if (all || p == last) places[p][0] += dx, places[p][1] += dy;
            Game.LastPiece = last;
            const long refreshes = Board.Image.RefreshCount();
            EXPECT_EQ(CallsOf([key = code, with = shift] { Key(key, with); }), "");
            EXPECT_EQ(std::pair(PlacesNow(), Game.LastPiece), std::pair(places, last))
                << code << " " << shift;
            EXPECT_GT(Board.Image.RefreshCount(), refreshes);
            ExpectCleanPicture();
        }
    EXPECT_EQ(CallsOf([] { Key(9), Key(9, 1), Key(9, 2); }), "cue Click; cue Click; cue Click");
    EXPECT_EQ(Game.PieceTurn[5], 3);
}

} // namespace
