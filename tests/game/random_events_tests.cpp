// Endless play: whatever a player can do, in any order, while files fail, and what must hold after each
// event. QUILLETS_EVENTS sets how many events, QUILLETS_SEED repeats a run.
#include "game_on_script.h"

#include <cstdlib>
#include <random>

namespace fs = std::filesystem;

namespace {

long FromEnvironment(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text ? std::atol(text) : otherwise;
}

class RandomEvents : public GameTest {
  protected:
    RandomEvents() { fs::create_symlink("/dev/full", "full.qui"); }

    void Begin() {
        for (const char* name : Files) fs::remove_all(name);
        PutFiveFigures();
        ASSERT_TRUE(Start());
        Desktop.WhileModal = [this] { AnswerOrUseTheOpenWindow(); };
    }

    int Pick(int from, int to) { return std::uniform_int_distribution(from, to)(Random); }
    auto& OneOf(auto& range) { return range[std::size_t(Pick(0, int(std::size(range)) - 1))]; }
    std::int16_t SomeButton() { return NearestInt16(std::max(1, Pick(-4, 4))); }

    /// A box gets any answer, a dialog a path, and a modal window an event of its own.
    void AnswerOrUseTheOpenWindow() {
        const std::string names[] = {"QUILLET.qui", "copy.qui", "junk.qui", "full.qui", "nowhere/x"};
        Desktop.Paths = {Pick(0, 6) == 0 ? "" : In(OneOf(names))};
        Desktop.Answers = {BoxAnswer(Pick(0, 3))};
        Pressed = false;
        Form& newest = *Desktop.Loaded.back();
        if (!std::exchange(InModal, true) && newest.Centred) SomeEventOf(newest);
        InModal = false;
    }

    /// A file is cut, gone or whole again, or a folder stands in its place.
    void SomeFault() {
        const std::string name = OneOf(Files);
        const int kind = Pick(0, 3);
        if (kind == 0 && fs::is_regular_file(name))
            return fs::resize_file(name, std::uintmax_t(Pick(0, 4000)));
        fs::remove_all(name);
        if (kind == 1) fs::create_directories(name);
        if (kind == 2) WriteText(name, ShippedHead + FiveFigures);
    }

    /// Often at a piece, often near the last place, now and then far outside.
    void SomeMouseEvent() {
        const Vertex places[] = {{Pick(-40'000, 40'000), Pick(-40'000, 40'000)},
                                 {Pick(-20, 370), Pick(-20, 410)},
                                 {Mouse.X + Pick(-5, 5), Mouse.Y + Pick(-5, 5)},
                                 InsideOf(Pick(0, PieceCount - 1)),
                                 Mouse};
        Mouse = OneOf(places);
        const int act = Pick(0, 3);
        if (act > 1) return MoveTo(Mouse);
        Pressed = act == 0;
        Pressed ? Press(SomeButton(), Mouse) : Release(SomeButton(), Mouse);
    }

    /// Any control, menu item or event of a window but the board's own.
    void SomeEventOf(Form& form) {
        const auto x = static_cast<float>(Pick(-100, 6000)), y = static_cast<float>(Pick(-100, 6000));
        std::int16_t key = Pick(0, 1) ? 27 : 65;
        const int kind = Pick(0, 16);
        if (kind < 6) return Use(OneOf(form.Controls));
        if (kind < 10 && !form.Menus.empty()) ChooseMenuItem(form, OneOf(form.Menus[0].Items).Caption);
        if (kind < 12 && form.MouseMove) form.MouseMove(0, 0, x, y);
        if (kind < 14 && form.MouseUp) form.MouseUp(SomeButton(), 0, x, y);
        if (kind == 14 && form.KeyDown) form.KeyDown(key, 0);
        if (kind > 14) Deliver([&] { form.CloseRequest ? form.CloseRequest() : UnloadForm(form); });
    }

