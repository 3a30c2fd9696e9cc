#include "objects/live_image.h"

#include <algorithm>

namespace orv {

UstRect LiveImageRect(const ObjectImage& image) {
    if (!image.Made() || image.width <= 0 || image.height <= 0) return {};
    return {image.x, image.y, image.x + image.width, image.y + image.height};
}

void DrawImageInStrip(const ObjectImage& image, uint32_t* bits, int width, int height,
                      const UstRect& area) {
    if (!bits || width <= 0 || height <= 0) return;
    const UstRect shown{area.left, area.top, area.left + std::min(width, area.Width()),
                        area.top + std::min(height, area.Height())};
    if (!Meets(LiveImageRect(image), shown)) return;
    QImage strip = WrapBlock(bits, width, height);
    image.DrawOn(strip, QPoint(-area.left, -area.top));
}

void DropUnreachable(ObjectImage& image) {
    const UstRect r = LiveImageRect(image);
    if (r.right <= 0 || r.bottom <= 0) image.Reset();
}

UstPoint LiveExtent(const UstRect& stored, const UstRect& drawn) {
    if (drawn.Width() <= 0 || drawn.Height() <= 0) return {stored.right, stored.bottom};
    return {std::max(stored.right, drawn.right), std::max(stored.bottom, drawn.bottom)};
}

}  // namespace orv
