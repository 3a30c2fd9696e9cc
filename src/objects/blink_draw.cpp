#include "objects/blink_draw.h"

#include <QPainter>

#include <vector>

#include "objects/page_context.h"
#include "objects/qrd_object.h"
#include "render/fill_brush.h"
#include "render/object_image.h"
#include "render/pixels.h"

namespace orv {

void TintPixels(uint32_t* pixels, size_t count, uint32_t colour) {
    const uint32_t ca = colour >> 24;
    for (size_t i = 0; i < count; ++i) {
        const uint32_t a = (pixels[i] >> 24) * ca / 255;
        uint32_t out = a << 24;
        for (int shift = 0; shift < 24; shift += 8)
            out |= (((colour >> shift) & 0xFF) * a / 255) << shift;
        pixels[i] = out;
    }
}

void HatchOnCanvas(CPageContext* page, const QPolygonF& area, int style, uint32_t colour) {
    if (!page || !page->GetCanvasBits()) return;
    QImage canvas =
        WrapBlock(page->GetCanvasBits(), page->GetCanvasWidth(), page->GetCanvasHeight());
    QPainter painter(&canvas);
    painter.setPen(Qt::NoPen);
    painter.setBrush(HatchBrush(style, colour, 0));
    painter.drawPolygon(area);
}

void CQRDObject::PrepareBlinkFrame(uint32_t* bits, int width, int height, int mode,
                                   uint32_t colour) {
    if (!GetBlink()) {
        DrawForPlay(bits, width, height);
        return;
    }
    if (mode != 1 || !bits || width <= 0 || height <= 0) return;
    // Drawn alone first, so that only this object takes the colour.
    std::vector<uint32_t> alone(static_cast<size_t>(width) * height, 0u);
    DrawForPlay(alone.data(), width, height);
    TintPixels(alone.data(), alone.size(), colour);
    BlendPixelRect(bits, width, {0, 0, width, height}, alone.data(), width, {0, 0, width, height});
}

}  // namespace orv
