// The kinds of values the game computes with, and the one conversion function of each.
// Every rounding in the program goes through here, so that none is left to a cast. Those to whole numbers
// saturate: a coordinate far outside stays far outside and never wraps round.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

/// Whole numbers from data files and fractional ones from the mouse; rounded where it becomes an integer.
using Number = double;

/// 0x00BBGGRR, red in the lowest byte.
using Colour = std::int32_t;

/// A flag field of 16 bits; the others are Number. Compared with FlagOn, never merely tested.
using Flag = std::int16_t;

/// To nearest, ties to even. Beyond the range the nearest end of it; 0 for what is no number.
template <typename Integer>
Integer Nearest(double value) {
    if (std::isnan(value)) return 0;
    if (value <= std::numeric_limits<Integer>::min()) return std::numeric_limits<Integer>::min();
    if (value >= std::numeric_limits<Integer>::max()) return std::numeric_limits<Integer>::max();
    // lrint follows the default rounding mode, which nobody changes.
    return static_cast<Integer>(std::lrint(value));
}
inline std::int16_t NearestInt16(double value) {
    return Nearest<std::int16_t>(value);
}
inline std::int32_t NearestInt32(double value) {
    return Nearest<std::int32_t>(value);
}

/// Towards minus infinity. Beyond the range the nearest end of it; 0 for what is no number.
inline std::int32_t FloorInt32(double value) {
    return NearestInt32(std::floor(value));
}

/// Towards minus infinity, kept as a number.
Number FloorNumber(double value);

/// The nearest single-precision value.
float Single(double value);

/// The colour of a red, green and blue of 0 to 255 each.
constexpr Colour Rgb(int red, int green, int blue) {
    return red | (green << 8) | (blue << 16);
}

/// Entry 0 to 15 of the 16-colour table.
Colour QBColor(int entry);
