// Real outputs through GStreamer: the lossless file read back bit for bit,
// and every way an output can fail falling back to the clock.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include "board/gst_output.h"
#include "board/hd_extreme.h"
#include "test_util.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

UstBoardOptions OutputTo(const std::string& dest, const char* mode = "720p50") {
    UstBoardOptions options;
    UstOutputChoice choice;
    EXPECT_TRUE(ParseOutputChoice(dest, choice)) << dest;
    options.output = choice;
    CfgVideo m;
    EXPECT_TRUE(ModeByShortName(mode, m));
    options.mode = m;
    return options;
}

// Fill bytes and key bytes that vary everywhere, premultiplied or not: a
// lossless output must carry any four bytes.
std::vector<uint32_t> Pattern(int w, int h, uint32_t k) {
    std::vector<uint32_t> p(static_cast<size_t>(w) * h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            p[static_cast<size_t>(y) * w + x] =
                (static_cast<uint32_t>(x) * 2654435761u) ^ (static_cast<uint32_t>(y) * 40503u) ^
                (k * 0x9E3779B9u) ^ static_cast<uint32_t>((x + y + k) & 255) << 24;
    return p;
}

TEST(OutputChoice, ParsesAndFormatsEveryKind) {
    UstOutputChoice c;
    for (const char* text : {"card", "null", "monitor", "file:/tmp/a b.mkv", "srt://host:9000"}) {
        ASSERT_TRUE(ParseOutputChoice(text, c)) << text;
        EXPECT_EQ(FormatOutputChoice(c), text);
    }
    ASSERT_TRUE(ParseOutputChoice("clock", c));
    EXPECT_EQ(c.kind, EOutputKind::CLOCK);
    ASSERT_TRUE(ParseOutputChoice("file:x.mkv", c));
    EXPECT_EQ(c.target, "x.mkv");
    for (const char* bad : {"", "file:", "srt://", "Card", "rtmp://x", "decklink"})
        EXPECT_FALSE(ParseOutputChoice(bad, c)) << bad;
}

TEST(FileOutput, FramesReadBackBitExactFillAndKey) {
    QTemporaryDir dir;
    const std::string path = test::TempPath(dir, "out.mkv").string();
    constexpr int W = 1280, H = 720, COUNT = 6;
    std::vector<std::vector<uint32_t>> patterns{std::vector<uint32_t>(W * H, 0u)};
    {
        IF_HDExtreme board(OutputTo("file:" + path));
        ASSERT_EQ(board.GetPipeline()->RunningOutput(), "file:" + path);
        uint32_t* canvas = board.GetChannelCanvas(0);
        // A frame set while nobody waits stays set, so the second wait is
        // the one that ends after a tick that copied the picture.
        for (uint32_t k = 1; k <= COUNT; ++k) {
            patterns.push_back(Pattern(W, H, k));
            board.WaitFrame();
            board.CopyRect(0, 0, canvas, W, 0, 0, W, H, patterns.back().data());
            board.WaitFrame();
        }
        board.GetPipeline()->WaitFrames();
        EXPECT_TRUE(board.GetPipeline()->Failures().empty());
    }
    // Each frame is one of the pictures drawn, whole, in the order drawn.
    std::vector<int> seen;
    std::string error;
    ASSERT_TRUE(ReadVideoFile(
        path,
        [&](const uint32_t* frame, int w, int h) {
            EXPECT_EQ(w, W);
            EXPECT_EQ(h, H);
            const std::vector<uint32_t> got(frame, frame + W * H);
            for (int k = 0; k <= COUNT; ++k)
                if (got == patterns[k]) {
                    seen.push_back(k);
                    return true;
                }
            ADD_FAILURE() << "frame " << seen.size() << " is none of the pictures";
            seen.push_back(-1);
            return true;
        },
        error))
        << error;
    std::vector<int> distinct;
    for (int k : seen)
        if (distinct.empty() || distinct.back() != k) distinct.push_back(k);
    EXPECT_EQ(distinct, (std::vector<int>{0, 1, 2, 3, 4, 5, 6}));
}

TEST(FileOutput, KeyLevelIsCarriedByTheFramesOfAnOutputWithoutKeyer) {
    QTemporaryDir dir;
    const std::string path = test::TempPath(dir, "level.mkv").string();
    {
        IF_HDExtreme board(OutputTo("file:" + path));
        board.SetKeyLevel(128);
        board.FillRect(0, 0, board.GetChannelCanvas(0), 1280, 720, 0xFF804001u);
        board.GetPipeline()->WaitFrames();
        board.GetPipeline()->WaitFrames();
    }
    std::string error;
    uint32_t last = 0;
    ASSERT_TRUE(ReadVideoFile(
        path, [&](const uint32_t* f, int, int) { return last = f[1280 * 719 + 5], true; }, error));
    EXPECT_EQ(last, 0x80402001u);
}

TEST(OutputFallback, UnwritableFileIsReportedOnceAndTheClockTakesOver) {
    IF_HDExtreme board(OutputTo("file:/no/such/folder/out.mkv", "pal"));
    const auto failures = board.GetPipeline()->Failures();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(failures[0].strOutput, "file:/no/such/folder/out.mkv");
    EXPECT_FALSE(failures[0].strReason.empty());
    EXPECT_EQ(board.GetPipeline()->RunningOutput(), "null");
    const int64_t before = board.GetPipeline()->Frames();
    board.GetPipeline()->WaitFrames();
    EXPECT_GE(board.GetPipeline()->Frames(), before + 3);
    EXPECT_EQ(board.GetPipeline()->Failures().size(), 1u);
}

TEST(OutputFallback, MissingCardIsSilentUnlessAskedFor) {
    UstBoardOptions quiet;
    quiet.mode = MakeVideoMode(1920, 1080, 400000);
    IF_HDExtreme board(quiet);
    EXPECT_EQ(board.IsOpen(), 1);
    EXPECT_TRUE(board.GetPipeline()->m_Devices.empty());
    EXPECT_EQ(board.GetPipeline()->m_VideoModes.size(), StandardVideoModes().size());
    for (const auto& f : board.GetPipeline()->Failures())
        ADD_FAILURE() << f.strOutput << ": " << f.strReason;
    EXPECT_EQ(board.GetPipeline()->RunningOutput(), "null");
    board.SetOutput({EOutputKind::CARD, {}});  // asked for in the dialog: said
    ASSERT_EQ(board.GetPipeline()->Failures().size(), 1u);
    EXPECT_EQ(board.GetPipeline()->Failures()[0].strReason, "no output card answered");
    IF_HDExtreme asked(OutputTo("card", "1080i50"));
    EXPECT_EQ(asked.GetPipeline()->Failures().size(), 1u);
    // The card's own sink, started without a card, says so and returns.
    std::string error;
    auto sink = MakeGstSink({EOutputKind::CARD, {}}, {}, 3);
    EXPECT_FALSE(sink->Start(MakeVideoMode(1920, 1080, 400000), error));
    EXPECT_FALSE(error.empty());
}

TEST(OutputFallback, StreamToAPeerThatNeverAnswersFallsBackWhileFramesGoOn) {
    const int port = 20000 + static_cast<int>(getpid() % 20000);
    IF_HDExtreme board(OutputTo("srt://127.0.0.1:" + std::to_string(port), "pal"));
    CDecklinkPipeline* pipe = board.GetPipeline();
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (pipe->Failures().empty() && std::chrono::steady_clock::now() < deadline)
        board.WaitFrame();
    ASSERT_EQ(pipe->Failures().size(), 1u);
    EXPECT_EQ(pipe->RunningOutput(), "null");
    const int64_t frames = pipe->Frames();
    pipe->WaitFrames();
    EXPECT_GT(pipe->Frames(), frames);
}

TEST(OutputFallback, ListenerWaitsSilentlyForItsPeer) {
    const int port = 20000 + static_cast<int>((getpid() + 7) % 20000);
    const std::string uri = "srt://:" + std::to_string(port) + "?mode=listener";
    IF_HDExtreme board(OutputTo(uri, "pal"));
    for (int i = 0; i < 10; ++i)
        board.WaitFrame();
    EXPECT_TRUE(board.GetPipeline()->Failures().empty());
    EXPECT_EQ(board.GetPipeline()->RunningOutput(), uri);
}

}  // namespace
}  // namespace orv
