// Until the project dialogs exist: a project file opened into a window of
// its own, and the active project saved, through plain file dialogs.
#include <QFileDialog>
#include <QMdiArea>
#include <QMenu>
#include <QMessageBox>

#include "ui/child_frame.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

QString ProjectFileFilter() {
    return CMainFrame::tr("Project files (*.qrdprj);;All files (*)");
}

}  // namespace

void CMainFrame::AddProjectFileActions(QMenu* file) {
    QAction* open =
        file->addAction(tr("&Open Project File..."), this, &CMainFrame::OpenProjectFile);
    open->setShortcut(QKeySequence::Open);
    open->setObjectName("cmdOpenProjectFile");
    QAction* save = file->addAction(tr("&Save"), this, &CMainFrame::SaveActiveProject);
    save->setShortcut(QKeySequence::Save);
    save->setObjectName("cmdSave");
}

void CMainFrame::OpenProjectFile() {
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Open Project File"), {}, ProjectFileFilter());
    if (!path.isEmpty()) OpenProjectPath(path);
}

CZevrantView* CMainFrame::OpenProjectPath(const QString& path) {
    auto* doc = new CZevrantDoc(this);
    QString error;
    if (!doc->OpenProject(path, &error)) {
        delete doc;
        QMessageBox::warning(this, windowTitle(),
                             tr("The project %1 could not be opened:\n%2").arg(path, error));
        return nullptr;
    }
    return AddProjectWindow(doc);
}

void CMainFrame::SaveActiveProject() {
    CZevrantView* view = ActiveView();
    CZevrantDoc* doc = view ? view->Document() : nullptr;
    if (!doc) return;
    view->EndTextEdit();
    QString error;
    bool saved = false;
    if (doc->m_strProjectPath.isEmpty()) {
        const QString path = QFileDialog::getSaveFileName(
            this, tr("Save Project"), QStringLiteral("project.qrdprj"), ProjectFileFilter());
        if (path.isEmpty()) return;
        saved = doc->SaveProjectAs(path, &error);
        if (auto* child = qobject_cast<CChildFrame*>(view->parentWidget()))
            child->setWindowTitle(doc->Title());
    } else {
        saved = doc->SaveProject(&error);
    }
    if (!saved)
        QMessageBox::warning(this, windowTitle(),
                             tr("The project could not be saved:\n%1").arg(error));
}

}  // namespace orv
