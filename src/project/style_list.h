#pragma once
// The list files of the text, shape and colour styles: a 32-bit count, then
// the records back to back. A list is written whole to a temporary file that
// is renamed over the old one, so that a kill never leaves half a list and a
// style added is on disk the moment it is shown.

#include <QString>

#include <cstring>
#include <functional>
#include <vector>

#include "render/style_records.h"

namespace orv {

// What a read found: whether the file was there, the count it claims, the
// records taken and those passed over (a damaged thumbnail name, a short
// tail, more claimed than the file holds).
struct UstStyleListRead {
    bool bFound = false;
    uint32_t nClaimed = 0;
    int nLoaded = 0;
    int nSkipped = 0;
    bool Clean() const { return bFound && nSkipped == 0; }
};

// The raw records of a list file whose records are recordSize bytes with a
// 260-unit thumbnail name at their end.
std::vector<QByteArray> ReadStyleRecords(const QString& file, size_t recordSize,
                                         UstStyleListRead* info);
bool WriteStyleRecords(const QString& file, const void* records, size_t count, size_t recordSize);

// The thumbnail's file name of a record: the last part of the stored name,
// so that a name written elsewhere can never point out of the folder.
QString ThumbNameOf(const void* thumbField);

template <class R>
int LoadStyleList(const QString& file, std::vector<R>& out, UstStyleListRead* info = nullptr) {
    out.clear();
    for (const QByteArray& bytes : ReadStyleRecords(file, sizeof(R), info)) {
        R record;
        std::memcpy(&record, bytes.constData(), sizeof record);
        out.push_back(record);
    }
    return static_cast<int>(out.size());
}

template <class R>
bool SaveStyleList(const QString& file, const std::vector<R>& records) {
    return WriteStyleRecords(file, records.data(), records.size(), sizeof(R));
}

inline int LoadTextStyles(const QString& file, std::vector<UstText>& out) {
    return LoadStyleList(file, out);
}
inline int LoadShapeStyles(const QString& file, std::vector<UstShape>& out) {
    return LoadStyleList(file, out);
}
inline int LoadColorStyles(const QString& file, std::vector<UstColor>& out) {
    return LoadStyleList(file, out);
}
inline bool SaveTextStyles(const QString& file, const std::vector<UstText>& records) {
    return SaveStyleList(file, records);
}
inline bool SaveShapeStyles(const QString& file, const std::vector<UstShape>& records) {
    return SaveStyleList(file, records);
}
inline bool SaveColorStyles(const QString& file, const std::vector<UstColor>& records) {
    return SaveStyleList(file, records);
}

bool StyleFileExists(const QString& path);
void RemoveStyleFile(const QString& path);

// One library of styles kept in a list file in its folder, each with a
// thumbnail beside it. Every add and delete writes the list at once; when
// that fails the library and the folder stay as they were.
template <class R>
class CStyleList {
public:
    // Draws a record's thumbnail into the folder and names it in the record.
    using ThumbMaker = std::function<bool(R&, const QString& folder)>;

    CStyleList(QString folder, QString listName, ThumbMaker maker)
        : m_strFolder(std::move(folder)),
          m_strList(std::move(listName)),
          m_fnMaker(std::move(maker)) {}

    const QString& Folder() const { return m_strFolder; }
    QString ListFile() const { return m_strFolder + "/" + m_strList; }
    const std::vector<R>& Items() const { return m_items; }
    int Count() const { return static_cast<int>(m_items.size()); }
    QString ThumbPath(int index) const {
        if (index < 0 || index >= Count()) return {};
        const QString name = ThumbNameOf(&m_items[static_cast<size_t>(index)].szThumb);
        return name.isEmpty() ? QString() : m_strFolder + "/" + name;
    }

    // Reads the list; a style whose thumbnail is missing gets a new one. The
    // list is written back for the new names only when it was read whole.
    UstStyleListRead Load() {
        UstStyleListRead info;
        LoadStyleList(ListFile(), m_items, &info);
        bool remade = false;
        for (R& record : m_items) {
            const QString name = ThumbNameOf(&record.szThumb);
            if (!name.isEmpty() && StyleFileExists(m_strFolder + "/" + name)) continue;
            remade |= m_fnMaker && m_fnMaker(record, m_strFolder);
        }
        if (remade && info.Clean()) SaveStyleList(ListFile(), m_items);
        return info;
    }

    // Makes the thumbnail and appends; false with nothing changed on failure.
    bool Add(R record) {
        if (!m_fnMaker || !m_fnMaker(record, m_strFolder)) return false;
        m_items.push_back(record);
        if (SaveStyleList(ListFile(), m_items)) return true;
        m_items.pop_back();
        RemoveStyleFile(m_strFolder + "/" + ThumbNameOf(&record.szThumb));
        return false;
    }

    bool Delete(int index) {
        if (index < 0 || index >= Count()) return false;
        const QString thumb = ThumbPath(index);
        const R kept = m_items[static_cast<size_t>(index)];
        m_items.erase(m_items.begin() + index);
        if (!SaveStyleList(ListFile(), m_items)) {
            m_items.insert(m_items.begin() + index, kept);
            return false;
        }
        if (!thumb.isEmpty()) RemoveStyleFile(thumb);
        return true;
    }

private:
    QString m_strFolder;
    QString m_strList;
    ThumbMaker m_fnMaker;
    std::vector<R> m_items;
};

}  // namespace orv
