// The scalar reference kernels: the plain statement of each operation, which
// the vector kernels must match byte for byte.
#include <algorithm>
#include <vector>

#include "render/pixel_kernels.h"
#include "render/scale_plan.h"

namespace orv {

namespace {

void Fill(uint32_t colour, uint32_t* dst, size_t count) {
    for (size_t i = 0; i < count; ++i)
        dst[i] = colour;
}

void Copy(uint32_t* dst, const uint32_t* src, size_t count) {
    for (size_t i = 0; i < count; ++i)
        dst[i] = src[i];
}

void Reverse(uint32_t* p, size_t count) {
    for (size_t i = 0, j = count; i + 1 < j; ++i, --j)
        std::swap(p[i], p[j - 1]);
}

void SwapRows(uint32_t* a, uint32_t* b, size_t count) {
    for (size_t i = 0; i < count; ++i)
        std::swap(a[i], b[i]);
}

void Blend(uint32_t* dst, const uint32_t* src, size_t count, uint32_t opacity) {
    for (size_t i = 0; i < count; ++i)
        dst[i] = BlendOne(dst[i], src[i], opacity);
}

void KeyOut(uint32_t* p, size_t count, uint32_t key, uint32_t opacity) {
    for (size_t i = 0; i < count; ++i)
        p[i] = KeyOne(p[i], key, opacity);
}

// Every box summed afresh from a copy of the block as it stood.
void BoxBlur(const UstBlurArea& a) {
    const int r = a.radius;
    const int x0 = a.left - r, y0 = a.top - r;
    const int w = a.right - a.left + 2 * r, h = a.bottom - a.top + 2 * r;
    std::vector<uint32_t> band(static_cast<size_t>(w) * h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            band[static_cast<size_t>(y) * w + x] =
                a.bits[static_cast<size_t>(y0 + y) * a.blockWidth + x0 + x];
    for (int y = a.top; y < a.bottom; ++y) {
        for (int x = a.left; x < a.right; ++x) {
            uint64_t sum[4] = {0, 0, 0, 0};
            for (int by = y - r; by < y + r; ++by)
                for (int bx = x - r; bx < x + r; ++bx) {
                    const uint32_t p = band[static_cast<size_t>(by - y0) * w + (bx - x0)];
                    for (int c = 0; c < 4; ++c)
                        sum[c] += (p >> (8 * c)) & 255;
                }
            uint32_t out = 0;
            for (int c = 0; c < 4; ++c)
                out |= static_cast<uint32_t>((sum[c] * a.m) >> a.s) << (8 * c);
            a.bits[static_cast<size_t>(y) * a.blockWidth + x] = out;
        }
    }
}

void ScaleBilinear(const UstScaleJob& job) {
    const auto cols = PlanScaleAxis(job.dw, job.sw), rows = PlanScaleAxis(job.dh, job.sh);
    for (int y = 0; y < job.dh; ++y) {
        const UstScaleTap& ty = rows[static_cast<size_t>(y)];
        const uint32_t* r0 = job.src + static_cast<size_t>(ty.i0) * job.sw;
        const uint32_t* r1 = job.src + static_cast<size_t>(ty.i1) * job.sw;
        for (int x = 0; x < job.dw; ++x) {
            const UstScaleTap& tx = cols[static_cast<size_t>(x)];
            uint32_t out = 0;
            for (int c = 0; c < 32; c += 8) {
                const double p00 = (r0[tx.i0] >> c) & 255, p10 = (r0[tx.i1] >> c) & 255;
                const double p01 = (r1[tx.i0] >> c) & 255, p11 = (r1[tx.i1] >> c) & 255;
                const double top = p00 * (1.0 - tx.f) + p10 * tx.f;
                const double bottom = p01 * (1.0 - tx.f) + p11 * tx.f;
                const double v = top * (1.0 - ty.f) + bottom * ty.f;
                out |= static_cast<uint32_t>(static_cast<int>(v + 0.5)) << c;
            }
            job.dst[static_cast<size_t>(y) * job.dw + x] = out;
        }
    }
}

}  // namespace

const UstPixelKernels& ScalarKernels() {
    static const UstPixelKernels k{"scalar", Fill,   Copy,    Reverse,      SwapRows,
                                   Blend,    KeyOut, BoxBlur, ScaleBilinear};
    return k;
}

}  // namespace orv
