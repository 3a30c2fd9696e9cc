// The animation's still on the canvas and in the page's thumbnail, and its
// preview played through on the canvas.
#include <QGuiApplication>
#include <QPainter>

#include <cstring>
#include <new>
#include <vector>

#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "objects/live_image.h"
#include "render/object_image.h"
#include "render/pixels.h"

namespace orv {

namespace {

// A straight block drawn over a premultiplied one, clipped to it.
void DrawStraight(uint32_t* dst, int width, int height, const uint32_t* src, int srcWidth,
                  int srcHeight, int left, int top) {
    QImage canvas = WrapBlock(dst, width, height);
    const QImage image(reinterpret_cast<const uchar*>(src), srcWidth, srcHeight, srcWidth * 4,
                       QImage::Format_ARGB32);
    QPainter painter(&canvas);
    painter.drawImage(left, top, image);
}

UstRect Clip(const UstRect& r, int width, int height) {
    return {std::max(r.left, 0), std::max(r.top, 0), std::min(r.right, width),
            std::min(r.bottom, height)};
}

}  // namespace

bool CQRDObjectAni::TakeStillFrame(MediaPlayer& source) {
    const UstMediaInfo* info = source.GetInfo();
    const uint32_t* frame = source.ReadFrame(0);
    if (!frame || info->nWidth <= 0 || info->nHeight <= 0) return false;
    const size_t pixels = static_cast<size_t>(info->nWidth) * info->nHeight;
    m_pStill.reset(new (std::nothrow) uint32_t[pixels]);
    if (!m_pStill) return false;
    std::memcpy(m_pStill.get(), frame, pixels * 4);
    m_nStillWidth = info->nWidth;
    m_nStillHeight = info->nHeight;
    ScaleStill();
    return true;
}

void CQRDObjectAni::ScaleStill() {
    m_pScaled.reset();
    m_nScaledWidth = m_rcView.Width();
    m_nScaledHeight = m_rcView.Height();
    if (!m_pStill || m_nScaledWidth <= 0 || m_nScaledHeight <= 0) return;
    m_pScaled.reset(new (std::nothrow)
                        uint32_t[static_cast<size_t>(m_nScaledWidth) * m_nScaledHeight]);
    if (m_pScaled)
        ScalePixelRect(m_pScaled.get(), {0, 0, m_nScaledWidth, m_nScaledHeight}, m_pStill.get(),
                       {0, 0, m_nStillWidth, m_nStillHeight}, 2);
}

// A grey frame with a cross: an animation whose file gives no still.
void CQRDObjectAni::DrawPlaceholder(const UstRect& r) {
    if (r.Width() < 2 || r.Height() < 2) return;
    QImage canvas =
        WrapBlock(m_pPage->GetCanvasBits(), m_pPage->GetCanvasWidth(), m_pPage->GetCanvasHeight());
    QPainter painter(&canvas);
    painter.setPen(QPen(QColor(128, 128, 128), 1));
    const QRect box(r.left, r.top, r.Width() - 1, r.Height() - 1);
    painter.drawRect(box);
    painter.drawLine(box.topLeft(), box.bottomRight());
    painter.drawLine(box.topRight(), box.bottomLeft());
}

void CQRDObjectAni::Draw() {
    if (!m_pPage || !m_pPage->GetCanvasBits()) return;
    const int width = m_pPage->GetCanvasWidth(), height = m_pPage->GetCanvasHeight();
    const UstRect r = ScrolledViewRect();
    if (!Meets(r, {0, 0, width, height})) return;
    if (!m_pStill) {
        DrawPlaceholder(r);
        return;
    }
    // A box that changed size since the still was scaled takes a new one.
    if (!m_pScaled || m_nScaledWidth != r.Width() || m_nScaledHeight != r.Height()) ScaleStill();
    if (m_pScaled)
        DrawStraight(m_pPage->GetCanvasBits(), width, height, m_pScaled.get(), m_nScaledWidth,
                     m_nScaledHeight, r.left, r.top);
}

void CQRDObjectAni::DrawTo(uint32_t* bits, int width, int height) {
    const int w = m_rcStored.Width(), h = m_rcStored.Height();
    if (!bits || !m_pStill || w <= 0 || h <= 0) return;
    if (w == m_nStillWidth && h == m_nStillHeight) {
        DrawStraight(bits, width, height, m_pStill.get(), w, h, m_rcStored.left, m_rcStored.top);
        return;
    }
    std::vector<uint32_t> scaled(static_cast<size_t>(w) * h);
    ScalePixelRect(scaled.data(), {0, 0, w, h}, m_pStill.get(),
                   {0, 0, m_nStillWidth, m_nStillHeight}, 2);
    DrawStraight(bits, width, height, scaled.data(), w, h, m_rcStored.left, m_rcStored.top);
}

void CQRDObjectAni::PrepareScrollImage(int32_t, int32_t) {
    m_live.Reset();
    const int w = m_rcStored.Width(), h = m_rcStored.Height();
    if (!m_pStill || w <= 0 || h <= 0) return;
    m_live.Allocate(w, h);
    m_live.bStraight = true;
    m_live.x = m_rcStored.left;
    m_live.y = m_rcStored.top;
    ScalePixelRect(m_live.pBlock.get(), {0, 0, w, h}, m_pStill.get(),
                   {0, 0, m_nStillWidth, m_nStillHeight}, 2);
    DropUnreachable(m_live);
}

void CQRDObjectAni::DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                             int bottom) {
    DrawImageInStrip(m_live, bits, width, height, {left, top, right, bottom});
}

