// Projects on disk while they are open: the working file beside the project
// file, what comes back after a crash at any point, a close that keeps or
// drops the work, saves that never tear a file, the Open dialog's scanner,
// new projects and their names, and the last project remembered.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <csignal>

#include "objects/shape_object.h"
#include "project/project_manager.h"
#include "project/project_store.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

QByteArray Read(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

class ProjectStore : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        workspace = dir.path();
        folder = QDir(workspace).filePath("Show");
        ASSERT_TRUE(CreateProjectFolder(folder, 1920, 1080, nullptr));
        paths = ProjectPathsFor(folder);
    }
    // Opens the project afresh, as a new run of the program would.
    UstOpenOutcome Open(CProjectManager& project) { return OpenProjectFiles(project, paths); }
    // A whole session: open, one edit, save, a clean close.
    void SaveAndClose(int width) {
        CProjectManager project;
        ASSERT_TRUE(Open(project).bOpened);
        Edit(project, width);
        ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
        ASSERT_TRUE(PromoteWorkingFile(paths));
    }
    // Adds one shape (each a different width) to the first page, making
    // the page if there is none.
    void Edit(CProjectManager& project, int width) {
        if (project.PageCount() == 0) project.InsertPage(-1);
        project.GetPage(0)->AddObject(std::make_unique<CQRDObjectShape>(
            nullptr, 0, UstRect{0, 0, width, 10}, MakeDefaultAttr(), UstEffect{}));
        project.SetProjectModified();
    }
    // The widths of the shapes of the first page, in order: the project's
    // state as the tests compare it.
    static std::vector<int> State(const CProjectManager& project) {
        std::vector<int> widths;
        if (project.PageCount() == 0) return widths;
        for (const auto& o : project.GetPage(0)->Objects())
            widths.push_back(o->m_rcStored.Width());
        return widths;
    }
    std::vector<int> StateOnDisk(const QString& file) {
        CProjectManager project;
        EXPECT_TRUE(project.LoadProject(file));
        return State(project);
    }

    QTemporaryDir dir;
    QString workspace, folder;
    UstProjectPaths paths;
};

TEST_F(ProjectStore, PathsOfAProjectByItsFolderOrItsFile) {
    const UstProjectPaths a = ProjectPathsFor(folder);
    const UstProjectPaths b = ProjectPathsFor(QDir(folder).filePath("project.qrdprj"));
    EXPECT_EQ(a.strProjectPath, b.strProjectPath);
    EXPECT_TRUE(a.strProjectPath.endsWith("/Show/project.qrdprj"));
    EXPECT_EQ(a.strBackupPath, a.strProjectPath + ".backup");
    EXPECT_TRUE(a.strFolder.endsWith("/Show/"));
    EXPECT_EQ(a.strDataFolder, a.strFolder + "Data/");
    EXPECT_EQ(a.strObjectFolder, a.strFolder + "Object/");
    EXPECT_EQ(a.strWorkspace, QDir(workspace).absolutePath());
    EXPECT_EQ(a.strTitle, "Show");
}

TEST_F(ProjectStore, OpeningMakesAWorkingFileThatEverySaveWritesAlone) {
    CProjectManager project;
    UstOpenOutcome open = Open(project);
    ASSERT_TRUE(open.bOpened) << open.strError.toStdString();
    EXPECT_FALSE(open.bFromBackup);
    EXPECT_EQ(project.PageCount(), 0);
    ASSERT_TRUE(QFile::exists(paths.strBackupPath));  // saved into at once
    const QByteArray closed = Read(paths.strProjectPath);
    Edit(project, 11);
    ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
    EXPECT_EQ(Read(paths.strProjectPath), closed);  // the project file is untouched
    EXPECT_EQ(StateOnDisk(paths.strBackupPath), std::vector<int>{11});
    // A clean close: the work becomes the project file, in one step.
    ASSERT_TRUE(PromoteWorkingFile(paths));
    EXPECT_FALSE(QFile::exists(paths.strBackupPath));
    EXPECT_EQ(StateOnDisk(paths.strProjectPath), std::vector<int>{11});
}

