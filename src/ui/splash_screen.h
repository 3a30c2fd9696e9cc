#pragma once

#include <QSplashScreen>
#include <QString>

namespace orv {

// The start-up splash: company, title line and a status line. Setting a line
// repaints at once, so progress shows while the interface thread is busy.
class CSplashScreenEx : public QSplashScreen {
    Q_OBJECT
public:
    CSplashScreenEx(const QString& company, const QString& title, int timeoutMs);
    void SetStatus(const QString& status);

protected:
    void drawContents(QPainter* painter) override;

private:
    QString m_strCompany, m_strTitle, m_strStatus;
};

}  // namespace orv
