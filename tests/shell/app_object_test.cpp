#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "board/test_board.h"
#include "shell/app_object.h"
#include "shell/frame_rules.h"
#include "shell/instance_lock.h"
#include "test_util.h"

namespace orv {
namespace {

class CRecordingHost : public IAppHost {
public:
    std::vector<std::string> calls;
    bool bFrameOk = true;
    bool bRecovery = false;
    bool InitToolkit() override { return Note("toolkit"); }
    void ApplyLanguage(uint16_t language) override { Note("language " + std::to_string(language)); }
    bool CreateMainFrame() override { return Note("frame") && bFrameOk; }
    bool ProcessShellCommand() override { return Note("command"); }
    void OpenStartProject() override { Note("project"); }
    int CurrentPageFormat() override { return Note("format") ? 0 : 0; }
    void ShowMainFrame() override { Note("show"); }
    void CreatePlayEngine() override { Note("engine"); }
    bool ActiveProjectNeedsRecovery() override { return Note("recovery?") && bRecovery; }
    void ShowRecoveryMessage() override { Note("recovery message"); }
    void FocusMainFrame() override { Note("focus"); }

private:
    bool Note(const std::string& s) {
        calls.push_back(s);
        return true;
    }
};

class AppStart : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_home.isValid());
        setenv("ORVANTIS_HOME", m_home.path().toLocal8Bit().constData(), 1);
    }
    void TearDown() override { unsetenv("ORVANTIS_HOME"); }
    std::filesystem::path Lock() const { return test::TempPath(m_home, "lock"); }
    QTemporaryDir m_home;
};

TEST_F(AppStart, StepsRunInTheirOrder) {
    CZevrantApp app;
    CRecordingHost host;
    host.bRecovery = true;
    ASSERT_EQ(app.InitInstance(host, "/opt/orv", Lock()), EStartResult::STARTED);
    const std::vector<std::string> expected = {"toolkit",   "language 9",       "frame", "command",
                                               "project",   "format",           "show",  "engine",
                                               "recovery?", "recovery message", "focus"};
    EXPECT_EQ(host.calls, expected);
    EXPECT_EQ(app.m_bStarted, 1);
    EXPECT_EQ(app.m_nPageFormat, 0);
    EXPECT_TRUE(std::filesystem::is_directory(app.Folders().workspacesFolder));
    EXPECT_EQ(CZevrantApp::Get(), &app);
}

TEST_F(AppStart, SecondInstanceEndsBeforeAnyWindowWork) {
    CInstanceLock first;
    ASSERT_TRUE(first.Acquire(Lock()));
    CZevrantApp app;
    CRecordingHost host;
    EXPECT_EQ(app.InitInstance(host, "/opt/orv", Lock()), EStartResult::ALREADY_RUNNING);
    EXPECT_TRUE(host.calls.empty());
    EXPECT_FALSE(std::filesystem::exists(test::TempPath(m_home, ".local")));
}

TEST_F(AppStart, FrameFailureEndsStartUp) {
    CZevrantApp app;
    CRecordingHost host;
    host.bFrameOk = false;
    EXPECT_EQ(app.InitInstance(host, "/opt/orv", Lock()), EStartResult::FAILED);
    EXPECT_EQ(host.calls.back(), "frame");
    EXPECT_EQ(app.m_bStarted, 0);
}

TEST_F(AppStart, ExitWritesTheLastProjectOnlyWhenThereIsOne) {
    CZevrantApp app;
    CRecordingHost host;
    ASSERT_EQ(app.InitInstance(host, "/opt/orv", Lock()), EStartResult::STARTED);
    app.ExitInstance();
    EXPECT_FALSE(std::filesystem::exists(app.Folders().ProjectIni()));
    app.m_strWorkspacePath = "/w";
    app.m_strProjectPath = "/w/p/project.qrdprj";
    app.ExitInstance();
    EXPECT_EQ(test::ReadFile(app.Folders().ProjectIni()),
              "[QRD_PROJECT_INI]\r\nWorkspace=/w\r\nProject=/w/p/project.qrdprj\r\n");
}

