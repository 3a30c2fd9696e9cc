#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "media/ani32_codec.h"
#include "support/ani_bytes.h"

namespace orv {
namespace {

using test::Bytes;
using test::PutPixel;

constexpr uint32_t A = 0x11223344u, B = 0xAABBCCDDu, C = 0x01020304u;

Bytes Packet(uint8_t control, std::initializer_list<uint32_t> pixels) {
    Bytes b{control};
    for (uint32_t p : pixels)
        PutPixel(b, p);
    return b;
}

Bytes Cat(std::initializer_list<Bytes> parts) {
    Bytes out;
    for (const Bytes& p : parts)
        test::Append(out, p);
    return out;
}

Bytes EncodeRow(const std::vector<uint32_t>& row) {
    Bytes out(row.size() * 5 + 5, 0xEE);
    out.resize(EncodeAni32Row(static_cast<int>(row.size()), row.data(), out.data()));
    return out;
}

TEST(Ani32Encode, RowsOfWidthZeroAndOneAreFiveBytes) {
    EXPECT_EQ(EncodeRow({A}), Packet(128, {A}));
    // No pixel to read: the packet carries a zero pixel.
    EXPECT_EQ(EncodeRow({}), Packet(128, {0}));
    const std::vector<uint32_t> column = {A, B, C};
    Bytes out(64);
    EXPECT_EQ(EncodeAni32Rows(column.data(), 1, 3, out.data()), 15u);
    out.resize(15);
    EXPECT_EQ(out, Cat({Packet(128, {A}), Packet(128, {B}), Packet(128, {C})}));
}

TEST(Ani32Encode, TwoPixels) {
    EXPECT_EQ(EncodeRow({A, A}), Cat({Packet(128, {A}), Packet(128, {A})}));
    EXPECT_EQ(EncodeRow({A, B}), Cat({Packet(0, {A}), Packet(128, {B})}));
}

TEST(Ani32Encode, TwoHundredEqualPixels) {
    // 128 in a run (k = 127), 71 in the next (k = 70), the last on its own.
    EXPECT_EQ(EncodeRow(std::vector<uint32_t>(200, A)),
              Cat({Packet(255, {A}), Packet(198, {A}), Packet(128, {A})}));
}

TEST(Ani32Encode, RunEndsWhereTheNextPixelDiffers) {
    // A run of three costs a run of two and a packet that starts with the
    // third.
    EXPECT_EQ(EncodeRow({A, A, A, B}), Cat({Packet(129, {A}), Packet(0, {A}), Packet(128, {B})}));
    EXPECT_EQ(EncodeRow({A, B, C, C, C}),
              Cat({Packet(1, {A, B}), Packet(129, {C}), Packet(128, {C})}));
}

TEST(Ani32Encode, LiteralPacketsHoldAtMost128Pixels) {
    std::vector<uint32_t> row(130);
    for (uint32_t i = 0; i < row.size(); ++i)
        row[i] = i + 1;
    const Bytes out = EncodeRow(row);
    ASSERT_EQ(out.size(), 1u + 128 * 4 + 5 + 5);
    EXPECT_EQ(out[0], 127);
    EXPECT_EQ(out[513], 0);    // pixel 129 alone, not the last
    EXPECT_EQ(out[514], 129);  // its value, low byte first
    EXPECT_EQ(out[518], 128);
    EXPECT_EQ(out[519], 130);
}

TEST(Ani32Decode, PacketsFillRowsInTurn) {
    // 3 x 2: a run of 2 and a literal of 1, then a literal of 2 and a run
    // of 1 that ends the frame exactly.
    const Bytes code = Cat({Packet(129, {A}), Packet(0, {B}), Packet(1, {C, B}), Packet(128, {A})});
    std::vector<uint32_t> out(6, 0);
    EXPECT_EQ(DecodeAni32Rows(code.data(), code.size(), out.data(), 3, 2), 1);
    EXPECT_EQ(out, (std::vector<uint32_t>{A, A, B, C, B, A}));
}

TEST(Ani32Decode, APacketRunningPastItsRowFails) {
    std::vector<uint32_t> out(6, 0);
    const Bytes run = Cat({Packet(0, {A}), Packet(130, {B})});  // 1 + 3 on a row of 3
    EXPECT_EQ(DecodeAni32Rows(run.data(), run.size(), out.data(), 3, 2), 0);
    // Even on the last row, where it would run past the frame.
    const Bytes last = Cat({Packet(130, {A}), Packet(3, {A, A, A, A})});
    EXPECT_EQ(DecodeAni32Rows(last.data(), last.size(), out.data(), 3, 2), 0);
    EXPECT_EQ(out[3], 0u);
}

TEST(Ani32Decode, CodeEndingEarlyLeavesTheRestAsItWas) {
    std::vector<uint32_t> out(4, C);
    Bytes code = Cat({Packet(129, {A}), Packet(1, {B, B})});
    code.resize(code.size() - 4);  // the literal keeps its control byte and 4 of 8 bytes
    EXPECT_EQ(DecodeAni32Rows(code.data(), code.size(), out.data(), 2, 2), 1);
    EXPECT_EQ(out, (std::vector<uint32_t>{A, A, B, C}));
    const Bytes cutRun = {0x80, 1, 2};  // a run whose pixel is cut
    EXPECT_EQ(DecodeAni32Rows(cutRun.data(), cutRun.size(), out.data(), 2, 2), 1);
    EXPECT_EQ(out[0], A);
}

TEST(Ani32Decode, BytesAfterTheLastRowAreIgnored) {
    const Bytes code = Cat({Packet(128, {A}), Packet(128, {B}), Packet(5, {C})});
    std::vector<uint32_t> out(2, 0);
    EXPECT_EQ(DecodeAni32Rows(code.data(), code.size(), out.data(), 1, 2), 1);
    EXPECT_EQ(out, (std::vector<uint32_t>{A, B}));
}

TEST(Ani32Codec, BlocksComeBackExactlyAndWithinTheScratch) {
    // Runs of every length up to past 128, transparent stretches, single
    // changes and noise, on widths around the packet limit.
    std::mt19937 rng(11);
    for (int width : {1, 2, 3, 127, 128, 129, 257, 300}) {
        const int height = 7;
        std::vector<uint32_t> block(static_cast<size_t>(width) * height);
        for (size_t i = 0; i < block.size();) {
            const uint32_t value = rng() % 4 == 0 ? 0 : static_cast<uint32_t>(rng() % 5);
            const size_t run = rng() % 3 == 0 ? 1 + rng() % 300 : 1;
            for (size_t k = 0; k < run && i < block.size(); ++k)
                block[i++] = value;
        }
        Bytes scratch(block.size() * 8);
        const size_t size = EncodeAni32Rows(block.data(), width, height, scratch.data());
        ASSERT_LE(size, scratch.size());
        std::vector<uint32_t> out(block.size(), 0xDEADBEEF);
        ASSERT_EQ(DecodeAni32Rows(scratch.data(), size, out.data(), width, height), 1);
        EXPECT_EQ(out, block) << "width " << width;
    }
    // The worst case: pairs, each costing a run of one and a literal of one.
    std::vector<uint32_t> pairs(64);
    for (size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = static_cast<uint32_t>(i / 2);
    Bytes scratch(pairs.size() * 8);
    EXPECT_EQ(EncodeAni32Rows(pairs.data(), 64, 1, scratch.data()), 5u * 64);
}

TEST(Ani32Codec, SmallestFrameIsOneRunPacketPer128Pixels) {
    EXPECT_EQ(MinimumAni32FrameBytes(1, 1), 5u);
    EXPECT_EQ(MinimumAni32FrameBytes(128, 2), 10u);
    EXPECT_EQ(MinimumAni32FrameBytes(129, 2), 20u);
    EXPECT_EQ(MinimumAni32FrameBytes(1920, 1080), 1080u * 15 * 5);
}

}  // namespace
}  // namespace orv
