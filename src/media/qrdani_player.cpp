#include "media/qrdani_player.h"

#include <cstring>

namespace orv {

namespace {

// The code after the two 4-byte fields: the length table, then the bits.
int DecodeCode(const uint8_t* code, size_t size, uint8_t* out, uint64_t length,
               CQrdHuffman& huffman) {
    uint8_t lengths[QRD_SYMBOLS];
    const size_t tableBytes = UnpackCodeLengths(code, size, lengths);
    if (tableBytes == 0 || !huffman.Build(lengths)) return 0;
    return huffman.Decode(code + tableBytes, size - tableBytes, out, length);
}

}  // namespace

uint64_t QRDANIPlayer::MinimumFrameBytes(uint32_t width, uint32_t height) const {
    // The picture alone is 4 bytes a pixel, and a code gives at most one
    // byte per bit.
    return 8 + uint64_t{width} * height / 2;
}

int QRDANIPlayer::ReadFrameTo(int index, uint32_t* out) {
    const uint64_t offset = RecordOffset(index);
    uint32_t head[2] = {0, 0};
    if (!offset || !out || !m_file.ReadExact(offset, head, sizeof head)) return 0;
    const uint64_t length = uint64_t{head[0]} * 2;
    if (head[1] > ScratchSize() || length > GetFrameSize()) return 0;
    const size_t got = m_file.ReadAt(offset + 8, m_pScratch.get(), head[1]);
    return DecodeCode(m_pScratch.get(), got, reinterpret_cast<uint8_t*>(out), length, *m_pCode);
}

int DecodeQrdAniRecord(const uint8_t* record, size_t size, uint8_t* out, size_t frameSize,
                       CQrdHuffman& code) {
    uint32_t head[2];
    if (size < sizeof head) return 0;
    std::memcpy(head, record, sizeof head);
    const uint64_t length = uint64_t{head[0]} * 2;
    if (length > frameSize) return 0;
    const size_t coded = head[1] < size - sizeof head ? head[1] : size - sizeof head;
    return DecodeCode(record + sizeof head, coded, out, length, code);
}

}  // namespace orv
