// SSE2 kernels: four pixels per step, the scalar reference for the rest.
#include <emmintrin.h>

#include <algorithm>

#include "render/box_blur_driver.h"
#include "render/pixel_kernels.h"

namespace orv {

namespace {

inline __m128i Load(const uint32_t* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
inline void Store(uint32_t* p, __m128i v) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v);
}
inline __m128i Select(__m128i mask, __m128i yes, __m128i no) {
    return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
}
// Exact x / 255 for 16-bit lanes up to 65535.
inline __m128i Div255x16(__m128i x) {
    const __m128i one = _mm_set1_epi16(1);
    return _mm_srli_epi16(_mm_add_epi16(_mm_add_epi16(x, one), _mm_srli_epi16(x, 8)), 8);
}
inline __m128i AlphaWords(__m128i px16) {
    return _mm_shufflehi_epi16(_mm_shufflelo_epi16(px16, 0xFF), 0xFF);
}

void Fill(uint32_t colour, uint32_t* dst, size_t count) {
    const __m128i v = _mm_set1_epi32(static_cast<int>(colour));
    size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        Store(dst + i, v);
        Store(dst + i + 4, v);
    }
    for (; i < count; ++i)
        dst[i] = colour;
}

void Copy(uint32_t* dst, const uint32_t* src, size_t count) {
    size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i a = Load(src + i), b = Load(src + i + 4);
        Store(dst + i, a);
        Store(dst + i + 4, b);
    }
    for (; i < count; ++i)
        dst[i] = src[i];
}

void Reverse(uint32_t* p, size_t count) {
    size_t i = 0, j = count;
    for (; i + 8 <= j; i += 4, j -= 4) {
        const __m128i front = _mm_shuffle_epi32(Load(p + i), 0x1B);
        const __m128i back = _mm_shuffle_epi32(Load(p + j - 4), 0x1B);
        Store(p + i, back);
        Store(p + j - 4, front);
    }
    ScalarKernels().reverse(p + i, j - i);
}

void SwapRows(uint32_t* a, uint32_t* b, size_t count) {
    size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i x = Load(a + i), y = Load(b + i);
        Store(a + i, y);
        Store(b + i, x);
    }
    ScalarKernels().swapRows(a + i, b + i, count - i);
}

// Two pixels as 16-bit words: the blend of each channel, alpha by its own rule.
__m128i BlendHalf(__m128i d, __m128i s, __m128i o) {
    const __m128i zero = _mm_setzero_si128(), c255 = _mm_set1_epi16(255);
    const __m128i alphaLanes = _mm_set_epi16(-1, 0, 0, 0, -1, 0, 0, 0);
    const __m128i a = Div255x16(_mm_mullo_epi16(AlphaWords(s), o));
    const __m128i n = _mm_sub_epi16(c255, a);
    const __m128i colour = Div255x16(_mm_add_epi16(_mm_mullo_epi16(d, n), _mm_mullo_epi16(s, a)));
    const __m128i alpha =
        _mm_sub_epi16(c255, Div255x16(_mm_mullo_epi16(_mm_sub_epi16(c255, d), n)));
    const __m128i mixed = Select(alphaLanes, alpha, colour);
    const __m128i bare = _mm_cmpeq_epi16(AlphaWords(d), zero);
    const __m128i special = _mm_andnot_si128(_mm_cmpeq_epi16(a, zero), bare);
    return Select(special, Select(alphaLanes, a, s), mixed);
}

void Blend(uint32_t* dst, const uint32_t* src, size_t count, uint32_t opacity) {
    const __m128i zero = _mm_setzero_si128(), o = _mm_set1_epi16(static_cast<short>(opacity));
    size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i d = Load(dst + i), s = Load(src + i);
        const __m128i lo = BlendHalf(_mm_unpacklo_epi8(d, zero), _mm_unpacklo_epi8(s, zero), o);
        const __m128i hi = BlendHalf(_mm_unpackhi_epi8(d, zero), _mm_unpackhi_epi8(s, zero), o);
        Store(dst + i, _mm_packus_epi16(lo, hi));
    }
    ScalarKernels().blend(dst + i, src + i, count - i, opacity);
}

void KeyOut(uint32_t* p, size_t count, uint32_t key, uint32_t opacity) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i key16 =
        _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(key & 0xFFFFFFu)), zero);
    const __m128i rgb = _mm_set_epi16(0, -1, -1, -1, 0, -1, -1, -1);
    const __m128i o = _mm_set1_epi32(static_cast<int>(opacity));
    const __m128i threshold = _mm_set1_epi32(static_cast<int>(KEY_KEEP_FROM - 1));
    const __m128i colourMask = _mm_set1_epi32(0x00FFFFFF);
    size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i v = Load(p + i);
        const __m128i dl = _mm_and_si128(_mm_sub_epi16(_mm_unpacklo_epi8(v, zero), key16), rgb);
        const __m128i dh = _mm_and_si128(_mm_sub_epi16(_mm_unpackhi_epi8(v, zero), key16), rgb);
        const __m128 ql = _mm_castsi128_ps(_mm_madd_epi16(dl, dl));
        const __m128 qh = _mm_castsi128_ps(_mm_madd_epi16(dh, dh));
        const __m128i sum = _mm_add_epi32(_mm_castps_si128(_mm_shuffle_ps(ql, qh, 0x88)),
                                          _mm_castps_si128(_mm_shuffle_ps(ql, qh, 0xDD)));
        const __m128i keep = _mm_cmpgt_epi32(sum, threshold);
        const __m128i x = _mm_madd_epi16(_mm_srli_epi32(v, 24), o);
        const __m128i scaled = _mm_srli_epi32(
            _mm_add_epi32(_mm_add_epi32(x, _mm_set1_epi32(1)), _mm_srli_epi32(x, 8)), 8);
        const __m128i alpha = _mm_slli_epi32(_mm_and_si128(keep, scaled), 24);
        Store(p + i, _mm_or_si128(_mm_and_si128(v, colourMask), alpha));
    }
    ScalarKernels().keyOut(p + i, count - i, key, opacity);
}

