#include "ui/editor_control.h"

#include <QSettings>

namespace orv {

UstControlSetting LoadControlSetting() {
    QSettings settings;
    settings.beginGroup(QStringLiteral("Control"));
    UstControlSetting s;
    s.bOn = settings.value(QStringLiteral("On"), false).toBool();
    s.bAnyAddress = settings.value(QStringLiteral("AnyAddress"), false).toBool();
    const int line = settings.value(QStringLiteral("LinePort"), 5250).toInt();
    const int http = settings.value(QStringLiteral("HttpPort"), 5251).toInt();
    // A damaged value gives the default port, never port 0 (any port).
    s.nLinePort = static_cast<quint16>(line >= 1 && line <= 65535 ? line : 5250);
    s.nHttpPort = static_cast<quint16>(http >= 1 && http <= 65535 ? http : 5251);
    s.strToken = settings.value(QStringLiteral("Token")).toString();
    return s;
}

void SaveControlSetting(const UstControlSetting& s) {
    QSettings settings;
    settings.beginGroup(QStringLiteral("Control"));
    settings.setValue(QStringLiteral("On"), s.bOn);
    settings.setValue(QStringLiteral("AnyAddress"), s.bAnyAddress);
    settings.setValue(QStringLiteral("LinePort"), s.nLinePort);
    settings.setValue(QStringLiteral("HttpPort"), s.nHttpPort);
    settings.setValue(QStringLiteral("Token"), s.strToken);
}

UstControlOptions ControlOptionsOf(const UstControlSetting& s) {
    UstControlOptions options;
    options.address = QHostAddress(s.bAnyAddress ? QHostAddress::Any : QHostAddress::LocalHost);
    options.nLinePort = s.nLinePort;
    options.nHttpPort = s.nHttpPort;
    options.strToken = s.strToken;
    return options;
}

CEditorControl::~CEditorControl() {
    Shut();
}

void CEditorControl::Shut() {
    if (m_pServer) m_pServer->Stop();
    m_host.SetCore(nullptr);
    m_pServer.reset();
    m_pCore.reset();
}

bool CEditorControl::Apply(const UstControlSetting& setting, QString& error) {
    m_setting = setting;
    return Restart(error);
}

bool CEditorControl::SetEngine(CPlayEngine* engine, UstPlayList* list, QString& error) {
    Shut();
    m_pEngine = engine;
    m_pList = list;
    return Restart(error);
}

void CEditorControl::SetPages(const QString& project, std::vector<CPageManager*> pages) {
    m_strProject = project;
    m_pages = std::move(pages);
    if (m_pCore) m_pCore->SetPages(m_strProject, m_pages);
}

bool CEditorControl::Restart(QString& error) {
    Shut();
    if (!m_pEngine || (!m_setting.bOn && !m_override)) return true;
    const UstControlOptions options = m_override ? *m_override : ControlOptionsOf(m_setting);
    m_pCore = std::make_unique<CControlCore>(*m_pEngine, m_strProject, m_pages, m_pList);
    m_pServer = std::make_unique<CControlServer>(*m_pCore);
    m_host.SetCore(m_pCore.get());
    if (m_pServer->Start(options, error)) return true;
    Shut();
    return false;
}

QString CEditorControl::Describe() const {
    if (!IsRunning()) return {};
    const UstControlOptions options = m_override ? *m_override : ControlOptionsOf(m_setting);
    return QStringLiteral("%1:%2, HTTP %3")
        .arg(options.address.toString())
        .arg(m_pServer->LinePort())
        .arg(m_pServer->HttpPort());
}

}  // namespace orv
