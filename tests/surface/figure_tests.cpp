// Pictures of the game against the plain surface: every shipped figure at every level and on every page of
// both views.
#include "game/game_on_script.h"
#include "play/win_flow.h"
#include "reference.h"
#include "shell/all_shapes.h"
#include "shell/print_shapes.h"

#include <cmath>

namespace {

#ifdef SANITIZED
constexpr int EveryNth = 8;
#else
constexpr int EveryNth = 1;
#endif

struct FigureTest : GameTest {
    FigureTest() { StartWith(Shipped.substr(ShippedHead.size())); }
};

/// The piece of the quillet, its corners taken through both functions.
template <typename ToX, typename ToY>
Shape Placed(int piece, int quillet, ToX toX, ToY toY) {
    const auto q = static_cast<std::size_t>(quillet), turn = static_cast<std::size_t>(Game.SolTurn[piece][q]);
    Shape shape;
    for (std::size_t corner = 1; corner < 8; corner += 2)
        shape.push_back({toX(Game.SolX[piece][q] + Game.PieceShape[corner][piece][turn]),
                         toY(Game.SolY[piece][q] + Game.PieceShape[corner + 1][piece][turn])});
    return shape;
}

Shape ShiftedBy(int shiftX, int shiftY, int piece, int quillet) {
    const auto by = [](int shift) { return [=](Number n) { return shift + NearestInt32(n); }; };
    return Placed(piece, quillet, by(shiftX), by(shiftY));
}

/// The panel's box is 233 by 240; the figure is drawn at (5, 14) and then moved to the middle.
void ExpectTarget(int quillet, int level) {
    Reference stage(600, 600, ButtonFace),
        target(Form1.TargetQui[1].Image.Width(), Form1.TargetQui[1].Image.Height(), ButtonFace);
    Vertex end;
    for (int p = 0; p < PieceCount; ++p) {
        const Shape shape = ShiftedBy(5, 14, p, quillet);
        for (const Vertex v : shape) end = {std::max(end.X, v.X), std::max(end.Y, v.Y)};
        const Colour ink = level == VeryEasyLevel ? Game.PieceRGB[p] : 0;
        stage.Draw(shape, ink, ink);
    }
    const double boxWidth = 3500.0F / 15, offX = (boxWidth - end.X) / 2, offY = (240.0 - end.Y) / 2;
    const int left = NearestInt32(offX), top = NearestInt32(offY);
    const int width = NearestInt32(boxWidth - offX), height = NearestInt32(240 - offY);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) target.Set(left + x, top + y, stage.At(x, y));
    ExpectSame(Form1.TargetQui[1].Image, target);
}

/// The figure as Copy lays it, 60 pixels from the corner.
void ExpectBoard(int quillet, int level) {
    Reference board(350, 390, Game.BoardColor),
        picks(FormMain.Image.Width(), FormMain.Image.Height(), FormMain.Image.BackColor);
    // Copy judges no turns: the colours are those of the turns at home.
    PerPiece<Number> home;
    std::ranges::copy(Game.HomeTurn, home.begin());
    Matches matches{};
    for (int p = 0; p < PieceCount; ++p)
        matches = MatchedTurns(home, SolutionOf(Game, static_cast<std::size_t>(quillet)), p, matches);
    for (int p = 0; p < PieceCount; ++p) {
        const Shape shape = ShiftedBy(60, 60, p, quillet);
        const Colour matched = matches[p] ? Rgb(0, 128, 128) : 0;
        board.Draw(shape, 0, level == VeryEasyLevel ? Game.PieceRGB[p] : level == EasyLevel ? matched : 0);
        picks.Draw(shape, Game.BoardColor, Game.PieceRGB[p]);
    }
    ExpectSame(FormMain.Picture1.Image, board);
    ExpectSame(FormMain.Image, picks);
}

TEST_F(FigureTest, BoardPicksAndTargetAreDrawnByTheRuleAtEveryLevel) {
    for (const int level : {NormalLevel, EasyLevel, VeryEasyLevel}) {
        PressButton(Form1.MenuButx[static_cast<std::size_t>(17 - level)]);
        for (int quillet = 1; quillet <= Game.QuilletCount; quillet += EveryNth) {
            ResetPieces(); // the turns are judged when a figure is chosen, before the pieces go home
            SelectQuillet(quillet);
            ASSERT_NO_FATAL_FAILURE(ExpectTarget(quillet, level)) << quillet;
            PressButton(Button("Copy"));
            ASSERT_NO_FATAL_FAILURE(ExpectBoard(quillet, level)) << quillet;
        }
    }
}

/// What the pages of a view have in common; lengths in pixels.
struct Layout {
    int Columns, Rows;
    float Scale;
    int Cell;
    double ColumnPitch;
    Colour Ground;
    bool Numbered;
};

/// The lines of a cell are drawn again with each piece, light ones and dark ones beside them.
void ExpectPage(const Form& page, const Layout& layout, int before, Colour edge, Colour inside) {
    Reference reference(page.Image.Width(), page.Image.Height(), layout.Ground);
    std::vector<Surface::TextItem> numbers;
    const auto scaled = [&](Number n) { return std::floor(layout.Scale * (n + 1)); };
    for (int n = 0; n < layout.Columns * layout.Rows && before + n < Game.QuilletCount; ++n) {
        const int column = n % layout.Columns, row = n / layout.Columns;
        numbers.push_back({layout.Cell * (column + 1) - 27, layout.Cell * (row + 1) - 13, 0,
                           " " + std::to_string(before + n + 1)});
        for (int p = 0; p < PieceCount; ++p) {
            const double left = layout.Cell * column, right = left + layout.Cell,
                         bottom = layout.Cell * (row + 1);
            reference.Box(left, 0, right, bottom, Rgb(255, 255, 255));
            reference.Box(left + 8 / 15.0, 8 / 15.0, right + 8 / 15.0, bottom + 8 / 15.0, Rgb(128, 128, 128));
            const Shape shape = Placed(
                p, before + n + 1,
                [&](Number x) { return NearestInt32(scaled(x) + 100.0F / 15 + layout.ColumnPitch * column); },
                [&](Number y) { return NearestInt32(scaled(y) + 7 + layout.Cell * row); });
            reference.Draw(shape, edge, inside);
        }
    }
    EXPECT_EQ(page.Image.Texts(), layout.Numbered ? numbers : std::vector<Surface::TextItem>{});
    ExpectSame(page.Image, reference);
}

TEST_F(FigureTest, EveryPageOfBothViewsIsDrawnByTheRule) {
    const Colour grey = Rgb(100, 100, 100), white = Rgb(255, 255, 255);
    PressButton(Button("View All"));
    for (int before = 0; before <= AllShapes.VScroll1.Max; before += 8) {
        ExpectPage(AllShapes, {8, 8, 0.18F, 48, 49.5, Rgb(192, 192, 192), false}, before, 0, 0);
        Scroll(AllShapes.VScroll1, 8);
    }
    HideForm(AllShapes); // or Print would leave the page to it
    ChooseMenuItem(Form1, "Print");
    for (int before = 0; before <= PrintShapes.VScroll1.Max; before += 20) {
        for (const auto& [item, edge] : {std::pair("Show Shape", grey), {"Show Solution", white}}) {
            ChooseMenuItem(PrintShapes, item);
            ExpectPage(PrintShapes, {5, 4, 0.54F, 144, 148.5, white, true}, before, edge, grey);
        }
        Scroll(PrintShapes.VScroll1, 20);
    }
}

} // namespace
