#pragma once
// The gradient being edited: start and end pegs, up to fourteen pegs between
// them kept in position order, and the colour at any position by one of ten
// interpolation methods. Colours here are in 0x00BBGGRR order.

#include <cstdint>
#include <vector>

namespace orv {

class CPeg {
public:
    CPeg() = default;
    CPeg(uint32_t colour, float position);
    uint32_t colour = 0;
    float position = 0.0f;
    uint32_t id = 0;  // unique in the process; keeps a selection across re-sorting
};

class CGradient {
public:
    enum ESpecialPeg { PEG_NONE = -1, PEG_END = -2, PEG_START = -3, PEG_BACKGROUND = -4 };
    enum EInterpolation {
        LINEAR = 0,
        FLAT_START,
        FLAT_MIDDLE,
        FLAT_END,
        COSINE,
        HUE_FORWARD,
        HUE_BACKWARD,
        HUE_SHORTEST,
        HUE_LONGEST,
        REVERSE
    };
    static constexpr int MAX_PEGS = 14;  // sixteen stops with the start and end

    CGradient();

    // The new peg's index, found by id after sorting; -1 when fourteen exist.
    int AddPeg(uint32_t colour, float position);
    // Special indexes change only the colour and answer -1.
    int SetPeg(int index, uint32_t colour, float position);
    void RemovePeg(int index);
    const CPeg& GetPeg(int index) const;
    int PegCount() const { return static_cast<int>(m_pegs.size()); }
    int IndexFromId(uint32_t id) const;
    // The peg whose span [peg, next) holds the position, -3 before the first.
    int IndexFromPos(float position) const;

    uint32_t GetColourAt(float position) const;
    // n entries of red, green, blue at positions i / n.
    std::vector<uint8_t> MakeEntries(int n) const;

    CPeg m_startPeg{0x000000, 0.0f};
    CPeg m_endPeg{0xFFFFFF, 1.0f};
    CPeg m_backgroundPeg{0x000000, 0.0f};
    int32_t m_bUseBackground = 0;
    int32_t m_nQuantization = -1;
    int32_t m_nInterpolation = COSINE;

private:
    void Sort();
    uint32_t Between(const CPeg& a, const CPeg& b, float p) const;
    std::vector<CPeg> m_pegs;
};

}  // namespace orv
