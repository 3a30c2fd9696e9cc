#include <gtest/gtest.h>

#include <vector>

#include "render/frame_ring.h"
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

TEST(Blend, TheCasesOfTheRule) {
    EXPECT_EQ(BlendPixel(0x80112233u, 0xFF445566u), 0xFF445566u);  // opaque source wins
    EXPECT_EQ(BlendPixel(0x00AABBCCu, 0x01102030u), 0x01102030u);  // onto nothing: the source
    EXPECT_EQ(BlendPixel(0x80AABBCCu, 0x00102030u), 0x80AABBCCu);  // invisible source
    // (0x80, 0, 0, alpha 128) over (0, 0x80, 0, alpha 128): alpha 255 - 127 * 127 / 255 = 192,
    // red 128 * 128 / 255 = 64, green 128 * 127 / 255 = 63.
    EXPECT_EQ(BlendPixel(0x80008000u, 0x80800000u), 0xC0403F00u);
}

TEST(Blend, OpacityScalesTheSourceAlphaFirst) {
    EXPECT_EQ(BlendPixelOpacity(0xFF123456u, 0xC8FFFFFFu, 1), 0xFF123456u);  // 200 / 255 is 0
    // a = 128: blue 255 * 128 / 255 = 128, green 255 * 127 / 255 = 127.
    EXPECT_EQ(BlendPixelOpacity(0xFF00FF00u, 0xFF0000FFu, 128), 0xFF007F80u);
    // Onto nothing: the source with alpha 128 * 200 / 255 = 100.
    EXPECT_EQ(BlendPixelOpacity(0x00000000u, 0xC8102030u, 128), 0x64102030u);
    std::vector<uint32_t> dst = {0x80008000u, 0x80008000u, 7u}, src = {0x80800000u, 0x80800000u};
    BlendPixelRect(dst.data(), 3, {0, 0, 3, 1}, src.data(), 2, {0, 0, 2, 1});  // overlap of 2
    EXPECT_EQ(dst, (std::vector<uint32_t>{0xC0403F00u, 0xC0403F00u, 7u}));
}

TEST(KeyOut, HardThresholdAtDistance100) {
    std::vector<uint32_t> px = {
        0xC8640000u,  // red 100 from black: distance 100, keyed out
        0xC8650000u,  // red 101: kept
        0xC83C5000u,  // (60, 80, 0): distance 100
        0xC83D5000u,  // (61, 80, 0): 100.6, still not above 100
        0xC8000065u,  // blue 101: kept
    };
    KeyOutColor(px.data(), 5, 1, 0xFF000000u, 128);  // kept alpha: 200 * 128 / 255 = 100
    EXPECT_EQ(px, (std::vector<uint32_t>{0x00640000u, 0x64650000u, 0x003C5000u, 0x003D5000u,
                                         0x64000065u}));
    std::vector<uint32_t> alpha = {0xC8112233u, 0xC8112233u, 0xFF445566u};
    ScaleAlphaPixels(alpha.data(), 1, 1, 128);
    EXPECT_EQ(alpha[0], 0x64112233u);
    ScaleAlphaPixels(alpha.data() + 1, 2, 1, 255);  // full opacity keeps every alpha
    EXPECT_EQ(alpha[1], 0xC8112233u);
    EXPECT_EQ(alpha[2], 0xFF445566u);
}

TEST(BoxBlur, RadiusOneWorksOnTheInnerSixBySixWithATwoByTwoBox) {
    std::vector<uint32_t> px(100);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x)
            px[static_cast<size_t>(y * 10 + x)] = (x + 10 * y) * 0x01010101u;
    const std::vector<uint32_t> before = px;
    ASSERT_EQ(BoxBlurRect(px.data(), {0, 0, 10, 10}, 10, 1), 1);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x) {
            const bool inner = x >= 2 && x < 8 && y >= 2 && y < 8;
            // Mean of columns x-1, x and rows y-1, y of the block as it stood:
            // x + 10y - 5.5, floored.
            const uint32_t expected =
                inner ? (x + 10 * y - 6) * 0x01010101u : before[static_cast<size_t>(y * 10 + x)];
            EXPECT_EQ(px[static_cast<size_t>(y * 10 + x)], expected) << x << "," << y;
        }
}

