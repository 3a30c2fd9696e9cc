#include "playout/worker_thread.h"

namespace orv {

CWorkerThread::~CWorkerThread() {
    if (m_thread.joinable()) m_thread.join();
}

void CWorkerThread::Start(std::function<void()> body) {
    if (m_thread.joinable()) m_thread.join();
    m_bFinished = false;
    m_thread = std::thread([this, body = std::move(body)] {
        body();
        {
            std::lock_guard lock(m_mutex);
            m_bFinished = true;
        }
        m_cv.notify_all();
    });
}

int CWorkerThread::Join(std::chrono::milliseconds piece, int pieces) {
    if (!m_thread.joinable()) return 0;
    int timeouts = 0;
    {
        std::unique_lock lock(m_mutex);
        while (!m_bFinished && timeouts < pieces)
            if (!m_cv.wait_for(lock, piece, [this] { return m_bFinished; })) ++timeouts;
    }
    m_thread.join();
    return timeouts;
}

}  // namespace orv
