#pragma once
// What blinking and typing look like: the hatches that mark them on the edit
// canvas, and the flat colour of the "by colour" blink picture.

#include <QPolygonF>

#include <cstddef>
#include <cstdint>

namespace orv {

class CPageContext;

constexpr int BLINK_MARK_HATCH = 22;
constexpr uint32_t BLINK_MARK_COLOUR = 0xFF808080u;
constexpr int TYPING_MARK_HATCH = 3;
constexpr uint32_t TYPING_MARK_COLOUR = 0xFF0000FFu;

// Premultiplied pixels keep their coverage and take the colour's hue; the
// colour's own alpha thins them further.
void TintPixels(uint32_t* pixels, size_t count, uint32_t colour);
// A hatch over the polygon (canvas pixels) on the page's edit canvas.
void HatchOnCanvas(CPageContext* page, const QPolygonF& area, int style, uint32_t colour);

}  // namespace orv
