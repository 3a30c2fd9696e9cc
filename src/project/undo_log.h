#pragma once
// Undo by whole pages: every edit leaves a snapshot of the page as it now
// stands, and undoing an edit reloads the newest older snapshot of that
// page. Adding and removing pages have records of their own. The number of
// records is fixed; memory is not limited otherwise.

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace orv {

class CPageManager;
class CProjectManager;

enum EUndoKind : uint32_t {
    UNDO_BASE = 0,  // every page after a load; never undone itself
    UNDO_PAGES_ADDED = 1,
    UNDO_PAGES_REMOVED = 2,
    UNDO_PAGES_EDITED = 4,
    // Rows of (identity, index before, index after) for every page.
    UNDO_PAGES_MOVED = 8
};

// A record: kind, row count, rows of (identity, index, snapshot offset),
// then the snapshots; all words little-endian.
constexpr uint32_t UNDO_ROW_SIZE = 12;
constexpr uint32_t UNDO_ROWS_AT = 8;

class CUndoLog {
public:
    // The third value has never had a use; it is taken and dropped.
    CUndoLog(CProjectManager* project, int growBytes, int unused = 20);

    void PushPage(const CPageManager& page, uint32_t kind);
    void PushPages(const std::vector<const CPageManager*>& pages, uint32_t kind);
    // A new order of the project's pages: their identities before and after.
    void PushOrder(const std::vector<uint32_t>& before, const std::vector<uint32_t>& after);
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();
    void Clear();
    // A page made anew in place of an old one takes over its records.
    void ReplacePageIdentity(uint32_t oldIdentity, uint32_t newIdentity);

    size_t UndoCount() const { return m_undo.size(); }
    size_t RedoCount() const { return m_redo.size(); }
    // What the records hold, their spare room included.
    size_t HeldBytes() const;
    const std::deque<std::vector<uint8_t>>& UndoRecords() const { return m_undo; }

private:
    using Record = std::vector<uint8_t>;
    struct UstRow {
        uint32_t nIdentity;
        uint32_t nIndex;
        uint32_t nOffset;
    };
    static std::vector<UstRow> Rows(const Record& record);
    void LoadSnapshot(CPageManager& page, const Record& record, uint32_t offset) const;
    void RemoveRecordedPages(const Record& record);
    void RestoreRecordedPages(const Record& record);
    void UndoEdit(const Record& record);
    void RedoEdit(const Record& record);
    void RestoreOrder(const Record& record, bool after);
    void PushRecord(Record record);

    std::deque<Record> m_undo;  // front is newest
    std::deque<Record> m_redo;  // front is next to redo
    int m_nGrowBytes;
    int m_nDepth = 30;
    CProjectManager* m_pProject;
};

}  // namespace orv
