// The frame tick: the event the drawing thread waits on, the clocks that
// turn it, and the board's answers around it.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "board/test_board.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

TEST(FrameEvent, OneFrameSetWhileNobodyWaitsPassesOneWaitOnly) {
    CFrameEvent e;
    EXPECT_FALSE(e.Wait());  // closed until a pipeline runs
    e.Open();
    e.Set();
    e.Set();
    EXPECT_TRUE(e.Wait());
    EXPECT_FALSE(e.WaitForWaiter(1ms));
    std::atomic<bool> passed{false};
    std::thread t([&] { passed = e.Wait(); });
    ASSERT_TRUE(e.WaitForWaiter(10s));
    EXPECT_FALSE(passed);
    e.Set();
    t.join();
    EXPECT_TRUE(passed);
    EXPECT_EQ(e.WaitCount(), 2);
}

TEST(FrameEvent, ClosingWakesTheWaiterAndLaterWaitsFailAtOnce) {
    CFrameEvent e;
    e.Open();
    std::atomic<int> result{-1};
    std::thread t([&] { result = e.Wait() ? 1 : 0; });
    ASSERT_TRUE(e.WaitForWaiter(10s));
    e.Close();
    t.join();
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(e.Wait());
    e.Set();  // on a closed event: nothing
    e.Open();
    EXPECT_FALSE(e.WaitForWaiter(1ms));
}

TEST(TestBoard, HandClockRunsADrawingThreadFrameByFrame) {
    CTestBoard board(MakeVideoMode(1280, 720, 200000));
    uint32_t* canvas = board.GetChannelCanvas(0);
    std::thread drawer([&] {
        for (uint32_t step = 1; step <= 3; ++step) {
            board.WaitFrame();
            board.FillRect(0, 0, canvas, 1280, 720, step);
        }
        board.WaitFrame();
    });
    for (uint32_t step = 1; step <= 3; ++step) {
        ASSERT_TRUE(board.AdvanceFrame());
        ASSERT_TRUE(board.WaitForWaiter());  // the step is drawn
        EXPECT_EQ(board.View()[1280 * 719 + 1279], step);
        EXPECT_EQ(board.LastFrame()[0], step - 1);  // the frame was filled before it
    }
    ASSERT_TRUE(board.AdvanceFrame());
    drawer.join();
    EXPECT_EQ(board.LastFrame()[0], 3u);
    EXPECT_EQ(board.FramesTicked(), 4);
    EXPECT_EQ(board.WaitCount(), 4);
    EXPECT_FALSE(board.AdvanceFrame(1ms));  // nobody waits any more
}

TEST(TestBoard, ClosingWakesAThreadInWaitFrame) {
    CTestBoard board(MakeVideoMode(1920, 1080, 333667));
    std::thread waiter([&] {
        board.WaitFrame();
        board.WaitFrame();  // the event is gone: at once
    });
    ASSERT_TRUE(board.WaitForWaiter());
    board.Close();
    waiter.join();
    EXPECT_EQ(board.IsOpen(), 0);
    EXPECT_EQ(board.GetChannelCanvas(0), nullptr);
}

TEST(TestBoard, FreeClockNeverWaitsAndRealTimeClockTicksByItself) {
    CTestBoard free(MakeVideoMode(720, 576, 400000), EPlayoutClock::FREE);
    for (int i = 0; i < 50; ++i)
        free.WaitFrame();
    EXPECT_EQ(free.FramesTicked(), 50);
    CTestBoard real(MakeVideoMode(1280, 720, 166833), EPlayoutClock::THREAD);
    real.WaitFrame();
    real.WaitFrameSync();  // one wait, not two, on a board with a pipeline
    EXPECT_EQ(real.WaitCount(), 2);
    EXPECT_GE(real.FramesTicked(), 1);
}

TEST(TestBoard, KeyLevelIsClippedAndEveryCallKept) {
    CTestBoard board(MakeVideoMode(1920, 1080, 400000));
    board.SetKeyLevel(0);
    board.SetKeyLevel(300);
    EXPECT_EQ(board.GetPipeline()->KeyLevel(), 255);
    EXPECT_EQ(board.KeyLevels(), (std::vector<int>{0, 300}));
    board.SetKeyLevel(128);
    int seen = -1;
    board.SetFrameHook([&](const uint32_t*, const CfgVideo&, int level) { seen = level; });
    board.Tick();
    EXPECT_EQ(seen, 128);
}

