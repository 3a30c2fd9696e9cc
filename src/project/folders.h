#pragma once
// The well-known folders: where settings, style libraries and projects live.

#include <filesystem>
#include <string>
#include <vector>

namespace orv {

struct UstFolders {
    std::filesystem::path programFolder;     // folder of the program file
    std::filesystem::path dataFolder;        // the program's own data, read only
    std::filesystem::path sharedDataFolder;  // .../Tavrix/
    std::filesystem::path settingsFolder;    // .../Tavrix/Orvantis-HD/
    std::filesystem::path projectsFolder;    // ~/Documents/Orvantis-HD Projects/
    std::filesystem::path workspacesFolder;  // the default workspace

    std::filesystem::path StyleFolder(const char* sub = nullptr) const;
    std::filesystem::path EnvIni() const { return settingsFolder / "qrdenv.ini"; }
    std::filesystem::path DataIni() const { return settingsFolder / "qrddata.ini"; }
    std::filesystem::path ProjectIni() const { return settingsFolder / "qrdproject.ini"; }
    std::filesystem::path BoardIni() const { return settingsFolder / "board.ini"; }
    std::filesystem::path TranslationsFolder() const { return dataFolder / "translations"; }
};

// What the folders are formed from. ORVANTIS_HOME, when set, replaces the
// home directory for all of them and makes XDG_DATA_HOME irrelevant.
struct UstFolderInputs {
    std::string home;
    std::string xdgDataHome;
    std::string orvantisHome;
};

UstFolderInputs FolderInputsFromEnvironment();
UstFolders ResolveFolders(const UstFolderInputs& in, const std::filesystem::path& programFolder);

// The data folder of a program in programFolder: <prefix>/share/orvantis-hd
// beside <prefix>/bin when installed, build/share/orvantis-hd beside
// build/app in the build folder. Relative, so a moved prefix still works.
std::filesystem::path DataFolderFor(const std::filesystem::path& programFolder);

// Creates what is missing, in the fixed order: shared data folder, settings
// folder, the STYLE folders, the three empty style lists, the projects
// folder, its Workspaces. Returns what it created, in that order; a step that
// fails is skipped and the rest still run.
std::vector<std::filesystem::path> CreateWellKnownFolders(const UstFolders& folders);

}  // namespace orv