    void Use(const ControlRef& control) {
        const auto use = [this](auto& each) {
            if constexpr (requires { each.Controls; }) Use(OneOf(each.Controls));
            if constexpr (requires { each.Latches; }) PressButton(each);
            if constexpr (requires { each.Max; }) Scroll(each, Pick(-600, 600));
            if constexpr (requires { each.Click; }) each.Click();
            if constexpr (requires { each.MouseUp; })
                if (each.MouseUp && each.Name != "Picture1") each.MouseUp(SomeButton(), 0, 5, 5);
        };
        std::visit([&](auto* each) { use(*each); }, control);
    }

    void SomeEvent() {
        constexpr int Keys[] = {9, 37, 38, 39, 40, 98, 100, 102, 104, 65, 16};
        const int kind = Pick(0, 999);
        if (kind < 800) return SomeMouseEvent();
        if (kind < 900) return Key(OneOf(Keys), Pick(0, 4));
        Pressed = false;
        LoseMouse();
        if (kind < 950) return PressButton(OneOf(Form1.MenuButx));
        if (kind < 985) return SomeEventOf(*OneOf(Desktop.Loaded));
        if (kind < 988) return FollowLink(kind == 985 ? "quillets.htm" : "quillets.htm#keys");
        if (kind < 992) return SomeFault();
        if (Game.CurrentQuillet > 0) LaySolution(30, 30); // wins are rare otherwise
    }

    /// Cheap enough to be looked at after each event.
    void ExpectSoundState() {
        // An emptied collection shows quillet 0 or 1 of none.
        const Number shown = Game.CurrentQuillet, count = Game.QuilletCount;
        EXPECT_EQ(std::clamp<Number>(shown, count > 0, std::max<Number>(count, 1)), shown);
        EXPECT_TRUE(Board.Enabled);
        EXPECT_TRUE(Pressed || Game.ActivePiece == -1) << "a piece is in hand";
        for (int p = 0; p < PieceCount; ++p)
            EXPECT_EQ(std::clamp<Number>(Game.PieceTurn[p], 0, p == Square ? 1 : 7), Game.PieceTurn[p]) << p;
        for (const int level : {1, 2, 3})
            EXPECT_TRUE(!Form1.MenuButx[std::size_t(17 - level)].Latched || Game.PlayLevel == level) << level;
        EXPECT_EQ(Form1.MenuButx[11].Latched, Game.SoundOn == Game.FlagOn);
    }

    /// Where a piece can be picked the board shows it.
    static void ExpectSurfacesInStep() {
        for (int n = 0; n < 350 * 390 && Game.ActivePiece == -1; ++n) {
            const int x = n % 350, y = n / 350, picked = PickedAt({x, y});
            if (picked == -1) continue;
            SetPieceBrush(NearestInt16(picked));
            ASSERT_EQ(Board.Image.Point(x, y), Board.Image.FillColor) << "of piece " << picked;
        }
    }

    static constexpr const char* Files[] = {"QUILLET.qui", "QuiFile.tmp", "Quillets.cfg", "junk.qui"};
    std::mt19937 Random;
    Vertex Mouse;
    bool Pressed = false, InModal = false;
};

TEST_F(RandomEvents, LeaveTheGameSoundAndBothSurfacesInStep) {
    const long seed = FromEnvironment("QUILLETS_SEED", std::random_device{}() % 1'000'000);
    const long usual = std::getenv("QUILLETS_LONG") ? 10'000'000 : 200'000;
    const long events = FromEnvironment("QUILLETS_EVENTS", usual);
    std::cout << "QUILLETS_SEED=" << seed << " QUILLETS_EVENTS=" << events << std::endl;
    Random.seed(static_cast<unsigned>(seed));
    for (long n = 0; n < events; ++n) {
        if (Desktop.Ended || n == 0) Begin();
        SomeEvent();
        if (!Desktop.Ended) ExpectSoundState();
        if (n % 500 == 0) ExpectSurfacesInStep();
        ASSERT_FALSE(HasFailure()) << "after event " << n;
        Desktop.Calls.clear();
        Desktop.Boxes.clear();
        Desktop.FileDialogs.clear();
    }
}

} // namespace
