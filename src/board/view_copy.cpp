// The copies of the view into an output frame, once a frame on the playout
// thread. Each row is at most two memcpy calls, one on each side of the
// canvas's column wrap, and the rows come in two runs, before and after its
// row wrap.
#include <algorithm>
#include <cstring>

#include "board/canvas.h"

namespace orv {

namespace {

void CopyViewRow(uint32_t* dst, const UstView& v, int canvasRow) {
    const uint32_t* row = v.canvas + (static_cast<size_t>(canvasRow & CANVAS_MASK) << 12);
    const int x = v.nOriginX & CANVAS_MASK;
    const int first = std::min(v.nWidth, CANVAS_SIZE - x);
    std::memcpy(dst, row + x, static_cast<size_t>(first) * 4);
    if (first < v.nWidth) std::memcpy(dst + first, row, static_cast<size_t>(v.nWidth - first) * 4);
}

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

}  // namespace

void CopyFrame(uint32_t* dst, const UstView& view) {
    if (!view.canvas || view.nWidth < 1) return;
    const size_t stride = static_cast<size_t>(view.nWidth);
    ForViewRows(view, [&](int frameRow, int canvasRow, int) {
        CopyViewRow(dst + frameRow * stride, view, canvasRow);
    });
}

void CopyField(uint32_t* dst, const UstView& view, int selector) {
    if (!view.canvas || view.nWidth < 1) return;
    const size_t stride = static_cast<size_t>(view.nWidth);
    ForViewRows(view, [&](int frameRow, int canvasRow, int count) {
        if ((count & 1) != selector) CopyViewRow(dst + frameRow * stride, view, canvasRow);
    });
}

void CopyHeld(uint32_t* dst, const uint32_t* held, int width, int height, int parity) {
    if (!held || width < 1) return;
    const size_t stride = static_cast<size_t>(width);
    for (int row = 0; row < height; ++row)
        if (((height - 1 - row) & 1) == parity)
            std::memcpy(dst + row * stride, held + row * stride, stride * 4);
}

void ScaleFrameByLevel(uint32_t* frame, size_t pixels, int level) {
    if (level >= 255) return;
    const uint32_t l = static_cast<uint32_t>(std::max(level, 0));
    auto* bytes = reinterpret_cast<uint8_t*>(frame);
    for (size_t i = 0; i < pixels * 4; ++i)
        bytes[i] = static_cast<uint8_t>((bytes[i] * l + 127) / 255);
}

}  // namespace orv