// The program dies with the project open: what was saved comes back, with
// the recovery mark, and a working file is there again for the new run.
TEST_F(ProjectStore, AfterACrashTheLastSaveComesBack) {
    {
        CProjectManager project;
        ASSERT_TRUE(Open(project).bOpened);
        Edit(project, 11);
        ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
        Edit(project, 22);  // never saved: lost with the crash
    }
    CProjectManager again;
    const UstOpenOutcome open = Open(again);
    ASSERT_TRUE(open.bOpened);
    EXPECT_TRUE(open.bFromBackup);
    EXPECT_EQ(State(again), std::vector<int>{11});
    EXPECT_EQ(StateOnDisk(paths.strProjectPath), std::vector<int>{11});
    EXPECT_TRUE(QFile::exists(paths.strBackupPath));
}

TEST_F(ProjectStore, AfterACrashWithoutASaveTheOpenedStateComesBack) {
    ASSERT_NO_FATAL_FAILURE(SaveAndClose(11));
    {
        CProjectManager project;
        ASSERT_TRUE(Open(project).bOpened);
        Edit(project, 33);  // the crash comes before any save
    }
    CProjectManager again;
    const UstOpenOutcome open = Open(again);
    EXPECT_TRUE(open.bFromBackup);
    EXPECT_EQ(State(again), std::vector<int>{11});
}

// "No" at close drops everything since the project was opened, saves
// included: the project file holds the state from before.
TEST_F(ProjectStore, ClosingWithoutKeepingLeavesTheStateFromBeforeTheOpen) {
    ASSERT_NO_FATAL_FAILURE(SaveAndClose(11));
    CProjectManager project;
    ASSERT_TRUE(Open(project).bOpened);
    Edit(project, 44);
    ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
    ASSERT_TRUE(DiscardWorkingFile(paths));
    EXPECT_EQ(StateOnDisk(paths.strProjectPath), std::vector<int>{11});
    CProjectManager again;
    const UstOpenOutcome open = Open(again);
    EXPECT_FALSE(open.bFromBackup);
    EXPECT_EQ(State(again), std::vector<int>{11});
}

TEST_F(ProjectStore, AWorkingFileWithoutAProjectFileRecreatesIt) {
    {
        CProjectManager project;
        ASSERT_TRUE(Open(project).bOpened);
        Edit(project, 55);
        ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
    }
    ASSERT_TRUE(QFile::remove(paths.strProjectPath));  // died between delete and move
    CProjectManager again;
    const UstOpenOutcome open = Open(again);
    ASSERT_TRUE(open.bOpened);
    EXPECT_TRUE(open.bFromBackup);
    EXPECT_EQ(State(again), std::vector<int>{55});
}

// A working file damaged by something else never replaces a good project
// file: it is kept aside under another name and the user told so.
TEST_F(ProjectStore, ADamagedWorkingFileIsPutAsideNotTrusted) {
    ASSERT_NO_FATAL_FAILURE(SaveAndClose(11));
    QFile bad(paths.strBackupPath);
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write(QByteArray(300, '\x7F'));
    bad.close();
    CProjectManager again;
    const UstOpenOutcome open = Open(again);
    ASSERT_TRUE(open.bOpened) << open.strError.toStdString();
    EXPECT_EQ(State(again), std::vector<int>{11});
    EXPECT_FALSE(open.strNotice.isEmpty());
    EXPECT_EQ(QDir(folder).entryList({"project.qrdprj.backup.damaged-*"}, QDir::Files).size(), 1);
}

TEST_F(ProjectStore, AProjectFileThatDoesNotLoadOpensNothing) {
    QFile f(paths.strProjectPath);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write("not a project");
    f.close();
    CProjectManager project;
    const UstOpenOutcome open = Open(project);
    EXPECT_FALSE(open.bOpened);
    EXPECT_FALSE(open.strError.isEmpty());
    EXPECT_FALSE(QFile::exists(paths.strBackupPath));
    EXPECT_EQ(Read(paths.strProjectPath), QByteArray("not a project"));
}