// Without a card the board still opens: the editor runs exactly as on one.
TEST_F(AppStart, BoardOpensWithoutACardAndClosesAtExit) {
    CZevrantApp app;
    CRecordingHost host;
    UstBoardOptions options;
    CfgVideo pal;
    ASSERT_TRUE(ModeByShortName("pal", pal));
    options.mode = pal;  // for this run only
    app.SetBoardOptions(options);
    ASSERT_EQ(app.InitInstance(host, "/opt/orv", Lock()), EStartResult::STARTED);
    ASSERT_NE(app.m_pBoard, nullptr);
    EXPECT_EQ(app.m_nBoardType, 6);
    EXPECT_EQ(app.GetFrameSize(), (UstSize{720, 576}));
    EXPECT_DOUBLE_EQ(app.GetPixelAspect().fVert, 1.2f);
    EXPECT_EQ(app.GetThumbSize(), (UstSize{300, 225}));
    const auto log = app.m_arrStartLog;
    EXPECT_LT(std::find(log.begin(), log.end(), "board"),
              std::find(log.begin(), log.end(), "frame"));
    const auto ini = app.Folders().BoardIni();
    EXPECT_FALSE(std::filesystem::exists(ini));
    app.ExitInstance();
    EXPECT_EQ(app.m_pBoard, nullptr);
    UstBoardRecord rec = DefaultBoardRecord();
    ASSERT_TRUE(LoadBoardRecord(ini, rec));
    EXPECT_EQ(rec.nHeight, 1080);
}

TEST_F(AppStart, BoardThatIsNotReadyIsGivenUp) {
    CZevrantApp app;
    CRecordingHost host;
    app.SetBoardMaker([](const UstFolders&) {
        auto board = std::make_unique<CTestBoard>(MakeVideoMode(1280, 720, 200000));
        board->Close();  // its canvas is gone: not ready
        return board;
    });
    ASSERT_EQ(app.InitInstance(host, "/opt/orv", Lock()), EStartResult::STARTED);
    EXPECT_EQ(app.m_pBoard, nullptr);
    EXPECT_EQ(app.m_nBoardType, 0);
    EXPECT_EQ(app.GetFrameSize(), (UstSize{1920, 1080}));
    EXPECT_EQ(StatusModeName(app.m_pBoard, 1920), "HD 1920 x 1080");
}

TEST(StatusMode, BoardNameOrTheProjectsOldName) {
    CTestBoard hd720(MakeVideoMode(1280, 720, 200000));
    EXPECT_EQ(StatusModeName(&hd720, 1920), "HD 1280 x 720");
    EXPECT_EQ(StatusModeName(nullptr, 640), "NTSC 720 x 480");
    EXPECT_EQ(StatusModeName(nullptr, 1920), "HD 1920 x 1080");
    EXPECT_EQ(StatusModeName(nullptr, 720), "");
}

TEST(InstanceLock, OneHolderAtATime) {
    QTemporaryDir dir;
    const auto file = test::TempPath(dir, "x.lock");
    {
        CInstanceLock a, b;
        ASSERT_TRUE(a.Acquire(file));
        EXPECT_FALSE(b.Acquire(file));
        EXPECT_TRUE(b.AlreadyRunning());
    }
    CInstanceLock c;
    EXPECT_TRUE(c.Acquire(file));  // released with its holder
    CInstanceLock d;
    EXPECT_FALSE(d.Acquire(test::TempPath(dir, "no/such/folder.lock")));
    EXPECT_FALSE(d.AlreadyRunning());
}

TEST(AppAnswers, FrameThumbnailAndAspect) {
    CZevrantApp app;
    EXPECT_EQ(app.GetFrameSize(), (UstSize{1920, 1080}));
    EXPECT_EQ(app.GetThumbSize(), (UstSize{300, 170}));
    EXPECT_EQ(CZevrantApp::ThumbSizeFor(0, 1, 720), (UstSize{300, 170}));
    EXPECT_EQ(CZevrantApp::ThumbSizeFor(0, 1, 576), (UstSize{300, 225}));
    EXPECT_EQ(CZevrantApp::ThumbSizeFor(0, 0, 486), (UstSize{300, 225}));
    // Board type 5 goes by the page format and never by the height.
    EXPECT_EQ(CZevrantApp::ThumbSizeFor(5, 1, 576), (UstSize{300, 170}));
    EXPECT_EQ(CZevrantApp::ThumbSizeFor(5, 0, 1080), (UstSize{300, 225}));
    struct {
        int h;
        double x, y;
    } aspects[] = {{486, 1.125, 1.0},
                   {576, 1.125, 1.2},
                   {720, 0.66667, 0.66667},
                   {1080, 1.0, 1.0},
                   {480, 1.0, 1.0}};
    for (const auto& a : aspects) {
        EXPECT_DOUBLE_EQ(CZevrantApp::AspectForHeight(a.h).fHorz, a.x) << a.h;
        EXPECT_DOUBLE_EQ(CZevrantApp::AspectForHeight(a.h).fVert, a.y) << a.h;
    }
    const UstAspect none = app.GetPixelAspect();
    EXPECT_DOUBLE_EQ(none.fHorz, 1.0);
}

}  // namespace
}  // namespace orv
