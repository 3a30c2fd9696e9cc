// Roll and crawl through the hand-clocked test board: the strips, the two
// buffers and the strip thread, split and clipped steps, passes and pauses
// in test time, Stop, the live speed, and a strip thread that is late.
#include <gtest/gtest.h>

#include <condition_variable>
#include <random>
#include <set>

#include "playout/scroll_speed.h"
#include "roll_rig.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using test::CountNonZero;
using test::UstRollRig;

// Three strips (the third not full) and the blank one: what enters at the
// far edge over a whole pass is the page in order, row for row. NTSC's 486
// lines at a step of 20 cross each strip's end inside a step, which must be
// two copies in one sub-step (1944 rows in 98 sub-steps), and the last step
// is clipped to 4 so that the pass ends on its total.
void ExpectPageEntersInOrder(const char* mode, int pageType, int speed, int subSteps) {
    UstRollRig rig(mode, pageType, speed);
    const int unit = rig.Crawl() ? rig.w : rig.h, length = 3 * unit - 10;
    rig.AddStrips(length);
    std::vector<uint32_t> entered;
    bool threadSeen = false;
    rig.Play([&](int) {
        threadSeen = threadSeen || rig.engine.m_hStripThread != nullptr;
        rig.Moved(&entered);
    });
    EXPECT_EQ(rig.engine.m_nStrips, 4);
    EXPECT_TRUE(threadSeen);
    EXPECT_EQ(rig.engine.m_hStripThread, nullptr);     // ended with the run
    EXPECT_EQ(rig.engine.Stats().nStripsRendered, 2);  // strip 2 and the blank one
    EXPECT_EQ(rig.engine.Stats().nLateStrips, 0);
    EXPECT_EQ(rig.engine.Stats().nSubSteps, subSteps);
    EXPECT_EQ(rig.Origin(), 4 * unit % CANVAS_SIZE);
    EXPECT_TRUE(entered == rig.PageRows(0, 4 * unit, length));
    EXPECT_EQ(CountNonZero(rig.board.View()), 0);  // the roll has emptied the output
}

TEST(ScrollPasses, RollEntersThePageRowForRowAcrossStripEnds) {
    ExpectPageEntersInOrder("ntsc", 1, 10, 98);
}

// A crawl's speed-9 step is 22: it skips the 20 of a roll's table.
TEST(ScrollPasses, CrawlEntersThePageColumnForColumn) {
    ExpectPageEntersInOrder("720p5994", 2, 9, (4 * 1280 + 21) / 22);
}

// One strip: no thread, B stays blank, and the pass is twice the height.
TEST(ScrollPasses, OneStripPageRunsWithoutAThread) {
    UstRollRig rig("720p5994", 1, 1);
    rig.AddStrips(700);
    bool threadSeen = false, bWritten = false;
    const int frames = rig.Play([&](int) {
        threadSeen = threadSeen || rig.engine.m_hStripThread != nullptr;
        bWritten = bWritten || CountNonZero(rig.bufferB) != 0;
    });
    EXPECT_EQ(rig.engine.m_nStrips, 2);
    EXPECT_FALSE(threadSeen);
    EXPECT_FALSE(bWritten);
    EXPECT_EQ(frames, 2 * 720 / 2);
    EXPECT_EQ(rig.Origin(), 1440);
}

// Three passes with a pause of 3 seconds between two of them, in pieces of
// 20 ms, none after the last; and a pause of a day before the next of a
// million passes ends within one piece of Stop.
TEST(ScrollPasses, PausesComeBetweenPassesInPiecesThatStopEnds) {
    UstRollRig rig("720p5994", 1, 10);
    rig.AddStrips(700);
    rig.page.m_effect.nRepeat = 2;
    rig.page.m_effect.nScrollDelay = 3;
    EXPECT_EQ(rig.Play(), 3 * 1440 / 20);
    std::vector<int> expected{-1};
    for (int pause = 0; pause < 2; ++pause) {
        expected.insert(expected.end(), 150, 20);
        expected.push_back(-1);
    }
    EXPECT_EQ(rig.engine.Log(), expected);

    UstRollRig day("720p5994", 1, 10);
    day.AddStrips(700);
    day.page.m_effect.nRepeat = 1000000;
    day.page.m_effect.nScrollDelay = 86400;
    day.engine.bRealWaits = true;
    std::atomic<int> pieces{0};
    day.engine.onWait = [&] { ++pieces; };
    std::chrono::steady_clock::time_point stoppedAt, returnedAt;
    day.afterRun = [&] { returnedAt = std::chrono::steady_clock::now(); };
    std::thread stopper([&] {
        while (pieces < 3)
            std::this_thread::sleep_for(1ms);
        stoppedAt = std::chrono::steady_clock::now();
        day.engine.Stop();
    });
    day.Play();
    stopper.join();
    EXPECT_LE(pieces, 4);
    EXPECT_LT(returnedAt - stoppedAt, 60ms);  // one piece, with room for a busy machine
    EXPECT_EQ(day.engine.Log().front(), -1);
    EXPECT_EQ(day.engine.Log().size(), static_cast<size_t>(1 + pieces));
}

