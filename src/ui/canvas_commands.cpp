// The canvas's commands by number: moving between pages and between
// objects, the end of an edit, select all, and blink and typing on the
// selection.
#include "ui/canvas_commands.h"

#include "project/project_manager.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

// The object behind the last selected one in list order, or the first
// (step 1); before the first selected one, or the last (step -1).
CQRDObject* NeighbourObject(const CPageManager& page, int step) {
    const auto& objects = page.Objects();
    if (objects.empty()) return nullptr;
    const int count = static_cast<int>(objects.size());
    int edge = -1;
    for (int i = 0; i < count; ++i) {
        if (!page.IsSelected(objects[static_cast<size_t>(i)].get())) continue;
        if (step > 0 || edge < 0) edge = i;
        if (step < 0) break;
    }
    int next = edge + step;
    if (edge < 0 || next < 0 || next >= count) next = step > 0 ? 0 : count - 1;
    return objects[static_cast<size_t>(next)].get();
}

// Order and alignment go to the page as they are: among the selected
// objects (500 to 503) they need two, on the page one.
bool IsArrangeCommand(uint32_t id) {
    return (id >= CMD_TO_FRONT && id <= CMD_BACKWARD) ||
           (id >= CMD_ALIGN_RIGHT && id <= CMD_TO_BOTTOM);
}

// The selection's blink or typing flag: on for all, unless all have it.
int32_t ToggledFlag(const CPageManager& page, uint32_t id) {
    for (const CQRDObject* o : page.Selection())
        if (!(id == CMD_BLINK ? o->GetBlink() : o->GetTyping())) return 1;
    return 0;
}

}  // namespace

int CZevrantView::CanvasCommand(uint32_t id) {
    if (!CanvasCommandEnabled(id)) return 0;
    CPageManager* page = Page();
    CProjectManager& project = m_pDoc->Project();
    if (IsArrangeCommand(id)) return PageCommand(id);
    switch (id) {
        case CMD_EDIT_TEXT_MODE:
            if (m_pFrame->m_nCanvasMode != MODE_TEXT) SetCanvasMode(MODE_TEXT);
            return 1;
        case CMD_SELECT_MODE:
            EndTextEdit();
            SetCanvasMode(MODE_SELECT);
            return 1;
        case CMD_PREVIOUS_PAGE:
        case CMD_NEXT_PAGE: {
            const int index = project.m_nCurPage + (id == CMD_NEXT_PAGE ? 1 : -1);
            return ProjectCommand(CMD_GO_TO_PAGE, &index);
        }
        case CMD_END_EDIT:
            EndTextEdit();
            SetCanvasMode(MODE_SELECT);
            return 1;
        case CMD_NEXT_OBJECT:
        case CMD_PREVIOUS_OBJECT:
            EndTextEdit();
            page->SelectOnly(NeighbourObject(*page, id == CMD_NEXT_OBJECT ? 1 : -1));
            page->Repaint();
            return 1;
        case CMD_SELECT_ALL:
            if (m_pFrame && m_pFrame->m_nPlayState == 1)
                return ProjectCommand(CMD_SELECT_ALL_PAGES);
            EndTextEdit();
            for (const auto& o : page->Objects())
                if (!page->IsSelected(o.get())) page->Select(o.get());
            page->Repaint();
            return 1;
        case CMD_BLINK:
        case CMD_TYPING: {
            const int32_t flag = ToggledFlag(*page, id);
            return PageCommand(id, &flag);
        }
        default:
            return 0;
    }
}

bool CZevrantView::CanvasCommandEnabled(uint32_t id) const {
    const CPageManager* page = Page();
    const int state = m_pFrame ? m_pFrame->m_nPlayState : 0;
    if (!m_pDoc || state == 2) return false;
    const CProjectManager& project = m_pDoc->Project();
    if (IsArrangeCommand(id))
        return page && (id <= CMD_ALIGN_BOTTOM ? page->ManySelected() : page->AnySelected());
    switch (id) {
        case CMD_EDIT_TEXT_MODE:
        case CMD_SELECT_MODE:
            return page && m_pFrame;
        case CMD_PREVIOUS_PAGE:
            return project.m_nCurPage > 0;
        case CMD_NEXT_PAGE:
            return project.m_nCurPage >= 0 && project.m_nCurPage < project.PageCount() - 1;
        case CMD_END_EDIT:
            return page && (page->EditedText() || (m_pFrame && m_pFrame->m_nCanvasMode != 0));
        case CMD_NEXT_OBJECT:
        case CMD_PREVIOUS_OBJECT:
            return page && !page->Objects().empty();
        case CMD_SELECT_ALL:
            return state == 1 ? project.PageCount() > 0 : page && !page->Objects().empty();
        case CMD_BLINK:
        case CMD_TYPING:
            return page && page->AnySelected();
        default:
            return false;
    }
}

}  // namespace orv
