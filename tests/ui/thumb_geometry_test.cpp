// Where the page thumbnails stand, with values worked out by hand from the
// client width: the wide and the narrow column, the rows and the gaps, the
// tiles, the cell that stands for a new page, and the grid.
#include <gtest/gtest.h>

#include "ui/thumb_geometry.h"

namespace orv {
namespace {

constexpr float WIDE_FRAME = 170.0f / 300.0f;
constexpr float SD_FRAME = 225.0f / 300.0f;

TEST(ThumbGeometry, AWideColumnKeepsRoomForTheTilesAndANarrowOneDoesNot) {
    // 260: w0 = 209, h0 = int(118.43 - 20) = 98, 98 - 20 = 78 is not under 65.
    const UstThumbGeometry wide = ListGeometry(260, WIDE_FRAME);
    EXPECT_FALSE(wide.bNarrow);
    EXPECT_TRUE(wide.bTiles);
    EXPECT_EQ(wide.ImageRect(0), QRect(46, 7, 209, 118));
    EXPECT_EQ(wide.nPitch, 125);
    EXPECT_EQ(wide.ImageRect(2), QRect(46, 257, 209, 118));
    EXPECT_EQ(wide.EffectTile(2, 0), QRect(5, 277, 32, 32));
    EXPECT_EQ(wide.EffectTile(2, 1), QRect(5, 343, 32, 32));  // ends at the row's bottom
    EXPECT_EQ(wide.NumberRect(2), QRect(0, 257, 43, 20));
    // 200: w0 = 149, h0 = int(84.43 - 20) = 64, under 65 less 20.
    const UstThumbGeometry narrow = ListGeometry(200, WIDE_FRAME);
    EXPECT_TRUE(narrow.bNarrow);
    EXPECT_FALSE(narrow.bTiles);
    EXPECT_EQ(narrow.ImageRect(0), QRect(30, 7, 165, 93));
    EXPECT_EQ(narrow.nPitch, 100);
    // The edge: 237 gives h0 - 20 = 65, 236 gives 64.
    EXPECT_FALSE(ListGeometry(237, WIDE_FRAME).bNarrow);
    EXPECT_TRUE(ListGeometry(236, WIDE_FRAME).bNarrow);
    // A 640-wide frame's thumbnails are 4:3.
    EXPECT_EQ(ListGeometry(251, SD_FRAME).ImageRect(0), QRect(46, 7, 200, 150));
    // Nothing left of the client still gives a pixel, never a negative size.
    const UstThumbGeometry none = ListGeometry(0, WIDE_FRAME);
    EXPECT_GE(none.nImageWidth, 1);
    EXPECT_GE(none.nImageHeight, 1);
}

TEST(ThumbGeometry, HitsOfPagesTilesGapsAndTheNewPageRow) {
    const UstThumbGeometry g = ListGeometry(260, WIDE_FRAME);
    int index = -2;
    EXPECT_EQ(g.HitTest({100, 50}, 3, &index), THUMB_HIT_PAGE);
    EXPECT_EQ(index, 0);
    EXPECT_EQ(g.HitTest({10, 32}, 3, &index), THUMB_HIT_IN_EFFECT);
    EXPECT_EQ(g.HitTest({10, 100}, 3, &index), THUMB_HIT_OUT_EFFECT);
    EXPECT_EQ(g.HitTest({40, 80}, 3, &index), THUMB_HIT_PAGE);  // the margin between
    EXPECT_EQ(g.HitTest({100, 3}, 3, &index), THUMB_HIT_NOTHING);
    EXPECT_EQ(index, -1);
    EXPECT_EQ(g.HitTest({100, 128}, 3, &index), THUMB_HIT_NOTHING);  // the gap under row 0
    EXPECT_EQ(g.HitTest({100, 132}, 3, &index), THUMB_HIT_PAGE);
    EXPECT_EQ(index, 1);
    EXPECT_EQ(g.HitTest({100, 400}, 3, &index), THUMB_HIT_NEW_PAGE);
    EXPECT_EQ(index, 3);
    EXPECT_EQ(g.HitTest({10, 400}, 3, &index), THUMB_HIT_NOTHING);  // no tiles on it
    EXPECT_EQ(g.HitTest({100, 520}, 3, &index), THUMB_HIT_NOTHING);
    // A narrow column has no tiles: the same point is on the page.
    const UstThumbGeometry narrow = ListGeometry(200, WIDE_FRAME);
    EXPECT_EQ(narrow.HitTest({10, 32}, 3, &index), THUMB_HIT_PAGE);
    // An empty project has only the new page.
    EXPECT_EQ(g.HitTest({100, 50}, 0, &index), THUMB_HIT_NEW_PAGE);
    EXPECT_EQ(g.ContentHeight(0), 125);
    EXPECT_EQ(g.ContentHeight(3), 500);
}

TEST(ThumbGeometry, OnlyTheRowsOfTheVisibleBandAreVisited) {
    const UstThumbGeometry g = ListGeometry(260, WIDE_FRAME);
    // Rows 2 to 4 (tops 257, 382, 507) touch the band 300 to 600.
    EXPECT_EQ(g.FirstCellIn(300), 2);
    EXPECT_EQ(g.LastCellIn(600, 1000), 4);
    EXPECT_EQ(g.FirstCellIn(0), 0);
    EXPECT_EQ(g.LastCellIn(600, 3), 3);  // the new page row is the last
    EXPECT_EQ(g.FirstCellIn(124'000), 991);
    EXPECT_EQ(g.LastCellIn(125'000, 1000), 999);
}

TEST(ThumbGeometry, DropGapsTakeTheNearerSideOfARowOrACell) {
    const UstThumbGeometry g = ListGeometry(260, WIDE_FRAME);
    EXPECT_EQ(g.DropGap({100, 69}, 5), 0);  // upper half of row 0
    EXPECT_EQ(g.DropGap({100, 70}, 5), 1);
    EXPECT_EQ(g.DropGap({100, -40}, 5), 0);
    EXPECT_EQ(g.DropGap({100, 5000}, 5), 5);
    // A grid of 4 columns of 300 (46 + 240 + 14), rows of 180 + 34 + 7.
    const UstThumbGeometry grid = GridGeometry(1200, SD_FRAME, 240);
    EXPECT_EQ(grid.nColumns, 4);
    EXPECT_EQ(grid.nPitch, 221);
    EXPECT_EQ(grid.ImageRect(5), QRect(346, 228, 240, 180));
    EXPECT_EQ(grid.CaptionRect(5), QRect(346, 408, 240, 34));
    int index = -1;
    EXPECT_EQ(grid.HitTest({350, 230}, 9, &index), THUMB_HIT_PAGE);
    EXPECT_EQ(index, 5);
    EXPECT_EQ(grid.HitTest({1250, 230}, 9, &index), THUMB_HIT_NOTHING);  // past the columns
    EXPECT_EQ(grid.DropGap({420, 300}, 9), 5);                           // left half of cell 5
    EXPECT_EQ(grid.DropGap({460, 300}, 9), 6);                           // right half
    EXPECT_EQ(grid.DropGap({1190, 300}, 9), 8);  // after the row's last cell
    EXPECT_EQ(grid.ContentHeight(7), 442);       // 8 cells, 2 rows
    EXPECT_EQ(GridGeometry(100, SD_FRAME, 240).nColumns, 1);
}

}  // namespace
}  // namespace orv
