// The page in the project file: its body, its thumbnail file, and the
// objects that cannot come back after loading.
#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "objects/group_object.h"
#include "project/archive.h"
#include "project/page_manager.h"
#include "project/thumb_file.h"

namespace orv {

namespace {

constexpr float FILE_VERSION = 1.3f;
constexpr uint32_t LAST_PAGE_TYPE = 2;
// Longer than any page the canvas can scroll to.
constexpr int32_t MAX_SCROLL_HALVES = 1 << 16;

void CheckScroll(int32_t half, int32_t halves, float frac) {
    if (halves < 0 || halves > MAX_SCROLL_HALVES || half < 0 || half > halves ||
        !std::isfinite(frac) || frac < 0.0f || frac > 1.0f)
        throw std::runtime_error("a page's scroll position is out of range");
}

}  // namespace

void CPageManager::Serialize(CArchiveOut& ar) const {
    CByteWriter& out = ar.Bytes();
    out.Put(FILE_VERSION);
    out.Put(0.0f);
    out.Put<uint32_t>(0);
    out.Put(m_nPageType);
    out.Put(static_cast<uint32_t>(m_objects.size()));
    ar.WriteString(m_strThumbFile);
    out.Put<uint32_t>(m_background.bPresent);
    ar.WriteString(m_background.strFile);
    out.Put(m_nScrollHalf);
    out.Put(m_nScrollHalves);
    out.Put(m_fScrollFrac);
    out.Put(m_effect);
    out.Put(m_blink);
    ar.WriteObjectList(m_objects);
}

void CPageManager::Deserialize(CArchiveIn& ar) {
    CByteReader& in = ar.Bytes();
    in.Get<float>();  // version
    in.Get<float>();
    in.Get<uint32_t>();
    m_nPageType = in.Get<uint32_t>();
    if (m_nPageType > LAST_PAGE_TYPE)
        throw std::runtime_error("a page of unknown type " + std::to_string(m_nPageType));
    in.Get<uint32_t>();  // the object count; the list below has its own
    m_strThumbFile = ar.ReadString();
    m_background.bPresent = static_cast<int32_t>(in.Get<uint32_t>());
    m_background.strFile = ar.ReadString();
    m_nScrollHalf = in.Get<int32_t>();
    m_nScrollHalves = in.Get<int32_t>();
    m_fScrollFrac = in.Get<float>();
    CheckScroll(m_nScrollHalf, m_nScrollHalves, m_fScrollFrac);
    m_effect = in.Get<UstPageEffect>();
    m_blink = in.Get<UstPageBlink>();
    m_objects = ar.ReadObjectList();
}

QString CPageManager::ThumbPath() const {
    const QString folder = m_pDoc ? m_pDoc->DataFolder() : QString();
    return folder.isEmpty() || m_strThumbFile.isEmpty() ? QString() : folder + m_strThumbFile;
}

void CPageManager::EnsureThumbFile() {
    if (!m_bModified || !m_strThumbFile.isEmpty() || !m_pDoc) return;
    m_strThumbFile = CreateThumbFile(m_pDoc->DataFolder(), m_nThumbWidth, m_nThumbHeight);
}

void CPageManager::StoreThumbnail() {
    if (!m_bModified) return;
    if (m_pThumbBits.empty()) UpdateThumbnail();
    if (WriteThumbPixels(ThumbPath(), m_pThumbBits)) m_bModified = 0;
}

void CPageManager::ObjectRemovedItself(CQRDObject* object) {
    if (std::find(m_gone.begin(), m_gone.end(), object) == m_gone.end()) m_gone.push_back(object);
}

namespace {

// Out of whichever group holds it, however deep; the groups on the way
// take their new bounds.
std::unique_ptr<CQRDObject> TakeFromGroups(std::vector<std::unique_ptr<CQRDObject>>& objects,
                                           CQRDObject* object) {
    for (auto& o : objects) {
        if (o->GetType() != OBJ_GROUP) continue;
        auto& group = static_cast<CQRDObjectGroup&>(*o);
        std::unique_ptr<CQRDObject> taken = group.RemoveMember(object);
        if (!taken) taken = TakeFromGroups(group.m_listChild, object);
        if (!taken) continue;
        group.RebuildRect();
        return taken;
    }
    return nullptr;
}

}  // namespace

void CPageManager::DropGoneObjects() {
    if (m_gone.empty()) return;
    for (CQRDObject* o : m_gone) {
        Unselect(o);
        if (m_pDoc) m_pDoc->ObjectRemoved(o);
        if (!Remove(o)) TakeFromGroups(m_objects, o);
    }
    m_gone.clear();
    SetModified(true);
}

}  // namespace orv
