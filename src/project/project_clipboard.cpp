// The project's undo and redo, and its clipboard: pages copied, cut and
// pasted as flat records, objects and text pasted onto every selected page,
// and files that become pictures and animations.
#include <QFileInfo>
#include <QMimeData>

#include <algorithm>

#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "objects/picture_object.h"
#include "project/clipboard_formats.h"
#include "project/project_manager.h"
#include "render/image_file.h"

namespace orv {

void CProjectManager::PushUndo(CPageManager& page, int kind) {
    m_pUndo->PushPage(page, static_cast<uint32_t>(kind));
}

bool CProjectManager::CanUndo() const {
    return PlayState() == 0 && m_pUndo->CanUndo();
}

bool CProjectManager::CanRedo() const {
    return PlayState() == 0 && m_pUndo->CanRedo();
}

int CProjectManager::Undo() {
    if (PlayState() != 0) return 0;
    if (m_pCurPage) m_pCurPage->EndTextEdit();
    if (!m_pUndo->CanUndo()) return 0;
    m_pUndo->Undo();
    SetProjectModified();
    StatusChanged();
    return 1;
}

int CProjectManager::Redo() {
    if (PlayState() != 0) return 0;
    if (m_pCurPage) m_pCurPage->EndTextEdit();
    if (!m_pUndo->CanRedo()) return 0;
    m_pUndo->Redo();
    SetProjectModified();
    StatusChanged();
    return 1;
}

CPageManager* CProjectManager::FindPage(uint32_t identity, int* index) const {
    for (size_t i = 0; i < m_aPages.size(); ++i) {
        if (m_aPages[i]->m_nIdentity != identity) continue;
        if (index) *index = static_cast<int>(i);
        return m_aPages[i].get();
    }
    if (index) *index = -1;
    return nullptr;
}

void CProjectManager::SettleCurrent(int oldIndex) {
    m_aSelPages.clear();
    if (m_pCurPage) {
        FindPage(m_pCurPage->m_nIdentity, &m_nCurPage);
    } else {
        m_nCurPage = -1;
        if (!m_aPages.empty()) PageClicked(std::min(std::max(oldIndex, 0), PageCount() - 1), true);
    }
    if (m_pHost) m_pHost->PagesChanged();
    StatusChanged();
}

void CProjectManager::ShowRestoredPage(int index) {
    m_aSelPages.clear();
    if (m_pCurPage) FindPage(m_pCurPage->m_nIdentity, &m_nCurPage);
    PageClicked(index, true);
}

void CProjectManager::ShowPage(int index) {
    if (index == m_nCurPage) return;
    GoToPage(index);
    StatusChanged();
}

// ---- pages ----

std::vector<int> CProjectManager::CopiedPageIndices(int index) const {
    std::vector<int> set;
    if (index >= 0) {
        set.push_back(index);
    } else {
        set = m_aSelPages;
        set.push_back(m_nCurPage);
    }
    set.erase(std::remove_if(set.begin(), set.end(), [this](int i) { return !GetPage(i); }),
              set.end());
    std::sort(set.begin(), set.end());
    set.erase(std::unique(set.begin(), set.end()), set.end());
    return set;
}

namespace {

void PutPages(QMimeData& mime, const std::vector<const CPageManager*>& pages,
              const QString& objectFolder) {
    CByteWriter out;
    for (const CPageManager* page : pages)
        page->WriteFlat(out);
    SetMimeBlock(mime, MIME_PAGES, CountedBlock(static_cast<uint32_t>(pages.size()), out.Bytes()));
    SetMimeSourceFolder(mime, objectFolder);
}

}  // namespace

int CProjectManager::CopyPages(int index, QMimeData& mime) const {
    std::vector<const CPageManager*> pages;
    for (int i : CopiedPageIndices(index))
        pages.push_back(GetPage(i));
    if (pages.empty()) return 0;
    if (m_pCurPage) m_pCurPage->EndTextEdit();
    PutPages(mime, pages, ObjectFolder());
    return 1;
}

int CProjectManager::CutPages(QMimeData& mime) {
    std::vector<int> doomed = CopiedPageIndices(-1);
    doomed.erase(
        std::remove_if(doomed.begin(), doomed.end(), [this](int i) { return !IsPageDeletable(i); }),
        doomed.end());
    if (doomed.empty()) return 0;
    if (m_pCurPage) m_pCurPage->EndTextEdit();
    std::vector<const CPageManager*> pages;
    for (int i : doomed)
        pages.push_back(GetPage(i));
    PutPages(mime, pages, ObjectFolder());
    m_pUndo->PushPages(pages, UNDO_PAGES_REMOVED);
    const int old = m_nCurPage;
    for (auto it = doomed.rbegin(); it != doomed.rend(); ++it)
        RemovePage(*it);
    SettleCurrent(old);
    SetProjectModified();
    return 1;
}

std::vector<std::unique_ptr<CPageManager>> CProjectManager::ReadPageBlock(
    const std::vector<uint8_t>& block) {
    std::vector<std::unique_ptr<CPageManager>> pages;
    CByteReader in(block);
    if (in.Remaining() < 4) return {};
    const auto count = in.Get<uint32_t>();
    // Each page takes its fixed part at the least.
    if (count == 0 || count > in.Remaining() / 612) return {};
    for (uint32_t i = 0; i < count; ++i) {
        auto page = std::make_unique<CPageManager>();
        page->m_nThumbWidth = m_nThumbWidth;
        page->m_nThumbHeight = m_nThumbHeight;
        if (!page->ReadFlat(in)) return {};
        pages.push_back(std::move(page));
    }
    return pages;
}

int CProjectManager::PastePages(int afterIndex, const QMimeData& mime) {
    auto pages = ReadPageBlock(MimeBlock(mime, MIME_PAGES));
    if (pages.empty()) return 0;
    const QString source = MimeSourceFolder(mime);
    if (m_pCurPage) m_pCurPage->Deactivate();
    int at = afterIndex >= 0 ? std::min(afterIndex + 1, PageCount()) : PageCount();
    const int first = at;
    std::vector<const CPageManager*> pasted;
    for (auto& page : pages) {
        page->Attach(this, m_pView);
        Identify(*page);
        page->FindPastedBackground(source);
        page->UpdateThumbnail();
        page->RebuildPageText(false);
        page->SetModified(true);
        page->EnsureThumbFile();
        pasted.push_back(page.get());
        m_aPages.insert(m_aPages.begin() + at, std::move(page));
        if (m_nCurPage >= at) ++m_nCurPage;
        ++at;
    }
    m_aSelPages.clear();
    if (m_pCurPage) m_pCurPage->Activate(false);
    PageClicked(first, true);
    m_pUndo->PushPages(pasted, UNDO_PAGES_ADDED);
    SetProjectModified();
    return 1;
}

// ---- objects, text and files ----

std::vector<CPageManager*> CProjectManager::PasteTargets() const {
    std::vector<int> indices = m_aSelPages;
    if (m_pCurPage) indices.push_back(m_nCurPage);
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    std::vector<CPageManager*> targets;
    for (int i : indices)
        if (CPageManager* page = GetPage(i)) targets.push_back(page);
    return targets;
}

void CProjectManager::FinishTargets(const std::vector<CPageManager*>& targets) {
    std::vector<const CPageManager*> pushed;
    for (CPageManager* page : targets) {
        page->FinishPaste(page == m_pCurPage);
        pushed.push_back(page);
    }
    m_pUndo->PushPages(pushed, UNDO_PAGES_EDITED);
    RefreshPreviewList();
    RefreshTextList();
    if (m_pCurPage) m_pCurPage->Repaint();
    if (m_pHost) m_pHost->PagesChanged();
}

int CProjectManager::PasteObjects(const QMimeData& mime) {
    const std::vector<CPageManager*> targets = PasteTargets();
    if (targets.empty()) return 0;
    if (m_pCurPage) m_pCurPage->ClearSelection();
    const std::vector<uint8_t> block = MimeBlock(mime, MIME_OBJECTS);
    const QString source = MimeSourceFolder(mime);
    const QString text = MimePlainText(mime);
    for (CPageManager* page : targets) {
        const bool active = page == m_pCurPage;
        // The same data gives every page the same answer: the first says it.
        const bool added = !block.empty() ? page->AddObjectsFromFlat(block, source, active) > 0
                                          : page->AddTextFromClipboard(text, active);
        if (!added) return 0;
    }
    FinishTargets(targets);
    return 1;
}

namespace {

bool IsAnimationFile(const QString& file) {
    return GetMediaType(file) != MEDIA_UNKNOWN;
}

}  // namespace

int CProjectManager::PasteFiles(const QStringList& files, const UstPoint* at) {
    const std::vector<CPageManager*> targets = PasteTargets();
    if (targets.empty()) return 0;
    if (m_pCurPage) m_pCurPage->ClearSelection();
    bool any = false;
    for (CPageManager* page : targets) {
        for (const QString& file : files) {
            if (!QFileInfo(file).isFile()) continue;
            std::unique_ptr<CQRDObject> object;
            if (IsImageExtension(file))
                object = page->MakePicture(file);
            else if (IsAnimationFile(file))
                object = page->MakeAnimation(file);
            if (!object) continue;
            CQRDObject* added = page->AddObject(std::move(object));
            if (at) {
                const UstRect r = added->m_rcView;
                const UstRect moved{at->x, at->y, at->x + r.Width(), at->y + r.Height()};
                added->Execute(&moved, CMD_SET_RECT);
            }
            if (page == m_pCurPage) page->Select(added);
            any = true;
        }
    }
    if (!any) return 0;
    FinishTargets(targets);
    return 1;
}

int CProjectManager::Paste(const QMimeData& mime) {
    if (PlayState() != 0) return 0;
    if (mime.hasFormat(QString::fromLatin1(MIME_PAGES))) {
        m_aSelPages.clear();
        return PastePages(m_nCurPage, mime);
    }
    // File managers offer the names of copied files as text too; the files
    // are what the user copied.
    const QStringList files = MimeLocalFiles(mime);
    const bool objects = mime.hasFormat(QString::fromLatin1(MIME_OBJECTS));
    if (objects || (files.isEmpty() && !MimePlainText(mime).isEmpty())) {
        if (!m_pCurPage) return 0;
        if (m_pCurPage->EditedText()) return m_pCurPage->ExecCommand(&mime, CMD_PASTE);
        return PasteObjects(mime);
    }
    return files.isEmpty() ? 0 : PasteFiles(files);
}

}  // namespace orv
