// Endless play: whatever a player can do, in any order, while files fail, and what must hold after each
// event. QUILLETS_EVENTS sets how many events, QUILLETS_SEED repeats a run.
#include "game_on_script.h"

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <random>
#include <sys/resource.h>

namespace fs = std::filesystem;

namespace {

constexpr long EventsOfACheck = 200'000, EventsOfALongCheck = 10'000'000;
#ifdef SANITIZED
constexpr double LongestEvent = 1000;
constexpr rlim_t TooFewFiles = 256; // the sanitizers open some of their own
#else
constexpr double LongestEvent = 100; // milliseconds of the processor
constexpr rlim_t TooFewFiles = 3;
#endif

long FromEnvironment(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text ? std::atol(text) : otherwise;
}

/// How long a file may become, and how many may be open.
void SetLimits(rlim_t length, rlim_t count) {
    const rlimit size{length, RLIM_INFINITY}, open{count, 1024};
    ::setrlimit(RLIMIT_FSIZE, &size);
    ::setrlimit(RLIMIT_NOFILE, &open);
}

class RandomEvents : public GameTest {
  protected:
    RandomEvents() {
        std::signal(SIGXFSZ, SIG_IGN);
        Begin();
    }
    ~RandomEvents() override { SetLimits(RLIM_INFINITY, 256); }

    void Begin() {
        HealFiles();
        ASSERT_TRUE(Start());
        Desktop.WhileModal = [this] { AnswerOrUseTheOpenWindow(); };
    }

    int Pick(int from, int to) { return std::uniform_int_distribution(from, to)(Random); }
    bool OneIn(int times) { return Pick(1, times) == 1; }
    auto& OneOf(auto& range) { return range[std::size_t(Pick(0, int(std::size(range)) - 1))]; }
    std::int16_t SomeButton() { return OneIn(3) ? 2 : OneIn(6) ? 4 : 1; }

    /// A box gets one of its answers, a dialog a path, and a modal window a few events of its own.
    void AnswerOrUseTheOpenWindow() {
        Pressed = false;
        const BoxButtons buttons = Desktop.Boxes.empty() ? BoxButtons::Ok : Desktop.Boxes.back().Buttons;
        Desktop.Answers.clear();
        if (buttons != BoxButtons::Ok && OneIn(2))
            Desktop.Answers = {buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel};
        const std::string names[] = {"QUILLET.qui", "copy.qui",  "junk.qui",
                                     "folder",      "nowhere/x", "full.qui"};
        Desktop.Paths = {OneIn(7) ? "" : In(OneOf(names))};
        Form& newest = *Desktop.Loaded.back();
        if (InModal || &newest == &Form1 || &newest == &FormMain) return;
        InModal = true;
        for (int n = Pick(0, 3); n > 0; --n) SomeEventOf(newest);
        InModal = false;
    }

    void HealFiles() {
        SetLimits(RLIM_INFINITY, 256);
        for (const char* name : Files) fs::remove_all(name);
        PutFiveFigures();
        fs::create_directories("folder");
        if (!fs::is_symlink("full.qui")) fs::create_symlink("/dev/full", "full.qui");
        WriteText("junk.qui", ReadText("QUILLET.qui") + "1,2,3\r\n");
    }

    /// The disk is full or no file can be opened for a while, or something stands where a file should.
    void SomeFault() {
        SetLimits(RLIM_INFINITY, 256);
        const std::string name = OneOf(Files);
        const auto length = static_cast<std::uintmax_t>(Pick(0, 4000));
        const int kind = Pick(0, 4);
        if (kind == 0) SetLimits(length, 256);
        if (kind == 1) SetLimits(RLIM_INFINITY, TooFewFiles);
        if (kind == 2 && fs::is_regular_file(name)) fs::resize_file(name, length);
        if (kind > 2) fs::remove_all(name);
        if (kind > 3) fs::create_directories(name);
    }

    /// Often at a piece, often near the last place, now and then far outside.
    void SomeMouseEvent() {
        const int far = OneIn(6) ? 40'000 : 400;
        const Vertex places[] = {{Pick(-far / 20, far), Pick(-far / 20, far)},
                                 InsideOf(Pick(0, PieceCount - 1)),
                                 {Mouse.X + Pick(-5, 5), Mouse.Y + Pick(-5, 5)},
                                 Mouse};
        Mouse = OneOf(places);
        const int act = Pick(0, 3);
        if (act == 0) Pressed = true, Press(SomeButton(), Mouse);
        if (act == 1) Pressed = false, Release(SomeButton(), Mouse);
        if (act > 1) MoveTo(Mouse);
    }

    void SomeKey() {
        constexpr int Codes[] = {9, 37, 38, 39, 40, 98, 100, 102, 104, 65, 16};
        Key(OneOf(Codes), Pick(0, 4));
    }

    /// Any control, menu item or event of a window but the board's own.
    void SomeEventOf(Form& form) {
        const auto x = static_cast<float>(Pick(-100, 6000)), y = static_cast<float>(Pick(-100, 6000));
        std::int16_t key = OneIn(2) ? 27 : 65;
        if (!form.Menus.empty() && OneIn(2)) return ChooseMenuItem(form, OneOf(form.Menus[0].Items).Caption);
        if (OneIn(2)) return Use(OneOf(form.Controls));
        const int kind = Pick(0, 6);
        if (kind < 2 && form.MouseMove) form.MouseMove(0, 0, x, y);
        if (kind < 4 && form.MouseUp) form.MouseUp(SomeButton(), 0, x, y);
        if (kind < 6 && form.KeyDown) form.KeyDown(key, 0);
        if (kind == 6) Deliver([&] { form.CloseRequest ? form.CloseRequest() : UnloadForm(form); });
    }

