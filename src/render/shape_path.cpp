#include "render/shape_path.h"

#include <QRectF>

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>

#include "render/pixels.h"

namespace orv {

namespace {

// The box in single precision, like the stored control point. The figures
// keep to float, in the order each formula is written, so that a shape
// rebuilt from its archived box and control point lands on the same pixels.
struct Box {
    float x, y, w, h;
};

Box MakeBox(int left, int top, int right, int bottom) {
    // Through 64 bits: a reversed or absurd box must not overflow.
    return {static_cast<float>(left), static_cast<float>(top),
            static_cast<float>(static_cast<int64_t>(right) - left),
            static_cast<float>(static_cast<int64_t>(bottom) - top)};
}

void AddPolygon(QPainterPath& path, const QPointF* points, size_t count) {
    path.moveTo(points[0]);
    for (size_t i = 1; i < count; ++i) {
        path.lineTo(points[i]);
    }
    path.closeSubpath();
}

void AddPolygon(QPainterPath& path, std::initializer_list<QPointF> points) {
    AddPolygon(path, points.begin(), points.size());
}

// Angles as the figures give them: clockwise from +x on a y-down screen,
// sweeping clockwise; Qt counts the other way. Qt draws nothing for an
// ellipse of no size, so such an arc shrinks to its one point and the
// figure keeps its corner.
void AppendArc(QPainterPath& path, const QRectF& rect, float start, float sweep) {
    const bool first = path.elementCount() == 0;
    if (rect.isNull()) {
        if (first) {
            path.moveTo(rect.topLeft());
        } else {
            path.lineTo(rect.topLeft());
        }
        return;
    }
    if (first) path.arcMoveTo(rect, -start);
    path.arcTo(rect, -start, -sweep);
}

void AddRounded(QPainterPath& path, const Box& b, float cx) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    // Doubled in float, not int: a wild control point must not overflow.
    const float d = 2.0f * static_cast<float>(RoundToInt(cx));
    AppendArc(path, QRectF(x + w - d, y, d, d), 270.0f, 90.0f);
    AppendArc(path, QRectF(x + w - d, y + h - d, d, d), 0.0f, 90.0f);
    AppendArc(path, QRectF(x, y + h - d, d, d), 90.0f, 90.0f);
    AppendArc(path, QRectF(x, y, d, d), 180.0f, 90.0f);
    path.closeSubpath();
}

void AddSlanted(QPainterPath& path, const Box& b, int kind, float cx) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    if (kind == 4) {
        AddPolygon(path, {{x, y}, {x + w - cx, y}, {x + w, y + h}, {x + cx, y + h}});
    } else {
        AddPolygon(path, {{x + cx, y}, {x + w, y}, {x + w - cx, y + h}, {x, y + h}});
    }
}

void AddDiamond(QPainterPath& path, const Box& b) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float hw = w * 0.5f, hh = h * 0.5f;
    AddPolygon(path, {{x, y + hh}, {x + hw, y + h}, {x + w, y + hh}, {x + hw, y}});
}

void AddPentagon(QPainterPath& path, const Box& b, float cy) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float t = static_cast<float>((w + 4.0) / 5.0);
    AddPolygon(path, {{x, y + cy},
                      {x + w * 0.5f, y},
                      {x + w, y + cy},
                      {x + w - t, y + h},
                      {x + t, y + h},
                      {x, y + cy}});
}

void AddHexagon(QPainterPath& path, const Box& b, float cx) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float hh = h * 0.5f;
    AddPolygon(path, {{x, y + hh},
                      {x + cx, y},
                      {x + w - cx, y},
                      {x + w, y + hh},
                      {x + w - cx, y + h},
                      {x + cx, y + h},
                      {x, y + hh}});
}

void AddOctagon(QPainterPath& path, const Box& b, float cx) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float t = static_cast<float>(h / 3.0);
    AddPolygon(path, {{x, y + 2 * t},
                      {x, y + t},
                      {x + cx, y},
                      {x + w - cx, y},
                      {x + w, y + t},
                      {x + w, y + 2 * t},
                      {x + w - cx, y + h},
                      {x + cx, y + h},
                      {x, y + 2 * t}});
}

