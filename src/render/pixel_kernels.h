#pragma once
// The inner loops of the pixel operations, in three sets with identical
// results: a plain scalar reference, SSE2 (every x86-64 processor) and AVX2.
// The public operations in pixels.h pick one set once, at first use.

#include <cstddef>
#include <cstdint>

namespace orv {

struct UstBlurArea {
    uint32_t* bits;
    int blockWidth;
    int left, top, right, bottom;  // the region that receives results
    int radius;
    uint32_t m;  // fixed-point reciprocal of the box area
    int s;
};

struct UstScaleJob {
    uint32_t* dst;
    int dw, dh;
    const uint32_t* src;
    int sw, sh;
};

struct UstPixelKernels {
    const char* name;
    void (*fill)(uint32_t colour, uint32_t* dst, size_t count);
    void (*copy)(uint32_t* dst, const uint32_t* src, size_t count);
    void (*reverse)(uint32_t* pixels, size_t count);  // mirrors a run in place
    void (*swapRows)(uint32_t* a, uint32_t* b, size_t count);
    // The blend of one run of pixels; opacity 255 is the plain blend.
    void (*blend)(uint32_t* dst, const uint32_t* src, size_t count, uint32_t opacity);
    void (*keyOut)(uint32_t* pixels, size_t count, uint32_t key, uint32_t opacity);
    void (*boxBlur)(const UstBlurArea& area);
    void (*scaleBilinear)(const UstScaleJob& job);
};

enum class EKernelSet { SCALAR, SSE2, AVX2 };

const UstPixelKernels& ScalarKernels();
const UstPixelKernels& Sse2Kernels();
const UstPixelKernels& Avx2Kernels();

bool CpuHasAvx2();
// The set in use: the best the processor offers, unless ORVANTIS_PIXEL_KERNELS
// names scalar, sse2 or avx2.
const UstPixelKernels& ActiveKernels();
const UstPixelKernels& KernelsFor(EKernelSet set);

// Shared arithmetic, exact for the ranges the operations meet.
inline uint32_t Div255(uint32_t x) {
    return (x + 1 + (x >> 8)) >> 8;
}  // x <= 65535

inline uint32_t BlendOne(uint32_t d, uint32_t s, uint32_t opacity) {
    const uint32_t sa = s >> 24;
    if (sa == 0) return d;
    const uint32_t a = opacity * sa / 255;
    if (a == 0) return d;
    const uint32_t da = d >> 24;
    if (da == 0) return (s & 0x00FFFFFFu) | (a << 24);
    const uint32_t n = 255 - a;
    uint32_t out = (255 - ((255 - da) * n) / 255) << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        const uint32_t dc = (d >> shift) & 255, sc = (s >> shift) & 255;
        out |= ((dc * n + sc * a) / 255) << shift;
    }
    return out;
}

// floor(sqrt(distance^2)) > 100 exactly when the squared distance reaches 101^2.
constexpr uint32_t KEY_KEEP_FROM = 101 * 101;

inline uint32_t KeyOne(uint32_t p, uint32_t key, uint32_t opacity) {
    int sum = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int d = static_cast<int>((p >> shift) & 255) - static_cast<int>((key >> shift) & 255);
        sum += d * d;
    }
    const uint32_t alpha =
        static_cast<uint32_t>(sum) >= KEY_KEEP_FROM ? (p >> 24) * opacity / 255 : 0;
    return (p & 0x00FFFFFFu) | (alpha << 24);
}

}  // namespace orv
