#include "project/undo_log.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "project/archive.h"
#include "project/project_manager.h"

namespace orv {

namespace {

uint32_t WordAt(const std::vector<uint8_t>& record, size_t offset) {
    uint32_t v = 0;
    if (offset + 4 <= record.size()) std::memcpy(&v, record.data() + offset, 4);
    return v;
}

}  // namespace

CUndoLog::CUndoLog(CProjectManager* project, int growBytes, int /*unused*/)
    : m_nGrowBytes(std::max(1, growBytes)), m_pProject(project) {}

void CUndoLog::PushPage(const CPageManager& page, uint32_t kind) {
    PushPages({&page}, kind);
}

void CUndoLog::PushPages(const std::vector<const CPageManager*>& pages, uint32_t kind) {
    CByteWriter head;
    head.Put(kind);
    head.Put(static_cast<uint32_t>(pages.size()));
    std::vector<std::vector<uint8_t>> snapshots;
    uint32_t offset = UNDO_ROWS_AT + UNDO_ROW_SIZE * static_cast<uint32_t>(pages.size());
    for (const CPageManager* page : pages) {
        CArchiveOut ar;
        try {
            page->SerializeSnapshot(ar);
        } catch (const std::logic_error&) {
            return;  // a stand-in object that no file can hold: no record
        }
        int index = -1;
        m_pProject->FindPage(page->m_nIdentity, &index);
        head.Put(page->m_nIdentity);
        head.Put(static_cast<uint32_t>(index));
        head.Put(offset);
        offset += static_cast<uint32_t>(ar.Bytes().Size());
        snapshots.push_back(ar.Bytes().Bytes());
    }
    Record record;
    // Room grows in steps, as a memory file's would.
    const size_t step = static_cast<size_t>(m_nGrowBytes);
    record.reserve((offset + step - 1) / step * step);
    record = head.Bytes();
    for (const auto& s : snapshots)
        record.insert(record.end(), s.begin(), s.end());
    PushRecord(std::move(record));
}

void CUndoLog::PushRecord(Record record) {
    if (m_undo.size() > static_cast<size_t>(m_nDepth)) m_undo.pop_back();
    m_undo.push_front(std::move(record));
    m_redo.clear();
}

void CUndoLog::PushOrder(const std::vector<uint32_t>& before, const std::vector<uint32_t>& after) {
    CByteWriter out;
    out.Put(static_cast<uint32_t>(UNDO_PAGES_MOVED));
    out.Put(static_cast<uint32_t>(before.size()));
    for (size_t i = 0; i < before.size(); ++i) {
        const auto at = std::find(after.begin(), after.end(), before[i]);
        out.Put(before[i]);
        out.Put(static_cast<uint32_t>(i));
        out.Put(static_cast<uint32_t>(at - after.begin()));
    }
    PushRecord(out.Bytes());
}

// The third word of a row is the index after the move.
void CUndoLog::RestoreOrder(const Record& record, bool after) {
    std::vector<UstRow> rows = Rows(record);
    std::stable_sort(rows.begin(), rows.end(), [after](const UstRow& a, const UstRow& b) {
        return after ? a.nOffset < b.nOffset : a.nIndex < b.nIndex;
    });
    std::vector<uint32_t> order;
    for (const UstRow& row : rows)
        order.push_back(row.nIdentity);
    m_pProject->ArrangePages(order);
}

bool CUndoLog::CanUndo() const {
    return !m_undo.empty() && WordAt(m_undo.front(), 0) != UNDO_BASE;
}

bool CUndoLog::CanRedo() const {
    return !m_redo.empty() && WordAt(m_redo.front(), 0) != UNDO_BASE;
}

void CUndoLog::Clear() {
    m_undo.clear();
    m_redo.clear();
}

size_t CUndoLog::HeldBytes() const {
    size_t total = 0;
    for (const auto* list : {&m_undo, &m_redo})
        for (const Record& r : *list)
            total += r.capacity();
    return total;
}

std::vector<CUndoLog::UstRow> CUndoLog::Rows(const Record& record) {
    std::vector<UstRow> rows;
    const uint32_t count = WordAt(record, 4);
    for (uint32_t i = 0; i < count; ++i) {
        const size_t at = UNDO_ROWS_AT + static_cast<size_t>(i) * UNDO_ROW_SIZE;
        if (at + UNDO_ROW_SIZE > record.size()) break;
        rows.push_back({WordAt(record, at), WordAt(record, at + 4), WordAt(record, at + 8)});
    }
    return rows;
}

void CUndoLog::LoadSnapshot(CPageManager& page, const Record& record, uint32_t offset) const {
    if (offset >= record.size()) return;
    CByteReader in(record.data() + offset, record.size() - offset);
    CArchiveIn ar(in);
    page.SerializeSnapshot(ar);
}

void CUndoLog::Undo() {
    if (!CanUndo()) return;
    m_redo.push_front(std::move(m_undo.front()));
    m_undo.pop_front();
    const Record& record = m_redo.front();
    switch (WordAt(record, 0)) {
        case UNDO_PAGES_ADDED:
            RemoveRecordedPages(record);
            break;
        case UNDO_PAGES_REMOVED:
            RestoreRecordedPages(record);
            break;
        case UNDO_PAGES_EDITED:
            UndoEdit(record);
            break;
        case UNDO_PAGES_MOVED:
            RestoreOrder(record, false);
            break;
        default:
            break;
    }
}

void CUndoLog::Redo() {
    if (!CanRedo()) return;
    m_undo.push_front(std::move(m_redo.front()));
    m_redo.pop_front();
    const Record& record = m_undo.front();
    switch (WordAt(record, 0)) {
        case UNDO_PAGES_ADDED:
            RestoreRecordedPages(record);
            break;
        case UNDO_PAGES_REMOVED:
            RemoveRecordedPages(record);
            break;
        case UNDO_PAGES_EDITED:
            RedoEdit(record);
            break;
        case UNDO_PAGES_MOVED:
            RestoreOrder(record, true);
            break;
        default:
            break;
    }
}

void CUndoLog::RemoveRecordedPages(const Record& record) {
    std::vector<int> indices;
    for (const UstRow& row : Rows(record))
        indices.push_back(static_cast<int>(row.nIndex));
    std::sort(indices.rbegin(), indices.rend());
    const int old = m_pProject->m_nCurPage;
    for (int index : indices)
        m_pProject->RemovePage(index);
    m_pProject->SettleCurrent(old);
}

void CUndoLog::RestoreRecordedPages(const Record& record) {
    std::vector<std::pair<uint32_t, CPageManager*>> made;
    for (const UstRow& row : Rows(record)) {
        CPageManager* page = m_pProject->InsertPage(static_cast<int>(row.nIndex) - 1);
        LoadSnapshot(*page, record, row.nOffset);
        made.emplace_back(row.nIdentity, page);
    }
    for (const auto& [old, page] : made)
        ReplacePageIdentity(old, page->m_nIdentity);
    if (made.empty()) return;
    int first = -1;
    m_pProject->FindPage(made.front().second->m_nIdentity, &first);
    m_pProject->ShowRestoredPage(first);
}

void CUndoLog::UndoEdit(const Record& record) {
    const std::vector<UstRow> popped = Rows(record);
    std::vector<uint32_t> pending;
    for (const UstRow& row : popped)
        pending.push_back(row.nIdentity);
    const bool single = popped.size() == 1;
    if (single) {
        int index = -1;
        if (m_pProject->FindPage(popped.front().nIdentity, &index)) m_pProject->ShowPage(index);
    }
    for (const Record& older : m_undo) {
        if (pending.empty()) break;
        for (const UstRow& row : Rows(older)) {
            const auto it = std::find(pending.begin(), pending.end(), row.nIdentity);
            if (it == pending.end()) continue;
            pending.erase(it);
            if (CPageManager* page = m_pProject->FindPage(row.nIdentity, nullptr))
                LoadSnapshot(*page, older, row.nOffset);
        }
    }
    m_pProject->PanelsChanged();
}

void CUndoLog::RedoEdit(const Record& record) {
    for (const UstRow& row : Rows(record))
        if (CPageManager* page = m_pProject->FindPage(row.nIdentity, nullptr))
            LoadSnapshot(*page, record, row.nOffset);
    m_pProject->PanelsChanged();
}

void CUndoLog::ReplacePageIdentity(uint32_t oldIdentity, uint32_t newIdentity) {
    // The row offset runs on across records and is never reset, so only the
    // newest record's rows are read where they stand; older records keep
    // stale identities, and their snapshots are then never found. That is
    // how this log has always behaved, and it stays. A running offset past
    // a record's rows reads nothing there, so snapshot bytes are never
    // patched by chance.
    uint32_t offset = UNDO_ROWS_AT;
    for (auto* list : {&m_undo, &m_redo}) {
        for (Record& record : *list) {
            const uint32_t count = WordAt(record, 4);
            const size_t rowsEnd = UNDO_ROWS_AT + static_cast<size_t>(count) * UNDO_ROW_SIZE;
            for (uint32_t i = 0; i < count; ++i, offset += UNDO_ROW_SIZE) {
                if (offset + UNDO_ROW_SIZE > rowsEnd || offset + 4 > record.size()) continue;
                if (WordAt(record, offset) == oldIdentity)
                    std::memcpy(record.data() + offset, &newIdentity, 4);
            }
        }
    }
}

}  // namespace orv
