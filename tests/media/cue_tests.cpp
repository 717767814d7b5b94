// The shipped sound cues: waves that any player reads, small, as loud as each other, and without clicks.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace {
std::uint32_t Number(const std::string& bytes, std::size_t at, int size) {
    return size == 0 ? 0 : Number(bytes, at + 1, size - 1) << 8 | static_cast<unsigned char>(bytes[at]);
}
} // namespace

TEST(Cues, AreSmallWavesOfOneLoudnessThatBeginAndEndInSilence) {
    for (const std::string name :
         {"Click", "Slide", "Error", "clap4", "whoosh1", "click2", "shsh-dot", "GiveUp", "thank"}) {
        SCOPED_TRACE(name);
        std::ifstream file(SHIPPED_CUES "/" + name + ".wav", std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        ASSERT_TRUE(bytes.size() > 44 && bytes.size() < 60'000) << bytes.size();
        EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4), "RIFFWAVEfmt data");
        EXPECT_EQ(Number(bytes, 4, 4), bytes.size() - 8);
        EXPECT_EQ(Number(bytes, 40, 4), bytes.size() - 44);
        EXPECT_EQ(Number(bytes, 20, 4), 0x10001U) << "plain samples, one channel";
        EXPECT_EQ(Number(bytes, 24, 4), 22050U) << "samples per second";
        EXPECT_EQ(Number(bytes, 34, 2), 16U) << "bits";

        std::vector<double> samples;
        for (std::size_t at = 44; at < bytes.size(); at += 2)
            samples.push_back(static_cast<std::int16_t>(Number(bytes, at, 2)) / 32768.0);
        const auto [low, high] = std::ranges::minmax(samples);
        EXPECT_NEAR(20 * std::log10(std::max(-low, high)), -3, 0.1);
        EXPECT_LT(std::max(std::abs(samples.front()), std::abs(samples.back())), 0.001);
    }
}
