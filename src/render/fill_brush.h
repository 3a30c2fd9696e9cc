#pragma once
// Brushes from fill records: solid colour, linear or path gradient with the
// stops as a preset blend, or a texture image; and the hatch patterns the
// editor marks things with.

#include <QBrush>
#include <QImage>
#include <QPainterPath>

#include <memory>

#include "render/geometry.h"

namespace orv {

struct UstFill;

enum EBrushKind { BRUSH_SOLID = 0, BRUSH_GRADIENT = 1, BRUSH_TEXTURE = 2 };

// What a made brush holds. Making a brush first lets go of the old one.
struct UstBrushSlot {
    std::unique_ptr<uint32_t[]> pTexture;  // straight pixels of a texture
    QImage image;                          // wrapped on them, or a generated path gradient
    QBrush brush;
    int nKind = BRUSH_SOLID;
    void Release();
};

// path may be null; then a path gradient falls back to a linear one.
void CreateFillBrush(UstBrushSlot& slot, const UstFill& fill, const UstRect& rect,
                     const QPainterPath* path, float xScale, float yScale);

// The gradient's stops as Qt stops, or false when the stop list cannot be a
// preset blend (fewer than two stops, or not running from 0 to 1 upward).
bool PresetStops(const UstFill& fill, QGradientStops& stops);

// The 8 x 8 hatch patterns in use: 3 (backward diagonal), 22 (wide downward
// diagonal), 44 (dotted diamond). Any other style paints the fore colour.
QBrush HatchBrush(int style, uint32_t fore, uint32_t back);

}  // namespace orv
