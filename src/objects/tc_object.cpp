#include "objects/tc_object.h"

#include <algorithm>
#include <cmath>

#include "objects/archive_fields.h"
#include "objects/live_image.h"
#include "objects/text_object.h"
#include "render/fixed_string.h"
#include "render/text_image.h"
#include "render/text_measure.h"

namespace orv {

namespace {

// How far outside its rectangle a timer's redraw reaches, for the effects
// that are not yet rendered.
constexpr int INVALID_MARGIN = 33;

void RenderAt(const UstDefaultAttr& look, const std::vector<UstCharAttr>& chars,
              const UstTextLayout& layout, float scale, ObjectImage& out) {
    out.Reset();
    if (chars.empty()) return;
    std::vector<UstFES> glyphs;
    RenderTextImage(chars.data(), static_cast<int>(chars.size()), glyphs, layout.pos.data(),
                    look.effect, look.attr, scale, scale, 0, &out);
    FreeFESArray(glyphs);
}

}  // namespace

std::vector<UstCharAttr> TimerChars(const UstDefaultAttr& look, const QString& value) {
    std::vector<UstCharAttr> chars;
    for (const char32_t code : value.toUcs4()) {
        UstCharAttr c = NewCharAttr();
        c.nChar = code;
        c.font = look.font;
        c.metric = look.metric;
        c.clrFill = look.attr.fill[UstAttr::BODY].clrSolid;
        MeasureChar(c, false);
        chars.push_back(c);
    }
    return chars;
}

void RenderTimerValue(const UstDefaultAttr& look, float storeX, float storeY, const QString& value,
                      ObjectImage& out) {
    const std::vector<UstCharAttr> chars = TimerChars(look, value);
    UstTextLayout layout;
    UstRect rect;
    if (!chars.empty())
        LayoutText(layout, storeX, storeY, rect, chars.data(), static_cast<int>(chars.size()), 1.0f,
                   1.0f);
    RenderAt(look, chars, layout, 1.0f, out);
}

CQRDObjectTC::CQRDObjectTC(CPageContext* page, const UstDefaultAttr& attr,
                           const UstTCSetting& setting, float storeX, float storeY)
    : CQRDObject(page), m_fStoreX(storeX), m_fStoreY(storeY), m_attr(attr), m_setting(setting) {
    Build();
}

QString CQRDObjectTC::CurrentString() const {
    if (m_setting.nKind != 0) return FormatValue(m_setting, 0, 0, 0);
    return CounterString(m_setting, m_setting.nStart);
}

void CQRDObjectTC::SetSetting(const UstTCSetting& setting) {
    m_setting = setting;
    Build();
}

void CQRDObjectTC::Build() {
    LayOut();
    UpdateStored(false);
    RecalcHandles();
}

void CQRDObjectTC::LayOut() {
    m_image.Reset();
    m_fScale = Zoom() / 100.0f;
    m_fViewX = m_fStoreX * m_fScale;
    m_fViewY = m_fStoreY * m_fScale;
    m_arrChar = TimerChars(m_attr, CurrentString());
    if (m_arrChar.empty()) {
        m_layout = {};
        m_rcView = {};
    } else {
        LayoutText(m_layout, m_fViewX, m_fViewY, m_rcView, m_arrChar.data(),
                   static_cast<int>(m_arrChar.size()), m_fScale, m_fScale);
    }
}

void CQRDObjectTC::Attach(CPageContext* page) {
    CQRDObject::Attach(page);
    Build();
}

UstRect CQRDObjectTC::GetInvalidRect() const {
    if (!m_pPage) return {};
    const UstPoint s = m_pPage->GetScrollOrigin();
    const UstPoint o = m_pPage->GetCanvasOrigin();
    UstRect r = {m_rcView.left - INVALID_MARGIN, m_rcView.top - INVALID_MARGIN,
                 m_rcView.right + INVALID_MARGIN, m_rcView.bottom + INVALID_MARGIN};
    if (m_image.Made())
        r = UnionRect(
            r, {m_image.x, m_image.y, m_image.x + m_image.width, m_image.y + m_image.height});
    r = Offset(r, o.x - s.x, o.y - s.y);
    const UstRect visible = {o.x - 1, o.y - 1, o.x + m_pPage->GetCanvasWidth() + 1,
                             o.y + m_pPage->GetCanvasHeight() + 1};
    return {std::max(r.left, visible.left), std::max(r.top, visible.top),
            std::min(r.right, visible.right), std::min(r.bottom, visible.bottom)};
}

void CQRDObjectTC::Draw() {
    if (!m_pPage || !m_pPage->GetCanvasBits()) return;
    if (!m_image.Made()) RenderAt(m_attr, m_arrChar, m_layout, m_fScale, m_image);
    if (!m_image.Made()) return;
    const UstPoint s = m_pPage->GetScrollOrigin();
    QImage canvas =
        WrapBlock(m_pPage->GetCanvasBits(), m_pPage->GetCanvasWidth(), m_pPage->GetCanvasHeight());
    m_image.DrawOn(canvas, QPoint(-s.x, -s.y));
}

void CQRDObjectTC::DrawTo(uint32_t* bits, int width, int height) {
    if (!bits) return;
    ObjectImage image;
    RenderTimerValue(m_attr, m_fStoreX, m_fStoreY, CurrentString(), image);
    if (!image.Made()) return;
    QImage canvas = WrapBlock(bits, width, height);
    image.DrawOn(canvas, QPoint(0, 0));
}

void CQRDObjectTC::PrepareScrollImage(int32_t, int32_t) {
    RenderTimerValue(m_attr, m_fStoreX, m_fStoreY, CurrentString(), m_liveImage);
    DropUnreachable(m_liveImage);
}

void CQRDObjectTC::DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                            int bottom) {
    if (bits && m_liveImage.Made())
        DrawImageInStrip(m_liveImage, bits, width, height, {left, top, right, bottom});
}

