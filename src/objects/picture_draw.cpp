// How a picture reaches the canvas, the page image and play: one image at
// the zoom and one at full scale, each kept until the picture changes.
#include <QDir>

#include "objects/live_image.h"
#include "objects/picture_object.h"
#include "render/image_file.h"
#include "render/picture_image.h"

namespace orv {

const uint32_t* CQRDObjectPicture::Source() {
    if (m_source) return m_source.bits.get();
    if (m_bSourceTried) return nullptr;
    m_bSourceTried = true;
    const QString folder = m_pPage ? m_pPage->ObjectFolder() : QString();
    if (m_strFile.isEmpty() || folder.isEmpty()) return nullptr;
    m_source = LoadImageFile(QDir(folder).filePath(m_strFile));
    if (!m_source) return nullptr;
    m_nSourceWidth = m_source.width;
    m_nSourceHeight = m_source.height;
    return m_source.bits.get();
}

// The box's corner stands at (0, 0), so that moving the picture keeps its
// image.
bool CQRDObjectPicture::Render(ObjectImage& out, int boxWidth, int boxHeight, float scale,
                               int targetHeight) {
    out.Reset();
    const uint32_t* source = Source();
    if (!source) return false;
    const bool keying = m_bKeying != 0;
    if (targetHeight != SD_TARGET_HEIGHT) {
        RenderPicture(out, 0, 0, boxWidth, boxHeight, source, m_nSourceWidth, m_nSourceHeight,
                      m_nAngle, keying, m_crKey, m_nAlpha);
        return out.Made();
    }
    RenderPicture(out, 0, 0, m_rcStored.Width(), m_rcStored.Height(), source, m_nSourceWidth,
                  m_nSourceHeight, m_nAngle, keying, m_crKey, m_nAlpha);
    SqueezeAcross(out, scale);
    return out.Made();
}

bool CQRDObjectPicture::ImageFits(const ObjectImage& image, const UstRect& box,
                                  int targetHeight) const {
    return image.Made() && box.Width() == m_rcView.Width() && box.Height() == m_rcView.Height() &&
           m_nImageAngle == m_nAngle && m_nImageTarget == targetHeight;
}

const ObjectImage& CQRDObjectPicture::CanvasImage() {
    // The sideways squeeze is for standard-definition frames on air, not for
    // a canvas that happens to be 486 pixels high.
    const int height = 0;
    m_fZoom = Zoom() / 100.0f;
    if (!ImageFits(m_image, m_rcImageBox, height)) {
        Render(m_image, m_rcView.Width(), m_rcView.Height(), m_fZoom, height);
        m_rcImageBox = m_rcView;
        m_nImageAngle = m_nAngle;
        m_nImageTarget = height;
    }
    return m_image;
}

void CQRDObjectPicture::Draw() {
    if (!m_pPage || !m_pPage->GetCanvasBits()) return;
    const int width = m_pPage->GetCanvasWidth(), height = m_pPage->GetCanvasHeight();
    const UstPoint s = m_pPage->GetScrollOrigin();
    if (!Meets(Offset(GetBoundRect(), -s.x, -s.y), {0, 0, width, height})) return;
    const ObjectImage& image = CanvasImage();
    QImage canvas = WrapBlock(m_pPage->GetCanvasBits(), width, height);
    image.DrawOn(canvas, QPoint(m_rcView.left - s.x, m_rcView.top - s.y));
}

const ObjectImage& CQRDObjectPicture::FullImage(int frameHeight) {
    const int targetHeight = frameHeight == SD_TARGET_HEIGHT ? frameHeight : 0;
    const bool fits = m_full.Made() && m_rcFullBox.Width() == m_rcStored.Width() &&
                      m_rcFullBox.Height() == m_rcStored.Height() && m_nFullAngle == m_nAngle &&
                      m_nFullTarget == targetHeight;
    if (!fits) {
        Render(m_full, m_rcStored.Width(), m_rcStored.Height(), 1.0f, targetHeight);
        m_rcFullBox = m_rcStored;
        m_nFullAngle = m_nAngle;
        m_nFullTarget = targetHeight;
    }
    return m_full;
}

void CQRDObjectPicture::DrawTo(uint32_t* bits, int width, int height) {
    if (!bits || width <= 0 || height <= 0) return;
    QImage canvas = WrapBlock(bits, width, height);
    FullImage(height).DrawOn(canvas, QPoint(m_rcStored.left, m_rcStored.top));
}

void CQRDObjectPicture::PrepareLiveFrame(int, int, int, int) {
    Render(m_prepared, m_rcStored.Width(), m_rcStored.Height(), 1.0f, 0);
    m_prepared.x += m_rcStored.left;
    m_prepared.y += m_rcStored.top;
}

// The same image as the page's own at full scale, so that the strips and the
// edit canvas at zoom 100 agree to the pixel.
void CQRDObjectPicture::PrepareScrollImage(int32_t, int32_t height) {
    Render(m_prepared, m_rcStored.Width(), m_rcStored.Height(), 1.0f, height);
    m_prepared.x += m_rcStored.left;
    m_prepared.y += m_rcStored.top;
    DropUnreachable(m_prepared);
}

void CQRDObjectPicture::DrawLive(uint32_t* bits, int width, int height, int left, int top,
                                 int right, int bottom) {
    DrawImageInStrip(m_prepared, bits, width, height, {left, top, right, bottom});
}

UstPoint CQRDObjectPicture::GetLiveExtent() const {
    return LiveExtent(m_rcStored, LiveImageRect(m_prepared));
}

}  // namespace orv
