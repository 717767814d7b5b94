// The game on desktops of all kinds: it starts at once, can be played, heard, printed and left, and spoils no
// file.
#include "core/panel_window.h"
#include "platform_qt/qt_desktop.h"
#include "windows/stage.h"

#include <QApplication>
#include <X11/keysym.h>
#include <csignal>
#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

void PrintThePage() {
    Choose("Form1", "Print");
    Await("the page", [] { return QApplication::activeModalWidget() == Part("PrintShapes"); });
    Choose("PrintShapes", "Print this page");
    Answer("Print this page?", XK_Return);
    if (std::filesystem::exists(Folder() / "lpstat"))
        Answer("The printing system does not answer.\nThe page can go into a file instead.", XK_Return);
    TypeName("page.pdf");
    Choose("PrintShapes", "Exit");
    Await("the end of the page", [] { return !QApplication::activeModalWidget(); });
}

/// With a cue and a piece. A tile that is hit where it is meant to be is not mirrored.
void PlayAndExit(const std::function<void()>& before) {
    StartGame();
    Click(Ask([] { return ClientAreaOf(Form1); }), {225, 75});
    Await("the sound", [] { return Game.SoundOn == Game.FlagOn; });
    Drag(2, 60, 300);
    Await("the piece", [] { return Game.PieceX[2] == 60 && Game.PieceY[2] == 300; });
    AwaitBoardOnScreen();
    before();
    ExpectEnd([] { Choose("Form1", "Exit"); });
}

void Kill(const char* process) {
    const char* number = std::getenv(process);
    ASSERT_NE(number, nullptr);
    kill(std::atoi(number), SIGKILL);
}

void ExpectFiles(const std::string& settings) {
    EXPECT_EQ(Content(Folder() / "Quillets.cfg"), settings);
    EXPECT_EQ(Content(Folder() / "QUILLET.qui"), Content(SHIPPED "/QUILLET.qui"));
    EXPECT_FALSE(std::filesystem::exists(Folder() / "QuiFile.tmp"));
}

/// In the settings before a run, and after it: whole pixels on every display.
const std::string Written = "QUILLET.qui\r\n .48e3 9.0e2 51.00e2 900.0\r\n";
const std::string Rewritten = "QUILLET.qui\r\n 480  900  5100  900 \r\n";

} // namespace

