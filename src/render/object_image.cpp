#include "render/object_image.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "render/pixels.h"
#include "render/render_graphics.h"

namespace orv {

namespace {

// Pi as a single-precision literal: the bounds of turned titles have always
// been rounded from it.
constexpr double PI_F = 3.1415927;

QPointF Turn(QPointF p, double degrees) {
    const double a = degrees * PI_F / 180.0, c = std::cos(a), s = std::sin(a);
    return {p.x() * c - p.y() * s, p.x() * s + p.y() * c};
}

}  // namespace

void ObjectImage::Allocate(int w, int h) {
    width = std::max(0, w);
    height = std::max(0, h);
    pBlock.reset(new uint32_t[std::max<size_t>(1, static_cast<size_t>(width) * height)]());
}

QImage WrapBlock(uint32_t* block, int width, int height) {
    return QImage(reinterpret_cast<uchar*>(block), width, height, width * 4,
                  QImage::Format_ARGB32_Premultiplied);
}

QImage WrapBlock(const uint32_t* block, int width, int height) {
    return QImage(reinterpret_cast<const uchar*>(block), width, height, width * 4,
                  QImage::Format_ARGB32_Premultiplied);
}

QImage ObjectImage::Wrap() const {
    if (!pBlock || width <= 0 || height <= 0) return {};
    if (bStraight)
        return QImage(reinterpret_cast<const uchar*>(pBlock.get()), width, height, width * 4,
                      QImage::Format_ARGB32);
    return WrapBlock(pBlock.get(), width, height);
}

void SqueezeAcross(ObjectImage& image, float xScale) {
    if (image.width <= 0 || image.height <= 0) return;
    if (image.bStraight) {
        // The scaler reads premultiplied blocks.
        const QImage pre = image.Wrap().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < image.height; ++y)
            std::memcpy(image.pBlock.get() + static_cast<size_t>(y) * image.width,
                        pre.constScanLine(y), static_cast<size_t>(image.width) * 4);
        image.bStraight = false;
    }
    if (xScale == 1.0f) return;
    ObjectImage scaled;
    scaled.Allocate(std::max(1, RoundToInt(static_cast<float>(image.width) * xScale)),
                    image.height);
    ScalePixelRect(scaled.pBlock.get(), {0, 0, scaled.width, scaled.height}, image.pBlock.get(),
                   {0, 0, image.width, image.height}, INTERPOLATION_HIGH_QUALITY);
    scaled.x = RoundToInt(static_cast<float>(image.x) * xScale);
    scaled.y = image.y;
    image = std::move(scaled);
}

void ObjectImage::DrawOn(QImage& canvas, QPoint offset) const {
    if (!pBlock || width <= 0 || height <= 0) return;
    QPainter painter(&canvas);
    painter.drawImage(QPoint(x, y) + offset, Wrap());
}

void ObjectImage::Turn(int cx, int cy, int degrees) {
    if (!pBlock) return;
    ObjectImage turned;
    RotateImage(std::move(pBlock), width, height, cx, cy, degrees, turned);
    turned.x += x, turned.y += y;
    *this = std::move(turned);
}

void RotateImage(std::unique_ptr<uint32_t[]> block, int width, int height, int cx, int cy,
                 int degrees, ObjectImage& out, bool straightSource) {
    const QPointF centre(cx, cy);
    int left = 0, top = 0, right = 0, bottom = 0;
    const QPointF corners[] = {
        {0, 0}, {double(width), 0}, {double(width), double(height)}, {0, double(height)}};
    for (int i = 0; i < 4; ++i) {
        const QPointF p = Turn(corners[i] - centre, degrees) + centre;
        const int x = RoundToInt(static_cast<float>(p.x())),
                  y = RoundToInt(static_cast<float>(p.y()));
        left = i ? std::min(left, x) : x, right = i ? std::max(right, x) : x;
        top = i ? std::min(top, y) : y, bottom = i ? std::max(bottom, y) : y;
    }
    out.Allocate(right - left, bottom - top);
    out.x = left, out.y = top;
    QImage target = out.Wrap();
    if (!block || width <= 0 || height <= 0 || target.isNull()) return;
    const QImage source(
        reinterpret_cast<const uchar*>(block.get()), width, height, width * 4,
        straightSource ? QImage::Format_ARGB32 : QImage::Format_ARGB32_Premultiplied);
    const auto graphics = CreateRenderGraphics(target, true);
    graphics->translate(centre);
    graphics->rotate(degrees);
    graphics->translate(-centre);
    // The source's corner in the turned frame that lands the bound's corner
    // on the target's (0, 0).
    const QPointF at = -Turn(QPointF(left, top), 360.0 - degrees);
    graphics->drawImage(at, source);
}

}  // namespace orv
