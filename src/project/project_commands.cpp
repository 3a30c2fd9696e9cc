// The project's own commands: pages made, deleted and chosen, the set of
// extra selected pages, a background given to every page, and effect values
// set on several pages at once.
#include <QDir>

#include <algorithm>

#include "project/clipboard_formats.h"
#include "project/project_manager.h"
#include "render/image_file.h"

namespace orv {

namespace {

// Effect numbers 2 to 34 are transitions; 0 and 1 belong to roll and crawl.
constexpr int FIRST_TRANSITION = 2;
constexpr int NO_TRANSITION = 2;
constexpr int CUT = 3;
constexpr int EFFECT_NUMBERS = 35;

int IndexOf(const void* arg) {
    return arg ? *static_cast<const int*>(arg) : -1;
}

}  // namespace

int CProjectManager::ExecCommand(const void* arg, uint32_t id) {
    switch (id) {
        case CMD_NEW_PAGE:
            return NewPage(static_cast<const int*>(arg));
        case CMD_DELETE_PAGES:
            return DeletePages();
        case CMD_PAGE_CLICKED:
            return PageClicked(IndexOf(arg), false);
        case CMD_REFRESH_PLAY:
            if (PlayState() == 1) StatusChanged();
            return 1;
        case CMD_GO_TO_PAGE:
            return PageClicked(IndexOf(arg), true);
        case CMD_ADD_PAGE_TO_SELECTION:
            return AddPageToSelection(IndexOf(arg));
        case CMD_SELECT_ALL_PAGES:
            return SelectAllPages();
        case CMD_REMOVE_PAGE_FROM_SELECTION:
            return RemovePageFromSelection(IndexOf(arg));
        case CMD_CLEAR_PAGE_SELECTION:
            m_aSelPages.clear();
            return 1;
        case CMD_MOVE_PAGES:
            return arg ? MovePages(IndexOf(arg)) : 0;
        case CMD_LEAVE_CANVAS:
            return LeaveCanvas();
        case CMD_BACKGROUND_TO_ALL:
            return arg ? BackgroundToAll(*static_cast<const QString*>(arg)) : 0;
        case CMD_BACKGROUND_STYLE:
            return arg ? BackgroundToSelected(*static_cast<const QString*>(arg)) : 0;
        case CMD_COPY:
            return arg ? CopyPages(-1, *static_cast<QMimeData*>(const_cast<void*>(arg))) : 0;
        case CMD_CUT:
            return arg ? CutPages(*static_cast<QMimeData*>(const_cast<void*>(arg))) : 0;
        case CMD_PASTE:
            return arg ? Paste(*static_cast<const QMimeData*>(arg)) : 0;
        case CMD_UNDO:
            return Undo();
        case CMD_REDO:
            return Redo();
        default:
            return IsMasterCommand(id) ? BatchAttribute(arg, id) : 0;
    }
}

int CProjectManager::NewPage(const int* afterIndex) {
    // Without an index the page goes at the end.
    const int after = afterIndex ? *afterIndex : PageCount() - 1;
    CPageManager* page = InsertPage(after);
    const auto it = std::find_if(m_aPages.begin(), m_aPages.end(),
                                 [page](const auto& p) { return p.get() == page; });
    const int index = static_cast<int>(it - m_aPages.begin());
    // Indices behind the new page moved up by one.
    for (int& i : m_aSelPages)
        if (i >= index) ++i;
    PageClicked(index, true);
    SetProjectModified();
    m_pUndo->PushPage(*page, UNDO_PAGES_ADDED);
    StatusChanged();
    return 1;
}

void CProjectManager::AdoptPages(std::vector<std::unique_ptr<CPageManager>> pages, bool append,
                                 int afterIndex) {
    if (pages.empty()) return;
    m_pUndo->Clear();
    if (m_pCurPage) m_pCurPage->Deactivate();
    int at = append ? PageCount() : std::clamp(afterIndex + 1, 0, PageCount());
    const int first = at;
    for (auto& page : pages) {
        // Made with this project and its view already, thumbnail drawn.
        Identify(*page);
        page->EnsureThumbFile();
        for (int& i : m_aSelPages)
            if (i >= at) ++i;
        m_aPages.insert(m_aPages.begin() + at, std::move(page));
        if (m_nCurPage >= at) ++m_nCurPage;
        ++at;
    }
    if (m_pCurPage)
        m_pCurPage->Activate(false);
    else
        PageClicked(first, true);
    SetProjectModified();
    StatusChanged();
    PanelsChanged();
}

bool CProjectManager::IsPageDeletable(int index) const {
    const CPageManager* page = GetPage(index);
    if (!page) return false;
    const bool playPanel = m_pHost && m_pHost->PlayPanelOpen();
    return !(playPanel && page == m_pPlayPage);
}

void CProjectManager::RemovePage(int index) {
    CPageManager* page = GetPage(index);
    if (!page) return;
    if (page == m_pCurPage) {
        page->Deactivate();
        m_pCurPage = nullptr;
    }
    if (page == m_pPlayPage) m_pPlayPage = nullptr;
    m_aPages.erase(m_aPages.begin() + index);
}

int CProjectManager::DeletePages() {
    std::vector<int> doomed;
    if (IsPageDeletable(m_nCurPage)) doomed.push_back(m_nCurPage);
    for (int i : m_aSelPages)
        if (IsPageDeletable(i)) doomed.push_back(i);
    std::sort(doomed.begin(), doomed.end());
    doomed.erase(std::unique(doomed.begin(), doomed.end()), doomed.end());
    if (doomed.empty()) return 0;
    if (m_pCurPage) m_pCurPage->EndTextEdit();
    std::vector<const CPageManager*> pages;
    for (int i : doomed)
        pages.push_back(GetPage(i));
    // Before anything goes: undo brings the pages back from this record.
    m_pUndo->PushPages(pages, UNDO_PAGES_REMOVED);
    const int old = m_nCurPage;
    for (auto it = doomed.rbegin(); it != doomed.rend(); ++it)
        RemovePage(*it);
    SettleCurrent(old);
    SetProjectModified();
    return 1;
}

int CProjectManager::PageClicked(int index, bool reselect) {
    if (!GetPage(index)) return 0;
    // On air the pages are chosen, not shown: only the index moves.
    if (PlayState() != 0) {
        m_nCurPage = index;
        if (PlayState() == 1 || reselect) StatusChanged();
        return 1;
    }
    GoToPage(index);
    if (reselect && m_pHost) m_pHost->PagesChanged();
    StatusChanged();
    return 1;
}

int CProjectManager::AddPageToSelection(int index) {
    if (PlayState() != 0 || index == m_nCurPage || !GetPage(index)) return 0;
    if (std::find(m_aSelPages.begin(), m_aSelPages.end(), index) == m_aSelPages.end()) {
        m_aSelPages.push_back(index);
        std::sort(m_aSelPages.begin(), m_aSelPages.end());
    }
    return 1;
}

int CProjectManager::SelectAllPages() {
    m_aSelPages.clear();
    for (int i = 0; i < PageCount(); ++i)
        if (i != m_nCurPage) m_aSelPages.push_back(i);
    return 1;
}

int CProjectManager::RemovePageFromSelection(int index) {
    if (PlayState() != 0) return 0;
    const auto it = std::find(m_aSelPages.begin(), m_aSelPages.end(), index);
    if (it == m_aSelPages.end()) return 0;
    m_aSelPages.erase(it);
    return 1;
}

int CProjectManager::MovePages(int before) {
    if (PlayState() != 0 || !m_pCurPage || before < 0 || before > PageCount()) return 0;
    std::vector<int> moved = m_aSelPages;
    moved.push_back(m_nCurPage);
    std::sort(moved.begin(), moved.end());
    std::vector<uint32_t> old, order, block;
    for (int i = 0; i < PageCount(); ++i) {
        const uint32_t identity = m_aPages[static_cast<size_t>(i)]->m_nIdentity;
        old.push_back(identity);
        if (i == before) order.push_back(0);  // where the block goes
        if (std::binary_search(moved.begin(), moved.end(), i))
            block.push_back(identity);
        else
            order.push_back(identity);
    }
    if (before == PageCount()) order.push_back(0);
    const auto gap = std::find(order.begin(), order.end(), 0u);
    order.insert(order.erase(gap), block.begin(), block.end());
    if (order == old) return 0;
    if (m_pCurPage) m_pCurPage->EndTextEdit();
    m_pUndo->PushOrder(old, order);
    ArrangePages(order);
    SetProjectModified();
    return 1;
}

void CProjectManager::ArrangePages(const std::vector<uint32_t>& identities) {
    std::vector<const CPageManager*> selected;
    for (int i : m_aSelPages)
        selected.push_back(GetPage(i));
    std::vector<std::unique_ptr<CPageManager>> arranged;
    for (uint32_t identity : identities) {
        const auto it = std::find_if(m_aPages.begin(), m_aPages.end(), [identity](const auto& p) {
            return p && p->m_nIdentity == identity;
        });
        if (it != m_aPages.end()) arranged.push_back(std::move(*it));
    }
    for (auto& page : m_aPages)
        if (page) arranged.push_back(std::move(page));
    m_aPages = std::move(arranged);
    m_aSelPages.clear();
    for (int i = 0; i < PageCount(); ++i) {
        const CPageManager* page = m_aPages[static_cast<size_t>(i)].get();
        if (page == m_pCurPage) m_nCurPage = i;
        if (std::find(selected.begin(), selected.end(), page) != selected.end())
            m_aSelPages.push_back(i);
    }
    StatusChanged();
    PanelsChanged();
}

int CProjectManager::LeaveCanvas() {
    if (m_pCurPage) m_pCurPage->Deactivate();
    m_pCurPage = nullptr;
    return 1;
}

int CProjectManager::BackgroundToAll(const QString& source) {
    if (!IsImageExtension(source)) return 0;
    QString name;
    // Decoded once before it is copied, so that a bad file changes nothing.
    if (!LoadImageFile(source) || !CopyToObjectFolder(source, name, ObjectFolder(), *FileLinks()))
        return 0;
    for (const auto& page : m_aPages) {
        if (page->m_nPageType != 0) continue;
        if (page.get() == m_pCurPage)
            page->InsertBackground(QDir(ObjectFolder()).filePath(name));
        else
            page->TakeBackgroundFile(name);
    }
    SetProjectModified();
    // The backgrounds given cannot be taken back page by page.
    m_pUndo->Clear();
    if (m_pHost) m_pHost->PagesChanged();
    return 1;
}

int CProjectManager::BackgroundToSelected(const QString& source) {
    std::vector<CPageManager*> pages;
    for (int i : m_aSelPages)
        if (CPageManager* p = GetPage(i)) pages.push_back(p);
    if (m_pCurPage) pages.push_back(m_pCurPage);
    // Roll and crawl pages have no background.
    std::erase_if(pages, [](const CPageManager* p) { return p->m_nPageType != 0; });
    QString name;
    if (pages.empty() || !IsImageExtension(source) || !LoadImageFile(source) ||
        !CopyToObjectFolder(source, name, ObjectFolder(), *FileLinks()))
        return 0;
    for (CPageManager* page : pages) {
        if (page == m_pCurPage)
            page->InsertBackground(QDir(ObjectFolder()).filePath(name));
        else
            page->TakeBackgroundFile(name);
    }
    SetProjectModified();
    m_pUndo->PushPages({pages.begin(), pages.end()}, UNDO_PAGES_EDITED);
    if (m_pHost) m_pHost->PagesChanged();
    return 1;
}

int CProjectManager::SetPageEffect(int index, int side, int number) {
    CPageManager* page = GetPage(index);
    if (!page || PlayState() != 0 || number < FIRST_TRANSITION || number >= EFFECT_NUMBERS ||
        (side != 0 && side != 1))
        return 0;
    UstPageEffect& e = page->m_effect;
    const UstPageEffect before = e;
    // "No transition" never comes in and "Cut" never goes out: picked on
    // that side, the number goes to the other one.
    const auto setIn = [&] {
        if (e.nInEffect >= FIRST_TRANSITION && number != NO_TRANSITION) e.nInEffect = number;
    };
    const auto setOut = [&] {
        if (e.nOutEffect >= FIRST_TRANSITION && number != CUT) e.nOutEffect = number;
    };
    if (side == 0 && number != NO_TRANSITION)
        setIn();
    else if (side == 1 && number != CUT)
        setOut();
    else {
        setIn();
        setOut();
    }
    if (e.nInEffect == before.nInEffect && e.nOutEffect == before.nOutEffect) return 0;
    page->SetModified(true);
    m_pUndo->PushPage(*page, UNDO_PAGES_EDITED);
    PanelsChanged();
    return 1;
}

int CProjectManager::SetPagesEffectValue(const void* value, uint32_t id) {
    if (!value) return 0;
    const int32_t v = *static_cast<const int32_t*>(value);
    auto apply = [&](UstPageEffect& e) {
        switch (id) {
            case 760:
            case 768:
                e.nInSpeed = v;
                return true;
            case 761:
            case 769:
                e.nOutSpeed = v;
                return true;
            case 762:
            case 770:
                e.nInDelay = v;
                return true;
            case 763:
            case 771:
                e.nOutDelay = v;
                return true;
            case 764:
                e.bInFade = v;
                return true;
            case 765:
                e.bOutFade = v;
                return true;
            case 800:
                e.bDiscard = v;
                return true;
            case CMD_IN_EFFECT:
                e.nInEffect = v;
                return true;
            case CMD_OUT_EFFECT:
                e.nOutEffect = v;
                return true;
            case CMD_EFFECT_PAIR:
                // Roll and crawl pages keep their numbers: a transition may
                // only replace a transition.
                if (e.nInEffect >= 2 && v != 2) e.nInEffect = v;
                if (e.nOutEffect >= 2 && v != 3) e.nOutEffect = v;
                return true;
            default:
                return false;
        }
    };
    std::vector<CPageManager*> pages;
    for (int i : m_aSelPages)
        if (CPageManager* p = GetPage(i)) pages.push_back(p);
    if (m_pCurPage) pages.push_back(m_pCurPage);
    UstPageEffect probe{};
    if (!apply(probe)) return 0;
    for (CPageManager* p : pages) {
        apply(p->m_effect);
        p->SetModified(true);
    }
    SetProjectModified();
    return 1;
}

}  // namespace orv
