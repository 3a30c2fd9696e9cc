#include "render/render_graphics.h"

#include <QImage>

#include "render/pixels.h"

namespace orv {

namespace {

QImage Wrap(const uint32_t* block, int width, int height, int pixelFormat) {
    const auto format = pixelFormat == PIXEL_FORMAT_ARGB ? QImage::Format_ARGB32
                                                         : QImage::Format_ARGB32_Premultiplied;
    return QImage(reinterpret_cast<const uchar*>(block), width, height, width * 4, format);
}

}  // namespace

void DrawPixelsAt(const uint32_t* block, QPainter& graphics, int width, int height,
                  int pixelFormat) {
    if (!block || width <= 0 || height <= 0) return;
    graphics.drawImage(QRect(0, 0, width, height), Wrap(block, width, height, pixelFormat));
}

void DrawPixelsInRect(const uint32_t* block, QPainter& graphics, int left, int top, int right,
                      int bottom, int pixelFormat) {
    const int w = right - left, h = bottom - top;
    if (!block || w <= 0 || h <= 0) return;
    graphics.drawImage(QRect(left, top, w, h), Wrap(block, w, h, pixelFormat));
}

std::unique_ptr<QPainter> CreateRenderGraphics(QImage& bitmap, bool quality) {
    auto painter = std::make_unique<QPainter>(&bitmap);
    if (quality) {
        painter->setRenderHint(QPainter::Antialiasing, true);
        painter->setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter->setRenderHint(QPainter::TextAntialiasing, true);
    }
    return painter;
}

}  // namespace orv
