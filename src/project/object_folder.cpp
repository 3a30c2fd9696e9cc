#include "project/object_folder.h"

#include "project/thumb_file.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

namespace orv {

namespace {

QString Canonical(const QString& path) {
    const QFileInfo info(path);
    const QString c = info.canonicalFilePath();
    return c.isEmpty() ? info.absoluteFilePath() : c;
}

bool InFolder(const QString& file, const QString& folder) {
    return QFileInfo(Canonical(file)).absolutePath() ==
           QFileInfo(QDir(folder).canonicalPath()).absoluteFilePath();
}

// A free path in the folder under a timestamp name, after up to five tries
// a millisecond apart; empty when none was free.
QString FreeTimestampPath(const QDir& folder, const QString& suffix) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (attempt > 0) QThread::msleep(1);
        const QString name = MakeTimestampName() + (suffix.isEmpty() ? "" : "." + suffix);
        if (!QFileInfo::exists(folder.filePath(name))) return name;
    }
    return {};
}

}  // namespace

QString MakeTimestampName() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate d = now.date();
    const QTime t = now.time();
    return QString::asprintf("%04d%02d%02d%02d%02d%02d%03d", d.year(), d.month(), d.day(), t.hour(),
                             t.minute(), t.second(), t.msec());
}

QString CFileLinkTable::CopyIn(const QString& source, const QString& folder) const {
    const QString key = Canonical(source);
    for (const QStringList& row : m_rows) {
        if (row.value(0) != key) continue;
        for (qsizetype i = 1; i < row.size(); ++i)
            if (InFolder(row[i], folder) && QFileInfo::exists(row[i]))
                return QFileInfo(row[i]).fileName();
    }
    return {};
}

void CFileLinkTable::Record(const QString& source, const QString& copy) {
    const QString key = Canonical(source);
    for (QStringList& row : m_rows)
        if (row.value(0) == key) {
            row.append(Canonical(copy));
            return;
        }
    m_rows.push_back({key, Canonical(copy)});
}

bool CopyToObjectFolder(const QString& source, QString& outName, const QString& objectFolder,
                        CFileLinkTable& links) {
    const QFileInfo info(source);
    if (!info.isFile() || objectFolder.isEmpty()) return false;
    if (InFolder(source, objectFolder)) {
        outName = info.fileName();
        return true;
    }
    const QString known = links.CopyIn(source, objectFolder);
    if (!known.isEmpty()) {
        outName = known;
        return true;
    }
    const QDir folder(objectFolder);
    if (!folder.exists() && !QDir().mkpath(objectFolder)) return false;
    QString name = info.fileName();
    if (QFileInfo::exists(folder.filePath(name))) name = FreeTimestampPath(folder, info.suffix());
    if (name.isEmpty() || !QFile::copy(source, folder.filePath(name))) return false;
    links.Record(source, folder.filePath(name));
    outName = name;
    return true;
}

}  // namespace orv
