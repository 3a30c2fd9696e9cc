#pragma once
// Answers the modal dialogs and message boxes a command brings up, in the
// order they come, and keeps what each message box said.

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <functional>

namespace orv::test {

class CModalAnswers {
public:
    CModalAnswers() {
        m_poll.setInterval(5);
        QObject::connect(&m_poll, &QTimer::timeout, [this] { Poll(); });
        m_poll.start();
    }
    // The next dialog of type D is handed to the function, which answers it.
    template <typename D>
    void Dialog(std::function<void(D*)> answer) {
        m_steps.push_back([answer](QWidget* w) {
            auto* d = qobject_cast<D*>(w);
            if (d) answer(d);
            return d != nullptr;
        });
    }
    // The next message box is answered with the button.
    void Message(QMessageBox::StandardButton button = QMessageBox::Ok) {
        m_steps.push_back([this, button](QWidget* w) {
            auto* box = qobject_cast<QMessageBox*>(w);
            if (!box) return false;
            m_said << box->text();
            QAbstractButton* b = box->button(button);
            if (b)
                QMetaObject::invokeMethod(b, "click", Qt::QueuedConnection);
            else
                QMetaObject::invokeMethod(box, "reject", Qt::QueuedConnection);
            return true;
        });
    }
    const QStringList& Said() const { return m_said; }
    bool AllAnswered() const { return m_steps.empty(); }

private:
    void Poll() {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == m_pLast || m_steps.empty()) return;
        if (m_steps.front()(modal)) {
            m_pLast = modal;
            m_steps.pop_front();
        }
    }

    QTimer m_poll;
    std::deque<std::function<bool(QWidget*)>> m_steps;
    QPointer<QWidget> m_pLast;
    QStringList m_said;
};

}  // namespace orv::test