void AddStar(QPainterPath& path, const Box& b) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float a = static_cast<float>(w / 13.0), c = static_cast<float>(h / 13.0);
    const float m = static_cast<float>((1.0 + w) * 0.5);
    // The two lower points snap to whole pixels so the feet sit square.
    const float right = static_cast<float>(RoundToInt(static_cast<float>(10.5 * a)));
    const float left = static_cast<float>(RoundToInt(static_cast<float>(2.5 * a)));
    AddPolygon(path, {{x + m, y},
                      {x + 8 * a, y + 5 * c},
                      {x + w, y + 5 * c},
                      {x + 9 * a, y + 8 * c},
                      {x + right, y + h},
                      {x + m, y + 10 * c},
                      {x + left, y + h},
                      {x + 4 * a, y + 8 * c},
                      {x, y + 5 * c},
                      {x + 5 * a, y + 5 * c},
                      {x + m, y}});
}

using ArrowPoints = std::array<QPointF, 7>;

ArrowPoints ArrowHorizontal(const Box& b, int kind, float ax, float ay) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float hh = h * 0.5f;
    if (kind == 11) {
        const float t = static_cast<float>(RoundToInt(w - ax));
        const float n = x + w - t;
        return {{{x, y + ay},
                 {n, y + ay},
                 {n, y},
                 {x + w, y + hh},
                 {n, y + h},
                 {n, y + h - ay},
                 {x, y + h - ay}}};
    }
    return {{{x, y + hh},
             {x + ax, y},
             {x + ax, y + ay},
             {x + w, y + ay},
             {x + w, y + h - ay},
             {x + ax, y + h - ay},
             {x + ax, y + h}}};
}

ArrowPoints ArrowVertical(const Box& b, int kind, float ax, float ay) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float hw = w * 0.5f;
    if (kind == 13) {
        return {{{x, y + ay},
                 {x + hw, y},
                 {x + w, y + ay},
                 {x + w - ax, y + ay},
                 {x + w - ax, y + h},
                 {x + ax, y + h},
                 {x + ax, y + ay}}};
    }
    const float q = static_cast<float>(RoundToInt(h - ay));
    const float n = y + h - q;
    return {{{x, n},
             {x + ax, n},
             {x + ax, y},
             {x + w - ax, y},
             {x + w - ax, n},
             {x + w, n},
             {x + hw, y + h}}};
}

// Bounds taken either way round, so a reversed box still clamps.
double Clamp(double v, float a, float b) {
    return std::clamp(v, static_cast<double>(std::min(a, b)), static_cast<double>(std::max(a, b)));
}

void AddArrow(QPainterPath& path, const Box& b, int kind, float cx, float cy) {
    const float ax = static_cast<float>(RoundToInt(cx)), ay = static_cast<float>(RoundToInt(cy));
    ArrowPoints points =
        kind <= 12 ? ArrowHorizontal(b, kind, ax, ay) : ArrowVertical(b, kind, ax, ay);
    // A handle dragged past the box flattens the arrow instead of letting it escape.
    for (QPointF& p : points) {
        p.setX(Clamp(p.x(), b.x, b.x + b.w));
        p.setY(Clamp(p.y(), b.y, b.y + b.h));
    }
    AddPolygon(path, points.data(), points.size());
}

void AddTriangle(QPainterPath& path, const Box& b, int kind, float cx, float cy) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    switch (kind) {
        case 15:
            AddPolygon(path, {{x, y}, {x + w, y + cy}, {x, y + h}});
            break;
        case 16:
            AddPolygon(path, {{x, y + cy}, {x + w, y}, {x + w, y + h}});
            break;
        case 17:
            AddPolygon(path, {{x, y + h}, {x + cx, y}, {x + w, y + h}});
            break;
        default:
            AddPolygon(path, {{x, y}, {x + w, y}, {x + cx, y + h}});
            break;
    }
}

void AppendLines(QPainterPath& path, std::initializer_list<QPointF> points) {
    for (const QPointF& p : points) {
        if (path.elementCount() == 0) {
            path.moveTo(p);
        } else {
            path.lineTo(p);
        }
    }
}

