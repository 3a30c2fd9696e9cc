#pragma once
// Positions for a text: a line ends only at a character 13, every line starts
// at the origin, and nothing wraps.

#include <cstdint>
#include <utility>
#include <vector>

#include "render/geometry.h"
#include "render/text_records.h"

namespace orv {

struct UstCharPos {
    float x = 0, y = 0;  // top left of the character's box
};

struct UstTextLayout {
    // One per character and, last, the end of the text; empty for no text.
    std::vector<UstCharPos> pos;
    int32_t nLines = 0;
    std::vector<float> lineHeight;
    std::vector<std::pair<int32_t, int32_t>> lineRange;  // first and last index
};

// Lays out count characters from the origin (the first line's baseline).
// The rectangle, which hugs the glyphs, is left as it was for no text.
void LayoutText(UstTextLayout& out, float originX, float originY, UstRect& rect,
                const UstCharAttr* chars, int count, float xScale, float yScale);

}  // namespace orv
