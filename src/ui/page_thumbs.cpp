#include "ui/page_thumbs.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

#include "playout/effect_table.h"
#include "project/clipboard_formats.h"
#include "project/project_manager.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int SMALLEST_SCROLL_PAGE = 100;
constexpr int WHEEL_NOTCH = 120;
constexpr QRgb TILE_COLOURS[GALLERY_GROUP_COUNT + 1] = {0xFFB0B0B0, 0xFFE8E8E8, 0xFFBFD8F4,
                                                        0xFFF4DDB0, 0xFFC8EEC0};

// The tile's colour tells the gallery group; roll and crawl have their own.
QRgb TileColour(int number) {
    return TILE_COLOURS[static_cast<size_t>(EffectGalleryGroup(number) + 1)];
}

}  // namespace

CPageThumbs::CPageThumbs(CMainFrame* frame, QWidget* parent)
    : CPaneDialog(parent), m_pFrame(frame), m_pScroll(new QScrollBar(Qt::Vertical, this)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(false);
    m_pScroll->setObjectName("previewScroll");
    connect(m_pScroll, &QScrollBar::valueChanged, this, &CPageThumbs::OnScrolled);
}

CZevrantView* CPageThumbs::View() const {
    return m_pFrame ? m_pFrame->ActiveView() : nullptr;
}

CProjectManager* CPageThumbs::Project() const {
    CZevrantView* view = View();
    return view && view->Document() ? &view->Document()->Project() : nullptr;
}

int CPageThumbs::PlayState() const {
    return m_pFrame ? m_pFrame->m_nPlayState : 0;
}

int CPageThumbs::PageCount() const {
    const CProjectManager* project = Project();
    return project ? project->PageCount() : 0;
}

float CPageThumbs::Aspect() const {
    const CProjectManager* project = Project();
    if (!project || project->m_nThumbWidth <= 0 || project->m_nThumbHeight <= 0)
        return 170.0f / 300;
    return static_cast<float>(project->m_nThumbHeight) / static_cast<float>(project->m_nThumbWidth);
}

void CPageThumbs::Refresh() {
    const CProjectManager* project = Project();
    const int current = project ? project->m_nCurPage : -1;
    Relayout();
    if (current != m_nCurrent) {
        m_nCurrent = current;
        if (current >= 0) SelectPage(current, false, false);
    }
    if (m_nFocus >= PageCount()) m_nFocus = m_nEffectSide = -1;
    update();
}

// Rows, scroll range and the scroll bar's place from the width, the bar's
// room kept so that it never covers a thumbnail; the position keeps its
// proportion of the range.
void CPageThumbs::Relayout() {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    m_geometry = ComputeGeometry(width() - bar, Aspect());
    m_pScroll->setGeometry(width() - bar, 0, bar, height());
    const int total = m_geometry.ContentHeight(PageCount());
    const int page = std::max(height(), SMALLEST_SCROLL_PAGE);
    const int oldMax = m_pScroll->maximum(), oldValue = m_pScroll->value();
    const int newMax = std::max(0, total - page);
    const QSignalBlocker block(m_pScroll);
    m_pScroll->setRange(0, newMax);
    m_pScroll->setPageStep(page);
    m_pScroll->setSingleStep(m_geometry.nPitch);
    if (oldMax > 0) m_pScroll->setValue(static_cast<int>(int64_t{oldValue} * newMax / oldMax));
    m_pScroll->setVisible(newMax > 0);
    m_nShownScroll = m_pScroll->value();
    update();
}

// The rows that stay on screen move as pixels; only the band that comes in
// is painted.
void CPageThumbs::OnScrolled(int value) {
    const int dy = m_nShownScroll - value;
    m_nShownScroll = value;
    const QRect list(0, 0, m_pScroll->x(), height());
    if (std::abs(dy) < height() && !m_bDragging)
        scroll(0, dy, list);
    else
        update();
}