UstPoint CQRDObjectTC::GetLiveExtent() const {
    return LiveExtent(m_rcStored, LiveImageRect(m_liveImage));
}

void CQRDObjectTC::PickUpAttributes() {
    CTextEditHost* host = m_pPage ? m_pPage->EditHost() : nullptr;
    if (!host) return;
    host->WorkingAttr() = m_attr;
    host->AttrChanged();
}

bool CQRDObjectTC::Execute(const void* args, uint32_t code) {
    if (!args) return false;
    if (code < CMD_SET_RECT || code > CMD_NUDGE_DOWN) {
        if (!ApplyLook(args, code)) return false;
        Build();
        return true;
    }
    // The origin is what the file keeps; the rectangle follows from it.
    int dx = 0, dy = 0;
    if (code == CMD_SET_RECT) {
        const auto* r = static_cast<const UstRect*>(args);
        if (r->Width() != m_rcView.Width() || r->Height() != m_rcView.Height()) {
            FitToSize(*r);
            return true;
        }
        dx = r->left - m_rcView.left;
        dy = r->top - m_rcView.top;
    } else {
        // One unit in the command's direction, whatever the argument says.
        dx = code == CMD_NUDGE_RIGHT ? 1 : code == CMD_NUDGE_LEFT ? -1 : 0;
        dy = code == CMD_NUDGE_DOWN ? 1 : code == CMD_NUDGE_UP ? -1 : 0;
    }
    if (m_fScale > 0) {
        m_fStoreX += static_cast<float>(dx) / m_fScale;
        m_fStoreY += static_cast<float>(dy) / m_fScale;
    }
    Build();
    return true;
}

