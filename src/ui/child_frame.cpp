#include "ui/child_frame.h"

#include "ui/zevrant_view.h"

namespace orv {

CChildFrame::CChildFrame(CZevrantView* view, const QString& title, QWidget* parent)
    : QMdiSubWindow(parent), m_pView(view) {
    setWidget(view);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose, false);
}

}  // namespace orv
