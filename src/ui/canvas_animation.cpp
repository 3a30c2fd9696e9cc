// Animations on the canvas: the preview played through in the box, and the
// context menu over a selected animation.
#include <QMenu>

#include "objects/ani_object.h"
#include "project/page_manager.h"
#include "ui/main_frame.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

CQRDObjectAni* OneSelectedAnimation(CPageManager* page) {
    if (!page || !page->OneSelectedOfKind(OBJ_ANIMATION)) return nullptr;
    return static_cast<CQRDObjectAni*>(page->Selection().front());
}

}  // namespace

bool CZevrantView::PreviewAnimation() {
    CQRDObjectAni* animation = OneSelectedAnimation(Page());
    if (!animation || (m_pFrame && m_pFrame->m_nPlayState != 0)) return false;
    // The frames play over the page without the still, as they will on air:
    // a partly transparent still would show through every frame.
    Page()->RenderCanvasExcept(animation);
    // Frames follow each other as fast as they decode; each is shown at once.
    const bool played =
        animation->PreviewAnimation([this](const UstRect& r) { repaint(r.ToQRect()); });
    Page()->Repaint();
    return played;
}

void CZevrantView::AnimationMenu(const QPoint& window) {
    if (!OneSelectedAnimation(Page()) || !m_pFrame) return;
    QMenu menu(this);
    for (uint32_t id : {CMD_ANIMATION_PROPERTIES, CMD_PREVIEW_ANIMATION})
        if (QAction* action = m_pFrame->findChild<QAction*>(QString("cmd%1").arg(id)))
            menu.addAction(action);
    menu.exec(mapToGlobal(window));
}

}  // namespace orv
