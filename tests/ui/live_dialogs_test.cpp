// The page's blink and typing dialogs: what they show of a record and what
// they give back.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QRadioButton>

#include <cstring>

#include "ui/live_dialogs.h"

namespace orv {
namespace {

// Unchanged, the record comes back to the byte, so the page's command
// stores nothing; the speed is the list's index plus one and the colour
// keeps its alpha. A speed of 0 from elsewhere shows, and goes back, as 1.
TEST(LiveDialogs, BlinkDialogGivesTheRecordBack) {
    const UstPageBlink blink{0, 0x80FF0000u, 4};
    CDlgBlink dlg(blink);
    EXPECT_TRUE(dlg.m_pShowHide->isChecked());
    EXPECT_EQ(dlg.m_pSpeed->currentIndex(), 3);
    const UstPageBlink same = dlg.Result();
    EXPECT_EQ(std::memcmp(&same, &blink, sizeof blink), 0);
    dlg.m_pByColour->setChecked(true);
    dlg.m_pSpeed->setCurrentIndex(9);
    dlg.SetColour(0x40112233u);
    const UstPageBlink changed = dlg.Result();
    EXPECT_EQ(changed.nMode, 1);
    EXPECT_EQ(changed.nSpeed, 10);
    EXPECT_EQ(changed.crColor, 0x40112233u);
    CDlgBlink low(UstPageBlink{1, 0xFF00FF00u, 0});
    EXPECT_TRUE(low.m_pByColour->isChecked());
    EXPECT_EQ(low.Result().nSpeed, 1);
}

TEST(LiveDialogs, TypingDialogGivesTheRecordBack) {
    const UstPageTyping typing{1, 1, 2};
    CDlgTyping dlg(typing);
    EXPECT_TRUE(dlg.m_pAutomatic->isChecked());
    EXPECT_TRUE(dlg.m_pByLine->isChecked());
    EXPECT_EQ(dlg.m_pDelay->count(), TYPING_DELAY_COUNT);
    const UstPageTyping same = dlg.Result();
    EXPECT_EQ(std::memcmp(&same, &typing, sizeof typing), 0);
    dlg.m_pManual->setChecked(true);
    dlg.m_pByChar->setChecked(true);
    dlg.m_pDelay->setCurrentIndex(TYPING_DELAY_COUNT - 1);
    const UstPageTyping changed = dlg.Result();
    EXPECT_EQ(changed.nMode, 0);
    EXPECT_EQ(changed.nOrder, 0);
    EXPECT_EQ(changed.nSpeed, TYPING_DELAY_COUNT - 1);
}

}  // namespace
}  // namespace orv
