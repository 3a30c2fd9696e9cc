#include "objects/qrd_object.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "render/pixels.h"

namespace orv {

namespace {

UstRect SquareAround(UstPoint c) {
    const int h = HANDLE_SIZE / 2;
    return {c.x - h, c.y - h, c.x + h, c.y + h};
}

bool IsTurned(const CQRDObject& o) {
    return o.CanRotate() && o.m_nAngle % 360 > 0;
}

}  // namespace

QPointF RotatePoint(QPointF p, QPointF centre, double degrees) {
    const double a = degrees * std::numbers::pi / 180.0;
    const double c = std::cos(a), s = std::sin(a);
    const QPointF d = p - centre;
    return {centre.x() + d.x() * c - d.y() * s, centre.y() + d.x() * s + d.y() * c};
}

int CQRDObject::StoredToView(int v) const {
    const float zoom = Zoom();
    if (zoom == 100.0f) return v;
    return RoundToInt(static_cast<float>(v) * zoom / 100.0f);
}

int CQRDObject::ViewToStored(int v) const {
    const float zoom = Zoom();
    if (zoom == 100.0f) return v;
    return RoundToInt(static_cast<float>(v) * 100.0f / zoom);
}

UstRect CQRDObject::ScrolledViewRect() const {
    const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
    return Offset(m_rcView, -s.x, -s.y);
}

QPolygonF CQRDObject::HitPolygon() const {
    const UstRect r = ScrolledViewRect();
    QPolygonF poly({QPointF(r.left, r.top), QPointF(r.right, r.top), QPointF(r.right, r.bottom),
                    QPointF(r.left, r.bottom)});
    if (!IsTurned(*this)) return poly;
    const QPointF c((r.left + r.right) / 2.0, (r.top + r.bottom) / 2.0);
    for (QPointF& p : poly)
        p = RotatePoint(p, c, m_nAngle);
    return poly;
}

UstRect CQRDObject::GetBoundRect() const {
    if (!IsTurned(*this)) return m_rcView;
    const UstRect& r = m_rcView;
    const QPointF c((r.left + r.right) / 2.0, (r.top + r.bottom) / 2.0);
    double l = 1e300, t = 1e300, rr = -1e300, b = -1e300;
    for (QPointF p : {QPointF(r.left, r.top), QPointF(r.right, r.top), QPointF(r.right, r.bottom),
                      QPointF(r.left, r.bottom)}) {
        p = RotatePoint(p, c, m_nAngle);
        l = std::min(l, p.x());
        t = std::min(t, p.y());
        rr = std::max(rr, p.x());
        b = std::max(b, p.y());
    }
    return {static_cast<int>(std::floor(l)), static_cast<int>(std::floor(t)),
            static_cast<int>(std::ceil(rr)), static_cast<int>(std::ceil(b))};
}

bool CQRDObject::HitTest(int x, int y) const {
    if (IsTurned(*this)) return HitPolygon().containsPoint(QPointF(x, y), Qt::OddEvenFill);
    return Contains(ScrolledViewRect(), x, y);
}

int CQRDObject::HitTestHandle(int x, int y) const {
    const UstPoint s = m_pPage ? m_pPage->GetScrollOrigin() : UstPoint{};
    for (int i = 0; i < HANDLE_COUNT; ++i)
        if (Contains(Offset(m_rcHandle[i], -s.x, -s.y), x, y)) return i;
    return -1;
}

UstRect CQRDObject::GetInvalidRect() const {
    if (!m_pPage) return {};
    const UstPoint o = m_pPage->GetCanvasOrigin();
    UstRect r = Offset(ScrolledViewRect(), o.x, o.y);
    r = {r.left - 50, r.top - 50, r.right + 50, r.bottom + 50};
    const UstRect visible = {o.x - 1, o.y - 1, o.x + m_pPage->GetCanvasWidth() + 1,
                             o.y + m_pPage->GetCanvasHeight() + 1};
    return {std::max(r.left, visible.left), std::max(r.top, visible.top),
            std::min(r.right, visible.right), std::min(r.bottom, visible.bottom)};
}

void CQRDObject::Attach(CPageContext* page) {
    m_pPage = page;
    m_rcView = {};
    m_rcHandle = {};
    ReleaseCache();
}

void CQRDObject::CenterOnPage() {
    if (!m_pPage) return;
    const int cx = (m_rcView.left + m_rcView.right) / 2;
    const int cy = (m_rcView.top + m_rcView.bottom) / 2;
    const int dx = m_pPage->GetCanvasWidth() / 2 - cx;
    const int dy = m_pPage->GetCanvasHeight() / 2 - cy;
    if (dx == 0 && dy == 0) return;
    m_rcView = Offset(m_rcView, dx, dy);
    UpdateStored(true);
    RecalcHandles();
}

bool CQRDObject::Execute(const void* args, uint32_t code) {
    if (!args) return false;
    if (code == CMD_SET_RECT) {
        m_rcView = *static_cast<const UstRect*>(args);
    } else if (code >= CMD_NUDGE_RIGHT && code <= CMD_NUDGE_DOWN) {
        const auto* d = static_cast<const UstPoint*>(args);
        m_rcView = Offset(m_rcView, d->x, d->y);
    } else {
        return false;
    }
    UpdateStored(true);
    RecalcHandles();
    return true;
}

UstPoint CQRDObject::HandleCentre(int index) const {
    const UstRect& r = m_rcHandle[static_cast<size_t>(index)];
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

void CQRDObject::RecalcHandles() {
    const UstRect& v = m_rcView;
    const int cx = (v.left + v.right) / 2, cy = (v.top + v.bottom) / 2;
    const UstPoint centres[8] = {{v.left, v.top},    {cx, v.top},         {v.right, v.top},
                                 {v.right, cy},      {v.right, v.bottom}, {cx, v.bottom},
                                 {v.left, v.bottom}, {v.left, cy}};
    const bool turn = CanRotate() && m_nAngle != 0;
    auto place = [&](UstPoint p) {
        if (!turn) return p;
        const QPointF q = RotatePoint(QPointF(p.x, p.y), QPointF(cx, cy), m_nAngle);
        return UstPoint{RoundToInt(static_cast<float>(q.x())),
                        RoundToInt(static_cast<float>(q.y()))};
    };
    for (int i = 0; i < 8; ++i)
        m_rcHandle[static_cast<size_t>(i)] = SquareAround(place(centres[i]));
    const int h = HANDLE_SIZE / 2;
    const UstPoint rot = place({cx, v.top - 25});
    m_rcHandle[HANDLE_ROTATE] = {rot.x - h, rot.y - h, rot.x + h, rot.y + h};
}

void CQRDObject::DrawHandles(QPainter& painter) const {
    if (!m_pPage) return;
    const UstPoint s = m_pPage->GetScrollOrigin();
    const UstRect visible = {0, 0, m_pPage->GetCanvasWidth(), m_pPage->GetCanvasHeight()};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(Qt::black, 2));
    painter.setBrush(Qt::white);
    auto shown = [&](int i, UstRect& r) {
        r = Offset(m_rcHandle[static_cast<size_t>(i)], -s.x, -s.y);
        return Meets(r, visible);
    };
    UstRect r;
    if (CanRotate() && shown(HANDLE_ROTATE, r)) {
        const UstPoint top = HandleCentre(1), rot = HandleCentre(HANDLE_ROTATE);
        painter.drawLine(top.x - s.x, top.y - s.y, rot.x - s.x, rot.y - s.y);
        painter.drawEllipse(r.ToQRect());
    }
    if (HasSizeHandles()) {
        for (int i = 0; i < 8; ++i)
            if (shown(i, r)) painter.drawEllipse(r.ToQRect());
    } else {
        const UstRect v = ScrolledViewRect();
        const int cx = (v.left + v.right) / 2, cy = (v.top + v.bottom) / 2;
        for (UstPoint p :
             {UstPoint{v.left, v.top}, UstPoint{cx, v.top}, UstPoint{v.right, v.top},
              UstPoint{v.right, cy}, UstPoint{v.right, v.bottom}, UstPoint{cx, v.bottom},
              UstPoint{v.left, v.bottom}, UstPoint{v.left, cy}}) {
            const UstRect sq = SquareAround(p);
            if (Meets(sq, visible)) painter.drawRect(sq.ToQRect());
        }
    }
    painter.restore();
}

void CQRDObject::UpdateView() {
    m_rcView = {StoredToView(m_rcStored.left), StoredToView(m_rcStored.top),
                StoredToView(m_rcStored.right), StoredToView(m_rcStored.bottom)};
}

void CQRDObject::UpdateStoredMoved(int width, int height) {
    m_rcStored.left = ViewToStored(m_rcView.left);
    m_rcStored.top = ViewToStored(m_rcView.top);
    m_rcStored.right = m_rcStored.left + width;
    m_rcStored.bottom = m_rcStored.top + height;
}

void CQRDObject::UpdateStored(bool keepSize) {
    if (keepSize) {
        UpdateStoredMoved(m_rcStored.Width(), m_rcStored.Height());
        return;
    }
    m_rcStored = {ViewToStored(m_rcView.left), ViewToStored(m_rcView.top),
                  ViewToStored(m_rcView.right), ViewToStored(m_rcView.bottom)};
}

void CQRDObject::OnZoom() {
    UpdateView();
    RecalcHandles();
}

uint32_t CQRDObject::GetStateSize() const {
    CByteWriter w;
    SaveState(w);
    return static_cast<uint32_t>(w.Size());
}

void CQRDObject::SaveStateHead(CByteWriter& out) const {
    out.Put<int32_t>(GetType());
    SaveStateHeader(out);
    out.Put(m_nWord1);
    out.Put(m_nWord2);
    out.Put(m_bLocked);
    out.Put(m_nAngle);
    SaveStateGeometry(out);
}

bool CQRDObject::LoadStateHead(CByteReader& in) {
    if (in.Get<int32_t>() != GetType()) return false;
    if (!LoadStateHeader(in)) return false;
    m_nWord1 = in.Get<int32_t>();
    m_nWord2 = in.Get<int32_t>();
    m_bLocked = in.Get<int32_t>();
    m_nAngle = in.Get<int32_t>();
    LoadStateGeometry(in);
    return true;
}

void CQRDObject::SaveState(CByteWriter& out) const {
    SaveStateHead(out);
    SaveStateBody(out);
}

bool CQRDObject::LoadState(CByteReader& in, int flag) {
    if (!LoadStateHead(in)) return false;
    if (!LoadStateBody(in, flag)) return false;
    UpdateView();
    RecalcHandles();
    return true;
}

void CQRDObject::SaveStateGeometry(CByteWriter& out) const {
    out.Put(m_rcStored);
    out.Put(m_rcOld);
}

void CQRDObject::LoadStateGeometry(CByteReader& in) {
    m_rcStored = in.Get<UstRect>();
    m_rcOld = in.Get<UstRect>();
}

void CQRDObject::WriteArchiveVersion(CByteWriter& out) {
    out.Put<float>(1.3f);
    out.Put<int32_t>(0);
    out.Put<int32_t>(0);  // an old rectangle is never written
}

bool CQRDObject::ReadArchiveVersion(CByteReader& in) {
    [[maybe_unused]] const float version = in.Get<float>();
    [[maybe_unused]] const float reserved = in.Get<float>();
    return in.Get<int32_t>() != 0;
}

void CQRDObject::WriteArchiveHead(CByteWriter& out) const {
    WriteArchiveVersion(out);
    out.Put(m_nWord1);
    out.Put(m_nWord2);
    out.Put(m_bLocked);
}

bool CQRDObject::ReadArchiveHead(CByteReader& in) {
    const bool hasOldRect = ReadArchiveVersion(in);
    m_nWord1 = in.Get<int32_t>();
    m_nWord2 = in.Get<int32_t>();
    m_bLocked = in.Get<int32_t>();
    return hasOldRect;
}

UstRect TrackHandleRect(const UstRect& start, int angle, int handle, QPoint from, QPoint to) {
    const QPointF c0((start.left + start.right) / 2.0, (start.top + start.bottom) / 2.0);
    const QPointF a = RotatePoint(from, c0, -angle), b = RotatePoint(to, c0, -angle);
    const int dx = RoundToInt(static_cast<float>(b.x() - a.x()));
    const int dy = RoundToInt(static_cast<float>(b.y() - a.y()));
    UstRect r = start;
    const bool left = handle == 0 || handle == 6 || handle == 7;
    const bool right = handle == 2 || handle == 3 || handle == 4;
    const bool top = handle == 0 || handle == 1 || handle == 2;
    const bool bottom = handle == 4 || handle == 5 || handle == 6;
    if (left) r.left += dx;
    if (right) r.right += dx;
    if (top) r.top += dy;
    if (bottom) r.bottom += dy;
    if (r.right < r.left) std::swap(r.left, r.right);
    if (r.bottom < r.top) std::swap(r.top, r.bottom);
    if (angle % 360 == 0) return r;
    const double w = r.Width(), h = r.Height();
    const QPointF c1((r.left + r.right) / 2.0, (r.top + r.bottom) / 2.0);
    const QPointF tc = RotatePoint(c1, c0, angle);
    auto round = [](double v) { return RoundToInt(static_cast<float>(v)); };
    return {round(tc.x() - w / 2), round(tc.y() - h / 2), round(tc.x() + w / 2),
            round(tc.y() + h / 2)};
}

int AngleToward(const UstRect& rect, QPoint point) {
    const double cx = (rect.left + rect.right) / 2.0, cy = (rect.top + rect.bottom) / 2.0;
    const double deg = std::atan2(point.x() - cx, -(point.y() - cy)) * 180.0 / std::numbers::pi;
    int angle = RoundToInt(static_cast<float>(deg));
    return ((angle % 360) + 360) % 360;
}

bool IsEffectCommand(uint32_t code) {
    switch (code) {
        case 225:
        case 226:
        case 227:
        case 232:
        case 233:
        case 234:
        case 738:
            return true;
        default:
            return false;
    }
}

}  // namespace orv
