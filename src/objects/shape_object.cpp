// The shape object's state, commands and control point; its drawing is in
// shape_draw.cpp.
#include "objects/shape_object.h"

#include <algorithm>
#include <cmath>

#include "objects/archive_fields.h"
#include "render/shape_path.h"
#include "render/style_records.h"

namespace orv {

namespace {

UstRect Normalized(const UstRect& r) {
    return {std::min(r.left, r.right), std::min(r.top, r.bottom), std::max(r.left, r.right),
            std::max(r.top, r.bottom)};
}

bool SameSize(const UstRect& a, const UstRect& b) {
    return a.Width() == b.Width() && a.Height() == b.Height();
}

}  // namespace

UstRect ShapeDragRect(int kind, const UstPoint& start, const UstPoint& current) {
    UstRect r = Normalized({start.x, start.y, current.x, current.y});
    if (kind == SHAPE_CIRCLE) {
        if (r.Height() <= r.Width())
            r.bottom = r.top + r.Width();
        else
            r.right = r.left + r.Height();
    }
    return r;
}

CQRDObjectShape::CQRDObjectShape(CPageContext* page, int kind, const UstRect& view,
                                 const UstAttr& attr, const UstEffect& effect)
    : CQRDObject(page), m_nKind(kind), m_effect(effect), m_attr(attr) {
    m_fZoom = Zoom() / 100.0f;
    m_rcView = Normalized(view);
    UpdateStored(false);
    QPainterPath path;
    SetControl(DefaultControlPoint(m_rcStored.left, m_rcStored.top, m_rcStored.right,
                                   m_rcStored.bottom, path, kind));
    RecalcHandles();
}

QString CQRDObjectShape::GetName() const {
    return ShapeKindName(m_nKind);
}

bool CQRDObjectShape::HasAdjustPoint() const {
    return ShapeHasControlHandle(m_nKind);
}

QPointF CQRDObjectShape::ControlPoint() const {
    const QPointF cp(m_fCtrlX, m_fCtrlY);
    if (SameSize(m_rcCtrlBox, m_rcStored)) return cp;
    return RescaleControlPoint(m_nKind, cp, m_rcCtrlBox.Width(), m_rcCtrlBox.Height(),
                               m_rcStored.Width(), m_rcStored.Height());
}

void CQRDObjectShape::SetControl(QPointF stored) {
    m_fCtrlX = static_cast<float>(stored.x());
    m_fCtrlY = static_cast<float>(stored.y());
    m_rcCtrlBox = m_rcStored;
    Changed();
}

void CQRDObjectShape::CommitResize() {
    if (!SameSize(m_rcCtrlBox, m_rcStored)) SetControl(ControlPoint());
}

void CQRDObjectShape::Changed() {
    m_image.Reset();
}

QPointF CQRDObjectShape::ControlHandleCentre() const {
    const UstRect v = ScrolledViewRect();
    const QPointF cp = ControlPoint() * static_cast<double>(m_fZoom);
    const QPointF p(v.left + cp.x(), v.top + cp.y());
    if (m_nAngle % 360 == 0) return p;
    return RotatePoint(p, QPointF((v.left + v.right) / 2.0, (v.top + v.bottom) / 2.0), m_nAngle);
}

bool CQRDObjectShape::HitTestAdjust(int x, int y) const {
    if (!m_bEdit || !HasAdjustPoint()) return false;
    const QPointF c = ControlHandleCentre();
    return std::abs(x - c.x()) <= 5.0 && std::abs(y - c.y()) <= 5.0;
}

void CQRDObjectShape::DragControlTo(int x, int y) {
    const UstRect v = ScrolledViewRect();
    QPointF p(x, y);
    if (m_nAngle % 360 != 0)
        p = RotatePoint(p, QPointF((v.left + v.right) / 2.0, (v.top + v.bottom) / 2.0), -m_nAngle);
    // The handle stays on the box; only the arrows are limited further, by
    // their figures.
    const double lx = std::clamp(p.x() - v.left, 0.0, static_cast<double>(v.Width()));
    const double ly = std::clamp(p.y() - v.top, 0.0, static_cast<double>(v.Height()));
    const double zoom = m_fZoom > 0 ? m_fZoom : 1.0;
    SetControl(QPointF(lx / zoom, ly / zoom));
}

void CQRDObjectShape::SetEditing(bool on) {
    m_bEdit = on ? 1 : 0;
}

bool CQRDObjectShape::Execute(const void* args, uint32_t code) {
    if (!args) return false;
    if (IsEffectCommand(code)) {
        m_effect = *static_cast<const UstEffect*>(args);
        Changed();
        return true;
    }
    if (code == CMD_SHAPE_STYLE) {
        const auto* style = static_cast<const UstShape*>(args);
        m_effect = style->effect;
        m_attr = style->attr;
        Changed();
        return true;
    }
    if (code >= CMD_BODY_PAINT && code <= CMD_SHADOW_PAINT) {
        m_attr.fill[code - CMD_BODY_PAINT] = *static_cast<const UstFill*>(args);
        Changed();
        return true;
    }
    if (code == CMD_ROTATION) {
        const int32_t angle = *static_cast<const int32_t*>(args);
        if (angle == m_nAngle) return false;
        m_nAngle = angle;
        UpdateStored(true);
        RecalcHandles();
        Changed();
        return true;
    }
    if (!CQRDObject::Execute(args, code)) return false;
    CommitResize();
    return true;
}

void CQRDObjectShape::OnZoom() {
    CQRDObject::OnZoom();
    m_fZoom = Zoom() / 100.0f;
    Changed();
}

void CQRDObjectShape::Serialize(CByteWriter& out) const {
    WriteArchiveVersion(out);
    out.Put<uint32_t>(static_cast<uint32_t>(m_nKind));
    out.Put(m_nWord1);
    out.Put(m_nWord2);
    out.Put(m_bLocked);
    out.Put(m_nAngle);
    out.Put(m_bEdit);
    out.Put(m_rcStored);
    const QPointF cp = ControlPoint();
    out.Put(static_cast<float>(cp.x()));
    out.Put(static_cast<float>(cp.y()));
    out.Put(m_effect);
    out.Put(m_attr);
}

bool CQRDObjectShape::Deserialize(CByteReader& in) {
    const bool hasOldRect = ReadArchiveVersion(in);
    m_nKind = static_cast<int32_t>(in.Get<uint32_t>());
    m_nWord1 = in.Get<int32_t>();
    m_nWord2 = in.Get<int32_t>();
    m_bLocked = in.Get<int32_t>();
    m_nAngle = in.Get<int32_t>();
    m_bEdit = in.Get<int32_t>();
    m_rcStored = in.Get<UstRect>();
    const float cx = in.Get<float>(), cy = in.Get<float>();
    m_effect = in.Get<UstEffect>();
    m_attr = in.Get<UstAttr>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedRect(m_rcStored, "a shape");
    CheckArchivedPoint(cx, cy, "a shape's control point");
    CheckArchivedEffect(m_effect, "a shape");
    m_fZoom = Zoom() / 100.0f;
    SetControl(QPointF(cx, cy));
    UpdateView();
    RecalcHandles();
    return true;
}

void CQRDObjectShape::SaveStateBody(CByteWriter& out) const {
    out.Put(m_nKind);
    out.Put(m_bEdit);
    const QPointF cp = ControlPoint();
    out.Put(static_cast<float>(cp.x()));
    out.Put(static_cast<float>(cp.y()));
    out.Put(m_effect);
    out.Put(m_attr);
}

bool CQRDObjectShape::LoadStateBody(CByteReader& in, int) {
    m_nKind = in.Get<int32_t>();
    m_bEdit = in.Get<int32_t>();
    const float cx = in.Get<float>(), cy = in.Get<float>();
    m_effect = in.Get<UstEffect>();
    m_attr = in.Get<UstAttr>();
    m_fZoom = Zoom() / 100.0f;
    SetControl(QPointF(cx, cy));
    return true;
}

}  // namespace orv
