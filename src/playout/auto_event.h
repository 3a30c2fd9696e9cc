#pragma once
// An auto-reset event: Set lets one waiter through, or the next one to come
// if nobody waits; repeated sets before a wait collapse into one.

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace orv {

class CAutoEvent {
public:
    void Set();
    void Wait();
    // True when the event released the caller, false on the time-out.
    bool WaitFor(std::chrono::milliseconds timeout);
    // Somebody waits and nothing is pending for it: the waiter has finished
    // what the last set asked of it. Seen under the event's own lock, so a
    // waiter just released never counts as idle.
    bool HasIdleWaiter();

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    bool m_bSet = false;
    int m_nWaiting = 0;
};

}  // namespace orv
