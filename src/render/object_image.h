#pragma once
// A finished object as one block with its place on the page, and the turning
// of such a block about a point. Blocks are premultiplied, except a picture
// made without turning, which keeps the file's straight pixels.

#include <QImage>

#include <cstdint>
#include <memory>

namespace orv {

struct ObjectImage {
    std::unique_ptr<uint32_t[]> pBlock;  // null: nothing was made
    int32_t x = 0, y = 0;                // page position
    int32_t width = 0, height = 0;
    bool bStraight = false;
    bool Made() const { return pBlock != nullptr; }
    // A cleared block of the size; a 0 by 0 block is still made.
    void Allocate(int w, int h);
    void Reset() { *this = ObjectImage{}; }
    // The block as an image of its format sharing its memory.
    QImage Wrap() const;
    // Draws the image over the canvas at its position moved by offset.
    void DrawOn(QImage& canvas, QPoint offset) const;
    // Turns the image about (cx, cy), taken from its own corner; its
    // position follows the turned bound.
    void Turn(int cx, int cy, int degrees);
};

// Standard-definition frames have non-square pixels: for a 486-line target
// an object is made at full height and only squeezed sideways, so that no
// line of the picture is resampled.
constexpr int SD_TARGET_HEIGHT = 486;
// Squeezes the image sideways by the scale, its place with it; the result
// is premultiplied.
void SqueezeAcross(ObjectImage& image, float xScale);

// A premultiplied image over a block, sharing its memory.
QImage WrapBlock(uint32_t* block, int width, int height);
QImage WrapBlock(const uint32_t* block, int width, int height);

// Turns the block by degrees (clockwise on the screen) about (cx, cy),
// taking it over. The result is the turned bound, cleared around the
// picture; its x and y are the bound's corner relative to the block's
// corner, for the caller to add to the block's own place. A straight source
// (a picture read from a file) is read as such; the result is premultiplied.
void RotateImage(std::unique_ptr<uint32_t[]> block, int width, int height, int cx, int cy,
                 int degrees, ObjectImage& out, bool straightSource = false);

}  // namespace orv
