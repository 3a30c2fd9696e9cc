// The play engine's side of running timers: they start with the page's
// picture and stop when the page leaves, and between the steps of the
// machine the engine's thread gives them one frame at a time.
#include <chrono>

#include "board/decklink_pipeline.h"
#include "playout/effect_decklink.h"
#include "playout/play_engine.h"
#include "project/page_manager.h"

namespace orv {

// Under the step lock: the picture in buffer A has just been drawn
// without the timers.
void CPlayEngine::StartTimers(CPageManager* page, bool blink) {
    m_Timers.Begin(*page, m_pBufferA.data(), m_nWidth, m_nHeight,
                   blink ? m_pBufferB.data() : nullptr);
    m_bTimersOn.store(m_Timers.Active() && m_pEffect->m_pChannel ? 1 : 0);
}

void CPlayEngine::StopTimers() {
    m_bTimersOn.store(0);
    m_Timers.End();
}

// A key wakes the worker as before; while timers run it looks for one
// between frames instead of sleeping until it comes.
void CPlayEngine::WaitForWork() {
    while (TimersRunning() && !m_bExit.load()) {
        if (m_hEvent.WaitFor(std::chrono::milliseconds(0))) return;
        TickTimers();
    }
    m_hEvent.Wait();
}

// The frame is waited for outside the lock, so that a key never waits
// behind it; a step that holds the lock skips the frame's change, and the
// next frame shows the value it would have shown.
void CPlayEngine::TickTimers(bool waitFrame) {
    CBoardChannel* channel = m_pEffect->m_pChannel.get();
    if (!channel) return;
    if (waitFrame) channel->WaitFrame();
    if (!m_Lock.try_lock()) return;
    if (m_bTimersOn.load()) CountTimerWrite(m_Timers.Tick(channel, m_pEffect->m_nCanvasWidth));
    m_Lock.unlock();
}

void CPlayEngine::CountTimerWrite(int64_t written) {
    m_nTimerPixels.fetch_add(written);
    m_nTimerLargest.store(m_Timers.LargestWrite());
    // An interlaced output shows a held field beside the canvas: it takes
    // the new value too, or every other line would keep the old one.
    auto* card = dynamic_cast<EffectDecklink*>(m_pEffect.get());
    if (written > 0 && card && card->m_pPipeline) card->m_pPipeline->CaptureField();
}

void CPlayEngine::TickInMemory() {
    if (m_bTimersOn.load()) m_Timers.TickAt(nullptr, 0, 0, 0, -1);
}

void CPlayEngine::TickOnCanvas(int x, int y, int x2) {
    CBoardChannel* channel = m_pEffect->m_pChannel.get();
    if (!channel || !m_bTimersOn.load()) return;
    CountTimerWrite(m_Timers.TickAt(channel, m_pEffect->m_nCanvasWidth, x, y, x2));
}

}  // namespace orv
