// The engine around the routines: its lists, its waits, its worker
// threads, Stop, and what it does with requests and pages it cannot use.
#include <gtest/gtest.h>

#include <QString>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <numeric>
#include <random>
#include <thread>
#include <vector>

#include "playout/effect_table.h"
#include "project/page_manager.h"
#include "project/settings_records.h"
#include "support/rect_object.h"
#include "transition_rig.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using test::CountNonZero;
using test::Request;
using test::RunByHand;
using test::UstRig;

TEST(EffectTable, GalleryNamesGroupsAndIrregularSteps) {
    EXPECT_EQ(EffectName(2, LANG_ENGLISH), "No transition");
    EXPECT_EQ(EffectName(25, LANG_ENGLISH), "wedge");
    EXPECT_EQ(EffectName(6, LANG_ENGLISH), "Push down");
    EXPECT_EQ(EffectName(34, LANG_ENGLISH), "Split Vertical Out");
    EXPECT_TRUE(EffectName(0, LANG_ENGLISH).isEmpty());
    EXPECT_TRUE(EffectName(35, LANG_KOREAN).isEmpty());
    EXPECT_EQ(EffectGroupName(2, LANG_KOREAN), QString::fromUtf8("줄무늬 및 실선무늬"));
    EXPECT_EQ(EffectGroupName(1, LANG_ENGLISH), "Cut, Dissolve, and Pushes");
    EXPECT_TRUE(EffectGroupName(4, LANG_ENGLISH).isEmpty());
    int perGroup[GALLERY_GROUP_COUNT] = {};
    for (int n = GALLERY_FIRST_EFFECT; n < EFFECT_COUNT; ++n) {
        ++perGroup[EffectGalleryGroup(n)];
        EXPECT_FALSE(EffectName(n, LANG_KOREAN).isEmpty());
    }
    EXPECT_EQ(std::vector<int>(perGroup, perGroup + 4), (std::vector<int>{1, 7, 8, 17}));
    EXPECT_EQ(EffectGalleryGroup(1), -1);
    // The irregular entries, kept.
    EXPECT_EQ(EffectStep(*FindEffectRow(26), 8), 204);
    EXPECT_EQ(EffectStep(*FindEffectRow(27), 8), 102);
    EXPECT_EQ(EffectStep(*FindEffectRow(20), 7), 46);
    EXPECT_EQ(EffectStep(*FindEffectRow(19), 7), 40);
    EXPECT_EQ(EffectStep(*FindEffectRow(10), 1), 1);
    EXPECT_EQ(EffectStep(*FindEffectRow(1), 9), 22);
    EXPECT_EQ(EffectStep(*FindEffectRow(5), 0), 20);  // speeds outside: the nearest
    EXPECT_EQ(EffectStep(*FindEffectRow(5), 99), 120);
}

// A 4 x 3 frame from column 2: (2,0) (3,0), the right edge down, the bottom
// right to left, the left edge up, then (0,0) (1,0). Corners stand twice.
TEST(EngineLists, PerimeterRunsClockwiseFromTheStart) {
    Effect effect(nullptr, nullptr, nullptr, 0, 0);
    std::vector<int16_t> xs(14), ys(14);
    ASSERT_EQ(effect.BuildPerimeter(xs.data(), ys.data(), 2, 99, 4, 3), 14);
    EXPECT_EQ(xs, (std::vector<int16_t>{2, 3, 3, 3, 3, 3, 2, 1, 0, 0, 0, 0, 0, 1}));
    EXPECT_EQ(ys, (std::vector<int16_t>{0, 0, 0, 1, 2, 2, 2, 2, 2, 2, 1, 0, 0, 0}));
    std::vector<int16_t> bx(6000), by(6000);
    EXPECT_EQ(effect.BuildPerimeter(bx.data(), by.data(), 0, 0, 1920, 1080), 6000);
    EXPECT_EQ(bx[5999], 0);  // the left edge ends the list
    EXPECT_EQ(by[5999], 0);
}

TEST(EngineLists, ShuffleGivesAPermutation) {
    Effect effect(nullptr, nullptr, nullptr, 0, 0);
    int16_t used = 7, order = 7;
    effect.ShuffleOrder(1, &used, &order);
    EXPECT_EQ(order, 0);
    std::vector<int16_t> scratch(2040, 9), list(2040);
    effect.ShuffleOrder(2040, scratch.data(), list.data());
    std::vector<int16_t> sorted = list;
    std::sort(sorted.begin(), sorted.end());
    std::vector<int16_t> all(2040);
    std::iota(all.begin(), all.end(), int16_t{0});
    EXPECT_EQ(sorted, all);
    EXPECT_NE(list, all);
}

