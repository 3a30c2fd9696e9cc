#include "project/clipboard_formats.h"

#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <cstring>

namespace orv {

std::vector<uint8_t> CountedBlock(uint32_t count, const std::vector<uint8_t>& records) {
    std::vector<uint8_t> block(4 + records.size());
    std::memcpy(block.data(), &count, 4);
    std::copy(records.begin(), records.end(), block.begin() + 4);
    return block;
}

std::vector<uint8_t> MimeBlock(const QMimeData& mime, const char* type) {
    const QByteArray data = mime.data(QString::fromLatin1(type));
    return {data.begin(), data.end()};
}

void SetMimeBlock(QMimeData& mime, const char* type, const std::vector<uint8_t>& block) {
    mime.setData(QString::fromLatin1(type), QByteArray(reinterpret_cast<const char*>(block.data()),
                                                       static_cast<qsizetype>(block.size())));
}

QString MimeSourceFolder(const QMimeData& mime) {
    return QString::fromUtf8(mime.data(QString::fromLatin1(MIME_SOURCE_FOLDER)));
}

void SetMimeSourceFolder(QMimeData& mime, const QString& folder) {
    mime.setData(QString::fromLatin1(MIME_SOURCE_FOLDER), folder.toUtf8());
}

QString MimePlainText(const QMimeData& mime) {
    if (mime.hasText()) return mime.text();
    // Text in the system's narrow encoding, as older programs offer it.
    for (const QString& format : mime.formats())
        if (format.startsWith(QLatin1String("text/plain")))
            return QString::fromLocal8Bit(mime.data(format));
    return {};
}

QStringList MimeLocalFiles(const QMimeData& mime) {
    QStringList files;
    if (!mime.hasUrls()) return files;
    for (const QUrl& url : mime.urls())
        if (url.isLocalFile()) files << url.toLocalFile();
    return files;
}

bool PeekObjectBlock(const std::vector<uint8_t>& block, uint32_t* count, int32_t* firstKind) {
    if (block.size() < 4) return false;
    std::memcpy(count, block.data(), 4);
    *firstKind = 0;
    if (block.size() >= 8) std::memcpy(firstKind, block.data() + 4, 4);
    return true;
}

}  // namespace orv
