#include "ui/ani_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QSpinBox>

namespace orv {

CDlgPropAni::CDlgPropAni(int fps, int repeat, QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Animation Properties"));
    auto* form = new QFormLayout(this);
    m_pFps = new QSpinBox;
    m_pFps->setRange(1, 30);
    m_pFps->setValue(fps);
    m_pFps->setEnabled(false);
    form->addRow(tr("FPS:"), m_pFps);
    m_pRepeat = new QSpinBox;
    m_pRepeat->setRange(0, 9999);
    m_pRepeat->setValue(repeat);
    form->addRow(tr("Repeat:"), m_pRepeat);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
}

int CDlgPropAni::Repeat() const {
    return m_pRepeat->value();
}

}  // namespace orv
