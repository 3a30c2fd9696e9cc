#pragma once
// TGA, read and written by our own code because it carries a true alpha.
// No Qt here: the fuzzer builds this file on its own.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace orv {

#pragma pack(push, 1)
struct UstTgaHeader {
    uint8_t idLength;
    uint8_t colourMapType;
    uint8_t imageType;
    uint16_t colourMapFirst;
    uint16_t colourMapLength;
    uint8_t colourMapEntrySize;
    uint16_t xOrigin, yOrigin;
    uint16_t width, height;
    uint8_t bitsPerPixel;
    uint8_t descriptor;
};
#pragma pack(pop)
static_assert(sizeof(UstTgaHeader) == 18);

// A decoded picture: straight 32-bit pixels, top row first.
struct UstPixelImage {
    std::unique_ptr<uint32_t[]> bits;
    int width = 0, height = 0;
    explicit operator bool() const { return bits != nullptr; }
};

// Types 2 and 10, 16, 24 or 32 bits; anything else, or data that ends early,
// gives an empty image. Never reads past size.
UstPixelImage ReadTgaMemory(const uint8_t* data, size_t size);
UstPixelImage ReadTga(const std::string& file);
// The size from the header alone; false when the header is unusable.
bool ReadTgaSize(const std::string& file, int& width, int& height);

// Uncompressed, 32 bits, top-left origin. The file appears whole or not at
// all. Returns 1 on success, 0 when it could not be written.
int WriteTga32(const uint32_t* bits, int width, int height, const std::string& file);

// The largest picture a file may declare before it is taken as damaged.
constexpr int MAX_IMAGE_EXTENT = 16384;

}  // namespace orv
