// The transitions frame by frame through the test board: the geometry of
// the patterns, the number of sub-steps and frames, the key level, and the
// two moments of an interlaced frame.
#include <gtest/gtest.h>

#include <algorithm>

#include <set>
#include <vector>

#include "playout/effect_table.h"
#include "transition_rig.h"

namespace orv {
namespace {

using test::CountDifferent;
using test::CountNonZero;
using test::Request;
using test::RunByHand;
using test::UstRig;

// Rows of the view that hold the page in full, and whether every other row
// is empty.
std::set<int> FullRows(const std::vector<uint32_t>& view, const std::vector<uint32_t>& page, int w,
                       int h, bool* othersEmpty) {
    std::set<int> rows;
    *othersEmpty = true;
    for (int y = 0; y < h; ++y) {
        const auto begin = static_cast<ptrdiff_t>(y) * w;
        if (std::equal(view.begin() + begin, view.begin() + begin + w, page.begin() + begin))
            rows.insert(y);
        else if (std::any_of(view.begin() + begin, view.begin() + begin + w,
                             [](uint32_t p) { return p != 0; }))
            *othersEmpty = false;
    }
    return rows;
}

// The dissolve's cells: cell side W / 60, the last row as high as what is
// left. After each frame every cell is either whole or untouched, and each
// frame completes 2 x 20 cells at speed 1.
struct UstGridCase {
    const char* szMode;
    int nCell, nColumns, nRows, nLastRow;
};

class DissolveGrid : public testing::TestWithParam<UstGridCase> {};

TEST_P(DissolveGrid, CellsCompleteTwentyPerSubStep) {
    const UstGridCase& g = GetParam();
    UstRig rig(g.szMode, EPlayoutClock::HAND);
    UstPageEffect request = Request(5, 1, false, 5, 1, false);
    std::vector<int> done;
    const int frames = RunByHand(
        rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); },
        [&](int) {
            const std::vector<uint32_t> view = rig.PageView();
            int whole = 0, partial = 0;
            for (int r = 0; r < g.nRows; ++r)
                for (int c = 0; c < g.nColumns; ++c) {
                    const int h = r == g.nRows - 1 ? g.nLastRow : g.nCell;
                    int same = 0;
                    for (int y = r * g.nCell; y < r * g.nCell + h; ++y)
                        for (int x = c * g.nCell; x < c * g.nCell + g.nCell; ++x)
                            same += view[static_cast<size_t>(y) * rig.W() + x] ==
                                    rig.page[static_cast<size_t>(y) * rig.W() + x];
                    whole += same == g.nCell * h;
                    partial += same != 0 && same != g.nCell * h;
                }
            EXPECT_EQ(partial, 0);
            done.push_back(whole);
        });
    const int cells = g.nColumns * g.nRows;
    EXPECT_EQ(rig.Engine().Stats().nSubSteps, (cells + 19) / 20);
    EXPECT_EQ(frames, (cells + 39) / 40 + 1);  // and the last capture
    ASSERT_GE(done.size(), 2u);
    EXPECT_EQ(done[0], 40);
    EXPECT_EQ(done[1], 80);
    EXPECT_EQ(done.back(), cells);
}

INSTANTIATE_TEST_SUITE_P(Frames, DissolveGrid,
                         testing::Values(UstGridCase{"1080i5994", 32, 60, 34, 24},
                                         UstGridCase{"ntsc", 12, 60, 41, 6}));

// Six bands opening by one row a sub-step at speed 1, and the rows below the
// sixth band at once.
struct UstBlindsCase {
    const char* szMode;
    int nHeight;
    int nBand;
    int nRest;
};

class Blinds : public testing::TestWithParam<UstBlindsCase> {};

