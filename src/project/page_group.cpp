// Binding selected objects into a group and dissolving it again; attribute
// commands reach the members of selected groups through the page.
#include "objects/group_object.h"
#include "project/page_manager.h"

namespace orv {

namespace {

void CollectLeaves(CQRDObject* o, std::vector<CQRDObject*>& out) {
    if (o->GetType() != OBJ_GROUP) {
        out.push_back(o);
        return;
    }
    for (const auto& m : static_cast<CQRDObjectGroup*>(o)->Members())
        CollectLeaves(m.get(), out);
}

void RebuildNested(CQRDObjectGroup* g) {
    for (const auto& m : g->Members())
        if (m->GetType() == OBJ_GROUP) RebuildNested(static_cast<CQRDObjectGroup*>(m.get()));
    g->RebuildRect();
}

}  // namespace

std::vector<CQRDObject*> CPageManager::SelectedLeaves() const {
    std::vector<CQRDObject*> out;
    for (CQRDObject* o : m_selection)
        CollectLeaves(o, out);
    return out;
}

void CPageManager::RefreshSelectedGroups() {
    for (CQRDObject* o : m_selection)
        if (o->GetType() == OBJ_GROUP) RebuildNested(static_cast<CQRDObjectGroup*>(o));
}

CQRDObjectGroup* CPageManager::GroupSelection() {
    if (m_selection.empty()) return nullptr;
    const UstRect before = SelectionWindowRect();
    // Selected groups are dissolved first, so that the result is flat.
    const std::vector<CQRDObject*> selected = m_selection;
    for (CQRDObject* o : selected) {
        if (o->GetType() != OBJ_GROUP) continue;
        Unselect(o);
        if (m_pDoc) m_pDoc->ObjectRemoved(o);
        std::unique_ptr<CQRDObject> owned = Remove(o);
        for (auto& member : static_cast<CQRDObjectGroup*>(owned.get())->TakeMembers()) {
            m_selection.push_back(member.get());
            m_objects.push_back(std::move(member));
        }
    }
    auto group = std::make_unique<CQRDObjectGroup>(this);
    for (CQRDObject* o : SelectedInListOrder())
        group->AddMember(Remove(o));
    group->RebuildRect();
    auto* raw = static_cast<CQRDObjectGroup*>(AddObject(std::move(group)));
    SelectOnly(raw);
    Redraw(before);
    Tail();
    return raw;
}

int CPageManager::UngroupSelection() {
    if (m_selection.empty() || m_selection.front()->GetType() != OBJ_GROUP) return 0;
    const UstRect before = SelectionWindowRect();
    CQRDObject* head = m_selection.front();
    Unselect(head);
    std::unique_ptr<CQRDObject> owned = Remove(head);
    for (auto& member : static_cast<CQRDObjectGroup*>(owned.get())->TakeMembers()) {
        m_selection.push_back(member.get());
        m_objects.push_back(std::move(member));
    }
    if (m_pDoc) m_pDoc->ObjectRemoved(head);
    owned.reset();
    Redraw(before);
    return Tail();
}

}  // namespace orv
