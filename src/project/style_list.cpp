#include "project/style_list.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "render/fixed_string.h"

namespace orv {

namespace {

constexpr size_t THUMB_BYTES = STYLE_THUMB_CHARS * 2;

// A name that runs to the end of its field without a terminator belongs to
// a record that was cut or overwritten: nothing in it can be trusted.
bool ThumbTerminated(const char* record, size_t recordSize) {
    const char* field = record + recordSize - THUMB_BYTES;
    for (size_t i = 0; i < THUMB_BYTES; i += 2)
        if (field[i] == 0 && field[i + 1] == 0) return true;
    return false;
}

}  // namespace

std::vector<QByteArray> ReadStyleRecords(const QString& file, size_t recordSize,
                                         UstStyleListRead* info) {
    UstStyleListRead local;
    UstStyleListRead& r = info ? *info : local;
    r = {};
    std::vector<QByteArray> records;
    QFile in(file);
    if (recordSize <= THUMB_BYTES || !in.open(QIODevice::ReadOnly)) return records;
    r.bFound = true;
    const QByteArray all = in.readAll();
    if (all.size() < 4) {
        r.nSkipped = all.isEmpty() ? 0 : 1;
        return records;
    }
    std::memcpy(&r.nClaimed, all.constData(), 4);
    const size_t body = static_cast<size_t>(all.size()) - 4;
    const size_t whole = body / recordSize;
    const size_t take = std::min<size_t>(whole, r.nClaimed);
    // Records the count promised but the file lacks, and bytes of a record
    // that was never finished, are both skipped.
    if (r.nClaimed > whole || body % recordSize != 0) r.nSkipped = 1;
    for (size_t i = 0; i < take; ++i) {
        const char* p = all.constData() + 4 + i * recordSize;
        if (!ThumbTerminated(p, recordSize)) {
            ++r.nSkipped;
            continue;
        }
        records.emplace_back(p, static_cast<qsizetype>(recordSize));
    }
    r.nLoaded = static_cast<int>(records.size());
    return records;
}

bool WriteStyleRecords(const QString& file, const void* records, size_t count, size_t recordSize) {
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) return false;
    const auto n = static_cast<uint32_t>(count);
    const auto bytes = static_cast<qint64>(count * recordSize);
    if (out.write(reinterpret_cast<const char*>(&n), 4) != 4) return false;
    if (bytes > 0 && out.write(static_cast<const char*>(records), bytes) != bytes) return false;
    return out.commit();
}

QString ThumbNameOf(const void* thumbField) {
    const QString stored = FixedToQString(thumbField, STYLE_THUMB_CHARS);
    // Names written on the original system may carry its separators.
    const qsizetype cut = std::max(stored.lastIndexOf('\\'), stored.lastIndexOf('/'));
    const QString name = stored.mid(cut + 1);
    return name == ".." || name == "." ? QString() : name;
}

bool StyleFileExists(const QString& path) {
    return QFileInfo(path).isFile();
}

void RemoveStyleFile(const QString& path) {
    QFile::remove(path);
}

}  // namespace orv