void CPageThumbs::SelectPage(int index, bool bScrollTop, bool bNotify) {
    if (index < 0 || index >= PageCount()) return;
    CProjectManager* project = Project();
    if (bNotify && project && index != project->m_nCurPage) {
        if (CZevrantView* view = View()) view->ProjectCommand(CMD_PAGE_CLICKED, &index);
    }
    m_nCurrent = project ? project->m_nCurPage : index;
    const QRect row = m_geometry.ImageRect(index);
    const int top = m_pScroll->value(), bottom = top + height();
    if (bScrollTop)
        m_pScroll->setValue(row.top() - m_geometry.nTop);
    else if (row.top() < top)
        m_pScroll->setValue(row.top() - m_geometry.nTop);
    else if (row.bottom() >= bottom)
        m_pScroll->setValue(row.bottom() + 1 + m_geometry.nTop - height());
    update();
}

int CPageThumbs::HitTest(int x, int y, int* outIndex) const {
    return m_geometry.HitTest(ToContent({x, y}), PageCount(), outIndex);
}

QPoint CPageThumbs::ToContent(QPoint window) const {
    return window + QPoint(0, m_pScroll->value());
}

bool CPageThumbs::IsMarked(int index) const {
    const CProjectManager* project = Project();
    if (!project) return false;
    const auto& set = project->m_aSelPages;
    return index == project->m_nCurPage || std::find(set.begin(), set.end(), index) != set.end();
}

void CPageThumbs::resizeEvent(QResizeEvent* event) {
    CPaneDialog::resizeEvent(event);
    Relayout();
}

