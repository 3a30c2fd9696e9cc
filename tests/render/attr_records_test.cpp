#include <gtest/gtest.h>

#include "render/attr_records.h"
#include "test_util.h"

namespace orv {
namespace {

using test::At;

// Offsets of one paint inside its record.
constexpr size_t SOLID = 4, ANGLE = 12, STOPS = 14, POS = 16, STOPCLR = 80, IMAGE = 144, FIT = 664,
                 FILL = 668;

TEST(AttrDefaults, PaintsByteByByte) {
    const UstAttr a = MakeDefaultAttr();
    const uint32_t solid[6] = {0xFFFFFFFF, 0xFF000000, 0xFFFFFF00,
                               0xFF000000, 0xFF000000, 0xFF000000};
    for (size_t p = 0; p < 6; ++p) {
        const size_t base = p * FILL;
        SCOPED_TRACE(p);
        EXPECT_EQ(At<uint32_t>(a, base), 0u);
        EXPECT_EQ(At<uint32_t>(a, base + SOLID), solid[p]);
        EXPECT_EQ(At<uint32_t>(a, base + 8), 0u);
        EXPECT_EQ(At<int16_t>(a, base + ANGLE), 90);
        EXPECT_EQ(At<int16_t>(a, base + STOPS), p == 0 ? 3 : 2);
        EXPECT_EQ(At<float>(a, base + POS), 0.0f);
        EXPECT_EQ(At<uint16_t>(a, base + IMAGE), 0u);
        EXPECT_EQ(At<uint32_t>(a, base + FIT), 1u);
        for (size_t s = 3; s < 16; ++s)
            EXPECT_EQ(At<uint32_t>(a, base + STOPCLR + 4 * s), 0xFF000000u);
    }
    EXPECT_EQ(At<float>(a, POS + 4), 0.5f);
    EXPECT_EQ(At<float>(a, POS + 8), 1.0f);
    EXPECT_EQ(At<uint32_t>(a, STOPCLR), 0xFFFF0000u);
    EXPECT_EQ(At<uint32_t>(a, STOPCLR + 4), 0xFF00FF00u);
    EXPECT_EQ(At<uint32_t>(a, STOPCLR + 8), 0xFF0000FFu);
    for (size_t p = 1; p < 6; ++p) {
        EXPECT_EQ(At<float>(a, p * FILL + POS + 4), 1.0f);
        EXPECT_EQ(At<uint32_t>(a, p * FILL + STOPCLR), 0xFF000000u);
        EXPECT_EQ(At<uint32_t>(a, p * FILL + STOPCLR + 4), 0xFFFFFFFFu);
        EXPECT_EQ(At<uint32_t>(a, p * FILL + STOPCLR + 8), 0xFF000000u);
    }
}

TEST(AttrDefaults, BlankRecordIsAllOpaqueBlack) {
    const UstAttr a = MakeBlankAttr();
    for (size_t p = 0; p < 6; ++p) {
        EXPECT_EQ(At<uint32_t>(a, p * FILL + SOLID), 0xFF000000u);
        for (size_t s = 0; s < 16; ++s)
            EXPECT_EQ(At<uint32_t>(a, p * FILL + STOPCLR + 4 * s), 0xFF000000u);
    }
}

TEST(AttrDefaults, EffectWords) {
    const UstEffect e = MakeDefaultEffect();
    const int32_t expected[17] = {0, 0, 0, 2, 0, 0, 0, 0, 0, 2, 2, 0, 0, 0, 0, 0, 0};
    for (size_t i = 0; i < 17; ++i)
        EXPECT_EQ(At<int32_t>(e, 4 * i), expected[i]) << i;
}

}  // namespace
}  // namespace orv
