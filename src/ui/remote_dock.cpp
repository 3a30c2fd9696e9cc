// The main window's side of live data and remote control: the "Data" pane,
// the data file it keeps, and the control server that Options or --control
// switch on.
#include <QDir>
#include <QDockWidget>
#include <QMessageBox>
#include <QStatusBar>

#include "project/page_data_file.h"
#include "project/project_manager.h"
#include "ui/auto_dlg.h"
#include "ui/data_pane.h"
#include "ui/editor_control.h"
#include "ui/main_frame.h"
#include "ui/styles_pane.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int DATA_PANE_ID = 557;

std::vector<CPageManager*> ProjectPages(const CProjectManager& project) {
    std::vector<CPageManager*> pages;
    for (const auto& page : project.Pages())
        pages.push_back(page.get());
    return pages;
}

}  // namespace

void CMainFrame::CreateDataPane() {
    m_pDataPane = new CDataPane;
    m_pDataPane->SetSource([this] {
        CZevrantView* view = ActiveView();
        if (!view || !view->Page()) return UstDataSource{};
        return UstDataSource{view->Page(), view->Document()->Project().Folder()};
    });
    connect(m_pDataPane, &CDataPane::DataChanged, this, &CMainFrame::OnPageDataChanged);
    QDockWidget* dock = CreatePane(DATA_PANE_ID, tr("Data"), m_pDataPane, QSize(260, 300),
                                   QSize(140, 160), QSize(600, 5000));
    // A tab beside the styles, which sit beside the page list.
    if (auto* styles = qobject_cast<QDockWidget*>(m_pStylesPane->parentWidget()))
        tabifyDockWidget(styles, dock);
    if (QDockWidget* slide = Pane(550)) slide->raise();
}

// The data file is written at each change, apart from the project file:
// what the operator typed for air outlives a project closed unsaved.
void CMainFrame::OnPageDataChanged(CPageManager* page) {
    CZevrantView* view = ActiveView();
    if (view && !view->Document()->Project().Folder().isEmpty()) {
        QString error;
        if (!SavePageData(view->Document()->Project().Folder(),
                          ProjectPages(view->Document()->Project()), &error))
            SetStatusPane(0, error);
    }
    if (m_pPlayEngine && m_pPlayEngine->PageOnAir() == page &&
        page->m_data.UpdateMode() == DATA_UPDATE_RECT)
        m_pPlayEngine->RefreshOnAir();
}

IPlayHost* CMainFrame::EngineHost() {
    if (!m_pControl) {
        m_pControl = std::make_unique<CEditorControl>(this);
        QString unused;  // no engine yet: the setting is only kept
        m_pControl->Apply(LoadControlSetting(), unused);
    }
    return m_pControl->Host();
}

void CMainFrame::SetControlOverride(const UstControlOptions& options) {
    EngineHost();
    m_pControl->SetOverride(options);
}

void CMainFrame::ControlEngineChanged() {
    EngineHost();
    QString error;
    UstPlayList* list = m_pAutoDlg ? &m_pAutoDlg->Auto()->List() : nullptr;
    if (!m_pControl->SetEngine(m_pPlayEngine.get(), list, error))
        QMessageBox::warning(this, windowTitle(),
                             tr("The remote control could not start: %1").arg(error));
    ShowControlState();
}

void CMainFrame::ControlEngineGone() {
    QString error;
    if (m_pControl) m_pControl->SetEngine(nullptr, nullptr, error);
}

void CMainFrame::ApplyControlSetting(const UstControlSetting& setting) {
    SaveControlSetting(setting);
    EngineHost();
    QString error;
    if (!m_pControl->Apply(setting, error))
        QMessageBox::warning(this, windowTitle(),
                             tr("The remote control could not start: %1").arg(error));
    ShowControlState();
}

// In play mode automation reaches the pages the play panes list; out of it
// none, so that no page the operator deletes is one the server holds.
void CMainFrame::ControlPagesChanged() {
    if (!m_pControl) return;
    CZevrantView* view = ActiveView();
    if (m_nPlayState == 0 || !view) {
        m_pControl->SetPages({}, {});
        return;
    }
    const CProjectManager& project = view->Document()->Project();
    m_pControl->SetPages(QDir(project.Folder()).dirName(), ProjectPages(project));
}

void CMainFrame::ShowControlState() {
    const QString where = m_pControl ? m_pControl->Describe() : QString();
    statusBar()->showMessage(where.isEmpty() ? QString() : tr("Remote control on %1").arg(where));
}

}  // namespace orv
