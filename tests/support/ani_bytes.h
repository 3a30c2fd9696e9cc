#pragma once
// Animation files built byte by byte in tests: a header, an offset table
// and frame records placed where the test says.

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace orv::test {

using Bytes = std::vector<uint8_t>;

inline void Put32(Bytes& b, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        b.push_back(static_cast<uint8_t>(v >> (8 * i)));
}

inline void PutPixel(Bytes& b, uint32_t v) {
    Put32(b, v);
}

// Count, width, height, the offsets as given, and 8 reserved zero bytes.
inline Bytes AniHeader(uint32_t count, uint32_t width, uint32_t height,
                       const std::vector<uint32_t>& offsets) {
    Bytes b;
    Put32(b, count);
    Put32(b, width);
    Put32(b, height);
    for (uint32_t o : offsets)
        Put32(b, o);
    b.insert(b.end(), 8, 0);
    return b;
}

inline void Append(Bytes& b, const Bytes& more) {
    b.insert(b.end(), more.begin(), more.end());
}

// A string of '0' and '1' (spaces ignored) packed most significant bit
// first, the last byte padded with zeros.
inline Bytes Bits(const std::string& text) {
    Bytes out;
    int n = 0;
    for (char c : text) {
        if (c != '0' && c != '1') continue;
        if (n % 8 == 0) out.push_back(0);
        if (c == '1') out.back() |= static_cast<uint8_t>(0x80 >> (n % 8));
        ++n;
    }
    return out;
}

// Four-bit units packed two to a byte, the first in the high half.
inline Bytes Nibbles(std::initializer_list<int> units) {
    Bytes out;
    int n = 0;
    for (int u : units) {
        if (n % 2 == 0)
            out.push_back(static_cast<uint8_t>(u << 4));
        else
            out.back() |= static_cast<uint8_t>(u);
        ++n;
    }
    return out;
}

}  // namespace orv::test
