// Every row of the gallery in and out through the test board: after the in
// effect the view is the page, after the out effect it is empty, and where
// a family's geometry leaves pixels unwritten, exactly the number worked
// out by hand.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "playout/effect_table.h"
#include "transition_rig.h"

namespace orv {
namespace {

using test::CountDifferent;
using test::CountNonZero;
using test::Request;
using test::UstRig;

struct UstEveryRowCase {
    const char* szMode;
    int nWidth, nHeight;  // 0: the board's frame
    int nSpeed;
    // Pixels that "Box In" leaves unwritten. Its rows close in by the step
    // s, its columns by n = trunc((p + s) x W / H) - c, and a column line
    // starts at its own depth p + i: in the last ordinary sub-step the n - s
    // columns beyond the step leave (i - s) rows above (and below) them that
    // only the final rectangle could fill, and it starts at the new column
    // c. So 4 x (0 + 1 + ... + (n - s - 1)) = 2 (n - s)(n - s - 1).
    int nBoxInGaps;
    // The splits and the plus meet in the middle: an odd number of lines
    // leaves the middle line (split in) or the last line (split out).
    int nSplitRowGaps, nSplitColumnGaps, nPlusGaps;
};

void PrintTo(const UstEveryRowCase& c, std::ostream* os) {
    *os << c.szMode << " " << c.nWidth << "x" << c.nHeight << " speed " << c.nSpeed;
}

int ExpectedGaps(const UstEveryRowCase& c, int number) {
    if (number == 22) return c.nBoxInGaps;
    if (number == 31 || number == 32) return c.nSplitRowGaps;
    if (number == 33 || number == 34) return c.nSplitColumnGaps;
    if (number == 24) return c.nPlusGaps;
    return 0;
}

class EveryRow : public testing::TestWithParam<UstEveryRowCase> {};

TEST_P(EveryRow, InShowsThePageAndOutLeavesAnEmptyView) {
    const UstEveryRowCase& c = GetParam();
    UstRig rig(c.szMode, EPlayoutClock::FREE, c.nWidth, c.nHeight);
    for (int number = GALLERY_FIRST_EFFECT; number < EFFECT_COUNT; ++number) {
        SCOPED_TRACE(EffectName(number, 9).toStdString());
        rig.Reset();
        UstPageEffect request = Request(number, c.nSpeed, false, number, c.nSpeed, false);
        rig.driver->TakeIn(RequestWords(request));
        const int gaps = ExpectedGaps(c, number);
        EXPECT_EQ(CountDifferent(rig.PageView(), rig.page), gaps);
        rig.driver->TakeOut(RequestWords(request));
        const bool keeps = number == EFFECT_NONE || number == EFFECT_CUT;
        EXPECT_EQ(keeps ? CountDifferent(rig.PageView(), rig.page) : CountNonZero(rig.PageView()),
                  keeps ? gaps : 0);
        // A push leaves the old page behind the view; nothing else writes
        // outside it.
        if (FindEffectRow(number)->eFamily != EEffectFamily::PUSH) {
            EXPECT_EQ(rig.WrittenOutsideView(), 0);
        }
        EXPECT_EQ(rig.Engine().m_bRunning, 0);
    }
}

// 1080 and 720 at speed 10 (s = 36): the last ordinary sub-step adds
// trunc(504 x 16/9) - trunc(468 x 16/9) = 896 - 832 = 64 columns (for 720
// lines trunc(324 x 16/9) - trunc(288 x 16/9) = 576 - 512 = 64), so
// 2 x 28 x 27 = 1512. PAL: trunc(252 x 1.25) - trunc(216 x 1.25) = 45, so
// 2 x 9 x 8 = 144. NTSC at speed 1 (s = 2): 358 - 355 = 3 columns, one
// beyond the step, which leaves none.
// 715 x 485 at speed 1: the middle row of the splits, the corner pixel of
// the plus; the box's last rectangle, (357 - 353) x 2 columns from c = 353
// over rows 240 to 243, leaves column 361 there (4) and the odd row 244
// over columns 353 to 361 (9): 13.
// 715 x 484 at speed 10: n = trunc(216 x 715/484) - trunc(180 x 715/484)
// = 319 - 265 = 54 gives 612, and the last rectangle, (357 - 319) x 2
// columns from 319, leaves column 395 over rows 216 to 267: 664.
INSTANTIATE_TEST_SUITE_P(Modes, EveryRow,
                         testing::Values(UstEveryRowCase{"1080i5994", 0, 0, 10, 1512, 0, 0, 0},
                                         UstEveryRowCase{"720p5994", 0, 0, 10, 1512, 0, 0, 0},
                                         UstEveryRowCase{"pal", 0, 0, 10, 144, 0, 0, 0},
                                         UstEveryRowCase{"ntsc", 0, 0, 1, 0, 0, 0, 0},
                                         UstEveryRowCase{"ntsc", 715, 485, 1, 13, 715, 485, 1},
                                         UstEveryRowCase{"ntsc", 715, 484, 10, 664, 0, 484, 0}));

}  // namespace
}  // namespace orv
