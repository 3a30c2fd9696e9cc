#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cmath>
#include <filesystem>
#include <vector>

#include "media/avi_player.h"
#include "media/media_factory.h"
#include "support/video_writer.h"
#include "test_util.h"

namespace orv {
namespace {

constexpr int W = 64, H = 48, FRAMES = 12;

// Every frame differs everywhere, and a block moves, so that inter frames
// carry real changes.
uint32_t Pixel(int x, int y, int i) {
    if (x >= 4 * i && x < 4 * i + 8 && y >= 8 && y < 20) return 0x00FFFFFFu;
    return (static_cast<uint32_t>((x * 37 + i * 23) & 255) << 16) |
           (static_cast<uint32_t>((y * 53 + i * 11) & 255) << 8) |
           static_cast<uint32_t>((x * y + i * 71) & 255);
}

void FillBgr0(AVFrame* f, int i) {
    for (int y = 0; y < H; ++y) {
        auto* row = reinterpret_cast<uint32_t*>(f->data[0] + y * f->linesize[0]);
        for (int x = 0; x < W; ++x)
            row[x] = Pixel(x, y, i);
    }
}

std::vector<uint32_t> Expected(int i) {
    std::vector<uint32_t> out;
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x)
            out.push_back(Pixel(x, y, i) | 0xFF000000u);
    return out;
}

std::vector<uint32_t> Read(MediaPlayer& p, int i) {
    const uint32_t* f = p.ReadFrame(i);
    if (!f) return {};
    return {f, f + static_cast<size_t>(W) * H};
}

class VideoFiles : public testing::Test {
protected:
    static void SetUpTestSuite() { QuietMediaDiagnostics(); }
    std::string Path(const char* name) const { return test::TempPath(m_dir, name).string(); }
    QTemporaryDir m_dir;
};

void ExpectExactInAnyOrder(MediaPlayer& p) {
    ASSERT_EQ(p.GetInfo()->nFrames, FRAMES);
    for (int i = 0; i < FRAMES; ++i)
        ASSERT_EQ(Read(p, i), Expected(i)) << "in order, frame " << i;
    // Back to key frames and between them, forward past several, the same
    // frame twice, and the last.
    for (int i : {11, 3, 7, 0, 10, 4, 4, 9, 1, 2, 8, 5, 6, 11})
        ASSERT_EQ(Read(p, i), Expected(i)) << "at random, frame " << i;
}

TEST_F(VideoFiles, InterCodedFramesComeBackExactlyInOrderAndAtRandom) {
    const std::string file = Path("moving.avi");
    ASSERT_TRUE(test::WriteVideo(file, {"zmbv", AV_PIX_FMT_BGR0, W, H, FRAMES}, FillBgr0));
    auto player = CreateMediaPlayer(QString::fromStdString(file));
    ASSERT_TRUE(player);
    EXPECT_EQ(player->GetInfo()->nWidth, W);
    EXPECT_EQ(player->GetInfo()->nHeight, H);
    EXPECT_EQ(player->GetInfo()->nFps, 25);
    EXPECT_EQ(player->GetFrameSize(), static_cast<size_t>(W) * H * 4);
    ExpectExactInAnyOrder(*player);
    EXPECT_EQ(player->ReadFrame(FRAMES), nullptr);
}

// Mean difference per colour byte from the frame drawn as frame i.
double Distance(const std::vector<uint32_t>& got, int i) {
    const std::vector<uint32_t> want = Expected(i);
    if (got.size() != want.size()) return 1e9;
    double sum = 0;
    for (size_t p = 0; p < got.size(); ++p)
        for (int shift = 0; shift < 24; shift += 8)
            sum += std::abs(static_cast<int>((got[p] >> shift) & 255) -
                            static_cast<int>((want[p] >> shift) & 255));
    return sum / (static_cast<double>(got.size()) * 3);
}

TEST_F(VideoFiles, ReorderedFramesByTheirPresentationOrder) {
    // H.264 in RGB with two B-frames always: decode order is not play order.
    // The encoder allows no B-frames when lossless, so the quantiser is 1:
    // each frame is its own picture to within a step, and a frame read at
    // random must be the very frame that reading in order gives.
    for (const char* name : {"b.mkv", "b.mp4", "b.mov"}) {
        const std::string file = Path(name);
        test::UstVideoLayout layout{"libx264rgb", AV_PIX_FMT_BGR0, W, H, FRAMES};
        layout.gop = 6;
        layout.bFrames = 2;
        layout.options = {
            {"preset", "veryfast"}, {"qp", "1"}, {"x264-params", "bframes=2:b-adapt=0:scenecut=0"}};
        if (!test::WriteVideo(file, layout, FillBgr0)) GTEST_SKIP() << "no libx264rgb encoder";
        auto inOrder = CreateMediaPlayer(QString::fromStdString(file));
        auto atRandom = CreateMediaPlayer(QString::fromStdString(file));
        ASSERT_TRUE(inOrder && atRandom) << name;
        ASSERT_EQ(inOrder->GetInfo()->nFrames, FRAMES);
        std::vector<std::vector<uint32_t>> frames;
        for (int i = 0; i < FRAMES; ++i) {
            frames.push_back(Read(*inOrder, i));
            ASSERT_LT(Distance(frames.back(), i), 2.0) << name << " frame " << i;
        }
        for (int i : {11, 3, 7, 0, 10, 4, 4, 9, 1, 2, 8, 5, 6, 11})
            ASSERT_EQ(Read(*atRandom, i), frames[static_cast<size_t>(i)]) << name << " " << i;
    }
}

TEST_F(VideoFiles, SixteenBitWhiteBecomesF8) {
    const std::string file = Path("sixteen.avi");
    auto fill = [](AVFrame* f, int i) {
        for (int y = 0; y < H; ++y) {
            auto* row = reinterpret_cast<uint16_t*>(f->data[0] + y * f->linesize[0]);
            for (int x = 0; x < W; ++x)
                row[x] = x < W / 2 ? 0x7FFF : 0x7C00;  // white, red
            row[0] = static_cast<uint16_t>(i);         // blue of the frame's number
        }
    };
    ASSERT_TRUE(test::WriteVideo(file, {"zmbv", AV_PIX_FMT_RGB555LE, W, H, 4}, fill));
    auto player = CreateMediaPlayer(QString::fromStdString(file));
    ASSERT_TRUE(player);
    for (int i : {3, 1}) {
        const std::vector<uint32_t> f = Read(*player, i);
        ASSERT_FALSE(f.empty());
        EXPECT_EQ(f[1], 0xFFF8F8F8u);
        EXPECT_EQ(f[W - 1], 0xFFF80000u);
        EXPECT_EQ(f[0], 0xFF000000u | static_cast<uint32_t>(i << 3));
    }
}

TEST_F(VideoFiles, PaletteFramesTakeTheEntryColours) {
    const std::string file = Path("palette.avi");
    auto fill = [](AVFrame* f, int i) {
        auto* palette = reinterpret_cast<uint32_t*>(f->data[1]);
        for (uint32_t k = 0; k < 256; ++k)
            palette[k] = 0xFF000000u | (k << 16) | ((255 - k) << 8) | (k / 2);
        for (int y = 0; y < H; ++y)
            for (int x = 0; x < W; ++x)
                f->data[0][y * f->linesize[0] + x] = static_cast<uint8_t>(x + y + i);
    };
    ASSERT_TRUE(test::WriteVideo(file, {"zmbv", AV_PIX_FMT_PAL8, W, H, 3}, fill));
    auto player = CreateMediaPlayer(QString::fromStdString(file));
    ASSERT_TRUE(player);
    const std::vector<uint32_t> f = Read(*player, 2);
    ASSERT_FALSE(f.empty());
    const uint32_t k = 3 + 5 + 2;  // x 3, y 5, frame 2
    EXPECT_EQ(f[5 * W + 3], 0xFF000000u | (k << 16) | ((255 - k) << 8) | (k / 2));
}

TEST_F(VideoFiles, AFileCutInHalfGivesOnlyTrueFramesOrNone) {
    const std::string file = Path("cut.avi");
    ASSERT_TRUE(test::WriteVideo(file, {"zmbv", AV_PIX_FMT_BGR0, W, H, FRAMES}, FillBgr0));
    std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
    // Without its index the file is read packet by packet, and the damaged
    // last packet is no frame: what is left plays exactly, by key frames
    // the decoder finds itself.
    auto player = CreateMediaPlayer(QString::fromStdString(file));
    ASSERT_TRUE(player);
    const int count = player->GetInfo()->nFrames;
    ASSERT_GE(count, 2);
    EXPECT_LT(count, FRAMES);
    for (int i : {count - 1, 0, count / 2, 1})
        EXPECT_EQ(Read(*player, i), Expected(i)) << i;
    EXPECT_EQ(player->ReadFrame(count), nullptr);
}

TEST_F(VideoFiles, OtherBytesUnderAVideoExtensionGiveNoSource) {
    test::WriteFile(Path("text.mp4"), "not a video at all, only a line of text\n");
    EXPECT_FALSE(CreateMediaPlayer(QString::fromStdString(Path("text.mp4"))));
    test::WriteFile(Path("empty.mkv"), "");
    EXPECT_FALSE(CreateMediaPlayer(QString::fromStdString(Path("empty.mkv"))));
    AVIPlayer missing(Path("none.avi"));
    EXPECT_FALSE(missing.Open());
    EXPECT_EQ(missing.ReadFrame(0), nullptr);
}

}  // namespace
}  // namespace orv
