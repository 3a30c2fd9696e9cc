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

protected:
    // Closing the window closes its project, which may ask first or refuse.
    void closeEvent(QCloseEvent* event) override;

private:
    CZevrantView* m_pView;
};

}  // namespace orv
