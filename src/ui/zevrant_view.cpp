#include "ui/zevrant_view.h"

#include <QGuiApplication>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>

#include "project/canvas_overlays.h"
#include "shell/app_object.h"
#include "ui/fit_to_window.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"

namespace orv {

CZevrantView::CZevrantView(CMainFrame* frame, CZevrantDoc* doc, QWidget* parent)
    : QWidget(parent), m_pFrame(frame), m_pDoc(doc) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
}

void CZevrantView::RefreshCanvas() {
    FitAndRender();
    update();
}

void CZevrantView::OnHotKey(const UstKeyInfo& key) {
    const CZevrantApp* app = CZevrantApp::Get();
    UstHotKeyContext ctx;
    ctx.bHasBoard = app && app->m_pBoard != nullptr;
    // Play control on the card arrives with the output board; until then a
    // hot key has nothing to act on and is only swallowed.
    const UstHotKey hot = CanvasHotKey(key, ctx);
    (void)hot;
}

void CZevrantView::OnAutoSave() {
    const QString saved = m_pDoc ? m_pDoc->AutoSave() : QString();
    if (!saved.isEmpty() && m_pFrame) m_pFrame->SetStatusPane(3, saved + tr(" is saved."));
}

void CZevrantView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    OnSize(width(), height());
}

void CZevrantView::OnSize(int cx, int cy) {
    if (cx <= 0 || cy <= 0) return;
    if (const QScreen* s = screen()) {
        const QSize full = s->size();
        if (cx >= full.width() && cy >= full.height()) return;
    }
    const CZevrantApp* app = CZevrantApp::Get();
    if (app && !app->m_bStarted && !isVisible()) return;
    FitAndRender();
}

void CZevrantView::FitAndRender() {
    const CZevrantApp* app = CZevrantApp::Get();
    const UstSize page = app ? app->GetFrameSize() : UstSize{1920, 1080};
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const UstFit fit = FitToWindow(width(), height(), page.cx, page.cy, m_nPageKind, bar);
    m_rcPage = PlaceFitted(fit, width(), height(), m_nPageKind, bar);
    if (m_pFrame) m_pFrame->m_fZoom = static_cast<float>(fit.nZoom);
    if (fit.nWidth != m_nFitWidth || fit.nHeight != m_nFitHeight) {
        m_nFitWidth = fit.nWidth;
        m_nFitHeight = fit.nHeight;
    }
    RenderPage();
}

// Stands where the page will draw itself: backdrop, objects, then guides.
void CZevrantView::RenderPage() {
    if (!m_pFrame || m_nFitWidth <= 0 || m_nFitHeight <= 0) {
        m_pSurface.clear();
        return;
    }
    m_pSurface.assign(static_cast<size_t>(m_nFitWidth) * m_nFitHeight, 0);
    const UstEnv& env = m_pFrame->m_Env;
    DrawCanvasBackdrop(m_pSurface.data(), m_nFitWidth, m_nFitHeight, env,
                       m_pFrame->BackdropImage());
    UstOverlayParams params;
    params.nPageType = static_cast<uint32_t>(m_nPageKind);
    params.fZoom = m_pFrame->m_fZoom;
    const CZevrantApp* app = CZevrantApp::Get();
    params.nFrameWidth = app ? app->GetFrameSize().cx : 1920;
    DrawCanvasOverlays(m_pSurface.data(), m_nFitWidth, m_nFitHeight, env, params);
}

void CZevrantView::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    const QColor surround = QColor::fromRgba(SURROUND);
    const bool editing = !m_pFrame || m_pFrame->m_nPlayState == 0;
    // Sizes that arrived while the program was starting were not acted on.
    if (editing && m_pSurface.empty()) FitAndRender();
    if (!editing || m_pSurface.empty()) {
        p.fillRect(event->rect(), surround);
        return;
    }
    const QRegion outside = QRegion(rect()) - QRegion(m_rcPage);
    for (const QRect& r : outside)
        p.fillRect(r, surround);
    const QImage image(reinterpret_cast<const uchar*>(m_pSurface.data()), m_nFitWidth, m_nFitHeight,
                       m_nFitWidth * 4, QImage::Format_ARGB32_Premultiplied);
    p.drawImage(m_rcPage.topLeft(), image);
    p.setPen(QColor(40, 44, 56));
    p.drawRect(m_rcPage.adjusted(-1, -1, 0, 0));
}

}  // namespace orv
