// The random generator: its 24 highest bits fill the fraction of a single-precision number.
#include "platform/random.h"

#include <cstdint>
#include <cstring>
#include <random>

namespace {
std::mt19937 Generator;
}

void Randomize(float seed) {
    static_assert(sizeof(float) == sizeof(std::uint32_t));
    std::uint32_t bits = 0;
    std::memcpy(&bits, &seed, sizeof bits);
    Generator.seed(bits);
}

float Rnd() {
    return static_cast<float>(Generator() >> 8) * 0x1p-24F;
}
