// The media service with the real sound library: whatever becomes of the sound, the game goes on.
#include "platform/desktop.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/// Ends the process, with 0 when every command was taken at once.
[[noreturn]] void PlayAndLeave() {
    for (const char* command : {"play " SHIPPED_CUES "/Click.wav", "play /x.wav", "stop mp3", "close all"}) {
        std::string answer;
        const auto start = std::chrono::steady_clock::now();
        if (mciSendStringA(command, answer, 0, nullptr) != 0) _exit(1);
        if (std::chrono::steady_clock::now() - start > std::chrono::milliseconds(300)) _exit(2);
        usleep(500'000);
    }
    std::quick_exit(0);
}

} // namespace

TEST(Sound, NeverHoldsTheGameUp) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    // Each row is played in a process of its own, which runs up to it through these same lines.
    setenv("SOUND_FOLDER", (testing::TempDir() + "/sound_" + std::to_string(getpid())).c_str(), 0);
    const char* chosen = getenv("SOUND_FOLDER");
    ASSERT_NE(chosen, nullptr);
    const std::string folder = chosen;
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/libcanberra.so.0") << "no library";
    // A server that lets everybody in and never says a word.
    sockaddr_un address{AF_UNIX, {}};
    (folder + "/server").copy(address.sun_path, sizeof address.sun_path - 1);
    pollfd mute{socket(AF_UNIX, SOCK_STREAM, 0), POLLIN, 0};
    // In a row's own process the server is there already.
    static_cast<void>(bind(mute.fd, reinterpret_cast<sockaddr*>(&address), sizeof address));
    listen(mute.fd, 8);
    setenv("HOME", folder.c_str(), 1);
    const struct {
        std::string What, Server, Libraries;
        bool IsAskedToPlay;
    } rows[] = {{"no library", folder + "/server", folder, false},
                {"no server", folder + "/nobody", "", false},
                {"mute server", folder + "/server", "", true}};
    for (const auto& row : rows) {
        setenv("PULSE_SERVER", ("unix:" + row.Server).c_str(), 1);
        setenv("LD_LIBRARY_PATH", row.Libraries.c_str(), 1);
        EXPECT_EXIT(PlayAndLeave(), testing::ExitedWithCode(0), "^$") << row.What;
        EXPECT_EQ(poll(&mute, 1, 0) == 1, row.IsAskedToPlay) << row.What;
    }
    std::filesystem::remove_all(folder);
}
