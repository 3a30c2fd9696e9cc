#include "ui/progress_dialog.h"

#include <QCoreApplication>

namespace orv {

CDlgProgress::CDlgProgress(QWidget* parent) : QProgressDialog(parent) {
    setWindowTitle(tr("Converting..."));
    setRange(0, 100);
    setCancelButton(nullptr);
    setMinimumDuration(0);
    setWindowModality(Qt::NonModal);
    setAutoClose(false);
    setAutoReset(false);
    setValue(0);
    if (parent) move(parent->mapToGlobal(parent->rect().center()) - rect().center());
    show();
    Repaint();
}

void CDlgProgress::SetStatus(const QString& text) {
    setLabelText(text);
    Repaint();
}

void CDlgProgress::SetPosition(int percent) {
    setValue(percent);
    Repaint();
}

// Paints, but takes no input: the conversion runs on this thread and must
// not be entered again from a menu.
void CDlgProgress::Repaint() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace orv
