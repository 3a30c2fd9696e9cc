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

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    bool m_bSet = false;
};

}  // namespace orv
