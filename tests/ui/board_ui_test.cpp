// The frame's side of the output board: the Output menu, the mode name, the
// Hardware Configuration dialog, the word of a failed output and the
// program monitor.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QStatusBar>

#include <cstring>

#include "board/hd_extreme.h"
#include "board/test_board.h"
#include "frame_fixture.h"
#include "ui/config_decklink_dialog.h"
#include "ui/main_frame.h"
#include "ui/program_monitor.h"

namespace orv {
namespace {

class BoardUi : public test::CFrameFixture {
protected:
    std::unique_ptr<CMainFrame> FrameWith(CGBoard* board) {
        auto frame = std::make_unique<CMainFrame>(m_folders, 9, board);
        EXPECT_TRUE(frame->OnCreate());
        return frame;
    }
    static UstBoardOptions Options(const char* output) {
        UstBoardOptions o;
        UstOutputChoice choice;
        EXPECT_TRUE(ParseOutputChoice(output, choice));
        o.output = choice;
        return o;
    }
};

TEST_F(BoardUi, OutputMenuNeedsABoardAndTheModePaneNamesIt) {
    auto plain = FrameWith(nullptr);
    EXPECT_FALSE(plain->findChild<QAction*>("cmd757")->isEnabled());
    EXPECT_FALSE(plain->findChild<QAction*>("cmd758")->isEnabled());
    EXPECT_EQ(plain->StatusPane(2)->text(), "HD 1920 x 1080");
    CTestBoard board(MakeVideoMode(1280, 720, 200000));
    auto frame = FrameWith(&board);
    QAction* configure = frame->findChild<QAction*>("cmd757");
    EXPECT_TRUE(configure->isEnabled());
    EXPECT_EQ(configure->text(), "Configure");
    EXPECT_EQ(configure->statusTip(), "Hardware Configuration");
    EXPECT_EQ(frame->findChild<QAction*>("cmd758")->text(), "Reset");
    EXPECT_EQ(frame->StatusPane(2)->text(), "HD 1280 x 720");
    frame->OnHardwareConfiguration();  // a board without a dialog: nothing to ask
}

TEST_F(BoardUi, TestCardGoesOnAndOffAtTheOrigin) {
    CTestBoard board(MakeVideoMode(720, 576, 400000));
    board.SetOrigin(4000, 10);
    auto frame = FrameWith(&board);
    frame->m_nPlayState = 1;
    frame->SendTestCard(true);  // not while playing
    EXPECT_EQ(board.View()[0], 0u);
    frame->m_nPlayState = 0;
    frame->SendTestCard(true);
    const std::vector<uint32_t> view = board.View();
    EXPECT_EQ(view[0], 0xFFBFBFBFu);                // the first bar
    EXPECT_EQ(view[719], 0xFF0000BFu);              // the last
    EXPECT_EQ(view[575 * 720], 0u);                 // the ramp starts transparent
    EXPECT_EQ(view[575 * 720 + 719], 0xFFFFFFFFu);  // and ends at full white
    EXPECT_EQ(view[400 * 720 + 359], 0x7F7F7F7Fu);  // 359 x 255 / 719
    frame->SendTestCard(false);
    for (uint32_t v : board.View())
        ASSERT_EQ(v, 0u);
}

TEST_F(BoardUi, DialogRowsSelectionAndCancel) {
    IF_HDExtreme board(Options("null"));
    UstBoardRecord opening;
    std::memcpy(&opening, &board.Record(), sizeof opening);
    CDlgConfigDecklink dlg(board);
    auto* device = dlg.findChild<QComboBox*>("1130");
    auto* video = dlg.findChild<QComboBox*>("1131");
    auto* audio = dlg.findChild<QComboBox*>("1132");
    EXPECT_EQ(device->count(), 0);  // no card answered
    ASSERT_EQ(video->count(), 15);
    EXPECT_EQ(video->currentText(), "HD 1080i 59.94 8-bit RGB");
    EXPECT_EQ(video->itemText(9), "HD 1080p 25 8-bit RGB");
    EXPECT_EQ(audio->currentText(), "2 channels, 48.0kHz, 16-bit");
    EXPECT_TRUE(dlg.findChild<QRadioButton*>("1134")->isChecked());
    // Two new modes: each reaches the output at once.
    video->setCurrentIndex(1);
    EXPECT_EQ(board.GetPipeline()->Format().nHeight, 576);
    video->setCurrentIndex(2);
    EXPECT_EQ(board.GetFrameSize(0), (UstSize{1280, 720}));
    EXPECT_EQ(dlg.m_bGraphChanged, 1);
    dlg.findChild<QRadioButton*>("1133")->click();
    EXPECT_EQ(board.Record().nKeyMode, 0);
    dlg.reject();  // the opening's mode comes back, the key mode with it
    EXPECT_EQ(std::memcmp(&board.Record(), &opening, sizeof opening), 0);
    EXPECT_EQ(board.GetPipeline()->Format().nWidth, 1920);
}

TEST_F(BoardUi, KeyModeAloneSurvivesCancelAndOkTakesTheOutput) {
    IF_HDExtreme board(Options("null"));
    {
        CDlgConfigDecklink dlg(board);
        dlg.findChild<QRadioButton*>("1133")->click();
        EXPECT_EQ(dlg.m_bChanged, 1);
        EXPECT_EQ(dlg.m_bGraphChanged, 0);
        dlg.reject();
        EXPECT_EQ(board.Record().nKeyMode, 0);
    }
    CDlgConfigDecklink dlg(board);
    auto* output = dlg.findChild<QComboBox*>("output");
    output->setCurrentIndex(output->findData(static_cast<int>(EOutputKind::SRT)));
    dlg.findChild<QLineEdit*>("target")->setText("127.0.0.1:9710?mode=listener");
    dlg.accept();
    EXPECT_EQ(FormatOutputChoice(board.Output()), "srt://127.0.0.1:9710?mode=listener");
}

TEST_F(BoardUi, RowWithoutTextShiftsTheRowsAfterIt) {
    IF_HDExtreme board(Options("null"));
    auto& modes = board.GetPipeline()->m_VideoModes;
    modes.insert(modes.begin(), MakeVideoMode(1920, 600, 400000));
    CDlgConfigDecklink dlg(board);
    auto* video = dlg.findChild<QComboBox*>("1131");
    EXPECT_EQ(video->count(), 15);
    // The record's row is 7 in the list, so the box shows its own row 7.
    EXPECT_EQ(video->currentIndex(), 7);
    EXPECT_EQ(video->currentText(), "HD 1080p 23.98 8-bit RGB");
    video->setCurrentIndex(0);  // "NTSC 8-bit RGB" picks the list's row 0
    EXPECT_EQ(board.Record().nHeight, 600);
}

TEST_F(BoardUi, FailedOutputIsSaidInTheStatusBar) {
    IF_HDExtreme board(Options("file:/no/such/folder/x.mkv"));
    auto frame = FrameWith(&board);
    EXPECT_TRUE(frame->statusBar()->currentMessage().contains("file:/no/such/folder/x.mkv"));
    IF_HDExtreme monitored(Options("monitor"));
    auto second = FrameWith(&monitored);
    ASSERT_NE(second->ProgramMonitor(), nullptr);
    EXPECT_TRUE(second->ProgramMonitor()->isVisible());
    EXPECT_TRUE(second->statusBar()->currentMessage().isEmpty());
}

TEST_F(BoardUi, MonitorKeysTheOutputOverItsBackground) {
    CTestBoard board(MakeVideoMode(1280, 720, 200000));
    CProgramMonitor monitor(board.GetPipeline());
    monitor.SetBackground(CProgramMonitor::BACK_CHECKER);
    EXPECT_FALSE(monitor.TakeFrame());
    board.FillRect(0, 0, board.GetChannelCanvas(0), 1280, 720, 0x80800000u);  // red, half key
    board.Tick();
    ASSERT_TRUE(monitor.TakeFrame());
    EXPECT_FALSE(monitor.TakeFrame());
    QImage shown = monitor.Composed();
    ASSERT_EQ(shown.size(), QSize(1280, 720));
    // Over white: 128 + 255 x 127/255; over the grey square: 128 + 204 x 127/255.
    EXPECT_EQ(shown.pixel(0, 0), qRgb(255, 127, 127));
    const QRgb grey = shown.pixel(16, 0);
    EXPECT_NEAR(qRed(grey), 230, 1);
    EXPECT_NEAR(qGreen(grey), 102, 1);
    board.SetKeyLevel(0);
    board.Tick();
    monitor.SetBackground(CProgramMonitor::BACK_COLOUR, QColor(0, 0, 255));
    ASSERT_TRUE(monitor.TakeFrame());
    EXPECT_EQ(monitor.Composed().pixel(5, 5), qRgb(0, 0, 255));  // the key is off
}

}  // namespace
}  // namespace orv
