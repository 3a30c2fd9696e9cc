#include "render/text_image.h"

#include <QPainter>

#include <algorithm>
#include <string>
#include <unordered_map>

#include "render/glyph_font.h"
#include "render/pixels.h"
#include "render/render_graphics.h"
#include "render/text_measure.h"

namespace orv {

namespace {

constexpr UstFES::Layer STACKING[] = {UstFES::SHADOW, UstFES::OUTLINE, UstFES::EDGE, UstFES::FACE};

// The fields that decide a character's pixels when every paint is solid.
std::string ShareKey(const UstCharAttr& c) {
    std::string key;
    auto add = [&key](const void* p, size_t n) { key.append(static_cast<const char*>(p), n); };
    const uint32_t code = c.nChar, colour = c.clrFill;
    const int32_t size = c.font.nSize, width = c.metric.nWidth, slant = c.metric.nShear;
    add(&code, sizeof code);
    add(&c.font.nCharSet, 1);
    add(&c.font.nPitchFamily, 1);
    add(&size, sizeof size);
    add(&width, sizeof width);
    add(&slant, sizeof slant);
    add(&colour, sizeof colour);
    // The face up to its end only: what follows the terminator is noise.
    for (char16_t ch : c.font.szFace) {
        if (ch == 0) break;
        add(&ch, sizeof ch);
    }
    return key;
}

bool Drawn(const UstCharAttr& c) {
    return !IsBlankChar(c.nChar);
}

// One layer block of the record's size with a render-quality painter on it.
template <typename Draw>
void MakeLayer(UstFES& out, UstFES::Layer which, Draw draw) {
    UstLayerBlock block(new uint32_t[static_cast<size_t>(out.w) * out.h]());
    QImage image = WrapBlock(block.get(), out.w, out.h);
    {
        const auto graphics = CreateRenderGraphics(image, true);
        draw(UstLayerTarget{block.get(), *graphics});
    }
    out.pLayer[which] = std::move(block);
}

// What the first walk learns of a character still to be rendered.
struct UstPending {
    int index;
    LayerRects rects;
    UstLogFont font;
};

void Place(UstFES& rec, const LayerRects& rc) {
    rec.x = rc.canvasX, rec.y = rc.canvasY;
    rec.w = std::max(rc.canvasWidth, 1), rec.h = std::max(rc.canvasHeight, 1);
    rec.faceX = rc.rcFace.left + rc.originX, rec.faceY = rc.rcFace.top + rc.originY;
    rec.rcStroke = rc.rcAbsStroke;
}

void AddToExtent(UstTextExtent& e, const UstFES& rec) {
    const UstRect canvas{rec.x, rec.y, rec.x + rec.w, rec.y + rec.h};
    if (!e.any) {
        e.canvas = canvas, e.stroke = rec.rcStroke, e.any = true;
        return;
    }
    e.canvas = {std::min(e.canvas.left, canvas.left), std::min(e.canvas.top, canvas.top),
                std::max(e.canvas.right, canvas.right), std::max(e.canvas.bottom, canvas.bottom)};
    e.stroke = {std::min(e.stroke.left, rec.rcStroke.left),
                std::min(e.stroke.top, rec.rcStroke.top),
                std::max(e.stroke.right, rec.rcStroke.right),
                std::max(e.stroke.bottom, rec.rcStroke.bottom)};
}

// First walk: kept records move to where their characters now stand; the
// others are measured and wait for rendering.
std::vector<UstPending> FirstWalk(const UstCharAttr* chars, int count, std::vector<UstFES>& fes,
                                  const UstCharPos* pos, const UstEffect& effect, float xScale,
                                  float yScale, UstTextExtent& extent) {
    std::vector<UstPending> pending;
    for (int i = 0; i < count; ++i) {
        if (!Drawn(chars[i])) continue;
        const int fx = RoundToInt(pos[i].x), fy = RoundToInt(pos[i].y);
        UstFES& rec = fes[static_cast<size_t>(i)];
        if (rec.Rendered()) {
            rec.Move(fx - rec.faceX, fy - rec.faceY);
            AddToExtent(extent, rec);
            continue;
        }
        UstPending p{i, {}, {}};
        int w = 0, h = 0;
        MeasureCharScaled(chars[i], xScale, yScale, &w, &h, &p.font);
        ComputeLayerRects(fx, fy, w, h, effect, xScale, yScale, true, p.rects);
        UstFES placed;
        Place(placed, p.rects);
        AddToExtent(extent, placed);
        pending.push_back(p);
    }
    return pending;
}

UstFill FaceFill(const UstAttr& attr, const UstCharAttr& c) {
    UstFill face = attr.fill[UstAttr::BODY];
    if (face.nType == 0) face.clrSolid = c.clrFill;
    return face;
}

}  // namespace

void RenderCharLayers(UstFES& out, const UstCharAttr& c, const LayerRects& rc,
                      const UstLogFont& font, UstScratchSet& scratch, const UstEffect& effect) {
    out = UstFES{};
    Place(out, rc);
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    GlyphFont glyphFont;
    if (glyphFont.SetFont(font))
        glyphFont.AddGlyph(path, c.nChar, static_cast<float>(rc.rcFace.left),
                           static_cast<float>(rc.rcFace.top), c.metric.nShear);
    MakeLayer(out, UstFES::FACE, [&](UstLayerTarget t) { RenderFace(scratch, path, t.graphics); });
    if (rc.edge > 0)
        MakeLayer(out, UstFES::EDGE, [&](UstLayerTarget t) { RenderEdge(rc, scratch, path, t); });
    if (rc.outline > 0)
        MakeLayer(out, UstFES::OUTLINE,
                  [&](UstLayerTarget t) { RenderOutline(rc, scratch, path, t); });
    if (rc.shadowDx != 0 || rc.shadowDy != 0)
        MakeLayer(out, UstFES::SHADOW, [&](UstLayerTarget t) {
            RenderShadow(rc, scratch, path, t, effect.nShadowType);
        });
}

std::vector<int> BuildSharingTable(const UstCharAttr* chars, int count, const UstAttr& attr) {
    std::vector<int> table(static_cast<size_t>(std::max(count, 0)), 0);
    for (int f = 0; f < 4; ++f)
        if (attr.fill[f].nType != 0) return table;
    // The last earlier equal is the one the table names: a forward walk
    // that remembers the latest index per key finds it in one pass.
    std::unordered_map<std::string, int> latest;
    for (int i = 0; i < count; ++i) {
        if (!Drawn(chars[i])) continue;
        auto [it, fresh] = latest.try_emplace(ShareKey(chars[i]), i);
        if (!fresh) {
            table[static_cast<size_t>(i)] = it->second + 1;
            it->second = i;
        }
    }
    return table;
}

void FreeFESArray(std::vector<UstFES>& fes) {
    // Each block is freed by the last record that holds it.
    for (UstFES& rec : fes)
        rec = UstFES{};
}

int RenderTextLayers(const UstCharAttr* chars, int count, std::vector<UstFES>& fes,
                     const UstCharPos* pos, const UstEffect& effect, const UstAttr& attr,
                     float xScale, float yScale, UstTextExtent* extentOut) {
    if (!chars || count <= 0) return 0;
    if (fes.size() < static_cast<size_t>(count)) fes.resize(static_cast<size_t>(count));
    UstTextExtent extent;
    const std::vector<UstPending> pending =
        FirstWalk(chars, count, fes, pos, effect, xScale, yScale, extent);
    if (extentOut) *extentOut = extent;
    if (pending.empty()) return 0;
    const std::vector<int> table = BuildSharingTable(chars, count, attr);
    int maxW = 1, maxH = 1;
    for (const UstPending& p : pending)
        maxW = std::max(maxW, p.rects.canvasWidth), maxH = std::max(maxH, p.rects.canvasHeight);
    UstScratchSet scratch;
    scratch.Prepare(maxW, maxH);
    int rendered = 0;
    for (const UstPending& p : pending) {
        UstFES& rec = fes[static_cast<size_t>(p.index)];
        const int twin = table[static_cast<size_t>(p.index)] - 1;
        const UstFES* equal = twin >= 0 ? &fes[static_cast<size_t>(twin)] : nullptr;
        if (equal && equal->Rendered() && equal->w == std::max(p.rects.canvasWidth, 1) &&
            equal->h == std::max(p.rects.canvasHeight, 1)) {
            rec = *equal;
            Place(rec, p.rects);
            continue;
        }
        const UstCharAttr& c = chars[p.index];
        MakeLayerBrushes(scratch, FaceFill(attr, c), attr, p.rects, nullptr, xScale, yScale,
                         effect.nShadowType);
        scratch.Prepare(std::max(p.rects.canvasWidth, 1), std::max(p.rects.canvasHeight, 1));
        RenderCharLayers(rec, c, p.rects, p.font, scratch, effect);
        ++rendered;
    }
    return rendered;
}

void DrawTextLayers(const UstCharAttr* chars, int count, const std::vector<UstFES>& fes,
                    QPainter& graphics, QPoint shift, const QRect& visible) {
    const int n = std::min(count, static_cast<int>(fes.size()));
    for (const UstFES::Layer layer : STACKING)
        for (int i = 0; i < n; ++i) {
            const UstFES& rec = fes[static_cast<size_t>(i)];
            if (!Drawn(chars[i]) || !rec.pLayer[layer]) continue;
            const QRect at(rec.x + shift.x(), rec.y + shift.y(), rec.w, rec.h);
            if (!visible.intersects(at)) continue;
            const QImage block = WrapBlock(rec.pLayer[layer].get(), rec.w, rec.h);
            graphics.drawImage(at.topLeft(), block);
        }
}

void TurnTextImage(ObjectImage& image, const UstTextExtent& extent, int rotation) {
    if (rotation % 360 == 0 || !image.Made()) return;
    const UstRect s = Offset(extent.stroke, -image.x, -image.y);
    image.Turn((s.left + s.right) / 2, (s.top + s.bottom) / 2, rotation);
}

UstTextExtent TextExtent(const UstCharAttr* chars, int count, const std::vector<UstFES>& fes) {
    UstTextExtent extent;
    const int n = std::min(count, static_cast<int>(fes.size()));
    for (int i = 0; i < n; ++i)
        if (Drawn(chars[i]) && fes[static_cast<size_t>(i)].Rendered())
            AddToExtent(extent, fes[static_cast<size_t>(i)]);
    return extent;
}

void StackTextImage(const UstCharAttr* chars, int count, const std::vector<UstFES>& fes,
                    const UstTextExtent& extent, int rotation, ObjectImage& out) {
    out.Reset();
    if (!extent.any) {
        out.Allocate(0, 0);
        return;
    }
    out.Allocate(extent.canvas.Width(), extent.canvas.Height());
    out.x = extent.canvas.left, out.y = extent.canvas.top;
    QImage canvas = out.Wrap();
    {
        QPainter graphics(&canvas);
        DrawTextLayers(chars, count, fes, graphics, QPoint(-out.x, -out.y), canvas.rect());
    }
    TurnTextImage(out, extent, rotation);
}

int RenderTextImage(const UstCharAttr* chars, int count, std::vector<UstFES>& fes,
                    const UstCharPos* pos, const UstEffect& effect, const UstAttr& attr,
                    float xScale, float yScale, int rotation, ObjectImage* out) {
    if (!chars || count <= 0) return 0;
    UstTextExtent extent;
    const int rendered =
        RenderTextLayers(chars, count, fes, pos, effect, attr, xScale, yScale, &extent);
    if (out) StackTextImage(chars, count, fes, extent, rotation, *out);
    return rendered;
}

void RenderSingleGlyph(ObjectImage& out, const UstCharAttr& c, const UstEffect& effect,
                       const UstAttr& attr, float x, float y, float xScale, float yScale,
                       QPainter* target) {
    out.Reset();
    if (!Drawn(c)) return;
    int w = 0, h = 0;
    UstLogFont font;
    MeasureCharScaled(c, xScale, yScale, &w, &h, &font);
    LayerRects rc;
    ComputeLayerRects(RoundToInt(x), RoundToInt(y), w, h, effect, xScale, yScale, true, rc);
    if (rc.canvasWidth <= 0 || rc.canvasHeight <= 0) return;
    UstScratchSet scratch;
    scratch.Prepare(rc.canvasWidth, rc.canvasHeight);
    MakeLayerBrushes(scratch, FaceFill(attr, c), attr, rc, nullptr, xScale, yScale,
                     effect.nShadowType);
    QPainterPath path;
    GlyphFont glyphFont;
    if (glyphFont.SetFont(font))
        glyphFont.AddGlyph(path, c.nChar, static_cast<float>(rc.rcFace.left),
                           static_cast<float>(rc.rcFace.top), c.metric.nShear);
    RenderLayersOnCanvas(rc, scratch, path, effect.nShadowType, out);
    if (target) target->drawImage(QPoint(out.x, out.y), out.Wrap());
}

}  // namespace orv
