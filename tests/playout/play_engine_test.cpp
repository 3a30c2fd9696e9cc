// Play control through the test board: the single page's machine, the
// list's, the keys during each stage, and the automatic loop with its
// delays counted in pieces rather than waited for.
#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>

#include <QTemporaryDir>

#include "objects/ani_object.h"
#include "play_rig.h"
#include "support/ani_files.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using test::Request;
using test::UstPlayRig;
using test::UstPost;
using Posts = std::vector<UstPost>;

constexpr uint32_t RED = 0xFFFF0000u, GREEN = 0xFF00FF00u, BLUE = 0xFF0000FFu;

// Cut in, fade out at full speed: the page is seen on air and seen to go.
UstPageEffect CutFade() {
    return Request(EFFECT_CUT, 10, false, EFFECT_CUT, 10, true);
}

TEST(PlaySingle, PlainPageComesOnWithOneRunAndGoesWithTheNext) {
    UstPlayRig rig;
    CPageManager* page = rig.AddPage(RED, CutFade());
    ASSERT_EQ(rig.engine->SetPage(page), 1);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_TRUE(rig.AirIs(RED));
    EXPECT_EQ(rig.engine->State(), PLAY_OUT);  // it rests before the out stage
    EXPECT_TRUE(rig.engine->IsRunning());
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_GONE, 1}));
    EXPECT_TRUE(rig.AirIs(0));
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_FALSE(rig.engine->IsRunning());
    EXPECT_EQ(rig.log.Posts(), (Posts{{1, 0}, {2, 0}, {3, 0}, {6, 0}, {7, 1}}));
}

TEST(PlaySingle, NoTransitionWithoutFadeLeavesThePageOnAirAndTheMachineIdle) {
    UstPlayRig rig;
    CPageManager* page = rig.AddPage(GREEN, Request(EFFECT_CUT, 10, false, EFFECT_NONE, 10, false));
    rig.engine->SetPage(page);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_GONE, 0}));
    EXPECT_EQ(rig.log.Posts(), (Posts{{1, 0}, {2, 0}, {3, 0}, {7, 0}}));
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_FALSE(rig.engine->IsRunning());
    EXPECT_TRUE(rig.AirIs(GREEN));
    // With a fade the same number has an out stage.
    page->m_effect.bOutFade = 1;
    rig.log.Forget();
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_EQ(rig.engine->State(), PLAY_OUT);
}

TEST(PlaySingle, ScrollPageHasNoOutStageWhateverItsOutEffect) {
    UstPlayRig rig;
    UstPageEffect effect = CutFade();
    effect.nInEffect = EFFECT_ROLL;
    CPageManager* page = rig.AddPage(RED, effect);
    page->m_nPageType = 1;
    rig.engine->SetPage(page);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_GONE, 1}));
    EXPECT_EQ(rig.log.Posts(), (Posts{{1, 0}, {2, 0}, {7, 1}}));
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_FALSE(rig.engine->IsRunning());
}

// Until the blink and the live stage draw, they pass at once, but each
// still takes its press of Run.
TEST(PlaySingle, BlinkingAndAnimatedPagesRestInTheirStage) {
    UstPlayRig rig;
    CPageManager* blink = rig.AddPage(RED, CutFade());
    blink->AddObject(std::make_unique<test::CBlinkObject>(UstRect{0, 0, 8, 8}, BLUE));
    CPageManager* live = rig.AddPage(GREEN, CutFade());
    // An animation whose file is gone: the live stage has nothing to play.
    live->AddObject(std::make_unique<CQRDObjectAni>(nullptr, "gone.ani32", UstRect{0, 0, 8, 8}));
    EXPECT_TRUE(blink->HasBlinkObject());
    EXPECT_FALSE(blink->HasAnimation());
    EXPECT_TRUE(live->HasAnimation());
    live->m_nPageType = 1;
    EXPECT_FALSE(live->HasAnimation());  // a roll carries its animations in its strips
    live->m_nPageType = 0;

    const std::pair<CPageManager*, int> cases[] = {{blink, PLAY_BLINK}, {live, PLAY_LIVE}};
    for (const auto& [page, stage] : cases) {
        rig.log.Forget();
        rig.engine->SetPage(page);
        rig.engine->Key(PLAYKEY_RUN);
        ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
        EXPECT_EQ(rig.engine->State(), stage);
        rig.engine->Key(PLAYKEY_RUN);
        ASSERT_TRUE(rig.log.WaitFor({stage, 0}));
        if (stage == PLAY_BLINK) {
            // The blink goes on until the next Run.
            for (int i = 0; i < 5000 && !rig.engine->IsBlinking(); ++i)
                std::this_thread::sleep_for(1ms);
            EXPECT_TRUE(rig.engine->IsBlinking());
            rig.engine->Key(PLAYKEY_RUN);
        }
        ASSERT_TRUE(rig.Settle({stage, 0}));
        EXPECT_FALSE(rig.engine->IsBlinking());
        EXPECT_EQ(rig.engine->State(), PLAY_OUT);
        rig.engine->Key(PLAYKEY_RUN);
        ASSERT_TRUE(rig.Settle({PLAY_GONE, 1}));
        EXPECT_EQ(rig.log.Posts(), (Posts{{1, 0}, {2, 0}, {3, 0}, {stage, 0}, {6, 0}, {7, 1}}));
    }
}

