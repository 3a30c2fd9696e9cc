// Play mode of the main window: the engine, the toggle in and out with its
// panes, the play keys of edit mode, and what the window does with the
// engine's states.
#include <QAction>
#include <QDockWidget>
#include <QMenuBar>
#include <QMessageBox>

#include "board/gboard.h"
#include "playout/transition_driver.h"
#include "project/project_manager.h"
#include "shell/app_object.h"
#include "ui/auto_dlg.h"
#include "ui/main_frame.h"
#include "ui/play_dlg.h"
#include "ui/ribbon_bar.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int AUTO_PANE = 555, PLAY_PANE = 553, TEXT_PANE = 554;

std::vector<CPageManager*> PagesOf(const CZevrantView& view) {
    std::vector<CPageManager*> pages;
    for (const auto& page : view.Document()->Project().Pages())
        pages.push_back(page.get());
    return pages;
}

// A list page without an out stage stays on air as the list moves on.
bool LeftTheAir(CZevrantView* view, int index) {
    const CPageManager* page = view ? view->Document()->Project().GetPage(index) : nullptr;
    if (!page) return true;
    UstPageEffect effect = page->m_effect;
    return CTransitionDriver::HasOutStage(RequestWords(effect));
}

}  // namespace

void CMainFrame::CreatePlayMenu() {
    m_pPlayMenu = CommandMenu(tr("&Play"));
    const auto add = [&](const QString& text, const char* name, auto slot) {
        const QStringList parts = text.split('\n');
        QAction* action = m_pPlayMenu->addAction(parts.value(1), this, slot);
        action->setStatusTip(parts.value(0));
        action->setObjectName(name);
        return action;
    };
    m_pPlayModeAction = add(tr("Play Mode\nPlay Mode"), "cmd777", [this] { TogglePlayMode(); });
    m_pPlayModeAction->setCheckable(true);
    add(tr("Open or close the play window\nPlay Window"), "cmd780", [this] { TogglePlayWindow(); });
    add(tr("Erase output\nErase Output\nErase"), "cmd781", [this] { EraseOutput(); });
    add(tr("Discard current page for play out.\nDiscard"), "cmd800", [this] {
        CZevrantView* view = ActiveView();
        CPageManager* page = view ? view->Page() : nullptr;
        const int32_t toggle = 1;
        if (page && m_nPlayState == 0) page->SetEffectValue(&toggle, 800);
    });
    CreateTimerControls(m_pPlayMenu);

    const UstPlayContext context{[this] { return m_pPlayEngine.get(); },
                                 [this] { return m_nPlayState; }};
    m_pAutoDlg = new CAutoDlg(context, m_pBoard ? m_pBoard->GetPipeline() : nullptr);
    m_pAutoPane = new QDockWidget(tr("Play Out"), this);
    m_pAutoPane->setObjectName(QString("pane%1").arg(AUTO_PANE));
    m_pAutoPane->setWidget(m_pAutoDlg);
    m_pAutoPane->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    addDockWidget(Qt::LeftDockWidgetArea, m_pAutoPane);
    m_pAutoPane->hide();
    connect(m_pAutoDlg->Auto(), &CPropAuto::CursorMoved, this, [this](int index) {
        for (CPlayCellList* list : PlayLists())
            list->SetCursor(index);
    });
}

std::vector<CPlayCellList*> CMainFrame::PlayLists() const {
    std::vector<CPlayCellList*> lists;
    for (int id : {PLAY_PANE, TEXT_PANE})
        if (QDockWidget* pane = Pane(id))
            if (auto* list = qobject_cast<CPlayCellList*>(pane->widget())) lists.push_back(list);
    return lists;
}

// An engine that still plays is stopped before the new one is made: two
// engines never draw into one canvas.
void CMainFrame::CreatePlayEngine() {
    ControlEngineGone();
    m_pPlayEngine.reset();
    const CZevrantApp* app = CZevrantApp::Get();
    const UstSize frame = app ? app->GetFrameSize() : UstSize{1920, 1080};
    const UstSize thumb = app ? app->GetThumbSize() : UstSize{300, 170};
    m_pPlayEngine = std::make_unique<CPlayEngine>(0, m_pBoard, frame, thumb, EngineHost());
    m_pPlayEngine->SetPlayList(&m_pAutoDlg->Auto()->List());
    ControlEngineChanged();
}

void CMainFrame::PostPlayState(int state, int param) {
    QMetaObject::invokeMethod(
        this, [this, state, param] { OnPlayState(state, param); }, Qt::QueuedConnection);
}

// Play mode may have been left while the word was on its way.
void CMainFrame::SetPlayMode(int mode) {
    QMetaObject::invokeMethod(
        this,
        [this, mode] {
            if (m_nPlayState != 0) m_nPlayState = mode;
        },
        Qt::QueuedConnection);
}

void CMainFrame::TogglePlayMode() {
    if (m_nPlayState == 0)
        EnterPlayMode();
    else
        LeavePlayMode();
    if (m_pPlayModeAction) m_pPlayModeAction->setChecked(m_nPlayState != 0);
}

