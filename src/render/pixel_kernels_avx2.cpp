// AVX2 kernels: eight pixels per step, only called after the processor has
// said it has AVX2.
#include <immintrin.h>

#include <cstring>

#include "render/box_blur_driver.h"
#include "render/pixel_kernels.h"

// Only what is defined below is built for AVX2: the shared templates above
// (containers, the drivers) stay plain, so that the linker can never pick an
// AVX2 copy of them for code that runs on any processor.
#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC target("avx2")
#endif

namespace orv {

namespace {

inline __m256i Load(const uint32_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}
inline void Store(uint32_t* p, __m256i v) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
}
inline __m256i Select(__m256i mask, __m256i yes, __m256i no) {
    return _mm256_blendv_epi8(no, yes, mask);
}
inline __m256i Div255x16(__m256i x) {
    const __m256i one = _mm256_set1_epi16(1);
    return _mm256_srli_epi16(_mm256_add_epi16(_mm256_add_epi16(x, one), _mm256_srli_epi16(x, 8)),
                             8);
}
inline __m256i AlphaWords(__m256i px16) {
    return _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(px16, 0xFF), 0xFF);
}

void Fill(uint32_t colour, uint32_t* dst, size_t count) {
    const __m256i v = _mm256_set1_epi32(static_cast<int>(colour));
    size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        Store(dst + i, v);
        Store(dst + i + 8, v);
    }
    Sse2Kernels().fill(colour, dst + i, count - i);
}

void Copy(uint32_t* dst, const uint32_t* src, size_t count) {
    size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        const __m256i a = Load(src + i), b = Load(src + i + 8);
        Store(dst + i, a);
        Store(dst + i + 8, b);
    }
    Sse2Kernels().copy(dst + i, src + i, count - i);
}

void Reverse(uint32_t* p, size_t count) {
    const __m256i backwards = _mm256_set_epi32(0, 1, 2, 3, 4, 5, 6, 7);
    size_t i = 0, j = count;
    for (; i + 16 <= j; i += 8, j -= 8) {
        const __m256i front = _mm256_permutevar8x32_epi32(Load(p + i), backwards);
        const __m256i back = _mm256_permutevar8x32_epi32(Load(p + j - 8), backwards);
        Store(p + i, back);
        Store(p + j - 8, front);
    }
    Sse2Kernels().reverse(p + i, j - i);
}

void SwapRows(uint32_t* a, uint32_t* b, size_t count) {
    size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m256i x = Load(a + i), y = Load(b + i);
        Store(a + i, y);
        Store(b + i, x);
    }
    Sse2Kernels().swapRows(a + i, b + i, count - i);
}

__m256i BlendHalf(__m256i d, __m256i s, __m256i o) {
    const __m256i zero = _mm256_setzero_si256(), c255 = _mm256_set1_epi16(255);
    const __m256i alphaLanes = _mm256_set_epi16(-1, 0, 0, 0, -1, 0, 0, 0, -1, 0, 0, 0, -1, 0, 0, 0);
    const __m256i a = Div255x16(_mm256_mullo_epi16(AlphaWords(s), o));
    const __m256i n = _mm256_sub_epi16(c255, a);
    const __m256i colour =
        Div255x16(_mm256_add_epi16(_mm256_mullo_epi16(d, n), _mm256_mullo_epi16(s, a)));
    const __m256i alpha =
        _mm256_sub_epi16(c255, Div255x16(_mm256_mullo_epi16(_mm256_sub_epi16(c255, d), n)));
    const __m256i mixed = Select(alphaLanes, alpha, colour);
    const __m256i bare = _mm256_cmpeq_epi16(AlphaWords(d), zero);
    const __m256i special = _mm256_andnot_si256(_mm256_cmpeq_epi16(a, zero), bare);
    return Select(special, Select(alphaLanes, a, s), mixed);
}

