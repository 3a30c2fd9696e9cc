// Until the ribbon exists: a menu for the output board's configuration, its
// reset and the program monitor, and the frame's side of the board: the mode
// name in the status bar and the word of an output that failed.
#include <QAction>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QStatusBar>

#include "board/hd_extreme.h"
#include "board/test_card.h"
#include "shell/app_object.h"
#include "shell/frame_rules.h"
#include "ui/config_decklink_dialog.h"
#include "ui/main_frame.h"
#include "ui/program_monitor.h"

namespace orv {

namespace {

constexpr int MODE_PANE = 2;

}  // namespace

void CMainFrame::CreateBoardMenu() {
    QMenu* menu = CommandMenu(tr("O&utput"));
    const auto add = [&](const QString& text, const char* name, auto slot) {
        const QStringList parts = text.split('\n');
        QAction* action = menu->addAction(parts.value(1), this, slot);
        action->setStatusTip(parts.value(0));
        action->setObjectName(name);
        action->setEnabled(m_pBoard != nullptr);
        return action;
    };
    add(tr("Hardware Configuration\nConfigure"), "cmd757", [this] { OnHardwareConfiguration(); });
    add(tr("Reset the graphic board\nReset"), "cmd758", [this] { OnResetBoard(); });
    menu->addSeparator();
    QAction* card = add(tr("Put colour bars and a key ramp on the output\nTest Card"), "testcard",
                        [this](bool on) { SendTestCard(on); });
    card->setCheckable(true);
    m_pMonitorAction = add(tr("Show what the output sends\nProgram Monitor"), "monitor",
                           [this](bool on) { ShowProgramMonitor(on); });
    m_pMonitorAction->setCheckable(true);
}

// The dialog lives here, the board calls it; the record reaches board.ini
// when the board closes.
void CMainFrame::AttachBoard() {
    CDecklinkPipeline* pipe = m_pBoard->GetPipeline();
    if (auto* card = dynamic_cast<IF_HDExtreme*>(m_pBoard)) {
        card->SetConfigDialog([this](IF_HDExtreme& board) {
            CDlgConfigDecklink dlg(board, this);
            return dlg.exec() == QDialog::Accepted ? dlg.m_bChanged : 0;
        });
        if (card->Output().kind == EOutputKind::MONITOR) ShowProgramMonitor(true);
    }
    if (!pipe) return;
    for (const UstOutputFailure& f : pipe->Failures())
        OnOutputFailure(QString::fromStdString(f.strOutput), QString::fromStdString(f.strReason));
    pipe->SetFailureListener([frame = QPointer<CMainFrame>(this)](const UstOutputFailure& f) {
        QMetaObject::invokeMethod(frame.data(), "OnOutputFailure", Qt::QueuedConnection,
                                  Q_ARG(QString, QString::fromStdString(f.strOutput)),
                                  Q_ARG(QString, QString::fromStdString(f.strReason)));
    });
}

void CMainFrame::DetachBoard() {
    delete m_pMonitor;
    m_pMonitor = nullptr;
    if (!m_pBoard) return;
    if (auto* card = dynamic_cast<IF_HDExtreme*>(m_pBoard)) card->SetConfigDialog(nullptr);
    if (CDecklinkPipeline* pipe = m_pBoard->GetPipeline()) pipe->SetFailureListener(nullptr);
}

void CMainFrame::ShowModeName() {
    const CZevrantApp* app = CZevrantApp::Get();
    SetStatusPane(MODE_PANE, StatusModeName(m_pBoard, app ? app->GetFrameSize().cx : 1920));
}

void CMainFrame::OnOutputFailure(const QString& output, const QString& reason) {
    const QString text =
        tr("The output %1 failed (%2); frames go to the clock-paced output.").arg(output, reason);
    statusBar()->showMessage(text);
    qWarning("%s", qPrintable(text));
}

// Nothing happens while a page plays; with a change the program must start
// again for the pages to take the new size.
void CMainFrame::OnHardwareConfiguration() {
    if (!m_pBoard) return;
    const int changed = m_pBoard->ShowConfigDialog();
    if (auto* card = dynamic_cast<IF_HDExtreme*>(m_pBoard);
        card && card->Output().kind == EOutputKind::MONITOR)
        ShowProgramMonitor(true);
    if (!changed) return;
    ShowModeName();
    const auto answer = QMessageBox::question(
        this, windowTitle(),
        tr("To apply changes, the program must be restarted. Terminate program?"),
        QMessageBox::Yes | QMessageBox::No);
    if (answer == QMessageBox::Yes) QMetaObject::invokeMethod(this, "close", Qt::QueuedConnection);
}

void CMainFrame::OnResetBoard() {
    if (m_pBoard) m_pBoard->Reset();
}

// Only in edit mode, where no page is being played and nothing else draws
// to the canvas; the card stays until it is taken off again.
void CMainFrame::SendTestCard(bool on) {
    if (!m_pBoard || m_nPlayState != 0) return;
    const UstSize size = m_pBoard->GetFrameSize(0);
    int x = 0, y = 0;
    m_pBoard->GetOrigin(x, y);
    uint32_t* canvas = m_pBoard->GetChannelCanvas(0);
    if (!on) return m_pBoard->FillRect(x, y, canvas, size.cx, size.cy, 0);
    const std::vector<uint32_t> card = MakeTestCard(size.cx, size.cy);
    m_pBoard->CopyRect(x, y, canvas, size.cx, 0, 0, size.cx, size.cy, card.data());
    if (CDecklinkPipeline* pipe = m_pBoard->GetPipeline()) pipe->CaptureField();
}

void CMainFrame::ShowProgramMonitor(bool show) {
    if (show && !m_pMonitor && m_pBoard) {
        m_pMonitor = new CProgramMonitor(m_pBoard->GetPipeline(), this);
        connect(m_pMonitor, &CProgramMonitor::Hidden, this, [this] {
            if (m_pMonitorAction) m_pMonitorAction->setChecked(false);
        });
    }
    if (m_pMonitor) m_pMonitor->setVisible(show);
    if (m_pMonitorAction) m_pMonitorAction->setChecked(show && m_pMonitor);
}

}  // namespace orv
