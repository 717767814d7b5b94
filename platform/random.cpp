// The random generator: its 24 highest bits fill the fraction of a single-precision number.
#include "platform/random.h"

#include <bit>
#include <cstdint>
#include <random>

namespace {
std::mt19937 Generator;
}

void Randomize(float seed) {
    Generator.seed(std::bit_cast<std::uint32_t>(seed));
}

float Rnd() {
    return static_cast<float>(Generator() >> 8) * 0x1p-24F;
}
