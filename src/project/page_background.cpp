#include "project/page_background.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

#include "project/object_folder.h"
#include "render/image_file.h"
#include "render/pixels.h"

namespace orv {

namespace {

constexpr int INTERPOLATION_BILINEAR = 2;

// A picture that covers: its colours over black, fully opaque.
void Flatten(uint32_t* p, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        const uint32_t a = p[i] >> 24;
        uint32_t out = 0xFF000000u;
        for (int shift = 0; shift < 24; shift += 8)
            out |= (((p[i] >> shift) & 255) * a / 255) << shift;
        p[i] = out;
    }
}

void Premultiply(uint32_t* p, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        const uint32_t a = p[i] >> 24;
        uint32_t out = a << 24;
        for (int shift = 0; shift < 24; shift += 8)
            out |= (((p[i] >> shift) & 255) * a / 255) << shift;
        p[i] = out;
    }
}

}  // namespace

bool CPageBackground::IsBlended() const {
    return QFileInfo(strFile).suffix().toUpper() == "TGA";
}

bool CPageBackground::LoadPixels(const QString& path) {
    ReleasePixels();
    UstPixelImage image = LoadImageFile(path);
    if (!image) return false;
    nWidth = image.width;
    nHeight = image.height;
    const size_t count = static_cast<size_t>(nWidth) * nHeight;
    pBits.assign(image.bits.get(), image.bits.get() + count);
    if (QFileInfo(path).suffix().toUpper() != "TGA") Flatten(pBits.data(), count);
    return true;
}

EBackgroundLoad CPageBackground::Insert(const QString& source, const QString& objectFolder,
                                        CFileLinkTable& links) {
    if (!IsImageExtension(source)) {
        ReleasePixels();
        return EBackgroundLoad::UNSUPPORTED;
    }
    // Decoded before anything is copied: a damaged file leaves no trace.
    QString name;
    if (!LoadPixels(source) || !CopyToObjectFolder(source, name, objectFolder, links)) {
        Clear();
        return EBackgroundLoad::FAILED;
    }
    strFile = name;
    bPresent = 1;
    return EBackgroundLoad::LOADED;
}

bool CPageBackground::Reload(const QString& objectFolder) {
    ReleasePixels();
    if (!bPresent || strFile.isEmpty()) return false;
    const QString path = QDir(objectFolder).filePath(strFile);
    if (!QFileInfo(path).isFile()) {
        Clear();
        return false;
    }
    return LoadPixels(path);
}

void CPageBackground::ReleasePixels() {
    pBits.clear();
    pBits.shrink_to_fit();
    for (UstSurface& surface : m_surfaces)
        surface = UstSurface{};
    nWidth = nHeight = 0;
}

void CPageBackground::Clear() {
    ReleasePixels();
    strFile.clear();
    bPresent = 0;
}

const uint32_t* CPageBackground::Surface(int w, int h) {
    if (pBits.empty() || w <= 0 || h <= 0) return nullptr;
    for (const UstSurface& surface : m_surfaces)
        if (surface.width == w && surface.height == h && !surface.bits.empty())
            return surface.bits.data();
    // The older of the two gives way.
    std::swap(m_surfaces[0], m_surfaces[1]);
    UstSurface& made = m_surfaces[0];
    made.bits.assign(static_cast<size_t>(w) * h, 0);
    ScalePixelRect(made.bits.data(), {0, 0, w, h}, pBits.data(), {0, 0, nWidth, nHeight},
                   INTERPOLATION_BILINEAR);
    made.width = w;
    made.height = h;
    return made.bits.data();
}

void CPageBackground::DrawForPlay(uint32_t* bits, uint32_t* keyBits, int w, int h) const {
    if (pBits.empty() || !bits || w <= 0 || h <= 0) return;
    ScalePixelRect(bits, {0, 0, w, h}, pBits.data(), {0, 0, nWidth, nHeight},
                   INTERPOLATION_BILINEAR);
    const size_t count = static_cast<size_t>(w) * h;
    if (IsBlended()) Premultiply(bits, count);
    if (keyBits) std::memcpy(keyBits, bits, count * 4);
}

}  // namespace orv
