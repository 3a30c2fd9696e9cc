// Pages that keep living on air, frame by frame through the test board:
// the blink's two pictures and its hops, and the live stage's animations
// with their fades, play counts, late feeder and bad files.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "objects/blink_draw.h"
#include "objects/text_object.h"
#include "play_rig.h"
#include "playout/effect_decklink.h"
#include "playout/logo_animator.h"
#include "project/page_manager.h"
#include "render/pixels.h"
#include "support/ani_files.h"
#include "support/rect_object.h"
#include "support/text_host.h"
#include "transition_rig.h"

namespace orv {
namespace {

using test::RunByHand;

constexpr int W = 96, H = 54;
constexpr uint32_t PAGE = 0xFF202020u, SECOND = 0xFF0000FFu;

// The engine over a hand-clocked board, with buffers A and B of its own.
struct UstLiveRig {
    UstLiveRig()
        : board(test::Mode("pal"), EPlayoutClock::HAND),
          a(static_cast<size_t>(W) * H, PAGE),
          b(static_cast<size_t>(W) * H, SECOND),
          engine(0, &board, a.data(), b.data(), W, H) {}

    // The frame's picture where the origin stands now.
    std::vector<uint32_t> View() {
        int x = 0, y = 0;
        board.GetOrigin(x, y);
        std::vector<uint32_t> view(static_cast<size_t>(W) * H);
        CopyFrame(view.data(), {board.GetChannelCanvas(0), x, y, W, H});
        return view;
    }
    uint32_t At(int x, int y) { return View()[static_cast<size_t>(y) * W + x]; }
    // The feeder has done what the last frame asked of it: a frame by hand
    // passes in no time, and the ring must not run dry for that alone.
    void FeederDone() {
        for (int i = 0; i < 2000 && !engine.AnimThreadIdle(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    int OriginX() {
        int x = 0, y = 0;
        board.GetOrigin(x, y);
        return x;
    }

    CTestBoard board;
    std::vector<uint32_t> a, b;
    EffectDecklink engine;
    CPageManager page;
};

bool AllAre(const std::vector<uint32_t>& v, uint32_t colour) {
    return std::all_of(v.begin(), v.end(), [&](uint32_t p) { return p == colour; });
}

// ---- The blink ----------------------------------------------------------

// Speed 9 is ten frames a phase. The first phase shows the page the in
// effect left; the second picture comes after two periods, and the
// canvas takes pixels only once.
TEST(Blink, SecondPictureComesAfterTwoPeriodsAndCostsOneCopy) {
    UstLiveRig rig;
    rig.page.m_blink.nSpeed = 9;
    // The origin stands near the canvas's right edge: the second picture
    // wraps round to its left.
    const int canvasW = rig.board.GetCanvasSize().cx;
    rig.board.SetOrigin(canvasW - 10, 0);
    CanvasCopyRect(rig.board.GetChannelCanvas(0), canvasW - 10, 0, W, 0, 0, W, H, rig.a.data());
    std::vector<int> origins;
    int stoppedAt = 0;
    const int frames = RunByHand(
        rig.board, [&] { rig.engine.RunBlink(RequestWords(rig.page.m_effect), &rig.page, 1); },
        [&](int frame) {
            origins.push_back(rig.OriginX());
            const bool second = frame >= 20 && (frame / 10) % 2 == 0;
            EXPECT_TRUE(AllAre(rig.View(), second ? SECOND : PAGE)) << frame;
            if (frame == 45) {
                rig.engine.m_bBlinking.store(0);
                stoppedAt = frame;
            }
        });
    EXPECT_LE(frames, stoppedAt + 1);  // ends within a frame of the flag
    EXPECT_EQ(origins[18], canvasW - 10);
    EXPECT_EQ(origins[19], W - 10);  // after frame 20
    EXPECT_EQ(origins[29], canvasW - 10);
    EXPECT_EQ(origins[39], W - 10);
    EXPECT_EQ(rig.engine.LiveStats().nBlinkCopies, 1);
    EXPECT_EQ(rig.engine.LiveStats().nBlinkHops, 4);
    EXPECT_EQ(rig.engine.m_bBlinking.load(), 0);
}

// nInDelay 2 at speed 4: 560 ms counted a phase, so the fourth phase is
// the last; a delay of 0 still gives one phase. The blink ends where it
// stands.
TEST(Blink, TimedBlinkCountsSixteenMillisecondsAFrame) {
    const std::pair<int, int> cases[] = {{2, 4}, {0, 1}, {1, 2}};  // delay, phases
    for (const auto& [delay, phases] : cases) {
        UstLiveRig rig;
        rig.page.m_effect.nInDelay = delay;
        const int frames = RunByHand(
            rig.board, [&] { rig.engine.RunBlink(RequestWords(rig.page.m_effect), &rig.page, 0); });
        EXPECT_EQ(frames, 35 * phases) << delay;
        EXPECT_EQ(rig.engine.LiveStats().nBlinkHops, phases);
        EXPECT_EQ(rig.OriginX(), phases % 2 == 0 ? W : 0);
    }
}

// A speed outside the table never reaches the air: the page refuses it,
// and one that comes in by another road makes no blink at all.
TEST(Blink, SpeedOutsideTheTableIsRefused) {
    CPageManager page;
    UstPageBlink blink = page.m_blink;
    for (int speed : {0, 11, -1}) {
        blink.nSpeed = speed;
        EXPECT_EQ(page.SetEffectValue(&blink, 785), 0) << speed;
        EXPECT_EQ(page.m_blink.nSpeed, 4);
    }
    blink.nSpeed = 10;
    EXPECT_EQ(page.SetEffectValue(&blink, 785), 1);
    EXPECT_EQ(page.m_blink.nSpeed, 10);
    EXPECT_EQ(BlinkPeriod(10), 5);
    EXPECT_EQ(BlinkPeriod(1), 60);
    EXPECT_EQ(BlinkPeriod(4), 35);

    UstLiveRig rig;
    rig.page.m_blink.nSpeed = 0;
    EXPECT_EQ(RunByHand(rig.board, [&] { rig.engine.RunLive(0, &rig.page, 1); }), 0);
    EXPECT_EQ(rig.engine.LiveStats().nBlinkCopies, 0);
    EXPECT_EQ(rig.engine.m_bBlinking.load(), 0);
}

// Buffer B is the page without its blinking parts, or with them in the
// blink colour; buffer A has everything.
TEST(Blink, BufferBLeavesOutOrColoursTheBlinkingParts) {
    class CBlinking : public test::CRectObject {
    public:
        using CRectObject::CRectObject;
        bool GetBlink() const override { return true; }
    };
    for (int mode : {0, 1}) {
        CPageManager page;
        page.m_blink.nMode = mode;
        page.m_blink.crColor = 0x80FF0000u;
        page.AddObject(std::make_unique<test::CRectObject>(UstRect{0, 0, 4, 4}, 0xFF00FF00u));
        page.AddObject(std::make_unique<CBlinking>(UstRect{2, 0, 6, 4}, 0x80402010u));
        std::vector<uint32_t> a(8 * 4, 0u), b(8 * 4, 0u);
        page.DrawForPlay(a.data(), b.data(), 8, 4);
        EXPECT_EQ(a[5], 0x80402010u);
        EXPECT_EQ(a[0], 0xFF00FF00u);
        EXPECT_EQ(b[0], 0xFF00FF00u);
        // Alpha 0x80 thinned by the colour's 0x80 is 0x40; red takes it all.
        EXPECT_EQ(b[5], mode == 0 ? 0u : 0x40400000u) << mode;
        // Over the green, the tinted part blends as any half-clear pixel.
        EXPECT_EQ(b[2], mode == 0 ? 0xFF00FF00u : BlendPixel(0xFF00FF00u, 0x40400000u)) << mode;
    }
}

TEST(Blink, TintKeepsCoverageAndTakesTheColour) {
    uint32_t px[] = {0xFF123456u, 0x80402010u, 0u};
    TintPixels(px, 3, 0xFF00FF00u);
    EXPECT_EQ(px[0], 0xFF00FF00u);
    EXPECT_EQ(px[1], 0x80008000u);
    EXPECT_EQ(px[2], 0u);
}

// ---- The live stage -----------------------------------------------------

uint32_t FrameColour(int anim, int frame) {
    return 0xFF000000u | static_cast<uint32_t>(anim << 16) | static_cast<uint32_t>(frame + 1);
}

struct UstAnimFiles {
    QTemporaryDir dir;
    QString Write(const QString& name, int anim, int frames, int w = 8, int h = 8) {
        const QString path = dir.filePath(name);
        EXPECT_TRUE(test::WriteAnimation(path, w, h, frames,
                                         [&](int, int, int f) { return FrameColour(anim, f); }));
        return path;
    }
};

CQRDObjectAni* AddAnimation(CPageManager& page, const QString& path, UstRect rect, int count) {
    auto object = std::make_unique<CQRDObjectAni>(nullptr, path, rect);
    object->m_words.nRepeat = count;
    auto* raw = object.get();
    page.AddObject(std::move(object));
    return raw;
}

// Two animations of play count 0, of 3 and 20 frames. Fade in over nine
// frames holding frame 0; then the short one shows frames 0 to 2, ends
// when frame 0 comes round, and fades out in nine frames while the long
// one plays on; then the long one ends and the stage fades it out.
TEST(Live, ShorterAnimationFadesOutInNineFramesWhileTheOtherPlaysOn) {
    UstAnimFiles files;
    UstLiveRig rig;
    AddAnimation(rig.page, files.Write("short.ani32", 1, 3), {0, 0, 8, 8}, 0);
    AddAnimation(rig.page, files.Write("long.ani32", 2, 20), {16, 0, 24, 8}, 0);
    std::vector<uint32_t> shortPx, longPx;
    const int frames = RunByHand(
        rig.board, [&] { rig.engine.RunLive(1, &rig.page, 0); },
        [&](int) {
            rig.FeederDone();
            shortPx.push_back(rig.At(3, 3));
            longPx.push_back(rig.At(20, 3));
        });
    ASSERT_EQ(frames, 9 + 20 + 9);
    EXPECT_EQ(shortPx[0], PAGE);  // level 0
    for (int f = 1; f < 9; ++f)
        EXPECT_EQ(shortPx[f], BlendPixelOpacity(PAGE, FrameColour(1, 0), 30 * f)) << f;
    for (int f = 9; f < 12; ++f)
        EXPECT_EQ(shortPx[f], FrameColour(1, f - 9)) << f;
    for (int k = 1; k <= 9; ++k)
        EXPECT_EQ(shortPx[11 + k],
                  BlendPixelOpacity(PAGE, FrameColour(1, 2), std::max(0, 255 - 30 * k)))
            << k;
    EXPECT_EQ(shortPx[20], PAGE);
    for (int f = 9; f < 29; ++f)
        EXPECT_EQ(longPx[f], FrameColour(2, f - 9)) << f;
    EXPECT_EQ(longPx[29], BlendPixelOpacity(PAGE, FrameColour(2, 19), 225));
    EXPECT_TRUE(AllAre(rig.View(), PAGE));  // the pure page of buffer A at the end
    EXPECT_EQ(rig.engine.m_nAnimCount, 0);
    EXPECT_TRUE(rig.engine.m_pAnimPlayer.empty());
    EXPECT_EQ(rig.engine.LiveStats().nEmptyRings, 0);
}

// Run while live clears the flag: everything still showing fades together
// from 255, and the play count no longer matters.
TEST(Live, RunWhileLiveLowersTheLevelForAllAtOnce) {
    UstAnimFiles files;
    UstLiveRig rig;
    AddAnimation(rig.page, files.Write("a.ani32", 1, 5), {0, 0, 8, 8}, 0);
    AddAnimation(rig.page, files.Write("b.ani32", 2, 7), {16, 0, 24, 8}, 0);
    std::vector<uint32_t> a, b;
    const int frames = RunByHand(
        rig.board, [&] { rig.engine.RunLive(1, &rig.page, 1); },
        [&](int frame) {
            rig.FeederDone();
            a.push_back(rig.At(3, 3));
            b.push_back(rig.At(20, 3));
            if (frame == 30) rig.engine.m_bAnimating.store(0);
        });
    // Frame 31 was composed before the flag went down: the main loop's
    // 22nd frame, showing frame 21 of each file. Then nine frames of fade.
    ASSERT_EQ(frames, 31 + 9);
    EXPECT_EQ(a[30], FrameColour(1, 21 % 5));
    EXPECT_EQ(b[30], FrameColour(2, 21 % 7));
    for (int k = 1; k <= 9; ++k) {
        const int level = std::max(0, 255 - 30 * k);
        EXPECT_EQ(a[30 + k], BlendPixelOpacity(PAGE, FrameColour(1, 21 % 5), level)) << k;
        EXPECT_EQ(b[30 + k], BlendPixelOpacity(PAGE, FrameColour(2, 21 % 7), level)) << k;
    }
    EXPECT_EQ(a[39], PAGE);
}

// A frame source that reads only while the test lets it.
class CGatedPlayer : public MediaPlayer {
public:
    explicit CGatedPlayer(std::shared_ptr<std::atomic<int>> allowed)
        : m_allowed(std::move(allowed)) {
        m_info = {10, ANIMATION_FPS, 8, 8};
        m_bOpen = 1;
    }
    bool Open() override { return true; }
    int ReadFrameTo(int index, uint32_t* out) override {
        while (m_allowed->load() <= 0)
            std::this_thread::yield();
        --*m_allowed;
        std::fill_n(out, 64, FrameColour(3, index));
        return 1;
    }

private:
    std::shared_ptr<std::atomic<int>> m_allowed;
};

// Held back after the priming, the feeder leaves the rings to run dry: the
// last frame stands, and every frame still goes out on its tick.
TEST(Live, HeldBackFeederRepeatsTheLastFrameAndKeepsThePace) {
    UstAnimFiles files;
    UstLiveRig rig;
    QFile stub(files.dir.filePath("gated.ani32"));
    ASSERT_TRUE(stub.open(QIODevice::WriteOnly));
    stub.close();
    AddAnimation(rig.page, stub.fileName(), {0, 0, 8, 8}, 0);
    auto allowed = std::make_shared<std::atomic<int>>(4);
    rig.engine.m_fnOpenPlayer = [&](const QString&) {
        return std::make_unique<CGatedPlayer>(allowed);
    };
    std::vector<uint32_t> seen;
    RunByHand(
        rig.board, [&] { rig.engine.RunLive(1, &rig.page, 1); },
        [&](int frame) {
            if (frame == 25) *allowed = 1000;
            if (frame >= 25) rig.FeederDone();
            seen.push_back(rig.At(3, 3));
            if (frame == 35) rig.engine.m_bAnimating.store(0);
        });
    // Frames 10 to 13 show the four primed frames; then frame 3 stands.
    for (int f = 9; f < 13; ++f)
        EXPECT_EQ(seen[f], FrameColour(3, f - 9)) << f;
    for (int f = 13; f < 25; ++f)
        EXPECT_EQ(seen[f], FrameColour(3, 3)) << f;
    EXPECT_GE(rig.engine.LiveStats().nEmptyRings, 12);
    // Let go, the feeder brings the next frames within a few ticks.
    // Frame 26 was composed before the feeder was let go; frame 27 after
    // it had caught up.
    EXPECT_EQ(seen[25], FrameColour(3, 3));
    EXPECT_EQ(seen[26], FrameColour(3, 4));
    EXPECT_EQ(seen[30], FrameColour(3, 8));
    EXPECT_EQ(rig.engine.m_nAnimCount, 0);
}

// What cannot play drops out: a file that is gone, one of no known type,
// and an object wholly off the frame. With nothing left the stage ends at
// once, its flag down and nothing kept.
TEST(Live, UnplayableAnimationsDropOutAndAnEmptyStageEndsAtOnce) {
    UstAnimFiles files;
    UstLiveRig rig;
    AddAnimation(rig.page, files.dir.filePath("gone.ani32"), {0, 0, 8, 8}, 0);
    QFile text(files.dir.filePath("notes.txt"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("not an animation");
    text.close();
    AddAnimation(rig.page, text.fileName(), {0, 0, 8, 8}, 0);
    const QString good = files.Write("good.ani32", 1, 3);
    AddAnimation(rig.page, good, {W, 0, W + 8, 8}, 0);
    AddAnimation(rig.page, good, {-8, -8, 0, 0}, 0);
    EXPECT_EQ(RunByHand(rig.board, [&] { rig.engine.RunLive(1, &rig.page, 0); }), 0);
    EXPECT_EQ(rig.engine.m_bAnimating.load(), 0);
    EXPECT_TRUE(rig.engine.m_pAnimRing.empty());
}

// Partly off the frame at the left and top, the picture is taken from as
// far inside the source: the frame's corner shows the source's (3, 2).
TEST(Live, ObjectPartlyOffTheFrameShiftsTheSource) {
    UstAnimFiles files;
    UstLiveRig rig;
    const QString path = files.dir.filePath("grid.ani32");
    ASSERT_TRUE(test::WriteAnimation(path, 8, 8, 2, [](int x, int y, int) {
        return 0xFF000000u | static_cast<uint32_t>(y * 8 + x);
    }));
    AddAnimation(rig.page, path, {-3, -2, 5, 6}, 0);
    std::vector<std::vector<uint32_t>> views;
    RunByHand(
        rig.board, [&] { rig.engine.RunLive(1, &rig.page, 0); },
        [&](int) {
            rig.FeederDone();
            views.push_back(rig.View());
        });
    ASSERT_GT(views.size(), 10u);
    const std::vector<uint32_t>& v = views[9];
    EXPECT_EQ(v[0], 0xFF000000u | (2 * 8 + 3));
    EXPECT_EQ(v[static_cast<size_t>(3) * W + 4], 0xFF000000u | (5 * 8 + 7));
    EXPECT_EQ(v[5], PAGE);
}

// A file cut short: the frames past the cut are read as the last good one,
// and the stage plays its count to the end.
TEST(Live, DamagedFileRepeatsItsLastGoodFrame) {
    UstAnimFiles files;
    UstLiveRig rig;
    const QString path = files.Write("cut.ani32", 1, 6, 32, 32);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const qint64 size = file.size();
    file.resize(size * 2 / 3);
    file.close();
    auto player = CreateMediaPlayer(path);
    ASSERT_TRUE(player);
    // What the file still gives at (5, 5), frame by frame: a frame it cannot
    // give stands as the last one it gave.
    std::vector<uint32_t> probe(32 * 32), expected;
    int failed = 0;
    for (int f = 0; f < 6; ++f) {
        if (player->ReadFrameTo(f, probe.data()))
            expected.push_back(probe[5 * 32 + 5]);
        else
            expected.push_back(expected.empty() ? 0u : expected.back()), ++failed;
    }
    ASSERT_GT(failed, 0);
    ASSERT_NE(expected[0], 0u);
    AddAnimation(rig.page, path, {0, 0, 32, 32}, 0);
    std::vector<uint32_t> seen;
    const int frames = RunByHand(
        rig.board, [&] { rig.engine.RunLive(1, &rig.page, 0); },
        [&](int) {
            rig.FeederDone();
            seen.push_back(rig.At(5, 5));
        });
    ASSERT_EQ(frames, 9 + 6 + 9);
    for (int f = 0; f < 6; ++f)
        EXPECT_EQ(seen[9 + f], BlendPixel(PAGE, expected[static_cast<size_t>(f)])) << f;
}

// ---- Typed-on text ------------------------------------------------------

// A page of one colour with "ab", a line end and "c" typed on it in 20-point
// white, and the engine over a board that turns its own frames.
struct UstTypingRig : test::UstPlayRig {
    UstTypingRig() {
        host.defaults.font.nSize = 20;
        host.working = host.defaults;
        context.host = &host;
        context.width = W;
        context.height = H;
        auto text = std::make_unique<CQRDObjectText>(&context);
        text->BeginEdit(10, 6, false);
        text->InsertString("ab\nc");
        text->EndEdit();
        text->SetTyping(1);
        page = AddPage(PAGE, test::Request(EFFECT_CUT, 10, false, EFFECT_CUT, 10, true));
        typed = static_cast<CQRDObjectText*>(page->AddObject(std::move(text)));
        engine->SetPage(page);
    }
    // The frame as the page draws it with the first `shown` characters.
    std::vector<uint32_t> Reference(int shown) {
        std::vector<uint32_t> frame(static_cast<size_t>(W) * H, 0u);
        const int32_t playing = typed->m_nPlayShown;
        typed->m_nPlayShown = shown;
        page->DrawForPlay(frame.data(), nullptr, W, H);
        typed->m_nPlayShown = playing;
        return frame;
    }
    // Run, and the step it started has ended.
    void RunAndSettle() {
        const int before = log.Count(PLAY_ON) + log.Count(PLAY_GONE);
        const std::vector<uint32_t> air = Air();
        engine->Key(PLAYKEY_RUN);
        for (int i = 0; i < 2000 && !engine->IsLocked() && Air() == air &&
                        log.Count(PLAY_ON) + log.Count(PLAY_GONE) == before;
             ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        for (int i = 0; i < 2000 && engine->IsLocked(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    test::CFakeTextHost host;
    test::CFakeContext context;
    CPageManager* page = nullptr;
    CQRDObjectText* typed = nullptr;
};

// Manual, by character: the page comes on without the text, each Run shows
// one character more (the line end goes with the "c"), and the air always
// equals the page drawn whole with that many characters: what is written
// each step covers all that changed, and nothing else moved.
TEST(Typing, ManualByCharacterShowsOneCharacterPerRun) {
    UstTypingRig rig;
    rig.RunAndSettle();
    ASSERT_EQ(rig.engine->State(), PLAY_TYPING);
    EXPECT_TRUE(rig.AirIs(PAGE));
    const int stops[] = {1, 2, 4};
    std::vector<uint32_t> last = rig.Air();
    for (int stop : stops) {
        rig.RunAndSettle();
        const std::vector<uint32_t> air = rig.Air();
        EXPECT_TRUE(air == rig.Reference(stop)) << stop;
        EXPECT_GT(test::CountDifferent(air, last), 0) << stop;
        last = air;
    }
    EXPECT_EQ(rig.engine->State(), PLAY_OUT);
    EXPECT_EQ(rig.typed->m_nPlayShown, -1);
    rig.RunAndSettle();
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
}

// By line, "ab" and its line end come first, then "c"; Stop in between
// shows the rest at once.
TEST(Typing, ByLineAndStopShowingAllAtOnce) {
    UstTypingRig rig;
    rig.page->m_typing.nOrder = 1;
    rig.RunAndSettle();
    rig.RunAndSettle();
    EXPECT_TRUE(rig.Air() == rig.Reference(3));
    rig.engine->Key(PLAYKEY_STOP);
    EXPECT_TRUE(rig.Air() == rig.Reference(-1));
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_EQ(rig.typed->m_nPlayShown, -1);
}

// Automatic, the characters follow each other at the delay (30 ms, two
// frames of 16 ms) within the in step; the page then rests on air whole.
TEST(Typing, AutomaticTypesAllAtTheDelay) {
    UstTypingRig rig;
    rig.page->m_typing.nMode = 1;
    rig.page->m_typing.nSpeed = 0;
    rig.RunAndSettle();
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_TRUE(rig.Air() == rig.Reference(-1));
    EXPECT_EQ(rig.engine->State(), PLAY_OUT);
}

// ---- The logo tab's animations ----------------------------------------

// The logo's animation loops over its still picture, scaled to the
// monitor, on a thread of its own; a page with nothing to play starts none.
TEST(LogoAnimator, PlaysTheAnimationOverTheStillUntilStopped) {
    UstAnimFiles files;
    CPageManager page;
    AddAnimation(page, files.Write("logo.ani32", 1, 2), {8, 8, 16, 16}, 0);
    std::mutex mutex;
    std::condition_variable cv;
    std::vector<std::vector<uint32_t>> shown;
    CLogoAnimator animator;
    ASSERT_TRUE(animator.Start(
        page, std::vector<uint32_t>(32 * 16, PAGE), 32, 16, 16, 8,
        [&](std::vector<uint32_t> picture, int w, int h) {
            EXPECT_EQ(w, 16);
            EXPECT_EQ(h, 8);
            std::lock_guard lock(mutex);
            shown.push_back(std::move(picture));
            cv.notify_all();
        },
        std::chrono::milliseconds(1)));
    {
        std::unique_lock lock(mutex);
        ASSERT_TRUE(cv.wait_for(lock, std::chrono::seconds(10), [&] { return shown.size() >= 3; }));
    }
    animator.Stop();
    EXPECT_FALSE(animator.Running());
    const size_t count = shown.size();
    // Halved, the animation's box is (4, 4) to (8, 8).
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(shown[i][5 * 16 + 5], FrameColour(1, static_cast<int>(i % 2))) << i;
        EXPECT_EQ(shown[i][1 * 16 + 1], PAGE) << i;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(shown.size(), count);  // nothing after Stop

    CPageManager none;
    AddAnimation(none, files.dir.filePath("gone.ani32"), {0, 0, 8, 8}, 0);
    EXPECT_FALSE(animator.Start(none, std::vector<uint32_t>(32 * 16, PAGE), 32, 16, 16, 8,
                                [](std::vector<uint32_t>, int, int) {}));
    EXPECT_FALSE(animator.Running());
}

}  // namespace
}  // namespace orv
