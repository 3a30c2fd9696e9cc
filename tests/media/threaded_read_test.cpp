#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <thread>
#include <vector>

#include "media/ani32_writer.h"
#include "media/avi_player.h"
#include "media/media_factory.h"
#include "support/video_writer.h"
#include "test_util.h"

namespace orv {
namespace {

constexpr int W = 48, H = 32, FRAMES = 20;

uint32_t Pixel(int x, int y, int i) {
    return (x + i) % 9 == 0 ? 0u : (static_cast<uint32_t>(x * 5 + i) << 16) | (y << 8) | i;
}

std::vector<uint32_t> Expected(int i, bool opaque) {
    std::vector<uint32_t> f;
    for (int y = 0; y < H; ++y)
        for (int x = 0; x < W; ++x)
            f.push_back(Pixel(x, y, i) | (opaque ? 0xFF000000u : 0x80000000u));
    return f;
}

// Reads every frame three times over, as a feeder on air would, and counts
// frames that differ from what was drawn.
int Mismatches(MediaPlayer* player, bool opaque) {
    int wrong = 0;
    for (int round = 0; round < 3; ++round)
        for (int i = 0; i < FRAMES; ++i) {
            const uint32_t* f = player->ReadFrame(i);
            if (!f || std::vector<uint32_t>(f, f + W * H) != Expected(i, opaque)) ++wrong;
        }
    return wrong;
}

// Each source on a thread of its own, two of them on the same file, all at
// once: sources share nothing.
TEST(SourcesOnThreads, EachReadsItsOwnFramesWhileOthersRead) {
    QuietMediaDiagnostics();
    QTemporaryDir dir;
    const QString ani = dir.filePath("a.ani32"), video = dir.filePath("v.avi");
    CAni32Writer writer;
    ASSERT_TRUE(writer.Create(ani, FRAMES, W, H));
    for (int i = 0; i < FRAMES; ++i)
        ASSERT_TRUE(writer.WriteFrame(i, Expected(i, false).data()));
    ASSERT_TRUE(writer.Finish());
    auto fill = [](AVFrame* f, int i) {
        for (int y = 0; y < H; ++y)
            for (int x = 0; x < W; ++x)
                reinterpret_cast<uint32_t*>(f->data[0] + y * f->linesize[0])[x] = Pixel(x, y, i);
    };
    ASSERT_TRUE(
        test::WriteVideo(video.toStdString(), {"zmbv", AV_PIX_FMT_BGR0, W, H, FRAMES}, fill));
    std::vector<std::unique_ptr<MediaPlayer>> players;
    players.push_back(CreateMediaPlayer(ani));
    players.push_back(CreateMediaPlayer(ani));
    players.push_back(CreateMediaPlayer(video));
    players.push_back(CreateMediaPlayer(video));
    std::vector<int> wrong(players.size(), -1);
    std::vector<std::thread> threads;
    for (size_t k = 0; k < players.size(); ++k) {
        ASSERT_TRUE(players[k]);
        threads.emplace_back([&, k] { wrong[k] = Mismatches(players[k].get(), k >= 2); });
    }
    for (std::thread& t : threads)
        t.join();
    EXPECT_EQ(wrong, (std::vector<int>{0, 0, 0, 0}));
}

}  // namespace
}  // namespace orv
