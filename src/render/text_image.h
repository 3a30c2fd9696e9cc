#pragma once
// The top of the pipeline for text: every character's layers rendered once
// and kept, equal characters sharing them, then all shadows stacked under
// all outlines, edges and faces, and the whole turned if asked.

#include <vector>

#include "render/attr_records.h"
#include "render/font_records.h"
#include "render/layers.h"
#include "render/object_image.h"
#include "render/text_layout.h"
#include "render/text_records.h"

namespace orv {

// Renders the face and, as the style asks, the edge, outline and shadow of
// one character into new blocks of the canvas size. The scratch set's
// brushes must be made and its blocks wrapped at the canvas size.
void RenderCharLayers(UstFES& out, const UstCharAttr& c, const LayerRects& rects,
                      const UstLogFont& font, UstScratchSet& scratch, const UstEffect& effect);

// For each character, 1 + the index of the last earlier character that
// would render the same pixels, or 0. Nothing is shared while any of the
// first four fills is not solid.
std::vector<int> BuildSharingTable(const UstCharAttr* chars, int count, const UstAttr& attr);

// Lets go of every record's blocks; a block shared by several records goes
// once, with the last of them.
void FreeFESArray(std::vector<UstFES>& fes);

// Where a text's layers lie: the union of the character canvases, and the
// union of their stroke rectangles (page pixels at the scale).
struct UstTextExtent {
    UstRect canvas;
    UstRect stroke;
    bool any = false;  // some character draws
};

// Renders the layers of every character that has none (records that are
// kept but stand elsewhere are moved along), answers how many were rendered
// anew, and fills the extent when asked.
int RenderTextLayers(const UstCharAttr* chars, int count, std::vector<UstFES>& fes,
                     const UstCharPos* pos, const UstEffect& effect, const UstAttr& attr,
                     float xScale, float yScale, UstTextExtent* extent = nullptr);

// Draws the kept layers, every shadow under every outline, edge and face,
// moved by shift; records outside the visible rectangle are skipped.
void DrawTextLayers(const UstCharAttr* chars, int count, const std::vector<UstFES>& fes,
                    QPainter& graphics, QPoint shift, const QRect& visible);

// The extent of the records already rendered.
UstTextExtent TextExtent(const UstCharAttr* chars, int count, const std::vector<UstFES>& fes);

// One image of the kept layers over the extent, turned by the rotation.
void StackTextImage(const UstCharAttr* chars, int count, const std::vector<UstFES>& fes,
                    const UstTextExtent& extent, int rotation, ObjectImage& out);

// The layers, then, with an output, one image of the whole text at its page
// position. Answers how many characters were rendered anew.
int RenderTextImage(const UstCharAttr* chars, int count, std::vector<UstFES>& fes,
                    const UstCharPos* pos, const UstEffect& effect, const UstAttr& attr,
                    float xScale, float yScale, int rotation, ObjectImage* out);

// Turns a stacked text image about the centre of its stroke union; the
// position follows the turned bound.
void TurnTextImage(ObjectImage& image, const UstTextExtent& extent, int rotation);

// One character with its shadow, edge, outline and face on one canvas, for
// thumbnails of styles. (x, y) is the top left of its box.
void RenderSingleGlyph(ObjectImage& out, const UstCharAttr& c, const UstEffect& effect,
                       const UstAttr& attr, float x, float y, float xScale, float yScale,
                       QPainter* target);

}  // namespace orv
