#pragma once
// A picture made ready to draw: scaled to its box, keyed or faded, turned.

#include <cstdint>

#include "render/object_image.h"

namespace orv {

// The largest picture made for a box; beyond it nothing is drawn, so that a
// box dragged absurdly large cannot exhaust memory.
constexpr int64_t MAX_PICTURE_PIXELS = 64LL * 1024 * 1024;

// Scales the straight source over the box (left, top, right, bottom), keys
// out the key colour or scales the alpha, and turns the result about the
// box's centre. Answers whether the result is straight (unturned) or
// premultiplied (turned). A box without area, or one too large, gives an
// empty image.
bool RenderPicture(ObjectImage& out, int left, int top, int right, int bottom,
                   const uint32_t* source, int sourceWidth, int sourceHeight, int rotation,
                   bool keying, uint32_t key, int alpha);

}  // namespace orv
