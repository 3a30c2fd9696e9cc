#pragma once
// One of the engine's worker threads (the strip thread of a roll, the
// animation feeder of a live page). Its owner ends it by clearing the flag
// the body watches and setting the event the body waits on, then joins it
// in pieces of waiting.
//
// A thread cannot be killed safely here: one stopped from outside would
// leave its locks held and its buffers half written. So the bodies are
// written to notice their flag within one unit of their work (one strip,
// one frame per animation), and once the pieces of waiting have run out the
// join simply goes on waiting: a late worker delays its owner a little, but
// never writes into buffers after their owner has freed them.

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace orv {

class CWorkerThread {
public:
    CWorkerThread() = default;
    // Joins whatever still runs: the body may use its owner's memory.
    ~CWorkerThread();
    CWorkerThread(const CWorkerThread&) = delete;
    CWorkerThread& operator=(const CWorkerThread&) = delete;

    void Start(std::function<void()> body);
    bool IsStarted() const { return m_thread.joinable(); }
    // Waits for the body to return in pieces of `piece`; after `pieces`
    // time-outs it waits without limit. Answers the number of time-outs.
    int Join(std::chrono::milliseconds piece, int pieces);

private:
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_cv;
    bool m_bFinished = false;
};

}  // namespace orv
