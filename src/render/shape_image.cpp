#include "render/shape_image.h"

#include "render/layers.h"
#include "render/shape_path.h"

namespace orv {

void RenderShapeImage(ObjectImage& out, int kind, int left, int top, int right, int bottom,
                      const UstEffect& effect, const UstAttr& attr, float cx, float cy,
                      int rotation, float xScale, float yScale, QPainter* target) {
    out.Reset();
    const int64_t w = int64_t{right} - left, h = int64_t{bottom} - top;
    if (kind < 0 || kind >= SHAPE_KIND_COUNT || w <= 0 || h <= 0 || w * h > MAX_SHAPE_PIXELS)
        return;
    LayerRects rc;
    ComputeLayerRects(left, top, static_cast<int>(w), static_cast<int>(h), effect, xScale, yScale,
                      true, rc);
    if (int64_t{rc.canvasWidth} * rc.canvasHeight > MAX_SHAPE_PIXELS) return;
    QPainterPath path;
    BuildShapePath(rc.rcFace.left, rc.rcFace.top, rc.rcFace.right, rc.rcFace.bottom, path, kind, cx,
                   cy);
    UstScratchSet scratch;
    scratch.Prepare(rc.canvasWidth, rc.canvasHeight);
    // The path goes to the brushes, so that a path gradient follows the figure.
    MakeLayerBrushes(scratch, attr.fill[UstAttr::BODY], attr, rc, &path, xScale, yScale,
                     effect.nShadowType);
    RenderLayersOnCanvas(rc, scratch, path, effect.nShadowType, out);
    const UstRect& s = rc.rcStroke;
    if (rotation % 360 != 0) out.Turn((s.left + s.right) / 2, (s.top + s.bottom) / 2, rotation);
    if (target && out.width > 0 && out.height > 0)
        target->drawImage(QPoint(out.x, out.y), out.Wrap());
}

}  // namespace orv
