#include "board/frame_event.h"

namespace orv {

void CFrameEvent::Open() {
    std::lock_guard lock(m_mutex);
    m_bOpen = true;
    m_bSet = false;
}

void CFrameEvent::Close() {
    {
        std::lock_guard lock(m_mutex);
        m_bOpen = false;
        m_bSet = false;
        ++m_nGeneration;
    }
    m_released.notify_all();
    m_arrived.notify_all();
}

bool CFrameEvent::IsOpen() const {
    std::lock_guard lock(m_mutex);
    return m_bOpen;
}

bool CFrameEvent::Wait() {
    std::unique_lock lock(m_mutex);
    if (!m_bOpen) return false;
    ++m_nWaits;
    if (m_bSet) {
        m_bSet = false;
        return true;
    }
    const uint64_t generation = m_nGeneration;
    ++m_nBlocked;
    m_arrived.notify_all();
    m_released.wait(lock, [&] { return m_nReleases > 0 || m_nGeneration != generation; });
    if (m_nReleases > 0) {
        --m_nReleases;
        return true;
    }
    --m_nBlocked;
    return false;
}

void CFrameEvent::Set() {
    {
        std::lock_guard lock(m_mutex);
        if (!m_bOpen) return;
        if (m_nBlocked == 0) {
            m_bSet = true;
            return;
        }
        --m_nBlocked;
        ++m_nReleases;
    }
    m_released.notify_one();
}

bool CFrameEvent::WaitForWaiter(std::chrono::milliseconds timeout) {
    std::unique_lock lock(m_mutex);
    m_arrived.wait_for(lock, timeout, [&] { return m_nBlocked > 0 || !m_bOpen; });
    return m_nBlocked > 0 && m_bOpen;
}

int64_t CFrameEvent::WaitCount() const {
    std::lock_guard lock(m_mutex);
    return m_nWaits;
}

}  // namespace orv
