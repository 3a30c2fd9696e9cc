#include "ui/zevrant_view.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

#include "objects/text_object.h"
#include "project/canvas_overlays.h"
#include "project/project_manager.h"
#include "shell/app_object.h"
#include "ui/fit_to_window.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"

namespace orv {

namespace {
constexpr int SCROLL_LINE = 40;
}

CZevrantView::CZevrantView(CMainFrame* frame, CZevrantDoc* doc, QWidget* parent)
    : QWidget(parent),
      m_pFrame(frame),
      m_pDoc(doc),
      m_wndVScroll(new QScrollBar(Qt::Vertical, this)),
      m_wndHScroll(new QScrollBar(Qt::Horizontal, this)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(160, 120);
    setAcceptDrops(true);
    m_wndVScroll->setObjectName("scroll100");
    m_wndHScroll->setObjectName("scroll101");
    for (QScrollBar* bar : {m_wndVScroll, m_wndHScroll}) {
        bar->setSingleStep(SCROLL_LINE);
        bar->hide();
        connect(bar, &QScrollBar::valueChanged, this,
                [this, bar](int v) { OnScroll(bar == m_wndVScroll, v); });
    }
}

CZevrantView::~CZevrantView() = default;

CPageManager* CZevrantView::Page() const {
    return m_pDoc && m_bAttached ? m_pDoc->Project().GetCurPage() : nullptr;
}

void CZevrantView::RefreshCanvas() {
    FitAndRender();
    update();
}

void CZevrantView::GoToPage(int index) {
    EndTextEdit();
    if (!m_pDoc || !m_pDoc->Project().GoToPage(index)) return;
    ShowPageStatus();
    update();
}

int CZevrantView::PageCommand(uint32_t id, const void* arg) {
    CPageManager* page = Page();
    if (!page || (m_pFrame && m_pFrame->m_nPlayState == 2)) return 0;
    const int result = page->ExecCommand(arg, id);
    update();
    return result;
}

int CZevrantView::ProjectCommand(uint32_t id, const void* arg) {
    if (!m_pDoc) return 0;
    EndTextEdit();
    const int result = m_pDoc->Project().ExecCommand(arg, id);
    if (!m_pDoc->Project().GetCurPage()) RenderPage();
    ShowPageStatus();
    update();
    return result;
}

void CZevrantView::ShowPageStatus() {
    if (!m_pFrame || !m_pDoc) return;
    m_pFrame->SetStatusPane(4, m_pDoc->Project().PageStatus());
    m_pFrame->RefreshPagePanes();
}

void CZevrantView::OnHotKey(const UstKeyInfo& key) {
    UstHotKeyContext ctx;
    ctx.bHasBoard = m_pFrame && m_pFrame->Board() != nullptr;
    ctx.bPageFitsCard = m_pFrame && m_pFrame->ActivePageFitsBoard();
    const CPlayEngine* engine = m_pFrame ? m_pFrame->PlayEngine() : nullptr;
    ctx.bPlaying = engine && (engine->State() != PLAY_IDLE || engine->IsLocked());
    const UstHotKey hot = CanvasHotKey(key, ctx);
    if (hot.action == EHotKey::PLAY) m_pFrame->PlayKey(hot.nVk);
    if (hot.action != EHotKey::MOVE_PAGE || !m_pDoc) return;
    const int current = m_pDoc->Project().m_nCurPage, last = m_pDoc->Project().PageCount() - 1;
    const int target = hot.nVk == vk::PRIOR  ? current - 1
                       : hot.nVk == vk::NEXT ? current + 1
                       : hot.nVk == vk::HOME ? 0
                                             : last;
    if (target >= 0 && target <= last) GoToPage(target);
}

void CZevrantView::OnAutoSave() {
    const QString saved = m_pDoc ? m_pDoc->AutoSave() : QString();
    if (!saved.isEmpty() && m_pFrame) m_pFrame->SetStatusPane(3, saved + tr(" is saved."));
}

void CZevrantView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    OnSize(width(), height());
}

void CZevrantView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_bAttached && m_pDoc) {
        // The first page goes on the canvas once the canvas has a size.
        m_bAttached = true;
        FitAndRender();
        m_pDoc->Project().AttachAll(this);
        ShowPageStatus();
    }
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
    if (CPageManager* page = Page()) page->OnViewResized();
}

