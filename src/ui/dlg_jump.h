#pragma once
// "Move to Page": a page chosen from the list of page numbers or typed.

#include <QDialog>

class QComboBox;
class QDialogButtonBox;

namespace orv {

class CDlgJump : public QDialog {
    Q_OBJECT
public:
    CDlgJump(int pages, int current, QWidget* parent = nullptr);

    // The chosen page's index, or -1 while the text names no page.
    int PageIndex() const;

    QComboBox* m_pPage;  // 1308

private:
    void UpdateOk();

    int m_nPages;
    QDialogButtonBox* m_pButtons;
};

}  // namespace orv
