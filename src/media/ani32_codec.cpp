#include "media/ani32_codec.h"

#include <algorithm>
#include <cstring>

namespace orv {

namespace {

inline void PutPixel(uint8_t* out, uint32_t pixel) {
    std::memcpy(out, &pixel, 4);
}

inline uint32_t GetPixel(const uint8_t* in) {
    uint32_t pixel;
    std::memcpy(&pixel, in, 4);
    return pixel;
}

}  // namespace

size_t EncodeAni32Row(int n, const uint32_t* pixels, uint8_t* out) {
    const int m = n - 1;
    if (m < 1) {
        out[0] = 128;
        PutPixel(out + 1, n > 0 ? pixels[0] : 0);
        return 5;
    }
    size_t len = 0;
    int i = 0;
    while (i < m) {
        if (pixels[i] == pixels[i + 1]) {
            const uint32_t value = pixels[i];
            int k = 0;
            ++i;
            while (k < 127 && i < m && pixels[i] == pixels[i + 1]) {
                ++k;
                ++i;
            }
            // The pixel now at i ends the run and starts what follows.
            out[len] = static_cast<uint8_t>(k | 128);
            PutPixel(out + len + 1, value);
            len += 5;
        } else {
            const size_t control = len++;
            PutPixel(out + len, pixels[i]);
            len += 4;
            ++i;
            int k = 0;
            while (i < m && pixels[i] != pixels[i + 1]) {
                PutPixel(out + len, pixels[i]);
                len += 4;
                ++k;
                ++i;
                if (k == 127) break;
            }
            out[control] = static_cast<uint8_t>(k & 127);
        }
    }
    out[len] = 128;
    PutPixel(out + len + 1, pixels[i]);
    return len + 5;
}

size_t EncodeAni32Rows(const uint32_t* block, int width, int height, uint8_t* out) {
    size_t len = 0;
    for (int y = 0; y < height; ++y)
        len += EncodeAni32Row(width, block + static_cast<size_t>(y) * width, out + len);
    return len;
}

uint64_t MinimumAni32FrameBytes(uint32_t width, uint32_t height) {
    const uint64_t packetsPerRow =
        (uint64_t{width} + ANI32_PACKET_PIXELS - 1) / ANI32_PACKET_PIXELS;
    return uint64_t{height} * std::max<uint64_t>(packetsPerRow, 1) * ANI32_MIN_PACKET_BYTES;
}

int DecodeAni32Rows(const uint8_t* code, size_t size, uint32_t* out, int width, int height) {
    const uint8_t* p = code;
    const uint8_t* const end = code + size;
    uint32_t* row = out;
    int column = 0;
    for (int y = 0; y < height;) {
        if (p == end) return 1;
        const uint8_t c = *p++;
        const int n = (c & 127) + 1;
        if (column + n > width) return 0;
        uint32_t* dst = row + column;
        const size_t left = static_cast<size_t>(end - p);
        if (c & 128) {
            if (left < 4) return 1;
            std::fill_n(dst, n, GetPixel(p));
            p += 4;
        } else {
            const size_t bytes = static_cast<size_t>(n) * 4;
            if (left < bytes) {
                std::memcpy(dst, p, left & ~size_t{3});
                return 1;
            }
            std::memcpy(dst, p, bytes);
            p += bytes;
        }
        column += n;
        if (column == width) {
            column = 0;
            ++y;
            row += width;
        }
    }
    return 1;
}

}  // namespace orv
