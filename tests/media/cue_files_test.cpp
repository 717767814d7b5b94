// The shipped sound cues: fit to be played, small, without clicks, and just what their program makes.
// The files are read byte by byte as any player reads them.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <numeric>
#include <string>
#include <unistd.h>
#include <vector>

namespace {
std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::uint32_t Number(const std::string& bytes, std::size_t at, int size) {
    std::uint32_t number = 0;
    while (size-- > 0) number = number << 8 | static_cast<unsigned char>(bytes[at + size]);
    return number;
}

std::vector<double> Samples(const std::string& bytes) {
    std::vector<double> samples;
    for (std::size_t at = 44; at < bytes.size(); at += 2)
        samples.push_back(static_cast<std::int16_t>(Number(bytes, at, 2)) / 32768.0);
    return samples;
}

class CueFile : public testing::TestWithParam<const char*> {};

TEST_P(CueFile, IsSmallAndAsLoudAsTheOthersAndBeginsAndEndsInSilence) {
    const std::string content = Bytes(std::string(SHIPPED_CUES "/") + GetParam());
    ASSERT_GT(content.size(), 44U);
    EXPECT_LT(content.size(), 60'000U);
    EXPECT_EQ(content.substr(0, 4) + content.substr(8, 8) + content.substr(36, 4), "RIFFWAVEfmt data");
    EXPECT_EQ(Number(content, 4, 4), content.size() - 8);
    EXPECT_EQ(Number(content, 40, 4), content.size() - 44);
    EXPECT_EQ(Number(content, 20, 4), 0x10001U) << "plain samples, one channel";
    EXPECT_EQ(Number(content, 24, 4), 22050U) << "samples per second";
    EXPECT_EQ(Number(content, 28, 4), 44100U) << "bytes per second";
    EXPECT_EQ(Number(content, 34, 2), 16U) << "bits";

    const std::vector<double> samples = Samples(content);
    const auto [low, high] = std::minmax_element(samples.begin(), samples.end());
    EXPECT_NEAR(20 * std::log10(std::max(-*low, *high)), -3, 0.1);
    const double sum = std::accumulate(samples.begin(), samples.end(), 0.0);
    EXPECT_LT(std::abs(sum / static_cast<double>(samples.size())), 0.001);
    EXPECT_LT(std::max(std::abs(samples.front()), std::abs(samples.back())), 0.001);
}

INSTANTIATE_TEST_SUITE_P(Shipped, CueFile,
                         testing::Values("Click.wav", "Slide.wav", "Error.wav", "clap4.wav", "whoosh1.wav",
                                         "click2.wav", "shsh-dot.wav", "GiveUp.wav", "thank.wav"));

TEST(CueFiles, AreWhatTheirProgramMakes) {
    const std::string folder = testing::TempDir() + "/cues_" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    ASSERT_EQ(std::system((MAKE_CUES " '" + folder + "'").c_str()), 0);
    int files = 0;
    for (const auto& made : std::filesystem::directory_iterator(folder)) {
        const std::string name = made.path().filename();
        EXPECT_TRUE(Bytes(made.path()) == Bytes(SHIPPED_CUES "/" + name)) << name;
        ++files;
    }
    EXPECT_EQ(files, 9);
    std::filesystem::remove_all(folder);
}
} // namespace
