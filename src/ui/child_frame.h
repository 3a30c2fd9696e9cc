#pragma once

#include <QMdiSubWindow>

namespace orv {

class CZevrantView;

// The window of one open project inside the main frame.
class CChildFrame : public QMdiSubWindow {
    Q_OBJECT
public:
    CChildFrame(CZevrantView* view, const QString& title, QWidget* parent = nullptr);
    CZevrantView* View() const { return m_pView; }

private:
    CZevrantView* m_pView;
};

}  // namespace orv