// A full disk in the middle of a save (a file-size limit makes the write
// fail as a full disk would) leaves the file as it was, whole, and no
// temporary file behind.
TEST_F(ProjectStore, AFailedWriteNeverTearsTheFile) {
    CProjectManager project;
    ASSERT_TRUE(Open(project).bOpened);
    Edit(project, 11);
    ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
    const QByteArray before = Read(paths.strBackupPath);
    for (int i = 0; i < 40; ++i)
        Edit(project, 100 + i);
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = old;
    small.rlim_cur = static_cast<rlim_t>(before.size() + 64);
    setrlimit(RLIMIT_FSIZE, &small);
    QString error;
    const bool saved = SaveWorkingFile(project, paths, &error);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_FALSE(saved);
    EXPECT_TRUE(error.contains("cannot be written")) << error.toStdString();
    EXPECT_EQ(Read(paths.strBackupPath), before);
    EXPECT_EQ(QDir(folder).entryList(QDir::Hidden | QDir::Files).filter(".saving").size(), 0);
    EXPECT_EQ(project.m_bModified, 1);  // still to be saved
    ASSERT_TRUE(SaveWorkingFile(project, paths, &error));
    EXPECT_EQ(StateOnDisk(paths.strBackupPath).size(), 41u);
}

TEST_F(ProjectStore, AReadOnlyFolderRefusesTheSaveAndKeepsTheFile) {
    if (geteuid() == 0) GTEST_SKIP() << "permissions do not bind the super-user";
    CProjectManager project;
    ASSERT_TRUE(Open(project).bOpened);
    const QByteArray before = Read(paths.strBackupPath);
    QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    Edit(project, 11);
    QString error;
    EXPECT_FALSE(SaveWorkingFile(project, paths, &error));
    QFile::setPermissions(folder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(Read(paths.strBackupPath), before);
}

TEST_F(ProjectStore, ASaveKeepsTheBytesItDoesNotReach) {
    CProjectManager project;
    ASSERT_TRUE(Open(project).bOpened);
    QFile f(paths.strBackupPath);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    f.seek(3000);
    f.write("TAIL");
    f.close();
    ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
    EXPECT_EQ(Read(paths.strBackupPath).mid(3000, 4), QByteArray("TAIL"));
    EXPECT_EQ(Read(paths.strBackupPath).size(), 3004);
}

TEST_F(ProjectStore, NewProjectsAndTheirNames) {
    EXPECT_EQ(ProposeProjectName("CGProject9"), "CGProject10");
    EXPECT_EQ(ProposeProjectName("CGProject3"), "CGProject4");
    EXPECT_EQ(ProposeProjectName("Show"), "Show1");
    EXPECT_EQ(ProposeProjectName(""), "1");
    EXPECT_EQ(ProposeProjectName("CGProject19"), "CGProject110");  // only the last digit counts

    ASSERT_TRUE(QDir(workspace).mkdir("CGProject1"));
    const QString made = CreateNumberedProject(workspace);
    EXPECT_TRUE(made.endsWith("/CGProject2/project.qrdprj")) << made.toStdString();
    EXPECT_EQ(Read(made).size(), 4096);
    EXPECT_TRUE(QFileInfo(QDir(workspace).filePath("CGProject2/Data")).isDir());
    EXPECT_TRUE(QFileInfo(QDir(workspace).filePath("CGProject2/Object")).isDir());
    QString error;
    EXPECT_FALSE(CreateProjectFolder(folder, 640, 480, &error));  // exists
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(ProjectStore, TheLastProjectIsReadOnlyWhenItIsWhole) {
    const QString ini = QDir(workspace).filePath("qrdproject.ini");
    EXPECT_FALSE(ReadProjectIni(ini));
    ASSERT_TRUE(WriteProjectIni(ini, {workspace, paths.strProjectPath}));
    const auto read = ReadProjectIni(ini);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->strWorkspace, workspace);
    EXPECT_EQ(read->strProject, paths.strProjectPath);
    ASSERT_TRUE(WriteProjectIni(ini, {workspace, QDir(workspace).filePath("Gone/project.qrdprj")}));
    EXPECT_FALSE(ReadProjectIni(ini));  // points nowhere
    ASSERT_TRUE(WriteProjectIni(ini, {"", paths.strProjectPath}));
    EXPECT_FALSE(ReadProjectIni(ini));
}

TEST_F(ProjectStore, TheScannerListsProjectsButNotOpenOnesOrOldOnes) {
    ASSERT_TRUE(CreateProjectFolder(QDir(workspace).filePath("Second"), 640, 480, nullptr));
    ASSERT_TRUE(CreateProjectFolder(QDir(workspace).filePath(".hidden"), 1920, 1080, nullptr));
    ASSERT_TRUE(CreateProjectFolder(QDir(workspace).filePath("Old"), 1920, 1080, nullptr));
    const QString old = QDir(workspace).filePath("Old/project.qrdprj");
    QFile f(old);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    const float v12 = 1.2f;
    f.write(reinterpret_cast<const char*>(&v12), 4);
    f.close();
    QDir(workspace).mkdir("NotAProject");

    auto names = [](const std::vector<UstPrjThumb>& rows) {
        QStringList out;
        for (const UstPrjThumb& r : rows)
            out << QFileInfo(r.strPath).absoluteDir().dirName();
        return out;
    };
    EXPECT_EQ(names(ScanWorkspace(workspace, {}, false)), (QStringList{"Second", "Show"}));
    EXPECT_EQ(names(ScanWorkspace(workspace, {paths.strProjectPath}, false)),
              QStringList{"Second"});
    const auto rows = ScanWorkspace(workspace, {}, false);
    EXPECT_EQ(rows[0].nPages, 0);
    EXPECT_TRUE(QRegularExpression("^\\d{4}-\\d\\d-\\d\\d (AM|PM) \\d\\d:\\d\\d$")
                    .match(rows[0].strModified)
                    .hasMatch())
        << rows[0].strModified.toStdString();
}

// A wide project's first page stands letterboxed from row 15 on a hatch;
// the icon is top row first and opaque.
TEST_F(ProjectStore, ThePreviewIsTheFirstPageLetterboxed) {
    CProjectManager project;
    ASSERT_TRUE(Open(project).bOpened);
    project.InsertPage(-1);
    CPageManager* page = project.GetPage(0);
    UstAttr red = MakeDefaultAttr();
    red.fill[UstAttr::BODY].clrSolid = 0xFFFF0000u;
    page->AddObject(
        std::make_unique<CQRDObjectShape>(nullptr, 0, UstRect{0, 0, 1920, 540}, red, UstEffect{}));
    page->UpdateThumbnail();
    page->SetModified(true);
    ASSERT_TRUE(SaveWorkingFile(project, paths, nullptr));
    ASSERT_TRUE(PromoteWorkingFile(paths));
    const auto row = ReadProjectInfo(paths.strProjectPath, true);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->nPages, 1);
    ASSERT_EQ(row->pBits.size(), 160u * 120u);
    auto at = [&](int x, int y) { return row->pBits[static_cast<size_t>(y) * 160 + x]; };
    EXPECT_EQ(at(80, 20), 0xFFFF0000u);      // the red top half of the page
    EXPECT_EQ(at(80, 100) & 0xFFFFFFu, 0u);  // the empty bottom half, made opaque
    const uint32_t band = at(3, 3);
    EXPECT_TRUE(band == 0xFF808080u || band == 0xFF0000FFu);  // the hatch above
    EXPECT_FALSE(ReadProjectInfo(paths.strProjectPath, false)->pBits.size());
}

}  // namespace
}  // namespace orv
