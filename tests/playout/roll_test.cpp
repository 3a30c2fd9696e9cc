// Roll and crawl through the hand-clocked test board: the strips, the two
// buffers and the strip thread, the split and the clipped step, passes with
// their pauses in test time, Stop, the live speed, and a late renderer.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "playout/scroll_speed.h"
#include "roll_rig.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using test::CountNonZero;
using test::PagePixel;
using test::UstRollRig;
using test::UstWrite;

// Page rows (columns for a crawl) as the strip object draws them: its
// pattern over its first `length`, blank after.
std::vector<uint32_t> ExpectedRows(const UstRollRig& rig, int from, int count, int length) {
    const bool crawl = rig.page.m_nPageType == 2;
    std::vector<uint32_t> out;
    for (int i = from; i < from + count; ++i)
        for (int j = 0; j < (crawl ? rig.h : rig.w); ++j)
            out.push_back(i >= length ? 0u : crawl ? PagePixel(i, j) : PagePixel(j, i));
    return out;
}

// Everything that entered at the far edge of the view over a whole pass,
// frame by frame, is the page in order, row for row, the blank strip last.
void ExpectPageEntersInOrder(int pageType, int speed, int frames) {
    UstRollRig rig("720p5994", pageType);
    const int unit = pageType == 2 ? rig.w : rig.h;
    const int length = 3 * unit - 10;  // three strips, the third not full
    rig.AddStrips(length);
    rig.page.m_effect.nInSpeed = speed;
    std::vector<uint32_t> entered;
    int origin = 0;
    bool threadSeen = false;
    const int ran = rig.Play([&](int) {
        threadSeen = threadSeen || rig.engine.m_hStripThread != nullptr;
        const int delta = (rig.Origin() - origin + CANVAS_SIZE) % CANVAS_SIZE;
        origin = rig.Origin();
        const std::vector<uint32_t> rows = rig.EnteredLast(delta);
        entered.insert(entered.end(), rows.begin(), rows.end());
    });
    EXPECT_EQ(ran, frames);
    EXPECT_EQ(rig.engine.m_nStrips, 4);
    EXPECT_TRUE(threadSeen);
    EXPECT_EQ(rig.engine.m_hStripThread, nullptr);     // ended with the run
    EXPECT_EQ(rig.engine.Stats().nStripsRendered, 2);  // strip 2 and the blank one
    EXPECT_EQ(rig.engine.Stats().nLateStrips, 0);
    EXPECT_EQ(origin, 4 * unit % CANVAS_SIZE);
    ASSERT_EQ(entered.size(), ExpectedRows(rig, 0, 4 * unit, length).size());
    EXPECT_TRUE(entered == ExpectedRows(rig, 0, 4 * unit, length));
    EXPECT_EQ(CountNonZero(rig.board.View()), 0);  // the roll has emptied the output
}

TEST(ScrollPasses, RollEntersThePageRowForRow) {
    ExpectPageEntersInOrder(1, 10, 4 * 720 / 20);
}

// A crawl's speed-9 step is 22: it skips the 20 of a roll's table.
TEST(ScrollPasses, CrawlEntersThePageColumnForColumn) {
    ExpectPageEntersInOrder(2, 9, (4 * 1280 + 21) / 22);
}

// One strip: no thread, B stays blank, and the pass is twice the height.
TEST(ScrollPasses, OneStripPageRunsWithoutAThread) {
    UstRollRig rig("720p5994", 1);
    rig.AddStrips(700);
    rig.page.m_effect.nInSpeed = 1;
    bool threadSeen = false;
    int blankB = 0;
    const int frames = rig.Play([&](int frame) {
        threadSeen = threadSeen || rig.engine.m_hStripThread != nullptr;
        if (frame % 120 == 0) blankB += CountNonZero(rig.bufferB) == 0;
    });
    EXPECT_EQ(rig.engine.m_nStrips, 2);
    EXPECT_FALSE(threadSeen);
    EXPECT_EQ(blankB, 6);
    EXPECT_EQ(frames, 2 * 720 / 2);
    EXPECT_EQ(rig.Origin(), 1440);
    EXPECT_EQ(rig.engine.Stats().nStripsRendered, 0);
}

