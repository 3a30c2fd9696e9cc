#include "ui/options_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "render/image_file.h"
#include "ui/control_tab.h"

namespace orv {

CTabProgram::CTabProgram(const UstEnv& env, uint16_t interfaceLanguage, QWidget* parent)
    : QWidget(parent), m_env(env) {
    auto* form = new QFormLayout(this);
    m_pPreviewLeft = new QCheckBox(tr("Display preview window on the left side"), this);
    m_pPreviewLeft->setChecked(env.bPreviewLeft != 0);
    form->addRow(m_pPreviewLeft);
    auto* row = new QHBoxLayout;
    m_pAutoSave = new QCheckBox(tr("Automatic backup saving period:"), this);
    m_pAutoSave->setChecked(env.bAutoSave != 0);
    m_pMinutes = new QSpinBox(this);
    m_pMinutes->setRange(1, 60);
    m_pMinutes->setSuffix(tr(" min"));
    m_pMinutes->setValue(static_cast<int>(env.nAutoSaveMin));
    row->addWidget(m_pAutoSave);
    row->addWidget(m_pMinutes);
    row->addStretch();
    form->addRow(row);
    m_pLanguage = new QComboBox(this);
    const bool korean = interfaceLanguage == LANG_KOREAN;
    const QString ko = tr("Korean"), en = tr("English");
    m_pLanguage->addItem(korean ? ko : en, korean ? LANG_KOREAN : LANG_ENGLISH);
    m_pLanguage->addItem(korean ? en : ko, korean ? LANG_ENGLISH : LANG_KOREAN);
    m_pLanguage->setCurrentIndex(std::max(0, m_pLanguage->findData(env.nLanguage)));
    form->addRow(tr("Language:"), m_pLanguage);
}

UstEnv CTabProgram::Copy() const {
    UstEnv e = m_env;
    e.bPreviewLeft = m_pPreviewLeft->isChecked() ? 1 : 0;
    e.bAutoSave = m_pAutoSave->isChecked() ? 1 : 0;
    e.nAutoSaveMin = static_cast<uint32_t>(m_pMinutes->value());
    e.nLanguage = static_cast<uint16_t>(m_pLanguage->currentData().toUInt());
    return e;
}

CTabEnvEdit::CTabEnvEdit(const UstEnv& env, QWidget* parent) : QWidget(parent), m_env(env) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildBackground());
    layout->addWidget(BuildGuides());
    layout->addStretch();
}

QWidget* CTabEnvEdit::BuildBackground() {
    auto* box = new QGroupBox(tr("Background"), this);
    auto* form = new QFormLayout(box);
    m_pKind = new QButtonGroup(box);
    auto* kinds = new QHBoxLayout;
    const QString names[] = {tr("Color"), tr("Checkerboard"), tr("Image")};
    for (int i = 0; i < 3; ++i) {
        auto* radio = new QRadioButton(names[i], box);
        radio->setChecked(static_cast<int>(m_env.nBackKind) == i);
        m_pKind->addButton(radio, i);
        kinds->addWidget(radio);
    }
    connect(m_pKind, &QButtonGroup::idClicked, this,
            [this](int id) { m_env.nBackKind = static_cast<uint32_t>(id); });
    form->addRow(kinds);
    form->addRow(tr("Color:"), ColourButton(&m_env.clrBack));
    auto* checker = new QSlider(Qt::Horizontal, box);
    checker->setRange(10, 20);
    checker->setValue(static_cast<int>(m_env.nCheckerSize));
    connect(checker, &QSlider::valueChanged, this,
            [this](int v) { m_env.nCheckerSize = static_cast<uint32_t>(v); });
    form->addRow(tr("Checker size:"), checker);
    auto* imageRow = new QHBoxLayout;
    m_pImage = new QLineEdit(FixedToQString(&m_env.szBackImage), box);
    m_pImage->setReadOnly(true);
    auto* browse = new QPushButton(tr("..."), box);
    connect(browse, &QPushButton::clicked, this, &CTabEnvEdit::ChooseImage);
    imageRow->addWidget(m_pImage);
    imageRow->addWidget(browse);
    form->addRow(tr("Image:"), imageRow);
    return box;
}

