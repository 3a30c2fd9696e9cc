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
    std::vector<uint32_t> sums(static_cast<size_t>(span) * 4, 0);
    std::vector<uint32_t> prefix(static_cast<size_t>(span + 1) * 4, 0);
    std::vector<uint32_t> out(static_cast<size_t>(w));
    std::vector<uint32_t> ring(static_cast<size_t>(r + 1) * span);
    auto saved = [&](int y) { return ring.data() + static_cast<size_t>(y % (r + 1)) * span; };
    for (int y = a.top - r; y < a.top + r; ++y)
        Ops::Accumulate(sums.data(), row(y), span, true);
    for (int y = a.top; y < a.bottom; ++y) {
        Ops::Prefix(prefix.data(), sums.data(), span);
        Ops::Output(out.data(), prefix.data(), w, box, a.m, a.s);
        std::copy_n(row(y), span, saved(y));
        std::copy_n(out.data(), w, row(y) + r);
        if (y + 1 == a.bottom) break;
        Ops::Accumulate(sums.data(), row(y + r), span, true);
        const int gone = y - r;
        Ops::Accumulate(sums.data(), gone >= a.top ? saved(gone) : row(gone), span, false);
    }
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
