#include "project/object_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

}  // namespace

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
    if (QFileInfo::exists(folder.filePath(name)))
        name = FreeTimestampName(objectFolder, info.suffix());
    if (name.isEmpty() || !QFile::copy(source, folder.filePath(name))) return false;
    links.Record(source, folder.filePath(name));
    outName = name;
    return true;
}

}  // namespace orv
