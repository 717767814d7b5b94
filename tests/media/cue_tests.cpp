// The shipped sound cues: waves that any player reads, as the tool makes them, small, without clicks, and as
// loud as each other to the ear.
#include "cues.h"
#include "mastering.h"
#include "wave_file.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <numbers>

namespace {
std::string Shipped(const std::string& name) {
    std::ifstream file(SHIPPED_CUES "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::uint32_t Number(const std::string& bytes, std::size_t at, int size) {
    return size == 0 ? 0 : Number(bytes, at + 1, size - 1) << 8 | static_cast<unsigned char>(bytes[at]);
}

Sound Samples(const std::string& bytes) {
    Sound samples;
    for (std::size_t at = 44; at + 1 < bytes.size(); at += 2)
        samples.push_back(static_cast<std::int16_t>(Number(bytes, at, 2)) / 32768.0);
    return samples;
}

/// Halves the power of a tone at the pitch; the lower a tone, the more it loses.
void CutLow(Sound& sound, double pitch) {
    double slow = 0;
    for (double& sample : sound) {
        slow += (1 - std::exp(-2 * std::numbers::pi * pitch / 22050)) * (sample - slow);
        sample -= slow;
    }
}

/// The most that a sound level meter (fast) shows, in decibels. Its A-curve is a chain of cuts; those above
/// 12 kHz are left out.
double Loudness(Sound sound) {
    for (const double pitch : {20.6, 20.6, 107.7, 737.9}) CutLow(sound, pitch);
    double average = 0, most = 0;
    for (const double sample : sound) {
        average += (sample * sample - average) / (0.125 * 22050);
        most = std::max(most, average);
    }
    return 10 * std::log10(most);
}
} // namespace

TEST(Cues, AreSmallWavesAsTheToolMakesThemThatBeginAndEndInSilence) {
    for (const Cue& cue : Cues) {
        SCOPED_TRACE(cue.File);
        const std::string bytes = Shipped(cue.File);
        EXPECT_TRUE(bytes == WaveFile(Mastered(cue.Make(), cue.Level))) << "make_cues has not been run";
        ASSERT_TRUE(bytes.size() > 44 && bytes.size() < 60'000) << bytes.size();
        EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4), "RIFFWAVEfmt data");
        EXPECT_EQ(Number(bytes, 4, 4), bytes.size() - 8);
        EXPECT_EQ(Number(bytes, 40, 4), bytes.size() - 44);
        EXPECT_EQ(Number(bytes, 20, 4), 0x10001U) << "plain samples, one channel";
        EXPECT_EQ(Number(bytes, 24, 4), 22050U) << "samples per second";
        EXPECT_EQ(Number(bytes, 34, 2), 16U) << "bits";
        const Sound sound = Samples(bytes);
        EXPECT_LT(std::max(std::abs(sound.front()), std::abs(sound.back())), 0.001);
    }
}

TEST(Cues, AreEquallyLoudAndCarriedAbove300HertzAndTwoAtOnceDoNotClip) {
    double softest = 0, loudest = -100, refusal = 0;
    for (const Cue& cue : Cues) {
        SCOPED_TRACE(cue.File);
        Sound sound = Samples(Shipped(cue.File));
        const auto [low, high] = std::ranges::minmax(sound);
        EXPECT_LT(std::max(-low, high), 0.5) << "its peak may fall on another one's";
        const double loudness = Loudness(sound);
        softest = std::min(softest, loudness);
        loudest = std::max(loudest, loudness);
        if (cue.File == std::string("Error.wav")) refusal = loudness;
        CutLow(sound, 300);
        EXPECT_LT(loudness - Loudness(sound), 3) << "the loss of a tone of 300 Hz";
    }
    EXPECT_LT(loudest - softest, 3);
    EXPECT_GT(refusal, softest) << "a refusal must not be missed";
}
