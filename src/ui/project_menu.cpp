// The projects of the editor: New, Open, Save, Save As, Close and Switch
// Project, each project in a window of its own, the workspace and the last
// project remembered.
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiArea>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>

#include "ui/child_frame.h"
#include "ui/main_frame.h"
#include "ui/project_dialogs.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int RECENT_MAX = 8;
constexpr const char* RECENT_KEY = "Recent File List/Projects";

QString ProjectFileFilter() {
    return CMainFrame::tr("Project files (*.qrdprj);;All files (*)");
}

// The wait cursor for the length of a command.
struct CWaitCursor {
    CWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QApplication::restoreOverrideCursor(); }
};

}  // namespace

void CMainFrame::AddProjectFileActions(QMenu* file) {
    auto add = [&](const QString& text, const char* name, auto slot, QKeySequence key = {}) {
        QAction* action = file->addAction(text, this, slot);
        action->setObjectName(name);
        if (!key.isEmpty()) action->setShortcut(key);
        return action;
    };
    add(
        tr("&New Project..."), "cmd57600", [this] { NewProject(); }, QKeySequence::New);
    add(
        tr("&Open Project..."), "cmd57601", [this] { OpenProject(); }, QKeySequence::Open);
    add(tr("Open Project &File..."), "cmdOpenProjectFile", [this] { OpenProjectFile(); });
    m_pRecentMenu = file->addMenu(tr("S&witch Project"));
    m_pRecentMenu->setObjectName("cmd1312");
    connect(m_pRecentMenu, &QMenu::aboutToShow, this, &CMainFrame::FillRecentMenu);
    file->addSeparator();
    add(
        tr("&Save"), "cmd57603", [this] { SaveActiveProject(); }, QKeySequence::Save);
    add(tr("Save Project &As..."), "cmd57604", [this] { SaveProjectAs(); });
    add(tr("&Close Project"), "cmd57602", [this] { CloseActiveProject(); });
}

QStringList CMainFrame::OpenProjectFiles() const {
    QStringList open;
    for (CZevrantView* view : Views())
        if (view->Document()->HasFile()) open << view->Document()->m_strProjectPath;
    return open;
}

CZevrantView* CMainFrame::FindProjectWindow(const QString& projectFile) const {
    const QString wanted = ProjectPathsFor(projectFile).strProjectPath;
    for (CZevrantView* view : Views())
        if (view->Document()->m_strProjectPath == wanted) return view;
    return nullptr;
}

void CMainFrame::RememberProject(const CZevrantDoc& doc) {
    if (!doc.HasFile()) return;
    m_strWorkspace = doc.m_strWorkspace;
    QSettings settings;
    QStringList recent = settings.value(RECENT_KEY).toStringList();
    recent.removeAll(doc.m_strProjectPath);
    recent.prepend(doc.m_strProjectPath);
    settings.setValue(RECENT_KEY, recent.mid(0, RECENT_MAX));
    if (m_fnRememberProject) m_fnRememberProject(doc.m_strWorkspace, doc.m_strProjectPath);
}

void CMainFrame::FillRecentMenu() {
    m_pRecentMenu->clear();
    const QStringList recent = QSettings().value(RECENT_KEY).toStringList();
    for (const QString& path : recent)
        m_pRecentMenu->addAction(QDir::toNativeSeparators(path), this,
                                 [this, path] { OpenProjectPath(path); });
    if (recent.isEmpty()) m_pRecentMenu->addAction(tr("(none)"))->setEnabled(false);
}

CZevrantView* CMainFrame::OpenProjectPath(const QString& path, bool announceRecovery) {
    // A project is open in one window at a time.
    if (CZevrantView* open = FindProjectWindow(path)) {
        m_pMdi->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(open->parentWidget()));
        return open;
    }
    auto* doc = new CZevrantDoc(this);
    QString error, notice;
    bool opened = false;
    {
        CWaitCursor wait;
        opened = doc->OpenDocument(path, &error, &notice);
    }
    if (!notice.isEmpty()) QMessageBox::warning(this, windowTitle(), notice);
    if (!opened) {
        delete doc;
        QMessageBox::warning(this, windowTitle(),
                             tr("The project %1 could not be opened:\n%2").arg(path, error));
        return nullptr;
    }
    CZevrantView* view = AddProjectWindow(doc);
    RememberProject(*doc);
    if (doc->m_bFromBackup && announceRecovery) ShowRecoveryMessage();
    return view;
}

