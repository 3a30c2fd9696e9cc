#pragma once
// A board for tests and tools: the same canvas, origin, waits and field
// assembly as the card's board, with a clock that the caller drives.
//
// With the HAND clock, WaitFrame blocks until the test advances the clock,
// so a transition, a roll or a live stage runs frame by frame in no real
// time and every frame can be inspected. With FREE, each WaitFrame turns
// the clock itself; with THREAD, a playout thread turns it in real time.

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

#include "board/canvas_board.h"

namespace orv {

class CTestBoard : public CCanvasBoard {
public:
    using FrameHook =
        std::function<void(const uint32_t* frame, const CfgVideo& format, int keyLevel)>;

    explicit CTestBoard(const CfgVideo& mode, EPlayoutClock clock = EPlayoutClock::HAND);
    ~CTestBoard() override;

    void Open() override;
    void Close() override;
    int GetBoardType() const override { return 6; }
    void SetKeyLevel(int level) override;

    // HAND clock: waits until a thread waits for a frame, then gives it one.
    // False when nobody came to wait within the timeout.
    bool AdvanceFrame(std::chrono::milliseconds timeout = std::chrono::seconds(10));
    // Until a thread waits for a frame: its drawing for the last one is done.
    bool WaitForWaiter(std::chrono::milliseconds timeout = std::chrono::seconds(10));
    // One frame whether anybody waits or not.
    void Tick() { m_Pipeline.Tick(); }

    int64_t FramesTicked() const { return m_Pipeline.Frames(); }
    int64_t WaitCount() { return m_Pipeline.SyncEvent().WaitCount(); }
    // The frame that the last tick sent out, as the output got it.
    std::vector<uint32_t> LastFrame() const;
    // Every key level set, in order.
    std::vector<int> KeyLevels() const;
    // The view at the origin, width x height, as it is in the canvas now.
    std::vector<uint32_t> View();
    // Called on each tick with the frame sent out, on the thread that ticks.
    void SetFrameHook(FrameHook hook);

private:
    EPlayoutClock m_eClock;
    int m_nObserver = 0;
    mutable std::mutex m_mutex;
    std::vector<uint32_t> m_LastFrame;
    std::vector<int> m_KeyLevels;
    FrameHook m_hook;
};

}  // namespace orv