TEST(EngineWaits, WaitMsPacesByTheSteadyClock) {
    Effect effect(nullptr, nullptr, nullptr, 0, 0);
    auto start = std::chrono::steady_clock::now();
    effect.WaitMs(0);
    effect.WaitMs(-5);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5ms);
    start = std::chrono::steady_clock::now();
    effect.WaitMs(30);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 30ms);
}

TEST(EngineWaits, AutoEventLetsOneWaiterThroughAndCollapsesSets) {
    CAutoEvent event;
    EXPECT_FALSE(event.WaitFor(1ms));
    event.Set();
    event.Set();
    EXPECT_TRUE(event.WaitFor(1ms));
    EXPECT_FALSE(event.WaitFor(1ms));
    std::thread setter([&] {
        std::this_thread::sleep_for(5ms);
        event.Set();
    });
    event.Wait();
    setter.join();
}

// A worker that notices its flag late uses up the pieces of waiting; the
// join then goes on until the worker has really returned, so nothing it
// does can come after its owner's end.
TEST(EngineThreads, LateWorkerIsWaitedForPastThePieces) {
    std::atomic<bool> finished{false};
    CWorkerThread worker;
    worker.Start([&] {
        std::this_thread::sleep_for(60ms);
        finished = true;
    });
    EXPECT_EQ(worker.Join(5ms, 3), 3);
    EXPECT_TRUE(finished);
    EXPECT_FALSE(worker.IsStarted());
    worker.Start([] {});
    EXPECT_EQ(worker.Join(1s, 3), 0);
}

// The engine's workers end by flag and event, and ending one ends the
// other too rather than forgetting it.
class CWorkerRig : public EffectDecklink {
public:
    using Effect::EndWorker;
    using Effect::StartWorker;
    using EffectDecklink::EffectDecklink;
};

TEST(EngineThreads, WorkersEndByFlagAndEvent) {
    test::UstRig rig("720p5994");
    CWorkerRig effect(0, &rig.board, rig.driver->BufferA(), rig.driver->BufferA(), 1280, 720);
    effect.m_bRunning = 1;
    effect.StartWorker(WORKER_STRIP);
    effect.m_hStripEvent->Set();  // asks for a strip while running
    EXPECT_EQ(effect.EndWorker(WORKER_STRIP), 0);
    EXPECT_EQ(effect.m_bRunning, 0);
    EXPECT_EQ(effect.m_hStripThread, nullptr);
    EXPECT_EQ(effect.m_hStripEvent, nullptr);
    effect.m_bAnimating = 1;
    effect.StartWorker(WORKER_ANIMATION);
    effect.m_hAnimEvent->Set();
    EXPECT_EQ(effect.EndWorker(WORKER_STRIP), 0);
    EXPECT_EQ(effect.m_bAnimating, 0);
    EXPECT_EQ(effect.m_hAnimThread, nullptr);
    effect.m_bAnimating = 1;
    effect.StartWorker(WORKER_ANIMATION);  // left to the destructor
}

// Stop clears the flags and returns at once; the transition that had begun
// runs to its end all the same.
TEST(EngineThreads, StopDuringATransitionDoesNotWaitForIt) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(18, 1, false, 18, 1, false);
    std::atomic<bool> stopped{false};
    const int frames = RunByHand(
        rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); },
        [&](int frame) {
            if (frame != 10) return;
            EXPECT_EQ(rig.Engine().m_bRunning, 1);
            rig.Engine().Stop();  // the drawing thread waits for frame 11 meanwhile
            stopped = true;
            EXPECT_EQ(rig.Engine().m_bRunning, 0);
        });
    EXPECT_TRUE(stopped);
    EXPECT_EQ(frames, 136);
    EXPECT_EQ(rig.PageView(), rig.page);
    EXPECT_TRUE(rig.Engine().m_hDone.WaitFor(0ms));
}

// The user interface changes the request while transitions run: every
// word at random, from another thread. Nothing is written outside the
// frame, and every run ends.
TEST(EngineThreads, RequestChangedDuringRunsEndsIdle) {
    UstRig rig("pal", EPlayoutClock::FREE);
    UstPageEffect request = Request(5, 10, true, 5, 10, true);
    int* words = RequestWords(request);
    std::atomic<bool> done{false};
    std::thread ui([&] {
        std::mt19937 random(5);
        while (!done) {
            StoreRequestWord(words, static_cast<int>(random() % REQ_WORDS),
                             static_cast<int>(random() % 40) - 2);
            // A pause rather than a yield: a writer that never sleeps can
            // starve the engine for minutes on a loaded two-core machine.
            std::this_thread::sleep_for(20us);
        }
    });
    for (int i = 0; i < 60; ++i) {
        rig.driver->TakeIn(words);
        rig.driver->TakeOut(words);
        EXPECT_EQ(rig.Engine().m_bRunning, 0);
    }
    done = true;
    ui.join();
    EXPECT_TRUE(rig.Engine().m_hDone.WaitFor(0ms));
}

