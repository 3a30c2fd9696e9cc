#pragma once
// The editor's control server: off unless Options or --control switch it
// on. Automation reaches the pages of the project in play mode, the same
// ones the play panes list; in edit mode there are none to take, so that a
// page the operator deletes is never one the server still holds.

#include <QString>

#include <memory>
#include <optional>
#include <vector>

#include "remote/control_server.h"
#include "remote/remote_play_host.h"

namespace orv {

class CPageManager;

// What the Options dialog keeps, under "Control" in the settings.
struct UstControlSetting {
    bool bOn = false;
    bool bAnyAddress = false;  // every interface instead of loopback alone
    quint16 nLinePort = 5250;
    quint16 nHttpPort = 5251;
    QString strToken;
};

UstControlSetting LoadControlSetting();
void SaveControlSetting(const UstControlSetting& setting);
UstControlOptions ControlOptionsOf(const UstControlSetting& setting);

class CEditorControl {
public:
    // window: where the engine's states go as before; not owned.
    explicit CEditorControl(IPlayHost* window) : m_host(window) {}
    ~CEditorControl();

    // The engine's window side, with the server listening in.
    IPlayHost* Host() { return &m_host; }
    // The options of --control, in force for this run whatever Options say.
    void SetOverride(const UstControlOptions& options) { m_override = options; }
    bool HasOverride() const { return m_override.has_value(); }
    // Each false return leaves the server off and says why.
    bool Apply(const UstControlSetting& setting, QString& error);
    // The engine came or goes (null); the server follows it.
    bool SetEngine(CPlayEngine* engine, UstPlayList* list, QString& error);
    void SetPages(const QString& project, std::vector<CPageManager*> pages);
    bool IsRunning() const { return m_pServer && m_pServer->IsRunning(); }
    quint16 LinePort() const { return IsRunning() ? m_pServer->LinePort() : 0; }
    // For the status bar: where it listens, or empty when off.
    QString Describe() const;

private:
    void Shut();
    bool Restart(QString& error);

    CRemotePlayHost m_host;
    UstControlSetting m_setting;
    std::optional<UstControlOptions> m_override;
    CPlayEngine* m_pEngine = nullptr;
    UstPlayList* m_pList = nullptr;
    QString m_strProject;
    std::vector<CPageManager*> m_pages;
    std::unique_ptr<CControlCore> m_pCore;
    std::unique_ptr<CControlServer> m_pServer;
};

}  // namespace orv
