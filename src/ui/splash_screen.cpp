#include "ui/splash_screen.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>
#include <QPropertyAnimation>
#include <QScreen>
#include <QTimer>

namespace orv {

namespace {

QPixmap SplashPicture() {
    QPixmap pm(520, 300);
    QPainter p(&pm);
    QLinearGradient g(0, 0, 0, pm.height());
    g.setColorAt(0.0, QColor(32, 40, 62));
    g.setColorAt(1.0, QColor(12, 14, 24));
    p.fillRect(pm.rect(), g);
    p.setPen(QColor(144, 153, 174));
    p.drawRect(pm.rect().adjusted(0, 0, -1, -1));
    return pm;
}

}  // namespace

CSplashScreenEx::CSplashScreenEx(const QString& company, const QString& title, int timeoutMs)
    : QSplashScreen(SplashPicture(), Qt::WindowStaysOnTopHint),
      m_strCompany(company),
      m_strTitle(title),
      m_strStatus(tr("Initializing...")) {
    setWindowOpacity(0.0);
    auto* fade = new QPropertyAnimation(this, "windowOpacity", this);
    fade->setDuration(500);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    fade->start();
    if (QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->geometry().center() - rect().center());
    QTimer::singleShot(timeoutMs, this, &QWidget::close);
}

void CSplashScreenEx::SetStatus(const QString& status) {
    m_strStatus = status;
    repaint();
}

void CSplashScreenEx::drawContents(QPainter* painter) {
    const QRect r = rect().adjusted(24, 24, -24, -20);
    painter->setPen(QColor(200, 208, 226));
    QFont f = painter->font();
    f.setPointSize(11);
    painter->setFont(f);
    painter->drawText(r, Qt::AlignLeft | Qt::AlignTop, m_strCompany);
    f.setPointSize(24);
    f.setBold(true);
    painter->setFont(f);
    painter->setPen(Qt::white);
    painter->drawText(r, Qt::AlignCenter, m_strTitle);
    f.setPointSize(10);
    f.setBold(false);
    painter->setFont(f);
    painter->setPen(QColor(200, 208, 226));
    painter->drawText(r, Qt::AlignLeft | Qt::AlignBottom, m_strStatus);
}

}  // namespace orv
