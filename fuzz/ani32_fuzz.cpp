// libFuzzer target for the ANI32 reader: any bytes at all must open or be
// refused, and every frame must decode or be null, without reading or
// writing outside a block.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "media/ani32_player.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    orv::ANI32Player player(std::vector<uint8_t>(data, data + size));
    if (!player.Open()) return 0;
    const int count = player.GetInfo()->nFrames;
    if (count <= 0 || player.GetInfo()->nWidth <= 0) __builtin_trap();
    // The first frames, the last ones, and one past the end.
    for (int i = 0; i < std::min(count, 4); ++i)
        player.ReadFrame(i);
    for (int i = std::max(4, count - 4); i <= count; ++i)
        player.ReadFrame(i);
    return 0;
}