TEST_P(Blinds, BandsOpenTogetherAndTheRestComesFirst) {
    const UstBlindsCase& b = GetParam();
    UstRig rig(b.szMode, EPlayoutClock::HAND, 720, b.nHeight);
    UstPageEffect request = Request(10, 1, false, 10, 1, false);
    std::set<int> first;
    bool othersEmpty = false;
    RunByHand(
        rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); },
        [&](int frame) {
            if (frame == 1)
                first = FullRows(rig.PageView(), rig.page, 720, b.nHeight, &othersEmpty);
        });
    std::set<int> expected;
    for (int k = 0; k < 6; ++k)
        expected.insert({k * b.nBand, k * b.nBand + 1});
    for (int y = 6 * b.nBand; y < b.nHeight; ++y)
        expected.insert(y);
    EXPECT_EQ(first, expected);
    EXPECT_TRUE(othersEmpty);
    EXPECT_EQ(rig.Engine().Stats().nSubSteps, b.nBand);
    EXPECT_EQ(rig.PageView(), rig.page);
}

INSTANTIATE_TEST_SUITE_P(Heights, Blinds,
                         testing::Values(UstBlindsCase{"1080i5994", 1080, 180, 0},
                                         UstBlindsCase{"ntsc", 486, 81, 0},
                                         UstBlindsCase{"pal", 576, 96, 0},
                                         UstBlindsCase{"1080i5994", 1000, 166, 4}));

// Where each pattern begins: after the first frame of 1280 x 720 at speed
// 10, one point that must show the page and one that must still be empty.
// The centre of the rays is (639, 359), and (640, 360) for eight spokes;
// the four spokes of effect 29 start at border entries 0, 1000, 2000 and
// 3000 of 4000: up, right (1279, 359), down (640, 719), left (0, 360).
TEST(StepLoop, EachPatternStartsWhereItShould) {
    struct UstStart {
        int number, xIn, yIn, xOut, yOut;
    };
    const UstStart starts[] = {
        {14, 0, 0, 1279, 0},      {14, 1279, 30, 0, 30},   {15, 0, 0, 0, 719},
        {15, 40, 719, 40, 0},     {18, 0, 3, 0, 719},      {19, 1279, 0, 0, 0},
        {20, 5, 0, 1279, 0},      {21, 0, 716, 0, 0},      {22, 0, 1, 639, 359},
        {23, 639, 359, 0, 0},     {24, 0, 360, 0, 0},      {25, 639, 100, 639, 600},
        {26, 660, 0, 620, 0},     {29, 639, 50, 1230, 50}, {29, 1230, 359, 1230, 50},
        {29, 640, 700, 1230, 50}, {29, 50, 360, 1230, 50}, {30, 640, 50, 1230, 50},
        {31, 0, 0, 0, 359},       {31, 0, 719, 0, 359},    {32, 0, 359, 0, 0},
        {33, 0, 0, 639, 0},       {34, 639, 0, 0, 0},      {34, 640, 0, 1279, 0}};
    UstRig rig("720p5994", EPlayoutClock::HAND);
    for (const UstStart& s : starts) {
        rig.Reset();
        UstPageEffect request = Request(s.number, 10, false, s.number, 10, false);
        const std::vector<uint32_t> first = test::ViewAfterFirstFrame(rig, request);
        const size_t in = static_cast<size_t>(s.yIn) * 1280 + s.xIn;
        const size_t out = static_cast<size_t>(s.yOut) * 1280 + s.xOut;
        EXPECT_EQ(first[in], rig.page[in]) << s.number;
        EXPECT_EQ(first[out], 0u) << s.number;
    }
}