void CPageThumbs::mousePressEvent(QMouseEvent* event) {
    m_bPressed = m_bDragging = m_bClearOnRelease = false;
    if (PlayState() == 2 || !Project()) return;
    int index = -1;
    const int hit =
        HitTest(event->position().toPoint().x(), event->position().toPoint().y(), &index);
    if (event->button() == Qt::RightButton) {
        setFocus(Qt::MouseFocusReason);
        RightClick(hit, index, event->position().toPoint());
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    m_ptPress = event->position().toPoint();
    // A press on a marked page waits for the release: it may start a drag
    // of all marked pages.
    if (hit == THUMB_HIT_PAGE && event->modifiers() == Qt::NoModifier && IsMarked(index) &&
        PlayState() == 0) {
        m_bPressed = m_bClearOnRelease = true;
        return;
    }
    LeftClick(hit, index, event->modifiers());
    m_bPressed = hit == THUMB_HIT_PAGE && PlayState() == 0 && event->modifiers() == Qt::NoModifier;
}

void CPageThumbs::LeftClick(int hit, int index, Qt::KeyboardModifiers mods) {
    CZevrantView* view = View();
    if (!view) return;
    switch (hit) {
        case THUMB_HIT_PAGE:
            ClickPage(index, mods);
            break;
        case THUMB_HIT_NEW_PAGE:
            if (!(mods & (Qt::ControlModifier | Qt::ShiftModifier)) && PlayState() == 0)
                NewPageAtEnd();
            break;
        case THUMB_HIT_IN_EFFECT:
        case THUMB_HIT_OUT_EFFECT:
            PickEffect(index, hit == THUMB_HIT_IN_EFFECT ? 0 : 1, m_ptPress);
            break;
        default:
            view->ProjectCommand(CMD_CLEAR_PAGE_SELECTION);
            break;
    }
    Refresh();
}

void CPageThumbs::ClickPage(int index, Qt::KeyboardModifiers mods) {
    CZevrantView* view = View();
    const int current = Project()->m_nCurPage;
    if (index == current) {
        view->ProjectCommand(CMD_CLEAR_PAGE_SELECTION);
        if (PlayState() != 0) view->ProjectCommand(CMD_REFRESH_PLAY);
    } else if (mods & Qt::ControlModifier) {
        if (!view->ProjectCommand(CMD_REMOVE_PAGE_FROM_SELECTION, &index))
            view->ProjectCommand(CMD_ADD_PAGE_TO_SELECTION, &index);
    } else if (mods & Qt::ShiftModifier) {
        view->ProjectCommand(CMD_CLEAR_PAGE_SELECTION);
        for (int i = std::min(index, current); i <= std::max(index, current); ++i)
            if (i != current) view->ProjectCommand(CMD_ADD_PAGE_TO_SELECTION, &i);
    } else {
        view->ProjectCommand(CMD_CLEAR_PAGE_SELECTION);
        SelectPage(index, false, true);
    }
}

// The right button keeps a marked page's selection; on any other page it
// acts as a plain click. Over a page in the edit state the pages' menu opens.
void CPageThumbs::RightClick(int hit, int index, QPoint at) {
    if (hit != THUMB_HIT_PAGE) return;
    if (!IsMarked(index)) LeftClick(hit, index, Qt::NoModifier);
    if (PlayState() == 0) PageMenu(at);
}

void CPageThumbs::PageMenu(QPoint at) {
    CZevrantView* view = View();
    if (!view) return;
    QMenu menu(this);
    menu.setObjectName("pageMenu");
    const auto add = [&](const QString& text, uint32_t id) {
        menu.addAction(text, this,
                       [this, id] {
                           CZevrantView* v = View();
                           if (!v) return;
                           if (id == CMD_NEW_PAGE) {
                               const int current = Project()->m_nCurPage;
                               v->ProjectCommand(id, current >= 0 ? &current : nullptr);
                           } else if (id == CMD_DELETE_PAGES) {
                               v->ProjectCommand(id);
                           } else {
                               v->EditCommand(id);
                           }
                           Refresh();
                       })
            ->setObjectName(QString("cmd%1").arg(id));
    };
    add(tr("New Page"), CMD_NEW_PAGE);
    add(tr("Delete Page"), CMD_DELETE_PAGES);
    menu.addSeparator();
    add(tr("Cu&t"), CMD_CUT);
    add(tr("&Copy"), CMD_COPY);
    add(tr("&Paste"), CMD_PASTE);
    Q_EMIT ContextMenuShown(&menu);
    menu.exec(mapToGlobal(at));
}

void CPageThumbs::NewPageAtEnd() {
    const int last = PageCount() - 1;
    View()->ProjectCommand(CMD_NEW_PAGE, last >= 0 ? &last : nullptr);
    Relayout();
    SelectPage(PageCount() - 1, false, false);
}

void CPageThumbs::PickEffect(int index, int side, QPoint at) {
    CProjectManager* project = Project();
    const CPageManager* page = project ? project->GetPage(index) : nullptr;
    if (!page || PlayState() != 0) return;
    m_nFocus = index;
    m_nEffectSide = side;
    update();
    const int current = side == 0 ? page->m_effect.nInEffect : page->m_effect.nOutEffect;
    QMenu* menu = MakeEffectMenu(current, m_pFrame ? m_pFrame->Language() : 9, this);
    int chosen = -1;
    connect(menu, &QMenu::triggered, this, [&chosen](QAction* a) { chosen = a->data().toInt(); });
    Q_EMIT EffectMenuShown(menu);
    menu->exec(mapToGlobal(at));
    delete menu;
    if (chosen >= 0 && project->SetPageEffect(index, side, chosen)) View()->ShowPageStatus();
    update();
}

void CPageThumbs::mouseMoveEvent(QMouseEvent* event) {
    if (!m_bPressed || PlayState() != 0) return;
    const QPoint at = event->position().toPoint();
    if (!m_bDragging && (at - m_ptPress).manhattanLength() < QApplication::startDragDistance())
        return;
    m_bDragging = true;
    m_bClearOnRelease = false;
    // Near the edges the list scrolls under the pages being carried.
    if (at.y() < m_geometry.nTop) m_pScroll->setValue(m_pScroll->value() - m_geometry.nPitch / 4);
    if (at.y() > height() - m_geometry.nTop)
        m_pScroll->setValue(m_pScroll->value() + m_geometry.nPitch / 4);
    m_nDropGap = m_geometry.DropGap(ToContent(at), PageCount());
    update();
}

void CPageThumbs::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool clear = m_bClearOnRelease, dragging = m_bDragging;
    m_bPressed = m_bDragging = m_bClearOnRelease = false;
    if (dragging)
        EndDrag(event->position().toPoint());
    else if (clear) {
        int index = -1;
        const int hit = HitTest(m_ptPress.x(), m_ptPress.y(), &index);
        if (hit == THUMB_HIT_PAGE) LeftClick(hit, index, Qt::NoModifier);
    }
    m_nDropGap = -1;
    update();
}

