#pragma once
// "Sync Event": an auto-reset event set once a frame by the playout side and
// waited on by the drawing thread. A frame set while nobody waits stays set,
// so a late waiter loses at most one frame and never piles up more. Closing
// wakes every waiter, and any wait on a closed event fails at once.

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace orv {

class CFrameEvent {
public:
    // A new event starts closed: nothing sets it until a pipeline runs.
    void Open();
    void Close();
    bool IsOpen() const;

    // True when a frame released the caller; false when closed.
    bool Wait();
    void Set();

    // For clocks driven by hand: true once a thread blocks in Wait and has not
    // been released yet, false after the timeout or when closed.
    bool WaitForWaiter(std::chrono::milliseconds timeout);
    int64_t WaitCount() const;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_released;
    std::condition_variable m_arrived;
    bool m_bOpen = false;
    bool m_bSet = false;
    int m_nBlocked = 0;
    int m_nReleases = 0;
    uint64_t m_nGeneration = 0;  // goes up at each close
    int64_t m_nWaits = 0;
};

}  // namespace orv
