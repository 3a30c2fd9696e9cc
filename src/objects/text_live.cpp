// The text of a Roll or Crawl page on air: its layers made once for the run
// at full scale and stacked again inside each strip, so that a page of any
// length costs the layers of its distinct characters, not a picture of it.
#include <QPainter>

#include <algorithm>

#include "objects/live_image.h"
#include "objects/text_object.h"
#include "render/text_image.h"

namespace orv {

void CQRDObjectText::ResetLive(int32_t, int32_t) {
    FreeLive();
}

void CQRDObjectText::FreeLive() {
    m_liveGlyphs.clear();
    m_liveGlyphs.shrink_to_fit();
    m_liveImage.Reset();
    m_rcLive = {};
}

void CQRDObjectText::PrepareScrollImage(int32_t, int32_t) {
    FreeLive();
    if (m_arrChar.empty()) return;
    if (m_nAngle % 360 != 0) {
        const UstTextLayout layout = StoredLayout();
        std::vector<UstFES> glyphs;
        RenderTextImage(m_arrChar.data(), CharCount(), glyphs, layout.pos.data(), m_effect, m_attr,
                        1.0f, 1.0f, m_nAngle, &m_liveImage);
        DropUnreachable(m_liveImage);
        m_rcLive = LiveImageRect(m_liveImage);
        return;
    }
    if (m_fScale == 1.0f && m_rcView == m_rcLaid) {
        // At full zoom the canvas's layers are the page's own: the strips
        // then show exactly what the edit canvas showed.
        RenderMissingLayers();
        m_liveGlyphs = m_arrGlyph;
    } else {
        const UstTextLayout layout = StoredLayout();
        m_liveGlyphs.assign(m_arrChar.size(), UstFES{});
        RenderTextLayers(m_arrChar.data(), CharCount(), m_liveGlyphs, layout.pos.data(), m_effect,
                         m_attr, 1.0f, 1.0f);
    }
    m_rcLive = TextExtent(m_arrChar.data(), CharCount(), m_liveGlyphs).canvas;
    if (m_rcLive.right <= 0 || m_rcLive.bottom <= 0) FreeLive();
}

void CQRDObjectText::DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                              int bottom) {
    if (!bits || width <= 0 || height <= 0) return;
    const UstRect area{left, top, right, bottom};
    if (m_liveImage.Made()) {
        DrawImageInStrip(m_liveImage, bits, width, height, area);
        return;
    }
    if (m_liveGlyphs.empty() || !Meets(m_rcLive, area)) return;
    QImage strip = WrapBlock(bits, width, height);
    QPainter painter(&strip);
    const QRect visible(0, 0, std::min(width, area.Width()), std::min(height, area.Height()));
    painter.setClipRect(visible);
    DrawTextLayers(m_arrChar.data(), CharCount(), m_liveGlyphs, painter, QPoint(-left, -top),
                   visible);
}

UstPoint CQRDObjectText::GetLiveExtent() const {
    return LiveExtent(m_rcStored, m_rcLive);
}

}  // namespace orv
