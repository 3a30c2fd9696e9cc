// Animations from files, until the ribbon exists: an ANI32, QRDANI or video
// file, or a numbered sequence of TGA or PNG pictures converted once into an
// ANI32 file in the project's object folder.
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "media/sequence_convert.h"
#include "media/sequence_files.h"
#include "objects/ani_object.h"
#include "project/page_manager.h"
#include "ui/ani_dialog.h"
#include "ui/main_frame.h"
#include "ui/progress_dialog.h"
#include "ui/zevrant_view.h"

namespace orv {

QString CMainFrame::AnimationFileFilter() {
    // Converted files carry upper-case extensions; the dialog may match case.
    return tr(
        "Animations and picture sequences (*.ani32 *.ANI32 *.qrdani *.QRDANI *.avi *.mov "
        "*.mp4 *.mkv *.webm *.mxf *.tga *.png);;"
        "ANI32 (*.ani32 *.ANI32);;QRDANI (*.qrdani *.QRDANI);;"
        "Video (*.avi *.mov *.mp4 *.mkv *.webm *.mxf);;"
        "Picture sequence (*.tga *.png)");
}

void CMainFrame::InsertAnimationFile() {
    CZevrantView* view = ActiveView();
    if (!view || !view->Page()) return;
    const QStringList files =
        QFileDialog::getOpenFileNames(this, tr("Open"), {}, AnimationFileFilter());
    if (!files.isEmpty()) InsertAnimationFiles(files);
}

bool CMainFrame::InsertAnimationFiles(const QStringList& files) {
    CZevrantView* view = ActiveView();
    if (!view || !view->Page() || files.isEmpty()) return false;
    view->EndTextEdit();
    QString file = files.first();
    if (IsSequenceImage(file)) {
        file = ConvertSequence(files, view->Page()->ObjectFolder());
        if (file.isEmpty()) {
            QMessageBox::warning(
                this, windowTitle(),
                tr("Failed converting TGA(PNG) sequence files to animation file."));
            return false;
        }
    }
    if (view->PageCommand(CMD_INSERT_ANIMATION, &file)) return true;
    QMessageBox::warning(this, windowTitle(), tr("Failed inserting animation file"));
    return false;
}

// One picture stands for the numbered sequence it belongs to; several are
// taken in the order of their numbers. The result is the new file's path.
QString CMainFrame::ConvertSequence(const QStringList& files, const QString& objectFolder) {
    if (objectFolder.isEmpty() || !QDir().mkpath(objectFolder)) return {};
    const QFileInfo first(files.first());
    QStringList names;
    if (files.size() == 1) {
        names = SequenceAround(first.filePath());
    } else {
        for (const QString& f : files)
            names.append(QFileInfo(f).fileName());
        names = SortByNumber(names);
    }
    CDlgProgress progress(this);
    const QString name =
        ConvertSequenceToAni32(names, first.absolutePath() + "/", objectFolder, &progress);
    return name.isEmpty() ? QString() : QDir(objectFolder).filePath(name);
}

void CMainFrame::ShowAnimationProperties() {
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page || !page->OneSelectedOfKind(OBJ_ANIMATION)) return;
    const auto* animation = static_cast<const CQRDObjectAni*>(page->Selection().front());
    CDlgPropAni dialog(animation->m_words.nFps, animation->m_words.nRepeat, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const int32_t repeat = dialog.Repeat();
    view->PageCommand(CMD_ANIMATION_PROPERTIES, &repeat);
}

}  // namespace orv
