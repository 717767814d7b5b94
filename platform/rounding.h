// Numbers that may be fractions, and the one conversion function for each rounding. No rounding is left to a
// cast. Conversions to whole numbers saturate: a coordinate far outside stays far outside.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

/// Whole numbers from data files and fractional ones from the mouse.
using Number = double;

/// A flag field of 16 bits; other flags are Number. Compared with FlagOn, never merely tested.
using Flag = std::int16_t;

/// To nearest, ties to even. Beyond the range its nearest end; 0 for NaN.
template <typename Integer>
Integer Nearest(double value) {
    if (std::isnan(value)) return 0;
    if (value <= std::numeric_limits<Integer>::min()) return std::numeric_limits<Integer>::min();
    if (value >= std::numeric_limits<Integer>::max()) return std::numeric_limits<Integer>::max();
    // lrint follows the rounding mode of the process, which nobody changes.
    return static_cast<Integer>(std::lrint(value));
}
inline std::int16_t NearestInt16(double value) {
    return Nearest<std::int16_t>(value);
}
inline std::int32_t NearestInt32(double value) {
    return Nearest<std::int32_t>(value);
}

/// Towards minus infinity. Beyond the range its nearest end; 0 for NaN.
inline std::int32_t FloorInt32(double value) {
    return NearestInt32(std::floor(value));
}

/// Towards minus infinity, kept as a number.
inline Number FloorNumber(double value) {
    return std::floor(value);
}

/// The nearest single-precision value.
inline float Single(double value) {
    return static_cast<float>(value);
}