// A Stop that comes during the in transition waits for it; the page stays
// on air with no out stage, and the next Run takes it in again.
TEST(PlaySingle, StopDuringATransitionLetsItFinishAndLeavesThePage) {
    UstPlayRig rig(EPlayoutClock::HAND);
    CPageManager* page = rig.AddPage(BLUE, Request(EFFECT_FADE, 1, false, EFFECT_FADE, 10, false));
    rig.engine->SetPage(page);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.log.WaitFor({PLAY_IN, 0}));
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(rig.board.AdvanceFrame());
    EXPECT_EQ(rig.engine->SetPage(page), 0);  // a step is under way
    std::atomic<bool> stopped{false};
    std::thread stopper([&] {
        rig.engine->Key(PLAYKEY_STOP);
        stopped = true;
    });
    int frames = 3;
    for (;;) {
        // Read before the post: the Stop can only end after the step has.
        const bool stoppedBefore = stopped;
        if (rig.log.WaitFor({PLAY_ON, 0}, 1, 0ms)) break;
        EXPECT_FALSE(stoppedBefore);
        if (rig.board.AdvanceFrame(20ms)) ++frames;
    }
    stopper.join();
    EXPECT_GT(frames, 10);
    EXPECT_TRUE(rig.AirIs(0xFF0000FFu));
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_FALSE(rig.engine->IsRunning());
    EXPECT_EQ(rig.log.Count(PLAY_OUT), 0);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.log.WaitFor({PLAY_LOAD, 0}, 2));
    // The second take runs to its end before the board goes.
    while (!rig.log.WaitFor({PLAY_ON, 0}, 2, 0ms) || rig.engine->IsLocked())
        rig.board.AdvanceFrame(10ms);
}

TEST(PlaySingle, RunWithoutAPageStaysIdleWithRunSetUntilStop) {
    UstPlayRig rig;
    EXPECT_EQ(rig.engine->SetPage(nullptr), 1);
    EXPECT_FALSE(rig.engine->IsSinglePage());
    rig.list.m_nCurrent = 0;  // an empty list: nothing to take either
    rig.engine->Key(PLAYKEY_RUN);
    std::this_thread::sleep_for(20ms);
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_TRUE(rig.engine->IsRunning());
    rig.engine->Key(PLAYKEY_RUN);
    EXPECT_TRUE(rig.engine->IsRunning());
    rig.engine->Key(PLAYKEY_STOP);
    EXPECT_FALSE(rig.engine->IsRunning());
}

// Speed is a roll's: a Cut page keeps its own, a roll's moves within 1 to 10.
TEST(PlaySingle, FastAndSlowOnlyMoveTheSpeedOfAScrollPage) {
    UstPlayRig rig;
    CPageManager* cut = rig.AddPage(RED, Request(EFFECT_CUT, 5, false, EFFECT_NONE, 5, false));
    rig.engine->SetPage(cut);
    rig.engine->Faster();
    rig.engine->Slower();
    rig.engine->Slower();
    EXPECT_EQ(cut->m_effect.nInSpeed, 5);
    CPageManager* roll = rig.AddPage(RED, Request(EFFECT_ROLL, 9, false, EFFECT_NONE, 5, false));
    roll->m_nPageType = 1;
    rig.engine->SetPage(roll);
    rig.engine->Faster();
    EXPECT_EQ(roll->m_effect.nInSpeed, 10);
    rig.engine->Faster();
    EXPECT_EQ(roll->m_effect.nInSpeed, 10);
    roll->m_effect.nInSpeed = 2;
    rig.engine->Slower();
    rig.engine->Slower();
    rig.engine->Slower();
    EXPECT_EQ(roll->m_effect.nInSpeed, 1);
    EXPECT_EQ(roll->m_effect.nOutSpeed, 5);
}

