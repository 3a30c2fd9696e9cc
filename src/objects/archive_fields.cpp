#include "objects/archive_fields.h"

#include <iconv.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

namespace orv {

namespace {

constexpr uint8_t LONGER = 0xFF;       // the length does not fit the byte before
constexpr uint16_t WIDE_TAG = 0xFFFE;  // 16-bit characters follow
constexpr uint16_t LONGEST = 0xFFFF;   // a 32-bit length follows
constexpr uint32_t HUGE_LENGTH = 0xFFFFFFFFu;

void WriteLength(CByteWriter& out, size_t length) {
    if (length < LONGER) {
        out.Put(static_cast<uint8_t>(length));
    } else if (length < WIDE_TAG) {
        out.Put(LONGER);
        out.Put(static_cast<uint16_t>(length));
    } else {
        out.Put(LONGER);
        out.Put(LONGEST);
        out.Put(static_cast<uint32_t>(length));
    }
}

// The length after its first byte was 0xFF and the 16-bit word that
// followed was not the wide tag: 16 bits, or 32, or 64.
uint64_t ReadLongLength(CByteReader& in, uint16_t word) {
    if (word < WIDE_TAG) return word;
    const uint32_t length32 = in.Get<uint32_t>();
    if (length32 < HUGE_LENGTH) return length32;
    return in.Get<uint64_t>();
}

// The character count and whether the characters are 16 bits wide.
std::pair<uint64_t, bool> ReadLength(CByteReader& in) {
    uint8_t first = in.Get<uint8_t>();
    if (first < LONGER) return {first, false};
    uint16_t word = in.Get<uint16_t>();
    if (word != WIDE_TAG) return {ReadLongLength(in, word), false};
    first = in.Get<uint8_t>();
    if (first < LONGER) return {first, true};
    word = in.Get<uint16_t>();
    return {ReadLongLength(in, word), true};
}

}  // namespace

void WriteArchiveCount(CByteWriter& out, uint32_t count) {
    if (count < LONGEST) {
        out.Put(static_cast<uint16_t>(count));
        return;
    }
    out.Put(LONGEST);
    out.Put(count);
}

uint32_t ReadArchiveCount(CByteReader& in) {
    const auto count = in.Get<uint16_t>();
    return count == LONGEST ? in.Get<uint32_t>() : count;
}

void WriteArchiveString(CByteWriter& out, const QString& text) {
    out.Put(LONGER);
    out.Put(WIDE_TAG);
    WriteLength(out, static_cast<size_t>(text.size()));
    out.PutBytes(text.utf16(), static_cast<size_t>(text.size()) * 2);
}

QString ReadArchiveString(CByteReader& in) {
    const auto [length, wide] = ReadLength(in);
    const uint64_t bytes = length * (wide ? 2 : 1);
    if (length > in.Remaining() || bytes > in.Remaining())
        throw std::runtime_error("a string is longer than the rest of the file");
    const auto size = static_cast<size_t>(length);
    if (wide) {
        QString text(static_cast<qsizetype>(size), Qt::Uninitialized);
        in.GetBytes(text.data(), size * 2);
        return text;
    }
    std::vector<char> narrow(size);
    in.GetBytes(narrow.data(), size);
    return DecodeCp949(narrow.data(), size);
}

QString DecodeCp949(const char* bytes, size_t size) {
    iconv_t cd = iconv_open("UTF-16LE", "CP949");
    if (cd == reinterpret_cast<iconv_t>(-1)) return QString::fromLatin1(bytes, qsizetype(size));
    // No character of the code page takes more than one 16-bit unit.
    QString text(static_cast<qsizetype>(size), Qt::Uninitialized);
    auto* in = const_cast<char*>(bytes);
    auto* out = reinterpret_cast<char*>(text.data());
    size_t inLeft = size, outLeft = size * 2;
    while (inLeft > 0) {
        if (iconv(cd, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1)) break;
        if (errno == E2BIG) break;
        // An unknown or cut-off sequence: one replacement per byte.
        constexpr char16_t REPLACEMENT = u'\uFFFD';
        std::memcpy(out, &REPLACEMENT, 2);
        out += 2;
        outLeft -= 2;
        ++in;
        --inLeft;
    }
    iconv_close(cd);
    text.resize(static_cast<qsizetype>(size - outLeft / 2));
    return text;
}

void CheckArchivedRect(const UstRect& rect, const char* what) {
    for (const int32_t v : {rect.left, rect.top, rect.right, rect.bottom})
        if (v < -ARCHIVE_COORD_LIMIT || v > ARCHIVE_COORD_LIMIT)
            throw std::runtime_error(std::string(what) + " lies outside any page");
}

void CheckArchivedPoint(float x, float y, const char* what) {
    constexpr auto LIMIT = static_cast<float>(ARCHIVE_COORD_LIMIT);
    for (const float v : {x, y})
        if (!std::isfinite(v) || std::fabs(v) > LIMIT)
            throw std::runtime_error(std::string(what) + " lies outside any page");
}

void CheckArchivedEffect(const UstEffect& effect, const char* what) {
    // The controls stop at 50; a thousand leaves room for anything made on
    // purpose and keeps the bands' images within memory.
    constexpr int32_t LIMIT = 1000;
    for (const int32_t v : {effect.nEdge, effect.nOutline, effect.nEdgeSoft, effect.nShadowX,
                            effect.nShadowY, effect.nShadowSoft})
        if (v < -LIMIT || v > LIMIT)
            throw std::runtime_error(std::string(what) + " has effect sizes out of all bounds");
}

void CheckArchivedFont(const UstFontBlock& font, const UstTextMetric& metric, const char* what) {
    // The controls stop at 1001 points, 400 percent and a shear of 10; these
    // leave room for what fitting a text to a box can reach.
    constexpr int32_t MAX_SIZE = 4096, MAX_WIDTH = 10000, MAX_SHEAR = 1000;
    constexpr int32_t MAX_GAP = 100000;
    const int32_t size = font.nSize, width = metric.nWidth, shear = metric.nShear;
    const int32_t spacing = metric.nSpacing, leading = metric.nLeading;
    if (size < 0 || size > MAX_SIZE || width < 0 || width > MAX_WIDTH || shear < -MAX_SHEAR ||
        shear > MAX_SHEAR || spacing < -MAX_GAP || spacing > MAX_GAP || leading < -MAX_GAP ||
        leading > MAX_GAP)
        throw std::runtime_error(std::string(what) +
                                 " has a font size or metric out of all bounds");
}

void CheckArchivedChar(const UstCharAttr& c, const char* what) {
    CheckArchivedFont(c.font, c.metric, what);
    for (const int32_t v : {c.nBoxWidth, c.nBoxHeight, c.nOriginX, c.nAdvance, c.nOriginY})
        if (v < -ARCHIVE_COORD_LIMIT || v > ARCHIVE_COORD_LIMIT)
            throw std::runtime_error(std::string(what) + " has a character measured beyond reason");
}

}  // namespace orv
