#include "render/pixels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orv {

void FillPixels(uint32_t colour, uint32_t* dst, int width, int height) {
    if (!dst || width <= 0 || height <= 0) return;
    std::fill_n(dst, static_cast<size_t>(width) * static_cast<size_t>(height), colour);
}

void ClearPixels(uint32_t* dst, int width, int height) {
    FillPixels(0, dst, width, height);
}

void DrawCheckerPixels(uint32_t* dst, int width, int height, int cell) {
    constexpr uint32_t LIGHT = 0xFFE0E0E0u;
    constexpr uint32_t DARK = 0xFFA0A0A0u;
    if (!dst || width <= 0 || height <= 0 || cell <= 0) return;
    bool rowFlag = true;
    for (int y = 0; y < height; ++y) {
        if (y > 0 && y % cell == 0) rowFlag = !rowFlag;
        uint32_t* row = dst + static_cast<size_t>(y) * static_cast<size_t>(width);
        bool cellFlag = rowFlag;
        for (int x = 0; x < width; ++x) {
            if (x > 0 && x % cell == 0) cellFlag = !cellFlag;
            row[x] = cellFlag ? LIGHT : DARK;
        }
    }
}

int RoundToInt(float value) {
    float r = std::floor(std::fabs(value) + 0.5f);
    return static_cast<int>(value < 0.0f ? -r : r);
}

}  // namespace orv