// The plain blend, every channel by one formula: with the destination's alpha
// byte inverted and the source's cleared beforehand, (d * n + s * a) / 255
// gives 255 minus the result's alpha in the alpha lane, inverted back after.
void BlendOpaque(uint32_t* dst, const uint32_t* src, size_t count) {
    const __m256i zero = _mm256_setzero_si256(), alphaMask = _mm256_set1_epi32(-16777216);
    const __m256i c255 = _mm256_set1_epi16(255), by255 = _mm256_set1_epi16(-32639);  // 0x8081
    const __m256i pickLo = _mm256_setr_epi8(3, -1, 3, -1, 3, -1, 3, -1, 7, -1, 7, -1, 7, -1, 7, -1,
                                            3, -1, 3, -1, 3, -1, 3, -1, 7, -1, 7, -1, 7, -1, 7, -1);
    const __m256i pickHi = _mm256_add_epi8(pickLo, _mm256_set1_epi16(8));
    size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m256i s = Load(src + i);
        const __m256i sAlpha = _mm256_and_si256(s, alphaMask);
        const __m256i bare = _mm256_cmpeq_epi32(sAlpha, zero);
        if (_mm256_movemask_epi8(bare) == -1) continue;
        if (_mm256_movemask_epi8(_mm256_cmpeq_epi32(sAlpha, alphaMask)) == -1) {
            Store(dst + i, s);
            continue;
        }
        const __m256i d = Load(dst + i);
        const __m256i di = _mm256_xor_si256(d, alphaMask), sc = _mm256_andnot_si256(alphaMask, s);
        auto half = [&](__m256i dw, __m256i sw, __m256i a) {
            const __m256i n = _mm256_sub_epi16(c255, a);
            const __m256i x =
                _mm256_add_epi16(_mm256_mullo_epi16(dw, n), _mm256_mullo_epi16(sw, a));
            return _mm256_srli_epi16(_mm256_mulhi_epu16(x, by255), 7);
        };
        const __m256i lo = half(_mm256_unpacklo_epi8(di, zero), _mm256_unpacklo_epi8(sc, zero),
                                _mm256_shuffle_epi8(s, pickLo));
        const __m256i hi = half(_mm256_unpackhi_epi8(di, zero), _mm256_unpackhi_epi8(sc, zero),
                                _mm256_shuffle_epi8(s, pickHi));
        const __m256i mixed = _mm256_xor_si256(_mm256_packus_epi16(lo, hi), alphaMask);
        const __m256i onto = _mm256_cmpeq_epi32(_mm256_and_si256(d, alphaMask), zero);
        Store(dst + i, _mm256_blendv_epi8(mixed, s, _mm256_andnot_si256(bare, onto)));
    }
    Sse2Kernels().blend(dst + i, src + i, count - i, 255);
}

void Blend(uint32_t* dst, const uint32_t* src, size_t count, uint32_t opacity) {
    if (opacity == 255) return BlendOpaque(dst, src, count);
    const __m256i zero = _mm256_setzero_si256();
    const __m256i o = _mm256_set1_epi16(static_cast<short>(opacity));
    size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m256i d = Load(dst + i), s = Load(src + i);
        const __m256i lo =
            BlendHalf(_mm256_unpacklo_epi8(d, zero), _mm256_unpacklo_epi8(s, zero), o);
        const __m256i hi =
            BlendHalf(_mm256_unpackhi_epi8(d, zero), _mm256_unpackhi_epi8(s, zero), o);
        Store(dst + i, _mm256_packus_epi16(lo, hi));
    }
    Sse2Kernels().blend(dst + i, src + i, count - i, opacity);
}

void KeyOut(uint32_t* p, size_t count, uint32_t key, uint32_t opacity) {
    const __m256i zero = _mm256_setzero_si256();
    const __m256i key16 =
        _mm256_unpacklo_epi8(_mm256_set1_epi32(static_cast<int>(key & 0xFFFFFFu)), zero);
    const __m256i rgb =
        _mm256_set_epi16(0, -1, -1, -1, 0, -1, -1, -1, 0, -1, -1, -1, 0, -1, -1, -1);
    const __m256i o = _mm256_set1_epi32(static_cast<int>(opacity));
    const __m256i threshold = _mm256_set1_epi32(static_cast<int>(KEY_KEEP_FROM - 1));
    const __m256i colourMask = _mm256_set1_epi32(0x00FFFFFF);
    size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m256i v = Load(p + i);
        const __m256i dl =
            _mm256_and_si256(_mm256_sub_epi16(_mm256_unpacklo_epi8(v, zero), key16), rgb);
        const __m256i dh =
            _mm256_and_si256(_mm256_sub_epi16(_mm256_unpackhi_epi8(v, zero), key16), rgb);
        const __m256 ql = _mm256_castsi256_ps(_mm256_madd_epi16(dl, dl));
        const __m256 qh = _mm256_castsi256_ps(_mm256_madd_epi16(dh, dh));
        const __m256i sum = _mm256_add_epi32(_mm256_castps_si256(_mm256_shuffle_ps(ql, qh, 0x88)),
                                             _mm256_castps_si256(_mm256_shuffle_ps(ql, qh, 0xDD)));
        const __m256i keep = _mm256_cmpgt_epi32(sum, threshold);
        const __m256i x = _mm256_mullo_epi32(_mm256_srli_epi32(v, 24), o);
        const __m256i scaled = _mm256_srli_epi32(
            _mm256_add_epi32(_mm256_add_epi32(x, _mm256_set1_epi32(1)), _mm256_srli_epi32(x, 8)),
            8);
        const __m256i alpha = _mm256_slli_epi32(_mm256_and_si256(keep, scaled), 24);
        Store(p + i, _mm256_or_si256(_mm256_and_si256(v, colourMask), alpha));
    }
    Sse2Kernels().keyOut(p + i, count - i, key, opacity);
}

