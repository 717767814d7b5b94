// Colours, and the 16-colour table.
#pragma once

#include <cstdint>

/// 0x00BBGGRR, red in the lowest byte.
using Colour = std::int32_t;

/// The colour of a red, green and blue of 0 to 255 each.
constexpr Colour Rgb(int red, int green, int blue) {
    return red | (green << 8) | (blue << 16);
}

/// Entry 0 to 15 of the 16-colour table.
Colour QBColor(int entry);
