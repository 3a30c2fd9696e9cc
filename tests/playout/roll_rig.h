#pragma once
// Roll and crawl runs through a hand-clocked test board, with an engine
// whose pauses between passes are logged in test time instead of slept, and
// a page of strip objects whose every pixel names its page row and column.

#include <chrono>
#include <mutex>
#include <thread>

#include "playout/effect_table.h"
#include "project/page_manager.h"
#include "support/strip_object.h"
#include "transition_rig.h"

namespace orv::test {

// Logs each piece of waiting in ms and each pass as -1.
class CScrollEngine : public EffectDecklink {
public:
    using EffectDecklink::EffectDecklink;
    void WaitMs(int ms) override {
        Log(ms);
        if (onWait) onWait();
        if (bRealWaits) EffectDecklink::WaitMs(ms);
    }
    void PrepareStrips(int layer) override {
        Log(-1);
        EffectDecklink::PrepareStrips(layer);
    }
    std::vector<int> Log() {
        std::lock_guard lock(m_mutex);
        return m_log;
    }
    bool bRealWaits = false;
    std::function<void()> onWait;

private:
    void Log(int entry) {
        std::lock_guard lock(m_mutex);
        m_log.push_back(entry);
    }
    std::mutex m_mutex;
    std::vector<int> m_log;
};

struct UstRollRig {
    UstRollRig(const char* mode, int pageType, int speed)
        : board(Mode(mode), EPlayoutClock::HAND),
          w(board.GetFrameSize(0).cx),
          h(board.GetFrameSize(0).cy),
          bufferB(static_cast<size_t>(w) * h),
          engine(0, &board, bufferA.data(), bufferB.data(), w, h) {
        page.m_nPageType = static_cast<uint32_t>(pageType);
        page.m_effect.nInEffect = pageType == 2 ? EFFECT_CRAWL : EFFECT_ROLL;
        page.m_effect.nInSpeed = speed;
    }
    bool Crawl() const { return page.m_nPageType == 2; }
    // A strip object over the page's first `length` rows (columns for a
    // crawl), the frame's whole width (height) across.
    CStripObject* AddStrips(int length) {
        const UstRect r = Crawl() ? UstRect{0, 0, length, h} : UstRect{0, 0, w, length};
        return static_cast<CStripObject*>(page.AddObject(std::make_unique<CStripObject>(r)));
    }
    int* Words() { return RequestWords(page.m_effect); }

    // The run as the play engine does it, with the page's own request.
    // Before each frame the strip thread finishes what it was asked, unless
    // `racing`; afterFrame(k) sees the canvas after frame k.
    int Play(const std::function<void(int)>& afterFrame = {}, bool racing = false) {
        page.BeginScroll(w, h);
        page.DrawForPlay(bufferA.data(), nullptr, w, h);
        const int frames = RunByHand(
            board,
            [&] {
                engine.Run(Words(), 0, &page);
                if (afterRun) afterRun();
            },
            [&](int frame) {
                if (!racing) WaitForStripThread();
                if (afterFrame) afterFrame(frame);
            });
        page.EndScroll();
        return frames;
    }
    void WaitForStripThread() {
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!engine.StripThreadIdle() && std::chrono::steady_clock::now() < until)
            std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    int Origin() {
        int x = 0, y = 0;
        board.GetOrigin(x, y);
        return Crawl() ? x : y;
    }
    // How far the origin moved since the last call, and the rows (columns)
    // that entered at the far edge of the view meanwhile.
    int Moved(std::vector<uint32_t>* entered = nullptr) {
        const int origin = Origin(), delta = (origin - m_nLast + CANVAS_SIZE) % CANVAS_SIZE;
        m_nLast = origin;
        int x = 0, y = 0;
        board.GetOrigin(x, y);
        uint32_t* canvas = board.GetChannelCanvas(0);
        for (int i = 0; entered && i < delta; ++i)
            for (int j = 0; j < (Crawl() ? h : w); ++j)
                entered->push_back(Crawl() ? *CanvasPixel(canvas, x + w - delta + i, y + j)
                                           : *CanvasPixel(canvas, x + j, y + h - delta + i));
        return delta;
    }
    // Page rows (columns) from..from+count as the strip object over the
    // first `length` draws them: its pattern, blank after.
    std::vector<uint32_t> PageRows(int from, int count, int length) const {
        std::vector<uint32_t> out;
        for (int i = from; i < from + count; ++i)
            for (int j = 0; j < (Crawl() ? h : w); ++j)
                out.push_back(i >= length ? 0u : Crawl() ? PagePixel(i, j) : PagePixel(j, i));
        return out;
    }

    CTestBoard board;
    int w, h;
    std::vector<uint32_t> bufferA = std::vector<uint32_t>(static_cast<size_t>(w) * h);
    std::vector<uint32_t> bufferB;
    CScrollEngine engine;
    CPageManager page;
    std::function<void()> afterRun;  // on the drawing thread, as Run returns

private:
    int m_nLast = 0;
};

}  // namespace orv::test
