#include "render/glyph_outline.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>

namespace orv {

namespace {

struct UstPointF {
    float x, y;
};

UstPointF ToFloat(const UstPointFx& p) {
    return {FixedToFloat(p.x), FixedToFloat(p.y)};
}

// A figure starts with its first segment: the start point alone adds nothing.
class CFigure {
public:
    CFigure(QPainterPath& path, float ox, float oy) : m_path(path), m_ox(ox), m_oy(oy) {}
    void Line(UstPointF a, UstPointF b) {
        Begin(a);
        m_path.lineTo(b.x + m_ox, b.y + m_oy);
    }
    void Cubic(UstPointF a, UstPointF c1, UstPointF c2, UstPointF b) {
        Begin(a);
        m_path.cubicTo(c1.x + m_ox, c1.y + m_oy, c2.x + m_ox, c2.y + m_oy, b.x + m_ox, b.y + m_oy);
    }
    void Close() {
        if (m_bStarted) m_path.closeSubpath();
    }

private:
    void Begin(UstPointF a) {
        if (m_bStarted) return;
        m_path.moveTo(a.x + m_ox, a.y + m_oy);
        m_bStarted = true;
    }
    QPainterPath& m_path;
    float m_ox, m_oy;
    bool m_bStarted = false;
};

void WalkQuadratic(const std::vector<UstPointFx>& pts, UstPointF& a, CFigure& figure) {
    const size_t last = pts.size() - 1;
    size_t i = 0;
    while (i < pts.size()) {
        const UstPointF b = ToFloat(pts[i]);
        if (i == last) {  // a lone on-curve point: nothing to bend toward
            figure.Line(a, b);
            a = b;
            ++i;
            continue;
        }
        UstPointF c = ToFloat(pts[i + 1]);
        if (i + 1 == last) {
            i += 2;
        } else {
            c = {static_cast<float>((b.x + c.x) * 0.5), static_cast<float>((b.y + c.y) * 0.5)};
            i += 1;
        }
        const UstPointF c1 = {static_cast<float>(a.x + (b.x - a.x) * 0.6666666865348816),
                              static_cast<float>(a.y + (b.y - a.y) * 0.6666666865348816)};
        const UstPointF c2 = {static_cast<float>(b.x + (c.x - b.x) / 3.0),
                              static_cast<float>(b.y + (c.y - b.y) / 3.0)};
        figure.Cubic(a, c1, c2, c);
        a = c;
    }
}

}  // namespace

int WalkGlyphPolygons(const std::vector<UstGlyphPolygon>& polygons, float offsetX, float offsetY,
                      QPainterPath& path) {
    for (const UstGlyphPolygon& polygon : polygons) {
        if (polygon.dwType != POLYGON_TYPE) return GLYPH_BAD_POLYGON;
        CFigure figure(path, offsetX, offsetY);
        UstPointF a = ToFloat(polygon.pfxStart);
        for (const UstGlyphRecord& record : polygon.records) {
            if (record.points.empty()) continue;
            if (record.wType == PRIM_LINE) {
                for (const UstPointFx& p : record.points) {
                    const UstPointF b = ToFloat(p);
                    figure.Line(a, b);
                    a = b;
                }
            } else if (record.wType == PRIM_QSPLINE) {
                WalkQuadratic(record.points, a, figure);
            } else if (record.wType == PRIM_CSPLINE) {
                for (size_t i = 0; i + 2 < record.points.size(); i += 3) {
                    const UstPointF b = ToFloat(record.points[i + 2]);
                    figure.Cubic(a, ToFloat(record.points[i]), ToFloat(record.points[i + 1]), b);
                    a = b;
                }
            }
        }
        figure.Close();
    }
    return GLYPH_OK;
}

namespace {

UstPointFx FromOutline(const FT_Vector& v) {
    // 26.6 to 16.16, kept within range for absurd coordinates.
    const int64_t x = std::clamp<int64_t>(static_cast<int64_t>(v.x) * 1024, INT32_MIN, INT32_MAX);
    const int64_t y = std::clamp<int64_t>(static_cast<int64_t>(v.y) * 1024, INT32_MIN, INT32_MAX);
    return {static_cast<FIXED>(x), static_cast<FIXED>(y)};
}

class CPolygonBuilder {
public:
    explicit CPolygonBuilder(UstGlyphPolygon& polygon) : m_polygon(polygon) {}
    void On(const UstPointFx& p, bool closing) {
        if (!m_curve.empty()) {
            m_curve.push_back(p);
            Emit(m_cubic ? PRIM_CSPLINE : PRIM_QSPLINE, m_curve);
        } else if (!closing) {
            m_line.push_back(p);
        }
    }
    void Off(const UstPointFx& p, bool cubic) {
        if (!m_line.empty()) Emit(PRIM_LINE, m_line);
        m_cubic = cubic;
        m_curve.push_back(p);
    }
    void Finish() {
        if (!m_line.empty()) Emit(PRIM_LINE, m_line);
    }

private:
    void Emit(uint16_t type, std::vector<UstPointFx>& points) {
        if (type != PRIM_LINE && !m_line.empty()) Emit(PRIM_LINE, m_line);
        m_polygon.records.push_back({type, points});
        points.clear();
    }
    UstGlyphPolygon& m_polygon;
    std::vector<UstPointFx> m_line, m_curve;
    bool m_cubic = false;
};

UstGlyphPolygon Contour(const FT_Outline& o, int first, int last) {
    UstGlyphPolygon polygon;
    const int n = last - first + 1;
    auto tag = [&](int k) { return FT_CURVE_TAG(o.tags[first + (k % n)]); };
    auto point = [&](int k) { return FromOutline(o.points[first + (k % n)]); };
    int start = 0;
    while (start < n && tag(start) != FT_CURVE_TAG_ON)
        ++start;
    CPolygonBuilder builder(polygon);
    if (start == n) {
        // Only off-curve points: the contour starts between the last and the first.
        const UstPointFx a = point(n - 1), b = point(0);
        polygon.pfxStart = {static_cast<FIXED>((static_cast<int64_t>(a.x) + b.x) / 2),
                            static_cast<FIXED>((static_cast<int64_t>(a.y) + b.y) / 2)};
        for (int k = 0; k < n; ++k)
            builder.Off(point(k), false);
        builder.On(polygon.pfxStart, true);
    } else {
        polygon.pfxStart = point(start);
        for (int k = start + 1; k <= start + n; ++k) {
            if (tag(k) == FT_CURVE_TAG_ON)
                builder.On(point(k), k == start + n);
            else
                builder.Off(point(k), tag(k) == FT_CURVE_TAG_CUBIC);
        }
    }
    builder.Finish();
    return polygon;
}

}  // namespace

std::vector<UstGlyphPolygon> PolygonsFromOutline(const FT_Outline& outline) {
    std::vector<UstGlyphPolygon> polygons;
    int first = 0;
    for (int c = 0; c < outline.n_contours; ++c) {
        const int last = outline.contours[c];
        if (last >= first && last < outline.n_points)
            polygons.push_back(Contour(outline, first, last));
        first = last + 1;
    }
    return polygons;
}

}  // namespace orv
