#pragma once
// Fonts through fontconfig and FreeType: faces found by family name, fonts
// made at a pixel size with the classic logical-font rules, their metrics,
// glyph outlines under a 2 x 2 matrix, and kerning pairs.

#include <QString>
#include <QStringList>

#include <memory>
#include <string>
#include <vector>

#include "render/font_records.h"
#include "render/glyph_outline.h"

typedef struct FT_FaceRec_* FT_Face;

namespace orv {

struct UstFaceMatch {
    std::string file;
    int index = 0;
    QString family;          // the family that was found
    bool bFallback = false;  // not the family asked for
};

// The family that the system gives for its plain interface font. Falls back
// to "DejaVu Sans" when fontconfig has no answer.
std::u16string DefaultGuiFaceName();

// Installed font families, sorted, each once, under the name the current
// language puts first.
QStringList InstalledFontFamilies();

// The font gallery's families in its two passes: those whose faces cover
// Korean first, then every other, each pass sorted. The symbol fonts of the
// symbol gallery are never listed, only noted when installed.
struct UstGalleryFonts {
    QStringList families;
    QStringList symbolFonts;  // "Webdings", "Wingdings", "Wingdings 2", "Wingdings 3"
};
UstGalleryFonts GalleryFontFamilies();

// Every name an installed family answers to: a Korean face is "UnDotum" and
// "은 돋움" alike, and which one comes first follows the locale.
QStringList InstalledFontFamilyNames();

// The installed face for a family name, as fontconfig matches it; Hangul
// character sets (129, 130) prefer faces that cover Korean.
UstFaceMatch MatchFace(const QString& family, uint8_t charSet = 1);

// The family to draw a character in: the family itself when its face has the
// character, else the installed family fontconfig ranks first among those
// that have it (empty when none has).
QString CoveringFamily(const QString& family, char32_t ch);

// A face that is not installed gives way to the closest installed one.
QString ReplacementFace(const QString& family, uint8_t charSet);

// One font made from a logical-font record: the engine's face at the pixel
// size and width the record asks for.
class CFontHandle {
public:
    static std::unique_ptr<CFontHandle> Create(const UstLogFont& lf);
    // The same font from a small per-thread cache of recent ones: measuring
    // makes the same few fonts again and again. Null when none can be made.
    static std::shared_ptr<const CFontHandle> Shared(const UstLogFont& lf);
    ~CFontHandle();
    CFontHandle(const CFontHandle&) = delete;
    CFontHandle& operator=(const CFontHandle&) = delete;

    const UstTextMetrics& TextMetrics() const { return m_metrics; }
    const UstFaceMatch& Face() const { return m_match; }
    bool HasChar(char32_t code) const;
    // Read on first use: few callers want them and large faces take long.
    const std::vector<UstKerningPair>& KerningPairs() const;

    // Metrics and outline of a character under the matrix, unhinted. False
    // when the engine cannot give one; an empty outline is a blank glyph.
    bool GlyphOutline(char32_t code, const UstMat2& mat, UstGlyphMetrics& metrics,
                      std::vector<UstGlyphPolygon>* polygons) const;

private:
    CFontHandle() = default;
    void ReadMetrics();
    void ReadKerning() const;

    FT_Face m_face = nullptr;
    UstFaceMatch m_match;
    UstTextMetrics m_metrics;
    mutable std::vector<UstKerningPair> m_kerning;
    mutable bool m_bKerningRead = false;
    double m_xScale = 1.0;  // width scaling asked for by a non-zero lfWidth
};

}  // namespace orv
