#pragma once
// "Find": a text looked for in the text objects of the active project, page
// by page up or down from the current one, without wrapping round. The
// dialog stays open over "Find Next".

#include <QDialog>

class QCheckBox;
class QPushButton;
class QRadioButton;

namespace orv {

class CComboHistory;
class CProjectManager;
class CQRDObject;
class CZevrantView;

struct UstFindHit {
    int nPage = -1;
    CQRDObject* pObject = nullptr;
};

// The next match from page `fromPage`, behind `after` on that page; down
// runs to the last page, up to the first.
UstFindHit FindInProject(const CProjectManager& project, const QString& text, bool down,
                         bool matchCase, int fromPage, const CQRDObject* after);

class CDlgFind : public QDialog {
    Q_OBJECT
public:
    // The settings section of the history of searched texts.
    static constexpr const char* HISTORY_SECTION = "Find";

    CDlgFind(CZevrantView* view, QWidget* parent = nullptr);
    ~CDlgFind() override;

    // One "Find Next": true when a match was found and selected.
    bool FindNext();

    CComboHistory* m_pText;   // 1309
    QRadioButton* m_pUp;      // 1313
    QRadioButton* m_pDown;    // 1314
    QCheckBox* m_pMatchCase;  // 1310
    QPushButton* m_pFindNext;

Q_SIGNALS:
    // Not found: the message, before it is shown.
    void NotFound(const QString& message);

private:
    void ShowMatch(const UstFindHit& hit);

    CZevrantView* m_pView;
    UstFindHit m_last;
};

}  // namespace orv
