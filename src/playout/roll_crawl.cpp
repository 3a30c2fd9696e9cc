// Rows 0 and 1: pages longer than the screen, moved through the canvas in
// strips. Nothing is ever copied but the rows (or columns) just beyond the
// far edge of the view, after which the origin moves by as much: the canvas
// wraps, so the slide never ends. Two page buffers take turns, the even
// strips in A and the odd ones in B, while the strip thread renders the next
// strip into the one not on screen.
#include <algorithm>

#include "playout/effect_decklink.h"
#include "playout/effect_table.h"

namespace orv {

namespace {

constexpr int DELAY_PIECE_MS = 20;

int WrapTo(int v, int size) {
    return (v % size + size) % size;
}

}  // namespace

void EffectDecklink::RollEffect(int* request, int, const int* steps) {
    ScrollRoutine(request, steps, false);
}

void EffectDecklink::CrawlEffect(int* request, int, const int* steps) {
    ScrollRoutine(request, steps, true);
}

// Passes until the repeat count is used up or Stop; between two passes the
// output stays as the last one left it, empty. Stop leaves the view frozen
// where it was and the origin where it stood.
void EffectDecklink::ScrollRoutine(int* request, const int* steps, bool crawl) {
    const int64_t delayMs = int64_t{std::max(0, LoadRequestWord(request, REQ_SCROLL_DELAY))} * 1000;
    int64_t passes = int64_t{std::max(0, LoadRequestWord(request, REQ_REPEAT))} + 1;
    UstScroll s;
    s.bCrawl = crawl;
    s.nUnit = crawl ? m_nWidth : m_nHeight;
    s.nTotal = int64_t{s.nUnit} * m_nStrips;
    m_pChannel->GetOrigin(s.x, s.y);
    while (m_bRunning.load(std::memory_order_relaxed)) {
        ScrollPass(request, steps, s);
        if (--passes < 1) break;
        WaitBetweenPasses(delayMs);
    }
    EndWorker(WORKER_STRIP);
}

void EffectDecklink::ScrollPass(int* request, const int* steps, UstScroll& s) {
    s.p = 0;
    PrepareStrips(0);
    s.pSource = m_pBufferA;
    s.nLateStrip = -1;
    while (s.p < s.nTotal) {
        if (!m_bRunning.load(std::memory_order_relaxed)) return;
        m_pChannel->WaitFrame();
        for (int sub = 0; sub <= m_nFieldLoop && s.p < s.nTotal; ++sub)
            TimedSubStep([&] {
                ScrollSubStep(request, steps, s);
                if (sub == 0) Capture();
            });
    }
}

// The step is read again on every sub-step: Faster and Slower change it
// while the page moves. A step that crosses the end of a strip is two
// copies, the rest coming from the other buffer.
void EffectDecklink::ScrollSubStep(int* request, const int* steps, UstScroll& s) {
    const int step = steps[ClampSpeed(LoadRequestWord(request, REQ_IN_SPEED)) - 1];
    const int r = static_cast<int>(s.p % s.nUnit);
    const int piece = static_cast<int>(std::min<int64_t>({step, s.nTotal - s.p, s.nUnit - r}));
    ScrollPiece(s, r, piece);
    if (piece < step && s.p < s.nTotal) {
        const int rest = static_cast<int>(std::min<int64_t>(step - piece, s.nTotal - s.p));
        FollowStrip(s);
        ScrollPiece(s, static_cast<int>(s.p % s.nUnit), rest);
    }
    m_pChannel->SetOrigin(s.x, s.y);
    FollowStrip(s);
    const int strip = m_nStrip.load(std::memory_order_relaxed);
    if (m_hStripEvent && m_nStrips >= 3 && m_nPrepared.load(std::memory_order_relaxed) == strip)
        m_hStripEvent->Set();
}

// `rows` rows (columns for a crawl) of the strip under p, from row `from` of
// its buffer, to just beyond the far edge of the view.
void EffectDecklink::ScrollPiece(UstScroll& s, int from, int rows) {
    if (rows <= 0) return;
    const int strip = static_cast<int>(s.p / s.nUnit);
    const bool ready = strip <= m_nReady.load(std::memory_order_acquire);
    if (!ready && strip != s.nLateStrip) {
        ++m_Stats.nLateStrips;
        s.nLateStrip = strip;
    }
    if (s.bCrawl) {
        const int tx = WrapTo(s.x + m_nWidth, m_nCanvasWidth);
        if (ready)
            m_pChannel->CopyRect(tx, s.y, m_nWidth, from, 0, rows, m_nHeight, s.pSource);
        else
            m_pChannel->FillRect(tx, s.y, rows, m_nHeight, 0);
        s.x = WrapTo(s.x + rows, m_nCanvasWidth);
    } else {
        const int ty = WrapTo(s.y + m_nHeight, m_nCanvasHeight);
        if (ready)
            m_pChannel->CopyRect(s.x, ty, m_nWidth, 0, from, m_nWidth, rows, s.pSource);
        else
            m_pChannel->FillRect(s.x, ty, m_nWidth, rows, 0);
        s.y = WrapTo(s.y + rows, m_nCanvasHeight);
    }
    s.p += rows;
}

// Entering another strip switches the source buffer. The strip number is
// published after the last read of the strip before it, for the strip
// thread then renders into that buffer.
void EffectDecklink::FollowStrip(UstScroll& s) {
    const int strip = static_cast<int>(s.p / s.nUnit);
    if (strip == m_nStrip.load(std::memory_order_relaxed)) return;
    m_nStrip.store(strip, std::memory_order_release);
    s.pSource = strip % 2 == 0 ? m_pBufferA : m_pBufferB;
}

// Whole seconds waited in pieces, so that Stop is seen within one piece
// however long the delay.
void EffectDecklink::WaitBetweenPasses(int64_t ms) {
    for (int64_t waited = 0; waited < ms && m_bRunning.load(std::memory_order_relaxed);
         waited += DELAY_PIECE_MS)
        WaitMs(DELAY_PIECE_MS);
}

}  // namespace orv
