#include "render/fill_brush.h"

#include <QLinearGradient>
#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

#include "render/attr_records.h"
#include "render/fixed_string.h"
#include "render/image_file.h"

namespace orv {

namespace {

QColor Argb(uint32_t c) {
    return QColor::fromRgba(c);
}

void ReleaseSlot(UstBrushSlot& slot) {
    slot.brush = QBrush();
    slot.image = QImage();
    slot.pTexture.reset();
    slot.nKind = BRUSH_SOLID;
}

// The rectangle one pixel larger on each side, and the gradient line through
// its centre at the angle (0 left to right, clockwise), long enough that the
// perpendiculars through the far corners bound the whole rectangle.
QLinearGradient LinearFor(const UstRect& rect, int angle) {
    const double x = rect.left - 1, y = rect.top - 1;
    const double w = rect.Width() + 2, h = rect.Height() + 2;
    const double a = angle * std::numbers::pi / 180.0;
    const QPointF d(std::cos(a), std::sin(a));
    const double half = (w * std::fabs(d.x()) + h * std::fabs(d.y())) / 2.0;
    const QPointF c(x + w / 2.0, y + h / 2.0);
    QLinearGradient g(c - d * half, c + d * half);
    g.setSpread(QGradient::RepeatSpread);
    g.setInterpolationMode(QGradient::ComponentInterpolation);
    return g;
}

QColor StopColour(const QGradientStops& stops, double pos) {
    if (pos <= stops.front().first) return stops.front().second;
    for (int i = 1; i < stops.size(); ++i) {
        if (pos > stops[i].first) continue;
        const auto& [p0, c0] = stops[i - 1];
        const auto& [p1, c1] = stops[i];
        const double t = p1 > p0 ? (pos - p0) / (p1 - p0) : 1.0;
        auto mix = [t](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * t)); };
        return QColor(mix(c0.red(), c1.red()), mix(c0.green(), c1.green()),
                      mix(c0.blue(), c1.blue()), mix(c0.alpha(), c1.alpha()));
    }
    return stops.back().second;
}

// Distance from the centre to the outline for a table of directions: the
// farthest crossing of each ray with the flattened path.
std::vector<double> OutlineDistances(const QPainterPath& path, QPointF c, int rays) {
    std::vector<double> dist(static_cast<size_t>(rays), 0.0);
    const QList<QPolygonF> polys = path.toSubpathPolygons();
    for (int k = 0; k < rays; ++k) {
        const double a = 2.0 * std::numbers::pi * k / rays;
        const QPointF d(std::cos(a), std::sin(a));
        for (const QPolygonF& poly : polys)
            for (int i = 0; i + 1 < poly.size(); ++i) {
                const QPointF p = poly[i] - c, e = poly[i + 1] - poly[i];
                const double den = d.x() * e.y() - d.y() * e.x();
                if (std::fabs(den) < 1e-12) continue;
                const double t = (p.x() * e.y() - p.y() * e.x()) / den;  // along the ray
                const double u = (p.x() * d.y() - p.y() * d.x()) / den;  // along the edge
                if (t > 0 && u >= 0 && u <= 1)
                    dist[static_cast<size_t>(k)] = std::max(dist[static_cast<size_t>(k)], t);
            }
    }
    return dist;
}

// A path gradient as path gradients run: position 0 on the outline, 1 at
// the centre, along the rays from the centre; beyond the outline the colour
// of position 0 stands. Drawn once into an image the brush then carries.
QImage PathGradientImage(const QPainterPath& path, QPointF centre, const QGradientStops& stops) {
    const QRect box = path.boundingRect().toAlignedRect().adjusted(-1, -1, 1, 1);
    if (box.width() <= 0 || box.height() <= 0 || box.width() > 8192 || box.height() > 8192)
        return {};
    constexpr int RAYS = 720;
    const std::vector<double> dist = OutlineDistances(path, centre, RAYS);
    QImage image(box.size(), QImage::Format_ARGB32);
    for (int y = 0; y < box.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < box.width(); ++x) {
            const QPointF p(box.left() + x + 0.5 - centre.x(), box.top() + y + 0.5 - centre.y());
            double a = std::atan2(p.y(), p.x());
            if (a < 0) a += 2.0 * std::numbers::pi;
            const double at = a / (2.0 * std::numbers::pi) * RAYS;
            const int k0 = static_cast<int>(at) % RAYS, k1 = (k0 + 1) % RAYS;
            const double f = at - std::floor(at);
            const double reach =
                dist[static_cast<size_t>(k0)] * (1 - f) + dist[static_cast<size_t>(k1)] * f;
            const double t = reach > 0 ? std::hypot(p.x(), p.y()) / reach : 1.0;
            row[x] = StopColour(stops, 1.0 - std::clamp(t, 0.0, 1.0)).rgba();
        }
    }
    image.setOffset(box.topLeft());
    return image;
}

