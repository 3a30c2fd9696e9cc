#pragma once
// "Animation Properties": the rate, shown and never edited, since the
// animation formats play at their fixed rate; and how often the animation
// plays on air.

#include <QDialog>

class QSpinBox;

namespace orv {

class CDlgPropAni : public QDialog {
    Q_OBJECT
public:
    CDlgPropAni(int fps, int repeat, QWidget* parent = nullptr);
    int Repeat() const;

    QSpinBox* m_pFps;
    QSpinBox* m_pRepeat;
};

}  // namespace orv
