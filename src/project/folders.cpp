#include "project/folders.h"

#include <QSaveFile>
#include <QString>

#include <cstdlib>
#include <system_error>

#include "orv_version.h"

namespace fs = std::filesystem;

namespace orv {

namespace {

const char* const MAKER = "Tavrix";
const char* const PRODUCT = "Orvantis-HD";

std::string GetEnv(const char* name) {
    const char* v = std::getenv(name);
    return v ? std::string(v) : std::string();
}

void MakeDir(const fs::path& dir, std::vector<fs::path>& created) {
    std::error_code ec;
    if (fs::is_directory(dir, ec)) return;
    if (fs::create_directory(dir, ec)) created.push_back(dir);
}

// A style list starts as a count of zero: four zero bytes.
void MakeEmptyList(const fs::path& file, std::vector<fs::path>& created) {
    std::error_code ec;
    if (fs::exists(file, ec) || !fs::is_directory(file.parent_path(), ec)) return;
    QSaveFile f(QString::fromStdString(file.string()));
    if (!f.open(QIODevice::WriteOnly)) return;
    const char zero[4] = {0, 0, 0, 0};
    if (f.write(zero, 4) == 4 && f.commit()) created.push_back(file);
}

}  // namespace

fs::path UstFolders::StyleFolder(const char* sub) const {
    fs::path p = sharedDataFolder / "STYLE";
    return sub ? p / sub : p;
}

UstFolderInputs FolderInputsFromEnvironment() {
    return {GetEnv("HOME"), GetEnv("XDG_DATA_HOME"), GetEnv("ORVANTIS_HOME")};
}

fs::path DataFolderFor(const fs::path& programFolder) {
    return (programFolder / DATA_FROM_PROGRAM).lexically_normal();
}

UstFolders ResolveFolders(const UstFolderInputs& in, const fs::path& programFolder) {
    UstFolders f;
    f.programFolder = programFolder;
    f.dataFolder = DataFolderFor(programFolder);
    fs::path home = in.orvantisHome.empty() ? fs::path(in.home) : fs::path(in.orvantisHome);
    if (home.empty()) home = fs::temp_directory_path();
    fs::path data = (!in.orvantisHome.empty() || in.xdgDataHome.empty()) ? home / ".local" / "share"
                                                                         : fs::path(in.xdgDataHome);
    f.sharedDataFolder = data / MAKER;
    f.settingsFolder = f.sharedDataFolder / PRODUCT;
    f.projectsFolder = home / "Documents" / (std::string(PRODUCT) + " Projects");
    f.workspacesFolder = f.projectsFolder / "Workspaces";
    return f;
}

std::vector<fs::path> CreateWellKnownFolders(const UstFolders& f) {
    std::vector<fs::path> created;
    std::error_code ec;
    // The parents of the shared data folder are ordinary per-user folders
    // that may not exist yet on a new account.
    fs::create_directories(f.sharedDataFolder.parent_path(), ec);
    MakeDir(f.sharedDataFolder, created);
    MakeDir(f.settingsFolder, created);
    MakeDir(f.StyleFolder(), created);
    for (const char* sub : {"BACKPIC", "PICTURE", "SHAPE", "TEXT", "COLOR"})
        MakeDir(f.StyleFolder(sub), created);
    MakeEmptyList(f.StyleFolder("TEXT") / "style.sttxt", created);
    MakeEmptyList(f.StyleFolder("SHAPE") / "style.stshape", created);
    MakeEmptyList(f.StyleFolder("COLOR") / "style.stcolor", created);
    fs::create_directories(f.projectsFolder.parent_path(), ec);
    MakeDir(f.projectsFolder, created);
    MakeDir(f.workspacesFolder, created);
    return created;
}

}  // namespace orv
