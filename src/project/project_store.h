#pragma once
// A project on disk: its folder, the project file that holds the last closed
// state, and the working file beside it that every save writes while the
// project is open. The working file's existence when a project is opened
// means the program died with the project open, and its contents are what
// comes back.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace orv {

class CProjectManager;

inline constexpr const char* PROJECT_FILE_NAME = "project.qrdprj";
inline constexpr const char* WORKING_FILE_SUFFIX = ".backup";

struct UstProjectPaths {
    QString strProjectPath;   // .../Name/project.qrdprj
    QString strBackupPath;    // the working file
    QString strFolder;        // .../Name/, ending in a separator
    QString strDataFolder;    // thumbnails
    QString strObjectFolder;  // media copies
    QString strWorkspace;     // the folder above, without a separator at the end
    QString strTitle;         // the folder's own name
};

// The paths of a project given by its file or by its folder.
UstProjectPaths ProjectPathsFor(const QString& fileOrFolder);

// Replaces the file's bytes in one step: a temporary file beside it is
// written, synchronised to the disk and renamed over it, so that a crash or
// a full disk never leaves it torn. The file keeps its permissions.
bool ReplaceFileSafely(const QString& path, const QByteArray& bytes, QString* error);

struct UstOpenOutcome {
    bool bOpened = false;
    bool bFromBackup = false;  // the working file of an earlier run came back
    QString strError;          // why it did not open
    QString strNotice;         // something the user should know although it opened
};

// Opens a project: a working file left behind is recovered into the project
// file first; the project file is read; a new working file is made and the
// project saved into it at once, so that a crash right after opening finds a
// complete file. A working file that does not load is put aside under
// another name rather than over the project file, which then opens as it
// was.
UstOpenOutcome OpenProjectFiles(CProjectManager& project, const UstProjectPaths& paths);

// Saves the project into its working file (only that file changes).
bool SaveWorkingFile(CProjectManager& project, const UstProjectPaths& paths, QString* error);
// At a clean close: the working file becomes the project file.
bool PromoteWorkingFile(const UstProjectPaths& paths);
// At a close that drops the changes: the working file goes.
bool DiscardWorkingFile(const UstProjectPaths& paths);

// A new project folder with Data, Object and an empty project file of the
// frame size. False, with the reason, when the folder exists or cannot be
// made; nothing is left behind then.
bool CreateProjectFolder(const QString& folder, int width, int height, QString* error);
// The first "CGProject" and number under the workspace whose folder does not
// exist yet and can be made, made as a new project of 1920 x 1080; its
// project file, or empty when none could be made.
QString CreateNumberedProject(const QString& workspace);
// The name offered for a new project or Save As: a last digit below 9 goes
// up by one, a 9 becomes 10, a name without a digit at its end gets a 1.
QString ProposeProjectName(const QString& current);

// qrdproject.ini: the workspace shown by the dialogs and the last project.
struct UstProjectIni {
    QString strWorkspace;
    QString strProject;
};
// Only when the file, both keys and the project file exist.
std::optional<UstProjectIni> ReadProjectIni(const QString& iniFile);
bool WriteProjectIni(const QString& iniFile, const UstProjectIni& ini);

// One project as the Open dialog lists it.
struct UstPrjThumb {
    QString strPath;  // the project file
    int32_t nPages = 0;
    QString strCreated, strModified;
    std::vector<uint32_t> pBits;  // 160 x 120, top row first; empty without a preview
};
inline constexpr int PRJ_THUMB_WIDTH = 160, PRJ_THUMB_HEIGHT = 120;

// Reads what the Open dialog shows of one project file; nothing for a file
// that does not open or whose version is below 1.3.
std::optional<UstPrjThumb> ReadProjectInfo(const QString& projectFile, bool withPreview);
// Every project in the workspace's folders, skipping hidden folders and the
// projects given as open.
std::vector<UstPrjThumb> ScanWorkspace(const QString& workspace, const QStringList& openProjects,
                                       bool withPreview);

}  // namespace orv
