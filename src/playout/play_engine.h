#pragma once
// Play control: what stands between the operator's keys and the transition
// engine. One worker thread takes one play request at a time through a
// small machine (in, on air, blink or live stage, out) for a single page,
// for the operator's list step by step, or for the automatic list that runs
// unattended. All drawing to the canvas happens on that thread; the user
// interface hears of it only through PostPlayState.

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>

#include "board/gboard.h"
#include "board/pixel_store.h"
#include "playout/auto_event.h"
#include "playout/effect.h"
#include "playout/play_list.h"
#include "playout/play_timers.h"
#include "playout/worker_thread.h"
#include "render/geometry.h"

namespace orv {

class CPageManager;

enum EPlayState : int {
    PLAY_IDLE = 0,
    PLAY_LOAD = 1,
    PLAY_IN = 2,
    PLAY_ON = 3,
    PLAY_BLINK = 4,
    PLAY_LIVE = 5,
    PLAY_OUT = 6,
    PLAY_GONE = 7,
    PLAY_END = 8,
    // The engine's own: a page whose typed text waits for the next Run. The
    // window hears PLAY_ON for it.
    PLAY_TYPING = 9
};

enum EPlayKey : int { PLAYKEY_RUN = 13, PLAYKEY_STOP = 106, PLAYKEY_ERASE = 123 };

// The window around the engine. Both calls come from the engine's thread
// and must return at once: the window queues them for its own thread.
class IPlayHost {
public:
    virtual ~IPlayHost() = default;
    // A state of the machine, with the page's index in the list (or a flag
    // of the single page) as the parameter.
    virtual void PostPlayState(int state, int param) = 0;
    // The window's play state: 2 while the engine brings pages on or takes
    // them off by itself, 1 when it rests.
    virtual void SetPlayMode(int mode) = 0;
};

struct UstBufferInfo {
    const uint32_t* pBits = nullptr;
    UstRect rc;
};

class CPlayEngine : private IStageTicker {
public:
    // board null: a plain Effect, through which a page passes every stage at
    // once. frame: the output frame size; thumb: the thumbnail size.
    CPlayEngine(int channel, CGBoard* board, UstSize frame, UstSize thumb, IPlayHost* host);
    ~CPlayEngine();
    CPlayEngine(const CPlayEngine&) = delete;
    CPlayEngine& operator=(const CPlayEngine&) = delete;

    // 1 when the page will be played (or a live stage keeps the present
    // one), 0 when a step is under way and the page cannot be changed now.
    int SetPage(CPageManager* page);
    void Key(int key);
    void StopPlay();
    bool IsBlinking() const;
    bool IsLive() const;
    // The speed of a roll or crawl on air, one step up or down.
    void Faster();
    void Slower();
    void ResetPlay();
    void GetBufferInfo(UstBufferInfo& out) const;
    // Empties the output between steps, for a logo taken off.
    void ClearOutput();
    void SetPlayList(UstPlayList* list) { m_pPlayList.store(list); }

    // The next page of the list after `from`; see NextPlayIndex.
    int NextIndex(int from, int& wrapped, int useDiscarded) const;

    // What the automatic loop's delays wait on, one piece at a time: the
    // effect's WaitMs unless a test counts the pieces instead. Set it before
    // the engine plays.
    void SetDelayWait(std::function<void(int ms)> wait) { m_fnWait = std::move(wait); }
    // The operator's pause, resume, restart and set of the running timers,
    // from any thread; the next frame takes them.
    void TimerControl(const UstTimerControl& control) { m_Timers.Control(control); }
    // What the running timers read the time from; tests give their own.
    // Set it before the engine plays.
    void SetTimerClock(ITimerClock* clock) { m_Timers.SetClock(clock ? clock : &m_SystemClock); }
    // Timers of the page on air are running.
    bool TimersRunning() const { return m_bTimersOn.load() != 0; }
    // Pixels the running timers wrote to the canvas, and the largest one
    // change wrote, for the tests and the benchmark.
    int64_t TimerPixelsWritten() const { return m_nTimerPixels.load(); }
    int64_t TimerLargestWrite() const { return m_nTimerLargest.load(); }

    // The page on air has new data: its picture is drawn again and only the
    // pixels that changed go to the canvas, after the next frame boundary.
    // From any thread; returns at once.
    void RefreshOnAir() {
        m_bRefresh.store(1);
        m_hEvent.Set();
    }
    // The page whose picture is on air now, or null.
    CPageManager* PageOnAir() const { return m_pAirPage.load(); }
    // Pixels the refreshes wrote, for the tests.
    int64_t RefreshPixelsWritten() const { return m_nRefreshPixels.load(); }

    // The passes the automatic loop has left.
    int Passes() const { return m_nPasses.load(); }

