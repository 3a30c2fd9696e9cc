#include "project/project_manager.h"

namespace orv {

CProjectManager::CProjectManager(int frameWidth, int frameHeight)
    : m_pUndo(std::make_unique<CUndoLog>(this, 1024, 20)) {
    SetFrame(frameWidth, frameHeight);
}

void CProjectManager::SetFrame(int width, int height) {
    m_nWidth = width;
    m_nHeight = height;
    m_nThumbWidth = 300;
    m_nThumbHeight = width == 640 ? 225 : 170;
    m_bWide = width == 1920 ? 1 : 0;
}

QString CProjectManager::DataFolder() const {
    return m_strFolder.isEmpty() ? QString() : m_strFolder + "Data/";
}

void CProjectManager::SetFolder(const QString& folder) {
    m_strFolder = folder;
    m_strObjectFolder = folder.isEmpty() ? QString() : folder + "Object/";
}

CProjectManager::~CProjectManager() = default;

void CProjectManager::AttachAll(CPageView* view) {
    m_pView = view;
    if (m_aPages.empty()) {
        m_aPages.push_back(std::make_unique<CPageManager>(this, view));
    } else {
        for (auto& page : m_aPages)
            page->Attach(this, view);
    }
    std::vector<const CPageManager*> all;
    for (auto& page : m_aPages) {
        Identify(*page);
        all.push_back(page.get());
    }
    m_nCurPage = -1;
    m_pCurPage = nullptr;
    GoToPage(0);
    // The anchor that the first edit of every page falls back to.
    m_pUndo->Clear();
    m_pUndo->PushPages(all, UNDO_BASE);
}

CPageManager* CProjectManager::InsertPage(int afterIndex) {
    if (m_pCurPage) m_pCurPage->Deactivate();
    const int at = afterIndex < 0 ? 0 : std::min(afterIndex + 1, PageCount());
    auto page = std::make_unique<CPageManager>(this, m_pView);
    CPageManager* raw = page.get();
    Identify(*raw);
    m_aPages.insert(m_aPages.begin() + at, std::move(page));
    if (m_nCurPage >= at) ++m_nCurPage;
    if (m_pCurPage) m_pCurPage->Activate(false);
    return raw;
}

bool CProjectManager::GoToPage(int index) {
    CPageManager* page = GetPage(index);
    if (!page) return false;
    if (page == m_pCurPage) return true;
    if (m_pCurPage) m_pCurPage->Deactivate();
    m_pCurPage = page;
    m_nCurPage = index;
    page->Activate(false);
    return true;
}

CPageManager* CProjectManager::GetPage(int index) const {
    if (index < 0 || index >= PageCount()) return nullptr;
    return m_aPages[static_cast<size_t>(index)].get();
}

QString CProjectManager::PageStatus() const {
    return QString::asprintf("Page %d/%d", m_nCurPage + 1, PageCount());
}

void CProjectManager::ObjectRemoved(CQRDObject* object) {
    if (m_pEditObject == object) m_pEditObject = nullptr;
}

}  // namespace orv
