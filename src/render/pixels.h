#pragma once
// Bare 32-bit pixel blocks: width x height pixels, top row first, stride
// width * 4, each pixel the little-endian value 0xAARRGGBB (B, G, R, A in
// memory). A block is a pointer with its size beside it, never a class.
// The arithmetic here is exact; soft edges, blended rolls and keyed pictures
// look the way they do because of it.

#include <cstdint>

#include "render/geometry.h"

namespace orv {

// The drawing library's two readings of the same layout.
constexpr int PIXEL_FORMAT_PARGB = 925707;  // premultiplied
constexpr int PIXEL_FORMAT_ARGB = 2498570;  // straight
constexpr int INTERPOLATION_HIGH_QUALITY = 8;

void FillPixels(uint32_t colour, uint32_t* dst, int width, int height);
void ClearPixels(uint32_t* dst, int width, int height);
// Axis 0 swaps top and bottom, 1 left and right, 2 both. 1 on success.
int FlipPixels(uint32_t* dst, int width, int height, int axis);
// Copies the destination rectangle's size from (srcLeft, srcTop); the
// source's right and bottom are accepted and ignored.
int CopyPixelRect(uint32_t* dst, int dstWidth, const UstRect& dstRect, const uint32_t* src,
                  int srcWidth, int srcLeft, int srcTop, int srcRight, int srcBottom);
// Each rectangle spans its whole block; only the destination's extents count.
int ScalePixelRect(uint32_t* dst, const UstRect& dstRect, const uint32_t* src,
                   const UstRect& srcRect, int interpolation);
int BoxBlurRect(uint32_t* dst, const UstRect& rect, int blockWidth, int radius);
uint32_t BlendPixel(uint32_t dst, uint32_t src);
uint32_t BlendPixelOpacity(uint32_t dst, uint32_t src, int opacity);
void BlendPixelRect(uint32_t* dst, int dstWidth, const UstRect& dstRect, const uint32_t* src,
                    int srcWidth, const UstRect& srcRect);
void BlendPixelRectOpacity(uint32_t* dst, int dstWidth, const UstRect& dstRect, const uint32_t* src,
                           int srcWidth, const UstRect& srcRect, int opacity);
void ScaleAlphaPixels(uint32_t* dst, int width, int height, int opacity);
void KeyOutColor(uint32_t* dst, int width, int height, uint32_t key, int opacity);
// Light 0xFFE0E0E0 and dark 0xFFA0A0A0 squares, the top left one light.
void DrawCheckerPixels(uint32_t* dst, int width, int height, int cell);
void FramePixels(uint32_t* dst, int width, int height, uint32_t colour);
void ClearMaskedInterior(uint32_t* dst, const uint32_t* mask, int width, int height);
void MergePixels(uint32_t* dst, const uint32_t* src, const uint32_t* src2, int width, int height);
void MaskStampPixels(uint32_t* dst, const uint32_t* src, int blockWidth, int blockHeight,
                     const uint32_t* mask, int maskWidth, int maskHeight, int x, int y);

// Rounds half away from zero in single precision. Beyond the range of int
// it saturates, and not-a-number gives 0.
int RoundToInt(float value);

// The fixed-point reciprocal of a box area: mean = floor(sum * m / 2^s).
struct UstReciprocal {
    uint32_t m;
    int s;
};
UstReciprocal BoxReciprocal(uint32_t area);

}  // namespace orv
