// The media service with the real sound library: whatever the sound server does, the game goes on, in
// silence. A process that is held up is ended by its alarm, long before the library would give up a mute
// server.
#include "platform/desktop.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {
constexpr unsigned Watchdog = 8;

void Send(const std::string& command) {
    std::string answer;
    if (mciSendStringA(command, answer, 0, nullptr) != 0) std::quick_exit(1);
}

/// A server that takes connections and never says a word.
int ListenAt(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    const bool bound = bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    return bound && listen(listener, 8) == 0 ? listener : -1;
}

class SoundServer : public testing::Test {
  protected:
    void SetUp() override {
        Folder = testing::TempDir() + "/sound_" + std::to_string(getpid());
        std::filesystem::create_directories(Folder);
        setenv("HOME", Folder.c_str(), 1);
        setenv("XDG_RUNTIME_DIR", Folder.c_str(), 1);
        setenv("CANBERRA_DRIVER", "pulse", 1);
        setenv("PULSE_SERVER", ("unix:" + Folder + "/server").c_str(), 1);
    }
    void TearDown() override { std::filesystem::remove_all(Folder); }
    std::string Folder;
};

void PlayWithoutServer() {
    alarm(Watchdog);
    Send("play " SHIPPED_CUES "/Click.wav");
    Send("play /no such folder/no such file.wav");
    sleep(1);
    Send("play " SHIPPED_CUES "/Slide.wav");
    Send("close all");
    std::quick_exit(0);
}

void PlayToMuteServer(const std::string& path) {
    alarm(Watchdog);
    const int listener = ListenAt(path);
    Send("play " SHIPPED_CUES "/Click.wav");
    // The cue has come to the server, and from here on waits for an answer.
    if (accept(listener, nullptr, nullptr) < 0) std::quick_exit(1);
    Send("play " SHIPPED_CUES "/Click.wav");
    sleep(3);
    Send("play " SHIPPED_CUES "/Click.wav");
    Send("stop mp3");
    Send("close all");
    std::quick_exit(0);
}
} // namespace

TEST_F(SoundServer, MayBeMissing) {
    EXPECT_EXIT(PlayWithoutServer(), testing::ExitedWithCode(0), "^$");
}

TEST_F(SoundServer, MayNeverAnswer) {
    EXPECT_EXIT(PlayToMuteServer(Folder + "/server"), testing::ExitedWithCode(0), "^$");
}
