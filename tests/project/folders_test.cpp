#include <gtest/gtest.h>

#include "project/folders.h"
#include "test_util.h"

namespace fs = std::filesystem;

namespace orv {
namespace {

TEST(Folders, FormedFromHomeOrTheOverride) {
    UstFolders f = ResolveFolders({"/home/ann", "", ""}, "/opt/orv");
    EXPECT_EQ(f.sharedDataFolder, fs::path("/home/ann/.local/share/Tavrix"));
    EXPECT_EQ(f.settingsFolder, fs::path("/home/ann/.local/share/Tavrix/Orvantis-HD"));
    EXPECT_EQ(f.projectsFolder, fs::path("/home/ann/Documents/Orvantis-HD Projects"));
    EXPECT_EQ(f.workspacesFolder, fs::path("/home/ann/Documents/Orvantis-HD Projects/Workspaces"));
    EXPECT_EQ(f.EnvIni(), fs::path("/home/ann/.local/share/Tavrix/Orvantis-HD/qrdenv.ini"));
    f = ResolveFolders({"/home/ann", "/data", ""}, "/opt/orv");
    EXPECT_EQ(f.sharedDataFolder, fs::path("/data/Tavrix"));
    f = ResolveFolders({"/home/ann", "/data", "/tmp/t"}, "/opt/orv");
    EXPECT_EQ(f.sharedDataFolder, fs::path("/tmp/t/.local/share/Tavrix"));
    EXPECT_EQ(f.projectsFolder, fs::path("/tmp/t/Documents/Orvantis-HD Projects"));
}

// The same relative step serves the installed program, a moved prefix and the
// build folder, whose programs sit in app/ and cli/.
TEST(Folders, TheProgramsDataLiesBesideItsBinFolder) {
    EXPECT_EQ(ResolveFolders({"/home/ann", "", ""}, "/usr/bin").dataFolder,
              fs::path("/usr/share/orvantis-hd"));
    EXPECT_EQ(DataFolderFor("/opt/station/bin"), fs::path("/opt/station/share/orvantis-hd"));
    EXPECT_EQ(DataFolderFor("/src/build/cli"), fs::path("/src/build/share/orvantis-hd"));
    EXPECT_EQ(ResolveFolders({"/home/ann", "", ""}, "/usr/bin").TranslationsFolder(),
              fs::path("/usr/share/orvantis-hd/translations"));
}

TEST(Folders, CreatedInOrderWithEmptyStyleLists) {
    QTemporaryDir dir;
    const fs::path home = dir.path().toStdString();
    const UstFolders f = ResolveFolders({"", "", home.string()}, home);
    const auto created = CreateWellKnownFolders(f);
    const fs::path s = f.StyleFolder();
    const std::vector<fs::path> expected = {f.sharedDataFolder,
                                            f.settingsFolder,
                                            s,
                                            s / "BACKPIC",
                                            s / "PICTURE",
                                            s / "SHAPE",
                                            s / "TEXT",
                                            s / "COLOR",
                                            s / "TEXT/style.sttxt",
                                            s / "SHAPE/style.stshape",
                                            s / "COLOR/style.stcolor",
                                            f.projectsFolder,
                                            f.workspacesFolder};
    EXPECT_EQ(created, expected);
    EXPECT_EQ(test::ReadFile(s / "SHAPE/style.stshape"), std::string(4, '\0'));
    // A second start finds everything in place and touches nothing.
    test::WriteFile(s / "TEXT/style.sttxt", std::string("\1\0\0\0", 4));
    EXPECT_TRUE(CreateWellKnownFolders(f).empty());
    EXPECT_EQ(test::ReadFile(s / "TEXT/style.sttxt"), std::string("\1\0\0\0", 4));
}

TEST(Folders, AFolderThatCannotBeMadeDoesNotStopTheRest) {
    QTemporaryDir dir;
    const fs::path home = dir.path().toStdString();
    const UstFolders f = ResolveFolders({"", "", home.string()}, home);
    fs::create_directories(f.sharedDataFolder.parent_path());
    test::WriteFile(f.sharedDataFolder, "a file where a folder belongs");
    const auto created = CreateWellKnownFolders(f);
    ASSERT_EQ(created.size(), 2u);
    EXPECT_EQ(created[0], f.projectsFolder);
    EXPECT_EQ(created[1], f.workspacesFolder);
}

}  // namespace
}  // namespace orv
