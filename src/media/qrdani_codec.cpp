#include "media/qrdani_codec.h"

#include <cstring>

namespace orv {

namespace {

// Four-bit units, the high nibble of each byte first.
class CNibbleReader {
public:
    CNibbleReader(const uint8_t* data, size_t size) : m_pData(data), m_nNibbles(size * 2) {}
    bool Next(int& value) {
        if (m_nPos >= m_nNibbles) return false;
        const uint8_t byte = m_pData[m_nPos / 2];
        value = (m_nPos % 2) ? (byte & 15) : (byte >> 4);
        ++m_nPos;
        return true;
    }
    size_t BytesStarted() const { return (m_nPos + 1) / 2; }

private:
    const uint8_t* m_pData;
    size_t m_nNibbles;
    size_t m_nPos = 0;
};

// A number of the table: a nibble above 12 is an escape that sets the base
// (13 gives 0, 14 gives 13, 15 gives 26) and is followed by the nibble that
// is added to it. The base stays for what follows.
bool ReadNumber(CNibbleReader& reader, int& base, int& value) {
    int u = 0;
    if (!reader.Next(u)) return false;
    if (u > 12) {
        base = static_cast<int8_t>(u * 13 - 169);
        if (!reader.Next(u)) return false;
    }
    value = base + u;
    return true;
}

inline uint64_t LoadBigEndian64(const uint8_t* p) {
    uint64_t v;
    std::memcpy(&v, p, 8);
    return __builtin_bswap64(v);
}

}  // namespace

size_t UnpackCodeLengths(const uint8_t* data, size_t size, uint8_t* lengths) {
    CNibbleReader reader(data, size);
    int base = 0, previous = 0, repeats = 0, value = 0;
    for (int i = 0; i < QRD_SYMBOLS;) {
        if (!ReadNumber(reader, base, value)) return 0;
        repeats = value == previous ? repeats + 1 : 0;
        lengths[i++] = static_cast<uint8_t>(value);
        previous = value;
        // A value's third appearance in a row is followed by a count of
        // further copies.
        if (repeats > 1) {
            int copies = 0;
            if (!ReadNumber(reader, base, copies)) return 0;
            for (; copies > 0 && i < QRD_SYMBOLS; --copies)
                lengths[i++] = static_cast<uint8_t>(value);
            repeats = 0;
        }
    }
    return reader.BytesStarted();
}

bool CQrdHuffman::Build(const uint8_t* lengths) {
    std::array<uint32_t, QRD_MAX_CODE_LENGTH + 1> count{};
    int shortest = QRD_MAX_CODE_LENGTH + 1;
    m_nMaxLength = 0;
    for (int s = 0; s < QRD_SYMBOLS; ++s) {
        const int len = lengths[s];
        if (len > QRD_MAX_CODE_LENGTH) return false;
        if (len == 0) continue;
        ++count[static_cast<size_t>(len)];
        if (len > m_nMaxLength) m_nMaxLength = len;
        if (len < shortest) shortest = len;
    }
    m_first = {};
    m_count = {};
    m_length = {};
    m_code = {};
    uint64_t code = 0;
    uint16_t start = 0;
    for (int len = m_nMaxLength; len >= 1; --len) {
        const auto l = static_cast<size_t>(len);
        m_first[l] = static_cast<uint32_t>(code);
        m_count[l] = count[l];
        m_start[l] = start;
        for (int s = QRD_SYMBOLS - 1; s >= 0; --s) {
            if (lengths[s] != len) continue;
            m_sorted[start++] = static_cast<uint8_t>(s);
            m_code[static_cast<size_t>(s)] = static_cast<uint32_t>(code++);
            m_length[static_cast<size_t>(s)] = static_cast<uint8_t>(len);
        }
        if (code > (uint64_t{1} << len)) return false;
        // An odd value halved would hand a shorter length the start of a
        // code already given.
        if ((code & 1) && shortest < len) return false;
        code >>= 1;
    }
    BuildLookup();
    return true;
}

void CQrdHuffman::BuildLookup() {
    m_short.fill({0, 0});
    for (int s = 0; s < QRD_SYMBOLS; ++s) {
        const int len = m_length[static_cast<size_t>(s)];
        if (len == 0 || len > LOOKUP_BITS) continue;
        const uint32_t first = m_code[static_cast<size_t>(s)] << (LOOKUP_BITS - len);
        const uint32_t span = 1u << (LOOKUP_BITS - len);
        for (uint32_t i = 0; i < span; ++i)
            m_short[first + i] = {static_cast<uint8_t>(s), static_cast<uint8_t>(len)};
    }
    for (int index = 0; index < LOOKUP_SIZE; ++index) {
        UstRun run{};
        int used = 0;
        while (run.count < MAX_RUN) {
            const UstShort next = m_short[static_cast<size_t>((index << used) & (LOOKUP_SIZE - 1))];
            if (next.length == 0 || used + next.length > LOOKUP_BITS) break;
            run.symbols[run.count++] = next.symbol;
            used += next.length;
        }
        run.bits = static_cast<uint8_t>(used);
        m_run[static_cast<size_t>(index)] = run;
    }
}

int CQrdHuffman::DecodeLong(uint64_t buffer, int bits, uint8_t& symbol, int& length) const {
    for (int len = LOOKUP_BITS + 1; len <= m_nMaxLength; ++len) {
        if (len > bits) return -1;
        const auto l = static_cast<size_t>(len);
        const uint32_t code = static_cast<uint32_t>(buffer >> (64 - len));
        if (code - m_first[l] < m_count[l]) {
            symbol = m_sorted[m_start[l] + (code - m_first[l])];
            length = len;
            return 1;
        }
    }
    return 0;
}

int CQrdHuffman::DecodeOne(uint64_t buffer, int bits, uint8_t& symbol, int& length) const {
    const UstShort s = m_short[static_cast<size_t>(buffer >> (64 - LOOKUP_BITS))];
    if (s.length == 0) return DecodeLong(buffer, bits, symbol, length);
    if (s.length > bits) return -1;
    symbol = s.symbol;
    length = s.length;
    return 1;
}

int CQrdHuffman::Decode(const uint8_t* in, size_t size, uint8_t* out, size_t length) const {
    const uint8_t* p = in;
    const uint8_t* const end = in + size;
    uint8_t* const outEnd = out + length;
    uint64_t buffer = 0;  // valid bits at the top, zeros below them
    int bits = 0;
    // While eight bytes remain on both sides, whole words are taken in and
    // each lookup writes eight bytes of which it keeps as many as it decoded.
    while (outEnd - out >= 8 && end - p >= 8) {
        buffer |= LoadBigEndian64(p) >> bits;
        p += (63 - bits) >> 3;
        bits |= 56;
        while (bits >= QRD_MAX_CODE_LENGTH && outEnd - out >= 8) {
            const UstRun& run = m_run[static_cast<size_t>(buffer >> (64 - LOOKUP_BITS))];
            if (run.count) {
                std::memcpy(out, &run, 8);
                out += run.count;
                buffer <<= run.bits;
                bits -= run.bits;
                continue;
            }
            uint8_t symbol = 0;
            int len = 0;
            if (DecodeLong(buffer, bits, symbol, len) != 1) return 0;
            *out++ = symbol;
            buffer <<= len;
            bits -= len;
        }
    }
    while (out < outEnd) {
        for (; bits <= 56 && p < end; bits += 8)
            buffer |= uint64_t{*p++} << (56 - bits);
        if (bits == 0) break;
        uint8_t symbol = 0;
        int len = 0;
        const int found = DecodeOne(buffer, bits, symbol, len);
        if (found < 0) break;
        if (found == 0) return 0;
        *out++ = symbol;
        buffer <<= len;
        bits -= len;
    }
    return 1;
}

}  // namespace orv
