#pragma once
// Where the page thumbnails stand: one column in the pane, a grid in the
// overview. Cell i is page i; the cell after the last page stands for a new
// page. All positions are in content coordinates, before scrolling.

#include <QPoint>
#include <QRect>

namespace orv {

enum EThumbHit : int {
    THUMB_HIT_NOTHING = 0,
    THUMB_HIT_PAGE = 1,
    THUMB_HIT_NEW_PAGE = 2,
    THUMB_HIT_IN_EFFECT = 3,
    THUMB_HIT_OUT_EFFECT = 4
};

struct UstThumbGeometry {
    int nColumns = 1;
    int nCellWidth = 0;  // column pitch
    int nLeft = 46;      // the image's left edge inside its cell
    int nImageWidth = 1;
    int nImageHeight = 1;
    int nTop = 7;      // the first row's top
    int nPitch = 8;    // row pitch
    int nCaption = 0;  // text lines under the image
    bool bNarrow = false;
    bool bTiles = true;  // the in and out effect tiles

    int RowTop(int cell) const { return nTop + cell / nColumns * nPitch; }
    int CellLeft(int cell) const { return cell % nColumns * nCellWidth; }
    QRect ImageRect(int cell) const;
    QRect NumberRect(int cell) const;
    QRect CaptionRect(int cell) const;
    // side 0 the in-effect tile, 1 the out-effect tile.
    QRect EffectTile(int cell, int side) const;
    // The height of all rows of `pages` pages and the new page.
    int ContentHeight(int pages) const;
    // The first and last cell that a band of content rows touches.
    int FirstCellIn(int top) const;
    int LastCellIn(int bottom, int pages) const;
    // What lies at a content point; outIndex is the page (or the page
    // count for the new page).
    int HitTest(QPoint at, int pages, int* outIndex) const;
    // The gap before which pages dropped at the point go: 0 to pages.
    int DropGap(QPoint at, int pages) const;
};

// The pane's column from its client width W: a wide list keeps 46 pixels on
// the left for the number and the effect tiles, a narrow one 30 and no tiles.
// aspect: thumbnail height / width.
UstThumbGeometry ListGeometry(int clientWidth, float aspect);
// The overview's grid of larger thumbnails, with a caption under each.
UstThumbGeometry GridGeometry(int clientWidth, float aspect, int imageWidth);

}  // namespace orv
