#include "media/sequence_files.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace orv {

namespace {

// Base name split around its last run of digits.
struct UstNumberedName {
    QString prefix, digits, suffix, extension;
};

UstNumberedName Split(const QString& file) {
    const QFileInfo info(file);
    const QString base = info.completeBaseName();
    static const QRegularExpression lastDigits(QStringLiteral("(\\d+)(\\D*)$"));
    const QRegularExpressionMatch m = lastDigits.match(base);
    if (!m.hasMatch()) return {base, {}, {}, info.suffix()};
    return {base.left(m.capturedStart(1)), m.captured(1), m.captured(2), info.suffix()};
}

}  // namespace

bool IsSequenceImage(const QString& file) {
    const QString ext = QFileInfo(file).suffix().toUpper();
    return ext == QLatin1String("TGA") || ext == QLatin1String("PNG");
}

qint64 SequenceNumber(const QString& file) {
    const QString digits = Split(file).digits.right(18);
    return digits.isEmpty() ? -1 : digits.toLongLong();
}

QStringList SortByNumber(QStringList files) {
    std::stable_sort(files.begin(), files.end(), [](const QString& a, const QString& b) {
        const qint64 na = SequenceNumber(a), nb = SequenceNumber(b);
        if ((na < 0) != (nb < 0)) return nb < 0;
        if (na != nb) return na < nb;
        return a < b;
    });
    return files;
}

QStringList SequenceInFolder(const QString& folder) {
    QStringList names;
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        if (IsSequenceImage(name)) names.append(name);
    return SortByNumber(names);
}

QStringList SequenceAround(const QString& file) {
    const QFileInfo info(file);
    const UstNumberedName one = Split(file);
    if (one.digits.isEmpty()) return {info.fileName()};
    QStringList names;
    for (const QString& name : info.dir().entryList(QDir::Files)) {
        const UstNumberedName other = Split(name);
        if (!other.digits.isEmpty() && other.prefix == one.prefix && other.suffix == one.suffix &&
            other.extension.compare(one.extension, Qt::CaseInsensitive) == 0)
            names.append(name);
    }
    return SortByNumber(names);
}

}  // namespace orv
