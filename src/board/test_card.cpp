#include "board/test_card.h"

#include <algorithm>

namespace orv {

std::vector<uint32_t> MakeTestCard(int width, int height) {
    static const uint32_t BARS[] = {0xFFBFBFBF, 0xFFBFBF00, 0xFF00BFBF, 0xFF00BF00,
                                    0xFFBF00BF, 0xFFBF0000, 0xFF0000BF};
    std::vector<uint32_t> card(static_cast<size_t>(std::max(width, 0)) * std::max(height, 0));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const uint32_t a = static_cast<uint32_t>(x * 255 / std::max(1, width - 1));
            card[static_cast<size_t>(y) * width + x] =
                y < height * 2 / 3 ? BARS[x * 7 / width] : a << 24 | a << 16 | a << 8 | a;
        }
    return card;
}

}  // namespace orv
