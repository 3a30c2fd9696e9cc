#pragma once
// Every picture enters as a straight 32-bit block: TGA through our own reader,
// every other format through Qt's image readers. Thumbnails leave as BMP.

#include <QString>

#include <cstdint>

#include "render/tga_file.h"

namespace orv {

// BMP, JPEG, JPG, PNG, TGA, TIF, TIFF, GIF, by extension in any case.
bool IsImageExtension(const QString& file);

// A new straight block, or an empty image when the file is missing or unreadable.
UstPixelImage LoadImageFile(const QString& file);
// Into a block of the expected size; 0, and the block untouched, when the
// file's size differs or it cannot be read.
int LoadImageFileInto(const QString& file, int width, int height, uint32_t* block);
// Width and height, both 0 on failure.
void GetImageSize(const QString& file, int& width, int& height);

// A BMP as thumbnails are kept: 32 bits from a block whose rows are already
// bottom row first (the page thumbnail's order), or 24 bits from a top-down
// block, with the resolution given in dots per inch.
bool SaveBmp32BottomUp(const uint32_t* bits, int width, int height, const QString& file);
bool SaveBmp24(const uint32_t* topDown, int width, int height, double dpiX, double dpiY,
               const QString& file);

}  // namespace orv
