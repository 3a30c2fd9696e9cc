#pragma once
// The timer and clock settings: the kind, the format from the kind's own
// table, start and end for a counter, the 24-hour form, and a preview of
// the value as the object will show it.

#include <QDialog>
#include <QLineEdit>

#include "objects/tc_object.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;

namespace orv {

// Hours, minutes and seconds as "hh:mm:ss", two digits each.
class VDateTimeEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit VDateTimeEdit(QWidget* parent = nullptr);
    void SetSeconds(int seconds);
    // Read by the characters' places: hours at 0 and 1, minutes at 3 and 4,
    // seconds at 6 and 7; a place that holds no digit counts 0.
    int Seconds() const;
};

class CDlgPropTC : public QDialog {
    Q_OBJECT
public:
    CDlgPropTC(const UstTCSetting& setting, QWidget* parent = nullptr);
    // The record as the controls hold it, start and end read from the texts.
    UstTCSetting Setting() const;

    QRadioButton* m_pTimer;   // 1060
    QRadioButton* m_pClock;   // 1061
    QComboBox* m_pFormat;     // 1063
    VDateTimeEdit* m_pStart;  // 1066
    VDateTimeEdit* m_pEnd;    // 1068
    QLabel* m_pPreview;       // 1070
    QCheckBox* m_p24Hour;     // 1071

private:
    void FillFormats();
    void UpdatePreview();

    UstTCSetting m_setting;
};

}  // namespace orv