inline __m256i WidenBytes(const uint32_t* p) {
    return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
}

// floor(sum * m / 2^s) for eight 32-bit sums: one 32-bit multiply when no
// product can overflow. Otherwise s >= 16 and the sum splits into hi * 2^16
// + lo: floor(sum * m / 2^s) = (hi * m + floor(lo * m / 2^16)) >> (s - 16),
// both products in 16-bit multipliers (hi stays below 2^7, m below 2^13).
inline __m256i BoxMean(__m256i sum, __m256i mv, __m128i shift, bool narrow) {
    if (narrow) return _mm256_srl_epi32(_mm256_mullo_epi32(sum, mv), shift);
    const __m256i hiTimesM = _mm256_madd_epi16(sum, _mm256_slli_epi32(mv, 16));
    const __m256i loTimesM = _mm256_mulhi_epu16(sum, mv);
    return _mm256_srl_epi32(_mm256_add_epi32(hiTimesM, loTimesM), shift);
}

inline __m256d Widen(uint32_t p) {
    return _mm256_cvtepi32_pd(_mm_cvtepu8_epi32(_mm_cvtsi32_si128(static_cast<int>(p))));
}

struct Avx2ScaleOps {
    static uint32_t Pixel(uint32_t a, uint32_t b, uint32_t c, uint32_t d, double fx, double fy) {
        const __m256d gx = _mm256_set1_pd(1.0 - fx), vx = _mm256_set1_pd(fx);
        const __m256d gy = _mm256_set1_pd(1.0 - fy), vy = _mm256_set1_pd(fy);
        const __m256d top = _mm256_add_pd(_mm256_mul_pd(Widen(a), gx), _mm256_mul_pd(Widen(b), vx));
        const __m256d bottom =
            _mm256_add_pd(_mm256_mul_pd(Widen(c), gx), _mm256_mul_pd(Widen(d), vx));
        const __m256d v = _mm256_add_pd(_mm256_mul_pd(top, gy), _mm256_mul_pd(bottom, vy));
        const __m128i i32 = _mm256_cvttpd_epi32(_mm256_add_pd(v, _mm256_set1_pd(0.5)));
        const __m128i zero = _mm_setzero_si128();
        return static_cast<uint32_t>(
            _mm_cvtsi128_si32(_mm_packus_epi16(_mm_packs_epi32(i32, zero), zero)));
    }
};

inline void UpdateFour(uint16_t* sums, const uint32_t* add, const uint32_t* sub) {
    auto* at = reinterpret_cast<__m256i*>(sums);
    __m256i v = _mm256_add_epi16(_mm256_loadu_si256(at), WidenBytes(add));
    if (sub) v = _mm256_sub_epi16(v, WidenBytes(sub));
    _mm256_storeu_si256(at, v);
}

void Update(uint16_t* sums, const uint32_t* add, const uint32_t* sub, int n) {
    int i = 0;
    for (; i + 4 <= n; i += 4)
        UpdateFour(sums + 4 * i, add + i, sub ? sub + i : nullptr);
    UpdateTail(sums, add, sub, i, n);
}

// Where the column sums go next: the row entering the window and the row
// leaving it. No add on the last row.
struct UstColumnStep {
    const uint32_t* add = nullptr;
    const uint32_t* sub = nullptr;
    int span = 0;
};