TEST(PlaySingle, EraseStopsAndEmptiesTheOutput) {
    UstPlayRig rig;
    CPageManager* page = rig.AddPage(RED, CutFade());
    rig.engine->SetPage(page);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    rig.engine->Key(PLAYKEY_ERASE);
    EXPECT_TRUE(rig.AirIs(0));
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_EQ(rig.engine->Page(), nullptr);
    EXPECT_FALSE(rig.engine->IsSinglePage());
    EXPECT_FALSE(rig.engine->IsRunning());
}

// Page by page with Run: discarded pages are passed over, the index goes
// with every state, and the used-up list rests at its end until Stop.
TEST(PlayList, RunStepsThroughTheListAndRestsAtTheEnd) {
    UstPlayRig rig;
    rig.AddPage(RED, CutFade());
    rig.AddPage(GREEN, CutFade())->m_effect.bDiscard = 1;
    rig.AddPage(BLUE, Request(EFFECT_CUT, 10, false, EFFECT_NONE, 10, false));
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_TRUE(rig.AirIs(RED));
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_GONE, 0}));
    EXPECT_EQ(rig.engine->State(), PLAY_LOAD);
    EXPECT_TRUE(rig.AirIs(0));
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_GONE, 2}));
    EXPECT_TRUE(rig.AirIs(BLUE));  // no out stage: it stays, and the list is done
    EXPECT_EQ(rig.engine->State(), PLAY_END);
    EXPECT_EQ(rig.log.Posts(),
              (Posts{{1, 0}, {2, 0}, {3, 0}, {6, 0}, {7, 0}, {1, 2}, {2, 2}, {3, 2}, {7, 2}}));
    EXPECT_EQ(rig.log.Modes(6), (std::vector<int>{2, 1, 2, 1, 2, 1}));
    rig.engine->Key(PLAYKEY_RUN);
    std::this_thread::sleep_for(20ms);
    EXPECT_EQ(rig.log.Posts().size(), 9u);
    rig.engine->Key(PLAYKEY_STOP);
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    // Ignoring the discard flag brings the second page back.
    rig.list.m_nCurrent = 1;
    rig.list.m_bIgnoreDiscard = 1;
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_ON, 1}));
    EXPECT_TRUE(rig.AirIs(GREEN));
}

TEST(PlayList, NextIndexWalksTheRangeCyclically) {
    UstPlayRig rig;
    for (int i = 0; i < 5; ++i)
        rig.AddPage(RED, CutFade());
    int wrapped = 0;
    EXPECT_EQ(rig.engine->NextIndex(-1, wrapped, 0), 0);
    EXPECT_EQ(wrapped, 0);
    EXPECT_EQ(rig.engine->NextIndex(4, wrapped, 0), 0);
    EXPECT_EQ(wrapped, 1);
    rig.list.m_nStart = 1;
    rig.list.m_nEnd = 3;
    wrapped = 0;
    EXPECT_EQ(rig.engine->NextIndex(0, wrapped, 0), 1);
    EXPECT_EQ(rig.engine->NextIndex(3, wrapped, 0), 1);  // 4 and 0 lie outside
    EXPECT_EQ(wrapped, 1);
    rig.pages[2]->m_effect.bDiscard = 1;
    wrapped = 0;
    EXPECT_EQ(rig.engine->NextIndex(1, wrapped, 0), 3);
    EXPECT_EQ(rig.engine->NextIndex(1, wrapped, 1), 2);  // discarded pages asked for
    rig.list.m_bIgnoreDiscard = 1;
    EXPECT_EQ(rig.engine->NextIndex(1, wrapped, 0), 2);
    EXPECT_EQ(wrapped, 0);
    rig.list.m_bIgnoreDiscard = 0;
    rig.pages[1]->m_effect.bDiscard = rig.pages[3]->m_effect.bDiscard = 1;
    EXPECT_EQ(rig.engine->NextIndex(0, wrapped, 0), -1);
    EXPECT_EQ(wrapped, 1);
    rig.list.m_pPages.clear();
    wrapped = 0;
    EXPECT_EQ(rig.engine->NextIndex(-1, wrapped, 0), -1);
    EXPECT_EQ(wrapped, 1);
}

