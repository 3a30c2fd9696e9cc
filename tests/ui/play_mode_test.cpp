// Play mode in the editor: entering and leaving with the panes and the
// ribbon, the refusals while on air, the keypad reaching the list pane and
// through it the engine, the monitors and the list panes following the
// engine's states.
#include <gtest/gtest.h>

#include <QAction>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>
#include <QSpinBox>

#include "board/test_board.h"
#include "modal_answers.h"
#include "play_frame_fixture.h"
#include "playout/effect_table.h"
#include "project/project_manager.h"
#include "support/rect_object.h"
#include "ui/auto_dlg.h"
#include "ui/play_dlg.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {
namespace {

constexpr const uint32_t* COLOURS = test::PAGE_COLOURS;

class PlayModeTest : public test::CPlayFrameFixture {
protected:
    void Key(int vk, bool extended = false) {
        UstKeyInfo key;
        key.nVk = vk;
        key.bExtended = extended;
        frame->DispatchKey(key);
    }
    CPropAuto* List() { return frame->AutoDlg()->Auto(); }
};

TEST_F(PlayModeTest, EnteringShowsThePanesAndLockTheRibbonLeavingGivesThemBack) {
    doc->Project().GoToPage(1);
    frame->findChild<QAction*>("cmd777")->trigger();
    EXPECT_EQ(frame->m_nPlayState, 1);
    EXPECT_TRUE(frame->findChild<QDockWidget*>("pane555")->isVisible());
    EXPECT_TRUE(frame->Pane(553)->isVisible());
    EXPECT_EQ(List()->Cursor(), 1);  // the page under edit
    // File goes off; View and Help keep commands with rules of their own,
    // and the canvas menu keeps Play.
    for (QAction* menu : frame->menuBar()->actions())
        EXPECT_EQ(menu->isEnabled(), menu->text() != "&File") << menu->text().toStdString();
    EXPECT_TRUE(frame->findChild<QAction*>("cmd781")->isEnabled());
    EXPECT_FALSE(frame->findChild<QAction*>("cmd57643")->isEnabled());
    EXPECT_EQ(List()->findChild<QSpinBox*>("ctl1041")->maximum(), 3);
    EXPECT_EQ(List()->findChild<QSpinBox*>("ctl1059")->maximum(), 10000);

    test::CModalAnswers answers;
    answers.Message();
    EXPECT_FALSE(frame->CloseProjectOf(view));
    answers.Message();
    frame->m_nPlayState = 2;
    frame->TogglePlayMode();
    EXPECT_EQ(frame->m_nPlayState, 2);
    EXPECT_EQ(answers.Said(), (QStringList{"Please exit play mode to close project.",
                                           "Please stop automatic play out to exit play mode."}));
    frame->m_nPlayState = 1;
    Key(vk::NEXT);  // the keypad's Page Down
    frame->TogglePlayMode();
    EXPECT_EQ(frame->m_nPlayState, 0);
    EXPECT_FALSE(frame->Pane(553)->isVisible());
    EXPECT_EQ(doc->Project().m_nCurPage, 2);  // the list's cursor is edited again
    for (QAction* menu : frame->menuBar()->actions())
        EXPECT_TRUE(menu->isEnabled());
    EXPECT_TRUE(frame->findChild<QAction*>("cmd57643")->isEnabled());
}

// Enter on the keypad takes the cursor's page in, the next takes it off,
// and the panes mark the page on air; Page Down moves on; F12 empties.
TEST_F(PlayModeTest, KeypadStepsTheListThroughTheEngine) {
    frame->EnterPlayMode();
    Key(vk::RETURN, true);
    ASSERT_TRUE(Until([&] { return AirCentre() == COLOURS[0]; }));
    auto* play = qobject_cast<CPlayCellList*>(frame->Pane(553)->widget());
    ASSERT_TRUE(Until([&] { return play->OnAir() == 0 && frame->m_nPlayState == 1; }));
    EXPECT_EQ(List()->findChild<QLabel*>("onair")->text(), "ON AIR: page 1");
    EXPECT_FALSE(doc->Project().IsPageDeletable(0));  // the page held for play-out
    EXPECT_TRUE(doc->Project().IsPageDeletable(1));
    Key(vk::RETURN, true);
    ASSERT_TRUE(Until([&] { return play->OnAir() == -1 && frame->m_nPlayState == 1; }));
    EXPECT_EQ(AirCentre(), 0u);
    Key(vk::F9);  // as Page Down: the page after the one that will come
    EXPECT_EQ(List()->Cursor(), 2);
    Key(vk::RETURN, true);
    ASSERT_TRUE(Until([&] { return AirCentre() == COLOURS[2]; }));
    Key(vk::F12);
    ASSERT_TRUE(Until([&] { return AirCentre() == 0u; }));
    EXPECT_EQ(frame->PlayEngine()->State(), PLAY_IDLE);
}

// MoveTo takes a page number from the keypad's digits and jumps there.
TEST_F(PlayModeTest, MoveToJumpsToThePageTyped) {
    frame->EnterPlayMode();
    Key(vk::DIVIDE);
    Key(vk::NUMPAD0 + 3);
    EXPECT_EQ(List()->findChild<QLineEdit*>("ctl1060")->text(), "3");
    Key(vk::RETURN, true);
    EXPECT_EQ(List()->Cursor(), 2);
    EXPECT_TRUE(List()->findChild<QLineEdit*>("ctl1060")->text().isEmpty());
    EXPECT_EQ(frame->PlayEngine()->State(), PLAY_IDLE);  // a jump, not a take
}

// Automatic play runs the range and ends by itself; the window is in state
// 2 while it runs, and End below Start is set to Start at Run.
TEST_F(PlayModeTest, AutomaticPlayRunsTheRangeAndReturnsToPlayState) {
    frame->EnterPlayMode();
    doc->Project().GetPage(1)->m_effect.nInDelay = 1;  // long enough to be seen running
    EXPECT_EQ(List()->findChild<QSpinBox*>("ctl1050")->value(), 3);  // the whole list at first
    List()->findChild<QSpinBox*>("ctl1050")->setValue(1);
    List()->findChild<QSpinBox*>("ctl1041")->setValue(2);
    EXPECT_EQ(List()->findChild<QSpinBox*>("ctl1050")->value(), 2);  // pushed up with Start
    List()->findChild<QSpinBox*>("ctl1050")->setValue(1);
    EXPECT_EQ(List()->List().m_nEnd.load(), 0);
    List()->findChild<QRadioButton*>("ctl1087")->click();
    EXPECT_EQ(List()->Cursor(), 1);  // Auto puts the cursor on Start
    Key(vk::RETURN, true);
    EXPECT_EQ(List()->List().m_nEnd.load(), 1);
    EXPECT_EQ(List()->findChild<QSpinBox*>("ctl1050")->value(), 2);
    ASSERT_TRUE(Until([&] { return frame->m_nPlayState == 2; }));
    ASSERT_TRUE(Until([&] {
        return frame->m_nPlayState == 1 && frame->PlayEngine()->State() == PLAY_IDLE &&
               !frame->PlayEngine()->IsRunning();
    }));
    EXPECT_EQ(AirCentre(), 0u);
}

// Without a board the keys reach nothing.
TEST_F(PlayModeTest, EditKeysPlayTheActivePageOnlyWithABoard) {
    Key(vk::RETURN, true);
    ASSERT_TRUE(Until([&] { return AirCentre() == COLOURS[0]; }));
    Key(vk::F12);
    ASSERT_TRUE(Until([&] { return AirCentre() == 0u; }));
    CMainFrame bare(m_folders, 9, nullptr);
    ASSERT_TRUE(bare.OnCreate());
    bare.CreatePlayEngine();
    EXPECT_FALSE(bare.ActivePageFitsBoard());
}

}  // namespace
}  // namespace orv
