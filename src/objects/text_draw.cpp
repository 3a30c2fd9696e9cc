// The text object's layout and drawing: positions at the canvas's zoom, one
// set of layers per character kept until that character changes, and the
// stacking that keeps every shadow under every face.
#include <QImage>
#include <QPainter>

#include "objects/text_object.h"
#include "render/pixels.h"
#include "render/text_image.h"
#include "render/text_measure.h"

namespace orv {

namespace {

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
        g.Move(fx - g.faceX, fy - g.faceY);
        AddDirty(g);
    }
    m_pRotated.Reset();
    m_rcLaid = m_rcView;
    SyncStored();
    RecalcHandles();
}

void CQRDObjectText::SyncStored() {
    // An origin that did not move keeps its stored value: dividing by the
    // scale does not always give back what was multiplied, and a project
    // opened and saved unchanged must stay the same to the byte.
    const bool moved = m_fViewX != m_fStoreX * m_fScale || m_fViewY != m_fStoreY * m_fScale;
    if (moved && m_fScale > 0) {
        m_fStoreX = m_fViewX / m_fScale;
        m_fStoreY = m_fViewY / m_fScale;
    }
    UpdateStored(false);
    m_rcLaid = m_rcView;
}

void CQRDObjectText::DropLayers(int from, int to) {
    for (int i = std::max(0, from); i < to && i < static_cast<int>(m_arrGlyph.size()); ++i)
        m_arrGlyph[static_cast<size_t>(i)] = UstFES{};
    m_pRotated.Reset();
}

void CQRDObjectText::DropAllLayers() {
    m_arrGlyph.assign(m_arrChar.size(), UstFES{});
    m_pRotated.Reset();
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
    const int rendered =
        RenderTextLayers(m_arrChar.data(), CharCount(), m_arrGlyph, m_layout.pos.data(), m_effect,
                         m_attr, m_fScale, m_fScale);
    m_nRendered += rendered;
    for (size_t i = 0; i < m_arrGlyph.size(); ++i)
        if (!had[i] && m_arrGlyph[i].Rendered()) {
            AddDirty(m_arrGlyph[i]);
            m_pRotated.Reset();  // a shared twin is new to the image too
        }
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
    QImage canvas =
        WrapBlock(m_pPage->GetCanvasBits(), m_pPage->GetCanvasWidth(), m_pPage->GetCanvasHeight());
    DrawLayers(canvas, QPoint(-s.x, -s.y), m_arrGlyph, canvasArea.ToQRect());
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
    QImage canvas = WrapBlock(m_pPage->GetCanvasBits(), w, h);
    DrawKept(canvas, QPoint(-s.x, -s.y));
    if (IsEditing()) DrawSelectionBars(m_pPage->GetCanvasBits(), w, h);
}

void CQRDObjectText::DrawKept(QImage& canvas, QPoint shift) {
    if (m_nAngle % 360 == 0) {
        DrawLayers(canvas, shift, m_arrGlyph);
        return;
    }
    // Turned, the text is stacked upright once and drawn as one image.
    // The canvas turns a text by setting its angle while dragging.
    if (!m_pRotated.Made() || m_nRotatedAngle != m_nAngle) {
        StackTextImage(m_arrChar.data(), CharCount(), m_arrGlyph,
                       TextExtent(m_arrChar.data(), CharCount(), m_arrGlyph), m_nAngle, m_pRotated);
        m_nRotatedAngle = m_nAngle;
    }
    m_pRotated.DrawOn(canvas, shift);
}

void CQRDObjectText::DrawTo(uint32_t* bits, int width, int height) {
    if (!bits || m_arrChar.empty()) return;
    QImage canvas = WrapBlock(bits, width, height);
    if (m_fScale == 1.0f && m_rcView == m_rcLaid) {
        // At full zoom the canvas's layers are the page's own.
        RenderMissingLayers();
        DrawKept(canvas, QPoint(0, 0));
        return;
    }
    const UstTextLayout layout = StoredLayout();
    std::vector<UstFES> glyphs;
    ObjectImage image;
    RenderTextImage(m_arrChar.data(), CharCount(), glyphs, layout.pos.data(), m_effect, m_attr,
                    1.0f, 1.0f, m_nAngle, &image);
    image.DrawOn(canvas, QPoint(0, 0));
}

UstTextLayout CQRDObjectText::StoredLayout(UstRect* rect) const {
    UstTextLayout layout;
    UstRect local;
    LayoutText(layout, m_fStoreX, m_fStoreY, rect ? *rect : local, m_arrChar.data(), CharCount(),
               1.0f, 1.0f);
    return layout;
}

void CQRDObjectText::DrawLayers(QImage& canvas, QPoint shift, const std::vector<UstFES>& glyphs,
                                const QRect& clip) const {
    QPainter painter(&canvas);
    const QRect visible = clip.isEmpty() ? canvas.rect() : clip.intersected(canvas.rect());
    painter.setClipRect(visible);
    DrawTextLayers(m_arrChar.data(), CharCount(), glyphs, painter, shift, visible);
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
