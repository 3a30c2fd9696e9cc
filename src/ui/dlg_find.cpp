#include "ui/dlg_find.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "project/project_manager.h"
#include "ui/combo_history.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

// A message box is no place for a whole essay: a long text is cut short.
constexpr int SHOWN_TEXT = 80;

}  // namespace

UstFindHit FindInProject(const CProjectManager& project, const QString& text, bool down,
                         bool matchCase, int fromPage, const CQRDObject* after) {
    const QString key = matchCase ? text : text.toLower();
    const int step = down ? 1 : -1;
    for (int i = fromPage; i >= 0 && i < project.PageCount(); i += step) {
        const CPageManager* page = project.GetPage(i);
        if (CQRDObject* found = page->FindText(key, matchCase, i == fromPage ? after : nullptr))
            return {i, found};
    }
    return {};
}

CDlgFind::CDlgFind(CZevrantView* view, QWidget* parent)
    : QDialog(parent),
      m_pText(new CComboHistory(this)),
      m_pUp(new QRadioButton(tr("&Up"), this)),
      m_pDown(new QRadioButton(tr("&Down"), this)),
      m_pMatchCase(new QCheckBox(tr("Match &case"), this)),
      m_pFindNext(new QPushButton(tr("&Find Next"), this)),
      m_pView(view) {
    setObjectName("DlgFind");
    setWindowTitle(tr("Find"));
    m_pText->setObjectName("ctl1309");
    m_pUp->setObjectName("ctl1313");
    m_pDown->setObjectName("ctl1314");
    m_pMatchCase->setObjectName("ctl1310");
    m_pDown->setChecked(true);
    m_pText->Init(HISTORY_SECTION, QString());
    auto* what = new QHBoxLayout;
    what->addWidget(new QLabel(tr("Fi&nd what:"), this));
    what->addWidget(m_pText, 1);
    auto* direction = new QGroupBox(tr("Direction"), this);
    auto* directions = new QHBoxLayout(direction);
    directions->addWidget(m_pUp);
    directions->addWidget(m_pDown);
    auto* options = new QHBoxLayout;
    options->addWidget(m_pMatchCase);
    options->addWidget(direction);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton(m_pFindNext, QDialogButtonBox::ActionRole);
    m_pFindNext->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(what);
    layout->addLayout(options);
    layout->addWidget(buttons);
    connect(m_pFindNext, &QPushButton::clicked, this, &CDlgFind::FindNext);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (CPageManager* page = view ? view->Page() : nullptr) {
        view->EndTextEdit();
        page->ClearSelection();
        page->Repaint();
    }
}

CDlgFind::~CDlgFind() {
    m_pText->Save();
}

bool CDlgFind::FindNext() {
    const QString text = m_pText->currentText();
    if (text.isEmpty() || !m_pView || !m_pView->Document()) return false;
    m_pText->AddEntry(text);
    CProjectManager& project = m_pView->Document()->Project();
    const bool down = m_pDown->isChecked();
    const int from = project.m_nCurPage;
    const CQRDObject* after = m_last.nPage == from ? m_last.pObject : nullptr;
    const UstFindHit hit =
        FindInProject(project, text, down, m_pMatchCase->isChecked(), from, after);
    if (!hit.pObject) {
        QApplication::beep();
        const QString shown =
            text.size() > SHOWN_TEXT ? text.left(SHOWN_TEXT) + QChar(0x2026) : text;
        const QString message = QString("'%1' %2").arg(shown, tr("can not be found."));
        Q_EMIT NotFound(message);
        QMessageBox::warning(this, windowTitle(), message);
        return false;
    }
    ShowMatch(hit);
    return true;
}

void CDlgFind::ShowMatch(const UstFindHit& hit) {
    CProjectManager& project = m_pView->Document()->Project();
    if (hit.nPage != project.m_nCurPage) m_pView->GoToPage(hit.nPage);
    CPageManager* page = project.GetCurPage();
    if (!page || project.m_nCurPage != hit.nPage) return;
    page->SelectOnly(hit.pObject);
    page->Repaint();
    m_last = hit;
}

}  // namespace orv
