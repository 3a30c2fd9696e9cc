#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QSettings>
#include <QTimer>

#include "frame_fixture.h"
#include "project/profile_file.h"
#include "shell/settings_files.h"
#include "test_util.h"
#include "ui/main_frame.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {
namespace {

using MainFrameTest = test::CFrameFixture;

TEST_F(MainFrameTest, TitlePanesAndStatusBar) {
    auto frame = MakeFrame(9);
    EXPECT_EQ(frame->windowTitle(), "Orvantis-HD Ver1.62");
    const int ids[] = {100, 101, 102, 5, 104}, widths[] = {100, 50, 100, 100, 150};
    for (int i = 0; i < 5; ++i) {
        ASSERT_NE(frame->StatusPane(i), nullptr);
        EXPECT_EQ(frame->StatusPane(i)->objectName(), QString("pane%1").arg(ids[i]));
        EXPECT_EQ(frame->StatusPane(i)->minimumWidth(), widths[i]);
    }
    const struct {
        int id;
        const char* title;
        int minW, maxW;
        bool hidden;
    } panes[] = {{550, "Slide", 140, 340, false},
                 {551, "Outline", 140, 340, false},
                 {553, "Play", 170, 170, true},
                 {554, "Text", 170, 170, true}};
    for (const auto& p : panes) {
        QDockWidget* dock = frame->Pane(p.id);
        ASSERT_NE(dock, nullptr) << p.id;
        EXPECT_EQ(dock->windowTitle(), p.title);
        EXPECT_EQ(dock->minimumWidth(), p.minW);
        EXPECT_EQ(dock->maximumWidth(), p.maxW);
        EXPECT_EQ(dock->isHidden(), p.hidden) << p.id;
    }
    EXPECT_TRUE(frame->tabifiedDockWidgets(frame->Pane(550)).contains(frame->Pane(551)));
    frame->Pane(553)->show();  // play mode shows them, still together
    frame->Pane(554)->show();
    EXPECT_TRUE(frame->tabifiedDockWidgets(frame->Pane(553)).contains(frame->Pane(554)));
}

TEST_F(MainFrameTest, CanvasShowsThePageOnTheSurround) {
    auto frame = MakeFrame(9);
    CZevrantDoc doc;
    CZevrantView* view = frame->AddProjectWindow(&doc);
    frame->resize(760, 560);  // below the offscreen screen's size
    frame->show();
    QApplication::processEvents();
    ASSERT_NE(view->Surface(), nullptr);
    const QRect page = view->PageRect();
    EXPECT_EQ(page.width(), view->FitWidth());
    EXPECT_LE(page.width(), view->width() - 10);
    EXPECT_EQ(page.width() * 1080, page.height() * 1920);
    EXPECT_EQ(frame->m_fZoom * 1920 / 100, page.width());
    const QImage shot = view->grab().toImage();
    EXPECT_EQ(shot.pixel(0, 0), CZevrantView::SURROUND);
    // The top left check is light; the centre cross runs through the middle.
    const QPoint inside = page.topLeft() + QPoint(1, 1);
    EXPECT_EQ(shot.pixel(inside), 0xFFE0E0E0u);
    EXPECT_EQ(shot.pixel(page.left() + page.width() / 2, page.top() + 1), 0xFF000000u);
}

TEST_F(MainFrameTest, LayoutIsKeptPerLanguage) {
    {
        auto frame = MakeFrame(18);
        frame->show();
        QApplication::processEvents();
        EXPECT_TRUE(frame->close());
    }
    QSettings settings;
    EXPECT_TRUE(settings.contains("LayoutMTFX18"));
    EXPECT_TRUE(settings.contains("CmdBarsMTFX18"));
    EXPECT_FALSE(settings.contains("LayoutMTFX9"));
    EXPECT_EQ(CMainFrame::LayoutName("LayoutMTFX", 9), "LayoutMTFX9");
}

TEST_F(MainFrameTest, AutoSaveTimerFollowsTheSettingAndStopsOnClose) {
    auto frame = MakeFrame(9);
    EXPECT_EQ(frame->AutoSaveInterval(), 5 * 60000);
    frame->m_Env.nAutoSaveMin = 7;
    frame->RestartAutoSaveTimer();
    EXPECT_EQ(frame->AutoSaveInterval(), 7 * 60000);
    frame->show();
    EXPECT_TRUE(frame->close());
    EXPECT_EQ(frame->AutoSaveInterval(), 0);
}

TEST_F(MainFrameTest, SettingsAreWrittenOnlyWhenTheFrameGoes) {
    auto frame = MakeFrame(9);
    frame->m_Env.nGridStep = 37;
    UstEnv onDisk;
    ASSERT_TRUE(GetProfileStruct(m_folders.EnvIni(), ENV_SECTION, ENV_KEY, &onDisk, sizeof onDisk));
    EXPECT_EQ(+onDisk.nGridStep, 10u);
    frame.reset();
    ASSERT_TRUE(GetProfileStruct(m_folders.EnvIni(), ENV_SECTION, ENV_KEY, &onDisk, sizeof onDisk));
    EXPECT_EQ(+onDisk.nGridStep, 37u);
    EXPECT_TRUE(std::filesystem::exists(m_folders.DataIni()));
}

TEST_F(MainFrameTest, ClosingIsRefusedOnlyDuringAutomaticPlayOut) {
    auto frame = MakeFrame(9);
    frame->m_nPlayState = 2;
    QString shown;
    QTimer::singleShot(0, [&] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            shown = box->findChild<QLabel*>("qt_msgbox_label")->text();
            box->close();
        }
    });
    QCloseEvent refused;
    QApplication::sendEvent(frame.get(), &refused);
    EXPECT_FALSE(refused.isAccepted());
    EXPECT_EQ(shown, "Please stop automatic play out to exit play mode.");
    EXPECT_EQ(frame->m_nPlayState, 2);
    frame->m_nPlayState = 1;
    QCloseEvent accepted;
    QApplication::sendEvent(frame.get(), &accepted);
    EXPECT_TRUE(accepted.isAccepted());
    EXPECT_EQ(frame->m_nPlayState, 0);
}

}  // namespace
}  // namespace orv
