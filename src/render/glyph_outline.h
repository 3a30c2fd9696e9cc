#pragma once
// A glyph's native outline as polygons of line and spline records, and the
// walk that turns it into a path in pixel coordinates.

#include <QPainterPath>

#include <cstdint>
#include <vector>

#include "render/font_records.h"

typedef struct FT_Outline_ FT_Outline;

namespace orv {

enum EGlyphRecord : uint16_t { PRIM_LINE = 1, PRIM_QSPLINE = 2, PRIM_CSPLINE = 3 };
constexpr uint32_t POLYGON_TYPE = 24;

struct UstPointFx {
    FIXED x = 0, y = 0;
};

struct UstGlyphRecord {
    uint16_t wType = PRIM_LINE;
    std::vector<UstPointFx> points;
};

struct UstGlyphPolygon {
    uint32_t dwType = POLYGON_TYPE;
    UstPointFx pfxStart;
    std::vector<UstGlyphRecord> records;
};

// Result codes of the outline calls.
enum EGlyphResult : int {
    GLYPH_OK = 0,
    GLYPH_NO_CONTEXT = 1,
    GLYPH_NO_MEMORY = 3,
    GLYPH_BAD_POLYGON = 6,
    GLYPH_NO_OUTLINE = 7
};

// Adds the polygons to the path, each point plus the offset, and closes each
// figure. Quadratic splines become cubics; cubic records go in as they are.
int WalkGlyphPolygons(const std::vector<UstGlyphPolygon>& polygons, float offsetX, float offsetY,
                      QPainterPath& path);

// The records of a font engine outline (26.6 points with on, conic and cubic
// tags): each contour starts at its first on-curve point; runs of on-curve
// points become line records, runs of off-curve points with the on-curve
// point that ends them become spline records.
std::vector<UstGlyphPolygon> PolygonsFromOutline(const FT_Outline& outline);

}  // namespace orv
