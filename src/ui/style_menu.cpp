// The style galleries' commands: one decoder from the gallery numbers to
// typed calls, and what each call asks of the libraries and the page.
#include <QDockWidget>
#include <QFileDialog>
#include <QMessageBox>

#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "project/project_manager.h"
#include "project/style_library.h"
#include "ui/main_frame.h"
#include "ui/style_gallery.h"
#include "ui/styles_pane.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int STYLES_PANE_ID = 556;

// The one selected object of the kind, or null.
template <class T>
T* OneSelected(CZevrantView* view, int type) {
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page || page->Selection().size() != 1) return nullptr;
    CQRDObject* o = page->Selection().front();
    return o->GetType() == type ? static_cast<T*>(o) : nullptr;
}

}  // namespace

void CMainFrame::CreateStylesPane() {
    m_pStylesPane = new CStylesPane;
    m_pStylesPane->Refresh(*m_pStyles);
    connect(m_pStylesPane, &CStylesPane::Command, this,
            [this](uint32_t id, int index) { StyleCommand(id, index); });
    QDockWidget* dock = CreatePane(STYLES_PANE_ID, tr("Styles"), m_pStylesPane, QSize(260, 300),
                                   QSize(140, 160), QSize(600, 5000));
    // A tab beside the page list: the canvas keeps its width on small
    // screens, and the pane can be dragged out where there is room.
    if (QDockWidget* slide = Pane(550)) {
        tabifyDockWidget(slide, dock);
        slide->raise();
    }
}

int CMainFrame::StyleCommand(uint32_t id, int index) {
    const auto library =
        std::find_if(STYLE_COMMANDS.begin(), STYLE_COMMANDS.end(), [id](const UstStyleCommands& c) {
            return c.nApply == id || c.nAdd == id || c.nDelete == id;
        });
    // The two Insert buttons apply the gallery's current item.
    if (id == CMD_INSERT_BACKGROUND_FILE) return StyleCommand(STYLE_COMMANDS[STYLE_BACKPIC].nApply);
    if (id == CMD_INSERT_PICTURE_FILE) return StyleCommand(STYLE_COMMANDS[STYLE_PICTURE].nApply);
    if (library == STYLE_COMMANDS.end() || m_nPlayState != 0) return 0;
    const int lib = static_cast<int>(library - STYLE_COMMANDS.begin());
    if (index < 0) index = m_pStylesPane->Gallery(lib)->CurrentIndex();
    if (id == library->nAdd) {
        switch (lib) {
            case STYLE_TEXT:
                return AddTextStyle();
            case STYLE_SHAPE:
                return AddShapeStyle();
            case STYLE_COLOR:
                return AddColorStyle();
            default:
                return AddPictureStyle(lib);
        }
    }
    if (index < 0 || index >= m_pStyles->Count(lib)) return 0;
    if (id == library->nDelete) return DeleteStyle(lib, index);
    const auto at = static_cast<size_t>(index);
    switch (lib) {
        case STYLE_TEXT:
            return ApplyTextStyle(m_pStyles->Text().Items()[at]);
        case STYLE_SHAPE:
            return ApplyShapeStyle(m_pStyles->Shape().Items()[at]);
        case STYLE_COLOR:
            return ApplyColorStyle(m_pStyles->Color().Items()[at].fill);
        case STYLE_BACKPIC:
            return ApplyBackgroundStyle(m_pStyles->Backgrounds().ImagePath(index));
        default:
            return InsertPictureStyle(m_pStyles->Pictures().ImagePath(index));
    }
}

int CMainFrame::ApplyTextStyle(const UstText& style) {
    return ApplyObjectStyle(CMD_TEXT_STYLE, &style, style.attr, style.effect);
}

int CMainFrame::ApplyShapeStyle(const UstShape& style) {
    return ApplyObjectStyle(CMD_SHAPE_STYLE, &style, style.attr, style.effect);
}

