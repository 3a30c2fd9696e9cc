// libFuzzer target for the QRDANI reader: the bytes as a whole file, and
// again as one bare frame record, so that the length table and the Huffman
// decoder meet every shape of input directly.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "media/qrdani_player.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    orv::QRDANIPlayer player(std::vector<uint8_t>(data, data + size));
    if (player.Open()) {
        const int count = player.GetInfo()->nFrames;
        for (int i = 0; i < std::min(count, 4); ++i)
            player.ReadFrame(i);
        player.ReadFrame(count - 1);
        player.ReadFrame(count);
    }
    auto code = std::make_unique<orv::CQrdHuffman>();
    std::vector<uint8_t> frame(32 * 32 * 8);
    orv::DecodeQrdAniRecord(data, size, frame.data(), frame.size(), *code);
    return 0;
}
