#pragma once
// The attribute records that objects, styles and the default-attribute file
// share byte for byte. They hold no pointers so that they can be copied with
// one move, archived as raw bytes and compared with memcmp.

#include <cstdint>

namespace orv {

#pragma pack(push, 1)

// One paint: solid colour, gradient or image.
struct UstFill {
    uint32_t nType;          // 0 solid, 1 gradient, 2 image
    uint32_t clrSolid;       // ARGB
    uint32_t nGradientKind;  // 0 linear, 1 radial
    int16_t nAngle;          // direction of a linear gradient, degrees
    int16_t nStops;          // stops in use, at most 16
    float fPos[16];          // stop positions, 0 to 1
    uint32_t clrStop[16];    // ARGB of each stop
    char16_t szImage[260];   // image file of an image fill, zero terminated
    uint32_t nImageFit;      // 1 stretch over the box; else keep size at the corner
};
static_assert(sizeof(UstFill) == 668);

// All paints of an object.
struct UstAttr {
    enum Paint { BODY = 0, EDGE = 1, OUTLINE = 2, SHADOW = 3, PAINT_COUNT = 6 };
    UstFill fill[PAINT_COUNT];
};
static_assert(sizeof(UstAttr) == 4008);

// Sizes of the edge, outline and shadow effects; seventeen 32-bit words.
struct UstEffect {
    int32_t nRes0, nRes1, nRes2;
    int32_t nEdge;      // 0 to 30
    int32_t nOutline;   // 0 to 30
    int32_t nEdgeSoft;  // 0 to 20
    int32_t nRes6, nRes7;
    int32_t nShadowType;  // 0 "Drop", 1 "Drag"
    int32_t nShadowX;     // -50 to 50
    int32_t nShadowY;     // -50 to 50
    int32_t nRes11, nRes12;
    int32_t nShadowSoft;  // 0 to 20
    int32_t nRes14, nRes15, nRes16;
};
static_assert(sizeof(UstEffect) == 68);

#pragma pack(pop)

// A record as it stands before any default is applied: every colour opaque
// black, the first paint with three stops and the others with two.
UstAttr MakeBlankAttr();

// The defaults that the default-attribute file is created with.
UstAttr MakeDefaultAttr();
UstEffect MakeDefaultEffect();

}  // namespace orv