// Midway, exactly the units of the sub-steps done and nothing else: after
// the first frame of 1080i at speed 10, 200 whole shuffled columns (or
// rows); on 720p at speed 10, the 36 rays of each of the eight spokes,
// pixel for pixel as the slanted run takes them.
TEST(StepLoop, MidwayOnlyTheUnitsDoneShow) {
    for (int number : {16, 17}) {
        UstRig rig("1080i5994", EPlayoutClock::HAND);
        UstPageEffect request = Request(number, 10, false, number, 10, false);
        const std::vector<uint32_t> first = test::ViewAfterFirstFrame(rig, request);
        const bool rows = number == 16;
        int whole = 0, empty = 0;
        for (int k = 0; k < (rows ? 1080 : 1920); ++k) {
            int same = 0, zero = 0;
            for (int i = 0; i < (rows ? 1920 : 1080); ++i) {
                const size_t at =
                    rows ? static_cast<size_t>(k) * 1920 + i : static_cast<size_t>(i) * 1920 + k;
                same += first[at] == rig.page[at];
                zero += first[at] == 0;
            }
            whole += same == (rows ? 1920 : 1080);
            empty += zero == (rows ? 1920 : 1080);
        }
        EXPECT_EQ(whole, 200) << number;
        EXPECT_EQ(whole + empty, rows ? 1080 : 1920) << number;
    }
    UstRig rig("720p5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(30, 10, false, 30, 10, false);
    const std::vector<uint32_t> first = test::ViewAfterFirstFrame(rig, request);
    std::vector<int16_t> xs(4000), ys(4000);
    rig.Engine().BuildPerimeter(xs.data(), ys.data(), 640, 360, 1280, 720);
    std::vector<uint32_t> expected(first.size(), 0);
    for (int spoke = 0; spoke < 8; ++spoke)
        for (int i = 0; i < 36; ++i) {
            const size_t e = static_cast<size_t>(spoke * 500 + i);
            ForSlantRun(640, 360, xs[e], ys[e], [&](int x, int y) {
                const size_t at = static_cast<size_t>(y) * 1280 + x;
                expected[at] = rig.page[at];
            });
        }
    EXPECT_EQ(CountDifferent(first, expected), 0);
}

// 1080 / 4 = 270 sub-steps, two to a frame, then the frame of the last
// capture. With the fade on, one level a sub-step, from 0 up to
// trunc(255 x 1076 / 1080) = 254, never 255.
TEST(StepLoop, WipeDownAtSpeedOneTakes270SubSteps) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(18, 1, true, 18, 1, true);
    const int frames = RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); });
    EXPECT_EQ(rig.Engine().Stats().nSubSteps, 270);
    EXPECT_EQ(rig.Engine().Stats().nCaptures, 136);
    EXPECT_EQ(frames, 135 + 1);
    const std::vector<int> levels = rig.board.KeyLevels();
    ASSERT_EQ(levels.size(), 1u + 270u);
    EXPECT_EQ(levels[0], 0);
    EXPECT_EQ(levels[1], 0);
    EXPECT_EQ(levels[2], 0);  // trunc(255 x 4 / 1080)
    EXPECT_EQ(levels[3], 1);  // trunc(255 x 8 / 1080)
    EXPECT_EQ(levels.back(), 254);
}

// 6000 border pixels, 32 rays a sub-step: 187 and a half, so 188 sub-steps,
// the last one clipped to 16 rays.
TEST(StepLoop, WheelWithOneSpokeTakes188SubSteps) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(26, 1, false, 26, 1, false);
    const int frames = RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); });
    EXPECT_EQ(rig.Engine().Stats().nSubSteps, 188);
    EXPECT_EQ(frames, 94 + 1);
    EXPECT_EQ(rig.PageView(), rig.page);
}

// The first sub-step is captured into the field buffer, the second stays in
// the canvas: the next output frame has rows 0 to 3 in the field taken from
// the buffer (even rows) and rows 0 to 7 in the other.
TEST(StepLoop, EachFieldShowsItsOwnMoment) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(18, 1, false, 18, 1, false);
    std::vector<uint32_t> second;
    RunByHand(
        rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); },
        [&](int frame) {
            if (frame == 2) second = rig.board.LastFrame();  // sent at the second tick
        });
    ASSERT_EQ(second.size(), rig.page.size());
    for (int y = 0; y < 10; ++y) {
        const bool shown = y % 2 == 0 ? y < 4 : y < 8;
        const size_t at = static_cast<size_t>(y) * 1920 + 700;
        EXPECT_EQ(second[at], shown ? rig.page[at] : 0u) << "row " << y;
    }
}

