#include "ui/app_host.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QSettings>

#include <cstdio>

#include "project/project_store.h"
#include "shell/key_routing.h"
#include "shell/language.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

CAppHost::CAppHost(CZevrantApp& app, QStringList arguments)
    : m_app(app), m_arguments(std::move(arguments)) {}

CAppHost::~CAppHost() {
    DestroyMainFrame();
}

bool CAppHost::InitToolkit() {
    // The interface layout lives with the rest of a separate home when one
    // is given, so that a test run never touches the user's own.
    const QByteArray home = qgetenv("ORVANTIS_HOME");
    if (!home.isEmpty())
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromLocal8Bit(home) + "/.config");
    return true;
}

void CAppHost::ApplyLanguage(uint16_t language) {
    m_nLanguage = language;
    const auto folder = m_app.Folders().TranslationsFolder();
    if (!InstallTranslation(language, QString::fromStdString(folder.string()), m_translator,
                            m_toolkitTranslator))
        std::fprintf(stderr, "orvantis: no translations in %s\n", folder.c_str());
}

bool CAppHost::CreateMainFrame() {
    m_pFrame = new CMainFrame(m_app.Folders(), m_nLanguage, m_app.m_pBoard);
    if (m_control) m_pFrame->SetControlOverride(*m_control);
    if (!m_pFrame->OnCreate()) return false;
    m_pKeyRouter = new CKeyRouter([this] { return m_pFrame ? m_pFrame->m_nPlayState : 0; },
                                  [this](const UstKeyInfo& key) {
                                      if (m_pFrame) m_pFrame->DispatchKey(key);
                                  },
                                  qApp);
    qApp->installEventFilter(m_pKeyRouter);
    return true;
}

bool CAppHost::ProcessShellCommand() {
    // A project named on the command line is opened instead of the last one;
    // a plain start asks for nothing here.
    if (!m_arguments.isEmpty()) m_strShellProject = m_arguments.front();
    return true;
}

QString CAppHost::StartProject() {
    const QString iniFile = QString::fromStdString(m_app.Folders().ProjectIni().string());
    if (const auto ini = ReadProjectIni(iniFile)) {
        m_pFrame->SetWorkspace(ini->strWorkspace);
        return ini->strProject;
    }
    // No usable last project: a new numbered one in the default workspace.
    const QString workspace = QString::fromStdString(m_app.Folders().workspacesFolder.string());
    QDir().mkpath(workspace);
    QDir::setCurrent(workspace);
    m_pFrame->SetWorkspace(workspace);
    const QString project = CreateNumberedProject(workspace);
    if (!project.isEmpty()) WriteProjectIni(iniFile, {workspace, project});
    return project;
}

void CAppHost::OpenStartProject() {
    const QString iniFile = QString::fromStdString(m_app.Folders().ProjectIni().string());
    m_pFrame->SetProjectCallbacks(
        [this](const QString& workspace, const QString& project) {
            m_app.m_strWorkspacePath = workspace;
            m_app.m_strProjectPath = project;
        },
        [iniFile](const QString& workspace, const QString& project) {
            WriteProjectIni(iniFile, {workspace, project});
        });
    const QString start = m_strShellProject.isEmpty() ? StartProject() : m_strShellProject;
    // A project that cannot be opened leaves the editor without one; New and
    // Open remain.
    if (!start.isEmpty()) m_pFrame->OpenProjectPath(start, false);
}

int CAppHost::CurrentPageFormat() {
    const CZevrantView* view = m_pFrame ? m_pFrame->ActiveView() : nullptr;
    if (!view) return -1;
    return view->Document()->Project().m_nWidth == 640 ? 0 : 1;
}

void CAppHost::ShowMainFrame() {
    m_pFrame->showMaximized();
}

void CAppHost::CreatePlayEngine() {
    m_pFrame->CreatePlayEngine();
}

bool CAppHost::ActiveProjectNeedsRecovery() {
    const CZevrantView* view = m_pFrame ? m_pFrame->ActiveView() : nullptr;
    return view && view->Document()->m_bFromBackup;
}

void CAppHost::ShowRecoveryMessage() {
    m_pFrame->ShowRecoveryMessage();
}

void CAppHost::FocusMainFrame() {
    m_pFrame->activateWindow();
    m_pFrame->setFocus();
}

void CAppHost::DestroyMainFrame() {
    if (m_pKeyRouter) {
        qApp->removeEventFilter(m_pKeyRouter);
        delete m_pKeyRouter;
        m_pKeyRouter = nullptr;
    }
    delete m_pFrame;
    m_pFrame = nullptr;
}

}  // namespace orv