// The automatic loop with its delays counted in pieces of 20 ms.
struct UstAutoRig : UstPlayRig {
    UstAutoRig() {
        list.m_nMode = PLAYLIST_AUTO;
        engine->SetDelayWait([this](int ms) {
            EXPECT_EQ(ms, 20);
            ++pieces;
            std::this_thread::yield();
        });
    }
    // The counter goes after the engine that counts into it.
    ~UstAutoRig() { engine.reset(); }
    CPageManager* AddTimed(uint32_t colour, int inDelay, int outDelay) {
        UstPageEffect effect = CutFade();
        effect.nInDelay = inDelay;
        effect.nOutDelay = outDelay;
        return AddPage(colour, effect);
    }
    std::vector<int> Loaded() {
        std::vector<int> loaded;
        for (const UstPost& p : log.Posts())
            if (p.first == PLAY_LOAD) loaded.push_back(p.second);
        return loaded;
    }
    std::atomic<int> pieces{0};
};

TEST(PlayAuto, RepeatThreeOnTwoPagesPlaysSixPagesWithBothDelays) {
    UstAutoRig rig;
    rig.AddTimed(RED, 1, 2);
    rig.AddTimed(GREEN, 1, 2);
    rig.list.m_nRepeat = 3;
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_IDLE, 0}));
    EXPECT_EQ(rig.Loaded(), (std::vector<int>{0, 1, 0, 1, 0, 1}));
    EXPECT_EQ(rig.pieces, 6 * (50 + 100));
    EXPECT_EQ(rig.engine->Passes(), 0);
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_FALSE(rig.engine->IsRunning());
    EXPECT_EQ(rig.log.Modes(2), (std::vector<int>{2, 1}));
    EXPECT_EQ(rig.log.Posts().front(), (UstPost{0, 1}));
    EXPECT_TRUE(rig.AirIs(0));
}

// 35 frames of 16 ms count 560 ms a phase: two seconds end after the
// fourth, whatever the frames really take; the delay itself is not waited.
TEST(PlayAuto, BlinkingPageBlinksForItsInDelayAlone) {
    UstAutoRig rig;
    CPageManager* page = rig.AddTimed(RED, 2, 0);
    page->AddObject(std::make_unique<test::CBlinkObject>(UstRect{0, 0, 8, 8}, BLUE));
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_IDLE, 0}));
    EXPECT_EQ(rig.log.Count(PLAY_BLINK), 1);
    EXPECT_EQ(rig.engine->GetEffect().LiveStats().nBlinkHops, 4);
    EXPECT_EQ(rig.engine->GetEffect().LiveStats().nBlinkCopies, 1);
    EXPECT_EQ(rig.pieces, 0);
}

TEST(PlayAuto, RepeatZeroKeepsItsPassesEndless) {
    UstAutoRig rig;
    rig.AddTimed(RED, 0, 0);
    rig.AddTimed(GREEN, 0, 0);
    rig.list.m_nRepeat = 0;
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.log.WaitFor({PLAY_LOAD, 0}, 4));  // three wraps behind it
    EXPECT_EQ(rig.engine->Passes(), CPlayEngine::ENDLESS_PASSES);
    rig.engine->Key(PLAYKEY_STOP);
    ASSERT_TRUE(rig.Settle({PLAY_IDLE, 0}));
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
}

TEST(PlayAuto, InDelayZeroGoesStraightToTheOutEffect) {
    UstAutoRig rig;
    rig.AddTimed(RED, 0, 1);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_IDLE, 0}));
    EXPECT_EQ(rig.log.Posts(), (Posts{{0, 1}, {1, 0}, {2, 0}, {3, 0}, {6, 0}, {7, 0}, {0, 0}}));
    EXPECT_EQ(rig.pieces, 50);  // the out delay only
}

TEST(PlayAuto, AllPagesDiscardedEndsAtOnce) {
    UstAutoRig rig;
    rig.AddTimed(RED, 1, 1)->m_effect.bDiscard = 1;
    rig.AddTimed(GREEN, 1, 1)->m_effect.bDiscard = 1;
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_IDLE, 0}));
    EXPECT_EQ(rig.log.Posts(), (Posts{{0, 1}, {0, 0}}));
    EXPECT_EQ(rig.pieces, 0);
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
}

// The range and the discard flag choose the pages; a wrap starts the range
// again from its first page.
TEST(PlayAuto, RangeAndDiscardChooseThePages) {
    UstAutoRig rig;
    for (uint32_t c : {RED, GREEN, BLUE, RED})
        rig.AddTimed(c, 0, 0);
    rig.pages[2]->m_effect.bDiscard = 1;
    rig.list.m_nStart = 1;
    rig.list.m_nEnd = 3;
    rig.list.m_nRepeat = 2;
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_IDLE, 0}));
    EXPECT_EQ(rig.Loaded(), (std::vector<int>{1, 3, 1, 3}));
}