// Every character shares one look, so each command changes the look and the
// characters are made from it again.
bool CQRDObjectTC::ApplyLook(const void* args, uint32_t code) {
    switch (code) {
        case CMD_FONT_FACE: {
            const int32_t size = m_attr.font.nSize;
            m_attr.font = *static_cast<const UstFontBlock*>(args);
            m_attr.font.nSize = size;
            return true;
        }
        case CMD_FONT_SIZE:
            m_attr.font.nSize = std::clamp(*static_cast<const int32_t*>(args), 1, MAX_TEXT_SIZE);
            return true;
        case CMD_TEXT_WIDTH:
            m_attr.metric.nWidth = *static_cast<const int32_t*>(args);
            return true;
        case CMD_TEXT_SPACING:
            m_attr.metric.nSpacing = *static_cast<const int32_t*>(args);
            return true;
        case CMD_TEXT_LEADING:
            m_attr.metric.nLeading = *static_cast<const int32_t*>(args);
            return true;
        case CMD_TEXT_SHEAR:
            m_attr.metric.nShear = *static_cast<const int32_t*>(args);
            return true;
        case CMD_BODY_PAINT:
        case CMD_EDGE_PAINT:
        case CMD_OUTLINE_PAINT:
        case CMD_SHADOW_PAINT:
            m_attr.attr.fill[code - CMD_BODY_PAINT] = *static_cast<const UstFill*>(args);
            return true;
        case CMD_TEXT_STYLE: {
            const auto& style = *static_cast<const UstText*>(args);
            m_attr.attr = style.attr;
            m_attr.effect = style.effect;
            if (IsFaceInstalled(style.character.font))
                m_attr.font = style.character.font;
            else
                m_attr.font.nSize = style.character.font.nSize;
            m_attr.attr.fill[UstAttr::BODY].clrSolid = style.character.clrFill;
            return true;
        }
        default:
            if (!IsEffectCommand(code)) return false;
            m_attr.effect = *static_cast<const UstEffect*>(args);
            return true;
    }
}

// A handle drag scales the font by the height; the origin keeps the top
// left corner where the drag put it.
void CQRDObjectTC::FitToSize(const UstRect& to) {
    const int oldHeight = std::max(1, m_rcView.Height());
    const double ratio = static_cast<double>(std::max(1, to.Height())) / oldHeight;
    const int32_t size = m_attr.font.nSize;
    m_attr.font.nSize = std::clamp(static_cast<int>(std::lround(size * ratio)), 1, MAX_TEXT_SIZE);
    Build();
    if (m_fScale > 0) {
        m_fStoreX += static_cast<float>(to.left - m_rcView.left) / m_fScale;
        m_fStoreY += static_cast<float>(to.top - m_rcView.top) / m_fScale;
    }
    Build();
    PickUpAttributes();
}

void CQRDObjectTC::ReplaceMissingFace() {
    if (!IsFaceInstalled(m_attr.font))
        TakeFallbackFace(m_attr.font, FallbackFontBlock(m_pPage ? m_pPage->EditHost() : nullptr));
}

void CQRDObjectTC::Serialize(CByteWriter& out) const {
    WriteArchiveHead(out);
    out.Put(m_fStoreX);
    out.Put(m_fStoreY);
    out.Put(m_attr);
    out.Put(m_setting);
}

bool CQRDObjectTC::Deserialize(CByteReader& in) {
    const bool hasOldRect = ReadArchiveHead(in);
    m_fStoreX = in.Get<float>();
    m_fStoreY = in.Get<float>();
    m_attr = in.Get<UstDefaultAttr>();
    m_setting = in.Get<UstTCSetting>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedPoint(m_fStoreX, m_fStoreY, "a timer's origin");
    CheckArchivedEffect(m_attr.effect, "a timer");
    CheckArchivedFont(m_attr.font, m_attr.metric, "a timer");
    ReplaceMissingFace();
    LayOut();
    CheckArchivedRect(m_rcView, "a timer");
    UpdateStored(false);
    RecalcHandles();
    return true;
}

void CQRDObjectTC::SaveState(CByteWriter& out) const {
    out.Put<int32_t>(OBJ_TIMER);
    out.Put(m_nWord1);
    out.Put(m_nWord2);
    out.Put(m_bLocked);
    out.Put(m_fStoreX);
    out.Put(m_fStoreY);
    out.Put(m_rcOld);
    out.Put(m_attr);
    out.Put(m_setting);
}

bool CQRDObjectTC::LoadState(CByteReader& in, int) {
    if (in.Get<int32_t>() != OBJ_TIMER) return false;
    m_nWord1 = in.Get<int32_t>();
    m_nWord2 = in.Get<int32_t>();
    m_bLocked = in.Get<int32_t>();
    m_fStoreX = in.Get<float>();
    m_fStoreY = in.Get<float>();
    m_rcOld = in.Get<UstRect>();
    m_attr = in.Get<UstDefaultAttr>();
    m_setting = in.Get<UstTCSetting>();
    Build();
    return true;
}

}  // namespace orv
