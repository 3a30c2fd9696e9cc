// The copies of the view into an output frame, once a frame on the playout
// thread. The view's rows lie 16 KiB apart in the canvas and may be cut in
// two by its column wrap; copied one after another, each short run would
// wait for memory on its own, so a few rows are copied side by side.
#include <algorithm>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "board/canvas.h"

namespace orv {

namespace {

constexpr int BAND = 4;    // rows copied side by side
constexpr int CHUNK = 16;  // pixels: one cache line
constexpr uintptr_t LINE = 64;

#ifdef __SSE2__
void StreamLine(uint32_t* dst, const uint32_t* src) {
    const auto* s = reinterpret_cast<const __m128i*>(src);
    auto* d = reinterpret_cast<__m128i*>(dst);
    const __m128i a = _mm_loadu_si128(s), b = _mm_loadu_si128(s + 1);
    const __m128i c = _mm_loadu_si128(s + 2), e = _mm_loadu_si128(s + 3);
    _mm_stream_si128(d, a);
    _mm_stream_si128(d + 1, b);
    _mm_stream_si128(d + 2, c);
    _mm_stream_si128(d + 3, e);
}
#endif

// n pixels of each of COUNT rows, a cache line of each in turn. When the
// rows share their place within a cache line, whole lines are written past
// the caches: the frame goes to the output and not back to this processor,
// and a plain store would first read each line of it from memory.
template <int COUNT>
void CopyBand(uint32_t* const* dst, const uint32_t* const* src, int n) {
    int i = 0;
#ifdef __SSE2__
    const uintptr_t offset = reinterpret_cast<uintptr_t>(dst[0]) & (LINE - 1);
    bool same = true;
    for (int k = 1; k < COUNT; ++k)
        same = same && (reinterpret_cast<uintptr_t>(dst[k]) & (LINE - 1)) == offset;
    if (same) {
        i = std::min(n, static_cast<int>(((LINE - offset) & (LINE - 1)) / 4));
        for (int k = 0; k < COUNT; ++k)
            std::memcpy(dst[k], src[k], static_cast<size_t>(i) * 4);
        for (; i + CHUNK <= n; i += CHUNK)
            for (int k = 0; k < COUNT; ++k)
                StreamLine(dst[k] + i, src[k] + i);
    }
#endif
    for (; i + CHUNK <= n; i += CHUNK)
        for (int k = 0; k < COUNT; ++k)
            std::memcpy(dst[k] + i, src[k] + i, CHUNK * 4);
    for (int k = 0; k < COUNT; ++k)
        std::memcpy(dst[k] + i, src[k] + i, static_cast<size_t>(n - i) * 4);
}

// Gathers rows into bands of BAND and copies each band. Every row comes in
// two pieces of fixed lengths: for a canvas row the columns before its
// column wrap and those after it.
class CBander {
public:
    CBander(int first, int second) : m_nFirst(first), m_nSecond(second) {}
    // The lines written past the caches are in memory before anyone else
    // is told that the frame is ready.
    ~CBander() {
        Flush();
#ifdef __SSE2__
        _mm_sfence();
#endif
    }
    void Add(uint32_t* dst, const uint32_t* first, const uint32_t* second) {
        m_dst[m_count] = dst;
        m_first[m_count] = first;
        m_second[m_count] = second;
        if (++m_count == BAND) Flush();
    }

private:
    void Flush() {
        Copy(m_dst, m_first, m_nFirst);
        if (m_nSecond) {
            for (int k = 0; k < m_count; ++k)
                m_dst[k] += m_nFirst;
            Copy(m_dst, m_second, m_nSecond);
        }
        m_count = 0;
    }
    void Copy(uint32_t* const* dst, const uint32_t* const* src, int n) const {
        if (m_count == BAND) return CopyBand<BAND>(dst, src, n);
        for (int k = 0; k < m_count; ++k)
            CopyBand<1>(dst + k, src + k, n);
    }

