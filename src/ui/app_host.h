#pragma once

#include <QStringList>
#include <QTranslator>

#include <memory>
#include <optional>

#include "remote/control_server.h"
#include "shell/app_object.h"

namespace orv {

class CKeyRouter;
class CMainFrame;
class CZevrantDoc;

// The window work of start-up and shutdown on Qt Widgets.
class CAppHost : public IAppHost {
public:
    CAppHost(CZevrantApp& app, QStringList arguments);
    ~CAppHost() override;

    bool InitToolkit() override;
    void ApplyLanguage(uint16_t language) override;
    bool CreateMainFrame() override;
    bool ProcessShellCommand() override;
    void OpenStartProject() override;
    int CurrentPageFormat() override;
    void ShowMainFrame() override;
    void CreatePlayEngine() override;
    bool ActiveProjectNeedsRecovery() override;
    void ShowRecoveryMessage() override;
    void FocusMainFrame() override;

    // --control: the server on for this run, whatever Options say.
    void SetControlOverride(const UstControlOptions& options) { m_control = options; }
    // Closes the frame for good: its destructor writes the settings.
    void DestroyMainFrame();
    CMainFrame* MainFrame() const { return m_pFrame; }

private:
    // The project of a plain start: the last one, else a new numbered one.
    QString StartProject();

    CZevrantApp& m_app;
    QStringList m_arguments;
    uint16_t m_nLanguage = 9;
    QTranslator m_translator;
    QTranslator m_toolkitTranslator;
    CMainFrame* m_pFrame = nullptr;
    CKeyRouter* m_pKeyRouter = nullptr;
    QString m_strShellProject;
    std::optional<UstControlOptions> m_control;
};

}  // namespace orv
