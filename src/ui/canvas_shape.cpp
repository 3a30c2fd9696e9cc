// The canvas's shape gestures: a new shape dragged out in shape mode, and
// the yellow control point dragged while a shape is being edited.
#include <QPainter>
#include <QPainterPath>

#include "objects/shape_object.h"
#include "project/page_manager.h"
#include "render/shape_path.h"
#include "ui/main_frame.h"
#include "ui/zevrant_view.h"

namespace orv {

void CZevrantView::BeginShapeDrag(const QPoint& canvas) {
    m_drag = UstDrag{};
    m_drag.kind = EDrag::CREATE;
    m_drag.start = m_drag.current = canvas;
}

// The outline of the shape being drawn, inverted over the page.
void CZevrantView::DrawShapePreview(QPainter& painter) const {
    if (!m_drag.moved) return;
    const int kind = m_pFrame ? m_pFrame->m_nShapeKind : 0;
    const UstRect r = ShapeDragRect(kind, {m_drag.start.x(), m_drag.start.y()},
                                    {m_drag.current.x(), m_drag.current.y()});
    QPainterPath path;
    DefaultControlPoint(r.left, r.top, r.right, r.bottom, path, kind);
    painter.save();
    painter.translate(m_rcPage.topLeft());
    painter.setClipRect(QRect(0, 0, m_rcPage.width(), m_rcPage.height()));
    painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.restore();
}

// A drag that never moved makes nothing; either way the canvas goes back
// to selecting.
void CZevrantView::EndShapeDrag(const UstDrag& drag) {
    m_pFrame->m_nCanvasMode = MODE_SELECT;
    CPageManager* page = Page();
    if (!page || !drag.moved) return;
    const UstPoint s = page->GetScrollOrigin();
    const int kind = m_pFrame->m_nShapeKind;
    const UstRect r = ShapeDragRect(kind, {drag.start.x() + s.x, drag.start.y() + s.y},
                                    {drag.current.x() + s.x, drag.current.y() + s.y});
    page->AddShape(kind, r, m_pFrame->m_WorkAttr.attr, m_pFrame->m_WorkAttr.effect);
}

void CZevrantView::DragControlPoint(const QPoint& canvas) {
    if (auto* shape = dynamic_cast<CQRDObjectShape*>(m_drag.object))
        shape->DragControlTo(canvas.x(), canvas.y());
}

}  // namespace orv
