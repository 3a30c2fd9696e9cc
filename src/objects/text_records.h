#pragma once
// The per-character font and metric blocks. They sit inside each character's
// record and, side by side with the paints, in the default-attribute file.

#include <cstdint>

namespace orv {

#pragma pack(push, 1)

struct UstFontBlock {
    uint8_t nCharSet;      // character set of the font
    uint8_t nPitchFamily;  // pitch and family of the font
    int32_t nSize;         // size in points
    char16_t szFace[32];   // face name, zero terminated
};
static_assert(sizeof(UstFontBlock) == 70);

struct UstTextMetric {
    int32_t nWidth;    // width ratio in percent
    int32_t nSpacing;  // extra advance after the character, in points
    int32_t nLeading;  // extra distance below the line
    int32_t nShear;    // shear, in tenths
};
static_assert(sizeof(UstTextMetric) == 16);

#pragma pack(pop)

}  // namespace orv
