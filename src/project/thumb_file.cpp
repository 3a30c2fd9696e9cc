#include "project/thumb_file.h"

#include <QFile>
#include <QFileInfo>

#include <cstring>

#include "render/image_file.h"

namespace orv {

namespace {

constexpr int THUMB_WIDTH = 300;
constexpr uint16_t BMP_MAGIC = 19778;  // "BM"

#pragma pack(push, 1)
struct UstBmpFileHeader {
    uint16_t bfType;
    uint32_t bfSize;
    uint16_t bfReserved1, bfReserved2;
    uint32_t bfOffBits;
};
static_assert(sizeof(UstBmpFileHeader) == 14);

// The information header and the four bytes behind it, which the reader
// takes in one piece.
struct UstBmpInfoBlock {
    uint32_t biSize;
    int32_t biWidth, biHeight;
    uint16_t biPlanes, biBitCount;
    uint32_t biCompression, biSizeImage;
    int32_t biXPelsPerMeter, biYPelsPerMeter;
    uint32_t biClrUsed, biClrImportant;
    uint32_t nFollowing;
};
static_assert(sizeof(UstBmpInfoBlock) == 44);
#pragma pack(pop)

// Where the pixels of a thumbnail file start, or -1 when its header is not
// that of a thumbnail.
qint64 PixelOffset(QFile& file) {
    UstBmpFileHeader head;
    UstBmpInfoBlock info;
    if (file.read(reinterpret_cast<char*>(&head), sizeof head) != sizeof head ||
        file.read(reinterpret_cast<char*>(&info), sizeof info) != sizeof info)
        return -1;
    const uint16_t type = head.bfType;
    const int32_t width = info.biWidth;
    const uint16_t bits = info.biBitCount;
    const uint32_t compression = info.biCompression;
    if (type != BMP_MAGIC || width != THUMB_WIDTH || bits != 32 || compression != 0) return -1;
    return head.bfOffBits;
}

}  // namespace

QString CreateThumbFile(const QString& dataFolder, int width, int height) {
    if (dataFolder.isEmpty() || width <= 0 || height <= 0) return {};
    const QString name = FreeTimestampName(dataFolder, QStringLiteral("page"));
    if (name.isEmpty()) return {};
    const std::vector<uint32_t> black(static_cast<size_t>(width) * height, 0);
    return SaveBmp32BottomUp(black.data(), width, height, dataFolder + name) ? name : QString();
}

std::vector<uint32_t> ReadThumbFile(const QString& path, int width, int height) {
    QFile file(path);
    if (path.isEmpty() || width <= 0 || height <= 0 || !file.open(QIODevice::ReadOnly)) return {};
    const qint64 offset = PixelOffset(file);
    const auto bytes = static_cast<qint64>(width) * height * 4;
    if (offset < 0 || offset > file.size() || file.size() - offset < bytes || !file.seek(offset))
        return {};
    std::vector<uint32_t> bits(static_cast<size_t>(width) * height);
    if (file.read(reinterpret_cast<char*>(bits.data()), bytes) != bytes) return {};
    return bits;
}

bool WriteThumbPixels(const QString& path, const std::vector<uint32_t>& bits) {
    QFile file(path);
    if (bits.empty() || !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) return false;
    const qint64 offset = PixelOffset(file);
    if (offset < 0 || !file.seek(offset)) return false;
    const auto bytes = static_cast<qint64>(bits.size() * 4);
    return file.write(reinterpret_cast<const char*>(bits.data()), bytes) == bytes;
}

}  // namespace orv
