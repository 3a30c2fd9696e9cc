#include "ui/child_frame.h"

#include <QCloseEvent>

#include "ui/main_frame.h"
#include "ui/zevrant_view.h"

namespace orv {

CChildFrame::CChildFrame(CZevrantView* view, const QString& title, QWidget* parent)
    : QMdiSubWindow(parent), m_pView(view) {
    setWidget(view);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose, false);
}

void CChildFrame::closeEvent(QCloseEvent* event) {
    CMainFrame* frame = m_pView ? m_pView->Frame() : nullptr;
    if (frame && !frame->CloseProjectOf(m_pView)) {
        event->ignore();
        return;
    }
    event->accept();
    deleteLater();
}

}  // namespace orv
