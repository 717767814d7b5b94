// The media service and the library behind it: which calls a command leads to, and which it must not.
// Every test runs in a process of its own, for the service remembers its worker as long as the process lives.
#include "platform/desktop.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <unistd.h>

namespace {
std::int32_t Send(const std::string& command) {
    std::string answer;
    return mciSendStringA(command, answer, 0, nullptr);
}

std::string Notes() {
    std::ifstream file(std::getenv("CALL_NOTES"));
    std::ostringstream notes;
    notes << file.rdbuf();
    return notes.str();
}

void Require(bool condition, const std::string& complaint) {
    if (condition) return;
    std::cerr << complaint;
    std::quick_exit(1);
}

/// Waits up to 8 seconds for the notes.
void Await(const std::string& notes) {
    for (int tenth = 0; tenth < 80 && Notes().size() < notes.size(); ++tenth) usleep(100'000);
    Require(Notes() == notes, "wanted:\n" + notes + "found:\n" + Notes());
}

auto Threads() {
    const std::filesystem::directory_iterator threads("/proc/self/task");
    return std::distance(begin(threads), end(threads));
}

class SoundLibrary : public testing::Test {
  protected:
    void SetUp() override {
        const std::string notes = testing::TempDir() + "/calls_" + std::to_string(getpid());
        setenv("CALL_NOTES", notes.c_str(), 1);
        std::filesystem::remove(notes);
    }
    void TearDown() override { std::filesystem::remove(std::getenv("CALL_NOTES")); }
};

void SendCommandsAroundTheFirstCue() {
    const auto threads = Threads();
    Require(Send("stop mp3") == 0 && Send("close all") == 0, "refused a command");
    Require(Threads() == threads, "started a thread with nothing to play");
    Require(Send("pause mp3") != 0 && Send("play ") != 0 && Send("") != 0, "took a command it cannot know");
    Require(Send("play /a folder/two  blanks.wav") == 0 && Send("play b.wav") == 0, "refused a cue");
    Await("open\nplay /a folder/two  blanks.wav\nplay b.wav\n");
    Send("close all");
    Await("open\nplay /a folder/two  blanks.wav\nplay b.wav\nclose\n");
    std::quick_exit(0);
}

void PlayAfterFailures() {
    for (const char* command : {"play missing.wav", "play a.wav", "play lost.wav", "play b.wav"})
        Send(command);
    Await("open\nplay missing.wav\nplay a.wav\nplay lost.wav\nclose\nopen\nplay b.wav\n");
    std::quick_exit(0);
}

void PlayWhileTheLibraryHangs() {
    setenv("SLOW_OPENING", "yes", 1);
    Send("play stale.wav");
    const auto threads = Threads();
    Send("play waiting.wav");
    usleep(2'500'000);
    Send("play unwanted.wav");
    Require(Threads() == threads, "a second worker was started");
    Await("open\n");
    // Time to do wrong: to play what has been waiting all the while.
    usleep(500'000);
    Send("play fresh.wav");
    Await("open\nplay fresh.wav\n");
    std::quick_exit(0);
}
} // namespace

TEST_F(SoundLibrary, IsLeftAloneUntilTheFirstCueAndGetsWholePaths) {
    EXPECT_EXIT(SendCommandsAroundTheFirstCue(), testing::ExitedWithCode(0), "");
}

TEST_F(SoundLibrary, IsOpenedAnewAfterTheServerWentAwayButNotForAMissingFile) {
    EXPECT_EXIT(PlayAfterFailures(), testing::ExitedWithCode(0), "");
}

TEST_F(SoundLibrary, GetsNoCuesWhileItHangsAndNoStaleOnesAfterwards) {
    EXPECT_EXIT(PlayWhileTheLibraryHangs(), testing::ExitedWithCode(0), "");
}
