#include "render/image_file.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QSaveFile>

#include <cmath>
#include <cstring>

namespace orv {

namespace {

bool IsTga(const QString& file) {
    return QFileInfo(file).suffix().compare("tga", Qt::CaseInsensitive) == 0;
}

UstPixelImage LoadWithQt(const QString& file) {
    QImageReader reader(file);
    reader.setAutoTransform(false);
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > MAX_IMAGE_EXTENT || size.height() > MAX_IMAGE_EXTENT))
        return {};
    const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
    if (image.isNull()) return {};
    UstPixelImage out;
    out.width = image.width();
    out.height = image.height();
    out.bits.reset(new (std::nothrow) uint32_t[static_cast<size_t>(out.width) * out.height]);
    if (!out.bits) return {};
    for (int y = 0; y < out.height; ++y)
        std::memcpy(out.bits.get() + static_cast<size_t>(y) * out.width, image.constScanLine(y),
                    static_cast<size_t>(out.width) * 4);
    return out;
}

void Put16(QByteArray& b, uint16_t v) {
    b.append(static_cast<char>(v & 255));
    b.append(static_cast<char>(v >> 8));
}
void Put32(QByteArray& b, uint32_t v) {
    Put16(b, static_cast<uint16_t>(v & 0xFFFF));
    Put16(b, static_cast<uint16_t>(v >> 16));
}

QByteArray BmpHeaders(int width, int height, int bits, uint32_t imageBytes, double dpiX,
                      double dpiY) {
    QByteArray b;
    b.append("BM");
    Put32(b, 54 + imageBytes);
    Put32(b, 0);
    Put32(b, 54);
    Put32(b, 40);
    Put32(b, static_cast<uint32_t>(width));
    Put32(b, static_cast<uint32_t>(height));  // positive: bottom row first
    Put16(b, 1);
    Put16(b, static_cast<uint16_t>(bits));
    Put32(b, 0);  // no compression
    Put32(b, imageBytes);
    Put32(b, static_cast<uint32_t>(std::lround(dpiX / 0.0254)));
    Put32(b, static_cast<uint32_t>(std::lround(dpiY / 0.0254)));
    Put32(b, 0);
    Put32(b, 0);
    return b;
}

bool WriteWhole(const QString& file, const QByteArray& bytes) {
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) return false;
    return out.commit();
}

}  // namespace

bool IsImageExtension(const QString& file) {
    static const QStringList ACCEPTED = {"BMP", "JPEG", "JPG", "PNG", "TGA", "TIF", "TIFF", "GIF"};
    return ACCEPTED.contains(QFileInfo(file).suffix().toUpper());
}

UstPixelImage LoadImageFile(const QString& file) {
    if (!QFileInfo(file).isFile()) return {};
    return IsTga(file) ? ReadTga(QFile::encodeName(file).toStdString()) : LoadWithQt(file);
}

int LoadImageFileInto(const QString& file, int width, int height, uint32_t* block) {
    if (!block || width <= 0 || height <= 0) return 0;
    const UstPixelImage image = LoadImageFile(file);
    if (!image || image.width != width || image.height != height) return 0;
    std::memcpy(block, image.bits.get(), static_cast<size_t>(width) * height * 4);
    return 1;
}

void GetImageSize(const QString& file, int& width, int& height) {
    width = height = 0;
    if (!QFileInfo(file).isFile()) return;
    if (IsTga(file)) {
        ReadTgaSize(QFile::encodeName(file).toStdString(), width, height);
        return;
    }
    const QSize size = QImageReader(file).size();
    if (size.isValid()) {
        width = size.width();
        height = size.height();
    }
}

bool SaveBmp32BottomUp(const uint32_t* bits, int width, int height, const QString& file) {
    if (!bits || width <= 0 || height <= 0) return false;
    const auto bytes = static_cast<uint32_t>(width) * static_cast<uint32_t>(height) * 4;
    QByteArray out = BmpHeaders(width, height, 32, bytes, 96.0, 96.0);
    out.append(reinterpret_cast<const char*>(bits), static_cast<qsizetype>(bytes));
    return WriteWhole(file, out);
}

bool SaveBmp24(const uint32_t* topDown, int width, int height, double dpiX, double dpiY,
               const QString& file) {
    if (!topDown || width <= 0 || height <= 0) return false;
    const int stride = (width * 3 + 3) & ~3;
    QByteArray out =
        BmpHeaders(width, height, 24, static_cast<uint32_t>(stride) * height, dpiX, dpiY);
    QByteArray row(stride, '\0');
    for (int y = height - 1; y >= 0; --y) {
        const uint32_t* src = topDown + static_cast<size_t>(y) * width;
        for (int x = 0; x < width; ++x) {
            row[3 * x] = static_cast<char>(src[x] & 255);
            row[3 * x + 1] = static_cast<char>((src[x] >> 8) & 255);
            row[3 * x + 2] = static_cast<char>((src[x] >> 16) & 255);
        }
        out.append(row);
    }
    return WriteWhole(file, out);
}

}  // namespace orv