// A bar whose one end is a quarter of an ellipse twice the bar's height.
void AddBarWithArc(QPainterPath& path, const Box& b, int kind, float cx) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    const float e = static_cast<float>((w - cx) * 2.0), d = static_cast<float>(cx * 2.0);
    const float h2 = 2 * h;
    switch (kind) {
        case 19:
            AppendLines(path, {{x + w, y + h}, {x, y + h}, {x, y}, {x + cx, y}});
            AppendArc(path, QRectF(x + w - e, y, e, h2), 270.0f, 90.0f);
            break;
        case 20:
            AppendArc(path, QRectF(x, y, d, h2), 180.0f, 90.0f);
            AppendLines(path, {{x + cx, y}, {x + w, y}, {x + w, y + h}, {x, y + h}});
            break;
        case 21:
            AppendArc(path, QRectF(x + w - e, y - h, e, h2), 0.0f, 90.0f);
            AppendLines(path, {{x + cx, y + h}, {x, y + h}, {x, y}, {x + w, y}});
            break;
        default:
            AppendLines(path, {{x, y}, {x + w, y}, {x + w, y + h}, {x + cx, y + h}});
            AppendArc(path, QRectF(x, y - h, d, h2), 90.0f, 90.0f);
            break;
    }
    path.closeSubpath();
}

void AddBarWithSlant(QPainterPath& path, const Box& b, int kind, float cx) {
    const float x = b.x, y = b.y, w = b.w, h = b.h;
    switch (kind) {
        case 23:
            AddPolygon(path, {{x + w, y + h}, {x, y + h}, {x, y}, {x + cx, y}});
            break;
        case 24:
            AddPolygon(path, {{x, y + h}, {x + w, y + h}, {x + w, y}, {x + cx, y}});
            break;
        case 25:
            AddPolygon(path, {{x + w, y}, {x, y}, {x, y + h}, {x + cx, y + h}});
            break;
        case 26:
            AddPolygon(path, {{x, y}, {x + w, y}, {x + w, y + h}, {x + cx, y + h}});
            break;
        default:
            AddPolygon(path, {{x + w - cx, y}, {x + cx, y}, {x, y + h}, {x + w, y + h}});
            break;
    }
}

void AddFigure(QPainterPath& path, const Box& b, int kind, float cx, float cy) {
    const QRectF box(b.x, b.y, b.w, b.h);
    switch (kind) {
        case 0:
            path.addRect(box);
            path.closeSubpath();
            return;
        case 1:
            return AddRounded(path, b, cx);
        case 2:
        case 3:
            path.addEllipse(box);
            path.closeSubpath();
            return;
        case 4:
        case 5:
            return AddSlanted(path, b, kind, cx);
        case 6:
            return AddDiamond(path, b);
        case 7:
            return AddPentagon(path, b, cy);
        case 8:
            return AddHexagon(path, b, cx);
        case 9:
            return AddOctagon(path, b, cx);
        case 10:
            return AddStar(path, b);
    }
    if (kind <= 14) return AddArrow(path, b, kind, cx, cy);
    if (kind <= 18) return AddTriangle(path, b, kind, cx, cy);
    if (kind <= 22) return AddBarWithArc(path, b, kind, cx);
    AddBarWithSlant(path, b, kind, cx);
}

// The control point of a fresh shape, from the box's whole-pixel size.
// Sizes in 64 bits, so that no box overflows the integer rules.
QPointF DefaultPoint(int kind, int64_t w, int64_t h) {
    const int64_t half = w / 2;
    const float m = static_cast<float>(std::min<int64_t>(40, half));
    const float n = static_cast<float>(w - 40 > half ? w - 40 : half);
    const float fw = static_cast<float>(w), fh = static_cast<float>(h);
    switch (kind) {
        case 1:
            return {static_cast<float>(std::min(w, h) * 0.5), 10.0f};
        case 4:
            return {m, fh};
        case 5:
            return {m, 0.0f};
        case 7:
            return {10.0f, fh * 0.5f};
        case 8:
        case 9:
            return {fw * 0.25f, 10.0f};
        case 11:
        case 12:
            return {fw * 0.5f, fh * 0.25f};
        case 13:
        case 14:
            return {fw * 0.25f, fh * 0.5f};
        case 15:
            return {static_cast<float>(w - 10), fh * 0.5f};
        case 16:
            return {10.0f, fh * 0.5f};
        case 17:
        case 19:
        case 20:
            return {fw * 0.5f, 10.0f};
        case 18:
        case 21:
        case 22:
            return {fw * 0.5f, static_cast<float>(h - 10)};
        case 23:
            return {n, 10.0f};
        case 24:
        case 27:
            return {m, 10.0f};
        case 25:
            return {n, static_cast<float>(h - 10)};
        case 26:
            return {m, static_cast<float>(h - 10)};
    }
    return {0.0f, 0.0f};
}

