#include "project/csv_rows.h"

#include <QFile>

#include <algorithm>

namespace orv {

namespace {

// Records of fields, quotes resolved; false on a quote left open.
bool SplitRecords(const QString& text, std::vector<std::vector<QString>>& records) {
    std::vector<QString> record;
    QString field;
    bool quoted = false, wasQuoted = false;
    const auto endField = [&] {
        record.push_back(wasQuoted ? field : field.trimmed());
        field.clear();
        wasQuoted = false;
    };
    const auto endRecord = [&] {
        endField();
        // A blank line is no row.
        if (!(record.size() == 1 && record[0].isEmpty())) records.push_back(std::move(record));
        record.clear();
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c != '"')
                field += c;
            else if (i + 1 < text.size() && text[i + 1] == '"')
                field += '"', ++i;
            else
                quoted = false;
        } else if (c == '"' && field.trimmed().isEmpty()) {
            field.clear();
            quoted = wasQuoted = true;
        } else if (c == ',') {
            endField();
        } else if (c == '\n') {
            endRecord();
        } else if (c != '\r') {
            field += c;
        }
    }
    if (quoted) return false;
    if (!field.isEmpty() || !record.empty() || wasQuoted) endRecord();
    return true;
}

}  // namespace

bool ParseCsvRows(const QByteArray& bytes, std::vector<FieldValues>& rows, QString* error) {
    QByteArray data = bytes;
    if (data.startsWith("\xEF\xBB\xBF")) data.remove(0, 3);
    std::vector<std::vector<QString>> records;
    if (!SplitRecords(QString::fromUtf8(data), records)) {
        if (error) *error = QStringLiteral("a quoted value is not closed");
        return false;
    }
    if (records.empty() || std::all_of(records[0].begin(), records[0].end(),
                                       [](const QString& n) { return n.isEmpty(); })) {
        if (error) *error = QStringLiteral("the first line must name the fields");
        return false;
    }
    const std::vector<QString>& names = records[0];
    rows.clear();
    for (size_t r = 1; r < records.size(); ++r) {
        FieldValues row;
        for (size_t i = 0; i < names.size(); ++i)
            if (!names[i].isEmpty())
                row[names[i]] = i < records[r].size() ? records[r][i] : QString();
        rows.push_back(std::move(row));
    }
    return true;
}

bool ReadCsvRows(const QString& path, std::vector<FieldValues>& rows, QString* error) {
    QFile file(path);
    if (file.size() > CSV_MAX_BYTES || !file.open(QIODevice::ReadOnly)) {
        if (error) *error = QStringLiteral("%1 cannot be read").arg(path);
        return false;
    }
    return ParseCsvRows(file.readAll(), rows, error);
}

}  // namespace orv
