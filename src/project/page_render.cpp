// The page's drawing, thumbnail, text list, hit testing and scroll state.
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "project/canvas_overlays.h"
#include "project/page_manager.h"
#include "render/image_file.h"
#include "render/pixels.h"

namespace orv {

void CPageManager::RenderCanvasExcept(const CQRDObject* except) {
    m_bUnderlayValid = false;
    // Editing a shape's control point lasts while the shape stays selected.
    EndStrayShapeEdits();
    if (!m_pCanvas || m_nWidth <= 0 || m_nHeight <= 0) return;
    const UstEnv fallback = MakeDefaultEnv(9);
    const UstEnv& env = m_pView ? m_pView->Env() : fallback;
    DrawBackgroundStep(env);
    for (auto& o : m_objects) {
        if (o.get() == except) continue;
        o->Draw();
        o->DrawBlinkMark();
        o->DrawTypingMark();
    }
    UstOverlayParams params;
    params.nPageType = m_nPageType;
    params.fZoom = GetZoom();
    params.nFrameWidth = m_pDoc ? m_pDoc->FrameWidth() : 1920;
    DrawCanvasOverlays(m_pCanvas, m_nWidth, m_nHeight, env, params);
}

void CPageManager::DrawHandles() {
    if (!m_pCanvas || m_selection.empty()) return;
    QImage surface(reinterpret_cast<uchar*>(m_pCanvas), m_nWidth, m_nHeight, m_nWidth * 4,
                   QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&surface);
    for (const CQRDObject* o : m_selection)
        o->DrawHandles(painter);
}

void CPageManager::Repaint() {
    RenderCanvas();
    DrawHandles();
    if (m_pView) m_pView->Repaint();
}

void CPageManager::UpdateThumbnail() {
    const int w = m_pDoc ? m_pDoc->FrameWidth() : 1920;
    const int h = m_pDoc ? m_pDoc->FrameHeight() : 1080;
    std::vector<uint32_t> scratch(static_cast<size_t>(w) * h, 0);
    if (const uint32_t* surface = m_background.bPresent ? m_background.Surface(w, h) : nullptr)
        std::copy(surface, surface + scratch.size(), scratch.begin());
    for (auto& o : m_objects)
        o->DrawTo(scratch.data(), w, h);
    m_pThumbBits.assign(static_cast<size_t>(m_nThumbWidth) * m_nThumbHeight, 0);
    ScalePixelRect(m_pThumbBits.data(), {0, 0, m_nThumbWidth, m_nThumbHeight}, scratch.data(),
                   {0, 0, w, h}, INTERPOLATION_HIGH_QUALITY);
    FlipPixels(m_pThumbBits.data(), m_nThumbWidth, m_nThumbHeight, 0);  // file order: bottom up
}

void CPageManager::DrawToImage(uint32_t* bits, int w, int h) {
    if (!bits || w <= 0 || h <= 0) return;
    ClearPixels(bits, w, h);
    DrawFrame(bits, nullptr, w, h);
}

void CPageManager::RebuildPageText(bool measure) {
    if (measure)
        for (auto& o : m_objects)
            if (o->GetType() == OBJ_TEXT) static_cast<CQRDObjectText*>(o.get())->MeasureAll();
    m_strPageText.clear();
    bool first = true;
    for (const auto& o : m_objects) {
        if (o->GetType() != OBJ_TEXT) continue;
        if (!first) m_strPageText += QChar(13);
        m_strPageText += o->GetPlainText();
        first = false;
    }
    const QString pair(2, QChar(13));
    while (m_strPageText.contains(pair))
        m_strPageText.replace(pair, QString(QChar(13)));
}

CQRDObject* CPageManager::HitTestObject(int x, int y) const {
    for (auto it = m_objects.rbegin(); it != m_objects.rend(); ++it)
        if ((*it)->HitTest(x, y)) return it->get();
    return nullptr;
}

int CPageManager::HitTestHandles(int x, int y, CQRDObject** outObject) {
    CQRDObject* dummy = nullptr;
    CQRDObject*& out = outObject ? *outObject : dummy;
    out = nullptr;
    for (auto it = m_objects.rbegin(); it != m_objects.rend(); ++it) {
        CQRDObject* o = it->get();
        if (!IsSelected(o)) continue;
        out = o;
        if (o->HasAdjustPoint() && o->HitTestAdjust(x, y)) return HIT_ADJUST;
        const int handle = o->HitTestHandle(x, y);
        if (handle >= 0 && handle < HANDLE_ROTATE)
            return m_selection.size() > 1 ? HIT_SIZE_MANY : handle;
        if (handle == HANDLE_ROTATE && o->CanRotate()) return HIT_ROTATE;
    }
    out = HitTestObject(x, y);
    if (!out) {
        if (m_selection.empty()) return HIT_NONE_EMPTY;
        m_selection.clear();
        return HIT_NONE_CLEARED;
    }
    if (m_selection.empty()) {
        Select(out);
        return HIT_NEWLY_SELECTED;
    }
    if (m_selection.size() == 1 && m_selection.front() == out) return HIT_SELECTED;
    if (m_selection.size() == 1) SelectOnly(out);
    return HIT_OTHER;
}

void CPageManager::ApplyScrollOrigin() {
    const int length = ScrollLength();
    const int origin = static_cast<int>((m_nScrollHalf + m_fScrollFrac) * length / 2.0f);
    const int total = static_cast<int>(m_nScrollHalves * length / 2.0f);
    const int pos = m_pView ? m_pView->SetScrollBar(m_nPageType, origin, total) : origin;
    if (m_nPageType == 1) m_nScrollY = pos;
    if (m_nPageType == 2) m_nScrollX = pos;
}

int CPageManager::ScrollToRect(int left, int top, int right, int bottom) {
    if (!IsScrollPage()) return 0;
    const int length = ScrollLength();
    const int half = length / 2;
    if (half <= 0) return 0;
    const bool roll = m_nPageType == 1;
    const int nearEdge = roll ? top : left, farEdge = roll ? bottom : right;
    const int origin = roll ? m_nScrollY : m_nScrollX;
    if (farEdge < origin + length && nearEdge > origin) return 0;
    int needed = 0;
    if (farEdge < origin + length) {
        m_nScrollHalf = std::max(0, nearEdge / half);
        needed = m_nScrollHalf + 2;
    } else {
        m_nScrollHalf = std::max(0, farEdge / half - 1);
        needed = farEdge / half + 1;
    }
    m_nScrollHalves = std::max(m_nScrollHalves, needed);
    m_fScrollFrac = 0.0f;
    ApplyScrollOrigin();
    return 1;
}

void CPageManager::SetScroll(int pos) {
    const int length = ScrollLength();
    const int half = length / 2;
    if (half <= 0) return;
    int& origin = m_nPageType == 1 ? m_nScrollY : m_nScrollX;
    const int newHalf = pos / half;
    if (newHalf == m_nScrollHalf && pos == origin) return;
    m_nScrollHalf = newHalf;
    const int unit = static_cast<int>(length * 0.5);
    m_fScrollFrac = static_cast<float>(pos % unit) / (static_cast<float>(length) * 0.5f);
    origin = pos;
    EndTextEdit();
    RenderCanvas();
    DrawHandles();
    if (m_pView) m_pView->Repaint();
}

void CPageManager::SetScrollY(int pos) {
    if (m_nPageType == 1) SetScroll(pos);
}

void CPageManager::SetScrollX(int pos) {
    if (m_nPageType == 2) SetScroll(pos);
}

}  // namespace orv
