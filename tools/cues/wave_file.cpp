// Wave files: the header and the samples, low byte first whatever the machine.
// The samples are rounded to nearest; a sound beyond full scale is not expected.
#include "wave_file.h"

#include <cmath>

namespace {
void Append(std::string& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}
} // namespace

std::string WaveFile(const Sound& sound) {
    constexpr std::uint32_t SampleSize = 2;
    constexpr std::uint32_t HeaderAfterSize = 36;
    const auto dataSize = static_cast<std::uint32_t>(sound.size()) * SampleSize;
    std::string bytes = "RIFF";
    Append(bytes, HeaderAfterSize + dataSize, 4);
    bytes += "WAVEfmt ";
    Append(bytes, 16, 4); // size of the format chunk
    Append(bytes, 1, 2);  // plain samples
    Append(bytes, 1, 2);  // one channel
    Append(bytes, SampleRate, 4);
    Append(bytes, SampleRate * SampleSize, 4); // bytes per second
    Append(bytes, SampleSize, 2);
    Append(bytes, 16, 2); // bits per sample
    bytes += "data";
    Append(bytes, dataSize, 4);
    for (const double sample : sound)
        Append(bytes, static_cast<std::uint32_t>(std::lround(sample * 32767)), SampleSize);
    return bytes;
}
