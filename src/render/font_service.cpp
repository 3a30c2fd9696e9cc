#include "render/font_service.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H

#include <QSet>

#include <cmath>
#include <list>
#include <map>
#include <mutex>
#include <unordered_map>

#include "render/fixed_string.h"
#include "render/pixels.h"

namespace orv {

namespace {

// FreeType's library object is shared: making and freeing faces goes through
// this lock; a face itself belongs to one font handle and one thread.
std::mutex g_libraryLock;

FT_Library Library() {
    static FT_Library library = [] {
        FT_Library lib = nullptr;
        return FT_Init_FreeType(&lib) == 0 ? lib : nullptr;
    }();
    return library;
}

bool IsHangul(uint8_t charSet) {
    return charSet == 129 || charSet == 130;
}

QString PatternFamily(FcPattern* p, int i) {
    FcChar8* s = nullptr;
    if (FcPatternGetString(p, FC_FAMILY, i, &s) != FcResultMatch || !s) return {};
    return QString::fromUtf8(reinterpret_cast<const char*>(s));
}

UstFaceMatch MatchUncached(const QString& family, uint8_t charSet) {
    UstFaceMatch m;
    m.family = family;
    m.bFallback = true;
    if (!FcInit()) return m;
    FcPattern* pattern = FcPatternCreate();
    const QByteArray name = family.toUtf8();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    if (IsHangul(charSet))
        FcPatternAddString(pattern, FC_LANG, reinterpret_cast<const FcChar8*>("ko"));
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    if (FcPattern* match = FcFontMatch(nullptr, pattern, &result)) {
        FcChar8* file = nullptr;
        if (FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch && file)
            m.file = reinterpret_cast<const char*>(file);
        FcPatternGetInteger(match, FC_INDEX, 0, &m.index);
        m.family = PatternFamily(match, 0);
        for (int i = 0; !PatternFamily(match, i).isEmpty(); ++i)
            if (PatternFamily(match, i).compare(family, Qt::CaseInsensitive) == 0) {
                m.family = PatternFamily(match, i);
                m.bFallback = false;
            }
        FcPatternDestroy(match);
    }
    FcPatternDestroy(pattern);
    return m;
}

}  // namespace

std::u16string DefaultGuiFaceName() {
    const UstFaceMatch m = MatchFace("sans-serif");
    return m.file.empty() || m.family.isEmpty() ? u"DejaVu Sans" : m.family.toStdU16String();
}

UstFaceMatch MatchFace(const QString& family, uint8_t charSet) {
    static std::mutex lock;
    static std::map<std::pair<QString, bool>, UstFaceMatch> cache;
    const std::lock_guard<std::mutex> guard(lock);
    const auto key = std::make_pair(family, IsHangul(charSet));
    auto it = cache.find(key);
    if (it == cache.end()) it = cache.emplace(key, MatchUncached(family, charSet)).first;
    return it->second;
}

namespace {

QStringList ScalableFamilies(bool everyName) {
    QSet<QString> seen;
    if (!FcInit()) return {};
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcObjectSet* objects = FcObjectSetBuild(FC_FAMILY, nullptr);
    if (FcFontSet* set = FcFontList(nullptr, pattern, objects)) {
        for (int i = 0; i < set->nfont; ++i) {
            for (int n = 0;; ++n) {
                const QString family = PatternFamily(set->fonts[i], n);
                if (family.isEmpty()) break;
                seen.insert(family);
                if (!everyName) break;
            }
        }
        FcFontSetDestroy(set);
    }
    FcObjectSetDestroy(objects);
    FcPatternDestroy(pattern);
    QStringList families(seen.begin(), seen.end());
    families.sort(Qt::CaseInsensitive);
    return families;
}

}  // namespace

UstGalleryFonts GalleryFontFamilies() {
    static const QStringList SYMBOL_FONTS = {"Webdings", "Wingdings", "Wingdings 2", "Wingdings 3"};
    UstGalleryFonts out;
    if (!FcInit()) return out;
    QSet<QString> korean, other;
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcObjectSet* objects = FcObjectSetBuild(FC_FAMILY, FC_LANG, nullptr);
    if (FcFontSet* set = FcFontList(nullptr, pattern, objects)) {
        for (int i = 0; i < set->nfont; ++i) {
            const QString family = PatternFamily(set->fonts[i], 0);
            if (family.isEmpty() || family.startsWith('@')) continue;
            FcLangSet* langs = nullptr;
            const bool ko =
                FcPatternGetLangSet(set->fonts[i], FC_LANG, 0, &langs) == FcResultMatch &&
                FcLangSetHasLang(langs, reinterpret_cast<const FcChar8*>("ko")) == FcLangEqual;
            (ko ? korean : other).insert(family);
        }
        FcFontSetDestroy(set);
    }
    FcObjectSetDestroy(objects);
    FcPatternDestroy(pattern);
    const auto sorted = [](const QSet<QString>& names) {
        QStringList list(names.begin(), names.end());
        list.sort(Qt::CaseInsensitive);
        return list;
    };
    out.families = sorted(korean);
    for (const QString& family : sorted(other)) {
        if (korean.contains(family)) continue;
        if (SYMBOL_FONTS.contains(family))
            out.symbolFonts.push_back(family);
        else
            out.families.push_back(family);
    }
    return out;
}

QStringList InstalledFontFamilies() {
    return ScalableFamilies(false);
}

QStringList InstalledFontFamilyNames() {
    return ScalableFamilies(true);
}

namespace {

QString SortedCoveringFamily(const QString& family, char32_t ch) {
    QString found;
    if (!FcInit()) return found;
    FcPattern* pattern = FcPatternCreate();
    const QByteArray name = family.toUtf8();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcCharSet* wanted = FcCharSetCreate();
    FcCharSetAddChar(wanted, ch);
    FcPatternAddCharSet(pattern, FC_CHARSET, wanted);
    FcCharSetDestroy(wanted);
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    if (FcFontSet* set = FcFontSort(nullptr, pattern, FcFalse, nullptr, &result)) {
        for (int i = 0; i < set->nfont && found.isEmpty(); ++i) {
            FcCharSet* has = nullptr;
            FcBool scalable = FcFalse;
            FcPatternGetBool(set->fonts[i], FC_SCALABLE, 0, &scalable);
            if (scalable &&
                FcPatternGetCharSet(set->fonts[i], FC_CHARSET, 0, &has) == FcResultMatch &&
                FcCharSetHasChar(has, ch))
                found = PatternFamily(set->fonts[i], 0);
        }
        FcFontSetDestroy(set);
    }
    FcPatternDestroy(pattern);
    return found;
}

}  // namespace

QString CoveringFamily(const QString& family, char32_t ch) {
    static std::mutex lock;
    static std::map<std::pair<QString, char32_t>, QString> cache;
    UstLogFont lf{};
    lf.lfHeight = -32;
    QStringToFixed(family, &lf.lfFaceName);
    if (const auto font = CFontHandle::Shared(lf); font && font->HasChar(ch)) return family;
    // Neighbouring characters are nearly always covered by the same family.
    const auto key = std::make_pair(family, ch >> 7);
    const std::lock_guard<std::mutex> guard(lock);
    auto it = cache.find(key);
    if (it == cache.end()) it = cache.emplace(key, SortedCoveringFamily(family, ch)).first;
    return it->second;
}

bool CFontHandle::HasChar(char32_t code) const {
    return m_face && FT_Get_Char_Index(m_face, code) != 0;
}

QString ReplacementFace(const QString& family, uint8_t charSet) {
    const UstFaceMatch m = MatchFace(family, charSet);
    return m.bFallback && !m.family.isEmpty() ? m.family : family;
}

std::unique_ptr<CFontHandle> CFontHandle::Create(const UstLogFont& lf) {
    std::unique_ptr<CFontHandle> font(new CFontHandle);
    font->m_match = MatchFace(FixedToQString(&lf.lfFaceName), lf.lfCharSet);
    if (font->m_match.file.empty() || !Library()) return nullptr;
    {
        const std::lock_guard<std::mutex> guard(g_libraryLock);
        if (FT_New_Face(Library(), font->m_match.file.c_str(), font->m_match.index, &font->m_face))
            return nullptr;
    }
    FT_Face face = font->m_face;
    const double upem = face->units_per_EM > 0 ? face->units_per_EM : 1000;
    int ppem = 16;
    if (lf.lfHeight < 0) {
        ppem = -lf.lfHeight;
    } else if (lf.lfHeight > 0) {  // a cell height: the em is what is left inside it
        const double cell = face->ascender - face->descender;
        ppem = cell > 0 ? static_cast<int>(std::lround(lf.lfHeight * upem / cell)) : lf.lfHeight;
    }
    ppem = std::clamp(ppem, 1, 16384);
    // The average width: the OS/2 table's, else the mean advance of the
    // lower-case Latin letters the face has, else half the em.
    double averageUnits = 0;
    if (const auto* os2 = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
        os2 && os2->version != 0xFFFF && os2->xAvgCharWidth > 0) {
        averageUnits = os2->xAvgCharWidth;
    } else {
        double sum = 0;
        int count = 0;
        for (char32_t c = U'a'; c <= U'z'; ++c)
            if (FT_Load_Char(face, c, FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING) == 0) {
                sum += face->glyph->metrics.horiAdvance;
                ++count;
            }
        averageUnits = count ? sum / count : upem / 2;
    }
    const int average = std::max(1, RoundToInt(static_cast<float>(averageUnits * ppem / upem)));
    if (lf.lfWidth > 0) font->m_xScale = static_cast<double>(lf.lfWidth) / average;
    const auto width = static_cast<FT_F26Dot6>(std::lround(ppem * font->m_xScale * 64.0));
    if (FT_Set_Char_Size(face, std::max<FT_F26Dot6>(width, 1), ppem * 64, 72, 72)) return nullptr;
    font->ReadMetrics();
    font->m_metrics.tmAveCharWidth = lf.lfWidth > 0 ? lf.lfWidth : average;
    return font;
}

std::shared_ptr<const CFontHandle> CFontHandle::Shared(const UstLogFont& lf) {
    // Faces hold per-call state (transform, loaded glyph): never share one
    // between threads.
    constexpr size_t CAPACITY = 48;
    thread_local std::list<std::pair<std::string, std::shared_ptr<const CFontHandle>>> recent;
    std::string key(reinterpret_cast<const char*>(&lf), sizeof lf);
    for (auto it = recent.begin(); it != recent.end(); ++it)
        if (it->first == key) {
            recent.splice(recent.begin(), recent, it);
            return it->second;
        }
    std::shared_ptr<const CFontHandle> font = Create(lf);
    if (!font) return nullptr;
    recent.emplace_front(std::move(key), font);
    if (recent.size() > CAPACITY) recent.pop_back();
    return font;
}

const std::vector<UstKerningPair>& CFontHandle::KerningPairs() const {
    if (!m_bKerningRead) {
        m_bKerningRead = true;
        ReadKerning();
    }
    return m_kerning;
}

CFontHandle::~CFontHandle() {
    if (!m_face) return;
    const std::lock_guard<std::mutex> guard(g_libraryLock);
    FT_Done_Face(m_face);
}

void CFontHandle::ReadMetrics() {
    const FT_Size_Metrics& sm = m_face->size->metrics;
    m_metrics.tmAscent = static_cast<int32_t>((sm.ascender + 63) / 64);
    m_metrics.tmDescent = static_cast<int32_t>((-sm.descender + 63) / 64);
    m_metrics.tmHeight = m_metrics.tmAscent + m_metrics.tmDescent;
    m_metrics.tmMaxCharWidth = static_cast<int32_t>((sm.max_advance + 63) / 64);
}

bool CFontHandle::GlyphOutline(char32_t code, const UstMat2& mat, UstGlyphMetrics& gm,
                               std::vector<UstGlyphPolygon>* polygons) const {
    FT_Matrix m;
    m.xx = mat.eM11;
    m.xy = mat.eM21;
    m.yx = mat.eM12;
    m.yy = mat.eM22;
    FT_Set_Transform(m_face, &m, nullptr);
    const FT_Error error = FT_Load_Char(m_face, code, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
    FT_Set_Transform(m_face, nullptr, nullptr);
    if (error || m_face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return false;
    const FT_GlyphSlot slot = m_face->glyph;
    gm = {};
    gm.gmCellIncX = static_cast<int16_t>((slot->advance.x + 32) >> 6);
    gm.gmCellIncY = static_cast<int16_t>((slot->advance.y + 32) >> 6);
    if (slot->outline.n_points == 0) {  // blank: a box of one pixel at the origin
        gm.gmBlackBoxX = gm.gmBlackBoxY = 1;
    } else {
        FT_BBox box;
        FT_Outline_Get_CBox(&slot->outline, &box);
        const auto left = static_cast<int32_t>(std::floor(box.xMin / 64.0));
        const auto right = static_cast<int32_t>(std::ceil(box.xMax / 64.0));
        const auto bottom = static_cast<int32_t>(std::floor(box.yMin / 64.0));
        const auto top = static_cast<int32_t>(std::ceil(box.yMax / 64.0));
        gm.gmBlackBoxX = static_cast<uint32_t>(std::max(1, right - left));
        gm.gmBlackBoxY = static_cast<uint32_t>(std::max(1, top - bottom));
        gm.gmptGlyphOriginX = left;
        gm.gmptGlyphOriginY = top;
    }
    if (polygons) *polygons = PolygonsFromOutline(slot->outline);
    return true;
}

namespace {

uint16_t Be16(const std::vector<uint8_t>& t, size_t at) {
    return at + 1 < t.size() ? static_cast<uint16_t>(t[at] << 8 | t[at + 1]) : 0;
}

}  // namespace

// The classic kerning table's horizontal pairs, by character.
void CFontHandle::ReadKerning() const {
    FT_ULong length = 0;
    if (FT_Load_Sfnt_Table(m_face, TTAG_kern, 0, nullptr, &length) || length < 4) return;
    std::vector<uint8_t> table(length);
    if (FT_Load_Sfnt_Table(m_face, TTAG_kern, 0, table.data(), &length)) return;
    std::unordered_map<uint16_t, uint16_t> charOf;
    FT_UInt glyph = 0;
    for (FT_ULong c = FT_Get_First_Char(m_face, &glyph); glyph != 0 && c <= 0xFFFF;
         c = FT_Get_Next_Char(m_face, c, &glyph))
        charOf.emplace(static_cast<uint16_t>(glyph), static_cast<uint16_t>(c));
    const double scale = static_cast<double>(m_face->size->metrics.x_ppem) /
                         std::max<FT_UShort>(m_face->units_per_EM, 1);
    size_t at = 4;
    for (uint16_t t = 0, tables = Be16(table, 2); t < tables && at + 6 <= table.size(); ++t) {
        const uint16_t subLength = Be16(table, at + 2), coverage = Be16(table, at + 4);
        if ((coverage >> 8) == 0 && (coverage & 1)) {
            const uint16_t pairs = Be16(table, at + 6);
            for (size_t p = 0, q = at + 14; p < pairs && q + 6 <= table.size(); ++p, q += 6) {
                const auto left = charOf.find(Be16(table, q)),
                           right = charOf.find(Be16(table, q + 2));
                if (left == charOf.end() || right == charOf.end()) continue;
                const auto value = static_cast<int16_t>(Be16(table, q + 4));
                m_kerning.push_back({left->second, right->second,
                                     static_cast<int32_t>(std::lround(value * scale))});
            }
        }
        if (subLength < 6) break;
        at += subLength;
    }
}

}  // namespace orv