void CPageThumbs::EndDrag(QPoint window) {
    CZevrantView* view = View();
    if (!view || PlayState() != 0) return;
    const int gap = m_geometry.DropGap(ToContent(window), PageCount());
    view->ProjectCommand(CMD_MOVE_PAGES, &gap);
    Refresh();
    if (const CProjectManager* project = Project()) SelectPage(project->m_nCurPage, false, false);
}

void CPageThumbs::mouseDoubleClickEvent(QMouseEvent* event) {
    int index = -1;
    const QPoint at = event->position().toPoint();
    if (PlayState() != 0 && HitTest(at.x(), at.y(), &index) == THUMB_HIT_PAGE && m_pFrame)
        m_pFrame->TogglePlayMode();
}

void CPageThumbs::wheelEvent(QWheelEvent* event) {
    const int notches = event->angleDelta().y() / WHEEL_NOTCH;
    m_pScroll->setValue(m_pScroll->value() - notches * m_geometry.nPitch);
    event->accept();
}

void CPageThumbs::keyPressEvent(QKeyEvent* event) {
    CProjectManager* project = Project();
    if (!project || PlayState() == 2) return;
    const int current = project->m_nCurPage, last = project->PageCount() - 1;
    switch (event->key()) {
        case Qt::Key_Up:
            MoveTo(current - 1);
            break;
        case Qt::Key_Down:
            MoveTo(current + 1);
            break;
        case Qt::Key_Home:
            MoveTo(0);
            break;
        case Qt::Key_End:
            MoveTo(last);
            break;
        case Qt::Key_Delete:
            if (PlayState() == 0) View()->ProjectCommand(CMD_DELETE_PAGES);
            break;
        case Qt::Key_Insert:
            if (PlayState() == 0)
                View()->ProjectCommand(CMD_NEW_PAGE, current >= 0 ? &current : nullptr);
            break;
        default:
            CPaneDialog::keyPressEvent(event);
            return;
    }
    Refresh();
}

void CPageThumbs::MoveTo(int index) {
    if (index < 0 || index >= PageCount()) return;
    View()->ProjectCommand(CMD_CLEAR_PAGE_SELECTION);
    SelectPage(index, false, true);
}

void CPageThumbs::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    Redraw(painter, event->rect());
}

void CPageThumbs::Redraw(QPainter& painter, const QRect& band) {
    painter.fillRect(band, QColor::fromRgba(BACK));
    const CProjectManager* project = Project();
    if (!project) return;
    const int pages = project->PageCount();
    const int top = m_pScroll->value();
    painter.save();
    painter.setClipRect(band);
    painter.translate(0, -top);
    const int last = m_geometry.LastCellIn(top + band.bottom() + 1, pages);
    for (int cell = m_geometry.FirstCellIn(top + band.top()); cell <= last; ++cell)
        PaintCell(painter, cell, pages, *project);
    if (m_bDragging && m_nDropGap >= 0) {
        const QRect image = m_geometry.ImageRect(m_nDropGap);
        const QRect mark = m_geometry.nColumns == 1
                               ? QRect(0, image.top() - 5, width(), 3)
                               : QRect(image.left() - 6, image.top(), 3, m_geometry.nImageHeight);
        painter.fillRect(mark, QColor::fromRgba(MARK_FOCUS));
    }
    painter.restore();
}

