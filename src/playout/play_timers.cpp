#include "playout/play_timers.h"

#include <QImage>

#include <algorithm>
#include <chrono>

#include "board/gboard.h"
#include "project/page_manager.h"

namespace orv {

namespace {

UstRect ClipToFrame(const UstRect& r, int width, int height) {
    const UstRect c{std::max(r.left, 0), std::max(r.top, 0), std::min(r.right, width),
                    std::min(r.bottom, height)};
    return c.Width() > 0 && c.Height() > 0 ? c : UstRect{};
}

UstRect ImageRect(const ObjectImage& image) {
    if (!image.Made()) return {};
    return {image.x, image.y, image.x + image.width, image.y + image.height};
}

}  // namespace

int64_t CSystemTimerClock::SteadyMs() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::time_t CSystemTimerClock::WallSeconds() {
    return std::time(nullptr);
}

int64_t CountedValue(int64_t base, int64_t start, int64_t end, int64_t elapsedSeconds) {
    if (end < start) return base <= end ? base : std::max(base - elapsedSeconds, end);
    if (end > start) return base >= end ? base : std::min(base + elapsedSeconds, end);
    return base;
}

bool HasRunningTimers(const CPageManager& page) {
    if (page.IsScrollPage()) return false;
    return std::any_of(page.Objects().begin(), page.Objects().end(),
                       [](const auto& o) { return o->GetType() == OBJ_TIMER; });
}

void CPlayTimers::Begin(const CPageManager& page, uint32_t* frame, int width, int height,
                        uint32_t* second) {
    End();
    if (!frame || width <= 0 || height <= 0) return;
    m_pFrame = frame;
    m_nWidth = width;
    m_nHeight = height;
    m_under.assign(frame, frame + static_cast<size_t>(width) * height);
    m_pSecond = second;
    if (second) m_underSecond.assign(second, second + static_cast<size_t>(width) * height);
    // Names are looked up once: the interface's language does not change on air.
    m_names = InterfaceClockNames();
    tzset();  // a time zone changed since the last take shows from this one
    const int64_t now = m_pClock->SteadyMs();
    for (const auto& o : page.Objects()) {
        if (o->GetType() != OBJ_TIMER) continue;
        const auto& tc = static_cast<const CQRDObjectTC&>(*o);
        UstRunningTimer t;
        t.look = tc.m_attr;
        t.setting = tc.m_setting;
        t.fX = tc.m_fStoreX;
        t.fY = tc.m_fStoreY;
        t.nBase = t.setting.nStart;
        t.nSinceMs = now;
        m_timers.push_back(std::move(t));
    }
    {
        std::lock_guard lock(m_mutex);
        m_queue.clear();
    }
    for (UstRunningTimer& t : m_timers)
        Redraw(t, ValueAt(t, now, 0));
    DrawShown({0, 0, width, height});
}

void CPlayTimers::End() {
    m_timers.clear();
    m_under.clear();
    m_under.shrink_to_fit();
    m_underSecond.clear();
    m_underSecond.shrink_to_fit();
    m_pFrame = nullptr;
    m_pSecond = nullptr;
}

void CPlayTimers::Repaint(const uint32_t* fresh, const UstRect& area) {
    if (!m_pFrame || area.Width() <= 0 || area.Height() <= 0) return;
    for (int y = area.top; y < area.bottom; ++y) {
        const size_t row = static_cast<size_t>(y) * m_nWidth;
        std::copy(fresh + row + area.left, fresh + row + area.right,
                  m_under.begin() + static_cast<ptrdiff_t>(row + area.left));
    }
    DrawShownInto(m_pFrame, m_under, area);
}

void CPlayTimers::Control(const UstTimerControl& control) {
    UstTimerControl stamped = control;
    stamped.nAtMs = m_pClock->SteadyMs();
    std::lock_guard lock(m_mutex);
    m_queue.push_back(stamped);
}

void CPlayTimers::TakeControls(int64_t now) {
    std::vector<UstTimerControl> queue;
    {
        std::lock_guard lock(m_mutex);
        queue.swap(m_queue);
    }
    for (const UstTimerControl& c : queue)
        for (UstRunningTimer& t : m_timers) {
            if (t.setting.nKind != 0) continue;  // a clock has nothing to control
            const int64_t at = std::max(t.nSinceMs, std::min(c.nAtMs, now));
            const int64_t runMs = t.nRunMs + (t.bPaused ? 0 : at - t.nSinceMs);
            if (c.nControl == TIMER_PAUSE && !t.bPaused) {
                t.nRunMs = runMs;
                t.bPaused = true;
            } else if (c.nControl == TIMER_RESUME && t.bPaused) {
                t.nSinceMs = at;
                t.bPaused = false;
            } else if (c.nControl == TIMER_RESTART || c.nControl == TIMER_SET) {
                t.nBase = c.nControl == TIMER_SET ? c.nValue : int64_t{t.setting.nStart};
                t.nRunMs = 0;
                t.nSinceMs = at;
            }
        }
}

QString CPlayTimers::ValueAt(const UstRunningTimer& t, int64_t now, int aheadSeconds) const {
    if (t.setting.nKind != 0) {
        const std::time_t wall = m_pClock->WallSeconds() + aheadSeconds;
        std::tm local{};
        if (!localtime_r(&wall, &local)) return {};
        return FormatClock(t.setting, local, m_names);
    }
    const int64_t runMs = t.nRunMs + (t.bPaused ? 0 : std::max<int64_t>(now - t.nSinceMs, 0));
    const int64_t value = CountedValue(t.nBase, t.setting.nStart, t.setting.nEnd,
                                       runMs / 1000 + (t.bPaused ? 0 : aheadSeconds));
    return CounterString(t.setting, value);
}

// The new value's image, taken from the one made in advance when it was
// guessed right; answers the frame area that must be written.
UstRect CPlayTimers::Redraw(UstRunningTimer& t, const QString& value) {
    if (value == t.strNext && t.imgNext.Made()) {
        t.imgShown = std::move(t.imgNext);
    } else {
        RenderTimerValue(t.look, t.fX, t.fY, value, t.imgShown);
    }
    t.imgNext.Reset();
    t.strNext.clear();
    const UstRect area =
        UnionRect(t.rcShown, ClipToFrame(ImageRect(t.imgShown), m_nWidth, m_nHeight));
    t.rcShown = ClipToFrame(ImageRect(t.imgShown), m_nWidth, m_nHeight);
    t.strShown = value;
    return area;
}

// The page under the area, then every timer that reaches into it: timers
// may overlap, and the one written last must not hide the others.
void CPlayTimers::DrawShown(const UstRect& area) {
    if (area.Width() <= 0 || area.Height() <= 0) return;
    DrawShownInto(m_pFrame, m_under, area);
    if (m_pSecond) DrawShownInto(m_pSecond, m_underSecond, area);
}

void CPlayTimers::DrawShownInto(uint32_t* frame, const std::vector<uint32_t>& under,
                                const UstRect& area) const {
    for (int y = area.top; y < area.bottom; ++y) {
        const size_t row = static_cast<size_t>(y) * m_nWidth;
        std::copy(under.begin() + static_cast<ptrdiff_t>(row + area.left),
                  under.begin() + static_cast<ptrdiff_t>(row + area.right),
                  frame + row + area.left);
    }
    // The area alone as an image, so that nothing is drawn outside it.
    QImage part(
        reinterpret_cast<uchar*>(frame + static_cast<size_t>(area.top) * m_nWidth + area.left),
        area.Width(), area.Height(), m_nWidth * 4, QImage::Format_ARGB32_Premultiplied);
    for (const UstRunningTimer& t : m_timers)
        if (t.imgShown.Made() && Meets(t.rcShown, area))
            t.imgShown.DrawOn(part, QPoint(-area.left, -area.top));
}

// The next second's value is drawn while the frame has time to spare, so
// that the change itself only copies pixels.
void CPlayTimers::PrepareNext(UstRunningTimer& t, int64_t now) {
    if (t.imgNext.Made() || (t.setting.nKind == 0 && t.bPaused)) return;
    const QString next = ValueAt(t, now, 1);
    if (next == t.strShown) return;
    t.strNext = next;
    RenderTimerValue(t.look, t.fX, t.fY, next, t.imgNext);
}

int64_t CPlayTimers::Tick(CBoardChannel* channel, int canvasWidth) {
    int x = 0, y = 0;
    if (channel) channel->GetOrigin(x, y);
    return TickAt(channel, canvasWidth, x, y, -1);
}

int64_t CPlayTimers::TickAt(CBoardChannel* channel, int canvasWidth, int x, int y, int x2) {
    if (m_timers.empty() || !m_pFrame) return 0;
    const int columns = std::max(canvasWidth, 1);
    const int64_t now = m_pClock->SteadyMs();
    TakeControls(now);
    int64_t written = 0;
    for (UstRunningTimer& t : m_timers) {
        const QString value = ValueAt(t, now, 0);
        if (value == t.strShown) continue;
        const UstRect area = Redraw(t, value);
        DrawShown(area);
        if (area.Width() <= 0 || area.Height() <= 0) continue;
        if (channel) {
            channel->CopyRect((x + area.left) % columns, y + area.top, m_nWidth, area.left,
                              area.top, area.Width(), area.Height(), m_pFrame);
            if (x2 >= 0 && m_pSecond)
                channel->CopyRect((x2 + area.left) % columns, y + area.top, m_nWidth, area.left,
                                  area.top, area.Width(), area.Height(), m_pSecond);
        }
        const int64_t pixels = int64_t{area.Width()} * area.Height();
        m_nLargestWrite = std::max(m_nLargestWrite, pixels);
        written += pixels;
    }
    for (UstRunningTimer& t : m_timers)
        PrepareNext(t, now);
    return written;
}

}  // namespace orv