// Four boxes' means, 16-bit words with pixels (0, 1) in lane 0 and (2, 3) in
// lane 1, from the column differences d = C(j + 2r - 1) - C(j - 1), which are
// 16-bit signed. The carried total moves by one add; the lane crossing stays
// off that chain.
template <bool narrow>
struct UstWideMeans {
    __m256i mv, carry;
    __m128i shift;
    UstWideMeans(uint32_t m, int s, __m128i before)
        : mv(_mm256_set1_epi32(static_cast<int>(m))),
          carry(_mm256_broadcastsi128_si256(before)),
          shift(_mm_cvtsi32_si128(narrow ? s : s - 16)) {}

    // The differences widen within lanes, first = (d0, d2), second = (d1, d3).
    __m256i Four(__m256i d) {
        const __m256i sign = _mm256_srai_epi16(d, 15);
        const __m256i first = _mm256_unpacklo_epi16(d, sign);
        const __m256i second = _mm256_unpackhi_epi16(d, sign);
        __m256i ends = _mm256_add_epi32(first, second);
        ends = _mm256_add_epi32(ends, _mm256_permute2x128_si256(ends, ends, 0x08));
        const __m256i odd = _mm256_add_epi32(ends, carry);   // S1, S3
        const __m256i even = _mm256_sub_epi32(odd, second);  // S0, S2
        carry = _mm256_add_epi32(carry, _mm256_permute2x128_si256(ends, ends, 0x11));
        return _mm256_packs_epi32(BoxMean(even, mv, shift, narrow),
                                  BoxMean(odd, mv, shift, narrow));
    }
    void Totals(uint32_t run[4]) const {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(run), _mm256_castsi256_si128(carry));
    }
};

// While 2r * 2r * 255 fits in 16 bits (r up to 8) the box sums themselves do,
// and the whole slide runs on words: the prefix over four pixels is two adds,
// and the mean is floor(S * m' / 2^16) >> (s - 16), m' = m scaled up by
// 2^(16 - s) when s is below 16 (only radius 1, where S * 8 still fits).
struct UstSmallMeans {
    __m256i mv, carry;
    __m128i shift;
    UstSmallMeans(uint32_t m, int s, __m128i before)
        : mv(_mm256_set1_epi16(static_cast<short>(m << std::max(0, 16 - s)))),
          carry(_mm256_set1_epi64x(_mm_cvtsi128_si64(_mm_packus_epi32(before, before)))),
          shift(_mm_cvtsi32_si128(std::max(0, s - 16))) {}

    __m256i Four(__m256i d) {
        // Quadwords are pixels: (d0, d0 + d1 | d2, d2 + d3), then lane 1
        // takes d0 + d1 on top.
        const __m256i pairs = _mm256_add_epi16(d, _mm256_slli_si256(d, 8));
        const __m256i up = _mm256_permute2x128_si256(pairs, pairs, 0x08);
        const __m256i prefix = _mm256_add_epi16(pairs, _mm256_unpackhi_epi64(up, up));
        const __m256i sums = _mm256_add_epi16(prefix, carry);
        carry = _mm256_add_epi16(carry, _mm256_permute4x64_epi64(prefix, 0xFF));
        return _mm256_srl_epi16(_mm256_mulhi_epu16(sums, mv), shift);
    }
    void Totals(uint32_t run[4]) const {
        alignas(16) uint16_t w[8];
        _mm_store_si128(reinterpret_cast<__m128i*>(w), _mm256_castsi256_si128(carry));
        std::copy(w, w + 4, run);
    }
};

inline bool SumsFit16(int box) {
    return 255 * box * box < 65536;
}

// S(-1): columns 0 to 2r - 2, two columns a step, as four 32-bit totals.
__m128i TotalBeforeRow(const uint16_t* cols, int box) {
    __m256i pairs = _mm256_setzero_si256();
    int c = 0;
    for (; c + 2 <= box - 1; c += 2)
        pairs = _mm256_add_epi32(
            pairs,
            _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(cols + 4 * c))));
    __m128i before =
        _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
    if (c < box - 1)
        before = _mm_add_epi32(
            before,
            _mm_cvtepu16_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(cols + 4 * c))));
    return before;
}

inline __m256i ColumnDiff(const uint16_t* enterAt, const uint16_t* leaveAt) {
    return _mm256_sub_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(enterAt)),
                            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(leaveAt)));
}