TEST(BoxBlur, FailuresLeaveTheBlockAlone) {
    std::vector<uint32_t> px(100, 0x11223344u);
    const std::vector<uint32_t> before = px;
    EXPECT_EQ(BoxBlurRect(px.data(), {0, 0, 10, 10}, 10, 0), 0);  // radius below 1
    EXPECT_EQ(BoxBlurRect(px.data(), {0, 0, 4, 4}, 10, 1), 0);    // region comes out empty
    EXPECT_EQ(BoxBlurRect(px.data(), {0, 0, 9, 9}, 10, 3), 0);
    EXPECT_EQ(BoxBlurRect(px.data(), {2, 0, 12, 10}, 10, 1), 0);  // wider than the block
    EXPECT_EQ(px, before);
    // Five wide at radius 1 leaves a region of one pixel, (2, 2), whose box
    // is (1..2, 1..2): three pixels of the colour and one of 0.
    px[11] = 0;
    EXPECT_EQ(BoxBlurRect(px.data(), {0, 0, 5, 5}, 10, 1), 1);
    EXPECT_EQ(px[22], 0x0C192633u);  // three quarters of each channel, floored
    EXPECT_EQ(px[23], 0x11223344u);
}

TEST(BoxBlur, FixedPointReciprocal) {
    const struct {
        uint32_t area, m;
        int s;
    } cases[] = {{1, 256, 8},    {4, 4096, 14},   {16, 4096, 16},
                 {36, 3641, 17}, {100, 2622, 18}, {14400, 2331, 25}};
    for (const auto& c : cases) {
        EXPECT_EQ(BoxReciprocal(c.area).m, c.m) << c.area;
        EXPECT_EQ(BoxReciprocal(c.area).s, c.s) << c.area;
    }
}

TEST(Masks, ClearMaskedInteriorNeverTouchesTheBorder) {
    const uint32_t F = 0xFFFFFFFFu;
    std::vector<uint32_t> mask(16, F), dst(16, 5);
    mask[6] = 0xFEFFFFFFu;  // (2, 1) is not fully covered
    ClearMaskedInterior(dst.data(), mask.data(), 4, 4);
    EXPECT_EQ(dst, (std::vector<uint32_t>{5, 5, 5, 5, 5, 5, 5, 5, 5, 0, 5, 5, 5, 5, 5, 5}));
    std::vector<uint32_t> narrow(6, 5), narrowMask(6, F);
    ClearMaskedInterior(narrow.data(), narrowMask.data(), 2, 3);
    EXPECT_EQ(narrow, std::vector<uint32_t>(6, 5));
    std::vector<uint32_t> smallest(9, 5), smallestMask(9, F);  // 3 x 3: only the centre
    ClearMaskedInterior(smallest.data(), smallestMask.data(), 3, 3);
    EXPECT_EQ(smallest, (std::vector<uint32_t>{5, 5, 5, 5, 0, 5, 5, 5, 5}));
}

TEST(Masks, MergeAndStamp) {
    std::vector<uint32_t> dst = {1, 1, 1}, a = {0, 7, 0}, b = {0, 8, 9};
    MergePixels(dst.data(), a.data(), b.data(), 3, 1);
    EXPECT_EQ(dst, (std::vector<uint32_t>{1, 7, 9}));
    std::vector<uint32_t> block(9, 0), src(9), mask = {0xFFFFFFFFu, 1, 0xFFFFFFFFu, 0xFFFFFFFFu};
    for (uint32_t i = 0; i < 9; ++i)
        src[i] = 10 + i;
    MaskStampPixels(block.data(), src.data(), 3, 3, mask.data(), 2, 2, 2, 1);  // partly outside
    EXPECT_EQ(block, (std::vector<uint32_t>{0, 0, 0, 0, 0, 15, 0, 0, 18}));
}

TEST(CopyAndFlip, SmallerSourceRectStillCopiesTheDestinationSize) {
    std::vector<uint32_t> src = {1, 2, 3, 4, 5, 6, 7, 8}, dst(12, 0);
    EXPECT_EQ(CopyPixelRect(dst.data(), 4, {1, 1, 4, 3}, src.data(), 4, 0, 0, 1, 1), 1);
    EXPECT_EQ(dst, (std::vector<uint32_t>{0, 0, 0, 0, 0, 1, 2, 3, 0, 5, 6, 7}));
    EXPECT_EQ(CopyPixelRect(dst.data(), 4, {2, 0, 5, 1}, src.data(), 4, 0, 0, 0, 0), 0);
}

