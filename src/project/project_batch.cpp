// Master attribute mode: one attribute change over many pages at once.
#include <algorithm>

#include "project/project_manager.h"
#include "project/undo_log.h"

namespace orv {

bool IsMasterCommand(uint32_t id) {
    return id == 202 || id == 203 || (id >= 225 && id <= 227) || (id >= 232 && id <= 234) ||
           (id >= 260 && id <= 263) || (id >= 723 && id <= 726) || id == 738 || id == 40052;
}

namespace {

bool ApplyToObjects(CPageManager& page, const void* arg, uint32_t id) {
    bool took = false;
    for (const auto& o : page.Objects())
        took = o->Execute(arg, id) || took;
    return took;
}

}  // namespace

int CProjectManager::BatchAttribute(const void* arg, uint32_t id) {
    if (!arg || !IsMasterCommand(id) || PlayState() == 2) return 0;
    // The extra selected pages, or every page; the current page always and
    // last, so that what shows on the canvas is drawn once the others have
    // taken the change.
    std::vector<CPageManager*> pages;
    if (m_aSelPages.empty()) {
        for (const auto& p : m_aPages)
            if (p.get() != m_pCurPage) pages.push_back(p.get());
    } else {
        for (int i : m_aSelPages)
            if (CPageManager* p = GetPage(i); p && p != m_pCurPage) pages.push_back(p);
    }
    if (m_pCurPage) pages.push_back(m_pCurPage);
    std::vector<const CPageManager*> changed;
    for (CPageManager* page : pages) {
        if (!ApplyToObjects(*page, arg, id)) continue;
        if (page == m_pCurPage) {
            page->RenderCanvas();
            page->DrawHandles();
            page->Repaint();
        }
        page->RebuildPageText(id == 202 || id == 203);
        page->UpdateThumbnail();
        page->SetModified(true);
        changed.push_back(page);
    }
    if (changed.empty()) return 0;
    SetProjectModified();
    m_pUndo->PushPages(changed, UNDO_PAGES_EDITED);
    PanelsChanged();
    return 1;
}

}  // namespace orv