// "Random Bars Vertical" hands the field over a few bands at a time while
// it writes: the held field of the second frame still shows exactly the
// first sub-step's 100 columns, whole, in every one of its rows, and the
// other field the 200 of both, with the view crossing the canvas's last row
// and last column.
TEST(StepLoop, AFieldTakenWhileWritingShowsWholeColumns) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    rig.board.SetOrigin(3000, 4000);
    UstPageEffect request = Request(17, 10, false, 17, 10, false);
    std::vector<uint32_t> second;
    RunByHand(
        rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); },
        [&](int frame) {
            if (frame == 2) second = rig.board.LastFrame();
        });
    ASSERT_EQ(second.size(), rig.page.size());
    auto shown = [&](int y) {
        std::vector<bool> columns(1920);
        for (int x = 0; x < 1920; ++x) {
            const size_t at = static_cast<size_t>(y) * 1920 + x;
            columns[x] = second[at] == rig.page[at];
            EXPECT_TRUE(columns[x] || second[at] == 0u) << x << "," << y;
        }
        return columns;
    };
    const std::vector<bool> held = shown(0), live = shown(1);
    EXPECT_EQ(std::count(held.begin(), held.end(), true), 100);
    EXPECT_EQ(std::count(live.begin(), live.end(), true), 200);
    for (int x = 0; x < 1920; ++x)
        EXPECT_TRUE(!held[x] || live[x]) << x;
    for (int y = 2; y < 1080; ++y)
        ASSERT_EQ(shown(y), y % 2 == 0 ? held : live) << "row " << y;
}

// Progressive output: one sub-step a frame, and no field is ever captured.
TEST(StepLoop, ProgressiveOutputTakesOneSubStepAFrame) {
    UstRig rig("720p5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(18, 1, false, 18, 1, false);
    std::vector<uint32_t> sent;
    const int frames = RunByHand(
        rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); },
        [&](int frame) {
            if (frame == 2) sent = rig.board.LastFrame();
        });
    EXPECT_EQ(rig.Engine().m_nFieldLoop, 0);
    EXPECT_EQ(rig.Engine().Stats().nSubSteps, 180);
    EXPECT_EQ(rig.Engine().Stats().nCaptures, 0);
    EXPECT_EQ(frames, 180);
    bool empty = true;
    EXPECT_EQ(FullRows(sent, rig.page, 1280, 720, &empty), (std::set<int>{0, 1, 2, 3}));
}

// A phase other than 0 and 2 makes the routines return at once: nothing is
// written, and only Run's own last capture waits for a frame.
TEST(StepLoop, PhaseOneWritesNothing) {
    for (const char* mode : {"1080i5994", "720p5994"}) {
        UstRig rig(mode, EPlayoutClock::HAND);
        for (int number = 2; number < EFFECT_COUNT; ++number) {
            UstPageEffect request = Request(number, 5, true, number, 5, true);
            const int frames =
                RunByHand(rig.board, [&] { rig.Engine().Run(RequestWords(request), 1, nullptr); });
            EXPECT_EQ(frames, rig.Engine().m_nFieldLoop) << number;
        }
        EXPECT_TRUE(rig.board.KeyLevels().empty());
        EXPECT_EQ(CountNonZero(rig.PageView()), 0);
    }
}

