#pragma once
// An open project in memory: its pages, the current page, the frame format.
// Files, undo and recovery join it as they arrive.

#include <QString>

#include <memory>
#include <vector>

#include "project/object_folder.h"
#include "project/page_manager.h"
#include "project/undo_log.h"

class QMimeData;

namespace orv {

class CArchiveIn;
class CArchiveOut;

// The fixed area at the head of a project file; the page list starts behind it.
constexpr int PROJECT_HEADER_AREA = 128;
// A new project file's length, zeros behind the header.
constexpr int NEW_PROJECT_FILE_SIZE = 4096;

// The header of a project file, as the file has it.
struct UstProjectHeader {
    float fVersion = 1.3f;
    float fZero = 0.0f;
    uint32_t nReserved = 0;
    uint32_t nPages = 0;
    QString strFirstThumb;  // the first page's thumbnail file
    int32_t nWidth = 1920;
    int32_t nHeight = 1080;
};

void WriteProjectHeader(CByteWriter& out, const UstProjectHeader& header);
// Throws when the bytes end first.
UstProjectHeader ReadProjectHeader(CByteReader& in);

// A new project file of NEW_PROJECT_FILE_SIZE bytes holding only a header of
// no pages. False, with nothing written, when the file exists or cannot be
// made.
bool CreateProjectFile(const QString& path, int width, int height, QString* error = nullptr);

// Project-wide command numbers.
enum EProjectCommand : uint32_t {
    CMD_BACKGROUND_TO_ALL = 242,
    CMD_NEW_PAGE = 604,
    CMD_DELETE_PAGES = 605,
    CMD_PAGE_CLICKED = 640,
    CMD_REFRESH_PLAY = 641,
    CMD_GO_TO_PAGE = 642,
    CMD_ADD_PAGE_TO_SELECTION = 643,
    CMD_SELECT_ALL_PAGES = 644,
    CMD_REMOVE_PAGE_FROM_SELECTION = 645,
    CMD_CLEAR_PAGE_SELECTION = 646,
    // The current page and the extra selected ones, in their order, moved to
    // the gap before the index given (0 to the page count).
    CMD_MOVE_PAGES = 647,
    CMD_LEAVE_CANVAS = 6001,
    // A library background onto the current page and every selected page.
    CMD_BACKGROUND_STYLE = 40050
};

// Effect values set on several pages at once, besides the single page's ids.
enum EPagesEffectCommand : uint32_t {
    CMD_IN_EFFECT = 8200,
    CMD_OUT_EFFECT = 8201,
    CMD_EFFECT_PAIR = 8202  // both numbers, each only where a transition may stand
};

// The attribute commands that master attribute mode gives to the project
// instead of the page.
bool IsMasterCommand(uint32_t id);

// What a project asks of the window around it.
class CProjectHost {
public:
    virtual ~CProjectHost() = default;
    virtual int PlayState() const { return 0; }  // 0 edit, 1 play, 2 automatic play out
    virtual bool PlayPanelOpen() const { return false; }
    virtual void PagesChanged() {}       // the page list and panels need a refresh
    virtual void PageStatusChanged() {}  // "Page %d/%d" moved
};

class CProjectManager : public CPageDoc {
public:
    CProjectManager(int frameWidth = 1920, int frameHeight = 1080);
    ~CProjectManager() override;

    // After the view exists: pages take it, a project without pages gets
    // one, and the current page goes on the canvas.
    void AttachAll(CPageView* view);
    CPageManager* InsertPage(int afterIndex);  // -1: at the head
    bool GoToPage(int index);

    // The project-wide commands; 0 when a command does nothing.
    int ExecCommand(const void* arg, uint32_t id);
    // An effect value set on the extra selected pages and the current one.
    int SetPagesEffectValue(const void* value, uint32_t id);
    // Master attribute mode: an attribute command to every object that
    // takes it on the selected pages (all pages when none is selected), as
    // one undo step; 0 when no object changed.
    int BatchAttribute(const void* arg, uint32_t id);
    // The in (side 0) or out (side 1) transition of one page, from the
    // thumbnails' gallery, as one undo step. Roll and crawl pages keep
    // theirs; 0 when nothing changed.
    int SetPageEffect(int index, int side, int number);
    void SetHost(CProjectHost* host) { m_pHost = host; }
    bool IsPageDeletable(int index) const;
    // Pages made for this project and its view but not in its list (an
    // import) taken in: at the end, or
    // each behind the one before starting behind `afterIndex`. Imports
    // cannot be undone, so the undo log is emptied first; the current page
    // stays, and without one the first new page becomes current.
    void AdoptPages(std::vector<std::unique_ptr<CPageManager>> pages, bool append, int afterIndex);
    void RemovePage(int index);
    // The pages put into the order of the identities given; pages not named
    // keep their order behind them. The current page and the selected set
    // follow their pages.
    void ArrangePages(const std::vector<uint32_t>& identities);

    CPageManager* GetPage(int index) const;
    CPageManager* GetCurPage() const { return m_pCurPage; }
    int PageCount() const { return static_cast<int>(m_aPages.size()); }
    QString PageStatus() const;  // "Page %d/%d"
    const std::vector<std::unique_ptr<CPageManager>>& Pages() const { return m_aPages; }

