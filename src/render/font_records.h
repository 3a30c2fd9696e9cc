#pragma once
// Font descriptions and measurements: the per-character font and metric
// blocks that text and the default-attribute file carry, and the records of
// the font engine (description, text metrics, glyph metrics, 2 x 2 matrix).

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

// A font as the engine is asked for it; the 23 words of the classic logical
// font record.
struct UstLogFont {
    int32_t lfHeight;  // negative: the em height in pixels
    int32_t lfWidth;   // 0: natural; else the average character width wanted
    int32_t lfEscapement;
    int32_t lfOrientation;
    int32_t lfWeight;
    uint8_t lfItalic, lfUnderline, lfStrikeOut, lfCharSet;
    uint8_t lfOutPrecision, lfClipPrecision, lfQuality, lfPitchAndFamily;
    char16_t lfFaceName[32];
};
static_assert(sizeof(UstLogFont) == 92);

#pragma pack(pop)

// 16.16 fixed point.
using FIXED = int32_t;
constexpr FIXED FIXED_ONE = 0x10000;

inline float FixedToFloat(FIXED v) {
    const int16_t whole = static_cast<int16_t>(static_cast<uint32_t>(v) >> 16);
    const uint16_t fraction = static_cast<uint16_t>(v & 0xFFFF);
    return static_cast<float>(whole) + static_cast<float>(fraction) * 1.52587890625e-5f;
}
inline FIXED FixedFromDouble(double v) {
    return static_cast<FIXED>(v * 65536.0);
}

// x' = eM11 x + eM21 y, y' = eM12 x + eM22 y.
struct UstMat2 {
    FIXED eM11 = FIXED_ONE, eM12 = 0, eM21 = 0, eM22 = FIXED_ONE;
    bool operator==(const UstMat2&) const = default;
};

struct UstTextMetrics {
    int32_t tmHeight = 0, tmAscent = 0, tmDescent = 0;
    int32_t tmAveCharWidth = 0, tmMaxCharWidth = 0;
};

struct UstGlyphMetrics {
    uint32_t gmBlackBoxX = 0, gmBlackBoxY = 0;
    int32_t gmptGlyphOriginX = 0, gmptGlyphOriginY = 0;  // top left of the box, y up
    int16_t gmCellIncX = 0, gmCellIncY = 0;
};

struct UstKerningPair {
    uint16_t wFirst, wSecond;
    int32_t iKernAmount;  // pixels
};

}  // namespace orv