TEST(CopyAndFlip, AxesAndTheAxisThatIsNot) {
    const std::vector<uint32_t> start = {1, 2, 3, 4, 5, 6};  // 3 x 2
    auto flipped = [&](int axis, int expectResult) {
        std::vector<uint32_t> v = start;
        EXPECT_EQ(FlipPixels(v.data(), 3, 2, axis), expectResult);
        return v;
    };
    EXPECT_EQ(flipped(0, 1), (std::vector<uint32_t>{4, 5, 6, 1, 2, 3}));
    EXPECT_EQ(flipped(1, 1), (std::vector<uint32_t>{3, 2, 1, 6, 5, 4}));
    EXPECT_EQ(flipped(2, 1), (std::vector<uint32_t>{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(flipped(3, 0), start);
    EXPECT_EQ(flipped(-1, 0), start);
}

TEST(Scale, BilinearSamplesPixelCentresAndRejectsEmptyExtents) {
    const std::vector<uint32_t> src = {0xFF000000u, 0xFF000064u};  // blue 0 and 100
    std::vector<uint32_t> dst(4, 9);
    EXPECT_EQ(ScalePixelRect(dst.data(), {0, 0, 4, 1}, src.data(), {0, 0, 2, 1}, 2), 1);
    EXPECT_EQ(dst, (std::vector<uint32_t>{0xFF000000u, 0xFF000019u, 0xFF00004Bu, 0xFF000064u}));
    std::vector<uint32_t> untouched(4, 9);
    EXPECT_EQ(ScalePixelRect(untouched.data(), {0, 0, 0, 1}, src.data(), {0, 0, 2, 1}, 2), 0);
    EXPECT_EQ(ScalePixelRect(untouched.data(), {0, 0, 4, 1}, src.data(), {0, 0, 2, -1}, 8), 0);
    EXPECT_EQ(untouched, std::vector<uint32_t>(4, 9));
    const std::vector<uint32_t> flat(4, 0xFF336699u);
    std::vector<uint32_t> big(16, 0);
    EXPECT_EQ(ScalePixelRect(big.data(), {5, 5, 9, 9}, flat.data(), {0, 0, 2, 2}, 8), 1);
    EXPECT_EQ(big, std::vector<uint32_t>(16, 0xFF336699u));
}

TEST(Frame, BorderInItsOrderCentreUntouched) {
    std::vector<uint32_t> px(9, 0);
    FramePixels(px.data(), 3, 3, 4);
    EXPECT_EQ(px, (std::vector<uint32_t>{4, 4, 4, 4, 0, 4, 4, 4, 4}));
}

TEST(RoundToInt, HalvesGoAwayFromZero) {
    EXPECT_EQ(RoundToInt(0.5f), 1);
    EXPECT_EQ(RoundToInt(-0.5f), -1);
    EXPECT_EQ(RoundToInt(2.5f), 3);
    EXPECT_EQ(RoundToInt(-2.5f), -3);
    EXPECT_EQ(RoundToInt(57.6f), 58);
    EXPECT_EQ(RoundToInt(-0.4f), 0);
    EXPECT_EQ(RoundToInt(2.4999998f), 2);
}

TEST(FrameRingTest, StartsEmptyWrapsBeforeTheFirstReadThenFills) {
    FrameRing ring(10, 3);
    EXPECT_EQ(ring.BlockBytes(), 8u);
    EXPECT_EQ(ring.WritePosition(), -1);
    EXPECT_EQ(ring.ReadPosition(), -1);
    EXPECT_EQ(ring.NextReadBlock(), nullptr);
    uint8_t* first = ring.NextWriteBlock();
    ASSERT_NE(first, nullptr);
    ring.CommitWrite();
    EXPECT_EQ(ring.NextReadBlock(), first);
    ring.CommitWrite();
    ring.CommitWrite();
    EXPECT_EQ(ring.NextWriteBlock(), first);  // never full before the first read
    ring.CommitRead();
    EXPECT_EQ(ring.ReadPosition(), 0);
    EXPECT_EQ(ring.NextWriteBlock(), nullptr);  // write 2, next 0 is where reading stands
    ring.CommitWrite();
    EXPECT_EQ(ring.WritePosition(), 2);
    ring.CommitRead();
    ring.CommitRead();
    EXPECT_EQ(ring.NextReadBlock(), nullptr);  // empty again
    ring.CommitRead();
    EXPECT_EQ(ring.ReadPosition(), 2);
}

}  // namespace
}  // namespace orv
