// Timers running on air through the test board, frame by frame, with a
// clock the test turns: no real time passes and none is read.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <atomic>
#include <set>
#include <thread>

#include "objects/ani_object.h"
#include "objects/tc_object.h"
#include "play_rig.h"
#include "support/ani_files.h"
#include "support/looks.h"

namespace orv {
namespace {

using namespace std::chrono_literals;
using test::Request;
using test::UstPlayRig;

constexpr uint32_t NAVY = 0xFF000080u;

class CHandClock : public ITimerClock {
public:
    int64_t SteadyMs() override { return m_nMs.load(); }
    std::time_t WallSeconds() override { return m_nWall.load(); }
    void Add(int64_t ms) {
        m_nMs += ms;
        m_nWall += ms / 1000;
    }
    std::atomic<int64_t> m_nMs{5000};
    std::atomic<std::time_t> m_nWall{1763200000};
};

UstDefaultAttr WhiteLook() {
    UstDefaultAttr look = test::MakeLook("DejaVu Sans", 20);
    look.effect = UstEffect{};
    look.attr.fill[UstAttr::BODY].clrSolid = 0xFFFFFFFFu;
    return look;
}

constexpr float TIMER_X = 20, TIMER_Y = 40;

UstTCSetting Countdown(int start, int end) {
    return {0, 0, 0, start, end, 0};
}

// Frames compared by their differing pixels, so that a failure says how much.
int Differing(const std::vector<uint32_t>& a, const std::vector<uint32_t>& b) {
    if (a.size() != b.size()) return -1;
    int n = 0;
    for (size_t i = 0; i < a.size(); ++i)
        n += a[i] != b[i];
    return n;
}

// Whether two frames agree inside a rectangle and a pixel round it.
bool SameAround(const std::vector<uint32_t>& a, const std::vector<uint32_t>& b, const UstRect& r) {
    for (int y = std::max(0, r.top - 1); y < std::min(UstPlayRig::H, r.bottom + 1); ++y)
        for (int x = std::max(0, r.left - 1); x < std::min(UstPlayRig::W, r.right + 1); ++x)
            if (a[static_cast<size_t>(y) * UstPlayRig::W + x] !=
                b[static_cast<size_t>(y) * UstPlayRig::W + x])
                return false;
    return true;
}

int White(const std::vector<uint32_t>& a) {
    return static_cast<int>(std::count(a.begin(), a.end(), 0xFFFFFFFFu));
}

struct UstTimerRig {
    UstTimerRig() : rig(EPlayoutClock::HAND) {
        rig.engine->SetTimerClock(&clock);
        page = rig.AddPage(NAVY, Request(EFFECT_CUT, 10, false, EFFECT_NONE, 10, false));
    }
    ~UstTimerRig() {
        // The engine's thread may wait for a frame that only the test gives,
        // inside a stage that holds the lock Stop waits for.
        std::atomic<bool> stopped{false};
        std::thread frames([&] {
            while (!stopped.load())
                rig.board.AdvanceFrame(20ms);
        });
        rig.engine->Key(PLAYKEY_STOP);
        stopped.store(true);
        frames.join();
        rig.board.AdvanceFrame(200ms);
    }
    CQRDObjectTC* AddTimer(const UstTCSetting& setting) {
        auto timer = std::make_unique<CQRDObjectTC>(page, WhiteLook(), setting, TIMER_X, TIMER_Y);
        return static_cast<CQRDObjectTC*>(page->AddObject(std::move(timer)));
    }
    // Takes the page and gives frames until it rests on air with its timers.
    bool Take() {
        rig.engine->SetPage(page);
        rig.engine->Key(PLAYKEY_RUN);
        for (int i = 0; i < 50 && !rig.log.WaitFor({PLAY_GONE, 0}, 1, 0ms); ++i)
            rig.board.AdvanceFrame(100ms);
        return rig.engine->TimersRunning() && rig.board.WaitForWaiter(2s);
    }
    // The Run that takes the page on air into its blink or live stage.
    bool Stage(int stage) {
        rig.engine->Key(PLAYKEY_RUN);
        // The engine sees the key between two frames of its timers.
        for (int i = 0; i < 50 && !rig.log.WaitFor({stage, 0}, 1, 0ms); ++i)
            rig.board.AdvanceFrame(100ms);
        return rig.log.WaitFor({stage, 0}, 1, 0ms) && rig.board.WaitForWaiter(2s);
    }
    // A second of the clock, then one frame drawn.
    std::vector<uint32_t> Second(int64_t ms = 1000) {
        clock.Add(ms);
        EXPECT_TRUE(rig.board.AdvanceFrame(2s));
        EXPECT_TRUE(rig.board.WaitForWaiter(2s));
        return rig.Air();
    }
    // The same page at rest with the counter standing at `value`, drawn as
    // a still picture: what the air must show.
    std::vector<uint32_t> Still(int value) {
        auto still = test::ColourPage(NAVY, {}, UstPlayRig::W, UstPlayRig::H);
        still->AddObject(std::make_unique<CQRDObjectTC>(still.get(), WhiteLook(),
                                                        Countdown(value, value), TIMER_X, TIMER_Y));
        std::vector<uint32_t> frame(static_cast<size_t>(UstPlayRig::W) * UstPlayRig::H, 0u);
        still->DrawForPlay(frame.data(), nullptr, UstPlayRig::W, UstPlayRig::H);
        return frame;
    }

