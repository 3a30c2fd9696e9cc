#pragma once
// One character of text as a vector path in pixel coordinates, built from the
// font's own unhinted outline made at the final size.

#include <QPainterPath>

#include <memory>

#include "render/font_records.h"
#include "render/font_service.h"

namespace orv {

// The literal angle: not 2 pi. The off-diagonal terms keep its tiny residue,
// and the black boxes must match the paths that carry it.
constexpr double SLANT_ANGLE = 6.2831854;

// The matrix of a slant in tenths, for measuring.
UstMat2 SlantMatrix(int slant);
// The matrix the outline itself is fetched with: the slant's (or the given
// one's) lower row, negated so that y runs down the screen.
UstMat2 OutlineMatrix(const UstMat2& given, int slant);

// Adds one character's outline to the path so that the top left of its black
// box falls at (x, y). 0 on success (a blank glyph adds nothing), 7 when the
// engine gives no outline, 6 for a polygon it cannot read.
int AddGlyphOutline(const CFontHandle& font, char32_t code, float x, float y, const UstMat2& mat,
                    QPainterPath& path, int slant);

class GlyphFont {
public:
    GlyphFont() = default;
    // Makes the font; on failure the old one is gone and nothing replaces it.
    bool SetFont(const UstLogFont& lf);
    // Winding fill, the identity matrix; always 1.
    int AddGlyph(QPainterPath& path, char32_t code, float x, float y, int slant);
    const CFontHandle* Font() const { return m_font.get(); }
    const std::vector<UstKerningPair>& KerningPairs() const;

private:
    std::shared_ptr<const CFontHandle> m_font;
};

// The logical font of a character at the given scales, and the black box of
// the character under its slant. False when no font can be made.
struct UstGlyphRequest {
    char32_t code = 0;
    UstFontBlock font{};
    int32_t nWidthPercent = 100;
    int32_t nSlant = 0;
};
bool MakeGlyphFont(const UstGlyphRequest& request, float xScale, float yScale, int* boxWidth,
                   int* boxHeight, UstLogFont* out);
// The same, with all of the character's glyph metrics.
bool MeasureGlyph(const UstGlyphRequest& request, float xScale, float yScale, UstGlyphMetrics& gm,
                  UstLogFont* out);

// The logical font before any width is applied: pixel height from points
// times the y scale, the character's set, family and face.
UstLogFont BaseLogFont(const UstFontBlock& font, float yScale);

}  // namespace orv
