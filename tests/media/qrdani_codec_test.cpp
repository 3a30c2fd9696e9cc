#include <gtest/gtest.h>

#include <vector>

#include "media/qrdani_codec.h"
#include "support/ani_bytes.h"

namespace orv {
namespace {

using test::Bits;
using test::Bytes;
using test::Nibbles;

struct UstTable {
    uint8_t lengths[QRD_SYMBOLS];
    size_t bytes;
};

UstTable Unpack(const Bytes& b) {
    UstTable t{};
    t.bytes = UnpackCodeLengths(b.data(), b.size(), t.lengths);
    return t;
}

// Zeros to the end of a table once repeating has started: each round reads
// 0 twice after the escape 13 (the base is 26 after a count of 41), then
// the count 41 (escape 15, 15).
constexpr int ZERO_ROUND[] = {13, 0, 0, 15, 15};

TEST(QrdTable, NibblesZeroZeroFiveGiveSevenZeros) {
    // 0, 0 (two read), 5 copies; then 3; then zeros, repeated to 256.
    const Bytes b = Nibbles({0,  0,  5,  3, 0, 0,  0,  15, 15, 13, 0,  0,  15, 15, 13, 0,  0,
                             15, 15, 13, 0, 0, 15, 15, 13, 0,  0,  15, 15, 13, 0,  0,  15, 15});
    const UstTable t = Unpack(b);
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(t.lengths[i], 0) << i;
    EXPECT_EQ(t.lengths[7], 3);
    for (int i = 8; i < 256; ++i)
        ASSERT_EQ(t.lengths[i], 0) << i;
    EXPECT_EQ(t.bytes, 17u);  // 34 nibbles
}

TEST(QrdTable, EscapesSetABaseThatStays) {
    // 15 sets base 26: 15,0 is 26 and the next plain 1 is 27, not 1. Then
    // 14,13: base 13 and a digit 13 (an escape value is never a length by
    // itself, and the nibble after one is always a digit): 26. 13,0 goes
    // back to base 0 for the zeros.
    Bytes b = Nibbles({15, 0,  1,  14, 13, 13, 0,  0,  0,  15, 15, 13, 0,  0,  15, 15, 13, 0,
                       0,  15, 15, 13, 0,  0,  15, 15, 13, 0,  0,  15, 15, 13, 0,  0,  15, 15});
    const UstTable t = Unpack(b);
    EXPECT_EQ(t.lengths[0], 26);
    EXPECT_EQ(t.lengths[1], 27);
    EXPECT_EQ(t.lengths[2], 26);
    EXPECT_EQ(t.lengths[3], 0);
    EXPECT_EQ(t.lengths[5], 0);
    EXPECT_EQ(t.lengths[255], 0);
    EXPECT_EQ(t.bytes, 18u);  // 36 nibbles
}

TEST(QrdTable, ARepeatCountIsReadEvenAfterTheLastLength) {
    // Zeros to 253 (the first after an escape 13), then 2, 2, 2: the third
    // 2 is the 256th length and its count, 0, is still read. 35 nibbles
    // take 18 bytes; without the count the stream would start a byte early.
    const Bytes b = Nibbles({13, 0,  0,  15, 15, 13, 0,  0,  15, 15, 13, 0,  0,  15, 15, 13, 0, 0,
                             15, 15, 13, 0,  0,  15, 15, 13, 0,  0,  15, 10, 13, 2,  2,  2,  0});
    const UstTable t = Unpack(b);
    EXPECT_EQ(t.lengths[252], 0);
    EXPECT_EQ(t.lengths[253], 2);
    EXPECT_EQ(t.lengths[255], 2);
    EXPECT_EQ(t.bytes, 18u);
}

TEST(QrdTable, BytesEndingInsideTheTableGiveNothing) {
    EXPECT_EQ(Unpack(Nibbles({0, 0})).bytes, 0u);          // the count is missing
    EXPECT_EQ(Unpack(Nibbles({3, 13})).bytes, 0u);         // an escape with no digit
    EXPECT_EQ(Unpack(Nibbles({0, 0, 15, 15})).bytes, 0u);  // 43 of 256
}

// Lengths of symbol 0 to the given ones, the rest 0.
std::vector<uint8_t> Lengths(std::initializer_list<int> first) {
    std::vector<uint8_t> l(QRD_SYMBOLS, 0);
    size_t i = 0;
    for (int v : first)
        l[i++] = static_cast<uint8_t>(v);
    return l;
}

// Symbol k of 0 to 13 has length k + 1, symbol 14 length 14: from the
// longest down, 14 takes 0 and 13 takes 1 at length 14, then each shorter
// length's single symbol takes 1. So symbol k < 14 is k zeros and a one,
// and symbol 14 is fourteen zeros.
std::vector<uint8_t> CombLengths() {
    return Lengths({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 14});
}

const char* const COMB_13 = "0000000000000 1";
const char* const COMB_14 = "00000000000000";

TEST(QrdCode, LongestCodesTakeTheSmallestValuesInDescendingSymbolOrder) {
    CQrdHuffman code;
    // 0: 1, 1: 2, 2: 2. Length 2 first, symbol 2 then 1: 00, 01; halved,
    // length 1: symbol 0 gets 1.
    ASSERT_TRUE(code.Build(Lengths({1, 2, 2}).data()));
    EXPECT_EQ(code.CodeOf(2), 0u);
    EXPECT_EQ(code.CodeOf(1), 1u);
    EXPECT_EQ(code.CodeOf(0), 1u);
    EXPECT_EQ(code.LengthOf(0), 1);
    EXPECT_EQ(code.LengthOf(3), 0);
    ASSERT_TRUE(code.Build(CombLengths().data()));
    EXPECT_EQ(code.CodeOf(14), 0u);
    EXPECT_EQ(code.CodeOf(13), 1u);
    EXPECT_EQ(code.CodeOf(5), 1u);
    EXPECT_EQ(code.LengthOf(5), 6);
}

TEST(QrdCode, TablesThatMakeNoPrefixCodeAreRefused) {
    CQrdHuffman code;
    EXPECT_FALSE(code.Build(Lengths({1, 1, 1}).data()));  // three codes of one bit
    // Length 2 gives symbol 1 the value 00 and leaves 1, halved to 0: the
    // one-bit code would be the start of symbol 1's.
    EXPECT_FALSE(code.Build(Lengths({1, 2}).data()));
    EXPECT_FALSE(code.Build(Lengths({33}).data()));
    EXPECT_TRUE(code.Build(Lengths({32}).data()));
    EXPECT_TRUE(code.Build(Lengths({0, 0, 0, 0, 0, 1}).data()));  // one symbol, half the codes
    EXPECT_TRUE(code.Build(Lengths({}).data()));                  // none at all
}

Bytes Decode(const std::vector<uint8_t>& lengths, const Bytes& in, size_t length, int* result) {
    CQrdHuffman code;
    EXPECT_TRUE(code.Build(lengths.data()));
    Bytes out(length + 4, 0xEE);
    *result = code.Decode(in.data(), in.size(), out.data(), length);
    return out;
}

TEST(QrdDecode, ShortCodesMostSignificantBitFirst) {
    // 0 = 1, 1 = 01, 2 = 00.
    const std::string unit = "1 01 00 1 1 01 00 00";
    int result = 0;
    Bytes out = Decode(Lengths({1, 2, 2}), Bits(unit), 8, &result);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(out, (Bytes{0, 1, 2, 0, 0, 1, 2, 2, 0xEE, 0xEE, 0xEE, 0xEE}));
    // Many units: whole words at a time, several codes per lookup.
    std::string many;
    Bytes expected;
    for (int i = 0; i < 40; ++i) {
        many += unit;
        expected.insert(expected.end(), {0, 1, 2, 0, 0, 1, 2, 2});
    }
    out = Decode(Lengths({1, 2, 2}), Bits(many), expected.size(), &result);
    EXPECT_EQ(result, 1);
    out.resize(expected.size());
    EXPECT_EQ(out, expected);
}

TEST(QrdDecode, CodesLongerThanTheLookup) {
    std::string bits;
    Bytes expected;
    for (int i = 0; i < 4; ++i) {
        bits += std::string(COMB_13) + COMB_14 + "1" + "1";
        expected.insert(expected.end(), {13, 14, 0, 0});
    }
    int result = 0;
    Bytes out = Decode(CombLengths(), Bits(bits), expected.size(), &result);
    EXPECT_EQ(result, 1);
    out.resize(expected.size());
    EXPECT_EQ(out, expected);
}

TEST(QrdDecode, StopsAtTheLengthOrWhereTheBitsEnd) {
    int result = 0;
    // More codes than wanted: only the length is written.
    Bytes out = Decode(Lengths({1, 2, 2}), Bits("1 1 1 1 01"), 3, &result);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(out, (Bytes{0, 0, 0, 0xEE, 0xEE, 0xEE, 0xEE}));
    // Bits ending inside a fourteen-bit code: what came before stays.
    out = Decode(CombLengths(), Bits("1 0000000"), 4, &result);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(out[1], 0xEE);
}

TEST(QrdDecode, BitsThatBeginNoCodeFail) {
    int result = 1;
    // Symbol 5 alone has the code 0; a 1 begins nothing.
    Decode(Lengths({0, 0, 0, 0, 0, 1}), Bits("0 0 1"), 3, &result);
    EXPECT_EQ(result, 0);
    Decode(Lengths({}), Bits("1"), 1, &result);
    EXPECT_EQ(result, 0);
    // The same among whole words.
    Decode(Lengths({0, 0, 0, 0, 0, 1}), Bits(std::string(70, '0') + "1" + std::string(70, '0')),
           100, &result);
    EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace orv