TEST(Surroundings, AGameIsPlayedHeardPrintedAndLeft) {
    const char* nobody = std::getenv("PULSE_SERVER");
    ASSERT_NE(nobody, nullptr);
    const std::string silent = nobody, mutePath = Folder() / "mute";
    sockaddr_un address{AF_UNIX, {}};
    mutePath.copy(address.sun_path, sizeof address.sun_path - 1);
    const int mute = socket(AF_UNIX, SOCK_STREAM, 0);
    // In a row's own process the server is there already.
    static_cast<void>(bind(mute, reinterpret_cast<sockaddr*>(&address), sizeof address));
    listen(mute, 8);
    const std::filesystem::path documents = Folder() / "../home/Documents";
    std::filesystem::create_directories(documents);
    std::ofstream(Folder() / "libcanberra.so.0") << "no library";
    std::filesystem::create_directories(Folder() / "../home/.config");
    std::ofstream(Folder() / "../home/.config/kdeglobals") << "[Colors:Window]\nBackgroundNormal=20,20,20\n";
    for (const std::string language : {"de_DE", "ar_EG"}) {
        const std::string locale = Folder() / (language + ".UTF-8");
        if (std::filesystem::exists(locale)) continue;
        std::string command = "localedef -f UTF-8 -i ";
        command.append(language).append(" ").append(locale);
        EXPECT_EQ(std::system(command.c_str()), 0);
    }
    const auto expectAGame = [&documents](const std::string& surroundings) {
        SCOPED_TRACE(surroundings);
        std::ofstream(Folder() / "Quillets.cfg") << Written;
        std::filesystem::remove(documents / "page.pdf");
        EXPECT_EXIT(PlayAndExit(PrintThePage), testing::ExitedWithCode(0), "");
        ExpectFiles(Rewritten);
        const std::string page = Content(documents / "page.pdf");
        EXPECT_NE(page.find("/MediaBox [0 0 556.000000 434.000000]"), page.npos);
        EXPECT_EQ(page.find("DCTDecode"), page.npos) << "a photograph's format blurs the page";
    };
    setenv("LOCPATH", Folder().c_str(), 1);
    setenv("KDE_SESSION_VERSION", "5", 1);
    for (const auto& [name, value] :
         std::initializer_list<std::pair<const char*, std::string>>{{"PULSE_SERVER", "unix:" + mutePath},
                                                                    {"PULSE_SERVER", silent},
                                                                    {"XDG_CURRENT_DESKTOP", "KDE"},
                                                                    {"LC_ALL", "de_DE.UTF-8"},
                                                                    {"LC_ALL", "ar_EG.UTF-8"},
                                                                    {"QT_SCALE_FACTOR", "1.25"},
                                                                    {"QT_SCALE_FACTOR", "1.75"},
                                                                    {"QT_SCALE_FACTOR", "2"},
                                                                    {"QT_SCALE_FACTOR", "3"}}) {
        setenv(name, value.c_str(), 1);
        expectAGame(name + ("=" + value));
    }
    pollfd heard{mute, POLLIN, 0};
    EXPECT_EQ(poll(&heard, 1, 0), 1) << "no sound was asked for";
    setenv("QT_SCALE_FACTOR", "1", 1);
    setenv("LD_LIBRARY_PATH", Folder().c_str(), 1);
    expectAGame("no sound library");
    std::ofstream(Folder() / "lpstat") << "#!/bin/sh\nexec sleep 60\n";
    std::filesystem::permissions(Folder() / "lpstat", std::filesystem::perms(0755));
    setenv("PATH", (Folder().string() + ":" + std::getenv("PATH")).c_str(), 1);
    expectAGame("a printing system that does not answer");
    std::filesystem::remove(Folder() / "lpstat");
    Kill("WINDOW_MANAGER");
    // Nobody gives the keyboard to a dialog then, so none is opened.
    std::ofstream(Folder() / "Quillets.cfg") << Written;
    EXPECT_EXIT(PlayAndExit([] {}), testing::ExitedWithCode(0), "");
    ExpectFiles(Rewritten);
}

TEST(Surroundings, EveryEndLeavesWholeFiles) {
    const auto expectEnd = [](const auto& status, const std::string& settings, const auto& act) {
        std::ofstream(Folder() / "Quillets.cfg") << Written;
        EXPECT_EXIT((StartGame(), ExpectEnd(act)), status, "");
        ExpectFiles(settings);
    };
    expectEnd(testing::ExitedWithCode(0), Written, [] { RequestClose("FormMain"); });
    expectEnd(testing::ExitedWithCode(0), Rewritten, [] { RequestClose("Form1"); });
    expectEnd(testing::KilledBySignal(SIGTERM), Written, [] { kill(getpid(), SIGTERM); });
    expectEnd(testing::ExitedWithCode(1), Written, [] { Kill("DISPLAY_SERVER"); });
}

TEST(Surroundings, AnInstalledGameKeepsThePlayersFilesApart) {
    const std::filesystem::path installed = Folder() / "installed", own = Folder() / "quillets";
    std::filesystem::copy(PROGRAM, installed);
    std::filesystem::permissions(installed, std::filesystem::perms(0555));
    setenv("XDG_DATA_HOME", Folder().c_str(), 1);
    // To the superuser no folder is closed, unless the process gives that up.
    const std::string player = geteuid() == 0 ? "setpriv --bounding-set=-all --inh-caps=-all " : "";
    auto game = std::async([&] { return std::system((player + (installed / "quillets").string()).c_str()); });
    while (game.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready)
        PressKey(XK_F4, XK_Alt_L);
    EXPECT_EQ(game.get(), 0);
    for (const char* file : {"QUILLET.qui", "Quillets.cfg"})
        EXPECT_EQ(Content(own / file), Content(Folder() / file));
    std::filesystem::permissions(installed, std::filesystem::perms(0755));
}
