// A text's blinking characters and its typing flag: their marks on the
// edit canvas and the second picture of the blink on air.
#include <QPainter>

#include "objects/blink_draw.h"
#include "objects/text_object.h"
#include "render/text_image.h"

namespace orv {

bool CQRDObjectText::GetBlink() const {
    for (const UstCharAttr& c : m_arrChar)
        if (c.bBlink) return true;
    return false;
}

void CQRDObjectText::SetBlink(int32_t on) {
    const auto [from, to] = Range();
    for (int i = from; i < to; ++i)
        m_arrChar[static_cast<size_t>(i)].bBlink = on ? 1u : 0u;
}

// A turned text is marked as a whole: its characters' boxes stand upright.
void CQRDObjectText::DrawBlinkMark() {
    if (!m_pPage || !GetBlink()) return;
    if (m_nAngle % 360 != 0) {
        HatchOnCanvas(m_pPage, HitPolygon(), BLINK_MARK_HATCH, BLINK_MARK_COLOUR);
        return;
    }
    const UstPoint s = m_pPage->GetScrollOrigin();
    const size_t n = std::min(m_arrChar.size(), m_arrGlyph.size());
    for (size_t i = 0; i < n; ++i) {
        if (!m_arrChar[i].bBlink || !m_arrGlyph[i].Rendered()) continue;
        const UstRect r = Offset(m_arrGlyph[i].rcStroke, -s.x, -s.y);
        HatchOnCanvas(m_pPage, QPolygonF(QRectF(r.ToQRect())), BLINK_MARK_HATCH, BLINK_MARK_COLOUR);
    }
}

void CQRDObjectText::DrawTypingMark() {
    if (m_pPage && m_bTyping)
        HatchOnCanvas(m_pPage, HitPolygon(), TYPING_MARK_HATCH, TYPING_MARK_COLOUR);
}

std::vector<UstFES> CQRDObjectText::PlayGlyphs(UstTextExtent& extent) {
    if (m_fScale == 1.0f && m_rcView == m_rcLaid) {
        RenderMissingLayers();
        extent = TextExtent(m_arrChar.data(), CharCount(), m_arrGlyph);
        return m_arrGlyph;
    }
    const UstTextLayout layout = StoredLayout();
    std::vector<UstFES> glyphs;
    RenderTextLayers(m_arrChar.data(), CharCount(), glyphs, layout.pos.data(), m_effect, m_attr,
                     1.0f, 1.0f, &extent);
    return glyphs;
}

// The extent is that of the whole text, so a turned text turns about the
// same centre whatever it leaves out.
void CQRDObjectText::DrawPlayGlyphs(uint32_t* bits, int width, int height,
                                    const std::vector<UstFES>& glyphs,
                                    const UstTextExtent& extent) const {
    QImage canvas = WrapBlock(bits, width, height);
    if (m_nAngle % 360 == 0) {
        QPainter painter(&canvas);
        DrawTextLayers(m_arrChar.data(), CharCount(), glyphs, painter, QPoint(0, 0), canvas.rect());
        return;
    }
    ObjectImage image;
    StackTextImage(m_arrChar.data(), CharCount(), glyphs, extent, m_nAngle, image);
    image.DrawOn(canvas, QPoint(0, 0));
}

void CQRDObjectText::PrepareBlinkFrame(uint32_t* bits, int width, int height, int mode,
                                       uint32_t colour) {
    if (!bits || m_arrChar.empty() || width <= 0 || height <= 0) return;
    UstTextExtent extent;
    std::vector<UstFES> glyphs = PlayGlyphs(extent);
    for (size_t i = 0; i < glyphs.size() && i < m_arrChar.size(); ++i) {
        if (!m_arrChar[i].bBlink) continue;
        UstFES& g = glyphs[i];
        for (UstLayerBlock& layer : g.pLayer) {
            if (!layer || mode != 1) {
                layer.reset();
                continue;
            }
            // A copy: the kept layers are shared with the edit canvas.
            const size_t count = static_cast<size_t>(g.w) * g.h;
            UstLayerBlock tinted(new uint32_t[count]);
            std::copy_n(layer.get(), count, tinted.get());
            TintPixels(tinted.get(), count, colour);
            layer = tinted;
        }
    }
    DrawPlayGlyphs(bits, width, height, glyphs, extent);
}

void CQRDObjectText::DrawForPlay(uint32_t* bits, int width, int height) {
    if (m_nPlayShown < 0) {
        DrawTo(bits, width, height);
        return;
    }
    if (!bits || m_arrChar.empty() || width <= 0 || height <= 0) return;
    UstTextExtent extent;
    std::vector<UstFES> glyphs = PlayGlyphs(extent);
    for (size_t i = static_cast<size_t>(m_nPlayShown); i < glyphs.size(); ++i)
        for (UstLayerBlock& layer : glyphs[i].pLayer)
            layer.reset();
    DrawPlayGlyphs(bits, width, height, glyphs, extent);
}

UstRect CQRDObjectText::TypedRect(int from, int to) {
    if (m_nAngle % 360 != 0) return {0, 0, 1 << 20, 1 << 20};
    UstTextExtent extent;
    const std::vector<UstFES> glyphs = PlayGlyphs(extent);
    UstRect area;
    for (int i = std::max(from, 0); i < to && i < static_cast<int>(glyphs.size()); ++i) {
        const UstFES& g = glyphs[static_cast<size_t>(i)];
        if (g.Rendered()) area = UnionRect(area, {g.x, g.y, g.x + g.w, g.y + g.h});
    }
    return area;
}

}  // namespace orv
