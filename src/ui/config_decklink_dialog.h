#pragma once
// "Hardware Configuration": device, video mode, audio mode and keying of the
// output card, and where the frames go. A new video mode reaches the output
// at once; Cancel brings the mode of the opening back.

#include <QDialog>

#include "board/hd_extreme.h"

class QComboBox;
class QLineEdit;
class QRadioButton;

namespace orv {

class CDlgConfigDecklink : public QDialog {
    Q_OBJECT
public:
    CDlgConfigDecklink(IF_HDExtreme& board, QWidget* parent = nullptr);

    // The output as the group below the boxes now names it.
    UstOutputChoice OutputChoice() const;

    int m_bChanged = 0;
    int m_bGraphChanged = 0;

public Q_SLOTS:
    void accept() override;
    void reject() override;

private:
    QWidget* BuildBoxes();
    QWidget* BuildKeying();
    QWidget* BuildOutput();
    void OnInitDialog();
    void OnVideoChanged(int index);
    void OnKeyMode(int mode);
    void ShowOutputTarget();
    void ChooseFile();

    IF_HDExtreme& m_board;
    UstBoardRecord m_Saved;
    QComboBox* m_pDevice = nullptr;
    QComboBox* m_pVideo = nullptr;
    QComboBox* m_pAudio = nullptr;
    QRadioButton* m_pInternal = nullptr;
    QRadioButton* m_pExternal = nullptr;
    QComboBox* m_pOutput = nullptr;
    QLineEdit* m_pTarget = nullptr;
    QWidget* m_pBrowse = nullptr;
};

}  // namespace orv