int CMainFrame::ApplyObjectStyle(uint32_t id, const void* style, const UstAttr& attr,
                                 const UstEffect& effect) {
    CZevrantView* view = ActiveView();
    if (!view || !view->PageCommand(id, style)) return 0;
    // What the selection now looks like is what new objects take.
    m_WorkAttr.attr = attr;
    m_WorkAttr.effect = effect;
    QMetaObject::invokeMethod(this, "OnAttrChanged", Qt::QueuedConnection);
    return 1;
}

int CMainFrame::ApplyColorStyle(const UstFill& fill) {
    if (!ActiveView()) return 0;
    ApplyPaint(m_pStylesPane->ColorPaint(), fill);
    QMetaObject::invokeMethod(this, "OnAttrChanged", Qt::QueuedConnection);
    return 1;
}

int CMainFrame::ApplyBackgroundStyle(const QString& file) {
    CZevrantView* view = ActiveView();
    if (!view) return 0;
    if (!view->ProjectCommand(CMD_BACKGROUND_STYLE, &file)) {
        QMessageBox::warning(this, windowTitle(), tr("Failed loading picture."));
        return 0;
    }
    if (CPageManager* page = view->Page()) page->Repaint();
    return 1;
}

int CMainFrame::InsertPictureStyle(const QString& file) {
    CZevrantView* view = ActiveView();
    if (!view) return 0;
    view->EndTextEdit();
    if (view->PageCommand(CMD_INSERT_PICTURE_FILE, &file)) return 1;
    QMessageBox::warning(this, windowTitle(), tr("Failed loading picture."));
    return 0;
}

int CMainFrame::AddTextStyle() {
    const auto* text = OneSelected<CQRDObjectText>(ActiveView(), OBJ_TEXT);
    if (!text || text->Chars().empty()) {
        QMessageBox::information(this, windowTitle(), tr("Select one text to add its style."));
        return 0;
    }
    const UstText style = TextStyleOf(text->Chars().front(), text->m_effect, text->m_attr);
    const bool added = m_pStyles->Text().Add(style);
    return StyleAdded(STYLE_TEXT, added, m_pStyles->Text().Count() - 1);
}

int CMainFrame::AddShapeStyle() {
    const auto* shape = OneSelected<CQRDObjectShape>(ActiveView(), OBJ_SHAPE);
    if (!shape) {
        QMessageBox::information(this, windowTitle(), tr("Select one shape to add its style."));
        return 0;
    }
    const bool added = m_pStyles->Shape().Add(ShapeStyleOf(shape->m_effect, shape->m_attr));
    return StyleAdded(STYLE_SHAPE, added, m_pStyles->Shape().Count() - 1);
}

int CMainFrame::AddColorStyle() {
    const UstFill& fill = m_WorkAttr.attr.fill[m_pStylesPane->ColorPaint()];
    const bool added = m_pStyles->Color().Add(ColorStyleOf(fill));
    return StyleAdded(STYLE_COLOR, added, m_pStyles->Color().Count() - 1);
}

int CMainFrame::AddPictureStyle(int library) {
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Open"), {}, tr("All Formats (*.*)"));
    if (file.isEmpty()) return 0;
    CPictureLibrary& lib =
        library == STYLE_BACKPIC ? m_pStyles->Backgrounds() : m_pStyles->Pictures();
    const int index = lib.Add(file);
    return StyleAdded(library, index >= 0, index);
}

int CMainFrame::StyleAdded(int library, bool added, int index) {
    if (!added) {
        QMessageBox::warning(this, windowTitle(), tr("Failed adding a style."));
        return 0;
    }
    m_pStylesPane->Gallery(library)->InsertItem(index, m_pStyles->ThumbPath(library, index));
    return 1;
}

int CMainFrame::DeleteStyle(int library, int index) {
    if (!m_pStyles->Delete(library, index)) {
        QMessageBox::warning(this, windowTitle(), tr("Failed deleting a style."));
        return 0;
    }
    m_pStylesPane->Gallery(library)->RemoveItem(index);
    return 1;
}

}  // namespace orv
