// The play engine's side of running timers: they start with the page's
// picture and stop when the page leaves, and between the steps of the
// machine the engine's thread gives them one frame at a time.
#include <algorithm>
#include <chrono>
#include <vector>

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
// between frames instead of sleeping until it comes. New data for the page
// on air wakes it too, but is no step of the machine.
void CPlayEngine::WaitForWork() {
    for (;;) {
        bool woken = false;
        while (!woken && TimersRunning() && !m_bExit.load()) {
            woken = m_hEvent.WaitFor(std::chrono::milliseconds(0));
            if (!woken) TickTimers();
        }
        if (!woken) m_hEvent.Wait();
        if (m_bRefresh.exchange(0)) RefreshAir();
        if (m_bKeyed.exchange(0) || m_bExit.load()) return;
    }
}

// The picture is drawn and compared under the lock; the changed rectangle
// goes to the canvas right after a frame boundary, as a timer's value does,
// so the output never shows half of it.
void CPlayEngine::RefreshAir() {
    CBoardChannel* channel = m_pEffect->m_pChannel.get();
    CPageManager* page = m_pAirPage.load();
    if (!channel || !page || page->HasBlinkObject()) return;
    UstRect area;
    {
        CStepLock lock(*this);
        if (m_pAirPage.load() != page) return;
        area = RedrawAirPicture(page);
    }
    if (area.Width() <= 0 || area.Height() <= 0) return;
    channel->WaitFrame();
    CStepLock lock(*this);
    if (m_pAirPage.load() != page) return;
    int x = 0, y = 0;
    channel->GetOrigin(x, y);
    const int columns = std::max(m_pEffect->m_nCanvasWidth, 1);
    channel->CopyRect((x + area.left) % columns, y + area.top, m_nWidth, area.left, area.top,
                      area.Width(), area.Height(), m_pBufferA.data());
    m_nRefreshPixels.fetch_add(int64_t{area.Width()} * area.Height());
    auto* card = dynamic_cast<EffectDecklink*>(m_pEffect.get());
    if (card && card->m_pPipeline) card->m_pPipeline->CaptureField();
}

// Buffer A takes the new picture where it differs; the running timers keep
// drawing over it. Answers the rectangle that differs.
UstRect CPlayEngine::RedrawAirPicture(CPageManager* page) {
    std::vector<uint32_t> fresh(m_pBufferA.size(), 0u);
    const bool timers = m_bTimersOn.load() != 0;
    page->DrawForPlay(fresh.data(), nullptr, m_nWidth, m_nHeight, !timers);
    const uint32_t* old = timers ? m_Timers.Under() : m_pBufferA.data();
    if (!old) return {};
    UstRect area{m_nWidth, m_nHeight, 0, 0};
    for (int y = 0; y < m_nHeight; ++y) {
        const size_t row = static_cast<size_t>(y) * m_nWidth;
        for (int x = 0; x < m_nWidth; ++x) {
            if (fresh[row + x] == old[row + x]) continue;
            area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x + 1),
                    std::max(area.bottom, y + 1)};
        }
    }
    if (area.right <= area.left) return {};
    if (timers) {
        m_Timers.Repaint(fresh.data(), area);
    } else {
        for (int y = area.top; y < area.bottom; ++y) {
            const size_t row = static_cast<size_t>(y) * m_nWidth;
            std::copy(fresh.begin() + static_cast<ptrdiff_t>(row + area.left),
                      fresh.begin() + static_cast<ptrdiff_t>(row + area.right),
                      m_pBufferA.data() + row + area.left);
        }
    }
    return area;
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
