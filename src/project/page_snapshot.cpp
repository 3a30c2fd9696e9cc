// The page in memory: the snapshot that undo keeps, and the flat record
// that carries whole pages through the clipboard.
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "objects/archive_fields.h"
#include "objects/object_factory.h"
#include "project/archive.h"
#include "project/page_manager.h"

namespace orv {

namespace {

constexpr uint32_t LAST_PAGE_TYPE = 2;
constexpr int BACKGROUND_UNITS = 260;
constexpr int32_t MAX_SCROLL_HALVES = 1 << 16;

#pragma pack(push, 1)
struct UstFlatPage {
    uint32_t nPageType;
    uint32_t nObjects;
    char16_t szBackground[BACKGROUND_UNITS];  // terminated
    int32_t bBackground;
    int32_t nScrollHalf;
    int32_t nScrollHalves;
    float fScrollFrac;
    UstPageEffect effect;
    UstPageBlink blink;
    UstPageTyping typing;
};
#pragma pack(pop)
static_assert(sizeof(UstFlatPage) == 612);

bool ScrollInRange(int32_t half, int32_t halves, float frac) {
    return halves >= 0 && halves <= MAX_SCROLL_HALVES && half >= 0 && half <= halves &&
           std::isfinite(frac) && frac >= 0.0f && frac <= 1.0f;
}

// One object of a flat block, of a kind that exists and whose state reads
// whole and stays inside the bounds any page keeps; null otherwise.
std::unique_ptr<CQRDObject> ReadFlatObject(CByteReader& in, CPageContext* page, bool deep,
                                           int flag) {
    CByteReader peek = in;
    auto object = CreateObjectOfType(peek.Get<int32_t>(), page);
    if (!object) return nullptr;
    const bool loaded = deep ? object->LoadStateDeep(in) : object->LoadState(in, flag);
    if (!loaded) return nullptr;
    try {
        CheckArchivedRect(object->m_rcStored, "a pasted object");
        CheckArchivedRect(object->GetBoundRect(), "a pasted object");
    } catch (const std::exception&) {
        return nullptr;
    }
    return object;
}

}  // namespace

std::vector<std::unique_ptr<CQRDObject>> ReadFlatObjects(CByteReader& in, uint32_t count,
                                                         CPageContext* page, bool deep, int flag) {
    std::vector<std::unique_ptr<CQRDObject>> objects;
    // Every state opens with at least its kind and four words.
    if (count > in.Remaining() / 20) return {};
    try {
        for (uint32_t i = 0; i < count; ++i) {
            auto object = ReadFlatObject(in, page, deep, flag);
            if (!object) return {};
            objects.push_back(std::move(object));
        }
    } catch (const std::out_of_range&) {
        return {};
    }
    return objects;
}

void CPageManager::SerializeSnapshot(CArchiveOut& ar) const {
    CByteWriter& out = ar.Bytes();
    out.Put(m_nPageType);
    out.Put(static_cast<uint32_t>(m_objects.size()));
    ar.WriteString(m_strThumbFile);
    out.Put<uint32_t>(m_background.bPresent);
    ar.WriteString(m_background.strFile);
    out.Put(m_nScrollHalf);
    out.Put(m_nScrollHalves);
    out.Put(m_fScrollFrac);
    out.Put(m_effect);
    ar.WriteObjectList(m_objects);
}

void CPageManager::SerializeSnapshot(CArchiveIn& ar) {
    CByteReader& in = ar.Bytes();
    const auto type = in.Get<uint32_t>();
    if (type > LAST_PAGE_TYPE) throw std::runtime_error("a snapshot of unknown page type");
    in.Get<uint32_t>();  // the object count; the list has its own
    QString thumb = ar.ReadString();
    const auto present = static_cast<int32_t>(in.Get<uint32_t>());
    QString background = ar.ReadString();
    const auto half = in.Get<int32_t>();
    const auto halves = in.Get<int32_t>();
    const auto frac = in.Get<float>();
    if (!ScrollInRange(half, halves, frac))
        throw std::runtime_error("a snapshot's scroll position is out of range");
    const auto effect = in.Get<UstPageEffect>();
    auto objects = ar.ReadObjectList();

    m_selection.clear();
    const std::vector<const CQRDObject*> kept = KeepUnchanged(objects);
    for (auto& o : m_objects)
        if (o && m_pDoc) m_pDoc->ObjectRemoved(o.get());
    m_objects = std::move(objects);
    m_gone.clear();
    m_nPageType = type;
    m_strThumbFile = std::move(thumb);
    m_background.bPresent = present;
    m_background.strFile = std::move(background);
    m_nScrollHalf = half;
    m_nScrollHalves = halves;
    m_fScrollFrac = frac;
    m_effect = effect;
    for (auto& o : m_objects)
        if (o->m_pPage != this) o->Attach(this);
    if (m_bActive) {
        Activate(false, kept);
        DrawHandles();
        if (m_pView) m_pView->Repaint();
    } else if (m_background.bPresent) {
        m_background.Reload(ObjectFolder());
    }
    UpdateThumbnail();
    if (!m_bActive) m_background.ReleasePixels();
    RebuildPageText(false);
    SetModified(true);
}

std::vector<const CQRDObject*> CPageManager::KeepUnchanged(
    std::vector<std::unique_ptr<CQRDObject>>& loaded) {
    // An undo usually changes one object: the others stay as they are, with
    // the layers they have drawn, instead of being drawn anew.
    std::vector<const CQRDObject*> kept;
    const size_t n = std::min(loaded.size(), m_objects.size());
    for (size_t i = 0; i < n; ++i) {
        if (m_objects[i]->GetType() != loaded[i]->GetType() || m_objects[i]->IsEditing()) continue;
        CByteWriter now, then;
        m_objects[i]->SaveStateDeep(now);
        loaded[i]->SaveStateDeep(then);
        if (now.Bytes() != then.Bytes()) continue;
        loaded[i] = std::move(m_objects[i]);
        kept.push_back(loaded[i].get());
    }
    return kept;
}

uint32_t CPageManager::GetFlatSize() const {
    CByteWriter out;
    WriteFlat(out);
    return static_cast<uint32_t>(out.Size());
}

void CPageManager::WriteFlat(CByteWriter& out) const {
    UstFlatPage head{};
    head.nPageType = m_nPageType;
    head.nObjects = static_cast<uint32_t>(m_objects.size());
    const QString name = m_background.strFile.left(BACKGROUND_UNITS - 1);
    std::memcpy(head.szBackground, name.utf16(), static_cast<size_t>(name.size()) * 2);
    head.bBackground = m_background.bPresent;
    head.nScrollHalf = m_nScrollHalf;
    head.nScrollHalves = m_nScrollHalves;
    head.fScrollFrac = m_fScrollFrac;
    head.effect = m_effect;
    head.blink = m_blink;
    head.typing = m_typing;
    out.Put(head);
    for (const auto& o : m_objects)
        o->SaveStateDeep(out);
}

namespace {

// The fixed part, when it holds what a page can take.
bool ReadFlatHead(CByteReader& in, UstFlatPage& head, QString& background) {
    if (in.Remaining() < sizeof head) return false;
    head = in.Get<UstFlatPage>();
    const char16_t* end = std::find(head.szBackground, head.szBackground + BACKGROUND_UNITS, u'\0');
    if (end == head.szBackground + BACKGROUND_UNITS) return false;
    background = QString::fromUtf16(head.szBackground, end - head.szBackground);
    return head.nPageType <= LAST_PAGE_TYPE &&
           ScrollInRange(head.nScrollHalf, head.nScrollHalves, head.fScrollFrac);
}

}  // namespace

bool CPageManager::ReadFlat(CByteReader& in) {
    return ReadFlatPage(in, false);
}

bool CPageManager::ReadFlatClone(CByteReader& in) {
    return ReadFlatPage(in, true);
}

bool CPageManager::ReadFlatPage(CByteReader& in, bool clone) {
    UstFlatPage head;
    QString background;
    if (!ReadFlatHead(in, head, background)) return false;
    auto objects = ReadFlatObjects(in, head.nObjects, this, clone, 0);
    if (objects.size() != head.nObjects) return false;
    m_selection.clear();
    m_objects = std::move(objects);
    m_nPageType = head.nPageType;
    // A pasted roll or crawl page never has a background; the private copy
    // takes the record as it stands.
    const bool keep = clone || !IsScrollPage();
    m_background.strFile = keep ? background : QString();
    m_background.bPresent = keep ? head.bBackground : 0;
    m_nScrollHalf = head.nScrollHalf;
    m_nScrollHalves = head.nScrollHalves;
    m_fScrollFrac = head.fScrollFrac;
    m_effect = head.effect;
    m_blink = head.blink;
    m_typing = head.typing;
    return true;
}

void CPageManager::FindPastedBackground(const QString& sourceFolder) {
    const QString name = m_background.strFile;
    m_background.strFile.clear();
    const int32_t present = m_background.bPresent;
    m_background.bPresent = 0;
    if (name.isEmpty() || !m_pDoc || !m_pDoc->FileLinks()) return;
    QString found;
    if (!sourceFolder.isEmpty() && QFileInfo(QDir(sourceFolder).filePath(name)).isFile())
        found = QDir(sourceFolder).filePath(name);
    else if (QFileInfo(name).isFile())
        found = name;
    if (found.isEmpty()) return;
    if (m_background.Insert(found, ObjectFolder(), *m_pDoc->FileLinks()) != EBackgroundLoad::LOADED)
        return;
    m_background.bPresent = present;
    if (!m_bActive) m_background.ReleasePixels();
}

}  // namespace orv
