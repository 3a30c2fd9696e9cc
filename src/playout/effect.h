#pragma once
// The transition engine. It takes a page that the play engine has already
// rendered into page buffer A (and B) and brings it to air, or takes it off,
// through the canvas of the board, one frame at a time: wait for the frame,
// write a little more of the page (or erase, or move the origin), again.
// Time exists only as frames.
//
// Effect itself is the engine of a system without a board: every output
// operation does nothing, so the play states pass at once. EffectDecklink is
// the engine proper. The page draws into the bare buffers, so no drawing
// contexts are kept beside them.

#include <QString>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "board/gboard.h"
#include "media/media_player.h"
#include "playout/auto_event.h"
#include "playout/worker_thread.h"
#include "render/frame_ring.h"
#include "render/geometry.h"

namespace orv {

// What goes on beside a stage that holds the output for many frames: the
// page's running timers, which must not stand still while a page blinks,
// lives or types on. Called on the drawing thread, once a frame.
class IStageTicker {
public:
    virtual ~IStageTicker() = default;
    // The changes go into the buffers alone: the live stage composes every
    // frame from buffer A and writes it whole.
    virtual void TickInMemory() = 0;
    // The changes are written to the canvas too: the picture at column x
    // and, while blinking, its twin from buffer B at column x2 (else -1).
    virtual void TickOnCanvas(int x, int y, int x2) = 0;
};

class CPageManager;

// What the last Run did, for tests and the benchmark. Written by the drawing
// thread during a run; read it after the run has returned.
struct UstStepStats {
    int nSubSteps = 0;
    int nCaptures = 0;
    int64_t nLongestSubStepNs = 0;
    bool bKeepTimes = false;            // set by the caller before a run
    std::vector<int64_t> subStepTimes;  // in nanoseconds, when kept
    // Roll and crawl: strips whose rows the routine reached before the
    // strip thread had finished them, and the longest the thread took for
    // one strip (written by the strip thread, read once the run is over).
    int nLateStrips = 0;
    int nStripsRendered = 0;
    int64_t nLongestStripNs = 0;
};

// What the last blink and the last live stage did; a transition leaves
// them alone. Written by the drawing thread; read once the stage is over.
struct UstLiveStats {
    // The blink: pixel copies into the canvas and hops of the origin.
    int nBlinkCopies = 0;
    int nBlinkHops = 0;
    // The live stage: frames sent, frames where an active animation's ring
    // was empty (so its last frame stood again), and the time each main
    // loop frame took to compose, when kept.
    int nLiveFrames = 0;
    int nEmptyRings = 0;
    bool bKeepTimes = false;
    std::vector<int64_t> composeTimes;
};

// Blink periods in frames by the page's blink speed; 0 for a speed that
// has no period (and must not reach the air).
int BlinkPeriod(int speed);

enum EWorkerKind : int { WORKER_STRIP = 0, WORKER_ANIMATION = 1 };

class Effect {
    friend class CLiveStage;

public:
    Effect(CGBoard* board, uint32_t* bufferA, uint32_t* bufferB, int width, int height);
    virtual ~Effect();
    Effect(const Effect&) = delete;
    Effect& operator=(const Effect&) = delete;

    // The virtual operations in the order of their slots.
    virtual void Clear();
    virtual void WaitMs(int ms);
    // The frame's border pixels clockwise from (startX, 0); startY is not
    // used. Answers the count, 2 x (width + height): the corners stand twice.
    virtual int BuildPerimeter(int16_t* xs, int16_t* ys, int startX, int startY, int width,
                               int height);
    // A permutation of 0 to count - 1 into order, used as scratch.
    virtual void ShuffleOrder(int count, int16_t* used, int16_t* order);
    // Strips 0 and 1 of a roll into the two buffers, at the start of a pass.
    virtual void PrepareStrips(int secondLayer);
    virtual void Run(int* request, int phase, CPageManager* page);
    virtual void RunLive(int kind, CPageManager* page, int endless);
    virtual void RunBlink(int* request, CPageManager* page, int endless);
    virtual void Reserved1(int) {}
    // Reads the next frame of animation `index` into its ring, if it has room.
    virtual void StepAnimation(int index);
    virtual void Reserved2() {}
    virtual void Reserved3() {}
    virtual void Reserved4() {}
    virtual void Stop();

