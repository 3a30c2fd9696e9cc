#pragma once
// Small ANI32 files for tests of what uses animations, every pixel given by
// a function of its place and frame.

#include <QString>

#include <functional>
#include <vector>

#include "media/ani32_writer.h"

namespace orv::test {

using AniPixel = std::function<uint32_t(int x, int y, int frame)>;

inline bool WriteAnimation(const QString& path, int w, int h, int frames, const AniPixel& pixel) {
    CAni32Writer writer;
    if (!writer.Create(path, frames, w, h)) return false;
    std::vector<uint32_t> block(static_cast<size_t>(w) * h);
    for (int i = 0; i < frames; ++i) {
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                block[static_cast<size_t>(y) * w + x] = pixel(x, y, i);
        if (!writer.WriteFrame(i, block.data())) return false;
    }
    return writer.Finish();
}

}  // namespace orv::test
