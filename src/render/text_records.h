#pragma once
// Text as the system stores it: one flat array of characters, each carrying
// its whole look, and per character the layers it was last rendered into.

#include <cstdint>
#include <memory>

#include "render/attr_records.h"
#include "render/font_records.h"
#include "render/geometry.h"

namespace orv {

#pragma pack(push, 1)

// One character; archived and copied as raw bytes.
struct UstCharAttr {
    uint32_t nChar;  // 13 ends a line, 32 is a space
    UstFontBlock font;
    UstTextMetric metric;
    uint32_t clrFill;  // solid ARGB of this character
    uint32_t bBlink;
    // Measured at scale 1 by MeasureChar.
    int32_t nBoxWidth;
    int32_t nBoxHeight;
    int32_t nOriginX;  // left bearing
    int32_t nAdvance;
    int32_t nOriginY;  // baseline to the top of the box
};
static_assert(sizeof(UstCharAttr) == 118);

// The look a new object or a typed character starts from: whole-object
// paints and effect sizes, and the per-character font and metrics.
struct UstDefaultAttr {
    UstAttr attr;
    UstEffect effect;
    UstFontBlock font;
    UstTextMetric metric;
};
static_assert(sizeof(UstDefaultAttr) == 4162);

// A text style as the style list keeps it.
struct UstText {
    UstCharAttr character;
    UstEffect effect;
    UstAttr attr;
    char16_t szThumb[260];  // thumbnail file name, zero terminated
};
static_assert(sizeof(UstText) == 4714);

#pragma pack(pop)

constexpr uint32_t CHAR_LINE_END = 13;
constexpr uint32_t CHAR_SPACE = 32;

// All zeros but the width ratio.
inline UstCharAttr NewCharAttr() {
    UstCharAttr c{};
    c.metric.nWidth = 100;
    return c;
}

// Whether a character draws nothing: line ends, blanks and the null.
inline bool IsBlankChar(uint32_t c) {
    return c == CHAR_LINE_END || c == CHAR_SPACE || c == 0;
}

using UstLayerBlock = std::shared_ptr<uint32_t[]>;

// One character's rendered layers. Equal characters may share blocks; the
// last holder frees them.
struct UstFES {
    enum Layer { FACE = 0, EDGE = 1, OUTLINE = 2, SHADOW = 3 };
    int32_t x = 0, y = 0, w = 0, h = 0;  // where the blocks stand, and their size
    UstLayerBlock pLayer[4];
    // The rounded face position the blocks were made for: a character that
    // only moves keeps its blocks and moves them by the same amount.
    int32_t faceX = 0, faceY = 0;
    UstRect rcStroke;  // the face grown by the edge and outline, page pixels
    bool Rendered() const { return pLayer[FACE] != nullptr; }
    void Move(int dx, int dy) {
        x += dx, y += dy, faceX += dx, faceY += dy;
        rcStroke = Offset(rcStroke, dx, dy);
    }
};

}  // namespace orv
