#pragma once
// An open project in memory: its pages, the current page, the frame format.
// Files, undo and recovery join it as they arrive.

#include <QString>

#include <memory>
#include <vector>

#include "project/object_folder.h"
#include "project/page_manager.h"

namespace orv {

class CProjectManager : public CPageDoc {
public:
    CProjectManager(int frameWidth = 1920, int frameHeight = 1080);
    ~CProjectManager() override;

    // After the view exists: pages take it, a project without pages gets
    // one, and the current page goes on the canvas.
    void AttachAll(CPageView* view);
    CPageManager* InsertPage(int afterIndex);  // -1: at the head
    bool GoToPage(int index);

    CPageManager* GetPage(int index) const;
    CPageManager* GetCurPage() const { return m_pCurPage; }
    int PageCount() const { return static_cast<int>(m_aPages.size()); }
    QString PageStatus() const;  // "Page %d/%d"

    int FrameWidth() const override { return m_nWidth; }
    int FrameHeight() const override { return m_nHeight; }
    int ThumbWidth() const override { return m_nThumbWidth; }
    int ThumbHeight() const override { return m_nThumbHeight; }
    void SetProjectModified() override { m_bModified = 1; }
    void PushUndo(CPageManager&, int) override {}
    void RefreshPreviewList() override {}
    void RefreshTextList() override {}
    void ObjectRemoved(CQRDObject* object) override;
    QString ObjectFolder() const override { return m_strObjectFolder; }
    CFileLinkTable* FileLinks() override { return m_pFileLinks ? m_pFileLinks : &m_ownLinks; }

    // Where this project keeps its media copies, and the table of copies
    // shared by every project of the program; without one the project
    // keeps its own.
    void SetObjectFolder(const QString& folder) { m_strObjectFolder = folder; }
    void SetFileLinks(CFileLinkTable* links) { m_pFileLinks = links; }

    int32_t m_bModified = 0;
    CPageManager* m_pCurPage = nullptr;
    CPageView* m_pView = nullptr;
    int32_t m_nWidth;
    int32_t m_nHeight;
    int32_t m_nThumbWidth = 300;
    int32_t m_nThumbHeight;
    int32_t m_bWide;
    int32_t m_nCurPage = -1;
    CQRDObject* m_pEditObject = nullptr;

private:
    std::vector<std::unique_ptr<CPageManager>> m_aPages;
    QString m_strObjectFolder;
    CFileLinkTable* m_pFileLinks = nullptr;
    CFileLinkTable m_ownLinks;
};

}  // namespace orv