// Automatic play can be stopped, not erased; Stop leaves the page on air
// and Erase then takes it off.
TEST(PlayAuto, EraseDoesNothingWhileStopEnds) {
    UstAutoRig rig;
    rig.engine->SetDelayWait([](int) { std::this_thread::sleep_for(1ms); });
    rig.AddTimed(GREEN, 1000, 0);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_IN, 0}));
    rig.engine->Key(PLAYKEY_ERASE);
    EXPECT_TRUE(rig.engine->IsRunning());
    EXPECT_TRUE(rig.AirIs(GREEN));
    rig.engine->Key(PLAYKEY_STOP);
    ASSERT_TRUE(rig.Settle({PLAY_IDLE, 0}));
    EXPECT_TRUE(rig.AirIs(GREEN));
    EXPECT_EQ(rig.log.Count(PLAY_OUT), 0);
    rig.engine->Key(PLAYKEY_ERASE);
    EXPECT_TRUE(rig.AirIs(0));
}

TEST(PlayAuto, DestroyingTheEngineEndsTheLoopWithinAPiece) {
    UstAutoRig rig;
    rig.engine->SetDelayWait([](int) { std::this_thread::sleep_for(1ms); });
    rig.AddTimed(GREEN, 1000, 0);
    rig.engine->Key(PLAYKEY_RUN);
    ASSERT_TRUE(rig.Settle({PLAY_IN, 0}));
    const auto start = std::chrono::steady_clock::now();
    rig.engine.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
    EXPECT_FALSE(rig.log.WaitFor({PLAY_IDLE, 0}, 1, 0ms));  // nothing told after the end
}

// Keys as fast as two keyboards can send them, in every state, in both
// modes: the engine never hangs, and one Stop brings it back to idle.
TEST(PlayStress, RandomKeysFromTwoThreadsEndIdle) {
    UstAutoRig rig;
    rig.AddTimed(RED, 0, 0);
    CPageManager* roll = rig.AddTimed(GREEN, 0, 0);
    roll->m_nPageType = 1;
    roll->m_effect.nInEffect = EFFECT_ROLL;
    rig.AddTimed(BLUE, 0, 0)
        ->AddObject(std::make_unique<test::CBlinkObject>(UstRect{0, 0, 8, 8}, RED));
    // A live page whose feeder runs while the keys come.
    QTemporaryDir dir;
    const QString logo = dir.filePath("logo.ani32");
    ASSERT_TRUE(test::WriteAnimation(logo, 16, 16, 5, [](int x, int, int f) {
        return 0xFF000000u | static_cast<uint32_t>(x * 16 + f);
    }));
    rig.AddTimed(GREEN, 0, 0)
        ->AddObject(std::make_unique<CQRDObjectAni>(nullptr, logo, UstRect{-4, 10, 40, 40}));
    rig.list.m_nRepeat = 2;
    const auto press = [&](unsigned seed) {
        std::mt19937 random(seed);
        for (int i = 0; i < 5000; ++i) {
            switch (random() % 9) {
                case 0:
                case 1:
                    rig.engine->Key(PLAYKEY_RUN);
                    break;
                case 2:
                    rig.engine->Key(PLAYKEY_STOP);
                    break;
                case 3:
                    rig.engine->Key(PLAYKEY_ERASE);
                    break;
                case 4:
                    rig.engine->Faster();
                    rig.engine->Slower();
                    break;
                case 5:
                    rig.engine->SetPage(rig.pages[random() % rig.pages.size()].get());
                    break;
                case 6:
                    rig.list.m_nCurrent = static_cast<int>(random() % 4);
                    break;
                case 7:
                    rig.list.m_nMode = static_cast<int>(random() % 2);
                    break;
                default:
                    rig.engine->ResetPlay();
                    break;
            }
        }
    };
    std::thread a(press, 1u), b(press, 2u);
    a.join();
    b.join();
    rig.engine->StopPlay();
    for (int i = 0; i < 5000 && (rig.engine->IsLocked() || rig.engine->State() != PLAY_IDLE); ++i)
        std::this_thread::sleep_for(1ms);
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_FALSE(rig.engine->IsRunning());
    EXPECT_GT(rig.log.Count(PLAY_IN), 0);
}

}  // namespace
}  // namespace orv
