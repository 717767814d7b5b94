// The 16-colour table.
#include "platform/colour.h"

#include <array>

Colour QBColor(int entry) {
    static constexpr std::array<Colour, 16> Table = {
        Rgb(0, 0, 0),       Rgb(0, 0, 128),   Rgb(0, 128, 0),   Rgb(0, 128, 128),
        Rgb(128, 0, 0),     Rgb(128, 0, 128), Rgb(128, 128, 0), Rgb(192, 192, 192),
        Rgb(128, 128, 128), Rgb(0, 0, 255),   Rgb(0, 255, 0),   Rgb(0, 255, 255),
        Rgb(255, 0, 0),     Rgb(255, 0, 255), Rgb(255, 255, 0), Rgb(255, 255, 255),
    };
    return Table[static_cast<unsigned>(entry) % Table.size()];
}
