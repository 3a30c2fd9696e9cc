#pragma once
// Where each destination pixel of a bilinear scale samples its source: the
// destination pixel's centre mapped into the source, clamped at the edges.

#include <algorithm>
#include <cmath>
#include <vector>

namespace orv {

struct UstScaleTap {
    int i0, i1;  // the two source indices
    double f;    // weight of i1
};

inline std::vector<UstScaleTap> PlanScaleAxis(int dstExtent, int srcExtent) {
    std::vector<UstScaleTap> taps(static_cast<size_t>(dstExtent));
    const double ratio = static_cast<double>(srcExtent) / dstExtent;
    for (int i = 0; i < dstExtent; ++i) {
        double pos = (i + 0.5) * ratio - 0.5;
        pos = std::clamp(pos, 0.0, static_cast<double>(srcExtent - 1));
        const int i0 = static_cast<int>(std::floor(pos));
        taps[static_cast<size_t>(i)] = {i0, std::min(i0 + 1, srcExtent - 1), pos - i0};
    }
    return taps;
}

}  // namespace orv