// The box sum slides along the row: S(j) = S(j - 1) + C(j + 2r - 1) - C(j - 1)
// over the 16-bit column sums C, eight pixels a step.
// Columns the loop has read for the last time move on to the next row's sums
// right there, eight behind the read front, so no store is read back soon.
// Each output row keeps its pixels as they stood in `keep` just before it
// overwrites them, for the subtraction 2r rows on.
template <class Means>
void SlideAndOutput(uint32_t* out, uint32_t* keep, uint16_t* cols, int w, int box, uint32_t m,
                    int s, const UstColumnStep& next) {
    Means means(m, s, TotalBeforeRow(cols, box));
    int j = 0, done = 0;
    for (; j + 8 <= w; j += 8) {
        const __m256i a = means.Four(ColumnDiff(cols + 4 * (j + box - 1), cols + 4 * (j - 1)));
        const __m256i b = means.Four(ColumnDiff(cols + 4 * (j + box + 3), cols + 4 * (j + 3)));
        Store(keep + j, Load(out + j));
        // Quadwords after the byte packing: pixels (0, 1), (4, 5), (2, 3), (6, 7).
        Store(out + j, _mm256_permute4x64_epi64(_mm256_packus_epi16(a, b), 0xD8));
        if (next.add && j >= 8) {
            const int c = j - 8;
            UpdateFour(cols + 4 * c, next.add + c, next.sub + c);
            UpdateFour(cols + 4 * c + 16, next.add + c + 4, next.sub + c + 4);
            done = j;
        }
    }
    std::copy(out + j, out + w, keep + j);
    uint32_t run[4];
    means.Totals(run);
    for (; j < w; ++j) {
        uint32_t px = 0;
        for (int ch = 0; ch < 4; ++ch) {
            run[ch] += static_cast<uint32_t>(cols[4 * (j + box - 1) + ch]) - cols[4 * (j - 1) + ch];
            px |= static_cast<uint32_t>((static_cast<uint64_t>(run[ch]) * m) >> s) << (8 * ch);
        }
        out[j] = px;
    }
    if (next.add) Update(cols + 4 * done, next.add + done, next.sub + done, next.span - done);
}

void BoxBlur(const UstBlurArea& a) {
    const int r = a.radius, box = 2 * r, ringRows = r + 1;
    const int spanLeft = a.left - r, span = a.right - a.left + box, w = a.right - a.left;
    const size_t stride = static_cast<size_t>(a.blockWidth);
    auto row = [&](int y) { return a.bits + static_cast<size_t>(y) * stride + spanLeft; };
    // Scratch kept per thread: fresh pages on every call would cost more than
    // the blur. One zero column in front lets the first box let one go.
    thread_local std::vector<uint16_t> sums;
    thread_local std::vector<uint32_t> ring;
    sums.assign(static_cast<size_t>(span + 1) * 4 + 16, 0);
    ring.resize(std::max(ring.size(), static_cast<size_t>(ringRows) * span));
    uint16_t* cols = sums.data() + 4;
    auto saved = [&](int y) { return ring.data() + static_cast<size_t>(y % ringRows) * span; };
    auto slide = SumsFit16(box)            ? SlideAndOutput<UstSmallMeans>
                 : ProductFits32(box, a.m) ? SlideAndOutput<UstWideMeans<true>>
                                           : SlideAndOutput<UstWideMeans<false>>;
    for (int y = a.top - r; y < a.top + r; ++y)
        Update(cols, row(y), nullptr, span);
    for (int y = a.top; y < a.bottom; ++y) {
        UstColumnStep next;
        if (y + 1 < a.bottom) {
            const int gone = y - r;
            next = {row(y + r), gone >= a.top ? saved(gone) : row(gone), span};
        }
        // The r pixels either side of the region never change: keep them too.
        uint32_t* keep = saved(y);
        std::copy(row(y), row(y) + r, keep);
        std::copy(row(y) + r + w, row(y) + span, keep + r + w);
        slide(row(y) + r, keep + r, cols, w, box, a.m, a.s, next);
    }
}

void ScaleBilinear(const UstScaleJob& job) {
    ScaleWithPlan<Avx2ScaleOps>(job);
}

}  // namespace

const UstPixelKernels& Avx2Kernels() {
    static const UstPixelKernels k{"avx2", Fill,   Copy,    Reverse,      SwapRows,
                                   Blend,  KeyOut, BoxBlur, ScaleBilinear};
    return k;
}

}  // namespace orv

#if defined(__clang__)
#pragma clang attribute pop
#endif