// The cut's fade: the second level of each frame counts, so speed 10 climbs
// 0, 25, ... 250 and the last frame sets 255 and then 250, where it stays.
TEST(CutFamily, FadeInAtSpeedTenEndsAt250) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(3, 10, true, 2, 10, false);
    const int frames = RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); });
    std::vector<int> expected{0};
    for (int level = 0; level <= 225; level += 25)
        expected.insert(expected.end(), {level, level});
    expected.insert(expected.end(), {255, 250});
    EXPECT_EQ(rig.board.KeyLevels(), expected);
    EXPECT_EQ(frames, 1 + 11 + 1);
    EXPECT_EQ(rig.PageView(), rig.page);
    EXPECT_EQ(rig.board.GetPipeline()->KeyLevel(), 250);
}

// Speed 1 steps by trunc(2.55) = 2 and ends at 254 after 128 frames.
TEST(CutFamily, FadeInAtSpeedOneTakes128Frames) {
    UstRig rig("720p5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(4, 1, false, 2, 1, false);
    const int frames = RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); });
    EXPECT_EQ(frames, 1 + 128);
    EXPECT_EQ(rig.board.GetPipeline()->KeyLevel(), 254);
}

// "No transition" out without fade has no out stage at all; "Cut" out
// without fade goes through it: nothing written, the last capture, four
// frames, and the key back at full.
TEST(CutFamily, OutWithoutFadeWritesNothing) {
    for (int out : {EFFECT_NONE, EFFECT_CUT}) {
        UstRig rig("1080i5994", EPlayoutClock::HAND);
        UstPageEffect request = Request(3, 4, false, out, 4, false);
        RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); });
        const size_t levelsBefore = rig.board.KeyLevels().size();
        const int frames =
            RunByHand(rig.board, [&] { rig.driver->TakeOut(RequestWords(request)); });
        EXPECT_EQ(rig.PageView(), rig.page);
        const std::vector<int> levels = rig.board.KeyLevels();
        if (out == EFFECT_NONE) {
            EXPECT_EQ(frames, 0);
            EXPECT_EQ(levels.size(), levelsBefore);
        } else {
            EXPECT_EQ(frames, 1 + 4);
            ASSERT_EQ(levels.size(), levelsBefore + 1);
            EXPECT_EQ(levels.back(), 255);
        }
    }
}

// "Fade" out fades and clears with its flag off: at speed 4 (10 levels a
// frame) 255, 245 ... 15, then 0, then the erase, and the key back at full.
TEST(CutFamily, FadeOutAlwaysFadesAndClears) {
    UstRig rig("1080i5994", EPlayoutClock::HAND);
    UstPageEffect request = Request(3, 4, false, 4, 4, false);
    RunByHand(rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); });
    const int frames = RunByHand(rig.board, [&] { rig.driver->TakeOut(RequestWords(request)); });
    std::vector<int> expected;
    for (int level = 0; level + 10 < 255; level += 10)
        expected.push_back(255 - level);
    expected.insert(expected.end(), {0, 255});
    EXPECT_EQ(rig.board.KeyLevels(), expected);
    EXPECT_EQ(frames, 26 + 5 + 1 + 4);  // the levels, the erase, the capture, the wait
    EXPECT_EQ(CountNonZero(rig.PageView()), 0);
}

// The checkerboards take speed and fade of the in effect for their out
// effect too: with the in fade on they start dark and fade, with only the
// out fade on they do not.
TEST(Checkerboard, OutEffectFadesByTheInFlag) {
    for (bool inFade : {true, false}) {
        UstRig rig("720p5994", EPlayoutClock::FREE);
        UstPageEffect request = Request(3, 4, false, 12, 10, !inFade);
        request.nInSpeed = 1;  // one line a sub-step: b = 80 sub-steps
        rig.driver->TakeIn(RequestWords(request));
        request.bInFade = inFade;
        rig.driver->TakeOut(RequestWords(request));
        const std::vector<int> levels = rig.board.KeyLevels();
        EXPECT_EQ(rig.Engine().Stats().nSubSteps, 80 + 1);
        EXPECT_EQ(CountNonZero(rig.PageView()), 0);
        if (inFade) {
            ASSERT_EQ(levels.size(), 1u + 80u + 1u);
            EXPECT_EQ(levels[0], 0);
            EXPECT_EQ(levels[1], 255);
            EXPECT_EQ(levels[80], 255 - 251);  // trunc(255 x 79 / 80)
        } else {
            EXPECT_EQ(levels, std::vector<int>{255});
        }
    }
}

