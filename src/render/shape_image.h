#pragma once
// The top of the pipeline for shapes: the figure's path in its box, its
// shadow, edge and outline and face on one canvas, turned if asked.

#include <QPainter>

#include "render/attr_records.h"
#include "render/object_image.h"

namespace orv {

// Beyond this many pixels a shape's canvas is not made: a damaged or absurd
// box must not take the machine's memory.
constexpr int64_t MAX_SHAPE_PIXELS = 64LL << 20;

// Renders the shape whose box (already at the scales) is left, top, right,
// bottom, with the control point relative to the box's corner. The output
// is the canvas, or the turned canvas, at its page position; with a target
// it is also drawn there. An unknown kind or an empty box makes nothing.
void RenderShapeImage(ObjectImage& out, int kind, int left, int top, int right, int bottom,
                      const UstEffect& effect, const UstAttr& attr, float cx, float cy,
                      int rotation, float xScale, float yScale, QPainter* target);

}  // namespace orv