bool MakeTexture(UstBrushSlot& slot, const UstFill& fill, const UstRect& rect, float xScale,
                 float yScale) {
    UstPixelImage image = LoadImageFile(FixedToQString(&fill.szImage));
    if (!image) return false;
    slot.pTexture = std::move(image.bits);
    slot.image = QImage(reinterpret_cast<const uchar*>(slot.pTexture.get()), image.width,
                        image.height, image.width * 4, QImage::Format_ARGB32);
    QTransform t;
    t.translate(rect.left, rect.top);
    if (fill.nImageFit == 1)
        t.scale(static_cast<double>(rect.Width()) / image.width,
                static_cast<double>(rect.Height()) / image.height);
    else
        t.scale(xScale, yScale);
    slot.brush = QBrush(slot.image);
    slot.brush.setTransform(t);
    slot.nKind = BRUSH_TEXTURE;
    return true;
}

}  // namespace

void UstBrushSlot::Release() {
    ReleaseSlot(*this);
}

bool PresetStops(const UstFill& fill, QGradientStops& stops) {
    const int count = std::min<int>(fill.nStops, 16);
    if (count < 2) return false;
    float pos[16];
    uint32_t colour[16];
    std::memcpy(pos, fill.fPos, sizeof pos);
    std::memcpy(colour, fill.clrStop, sizeof colour);
    if (pos[0] != 0.0f || pos[count - 1] != 1.0f) return false;
    stops.clear();
    for (int i = 0; i < count; ++i) {
        if (!(pos[i] >= 0.0f && pos[i] <= 1.0f) || (i > 0 && pos[i] < pos[i - 1])) return false;
        stops.append({pos[i], Argb(colour[i])});
    }
    return true;
}

void CreateFillBrush(UstBrushSlot& slot, const UstFill& fill, const UstRect& rect,
                     const QPainterPath* path, float xScale, float yScale) {
    ReleaseSlot(slot);
    const uint32_t type = fill.nType;
    if (type == 1) {
        slot.nKind = BRUSH_GRADIENT;
        QGradientStops stops;
        const bool preset = PresetStops(fill, stops);
        if (path && fill.nGradientKind == 1 && !path->isEmpty()) {
            const QPointF centre(rect.left + rect.Width() * 0.5f, rect.top + rect.Height() * 0.5f);
            if (!preset) stops = {{0.0, QColor(0, 0, 0, 0)}, {1.0, QColor(0, 0, 0, 0)}};
            slot.image = PathGradientImage(*path, centre, stops);
            slot.brush = QBrush(slot.image);
            slot.brush.setTransform(
                QTransform::fromTranslate(slot.image.offset().x(), slot.image.offset().y()));
            return;
        }
        QLinearGradient g = LinearFor(rect, fill.nAngle);
        // A stop list that cannot be a preset blend leaves both colours zero.
        g.setStops(preset ? stops
                          : QGradientStops{{0.0, QColor(0, 0, 0, 0)}, {1.0, QColor(0, 0, 0, 0)}});
        slot.brush = QBrush(g);
        return;
    }
    if (type == 2 && MakeTexture(slot, fill, rect, xScale, yScale)) return;
    slot.brush = QBrush(Argb(fill.clrSolid));
    slot.nKind = BRUSH_SOLID;
}

QBrush HatchBrush(int style, uint32_t fore, uint32_t back) {
    QImage tile(8, 8, QImage::Format_ARGB32);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            bool on = true;
            if (style == 3)
                on = (x + y) % 8 == 7;
            else if (style == 22)
                on = ((x - y + 8) % 8) < 3;
            else if (style == 44)
                on = x % 2 == 0 && ((x + y) % 8 == 0 || (x - y + 8) % 8 == 4);
            tile.setPixel(x, y, on ? fore : back);
        }
    return QBrush(tile);
}

}  // namespace orv