QWidget* CTabEnvEdit::BuildGuides() {
    auto* box = new QGroupBox(tr("Guides"), this);
    auto* form = new QFormLayout(box);
    auto* grid = new QCheckBox(tr("Use Grid"), box);
    grid->setChecked(m_env.bGrid != 0);
    connect(grid, &QCheckBox::toggled, this, [this](bool on) { m_env.bGrid = on; });
    auto* step = new QSpinBox(box);
    step->setRange(5, 50);
    step->setValue(static_cast<int>(m_env.nGridStep));
    connect(step, &QSpinBox::valueChanged, this,
            [this](int v) { m_env.nGridStep = static_cast<uint32_t>(v); });
    auto* gridRow = new QHBoxLayout;
    gridRow->addWidget(grid);
    gridRow->addWidget(step);
    gridRow->addWidget(ColourButton(&m_env.clrGrid));
    form->addRow(gridRow);
    auto* safety = new QCheckBox(tr("Use Safety Zone"), box);
    safety->setChecked(m_env.bSafety != 0);
    connect(safety, &QCheckBox::toggled, this, [this](bool on) { m_env.bSafety = on; });
    form->addRow(safety);
    // The sliders write the record only when moved: a stored value outside a
    // slider's range (the inner frame's default) stays as it is.
    auto* outer = new QSlider(Qt::Horizontal, box);
    outer->setRange(1, 15);
    outer->setValue(static_cast<int>(m_env.nSafeOuter));
    auto* inner = new QSlider(Qt::Horizontal, box);
    inner->setRange(16, 30);
    inner->setValue(static_cast<int>(m_env.nSafeInner));
    connect(outer, &QSlider::valueChanged, this, [this](int v) {
        m_env.nSafeOuter = static_cast<uint32_t>(v);
        ShowSafeLabels();
    });
    connect(inner, &QSlider::valueChanged, this, [this](int v) {
        m_env.nSafeInner = static_cast<uint32_t>(v);
        ShowSafeLabels();
    });
    m_pOuterLabel = new QLabel(box);
    m_pInnerLabel = new QLabel(box);
    ShowSafeLabels();
    auto* outerRow = new QHBoxLayout;
    outerRow->addWidget(outer);
    outerRow->addWidget(m_pOuterLabel);
    auto* innerRow = new QHBoxLayout;
    innerRow->addWidget(inner);
    innerRow->addWidget(m_pInnerLabel);
    form->addRow(tr("Outer frame:"), outerRow);
    form->addRow(tr("Inner frame:"), innerRow);
    auto* sd = new QCheckBox(tr("Mark SD Area"), box);
    sd->setChecked(m_env.bMarkSD != 0);
    connect(sd, &QCheckBox::toggled, this, [this](bool on) { m_env.bMarkSD = on; });
    form->addRow(sd);
    return box;
}

void CTabEnvEdit::ShowSafeLabels() {
    m_pOuterLabel->setText(QString("%1%").arg(100 - static_cast<int>(m_env.nSafeOuter)));
    m_pInnerLabel->setText(QString("%1%").arg(100 - static_cast<int>(m_env.nSafeInner)));
}

QPushButton* CTabEnvEdit::ColourButton(uint32_t* colour) {
    auto* button = new QPushButton(this);
    button->setFixedSize(48, 22);
    PaintSwatch(button, *colour);
    connect(button, &QPushButton::clicked, this, [this, button, colour] {
        const QColor chosen = QColorDialog::getColor(QColor::fromRgba(*colour), this);
        if (!chosen.isValid()) return;
        *colour = 0xFF000000u | (chosen.rgb() & 0x00FFFFFFu);
        PaintSwatch(button, *colour);
    });
    return button;
}

void CTabEnvEdit::PaintSwatch(QPushButton* button, uint32_t colour) {
    button->setStyleSheet(
        QString("background-color: %1;").arg(QColor::fromRgb(colour & 0xFFFFFFu).name()));
}

bool CTabEnvEdit::IsSupportedPicture(const QString& path) {
    int w = 0, h = 0;
    GetImageSize(path, w, h);
    return IsImageExtension(path) && w > 0 && h > 0;
}

void CTabEnvEdit::ChooseImage() {
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Image"), m_pImage->text(), tr("All Formats (*.*)"));
    if (file.isEmpty()) return;
    if (!IsSupportedPicture(file)) {
        QMessageBox::warning(this, windowTitle(), tr("The file to be inserted is unsupported."));
        return;
    }
    QStringToFixed(file, &m_env.szBackImage);
    m_pImage->setText(file);
}

CDlgOptions::CDlgOptions(const UstEnv& env, uint16_t interfaceLanguage, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(tr("Options"));
    auto* tabs = new QTabWidget(this);
    m_pTabs = tabs;
    m_pProgram = new CTabProgram(env, interfaceLanguage, tabs);
    m_pEdit = new CTabEnvEdit(env, tabs);
    tabs->addTab(m_pProgram, tr("Program Settings"));
    tabs->addTab(m_pEdit, tr("Edit Options"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addWidget(buttons);
}

CTabControl* CDlgOptions::AddControlTab(const UstControlSetting& setting) {
    auto* tab = new CTabControl(setting, m_pTabs);
    m_pTabs->addTab(tab, tr("Remote Control"));
    return tab;
}

UstEnv CDlgOptions::ProgramCopy() const {
    return m_pProgram->Copy();
}
UstEnv CDlgOptions::EditCopy() const {
    return m_pEdit->Copy();
}

}  // namespace orv
