#include "render/text_measure.h"

#include <algorithm>
#include <iterator>

#include "render/glyph_font.h"
#include "render/pixels.h"

namespace orv {

namespace {

constexpr UstLineMetric ASCENT_TABLE[] = {
#include "render/ascent_table.inc"
};
static_assert(std::size(ASCENT_TABLE) == MAX_TEXT_SIZE + 1);

UstGlyphRequest RequestFor(const UstCharAttr& c, bool useMetrics) {
    UstGlyphRequest r;
    r.code = c.nChar;
    r.font = c.font;
    r.nWidthPercent = useMetrics ? c.metric.nWidth : 100;
    r.nSlant = useMetrics ? c.metric.nShear : 0;
    return r;
}

}  // namespace

UstLineMetric LineMetricAt(int size) {
    return ASCENT_TABLE[std::clamp(size, 0, MAX_TEXT_SIZE)];
}

int PixelHeight(int size, float scale) {
    return RoundToInt(static_cast<float>(size * static_cast<double>(scale) * PT_TO_PX));
}

void MeasureChar(UstCharAttr& c, bool useMetrics) {
    const int h = PixelHeight(c.font.nSize, 1.0f);
    const int ascent = LineMetricAt(c.font.nSize).ascent;
    UstGlyphMetrics gm;
    const bool measured = c.nChar != CHAR_LINE_END &&
                          MeasureGlyph(RequestFor(c, useMetrics), 1.0f, 1.0f, gm, nullptr);
    if (!measured) gm = {};
    if (c.nChar == CHAR_LINE_END || c.nChar == CHAR_SPACE) {
        const int advance = c.nChar == CHAR_SPACE ? gm.gmCellIncX : 0;
        c.nBoxWidth = advance;
        c.nBoxHeight = h;
        c.nOriginX = 0;
        c.nAdvance = advance;
        c.nOriginY = ascent;
        return;
    }
    c.nBoxWidth = static_cast<int32_t>(gm.gmBlackBoxX);
    c.nBoxHeight = static_cast<int32_t>(gm.gmBlackBoxY);
    c.nOriginX = gm.gmptGlyphOriginX;
    c.nAdvance = gm.gmCellIncX;
    c.nOriginY = gm.gmptGlyphOriginY;
}

bool MeasureCharScaled(const UstCharAttr& c, float xScale, float yScale, int* width, int* height,
                       UstLogFont* font) {
    UstGlyphMetrics gm;
    const bool ok = MeasureGlyph(RequestFor(c, true), xScale, yScale, gm, font);
    if (width) *width = ok ? static_cast<int>(gm.gmBlackBoxX) : 0;
    if (height) *height = ok ? static_cast<int>(gm.gmBlackBoxY) : 0;
    return ok;
}

UstRect GetCharBox(float x, float y, const UstCharAttr& c, const UstEffect& effect, float xScale,
                   float yScale, LayerRects* rects) {
    int w = 0, h = 0;
    MeasureCharScaled(c, xScale, yScale, &w, &h, nullptr);
    LayerRects local;
    LayerRects& r = rects ? *rects : local;
    ComputeLayerRects(RoundToInt(x), RoundToInt(y), w, h, effect, xScale, yScale, false, r);
    return {r.canvasX, r.canvasY, r.canvasX + r.canvasW, r.canvasY + r.canvasH};
}

}  // namespace orv
