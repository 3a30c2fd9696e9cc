#pragma once
// What an object of a Roll or Crawl page keeps for the run: its finished
// image at full scale, placed in page coordinates. The page is far longer
// than any frame, so the strips are cut from these images one screen at a
// time instead of from one picture of the whole page.

#include "render/geometry.h"
#include "render/object_image.h"

namespace orv {

// Draws what falls of a page-placed image inside `area` (page pixels) into a
// strip of width x height whose top left corner shows the corner of `area`.
// An image that does not meet the area, or meets it only beyond the strip,
// draws nothing.
void DrawImageInStrip(const ObjectImage& image, uint32_t* bits, int width, int height,
                      const UstRect& area);

// The image's bound in page pixels; empty when none was made.
UstRect LiveImageRect(const ObjectImage& image);

// Images lying wholly above or left of the page's first row and column can
// never reach a strip; dropping them at once keeps nothing for the run.
void DropUnreachable(ObjectImage& image);

// The right and bottom end of an object's live area: its box, grown by what
// its effects draw beyond the box.
UstPoint LiveExtent(const UstRect& stored, const UstRect& drawn);

}  // namespace orv
