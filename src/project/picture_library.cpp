#include "project/picture_library.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>

#include <cstring>

#include "render/image_file.h"
#include "render/object_image.h"

namespace orv {

namespace {

const QString THUMB_MARK = "_TB";
const QString THUMB_SUFFIX = "_TB.BMP";

uint32_t Le32(const QByteArray& b, int at) {
    uint32_t v = 0;
    std::memcpy(&v, b.constData() + at, 4);
    return v;
}

uint16_t Le16(const QByteArray& b, int at) {
    uint16_t v = 0;
    std::memcpy(&v, b.constData() + at, 2);
    return v;
}

// 24 bits, uncompressed, 90 wide and 48 high either way up.
bool IsThumbBmpHeader(const QByteArray& head) {
    if (head.size() < 34 || !head.startsWith("BM")) return false;
    const auto width = static_cast<int32_t>(Le32(head, 18));
    const auto height = static_cast<int32_t>(Le32(head, 22));
    return width == STYLE_THUMB_WIDTH && (height == STYLE_THUMB_HEIGHT || height == -48) &&
           Le16(head, 28) == 24 && Le32(head, 30) == 0;
}

}  // namespace

bool IsStyleThumbnail(const QString& file) {
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) return false;
    const QByteArray head = in.read(34);
    if (head.startsWith("BM")) return IsThumbBmpHeader(head);
    in.close();
    int width = 0, height = 0;
    GetImageSize(file, width, height);
    if (width != STYLE_THUMB_WIDTH || height != STYLE_THUMB_HEIGHT) return false;
    const QImage image(file);
    return !image.isNull() && !image.hasAlphaChannel() && image.depth() >= 24 &&
           image.format() != QImage::Format_Indexed8;
}

void ScanPictureFolder(const QString& folder, QStringList& thumbList, QStringList& imageList) {
    thumbList.clear();
    imageList.clear();
    const QDir dir(folder);
    // Hidden names are what the system's own dot files look like: skipped.
    const QStringList names = dir.entryList(QDir::Files, QDir::Name);
    QSet<QString> thumbs;
    for (const QString& name : names) {
        if (name.startsWith('.')) continue;
        if (name.contains(THUMB_MARK)) {
            if (IsStyleThumbnail(dir.filePath(name))) thumbs.insert(name);
        } else if (IsImageExtension(name)) {
            imageList.push_back(name);
        }
    }
    std::sort(imageList.begin(), imageList.end());
    for (const QString& image : imageList) {
        const QString thumb = QFileInfo(image).completeBaseName() + THUMB_SUFFIX;
        thumbList.push_back(thumbs.contains(thumb) ? thumb : QString());
    }
}

QImage DrawPictureThumbnail(const QString& source) {
    const UstPixelImage pixels = LoadImageFile(source);
    if (!pixels || pixels.width <= 0 || pixels.height <= 0) return {};
    const QImage image(reinterpret_cast<const uchar*>(pixels.bits.get()), pixels.width,
                       pixels.height, pixels.width * 4, QImage::Format_ARGB32);
    QImage thumb(STYLE_THUMB_WIDTH, STYLE_THUMB_HEIGHT, QImage::Format_ARGB32_Premultiplied);
    thumb.fill(Qt::black);
    QPainter painter(&thumb);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(thumb.rect(), image, image.rect());
    painter.end();
    return thumb;
}

bool AddPictureStyle(const QString& folder, const QString& source, QString& outImage,
                     QString& outThumb, const StyleClock& clock) {
    outImage.clear();
    outThumb.clear();
    if (!IsImageExtension(source) || !QFileInfo(source).isFile()) return false;
    const QString suffix = "." + QFileInfo(source).suffix();
    const QString name = FreeStyleName(folder, {suffix, THUMB_SUFFIX}, clock);
    if (name.isEmpty()) return false;
    const QDir dir(folder);
    const QString image = name + suffix, thumb = name + THUMB_SUFFIX;
    if (!QFile::copy(source, dir.filePath(image))) return false;
    if (!SaveStyleThumb(DrawPictureThumbnail(source), dir.filePath(thumb))) {
        QFile::remove(dir.filePath(image));
        return false;
    }
    outImage = image;
    outThumb = thumb;
    return true;
}

QString CPictureLibrary::ImagePath(int index) const {
    if (index < 0 || index >= Count()) return {};
    return QDir(m_strFolder).filePath(m_images[index]);
}

QString CPictureLibrary::ThumbPath(int index) const {
    if (index < 0 || index >= Count() || m_thumbs[index].isEmpty()) return {};
    return QDir(m_strFolder).filePath(m_thumbs[index]);
}

int CPictureLibrary::Add(const QString& source, const StyleClock& clock) {
    QString image, thumb;
    if (!AddPictureStyle(m_strFolder, source, image, thumb, clock)) return -1;
    const auto at = std::lower_bound(m_images.begin(), m_images.end(), image);
    const auto index = static_cast<int>(at - m_images.begin());
    m_images.insert(index, image);
    m_thumbs.insert(index, thumb);
    return index;
}

bool CPictureLibrary::Delete(int index) {
    if (index < 0 || index >= Count()) return false;
    const QString image = ImagePath(index), thumb = ThumbPath(index);
    if (QFileInfo::exists(image) && !QFile::remove(image)) return false;
    if (!thumb.isEmpty()) QFile::remove(thumb);
    m_images.removeAt(index);
    m_thumbs.removeAt(index);
    return true;
}

}  // namespace orv
