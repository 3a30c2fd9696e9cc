#include "ui/tc_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

namespace orv {

namespace {

const char* const COUNT_NAMES[TC_COUNT_FORMATS] = {"s",    "ss",    "m:ss",    "mm:ss",
                                                   "h:mm", "hh:mm", "h:mm:ss", "hh:mm:ss"};
const char* const CLOCK_NAMES[TC_CLOCK_FORMATS] = {
    "h:mm", "h:mm ap", "hh:mm ap", "h:mm:ss ap", "hh:mm:ss ap", "h:mm:ss", "MT.DY(WD)"};

int DigitAt(const QString& text, int index) {
    return index < text.size() && text[index].isDigit() ? text[index].digitValue() : 0;
}

}  // namespace

VDateTimeEdit::VDateTimeEdit(QWidget* parent) : QLineEdit(parent) {
    setInputMask("99:99:99");
}

void VDateTimeEdit::SetSeconds(int seconds) {
    // Only a day's worth fits two digits of hours; what lies outside shows
    // as its nearest end.
    const int s = std::clamp(seconds, 0, 99 * 3600 + 59 * 60 + 59);
    setText(QString::asprintf("%02d:%02d:%02d", s / 3600, s / 60 % 60, s % 60));
}

int VDateTimeEdit::Seconds() const {
    const QString t = text();
    const int h = DigitAt(t, 0) * 10 + DigitAt(t, 1);
    const int m = DigitAt(t, 3) * 10 + DigitAt(t, 4);
    const int s = DigitAt(t, 6) * 10 + DigitAt(t, 7);
    return s + (m + h * 60) * 60;
}

CDlgPropTC::CDlgPropTC(const UstTCSetting& setting, QWidget* parent)
    : QDialog(parent), m_setting(setting) {
    setWindowTitle(tr("Timer/Counter Properties"));
    auto* form = new QFormLayout(this);
    m_pTimer = new QRadioButton(tr("Timer/Counter"));
    m_pTimer->setObjectName("1060");
    m_pClock = new QRadioButton(tr("Clock"));
    m_pClock->setObjectName("1061");
    auto* kinds = new QHBoxLayout;
    kinds->addWidget(m_pTimer);
    kinds->addWidget(m_pClock);
    form->addRow(kinds);
    m_pFormat = new QComboBox;
    m_pFormat->setObjectName("1063");
    form->addRow(tr("Format:"), m_pFormat);
    m_pStart = new VDateTimeEdit;
    m_pStart->setObjectName("1066");
    m_pStart->SetSeconds(m_setting.nStart);
    form->addRow(tr("Start:"), m_pStart);
    m_pEnd = new VDateTimeEdit;
    m_pEnd->setObjectName("1068");
    m_pEnd->SetSeconds(m_setting.nEnd);
    form->addRow(tr("End:"), m_pEnd);
    m_p24Hour = new QCheckBox(tr("24 hours"));
    m_p24Hour->setObjectName("1071");
    m_p24Hour->setChecked(m_setting.b24Hour != 0);
    form->addRow(m_p24Hour);
    m_pPreview = new QLabel;
    m_pPreview->setObjectName("1070");
    m_pPreview->setMinimumWidth(160);
    form->addRow(tr("Preview:"), m_pPreview);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);

    (m_setting.nKind != 0 ? m_pClock : m_pTimer)->setChecked(true);
    FillFormats();
    const auto kindChanged = [this](bool checked) {
        if (!checked) return;
        m_setting.nKind = m_pClock->isChecked() ? 1 : 0;
        FillFormats();
    };
    connect(m_pTimer, &QRadioButton::toggled, this, kindChanged);
    connect(m_pClock, &QRadioButton::toggled, this, kindChanged);
    connect(m_pFormat, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        (m_setting.nKind != 0 ? m_setting.nClockFormat : m_setting.nCountFormat) = index;
        UpdatePreview();
    });
    connect(m_p24Hour, &QCheckBox::toggled, this, [this](bool on) {
        m_setting.b24Hour = on ? 1 : 0;
        UpdatePreview();
    });
    connect(m_pStart, &QLineEdit::textChanged, this, [this] { UpdatePreview(); });
}

// The combo box holds the kind's own table; the counter's times only apply
// to a counter.
void CDlgPropTC::FillFormats() {
    const bool clock = m_setting.nKind != 0;
    const QSignalBlocker block(m_pFormat);
    m_pFormat->clear();
    const int count = clock ? TC_CLOCK_FORMATS : TC_COUNT_FORMATS;
    for (int i = 0; i < count; ++i)
        m_pFormat->addItem(QString::fromLatin1(clock ? CLOCK_NAMES[i] : COUNT_NAMES[i]));
    const int index = clock ? m_setting.nClockFormat : m_setting.nCountFormat;
    m_pFormat->setCurrentIndex(index >= 0 && index < count ? index : 0);
    m_pStart->setEnabled(!clock);
    m_pEnd->setEnabled(!clock);
    UpdatePreview();
}

void CDlgPropTC::UpdatePreview() {
    UstTCSetting s = Setting();
    m_pPreview->setText(s.nKind != 0 ? FormatValue(s, 0, 0, 0) : CounterString(s, s.nStart));
}

UstTCSetting CDlgPropTC::Setting() const {
    UstTCSetting s = m_setting;
    if (s.nKind != 0) s.nKind = 1;
    const int index = m_pFormat->currentIndex();
    if (index >= 0) (s.nKind != 0 ? s.nClockFormat : s.nCountFormat) = index;
    s.nStart = m_pStart->Seconds();
    s.nEnd = m_pEnd->Seconds();
    return s;
}

}  // namespace orv