bool CMainFrame::EnterPlayMode() {
    CZevrantView* view = ActiveView();
    if (m_nPlayState != 0 || !view) return false;
    if (!m_pPlayEngine) CreatePlayEngine();
    view->EndTextEdit();
    const std::vector<CPageManager*> pages = PagesOf(*view);
    CProjectManager& project = view->Document()->Project();
    m_pAutoDlg->SetPages(pages);
    m_pAutoDlg->Auto()->SetCursor(std::max(project.m_nCurPage, 0));
    for (CPlayCellList* list : PlayLists()) {
        list->SetPages(pages);
        list->SetCursor(m_pAutoDlg->Auto()->Cursor());
    }
    m_pPlayEngine->ResetPlay();
    m_nPlayState = 1;
    SetRibbonEnabled(false);
    ControlPagesChanged();
    m_pAutoPane->show();
    for (int id : {PLAY_PANE, TEXT_PANE})
        if (QDockWidget* pane = Pane(id)) pane->show();
    if (QDockWidget* pane = Pane(PLAY_PANE)) pane->raise();
    view->RefreshCanvas();
    return true;
}

bool CMainFrame::LeavePlayMode() {
    if (m_nPlayState == 2) {
        QMessageBox::information(this, windowTitle(),
                                 tr("Please stop automatic play out to exit play mode."));
        return false;
    }
    if (m_nPlayState == 0) return false;
    m_pAutoPane->hide();
    for (int id : {PLAY_PANE, TEXT_PANE})
        if (QDockWidget* pane = Pane(id)) pane->hide();
    if (m_pPlayEngine) m_pPlayEngine->ResetPlay();
    m_nPlayState = 0;
    SetRibbonEnabled(true);
    ControlPagesChanged();
    if (CZevrantView* view = ActiveView()) {
        view->Document()->Project().m_pPlayPage = nullptr;
        view->GoToPage(m_pAutoDlg->Auto()->Cursor());
        view->RefreshCanvas();
    }
    return true;
}

// Editing commands stay out of play mode; the play menu and the file
// menu's way out stay in.
void CMainFrame::SetRibbonEnabled(bool enabled) {
    for (QMenu* menu : m_commandMenus)
        if (menu != m_pPlayMenu) SetMenuEnabled(menu, enabled);
    if (QMenu* file = findChild<QMenu*>("FileMenu")) file->setEnabled(enabled);
    // Only Run stays usable on the ribbon in play mode.
    if (m_pRibbon && !enabled) m_pRibbon->SetCurrentTab(5005);
    UpdateRibbon();
}

void CMainFrame::TogglePlayWindow() {
    const QDockWidget* play = Pane(PLAY_PANE);
    const bool show = play && !play->isVisible();
    for (int id : {PLAY_PANE, TEXT_PANE})
        if (QDockWidget* pane = Pane(id)) pane->setVisible(show);
}

// In play mode the list pane has the key, so that automatic play keeps its
// rule: it can be stopped, not erased.
void CMainFrame::EraseOutput() {
    if (!m_pPlayEngine) return;
    if (m_nPlayState != 0) {
        if (m_pAutoDlg) m_pAutoDlg->Auto()->OnKey(vk::F12);
        return;
    }
    m_pPlayEngine->StopPlay();
    m_pPlayEngine->Key(PLAYKEY_ERASE);
    std::fill(m_PreviewImage.begin(), m_PreviewImage.end(), 0u);
    if (CZevrantView* view = ActiveView()) view->RefreshCanvas();
}

bool CMainFrame::ActivePageFitsBoard() const {
    const CZevrantView* view = ActiveView();
    if (!m_pBoard || !view) return false;
    const bool sdMode = m_pBoard->GetFrameSize(0).cy <= 576;
    const bool sdPage = view->Document()->Project().m_nHeight <= 576;
    return sdMode == sdPage;
}

void CMainFrame::PlayKey(int key) {
    CZevrantView* view = ActiveView();
    CPlayEngine* engine = m_pPlayEngine.get();
    if (!engine || !view) return;
    switch (key) {
        case vk::RETURN:
            if (!engine->IsBlinking() && !engine->IsLive() && !engine->SetPage(view->Page()))
                return;
            engine->Key(PLAYKEY_RUN);
            return;
        case vk::MULTIPLY:
            engine->StopPlay();
            view->RefreshCanvas();
            return;
        case vk::ADD:
            engine->Faster();
            return;
        case vk::SUBTRACT:
            engine->Slower();
            return;
        case vk::F12:
            EraseOutput();
            return;
        default:
            return;
    }
}

void CMainFrame::OnPlayState(int state, int param) {
    const bool listed = m_nPlayState != 0;
    CZevrantView* view = ActiveView();
    if (listed && state == PLAY_LOAD) {
        for (CPlayCellList* list : PlayLists())
            list->SetOnAir(param);
        if (view)
            view->Document()->Project().m_pPlayPage = view->Document()->Project().GetPage(param);
    }
    if (state == PLAY_GONE && param != 0)
        std::fill(m_PreviewImage.begin(), m_PreviewImage.end(), 0u);
    if (state == PLAY_GONE && (listed ? LeftTheAir(view, param) : param != 0))
        for (CPlayCellList* list : PlayLists())
            list->SetOnAir(-1);
    if (state == PLAY_IN || state == PLAY_GONE)
        for (CPlayCellList* list : PlayLists())
            list->viewport()->update();
    if (listed && m_pAutoDlg) m_pAutoDlg->Auto()->OnPlayState(state, param);
}

}  // namespace orv
