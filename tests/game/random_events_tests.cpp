// Endless play: whatever a player can do, in any order, while files fail, and what must hold after each
// event. QUILLETS_EVENTS sets how many events, QUILLETS_SEED repeats a run.
#include "core/board_rendering.h"
#include "core/piece_geometry.h"
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
    template <typename Range>
    auto& OneOf(Range& range) {
        return range[static_cast<std::size_t>(Pick(0, static_cast<int>(std::size(range)) - 1))];
    }

    /// A box gets one of its answers, a dialog a path, and a modal window a few events of its own.
    void AnswerOrUseTheOpenWindow() {
        Pressed = false;
        const BoxButtons buttons = Desktop.Boxes.empty() ? BoxButtons::Ok : Desktop.Boxes.back().Buttons;
        Desktop.Answers.clear();
        if (buttons != BoxButtons::Ok && OneIn(2))
            Desktop.Answers = {buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel};
        static constexpr const char* Names[] = {"QUILLET.qui", "copy.qui",  "junk.qui",
                                                "folder",      "nowhere/x", "full.qui"};
        Desktop.Paths = {OneIn(7) ? "" : (Folder / OneOf(Names)).string()};
        Form& newest = *Desktop.Loaded.back();
        if (InModal || &newest == &Form1 || &newest == &FormMain) return;
        InModal = true;
        for (int n = Pick(0, 3); n > 0; --n) SomeEventOf(newest);
        InModal = false;
    }

    void HealFiles() {
        SetLimits(RLIM_INFINITY, 256);
        for (const char* name : {"QUILLET.qui", "QuiFile.tmp", "Quillets.cfg"}) fs::remove_all(name);
        PutFiveFigures();
        fs::create_directories("folder");
        if (!fs::is_symlink("full.qui")) fs::create_symlink("/dev/full", "full.qui");
        WriteText("junk.qui", ReadText("QUILLET.qui") + "1,2,3\r\n");
    }

    /// The disk is full or no file can be opened for a while, or something stands where a file should.
    void SomeFault() {
        SetLimits(RLIM_INFINITY, 256);
        static constexpr const char* Names[] = {"QUILLET.qui", "QuiFile.tmp", "Quillets.cfg"};
        const std::string name = OneOf(Names);
        const auto length = static_cast<std::uintmax_t>(Pick(0, 4000));
        const int kind = Pick(0, 4);
        if (kind == 0) SetLimits(length, 256);
        if (kind == 1) SetLimits(RLIM_INFINITY, TooFewFiles);
        if (kind == 2 && fs::is_regular_file(name)) fs::resize_file(name, length);
        if (kind > 2) fs::remove_all(name);
        if (kind > 3) fs::create_directories(name);
    }

    void SomeMouseEvent() {
        static constexpr std::int16_t Buttons[] = {1, 1, 1, 1, 2, 4};
        // Often at a piece, often near the last place, now and then far outside.
        const Vertex places[] = {{Pick(-40000, 40000), Pick(-40000, 40000)},
                                 {Pick(-20, 370), Pick(-20, 410)},
                                 {Pick(-20, 370), Pick(-20, 410)},
                                 InsideOf(Pick(0, PieceCount - 1)),
                                 {Mouse.X + Pick(-5, 5), Mouse.Y + Pick(-5, 5)},
                                 Mouse};
        Mouse = OneOf(places);
        const std::int16_t button = OneOf(Buttons);
        const auto x = static_cast<float>(Mouse.X), y = static_cast<float>(Mouse.Y);
        const int act = Pick(0, 3);
        if (act == 0) Pressed |= FormMain.Picture1.Enabled, MouseDown(FormMain.Picture1, button, x, y);
        if (act == 1) Pressed = false, MouseUp(FormMain.Picture1, button, x, y);
        if (act > 1) MouseMove(FormMain.Picture1, button, x, y);
    }

    void SomeKey() {
        static constexpr std::int16_t Codes[] = {9, 37, 38, 39, 40, 98, 100, 102, 104, 65, 16};
        KeyDown(FormMain.Picture1, OneOf(Codes), static_cast<std::int16_t>(Pick(0, 4)));
    }

    /// Any control, menu item or event of a window but the board's own.
    void SomeEventOf(Form& form) {
        const auto x = static_cast<float>(Pick(-100, 6000)), y = static_cast<float>(Pick(-100, 6000));
        std::int16_t key = OneIn(2) ? 27 : 65;
        if (!form.Menus.empty() && OneIn(2)) return ChooseMenuItem(form, OneOf(form.Menus[0].Items).Caption);
        if (OneIn(2)) return Use(OneOf(form.Controls));
        const int kind = Pick(0, 3);
        if (kind == 0 && form.MouseMove) form.MouseMove(0, 0, x, y);
        if (kind == 1 && form.MouseUp) form.MouseUp(SomeButton(), 0, x, y);
        if (kind == 2 && form.KeyDown) form.KeyDown(key, 0);
        if (kind == 3 && OneIn(4))
            Deliver([&] { form.CloseRequest ? form.CloseRequest() : UnloadForm(form); });
    }

    void Use(const ControlRef& control) {
        std::visit([this](auto* used) { UseOne(*used); }, control);
    }
    void UseOne(Label& label) {
        if (label.MouseUp) label.MouseUp(SomeButton(), 0, 1, 1);
    }
    void UseOne(Picture& picture) {
        if (&picture != &FormMain.Picture1) MouseUp(picture, SomeButton(), 5, 5);
    }
    void UseOne(Frame& frame) { Use(OneOf(frame.Controls)); }
    void UseOne(TileButton& button) { PressButton(button); }
    void UseOne(ScrollBar& bar) { ScrollTo(bar, Pick(-10, 600)); }
    void UseOne(CommandButton& button) { button.Click(); }
    void UseOne(TextBox& box) { box.MouseDown(SomeButton(), 0, 1, 1); }
    void UseOne(WebBrowser&) { FollowLink(OneIn(2) ? "quillets.htm#keys" : "quillets.htm"); }
    std::int16_t SomeButton() { return static_cast<std::int16_t>(Pick(1, 2)); }

    void SomeEvent() {
        const int kind = Pick(0, 999);
        if (kind < 800) return SomeMouseEvent();
        if (kind < 900) return SomeKey();
        Pressed = false;
        LoseMouse(FormMain.Picture1);
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
        ASSERT_TRUE(FormMain.Picture1.Enabled);
        ASSERT_TRUE(Pressed || Game.ActivePiece == -1);
        // An emptied collection shows quillet 0 or 1 of none.
        ASSERT_GE(Game.CurrentQuillet, std::min<Number>(Game.QuilletCount, 1));
        ASSERT_LE(Game.CurrentQuillet, std::max<Number>(Game.QuilletCount, 1));
        for (int p = 0; p < PieceCount; ++p)
            ASSERT_TRUE(Game.PieceTurn[p] >= 0 && Game.PieceTurn[p] <= (p == 3 ? 1 : 7)) << p;
        const auto latched = [](std::size_t index) { return Form1.MenuButx[index].Latched; };
        const bool chosen = latched(14) || latched(15) || latched(16);
        for (const std::size_t index : {14, 15, 16})
            ASSERT_EQ(latched(index), chosen && Game.PlayLevel == static_cast<int>(17 - index)) << index;
        ASSERT_EQ(latched(11), Game.SoundOn == Game.FlagOn);
    }

    /// Where a piece can be picked the board shows it, and around the middle of each piece some piece can be.
    void ExpectSurfacesInStep() {
        const bool dragging = Game.ActivePiece != -1 && Game.DragButton == 0;
        const Surface& board = FormMain.Picture1.Image;
        for (int y = 0; y < board.Height(); ++y)
            for (int x = 0; x < board.Width(); ++x)
                ExpectBoardPixel(board.Point(x, y), PickedAt({x, y}), dragging);
        for (int p = 0; p < PieceCount && !dragging; ++p) {
            const auto [x, y] = InsideOf(p);
            bool there = x < 5 || y < 5 || x > board.Width() - 5 || y > board.Height() - 5;
            for (int n = 0; n < 81; ++n) there |= PickedAt({x - 4 + n % 9, y - 4 + n / 9}) != -1;
            ASSERT_TRUE(there) << p;
        }
    }

    static void ExpectBoardPixel(Colour shown, int picked, bool dragging) {
        if (picked == -1 || (dragging && (shown == Game.WhiteColor || picked == Game.ActivePiece))) return;
        SetPieceBrush(NearestInt16(picked));
        ASSERT_EQ(shown, FormMain.Picture1.Image.FillColor);
    }

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
        ASSERT_NO_FATAL_FAILURE(ExpectSoundState()) << "after event " << n;
        if (n % 500 == 0) {
            ASSERT_NO_FATAL_FAILURE(ExpectSurfacesInStep()) << "after event " << n;
        }
        Desktop.Calls.clear();
        Desktop.Boxes.clear();
        Desktop.MediaCommands.clear();
        Desktop.FileDialogs.clear();
    }
    std::cout << starts << " starts, " << boxes << " boxes, " << slowest << " ms at most for an event\n";
}

} // namespace