void CMainFrame::ShowRecoveryMessage() {
    QMessageBox::information(
        this, windowTitle(),
        tr("Program was not closed properly.\nRecovering from the last modification."));
}

void CMainFrame::OpenProjectFile() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Project File"), m_strWorkspace,
                                                      ProjectFileFilter());
    if (!path.isEmpty()) OpenProjectPath(path);
}

void CMainFrame::OpenProject() {
    CDlgOpenPrj dlg(m_strWorkspace, OpenProjectFiles(), this);
    if (dlg.exec() != QDialog::Accepted) return;
    m_strWorkspace = dlg.Location();
    OpenProjectPath(dlg.ProjectPath());
}

void CMainFrame::NewProject() {
    CZevrantView* active = ActiveView();
    const QString current = active ? active->Document()->Title() : QStringLiteral("CGProject");
    const bool wide = !active || active->Document()->Project().m_nWidth != 640;
    CDlgPrj dlg(CDlgPrj::EKind::NEW, m_strWorkspace, current, wide, this);
    if (dlg.exec() != QDialog::Accepted) return;
    QString error;
    if (!CreateProjectFolder(dlg.Folder(), dlg.Wide() ? 1920 : 640, dlg.Wide() ? 1080 : 480,
                             &error)) {
        QMessageBox::warning(this, windowTitle(), tr("Failed to create project."));
        return;
    }
    m_strWorkspace = dlg.Location();
    OpenProjectPath(dlg.Folder());
}

void CMainFrame::SaveActiveProject() {
    CZevrantView* view = ActiveView();
    CZevrantDoc* doc = view ? view->Document() : nullptr;
    if (!doc) return;
    view->EndTextEdit();
    if (!doc->HasFile()) {
        SaveProjectAs();
        return;
    }
    QString error, saved;
    {
        CWaitCursor wait;
        saved = doc->Save(&error);
    }
    if (!saved.isEmpty()) {
        SetStatusPane(3, saved + tr(" is saved."));
    } else if (!error.isEmpty()) {
        QMessageBox::warning(this, windowTitle(),
                             tr("The project could not be saved:\n%1").arg(error));
    }
}

void CMainFrame::SaveProjectAs() {
    CZevrantView* view = ActiveView();
    CZevrantDoc* doc = view ? view->Document() : nullptr;
    if (!doc) return;
    view->EndTextEdit();
    CDlgPrj dlg(CDlgPrj::EKind::SAVE_AS, m_strWorkspace, doc->Title(), true, this);
    if (dlg.exec() != QDialog::Accepted) return;
    const QString old = doc->m_strProjectPath;
    QString error;
    bool saved = false;
    {
        CWaitCursor wait;
        saved = doc->SaveAs(dlg.Folder(), &error);
    }
    if (!saved) {
        QMessageBox::warning(this, windowTitle(), tr("Failed copying files."));
        return;
    }
    if (auto* child = qobject_cast<CChildFrame*>(view->parentWidget()))
        child->setWindowTitle(doc->Title());
    QSettings settings;
    QStringList recent = settings.value(RECENT_KEY).toStringList();
    recent.removeAll(old);
    settings.setValue(RECENT_KEY, recent);
    RememberProject(*doc);
    if (m_fnWriteProjectIni) m_fnWriteProjectIni(doc->m_strWorkspace, doc->m_strProjectPath);
}

void CMainFrame::CloseActiveProject() {
    if (auto* child = qobject_cast<CChildFrame*>(m_pMdi->activeSubWindow())) child->close();
}

bool CMainFrame::CloseProjectOf(CZevrantView* view) {
    CZevrantDoc* doc = view->Document();
    const auto ask = [this, doc] {
        const QString text = QStringLiteral("%1 %2\n").arg(tr("Save the changes?"), doc->Title());
        return QMessageBox::question(this, windowTitle(), text,
                                     QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    };
    view->EndTextEdit();
    const auto result = doc->CloseDocument(m_nPlayState != 0, m_Env.bAutoSave != 0, ask);
    if (result == CZevrantDoc::EClose::REFUSED_ON_AIR) {
        QMessageBox::information(this, windowTitle(),
                                 tr("Please exit play mode to close project."));
        return false;
    }
    // The view goes with its window; the project after it.
    connect(view, &QObject::destroyed, doc, &QObject::deleteLater);
    return true;
}

bool CMainFrame::CloseAllProjects() {
    for (CZevrantView* view : Views()) {
        auto* child = qobject_cast<CChildFrame*>(view->parentWidget());
        if (child && !child->close()) return false;
    }
    return true;
}

}  // namespace orv
