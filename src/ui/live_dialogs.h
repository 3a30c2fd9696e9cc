#pragma once
// The page's blink and typing settings: each dialog works on a copy of the
// page's record and answers it on OK, for the page command to apply.

#include <QDialog>

#include "project/page_records.h"

class QComboBox;
class QPushButton;
class QRadioButton;

namespace orv {

class CDlgBlink : public QDialog {
    Q_OBJECT
public:
    CDlgBlink(const UstPageBlink& blink, QWidget* parent = nullptr);
    UstPageBlink Result() const;
    // The colour as the button shows it; the colour dialog keeps its alpha.
    void SetColour(uint32_t argb);

    QRadioButton* m_pShowHide;
    QRadioButton* m_pByColour;
    QPushButton* m_pColour;
    QComboBox* m_pSpeed;

private:
    void ChooseColour();
    UstPageBlink m_blink;
};

class CDlgTyping : public QDialog {
    Q_OBJECT
public:
    CDlgTyping(const UstPageTyping& typing, QWidget* parent = nullptr);
    UstPageTyping Result() const;

    QRadioButton* m_pManual;
    QRadioButton* m_pAutomatic;
    QRadioButton* m_pByChar;
    QRadioButton* m_pByLine;
    QComboBox* m_pDelay;

private:
    UstPageTyping m_typing;
};

}  // namespace orv
