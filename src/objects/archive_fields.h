#pragma once
// Fields as project files hold them. Counts. Strings: a length that grows by
// escapes, then the characters; written always as 16-bit characters behind
// a tag, read in that form or in the older single-byte form of the Korean
// code page. And the limits a number read from a file must keep before an
// object takes it.

#include <QString>

#include "objects/byte_stream.h"
#include "render/attr_records.h"
#include "render/geometry.h"
#include "render/text_records.h"

namespace orv {

// Counts: 16 bits, or the escape 0xFFFF and 32 bits.
void WriteArchiveCount(CByteWriter& out, uint32_t count);
uint32_t ReadArchiveCount(CByteReader& in);

void WriteArchiveString(CByteWriter& out, const QString& text);

// Throws when the length is damaged or runs past the end of the data; the
// length is checked before anything is allocated.
QString ReadArchiveString(CByteReader& in);

// Single bytes of code page 949 as text; a byte sequence the code page does
// not know becomes U+FFFD, one for each byte.
QString DecodeCp949(const char* bytes, size_t size);

// Beyond this no page reaches, and sums and halves of coordinates would
// leave the range of their integers.
constexpr int32_t ARCHIVE_COORD_LIMIT = 1 << 24;

// Each throws, naming what, when the value is out of bounds: a rectangle
// or point beyond the limit (or not a number), effect sizes far beyond what
// the controls can set.
void CheckArchivedRect(const UstRect& rect, const char* what);
void CheckArchivedPoint(float x, float y, const char* what);
void CheckArchivedEffect(const UstEffect& effect, const char* what);
// A character's size, width ratio, shear, spacing and leading far beyond
// what the controls set (they would make fonts and images no memory holds),
// or measures beyond the coordinate limit.
void CheckArchivedFont(const UstFontBlock& font, const UstTextMetric& metric, const char* what);
void CheckArchivedChar(const UstCharAttr& c, const char* what);

}  // namespace orv
