#pragma once
// The canonical Huffman code of QRDANI frames: a packed table of 256 code
// lengths, then the coded bytes as a bit stream, most significant bit
// first. Read only; the system never writes this format. No Qt here: the
// fuzzers build it on its own.

#include <array>
#include <cstddef>
#include <cstdint>

namespace orv {

constexpr int QRD_SYMBOLS = 256;
constexpr int QRD_MAX_CODE_LENGTH = 32;

// Unpacks the 256 code lengths from the nibbles at the start of a frame's
// code. Returns the bytes the table took, a started byte counted whole, or
// 0 when the bytes end first. Lengths may come out above 32; Build refuses
// them.
size_t UnpackCodeLengths(const uint8_t* data, size_t size, uint8_t* lengths);

// The canonical code of 256 lengths and its decoder. The longest codes get
// the smallest values: from the longest length down, the symbols of each
// length take consecutive values in descending symbol order, and the next
// value is halved between lengths.
class CQrdHuffman {
public:
    // False for a length above 32, or for lengths whose codes would not be
    // a prefix code (too many codes of a length, or one code the start of
    // another). Lengths of 0 have no code.
    bool Build(const uint8_t* lengths);
    // Decodes until length bytes are out or the input ends. 1 on success,
    // 0 at bits that begin no code.
    int Decode(const uint8_t* in, size_t size, uint8_t* out, size_t length) const;

    uint32_t CodeOf(int symbol) const { return m_code[static_cast<size_t>(symbol)]; }
    int LengthOf(int symbol) const { return m_length[static_cast<size_t>(symbol)]; }

private:
    static constexpr int LOOKUP_BITS = 12;
    static constexpr int LOOKUP_SIZE = 1 << LOOKUP_BITS;
    static constexpr int MAX_RUN = 6;
    // Up to six whole codes within the next twelve bits; none when the
    // first code is longer, or the bits begin no code.
    struct UstRun {
        uint8_t symbols[MAX_RUN];
        uint8_t count;
        uint8_t bits;
    };
    static_assert(sizeof(UstRun) == 8);
    struct UstShort {
        uint8_t symbol;
        uint8_t length;  // 0: no code of 12 bits or fewer begins here
    };

    void BuildLookup();
    // One symbol from the top of the bit buffer, which holds bits valid
    // bits: 1 found, 0 no code, -1 the bits end inside a code.
    int DecodeOne(uint64_t buffer, int bits, uint8_t& symbol, int& length) const;
    int DecodeLong(uint64_t buffer, int bits, uint8_t& symbol, int& length) const;

    std::array<uint32_t, QRD_SYMBOLS> m_code{};
    std::array<uint8_t, QRD_SYMBOLS> m_length{};
    // Per length: the first code value, how many codes, where their symbols
    // start in m_sorted.
    std::array<uint32_t, QRD_MAX_CODE_LENGTH + 1> m_first{};
    std::array<uint32_t, QRD_MAX_CODE_LENGTH + 1> m_count{};
    std::array<uint16_t, QRD_MAX_CODE_LENGTH + 1> m_start{};
    std::array<uint8_t, QRD_SYMBOLS> m_sorted{};
    int m_nMaxLength = 0;
    std::array<UstShort, LOOKUP_SIZE> m_short{};
    std::array<UstRun, LOOKUP_SIZE> m_run{};
};

}  // namespace orv