    CHandClock clock;
    UstPlayRig rig;
    CPageManager* page = nullptr;
};

TEST(TimerRun, CountdownChangesTenTimesHoldsAtItsEndAndTouchesNothingElse) {
    UstTimerRig t;
    const CQRDObjectTC* timer = t.AddTimer(Countdown(10, 0));
    ASSERT_TRUE(t.Take());
    std::vector<uint32_t> air = t.rig.Air();
    EXPECT_EQ(Differing(air, t.Still(10)), 0);
    EXPECT_GT(White(air), 20);
    EXPECT_GT(White(t.Still(10)), 20);
    // The value may grow sideways as digits drop; its box with a pixel to
    // spare is all that may change.
    const UstRect r = timer->m_rcStored;
    const std::vector<uint32_t> first = air;
    int changes = 0;
    for (int s = 1; s <= 13; ++s) {
        const std::vector<uint32_t> now = t.Second();
        changes += now != air;
        for (int y = 0; y < UstPlayRig::H; ++y)
            for (int x = 0; x < UstPlayRig::W; ++x) {
                if (Contains({r.left - 1, r.top - 1, r.right + 1, r.bottom + 1}, x, y)) continue;
                ASSERT_EQ(now[static_cast<size_t>(y) * UstPlayRig::W + x],
                          first[static_cast<size_t>(y) * UstPlayRig::W + x])
                    << x << "," << y << " after " << s << " s";
            }
        if (s == 4) {
            EXPECT_EQ(Differing(now, t.Still(6)), 0);
        }
        air = now;
    }
    EXPECT_EQ(changes, 10);
    EXPECT_EQ(Differing(air, t.Still(0)), 0);
    // One change writes the value's box, never the frame.
    EXPECT_LE(t.rig.engine->TimerLargestWrite(), int64_t{r.Width() + 2} * (r.Height() + 2));
    EXPECT_GT(t.rig.engine->TimerLargestWrite(), 0);
}

TEST(TimerRun, PausedKeepsItsValueAndResumeRestartAndSetTakeEffectAtTheNextFrame) {
    UstTimerRig t;
    t.AddTimer(Countdown(0, 59));  // counts up
    ASSERT_TRUE(t.Take());
    t.Second();
    t.Second();
    EXPECT_EQ(Differing(t.rig.Air(), t.Still(2)), 0);
    t.rig.engine->TimerControl({TIMER_PAUSE, 0});
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Differing(t.Second(), t.Still(2)), 0);
    t.rig.engine->TimerControl({TIMER_RESUME, 0});
    EXPECT_EQ(Differing(t.Second(400), t.Still(2)), 0);  // a part of a second shows nothing
    EXPECT_EQ(Differing(t.Second(600), t.Still(3)), 0);
    t.rig.engine->TimerControl({TIMER_SET, 40});
    EXPECT_EQ(Differing(t.Second(0), t.Still(40)), 0);
    EXPECT_EQ(Differing(t.Second(), t.Still(41)), 0);
    t.rig.engine->TimerControl({TIMER_RESTART, 0});
    EXPECT_EQ(Differing(t.Second(0), t.Still(0)), 0);
    // A jump of the wall clock moves clocks only; the count keeps to its pace.
    t.clock.m_nWall += 3600;
    EXPECT_EQ(Differing(t.Second(), t.Still(1)), 0);
}

// A page that blinks shows two pictures by turns: the countdown must run
// on in both, and the blinking box must still come and go beside it.
TEST(TimerRun, ACountdownRunsOnInBothPicturesOfABlink) {
    UstTimerRig t;
    const CQRDObjectTC* timer = t.AddTimer(Countdown(10, 0));
    constexpr uint32_t RED = 0xFFFF0000u;
    t.page->AddObject(std::make_unique<test::CBlinkObject>(UstRect{70, 2, 94, 12}, RED));
    t.page->m_blink.nSpeed = 9;  // ten frames a phase
    ASSERT_TRUE(t.Take());
    ASSERT_TRUE(t.Stage(PLAY_BLINK));
    int shownWithBox = 0, shownWithout = 0;
    for (int f = 1; f <= 48; ++f) {
        // A second every four frames, so that changes fall in both phases.
        const std::vector<uint32_t> air = t.Second(250);
        const bool box = air[static_cast<size_t>(7) * UstPlayRig::W + 80] == RED;
        (box ? shownWithBox : shownWithout) += 1;
        ASSERT_TRUE(SameAround(air, t.Still(std::max(0, 10 - f / 4)), timer->m_rcStored))
            << "frame " << f << (box ? " with" : " without") << " the box";
    }
    EXPECT_GE(shownWithBox, 10);
    EXPECT_GE(shownWithout, 10);
}

// The live stage composes every frame from the page picture: a change
// goes into that picture and shows in the next frame composed.
TEST(TimerRun, ACountdownRunsOnUnderALiveStage) {
    UstTimerRig t;
    const CQRDObjectTC* timer = t.AddTimer(Countdown(10, 0));
    QTemporaryDir dir;
    const QString file = dir.filePath("logo.ani32");
    ASSERT_TRUE(test::WriteAnimation(file, 8, 8, 20, [](int, int, int f) {
        return 0xFF000000u | static_cast<uint32_t>(f * 12) << 8;
    }));
    auto logo = std::make_unique<CQRDObjectAni>(nullptr, file, UstRect{80, 2, 88, 10});
    logo->m_words.nRepeat = 100;
    t.page->AddObject(std::move(logo));
    ASSERT_TRUE(t.Take());
    ASSERT_TRUE(t.Stage(PLAY_LIVE));
    std::set<uint32_t> logoColours;
    for (int f = 1; f <= 48; ++f) {
        const std::vector<uint32_t> air = t.Second(250);
        logoColours.insert(air[static_cast<size_t>(5) * UstPlayRig::W + 84]);
        ASSERT_TRUE(SameAround(air, t.Still(std::max(0, 10 - (f - 1) / 4)), timer->m_rcStored))
            << "frame " << f;
    }
    EXPECT_GE(logoColours.size(), 10u);  // the logo played on beside it
}

TEST(TimerRun, TheOutStageAndStopEndTheRun) {
    UstTimerRig t;
    t.AddTimer(Countdown(5, 0));
    ASSERT_TRUE(t.Take());
    t.rig.engine->Key(PLAYKEY_STOP);
    EXPECT_FALSE(t.rig.engine->TimersRunning());
    t.rig.board.AdvanceFrame(200ms);
    const std::vector<uint32_t> air = t.rig.Air();
    t.clock.Add(3000);
    t.rig.board.AdvanceFrame(50ms);
    EXPECT_EQ(Differing(t.rig.Air(), air), 0);
}

TEST(TimerCount, DirectionFollowsTheEndAndHoldsThereAtAnyMagnitude) {
    EXPECT_EQ(CountedValue(10, 10, 0, 3), 7);
    EXPECT_EQ(CountedValue(10, 10, 0, 30), 0);
    EXPECT_EQ(CountedValue(0, 0, 10, 30), 10);
    EXPECT_EQ(CountedValue(7, 7, 7, 30), 7);  // no direction: it stands
    EXPECT_EQ(CountedValue(-5, -5, -8, 2), -7);
    // Set beyond the end: the value stands rather than running away.
    EXPECT_EQ(CountedValue(20, 0, 10, 5), 20);
    EXPECT_EQ(CountedValue(-3, 10, 0, 5), -3);
    // The limits of 32 bits neither wrap nor pass the end.
    EXPECT_EQ(CountedValue(INT32_MIN, INT32_MIN, INT32_MAX, int64_t{1} << 33), INT32_MAX);
    EXPECT_EQ(CountedValue(INT32_MAX, INT32_MAX, INT32_MIN, 1), int64_t{INT32_MAX} - 1);
}

}  // namespace
}  // namespace orv
