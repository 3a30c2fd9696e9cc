#pragma once
// The live data of one page: the values its text fields show on air, and
// how a change reaches the air while the page is there. Written by the
// control server or the Data pane, read by the play engine as it draws, so
// every access goes through the lock.

#include <QString>

#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

#include "objects/text_fields.h"

namespace orv {

enum EDataUpdate : int {
    // Only the pixels that changed are written, after a frame boundary.
    DATA_UPDATE_RECT = 0,
    // The page is taken again through its in effect.
    DATA_UPDATE_RETAKE = 1
};

class CPageData {
public:
    FieldValues Values() const {
        std::lock_guard lock(m_mutex);
        return m_values;
    }
    // Replaces the values; answers whether anything changed.
    bool SetValues(FieldValues values) {
        std::lock_guard lock(m_mutex);
        if (values == m_values) return false;
        m_values = std::move(values);
        return true;
    }
    // Sets the given names and keeps the others.
    bool MergeValues(const FieldValues& values) {
        std::lock_guard lock(m_mutex);
        bool changed = false;
        for (const auto& [name, value] : values) {
            QString& slot = m_values[name];
            changed = changed || slot != value;
            slot = value;
        }
        return changed;
    }
    int UpdateMode() const {
        std::lock_guard lock(m_mutex);
        return m_nUpdateMode;
    }
    void SetUpdateMode(int mode) {
        std::lock_guard lock(m_mutex);
        m_nUpdateMode = mode == DATA_UPDATE_RETAKE ? DATA_UPDATE_RETAKE : DATA_UPDATE_RECT;
    }

    // Rows from a CSV file: each take of the page shows the next one, and
    // after the last the first again. No rows: the values stay as set.
    void SetRows(std::vector<FieldValues> rows, QString csvName) {
        std::lock_guard lock(m_mutex);
        m_rows = std::move(rows);
        m_strCsv = std::move(csvName);
        m_nRow = -1;
        m_bHoldRow = false;
    }
    // At take time, from the engine's thread.
    void TakeRow() {
        std::lock_guard lock(m_mutex);
        if (m_rows.empty()) return;
        if (m_bHoldRow && m_nRow >= 0) {
            m_bHoldRow = false;
            return;
        }
        m_nRow = (m_nRow + 1) % static_cast<int>(m_rows.size());
        m_values = m_rows[static_cast<size_t>(m_nRow)];
    }
    // The next take shows the row on air again: a retake for new data is
    // no step through the list.
    void HoldRow() {
        std::lock_guard lock(m_mutex);
        m_bHoldRow = true;
    }
    int RowIndex() const {
        std::lock_guard lock(m_mutex);
        return m_nRow;
    }
    int RowCount() const {
        std::lock_guard lock(m_mutex);
        return static_cast<int>(m_rows.size());
    }
    QString CsvName() const {
        std::lock_guard lock(m_mutex);
        return m_strCsv;
    }

private:
    mutable std::mutex m_mutex;
    FieldValues m_values;
    int m_nUpdateMode = DATA_UPDATE_RECT;
    std::vector<FieldValues> m_rows;
    QString m_strCsv;  // the rows' file, beside the project file
    int m_nRow = -1;   // the row last taken
    bool m_bHoldRow = false;
};

}  // namespace orv