void CZevrantView::FitAndRender() {
    const UstSize page = FrameSize();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const UstFit fit = FitToWindow(width(), height(), page.cx, page.cy, m_nPageKind, bar);
    m_rcPage = PlaceFitted(fit, width(), height(), m_nPageKind, bar);
    // Each window has the zoom that fits it; the frame keeps the last one
    // for what shows it.
    m_fZoom = static_cast<float>(fit.nZoom);
    if (m_pFrame) m_pFrame->m_fZoom = m_fZoom;
    if (fit.nWidth != m_nFitWidth || fit.nHeight != m_nFitHeight || m_pSurface.empty()) {
        m_nFitWidth = fit.nWidth;
        m_nFitHeight = fit.nHeight;
        m_pSurface.assign(static_cast<size_t>(m_nFitWidth) * m_nFitHeight, 0);
    }
    LayOutScrollBars();
    RenderPage();
}

void CZevrantView::LayOutScrollBars() {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    m_wndVScroll->setVisible(m_nPageKind == 1);
    m_wndHScroll->setVisible(m_nPageKind == 2);
    m_wndVScroll->setGeometry(width() - bar, 0, bar, height());
    m_wndHScroll->setGeometry(0, height() - bar, width(), bar);
}

// Without a page (before the project is attached) the backdrop and guides
// stand alone.
void CZevrantView::RenderPage() {
    if (m_pSurface.empty()) return;
    if (CPageManager* page = Page(); page && page->m_pCanvas == m_pSurface.data()) {
        page->RenderCanvas();
        page->DrawHandles();
        return;
    }
    if (!m_pFrame) return;
    DrawCanvasBackdrop(m_pSurface.data(), m_nFitWidth, m_nFitHeight, m_pFrame->m_Env,
                       m_pFrame->BackdropImage());
    UstOverlayParams params;
    params.nPageType = static_cast<uint32_t>(m_nPageKind);
    params.fZoom = m_fZoom;
    params.nFrameWidth = FrameSize().cx;
    DrawCanvasOverlays(m_pSurface.data(), m_nFitWidth, m_nFitHeight, m_pFrame->m_Env, params);
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
    if (!m_rcCaret.isEmpty()) {
        p.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        p.fillRect(m_rcCaret.translated(m_rcPage.topLeft()), Qt::white);
        p.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    if (m_drag.kind == EDrag::BAND) {
        p.setPen(QPen(Qt::black, 1, Qt::DashLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRect(m_drag.start, m_drag.current).normalized().translated(m_rcPage.topLeft()));
    }
    if (m_drag.kind == EDrag::CREATE) DrawShapePreview(p);
}

UstViewFrame CZevrantView::GetViewFrame() {
    UstViewFrame f;
    f.rcFrame = UstRect::FromQRect(m_rcPage);
    f.nWidth = m_nFitWidth;
    f.nHeight = m_nFitHeight;
    f.nOriginX = m_rcPage.left();
    f.nOriginY = m_rcPage.top();
    f.pCanvas = m_pSurface.empty() ? nullptr : m_pSurface.data();
    return f;
}

const UstEnv& CZevrantView::Env() const {
    return m_pFrame->m_Env;
}

float CZevrantView::Zoom() const {
    return m_fZoom;
}

// The project's own frame: several projects of different formats can be
// open at once.
UstSize CZevrantView::FrameSize() const {
    if (m_pDoc) return {m_pDoc->Project().FrameWidth(), m_pDoc->Project().FrameHeight()};
    const CZevrantApp* app = CZevrantApp::Get();
    return app ? app->GetFrameSize() : UstSize{1920, 1080};
}

const QImage* CZevrantView::BackdropImage() {
    return m_pFrame ? m_pFrame->BackdropImage() : nullptr;
}

void CZevrantView::SetPageType(uint32_t pageType, bool repaint) {
    m_nPageKind = static_cast<int>(pageType);
    FitAndRender();
    if (repaint) update();
}

int CZevrantView::SetScrollBar(uint32_t pageType, int origin, int total) {
    QScrollBar* bar = pageType == 1 ? m_wndVScroll : pageType == 2 ? m_wndHScroll : nullptr;
    if (!bar) return origin;
    const int length = pageType == 1 ? m_nFitHeight : m_nFitWidth;
    const QSignalBlocker block(bar);
    bar->setPageStep(length);
    bar->setRange(0, std::max(0, total - length));
    bar->setValue(origin);
    return bar->value();
}

void CZevrantView::OnScroll(bool vertical, int value) {
    CPageManager* page = Page();
    if (!page) return;
    if (vertical)
        page->SetScrollY(value);
    else
        page->SetScrollX(value);
}

void CZevrantView::InvalidateRect(const UstRect& windowRect) {
    update(windowRect.ToQRect());
}

void CZevrantView::Repaint() {
    update();
}

}  // namespace orv
