#include "ui/live_dialogs.h"

#include <QButtonGroup>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

namespace orv {

namespace {

QWidget* Pair(QRadioButton* first, QRadioButton* second, bool secondOn) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    auto* group = new QButtonGroup(box);
    for (QRadioButton* b : {first, second}) {
        group->addButton(b);
        row->addWidget(b);
    }
    (secondOn ? second : first)->setChecked(true);
    return box;
}

QDialogButtonBox* OkCancel(QDialog* dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

}  // namespace

CDlgBlink::CDlgBlink(const UstPageBlink& blink, QWidget* parent) : QDialog(parent), m_blink(blink) {
    setWindowTitle(tr("Blink properties"));
    auto* form = new QFormLayout(this);
    m_pShowHide = new QRadioButton(tr("개체유무"));
    m_pByColour = new QRadioButton(tr("색으로"));
    form->addRow(tr("Mode:"), Pair(m_pShowHide, m_pByColour, blink.nMode == 1));
    m_pColour = new QPushButton;
    connect(m_pColour, &QPushButton::clicked, this, [this] { ChooseColour(); });
    SetColour(blink.crColor);
    form->addRow(tr("Colour:"), m_pColour);
    m_pSpeed = new QComboBox;
    for (int speed = BLINK_SPEED_MIN; speed <= BLINK_SPEED_MAX; ++speed)
        m_pSpeed->addItem(QString::number(speed));
    m_pSpeed->setCurrentIndex(std::clamp(blink.nSpeed, BLINK_SPEED_MIN, BLINK_SPEED_MAX) -
                              BLINK_SPEED_MIN);
    form->addRow(tr("Speed:"), m_pSpeed);
    form->addRow(OkCancel(this));
}

void CDlgBlink::SetColour(uint32_t argb) {
    m_blink.crColor = argb;
    const QColor c = QColor::fromRgba(argb);
    m_pColour->setText(c.name(QColor::HexArgb).toUpper());
    m_pColour->setStyleSheet(QStringLiteral("background-color: %1").arg(c.name(QColor::HexRgb)));
}

void CDlgBlink::ChooseColour() {
    const QColor c = QColorDialog::getColor(QColor::fromRgba(m_blink.crColor), this, {},
                                            QColorDialog::ShowAlphaChannel);
    if (c.isValid()) SetColour(c.rgba());
}

UstPageBlink CDlgBlink::Result() const {
    UstPageBlink b = m_blink;
    b.nMode = m_pByColour->isChecked() ? 1 : 0;
    b.nSpeed = m_pSpeed->currentIndex() + BLINK_SPEED_MIN;
    return b;
}

CDlgTyping::CDlgTyping(const UstPageTyping& typing, QWidget* parent)
    : QDialog(parent), m_typing(typing) {
    setWindowTitle(tr("Typing properties"));
    auto* form = new QFormLayout(this);
    m_pManual = new QRadioButton(tr("수동"));
    m_pAutomatic = new QRadioButton(tr("자동"));
    form->addRow(tr("Mode:"), Pair(m_pManual, m_pAutomatic, typing.nMode == 1));
    m_pByChar = new QRadioButton(tr("자간단위"));
    m_pByLine = new QRadioButton(tr("라인단위"));
    form->addRow(tr("Order:"), Pair(m_pByChar, m_pByLine, typing.nOrder == 1));
    m_pDelay = new QComboBox;
    for (int ms : TYPING_DELAYS_MS)
        m_pDelay->addItem(tr("%1 ms").arg(ms));
    m_pDelay->setCurrentIndex(std::clamp(typing.nSpeed, 0, TYPING_DELAY_COUNT - 1));
    form->addRow(tr("지연:"), m_pDelay);
    form->addRow(OkCancel(this));
}

UstPageTyping CDlgTyping::Result() const {
    UstPageTyping t = m_typing;
    t.nMode = m_pAutomatic->isChecked() ? 1 : 0;
    t.nOrder = m_pByLine->isChecked() ? 1 : 0;
    t.nSpeed = m_pDelay->currentIndex();
    return t;
}

}  // namespace orv
