#include "board/canvas.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace orv {

namespace {

// One row of n pixels from column x, continuing at column 0 past the edge.
void PutRow(uint32_t* canvas, int x, int y, const uint32_t* src, int n) {
    uint32_t* row = CanvasPixel(canvas, 0, y);
    x &= CANVAS_MASK;
    while (n > 0) {
        const int run = std::min(n, CANVAS_SIZE - x);
        std::memcpy(row + x, src, static_cast<size_t>(run) * 4);
        src += run;
        n -= run;
        x = 0;
    }
}

void FillRow(uint32_t* canvas, int x, int y, uint32_t value, int n) {
    uint32_t* row = CanvasPixel(canvas, 0, y);
    x &= CANVAS_MASK;
    while (n > 0) {
        const int run = std::min(n, CANVAS_SIZE - x);
        std::fill_n(row + x, run, value);
        n -= run;
        x = 0;
    }
}

}  // namespace

void CanvasCopyRect(uint32_t* canvas, int dx, int dy, int srcStride, int srcX, int srcY, int w,
                    int h, const uint32_t* src) {
    if (!canvas || !src || w < 1 || h < 1) return;
    for (int r = 0; r < h; ++r)
        PutRow(canvas, dx, dy + r, src + static_cast<ptrdiff_t>(srcY + r) * srcStride + srcX, w);
}

void CanvasFillRect(uint32_t* canvas, int dx, int dy, int w, int h, uint32_t value) {
    if (!canvas || w < 1 || h < 1) return;
    for (int r = 0; r < h; ++r)
        FillRow(canvas, dx, dy + r, value, w);
}

void CanvasCopyLine(uint32_t* canvas, int x1, int y1, int x2, int y2, int srcStride, int srcX,
                    int srcY, const uint32_t* src) {
    if (!canvas || !src) return;
    const uint32_t* from = src + static_cast<ptrdiff_t>(srcY) * srcStride + srcX;
    if (x1 == x2) {
        for (int y = y1; y <= y2; ++y, from += srcStride)
            *CanvasPixel(canvas, x1, y) = *from;
    } else if (y1 == y2 && x1 <= x2) {
        PutRow(canvas, x1, y1, from, x2 - x1 + 1);
    }
}

void CanvasFillLine(uint32_t* canvas, int x1, int y1, int x2, int y2, uint32_t value) {
    if (!canvas) return;
    if (x1 == x2) {
        for (int y = y1; y <= y2; ++y)
            *CanvasPixel(canvas, x1, y) = value;
    } else if (y1 == y2 && x1 <= x2) {
        FillRow(canvas, x1, y1, value, x2 - x1 + 1);
    }
}

void CanvasCopySlantLine(uint32_t* canvas, int x1, int y1, int x2, int y2, int offX, int offY,
                         int srcStride, const uint32_t* src) {
    if (!canvas || !src) return;
    ForSlantRun(x1, y1, x2, y2, [&](int x, int y) {
        *CanvasPixel(canvas, offX + x, offY + y) = src[static_cast<ptrdiff_t>(y) * srcStride + x];
    });
}

void CanvasCopyColumns(uint32_t* canvas, int x, int y, int rows, const int* columns, int count,
                       const uint32_t* block, const uint32_t* next) {
    if (!canvas || !block || !columns) return;
    for (int i = 0; i < count; ++i) {
        const size_t piece = static_cast<size_t>(columns[i]) * static_cast<size_t>(rows);
        if (next) __builtin_prefetch(next + piece);
        const uint32_t* from = block + piece;
        for (int r = 0; r < rows; ++r)
            *CanvasPixel(canvas, x + columns[i], y + r) = from[r];
    }
}

void CanvasFillColumns(uint32_t* canvas, int x, int y, int rows, const int* columns, int count,
                       uint32_t value) {
    if (!canvas || !columns) return;
    for (int i = 0; i < count; ++i)
        for (int r = 0; r < rows; ++r)
            *CanvasPixel(canvas, x + columns[i], y + r) = value;
}

void CanvasFillSlantLine(uint32_t* canvas, int x1, int y1, int x2, int y2, int offX, int offY,
                         uint32_t value) {
    if (!canvas) return;
    ForSlantRun(x1, y1, x2, y2,
                [&](int x, int y) { *CanvasPixel(canvas, offX + x, offY + y) = value; });
}

}  // namespace orv
