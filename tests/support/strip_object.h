#pragma once
// A stand-in object for roll and crawl tests: over its box every page pixel
// has its own value, worked out from the pixel's page row and column, so a
// row that reaches air from the wrong strip, buffer or offset shows. A hook
// sees every strip drawn, on the thread that draws it.

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <functional>

#include "objects/qrd_object.h"

namespace orv::test {

// The value of page pixel (x, y): rows and columns up to 4095 stay distinct.
inline uint32_t PagePixel(int x, int y) {
    return 0xFF000000u | (static_cast<uint32_t>(y & 0xFFF) << 12) |
           static_cast<uint32_t>(x & 0xFFF);
}

class CStripObject : public CQRDObject {
public:
    explicit CStripObject(UstRect stored) { m_rcStored = stored; }
    int GetType() const override { return OBJ_SHAPE; }
    void ResetLive(int32_t, int32_t) override {
        ++nResets;
        bLive = false;
    }
    void FreeLive() override {
        ++nFrees;
        bLive = false;
    }
    void PrepareScrollImage(int32_t, int32_t) override { bLive = true; }
    void DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                  int bottom) override {
        if (onStrip) onStrip(left, top);
        if (!bLive) return;
        const int x0 = std::max(left, m_rcStored.left), x1 = std::min(right, m_rcStored.right);
        const int y0 = std::max(top, m_rcStored.top), y1 = std::min(bottom, m_rcStored.bottom);
        for (int y = y0; y < y1 && y - top < height; ++y)
            for (int x = x0; x < x1 && x - left < width; ++x)
                bits[static_cast<size_t>(y - top) * width + (x - left)] = PagePixel(x, y);
    }

    std::atomic<int> nResets{0}, nFrees{0};
    std::atomic<bool> bLive{false};
    std::function<void(int left, int top)> onStrip;
};

}  // namespace orv::test