struct Sse2BlurOps {
    static void Update(uint16_t* sums, const uint32_t* add, const uint32_t* sub, int n) {
        const __m128i zero = _mm_setzero_si128();
        int i = 0;
        for (; i + 2 <= n; i += 2) {
            auto widen = [&](const uint32_t* p) {
                return _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)),
                                         zero);
            };
            auto* at = reinterpret_cast<__m128i*>(sums + 4 * i);
            __m128i v = _mm_add_epi16(_mm_loadu_si128(at), widen(add + i));
            if (sub) v = _mm_sub_epi16(v, widen(sub + i));
            _mm_storeu_si128(at, v);
        }
        UpdateTail(sums, add, sub, i, n);
    }
    static void Prefix(uint32_t* prefix, const uint16_t* sums, int n) {
        const __m128i zero = _mm_setzero_si128();
        __m128i run = zero;
        Store(prefix, run);
        for (int i = 0; i < n; ++i) {
            const __m128i c = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(sums + 4 * i));
            run = _mm_add_epi32(run, _mm_unpacklo_epi16(c, zero));
            Store(prefix + 4 * (i + 1), run);
        }
    }
    static void Output(uint32_t* out, const uint32_t* prefix, int w, int box, uint32_t m, int s) {
        const __m128i mv = _mm_set1_epi32(static_cast<int>(m)), shift = _mm_cvtsi32_si128(s);
        const __m128i low = _mm_set_epi32(0, -1, 0, -1), zero = _mm_setzero_si128();
        for (int j = 0; j < w; ++j) {
            const __m128i sum = _mm_sub_epi32(Load(prefix + 4 * (j + box)), Load(prefix + 4 * j));
            const __m128i even = _mm_srl_epi64(_mm_mul_epu32(sum, mv), shift);
            const __m128i odd = _mm_srl_epi64(_mm_mul_epu32(_mm_srli_epi64(sum, 32), mv), shift);
            const __m128i v = _mm_or_si128(_mm_and_si128(even, low), _mm_slli_epi64(odd, 32));
            const __m128i w16 = _mm_packs_epi32(v, zero);
            out[j] = static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(w16, zero)));
        }
    }
};

struct Sse2ScaleOps {
    static uint32_t Pixel(uint32_t a, uint32_t b, uint32_t c, uint32_t d, double fx, double fy) {
        const __m128i zero = _mm_setzero_si128();
        auto widen = [&](uint32_t p, __m128d& lo, __m128d& hi) {
            const __m128i w = _mm_unpacklo_epi16(
                _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(p)), zero), zero);
            lo = _mm_cvtepi32_pd(w);
            hi = _mm_cvtepi32_pd(_mm_shuffle_epi32(w, 0x0E));
        };
        __m128d p00[2], p10[2], p01[2], p11[2];
        widen(a, p00[0], p00[1]);
        widen(b, p10[0], p10[1]);
        widen(c, p01[0], p01[1]);
        widen(d, p11[0], p11[1]);
        const __m128d gx = _mm_set1_pd(1.0 - fx), vx = _mm_set1_pd(fx);
        const __m128d gy = _mm_set1_pd(1.0 - fy), vy = _mm_set1_pd(fy), half = _mm_set1_pd(0.5);
        __m128i parts[2];
        for (int k = 0; k < 2; ++k) {
            const __m128d top = _mm_add_pd(_mm_mul_pd(p00[k], gx), _mm_mul_pd(p10[k], vx));
            const __m128d bottom = _mm_add_pd(_mm_mul_pd(p01[k], gx), _mm_mul_pd(p11[k], vx));
            const __m128d v = _mm_add_pd(_mm_mul_pd(top, gy), _mm_mul_pd(bottom, vy));
            parts[k] = _mm_cvttpd_epi32(_mm_add_pd(v, half));
        }
        const __m128i all = _mm_unpacklo_epi64(parts[0], parts[1]);
        const __m128i w16 = _mm_packs_epi32(all, zero);
        return static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(w16, zero)));
    }
};

void BoxBlur(const UstBlurArea& a) {
    RunningBoxBlur<Sse2BlurOps>(a);
}
void ScaleBilinear(const UstScaleJob& job) {
    ScaleWithPlan<Sse2ScaleOps>(job);
}

}  // namespace

const UstPixelKernels& Sse2Kernels() {
    static const UstPixelKernels k{"sse2", Fill,   Copy,    Reverse,      SwapRows,
                                   Blend,  KeyOut, BoxBlur, ScaleBilinear};
    return k;
}

}  // namespace orv
