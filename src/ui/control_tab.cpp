#include "ui/control_tab.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace orv {

namespace {

QSpinBox* PortBox(quint16 value, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setRange(1, 65535);
    box->setValue(value);
    return box;
}

}  // namespace

CTabControl::CTabControl(const UstControlSetting& setting, QWidget* parent) : QWidget(parent) {
    auto* form = new QFormLayout(this);
    m_pOn = new QCheckBox(tr("Take commands from automation in play mode"), this);
    m_pOn->setChecked(setting.bOn);
    form->addRow(m_pOn);
    m_pLoopback = new QRadioButton(tr("This computer only (127.0.0.1)"), this);
    m_pAny = new QRadioButton(tr("Any network address"), this);
    (setting.bAnyAddress ? m_pAny : m_pLoopback)->setChecked(true);
    auto* where = new QVBoxLayout;
    where->addWidget(m_pLoopback);
    where->addWidget(m_pAny);
    form->addRow(tr("Listen on:"), where);
    m_pLinePort = PortBox(setting.nLinePort, this);
    m_pHttpPort = PortBox(setting.nHttpPort, this);
    form->addRow(tr("Command line port:"), m_pLinePort);
    form->addRow(tr("HTTP port:"), m_pHttpPort);
    m_pToken = new QLineEdit(setting.strToken, this);
    m_pToken->setEchoMode(QLineEdit::PasswordEchoOnEdit);
    form->addRow(tr("Token:"), m_pToken);
    m_pNote = new QLabel(this);
    m_pNote->setWordWrap(true);
    form->addRow(m_pNote);
    connect(m_pOn, &QCheckBox::toggled, this, &CTabControl::ShowState);
    connect(m_pAny, &QRadioButton::toggled, this, &CTabControl::ShowState);
    connect(m_pToken, &QLineEdit::textChanged, this, &CTabControl::ShowState);
    ShowState();
}

UstControlSetting CTabControl::Copy() const {
    UstControlSetting s;
    s.bOn = m_pOn->isChecked();
    s.bAnyAddress = m_pAny->isChecked();
    s.nLinePort = static_cast<quint16>(m_pLinePort->value());
    s.nHttpPort = static_cast<quint16>(m_pHttpPort->value());
    s.strToken = m_pToken->text().trimmed();
    return s;
}

QString CTabControl::Problem() const {
    const UstControlSetting s = Copy();
    if (!s.bOn) return {};
    if (s.nLinePort == s.nHttpPort) return tr("The two ports must differ.");
    if (s.bAnyAddress && s.strToken.isEmpty())
        return tr("A token is needed to listen on the network.");
    return {};
}

void CTabControl::ShowState() {
    const bool on = m_pOn->isChecked();
    for (QWidget* w :
         std::initializer_list<QWidget*>{m_pLoopback, m_pAny, m_pLinePort, m_pHttpPort, m_pToken})
        w->setEnabled(on);
    const QString problem = Problem();
    if (!on || !problem.isEmpty()) {
        m_pNote->setText(problem);
        return;
    }
    m_pNote->setText(m_pToken->text().trimmed().isEmpty()
                         ? tr("Programs on this computer may drive play mode without a token.")
                         : tr("Every client gives the token first: AUTH on the command line "
                              "port, a Bearer header over HTTP."));
}

}  // namespace orv
