#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <vector>

#include "media/ani32_codec.h"
#include "media/ani32_player.h"
#include "media/media_factory.h"
#include "media/qrdani_player.h"
#include "support/ani_bytes.h"
#include "test_util.h"

namespace orv {
namespace {

using test::Append;
using test::Bits;
using test::Bytes;
using test::Nibbles;
using test::Put32;
using test::PutPixel;

constexpr uint32_t A = 0x80FF0000u, B = 0xFF00FF00u, C = 0x00000000u;

void PutPacket(Bytes& b, uint8_t control, uint32_t pixel) {
    b.push_back(control);
    PutPixel(b, pixel);
}

// 2 x 2, two frames: A A / B C, then all C. Records at 28 and 52.
Bytes TwoFrameAni32(std::vector<uint32_t> offsets = {28, 52}) {
    Bytes b = test::AniHeader(2, 2, 2, offsets);
    Put32(b, 20);
    PutPacket(b, 128, A);
    PutPacket(b, 128, A);
    PutPacket(b, 0, B);
    PutPacket(b, 128, C);
    Put32(b, 20);
    for (int i = 0; i < 4; ++i)
        PutPacket(b, 128, C);
    return b;
}

std::vector<uint32_t> Frame(MediaPlayer& p, int index) {
    const uint32_t* f = p.ReadFrame(index);
    if (!f) return {};
    return {f, f + p.GetInfo()->nWidth * p.GetInfo()->nHeight};
}

std::unique_ptr<MediaPlayer> OnDisk(const QTemporaryDir& dir, const char* name, const Bytes& b) {
    const auto path = test::TempPath(dir, name);
    test::WriteFile(path, std::string(b.begin(), b.end()));
    return CreateMediaPlayer(QString::fromStdString(path.string()));
}

TEST(Ani32Player, ReadsFramesByNumberFromDisk) {
    QTemporaryDir dir;
    auto player = OnDisk(dir, "logo.ani32", TwoFrameAni32());  // lower case is recognised
    ASSERT_TRUE(player);
    const UstMediaInfo* info = player->GetInfo();
    EXPECT_EQ(info->nFrames, 2);
    EXPECT_EQ(info->nFps, 30);
    EXPECT_EQ(info->nWidth, 2);
    EXPECT_EQ(info->nHeight, 2);
    EXPECT_EQ(player->GetFrameSize(), 16u);
    EXPECT_EQ(Frame(*player, 1), std::vector<uint32_t>(4, C));
    EXPECT_EQ(Frame(*player, 0), (std::vector<uint32_t>{A, A, B, C}));
    EXPECT_EQ(player->ReadFrame(2), nullptr);
    EXPECT_EQ(player->ReadFrame(-1), nullptr);
    std::vector<uint32_t> block(4, 7);
    EXPECT_EQ(player->ReadFrameTo(0, block.data()), 1);
    EXPECT_EQ(block, (std::vector<uint32_t>{A, A, B, C}));
    EXPECT_EQ(player->ReadFrameTo(2, block.data()), 0);
}

TEST(Ani32Player, HeadersThatCannotHoldAFrameAreRefused) {
    QTemporaryDir dir;
    Bytes empty = TwoFrameAni32();
    empty[0] = 0;  // a count of 0
    EXPECT_FALSE(OnDisk(dir, "a.ANI32", empty));
    ANI32Player zero(empty);
    EXPECT_FALSE(zero.Open());
    EXPECT_EQ(zero.GetInfo()->nFrames, 0);
    auto refused = [](Bytes b) { return !ANI32Player(std::move(b)).Open(); };
    Bytes longTable = TwoFrameAni32();
    longTable[2] = 1;  // 65538 frames: the table passes the end
    EXPECT_TRUE(refused(longTable));
    Bytes noWidth = TwoFrameAni32();
    noWidth[4] = 0;
    EXPECT_TRUE(refused(noWidth));
    // 16385 wide is past the limit; 16384 x 16384 is not, but the file
    // could never hold one such frame: 16384 rows of 128 runs, 5 bytes each.
    Bytes wide = TwoFrameAni32();
    Put32(wide, 0);
    std::memcpy(wide.data() + 4, "\x01\x40\x00\x00", 4);
    EXPECT_TRUE(refused(wide));
    Bytes huge = TwoFrameAni32();
    std::memcpy(huge.data() + 4, "\x00\x40\x00\x00\x00\x40\x00\x00", 8);
    EXPECT_TRUE(refused(huge));
    EXPECT_TRUE(refused(Bytes(11, 1)));
    EXPECT_FALSE(refused(TwoFrameAni32()));
}

TEST(Ani32Player, FramesThatCannotBeReadAreNull) {
    // Offset 0 (a frame a conversion left out), inside the table, at and
    // past the end.
    for (uint32_t bad : {0u, 12u, 19u, 76u, 1000u}) {
        ANI32Player p(TwoFrameAni32({28, bad}));
        ASSERT_TRUE(p.Open());
        EXPECT_EQ(p.ReadFrame(1), nullptr) << bad;
        EXPECT_NE(p.ReadFrame(0), nullptr);
    }
    // Two frames sharing one record is no fault.
    ANI32Player shared(TwoFrameAni32({52, 52}));
    ASSERT_TRUE(shared.Open());
    EXPECT_EQ(Frame(shared, 0), std::vector<uint32_t>(4, C));
    EXPECT_EQ(Frame(shared, 1), std::vector<uint32_t>(4, C));
    // A coded size beyond the scratch (2 x 2 x 8 bytes).
    Bytes big = TwoFrameAni32();
    big[52] = 33;
    ANI32Player tooBig(big);
    ASSERT_TRUE(tooBig.Open());
    EXPECT_EQ(tooBig.ReadFrame(1), nullptr);
    // A run of 3 on a row of 2.
    Bytes wide = TwoFrameAni32();
    wide[56] = 130;
    ANI32Player pastRow(wide);
    ASSERT_TRUE(pastRow.Open());
    EXPECT_EQ(pastRow.ReadFrame(1), nullptr);
    // Offsets that overlap: frame 1 starts inside frame 0's record, so its
    // size field is frame 0's bytes. Refused or decoded, never outside.
    ANI32Player overlap(TwoFrameAni32({28, 33}));
    ASSERT_TRUE(overlap.Open());
    overlap.ReadFrame(1);
    EXPECT_EQ(Frame(overlap, 0), (std::vector<uint32_t>{A, A, B, C}));
}

TEST(Ani32Player, ARecordCutByTheFileEndDecodesAsFarAsItGoes) {
    Bytes cut = TwoFrameAni32();
    cut.resize(cut.size() - 10);  // frame 1 keeps its first row
    ANI32Player p(cut);
    ASSERT_TRUE(p.Open());
    ASSERT_NE(p.ReadFrame(0), nullptr);
    // The buffer still holds frame 0 where frame 1 has no bytes.
    EXPECT_EQ(Frame(p, 1), (std::vector<uint32_t>{C, C, B, C}));
}

// 1 x 1, one frame of 8 bytes. Lengths 1, 2, 2 for symbols 0, 1, 2 give
// 0 = 1, 1 = 01, 2 = 00; the bytes 0 1 2 0 0 1 2 2.
Bytes OneFrameQrdAni(uint32_t half = 4) {
    Bytes table = Nibbles({1,  2,  2, 0, 0,  0,  15, 15, 13, 0,  0,  15, 15, 13, 0,  0, 15,
                           15, 13, 0, 0, 15, 15, 13, 0,  0,  15, 15, 13, 0,  0,  15, 15});
    Append(table, Bits("1 01 00 1 1 01 00 00"));
    Bytes b = test::AniHeader(1, 1, 1, {24});
    Put32(b, half);
    Put32(b, static_cast<uint32_t>(table.size()));
    Append(b, table);
    return b;
}

TEST(QrdAniPlayer, DecodesAFrameBuiltByHand) {
    QTemporaryDir dir;
    auto player = OnDisk(dir, "sting.QrdAni", OneFrameQrdAni());
    ASSERT_TRUE(player);
    EXPECT_EQ(player->GetFrameSize(), 8u);
    EXPECT_EQ(player->GetInfo()->nFps, 30);
    const uint32_t* frame = player->ReadFrame(0);
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame[0], 0x00020100u);
    EXPECT_EQ(frame[1], 0x02020100u);
    EXPECT_EQ(player->ReadFrame(1), nullptr);
}

TEST(QrdAniPlayer, BadRecordsGiveNoFrame) {
    QRDANIPlayer tooLong(OneFrameQrdAni(5));  // 10 bytes into a frame of 8
    ASSERT_TRUE(tooLong.Open());
    EXPECT_EQ(tooLong.ReadFrame(0), nullptr);
    Bytes longCode = OneFrameQrdAni();
    longCode[32] = 0xF7;  // the first length is 26 + 7 = 33
    QRDANIPlayer p(longCode);
    ASSERT_TRUE(p.Open());
    EXPECT_EQ(p.ReadFrame(0), nullptr);
    Bytes cut = OneFrameQrdAni();
    cut.resize(40);  // inside the table
    QRDANIPlayer shortTable(cut);
    ASSERT_TRUE(shortTable.Open());
    EXPECT_EQ(shortTable.ReadFrame(0), nullptr);
    QRDANIPlayer nothing(OneFrameQrdAni(0));  // decodes no bytes at all
    ASSERT_TRUE(nothing.Open());
    EXPECT_NE(nothing.ReadFrame(0), nullptr);
}

TEST(MediaFactory, TypeByExtensionInUpperCase) {
    EXPECT_EQ(GetMediaType("a/b.QRDANI"), MEDIA_QRDANI);
    EXPECT_EQ(GetMediaType("b.qrdani"), MEDIA_QRDANI);
    EXPECT_EQ(GetMediaType("b.Ani32"), MEDIA_ANI32);
    for (const char* video : {"x.avi", "x.MOV", "x.mp4", "x.mkv", "x.WebM", "x.mxf"})
        EXPECT_EQ(GetMediaType(video), MEDIA_AVI) << video;
    EXPECT_EQ(GetMediaType("x.gif"), MEDIA_UNKNOWN);
    EXPECT_EQ(GetMediaType("ani32"), MEDIA_UNKNOWN);
    EXPECT_EQ(GetMediaType("x.ani32.bak"), MEDIA_UNKNOWN);
}

TEST(MediaFactory, FilesOfAnotherKindGiveNoSource) {
    QTemporaryDir dir;
    EXPECT_FALSE(OnDisk(dir, "a.gif", TwoFrameAni32()));             // type unknown
    EXPECT_FALSE(CreateMediaPlayer(dir.filePath("missing.ani32")));  // no file
    EXPECT_FALSE(CreateMediaPlayer(dir.path() + "/.ani32"));
    const Bytes png = {0x89, 'P', 'N', 'G', 13, 10, 26, 10, 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
    EXPECT_FALSE(OnDisk(dir, "b.ani32", png));
    EXPECT_FALSE(OnDisk(dir, "b.avi", TwoFrameAni32()));
    // An ANI32 under the other format's extension opens (the header is
    // shared) but its frame is no Huffman code that fits.
    auto wrong = OnDisk(dir, "c.qrdani", TwoFrameAni32());
    ASSERT_TRUE(wrong);
    EXPECT_EQ(wrong->ReadFrame(0), nullptr);
}

// A frame of 40 x 3 with runs, literals and rows of both.
Bytes VariedAni32() {
    std::vector<uint32_t> block(120);
    for (size_t i = 0; i < block.size(); ++i)
        block[i] = i < 50 ? 0 : (i % 7 < 3 ? A : static_cast<uint32_t>(i));
    Bytes code(block.size() * 8);
    code.resize(EncodeAni32Rows(block.data(), 40, 3, code.data()));
    Bytes b = test::AniHeader(2, 40, 3, {28, 28});
    Put32(b, static_cast<uint32_t>(code.size()));
    Append(b, code);
    return b;
}

// The fuzzers start from these; each must open and decode as it is.
TEST(MediaSeeds, EachSeedOpensAndDecodes) {
    const std::vector<std::pair<const char*, Bytes>> ani32 = {{"two", TwoFrameAni32()},
                                                              {"varied", VariedAni32()}};
    const std::vector<std::pair<const char*, Bytes>> qrdani = {{"one", OneFrameQrdAni()}};
    for (const auto& [name, bytes] : ani32) {
        ANI32Player p(bytes);
        ASSERT_TRUE(p.Open()) << name;
        EXPECT_NE(p.ReadFrame(1), nullptr) << name;
    }
    for (const auto& [name, bytes] : qrdani) {
        QRDANIPlayer p(bytes);
        ASSERT_TRUE(p.Open()) << name;
        EXPECT_NE(p.ReadFrame(0), nullptr) << name;
    }
    const QString folder = qEnvironmentVariable("ORV_MEDIA_SEEDS");
    if (folder.isEmpty()) return;
    auto write = [&](const char* kind, const auto& seeds) {
        ASSERT_TRUE(QDir().mkpath(folder + "/" + kind));
        for (const auto& [name, bytes] : seeds)
            test::WriteFile((folder + "/" + kind + "/" + name).toStdString(),
                            std::string(bytes.begin(), bytes.end()));
    };
    write("ani32", ani32);
    write("qrdani", qrdani);
}

}  // namespace
}  // namespace orv