void CPageThumbs::PaintCell(QPainter& painter, int cell, int pages,
                            const CProjectManager& project) const {
    const QRect image = m_geometry.ImageRect(cell);
    if (cell == pages) {
        painter.setPen(QPen(QColor(0x3D, 0x6C, 0xC0), 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(image.adjusted(0, 0, -1, -1));
        painter.drawText(image, Qt::AlignCenter, tr("New page"));
        return;
    }
    const CPageManager* page = project.GetPage(cell);
    if (!page) return;
    PaintThumb(painter, *page, image);
    const bool focus = m_pFrame ? m_pFrame->m_bPageFocus : hasFocus();
    if (IsMarked(cell)) {
        painter.setPen(QPen(QColor::fromRgba(focus ? MARK_FOCUS : MARK), 3, Qt::SolidLine,
                            Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(image.adjusted(-2, -2, 1, 1));
    }
    painter.setPen(Qt::black);
    painter.drawText(m_geometry.NumberRect(cell), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(cell + 1));
    if (m_geometry.bTiles) {
        const bool chosen = cell == m_nFocus && PlayState() != 2;
        PaintTile(painter, page->m_effect.nInEffect, m_geometry.EffectTile(cell, 0),
                  chosen && m_nEffectSide == 0);
        PaintTile(painter, page->m_effect.nOutEffect, m_geometry.EffectTile(cell, 1),
                  chosen && m_nEffectSide == 1);
    }
    if (m_geometry.nCaption > 0) PaintCaption(painter, *page, m_geometry.CaptionRect(cell));
}

// The page's own thumbnail, stored bottom row first; a missing or short
// one shows as a blank page.
void CPageThumbs::PaintThumb(QPainter& painter, const CPageManager& page, const QRect& rect) const {
    const auto& bits = page.ThumbBits();
    const int w = page.m_nThumbWidth, h = page.m_nThumbHeight;
    if (w <= 0 || h <= 0 || bits.size() < static_cast<size_t>(w) * static_cast<size_t>(h)) {
        painter.fillRect(rect, Qt::white);
        return;
    }
    const QImage image(reinterpret_cast<const uchar*>(bits.data()), w, h, w * 4,
                       QImage::Format_ARGB32_Premultiplied);
    painter.fillRect(rect, Qt::black);
    painter.save();
    painter.translate(rect.left(), rect.top() + rect.height());
    painter.scale(1.0, -1.0);
    painter.drawImage(QRect(0, 0, rect.width(), rect.height()), image);
    painter.restore();
}

void CPageThumbs::PaintTile(QPainter& painter, int number, const QRect& rect, bool chosen) const {
    painter.fillRect(rect, QColor::fromRgba(TileColour(number)));
    painter.setPen(QColor(0x60, 0x60, 0x60));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.setPen(Qt::black);
    painter.drawText(rect, Qt::AlignCenter, QString::number(number));
    if (chosen) {
        painter.setPen(
            QPen(QColor::fromRgba(MARK_FOCUS), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(rect.adjusted(-1, -1, 0, 0));
    }
}

void CPageThumbs::PaintCaption(QPainter&, const CPageManager&, const QRect&) const {}

QMenu* MakeEffectMenu(int current, uint16_t language, QWidget* parent) {
    auto* menu = new QMenu(parent);
    menu->setObjectName("effectGallery");
    for (int group = 0; group < GALLERY_GROUP_COUNT; ++group) {
        menu->addSection(EffectGroupName(group, language));
        for (int number = GALLERY_FIRST_EFFECT; number < EFFECT_COUNT; ++number) {
            if (EffectGalleryGroup(number) != group) continue;
            QAction* action = menu->addAction(EffectName(number, language));
            action->setData(number);
            action->setCheckable(true);
            action->setChecked(number == current);
            action->setObjectName(QString("effect%1").arg(number));
        }
    }
    return menu;
}

}  // namespace orv
