#pragma once
// The wrapping output canvas: 4096 x 4096 pixels in which a column wraps at
// the right edge and a row at the bottom. Transitions write into it with the
// primitives below; the playout thread copies the view at the origin out.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace orv {

inline constexpr int CANVAS_SIZE = 4096;
inline constexpr int CANVAS_MASK = CANVAS_SIZE - 1;
inline constexpr size_t CANVAS_PIXELS = static_cast<size_t>(CANVAS_SIZE) * CANVAS_SIZE;

inline uint32_t* CanvasPixel(uint32_t* canvas, int x, int y) {
    return canvas + (static_cast<size_t>(y & CANVAS_MASK) << 12) + (x & CANVAS_MASK);
}

// The integer run between two points that the slanted primitives draw: ends
// swapped so that the driving axis increases, error 2d - D, the end point
// included. Told as pieces along the rows: putRow(x1, x2, y), x1 <= x2, for
// the pixels of one row that follow one another. Open to those who must know
// which pixels a run takes without drawing it.
template <typename PutRow>
void ForSlantRows(int x1, int y1, int x2, int y2, PutRow putRow) {
    if (x1 == x2) {
        if (y1 > y2) std::swap(y1, y2);
        for (int y = y1; y <= y2; ++y)
            putRow(x1, x1, y);
        return;
    }
    if (y1 == y2) {
        putRow(std::min(x1, x2), std::max(x1, x2), y1);
        return;
    }
    const int spanX = std::abs(x2 - x1), spanY = std::abs(y2 - y1);
    const bool yDrives = spanX < spanY;
    if (yDrives ? y1 > y2 : x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    const int big = yDrives ? spanY : spanX, small = yDrives ? spanX : spanY;
    const int otherStep = yDrives ? (x2 > x1 ? 1 : -1) : (y2 > y1 ? 1 : -1);
    int err = 2 * small - big;
    int x = x1, y = y1, start = x1;
    for (int i = 0; i <= big; ++i) {
        if (yDrives) {
            putRow(x, x, y);
        } else if (err > 0 || i == big) {
            putRow(start, x, y);
            start = x + 1;
        }
        if (err > 0) {
            err += 2 * (small - big);
            (yDrives ? x : y) += otherStep;
        } else {
            err += 2 * small;
        }
        (yDrives ? y : x) += 1;
    }
}

// The same run, put(x, y) per pixel.
template <typename Put>
void ForSlantRun(int x1, int y1, int x2, int y2, Put put) {
    ForSlantRows(x1, y1, x2, y2, [&](int from, int to, int y) {
        for (int x = from; x <= to; ++x)
            put(x, y);
    });
}

// The drawing primitives. Every target position wraps; a null canvas, an
// empty extent or a line that is neither horizontal nor vertical (for the
// straight runs) writes nothing.
void CanvasCopyRect(uint32_t* canvas, int dx, int dy, int srcStride, int srcX, int srcY, int w,
                    int h, const uint32_t* src);
void CanvasFillRect(uint32_t* canvas, int dx, int dy, int w, int h, uint32_t value);
void CanvasCopyLine(uint32_t* canvas, int x1, int y1, int x2, int y2, int srcStride, int srcX,
                    int srcY, const uint32_t* src);
void CanvasFillLine(uint32_t* canvas, int x1, int y1, int x2, int y2, uint32_t value);
void CanvasCopySlantLine(uint32_t* canvas, int x1, int y1, int x2, int y2, int offX, int offY,
                         int srcStride, const uint32_t* src);
void CanvasFillSlantLine(uint32_t* canvas, int x1, int y1, int x2, int y2, int offX, int offY,
                         uint32_t value);

// Short pieces of many columns at once, for patterns of scattered columns
// written a band of rows at a time: for each i below count, rows pixels down
// canvas column x + columns[i] from row y (both wrap), taken from
// block + columns[i] x rows. While a piece goes out, the same piece of
// `next` (a block laid out alike, or null) is fetched: the addresses of the
// next band are ones no prefetcher could guess.
void CanvasCopyColumns(uint32_t* canvas, int x, int y, int rows, const int* columns, int count,
                       const uint32_t* block, const uint32_t* next);
void CanvasFillColumns(uint32_t* canvas, int x, int y, int rows, const int* columns, int count,
                       uint32_t value);

// The part of the canvas that is on air: width x height from the origin.
struct UstView {
    const uint32_t* canvas = nullptr;
    int nOriginX = 0, nOriginY = 0;
    int nWidth = 0, nHeight = 0;
};

// Frames are top row first with a stride of width pixels.
void CopyFrame(uint32_t* dst, const UstView& view);
// The view rows i with (i AND 1) different from selector. The count of i
// starts again at 0 where the view crosses the canvas's last row.
void CopyField(uint32_t* dst, const UstView& view, int selector);
// The same for the view rows from first to last - 1 only.
void CopyFieldRows(uint32_t* dst, const UstView& view, int selector, int first, int last);
// The rows of a held field whose line number counted from the bottom of the
// frame has the given parity, copied to the same rows.
void CopyHeld(uint32_t* dst, const uint32_t* held, int width, int height, int parity);
// A whole frame, for a copy that is kept but not read soon: it does not
// push the drawing thread's canvas out of the caches.
void CopyWholeFrame(uint32_t* dst, const uint32_t* src, int width, int height);

// Every byte of every pixel times level / 255, rounded: the whole-frame key
// gain applied to a premultiplied frame for outputs that have no keyer.
void ScaleFrameByLevel(uint32_t* frame, size_t pixels, int level);

}  // namespace orv
