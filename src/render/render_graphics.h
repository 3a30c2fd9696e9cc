#pragma once
// Drawing pixel blocks with the drawing library, and the graphics that every
// layer of a title is rendered through.

#include <QPainter>

#include <cstdint>
#include <memory>

namespace orv {

// Wraps the block in the format named (premultiplied or straight) and draws
// it at (0, 0, width, height).
void DrawPixelsAt(const uint32_t* block, QPainter& graphics, int width, int height,
                  int pixelFormat);
// Wraps the block, whose width is right minus left, and draws it in that rectangle.
void DrawPixelsInRect(const uint32_t* block, QPainter& graphics, int left, int top, int right,
                      int bottom, int pixelFormat);

// A painter on a wrapped block. With quality: antialiased paths and text,
// smooth image transforms. Qt's raster engine always samples pixel centres,
// which is the high-quality pixel offset.
std::unique_ptr<QPainter> CreateRenderGraphics(QImage& bitmap, bool quality);

}  // namespace orv
