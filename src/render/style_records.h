#pragma once
// The records of the shape and colour style lists. The text style record
// lives with the text records; all three are written to their list files
// as raw memory images, so their layouts are file formats.

#include "render/attr_records.h"
#include "render/text_records.h"

namespace orv {

constexpr int STYLE_THUMB_CHARS = 260;

#pragma pack(push, 1)

struct UstShape {
    UstEffect effect;
    UstAttr attr;
    char16_t szThumb[STYLE_THUMB_CHARS];
};
static_assert(sizeof(UstShape) == 4596);

struct UstColor {
    UstFill fill;
    char16_t szThumb[STYLE_THUMB_CHARS];
};
static_assert(sizeof(UstColor) == 1188);

#pragma pack(pop)

static_assert(sizeof(UstText) == 4714);

}  // namespace orv
