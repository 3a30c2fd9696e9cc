#include "shell/app_object.h"

#include <QCoreApplication>
#include <QLocale>

#include "project/profile_file.h"
#include "shell/instance_lock.h"
#include "shell/language.h"

namespace orv {

namespace {
CZevrantApp* g_pApp = nullptr;
constexpr int FRAME_WIDTH_NO_BOARD = 1920;
constexpr int FRAME_HEIGHT_NO_BOARD = 1080;
}  // namespace

CZevrantApp::CZevrantApp() {
    g_pApp = this;
}

CZevrantApp::~CZevrantApp() {
    CloseBoard();
    if (g_pApp == this) g_pApp = nullptr;
}

CZevrantApp* CZevrantApp::Get() {
    return g_pApp;
}

EStartResult CZevrantApp::InitInstance(IAppHost& host, const std::filesystem::path& programFolder,
                                       const std::filesystem::path& lockFile) {
    QCoreApplication::setApplicationName(APP_NAME);
    QCoreApplication::setOrganizationName(MAKER_NAME);
    QCoreApplication::setApplicationVersion(VERSION_TEXT);
    m_pLock = std::make_unique<CInstanceLock>();
    if (!m_pLock->Acquire(lockFile.empty() ? CInstanceLock::DefaultPath() : lockFile) &&
        m_pLock->AlreadyRunning()) {
        m_arrStartLog.push_back("second instance");
        return EStartResult::ALREADY_RUNNING;
    }
    if (!host.InitToolkit()) return EStartResult::FAILED;
    m_folders = ResolveFolders(FolderInputsFromEnvironment(), programFolder);
    CreateWellKnownFolders(m_folders);
    m_arrStartLog.push_back("folders");
    m_nLanguage = ChooseLanguage(m_folders.EnvIni(), QLocale::system());
    host.ApplyLanguage(m_nLanguage);
    m_arrStartLog.push_back("language");
    CreateBoard();
    m_arrStartLog.push_back("board");
    if (!host.CreateMainFrame()) return EStartResult::FAILED;
    m_arrStartLog.push_back("frame");
    if (!host.ProcessShellCommand()) return EStartResult::FAILED;
    host.OpenStartProject();
    if (int format = host.CurrentPageFormat(); format >= 0) m_nPageFormat = format;
    host.ShowMainFrame();
    host.CreatePlayEngine();
    m_bStarted = 1;
    if (host.ActiveProjectNeedsRecovery()) host.ShowRecoveryMessage();
    host.FocusMainFrame();
    m_arrStartLog.push_back("started");
    return EStartResult::STARTED;
}

// The board is ready when its canvas exists, whether or not a card
// answered; a board that is not ready is given up at once.
void CZevrantApp::CreateBoard() {
    std::unique_ptr<CGBoard> board =
        m_fnMakeBoard ? m_fnMakeBoard(m_folders) : [&]() -> std::unique_ptr<CGBoard> {
        UstBoardOptions options = m_BoardOptions;
        options.iniFile = m_folders.BoardIni();
        return std::make_unique<IF_HDExtreme>(options);
    }();
    if (!board || !board->IsOpen()) return;
    m_nBoardType = board->GetBoardType();
    m_board = std::move(board);
    m_pBoard = m_board.get();
}

void CZevrantApp::CloseBoard() {
    m_pBoard = nullptr;
    m_nBoardType = 0;
    m_board.reset();
}

void CZevrantApp::ExitInstance() {
    if (!m_strProjectPath.isEmpty() && !m_strWorkspacePath.isEmpty()) {
        const auto ini = m_folders.ProjectIni();
        WriteProfileString(ini, "QRD_PROJECT_INI", "Workspace", m_strWorkspacePath.toStdString());
        WriteProfileString(ini, "QRD_PROJECT_INI", "Project", m_strProjectPath.toStdString());
    }
    CloseBoard();
}

UstSize CZevrantApp::GetFrameSize() const {
    if (m_pBoard && m_nBoardType >= 1 && m_nBoardType <= 6)
        return m_pBoard->GetFrameSize(m_nPageFormat);
    return {FRAME_WIDTH_NO_BOARD, FRAME_HEIGHT_NO_BOARD};
}

UstSize CZevrantApp::GetThumbSize() const {
    return ThumbSizeFor(m_nBoardType, m_nPageFormat, GetFrameSize().cy);
}

UstAspect CZevrantApp::GetPixelAspect() const {
    if (!m_pBoard) return AspectForHeight(GetFrameSize().cy);
    float x = 1.0f, y = 1.0f;
    m_pBoard->GetPixelAspect(x, y, m_nPageFormat);
    return {x, y};
}

UstSize CZevrantApp::ThumbSizeFor(int boardType, int pageFormat, int frameHeight) {
    if (boardType == 5) return {300, pageFormat != 0 ? 170 : 225};
    return {300, (frameHeight == 720 || frameHeight == 1080) ? 170 : 225};
}

UstAspect CZevrantApp::AspectForHeight(int frameHeight) {
    switch (frameHeight) {
        case 486:
            return {1.125, 1.0};
        case 576:
            return {1.125, 1.2};
        case 720:
            return {0.66667, 0.66667};
        default:
            return {1.0, 1.0};
    }
}

}  // namespace orv