    int State() const { return m_nState.load(); }
    // A step of the machine, or a drawing stage of the loop, is under way.
    bool IsLocked() const { return m_bLocked.load() != 0; }
    bool IsRunning() const { return m_bRun.load() != 0; }
    bool IsSinglePage() const { return m_bSinglePage.load() != 0; }
    CPageManager* Page() const { return m_pPage.load(); }
    Effect& GetEffect() { return *m_pEffect; }

    // A pause of the automatic loop, and the loop's delays, come in pieces of
    // this length with a look at the flags between them.
    static constexpr int DELAY_PIECE_MS = 20;
    static constexpr int ENDLESS_PASSES = 99999;

private:
    // m_Lock held for the time of one step, with m_bLocked telling so.
    class CStepLock {
    public:
        explicit CStepLock(CPlayEngine& engine) : m_engine(engine) {
            m_engine.m_Lock.lock();
            m_engine.m_bLocked.store(1);
        }
        ~CStepLock() {
            m_engine.m_bLocked.store(0);
            m_engine.m_Lock.unlock();
        }
        CStepLock(const CStepLock&) = delete;
        CStepLock& operator=(const CStepLock&) = delete;

    private:
        CPlayEngine& m_engine;
    };

    void WorkerMain();
    bool Step();
    void StepSingle();
    // The single page after its in effect: typing, then its stage or rest.
    void SingleOnAir(CPageManager* page, int* request);
    // Typed text shown by itself after the in effect; false when it waits
    // for the operator's Run instead.
    bool TypeOnAir(CPageManager* page, bool byOperator);
    void StepList();
    void RunAutoLoop();
    // The list machine's stages, each from its state to the next resting one.
    void ListIn(UstPlayList& list, CPageManager* page);
    void ListPageGone(UstPlayList& list, int index);
    // The automatic loop's stages, under the lock for their drawing only.
    bool AutoIn(CPageManager* page, int index);
    void AutoOnAir(CPageManager* page, int index);
    bool Hold(int seconds);
    bool Running() const;
    // Run's first two cases: a blink or a live stage on air ends gently.
    bool EndStage();
    // The lock if it is free now, else false after a short wait.
    bool TryLock();
    void RenderPage(CPageManager* page);
    // The objects' live state of a roll, built for its run and freed after.
    void BeginScroll(CPageManager* page);
    void EndScroll(CPageManager* page);
    void Post(int state, int param);
    void SetMode(int mode);
    // Running timers: started with the page's picture, stopped when it goes.
    // blink: buffer B holds the page's second picture, which shows them too.
    void StartTimers(CPageManager* page, bool blink);
    void StopTimers();
    // Between steps: one frame of the running timers at a time, until a key.
    void WaitForWork();
    // One frame's change of the timers, under the lock if it is free; the
    // automatic loop's delays have waited for the frame already.
    void TickTimers(bool waitFrame = true);
    // Inside a blink, live or typing stage, which holds the lock already.
    void TickInMemory() override;
    void TickOnCanvas(int x, int y, int x2) override;
    void CountTimerWrite(int64_t written);
    // New data on the page on air, between steps.
    void RefreshAir();
    UstRect RedrawAirPicture(CPageManager* page);

    std::unique_ptr<Effect> m_pEffect;
    int32_t m_nWidth = 0, m_nHeight = 0;
    int32_t m_nThumbWidth = 0, m_nThumbHeight = 0;
    CPixelStore m_pBufferA, m_pBufferB;
    std::atomic<int32_t> m_bExit{0};
    std::atomic<int32_t> m_nState{PLAY_IDLE};
    std::atomic<int32_t> m_bRun{0};
    CWorkerThread m_hThread;
    CAutoEvent m_hEvent;
    IPlayHost* m_pFrame = nullptr;
    std::mutex m_Lock;
    std::atomic<int32_t> m_bLocked{0};
    std::atomic<UstPlayList*> m_pPlayList{nullptr};
    std::atomic<CPageManager*> m_pPage{nullptr};
    std::atomic<int32_t> m_bSinglePage{0};
    std::function<void(int)> m_fnWait;
    std::atomic<int32_t> m_nPasses{0};
    CSystemTimerClock m_SystemClock;
    CPlayTimers m_Timers{&m_SystemClock};  // the worker's, under m_Lock
    std::atomic<int32_t> m_bTimersOn{0};
    std::atomic<int32_t> m_bRefresh{0};
    // A key, not a refresh, woke the worker.
    std::atomic<int32_t> m_bKeyed{0};
    std::atomic<CPageManager*> m_pAirPage{nullptr};
    std::atomic<int64_t> m_nRefreshPixels{0};
    std::atomic<int64_t> m_nTimerPixels{0};
    std::atomic<int64_t> m_nTimerLargest{0};
    // The worker's own: the list page in hand and its index.
    CPageManager* m_pInHand = nullptr;
    int m_nInHand = 0;
};

}  // namespace orv
