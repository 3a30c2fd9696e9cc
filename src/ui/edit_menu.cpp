// The Edit menu: undo and redo of the active project, and the clipboard of
// its pages and objects; files dropped on the canvas.
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>

#include "project/clipboard_formats.h"
#include "project/project_manager.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

void CMainFrame::CreateEditMenu() {
    QMenu* menu = CommandMenu(tr("&Edit"));
    struct UstCommand {
        uint32_t nId;
        const char* text;
        QList<QKeySequence> keys;
    };
    const UstCommand commands[] = {
        {CMD_UNDO, QT_TR_NOOP("&Undo"), {QKeySequence(Qt::CTRL | Qt::Key_Z)}},
        {CMD_REDO,
         QT_TR_NOOP("&Redo"),
         {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)}},
        {0, nullptr, {}},
        // Their keys come with the ribbon's command table.
        {CMD_CUT, QT_TR_NOOP("Cu&t"), {}},
        {CMD_COPY, QT_TR_NOOP("&Copy"), {}},
        {CMD_PASTE, QT_TR_NOOP("&Paste"), {}},
    };
    for (const UstCommand& c : commands) {
        if (!c.text) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(tr(c.text), this, [this, id = c.nId] {
            if (CZevrantView* view = ActiveView()) view->EditCommand(id);
        });
        action->setObjectName(QString("cmd%1").arg(c.nId));
        action->setShortcuts(c.keys);
    }
    connect(menu, &QMenu::aboutToShow, this, [this] { UpdateEditActions(true); });
    connect(menu, &QMenu::aboutToHide, this, [this] { UpdateEditActions(false); });
    m_focusWatch = connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        QDockWidget* pages = Pane(550);
        m_bPageFocus = pages && now && pages->isAncestorOf(now);
    });
}

void CMainFrame::UpdateEditActions(bool menuShown) {
    if (!menuShown) {
        for (uint32_t id : {CMD_UNDO, CMD_REDO, CMD_CUT, CMD_COPY, CMD_PASTE})
            if (QAction* a = findChild<QAction*>(QString("cmd%1").arg(id))) a->setEnabled(true);
        return;
    }
    CZevrantView* view = ActiveView();
    CProjectManager* project = view ? &view->Document()->Project() : nullptr;
    const bool edit = project && m_nPlayState == 0;
    CPageManager* page = project ? project->GetCurPage() : nullptr;
    const auto set = [this](uint32_t id, bool on) {
        if (QAction* a = findChild<QAction*>(QString("cmd%1").arg(id))) a->setEnabled(on);
    };
    // A running text edit is one step more to undo once it is committed.
    const bool editing = page && page->EditedText();
    set(CMD_UNDO, edit && (project->CanUndo() || editing));
    set(CMD_REDO, edit && project->CanRedo());
    const bool copy = edit && (m_bPageFocus ? project->PageCount() > 0 : page && page->CanCopy());
    set(CMD_COPY, copy);
    set(CMD_CUT, copy);
    const QMimeData* mime = QApplication::clipboard()->mimeData();
    set(CMD_PASTE, edit && mime && !mime->formats().isEmpty());
}

int CZevrantView::EditCommand(uint32_t id) {
    if (!m_pDoc || !m_pFrame || m_pFrame->m_nPlayState != 0) return 0;
    CPageManager* page = Page();
    switch (id) {
        case CMD_UNDO:
        case CMD_REDO:
            return ProjectCommand(id);
        case CMD_COPY:
        case CMD_CUT: {
            auto mime = std::make_unique<QMimeData>();
            int result = 0;
            if (m_pFrame->m_bPageFocus)
                result = ProjectCommand(id, mime.get());
            else if (page)
                result = id == CMD_COPY ? page->CopySelection(*mime) : PageCommand(id, mime.get());
            if (result) QApplication::clipboard()->setMimeData(mime.release());
            return result;
        }
        case CMD_PASTE: {
            const QMimeData* mime = QApplication::clipboard()->mimeData();
            if (!mime) return 0;
            // Into the text under edit without ending the edit.
            if (page && page->EditedText()) return PageCommand(CMD_PASTE, mime);
            return ProjectCommand(CMD_PASTE, mime);
        }
        default:
            return 0;
    }
}

namespace {

bool CarriesFiles(const QMimeData* mime) {
    return mime && !MimeLocalFiles(*mime).isEmpty();
}

}  // namespace

void CZevrantView::dragEnterEvent(QDragEnterEvent* event) {
    const bool edit = m_pFrame && m_pFrame->m_nPlayState == 0 && Page();
    if (edit && CarriesFiles(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void CZevrantView::dragMoveEvent(QDragMoveEvent* event) {
    if (m_rcPage.contains(event->position().toPoint()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void CZevrantView::dropEvent(QDropEvent* event) {
    CPageManager* page = Page();
    if (!page || !m_pDoc || !CarriesFiles(event->mimeData())) return;
    EndTextEdit();
    const QPoint canvas = ToCanvas(event->position().toPoint());
    const UstPoint scroll = page->GetScrollOrigin();
    const UstPoint at{canvas.x() + scroll.x, canvas.y() + scroll.y};
    if (m_pDoc->Project().PasteFiles(MimeLocalFiles(*event->mimeData()), &at))
        event->acceptProposedAction();
    ShowPageStatus();
    update();
}

}  // namespace orv