    int m_nFirst, m_nSecond;
    int m_count = 0;
    uint32_t* m_dst[BAND];
    const uint32_t* m_first[BAND];
    const uint32_t* m_second[BAND];
};

int BeforeColumnWrap(const UstView& view) {
    return std::min(view.nWidth, CANVAS_SIZE - (view.nOriginX & CANVAS_MASK));
}

// A bander for rows of the view: the pieces on both sides of the wrap.
CBander ViewBander(const UstView& view) {
    const int first = BeforeColumnWrap(view);
    return CBander(first, view.nWidth - first);
}

void AddViewRow(CBander& band, uint32_t* dst, const UstView& view, int canvasRow) {
    const uint32_t* row = view.canvas + (static_cast<size_t>(canvasRow) << 12);
    band.Add(dst, row + (view.nOriginX & CANVAS_MASK), row);
}

// Calls copy(frameRow, canvasRow, count) for the view rows from first to
// last - 1: count runs from 0 in the rows before the canvas's last row and
// again from 0 after it.
template <typename F>
void ForViewRows(const UstView& v, int first, int last, F copy) {
    const int y = v.nOriginY & CANVAS_MASK;
    const int before = std::min(v.nHeight, CANVAS_SIZE - y);
    first = std::max(first, 0);
    last = std::min(last, v.nHeight);
    for (int i = first; i < std::min(last, before); ++i)
        copy(i, y + i, i);
    for (int i = std::max(first, before); i < last; ++i)
        copy(i, i - before, i - before);
}

// The rows from first to last - 1 that take(count) accepts.
template <typename Take>
void CopyRows(uint32_t* dst, const UstView& view, int first, int last, Take take) {
    if (!view.canvas || view.nWidth < 1) return;
    const size_t stride = static_cast<size_t>(view.nWidth);
    CBander band = ViewBander(view);
    ForViewRows(view, first, last, [&](int frameRow, int canvasRow, int count) {
        if (take(count)) AddViewRow(band, dst + frameRow * stride, view, canvasRow);
    });
}

bool IsHeldRow(int row, int height, int parity) {
    return ((height - 1 - row) & 1) == parity;
}

// The rows of a frame-shaped buffer that take(row) accepts, to the same rows.
template <typename Take>
void CopyFrameRows(uint32_t* dst, const uint32_t* src, int width, int height, Take take) {
    if (!src || width < 1) return;
    const size_t stride = static_cast<size_t>(width);
    CBander band(width, 0);
    for (int row = 0; row < height; ++row)
        if (take(row)) band.Add(dst + row * stride, src + row * stride, nullptr);
}

}  // namespace

void CopyFrame(uint32_t* dst, const UstView& view) {
    CopyRows(dst, view, 0, view.nHeight, [](int) { return true; });
}

void CopyField(uint32_t* dst, const UstView& view, int selector) {
    CopyFieldRows(dst, view, selector, 0, view.nHeight);
}

void CopyFieldRows(uint32_t* dst, const UstView& view, int selector, int first, int last) {
    CopyRows(dst, view, first, last, [selector](int count) { return (count & 1) != selector; });
}

void CopyHeld(uint32_t* dst, const uint32_t* held, int width, int height, int parity) {
    CopyFrameRows(dst, held, width, height,
                  [&](int row) { return IsHeldRow(row, height, parity); });
}

void CopyWholeFrame(uint32_t* dst, const uint32_t* src, int width, int height) {
    CopyFrameRows(dst, src, width, height, [](int) { return true; });
}

namespace {

// b x level / 255, rounded half up, as 16-bit lanes: for every b x level
// + 127 that a byte and a level below 255 give, (x + 1 + (x >> 8)) >> 8 is x
// / 255.
#ifdef __SSE2__
__m128i ScaleLanes(__m128i bytes16, __m128i level) {
    const __m128i x = _mm_add_epi16(_mm_mullo_epi16(bytes16, level), _mm_set1_epi16(127));
    const __m128i sum = _mm_add_epi16(_mm_add_epi16(x, _mm_set1_epi16(1)), _mm_srli_epi16(x, 8));
    return _mm_srli_epi16(sum, 8);
}
#endif

uint8_t ScaleByte(uint8_t b, uint32_t level) {
    return static_cast<uint8_t>((b * level + 127) / 255);
}

}  // namespace

// Once a frame on the playout thread, for an output without a keyer: the
// scaled frame goes to the output, so it is written past the caches, where
// the drawing thread's canvas stays.
void ScaleFrameByLevel(uint32_t* frame, size_t pixels, int level) {
    if (level >= 255) return;
    const uint32_t l = static_cast<uint32_t>(std::max(level, 0));
    auto* bytes = reinterpret_cast<uint8_t*>(frame);
    const size_t count = pixels * 4;
    size_t i = 0;
#ifdef __SSE2__
    for (; i < count && (reinterpret_cast<uintptr_t>(bytes + i) & 15) != 0; ++i)
        bytes[i] = ScaleByte(bytes[i], l);
    const __m128i zero = _mm_setzero_si128(), lanes = _mm_set1_epi16(static_cast<short>(l));
    for (; i + 16 <= count; i += 16) {
        auto* at = reinterpret_cast<__m128i*>(bytes + i);
        const __m128i v = _mm_load_si128(at);
        const __m128i low = ScaleLanes(_mm_unpacklo_epi8(v, zero), lanes);
        const __m128i high = ScaleLanes(_mm_unpackhi_epi8(v, zero), lanes);
        _mm_stream_si128(at, _mm_packus_epi16(low, high));
    }
    _mm_sfence();
#endif
    for (; i < count; ++i)
        bytes[i] = ScaleByte(bytes[i], l);
}

}  // namespace orv
