#pragma once
// What the edit canvas shows under and over a page's objects: the backdrop of
// the edit options and the editor's guides, written straight into the pixels.

#include <cstdint>

class QImage;

namespace orv {

struct UstEnv;

enum EPageType : uint32_t { PAGE_CUT = 0, PAGE_ROLL = 1, PAGE_CRAWL = 2 };

struct UstOverlayParams {
    uint32_t nPageType = PAGE_CUT;
    float fZoom = 100.0f;    // percent
    int nFrameWidth = 1920;  // the project's frame width, at zoom 100
};

// Colour, checkerboard or the cached backdrop image stretched over the canvas.
// An image kind without a usable image falls back to the colour.
void DrawCanvasBackdrop(uint32_t* bits, int width, int height, const UstEnv& env,
                        const QImage* backImage);

// Safe areas, SD mark, centre cross and grid, in that order.
void DrawCanvasOverlays(uint32_t* bits, int width, int height, const UstEnv& env,
                        const UstOverlayParams& params);

// Inset of a safe area in canvas pixels, the same on all four sides.
int SafeAreaInset(float zoom, uint32_t percent, int frameWidth);

}  // namespace orv
