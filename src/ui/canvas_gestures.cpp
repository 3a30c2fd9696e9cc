// The canvas's mouse, key and wheel handling in select mode.
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QWheelEvent>

#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "project/project_manager.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

UstRect Moved(const UstRect& r, QPoint d) {
    return {r.left + d.x(), r.top + d.y(), r.right + d.x(), r.bottom + d.y()};
}

}  // namespace

Qt::CursorShape HandleCursor(int handle) {
    switch (handle) {
        case 0:
        case 4:
            return Qt::SizeFDiagCursor;
        case 1:
        case 5:
            return Qt::SizeVerCursor;
        case 2:
        case 6:
            return Qt::SizeBDiagCursor;
        case 3:
        case 7:
            return Qt::SizeHorCursor;
        default:
            return Qt::ArrowCursor;
    }
}

namespace {

// A cursor drawn twice, wide in white and then narrow in black, so that it
// shows over any page.
template <typename Draw>
QCursor OutlinedCursor(Draw draw, int hotX, int hotY) {
    QPixmap pm(24, 24);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    for (const auto& [colour, width] : {std::pair{QColor(Qt::white), 4}, {QColor(Qt::black), 2}}) {
        p.setPen(QPen(colour, width));
        draw(p);
    }
    return QCursor(pm, hotX, hotY);
}

}  // namespace

QCursor RotateCursor() {
    return OutlinedCursor(
        [](QPainter& p) {
            p.drawArc(QRect(5, 5, 14, 14), 30 * 16, 300 * 16);
            p.drawLine(18, 4, 18, 10);
            p.drawLine(18, 10, 12, 10);
        },
        12, 12);
}

// A dropper: picking a key colour reads the pixel under its tip.
QCursor PickColourCursor() {
    return OutlinedCursor(
        [](QPainter& p) {
            p.drawLine(2, 21, 13, 10);
            p.drawEllipse(QRect(12, 3, 9, 9));
        },
        2, 21);
}

void CZevrantView::PickKeyColour(const QPoint& canvas) {
    CPageManager* page = Page();
    if (m_pSurface.empty() || canvas.x() < 0 || canvas.y() < 0 || canvas.x() >= m_nFitWidth ||
        canvas.y() >= m_nFitHeight)
        return;
    // What the canvas shows there, overlays included; it is opaque.
    const uint32_t seen =
        m_pSurface[static_cast<size_t>(canvas.y()) * m_nFitWidth + canvas.x()] & 0x00FFFFFFu;
    const uint32_t key = 0xFF000000u | seen;
    page->ExecCommand(&key, CMD_KEY_COLOUR);
    UpdateCursor(canvas + m_rcPage.topLeft());
    update();
}

QPoint CZevrantView::ToCanvas(const QPoint& window) const {
    return window - m_rcPage.topLeft();
}

void CZevrantView::mousePressEvent(QMouseEvent* event) {
    CPageManager* page = Page();
    const QPoint window = event->position().toPoint();
    if (!page || !m_pFrame || m_pFrame->m_nPlayState != 0 || !m_rcPage.contains(window)) return;
    setFocus();
    const QPoint canvas = ToCanvas(window);
    if (event->button() == Qt::LeftButton && page->PickingPicture()) {
        PickKeyColour(canvas);
        return;
    }
    if (EditingMousePress(event, canvas)) return;
    if (event->button() == Qt::LeftButton && m_pFrame->m_nCanvasMode == MODE_TEXT) {
        StartNewText(canvas);
        return;
    }
    if (event->button() == Qt::LeftButton && m_pFrame->m_nCanvasMode == MODE_SHAPE) {
        BeginShapeDrag(canvas);
        return;
    }
    if (event->button() == Qt::RightButton) {
        RightButton(canvas);
        AnimationMenu(window);
        return;
    }
    if (event->button() != Qt::LeftButton || m_pFrame->m_nCanvasMode != MODE_SELECT) return;
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        if (CQRDObject* o = page->HitTestObject(canvas.x(), canvas.y())) page->ToggleSelection(o);
        page->RenderCanvas();
        page->DrawHandles();
        update();
        return;
    }
    BeginDrag(canvas);
    UpdateCursor(window);
}

