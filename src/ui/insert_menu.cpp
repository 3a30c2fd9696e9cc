// Until the ribbon exists: pictures, backgrounds and animations from files,
// the keying and alpha of the selected picture, and grouping.
#include <QFileDialog>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>

#include "import/text_import.h"
#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "objects/picture_object.h"
#include "objects/tc_object.h"
#include "project/project_manager.h"
#include "ui/main_frame.h"
#include "ui/tc_dialog.h"
#include "ui/zevrant_view.h"

namespace orv {

QString CMainFrame::PictureFileFilter() {
    return tr(
        "Pictures (*.bmp *.jpg *.jpeg *.png *.tga *.tif *.tiff *.gif);;"
        "BMP (*.bmp);;JPEG (*.jpg *.jpeg);;PNG (*.png);;TGA (*.tga);;"
        "TIFF (*.tif *.tiff);;GIF (*.gif)");
}

void CMainFrame::CreateInsertMenu() {
    QMenu* menu = CommandMenu(tr("&Insert"));
    auto add = [&](const QString& text, uint32_t id, auto slot) {
        const QStringList parts = text.split('\n');
        QAction* action = menu->addAction(parts.value(1), this, slot);
        action->setStatusTip(parts.value(0));
        action->setObjectName(QString("cmd%1").arg(id));
    };
    auto page = [this](uint32_t id) {
        return [this, id] {
            if (CZevrantView* view = ActiveView()) view->PageCommand(id);
        };
    };
    add(tr("Insert a picture file\nPicture..."), CMD_INSERT_PICTURE_FILE,
        [this] { InsertPictureFile(CMD_INSERT_PICTURE_FILE); });
    add(tr("Insert a background picture\nBackground..."), CMD_INSERT_BACKGROUND_FILE,
        [this] { InsertPictureFile(CMD_INSERT_BACKGROUND_FILE); });
    add(tr("Erase the background picture\nErase Background"), CMD_ERASE_BACKGROUND,
        page(CMD_ERASE_BACKGROUND));
    add(tr("Insert a background picture on every page\nBackground to All Pages..."),
        CMD_BACKGROUND_TO_ALL, [this] { InsertBackgroundToAll(); });
    add(tr("Insert animation\nAnimation..."), CMD_INSERT_ANIMATION,
        [this] { InsertAnimationFile(); });
    add(tr("Animation properties\nAnimation Properties..."), CMD_ANIMATION_PROPERTIES,
        [this] { ShowAnimationProperties(); });
    add(tr("Play the selected animation through on the canvas\nPreview Animation"),
        CMD_PREVIEW_ANIMATION, [this] {
            if (CZevrantView* view = ActiveView()) view->PreviewAnimation();
        });
    add(tr("Insert a timer, counter or clock\nInsert Timer/Counter"), CMD_INSERT_TIMER,
        [this] { InsertTimer(); });
    add(tr("Timer/Counter properties\nTimer/Counter Properties..."), CMD_TIMER_PROPERTIES,
        [this] { ShowTimerProperties(); });
    menu->addSeparator();
    add(tr("Import text file.\nImport Text File..."), CMD_IMPORT_TEXT,
        [this] { ImportTextFile(); });
    add(tr("Import PowerPoint file.\nImport Slides..."), CMD_IMPORT_SLIDES,
        [this] { ImportSlideShow(); });
    menu->addSeparator();
    add(tr("Start keying\nStart Keying"), CMD_START_KEYING, page(CMD_START_KEYING));
    add(tr("Reset key value\nReset Key"), CMD_RESET_KEY, page(CMD_RESET_KEY));
    add(tr("Alpha value for selected picture\nPicture Alpha..."), CMD_PICTURE_ALPHA,
        [this] { ChoosePictureAlpha(); });
    menu->addSeparator();
    add(tr("Group objects\nGroup"), CMD_GROUP, page(CMD_GROUP));
    add(tr("Ungroup objects\nUngroup"), CMD_UNGROUP, page(CMD_UNGROUP));
}

void CMainFrame::InsertPictureFile(uint32_t command) {
    CZevrantView* view = ActiveView();
    if (!view) return;
    const QString file = QFileDialog::getOpenFileName(this, tr("Open"), {}, PictureFileFilter());
    if (file.isEmpty()) return;
    view->EndTextEdit();
    if (!view->PageCommand(command, &file))
        QMessageBox::warning(this, windowTitle(), tr("Failed loading picture."));
}

void CMainFrame::InsertTimer() {
    CZevrantView* view = ActiveView();
    if (!view) return;
    CDlgPropTC dialog(UstTCSetting{}, this);
    if (dialog.exec() != QDialog::Accepted) return;
    view->EndTextEdit();
    const UstTCSetting setting = dialog.Setting();
    view->PageCommand(CMD_INSERT_TIMER, &setting);
}

// The settings of the timer are edited, not dropped: an operator who opens
// them expects the change to stand.
void CMainFrame::ShowTimerProperties() {
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page || !page->OneSelectedOfKind(OBJ_TIMER)) return;
    const auto* timer = static_cast<const CQRDObjectTC*>(page->Selection().front());
    CDlgPropTC dialog(timer->m_setting, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const UstTCSetting setting = dialog.Setting();
    view->PageCommand(CMD_TIMER_PROPERTIES, &setting);
}

void CMainFrame::InsertBackgroundToAll() {
    CZevrantView* view = ActiveView();
    if (!view) return;
    const QString file = QFileDialog::getOpenFileName(this, tr("Open"), {}, PictureFileFilter());
    if (file.isEmpty()) return;
    if (!view->ProjectCommand(CMD_BACKGROUND_TO_ALL, &file))
        QMessageBox::warning(this, windowTitle(), tr("Failed loading picture."));
    else if (CPageManager* page = view->Page())
        page->Repaint();
}

void CMainFrame::ChoosePictureAlpha() {
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page || page->Selection().empty() || page->Selection().front()->GetType() != OBJ_PICTURE)
        return;
    const auto* picture = static_cast<const CQRDObjectPicture*>(page->Selection().front());
    bool ok = false;
    const int32_t alpha = QInputDialog::getInt(this, tr("Alpha"), tr("Alpha (0 to 255):"),
                                               picture->m_nAlpha, 0, 255, 1, &ok);
    if (ok) view->PageCommand(CMD_PICTURE_ALPHA, &alpha);
}

}  // namespace orv
