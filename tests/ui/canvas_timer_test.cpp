// Timers through the editor: "Insert Timer/Counter" with its dialog, whose
// format list follows the kind and whose times are read by their places,
// and 40024, which gives the selected timer the settings chosen.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>

#include "canvas_fixture.h"
#include "objects/tc_object.h"
#include "ui/tc_dialog.h"

namespace orv {
namespace {

class CanvasTimerTest : public test::CanvasTest {
protected:
    // Triggers the action and answers its dialog with `answer`.
    void TriggerAnswering(const char* command, const std::function<void(CDlgPropTC&)>& answer) {
        QTimer poll;
        poll.setInterval(5);
        bool answered = false;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<CDlgPropTC*>(QApplication::activeModalWidget());
            if (!dialog || answered) return;
            answered = true;
            answer(*dialog);
        });
        poll.start();
        frame->findChild<QAction*>(command)->trigger();
        QApplication::processEvents();
        EXPECT_TRUE(answered);
    }
    CQRDObjectTC* OnlyTimer() const {
        if (page->Objects().size() != 1 || page->Objects()[0]->GetType() != OBJ_TIMER)
            return nullptr;
        return static_cast<CQRDObjectTC*>(page->Objects()[0].get());
    }
};

TEST_F(CanvasTimerTest, DialogFollowsTheKindAndTheNewTimerTakesItsRecord) {
    const std::vector<uint32_t> before(view->Surface(),
                                       view->Surface() + view->FitWidth() * view->FitHeight());
    int clockFormats = 0, counterFormats = 0;
    bool startEnabledForClock = true;
    QString preview;
    TriggerAnswering("cmd246", [&](CDlgPropTC& d) {
        d.m_pClock->setChecked(true);
        clockFormats = d.m_pFormat->count();
        startEnabledForClock = d.m_pStart->isEnabled() || d.m_pEnd->isEnabled();
        d.m_pTimer->setChecked(true);
        counterFormats = d.m_pFormat->count();
        d.m_pFormat->setCurrentIndex(6);
        d.m_pStart->setText("01:01:01");
        d.m_pEnd->setText("02:00:00");
        preview = d.m_pPreview->text();
        d.accept();
    });
    EXPECT_EQ(clockFormats, 7);
    EXPECT_EQ(counterFormats, 8);
    EXPECT_FALSE(startEnabledForClock);
    EXPECT_EQ(preview, "1:01:01");
    CQRDObjectTC* timer = OnlyTimer();
    ASSERT_NE(timer, nullptr);
    EXPECT_EQ(page->Selection().size(), 1u);
    EXPECT_EQ(int32_t{timer->m_setting.nStart}, 3661);
    EXPECT_EQ(int32_t{timer->m_setting.nEnd}, 7200);
    EXPECT_EQ(timer->GetName(), "1:01:01");
    // The canvas shows it, not only its handles.
    const std::vector<uint32_t> after(view->Surface(),
                                      view->Surface() + view->FitWidth() * view->FitHeight());
    EXPECT_GT(std::count(after.begin(), after.end(), 0xFFFFFFFFu),
              std::count(before.begin(), before.end(), 0xFFFFFFFFu) + 100);

    // 40024 opens on the timer's own record and keeps what is chosen.
    int shownFormat = -1;
    TriggerAnswering("cmd40024", [&](CDlgPropTC& d) {
        shownFormat = d.m_pFormat->currentIndex();
        d.m_pFormat->setCurrentIndex(0);
        d.m_pStart->setText("00:01:30");
        d.accept();
    });
    EXPECT_EQ(shownFormat, 6);
    EXPECT_EQ(timer->GetName(), "30");
    EXPECT_EQ(int32_t{timer->m_setting.nStart}, 90);
}

TEST(TimerDialog, TimesAreReadByTheirPlacesAndAClockPreviewsTheTime) {
    VDateTimeEdit edit;
    edit.SetSeconds(3661);
    EXPECT_EQ(edit.text(), "01:01:01");
    edit.setText("99:59:59");
    EXPECT_EQ(edit.Seconds(), 99 * 3600 + 59 * 60 + 59);
    edit.SetSeconds(-5);
    EXPECT_EQ(edit.Seconds(), 0);
    CDlgPropTC dialog({1, 0, 0, 0, 0, 1});
    EXPECT_TRUE(dialog.m_pClock->isChecked());
    // "hh:mm" in the 24-hour form: two digits, a colon, two digits.
    EXPECT_TRUE(QRegularExpression("^\\d\\d:\\d\\d$").match(dialog.m_pPreview->text()).hasMatch())
        << dialog.m_pPreview->text().toStdString();
    dialog.m_p24Hour->setChecked(false);
    EXPECT_EQ(int32_t{dialog.Setting().b24Hour}, 0);
    EXPECT_EQ(int32_t{dialog.Setting().nKind}, 1);
}

}  // namespace
}  // namespace orv
