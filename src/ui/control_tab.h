#pragma once
// The "Remote Control" page of Options: whether automation may drive play
// mode, where it listens, and the token it must give.

#include <QWidget>

#include "ui/editor_control.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace orv {

class CTabControl : public QWidget {
    Q_OBJECT
public:
    explicit CTabControl(const UstControlSetting& setting, QWidget* parent = nullptr);
    UstControlSetting Copy() const;
    // Why the setting cannot be used as it stands, or empty.
    QString Problem() const;

private:
    void ShowState();

    QCheckBox* m_pOn;
    QRadioButton* m_pLoopback;
    QRadioButton* m_pAny;
    QSpinBox* m_pLinePort;
    QSpinBox* m_pHttpPort;
    QLineEdit* m_pToken;
    QLabel* m_pNote;
};

}  // namespace orv
