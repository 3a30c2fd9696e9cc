#include "ui/effect_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

namespace orv {

namespace {

QSpinBox* Spin(int value, int low, int high) {
    auto* box = new QSpinBox;
    box->setRange(low, high);
    box->setValue(value);
    return box;
}

}  // namespace

CDlgEffectSizes::CDlgEffectSizes(const UstEffect& effect, QWidget* parent)
    : QDialog(parent), m_effect(effect) {
    setWindowTitle(tr("Effects"));
    auto* form = new QFormLayout(this);
    // The ranges are those the renderer keeps sizes to.
    form->addRow(tr("Edge:"), m_pEdge = Spin(effect.nEdge, 0, 30));
    form->addRow(tr("Outline:"), m_pOutline = Spin(effect.nOutline, 0, 30));
    form->addRow(tr("Edge softness:"), m_pEdgeSoft = Spin(effect.nEdgeSoft, 0, 20));
    m_pShadowType = new QComboBox;
    m_pShadowType->addItems({tr("Drop"), tr("Drag")});
    m_pShadowType->setCurrentIndex(effect.nShadowType == 1 ? 1 : 0);
    form->addRow(tr("Shadow:"), m_pShadowType);
    form->addRow(tr("Shadow X:"), m_pShadowX = Spin(effect.nShadowX, -50, 50));
    form->addRow(tr("Shadow Y:"), m_pShadowY = Spin(effect.nShadowY, -50, 50));
    form->addRow(tr("Shadow softness:"), m_pShadowSoft = Spin(effect.nShadowSoft, 0, 20));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

UstEffect CDlgEffectSizes::Result() const {
    UstEffect e = m_effect;
    e.nEdge = m_pEdge->value();
    e.nOutline = m_pOutline->value();
    e.nEdgeSoft = m_pEdgeSoft->value();
    e.nShadowType = m_pShadowType->currentIndex();
    e.nShadowX = m_pShadowX->value();
    e.nShadowY = m_pShadowY->value();
    e.nShadowSoft = m_pShadowSoft->value();
    return e;
}

}  // namespace orv
