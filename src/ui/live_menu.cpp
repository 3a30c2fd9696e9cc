// Blinking and typed-on objects, until the ribbon exists: the flags go to
// the selected objects, the properties to the page.
#include <QMenu>
#include <QMenuBar>

#include "project/page_manager.h"
#include "ui/live_dialogs.h"
#include "ui/main_frame.h"
#include "ui/zevrant_view.h"

namespace orv {

void CMainFrame::CreateLiveMenu() {
    QMenu* menu = CommandMenu(tr("&Live"));
    menu->addAction(tr("Blink"), this, [this] { SetLiveFlag(CMD_BLINK, true); });
    menu->addAction(tr("No blink"), this, [this] { SetLiveFlag(CMD_BLINK, false); });
    menu->addAction(tr("Blink properties"), this, [this] { ChooseBlinkProperties(); });
    menu->addSeparator();
    menu->addAction(tr("Typing"), this, [this] { SetLiveFlag(CMD_TYPING, true); });
    menu->addAction(tr("No typing"), this, [this] { SetLiveFlag(CMD_TYPING, false); });
    menu->addAction(tr("Typing properties"), this, [this] { ChooseTypingProperties(); });
}

void CMainFrame::SetLiveFlag(uint32_t command, bool on) {
    const int32_t flag = on ? 1 : 0;
    if (CZevrantView* view = ActiveView()) view->PageCommand(command, &flag);
}

void CMainFrame::ChooseBlinkProperties() {
    CZevrantView* view = ActiveView();
    if (!view || !view->Page()) return;
    CDlgBlink dlg(view->Page()->m_blink, this);
    if (dlg.exec() != QDialog::Accepted) return;
    const UstPageBlink blink = dlg.Result();
    view->PageCommand(CMD_BLINK_PROPERTIES, &blink);
}

void CMainFrame::ChooseTypingProperties() {
    CZevrantView* view = ActiveView();
    if (!view || !view->Page()) return;
    CDlgTyping dlg(view->Page()->m_typing, this);
    if (dlg.exec() != QDialog::Accepted) return;
    const UstPageTyping typing = dlg.Result();
    view->PageCommand(CMD_TYPING_PROPERTIES, &typing);
}

}  // namespace orv