// The coordinate scaled by the sizes' ratio, taken in single precision. A
// side that had no size gives no ratio; the coordinate is then kept.
float Proportional(float v, int from, int to) {
    if (from == 0) return v;
    return v * (static_cast<float>(to) / static_cast<float>(from));
}

// The same distance from the far side, in proportion.
float FromFarSide(float v, int from, int to) {
    if (from == 0) return v;
    const float f = static_cast<float>(from), t = static_cast<float>(to);
    return t - ((f - v) / f) * t;
}

float RescaleRadius(float cx, int ow, int oh, int nw, int nh) {
    const float oldSide = static_cast<float>(std::min(ow, oh));
    const float newSide = static_cast<float>(std::min(nw, nh));
    const float r = oldSide == 0.0f ? cx : newSide * (cx / oldSide);
    return std::min(r, newSide * 0.5f);
}

const char* KindName(int kind) {
    switch (kind) {
        case 0:
            return "사각형";
        case 1:
            return "둥근 사각형";
        case 2:
            return "타원";
        case 3:
            return "원";
        case 6:
            return "마름모";
        case 7:
            return "오각형";
        case 8:
            return "육각형";
        case 9:
            return "팔각형";
        case 10:
            return "별";
    }
    if (kind >= 11 && kind <= 14) return "화살표";
    if (kind >= 15 && kind <= 18) return "삼각형";
    if (kind == 4 || kind == 5 || (kind >= 19 && kind < SHAPE_KIND_COUNT)) return "타이틀 바";
    return "도형";
}

}  // namespace

void BuildShapePath(int left, int top, int right, int bottom, QPainterPath& path, int kind,
                    float cx, float cy) {
    // A fresh path fills odd-even, the rule every figure is drawn with.
    path = QPainterPath();
    if (kind < 0 || kind >= SHAPE_KIND_COUNT) return;
    AddFigure(path, MakeBox(left, top, right, bottom), kind, cx, cy);
}

QPointF DefaultControlPoint(int left, int top, int right, int bottom, QPainterPath& path,
                            int kind) {
    const QPointF cp =
        DefaultPoint(kind, static_cast<int64_t>(right) - left, static_cast<int64_t>(bottom) - top);
    BuildShapePath(left, top, right, bottom, path, kind, static_cast<float>(cp.x()),
                   static_cast<float>(cp.y()));
    return cp;
}

QPointF RescaleControlPoint(int kind, QPointF cp, int ow, int oh, int nw, int nh) {
    const float cx = static_cast<float>(cp.x()), cy = static_cast<float>(cp.y());
    const float pcx = Proportional(cx, ow, nw), pcy = Proportional(cy, oh, nh);
    const float fnw = static_cast<float>(nw), fnh = static_cast<float>(nh);
    switch (kind) {
        case 1:
            return {RescaleRadius(cx, ow, oh, nw, nh), 10.0f};
        case 4:
            return {std::min(cx, fnw), fnh};
        case 5:
            return {std::min(cx, fnw), 0.0f};
        case 7:
        case 16:
            return {10.0f, pcy};
        case 8:
        case 9:
        case 17:
        case 19:
        case 20:
        case 23:
        case 24:
        case 27:
            return {pcx, 10.0f};
        case 11:
            return {FromFarSide(cx, ow, nw), pcy};
        case 12:
        case 13:
            return {pcx, pcy};
        case 14:
            return {pcx, FromFarSide(cy, oh, nh)};
        case 15:
            return {static_cast<float>(static_cast<int64_t>(nw) - 10), pcy};
        case 18:
        case 21:
        case 22:
        case 25:
        case 26:
            return {pcx, static_cast<float>(static_cast<int64_t>(nh) - 10)};
    }
    return cp;
}

QString ShapeKindName(int kind) {
    return QString::fromUtf8(KindName(kind));
}

bool ShapeHasControlHandle(int kind) {
    return kind == 1 || kind == 4 || kind == 5 || (kind >= 7 && kind <= 9) ||
           (kind >= 11 && kind < SHAPE_KIND_COUNT);
}

}  // namespace orv
