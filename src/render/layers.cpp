#include "render/layers.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <cstdlib>

#include "render/pixels.h"
#include "render/render_graphics.h"

namespace orv {

namespace {

int Scale(int v, float s) {
    return RoundToInt(static_cast<float>(v) * s);
}

int Band(int v, float s) {
    if (v < 1) return 0;
    const int w = Scale(v + 1, s);
    return w >= 2 ? w : 1;
}

int Soft(int v, float s) {
    if (v == 0) return 0;
    const int r = Scale(v, s);
    return 3 * (r >= 2 ? r : 1);
}

UstRect Deflate(const UstRect& r, int d) {
    return {r.left + d, r.top + d, r.right - d, r.bottom - d};
}

// The records do not hold their sizes to the controls' ranges; these are
// the ranges, so that a damaged record cannot ask for an absurd canvas.
UstEffect Bounded(const UstEffect& e) {
    UstEffect b = e;
    b.nEdge = std::clamp(+e.nEdge, 0, 30);
    b.nOutline = std::clamp(+e.nOutline, 0, 30);
    b.nEdgeSoft = std::clamp(+e.nEdgeSoft, 0, 20);
    b.nShadowX = std::clamp(+e.nShadowX, -50, 50);
    b.nShadowY = std::clamp(+e.nShadowY, -50, 50);
    b.nShadowSoft = std::clamp(+e.nShadowSoft, 0, 20);
    return b;
}

QPen Pen(const QBrush& brush, double width) {
    return QPen(brush, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
}

QPainterPath Widen(const QPainterPath& path, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setCapStyle(Qt::FlatCap);
    stroker.setCurveThreshold(0.25);
    return stroker.createStroke(path);
}

// A path widened by a pen and then drawn with the same pen: every point
// within one pen width of the path. Filling the path widened by twice the
// width covers the same band, and costs one widening and one fill instead of
// stroking the many short segments of a widened outline.
void DrawWidened(QPainter& graphics, const QPainterPath& path, double width, const QBrush& brush) {
    graphics.fillPath(Widen(path, 2.0 * width), brush);
}

const QBrush& White() {
    static const QBrush white(QColor::fromRgba(0xFFFFFFFFu));
    return white;
}

// A painter of render quality on a wrapped block.
std::unique_ptr<QPainter> Graphics(QImage& image) {
    return CreateRenderGraphics(image, true);
}

int Width(const QImage& image) {
    return image.width();
}
int Height(const QImage& image) {
    return image.height();
}

void ClearInside(uint32_t* bits, const QImage& image, const QPainterPath& path) {
    ClearRegion(bits, Width(image), Height(image),
                RegionFromPath(path, Width(image), Height(image)));
}

// Edge steps 2 to 7 on block A: band, softness, the inside removed, a thin
// rim on the boundary, and what remains strictly inside cleared by the mask.
void EdgeBand(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path, bool soft) {
    {
        auto g = Graphics(s.imageA);
        DrawWidened(*g, path, rc.edge, s.edge.brush);
    }
    if (soft) BoxBlurRect(s.A(), rc.rcStroke, rc.canvasWidth, rc.strokeSoft / 3);
    ClearInside(s.A(), s.imageA, path);
    {
        auto g = Graphics(s.imageA);
        g->strokePath(path, Pen(s.edge.brush, 1.0));
    }
    ClearPixels(s.B(), Width(s.imageB), Height(s.imageB));
    {
        auto g = Graphics(s.imageB);
        g->fillPath(path, White());
    }
    ClearMaskedInterior(s.A(), s.B(), Width(s.imageA), Height(s.imageA));
}

// Outline steps 1 to 4 on block A: the band of edge and outline, softness,
// then only what lies beyond the edge is kept.
void OutlineBand(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path) {
    {
        auto g = Graphics(s.imageA);
        DrawWidened(*g, path, rc.stroke, s.outline.brush);
    }
    if (rc.strokeSoft) BoxBlurRect(s.A(), rc.rcStroke, rc.canvasWidth, rc.strokeSoft / 3);
    ClearPixels(s.B(), Width(s.imageB), Height(s.imageB));
    if (rc.edge < 2) {
        ClearInside(s.A(), s.imageA, path);
        {
            auto g = Graphics(s.imageB);
            g->fillPath(path, White());
        }
        {
            auto g = Graphics(s.imageA);
            g->strokePath(path, Pen(s.outline.brush, 1.0));
        }
        ClearMaskedInterior(s.A(), s.B(), Width(s.imageA), Height(s.imageA));
        return;
    }
    {
        auto g = Graphics(s.imageB);
        g->strokePath(path, Pen(White(), rc.edge * 2.0 - 2.0));
        g->fillPath(path, White());
    }
    ClearRegion(s.A(), Width(s.imageA), Height(s.imageA),
                RegionFromMask(s.B(), Width(s.imageB), Height(s.imageB)));
}

void DropShadow(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path,
                UstLayerTarget layer) {
    const UstRect r = Deflate(Deflate(rc.rcShadow, rc.shadowSoft), rc.stroke);
    const QPointF offset(r.left - rc.rcFace.left, r.top - rc.rcFace.top);
    const QPainterPath clone = path.translated(offset);
    if (rc.stroke == 0) {
        layer.graphics.fillPath(clone, s.shadow.brush);
    } else {
        ClearPixels(s.A(), Width(s.imageA), Height(s.imageA));
        DrawWidened(layer.graphics, clone, rc.stroke, s.shadow.brush);
        {
            auto g = Graphics(s.imageA);
            g->fillPath(clone, s.shadow.brush);
        }
        const uint32_t* second = nullptr;
        if (rc.stroke >= 2) {
            ClearPixels(s.B(), Width(s.imageB), Height(s.imageB));
            auto g = Graphics(s.imageB);
            g->strokePath(clone, Pen(s.shadow.brush, 1.0));
            second = s.B();
        }
        MergePixels(layer.bits, s.A(), second, rc.canvasWidth, rc.canvasHeight);
    }
    if (rc.shadowSoft) BoxBlurRect(layer.bits, rc.rcShadow, rc.canvasWidth, rc.shadowSoft / 3);
}

void DragShadow(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path,
                UstLayerTarget layer) {
    const UstRect r = Deflate(Deflate(rc.rcShadow, rc.shadowSoft), rc.stroke);
    const QPointF offset(r.left - rc.rcFace.left, r.top - rc.rcFace.top);
    const QPointF maskOffset(std::min(offset.x(), 0.0), std::min(offset.y(), 0.0));
    const int mw = rc.shadowWidth, mh = rc.shadowHeight;
    QImage mask(reinterpret_cast<uchar*>(s.A()), mw, mh, mw * 4,
                QImage::Format_ARGB32_Premultiplied);
    const QPainterPath clone = path.translated(maskOffset);
    const UstRect from = Deflate(rc.rcShadow, rc.shadowSoft),
                  to = Deflate(rc.rcStroke, rc.shadowSoft);
    const std::vector<UstPoint> line = TracePixelLine(from.left, from.top, to.left, to.top);
    ClearPixels(layer.bits, rc.canvasWidth, rc.canvasHeight);
    ClearPixels(s.A(), mw, mh);
    {
        auto g = Graphics(mask);
        g->fillPath(clone, White());
        if (rc.stroke > 0) DrawWidened(*g, clone, rc.stroke, White());
    }
    if (line.size() >= 2) {
        const QPainterPath far = path.translated(offset);
        layer.graphics.fillPath(far, s.shadow.brush);
        if (rc.stroke > 0) DrawWidened(layer.graphics, far, rc.stroke, s.shadow.brush);
    }
    if (line.size() > 2) {
        ClearPixels(s.B(), Width(s.imageB), Height(s.imageB));
        {
            auto g = Graphics(s.imageB);
            g->fillRect(QRect(0, 0, rc.canvasWidth, rc.canvasHeight), s.shadow.brush);
        }
        for (size_t i = 1; i + 1 < line.size(); ++i)
            MaskStampPixels(layer.bits, s.B(), rc.canvasWidth, rc.canvasHeight, s.A(), mw, mh,
                            line[i].x, line[i].y);
    }
}

}  // namespace

void ComputeLayerRects(int x, int y, int width, int height, const UstEffect& effect, float xScale,
                       float yScale, bool shift, LayerRects& o) {
    const UstEffect e = Bounded(effect);
    o = LayerRects{};
    o.shadowDx = Scale(e.nShadowX, xScale);
    if (o.shadowDx == 0 && e.nShadowX != 0) o.shadowDx = e.nShadowX;
    o.shadowDy = Scale(e.nShadowY, yScale);
    if (o.shadowDy == 0 && e.nShadowY != 0) o.shadowDy = e.nShadowY;
    o.edge = Band(e.nEdge, xScale);
    o.outline = Band(e.nOutline, xScale);
    o.stroke = o.edge + o.outline;
    // A "Drag" shadow with a horizontal offset turns every softness off.
    if (!(o.shadowDx != 0 && e.nShadowType == SHADOW_DRAG)) {
        o.edgeSoft = o.edge > 0 && o.outline == 0 ? Soft(e.nEdgeSoft, xScale) : 0;
        o.strokeSoft = o.edge > 0 || o.outline > 0 ? Soft(e.nEdgeSoft, xScale) : 0;
        o.shadowSoft = o.shadowDx != 0 || o.shadowDy != 0 ? Soft(e.nShadowSoft, xScale) : 0;
    }
    const int S = o.stroke + o.shadowSoft, T = o.stroke + o.strokeSoft;
    o.shadowWidth = width + 2 * S;
    o.shadowHeight = height + 2 * S;
    o.strokeWidth = width + 2 * T;
    o.strokeHeight = height + 2 * T;
    o.shadowX = x + o.shadowDx - S;
    o.shadowY = y + o.shadowDy - S;
    o.strokeX = x - T;
    o.strokeY = y - T;
    o.rcShadow = {o.shadowX, o.shadowY, o.shadowX + o.shadowWidth, o.shadowY + o.shadowHeight};
    o.rcStroke = {o.strokeX, o.strokeY, o.strokeX + o.strokeWidth, o.strokeY + o.strokeHeight};
    o.rcFace = {x, y, x + width, y + height};
    o.rcUnion = {std::min(o.rcShadow.left, o.rcStroke.left),
                 std::min(o.rcShadow.top, o.rcStroke.top),
                 std::max(o.rcShadow.right, o.rcStroke.right),
                 std::max(o.rcShadow.bottom, o.rcStroke.bottom)};
    o.canvasX = o.rcUnion.left;
    o.canvasY = o.rcUnion.top;
    o.canvasW = o.canvasWidth = o.rcUnion.Width();
    o.canvasH = o.canvasHeight = o.rcUnion.Height();
    o.originX = std::min(o.rcShadow.left, o.rcStroke.left);
    o.originY = std::min(o.rcShadow.top, o.rcStroke.top);
    o.rcAbsStroke = o.rcStroke;
    if (shift) {
        o.rcUnion = Offset(o.rcUnion, -o.originX, -o.originY);
        o.rcShadow = Offset(o.rcShadow, -o.originX, -o.originY);
        o.rcStroke = Offset(o.rcStroke, -o.originX, -o.originY);
        o.rcFace = Offset(o.rcFace, -o.originX, -o.originY);
    }
    o.rcInner = Deflate(o.rcStroke, o.outline);
}

void UstScratchSet::Prepare(int width, int height) {
    const size_t n =
        static_cast<size_t>(std::max(width, 1)) * static_cast<size_t>(std::max(height, 1));
    if (blockA.size() < n) blockA.resize(n);
    if (blockB.size() < n) blockB.resize(n);
    std::fill_n(blockA.begin(), n, 0u);
    std::fill_n(blockB.begin(), n, 0u);
    imageA = QImage(reinterpret_cast<uchar*>(blockA.data()), width, height, width * 4,
                    QImage::Format_ARGB32_Premultiplied);
    imageB = QImage(reinterpret_cast<uchar*>(blockB.data()), width, height, width * 4,
                    QImage::Format_ARGB32_Premultiplied);
}

void MakeLayerBrushes(UstScratchSet& s, const UstFill& face, const UstAttr& attr,
                      const LayerRects& rc, const QPainterPath* path, float xScale, float yScale,
                      int shadowType) {
    CreateFillBrush(s.face, face, rc.rcFace, path, xScale, yScale);
    if (rc.edge > 0)
        CreateFillBrush(s.edge, attr.fill[UstAttr::EDGE], rc.rcInner, path, xScale, yScale);
    if (rc.outline > 0)
        CreateFillBrush(s.outline, attr.fill[UstAttr::OUTLINE], rc.rcStroke, path, xScale, yScale);
    if (rc.shadowDx != 0 || rc.shadowDy != 0)
        CreateFillBrush(s.shadow, attr.fill[UstAttr::SHADOW],
                        shadowType == SHADOW_DRAG ? rc.rcUnion : rc.rcShadow, path, xScale, yScale);
}

void RenderFace(UstScratchSet& scratch, const QPainterPath& path, QPainter& graphics) {
    graphics.fillPath(path, scratch.face.brush);
}

void RenderEdge(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path,
                UstLayerTarget layer) {
    if (rc.edge <= 0) return;
    ClearPixels(s.A(), Width(s.imageA), Height(s.imageA));
    EdgeBand(rc, s, path, rc.edgeSoft != 0);
    layer.graphics.drawImage(0, 0, s.imageA);
}

void RenderOutline(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path,
                   UstLayerTarget layer) {
    if (rc.outline <= 0) return;
    ClearPixels(s.A(), Width(s.imageA), Height(s.imageA));
    OutlineBand(rc, s, path);
    layer.graphics.drawImage(0, 0, s.imageA);
}

void RenderEdgeAndOutline(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path,
                          UstLayerTarget layer) {
    if (rc.stroke == 0) return;
    ClearPixels(s.A(), Width(s.imageA), Height(s.imageA));
    if (rc.outline >= 1) OutlineBand(rc, s, path);
    if (rc.edge > 0) EdgeBand(rc, s, path, rc.edgeSoft != 0);
    layer.graphics.drawImage(0, 0, s.imageA);
}

void RenderShadow(const LayerRects& rc, UstScratchSet& s, const QPainterPath& path,
                  UstLayerTarget layer, int shadowType) {
    if (rc.shadowDx == 0 && rc.shadowDy == 0) return;
    if (shadowType == SHADOW_DRAG)
        DragShadow(rc, s, path, layer);
    else
        DropShadow(rc, s, path, layer);
    // The shadow never shows through the inside of the path.
    ClearRegion(layer.bits, rc.canvasWidth, rc.canvasHeight,
                RegionFromPath(path, rc.canvasWidth, rc.canvasHeight));
}

void RenderLayersOnCanvas(const LayerRects& rc, UstScratchSet& scratch, const QPainterPath& path,
                          int shadowType, ObjectImage& out) {
    out.Allocate(rc.canvasWidth, rc.canvasHeight);
    out.x = rc.canvasX, out.y = rc.canvasY;
    QImage canvas = out.Wrap();
    if (canvas.isNull()) return;
    const auto graphics = CreateRenderGraphics(canvas, true);
    const UstLayerTarget layer{out.pBlock.get(), *graphics};
    RenderShadow(rc, scratch, path, layer, shadowType);
    RenderEdgeAndOutline(rc, scratch, path, layer);
    RenderFace(scratch, path, *graphics);
}

UstRegion RegionFromMask(const uint32_t* block, int width, int height) {
    UstRegion region;
    if (!block || width <= 0 || height <= 0) return region;
    for (int y = 0; y < height; ++y) {
        const uint32_t* row = block + static_cast<size_t>(y) * width;
        for (int x = 0; x < width;) {
            if (row[x] == 0) {
                ++x;
                continue;
            }
            const int start = x;
            while (x < width && row[x] != 0)
                ++x;
            region.push_back({start, y, x, y + 1});
        }
    }
    return region;
}

UstRegion RegionFromPath(const QPainterPath& path, int width, int height) {
    if (width <= 0 || height <= 0) return {};
    std::vector<uint32_t> mask(static_cast<size_t>(width) * height, 0);
    QImage image(reinterpret_cast<uchar*>(mask.data()), width, height, width * 4,
                 QImage::Format_ARGB32_Premultiplied);
    {
        QPainter g(&image);
        g.setRenderHint(QPainter::Antialiasing, false);
        g.fillPath(path, White());
    }
    return RegionFromMask(mask.data(), width, height);
}

void ClearRegion(uint32_t* block, int width, int height, const UstRegion& region) {
    if (!block) return;
    for (const UstRect& r : region) {
        if (r.top < 0 || r.top >= height) continue;
        const int l = std::max(r.left, 0), rr = std::min(r.right, width);
        if (rr > l)
            std::fill(block + static_cast<size_t>(r.top) * width + l,
                      block + static_cast<size_t>(r.top) * width + rr, 0u);
    }
}

std::vector<UstPoint> TracePixelLine(int x0, int y0, int x1, int y1) {
    std::vector<UstPoint> points;
    const int dx = std::abs(x1 - x0), dy = std::abs(y1 - y0);
    points.reserve(static_cast<size_t>(2 * (std::max(dx, dy) + 1)));
    if (x0 == x1) {
        for (int y = std::min(y0, y1); y <= std::max(y0, y1); ++y)
            points.push_back({x0, y});
        return points;
    }
    if (y0 == y1) {
        for (int x = std::min(x0, x1); x <= std::max(x0, x1); ++x)
            points.push_back({x, y0});
        return points;
    }
    const bool alongY = dx < dy;
    if ((alongY && y0 > y1) || (!alongY && x0 > x1)) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const int a = alongY ? dx : dy, b = alongY ? dy : dx;
    const int minorStep = alongY ? (x1 > x0 ? 1 : -1) : (y1 > y0 ? 1 : -1);
    int error = 2 * a - b;
    int major = alongY ? y0 : x0, minor = alongY ? x0 : y0;
    for (int i = 0; i <= b; ++i, ++major) {
        points.push_back(alongY ? UstPoint{minor, major} : UstPoint{major, minor});
        if (error >= 1) {
            error += 2 * (a - b);
            minor += minorStep;
        } else {
            error += 2 * a;
        }
    }
    return points;
}

}  // namespace orv
