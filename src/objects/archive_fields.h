#pragma once
// Counts and strings as project files hold them. Counts are 16 bits with an
// escape to 32; strings a tag and a length, then the characters, written
// always in the wide form and read in either form.

#include <QString>

#include "objects/byte_stream.h"

namespace orv {

void WriteArchiveCount(CByteWriter& out, uint32_t count);
uint32_t ReadArchiveCount(CByteReader& in);

void WriteArchiveString(CByteWriter& out, const QString& text);
// Throws, like every short read, when the string runs past the data.
QString ReadArchiveString(CByteReader& in);

}  // namespace orv