// Numbers outside the table, a missing request: nothing runs, no frame is
// waited for, and the end is signalled. Speeds outside 1 to 10 run as the
// nearest.
TEST(BadInput, UnknownEffectsDoNothingAndSpeedsAreClamped) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    for (int number : {-1, 35, 1000}) {
        UstPageEffect request = Request(number, 4, true, number, 4, true);
        EXPECT_EQ(RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); }), 0);
        EXPECT_TRUE(rig.Engine().m_hDone.WaitFor(0ms));
    }
    EXPECT_EQ(RunByHand(rig.board, [&] { rig.Engine().Run(nullptr, 0, nullptr); }), 0);
    EXPECT_TRUE(rig.board.KeyLevels().empty());
    for (int speed : {0, -7, 11, 1 << 30}) {
        UstPageEffect request = Request(18, speed, false, 4, speed, false);
        const int frames = RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); });
        // 1080 / 50 or 1080 / 4 sub-steps, two a frame, and the last capture.
        EXPECT_EQ(frames, speed > 10 ? 11 + 1 : 135 + 1) << speed;
        EXPECT_EQ(rig.PageView(), rig.page);
        EXPECT_GT(RunByHand(rig.board, [&] { rig.driver->TakeOut(RequestWords(request)); }), 0);
        EXPECT_EQ(CountNonZero(rig.PageView()), 0);
    }
}

// Page buffers of another size than the board's frame: every row draws
// that size at the origin and nothing beyond it. Frames smaller than the
// smallest cells, or larger than the canvas, are refused.
TEST(BadInput, PageOfAnotherSizeStaysInItsRectangle) {
    UstRig other("1080i5994", EPlayoutClock::FREE, 333, 211);
    for (int number = GALLERY_FIRST_EFFECT; number < EFFECT_COUNT; ++number) {
        if (FindEffectRow(number)->eFamily == EEffectFamily::PUSH) continue;
        other.Reset();
        UstPageEffect request = Request(number, 10, false, number, 10, false);
        other.driver->TakeIn(RequestWords(request));
        EXPECT_EQ(other.WrittenOutsideView(), 0) << number;
    }
    for (const auto& [w, h] : {std::pair{59, 200}, std::pair{200, 23}, std::pair{4097, 30}}) {
        UstRig rig("1080i5994", EPlayoutClock::HAND, w, h);
        UstPageEffect request = Request(18, 10, false, 18, 10, false);
        EXPECT_EQ(RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); }), 0);
        EXPECT_EQ(CountNonZero(rig.board.View()), 0);
    }
}

// An engine without a board does nothing at all.
TEST(BadInput, NoBoardDoesNothing) {
    UstRig rig("720p5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(26, 1, true, 26, 1, true);
    Effect none(nullptr, rig.driver->BufferA(), rig.driver->BufferA(), 1280, 720);
    none.Run(RequestWords(request), 0, nullptr);
    none.Clear();
    none.Stop();
    EXPECT_EQ(none.m_bRunning, 0);
}

// Roll and crawl pages: the strip count decides. An empty page ends at
// once; a page of several strips gets its strip thread, which has ended
// when the run returns.
TEST(ScrollPages, StripCountDecidesTheRun) {
    UstRig rig("720p5994", EPlayoutClock::HAND);
    CPageManager page;
    page.m_nPageType = 1;
    UstPageEffect request = Request(EFFECT_ROLL, 5, false, EFFECT_ROLL, 5, false);
    EXPECT_EQ(RunByHand(rig.board, [&] { rig.Engine().Run(RequestWords(request), 0, &page); }), 0);
    EXPECT_EQ(rig.Engine().m_nStrips, 0);
    EXPECT_TRUE(rig.Engine().m_hDone.WaitFor(0ms));
    EXPECT_EQ(RunByHand(rig.board, [&] { rig.Engine().Run(RequestWords(request), 0, nullptr); }),
              0);
    page.AddObject(std::make_unique<test::CRectObject>(UstRect{0, 0, 100, 2000}));
    RunByHand(rig.board, [&] { rig.Engine().Run(RequestWords(request), 2, &page); });
    EXPECT_EQ(rig.Engine().m_nStrips, 2000 / 720 + 1 + 1);
    EXPECT_EQ(rig.Engine().m_nRollPad, 2048 - 112);  // 720 x 3 = 2048 + 112
    EXPECT_EQ(rig.Engine().m_pPage, &page);
    EXPECT_EQ(rig.Engine().m_hStripThread, nullptr);
    EXPECT_EQ(rig.Engine().m_bRunning, 0);
}

}  // namespace
}  // namespace orv
