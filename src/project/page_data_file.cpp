#include "project/page_data_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include "project/csv_rows.h"
#include "project/page_manager.h"

namespace orv {

namespace {

void Say(QString* error, const QString& text) {
    if (error) *error = text;
}

struct UstDataEntry {
    int nIndex = 0;
    FieldValues values;
    int nMode = DATA_UPDATE_RECT;
    QString strCsv;
    std::vector<FieldValues> rows;
};

// A CSV file beside the project file, named plainly: the data file never
// leads outside the project's folder.
bool ReadCsvEntry(const QString& folder, UstDataEntry& e) {
    if (e.strCsv.isEmpty()) return true;
    if (e.strCsv.contains('/') || e.strCsv.contains('\\') || e.strCsv.startsWith('.')) return false;
    return ReadCsvRows(QDir(folder).filePath(e.strCsv), e.rows, nullptr);
}

bool ReadEntry(const QJsonObject& entry, int pageCount, UstDataEntry& e) {
    const int page = entry.value(QStringLiteral("page")).toInt(0);
    if (page < 1 || page > pageCount) return false;
    e.nIndex = page - 1;
    e.nMode = entry.value(QStringLiteral("update")).toString() == QStringLiteral("retake")
                  ? DATA_UPDATE_RETAKE
                  : DATA_UPDATE_RECT;
    e.strCsv = entry.value(QStringLiteral("csv")).toString();
    const QJsonObject data = entry.value(QStringLiteral("data")).toObject();
    for (auto it = data.begin(); it != data.end(); ++it) {
        if (!it.value().isString()) return false;
        e.values[it.key()] = it.value().toString();
    }
    return true;
}

// A file that cannot be used is moved aside under the first free name, so
// that the next save, which writes the file whole, does not take with it
// what the operator may still want to mend by hand.
QString KeepAside(QFile& file) {
    file.close();
    const QString base = file.fileName() + QStringLiteral(".damaged");
    QString name = base;
    for (int n = 2; QFile::exists(name); ++n)
        name = base + '.' + QString::number(n);
    return file.rename(name) ? QFileInfo(name).fileName() : QString();
}

void SayKept(QString* error, QFile& file, const QString& what) {
    const QString shown = file.fileName();
    const QString kept = KeepAside(file);
    Say(error, kept.isEmpty() ? what.arg(shown)
                              : what.arg(shown) + QStringLiteral("; it was kept as %1").arg(kept));
}

}  // namespace

bool LoadPageData(const QString& folder, const std::vector<CPageManager*>& pages, QString* error) {
    QFile file(QDir(folder).filePath(PAGE_DATA_FILE));
    if (!file.exists()) return true;
    if (file.size() > PAGE_DATA_MAX_BYTES) {
        SayKept(error, file, QStringLiteral("%1 is too large to be a data file"));
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        Say(error, QStringLiteral("%1 cannot be read").arg(file.fileName()));
        return false;
    }
    QJsonParseError status{};
    const QJsonDocument doc = QJsonDocument::fromJson(file.readAll(), &status);
    if (status.error != QJsonParseError::NoError || !doc.isObject()) {
        SayKept(error, file, QStringLiteral("%1 is damaged"));
        return false;
    }
    // All entries are checked before any page takes its values.
    std::vector<UstDataEntry> entries;
    for (const QJsonValue v : doc.object().value(QStringLiteral("pages")).toArray()) {
        UstDataEntry e;
        if (!ReadEntry(v.toObject(), static_cast<int>(pages.size()), e) ||
            !ReadCsvEntry(folder, e)) {
            SayKept(error, file, QStringLiteral("%1 has an entry that cannot be used"));
            return false;
        }
        entries.push_back(std::move(e));
    }
    for (UstDataEntry& e : entries) {
        CPageData& data = pages[static_cast<size_t>(e.nIndex)]->m_data;
        data.SetValues(std::move(e.values));
        data.SetUpdateMode(e.nMode);
        data.SetRows(std::move(e.rows), e.strCsv);
    }
    return true;
}

bool SavePageData(const QString& folder, const std::vector<CPageManager*>& pages, QString* error) {
    QJsonArray list;
    for (size_t i = 0; i < pages.size(); ++i) {
        const FieldValues values = pages[i]->m_data.Values();
        const int mode = pages[i]->m_data.UpdateMode();
        const QString csv = pages[i]->m_data.CsvName();
        if (values.empty() && mode == DATA_UPDATE_RECT && csv.isEmpty()) continue;
        QJsonObject data;
        for (const auto& [name, value] : values)
            data.insert(name, value);
        QJsonObject entry;
        entry.insert(QStringLiteral("page"), static_cast<int>(i) + 1);
        entry.insert(QStringLiteral("update"), mode == DATA_UPDATE_RETAKE ? QStringLiteral("retake")
                                                                          : QStringLiteral("rect"));
        entry.insert(QStringLiteral("data"), data);
        if (!csv.isEmpty()) entry.insert(QStringLiteral("csv"), csv);
        list.append(entry);
    }
    QSaveFile file(QDir(folder).filePath(PAGE_DATA_FILE));
    if (!file.open(QIODevice::WriteOnly)) {
        Say(error, QStringLiteral("%1 cannot be written").arg(file.fileName()));
        return false;
    }
    file.write(QJsonDocument(QJsonObject{{QStringLiteral("pages"), list}}).toJson());
    if (!file.commit()) {
        Say(error, QStringLiteral("%1 cannot be written").arg(file.fileName()));
        return false;
    }
    return true;
}

}  // namespace orv
