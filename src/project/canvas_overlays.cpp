#include "project/canvas_overlays.h"

#include <QImage>

#include "project/settings_records.h"
#include "render/pixels.h"

namespace orv {

namespace {

constexpr uint32_t GUIDE_OUTER = 0xFF000000u;
constexpr uint32_t GUIDE_INNER = 0xFFFF0000u;

struct Canvas {
    uint32_t* bits;
    int w, h;
    void Put(int x, int y, uint32_t c) {
        if (x >= 0 && y >= 0 && x < w && y < h) bits[static_cast<size_t>(y) * w + x] = c;
    }
    void Row(int y, int x0, int x1, uint32_t c) {
        for (int x = x0; x < x1; ++x)
            Put(x, y, c);
    }
    void Col(int x, int y0, int y1, uint32_t c) {
        for (int y = y0; y < y1; ++y)
            Put(x, y, c);
    }
};

// A rectangle outlined by two-pixel lines: black outside, red inside.
void GuideFrame(Canvas& cv, int l, int t, int r, int b) {
    for (int i = 0; i < 2; ++i) {
        const uint32_t c = i == 0 ? GUIDE_OUTER : GUIDE_INNER;
        cv.Row(t + i, l + i, r - i, c);
        cv.Row(b - 1 - i, l + i, r - i, c);
        cv.Col(l + i, t + i, b - i, c);
        cv.Col(r - 1 - i, t + i, b - i, c);
    }
}

void SafeArea(Canvas& cv, uint32_t percent, const UstOverlayParams& p) {
    const int inset = SafeAreaInset(p.fZoom, percent, p.nFrameWidth);
    const int l = inset, t = inset, r = cv.w - inset, b = cv.h - inset;
    if (p.nPageType == PAGE_CRAWL) {
        for (int i = 0; i < 2; ++i) {
            const uint32_t c = i == 0 ? GUIDE_OUTER : GUIDE_INNER;
            cv.Row(t + i, 0, cv.w, c);
            cv.Row(b - 1 - i, 0, cv.w, c);
        }
    } else if (p.nPageType == PAGE_ROLL) {
        for (int i = 0; i < 2; ++i) {
            const uint32_t c = i == 0 ? GUIDE_OUTER : GUIDE_INNER;
            cv.Col(l + i, 0, cv.h, c);
            cv.Col(r - 1 - i, 0, cv.h, c);
        }
    } else {
        GuideFrame(cv, l, t, r, b);
    }
}

void SdMark(Canvas& cv, float zoom) {
    const float s = zoom / 100.0f;
    GuideFrame(cv, RoundToInt(600 * s), RoundToInt(300 * s), RoundToInt(1320 * s),
               RoundToInt(780 * s));
}

void CentreCross(Canvas& cv) {
    cv.Col(cv.w / 2 - 1, 0, cv.h, GUIDE_INNER);
    cv.Col(cv.w / 2, 0, cv.h, GUIDE_OUTER);
    cv.Row(cv.h / 2 - 1, 0, cv.w, GUIDE_INNER);
    cv.Row(cv.h / 2, 0, cv.w, GUIDE_OUTER);
}

void Grid(Canvas& cv, uint32_t spacing, uint32_t colour, float zoom) {
    const int step = static_cast<int>(static_cast<float>(spacing) * zoom / 100.0f);
    if (step <= 0 || step >= cv.h) return;
    for (int y = step; y < cv.h; y += step)
        for (int x = step; x < cv.w; x += step)
            cv.Put(x, y, colour);
}

}  // namespace

int SafeAreaInset(float zoom, uint32_t percent, int frameWidth) {
    return RoundToInt(zoom * static_cast<float>(percent) / 10000.0f *
                      static_cast<float>(frameWidth) * 0.5f);
}

void DrawCanvasBackdrop(uint32_t* bits, int width, int height, const UstEnv& env,
                        const QImage* backImage) {
    if (!bits || width <= 0 || height <= 0) return;
    if (env.nBackKind == BACK_CHECKER) {
        DrawCheckerPixels(bits, width, height, static_cast<int>(env.nCheckerSize));
        return;
    }
    if (env.nBackKind == BACK_IMAGE && backImage && !backImage->isNull() &&
        backImage->format() == QImage::Format_ARGB32_Premultiplied) {
        const auto* src = reinterpret_cast<const uint32_t*>(backImage->constBits());
        ScalePixelRect(bits, {0, 0, width, height}, src,
                       {0, 0, backImage->width(), backImage->height()}, 2);
        return;
    }
    FillPixels(env.clrBack, bits, width, height);
}

void DrawCanvasOverlays(uint32_t* bits, int width, int height, const UstEnv& env,
                        const UstOverlayParams& params) {
    if (!bits || width <= 0 || height <= 0) return;
    Canvas cv{bits, width, height};
    if (env.bSafety) {
        SafeArea(cv, env.nSafeOuter, params);
        SafeArea(cv, env.nSafeInner, params);
    }
    const bool cut = params.nPageType == PAGE_CUT;
    if (env.bMarkSD && cut && params.nFrameWidth == 1920) SdMark(cv, params.fZoom);
    if (cut) CentreCross(cv);
    if (env.bGrid) Grid(cv, env.nGridStep, env.clrGrid, params.fZoom);
}

}  // namespace orv
