// The copies of the view into an output frame, once a frame on the playout
// thread. The view's rows lie 16 KiB apart in the canvas and may be cut in
// two by its column wrap; copied one after another, each short run would
// wait for memory on its own, so a few rows are copied side by side.
#include <algorithm>
#include <cstring>

#include "board/canvas.h"

namespace orv {

namespace {

constexpr int BAND = 4;    // rows copied side by side
constexpr int CHUNK = 16;  // pixels: one cache line

// n pixels of each of COUNT rows, a cache line of each in turn.
template <int COUNT>
void CopyBand(uint32_t* const* dst, const uint32_t* const* src, int n) {
    int i = 0;
    for (; i + CHUNK <= n; i += CHUNK)
        for (int k = 0; k < COUNT; ++k)
            std::memcpy(dst[k] + i, src[k] + i, CHUNK * 4);
    for (int k = 0; k < COUNT; ++k)
        std::memcpy(dst[k] + i, src[k] + i, static_cast<size_t>(n - i) * 4);
}

// Gathers rows into bands of BAND and copies each band: the view's columns
// before the canvas's column wrap, then those after it.
class CBander {
public:
    CBander(int width, int column) : m_nFirst(std::min(width, CANVAS_SIZE - column)),
                                     m_nSecond(width - m_nFirst), m_nColumn(column) {}
    ~CBander() { Flush(); }
    // A frame row and the start of the canvas row (or any row) it takes.
    void Add(uint32_t* dst, const uint32_t* row) {
        m_dst[m_count] = dst;
        m_row[m_count] = row;
        if (++m_count == BAND) Flush();
    }

private:
    void Flush() {
        const uint32_t* src[BAND];
        uint32_t* dst[BAND];
        for (int k = 0; k < m_count; ++k)
            src[k] = m_row[k] + m_nColumn;
        Copy(m_dst, src, m_nFirst);
        for (int k = 0; k < m_count; ++k) {
            src[k] = m_row[k];
            dst[k] = m_dst[k] + m_nFirst;
        }
        if (m_nSecond) Copy(dst, src, m_nSecond);
        m_count = 0;
    }
    void Copy(uint32_t* const* dst, const uint32_t* const* src, int n) {
        if (m_count == BAND) return CopyBand<BAND>(dst, src, n);
        for (int k = 0; k < m_count; ++k)
            CopyBand<1>(dst + k, src + k, n);
    }

    int m_nFirst, m_nSecond, m_nColumn;
    int m_count = 0;
    uint32_t* m_dst[BAND];
    const uint32_t* m_row[BAND];
};

// Calls copy(frameRow, canvasRow, count) for each view row: count runs from 0
// in the rows before the canvas's last row and again from 0 after it.
template <typename F>
void ForViewRows(const UstView& v, F copy) {
    const int y = v.nOriginY & CANVAS_MASK;
    const int before = std::min(v.nHeight, CANVAS_SIZE - y);
    for (int i = 0; i < before; ++i)
        copy(i, y + i, i);
    for (int i = 0; i < v.nHeight - before; ++i)
        copy(before + i, i, i);
}

// The rows that take(count) accepts.
template <typename Take>
void CopyRows(uint32_t* dst, const UstView& view, Take take) {
    if (!view.canvas || view.nWidth < 1) return;
    const size_t stride = static_cast<size_t>(view.nWidth);
    CBander band(view.nWidth, view.nOriginX & CANVAS_MASK);
    ForViewRows(view, [&](int frameRow, int canvasRow, int count) {
        if (take(count))
            band.Add(dst + frameRow * stride, view.canvas + (static_cast<size_t>(canvasRow) << 12));
    });
}

}  // namespace

void CopyFrame(uint32_t* dst, const UstView& view) {
    CopyRows(dst, view, [](int) { return true; });
}

void CopyField(uint32_t* dst, const UstView& view, int selector) {
    CopyRows(dst, view, [selector](int count) { return (count & 1) != selector; });
}

void CopyHeld(uint32_t* dst, const uint32_t* held, int width, int height, int parity) {
    if (!held || width < 1) return;
    const size_t stride = static_cast<size_t>(width);
    CBander band(width, 0);
    for (int row = 0; row < height; ++row)
        if (((height - 1 - row) & 1) == parity) band.Add(dst + row * stride, held + row * stride);
}

void ScaleFrameByLevel(uint32_t* frame, size_t pixels, int level) {
    if (level >= 255) return;
    const uint32_t l = static_cast<uint32_t>(std::max(level, 0));
    auto* bytes = reinterpret_cast<uint8_t*>(frame);
    for (size_t i = 0; i < pixels * 4; ++i)
        bytes[i] = static_cast<uint8_t>((bytes[i] * l + 127) / 255);
}

}  // namespace orv
