// Every vector kernel against the scalar reference, on random blocks of odd
// sizes: the bytes must be identical.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "render/pixel_kernels.h"
#include "render/pixels.h"

namespace orv {
namespace {

class KernelsMatchScalar : public testing::TestWithParam<EKernelSet> {
protected:
    void SetUp() override {
        if (GetParam() == EKernelSet::AVX2 && !CpuHasAvx2()) GTEST_SKIP() << "no AVX2 here";
    }
    const UstPixelKernels& Fast() const { return KernelsFor(GetParam()); }
    const UstPixelKernels& Ref() const { return ScalarKernels(); }

    // Alpha 0 and 255 come up often, as they do in real layers.
    std::vector<uint32_t> Random(size_t n) {
        std::vector<uint32_t> v(n);
        for (uint32_t& p : v) {
            p = static_cast<uint32_t>(m_rng());
            const int pick = static_cast<int>(m_rng() % 4);
            if (pick == 0) p &= 0x00FFFFFFu;
            if (pick == 1) p |= 0xFF000000u;
        }
        return v;
    }
    int Between(int lo, int hi) { return lo + static_cast<int>(m_rng() % (hi - lo + 1)); }
    std::mt19937 m_rng{20261121};
};

TEST_P(KernelsMatchScalar, RunsOfPixels) {
    for (int round = 0; round < 60; ++round) {
        const size_t n = static_cast<size_t>(Between(0, 77));
        const std::vector<uint32_t> a = Random(n), b = Random(n);
        auto fast = a, ref = a;
        const uint32_t colour = static_cast<uint32_t>(m_rng());
        Fast().fill(colour, fast.data(), n);
        Ref().fill(colour, ref.data(), n);
        EXPECT_EQ(fast, ref) << "fill " << n;
        fast = a, ref = a;
        Fast().copy(fast.data(), b.data(), n);
        Ref().copy(ref.data(), b.data(), n);
        EXPECT_EQ(fast, ref) << "copy " << n;
        fast = a, ref = a;
        Fast().reverse(fast.data(), n);
        Ref().reverse(ref.data(), n);
        EXPECT_EQ(fast, ref) << "reverse " << n;
        auto fastB = b, refB = b;
        fast = a, ref = a;
        Fast().swapRows(fast.data(), fastB.data(), n);
        Ref().swapRows(ref.data(), refB.data(), n);
        EXPECT_EQ(fast, ref) << "swap " << n;
        EXPECT_EQ(fastB, refB) << "swap " << n;
    }
}

TEST_P(KernelsMatchScalar, BlendAndKey) {
    for (int round = 0; round < 80; ++round) {
        const size_t n = static_cast<size_t>(Between(0, 77));
        const std::vector<uint32_t> a = Random(n), b = Random(n);
        const uint32_t opacity = round % 3 == 0 ? 255 : static_cast<uint32_t>(Between(0, 255));
        auto fast = a, ref = a;
        Fast().blend(fast.data(), b.data(), n, opacity);
        Ref().blend(ref.data(), b.data(), n, opacity);
        EXPECT_EQ(fast, ref) << "blend " << n << " opacity " << opacity;
        // Keys near the pixels' own colours exercise both sides of the threshold.
        const uint32_t key = n ? (a[0] ^ static_cast<uint32_t>(Between(0, 60))) : 0;
        fast = a, ref = a;
        Fast().keyOut(fast.data(), n, key, opacity);
        Ref().keyOut(ref.data(), n, key, opacity);
        EXPECT_EQ(fast, ref) << "key " << n << " opacity " << opacity;
    }
}

TEST_P(KernelsMatchScalar, BoxBlurAtRandomRadii) {
    for (int round = 0; round < 60; ++round) {
        // Three arithmetic ranges: sums in 16 bits (radius up to 8), 32-bit
        // products, wider products (above 32). Bright blocks push every sum
        // to the top of its range.
        const int band = round % 3;
        const int radius = band == 0   ? Between(1, 9)
                           : band == 1 ? Between(10, 32)
                                       : Between(33, 60);
        const int extra = radius > 9 ? 9 : 37;
        const int w = Between(4 * radius + 1, 4 * radius + extra) | 1;
        const int h = Between(4 * radius + 1, 4 * radius + (radius > 9 ? 5 : 23)) | 1;
        std::vector<uint32_t> block = Random(static_cast<size_t>(w) * h);
        if (round % 4 == 3)
            for (uint32_t& px : block)
                px |= round % 8 == 7 ? 0xFFFFFFFFu : 0xF0F0F0F0u;
        const UstReciprocal rec = BoxReciprocal(static_cast<uint32_t>(4 * radius * radius));
        const int l = 2 * radius + Between(0, 2), t = 2 * radius + Between(0, 2);
        UstBlurArea area{nullptr, w, l, t, w - 2 * radius, h - 2 * radius, radius, rec.m, rec.s};
        if (area.right <= area.left || area.bottom <= area.top) continue;
        auto fast = block, ref = block;
        area.bits = fast.data();
        Fast().boxBlur(area);
        area.bits = ref.data();
        Ref().boxBlur(area);
        EXPECT_EQ(fast, ref) << "blur " << w << "x" << h << " radius " << radius;
        if (round % 8 == 7) {  // a box of 255s has the mean 255 whatever its size
            EXPECT_EQ(fast[static_cast<size_t>(area.top) * w + area.left], 0xFFFFFFFFu);
        }
    }
}

TEST_P(KernelsMatchScalar, BilinearScale) {
    for (int round = 0; round < 40; ++round) {
        const int sw = Between(1, 41), sh = Between(1, 19), dw = Between(1, 53),
                  dh = Between(1, 23);
        const std::vector<uint32_t> src = Random(static_cast<size_t>(sw) * sh);
        std::vector<uint32_t> fast(static_cast<size_t>(dw) * dh, 1), ref = fast;
        Fast().scaleBilinear({fast.data(), dw, dh, src.data(), sw, sh});
        Ref().scaleBilinear({ref.data(), dw, dh, src.data(), sw, sh});
        EXPECT_EQ(fast, ref) << sw << "x" << sh << " to " << dw << "x" << dh;
    }
}

INSTANTIATE_TEST_SUITE_P(Sets, KernelsMatchScalar,
                         testing::Values(EKernelSet::SSE2, EKernelSet::AVX2), [](const auto& info) {
                             return info.param == EKernelSet::SSE2 ? "SSE2" : "AVX2";
                         });

}  // namespace
}  // namespace orv
