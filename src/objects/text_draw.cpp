// The text object's layout and drawing: positions at the canvas's zoom, one
// set of layers per character kept until that character changes, and the
// stacking that keeps every shadow under every face.
#include <QImage>
#include <QPainter>

#include <map>
#include <string>

#include "objects/text_object.h"
#include "render/glyph_font.h"
#include "render/pixels.h"
#include "render/render_graphics.h"
#include "render/text_measure.h"

namespace orv {

namespace {

constexpr UstFES::Layer STACKING[] = {UstFES::SHADOW, UstFES::OUTLINE, UstFES::EDGE, UstFES::FACE};

// Characters that would render the same pixels: same code, font, width,
// shear and colour, with solid paints only.
std::string ShareKey(const UstCharAttr& c) {
    std::string key;
    auto add = [&key](const void* p, size_t n) { key.append(static_cast<const char*>(p), n); };
    add(&c.nChar, sizeof c.nChar);
    add(&c.font, sizeof c.font);
    add(&c.metric.nWidth, sizeof c.metric.nWidth);
    add(&c.metric.nShear, sizeof c.metric.nShear);
    add(&c.clrFill, sizeof c.clrFill);
    return key;
}

bool SolidPaints(const UstAttr& attr) {
    for (int i = 0; i < 4; ++i)
        if (attr.fill[i].nType != 0) return false;
    return true;
}

// The face of one character, filled with its colour, on a block the size
// of all its layers would take.
UstFES RenderPlainFace(const UstCharAttr& c, UstCharPos pos, const UstEffect& effect, float scale) {
    UstFES g;
    UstLogFont lf;
    int w = 0, h = 0;
    MeasureCharScaled(c, scale, scale, &w, &h, &lf);
    LayerRects rc;
    g.faceX = RoundToInt(pos.x);
    g.faceY = RoundToInt(pos.y);
    ComputeLayerRects(g.faceX, g.faceY, w, h, effect, scale, scale, false, rc);
    g.x = rc.canvasX, g.y = rc.canvasY;
    g.w = std::max(1, rc.canvasWidth), g.h = std::max(1, rc.canvasHeight);
    UstLayerBlock block(new uint32_t[static_cast<size_t>(g.w) * g.h]());
    QImage image(reinterpret_cast<uchar*>(block.get()), g.w, g.h, g.w * 4,
                 QImage::Format_ARGB32_Premultiplied);
    GlyphFont font;
    if (w > 0 && h > 0 && font.SetFont(lf)) {
        QPainterPath path;
        font.AddGlyph(path, c.nChar, static_cast<float>(g.faceX - g.x),
                      static_cast<float>(g.faceY - g.y), c.metric.nShear);
        const auto painter = CreateRenderGraphics(image, true);
        painter->fillPath(path, QColor::fromRgba(c.clrFill));
    }
    g.pLayer[UstFES::FACE] = std::move(block);
    return g;
}

// Renders what is missing; equal characters share one set of blocks.
int RenderGlyphs(const std::vector<UstCharAttr>& chars, const UstTextLayout& layout,
                 std::vector<UstFES>& glyphs, const UstAttr& attr, const UstEffect& effect,
                 float scale) {
    const bool share = SolidPaints(attr);
    std::map<std::string, size_t> made;
    int rendered = 0;
    for (size_t i = 0; i < chars.size(); ++i) {
        const UstCharAttr& c = chars[i];
        if (IsBlankChar(c.nChar)) continue;
        UstFES& g = glyphs[i];
        const std::string key = share ? ShareKey(c) : std::string();
        if (g.Rendered()) {
            if (share) made.emplace(key, i);
            continue;
        }
        const UstCharPos pos = layout.pos[i];
        const auto it = share ? made.find(key) : made.end();
        if (it != made.end()) {
            const UstFES& twin = glyphs[it->second];
            g = twin;
            g.faceX = RoundToInt(pos.x), g.faceY = RoundToInt(pos.y);
            g.x = twin.x + g.faceX - twin.faceX, g.y = twin.y + g.faceY - twin.faceY;
            continue;
        }
        g = RenderPlainFace(c, pos, effect, scale);
        ++rendered;
        if (share) made.emplace(key, i);
    }
    return rendered;
}

void InvertFrame(uint32_t* bits, int width, int height, const UstRect& r) {
    auto invert = [&](int x, int y) {
        if (x >= 0 && y >= 0 && x < width && y < height)
            bits[static_cast<size_t>(y) * width + x] ^= 0x00FFFFFFu;
    };
    if (r.Width() <= 0 || r.Height() <= 0) return;
    for (int x = r.left; x < r.right; ++x) {
        invert(x, r.top);
        if (r.bottom - 1 > r.top) invert(x, r.bottom - 1);
    }
    for (int y = r.top + 1; y < r.bottom - 1; ++y) {
        invert(r.left, y);
        if (r.right - 1 > r.left) invert(r.right - 1, y);
    }
}

}  // namespace

void CQRDObjectText::ScaleFromPage() {
    m_fScale = m_pPage ? m_pPage->GetZoom() / 100.0f : 1.0f;
}

void CQRDObjectText::Relayout() {
    ScaleFromPage();
    if (m_arrChar.empty()) {
        m_layout = {};
    } else {
        LayoutText(m_layout, m_fViewX, m_fViewY, m_rcView, m_arrChar.data(), CharCount(), m_fScale,
                   m_fScale);
    }
    // Characters that only moved keep their blocks and move them along.
    for (size_t i = 0; i < m_arrGlyph.size() && i < m_arrChar.size(); ++i) {
        UstFES& g = m_arrGlyph[i];
        if (!g.Rendered()) continue;
        const int fx = RoundToInt(m_layout.pos[i].x), fy = RoundToInt(m_layout.pos[i].y);
        if (fx == g.faceX && fy == g.faceY) continue;
        AddDirty(g);
        g.x += fx - g.faceX, g.y += fy - g.faceY;
        g.faceX = fx, g.faceY = fy;
        AddDirty(g);
    }
    m_pRotated.clear();
    m_rcLaid = m_rcView;
    SyncStored();
    RecalcHandles();
}

void CQRDObjectText::SyncStored() {
    if (m_fScale > 0) {
        m_fStoreX = m_fViewX / m_fScale;
        m_fStoreY = m_fViewY / m_fScale;
    }
    UpdateStored(false);
    m_rcLaid = m_rcView;
}

void CQRDObjectText::DropLayers(int from, int to) {
    for (int i = std::max(0, from); i < to && i < static_cast<int>(m_arrGlyph.size()); ++i)
        m_arrGlyph[static_cast<size_t>(i)] = UstFES{};
    m_pRotated.clear();
}

void CQRDObjectText::DropAllLayers() {
    m_arrGlyph.assign(m_arrChar.size(), UstFES{});
    m_pRotated.clear();
    m_bDirtyAll = true;
}

void CQRDObjectText::AddDirty(const UstFES& g) {
    m_rcDirty = UnionRect(m_rcDirty, {g.x, g.y, g.x + g.w, g.y + g.h});
}

void CQRDObjectText::AddDirty(int from, int to) {
    for (int i = std::max(0, from); i < to && i < static_cast<int>(m_arrGlyph.size()); ++i)
        if (m_arrGlyph[static_cast<size_t>(i)].Rendered())
            AddDirty(m_arrGlyph[static_cast<size_t>(i)]);
}

void CQRDObjectText::RenderMissingLayers() {
    if (m_arrGlyph.size() != m_arrChar.size()) m_arrGlyph.resize(m_arrChar.size());
    if (m_arrChar.empty()) return;
    std::vector<bool> had(m_arrGlyph.size());
    for (size_t i = 0; i < m_arrGlyph.size(); ++i)
        had[i] = m_arrGlyph[i].Rendered();
    m_nRendered += RenderGlyphs(m_arrChar, m_layout, m_arrGlyph, m_attr, m_effect, m_fScale);
    for (size_t i = 0; i < m_arrGlyph.size(); ++i)
        if (!had[i] && m_arrGlyph[i].Rendered()) AddDirty(m_arrGlyph[i]);
}

void CQRDObjectText::PrepareDraw() {
    FollowRect();
    RenderMissingLayers();
}

bool CQRDObjectText::TakeDirty(UstRect& canvasArea) {
    const bool all = m_bDirtyAll || m_nAngle % 360 != 0 || !m_arrSelRect.empty();
    const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
    canvasArea = Offset(m_rcDirty, -s.x, -s.y);
    m_rcDirty = {};
    m_bDirtyAll = false;
    return !all;
}

void CQRDObjectText::DrawClipped(const UstRect& canvasArea) {
    if (!m_pPage || !m_pPage->GetCanvasBits() || canvasArea.Width() <= 0 ||
        canvasArea.Height() <= 0)
        return;
    const UstPoint s = m_pPage->GetScrollOrigin();
    DrawLayers(m_pPage->GetCanvasBits(), m_pPage->GetCanvasWidth(), m_pPage->GetCanvasHeight(),
               QPoint(-s.x, -s.y), m_arrGlyph, Offset(m_rcView, -s.x, -s.y), canvasArea.ToQRect());
}

// The canvas moved the rectangle by itself (a drag): the text follows.
void CQRDObjectText::FollowRect() {
    if (m_rcView == m_rcLaid || m_rcView.Width() != m_rcLaid.Width() ||
        m_rcView.Height() != m_rcLaid.Height())
        return;
    const UstRect target = m_rcView;
    m_rcView = m_rcLaid;
    Nudge(target.left - m_rcLaid.left, target.top - m_rcLaid.top);
}

void CQRDObjectText::Draw() {
    if (!m_pPage || !m_pPage->GetCanvasBits()) return;
    FollowRect();
    RenderMissingLayers();
    m_rcDirty = {};
    m_bDirtyAll = false;
    const UstPoint s = m_pPage->GetScrollOrigin();
    const int w = m_pPage->GetCanvasWidth(), h = m_pPage->GetCanvasHeight();
    DrawLayers(m_pPage->GetCanvasBits(), w, h, QPoint(-s.x, -s.y), m_arrGlyph,
               Offset(m_rcView, -s.x, -s.y));
    if (IsEditing()) DrawSelectionBars(m_pPage->GetCanvasBits(), w, h);
}

void CQRDObjectText::DrawTo(uint32_t* bits, int width, int height) {
    if (!bits || m_arrChar.empty()) return;
    UstRect rect;
    const UstTextLayout layout = StoredLayout(&rect);
    std::vector<UstFES> glyphs(m_arrChar.size());
    RenderGlyphs(m_arrChar, layout, glyphs, m_attr, m_effect, 1.0f);
    DrawLayers(bits, width, height, QPoint(0, 0), glyphs, rect);
}

UstTextLayout CQRDObjectText::StoredLayout(UstRect* rect) const {
    UstTextLayout layout;
    UstRect local;
    LayoutText(layout, m_fStoreX, m_fStoreY, rect ? *rect : local, m_arrChar.data(), CharCount(),
               1.0f, 1.0f);
    return layout;
}

void CQRDObjectText::DrawLayers(uint32_t* bits, int width, int height, QPoint shift,
                                const std::vector<UstFES>& glyphs, const UstRect& turnAbout,
                                const QRect& clip) const {
    QImage canvas(reinterpret_cast<uchar*>(bits), width, height, width * 4,
                  QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&canvas);
    if (!clip.isEmpty()) painter.setClipRect(clip);
    if (m_nAngle % 360 != 0) {
        // Until the whole text is rendered upright and turned as one image.
        const QPointF centre((turnAbout.left + turnAbout.right) / 2.0,
                             (turnAbout.top + turnAbout.bottom) / 2.0);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.translate(centre);
        painter.rotate(m_nAngle);
        painter.translate(-centre);
    }
    const QRect visible = painter.transform().inverted().mapRect(
        clip.isEmpty() ? QRect(0, 0, width, height) : clip.intersected(QRect(0, 0, width, height)));
    for (const UstFES::Layer layer : STACKING)
        for (size_t i = 0; i < glyphs.size() && i < m_arrChar.size(); ++i) {
            const UstFES& g = glyphs[i];
            if (IsBlankChar(m_arrChar[i].nChar) || !g.pLayer[layer]) continue;
            const QRect at(g.x + shift.x(), g.y + shift.y(), g.w, g.h);
            if (!visible.intersects(at)) continue;
            const QImage block(reinterpret_cast<const uchar*>(g.pLayer[layer].get()), g.w, g.h,
                               g.w * 4, QImage::Format_ARGB32_Premultiplied);
            painter.drawImage(at.topLeft(), block);
        }
}

void CQRDObjectText::DrawSelectionBars(uint32_t* bits, int width, int height) const {
    const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
    for (const UstRect& bar : m_arrSelRect) {
        const UstRect r = Offset(bar, -s.x, -s.y);
        InvertFrame(bits, width, height, r);
        InvertFrame(bits, width, height, {r.left + 1, r.top + 1, r.right - 1, r.bottom - 1});
    }
}

UstRect CQRDObjectText::WindowRect() const {
    return GetInvalidRect();
}

}  // namespace orv
