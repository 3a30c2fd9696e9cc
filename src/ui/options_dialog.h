#pragma once
// The Options dialog: program settings and edit options, each page working on
// its own copy of the settings record.

#include <QDialog>
#include <QWidget>

#include "project/settings_records.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QSpinBox;
class QTabWidget;

namespace orv {

class CTabProgram : public QWidget {
    Q_OBJECT
public:
    CTabProgram(const UstEnv& env, uint16_t interfaceLanguage, QWidget* parent = nullptr);
    UstEnv Copy() const;

private:
    UstEnv m_env;
    QCheckBox* m_pPreviewLeft;
    QCheckBox* m_pAutoSave;
    QSpinBox* m_pMinutes;
    QComboBox* m_pLanguage;
};

class CTabEnvEdit : public QWidget {
    Q_OBJECT
public:
    CTabEnvEdit(const UstEnv& env, QWidget* parent = nullptr);
    UstEnv Copy() const { return m_env; }

    // True when path names a picture the editor can read.
    static bool IsSupportedPicture(const QString& path);

private:
    QWidget* BuildBackground();
    QWidget* BuildGuides();
    QPushButton* ColourButton(uint32_t* colour);
    void PaintSwatch(QPushButton* button, uint32_t colour);
    void ChooseImage();
    void ShowSafeLabels();

    UstEnv m_env;
    QButtonGroup* m_pKind = nullptr;
    QLineEdit* m_pImage = nullptr;
    QLabel* m_pOuterLabel = nullptr;
    QLabel* m_pInnerLabel = nullptr;
};

class CTabControl;
struct UstControlSetting;

class CDlgOptions : public QDialog {
    Q_OBJECT
public:
    CDlgOptions(const UstEnv& env, uint16_t interfaceLanguage, QWidget* parent = nullptr);
    // The "Remote Control" page, whose setting lives apart from the records.
    CTabControl* AddControlTab(const UstControlSetting& setting);
    UstEnv ProgramCopy() const;
    UstEnv EditCopy() const;

private:
    CTabProgram* m_pProgram;
    CTabEnvEdit* m_pEdit;
    QTabWidget* m_pTabs;
};

}  // namespace orv