bool CQRDObjectAni::PreviewAnimation(const std::function<void(const UstRect&)>& flush) {
    if (!m_pPage || !m_pPage->GetCanvasBits()) return false;
    const UstRect box = ScrolledViewRect();
    if (box.Width() <= 0 || box.Height() <= 0) return false;
    auto player = CreateMediaPlayer(FilePath());
    if (!player) return false;
    const UstMediaInfo info = *player->GetInfo();
    uint32_t* canvas = m_pPage->GetCanvasBits();
    const int width = m_pPage->GetCanvasWidth(), height = m_pPage->GetCanvasHeight();
    const UstRect area = Clip(box, width, height);
    if (area.Width() <= 0 || area.Height() <= 0) return false;
    std::vector<uint32_t> saved(static_cast<size_t>(area.Width()) * area.Height());
    const UstRect whole{0, 0, area.Width(), area.Height()};
    CopyPixelRect(saved.data(), area.Width(), whole, canvas, width, area.left, area.top, area.right,
                  area.bottom);
    std::vector<uint32_t> scaled(static_cast<size_t>(box.Width()) * box.Height());
    const UstPoint origin = m_pPage->GetCanvasOrigin();
    const UstRect shown = Offset(area, origin.x, origin.y);
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::clamp(box.Height() / 8, 10, 24));
    for (int i = 0; i < info.nFrames; ++i) {
        const uint32_t* frame = player->ReadFrame(i);
        if (!frame) continue;
        CopyPixelRect(canvas, width, area, saved.data(), area.Width(), 0, 0, area.Width(),
                      area.Height());
        ScalePixelRect(scaled.data(), {0, 0, box.Width(), box.Height()}, frame,
                       {0, 0, info.nWidth, info.nHeight}, 2);
        DrawStraight(canvas, width, height, scaled.data(), box.Width(), box.Height(), box.left,
                     box.top);
        QImage image = WrapBlock(canvas, width, height);
        QPainter painter(&image);
        painter.setClipRect(area.ToQRect());
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(box.ToQRect().adjusted(4, 2, -4, -2), Qt::AlignLeft | Qt::AlignTop,
                         QString::asprintf("%d/%d", i + 1, info.nFrames));
        painter.end();
        flush(shown);
    }
    // The editor shows the still again, and holds no file open.
    CopyPixelRect(canvas, width, area, saved.data(), area.Width(), 0, 0, area.Width(),
                  area.Height());
    flush(shown);
    return true;
}

}  // namespace orv
