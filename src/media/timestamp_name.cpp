#include "media/timestamp_name.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QThread>

namespace orv {

QString TimestampName(const QDateTime& when) {
    const QDate d = when.date();
    const QTime t = when.time();
    return QString::asprintf("%04d%02d%02d%02d%02d%02d%03d", d.year(), d.month(), d.day(), t.hour(),
                             t.minute(), t.second(), t.msec());
}

QString MakeTimestampName() {
    return TimestampName(QDateTime::currentDateTime());
}

QString FreeTimestampName(const QString& folder, const QString& suffix) {
    const QDir dir(folder);
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (attempt > 0) QThread::msleep(1);
        const QString name = MakeTimestampName() + (suffix.isEmpty() ? "" : "." + suffix);
        if (!QFileInfo::exists(dir.filePath(name))) return name;
    }
    return {};
}

}  // namespace orv