// NTSC's 486 lines at a step of 20: crossing a strip's end is two copies in
// one sub-step, from one buffer and then the other, and the last piece is
// clipped so that the pass ends exactly on its total.
TEST(ScrollPasses, StepsSplitAtStripEndsAndTheLastIsClipped) {
    UstRollRig rig("ntsc", 1);
    rig.AddStrips(3 * 486 - 10);
    rig.page.m_effect.nInSpeed = 10;
    const int frames = rig.Play();
    const uint32_t* a = rig.bufferA.data();
    const uint32_t* b = rig.bufferB.data();
    const std::vector<UstWrite> writes = rig.board.Writes();
    // 1944 rows: 97 steps of 20 and a last of 4, two sub-steps a frame.
    EXPECT_EQ(rig.engine.Stats().nSubSteps, 98);
    EXPECT_EQ(frames, 49);
    EXPECT_EQ(rig.engine.Stats().nCaptures, 49);
    ASSERT_EQ(writes.size(), 98u + 3u);  // three strip ends crossed
    int rows = 0;
    for (const UstWrite& w : writes) {
        EXPECT_EQ(w.w, 720);
        EXPECT_EQ(w.dy, (486 + rows) % CANVAS_SIZE);
        rows += w.h;
    }
    EXPECT_EQ(rows, 1944);
    // Each crossing: the end of one buffer, then the start of the other.
    const std::vector<std::vector<int>> crossings = {
        {480, 6, 0, 14}, {474, 12, 0, 8}, {468, 18, 0, 2}};
    const std::vector<std::pair<const uint32_t*, const uint32_t*>> buffers = {
        {a, b}, {b, a}, {a, b}};
    size_t found = 0;
    for (size_t i = 0; i + 1 < writes.size() && found < crossings.size(); ++i) {
        if (writes[i].h == 20) continue;
        const std::vector<int>& c = crossings[found];
        EXPECT_EQ(writes[i].pSource, buffers[found].first);
        EXPECT_EQ(writes[i].srcY, c[0]);
        EXPECT_EQ(writes[i].h, c[1]);
        EXPECT_EQ(writes[i + 1].pSource, buffers[found].second);
        EXPECT_EQ(writes[i + 1].srcY, c[2]);
        EXPECT_EQ(writes[i + 1].h, c[3]);
        ++found;
        ++i;
    }
    EXPECT_EQ(found, 3u);
    EXPECT_EQ(writes.back().pSource, b);  // the blank strip
    EXPECT_EQ(writes.back().srcY, 482);
    EXPECT_EQ(writes.back().h, 4);
    EXPECT_EQ(rig.Origin(), 1944);
}

// Three passes with a pause of 3 seconds between two of them, in pieces of
// 20 ms, and none after the last: counted, not slept.
TEST(ScrollPasses, RepeatsPauseBetweenPassesOnly) {
    UstRollRig rig("720p5994", 1);
    rig.AddStrips(700);
    rig.page.m_effect.nInSpeed = 10;
    rig.page.m_effect.nRepeat = 2;
    rig.page.m_effect.nScrollDelay = 3;
    const int frames = rig.Play();
    std::vector<int> expected{-1};
    for (int pause = 0; pause < 2; ++pause) {
        expected.insert(expected.end(), 150, 20);
        expected.push_back(-1);
    }
    EXPECT_EQ(rig.engine.Log(), expected);
    EXPECT_EQ(frames, 3 * 1440 / 20);
    EXPECT_EQ(rig.Origin(), 3 * 1440 % CANVAS_SIZE);
}

// A pause of a day before the next of a million passes: Stop ends the run
// within one piece of 20 ms.
TEST(ScrollPasses, StopDuringThePauseEndsWithinAPiece) {
    UstRollRig rig("720p5994", 1);
    rig.AddStrips(700);
    rig.page.m_effect.nInSpeed = 10;
    rig.page.m_effect.nRepeat = 1000000;
    rig.page.m_effect.nScrollDelay = 86400;
    rig.engine.bRealWaits = true;
    std::atomic<int> pieces{0};
    rig.engine.onWait = [&] { ++pieces; };
    std::chrono::steady_clock::time_point stoppedAt, returnedAt;
    rig.afterRun = [&] { returnedAt = std::chrono::steady_clock::now(); };
    std::thread stopper([&] {
        while (pieces < 3)
            std::this_thread::sleep_for(1ms);
        stoppedAt = std::chrono::steady_clock::now();
        rig.engine.Stop();
    });
    rig.Play();
    stopper.join();
    EXPECT_LE(pieces, 4);
    // One piece of 20 ms at most, with room for a loaded machine.
    EXPECT_LT(returnedAt - stoppedAt, 60ms);
    std::vector<int> log = rig.engine.Log();
    EXPECT_EQ(std::count(log.begin(), log.end(), -1), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), 20), pieces);
    EXPECT_EQ(rig.engine.m_bRunning, 0);
}

