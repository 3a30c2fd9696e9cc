// The operator's hold on the timers of the page on air: pause, resume,
// restart, and a new value, from the Play menu.
#include <QDialogButtonBox>
#include <QMenu>
#include <QVBoxLayout>

#include "playout/play_engine.h"
#include "ui/main_frame.h"
#include "ui/tc_dialog.h"

namespace orv {

void CMainFrame::CreateTimerControls(QMenu* menu) {
    QMenu* timers = menu->addMenu(tr("Timers"));
    const auto add = [&](const QString& text, const char* name, ETimerControl control) {
        QAction* action = timers->addAction(text, this, [this, control] {
            if (m_pPlayEngine) m_pPlayEngine->TimerControl({control, 0});
        });
        action->setObjectName(name);
        return action;
    };
    add(tr("Pause"), "timerPause", TIMER_PAUSE);
    add(tr("Resume"), "timerResume", TIMER_RESUME);
    add(tr("Restart"), "timerRestart", TIMER_RESTART);
    QAction* set = timers->addAction(tr("Set..."), this, [this] { SetRunningTimers(); });
    set->setObjectName("timerSet");
}

void CMainFrame::SetRunningTimers() {
    if (!m_pPlayEngine) return;
    QDialog dialog(this);
    dialog.setWindowTitle(tr("Set Timers"));
    auto* edit = new VDateTimeEdit(&dialog);
    edit->SetSeconds(0);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(edit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    layout->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted) return;
    m_pPlayEngine->TimerControl({TIMER_SET, edit->Seconds()});
}

}  // namespace orv
