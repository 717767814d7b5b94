// The conversions between the kinds of values, and the 16-colour table.
// All of them saturate: a coordinate far outside stays far outside and never wraps round.
#include "platform/value_kinds.h"

#include <array>
#include <cmath>
#include <limits>

namespace {

template <typename Integer>
Integer Saturated(double whole) {
    if (std::isnan(whole)) return 0;
    if (whole <= std::numeric_limits<Integer>::min()) return std::numeric_limits<Integer>::min();
    if (whole >= std::numeric_limits<Integer>::max()) return std::numeric_limits<Integer>::max();
    return static_cast<Integer>(whole);
}

} // namespace

// nearbyint follows the default rounding mode, which nobody changes: to nearest, ties to even.
std::int16_t NearestInt16(double value) {
    return Saturated<std::int16_t>(std::nearbyint(value));
}

std::int32_t NearestInt32(double value) {
    return Saturated<std::int32_t>(std::nearbyint(value));
}

std::int32_t FloorInt32(double value) {
    return Saturated<std::int32_t>(std::floor(value));
}

Number FloorNumber(double value) {
    return std::floor(value);
}

float Single(double value) {
    return static_cast<float>(value);
}

Colour QBColor(int entry) {
    static constexpr std::array<Colour, 16> Table = {
        Rgb(0, 0, 0),       Rgb(0, 0, 128),   Rgb(0, 128, 0),   Rgb(0, 128, 128),
        Rgb(128, 0, 0),     Rgb(128, 0, 128), Rgb(128, 128, 0), Rgb(192, 192, 192),
        Rgb(128, 128, 128), Rgb(0, 0, 255),   Rgb(0, 255, 0),   Rgb(0, 255, 255),
        Rgb(255, 0, 0),     Rgb(255, 0, 255), Rgb(255, 255, 0), Rgb(255, 255, 255),
    };
    return Table[static_cast<unsigned>(entry) % Table.size()];
}
