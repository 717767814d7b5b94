// Plays a story on the scripted desktop and writes it down: story FOLDER. FOLDER/story.json has the player's
// steps, in pixels of the board; at each "see" the page's board has to look like the picture of that name,
// FOLDER/NAME.RATIO in the bytes of a canvas, at ratios of 1, 1.5 and 2.
#include "game/game_on_script.h"
#include "platform/scaled_surface.h"

namespace {

class Story : public GameTest {
  public:
    explicit Story(std::string folder) : Out(std::move(folder)) {}
    void TestBody() override {}

    void Tell() {
        std::filesystem::copy(DATA_FOLDER "/QUILLET.qui", In("QUILLET.qui"));
        Start();
        PressTile("First");
        Drag(InsideOf(Square), {300, 60});
        for (const auto& [code, shift] : {std::pair{9, 0}, {37, 0}, {40, 1}, {39, 2}, {104, 0}})
            PressKey(code, shift);
        See("keys");
        for (const char* level : {"Easy", "Very easy", "Normal"}) PressTile(level);
        PressTile("Very easy");
        See("colours");
        PressTile("Normal");
        Desktop.WhileModal = [this] { See("solved"); };
        Solve();
        Desktop.WhileModal = nullptr;
        Steps << "[\"won\"],\n";
        See("next");
        // The next figure, by touch.
        Steps << "[\"touch\"],\n";
        Solve();
        Steps << "[\"won\"]\n";
        WriteText(Out + "/story.json", "[" + Steps.str() + "]");
    }

  private:
    /// Turns and drags each piece to its place.
    void Solve() {
        const auto q = static_cast<std::size_t>(Game.CurrentQuillet);
        for (std::size_t p = 0; p < PieceCount; ++p) {
            const int piece = static_cast<int>(p);
            while (Game.PieceTurn[p] != Game.SolTurn[p][q]) Turn(GripOf(piece));
            const Vertex grip = GripOf(piece);
            Drag(grip, {grip.X + NearestInt32(30 + Game.SolX[p][q] - Game.PieceX[p]),
                        grip.Y + NearestInt32(30 + Game.SolY[p][q] - Game.PieceY[p])});
        }
    }

    void Turn(Vertex at) {
        Steps << "[\"turn\"," << at.X << ',' << at.Y << "],\n";
        Press(2, at), Release(2, at);
    }

    void Drag(Vertex from, Vertex to) {
        Steps << "[\"drag\"," << from.X << ',' << from.Y << ',' << to.X << ',' << to.Y << "],\n";
        // The grip is taken at the first move, which is never none.
        Press(1, from), MoveTo({from.X + 1, from.Y}), MoveTo({(from.X + to.X) / 2, (from.Y + to.Y) / 2});
        MoveTo(to), Release(1, to);
    }

    void PressTile(const char* command) {
        Steps << "[\"press\",\"Form1.MenuButx_" << Button(command).Index << "\"],\n";
        PressButton(Button(command));
    }

    void PressKey(int code, int shift) {
        Steps << "[\"key\"," << code << ',' << shift << "],\n";
        Key(code, shift);
    }

    void See(const std::string& name) {
        Steps << "[\"see\",\"" << name << "\"],\n";
        for (const double ratio : {1.0, 1.5, 2.0}) {
            const int width = int(350 * ratio), height = int(390 * ratio);
            std::vector<Surface::Pixel> pixels(std::size_t(width * height));
            ScaleSurface(Board.Image, GridOf(Board.Image, width, height, {0, height}), pixels.data(), width);
            std::string bytes;
            for (const Surface::Pixel pixel : pixels)
                for (const int shift : {16, 8, 0, 24}) bytes += static_cast<char>(pixel >> shift);
            std::ostringstream file;
            file << Out << '/' << name << '.' << ratio;
            WriteText(file.str(), bytes);
        }
    }

    std::string Out;
    std::ostringstream Steps;
};

} // namespace

int main(int, char** argv) {
    std::filesystem::create_directories(argv[1]);
    Story(std::filesystem::absolute(argv[1]).string()).Tell();
    return 0;
}
