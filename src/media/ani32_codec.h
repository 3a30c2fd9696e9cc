#pragma once
// The run-length code of ANI32 frames and the header both animation formats
// share. A packet starts with a control byte c covering n = (c & 127) + 1
// pixels: with the top bit set one pixel follows and stands for all n,
// otherwise n pixels follow as they are. Every row ends with a packet of
// its own for its last pixel. No Qt here: the fuzzers build it on its own.

#include <cstddef>
#include <cstdint>

namespace orv {

#pragma pack(push, 1)
// At offset 0 of ANI32 and QRDANI files; the table of frame offsets
// (4 bytes each, absolute) follows, then 8 reserved bytes.
struct UstAniFileHeader {
    uint32_t nFrames;
    uint32_t nWidth;
    uint32_t nHeight;
};
#pragma pack(pop)
static_assert(sizeof(UstAniFileHeader) == 12);

constexpr size_t ANI_RESERVED_BYTES = 8;
// The largest width or height an animation file may declare.
constexpr uint32_t MAX_ANI_EXTENT = 16384;
// The most pixels one packet covers, and the fewest bytes it takes.
constexpr int ANI32_PACKET_PIXELS = 128;
constexpr int ANI32_MIN_PACKET_BYTES = 5;

// Codes one row of n pixels; returns the bytes written. The output needs
// room for 5 bytes per pixel and 5 more. A row of 0 pixels gives one packet
// of a zero pixel, so that every row costs at least 5 bytes.
size_t EncodeAni32Row(int n, const uint32_t* pixels, uint8_t* out);
// All rows of a block, one after another; returns the bytes written. The
// output needs width * height * 8 bytes (5 for rows of width 1).
size_t EncodeAni32Rows(const uint32_t* block, int width, int height, uint8_t* out);
// The bytes a coded frame takes at the very least: its rows as runs.
uint64_t MinimumAni32FrameBytes(uint32_t width, uint32_t height);

// Decodes coded rows into a width x height block. 1 when the code fills
// the frame or ends early (the rest of the block stays as it was); 0 when a
// packet would run past the end of its row.
int DecodeAni32Rows(const uint8_t* code, size_t size, uint32_t* out, int width, int height);

}  // namespace orv