// Faster and Slower: one step within 1 to 10, on scroll pages only, taken
// by the roll on its very next sub-step and kept by the page.
TEST(ScrollSpeed, FasterAndSlowerWithinTheTable) {
    UstRollRig rig("720p5994", 1, 10);
    rig.AddStrips(2000);
    EXPECT_FALSE(Faster(&rig.page));
    rig.page.m_effect.nInSpeed = 1;
    EXPECT_FALSE(Slower(&rig.page));
    EXPECT_EQ(rig.page.m_effect.nInSpeed, 1);
    CPageManager cut;
    cut.m_effect.nInSpeed = 4;
    EXPECT_FALSE(Faster(&cut));
    EXPECT_FALSE(Faster(nullptr));
    EXPECT_EQ(cut.m_effect.nInSpeed, 4);
    std::vector<int> moved;
    rig.Play([&](int frame) {
        moved.push_back(rig.Moved());
        if (frame == 3 || frame == 4 || frame == 6) {
            EXPECT_TRUE(frame == 6 ? Slower(&rig.page) : Faster(&rig.page)) << frame;
        }
        if (frame == 7) rig.engine.Stop();
    });
    // Stopped after frame 7: the frame already waited for still moves.
    EXPECT_EQ(moved, (std::vector<int>{2, 2, 2, 4, 6, 6, 4, 4}));
    EXPECT_EQ(rig.page.m_effect.nInSpeed, 2);
}

// Any number stored into the speed from another thread, again and again:
// every sub-step still moves by a step of the table, the last one clipped.
TEST(ScrollSpeed, SpeedsFromAnotherThreadStayInTheTable) {
    UstRollRig rig("720p5994", 1, 5);
    rig.AddStrips(3 * 720 - 10);
    std::atomic<bool> done{false};
    std::thread keys([&] {
        std::mt19937 random(18);
        while (!done) {
            StoreRequestWord(rig.Words(), REQ_IN_SPEED, static_cast<int>(random() % 40) - 15);
            std::this_thread::yield();
        }
    });
    const std::set<int> table{2, 4, 6, 8, 10, 12, 14, 16, 18, 20};
    std::vector<int> moved;
    rig.Play([&](int) { moved.push_back(rig.Moved()); });
    done = true;
    keys.join();
    ASSERT_FALSE(moved.empty());
    for (size_t i = 0; i + 1 < moved.size(); ++i)
        EXPECT_TRUE(table.count(moved[i])) << moved[i];
    EXPECT_EQ(rig.Origin(), 4 * 720);
}

// A strip thread that cannot finish in time: the strip's number was taken
// before the rendering, the motion goes on without waiting, the late rows
// go out blank, and the rows after it is done come from the strip again.
TEST(ScrollThread, LateStripNeverStopsTheMotion) {
    UstRollRig rig("720p5994", 1, 10);
    test::CStripObject* strips = rig.AddStrips(3 * 720 - 10);
    std::mutex mutex;
    std::condition_variable cv;
    bool released = false;
    std::atomic<int> preparedWhileRendering{-1};
    strips->onStrip = [&](int, int top) {
        if (top != 2 * 720) return;
        preparedWhileRendering = rig.engine.m_nPrepared.load();
        std::unique_lock lock(mutex);
        cv.wait_for(lock, 10s, [&] { return released; });
    };
    // Strip 2 starts after frame 72 (1440 rows at 20 a frame).
    std::vector<uint32_t> late, later;
    const int frames = rig.Play(
        [&](int frame) {
            rig.Moved(frame == 75 ? &late : frame == 100 ? &later : nullptr);
            if (frame != 80) return;
            {
                std::lock_guard lock(mutex);
                released = true;
            }
            cv.notify_all();
            rig.WaitForStripThread();
        },
        true);
    EXPECT_EQ(frames, 4 * 720 / 20);
    EXPECT_EQ(preparedWhileRendering, 2);
    EXPECT_EQ(rig.engine.Stats().nLateStrips, 1);
    EXPECT_EQ(late.size(), 20u * 1280);
    EXPECT_EQ(CountNonZero(late), 0);
    EXPECT_TRUE(later == rig.PageRows(1980, 20, 3 * 720 - 10));
}

}  // namespace
}  // namespace orv
