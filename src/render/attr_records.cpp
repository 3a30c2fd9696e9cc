#include "render/attr_records.h"

#include <cstring>

namespace orv {

namespace {

constexpr uint32_t OPAQUE_BLACK = 0xFF000000u;
constexpr uint32_t OPAQUE_WHITE = 0xFFFFFFFFu;

UstFill MakeBlankFill(bool first) {
    UstFill f;
    std::memset(&f, 0, sizeof f);
    f.clrSolid = OPAQUE_BLACK;
    f.nAngle = 90;
    f.nImageFit = 1;
    for (uint32_t& c : f.clrStop)
        c = OPAQUE_BLACK;
    if (first) {
        f.nStops = 3;
        f.fPos[0] = 0.0f;
        f.fPos[1] = 0.5f;
        f.fPos[2] = 1.0f;
    } else {
        f.nStops = 2;
        f.fPos[0] = 0.0f;
        f.fPos[1] = 1.0f;
    }
    return f;
}

}  // namespace

UstAttr MakeBlankAttr() {
    UstAttr a;
    for (int i = 0; i < UstAttr::PAINT_COUNT; ++i)
        a.fill[i] = MakeBlankFill(i == 0);
    return a;
}

UstAttr MakeDefaultAttr() {
    UstAttr a = MakeBlankAttr();
    UstFill& body = a.fill[UstAttr::BODY];
    body.clrSolid = OPAQUE_WHITE;
    body.clrStop[0] = 0xFFFF0000u;
    body.clrStop[1] = 0xFF00FF00u;
    body.clrStop[2] = 0xFF0000FFu;
    for (int i = 1; i < UstAttr::PAINT_COUNT; ++i) {
        a.fill[i].clrStop[0] = OPAQUE_BLACK;
        a.fill[i].clrStop[1] = OPAQUE_WHITE;
    }
    a.fill[UstAttr::OUTLINE].clrSolid = 0xFFFFFF00u;
    return a;
}

UstEffect MakeDefaultEffect() {
    UstEffect e;
    std::memset(&e, 0, sizeof e);
    e.nEdge = 2;
    e.nShadowX = 2;
    e.nShadowY = 2;
    return e;
}

}  // namespace orv