    // Typed-on text. HideTyping brings the page's typing texts to air empty
    // (before it is rendered); TypeStep shows the next character or line
    // and answers true once all is shown; RunTyping shows them all, one
    // after the other at the page's delay, and at once when m_bTyping is
    // cleared; ShowAllTyped shows whatever is left at once.
    static void HideTyping(CPageManager& page);
    bool TypeStep(CPageManager& page);
    void RunTyping(CPageManager& page);
    void ShowAllTyped(CPageManager& page);
    // One frame of an automatic typing, with the timers' change in it.
    void TypingFrame();

    // No strip thread, or the strip thread waits with nothing asked of it.
    bool StripThreadIdle() const;
    // No animation feeder, or the feeder waits with its rings topped up.
    bool AnimThreadIdle() const;

    const UstStepStats& Stats() const { return m_Stats; }
    UstStepStats& Stats() { return m_Stats; }
    UstLiveStats& LiveStats() { return m_LiveStats; }

    CGBoard* m_pBoard = nullptr;
    std::unique_ptr<CBoardChannel> m_pChannel;
    int32_t m_nWidth = 0, m_nHeight = 0;
    uint32_t* m_pBufferA = nullptr;  // owned by the play engine
    uint32_t* m_pBufferB = nullptr;
    int32_t m_nCanvasWidth = 0, m_nCanvasHeight = 0;
    // The flags another thread clears to end a roll, a blink, a live stage.
    std::atomic<int32_t> m_bRunning{0};
    std::atomic<int32_t> m_bBlinking{0};
    std::atomic<int32_t> m_bAnimating{0};
    std::atomic<int32_t> m_bTyping{0};
    // The roll or crawl in progress.
    CPageManager* m_pPage = nullptr;
    int32_t m_nStrips = 0;  // strips of the page, plus the blank one
    std::atomic<int32_t> m_nStrip{0};
    std::atomic<int32_t> m_nPrepared{0};
    int32_t m_nRollPad = 0;  // filled in by the strip count; nothing reads it
    std::unique_ptr<CWorkerThread> m_hStripThread;
    std::unique_ptr<CAutoEvent> m_hStripEvent;
    // The highest strip whose buffer is finished. The routine copies rows
    // of a strip only once it is; until then it writes them blank, so a
    // late renderer costs rows of the picture but never stops the motion
    // and never has its buffer read while it writes it.
    std::atomic<int32_t> m_nReady{0};
    // A second layer of roll buffers: the system never makes one, so they
    // stay null and every step that would fill them is skipped.
    uint32_t* m_pBufferA2 = nullptr;
    uint32_t* m_pBufferB2 = nullptr;
    // The animations of a live page, one element each.
    int32_t m_nAnimCount = 0;
    std::vector<std::unique_ptr<MediaPlayer>> m_pAnimPlayer;
    // The last frame each animation read well, which stands in for a frame
    // that a damaged file cannot give (the feeder's own).
    std::vector<int32_t> m_pAnimGood;
    std::vector<int32_t> m_pAnimFrame;
    // Cleared by the drawing thread when an animation ends, read by the feeder.
    std::unique_ptr<std::atomic<int32_t>[]> m_pAnimActive;
    std::vector<std::unique_ptr<FrameRing>> m_pAnimRing;
    std::unique_ptr<CWorkerThread> m_hAnimThread;
    std::unique_ptr<CAutoEvent> m_hAnimEvent;
    // How the live stage opens an animation file: by its extension, unless a
    // test puts a source of its own here before the stage.
    std::function<std::unique_ptr<MediaPlayer>(const QString&)> m_fnOpenPlayer;
    // The play engine's running timers, when it has any to keep going.
    IStageTicker* m_pTicker = nullptr;

    // A worker's pieces of waiting before its owner waits without limit.
    static constexpr std::chrono::milliseconds WORKER_WAIT{3000};
    static constexpr int WORKER_WAITS = 3;

protected:
    // The page fits the canvas and both buffers exist.
    bool CanDraw() const;
    // Starts the strip thread (WORKER_STRIP) or the animation feeder.
    void StartWorker(int kind);
    // Clears the worker's flag, wakes it and joins it; any other worker
    // still alive is ended the same way, so none outlives its handles.
    // Answers the time-outs of the join.
    int EndWorker(int kind);

    UstStepStats m_Stats;
    UstLiveStats m_LiveStats;
    // Held by the strip thread while it renders, and by PrepareStrips: a new
    // pass waits for a strip still being rendered from the last one.
    std::mutex m_StripMutex;

private:
    void StripThreadMain();
    void AnimThreadMain();
    void PrepareNextStrip();
    void EndOneWorker(int kind, int& timeouts);
    // The page again in buffer A, and the rectangle of it on air.
    void ShowTyped(CPageManager& page, const UstRect& area);
};

}  // namespace orv
