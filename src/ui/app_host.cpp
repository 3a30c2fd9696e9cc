#include "ui/app_host.h"

#include <QApplication>
#include <QMessageBox>
#include <QSettings>

#include "shell/key_routing.h"
#include "shell/language.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"

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
    InstallTranslation(language, m_translator, m_toolkitTranslator);
}

bool CAppHost::CreateMainFrame() {
    m_pFrame = new CMainFrame(m_app.Folders(), m_nLanguage, m_app.m_pBoard);
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
    // A plain start asks for nothing: no empty document is made here.
    return true;
}

void CAppHost::OpenStartProject() {
    // Projects on disk arrive with the project manager; the editor starts
    // with one project in memory.
    auto* doc = new CZevrantDoc(m_pFrame);
    m_docs.push_back(doc);
    m_pFrame->AddProjectWindow(doc);
}

int CAppHost::CurrentPageFormat() {
    return m_docs.empty() ? -1 : 1;
}

void CAppHost::ShowMainFrame() {
    m_pFrame->showMaximized();
}

void CAppHost::CreatePlayEngine() {}

bool CAppHost::ActiveProjectNeedsRecovery() {
    return false;
}

void CAppHost::ShowRecoveryMessage() {
    QMessageBox::information(
        m_pFrame, m_pFrame->windowTitle(),
        CMainFrame::tr("Program was not closed properly.\nRecovering from the last modification."));
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
    m_docs.clear();
}

}  // namespace orv
