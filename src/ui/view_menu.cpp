// The View menu: the page overview, Find, Jump To Page, and the canvas's
// commands that move between pages and objects; with them the routing of
// those commands by number and the refresh of the page thumbnails.
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>

#include "project/project_manager.h"
#include "ui/canvas_commands.h"
#include "ui/dlg_find.h"
#include "ui/dlg_jump.h"
#include "ui/main_frame.h"
#include "ui/page_overview.h"
#include "ui/preview_dlg.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

struct UstViewCommand {
    uint32_t nId;
    const char* text;  // status tip, then the menu's words
};

constexpr UstViewCommand VIEW_COMMANDS[] = {
    {CMD_PAGE_OVERVIEW,
     QT_TRANSLATE_NOOP("CMainFrame", "Show all pages as large thumbnails\nPage Overview")},
    {0, nullptr},
    {CMD_FIND, QT_TRANSLATE_NOOP("CMainFrame", "Find the specified text\nFind")},
    {CMD_JUMP_TO_PAGE, QT_TRANSLATE_NOOP("CMainFrame", "Jump to specific page\nJump To Page")},
    {0, nullptr},
    {CMD_PREVIOUS_PAGE, QT_TRANSLATE_NOOP("CMainFrame", "Go to the previous page\nPrevious Page")},
    {CMD_NEXT_PAGE, QT_TRANSLATE_NOOP("CMainFrame", "Go to the next page\nNext Page")},
    {CMD_END_EDIT, QT_TRANSLATE_NOOP("CMainFrame", "End the edit and select objects\nEnd Edit")},
    {CMD_NEXT_OBJECT, QT_TRANSLATE_NOOP("CMainFrame", "Select the next object\nNext Object")},
    {CMD_PREVIOUS_OBJECT,
     QT_TRANSLATE_NOOP("CMainFrame", "Select the previous object\nPrevious Object")},
    {CMD_SELECT_ALL, QT_TRANSLATE_NOOP("CMainFrame", "Select the entire object\nSelect All")},
};

}  // namespace

void CMainFrame::CreateViewMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    for (const UstViewCommand& c : VIEW_COMMANDS) {
        if (!c.text) {
            menu->addSeparator();
            continue;
        }
        const QStringList parts = tr(c.text).split('\n');
        QAction* action =
            menu->addAction(parts.value(1), this, [this, id = c.nId] { CanvasCommand(id); });
        action->setStatusTip(parts.value(0));
        action->setObjectName(QString("cmd%1").arg(c.nId));
        if (c.nId == CMD_FIND) action->setShortcut(QKeySequence::Find);
    }
    // Enabled as the page allows while the menu shows; afterwards all are,
    // for the keys, and each command keeps its own rules.
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        for (QAction* a : menu->actions())
            if (!a->isSeparator())
                a->setEnabled(CanvasCommandEnabled(a->objectName().mid(3).toUInt()));
    });
    connect(menu, &QMenu::aboutToHide, this, [menu] {
        for (QAction* a : menu->actions())
            a->setEnabled(true);
    });
}

int CMainFrame::CanvasCommand(uint32_t id) {
    if (!CanvasCommandEnabled(id)) return 0;
    CZevrantView* view = ActiveView();
    switch (id) {
        case CMD_PAGE_OVERVIEW:
            ShowPageOverview();
            return 1;
        case CMD_FIND:
            ShowFind();
            return 1;
        case CMD_JUMP_TO_PAGE:
            ShowJump();
            return 1;
        case CMD_INSERT_TIMER:
            InsertTimer();
            return 1;
        case CMD_BLINK_PROPERTIES:
            ChooseBlinkProperties();
            return 1;
        case CMD_TYPING_PROPERTIES:
            ChooseTypingProperties();
            return 1;
        default:
            return view ? view->CanvasCommand(id) : 0;
    }
}

bool CMainFrame::CanvasCommandEnabled(uint32_t id) const {
    CZevrantView* view = ActiveView();
    CProjectManager* project = view ? &view->Document()->Project() : nullptr;
    switch (id) {
        case CMD_PAGE_OVERVIEW:
            return true;
        case CMD_FIND:
        case CMD_JUMP_TO_PAGE:
            return project && project->PageCount() > 0 && m_nPlayState == 0;
        case CMD_INSERT_TIMER:
        case CMD_BLINK_PROPERTIES:
        case CMD_TYPING_PROPERTIES:
            return view && view->Page() && m_nPlayState != 2;
        default:
            return view && view->CanvasCommandEnabled(id);
    }
}

void CMainFrame::RefreshPagePanes() {
    if (CPreviewDlg* pane = PreviewPane()) pane->Refresh();
    if (m_pOverview && m_pOverview->isVisible()) m_pOverview->Grid()->Refresh();
}

CPreviewDlg* CMainFrame::PreviewPane() const {
    QDockWidget* dock = Pane(550);
    return dock ? qobject_cast<CPreviewDlg*>(dock->widget()) : nullptr;
}

void CMainFrame::ShowPageOverview() {
    if (!m_pOverview) m_pOverview = new CDlgPageOverview(this, this);
    m_pOverview->show();
    m_pOverview->raise();
    m_pOverview->Grid()->Refresh();
}

void CMainFrame::ShowFind() {
    CZevrantView* view = ActiveView();
    if (!view) return;
    CDlgFind dlg(view, this);
    dlg.exec();
}

void CMainFrame::ShowJump() {
    CZevrantView* view = ActiveView();
    if (!view) return;
    CProjectManager& project = view->Document()->Project();
    CDlgJump dlg(project.PageCount(), project.m_nCurPage, this);
    if (dlg.exec() != QDialog::Accepted || dlg.PageIndex() < 0) return;
    const int index = dlg.PageIndex();
    view->ProjectCommand(CMD_GO_TO_PAGE, &index);
}

}  // namespace orv
