#include "playout/auto_event.h"

namespace orv {

void CAutoEvent::Set() {
    {
        std::lock_guard lock(m_mutex);
        m_bSet = true;
    }
    m_cv.notify_one();
}

void CAutoEvent::Wait() {
    std::unique_lock lock(m_mutex);
    ++m_nWaiting;
    m_cv.wait(lock, [this] { return m_bSet; });
    --m_nWaiting;
    m_bSet = false;
}

bool CAutoEvent::HasIdleWaiter() {
    std::lock_guard lock(m_mutex);
    return m_nWaiting > 0 && !m_bSet;
}

bool CAutoEvent::WaitFor(std::chrono::milliseconds timeout) {
    std::unique_lock lock(m_mutex);
    if (!m_cv.wait_for(lock, timeout, [this] { return m_bSet; })) return false;
    m_bSet = false;
    return true;
}

}  // namespace orv
