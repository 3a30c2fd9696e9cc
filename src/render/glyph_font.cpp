#include "render/glyph_font.h"

#include <cmath>
#include <cstring>

#include "render/pixels.h"

namespace orv {

UstMat2 SlantMatrix(int slant) {
    UstMat2 m;
    m.eM12 = FixedFromDouble(std::sin(SLANT_ANGLE));
    m.eM21 = FixedFromDouble(std::cos(SLANT_ANGLE) * (slant / 10.0) - std::sin(SLANT_ANGLE));
    return m;
}

UstMat2 OutlineMatrix(const UstMat2& given, int slant) {
    UstMat2 m = given;
    if (slant != 0) {
        m.eM11 = FIXED_ONE;
        m.eM12 = static_cast<FIXED>(std::sin(SLANT_ANGLE) * 65536.0);
        m.eM21 = static_cast<FIXED>(std::cos(SLANT_ANGLE) * (slant * -1.0 / 10.0) * 65536.0 -
                                    std::sin(SLANT_ANGLE) * 65536.0);
        m.eM22 = FIXED_ONE;
    }
    m.eM21 = -m.eM21;
    m.eM22 = -m.eM22;
    return m;
}

int AddGlyphOutline(const CFontHandle& font, char32_t code, float x, float y, const UstMat2& mat,
                    QPainterPath& path, int slant) {
    UstGlyphMetrics first, second;
    if (!font.GlyphOutline(code, mat, first, nullptr)) return GLYPH_NO_OUTLINE;
    const float offsetY = static_cast<float>(first.gmptGlyphOriginY) + y;
    std::vector<UstGlyphPolygon> polygons;
    if (!font.GlyphOutline(code, OutlineMatrix(mat, slant), second, &polygons))
        return GLYPH_NO_OUTLINE;
    const float offsetX = x - static_cast<float>(second.gmptGlyphOriginX);
    return WalkGlyphPolygons(polygons, offsetX, offsetY, path);
}

bool GlyphFont::SetFont(const UstLogFont& lf) {
    m_font = CFontHandle::Shared(lf);
    return m_font != nullptr;
}

const std::vector<UstKerningPair>& GlyphFont::KerningPairs() const {
    static const std::vector<UstKerningPair> none;
    return m_font ? m_font->KerningPairs() : none;
}

int GlyphFont::AddGlyph(QPainterPath& path, char32_t code, float x, float y, int slant) {
    path.setFillRule(Qt::WindingFill);
    if (m_font) AddGlyphOutline(*m_font, code, x, y, UstMat2{}, path, slant);
    return 1;
}

UstLogFont BaseLogFont(const UstFontBlock& font, float yScale) {
    UstLogFont lf{};
    const auto height =
        static_cast<float>(font.nSize * static_cast<double>(yScale) * 1.333299994468689);
    lf.lfHeight = -RoundToInt(height);
    lf.lfWeight = 400;
    lf.lfCharSet = font.nCharSet;
    lf.lfOutPrecision = 3;
    lf.lfClipPrecision = 2;
    lf.lfQuality = 1;
    lf.lfPitchAndFamily = font.nPitchFamily;
    std::memcpy(lf.lfFaceName, font.szFace, sizeof lf.lfFaceName);
    lf.lfFaceName[31] = 0;
    return lf;
}

bool MeasureGlyph(const UstGlyphRequest& request, float xScale, float yScale, UstGlyphMetrics& gm,
                  UstLogFont* out) {
    UstLogFont lf = BaseLogFont(request.font, yScale);
    const auto base = CFontHandle::Shared(lf);
    if (!base) return false;
    lf.lfWidth = RoundToInt(
        static_cast<float>(request.nWidthPercent / 100.0 * base->TextMetrics().tmAveCharWidth));
    // The height already carries the y scale, so x / y would be exact; the
    // sum form is what the look of scaled titles was made with.
    if (xScale != yScale) lf.lfWidth = static_cast<int32_t>((xScale + 1.0 - yScale) * lf.lfWidth);
    if (out) *out = lf;
    const auto font = CFontHandle::Shared(lf);
    return font && font->GlyphOutline(request.code, SlantMatrix(request.nSlant), gm, nullptr);
}

bool MakeGlyphFont(const UstGlyphRequest& request, float xScale, float yScale, int* boxWidth,
                   int* boxHeight, UstLogFont* out) {
    UstGlyphMetrics gm;
    if (!MeasureGlyph(request, xScale, yScale, gm, out)) return false;
    if (boxWidth) *boxWidth = static_cast<int>(gm.gmBlackBoxX);
    if (boxHeight) *boxHeight = static_cast<int>(gm.gmBlackBoxY);
    return true;
}

}  // namespace orv
