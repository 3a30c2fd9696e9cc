#include "objects/group_object.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "objects/archive_fields.h"
#include "objects/object_factory.h"

namespace orv {

CQRDObjectGroup::~CQRDObjectGroup() = default;

void CQRDObjectGroup::AddMember(std::unique_ptr<CQRDObject> member) {
    if (!member) return;
    m_listChild.push_back(std::move(member));
}

std::unique_ptr<CQRDObject> CQRDObjectGroup::RemoveMember(CQRDObject* member) {
    m_listOrder.erase(std::remove(m_listOrder.begin(), m_listOrder.end(), member),
                      m_listOrder.end());
    auto it = std::find_if(m_listChild.begin(), m_listChild.end(),
                           [member](const auto& p) { return p.get() == member; });
    if (it == m_listChild.end()) return nullptr;
    std::unique_ptr<CQRDObject> owned = std::move(*it);
    m_listChild.erase(it);
    return owned;
}

std::vector<std::unique_ptr<CQRDObject>> CQRDObjectGroup::TakeMembers() {
    m_listOrder.clear();
    std::vector<std::unique_ptr<CQRDObject>> members = std::move(m_listChild);
    m_listChild.clear();
    RebuildRect();
    return members;
}

void CQRDObjectGroup::RebuildRect() {
    UstRect all;
    for (const auto& m : m_listChild)
        all = UnionRect(all, m->GetBoundRect());
    m_rcView = all;
    CQRDObject::UpdateStored(false);
    CQRDObject::RecalcHandles();
}

bool CQRDObjectGroup::EndEdit() {
    for (auto& m : m_listChild)
        if (m->EndEdit()) return true;
    return false;
}

// Always through the polygon, with the group's own angle.
bool CQRDObjectGroup::HitTest(int x, int y) const {
    const UstRect r = ScrolledViewRect();
    if (r.Width() <= 0 || r.Height() <= 0) return false;
    QPolygonF poly({QPointF(r.left, r.top), QPointF(r.right, r.top), QPointF(r.right, r.bottom),
                    QPointF(r.left, r.bottom)});
    if (m_nAngle % 360 != 0) {
        const QPointF c((r.left + r.right) / 2.0, (r.top + r.bottom) / 2.0);
        for (QPointF& p : poly)
            p = RotatePoint(p, c, m_nAngle);
    }
    return poly.containsPoint(QPointF(x, y), Qt::OddEvenFill);
}

UstRect CQRDObjectGroup::GetInvalidRect() const {
    UstRect all;
    for (const auto& m : m_listChild)
        all = UnionRect(all, m->GetInvalidRect());
    return all;
}

void CQRDObjectGroup::Attach(CPageContext* page) {
    CQRDObject::Attach(page);
    for (auto& m : m_listChild)
        m->Attach(page);
}

void CQRDObjectGroup::AfterLoad() {
    for (auto& m : m_listChild)
        m->AfterLoad();
}

void CQRDObjectGroup::ReleaseCache() {
    for (auto& m : m_listChild)
        m->ReleaseCache();
}

bool CQRDObjectGroup::MoveBy(int dx, int dy) {
    // The second list, when it has entries, sets the order of the moves.
    std::vector<CQRDObject*> walk = m_listOrder;
    if (walk.empty())
        for (auto& m : m_listChild)
            walk.push_back(m.get());
    for (CQRDObject* m : walk) {
        const UstRect moved = Offset(m->m_rcView, dx, dy);
        m->Execute(&moved, CMD_SET_RECT);
    }
    RebuildRect();
    return true;
}

bool CQRDObjectGroup::Execute(const void* args, uint32_t code) {
    if (!args) return false;
    if (code == CMD_SET_RECT) {
        const auto* r = static_cast<const UstRect*>(args);
        return MoveBy(r->left - m_rcView.left, r->top - m_rcView.top);
    }
    if (code >= CMD_NUDGE_RIGHT && code <= CMD_NUDGE_DOWN) {
        const auto* d = static_cast<const UstPoint*>(args);
        return MoveBy(d->x, d->y);
    }
    return false;
}

void CQRDObjectGroup::RecalcHandles() {
    for (auto& m : m_listChild)
        m->RecalcHandles();
    CQRDObject::RecalcHandles();
}

void CQRDObjectGroup::Draw() {
    for (auto& m : m_listChild)
        m->Draw();
}

void CQRDObjectGroup::DrawTo(uint32_t* bits, int width, int height) {
    for (auto& m : m_listChild)
        m->DrawTo(bits, width, height);
}

void CQRDObjectGroup::DrawBlinkMark() {
    for (auto& m : m_listChild)
        m->DrawBlinkMark();
}

void CQRDObjectGroup::DrawTypingMark() {
    for (auto& m : m_listChild)
        m->DrawTypingMark();
}

void CQRDObjectGroup::DrawForPlay(uint32_t* bits, int width, int height) {
    for (auto& m : m_listChild)
        m->DrawForPlay(bits, width, height);
}

void CQRDObjectGroup::UpdateStored(bool keepSize) {
    for (auto& m : m_listChild)
        m->UpdateStored(keepSize);
    CQRDObject::UpdateStored(keepSize);
}

void CQRDObjectGroup::OnZoom() {
    m_rcView = {};
    for (auto& m : m_listChild)
        m->OnZoom();
    UstRect all;
    for (const auto& m : m_listChild)
        all = UnionRect(all, m->GetBoundRect());
    m_rcView = all;
    CQRDObject::RecalcHandles();
}

void CQRDObjectGroup::PrepareBlinkFrame(uint32_t* bits, int width, int height, int mode,
                                        uint32_t colour) {
    for (auto& m : m_listChild)
        m->PrepareBlinkFrame(bits, width, height, mode, colour);
}

void CQRDObjectGroup::ResetLive(int32_t a, int32_t b) {
    for (auto& m : m_listChild)
        m->ResetLive(a, b);
}

void CQRDObjectGroup::FreeLive() {
    for (auto& m : m_listChild)
        m->FreeLive();
}

void CQRDObjectGroup::PrepareScrollImage(int32_t w, int32_t h) {
    for (auto& m : m_listChild)
        m->PrepareScrollImage(w, h);
}

void CQRDObjectGroup::PrepareLiveFrame(int a, int b, int c, int d) {
    for (auto& m : m_listChild)
        m->PrepareLiveFrame(a, b, c, d);
}

void CQRDObjectGroup::DrawLive(uint32_t* bits, int width, int height, int left, int top, int right,
                               int bottom) {
    for (auto& m : m_listChild)
        m->DrawLive(bits, width, height, left, top, right, bottom);
}

UstPoint CQRDObjectGroup::GetLiveExtent() const {
    UstPoint extent{0, 0};
    for (const auto& m : m_listChild) {
        const UstPoint e = m->GetLiveExtent();
        extent.x = std::max(extent.x, e.x);
        extent.y = std::max(extent.y, e.y);
    }
    return extent;
}

// ---- packed states ----

void CQRDObjectGroup::SaveStateHeader(CByteWriter& out) const {
    out.Put(static_cast<uint32_t>(m_listChild.size()));
}

bool CQRDObjectGroup::LoadStateHeader(CByteReader& in) {
    m_nLoadCount = in.Get<uint32_t>();
    // Each member needs at least its kind and words; a count that the
    // buffer cannot hold is damage.
    return m_nLoadCount <= in.Remaining() / 4;
}

void CQRDObjectGroup::SaveMembers(CByteWriter& out, bool deep) const {
    for (const auto& m : m_listChild) {
        if (deep)
            m->SaveStateDeep(out);
        else
            m->SaveState(out);
    }
}

void CQRDObjectGroup::SaveStateBody(CByteWriter& out) const {
    SaveMembers(out, false);
}

void CQRDObjectGroup::SaveStateDeep(CByteWriter& out) const {
    SaveStateHead(out);
    SaveMembers(out, true);
}

bool CQRDObjectGroup::LoadMembers(CByteReader& in, int flag, bool deep) {
    m_listOrder.clear();
    m_listChild.clear();
    for (uint32_t i = 0; i < m_nLoadCount; ++i) {
        CByteReader peek = in;
        auto member = CreateObjectOfType(peek.Get<int32_t>(), m_pPage);
        if (!member) return false;
        const bool loaded = deep ? member->LoadStateDeep(in) : member->LoadState(in, flag);
        if (!loaded) return false;
        m_listChild.push_back(std::move(member));
    }
    return true;
}

bool CQRDObjectGroup::LoadStateBody(CByteReader& in, int flag) {
    return LoadMembers(in, flag, false);
}

bool CQRDObjectGroup::LoadStateDeep(CByteReader& in) {
    if (!LoadStateHead(in) || !LoadMembers(in, 0, true)) return false;
    OnZoom();
    return true;
}

// ---- file form ----

void CQRDObjectGroup::Serialize(CByteWriter& out, const MemberWriter& writeMember) const {
    WriteArchiveHead(out);
    out.Put(m_rcStored);
    WriteArchiveCount(out, static_cast<uint32_t>(m_listChild.size()));
    for (const auto& m : m_listChild)
        writeMember(out, *m);
}

bool CQRDObjectGroup::Deserialize(CByteReader& in, const MemberReader& readMember) {
    const bool hasOldRect = ReadArchiveHead(in);
    m_rcStored = in.Get<UstRect>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedRect(m_rcStored, "a group");
    m_listOrder.clear();
    m_listChild.clear();
    const uint32_t count = ReadArchiveCount(in);
    // Each member takes two bytes at the very least.
    if (count > in.Remaining() / 2)
        throw std::runtime_error("a group counts " + std::to_string(count) +
                                 " members, more than the file holds");
    for (uint32_t i = 0; i < count; ++i) {
        auto member = readMember(in);
        if (!member) return false;
        m_listChild.push_back(std::move(member));
    }
    UpdateView();
    CQRDObject::RecalcHandles();
    return true;
}

void CQRDObjectGroup::RelinkMedia(const MediaRename& rename) {
    for (auto& m : m_listChild)
        m->RelinkMedia(rename);
}

}  // namespace orv
