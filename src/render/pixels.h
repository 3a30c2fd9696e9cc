#pragma once
// Bare 32-bit pixel blocks: width x height pixels, top row first, stride
// width * 4, each pixel the little-endian value 0xAARRGGBB (B, G, R, A in
// memory). A block is a pointer with its size beside it, never a class.

#include <cstdint>

namespace orv {

// Sets each pixel of the block to colour.
void FillPixels(uint32_t colour, uint32_t* dst, int width, int height);

// FillPixels with 0.
void ClearPixels(uint32_t* dst, int width, int height);

// The transparent-background pattern: light 0xFFE0E0E0 and dark 0xFFA0A0A0
// squares of the cell size, the top left square light.
void DrawCheckerPixels(uint32_t* dst, int width, int height, int cell);

// Rounds half away from zero in single precision.
int RoundToInt(float value);

}  // namespace orv
