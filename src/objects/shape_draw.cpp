// How a shape reaches the canvas, the page image and play: one image per
// size, zoom and angle, kept until something about the shape changes.
#include <QPainter>

#include "objects/blink_draw.h"
#include "objects/live_image.h"
#include "objects/shape_object.h"
#include "render/fill_brush.h"
#include "render/pixels.h"
#include "render/shape_image.h"

namespace orv {

// The box's corner stands at (0, 0), so that moving the shape keeps its image.
void CQRDObjectShape::Render(ObjectImage& out, int boxWidth, int boxHeight, float scale,
                             int targetHeight) const {
    const QPointF cp = ControlPoint();
    if (targetHeight != SD_TARGET_HEIGHT) {
        const auto cx = static_cast<float>(cp.x()) * scale, cy = static_cast<float>(cp.y()) * scale;
        RenderShapeImage(out, m_nKind, 0, 0, boxWidth, boxHeight, m_effect, m_attr, cx, cy,
                         m_nAngle, scale, scale, nullptr);
        return;
    }
    RenderShapeImage(out, m_nKind, 0, 0, m_rcStored.Width(), m_rcStored.Height(), m_effect, m_attr,
                     static_cast<float>(cp.x()), static_cast<float>(cp.y()), m_nAngle, 1.0f, 1.0f,
                     nullptr);
    SqueezeAcross(out, scale);
}

bool CQRDObjectShape::ImageFits(int targetHeight) const {
    return m_image.Made() && m_rcImageBox.Width() == m_rcView.Width() &&
           m_rcImageBox.Height() == m_rcView.Height() && m_nImageAngle == m_nAngle &&
           m_nImageTarget == targetHeight;
}

void CQRDObjectShape::Draw() {
    if (!m_pPage || !m_pPage->GetCanvasBits()) return;
    const int width = m_pPage->GetCanvasWidth(), height = m_pPage->GetCanvasHeight();
    const UstPoint s = m_pPage->GetScrollOrigin();
    if (!Meets(Offset(GetBoundRect(), -s.x, -s.y), {0, 0, width, height})) return;
    m_fZoom = Zoom() / 100.0f;
    // The sideways squeeze is for standard-definition frames on air: a canvas
    // that happens to be 486 pixels high shows the shape as it is.
    const int target = 0;
    if (!ImageFits(target)) {
        Render(m_image, m_rcView.Width(), m_rcView.Height(), m_fZoom, target);
        m_rcImageBox = m_rcView;
        m_nImageAngle = m_nAngle;
        m_nImageTarget = target;
    }
    QImage canvas = WrapBlock(m_pPage->GetCanvasBits(), width, height);
    m_image.DrawOn(canvas, QPoint(m_rcView.left - s.x, m_rcView.top - s.y));
}

void CQRDObjectShape::DrawTo(uint32_t* bits, int width, int height) {
    if (!bits || width <= 0 || height <= 0) return;
    ObjectImage fresh;
    const ObjectImage* image = &m_image;
    const int target = height == SD_TARGET_HEIGHT ? height : 0;
    if (!(m_fZoom == 1.0f && m_rcView == m_rcStored && ImageFits(target))) {
        Render(fresh, m_rcStored.Width(), m_rcStored.Height(), 1.0f, target);
        image = &fresh;
    }
    QImage canvas = WrapBlock(bits, width, height);
    image->DrawOn(canvas, QPoint(m_rcStored.left, m_rcStored.top));
}

void CQRDObjectShape::DrawBlinkMark() {
    if (m_bBlink) HatchOnCanvas(m_pPage, HitPolygon(), BLINK_MARK_HATCH, BLINK_MARK_COLOUR);
}

void CQRDObjectShape::PrepareLiveFrame(int, int, int, int) {
    Render(m_prepared, m_rcStored.Width(), m_rcStored.Height(), 1.0f, 0);
    m_prepared.x += m_rcStored.left;
    m_prepared.y += m_rcStored.top;
}

// The same image as the page's own at full scale, so that the strips and the
// edit canvas at zoom 100 agree to the pixel.
void CQRDObjectShape::PrepareScrollImage(int32_t, int32_t height) {
    Render(m_prepared, m_rcStored.Width(), m_rcStored.Height(), 1.0f, height);
    m_prepared.x += m_rcStored.left;
    m_prepared.y += m_rcStored.top;
    DropUnreachable(m_prepared);
}

void CQRDObjectShape::DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                               int bottom) {
    DrawImageInStrip(m_prepared, bits, width, height, {left, top, right, bottom});
}

UstPoint CQRDObjectShape::GetLiveExtent() const {
    return LiveExtent(m_rcStored, LiveImageRect(m_prepared));
}

void CQRDObjectShape::DrawHandles(QPainter& painter) const {
    if (m_bEdit && m_pPage) {
        painter.save();
        painter.setPen(Qt::NoPen);
        painter.setBrush(HatchBrush(22, 0xFF808080u, 0x00000000u));
        painter.drawPolygon(HitPolygon());
        painter.restore();
    }
    CQRDObject::DrawHandles(painter);
    if (!m_bEdit || !m_pPage || !HasAdjustPoint()) return;
    const QPointF c = ControlHandleCentre();
    const QPointF diamond[] = {c + QPointF(0, -5), c + QPointF(5, 0), c + QPointF(0, 5),
                               c + QPointF(-5, 0)};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(QColor::fromRgba(0xFFFCFC3Cu));
    painter.drawPolygon(diamond, 4);
    painter.restore();
}

}  // namespace orv
