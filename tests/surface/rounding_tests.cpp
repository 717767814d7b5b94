// The conversions at the edges of their ranges.
#include "platform/rounding.h"

#include <cmath>
#include <gtest/gtest.h>

TEST(RoundingTest, ConversionsRoundTiesToEvenFloorDownwardAndSaturate) {
    constexpr double Lowest = -2147483648.0, Highest = 2147483647.0;
    // The value, and what it is as the nearest 16 bits, the nearest 32, and the floor.
    const double cases[][4] = {{1.5, 2, 2, 1},
                               {2.5, 2, 2, 2},
                               {-2.5, -2, -2, -3},
                               {0.49999999999999994, 0, 0, 0},
                               {-32768.5, -32768, -32768, -32769},
                               {Highest + 0.5, 32767, Highest, Highest},
                               {Lowest - 0.5, -32768, Lowest, Lowest},
                               {INFINITY, 32767, Highest, Highest},
                               {-INFINITY, -32768, Lowest, Lowest},
                               {NAN, 0, 0, 0}};
    for (const auto& [value, nearest16, nearest32, floor] : cases) {
        EXPECT_EQ(NearestInt16(value), nearest16) << value;
        EXPECT_EQ(NearestInt32(value), nearest32) << value;
        EXPECT_EQ(FloorInt32(value), floor) << value;
    }
    EXPECT_EQ(FloorNumber(-4294967296.25), -4294967297.0);
    EXPECT_EQ(Single(16777217), 16777216);
    EXPECT_EQ(Single(16777219), 16777220);
}
