#include <gtest/gtest.h>

#include "shell/frame_rules.h"

namespace orv {
namespace {

const auto NO_FILE = [](const QString&) { return false; };
const auto ANY_FILE = [](const QString&) { return true; };

TEST(AutoSave, OnlyInEditStateAndWhenOn) {
    UstEnv e = MakeDefaultEnv(9);
    EXPECT_TRUE(ShouldAutoSave(e, 0));
    EXPECT_FALSE(ShouldAutoSave(e, 1));
    EXPECT_FALSE(ShouldAutoSave(e, 2));
    e.bAutoSave = 0;
    EXPECT_FALSE(ShouldAutoSave(e, 0));
    e.nAutoSaveMin = 5;
    EXPECT_EQ(AutoSavePeriodMs(e), 300000);
    e.nAutoSaveMin = 0;  // a damaged record never makes a timer that spins
    EXPECT_EQ(AutoSavePeriodMs(e), 60000);
    e.nAutoSaveMin = 1000;
    EXPECT_EQ(AutoSavePeriodMs(e), 3600000);
}

TEST(ApplyOptions, UnchangedCopiesChangeNothing) {
    UstEnv frame = MakeDefaultEnv(9);
    const UstEnv before = frame;
    const UstOptionsOutcome out = ApplyOptions(frame, frame, frame, NO_FILE);
    EXPECT_FALSE(out.bEditRejected || out.bEditTaken || out.bRestartTimer || out.bAskRestart);
    EXPECT_EQ(std::memcmp(&frame, &before, sizeof frame), 0);
}

TEST(ApplyOptions, ImageBackdropNeedsAnExistingFile) {
    UstEnv frame = MakeDefaultEnv(9);
    UstEnv edit = frame;
    edit.nBackKind = BACK_IMAGE;
    edit.bGrid = 1;
    EXPECT_TRUE(ApplyOptions(frame, frame, edit, ANY_FILE).bEditRejected);  // empty path
    EXPECT_EQ(+frame.nBackKind, BACK_CHECKER);
    EXPECT_EQ(+frame.bGrid, 0u);  // the whole page of edits is dropped
    QStringToFixed(QString("/pictures/back.png"), &edit.szBackImage);
    EXPECT_TRUE(ApplyOptions(frame, frame, edit, NO_FILE).bEditRejected);
    const UstOptionsOutcome out = ApplyOptions(frame, frame, edit, ANY_FILE);
    EXPECT_TRUE(out.bEditTaken);
    EXPECT_EQ(+frame.nBackKind, BACK_IMAGE);
    EXPECT_EQ(+frame.bGrid, 1u);
}

TEST(ApplyOptions, ProgramFieldsOneByOne) {
    UstEnv frame = MakeDefaultEnv(9);
    UstEnv program = frame;
    program.bPreviewLeft = 1;
    program.nAutoSaveMin = 12;
    program.nLanguage = 18;
    UstEnv edit = frame;
    edit.bMarkSD = 1;
    const UstOptionsOutcome out = ApplyOptions(frame, program, edit, NO_FILE);
    EXPECT_TRUE(out.bEditTaken);
    EXPECT_TRUE(out.bRestartTimer);
    EXPECT_TRUE(out.bAskRestart);
    EXPECT_EQ(+frame.bPreviewLeft, 1u);
    EXPECT_EQ(+frame.nAutoSaveMin, 12u);
    EXPECT_EQ(+frame.nLanguage, 18);  // stands even if the restart is refused
    EXPECT_EQ(+frame.bMarkSD, 1u);
}

}  // namespace
}  // namespace orv