    void Use(const ControlRef& control) {
        std::visit([this](auto* used) { UseOne(*used); }, control);
    }
    void UseOne(Label& label) {
        if (label.MouseUp) label.MouseUp(SomeButton(), 0, 1, 1);
    }
    void UseOne(Picture& picture) {
        if (&picture != &Board) MouseUp(picture, SomeButton(), 5, 5);
    }
    void UseOne(Frame& frame) { Use(OneOf(frame.Controls)); }
    void UseOne(TileButton& button) { PressButton(button); }
    void UseOne(ScrollBar& bar) { Scroll(bar, Pick(-600, 600)); }
    void UseOne(CommandButton& button) { button.Click(); }
    void UseOne(TextBox& box) { box.MouseDown(SomeButton(), 0, 1, 1); }
    void UseOne(WebBrowser&) { FollowLink(OneIn(2) ? "quillets.htm#keys" : "quillets.htm"); }

    void SomeEvent() {
        const int kind = Pick(0, 999);
        if (kind < 800) return SomeMouseEvent();
        if (kind < 900) return SomeKey();
        Pressed = false;
        LoseMouse();
        if (kind < 950) return PressButton(OneOf(Form1.MenuButx));
        if (kind < 985) return SomeEventOf(*OneOf(Desktop.Loaded));
        if (kind < 988) return SomeFault();
        if (kind < 990) return HealFiles();
        // Wins are rare among random events, so the pieces are laid at times.
        if (Game.CurrentQuillet < 1) return;
        LaySolution(30, 30);
        SomeMouseEvent();
    }

    /// Cheap enough to be looked at after each event.
    void ExpectSoundState() {
        ASSERT_TRUE(Board.Enabled);
        ASSERT_TRUE(Pressed || Game.ActivePiece == -1) << "a piece is in hand";
        // An emptied collection shows quillet 0 or 1 of none.
        ASSERT_EQ(std::clamp<Number>(Game.CurrentQuillet, std::min<Number>(Game.QuilletCount, 1),
                                     std::max<Number>(Game.QuilletCount, 1)),
                  Game.CurrentQuillet);
        for (int p = 0; p < PieceCount; ++p)
            ASSERT_EQ(std::clamp<Number>(Game.PieceTurn[p], 0, p == Square ? 1 : 7), Game.PieceTurn[p]) << p;
        for (const auto& [level, name] : {std::pair(1, "Very easy"), {2, "Easy"}, {3, "Normal"}})
            ASSERT_TRUE(!Button(name).Latched || Game.PlayLevel == level) << name;
        ASSERT_EQ(Button("Sound").Latched, Game.SoundOn == Game.FlagOn);
    }

    /// Where a piece can be picked the board shows it.
    static void ExpectSurfacesInStep() {
        for (Vertex at; at.Y < 390; ++at.Y)
            for (at.X = 0; at.X < 350; ++at.X) {
                const int picked = PickedAt(at);
                const Colour shown = Board.Image.Point(at.X, at.Y);
                if (picked == -1 || Game.ActivePiece != -1) continue;
                SetPieceBrush(NearestInt16(picked));
                ASSERT_EQ(shown, Board.Image.FillColor) << at.X << ", " << at.Y << " of piece " << picked;
            }
    }

    static constexpr const char* Files[] = {"QUILLET.qui", "QuiFile.tmp", "Quillets.cfg"};
    std::mt19937 Random;
    Vertex Mouse;
    bool Pressed = false;
    bool InModal = false;
};

TEST_F(RandomEvents, LeaveTheGameSoundAndBothSurfacesInStepAndNeverStallIt) {
    const long seed = FromEnvironment("QUILLETS_SEED", std::random_device{}() % 1'000'000);
    const long usual = std::getenv("QUILLETS_LONG") ? EventsOfALongCheck : EventsOfACheck;
    const long events = FromEnvironment("QUILLETS_EVENTS", usual);
    std::cout << "QUILLETS_SEED=" << seed << " QUILLETS_EVENTS=" << events << std::endl;
    Random.seed(static_cast<unsigned>(seed));
    std::size_t starts = 1, boxes = 0;
    double slowest = 0;
    for (long n = 0; n < events; ++n) {
        const std::clock_t start = std::clock();
        SomeEvent();
        slowest = std::max(slowest, 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        ASSERT_LT(slowest, LongestEvent) << "event " << n;
        boxes += Desktop.Boxes.size();
        if (Desktop.Ended) ++starts, Begin();
        ExpectSoundState();
        if (n % 500 == 0) ExpectSurfacesInStep();
        ASSERT_FALSE(HasFailure()) << "after event " << n;
        Desktop.Calls.clear();
        Desktop.Boxes.clear();
        Desktop.FileDialogs.clear();
    }
    std::cout << starts << " starts, " << boxes << " boxes, " << slowest << " ms at most for an event\n";
}

} // namespace
