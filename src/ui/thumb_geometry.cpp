#include "ui/thumb_geometry.h"

#include <algorithm>

namespace orv {

namespace {

constexpr int ROW_GAP = 7;
constexpr int TILE = 32;
constexpr int TILE_X = 5;
constexpr int TILE_BELOW_TOP = 20;
constexpr int NUMBER_HEIGHT = 20;
constexpr int WIDE_LEFT = 46, NARROW_LEFT = 30;
constexpr int WIDE_TRIM = 51, NARROW_TRIM = 35;
constexpr int NARROW_BELOW = 65;
constexpr int GRID_RIGHT_GAP = 14;
constexpr int GRID_CAPTION = 34;

int FloorDiv(int a, int b) {
    return a >= 0 ? a / b : -((-a + b - 1) / b);
}

}  // namespace

QRect UstThumbGeometry::ImageRect(int cell) const {
    return {CellLeft(cell) + nLeft, RowTop(cell), nImageWidth, nImageHeight};
}

QRect UstThumbGeometry::NumberRect(int cell) const {
    return {CellLeft(cell), RowTop(cell), std::max(1, nLeft - 3), NUMBER_HEIGHT};
}

QRect UstThumbGeometry::CaptionRect(int cell) const {
    return {CellLeft(cell) + nLeft, RowTop(cell) + nImageHeight, nImageWidth, nCaption};
}

QRect UstThumbGeometry::EffectTile(int cell, int side) const {
    const int top = side == 0 ? RowTop(cell) + TILE_BELOW_TOP : RowTop(cell) + nImageHeight - TILE;
    return {CellLeft(cell) + TILE_X, top, TILE, TILE};
}

int UstThumbGeometry::ContentHeight(int pages) const {
    const int rows = (std::max(0, pages) + 1 + nColumns - 1) / nColumns;
    return nPitch * rows;
}

int UstThumbGeometry::FirstCellIn(int top) const {
    return std::max(0, FloorDiv(top - nTop, nPitch)) * nColumns;
}

int UstThumbGeometry::LastCellIn(int bottom, int pages) const {
    const int row = std::max(0, FloorDiv(bottom - nTop, nPitch));
    return std::min(std::max(0, pages), (row + 1) * nColumns - 1);
}

int UstThumbGeometry::HitTest(QPoint at, int pages, int* outIndex) const {
    if (outIndex) *outIndex = -1;
    if (at.x() < 0 || at.y() < nTop) return THUMB_HIT_NOTHING;
    const int column = at.x() / std::max(1, nCellWidth);
    const int row = (at.y() - nTop) / nPitch;
    const int cell = row * nColumns + column;
    if (column >= nColumns || cell > pages || at.y() - RowTop(cell) >= nImageHeight)
        return THUMB_HIT_NOTHING;
    if (outIndex) *outIndex = cell;
    if (cell == pages) return ImageRect(cell).contains(at) ? THUMB_HIT_NEW_PAGE : THUMB_HIT_NOTHING;
    if (bTiles && EffectTile(cell, 0).contains(at)) return THUMB_HIT_IN_EFFECT;
    if (bTiles && EffectTile(cell, 1).contains(at)) return THUMB_HIT_OUT_EFFECT;
    return THUMB_HIT_PAGE;
}

int UstThumbGeometry::DropGap(QPoint at, int pages) const {
    const int row = std::max(0, FloorDiv(at.y() - nTop + (nColumns == 1 ? nPitch / 2 : 0), nPitch));
    int gap = row * nColumns;
    if (nColumns > 1) {
        const int x = std::max(0, at.x()) + nCellWidth / 2;
        gap += std::min(nColumns, x / std::max(1, nCellWidth));
    }
    return std::clamp(gap, 0, std::max(0, pages));
}

UstThumbGeometry ListGeometry(int clientWidth, float aspect) {
    UstThumbGeometry g;
    const int w0 = clientWidth - WIDE_TRIM;
    const int h0 = static_cast<int>(static_cast<float>(w0) * aspect - 20.0f);
    g.bNarrow = h0 - 20 < NARROW_BELOW;
    g.bTiles = !g.bNarrow;
    g.nLeft = g.bNarrow ? NARROW_LEFT : WIDE_LEFT;
    g.nImageWidth = std::max(1, clientWidth - (g.bNarrow ? NARROW_TRIM : WIDE_TRIM));
    g.nImageHeight = std::max(1, static_cast<int>(static_cast<float>(g.nImageWidth) * aspect));
    g.nCellWidth = std::max(1, clientWidth);
    g.nPitch = g.nImageHeight + ROW_GAP;
    return g;
}

UstThumbGeometry GridGeometry(int clientWidth, float aspect, int imageWidth) {
    UstThumbGeometry g;
    g.nImageWidth = std::max(1, imageWidth);
    g.nImageHeight = std::max(1, static_cast<int>(static_cast<float>(g.nImageWidth) * aspect));
    g.nCellWidth = WIDE_LEFT + g.nImageWidth + GRID_RIGHT_GAP;
    g.nColumns = std::max(1, clientWidth / g.nCellWidth);
    g.nCaption = GRID_CAPTION;
    g.nPitch = g.nImageHeight + g.nCaption + ROW_GAP;
    return g;
}

}  // namespace orv
