#pragma once
// Page thumbnails as files in the project's Data folder: a 32-bit BMP with
// a timestamp name, made empty with the page and overwritten in place with
// its pixels at each save, so that the file's name never has to change.

#include <QString>

#include <cstdint>
#include <vector>

#include "media/timestamp_name.h"

namespace orv {

// A new all-black thumbnail file of the size in the folder (which ends in a
// separator), under a timestamp name and ".page"; a name already taken
// waits a millisecond for the next, five times at most. The file's name, or
// empty when none could be made.
QString CreateThumbFile(const QString& dataFolder, int width, int height);

// The pixels of a thumbnail file, width x height rows bottom row first, as
// the page keeps them. Empty unless the file is a BMP of width 300 (the only
// width thumbnails have), 32 bits, uncompressed, with all the pixels.
std::vector<uint32_t> ReadThumbFile(const QString& path, int width, int height);

// Overwrites the pixels of an existing thumbnail file where its header says
// they start; the header stays as it is. False when the file cannot be
// opened or its header is not that of a thumbnail.
bool WriteThumbPixels(const QString& path, const std::vector<uint32_t>& bits);

}  // namespace orv