    // The folder the project lives in, ending in a separator; Data and
    // Object lie inside it. Empty for a project that is not on disk.
    // Setting it also sets the object folder to its Object/.
    void SetFolder(const QString& folder);
    QString Folder() const { return m_strFolder; }
    QString DataFolder() const override;

    // Undo and redo; a running text edit is committed first, and nothing
    // happens outside the edit state.
    CUndoLog& UndoLog() { return *m_pUndo; }
    bool CanUndo() const;
    bool CanRedo() const;
    int Undo();
    int Redo();
    // The page of the undo identity, with its index; null when it is gone.
    CPageManager* FindPage(uint32_t identity, int* index) const;
    // After pages went: the current page if it stayed, else the page now at
    // the old index, else the last; with none left, the empty state.
    void SettleCurrent(int oldIndex);
    // Pages the log brought back or changed, shown as a page click would.
    void ShowRestoredPage(int index);
    void ShowPage(int index);
    void PanelsChanged() {
        if (m_pHost) m_pHost->PagesChanged();
    }

    // The clipboard. Copy and cut of pages fill the mime data; a paste reads
    // it: pages, objects or text onto the pages, or files. Each answers 0
    // when it did nothing, and a paste whose data cannot be used adds
    // nothing and leaves no undo record.
    int CopyPages(int index, QMimeData& mime) const;
    int CutPages(QMimeData& mime);
    int PastePages(int afterIndex, const QMimeData& mime);
    int PasteObjects(const QMimeData& mime);
    // Pictures and animations from files onto the pages; with a point,
    // their corner stands there on the page at the zoom.
    int PasteFiles(const QStringList& files, const UstPoint* at = nullptr);
    int Paste(const QMimeData& mime);

    // Storing: the bytes of the header, which go at offset 0, and of the
    // page list, which go at offset 128. Objects of a kind no file can hold
    // throw std::logic_error.
    void Serialize(CByteWriter& header, CArchiveOut& list) const;
    // Writes the project into the file, which must exist: it is opened
    // without being created or cut, so that bytes the save does not reach
    // stay as they were. Then each changed page's thumbnail is stored.
    // 1, or 0 with the reason when the file does not open or take the bytes.
    int SaveProject(const QString& path, QString* error = nullptr);
    // The same into a file made anew, in one step: never seen empty.
    int SaveNewProject(const QString& path, QString* error = nullptr);
    // Reads a project file and takes its pages and frame; the folder becomes
    // the file's. The pages are attached to this project but not to a view.
    // 0 with the reason on any damage, and then the project is as it was.
    int LoadProject(const QString& path, QString* error = nullptr);
    // The same from a whole file's bytes, for a project in the folder.
    int LoadProjectBytes(const QByteArray& bytes, const QString& folder, QString* error = nullptr);
    // The frame and its thumbnail geometry: 640 wide gives 300 x 225,
    // anything else 300 x 170.
    void SetFrame(int width, int height);

    int FrameWidth() const override { return m_nWidth; }
    int FrameHeight() const override { return m_nHeight; }
    int ThumbWidth() const override { return m_nThumbWidth; }
    int ThumbHeight() const override { return m_nThumbHeight; }
    void SetProjectModified() override { m_bModified = 1; }
    void PushUndo(CPageManager& page, int kind) override;
    // A page's thumbnail changed: the panes that show it repaint.
    void RefreshPreviewList() override { PanelsChanged(); }
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
    int32_t m_nWidth = 1920;
    int32_t m_nHeight = 1080;
    int32_t m_nThumbWidth = 300;
    int32_t m_nThumbHeight = 170;
    int32_t m_bWide = 1;
    int32_t m_nCurPage = -1;
    CQRDObject* m_pEditObject = nullptr;
    int32_t m_nPageCount = 0;      // written into the header at save
    std::vector<int> m_aSelPages;  // extra selected pages, ascending, without the current one
    CPageManager* m_pPlayPage = nullptr;

private:
    int SaveProjectOver(const QString& path, QByteArray bytes, QString* error);
    int NewPage(const int* afterIndex);
    int DeletePages();
    int PageClicked(int index, bool reselect);
    int AddPageToSelection(int index);
    int SelectAllPages();
    int RemovePageFromSelection(int index);
    int MovePages(int before);
    int LeaveCanvas();
    int BackgroundToAll(const QString& source);
    int BackgroundToSelected(const QString& source);
    void Identify(CPageManager& page) { page.m_nIdentity = ++m_nLastIdentity; }
    std::vector<int> CopiedPageIndices(int index) const;
    std::vector<CPageManager*> PasteTargets() const;
    void FinishTargets(const std::vector<CPageManager*>& targets);
    std::vector<std::unique_ptr<CPageManager>> ReadPageBlock(const std::vector<uint8_t>& block);
    int PlayState() const { return m_pHost ? m_pHost->PlayState() : 0; }
    void StatusChanged() {
        if (m_pHost) m_pHost->PageStatusChanged();
    }

    CProjectHost* m_pHost = nullptr;
    std::vector<std::unique_ptr<CPageManager>> m_aPages;
    QString m_strFolder;
    QString m_strObjectFolder;
    CFileLinkTable* m_pFileLinks = nullptr;
    CFileLinkTable m_ownLinks;
    uint32_t m_nLastIdentity = 0;
    std::unique_ptr<CUndoLog> m_pUndo;
};

}  // namespace orv