// Faster and Slower: one step within 1 to 10, on scroll pages only, and the
// roll takes the new step on its very next sub-step.
TEST(ScrollSpeed, FasterAndSlowerWithinTheTable) {
    UstRollRig rig("720p5994", 1);
    rig.AddStrips(2000);
    rig.page.m_effect.nInSpeed = 10;
    EXPECT_FALSE(Faster(&rig.page));
    EXPECT_EQ(rig.page.m_effect.nInSpeed, 10);
    rig.page.m_effect.nInSpeed = 1;
    EXPECT_FALSE(Slower(&rig.page));
    EXPECT_EQ(rig.page.m_effect.nInSpeed, 1);
    EXPECT_FALSE(Faster(nullptr));
    CPageManager cut;
    cut.m_effect.nInSpeed = 4;
    EXPECT_FALSE(Faster(&cut));
    EXPECT_EQ(cut.m_effect.nInSpeed, 4);
    std::vector<int> deltas;
    int origin = 0;
    rig.Play([&](int frame) {
        deltas.push_back((rig.Origin() - origin + CANVAS_SIZE) % CANVAS_SIZE);
        origin = rig.Origin();
        if (frame == 3 || frame == 4) {
            EXPECT_TRUE(Faster(&rig.page));
        }
        if (frame == 6) {
            EXPECT_TRUE(Slower(&rig.page));
        }
        if (frame == 7) rig.engine.Stop();
    });
    // Stopped after frame 7: the frame already waited for still moves.
    EXPECT_EQ(deltas, (std::vector<int>{2, 2, 2, 4, 6, 6, 4, 4}));
    EXPECT_EQ(rig.page.m_effect.nInSpeed, 2);  // the page keeps what the keys left
}

// Another thread stores any number into the speed, again and again, while
// the page moves: every sub-step still moves by a step of the table, the
// last one clipped, and the pass ends on its total.
TEST(ScrollSpeed, SpeedsFromAnotherThreadStayInTheTable) {
    UstRollRig rig("720p5994", 1);
    rig.AddStrips(3 * 720 - 10);
    std::atomic<bool> done{false};
    std::atomic<int> changes{0};
    std::thread keys([&] {
        std::mt19937 random(18);
        while (!done) {
            StoreRequestWord(rig.Words(), REQ_IN_SPEED, static_cast<int>(random() % 40) - 15);
            ++changes;
            std::this_thread::yield();
        }
    });
    const std::set<int> table{2, 4, 6, 8, 10, 12, 14, 16, 18, 20};
    std::vector<int> deltas;
    int origin = 0;
    rig.Play([&](int) {
        deltas.push_back((rig.Origin() - origin + CANVAS_SIZE) % CANVAS_SIZE);
        origin = rig.Origin();
    });
    done = true;
    keys.join();
    ASSERT_FALSE(deltas.empty());
    for (size_t i = 0; i + 1 < deltas.size(); ++i) {
        EXPECT_TRUE(table.count(deltas[i])) << deltas[i];
    }
    EXPECT_LE(deltas.back(), 20);
    EXPECT_EQ(rig.Origin(), 4 * 720);
    EXPECT_GT(changes, static_cast<int>(deltas.size()));
}

// A strip thread that cannot finish in time: the number was taken before
// the rendering, the motion goes on without waiting, the rows of the late
// strip go out blank, and once it is there its rows come again.
TEST(ScrollThread, LateStripNeverStopsTheMotion) {
    UstRollRig rig("720p5994", 1);
    test::CStripObject* strips = rig.AddStrips(3 * 720 - 10);
    rig.page.m_effect.nInSpeed = 10;
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
    std::vector<uint32_t> lateRows, laterRows;
    const int frames = rig.Play(
        [&](int frame) {
            if (frame == 75) lateRows = rig.EnteredLast(20);
            if (frame == 80) {
                {
                    std::lock_guard lock(mutex);
                    released = true;
                }
                cv.notify_all();
                rig.WaitForStripThread();
            }
            if (frame == 100) laterRows = rig.EnteredLast(20);
        },
        true);
    EXPECT_EQ(frames, 4 * 720 / 20);
    EXPECT_EQ(preparedWhileRendering, 2);
    EXPECT_EQ(rig.engine.Stats().nLateStrips, 1);
    EXPECT_EQ(CountNonZero(lateRows), 0);
    EXPECT_TRUE(laterRows == ExpectedRows(rig, 1980, 20, 3 * 720 - 10));
}

// A page with nothing on it ends at once: no frame, nothing on air.
TEST(ScrollBadInput, EmptyPageEndsAtOnceWithNothingOnAir) {
    UstRollRig rig("1080i5994", 2);
    EXPECT_EQ(rig.Play(), 0);
    EXPECT_EQ(CountNonZero(rig.board.View()), 0);
    EXPECT_TRUE(rig.board.Writes().empty());
    EXPECT_TRUE(rig.engine.m_hDone.WaitFor(0ms));
}

}  // namespace
}  // namespace orv