TEST(TestBoard, SizesAspectsAndModeNames) {
    CTestBoard hd(MakeVideoMode(1280, 720, 200000));
    EXPECT_EQ(hd.GetBoardType(), 6);
    EXPECT_EQ(hd.GetFrameSize(0), (UstSize{1280, 720}));
    EXPECT_EQ(hd.GetFrameSize(1), (UstSize{1280, 720}));  // whatever the format asked
    float x = 0, y = 0;
    hd.GetPixelAspect(x, y, 0);
    EXPECT_FLOAT_EQ(x, 0.66667f);
    EXPECT_FLOAT_EQ(y, 0.66667f);
    EXPECT_EQ(hd.GetModeName(), "HD 1280 x 720");
    EXPECT_EQ(CTestBoard(MakeVideoMode(720, 486, 333667)).GetModeName(), "NTSC 720 x 486");
    EXPECT_EQ(CTestBoard(MakeVideoMode(640, 480, 333667)).GetModeName(), "");
}

// The base table: empty operations, and the paired waits that call the
// single ones twice.
class CCountingBoard : public CGBoard {
public:
    void WaitFrame() override { ++waits; }
    void WaitFrame2() override { ++waits2; }
    int waits = 0, waits2 = 0;
};

TEST(BoardTable, DefaultsOfTheAbstractBoard) {
    CCountingBoard b;
    b.WaitFrameSync();
    b.WaitFrameSync2();
    EXPECT_EQ(b.waits, 2);
    EXPECT_EQ(b.waits2, 2);
    EXPECT_EQ(b.GetBoardType(), -1);
    EXPECT_EQ(b.IsOpen(), 0);
    EXPECT_EQ(b.ShowConfigDialog(), 0);
    EXPECT_EQ(b.GetCanvasSize(), (UstSize{0, 0}));
    EXPECT_EQ(b.GetModeName(), "");
    EXPECT_EQ(b.GetPipeline(), nullptr);
    float x = 0, y = 0;
    b.GetPixelAspect(x, y, 1);
    EXPECT_FLOAT_EQ(x * y, 1.0f);
    CBoardChannel two(2, &b);  // neither channel: nothing at all
    two.WaitFrame();
    CBoardChannel one(1, &b);
    one.WaitFrame();
    EXPECT_EQ(b.waits, 2);
    EXPECT_EQ(b.waits2, 3);
}

}  // namespace
}  // namespace orv

namespace orv {
namespace {

// Everything that reaches the board from other threads at once, while the
// playout thread runs in real time: drawing, captures, origin and key,
// observers coming and going, and a rebuild.
TEST(PlayoutThreads, DrawingObservingAndRebuildingTogether) {
    CTestBoard board(MakeVideoMode(1280, 720, 166833), EPlayoutClock::THREAD);
    CDecklinkPipeline* pipe = board.GetPipeline();
    uint32_t* canvas = board.GetChannelCanvas(0);
    std::atomic<bool> drawing{true};
    std::thread drawer([&] {
        for (uint32_t i = 0; drawing; ++i) {
            board.WaitFrame();
            board.FillRect(static_cast<int>(i * 7), 0, canvas, 1280, 720, i);
            pipe->CaptureField();
            board.SetOrigin(static_cast<int>(i), static_cast<int>(i * 3));
            board.SetKeyLevel(static_cast<int>(i & 255));
            pipe->m_bFullFrame = static_cast<int32_t>(i & 1);
            board.FillSlantLine(0, 0, 100, 37, 5, 5, canvas, i);
        }
    });
    std::atomic<int> seen{0};
    std::thread watcher([&] {
        const auto deadline = std::chrono::steady_clock::now() + 10s;
        for (int i = 0; i < 20 || (seen == 0 && std::chrono::steady_clock::now() < deadline); ++i) {
            const int id =
                pipe->AddFrameObserver([&](const uint32_t*, const CfgVideo&, int) { ++seen; });
            std::this_thread::sleep_for(5ms);
            pipe->RemoveFrameObserver(id);
        }
    });
    std::this_thread::sleep_for(50ms);
    pipe->Rebuild();
    std::this_thread::sleep_for(50ms);
    watcher.join();
    drawing = false;
    drawer.join();
    board.Close();
    EXPECT_GT(seen.load(), 0);
    EXPECT_GT(board.WaitCount(), 0);
}

}  // namespace
}  // namespace orv
