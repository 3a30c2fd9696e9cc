// The page's side of shapes: drawing a new one, and the control point's
// editing switched on for the selected shapes.
#include "objects/shape_object.h"
#include "project/page_manager.h"

namespace orv {

CQRDObjectShape* CPageManager::AddShape(int kind, const UstRect& view, const UstAttr& attr,
                                        const UstEffect& effect) {
    if (view.Width() <= 0 || view.Height() <= 0) return nullptr;
    return static_cast<CQRDObjectShape*>(
        InsertNew(std::make_unique<CQRDObjectShape>(this, kind, view, attr, effect)));
}

int CPageManager::EditShapeCommand() {
    bool any = false, on = false;
    for (CQRDObject* o : m_selection)
        if (auto* shape = dynamic_cast<CQRDObjectShape*>(o)) {
            if (!any) on = !shape->Editing();
            shape->SetEditing(on);
            any = true;
        }
    if (!any) return 0;
    Redraw(SelectionWindowRect());
    return 1;
}

void CPageManager::EndStrayShapeEdits() {
    for (auto& o : m_objects)
        if (auto* shape = dynamic_cast<CQRDObjectShape*>(o.get()); shape && !IsSelected(shape))
            shape->SetEditing(false);
}

int CPageManager::ShapeStyleCommand(const void* arg) {
    if (!arg) return 0;
    const UstRect before = SelectionWindowRect();
    bool changed = false;
    for (CQRDObject* o : SelectedLeaves())
        if (o->GetType() == OBJ_SHAPE) changed |= o->Execute(arg, CMD_SHAPE_STYLE);
    if (!changed) return 0;
    RefreshSelectedGroups();
    RedrawAll(before);
    return Tail();
}

}  // namespace orv
