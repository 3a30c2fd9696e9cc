// The blink: the page and its second picture lie side by side in the
// canvas and the origin hops between them, so a phase costs no pixels.
#include "playout/effect_decklink.h"
#include "project/page_manager.h"

namespace orv {

namespace {

// A frame counts as 16 ms in a timed blink, whatever the mode's real rate.
constexpr int64_t BLINK_FRAME_MS = 16;

}  // namespace

// Buffer B holds the page without its blinking parts. The first phase
// shows what the in effect left, so the picture first changes after two
// periods; the blink ends wherever it stands, and the next out effect
// works from that origin. The flag is looked at on every frame, so that
// Run and Stop end it within one.
void EffectDecklink::RunBlink(int* request, CPageManager* page, int endless) {
    const int period = page ? BlinkPeriod(page->m_blink.nSpeed) : 0;
    if (!m_pChannel || !CanDraw() || period < 1 || 2 * m_nWidth > m_nCanvasWidth) return;
    const int64_t limit = int64_t{request ? LoadRequestWord(request, REQ_IN_DELAY) : 0} * 1000;
    m_LiveStats.nBlinkCopies = m_LiveStats.nBlinkHops = 0;
    m_bBlinking.store(1, std::memory_order_relaxed);
    int x = 0, y = 0;
    m_pChannel->GetOrigin(x, y);
    const int x2 = (x + m_nWidth) % m_nCanvasWidth;
    m_pChannel->CopyRect(x2, y, m_nWidth, 0, 0, m_nWidth, m_nHeight, m_pBufferB);
    ++m_LiveStats.nBlinkCopies;
    int phase = 1;
    for (int64_t elapsed = 0; endless || elapsed <= limit; elapsed += BLINK_FRAME_MS * period) {
        for (int f = 0; f < period && m_bBlinking.load(std::memory_order_relaxed); ++f) {
            m_pChannel->WaitFrame();
            if (m_pTicker) m_pTicker->TickOnCanvas(x, y, x2);
        }
        if (!m_bBlinking.load(std::memory_order_relaxed)) break;
        m_pChannel->SetOrigin(phase == 1 ? x : x2, y);
        ++m_LiveStats.nBlinkHops;
        phase ^= 1;
    }
    m_bBlinking.store(0, std::memory_order_relaxed);
}

}  // namespace orv
