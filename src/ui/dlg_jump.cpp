#include "ui/dlg_jump.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orv {

CDlgJump::CDlgJump(int pages, int current, QWidget* parent)
    : QDialog(parent),
      m_pPage(new QComboBox(this)),
      m_nPages(pages),
      m_pButtons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
    setObjectName("DlgJump");
    setWindowTitle(tr("Move to Page"));
    m_pPage->setObjectName("ctl1308");
    m_pPage->setEditable(true);
    m_pPage->setInsertPolicy(QComboBox::NoInsert);
    for (int i = 1; i <= pages; ++i)
        m_pPage->addItem(QString::number(i));
    m_pPage->setCurrentIndex(current >= 0 && current < pages ? current : -1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Page:"), this));
    layout->addWidget(m_pPage);
    layout->addWidget(m_pButtons);
    connect(m_pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_pPage, &QComboBox::editTextChanged, this, &CDlgJump::UpdateOk);
    UpdateOk();
}

int CDlgJump::PageIndex() const {
    bool ok = false;
    const int number = m_pPage->currentText().trimmed().toInt(&ok);
    return ok && number >= 1 && number <= m_nPages ? number - 1 : -1;
}

void CDlgJump::UpdateOk() {
    m_pButtons->button(QDialogButtonBox::Ok)->setEnabled(PageIndex() >= 0);
}

}  // namespace orv
