// Text files and slide shows turned into pages: commands 806 and 807.
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressDialog>

#include "import/slide_import.h"
#include "import/text_import.h"
#include "project/project_manager.h"
#include "ui/main_frame.h"
#include "ui/retr_text_dialog.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

// The wait cursor for as long as the work lasts.
class CWaitCursor {
public:
    CWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QApplication::restoreOverrideCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

// Modeless, repainted between the steps that report to it.
class CSlideProgressDialog : public CSlideProgress {
public:
    explicit CSlideProgressDialog(QWidget* parent) : m_dialog(parent) {
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(0);
        m_dialog.setLabelText(
            QCoreApplication::translate("orv::CMainFrame", "Loading PowerPoint Slides..."));
        m_dialog.setRange(0, 0);
        m_dialog.show();
        Repaint();
    }
    void Stage(ESlideStage stage, int index, int count) override {
        if (stage == ESlideStage::EXTRACTING)
            m_dialog.setLabelText(
                QCoreApplication::translate("orv::CMainFrame", "Extracting %1 of %2...")
                    .arg(index)
                    .arg(count));
        else if (stage == ESlideStage::INSERTING)
            m_dialog.setLabelText(
                QCoreApplication::translate("orv::CMainFrame", "Inserting %1 of %2...")
                    .arg(index)
                    .arg(count));
        if (count > 0) {
            m_dialog.setRange(0, count);
            m_dialog.setValue(index);
        }
        Repaint();
    }
    bool Cancelled() override {
        Repaint();
        return m_dialog.wasCanceled();
    }

private:
    void Repaint() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 20); }
    QProgressDialog m_dialog;
};

}  // namespace

void CMainFrame::ImportTextFile() {
    CZevrantView* view = ActiveView();
    if (!view || m_nPlayState != 0) return;
    CProjectManager& project = view->Document()->Project();
    CDlgRetrText dialog(m_DefaultAttr, project.m_nWidth, project.m_nHeight, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const UstTextImport values = dialog.Values();
    if (values.text.trimmed().isEmpty()) return;
    view->EndTextEdit();
    {
        CWaitCursor wait;
        InsertTextPages(project, m_DefaultAttr, values);
    }
    view->RefreshCanvas();
    view->ShowPageStatus();
}

void CMainFrame::ImportSlideShow() {
    CZevrantView* view = ActiveView();
    if (!view || m_nPlayState != 0) return;
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open"), {},
        tr("PowerPoint Presentation (*.pptx);;PowerPoint 97-2003 Presentation(*.ppt);;"
           "OpenDocument Presentation (*.odp);;PDF (*.pdf)"));
    if (path.isEmpty()) return;
    view->EndTextEdit();
    UstSlideReport report;
    {
        CWaitCursor wait;
        CSlideProgressDialog progress(this);
        report = ImportPowerPoint(view->Document()->Project(), path, true, &progress);
    }
    view->RefreshCanvas();
    view->ShowPageStatus();
    switch (report.result) {
        case ESlideResult::DONE:
        case ESlideResult::NO_SLIDES:
        case ESlideResult::CANCELLED:
            return;
        case ESlideResult::NO_CONVERTER:
            QMessageBox::warning(this, windowTitle(),
                                 tr("LibreOffice is not installed. Install the package %1 to "
                                    "import presentations.")
                                     .arg(QString::fromLatin1(SLIDE_CONVERTER_PACKAGE)));
            return;
        case ESlideResult::TIMED_OUT:
            QMessageBox::warning(this, windowTitle(),
                                 tr("LibreOffice did not finish converting the presentation in "
                                    "time; nothing was imported."));
            return;
        default:
            QMessageBox::warning(
                this, windowTitle(),
                tr("The presentation could not be imported: %1").arg(report.strDetail));
    }
}

}  // namespace orv
