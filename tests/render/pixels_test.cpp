#include <gtest/gtest.h>

#include <vector>

#include "render/pixels.h"

namespace orv {
namespace {

constexpr uint32_t L = 0xFFE0E0E0u, D = 0xFFA0A0A0u;

TEST(Checker, CellsFlipByRowAndColumnStartingLight) {
    std::vector<uint32_t> px(5 * 5, 0);
    DrawCheckerPixels(px.data(), 5, 5, 2);
    const uint32_t expected[25] = {L, L, D, D, L,  //
                                   L, L, D, D, L,  //
                                   D, D, L, L, D,  //
                                   D, D, L, L, D,  //
                                   L, L, D, D, L};
    for (int i = 0; i < 25; ++i)
        EXPECT_EQ(px[i], expected[i]) << "pixel " << i;
}

TEST(Checker, BadExtentsLeaveTheBlockUntouched) {
    std::vector<uint32_t> px(4, 7);
    DrawCheckerPixels(px.data(), 2, 2, 0);
    DrawCheckerPixels(px.data(), 0, 2, 3);
    FillPixels(1, px.data(), -2, 2);
    EXPECT_EQ(px, std::vector<uint32_t>(4, 7));
}

TEST(RoundToInt, HalvesGoAwayFromZero) {
    EXPECT_EQ(RoundToInt(2.5f), 3);
    EXPECT_EQ(RoundToInt(-2.5f), -3);
    EXPECT_EQ(RoundToInt(57.6f), 58);
    EXPECT_EQ(RoundToInt(-0.4f), 0);
    EXPECT_EQ(RoundToInt(1.4999999f), 1);
}

}  // namespace
}  // namespace orv
