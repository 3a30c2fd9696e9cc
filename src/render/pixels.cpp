#include "render/pixels.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "render/pixel_kernels.h"

namespace orv {

namespace {

size_t Count(int width, int height) {
    return static_cast<size_t>(width) * static_cast<size_t>(height);
}

uint32_t* Row(uint32_t* p, int width, int y) {
    return p + static_cast<size_t>(y) * width;
}
const uint32_t* Row(const uint32_t* p, int width, int y) {
    return p + static_cast<size_t>(y) * width;
}

bool SpansWithin(const UstRect& r, int blockWidth) {
    return r.left >= 0 && r.top >= 0 && r.right <= blockWidth;
}

uint32_t ClampOpacity(int opacity) {
    return static_cast<uint32_t>(std::clamp(opacity, 0, 255));
}

}  // namespace

void FillPixels(uint32_t colour, uint32_t* dst, int width, int height) {
    if (!dst || width <= 0 || height <= 0) return;
    ActiveKernels().fill(colour, dst, Count(width, height));
}

void ClearPixels(uint32_t* dst, int width, int height) {
    FillPixels(0, dst, width, height);
}

int FlipPixels(uint32_t* dst, int width, int height, int axis) {
    if (!dst || width <= 0 || height <= 0 || axis < 0 || axis > 2) return 0;
    const UstPixelKernels& k = ActiveKernels();
    if (axis == 2) {
        k.reverse(dst, Count(width, height));
    } else if (axis == 1) {
        for (int y = 0; y < height; ++y)
            k.reverse(Row(dst, width, y), static_cast<size_t>(width));
    } else {
        for (int y = 0; y < height / 2; ++y)
            k.swapRows(Row(dst, width, y), Row(dst, width, height - 1 - y),
                       static_cast<size_t>(width));
    }
    return 1;
}

int CopyPixelRect(uint32_t* dst, int dstWidth, const UstRect& dstRect, const uint32_t* src,
                  int srcWidth, int srcLeft, int srcTop, int /*srcRight*/, int /*srcBottom*/) {
    const int w = dstRect.Width(), h = dstRect.Height();
    if (!dst || !src || w <= 0 || h <= 0) return 1;
    if (!SpansWithin(dstRect, dstWidth) || srcLeft < 0 || srcTop < 0 || srcLeft + w > srcWidth)
        return 0;
    const UstPixelKernels& k = ActiveKernels();
    for (int y = 0; y < h; ++y)
        k.copy(Row(dst, dstWidth, dstRect.top + y) + dstRect.left,
               Row(src, srcWidth, srcTop + y) + srcLeft, static_cast<size_t>(w));
    return 1;
}

int ScalePixelRect(uint32_t* dst, const UstRect& dstRect, const uint32_t* src,
                   const UstRect& srcRect, int interpolation) {
    const int dw = dstRect.Width(), dh = dstRect.Height();
    const int sw = srcRect.Width(), sh = srcRect.Height();
    if (!dst || !src || dw <= 0 || dh <= 0 || sw <= 0 || sh <= 0) return 0;
    if (interpolation == INTERPOLATION_HIGH_QUALITY) {
        ClearPixels(dst, dw, dh);
        QImage target(reinterpret_cast<uchar*>(dst), dw, dh, dw * 4,
                      QImage::Format_ARGB32_Premultiplied);
        const QImage source(reinterpret_cast<const uchar*>(src), sw, sh, sw * 4,
                            QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&target);
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter.drawImage(QRect(0, 0, dw, dh), source, QRect(0, 0, sw, sh));
        return 1;
    }
    ActiveKernels().scaleBilinear({dst, dw, dh, src, sw, sh});
    return 1;
}

UstReciprocal BoxReciprocal(uint32_t area) {
    if (area <= 1) return {256, 8};
    const float inverse = 1.0f / static_cast<float>(area);
    uint32_t v = static_cast<uint32_t>(static_cast<double>(inverse) * 4294967295.0);
    int n = 0;
    while (!(v & 0x80000000u) && n < 24) {
        v <<= 1;
        ++n;
    }
    return {(v >> 20) + 1, n + 12};
}

int BoxBlurRect(uint32_t* dst, const UstRect& rect, int blockWidth, int radius) {
    if (!dst || radius < 1 || !SpansWithin(rect, blockWidth)) return 0;
    const int l = rect.left + 2 * radius, t = rect.top + 2 * radius;
    const int r = rect.right - 2 * radius, b = rect.bottom - 2 * radius;
    if (r <= l || b <= t) return 0;
    const UstReciprocal rec = BoxReciprocal(static_cast<uint32_t>(4 * radius * radius));
    ActiveKernels().boxBlur({dst, blockWidth, l, t, r, b, radius, rec.m, rec.s});
    return 1;
}

uint32_t BlendPixel(uint32_t dst, uint32_t src) {
    return BlendOne(dst, src, 255);
}

uint32_t BlendPixelOpacity(uint32_t dst, uint32_t src, int opacity) {
    return BlendOne(dst, src, ClampOpacity(opacity));
}

void BlendPixelRectOpacity(uint32_t* dst, int dstWidth, const UstRect& dstRect, const uint32_t* src,
                           int srcWidth, const UstRect& srcRect, int opacity) {
    const int w = std::min(dstRect.Width(), srcRect.Width());
    const int h = std::min(dstRect.Height(), srcRect.Height());
    if (!dst || !src || w <= 0 || h <= 0) return;
    if (dstRect.left < 0 || dstRect.top < 0 || dstRect.left + w > dstWidth) return;
    if (srcRect.left < 0 || srcRect.top < 0 || srcRect.left + w > srcWidth) return;
    const UstPixelKernels& k = ActiveKernels();
    for (int y = 0; y < h; ++y)
        k.blend(Row(dst, dstWidth, dstRect.top + y) + dstRect.left,
                Row(src, srcWidth, srcRect.top + y) + srcRect.left, static_cast<size_t>(w),
                ClampOpacity(opacity));
}

void BlendPixelRect(uint32_t* dst, int dstWidth, const UstRect& dstRect, const uint32_t* src,
                    int srcWidth, const UstRect& srcRect) {
    BlendPixelRectOpacity(dst, dstWidth, dstRect, src, srcWidth, srcRect, 255);
}

void ScaleAlphaPixels(uint32_t* dst, int width, int height, int opacity) {
    if (!dst || width <= 0 || height <= 0) return;
    const uint32_t o = ClampOpacity(opacity);
    for (size_t i = 0, n = Count(width, height); i < n; ++i)
        dst[i] = (dst[i] & 0x00FFFFFFu) | (((dst[i] >> 24) * o / 255) << 24);
}

void KeyOutColor(uint32_t* dst, int width, int height, uint32_t key, int opacity) {
    if (!dst || width <= 0 || height <= 0) return;
    ActiveKernels().keyOut(dst, Count(width, height), key, ClampOpacity(opacity));
}

void DrawCheckerPixels(uint32_t* dst, int width, int height, int cell) {
    constexpr uint32_t LIGHT = 0xFFE0E0E0u, DARK = 0xFFA0A0A0u;
    if (!dst || width <= 0 || height <= 0 || cell <= 0) return;
    bool rowFlag = true;
    for (int y = 0; y < height; ++y) {
        if (y > 0 && y % cell == 0) rowFlag = !rowFlag;
        uint32_t* row = Row(dst, width, y);
        bool cellFlag = rowFlag;
        for (int x = 0; x < width; x += cell) {
            if (x > 0) cellFlag = !cellFlag;
            std::fill_n(row + x, std::min(cell, width - x), cellFlag ? LIGHT : DARK);
        }
    }
}

void FramePixels(uint32_t* dst, int width, int height, uint32_t colour) {
    if (!dst || width <= 0 || height <= 0) return;
    std::fill_n(dst, width, colour);
    std::fill_n(Row(dst, width, height - 1), width, colour);
    for (int y = 0; y < height; ++y)
        Row(dst, width, y)[0] = colour;
    for (int y = 0; y < height; ++y)
        Row(dst, width, y)[width - 1] = colour;
}

void ClearMaskedInterior(uint32_t* dst, const uint32_t* mask, int width, int height) {
    if (!dst || !mask || width < 3 || height < 3) return;
    constexpr uint32_t FULL = 0xFFFFFFFFu;
    for (int y = 1; y < height - 1; ++y) {
        const uint32_t* m = Row(mask, width, y);
        const uint32_t* up = Row(mask, width, y - 1);
        const uint32_t* down = Row(mask, width, y + 1);
        uint32_t* d = Row(dst, width, y);
        for (int x = 1; x < width - 1; ++x)
            if (m[x] == FULL && m[x - 1] == FULL && m[x + 1] == FULL && up[x] == FULL &&
                down[x] == FULL)
                d[x] = 0;
    }
}

void MergePixels(uint32_t* dst, const uint32_t* src, const uint32_t* src2, int width, int height) {
    if (!dst || !src || width <= 0 || height <= 0) return;
    for (size_t i = 0, n = Count(width, height); i < n; ++i) {
        if (src[i] != 0)
            dst[i] = src[i];
        else if (src2 && src2[i] != 0)
            dst[i] = src2[i];
    }
}

void MaskStampPixels(uint32_t* dst, const uint32_t* src, int blockWidth, int blockHeight,
                     const uint32_t* mask, int maskWidth, int maskHeight, int x, int y) {
    if (!dst || !src || !mask || blockWidth <= 0 || maskWidth <= 0 || maskHeight <= 0) return;
    for (int row = 0; row < maskHeight; ++row) {
        const int by = y + row;
        if (by < 0 || by >= blockHeight) continue;
        const uint32_t* m = Row(mask, maskWidth, row);
        for (int col = 0; col < maskWidth; ++col) {
            const int bx = x + col;
            if (m[col] != 0xFFFFFFFFu || bx < 0 || bx >= blockWidth) continue;
            const size_t at = static_cast<size_t>(by) * blockWidth + bx;
            dst[at] = src[at];
        }
    }
}

int RoundToInt(float value) {
    float r = std::floor(std::fabs(value) + 0.5f);
    // Values from damaged data must not make the conversion undefined.
    if (std::isnan(value)) return 0;
    if (r >= 2147483648.0f) return value < 0.0f ? INT32_MIN : INT32_MAX;
    return static_cast<int>(value < 0.0f ? -r : r);
}

}  // namespace orv