void CZevrantView::BeginDrag(const QPoint& canvas) {
    CPageManager* page = Page();
    const UstRect before = page->SelectionWindowRect();
    CQRDObject* hit = nullptr;
    const int result = page->HitTestHandles(canvas.x(), canvas.y(), &hit);
    m_drag = UstDrag{};
    m_drag.start = m_drag.current = canvas;
    m_drag.object = hit;
    m_drag.before = before;
    if (result == HIT_ADJUST) {
        m_drag.kind = EDrag::ADJUST;
    } else if (result >= HIT_SIZE_FIRST && result <= HIT_SIZE_LAST && hit->GetType() != OBJ_GROUP) {
        if (hit->m_bLocked) return;
        m_drag.kind = EDrag::SIZE;
        m_drag.handle = result;
        m_drag.rects = {hit->m_rcView};
    } else if (result == HIT_ROTATE) {
        if (hit->m_bLocked) return;
        m_drag.kind = EDrag::ROTATE;
        m_drag.rects = {hit->m_rcView};
        m_pFrame->m_nCanvasMode = MODE_ROTATE;
    } else if (result == HIT_NONE_EMPTY || result == HIT_NONE_CLEARED) {
        m_drag.kind = EDrag::BAND;
        if (result == HIT_NONE_CLEARED) {
            page->RenderCanvas();
            update();
        }
    } else if (result >= HIT_SELECTED || (result <= HIT_SIZE_LAST && hit)) {
        // A group has no size of its own: its squares move it.
        m_drag.kind = EDrag::MOVE;
        for (const CQRDObject* o : page->Selection())
            m_drag.rects.push_back(o->m_rcView);
        page->RenderCanvas();
        page->DrawHandles();
        update();
    }
}

void CZevrantView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint window = event->position().toPoint();
    if (CQRDObjectText* text = EditedText(); text && event->buttons().testFlag(Qt::LeftButton)) {
        text->MouseMove(ToCanvas(window).x(), ToCanvas(window).y());
        return;
    }
    if (m_drag.kind != EDrag::NONE && event->buttons().testFlag(Qt::LeftButton)) {
        DragTo(ToCanvas(window));
        return;
    }
    UpdateCursor(window);
}

void CZevrantView::DragTo(const QPoint& canvas) {
    CPageManager* page = Page();
    if (!page || canvas == m_drag.current) return;
    m_drag.current = canvas;
    m_drag.moved = true;
    const UstPoint s = page->GetScrollOrigin();
    const QPoint scroll(s.x, s.y);
    if (m_drag.kind == EDrag::SIZE) {
        CQRDObject* o = m_drag.object;
        o->m_rcView = TrackHandleRect(m_drag.rects[0], o->m_nAngle, m_drag.handle,
                                      m_drag.start + scroll, canvas + scroll);
        o->UpdateStored(false);
        o->RecalcHandles();
    } else if (m_drag.kind == EDrag::ROTATE) {
        m_drag.object->m_nAngle = AngleToward(m_drag.rects[0], canvas + scroll);
        m_drag.object->RecalcHandles();
    } else if (m_drag.kind == EDrag::ADJUST) {
        DragControlPoint(canvas);
    } else if (m_drag.kind == EDrag::MOVE) {
        const QPoint d = canvas - m_drag.start;
        const auto& sel = page->Selection();
        for (size_t i = 0; i < sel.size() && i < m_drag.rects.size(); ++i) {
            if (sel[i]->m_bLocked) continue;
            // Through the object, so that a group takes its members along.
            const UstRect to = Moved(m_drag.rects[i], d);
            sel[i]->Execute(&to, CMD_SET_RECT);
        }
    } else {
        update();
        return;
    }
    page->RenderCanvas();
    page->DrawHandles();
    update();
}

void CZevrantView::mouseReleaseEvent(QMouseEvent* event) {
    if (CQRDObjectText* text = EditedText(); text && m_drag.kind == EDrag::NONE) {
        if (event->button() == Qt::LeftButton) text->MouseUp();
        return;
    }
    if (event->button() != Qt::LeftButton || m_drag.kind == EDrag::NONE) return;
    DragTo(ToCanvas(event->position().toPoint()));
    EndDrag();
    UpdateCursor(event->position().toPoint());
}

void CZevrantView::EndDrag() {
    CPageManager* page = Page();
    const UstDrag drag = m_drag;
    m_drag = UstDrag{};
    if (drag.kind == EDrag::ROTATE) m_pFrame->m_nCanvasMode = MODE_SELECT;
    if (drag.kind == EDrag::CREATE) EndShapeDrag(drag);
    if (!page) return;
    if (drag.kind == EDrag::CREATE) {
        // The new shape is drawn and recorded by the page.
    } else if (drag.kind == EDrag::BAND) {
        m_drag.start = drag.start;
        m_drag.current = drag.current;
        SelectInBand();
        m_drag = UstDrag{};
    } else if (drag.moved) {
        // A text is not clipped by its new rectangle: it is fitted to it.
        if (drag.kind == EDrag::SIZE && drag.object->GetType() == OBJ_TEXT)
            static_cast<CQRDObjectText*>(drag.object)
                ->FitToRect(drag.rects[0], drag.object->m_rcView);
        // A shape's control point follows the resize once, at its end.
        if (auto* shape = dynamic_cast<CQRDObjectShape*>(drag.object);
            shape && drag.kind == EDrag::SIZE)
            shape->CommitResize();
        page->FinishGesture(drag.before);
    }
    page->RenderCanvas();
    page->DrawHandles();
    update();
}

