#pragma once
// The box blur with running sums, whatever the radius: column sums move down
// one row at a time, and a prefix sum along each row gives every box as one
// difference. Rows that already hold results are read from a small ring of
// their original pixels, so the blur sees the block as it stood.
//
// Ops supplies the vector loops: Accumulate (add or subtract a run of pixels
// into per-channel 32-bit sums), Prefix (running sums of those) and Output
// (a box's sum times the reciprocal, packed back into pixels).

#include <algorithm>
#include <cstdint>
#include <vector>

#include "render/pixel_kernels.h"
#include "render/scale_plan.h"

namespace orv {

template <class Ops>
void RunningBoxBlur(const UstBlurArea& a) {
    const int r = a.radius, box = 2 * r;
    const int spanLeft = a.left - r, span = a.right - a.left + box, w = a.right - a.left;
    const size_t stride = static_cast<size_t>(a.blockWidth);
    auto row = [&](int y) { return a.bits + static_cast<size_t>(y) * stride + spanLeft; };
    // A column of 2r rows sums to at most 255 * 120: 16 bits per channel hold it.
    std::vector<uint16_t> sums(static_cast<size_t>(span) * 4 + 16, 0);
    std::vector<uint32_t> prefix(static_cast<size_t>(span + 1) * 4 + 16, 0);
    std::vector<uint32_t> ring(static_cast<size_t>(r + 1) * span);
    auto saved = [&](int y) { return ring.data() + static_cast<size_t>(y % (r + 1)) * span; };
    for (int y = a.top - r; y < a.top + r; ++y)
        Ops::Update(sums.data(), row(y), nullptr, span);
    for (int y = a.top; y < a.bottom; ++y) {
        Ops::Prefix(prefix.data(), sums.data(), span);
        std::copy_n(row(y), span, saved(y));
        Ops::Output(row(y) + r, prefix.data(), w, box, a.m, a.s);
        if (y + 1 == a.bottom) break;
        const int gone = y - r;
        Ops::Update(sums.data(), row(y + r), gone >= a.top ? saved(gone) : row(gone), span);
    }
}

// Scalar pieces shared by the vector Ops for the ends of their runs.
inline void UpdateTail(uint16_t* sums, const uint32_t* add, const uint32_t* sub, int from, int n) {
    for (int i = from; i < n; ++i)
        for (int c = 0; c < 4; ++c) {
            const uint32_t in = (add[i] >> (8 * c)) & 255;
            const uint32_t outv = sub ? (sub[i] >> (8 * c)) & 255 : 0;
            sums[4 * i + c] = static_cast<uint16_t>(sums[4 * i + c] + in - outv);
        }
}

// True when every box sum times the reciprocal stays below 2^32.
inline bool ProductFits32(int box, uint32_t m) {
    return 255ull * static_cast<uint64_t>(box) * static_cast<uint64_t>(box) * m < (1ull << 32);
}

// Bilinear scaling with the same taps and the same double arithmetic as the
// scalar reference; Ops::Pixel mixes one pixel's four channels.
template <class Ops>
void ScaleWithPlan(const UstScaleJob& job) {
    const auto cols = PlanScaleAxis(job.dw, job.sw), rows = PlanScaleAxis(job.dh, job.sh);
    for (int y = 0; y < job.dh; ++y) {
        const UstScaleTap& ty = rows[static_cast<size_t>(y)];
        const uint32_t* r0 = job.src + static_cast<size_t>(ty.i0) * job.sw;
        const uint32_t* r1 = job.src + static_cast<size_t>(ty.i1) * job.sw;
        uint32_t* d = job.dst + static_cast<size_t>(y) * job.dw;
        for (int x = 0; x < job.dw; ++x) {
            const UstScaleTap& tx = cols[static_cast<size_t>(x)];
            d[x] = Ops::Pixel(r0[tx.i0], r0[tx.i1], r1[tx.i0], r1[tx.i1], tx.f, ty.f);
        }
    }
}

}  // namespace orv
