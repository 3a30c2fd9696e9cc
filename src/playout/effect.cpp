#include "playout/effect.h"

#include <algorithm>
#include <ctime>
#include <random>
#include <thread>

#include "project/page_manager.h"

namespace orv {

Effect::Effect(CGBoard* board, uint32_t* bufferA, uint32_t* bufferB, int width, int height)
    : m_pBoard(board),
      m_nWidth(width),
      m_nHeight(height),
      m_pBufferA(bufferA),
      m_pBufferB(bufferB) {}

Effect::~Effect() {
    EndWorker(WORKER_STRIP);
}

void Effect::Clear() {
    if (m_pChannel) m_pChannel->Clear();
}

// Paces delays, never pictures: callers wait in pieces of 20 ms and look at
// their flag in between.
void Effect::WaitMs(int ms) {
    if (ms <= 0) return;
    const auto start = std::chrono::steady_clock::now();
    const auto length = std::chrono::milliseconds(ms);
    while (std::chrono::steady_clock::now() - start < length)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

int Effect::BuildPerimeter(int16_t* xs, int16_t* ys, int startX, int, int width, int height) {
    startX = std::clamp(startX, 0, std::max(width, 0));
    int n = 0;
    auto put = [&](int x, int y) {
        xs[n] = static_cast<int16_t>(x);
        ys[n] = static_cast<int16_t>(y);
        ++n;
    };
    for (int x = startX; x < width; ++x)
        put(x, 0);
    for (int y = 0; y < height; ++y)
        put(width - 1, y);
    for (int x = width - 1; x >= 0; --x)
        put(x, height - 1);
    for (int y = height - 1; y >= 0; --y)
        put(0, y);
    for (int x = 0; x < startX; ++x)
        put(x, 0);
    return n;
}

// Seeded by the second, so two runs within one second give the same order.
// A taken slot falls back to the next free one above it, else below it,
// which is why the order is not uniform: the dissolve and the random bars
// need no more.
void Effect::ShuffleOrder(int count, int16_t* used, int16_t* order) {
    if (count < 1) return;
    std::minstd_rand random(static_cast<uint32_t>(std::time(nullptr)));
    std::fill_n(used, count, int16_t{0});
    for (int i = 0; i < count; ++i) {
        int k = static_cast<int>((random() >> 8) & 0x7FFF) % count;
        if (used[k]) {
            int free = k + 1;
            while (free < count && used[free])
                ++free;
            if (free >= count) {
                free = k - 1;
                while (free >= 0 && used[free])
                    --free;
            }
            k = free;
        }
        used[k] = 1;
        order[i] = static_cast<int16_t>(k);
    }
}

// At the start of every pass: strips 0 and 1 into buffers A and B, on the
// drawing thread, while nothing moves. The pass begins on strip 0 whatever
// strip the last pass ended on. A one-strip page leaves B blank: its second
// strip is the empty one.
void Effect::PrepareStrips(int secondLayer) {
    if (secondLayer || !m_pPage || !m_pBufferA || !m_pBufferB) return;
    std::lock_guard lock(m_StripMutex);
    const size_t pixels = static_cast<size_t>(m_nWidth) * m_nHeight;
    m_nStrip.store(0, std::memory_order_relaxed);
    std::fill_n(m_pBufferA, pixels, 0u);
    m_pPage->DrawStrip(0, m_pBufferA, m_nWidth, m_nHeight);
    m_nPrepared.store(0, std::memory_order_relaxed);
    m_nReady.store(0, std::memory_order_relaxed);
    if (m_nStrips < 2) return;
    std::fill_n(m_pBufferB, pixels, 0u);
    if (m_nStrips - 1 > 1) m_pPage->DrawStrip(1, m_pBufferB, m_nWidth, m_nHeight);
    m_nPrepared.store(1, std::memory_order_relaxed);
    m_nReady.store(1, std::memory_order_relaxed);
}

void Effect::Run(int*, int, CPageManager*) {}

void Effect::RunLive(int, CPageManager*, int) {}

void Effect::RunBlink(int*, CPageManager*, int) {}

int BlinkPeriod(int speed) {
    static constexpr int FRAMES[] = {0, 60, 50, 40, 35, 30, 25, 20, 15, 10, 5};
    if (speed < 0 || speed >= static_cast<int>(std::size(FRAMES))) return 0;
    return FRAMES[speed];
}

// A frame the file cannot give is replaced by the last one it gave, and by
// an empty one before any: the animation keeps its count and its pace.
void Effect::StepAnimation(int index) {
    const auto i = static_cast<size_t>(index);
    if (i >= m_pAnimPlayer.size() || !m_pAnimPlayer[i] || !m_pAnimRing[i]) return;
    uint8_t* block = m_pAnimRing[i]->NextWriteBlock();
    if (!block) return;
    MediaPlayer& player = *m_pAnimPlayer[i];
    auto* pixels = reinterpret_cast<uint32_t*>(block);
    const int frame = m_pAnimFrame[i];
    if (player.ReadFrameTo(frame, pixels))
        m_pAnimGood[i] = frame;
    else if (m_pAnimGood[i] < 0 || !player.ReadFrameTo(m_pAnimGood[i], pixels))
        std::fill_n(pixels, m_pAnimRing[i]->BlockBytes() / 4, 0u);
    m_pAnimFrame[i] = (frame + 1) % std::max(1, player.GetInfo()->nFrames);
    m_pAnimRing[i]->CommitWrite();
}

void Effect::Stop() {
    m_bRunning.store(0, std::memory_order_relaxed);
    m_bBlinking.store(0, std::memory_order_relaxed);
    m_bAnimating.store(0, std::memory_order_relaxed);
    m_bTyping.store(0, std::memory_order_relaxed);
}

bool Effect::CanDraw() const {
    return m_pBufferA && m_pBufferB && m_nWidth >= 1 && m_nHeight >= 1 &&
           m_nWidth <= m_nCanvasWidth && m_nHeight <= m_nCanvasHeight;
}

void Effect::StartWorker(int kind) {
    auto event = std::make_unique<CAutoEvent>();
    auto thread = std::make_unique<CWorkerThread>();
    CWorkerThread* started = thread.get();
    if (kind == WORKER_STRIP) {
        m_hStripEvent = std::move(event);
        m_hStripThread = std::move(thread);
        started->Start([this] { StripThreadMain(); });
    } else {
        m_hAnimEvent = std::move(event);
        m_hAnimThread = std::move(thread);
        started->Start([this] { AnimThreadMain(); });
    }
}

int Effect::EndWorker(int kind) {
    int timeouts = 0;
    EndOneWorker(kind, timeouts);
    EndOneWorker(kind == WORKER_STRIP ? WORKER_ANIMATION : WORKER_STRIP, timeouts);
    return timeouts;
}

void Effect::EndOneWorker(int kind, int& timeouts) {
    auto& thread = kind == WORKER_STRIP ? m_hStripThread : m_hAnimThread;
    auto& event = kind == WORKER_STRIP ? m_hStripEvent : m_hAnimEvent;
    (kind == WORKER_STRIP ? m_bRunning : m_bAnimating).store(0, std::memory_order_relaxed);
    if (event) event->Set();
    if (thread) timeouts += thread->Join(WORKER_WAIT, WORKER_WAITS);
    thread.reset();
    event.reset();
}

void Effect::StripThreadMain() {
    while (m_bRunning.load(std::memory_order_relaxed)) {
        m_hStripEvent->Wait();
        if (!m_bRunning.load(std::memory_order_relaxed)) break;
        PrepareNextStrip();
    }
}

// The next strip goes into the buffer that is not on screen, once the
// routine shows the strip last prepared. The number is taken before the
// rendering, so the routine stops asking while it runs; the strip counts as
// ready only when it is finished.
void Effect::PrepareNextStrip() {
    std::lock_guard lock(m_StripMutex);
    // A wake-up with no page of strips (the worker's own tests) has nothing to do.
    if (m_nStrips < 1) return;
    const int prepared = m_nPrepared.load(std::memory_order_relaxed);
    if (prepared != m_nStrip.load(std::memory_order_acquire) || prepared == m_nStrips - 1) return;
    const int next = (prepared + 1) % m_nStrips;
    m_nPrepared.store(next, std::memory_order_relaxed);
    const auto start = std::chrono::steady_clock::now();
    uint32_t* buffer = next % 2 == 0 ? m_pBufferA : m_pBufferB;
    std::fill_n(buffer, static_cast<size_t>(m_nWidth) * m_nHeight, 0u);
    if (next < m_nStrips - 1) m_pPage->DrawStrip(next, buffer, m_nWidth, m_nHeight);
    m_nReady.store(next, std::memory_order_release);
    const int64_t ns = std::chrono::duration_cast<std::chrono::nanoseconds>(
                           std::chrono::steady_clock::now() - start)
                           .count();
    ++m_Stats.nStripsRendered;
    m_Stats.nLongestStripNs = std::max(m_Stats.nLongestStripNs, ns);
}

bool Effect::AnimThreadIdle() const {
    return !m_hAnimEvent || m_hAnimEvent->HasIdleWaiter();
}

bool Effect::StripThreadIdle() const {
    return !m_hStripEvent || m_hStripEvent->HasIdleWaiter();
}

// Woken once per output frame, the feeder tops each ring up: so it keeps
// the pace of the output, the rings absorb the hiccups of the files, and a
// wake-up that came while it was still reading is not lost.
void Effect::AnimThreadMain() {
    while (m_bAnimating.load(std::memory_order_relaxed)) {
        m_hAnimEvent->Wait();
        for (int i = 0; i < m_nAnimCount && m_bAnimating.load(std::memory_order_relaxed); ++i) {
            const auto k = static_cast<size_t>(i);
            if (!m_pAnimActive[k].load(std::memory_order_relaxed) || !m_pAnimRing[k]) continue;
            for (int n = 0; n < m_pAnimRing[k]->Count(); ++n)
                StepAnimation(i);
        }
    }
}

}  // namespace orv