// Half the cells come whole right after the first frame; the others grow a
// line at a time from the top (Across) or a column from the left (Down).
TEST(Checkerboard, SameParityCellsComeWholeOnTheFirstFrame) {
    for (int number : {12, 13}) {
        UstRig rig("720p5994", EPlayoutClock::HAND);
        UstPageEffect request = Request(number, 2, false, number, 2, false);
        const std::vector<uint32_t> first = test::ViewAfterFirstFrame(rig, request);
        // Cells of 80: at (0, 0) whole, at (80, 0) two lines or columns.
        auto at = [&](int x, int y) { return static_cast<size_t>(y) * 1280 + x; };
        EXPECT_EQ(first[at(79, 79)], rig.page[at(79, 79)]);
        EXPECT_EQ(first[at(80 + 79, 1)], number == 12 ? rig.page[at(80 + 79, 1)] : 0u);
        EXPECT_EQ(first[at(80 + 1, 79)], number == 13 ? rig.page[at(80 + 1, 79)] : 0u);
        EXPECT_EQ(first[at(80 + 2, 2)], 0u);
        EXPECT_EQ(CountNonZero(first), 1280 * 720 / 2 + 8 * 9 * 80 * 2);
    }
}

// The pushes write the page beside the view and move the origin by a whole
// frame; it stays there, and the out effect works from it.
TEST(Push, OriginMovesByAFrameAndStays) {
    struct UstMove {
        int number, dx, dy;
    };
    for (const UstMove m :
         {UstMove{6, 0, -720}, UstMove{7, 1280, 0}, UstMove{8, -1280, 0}, UstMove{9, 0, 720}}) {
        UstRig rig("720p5994", EPlayoutClock::FREE);
        UstPageEffect request = Request(m.number, 10, false, m.number, 10, false);
        rig.driver->TakeIn(RequestWords(request));
        int x = 0, y = 0;
        rig.board.GetOrigin(x, y);
        EXPECT_EQ(x, (m.dx + 4096) % 4096) << m.number;
        EXPECT_EQ(y, (m.dy + 4096) % 4096) << m.number;
        EXPECT_EQ(rig.PageView(), rig.page);
        rig.driver->TakeOut(RequestWords(request));
        rig.board.GetOrigin(x, y);
        EXPECT_EQ(x, (2 * m.dx + 4096) % 4096) << m.number;
        EXPECT_EQ(CountNonZero(rig.PageView()), 0);
        // The old page stays in the canvas, one frame back.
        EXPECT_EQ(rig.board.GetChannelCanvas(
                      0)[static_cast<size_t>((y - m.dy) & 4095) * 4096 + ((x - m.dx) & 4095)],
                  rig.page[0]);
    }
}

// A fade in ends a little below full, with the level of the last sub-step:
// no final 255. The out effect always ends at 255.
TEST(KeyLevel, InEndsBelowFullAndOutEndsAtFull) {
    UstRig rig("720p5994", EPlayoutClock::FREE);
    UstPageEffect request = Request(21, 10, true, 21, 10, true);
    rig.driver->TakeIn(RequestWords(request));
    EXPECT_EQ(rig.board.GetPipeline()->KeyLevel(), 255 * 700 / 720);  // 15 sub-steps of 50
    rig.driver->TakeOut(RequestWords(request));
    const std::vector<int> levels = rig.board.KeyLevels();
    EXPECT_EQ(levels[levels.size() - 2], 255 - 255 * 700 / 720);
    EXPECT_EQ(levels.back(), 255);
}

}  // namespace
}  // namespace orv
