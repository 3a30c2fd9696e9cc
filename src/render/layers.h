#pragma once
// What gives a title its look: a path becomes a shadow, an outline, an edge
// and a face, each painted by its fill, the first three possibly soft.

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <vector>

#include "render/attr_records.h"
#include "render/fill_brush.h"
#include "render/geometry.h"
#include "render/object_image.h"

namespace orv {

struct LayerRects {
    int32_t shadowDx = 0, shadowDy = 0;
    int32_t edge = 0, outline = 0, stroke = 0;
    int32_t edgeSoft = 0, strokeSoft = 0, shadowSoft = 0;
    int32_t shadowWidth = 0, shadowHeight = 0;
    int32_t strokeWidth = 0, strokeHeight = 0;
    int32_t shadowX = 0, shadowY = 0;
    int32_t strokeX = 0, strokeY = 0;
    UstRect rcShadow, rcStroke, rcInner, rcFace, rcUnion;
    int32_t canvasX = 0, canvasY = 0, canvasW = 0, canvasH = 0;
    int32_t canvasWidth = 0, canvasHeight = 0;
    int32_t originX = 0, originY = 0;
    UstRect rcAbsStroke;
};

enum EShadowType { SHADOW_DROP = 0, SHADOW_DRAG = 1 };

// Sizes of the bands and boxes for a path's box at (x, y, width, height).
// With shift, the rectangles become coordinates on the layer blocks.
void ComputeLayerRects(int x, int y, int width, int height, const UstEffect& effect, float xScale,
                       float yScale, bool shift, LayerRects& out);

// Two work blocks of at least the canvas size, and the four brushes.
struct UstScratchSet {
    std::vector<uint32_t> blockA, blockB;
    QImage imageA, imageB;
    UstBrushSlot face, edge, outline, shadow;
    // Grows the blocks when needed and wraps both at this size, cleared.
    void Prepare(int width, int height);
    uint32_t* A() { return blockA.data(); }
    uint32_t* B() { return blockB.data(); }
};

// Makes the brushes of the layers the rectangles ask for: the face over the
// face, the edge over the inner band, the outline over the stroke, the
// shadow over the union for a "Drag" shadow and its own box for a "Drop".
void MakeLayerBrushes(UstScratchSet& scratch, const UstFill& face, const UstAttr& attr,
                      const LayerRects& rects, const QPainterPath* path, float xScale, float yScale,
                      int shadowType);

// A layer block with the graphics the passes draw through.
struct UstLayerTarget {
    uint32_t* bits;
    QPainter& graphics;
};

void RenderFace(UstScratchSet& scratch, const QPainterPath& path, QPainter& graphics);
void RenderEdge(const LayerRects& rects, UstScratchSet& scratch, const QPainterPath& path,
                UstLayerTarget layer);
void RenderOutline(const LayerRects& rects, UstScratchSet& scratch, const QPainterPath& path,
                   UstLayerTarget layer);
void RenderEdgeAndOutline(const LayerRects& rects, UstScratchSet& scratch, const QPainterPath& path,
                          UstLayerTarget layer);
void RenderShadow(const LayerRects& rects, UstScratchSet& scratch, const QPainterPath& path,
                  UstLayerTarget layer, int shadowType);

// A new canvas of the rectangles' size at their place, with the shadow,
// then the edge and outline, then the face rendered straight onto it.
void RenderLayersOnCanvas(const LayerRects& rects, UstScratchSet& scratch, const QPainterPath& path,
                          int shadowType, ObjectImage& out);

// One 1-pixel-high rectangle per run of non-zero pixels in each row.
using UstRegion = std::vector<UstRect>;
UstRegion RegionFromMask(const uint32_t* block, int width, int height);
// The pixels whose centres lie inside the path: no antialiasing.
UstRegion RegionFromPath(const QPainterPath& path, int width, int height);
void ClearRegion(uint32_t* block, int width, int height, const UstRegion& region);

// The integer line between two points, in an order that does not depend on
// which end came first.
std::vector<UstPoint> TracePixelLine(int x0, int y0, int x1, int y1);

}  // namespace orv
