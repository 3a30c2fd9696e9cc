// The card's board: its record in board.ini, written only when it closes,
// and what the command line and the dialog change in it.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <string>

#include "board/hd_extreme.h"
#include "project/profile_file.h"
#include "test_util.h"

namespace orv {
namespace {

using test::ReadFile;
using test::TempPath;

// The default record, byte by byte, then the low byte of their sum.
const std::string DEFAULT_RECORD_HEX =
    "80070000"          // width 1920
    "38040000"          // height 1080
    "6317050000000000"  // 333667
    "0000000000000000"  // the mode row's two words
    "02001000"          // 2 channels, 16 bits
    "80BB0000"          // 48000
    "00000000"
    "01000000"  // external key
    + std::string(128, '0') + "90";

class BoardFile : public testing::Test {
protected:
    UstBoardOptions Options() const {
        UstBoardOptions o;
        o.iniFile = m_ini;
        return o;
    }
    QTemporaryDir m_dir;
    std::filesystem::path m_ini = TempPath(m_dir, "board.ini");
};

TEST_F(BoardFile, RecordIsWrittenOnlyWhenTheBoardCloses) {
    IF_HDExtreme board(Options());
    EXPECT_EQ(board.IsOpen(), 1);
    EXPECT_EQ(board.GetBoardType(), 6);
    EXPECT_EQ(board.GetChannelCanvas(0)[4096 * 4096 - 1], 0u);
    EXPECT_FALSE(std::filesystem::exists(m_ini));
    board.Close();
    EXPECT_EQ(board.IsOpen(), 0);
    EXPECT_EQ(board.GetChannelCanvas(0), nullptr);
    EXPECT_EQ(ReadFile(m_ini), "[QRD_BOARD_INI]\r\nOrvantis-HD=" + DEFAULT_RECORD_HEX +
                                   "\r\n[QRD_BOARD_OUTPUT]\r\nOutput=card\r\nQueue=3\r\n");
    std::filesystem::remove(m_ini);
    board.Close();  // closed already: nothing written
    EXPECT_FALSE(std::filesystem::exists(m_ini));
}

TEST_F(BoardFile, SavedModeComesBackAndDamageGivesDefaults) {
    UstBoardRecord rec = DefaultBoardRecord();
    ApplyVideoMode(rec, MakeVideoMode(720, 576, 400000));
    rec.nKeyMode = 0;
    SetRecordDeviceName(rec, QString(40, QChar('x')));
    ASSERT_TRUE(SaveBoardRecord(m_ini, rec));
    {
        IF_HDExtreme board(Options());
        EXPECT_EQ(board.GetFrameSize(1), (UstSize{720, 576}));
        EXPECT_EQ(board.GetModeName(), "PAL 720 x 576");
        EXPECT_EQ(board.Record().nKeyMode, 0);
        EXPECT_EQ(RecordDeviceName(board.Record()), QString(31, QChar('x')));
        EXPECT_EQ(board.GetPipeline()->Format().nWidth, 720);
    }
    std::string text = ReadFile(m_ini);
    text[text.find('=') + 1] ^= 1;  // one digit off: the checksum fails
    test::WriteFile(m_ini, text);
    IF_HDExtreme damaged(Options());
    EXPECT_EQ(damaged.GetFrameSize(0), (UstSize{1920, 1080}));
    damaged.Close();
    rec.nWidth = 0;  // a record that reads well but names no mode
    ASSERT_TRUE(SaveBoardRecord(m_ini, rec));
    IF_HDExtreme empty(Options());
    EXPECT_EQ(empty.GetFrameSize(0), (UstSize{1920, 1080}));
    EXPECT_EQ(empty.Record().nFrameDuration, 333667);
    EXPECT_EQ(empty.Record().nKeyMode, 0);  // the rest of the record stands
}

TEST_F(BoardFile, CommandLineModeAndOutputLastOneRun) {
    UstBoardRecord rec = DefaultBoardRecord();
    ApplyVideoMode(rec, MakeVideoMode(720, 576, 400000));
    ASSERT_TRUE(SaveBoardRecord(m_ini, rec));
    UstBoardOptions o = Options();
    o.mode = MakeVideoMode(1280, 720, 200000);
    o.output = UstOutputChoice{EOutputKind::CLOCK, {}};
    {
        IF_HDExtreme board(o);
        EXPECT_EQ(board.GetFrameSize(0), (UstSize{1280, 720}));
        EXPECT_EQ(board.Output().kind, EOutputKind::CLOCK);
    }
    UstBoardRecord back = DefaultBoardRecord();
    ASSERT_TRUE(LoadBoardRecord(m_ini, back));
    EXPECT_EQ(back.nHeight, 576);
    EXPECT_EQ(ReadProfileString(m_ini, "QRD_BOARD_OUTPUT", "Output"), "card");
}

TEST_F(BoardFile, DialogChangesAreKept) {
    UstBoardOptions o = Options();
    o.mode = MakeVideoMode(1280, 720, 200000);
    {
        IF_HDExtreme board(o);
        EXPECT_EQ(board.ShowConfigDialog(), 0);  // no dialog handed in
        board.SetConfigDialog([](IF_HDExtreme& b) {
            ApplyVideoMode(b.Record(), MakeVideoMode(1920, 1080, 400000, VIDEO_PROGRESSIVE));
            b.GetPipeline()->Rebuild();
            return 1;
        });
        EXPECT_EQ(board.ShowConfigDialog(), 1);
        EXPECT_EQ(board.GetPipeline()->Format().nWidth, 1920);
        board.Reset();
        board.SetOutput({EOutputKind::MONITOR, {}});
        EXPECT_EQ(board.GetPipeline()->RunningOutput(), "monitor");
        EXPECT_TRUE(board.GetPipeline()->Failures().empty());
    }
    UstBoardRecord back = DefaultBoardRecord();
    ASSERT_TRUE(LoadBoardRecord(m_ini, back));
    EXPECT_EQ(back.nHeight, 1080);
    EXPECT_EQ(back.nVideoFlags, VIDEO_PROGRESSIVE);
    EXPECT_EQ(LoadOutputSettings(m_ini).output.kind, EOutputKind::MONITOR);
    test::WriteFile(m_ini, "[QRD_BOARD_OUTPUT]\r\nOutput=tape\r\nQueue=99\r\n");
    const UstOutputSettings odd = LoadOutputSettings(m_ini);
    EXPECT_EQ(odd.output.kind, EOutputKind::CARD);
    EXPECT_EQ(odd.nQueueFrames, 3);
}

}  // namespace
}  // namespace orv
