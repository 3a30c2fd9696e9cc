#pragma once
// Measuring text one character at a time: each character in a font made for
// it alone, with its own width ratio and shear, unhinted.

#include <cstdint>

#include "render/geometry.h"
#include "render/layers.h"
#include "render/text_records.h"

namespace orv {

// Points to pixels, as a 32-bit float on purpose: sizes must come out as
// they always have.
constexpr float PT_TO_PX = 1.3333f;

// The largest size the ascent table knows.
constexpr int MAX_TEXT_SIZE = 1001;

struct UstLineMetric {
    uint16_t ascent, descent;  // pixels at scale 1
};
// The line ascent and descent for a size in points; sizes outside the table
// take its nearest end.
UstLineMetric LineMetricAt(int size);

// The pixel height of a size at a scale: round(size * scale * 1.3333).
int PixelHeight(int size, float scale);

// Fills the five measured fields of the character. Without useMetrics the
// shear counts as 0 and the width as 100.
void MeasureChar(UstCharAttr& c, bool useMetrics);

// The black box of the character at the scales, and the font made for it.
// False (and a 0 x 0 box) when no font or glyph can be had.
bool MeasureCharScaled(const UstCharAttr& c, float xScale, float yScale, int* width, int* height,
                       UstLogFont* font);

// The rectangle of a character's layers when its box stands at (x, y): its
// box at the scales grown by the effect's bands, softness and shadow.
UstRect GetCharBox(float x, float y, const UstCharAttr& c, const UstEffect& effect, float xScale,
                   float yScale, LayerRects* rects = nullptr);

}  // namespace orv