// An object joins only if it lies wholly inside the band.
void CZevrantView::SelectInBand() {
    CPageManager* page = Page();
    const QRect band = QRect(m_drag.start, m_drag.current).normalized();
    if (band.width() <= 1 && band.height() <= 1) return;
    const UstPoint s = page->GetScrollOrigin();
    for (const auto& o : page->Objects()) {
        const QRect r = o->GetBoundRect().ToQRect().translated(-s.x, -s.y);
        if (band.united(r) == band) page->Select(o.get());
    }
}

void CZevrantView::RightButton(const QPoint& canvas) {
    CPageManager* page = Page();
    if (m_pFrame->m_nCanvasMode != MODE_SELECT) return;
    CQRDObject* o = page->HitTestObject(canvas.x(), canvas.y());
    if (!o)
        page->ClearSelection();
    else if (!page->IsSelected(o))
        page->SelectOnly(o);
    page->RenderCanvas();
    page->DrawHandles();
    update();
}

void CZevrantView::UpdateCursor(const QPoint& window) {
    CPageManager* page = Page();
    if (!page || !m_rcPage.contains(window)) {
        setCursor(Qt::ArrowCursor);
        return;
    }
    if (page->PickingPicture()) return setCursor(PickColourCursor());
    const int mode = m_pFrame ? m_pFrame->m_nCanvasMode : MODE_SELECT;
    if (mode == MODE_ROTATE) return setCursor(RotateCursor());
    if (mode == MODE_TEXT) return setCursor(Qt::IBeamCursor);
    if (mode == MODE_SHAPE) return setCursor(Qt::CrossCursor);
    const QPoint c = ToCanvas(window);
    for (const CQRDObject* o : page->Selection()) {
        if (o->HasAdjustPoint() && o->HitTestAdjust(c.x(), c.y()))
            return setCursor(Qt::PointingHandCursor);
        if (o->m_bLocked) continue;
        const int handle = o->HitTestHandle(c.x(), c.y());
        if (handle == HANDLE_ROTATE && o->CanRotate()) return setCursor(RotateCursor());
        if (handle >= 0 && handle < HANDLE_ROTATE) {
            const bool down = m_drag.kind != EDrag::NONE;
            return setCursor(down ? Qt::CrossCursor : HandleCursor(handle));
        }
    }
    setCursor(page->HitTestObject(c.x(), c.y()) ? Qt::SizeAllCursor : Qt::ArrowCursor);
}

void CZevrantView::keyPressEvent(QKeyEvent* event) {
    CPageManager* page = Page();
    if (page && m_pFrame && m_pFrame->m_nPlayState == 0 && EditingKey(event)) return;
    if (!page || !m_pFrame || m_pFrame->m_nPlayState != 0 || page->SelectedIsEditing()) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (NavigationKey(event->key())) return;
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && page->OneSelectedOfKind(OBJ_TEXT)) {
        EditText(static_cast<CQRDObjectText*>(page->Selection().front()), {}, true);
        return;
    }
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    UstPoint d;
    uint32_t id = 0;
    switch (event->key()) {
        case Qt::Key_Right:
            id = CMD_NUDGE_RIGHT;
            d = {step, 0};
            break;
        case Qt::Key_Left:
            id = CMD_NUDGE_LEFT;
            d = {-step, 0};
            break;
        case Qt::Key_Up:
            id = CMD_NUDGE_UP;
            d = {0, -step};
            break;
        case Qt::Key_Down:
            id = CMD_NUDGE_DOWN;
            d = {0, step};
            break;
        case Qt::Key_Delete:
            id = CMD_DELETE;
            break;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    PageCommand(id, id == CMD_DELETE ? nullptr : &d);
}

bool CZevrantView::NavigationKey(int key) {
    CProjectManager& project = m_pDoc->Project();
    const int last = project.PageCount() - 1;
    switch (key) {
        case Qt::Key_PageUp:
            GoToPage(std::max(0, project.m_nCurPage - 1));
            return true;
        case Qt::Key_PageDown:
            GoToPage(std::min(last, project.m_nCurPage + 1));
            return true;
        case Qt::Key_Home:
            GoToPage(0);
            return true;
        case Qt::Key_End:
            GoToPage(last);
            return true;
        default:
            return false;
    }
}

void CZevrantView::wheelEvent(QWheelEvent* event) {
    const int steps = event->angleDelta().y() / 120;
    if (steps == 0 || m_nPageKind == 0) return;
    QScrollBar* bar = m_nPageKind == 1 ? m_wndVScroll : m_wndHScroll;
    bar->setValue(bar->value() - steps * bar->singleStep());
    event->accept();
}

void CZevrantView::contextMenuEvent(QContextMenuEvent* event) {
    m_pFrame->ShowCanvasMenu(event->globalPos());
    event->accept();
}

}  // namespace orv
