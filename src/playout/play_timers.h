#pragma once
// The timers and clocks of a page on air, running. When the page is taken
// they start from their settings; each frame the drawing thread asks them
// whether a value changed, and for each one that did the value is drawn
// anew over the page picture and only its rectangle goes to the canvas.
// The operator's controls come from other threads and wait in a queue
// until the next frame takes them.

#include <QString>

#include <cstdint>
#include <ctime>
#include <mutex>
#include <vector>

#include "objects/tc_object.h"
#include "render/geometry.h"
#include "render/object_image.h"

namespace orv {

class CBoardChannel;
class CPageManager;

// What running timers read the time from: a steady count for counting, and
// the wall clock for clocks, so that a jump of the system clock moves the
// clocks and never a countdown. Tests give their own.
class ITimerClock {
public:
    virtual ~ITimerClock() = default;
    virtual int64_t SteadyMs() = 0;
    virtual std::time_t WallSeconds() = 0;
};

class CSystemTimerClock : public ITimerClock {
public:
    int64_t SteadyMs() override;
    std::time_t WallSeconds() override;
};

enum ETimerControl : int { TIMER_PAUSE = 0, TIMER_RESUME, TIMER_RESTART, TIMER_SET };

struct UstTimerControl {
    int nControl = TIMER_PAUSE;
    int64_t nValue = 0;  // TIMER_SET: the new value in seconds
    int64_t nAtMs = 0;   // when the operator gave it, stamped on arrival
};

// One timer's run: where it counts from, how long it has run, and what
// the frame shows of it.
struct UstRunningTimer {
    UstDefaultAttr look{};
    UstTCSetting setting{};
    float fX = 0, fY = 0;
    int64_t nBase = 0;     // the value when the run (re)started
    int64_t nRunMs = 0;    // time counted before the last resume
    int64_t nSinceMs = 0;  // the steady time of the last resume
    bool bPaused = false;
    QString strShown;
    UstRect rcShown;  // frame pixels the shown value covers
    ObjectImage imgShown;
    QString strNext;  // the value expected next, made in advance
    ObjectImage imgNext;
};

// A counter's value after `elapsedSeconds` from `base`: towards the end,
// down when the end is below the start and up otherwise, held at the end.
int64_t CountedValue(int64_t base, int64_t start, int64_t end, int64_t elapsedSeconds);

// Whether the page, not a roll or crawl, has timers of its own that run.
bool HasRunningTimers(const CPageManager& page);

class CPlayTimers {
public:
    explicit CPlayTimers(ITimerClock* clock) : m_pClock(clock) {}
    void SetClock(ITimerClock* clock) { m_pClock = clock; }

    // The page has just been drawn into `frame` without its timers: keep
    // that picture, start each timer, and draw it over the frame. A page
    // that blinks gives its second picture too, which shows them as well.
    void Begin(const CPageManager& page, uint32_t* frame, int width, int height,
               uint32_t* second = nullptr);
    // The page left the air.
    void End();
    bool Active() const { return !m_timers.empty(); }

    // One frame: what changed is drawn into the frame and written to the
    // channel, with the canvas origin added. Answers the pixels written.
    int64_t Tick(CBoardChannel* channel, int canvasWidth);
    // The same, written where the caller says: the frame's picture at
    // canvas column x and, when x2 is not negative, the second picture at
    // x2. With no channel the pictures in memory alone change.
    int64_t TickAt(CBoardChannel* channel, int canvasWidth, int x, int y, int x2);

    // From any thread; taken at the next tick, counted from when it came.
    void Control(const UstTimerControl& control);

    // The page under the timers, or null when none run.
    const uint32_t* Under() const { return m_pFrame ? m_under.data() : nullptr; }
    // The page under them changed inside `area` to what `fresh` holds
    // there: the frame is made again from it with the timers on top.
    void Repaint(const uint32_t* fresh, const UstRect& area);

    const std::vector<UstRunningTimer>& Timers() const { return m_timers; }
    // The largest rectangle one change has written, for the benchmark.
    int64_t LargestWrite() const { return m_nLargestWrite; }

private:
    void TakeControls(int64_t now);
    QString ValueAt(const UstRunningTimer& t, int64_t now, int aheadSeconds) const;
    UstRect Redraw(UstRunningTimer& t, const QString& value);
    void PrepareNext(UstRunningTimer& t, int64_t now);
    void DrawShown(const UstRect& area);
    void DrawShownInto(uint32_t* frame, const std::vector<uint32_t>& under,
                       const UstRect& area) const;

    ITimerClock* m_pClock;
    std::vector<UstRunningTimer> m_timers;
    std::vector<uint32_t> m_under;  // the page without its timers
    uint32_t* m_pFrame = nullptr;
    std::vector<uint32_t> m_underSecond;  // the blink's second picture, likewise
    uint32_t* m_pSecond = nullptr;
    int m_nWidth = 0, m_nHeight = 0;
    UstClockNames m_names;
    int64_t m_nLargestWrite = 0;
    std::mutex m_mutex;  // guards the queue only
    std::vector<UstTimerControl> m_queue;
};

}  // namespace orv
