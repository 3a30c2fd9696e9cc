#pragma once
// The figures a shape object can be: each kind is a function from a box and
// one control point (the handle the user drags for a corner radius, an
// arrow's neck or a slant) to a single closed path, filled odd-even.

#include <QPainterPath>
#include <QPointF>
#include <QString>

namespace orv {

constexpr int SHAPE_KIND_COUNT = 28;

// Resets the path and builds kind's figure in the box; control point (cx, cy) is
// relative to the box's left/top, in the same (output pixel) units. Kind outside 0..27: empty path.
void BuildShapePath(int left, int top, int right, int bottom, QPainterPath& path, int kind,
                    float cx, float cy);
// Control point of a fresh shape (relative to the box corner); also builds the path with it.
QPointF DefaultControlPoint(int left, int top, int right, int bottom, QPainterPath& path, int kind);
// New control point when the box goes from ow x oh to nw x nh.
QPointF RescaleControlPoint(int kind, QPointF cp, int ow, int oh, int nw, int nh);
// The Korean type name of the kind ("도형" for any other kind).
QString ShapeKindName(int kind);
// Whether the kind has a yellow control handle: 1, 4, 5, 7, 8, 9, 11..27.
bool ShapeHasControlHandle(int kind);

}  // namespace orv
