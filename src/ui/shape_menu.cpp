// Until the ribbon exists: a menu to draw each shape kind, edit a shape's
// control point, and set the four paints and the effect sizes of the
// selection and of new objects.
#include <QColorDialog>
#include <QMenuBar>

#include "objects/shape_object.h"
#include "render/shape_path.h"
#include "ui/effect_dialog.h"
#include "ui/gradient_dialog.h"
#include "ui/main_frame.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

// The effect command that carries a whole effect record.
constexpr uint32_t CMD_EFFECT_SIZES = 226;

}  // namespace

QStringList CMainFrame::ShapeKindTitles() {
    return {tr("Rectangle"),
            tr("Rounded Rectangle"),
            tr("Ellipse"),
            tr("Circle"),
            tr("Slanted Bar Left"),
            tr("Slanted Bar Right"),
            tr("Diamond"),
            tr("Pentagon"),
            tr("Hexagon"),
            tr("Octagon"),
            tr("Star"),
            tr("Arrow Right"),
            tr("Arrow Left"),
            tr("Arrow Up"),
            tr("Arrow Down"),
            tr("Triangle Right"),
            tr("Triangle Left"),
            tr("Triangle Up"),
            tr("Triangle Down"),
            tr("Round End Bar 1"),
            tr("Round End Bar 2"),
            tr("Round End Bar 3"),
            tr("Round End Bar 4"),
            tr("Slanted End Bar 1"),
            tr("Slanted End Bar 2"),
            tr("Slanted End Bar 3"),
            tr("Slanted End Bar 4"),
            tr("Slanted End Bar 5")};
}

void CMainFrame::CreateShapeMenu() {
    QMenu* menu = CommandMenu(tr("S&hape"));
    QMenu* draw = menu->addMenu(tr("Draw Shape"));
    const QStringList titles = ShapeKindTitles();
    for (int kind = 0; kind < SHAPE_KIND_COUNT; ++kind) {
        QAction* a = draw->addAction(titles.value(kind), this, [this, kind] { StartShape(kind); });
        a->setObjectName(QString("shape%1").arg(kind));
    }
    QAction* edit = menu->addAction(tr("Edit Shape"), this, [this] {
        if (CZevrantView* view = ActiveView()) view->PageCommand(CMD_EDIT_SHAPE);
    });
    edit->setStatusTip(tr("Start Editing Shape"));
    edit->setObjectName("cmd8001");
    menu->addSeparator();
    const QString paints[] = {tr("Face"), tr("Edge"), tr("Outline"), tr("Shadow")};
    for (int slot = 0; slot < 4; ++slot) {
        menu->addAction(tr("%1 Colour...").arg(paints[slot]), this,
                        [this, slot] { ChooseSolidPaint(slot); })
            ->setObjectName(QString("colour%1").arg(slot));
        menu->addAction(tr("%1 Gradient...").arg(paints[slot]), this,
                        [this, slot] { ChooseGradientPaint(slot); });
    }
    menu->addSeparator();
    menu->addAction(tr("Effects..."), this, [this] { ChooseEffectSizes(); })
        ->setObjectName("effects");
}

void CMainFrame::StartShape(int kind) {
    if (CZevrantView* view = ActiveView()) view->EndTextEdit();
    m_nShapeKind = kind;
    m_nCanvasMode = MODE_SHAPE;
}

void CMainFrame::ApplyPaint(int slot, const UstFill& fill) {
    m_WorkAttr.attr.fill[slot] = fill;
    if (CZevrantView* view = ActiveView())
        view->PageCommand(CMD_BODY_PAINT + static_cast<uint32_t>(slot), &fill);
}

void CMainFrame::ChooseSolidPaint(int slot) {
    UstFill fill = m_WorkAttr.attr.fill[slot];
    const QColor colour = QColorDialog::getColor(QColor::fromRgba(fill.clrSolid), this, {},
                                                 QColorDialog::ShowAlphaChannel);
    if (!colour.isValid()) return;
    fill.nType = 0;
    fill.clrSolid = colour.rgba();
    ApplyPaint(slot, fill);
}

void CMainFrame::ChooseGradientPaint(int slot) {
    CDlgGradient dlg(m_WorkAttr.attr.fill[slot], this);
    if (dlg.exec() != QDialog::Accepted) return;
    UstFill fill = dlg.Result();
    fill.nType = 1;
    ApplyPaint(slot, fill);
}

void CMainFrame::ChooseEffectSizes() {
    CDlgEffectSizes dlg(m_WorkAttr.effect, this);
    if (dlg.exec() != QDialog::Accepted) return;
    m_WorkAttr.effect = dlg.Result();
    if (CZevrantView* view = ActiveView()) view->PageCommand(CMD_EFFECT_SIZES, &m_WorkAttr.effect);
}

}  // namespace orv
