#include "render/picture_image.h"

#include "render/pixels.h"

namespace orv {

namespace {

constexpr int INTERPOLATION_BILINEAR = 2;

}  // namespace

bool RenderPicture(ObjectImage& out, int left, int top, int right, int bottom,
                   const uint32_t* source, int sourceWidth, int sourceHeight, int rotation,
                   bool keying, uint32_t key, int alpha) {
    out.Reset();
    const int w = right - left, h = bottom - top;
    if (w <= 0 || h <= 0 || static_cast<int64_t>(w) * h > MAX_PICTURE_PIXELS) return true;
    ObjectImage scaled;
    scaled.Allocate(w, h);
    ScalePixelRect(scaled.pBlock.get(), {0, 0, w, h}, source, {0, 0, sourceWidth, sourceHeight},
                   INTERPOLATION_BILINEAR);
    if (keying)
        KeyOutColor(scaled.pBlock.get(), w, h, key, alpha);
    else if (alpha != 255)
        ScaleAlphaPixels(scaled.pBlock.get(), w, h, alpha);
    if (rotation % 360 == 0) {
        scaled.x = left;
        scaled.y = top;
        scaled.bStraight = true;
        out = std::move(scaled);
        return true;
    }
    RotateImage(std::move(scaled.pBlock), w, h, w / 2, h / 2, rotation, out, true);
    out.x += left;
    out.y += top;
    return false;
}

}  // namespace orv
