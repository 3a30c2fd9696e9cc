// libFuzzer target for the TGA reader: any bytes at all must give a picture
// or nothing, without reading past them.
#include <cstddef>
#include <cstdint>

#include "render/tga_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const orv::UstPixelImage image = orv::ReadTgaMemory(data, size);
    if (image && (image.width <= 0 || image.height <= 0)) __builtin_trap();
    return 0;
}
