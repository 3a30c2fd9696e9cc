// Typed-on text: a page whose texts carry the typing flag comes to air with
// those texts empty, and they fill in character by character or line by
// line, by the operator's Run or at the page's delay. Each step renders the
// page again off air and writes only the rectangle that changed, right
// after WaitFrame.
#include <algorithm>

#include "board/decklink_pipeline.h"
#include "objects/text_object.h"
#include "playout/effect.h"
#include "project/page_manager.h"

namespace orv {

namespace {

// Without an output to say its rate, a frame counts as 16 ms, as for the
// blink.
constexpr int64_t TYPING_FRAME_MS = 16;
constexpr int64_t DURATION_UNITS_PER_MS = 10000;

// Where the next step ends: one character further (line ends show nothing,
// so they go with the character after them), or the end of the line.
int NextStop(const CQRDObjectText& text, int shown, int order) {
    const std::vector<UstCharAttr>& chars = text.Chars();
    const int n = static_cast<int>(chars.size());
    int i = shown;
    if (order == 1) {
        while (i < n && chars[static_cast<size_t>(i)].nChar != 13)
            ++i;
        return std::min(n, i + 1);
    }
    while (i < n && chars[static_cast<size_t>(i)].nChar == 13)
        ++i;
    return std::min(n, i + 1);
}

}  // namespace

void Effect::HideTyping(CPageManager& page) {
    for (CQRDObjectText* text : page.TypingTexts())
        text->m_nPlayShown = 0;
}

void Effect::ShowTyped(CPageManager& page, const UstRect& area) {
    if (!m_pChannel || !CanDraw()) return;
    const UstRect r{std::max(area.left, 0), std::max(area.top, 0), std::min(area.right, m_nWidth),
                    std::min(area.bottom, m_nHeight)};
    std::fill_n(m_pBufferA, static_cast<size_t>(m_nWidth) * m_nHeight, 0u);
    page.DrawForPlay(m_pBufferA, nullptr, m_nWidth, m_nHeight);
    if (r.Width() <= 0 || r.Height() <= 0) return;
    int x = 0, y = 0;
    m_pChannel->GetOrigin(x, y);
    m_pChannel->WaitFrame();
    m_pChannel->CopyRect((x + r.left) % m_nCanvasWidth, (y + r.top) % m_nCanvasHeight, m_nWidth,
                         r.left, r.top, r.Width(), r.Height(), m_pBufferA);
    // On interlaced output the other field comes from the last capture: the
    // new character must reach it too, or it would show on every other line.
    CDecklinkPipeline* pipeline = m_pBoard ? m_pBoard->GetPipeline() : nullptr;
    if (pipeline && pipeline->IsInterlaced()) pipeline->CaptureField();
}

bool Effect::TypeStep(CPageManager& page) {
    for (CQRDObjectText* text : page.TypingTexts()) {
        const int shown = text->m_nPlayShown;
        if (shown < 0 || shown >= text->CharCount()) continue;
        const int stop = NextStop(*text, shown, page.m_typing.nOrder);
        text->m_nPlayShown = stop;
        ShowTyped(page, text->TypedRect(shown, stop));
        break;
    }
    for (CQRDObjectText* text : page.TypingTexts())
        if (text->m_nPlayShown >= 0 && text->m_nPlayShown < text->CharCount()) return false;
    ShowAllTyped(page);
    return true;
}

void Effect::TypingFrame() {
    m_pChannel->WaitFrame();
    if (!m_pTicker) return;
    int x = 0, y = 0;
    m_pChannel->GetOrigin(x, y);
    m_pTicker->TickOnCanvas(x, y, -1);
}

void Effect::RunTyping(CPageManager& page) {
    m_bTyping.store(1, std::memory_order_relaxed);
    // The delay is the operator's: frames of the output's real rate.
    CDecklinkPipeline* pipeline = m_pBoard ? m_pBoard->GetPipeline() : nullptr;
    const int64_t frameMs =
        pipeline ? std::max<int64_t>(1, pipeline->Format().Duration() / DURATION_UNITS_PER_MS)
                 : TYPING_FRAME_MS;
    const int frames =
        static_cast<int>(std::max<int64_t>(1, TypingDelayMs(page.m_typing.nSpeed) / frameMs));
    while (m_bTyping.load(std::memory_order_relaxed) && !TypeStep(page))
        for (int f = 0; f < frames && m_bTyping.load(std::memory_order_relaxed); ++f)
            if (m_pChannel) TypingFrame();
    ShowAllTyped(page);
    m_bTyping.store(0, std::memory_order_relaxed);
}

// The texts draw whole again from here on: a later stage's buffers and the
// next take see the page as it is.
void Effect::ShowAllTyped(CPageManager& page) {
    UstRect area;
    bool hidden = false;
    for (CQRDObjectText* text : page.TypingTexts()) {
        if (text->m_nPlayShown < 0) continue;
        if (text->m_nPlayShown < text->CharCount()) {
            hidden = true;
            area = UnionRect(area, text->TypedRect(text->m_nPlayShown, text->CharCount()));
        }
        text->m_nPlayShown = -1;
    }
    if (hidden) ShowTyped(page, area);
}

}  // namespace orv
