#pragma once
// The application object: brings the system up in its fixed order and answers
// frame size, thumbnail size and pixel aspect for everyone.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QString>

#include "board/hd_extreme.h"
#include "orv_version.h"
#include "project/folders.h"

class QTranslator;

namespace orv {

class CInstanceLock;

inline constexpr const char* APP_NAME = "Orvantis-HD";
inline constexpr const char* MAKER_NAME = "Tavrix";
inline constexpr double APP_VERSION = VERSION_MAJOR + VERSION_MINOR / 100.0;

struct UstAspect {
    double fHorz = 1.0, fVert = 1.0;
};

// The window work of start-up, done by the user interface. Each call is one
// step of InitInstance; the application object keeps the order.
class IAppHost {
public:
    virtual ~IAppHost() = default;
    virtual bool InitToolkit() = 0;
    virtual void ApplyLanguage(uint16_t language) = 0;
    virtual bool CreateMainFrame() = 0;
    virtual bool ProcessShellCommand() = 0;
    virtual void OpenStartProject() = 0;
    virtual int CurrentPageFormat() = 0;  // -1 without an active document
    virtual void ShowMainFrame() = 0;
    virtual void CreatePlayEngine() = 0;
    virtual bool ActiveProjectNeedsRecovery() = 0;
    virtual void ShowRecoveryMessage() = 0;
    virtual void FocusMainFrame() = 0;
};

enum class EStartResult { STARTED, ALREADY_RUNNING, FAILED };

class CZevrantApp {
public:
    CZevrantApp();
    ~CZevrantApp();

    static CZevrantApp* Get();  // the one instance, or null

    // Makes the output board at start-up. By default the card's board over
    // board.ini in the settings folder, with the command line's options.
    using BoardMaker = std::function<std::unique_ptr<CGBoard>(const UstFolders&)>;
    void SetBoardMaker(BoardMaker maker) { m_fnMakeBoard = std::move(maker); }
    void SetBoardOptions(const UstBoardOptions& options) { m_BoardOptions = options; }

    // lockFile empty: the default lock path. programFolder: where the program
    // file lies. systemLocale: the user's locale name, as QLocale takes it.
    EStartResult InitInstance(IAppHost& host, const std::filesystem::path& programFolder,
                              const std::filesystem::path& lockFile = {});
    void ExitInstance();

    UstSize GetFrameSize() const;
    UstSize GetThumbSize() const;
    UstAspect GetPixelAspect() const;

    // The rules behind the answers above, for a given board state.
    static UstSize ThumbSizeFor(int boardType, int pageFormat, int frameHeight);
    static UstAspect AspectForHeight(int frameHeight);

    const UstFolders& Folders() const { return m_folders; }
    uint16_t Language() const { return m_nLanguage; }

    int m_nPageFormat = 1;
    QString m_strProjectPath;
    QString m_strWorkspacePath;
    int m_bStarted = 0;
    CGBoard* m_pBoard = nullptr;
    int m_nBoardType = 0;
    std::vector<QString> m_arrOpenNames;

    // Steps done so far, by name, for diagnosing a start that failed.
    std::vector<std::string> m_arrStartLog;

private:
    void CreateBoard();
    void CloseBoard();

    BoardMaker m_fnMakeBoard;
    UstBoardOptions m_BoardOptions;
    std::unique_ptr<CGBoard> m_board;
    UstFolders m_folders;
    uint16_t m_nLanguage = 9;
    std::unique_ptr<CInstanceLock> m_pLock;
};

}  // namespace orv
